// gx_elliptic.cpp -- Carlson's R_F and R_D, complete and incomplete elliptic integrals of the
// first and second kind, and the Jacobi elliptic functions sn, cn, dn.
//
// R_F and R_D: duplication until every relative deviation from the mean is below 1e-4, then
// Carlson's closing series (B. C. Carlson, "Numerical computation of real or complex elliptic
// integrals", Numerical Algorithms 10, 1995, eqs. 2.2-2.3 and 4.5-4.8).  Deviations of 1e-4
// leave a truncation error of order 1e-24; tools/math/check_carlson.py checks the order.
//
// sn, cn, dn: the arithmetic-geometric mean from a0 = 1, b0 = sqrt(1 - m), c0 = sqrt(m), at most
// 50 steps, stopping when |c_N| <= 2^-48, then the descent phi_{n-1} = (asin((c_n/a_n) sin phi_n)
// + phi_n)/2 from phi_N = 2^N a_N u (Abramowitz and Stegun 16.4); sn = sin phi_0, cn = cos phi_0
// and dn = sqrt(cn^2 + (1 - m) sn^2).  Parameters outside [0, 1] go through the reciprocal and
// imaginary modulus transformations (A&S 16.10, 16.11); m = 1 is tanh and sech.
#include "gridex.h"
#include "projection/gx_math.h"

#include <cmath>
#include <limits>

namespace gx::math {

namespace {

constexpr double kCarlsonDev = 1e-4;   // stop when every relative deviation is below this
constexpr int kCarlsonMaxSteps = 1000; // only reached by arguments 4^1000 apart: a guard

// The amplitude phi_0 of u for 0 <= m < 1 (mc = 1 - m > 0).
double agm_amplitude(double u, double m, double mc)
{
    double a[51], c[51];
    a[0] = 1.0;
    c[0] = std::sqrt(m);
    double b = std::sqrt(mc);
    int n = 0;
    while (std::fabs(c[n]) > kTol && n < 50) {
        a[n + 1] = (a[n] + b) * 0.5;
        c[n + 1] = c[n] * c[n] / (4.0 * a[n + 1]); // (a_n - b_n)/2 without cancellation
        b = std::sqrt(a[n] * b);
        ++n;
    }
    double phi = std::ldexp(a[n] * u, n);
    for (; n > 0; --n)
        phi = (std::asin(c[n] / a[n] * std::sin(phi)) + phi) * 0.5;
    return phi;
}

// E(phi | m) from s = sin phi, c^2 = cos^2 phi, d2 = 1 - m s^2, for |phi| <= pi/2.
double ellint2_scd(double s, double c2, double d2, double m);
double ellint2_complete(double m, double mc);

} // namespace

template <typename T> T rf_t(T x, T y, T z)
{
    if ((x == 0) + (y == 0) + (z == 0) >= 2)
        return std::numeric_limits<T>::infinity();
    T A = 0, X = 0, Y = 0;
    for (int step = 0;; ++step) {
        A = (x + y + z) / T(3);
        X = (A - x) / A;
        Y = (A - y) / A;
        const T Z = (A - z) / A;
        const T dev = std::fmax(std::fabs(X), std::fmax(std::fabs(Y), std::fabs(Z)));
        if (!(dev >= kCarlsonDev) || step >= kCarlsonMaxSteps)
            break; // NaN also stops
        const T sx = std::sqrt(x), sy = std::sqrt(y), sz = std::sqrt(z);
        const T lam = sx * (sy + sz) + sy * sz;
        x = (x + lam) * T(0.25);
        y = (y + lam) * T(0.25);
        z = (z + lam) * T(0.25);
    }
    const T Z = -(X + Y);
    const T E2 = X * Y - Z * Z, E3 = X * Y * Z;
    // 1 - E2/10 + E3/14 + E2^2/24 - 3 E2 E3/44
    return (T(1) - E2 / T(10) + E3 / T(14) + E2 * E2 / T(24) - T(3) * E2 * E3 / T(44)) /
           std::sqrt(A);
}

template <typename T> T rd_t(T x, T y, T z)
{
    if ((x == 0 && y == 0) || z == 0)
        return std::numeric_limits<T>::infinity();
    T A = 0, X = 0, Y = 0, sum = 0, fac = 1;
    for (int step = 0;; ++step) {
        A = (x + y + T(3) * z) / T(5);
        X = (A - x) / A;
        Y = (A - y) / A;
        const T Z = (A - z) / A;
        const T dev = std::fmax(std::fabs(X), std::fmax(std::fabs(Y), std::fabs(Z)));
        if (!(dev >= kCarlsonDev) || step >= kCarlsonMaxSteps)
            break;
        const T sx = std::sqrt(x), sy = std::sqrt(y), sz = std::sqrt(z);
        const T lam = sx * (sy + sz) + sy * sz;
        sum += fac / (sz * (z + lam));
        fac *= T(0.25);
        x = (x + lam) * T(0.25);
        y = (y + lam) * T(0.25);
        z = (z + lam) * T(0.25);
    }
    const T Z = -(X + Y) / T(3);
    const T XY = X * Y, Z2 = Z * Z;
    const T E2 = XY - T(6) * Z2, E3 = (T(3) * XY - T(8) * Z2) * Z, E4 = T(3) * (XY - Z2) * Z2,
            E5 = XY * Z2 * Z;
    // 1 - 3E2/14 + E3/6 + 9E2^2/88 - 3E4/22 - 9E2E3/52 + 3E5/26
    const T series = T(1) - T(3) * E2 / T(14) + E3 / T(6) + T(9) * E2 * E2 / T(88) -
                     T(3) * E4 / T(22) - T(9) * E2 * E3 / T(52) + T(3) * E5 / T(26);
    return T(3) * sum + fac * series / (A * std::sqrt(A));
}

// R_F(x, y, z) and R_D(x, y, z) together: the two share their duplication sequence (the same
// x_m, y_m, z_m and lambda_m), so it is run once, until the deviations of both means are below
// the bound, and each closing series is applied to its own mean.  Half the square roots of two
// separate calls; E(phi | m) and E(m) need both.
template <typename T> void rfrd_t(T x, T y, T z, T *rfv, T *rdv)
{
    if ((x == 0) + (y == 0) + (z == 0) >= 2 || z == 0) {
        *rfv = rf_t(x, y, z);
        *rdv = rd_t(x, y, z);
        return;
    }
    T sum = 0, fac = 1;
    for (int step = 0; step < kCarlsonMaxSteps; ++step) {
        const T Af = (x + y + z) / T(3), Ad = (x + y + T(3) * z) / T(5);
        const T dev =
            std::fmax(std::fmax(std::fabs((Af - x) / Af), std::fabs((Af - y) / Af)),
                      std::fmax(std::fmax(std::fabs((Af - z) / Af), std::fabs((Ad - x) / Ad)),
                                std::fmax(std::fabs((Ad - y) / Ad), std::fabs((Ad - z) / Ad))));
        if (!(dev >= kCarlsonDev))
            break;
        const T sx = std::sqrt(x), sy = std::sqrt(y), sz = std::sqrt(z);
        const T lam = sx * (sy + sz) + sy * sz;
        sum += fac / (sz * (z + lam));
        fac *= T(0.25);
        x = (x + lam) * T(0.25);
        y = (y + lam) * T(0.25);
        z = (z + lam) * T(0.25);
    }
    // Both means are now within the bound, so each routine closes at once.  R_F is invariant
    // under duplication; R_D(x0, y0, z0) = 3 sum_m 4^-m / (sqrt(z_m)(z_m + lambda_m)) +
    // 4^-M R_D(x_M, y_M, z_M).
    *rfv = rf_t(x, y, z);
    *rdv = T(3) * sum + fac * rd_t(x, y, z);
}

double rf(double x, double y, double z) { return rf_t<double>(x, y, z); }
double rd(double x, double y, double z) { return rd_t<double>(x, y, z); }

namespace {

double ellint2_scd(double s, double c2, double d2, double m)
{
    double f, d;
    rfrd_t(c2, d2, 1.0, &f, &d);
    return s * f - m / 3.0 * s * s * s * d;
}

double ellint2_complete(double m, double mc)
{
    if (mc == 0.0)
        return 1.0;
    double f, d;
    rfrd_t(0.0, mc, 1.0, &f, &d);
    return f - m / 3.0 * d;
}

} // namespace

long double ellint2_amp_ld(long double phi, long double m)
{
    const long double pi = 3.141592653589793238462643383279502884L;
    const long double j = std::nearbyint(phi / pi);
    const long double r = phi - j * pi;
    const long double s = std::sin(r), c = std::cos(r);
    if (m == 1)
        return 2 * j + s;
    const long double c2 = c * c, d2 = c2 + (1 - m) * s * s;
    long double f, d;
    rfrd_t(c2, d2, 1.0L, &f, &d);
    long double v = s * f - m / 3 * s * s * s * d;
    if (j != 0)
        v += 2 * j * ellint2_ld(m);
    return v;
}

long double ellint2_ld(long double m)
{
    if (m == 1)
        return 1;
    long double f, d;
    rfrd_t(0.0L, 1 - m, 1.0L, &f, &d);
    return f - m / 3 * d;
}

void sncndn(double u, double m, double mc, double *sn, double *cn, double *dn, double *am)
{
    double s, c, d, phi;
    if (m < 0.0) {
        // Imaginary modulus (A&S 16.10): mu = -m/(1-m), v = u sqrt(1-m).
        const double mu = -m / mc, mu1 = 1.0 / mc, k1 = std::sqrt(mu1);
        double s1, c1, d1, psi;
        sncndn(u * std::sqrt(mc), mu, mu1, &s1, &c1, &d1, &psi);
        s = k1 * s1 / d1;
        c = c1 / d1;
        d = 1.0 / d1;
        phi = std::atan2(k1 * std::sin(psi), std::cos(psi));
        phi += kPi * std::nearbyint((psi - phi) / kPi); // same quarter as psi
    } else if (m > 1.0) {
        // Reciprocal modulus (A&S 16.11).
        const double k = std::sqrt(m);
        double s1, c1, d1, psi;
        sncndn(u * k, 1.0 / m, 1.0 - 1.0 / m, &s1, &c1, &d1, &psi);
        s = s1 / k;
        c = d1;
        d = c1;
        phi = std::atan2(s, c);
    } else if (mc <= 0.0) {
        s = std::tanh(u);
        c = d = 1.0 / std::cosh(u);
        phi = std::atan(std::sinh(u));
    } else {
        phi = agm_amplitude(u, m, mc);
        s = std::sin(phi);
        c = std::cos(phi);
        d = std::sqrt(c * c + mc * s * s);
    }
    if (sn)
        *sn = s;
    if (cn)
        *cn = c;
    if (dn)
        *dn = d;
    if (am)
        *am = phi;
}

double ellint2_amp(double phi, double m)
{
    const double j = std::nearbyint(phi / kPi);
    const double r = phi - j * kPi; // |r| <= pi/2
    const double s = std::sin(r), c = std::cos(r);
    if (m == 1.0)
        return 2.0 * j + s;
    double v = ellint2_scd(s, c * c, c * c + (1.0 - m) * s * s, m);
    if (j != 0.0)
        v += 2.0 * j * ellint2_complete(m, 1.0 - m);
    return v;
}

double epsilon(double u, double m, double mc)
{
    if (m == 0.0)
        return u;
    if (mc == 0.0)
        return std::tanh(u);
    double s, c, d, am;
    sncndn(u, m, mc, &s, &c, &d, &am);
    if (m > 1.0)
        return ellint2_scd(s, c * c, d * d, m); // principal amplitude only
    const double j = std::nearbyint(am / kPi);
    if (std::fmod(j, 2.0) != 0.0)
        s = -s; // sin(am - j pi)
    double v = ellint2_scd(s, c * c, c * c + mc * s * s, m);
    if (j != 0.0)
        v += 2.0 * j * ellint2_complete(m, mc);
    return v;
}

} // namespace gx::math

using namespace gx::math;

extern "C" {

GX_API double gx_ellint_rf(double x, double y, double z) { return rf(x, y, z); }

GX_API double gx_ellint_rd(double x, double y, double z) { return rd(x, y, z); }

GX_API double gx_ellint1(double m)
{
    if (m == 1.0)
        return std::numeric_limits<double>::infinity();
    return rf(0.0, 1.0 - m, 1.0);
}

GX_API double gx_ellint2(double m) { return ellint2_complete(m, 1.0 - m); }

GX_API double gx_iellint2amp(double phi, double m) { return ellint2_amp(phi, m); }

GX_API double gx_iellint2(double u, double m) { return epsilon(u, m, 1.0 - m); }

GX_API void gx_sncndn(double u, double m, double *sn, double *cn, double *dn)
{
    sncndn(u, m, 1.0 - m, sn, cn, dn, nullptr);
}

GX_API double gx_sn(double u, double m)
{
    double s;
    sncndn(u, m, 1.0 - m, &s, nullptr, nullptr, nullptr);
    return s;
}

GX_API double gx_cn(double u, double m)
{
    double c;
    sncndn(u, m, 1.0 - m, nullptr, &c, nullptr, nullptr);
    return c;
}

GX_API double gx_dn(double u, double m)
{
    double d;
    sncndn(u, m, 1.0 - m, nullptr, nullptr, &d, nullptr);
    return d;
}

} // extern "C"
