// Radii of curvature, authalic and rectifying radii, meridian arc and quarter meridian, angle
// wrapping and the tolerant comparison.
#include "gridex.h"
#include "projection/gx_math.h"
#include "gx_math_test_util.h"

#include <gtest/gtest.h>

#include <cmath>

#ifdef GX_HAVE_GEOGRAPHICLIB
#include <GeographicLib/Ellipsoid.hpp>
#endif

using namespace gxtest;

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kThreshold = 0.006884661117170036;

TEST(Ellipsoid, SphereCasesDeltaAndEq)
{
    // e2 below 2^-48 is a sphere (the radii of curvature are checked against GeographicLib).
    const double a = 6378137.0;
    EXPECT_EQ(gx_auth_r(a, 0.0), a);
    EXPECT_EQ(gx_rect_r(a, 0.0), a);
    EXPECT_EQ(gx_auth_r(a, 1e-16), a);
    EXPECT_EQ(gx_q(a, 0.0, 0.5), a * 0.5);
    EXPECT_DOUBLE_EQ(gx_q90(a, 0.0, 0.0), a * kPi / 2);
    EXPECT_DOUBLE_EQ(gx_w(kWgs84E2, 0.0), 1.0);
    EXPECT_DOUBLE_EQ(gx_w(kWgs84E2, kPi / 2), std::sqrt(1.0 - kWgs84E2));

    EXPECT_DOUBLE_EQ(gx_delta(3 * kPi / 2), -kPi / 2);
    EXPECT_EQ(gx_delta(kPi), kPi);
    EXPECT_EQ(gx_delta(-kPi), -kPi);
    EXPECT_DOUBLE_EQ(gx_delta(-3 * kPi / 2), kPi / 2);
    EXPECT_DOUBLE_EQ(gx_delta(7 * kPi), kPi);
    EXPECT_DOUBLE_EQ(gx_delta(0.25 + 4 * kPi), 0.25);
    EXPECT_EQ(gx_delta(0.0), 0.0);
    EXPECT_DOUBLE_EQ(gx_delta_center(350 * kDeg, 180 * kDeg), 350 * kDeg);
    EXPECT_DOUBLE_EQ(gx_delta_center(-10 * kDeg, 180 * kDeg), 350 * kDeg);
    EXPECT_DOUBLE_EQ(gx_delta_center(190 * kDeg, 0.0), -170 * kDeg);

    EXPECT_TRUE(gx_eq(1.0, 1.0));
    EXPECT_TRUE(gx_eq(0.0, 0x1p-48)); // ((0 + 2^-48)/2 + 1) 2^-48 >= 2^-48
    EXPECT_FALSE(gx_eq(0.0, 0x1p-47));
    EXPECT_TRUE(gx_eq(1.0, 1.0 + 0x1p-48));
    EXPECT_TRUE(gx_eq(1.0, 1.0 + 1.9 * 0x1p-48)); // tolerance (1 + 1) 2^-48 near 1
    EXPECT_FALSE(gx_eq(1.0, 1.0 + 2.1 * 0x1p-48));
    EXPECT_TRUE(gx_eq(1e6, 1e6 + 0.9e6 * 0x1p-48));
    EXPECT_FALSE(gx_eq(1e6, 1e6 * (1 + 2e-14)));
    EXPECT_TRUE(gx_eq(kPi / 2, 1.570796326794891)); // the pole pulled in by 25 ulp still counts
}

TEST(Ellipsoid, MeridianArcAgainstLongDoubleQuadrature)
{
    // Independent oracle: the arc integral in long double (error below 1e-12 m).  The bound is
    // 1e-9 m everywhere: beyond 2^23 m (8389 km) that is about half a unit in the last place,
    // so there gx_q has to be correctly rounded.
    for (const auto &ell : test_ellipsoids()) {
        Worst worst(std::string("meridian arc vs long-double quadrature, ") + ell.name, " m");
        Worst worst_ulp(std::string("  same, in units of the last place, ") + ell.name, " ulp");
        for (int i = 0; i <= 9000; ++i) {
            const double phi = i * 0.01 * kDeg;
            const double got = gx_q(ell.a, ell.e2, phi);
            const long double want = meridian_arc_ld(ell.a, ell.e2, phi);
            const double err = static_cast<double>(std::fabs(got - want));
            const double ulp = std::nextafter(std::fabs(got), INFINITY) - std::fabs(got);
            worst.add(err, fmt("phi = %.2f deg", i * 0.01));
            worst_ulp.add(err / ulp, fmt("phi = %.2f deg", i * 0.01));
            ASSERT_LE(err, 1e-9) << ell.name << " phi(deg) = " << i * 0.01;
            EXPECT_EQ(gx_q(ell.a, ell.e2, -phi), -got);
        }
        const double q90 = gx_q90(ell.a, ell.e2, 0.0);
        EXPECT_NEAR(q90, static_cast<double>(meridian_arc_ld(ell.a, ell.e2, kPi / 2)), 2e-9)
            << ell.name;
        EXPECT_NEAR(gx_q(ell.a, ell.e2, kPi / 2), q90, 2e-9) << ell.name;
        EXPECT_NEAR(gx_rect_r(ell.a, ell.e2), q90 / (kPi / 2), 2e-9) << ell.name;
    }
}

TEST(Ellipsoid, MeridianArcAgainstGeographicLib)
{
#ifndef GX_HAVE_GEOGRAPHICLIB
    GTEST_SKIP() << "GeographicLib not found at configure time: oracle comparison not built";
#else
    for (const auto &ell : test_ellipsoids()) {
        const GeographicLib::Ellipsoid ref(ell.a, flattening(ell.e2));
        Worst worst(std::string("meridian arc vs GeographicLib, ") + ell.name, " m");
        Worst own(std::string("  GeographicLib itself vs long-double quadrature, ") + ell.name,
                  " ulp");
        for (int i = 0; i <= 9000; ++i) {
            const double deg = i * 0.01;
            const double got = gx_q(ell.a, ell.e2, deg * kDeg);
            const double want = ref.MeridianDistance(deg);
            const double err = std::fabs(got - want);
            const double ulp = std::nextafter(std::fabs(want), INFINITY) - std::fabs(want);
            worst.add(err, fmt("phi = %.2f deg", deg));
            // GeographicLib takes the latitude in degrees, gx_q the double nearest to it in
            // radians: the true arcs at the two inputs differ by up to 7e-10 m.  And
            // GeographicLib's MeridianDistance (b * Ed of the parametric latitude) carries several
            // units in the last place of its own.  Both are measured with the long-double oracle
            // (at the exact degree value and at the radian double) and allowed for on top of the
            // 1e-9 m that the quadrature test above holds gx_q to.
            const long double exact_deg = meridian_arc_ld(
                ell.a, ell.e2, deg * (3.141592653589793238462643383279502884L / 180));
            const double gl_err = static_cast<double>(std::fabs(want - exact_deg));
            const double conv = static_cast<double>(
                std::fabs(exact_deg - meridian_arc_ld(ell.a, ell.e2, deg * kDeg)));
            own.add(gl_err / ulp, fmt("phi = %.2f deg", deg));
            ASSERT_LE(err, 1e-9 + gl_err + conv) << ell.name << " phi(deg) = " << deg;
        }
        EXPECT_NEAR(gx_q90(ell.a, ell.e2, 0.0), ref.QuarterMeridian(), 4e-9) << ell.name;
        EXPECT_NEAR(gx_rect_r(ell.a, ell.e2), ref.QuarterMeridian() / (kPi / 2), 2e-9) << ell.name;
        EXPECT_NEAR(gx_auth_r(ell.a, ell.e2), std::sqrt(ref.Area() / (4 * kPi)), 2e-9) << ell.name;
        for (int i = -90; i <= 90; i += 5) {
            EXPECT_NEAR(gx_m(ell.a, ell.e2, i * kDeg), ref.MeridionalCurvatureRadius(i), 1e-8);
            EXPECT_NEAR(gx_n(ell.a, ell.e2, i * kDeg), ref.TransverseCurvatureRadius(i), 1e-8);
        }
    }
#endif
}

TEST(Ellipsoid, MeridianArcSeriesMeetsClosedFormAtThreshold)
{
    // Just below the threshold gx_q takes the series, at it the closed form: the two must agree
    // (arc on the unit ellipsoid, i.e. in radians).  The series is also evaluated at the
    // threshold itself through the internal helper and compared with the closed form there.
    const double below = std::nextafter(kThreshold, 0.0);
    Worst worst("meridian arc: series (e2 just below) vs closed (at threshold)", " rad");
    Worst worst_same("meridian arc: series vs closed form, both at the threshold", " rad");
    const double n = gx::math::third_flattening(kThreshold);
    double p[7];
    const double A = gx::math::meridian_series(n, p);
    for (int i = -900; i <= 900; ++i) {
        const double phi = i * 0.1 * kDeg;
        const double s = gx_q(1.0, below, phi), c = gx_q(1.0, kThreshold, phi);
        ASSERT_LE(worst.add(std::fabs(s - c), fmt("phi = %.1f deg", i * 0.1)), 1e-12);
        const double series = (A * phi + gx::math::sine_series(p, phi)) / (1.0 + n);
        ASSERT_LE(worst_same.add(std::fabs(series - c), fmt("phi = %.1f deg", i * 0.1)), 1e-12);
    }
    EXPECT_NEAR(gx_q90(1.0, below, 0.0), gx_q90(1.0, kThreshold, 0.0), 1e-12);
}

} // namespace
