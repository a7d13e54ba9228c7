// Geodetic <-> geocentric cartesian conversion.
#include "gridex.h"
#include "gx_math_test_util.h"

#include <gtest/gtest.h>

#include <cmath>

#ifdef GX_HAVE_GEOGRAPHICLIB
#include <GeographicLib/Geocentric.hpp>
#endif

using namespace gxtest;

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr long double kDegL = 3.141592653589793238462643383279502884L / 180;
const double kHeights[] = {-10000.0, -1000.0, 0.0, 1.0, 1000.0, 8848.0, 1e5, 1e6, 2e7, 3.6e7, 4e7};

TEST(Geocentric, PolarAxisAndEquator)
{
    const double a = 6378137.0, e2 = kWgs84E2, b = a * std::sqrt(1 - e2);
    double phi, lam, h;
    gx_cart_to_curv(a, e2, 0.0, 0.0, b + 100.0, &phi, &lam, &h);
    EXPECT_EQ(phi, kHalfPi);
    EXPECT_EQ(lam, 0.0);
    EXPECT_NEAR(h, 100.0, 1e-9);
    gx_cart_to_curv(a, e2, 0.0, 0.0, -b - 5.0, &phi, &lam, &h);
    EXPECT_EQ(phi, -kHalfPi);
    EXPECT_NEAR(h, 5.0, 1e-9);
    gx_cart_to_curv(a, e2, a + 10.0, 0.0, 0.0, &phi, &lam, &h);
    EXPECT_EQ(phi, 0.0);
    EXPECT_EQ(lam, 0.0);
    EXPECT_NEAR(h, 10.0, 1e-9);
    double x, y, z;
    gx_curv_to_cart(a, e2, 0.0, kHalfPi, 0.0, &x, &y, &z);
    EXPECT_NEAR(x, 0.0, 1e-9);
    EXPECT_EQ(y, a);
    EXPECT_EQ(z, 0.0);
}

TEST(Geocentric, RoundTrips)
{
    // geodetic -> cartesian -> geodetic -> cartesian: the two cartesian points and the heights
    // agree within 1e-8 m, the latitude within 1e-8 m along the meridian.
    for (const auto &ell : test_ellipsoids()) {
        Worst wpos(std::string("geocentric round trip, position, ") + ell.name, " m");
        Worst wh(std::string("geocentric round trip, height, ") + ell.name, " m");
        Worst wlat(std::string("geocentric round trip, latitude (as metres), ") + ell.name, " m");
        for (double h : kHeights) {
            for (int i = -90; i <= 90; ++i) {
                for (int j = -180; j <= 180; j += 15) {
                    double phi = i * kDeg, lam = j * kDeg;
                    if (i == 90)
                        phi = kHalfPi;
                    if (i == -90)
                        phi = -kHalfPi;
                    double x, y, z, phi2, lam2, h2, x2, y2, z2;
                    gx_curv_to_cart(ell.a, ell.e2, phi, lam, h, &x, &y, &z);
                    gx_cart_to_curv(ell.a, ell.e2, x, y, z, &phi2, &lam2, &h2);
                    gx_curv_to_cart(ell.a, ell.e2, phi2, lam2, h2, &x2, &y2, &z2);
                    const std::string at = fmt("lat %g lon %g h %g", i, j, h);
                    ASSERT_LE(wpos.add(std::hypot(x2 - x, std::hypot(y2 - y, z2 - z)), at), 1e-8)
                        << ell.name << " " << at;
                    ASSERT_LE(wh.add(std::fabs(h2 - h), at), 1e-8) << ell.name << " " << at;
                    const double r = gx_m(ell.a, ell.e2, phi) + h;
                    ASSERT_LE(wlat.add(std::fabs(phi2 - phi) * r, at), 1e-8)
                        << ell.name << " " << at;
                }
            }
        }
    }
}

void cart_to_curv_ld(long double a, long double e2, long double x, long double y, long double z,
                     long double &phi, long double &h);

TEST(Geocentric, AgainstGeographicLib)
{
    // gx must agree with GeographicLib within 1e-8 m beyond GeographicLib's own error, which is
    // measured against the long-double oracle (it reaches two to three units in the last place,
    // 1.5e-8 m at 36,000 km); the long-double test below holds gx itself to 1e-8 m.
#ifndef GX_HAVE_GEOGRAPHICLIB
    GTEST_SKIP() << "GeographicLib not found at configure time: oracle comparison not built";
#else
    for (const auto &ell : test_ellipsoids()) {
        const GeographicLib::Geocentric ref(ell.a, flattening(ell.e2));
        Worst wfwd(std::string("geodetic->cartesian vs GeographicLib, ") + ell.name, " m");
        Worst wh(std::string("cartesian->geodetic height vs GeographicLib, ") + ell.name, " m");
        Worst wlat(std::string("cartesian->geodetic latitude vs GeographicLib, ") + ell.name,
                   " rad");
        for (double h : kHeights) {
            for (int i = -900; i <= 900; i += 7) {
                const double deg = i * 0.1, lon = 37.0;
                double x, y, z, rx, ry, rz;
                gx_curv_to_cart(ell.a, ell.e2, deg * kDeg, lon * kDeg, h, &x, &y, &z);
                ref.Forward(deg, lon, h, rx, ry, rz);
                const std::string at = fmt("lat %g h %g", deg, h);
                const long double sl = std::sin(deg * kDegL), cl = std::cos(deg * kDegL);
                const long double nl = ell.a / std::sqrt(1 - ell.e2 * sl * sl);
                const long double X = (nl + h) * cl * std::cos(lon * kDegL),
                                  Y = (nl + h) * cl * std::sin(lon * kDegL),
                                  Z = ((1 - (long double)ell.e2) * nl + h) * sl;
                const double own_fwd = static_cast<double>(
                    std::sqrt((rx - X) * (rx - X) + (ry - Y) * (ry - Y) + (rz - Z) * (rz - Z)));
                const double conv = static_cast<double>(
                    std::fabs((nl + h) * (deg * kDegL - (long double)(deg * kDeg))));
                ASSERT_LE(wfwd.add(std::hypot(x - rx, std::hypot(y - ry, z - rz)), at),
                          1e-8 + own_fwd + conv)
                    << at;
                double phi, lam, hh, rlat, rlon, rh;
                gx_cart_to_curv(ell.a, ell.e2, rx, ry, rz, &phi, &lam, &hh);
                ref.Reverse(rx, ry, rz, rlat, rlon, rh);
                long double tphi, th;
                cart_to_curv_ld(ell.a, ell.e2, rx, ry, rz, tphi, th);
                const double own_h = static_cast<double>(std::fabs(rh - th));
                ASSERT_LE(wh.add(std::fabs(hh - rh), at), 1e-8 + own_h) << at;
                ASSERT_LE(wlat.add(std::fabs(phi - rlat * kDeg), at), 2e-15) << at;
                EXPECT_NEAR(lam, rlon * kDeg, 1e-15) << at;
            }
        }
    }
#endif
}

// Geodetic coordinates of a cartesian point by Bowring's iteration run to convergence in long
// double: an oracle independent of the two-step double evaluation.
void cart_to_curv_ld(long double a, long double e2, long double x, long double y, long double z,
                     long double &phi, long double &h)
{
    const long double p = std::sqrt(x * x + y * y), b = a * std::sqrt(1 - e2);
    long double th = std::atan2(a * z, b * p);
    for (int k = 0; k < 12; ++k) {
        phi = std::atan2(z + b * e2 / (1 - e2) * std::pow(std::sin(th), 3),
                         p - a * e2 * std::pow(std::cos(th), 3));
        th = std::atan(b / a * std::tan(phi));
    }
    const long double s = std::sin(phi);
    h = p * std::cos(phi) + z * s - a * std::sqrt(1 - e2 * s * s);
}

TEST(Geocentric, AgainstLongDoubleIteration)
{
    for (const auto &ell : test_ellipsoids()) {
        Worst wfwd(std::string("geodetic->cartesian vs long double, ") + ell.name, " m");
        Worst wh(std::string("cartesian->geodetic height vs long double, ") + ell.name, " m");
        Worst wlat(std::string("cartesian->geodetic latitude vs long double (as metres), ") +
                       ell.name,
                   " m");
        for (double h : kHeights) {
            for (int i = -900; i <= 900; i += 3) {
                const double lat = i * 0.1 * kDeg, lon = 0.3 * i * kDeg;
                double x, y, z;
                gx_curv_to_cart(ell.a, ell.e2, lat, lon, h, &x, &y, &z);
                const long double s = std::sin((long double)lat), c = std::cos((long double)lat);
                const long double n = ell.a / std::sqrt(1 - ell.e2 * s * s);
                const long double X = (n + h) * c * std::cos((long double)lon),
                                  Y = (n + h) * c * std::sin((long double)lon),
                                  Z = ((1 - (long double)ell.e2) * n + h) * s;
                const std::string at = fmt("lat %g h %g", i * 0.1, h);
                ASSERT_LE(wfwd.add(static_cast<double>(std::sqrt(
                                       (x - X) * (x - X) + (y - Y) * (y - Y) + (z - Z) * (z - Z))),
                                   at),
                          1e-8)
                    << at;
                double phi, lam, hh;
                gx_cart_to_curv(ell.a, ell.e2, x, y, z, &phi, &lam, &hh);
                long double rphi, rh;
                cart_to_curv_ld(ell.a, ell.e2, x, y, z, rphi, rh);
                ASSERT_LE(wh.add(static_cast<double>(std::fabs(hh - rh)), at), 1e-8) << at;
                ASSERT_LE(wlat.add(static_cast<double>(std::fabs(phi - rphi) * (n + h)), at), 1e-8)
                    << at;
            }
        }
    }
}

} // namespace
