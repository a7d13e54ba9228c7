// gx_ellipsoid.cpp -- radii of curvature, authalic and rectifying radii, meridian arc and
// quarter meridian.
//
// Below the series threshold e2 = 0.006884661117170036 the meridian arc is the series in the
// third flattening n through n^7; at or above it the closed form with the incomplete elliptic
// integral of the second kind.  The series coefficients are exact fractions derived by
// tools/math/derive_series.py and checked numerically by tools/math/check_series.py.
#include "gridex.h"
#include "projection/gx_math.h"

#include <cmath>

namespace gx::math {

namespace {

// (1+n)/a * M(phi) = A phi + sum_l C_l(n) sin 2l phi; row l-1 holds the coefficients of n^0..n^7
// of C_l (tools/math/derive_series.py --cpp).
constexpr double kMeridianArc[7][8] = {
    {0, -3.0 / 2, 0, 3.0 / 16, 0, 3.0 / 128, 0, 15.0 / 2048},
    {0, 0, 15.0 / 16, 0, -15.0 / 64, 0, -75.0 / 2048, 0},
    {0, 0, 0, -35.0 / 48, 0, 175.0 / 768, 0, 245.0 / 6144},
    {0, 0, 0, 0, 315.0 / 512, 0, -441.0 / 2048, 0},
    {0, 0, 0, 0, 0, -693.0 / 1280, 0, 2079.0 / 10240},
    {0, 0, 0, 0, 0, 0, 1001.0 / 2048, 0},
    {0, 0, 0, 0, 0, 0, 0, -6435.0 / 14336},
};

double poly8(const double *c, double x)
{
    double r = c[7];
    for (int i = 6; i >= 0; --i)
        r = r * x + c[i];
    return r;
}

double arc_factor_minus_1(double n)
{ // A - 1 = n^2/4 + n^4/64 + n^6/256
    const double n2 = n * n;
    return n2 * (1.0 / 4 + n2 * (1.0 / 64 + n2 * (1.0 / 256)));
}

double arc_factor(double n) { return 1.0 + arc_factor_minus_1(n); }

// a A/(1 + n) = a (1 + B') as an unevaluated sum hi + lo, with B' = (A' - n)/(1 + n) small:
// the factor of the series keeps its full precision instead of collecting three roundings.
void arc_scale(double a, double n, double *hi, double *lo)
{
    const double bp = (arc_factor_minus_1(n) - n) / (1.0 + n);
    const double t = a * bp, terr = std::fma(a, bp, -t);
    *hi = a + t;
    *lo = (a - *hi) + t + terr;
}

// (hi + lo) * (x + xlo) rounded once, up to terms of order 2^-106.
double scaled(double hi, double lo, double x, double xlo)
{
    const double pr = hi * x;
    return pr + (std::fma(hi, x, -pr) + hi * xlo + lo * x);
}

} // namespace

double meridian_series(double n, double *p)
{
    double c[7];
    for (int l = 0; l < 7; ++l)
        c[l] = poly8(kMeridianArc[l], n);
    sine_to_horner(c, p);
    return arc_factor(n);
}

} // namespace gx::math

using namespace gx::math;

extern "C" {

GX_API double gx_w(double e2, double phi)
{
    const double s = std::sin(phi);
    return std::sqrt(1.0 - e2 * s * s);
}

GX_API double gx_m(double a, double e2, double phi)
{
    const double w = gx_w(e2, phi);
    return a * (1.0 - e2) / (w * w * w);
}

GX_API double gx_n(double a, double e2, double phi) { return a / gx_w(e2, phi); }

GX_API double gx_auth_r(double a, double e2)
{
    if (e2 < kTol)
        return a;
    const double e = std::sqrt(e2);
    // 1 - (1 - e2)/(2e) ln((1 - e)/(1 + e)) = 1 + (1 - e2) atanh(e)/e
    return a * std::sqrt((1.0 + (1.0 - e2) * std::atanh(e) / e) * 0.5);
}

GX_API double gx_rect_r(double a, double e2)
{
    if (e2 < kTol)
        return a;
    return static_cast<double>(a * ellint2_ld(e2) / 1.570796326794896619231321691639751442L);
}

GX_API double gx_q(double a, double e2, double phi)
{
    if (e2 >= kSeriesE2) {
        // a (E(phi | e2) - (e2/2) sin 2phi / w), with sin 2phi = 2 s c; in long double so that
        // the result is rounded once
        const long double lphi = phi, s = std::sin(lphi), c = std::cos(lphi);
        const long double w = std::sqrt(1.0L - e2 * s * s);
        return static_cast<double>(a * (ellint2_amp_ld(lphi, e2) - e2 * s * c / w));
    }
    // a/(1+n) (A phi + S) = a (1 + B') (phi + S/A), evaluated with the leading product exact
    const double n = third_flattening(e2);
    double p[7];
    const double A = meridian_series(n, p);
    const double s = sine_series(p, phi) / A; // |s| < |phi|
    const double x = phi + s, xlo = (phi - x) + s;
    double hi, lo;
    arc_scale(a, n, &hi, &lo);
    return scaled(hi, lo, x, xlo);
}

GX_API double gx_q90(double a, double e2, double phi)
{
    (void)phi;
    if (e2 >= kSeriesE2)
        return static_cast<double>(a * ellint2_ld(e2));
    const double n = third_flattening(e2);
    double hi, lo;
    arc_scale(a, n, &hi, &lo);
    return scaled(hi, lo, kHalfPi, 6.123233995736766e-17); // pi/2 as a double-double
}

} // extern "C"
