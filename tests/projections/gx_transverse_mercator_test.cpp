// The transverse Mercator through the conversion driver, against GeographicLib's exact
// transverse Mercator (Lee 1976 / Karney 2011), which is good to nanometres at any distance from
// the central meridian.  The series implementation is good to a millimetre within a UTM zone.
#include "gridex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <vector>

#ifdef GX_HAVE_GEOGRAPHICLIB
#include <GeographicLib/TransverseMercatorExact.hpp>
#endif

namespace {

const char *utm33_text =
    "PROJCS[\"WGS_1984_UTM_Zone_33N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
    "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"%s\"],"
    "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
    "PARAMETER[\"Central_Meridian\",15.0],PARAMETER[\"Scale_Factor\",0.9996],"
    "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]";

gx_projcs *utm33(const char *projection = "Transverse_Mercator")
{
    char text[GX_TEXT_LEN];
    std::snprintf(text, sizeof text, utm33_text, projection);
    gx_projcs *cs = gx_projcs_from_string(text);
    EXPECT_NE(cs, nullptr);
    return cs;
}

// Points every `step` degrees within `width` degrees of the central meridian, 80S to 84N.
std::vector<double> zone_points(double width, double step)
{
    std::vector<double> points;
    for (double lat = -80.0; lat <= 84.0; lat += 1.0)
        for (double dlon = -width; dlon <= width + 1e-9; dlon += step) {
            points.push_back(15.0 + dlon);
            points.push_back(lat);
        }
    return points;
}

} // namespace

TEST(TransverseMercator, AgreesWithTheExactProjectionWithinAZone)
{
#ifndef GX_HAVE_GEOGRAPHICLIB
    GTEST_SKIP() << "GeographicLib (libgeographiclib-dev) is not installed";
#else
    const GeographicLib::TransverseMercatorExact exact(6378137.0, 1 / 298.257223563, 0.9996);
    gx_projcs *cs = utm33();
    ASSERT_NE(cs, nullptr);
    for (double width : {3.5, 6.0, 10.0}) {
        std::vector<double> points = zone_points(width, 0.25);
        const std::vector<double> geographic = points;
        const int n = static_cast<int>(points.size() / 2);
        ASSERT_EQ(gx_geog_to_proj(cs, n, points.data()), n);
        double worst = 0.0;
        for (int i = 0; i < n; ++i) {
            double x, y;
            exact.Forward(15.0, geographic[2 * i + 1], geographic[2 * i], x, y);
            worst =
                std::fmax(worst, std::hypot(points[2 * i] - (x + 500000.0), points[2 * i + 1] - y));
        }
        std::printf("    transverse Mercator within %4.1f deg: worst %.3g m\n", width, worst);
        if (width == 3.5) {
            EXPECT_LT(worst, 1e-3);
        }

        // Round trip.
        ASSERT_EQ(gx_proj_to_geog(cs, n, points.data()), n);
        double worst_back = 0.0;
        for (int i = 0; i < n; ++i) {
            const double lat = geographic[2 * i + 1] * M_PI / 180.0;
            const double dx =
                (points[2 * i] - geographic[2 * i]) * M_PI / 180.0 * 6378137.0 * std::cos(lat);
            const double dy =
                (points[2 * i + 1] - geographic[2 * i + 1]) * M_PI / 180.0 * 6378137.0;
            worst_back = std::fmax(worst_back, std::hypot(dx, dy));
        }
        std::printf("    round trip within %4.1f deg: worst %.3g m\n", width, worst_back);
        if (width == 3.5) {
            EXPECT_LT(worst_back, 1e-4);
        }
    }
    gx_projcs_del(cs);
#endif
}

TEST(TransverseMercator, GaussKrugerIsTheSameProjection)
{
    gx_projcs *tm = utm33("Transverse_Mercator");
    gx_projcs *gk = utm33("Gauss_Kruger");
    std::vector<double> a = zone_points(3.0, 0.5), b = a;
    const int n = static_cast<int>(a.size() / 2);
    EXPECT_EQ(gx_geog_to_proj(tm, n, a.data()), n);
    EXPECT_EQ(gx_geog_to_proj(gk, n, b.data()), n);
    EXPECT_EQ(std::memcmp(a.data(), b.data(), a.size() * sizeof(double)), 0);
    gx_projcs_del(tm);
    gx_projcs_del(gk);
}

TEST(TransverseMercator, ConstantsChangeNothing)
{
    const double sphere[2] = {6378137.0, 0.0066943799901413165};
    double parms[16] = {};
    parms[2] = 0.3;
    parms[5] = 0.9996;
    parms[6] = 0.2;
    gx_constants *constants = gx_constants_new();
    ASSERT_EQ(gx_gauss_kruger_const(constants, sphere, parms), 21);
    const int *ivals = gx_constants_ivals(constants);
    EXPECT_EQ(ivals[0], 2);
    EXPECT_EQ(ivals[1], 21);
    double with[8] = {0.31, 0.5, 0.25, -1.2, 0.36, 1.5707963267948966, 0.3, 0.2};
    double without[8];
    std::memcpy(without, with, sizeof with);
    EXPECT_EQ(gx_gauss_kruger_fwd(sphere, parms, 4, with, ivals, gx_constants_dvals(constants)), 4);
    EXPECT_EQ(gx_gauss_kruger_fwd(sphere, parms, 4, without, nullptr, nullptr), 4);
    EXPECT_EQ(std::memcmp(with, without, sizeof with), 0);
    // The origin maps to (0, 0) and back exactly.
    EXPECT_EQ(with[6], 0.0);
    EXPECT_EQ(with[7], 0.0);
    EXPECT_TRUE(std::isfinite(with[5])); // the pole: a finite northing
    EXPECT_EQ(gx_gauss_kruger_inv(sphere, parms, 4, with, ivals, gx_constants_dvals(constants)), 4);
    EXPECT_EQ(gx_gauss_kruger_inv(sphere, parms, 4, without, nullptr, nullptr), 4);
    EXPECT_EQ(std::memcmp(with, without, sizeof with), 0);
    EXPECT_EQ(with[6], 0.3);
    EXPECT_EQ(with[7], 0.2);
    gx_constants_del(constants);
}

TEST(TransverseMercator, Sphere)
{
    const double sphere[2] = {6371000.0, 0.0};
    double parms[16] = {};
    parms[5] = 1.0;
    // 90 degrees from the central meridian on the equator: large but finite.
    double far[2] = {M_PI / 2, 0.0};
    EXPECT_EQ(gx_gauss_kruger_fwd(sphere, parms, 1, far, nullptr, nullptr), 1);
    EXPECT_TRUE(std::isfinite(far[0]));
    EXPECT_GT(far[0], 1e8);
    // The spherical closed form, and back.
    double p[2] = {0.1, 0.7};
    gx_gauss_kruger_fwd(sphere, parms, 1, p, nullptr, nullptr);
    const double B = std::cos(0.7) * std::sin(0.1);
    EXPECT_NEAR(p[0], 6371000.0 * std::atanh(B), 1e-6);
    EXPECT_NEAR(p[1], 6371000.0 * std::atan2(std::tan(0.7), std::cos(0.1)), 1e-6);
    gx_gauss_kruger_inv(sphere, parms, 1, p, nullptr, nullptr);
    EXPECT_NEAR(p[0], 0.1, 1e-15);
    EXPECT_NEAR(p[1], 0.7, 1e-15);
}
