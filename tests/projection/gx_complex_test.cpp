// Complex arithmetic (gx_z and gx_dcomp families) and the complex elliptic functions.
#include "gridex.h"
#include "projection/gx_math.h"
#include "gx_math_test_util.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

#ifdef GX_HAVE_GEOGRAPHICLIB
#include <GeographicLib/TransverseMercatorExact.hpp>
#endif

using namespace gxtest;
using cplx = std::complex<double>;

namespace {

// A grid of the complex plane with the branch cuts and their signed-zero sides included.
const std::vector<cplx> &grid()
{
    static const std::vector<cplx> pts = [] {
        std::vector<double> axis = {0.0, -0.0, 1e-9,      -1e-9,      0.5, -0.5,
                                    1.0, -1.0, 1.0000001, -1.0000001, 1.5, -1.5,
                                    2.0, -2.0, 10.0,      -10.0,      1e6, -1e6};
        for (int i = -12; i <= 12; ++i)
            axis.push_back(i * 0.25 + 0.0625);
        std::vector<cplx> v;
        for (double re : axis)
            for (double im : axis)
                v.emplace_back(re, im);
        return v;
    }();
    return pts;
}

bool same(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}
bool same(cplx a, cplx b) { return same(a.real(), b.real()) && same(a.imag(), b.imag()); }
bool same(gx_dcomp a, cplx b) { return same(cplx(a.re, a.im), b); }
gx_dcomp dc(cplx z) { return gx_dcomp{z.real(), z.imag()}; }

using ZFun = void (*)(double, double, double *, double *);
cplx call(ZFun f, cplx z)
{
    double r, i;
    f(z.real(), z.imag(), &r, &i);
    return {r, i};
}

TEST(Complex, ArithmeticMatchesStdComplex)
{
    for (cplx a : grid()) {
        for (cplx b : {cplx(2.0, -3.0), cplx(-0.5, 0.25), cplx(1e-3, 7.0), a}) {
            double r, i;
            gx_zmul(a.real(), a.imag(), b.real(), b.imag(), &r, &i);
            EXPECT_TRUE(same(cplx(r, i), a * b)) << a << b;
            gx_zdiv(a.real(), a.imag(), b.real(), b.imag(), &r, &i);
            EXPECT_TRUE(same(cplx(r, i), a / b)) << a << b;
            EXPECT_TRUE(same(gx_dcomp_mult(dc(a), dc(b)), a * b)) << a << b;
            EXPECT_TRUE(same(gx_dcomp_div(dc(a), dc(b)), a / b)) << a << b;
            EXPECT_TRUE(same(gx_dcomp_add(dc(a), dc(b)), a + b)) << a << b;
            EXPECT_TRUE(same(gx_dcomp_sub(dc(a), dc(b)), a - b)) << a << b;
        }
        EXPECT_EQ(gx_zabs(a.real(), a.imag()), std::abs(a));
        EXPECT_EQ(gx_zarg(a.real(), a.imag()), std::arg(a));
        EXPECT_EQ(gx_dcomp_abs(dc(a)), std::abs(a));
        EXPECT_EQ(gx_dcomp_arg(dc(a)), std::arg(a));
        EXPECT_TRUE(same(gx_dcomp_conjg(dc(a)), std::conj(a)));
        EXPECT_TRUE(same(call(gx_zinv, a), 1.0 / a)) << a;
        EXPECT_TRUE(same(gx_dcomp_inv(dc(a)), 1.0 / a)) << a;
    }
}

TEST(Complex, ElementaryFunctionsMatchStdComplexEverywhere)
{
    // Same values as std::complex bit for bit in both families, on both sides of every branch
    // cut (the grid holds the cuts with +0 and -0 as the other part): identities, principal
    // ranges and the side a signed zero picks are the library's, so they hold here too.
    struct Pair {
        const char *name;
        ZFun z;
        gx_dcomp (*d)(gx_dcomp);
        cplx (*ref)(const cplx &);
    };
    const Pair pairs[] = {
        {"exp", gx_zexp, gx_dcomp_exp, [](const cplx &z) { return std::exp(z); }},
        {"log", gx_zlog, gx_dcomp_log, [](const cplx &z) { return std::log(z); }},
        {"sqrt", gx_zsqrt, gx_dcomp_sqrt, [](const cplx &z) { return std::sqrt(z); }},
        {"asin", gx_zasin, gx_dcomp_asin, [](const cplx &z) { return std::asin(z); }},
        {"atan", gx_zatan, gx_dcomp_atan, [](const cplx &z) { return std::atan(z); }},
        {"tanh", gx_ztanh, gx_dcomp_tanh, [](const cplx &z) { return std::tanh(z); }},
        {"atanh", gx_zatanh, gx_dcomp_atanh, [](const cplx &z) { return std::atanh(z); }},
    };
    for (const Pair &p : pairs) {
        for (cplx z : grid()) {
            const cplx want = p.ref(z);
            EXPECT_TRUE(same(call(p.z, z), want)) << p.name << z;
            EXPECT_TRUE(same(p.d(dc(z)), want)) << p.name << z;
        }
    }
    for (cplx z : grid()) {
        EXPECT_TRUE(same(gx_dcomp_sin(dc(z)), std::sin(z))) << z;
        EXPECT_TRUE(same(gx_dcomp_cos(dc(z)), std::cos(z))) << z;
        EXPECT_TRUE(same(gx_dcomp_tan(dc(z)), std::tan(z))) << z;
        EXPECT_TRUE(same(gx_dcomp_sinh(dc(z)), std::sinh(z))) << z;
        EXPECT_TRUE(same(gx_dcomp_cosh(dc(z)), std::cosh(z))) << z;
    }
}

// ---- complex elliptic functions ---------------------------------------------------------------

cplx zsn(cplx w, double m)
{
    double r, i;
    gx_zsn(w.real(), w.imag(), m, &r, &i);
    return {r, i};
}
cplx zcn(cplx w, double m)
{
    double r, i;
    gx_zcn(w.real(), w.imag(), m, &r, &i);
    return {r, i};
}
cplx zdn(cplx w, double m)
{
    double r, i;
    gx_zdn(w.real(), w.imag(), m, &r, &i);
    return {r, i};
}
cplx zeps(cplx w, double m)
{
    double r, i;
    gx_ziellint2(w.real(), w.imag(), m, &r, &i);
    return {r, i};
}

// Points of the strip |Im w| < K'(m) * 0.8, Re w in [-2.5K, 2.5K] (away from the poles at
// 2jK + i(2k+1)K').
std::vector<cplx> elliptic_grid(double m)
{
    const double K = gx_ellint1(m), Kp = m > 0 ? gx_ellint1(1 - m) : 10.0;
    std::vector<cplx> v;
    for (int i = -10; i <= 10; ++i)
        for (int j = -8; j <= 8; ++j)
            v.emplace_back(i * 0.25 * K + 0.01, j * 0.1 * std::fmin(Kp, 4.0));
    return v;
}

TEST(ComplexElliptic, ReducesToRealAndCircularCases)
{
    for (double m : {0.0, kWgs84E2, 0.5, 0.99}) {
        for (int i = -30; i <= 30; ++i) {
            const double u = i * 0.2;
            const cplx w(u, 0.0);
            EXPECT_NEAR(std::abs(zsn(w, m) - gx_sn(u, m)), 0.0, 1e-15);
            EXPECT_NEAR(std::abs(zcn(w, m) - gx_cn(u, m)), 0.0, 1e-15);
            EXPECT_NEAR(std::abs(zdn(w, m) - gx_dn(u, m)), 0.0, 1e-15);
            EXPECT_NEAR(std::abs(zeps(w, m) - gx_iellint2(u, m)), 0.0, 1e-14);
            // Jacobi's imaginary transformation: sn(iv | m) = i sc(v | 1 - m)
            const double v = i * 0.05;
            const cplx iv(0.0, v);
            EXPECT_NEAR(std::abs(zsn(iv, m) - cplx(0, gx_sn(v, 1 - m) / gx_cn(v, 1 - m))), 0.0,
                        1e-14);
        }
    }
    for (cplx w : elliptic_grid(0.5)) { // m = 0: circular functions; m = 1: hyperbolic
        EXPECT_LE(std::abs(zsn(w, 0.0) - std::sin(w)), 1e-14 * std::abs(std::sin(w)) + 1e-15) << w;
        EXPECT_LE(std::abs(zcn(w, 0.0) - std::cos(w)), 1e-14 * std::abs(std::cos(w)) + 1e-15) << w;
        EXPECT_LE(std::abs(zeps(w, 0.0) - w), 1e-14) << w;
        if (std::fabs(w.imag()) < 1.4) {
            EXPECT_LE(std::abs(zsn(w, 1.0) - std::tanh(w)), 1e-14 * std::abs(std::tanh(w)) + 1e-15)
                << w;
            EXPECT_LE(std::abs(zdn(w, 1.0) - 1.0 / std::cosh(w)),
                      1e-14 * std::abs(1.0 / std::cosh(w)) + 1e-15)
                << w;
            EXPECT_LE(std::abs(zeps(w, 1.0) - std::tanh(w)), 1e-14 * std::abs(std::tanh(w)) + 1e-15)
                << w;
        }
    }
}

TEST(ComplexElliptic, IdentitiesAndDerivatives)
{
    // sn^2 + cn^2 = 1, dn^2 + m sn^2 = 1; d sn/dw = cn dn and dE/dw = dn^2, checked by central
    // differences along the real and the imaginary direction (which also checks analyticity).
    Worst wid("complex sn^2+cn^2-1, dn^2+m sn^2-1");
    Worst wd("complex d sn/dw - cn dn, dE/dw - dn^2 (central differences)");
    for (double m : {kWgs84E2, 0.0069, 0.3, 0.5, 0.9}) {
        for (cplx w : elliptic_grid(m)) {
            const cplx s = zsn(w, m), c = zcn(w, m), d = zdn(w, m);
            const double scale = std::fmax(1.0, std::norm(s));
            const std::string at = fmt("m = %g, w = (%g, %g)", m, w.real(), w.imag());
            EXPECT_LE(wid.add(std::abs(s * s + c * c - 1.0) / scale, at), 1e-13) << at;
            EXPECT_LE(wid.add(std::abs(d * d + m * s * s - 1.0) / scale, at), 1e-13) << at;
            // the dcomp family agrees
            EXPECT_TRUE(same(gx_dcomp_sn(dc(w), m), s));
            EXPECT_TRUE(same(gx_dcomp_cn(dc(w), m), c));
            EXPECT_TRUE(same(gx_dcomp_dn(dc(w), m), d));
            EXPECT_TRUE(same(gx_dcomp_iellint2(dc(w), m), zeps(w, m)));
            for (cplx h : {cplx(1e-5, 0), cplx(0, 1e-5)}) {
                const cplx dsn = (zsn(w + h, m) - zsn(w - h, m)) / (2.0 * h);
                const cplx deps = (zeps(w + h, m) - zeps(w - h, m)) / (2.0 * h);
                const double sc = std::fmax(1.0, std::abs(c * d));
                EXPECT_LE(wd.add(std::abs(dsn - c * d) / sc, at), 1e-7) << at;
                EXPECT_LE(wd.add(std::abs(deps - d * d) / std::fmax(1.0, std::norm(d)), at), 1e-7)
                    << at;
            }
        }
    }
}

TEST(ComplexElliptic, EpsilonIsTheIntegralOfDnSquared)
{
    // E(w) = integral_0^w dn(t)^2 dt along the straight segment from 0, by composite 5-point
    // Gauss-Legendre quadrature on 200 panels (its own error is far below the bound even where
    // the segment ends 0.37 from a pole of dn).
    Worst w_int("complex E(w) vs quadrature of dn^2");
    const double gx[5] = {-0.9061798459386640, -0.5384693101056831, 0.0, 0.5384693101056831,
                          0.9061798459386640};
    const double gw[5] = {0.2369268850561891, 0.4786286704993665, 0.5688888888888889,
                          0.4786286704993665, 0.2369268850561891};
    for (double m : {kWgs84E2, 0.0069, 0.5}) {
        for (cplx w : elliptic_grid(m)) {
            const int n = 200;
            cplx sum = 0;
            for (int k = 0; k < n; ++k)
                for (int j = 0; j < 5; ++j) {
                    const cplx d = zdn(w * ((k + 0.5 + 0.5 * gx[j]) / n), m);
                    sum += gw[j] * d * d;
                }
            const cplx integral = sum * w / (2.0 * n);
            const std::string at = fmt("m = %g, w = (%g, %g)", m, w.real(), w.imag());
            EXPECT_LE(
                w_int.add(std::abs(zeps(w, m) - integral) / std::fmax(1.0, std::abs(integral)), at),
                1e-12)
                << at;
        }
    }
}

TEST(ComplexElliptic, ComposeToTheExactTransverseMercator)
{
    // Lee's exact transverse Mercator, as the projection code will use it: for w = u + iv,
    //   psi + i lambda = atanh(sn w) - e atanh(e sn w)   (isometric latitude, longitude)
    //   northing + i easting = a k0 (E(am w | e2) - e2 sn w cn w / dn w)
    // (on v = 0 the meridian arc E(phi) - e2 sin phi cos phi / w of gx_q).  Built from
    // gx_dcomp_sn, _cn, _dn, _atanh and _iellint2, the map must agree with GeographicLib's
    // TransverseMercatorExact.
#ifndef GX_HAVE_GEOGRAPHICLIB
    GTEST_SKIP() << "GeographicLib not found at configure time: oracle comparison not built";
#else
    const double a = 6378137.0, e2 = kWgs84E2, e = std::sqrt(e2), k0 = 0.9996;
    const GeographicLib::TransverseMercatorExact tm(a, flattening(e2), k0);
    const double K = gx_ellint1(e2), Kp = gx_ellint1(1 - e2);
    Worst w_tm("exact TM from gx_dcomp_sn/atanh/iellint2 vs GeographicLib", " m");
    for (int i = 0; i <= 20; ++i) {
        for (int j = 0; j <= 20; ++j) {
            const gx_dcomp w{i * 0.049 * K, j * 0.045 * Kp};
            const gx_dcomp sn = gx_dcomp_sn(w, e2);
            const gx_dcomp t1 = gx_dcomp_atanh(sn),
                           t2 = gx_dcomp_atanh(gx_dcomp{e * sn.re, e * sn.im});
            const double psi = t1.re - e * t2.re, lam = t1.im - e * t2.im;
            // up to 70 degrees from the central meridian (beyond it GeographicLib folds far
            // points onto another sheet near the singular point at lambda = 90 (1 - e))
            if (std::fabs(lam) > 70 * kDeg)
                continue;
            const double phi = gx_eta_to_phi(e2, psi);
            const gx_dcomp corr =
                gx_dcomp_div(gx_dcomp_mult(sn, gx_dcomp_cn(w, e2)), gx_dcomp_dn(w, e2));
            const gx_dcomp z =
                gx_dcomp_sub(gx_dcomp_iellint2(w, e2), gx_dcomp{e2 * corr.re, e2 * corr.im});
            double x, y;
            tm.Forward(0.0, phi / kDeg, lam / kDeg, x, y);
            const std::string at = fmt("w = (%g, %g)", w.re, w.im);
            EXPECT_LE(w_tm.add(std::hypot(a * k0 * z.im - x, a * k0 * z.re - y), at), 2e-8) << at;
        }
    }
#endif
}

} // namespace
