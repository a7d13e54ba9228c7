// gx_math.h -- internal helpers of the ellipsoid and complex mathematics.
//
// The public functions are declared in gridex.h; this header holds the fixed constants that run
// through the library and the C++ forms (std::complex, sn/cn/dn with an exact complementary
// parameter) that the C functions are built on.  Only sources under src/ and the tests use it.
#ifndef GX_PROJECTION_GX_MATH_H
#define GX_PROJECTION_GX_MATH_H

#include "util/gx_tolerance.h"

#include <cmath>
#include <complex>

namespace gx::math {

// The tolerance, as the mathematics uses it (defined once in gx_tolerance.h).
using gx::eq;
using gx::kTol;

// The series threshold: below it the auxiliary latitudes and the meridian arc use series.
inline constexpr double kSeriesE2 = 0.006884661117170036;
inline constexpr double kHalfPi = 1.5707963267948966; // 0x3FF921FB54442D18
inline constexpr double kPi = 3.141592653589793;
inline constexpr double kTwoPi = 6.283185307179586;
inline constexpr double kQuarterPi = 0.7853981633974483;
inline constexpr double kRadiansPerDegree = 0.017453292519943295;   // pi/180
inline constexpr double kRadiansPerArcSecond = 4.84813681109536e-6; // pi/648000
// Brent's tolerance on x, (pi/2) * 2^-48.
inline constexpr double kZeroinTol = 5.580589596813811e-15;

// The common guard of the "_wconst" conversions: the latitude is returned unchanged.
inline bool auxlat_passthrough(double e2, double lat)
{
    return e2 < kTol || lat == 0.0 || eq(lat, kHalfPi) || eq(lat, -kHalfPi);
}

// sin 2x * (p0 + p1 t + ... + p6 t^6) with t = cos 2x: the Horner form of a 7-term sine series.
inline double sine_series(const double *p, double x)
{
    const double s = std::sin(2.0 * x), t = std::cos(2.0 * x);
    return s * (p[0] + t * (p[1] + t * (p[2] + t * (p[3] + t * (p[4] + t * (p[5] + t * p[6]))))));
}

// The same series from sin x and cos x, for callers that already hold them.
inline double sine_series(const double *p, double sin_x, double cos_x)
{
    const double s = 2.0 * sin_x * cos_x, t = (cos_x - sin_x) * (cos_x + sin_x);
    return s * (p[0] + t * (p[1] + t * (p[2] + t * (p[3] + t * (p[4] + t * (p[5] + t * p[6]))))));
}

// c1..c7 (coefficients of sin 2x .. sin 14x) -> p0..p6 of the Horner form.
inline void sine_to_horner(const double *c, double *p)
{
    p[0] = c[0] - c[2] + c[4] - c[6];
    p[1] = 2.0 * c[1] - 4.0 * c[3] + 6.0 * c[5];
    p[2] = 4.0 * c[2] - 12.0 * c[4] + 24.0 * c[6];
    p[3] = 8.0 * c[3] - 32.0 * c[5];
    p[4] = 16.0 * c[4] - 80.0 * c[6];
    p[5] = 32.0 * c[5];
    p[6] = 64.0 * c[6];
}

// Third flattening n = (1 - sqrt(1 - e2)) / (1 + sqrt(1 - e2)), without cancellation.
inline double third_flattening(double e2)
{
    const double r = 1.0 + std::sqrt(1.0 - e2);
    return e2 / (r * r);
}

// Meridian-arc series in n (e2 below the threshold): fills p[0..6] of (1+n)/a * M - A*phi and
// returns A = 1 + n^2/4 + n^4/64 + n^6/256.  Defined in gx_ellipsoid.cpp.
double meridian_series(double n, double *p);
// Rectifying-latitude series in n: forward (phi -> mu) and inverse (mu -> phi) Horner forms.
void rectifying_series(double n, double *fwd, double *inv);

// Carlson's symmetric integrals (gx_elliptic.cpp).
double rf(double x, double y, double z);
double rd(double x, double y, double z);

// Jacobi functions for the parameter m with its complement mc = 1 - m given separately, so that
// a caller holding both exactly (the complex functions use sn(v | 1 - m)) loses nothing.
// am receives the amplitude (unwrapped: am(u + 2K) = am(u) + pi) when not null.
void sncndn(double u, double m, double mc, double *sn, double *cn, double *dn, double *am);
// The same two integrals in long double (Carlson's R_F and R_D duplicated in long double), for
// the meridian arc, quarter meridian and rectifying radius, which are held to a fraction of a
// unit in the last place of the result.
long double ellint2_ld(long double m);
long double ellint2_amp_ld(long double phi, long double m);
// E(phi | m), any real phi (reduced by multiples of pi), m <= 1.
double ellint2_amp(double phi, double m);
// Jacobi's epsilon function E(am(u | m) | m), m <= 1, complement given.
double epsilon(double u, double m, double mc);

// Complex Jacobi functions and epsilon function of w = u + iv for a real parameter 0 <= m <= 1
// (gx_zelliptic.cpp).
void zsncndn(std::complex<double> w, double m, std::complex<double> *sn, std::complex<double> *cn,
             std::complex<double> *dn);
std::complex<double> zepsilon(std::complex<double> w, double m);

} // namespace gx::math

#endif // GX_PROJECTION_GX_MATH_H
