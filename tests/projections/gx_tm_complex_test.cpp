// The exact transverse Mercator (Transverse_Mercator_Complex) against GeographicLib's
// TransverseMercatorExact, an independent implementation of the same mapping (Lee 1976,
// Karney 2011), on WGS84 with k0 = 0.9996; distances in metres.
#include "gx_projection_test_util.h"

#include <cmath>
#include <string>
#include <vector>

#ifdef GX_HAVE_GEOGRAPHICLIB
#include <GeographicLib/TransverseMercatorExact.hpp>
#endif

namespace {

using gxtest::kDeg;

constexpr double kA = 6378137.0, kRf = 298.257223563, kK0 = 0.9996;
const gxtest::Ellipsoid kWgs84{"WGS84", kA, gxtest::e2_from_rf(kRf)};
constexpr double kForwardTol = 1e-6;
// Northings of 10^7 m are held to 1.9 nm (a unit in the last place), the elliptic functions to a
// few units: the round trip is good to about 8 nm, as GeographicLib's own.
constexpr double kRoundTripTol = 1e-8;

gxtest::Subject wgs84(double lon0 = 0.0, double lat0 = 0.0)
{
    return gxtest::Subject(GX_ROUTINES(tm_complex), kWgs84, {{2, lon0}, {5, kK0}, {6, lat0}});
}

// (lon, lat) in radians every `step` degrees up to `width` from lon0, from 89.9 S to 89.9 N, and
// the poles.
std::vector<double> zone(double lon0, double width, double step)
{
    std::vector<double> xy;
    const int lons = int(2 * width / step + 0.5), lats = int(179.8 / step + 1e-9);
    for (int i = 0; i <= lons; ++i) {
        const double lon = (lon0 - width + i * step) * kDeg;
        for (int j = 0; j <= lats; ++j)
            xy.insert(xy.end(), {lon, (-89.9 + j * step) * kDeg});
        xy.insert(xy.end(), {lon, 89.9 * kDeg, lon, M_PI / 2, lon, -M_PI / 2});
    }
    return xy;
}

// Every point converts both ways; the forward agrees with GeographicLib and the round trip
// returns to the start within the bounds, and the worst cases are printed.
void check_against_exact(const gxtest::Subject &s, double lon0, double lat0,
                         const std::vector<double> &geo, const char *label,
                         double fwd_tol = kForwardTol, double trip_tol = kRoundTripTol)
{
#ifdef GX_HAVE_GEOGRAPHICLIB
    const GeographicLib::TransverseMercatorExact exact(kA, 1 / kRf, kK0);
    double x0, y0;
    exact.Forward(lon0, lat0, lon0, x0, y0);
    const int n = int(geo.size() / 2);
    std::vector<double> xy = geo;
    ASSERT_EQ(s.fwd(xy), n) << label;
    std::vector<double> back = xy;
    ASSERT_EQ(s.inv(back), n) << label;
    gxtest::Worst fwd_worst(std::string(label) + " forward");
    gxtest::Worst trip_worst(std::string(label) + " round trip");
    for (int i = 0; i < n; ++i) {
        const double lon = geo[2 * i], lat = geo[2 * i + 1];
        double x, y;
        exact.Forward(lon0, lat / kDeg, lon / kDeg, x, y);
        const std::string at = gxtest::where(label, kWgs84, lon, lat);
        fwd_worst.add(std::hypot(xy[2 * i] - x, xy[2 * i + 1] - (y - y0)), at);
        trip_worst.add(gxtest::ground_distance(kA, back[2 * i], back[2 * i + 1], lon, lat), at);
    }
    EXPECT_LE(fwd_worst.value(), fwd_tol) << label;
    EXPECT_LE(trip_worst.value(), trip_tol) << label;
#else
    (void)s, (void)lon0, (void)lat0, (void)geo, (void)label, (void)fwd_tol, (void)trip_tol;
    GTEST_SKIP() << "GeographicLib is not available: the comparison with it is skipped";
#endif
}

} // namespace

TEST(TmComplex, AgreesWithTheExactProjectionWithin20And60Degrees)
{
    check_against_exact(wgs84(), 0, 0, zone(0, 20, 0.5), "within 20 deg");
    check_against_exact(wgs84(), 0, 0, zone(0, 60, 1.0), "within 60 deg");
}

// Elsewhere too, the far side included, but near the branch point (1 - e) 90 degrees from the
// central meridian on the equator, where w and sigma are cubic in zeta and the mapping loses
// digits: 0.4 micrometre forward one degree from it.
TEST(TmComplex, AgreesWithTheExactProjectionOverTheGlobe)
{
    std::vector<double> geo;
    for (double lon = -178.0; lon <= 180.0; lon += 2.0)
        for (double lat = -89.0; lat <= 89.0; lat += 1.0)
            if (lat != 0.0 || std::fabs(lon) != 90.0)
                geo.insert(geo.end(), {lon * kDeg, lat * kDeg});
    check_against_exact(wgs84(), 0, 0, geo, "whole globe", 1e-5, 1e-6);
}

TEST(TmComplex, LatitudeOfOriginMapsToNorthingZero)
{
    const gxtest::Subject s = wgs84(9.0, 49.0);
    std::vector<double> origin = {9.0 * kDeg, 49.0 * kDeg};
    ASSERT_EQ(s.fwd(origin), 1);
    EXPECT_TRUE(gxtest::same_values(origin, {0.0, 0.0}));
    check_against_exact(s, 9.0, 49.0, zone(9.0, 6, 0.5), "origin 49N 9E");
}

TEST(TmComplex, ConstantsRecord)
{
    const double e2 = kWgs84.e2;
    double block[16];
    gx_chi_conformal_constants(e2, block, 0);
    std::vector<double> expected = {kA * kK0, 1 - e2, std::sqrt(e2), 0x1p-24, 0x1p-23, 0x1p-12};
    expected.push_back(0.0); // y0
    expected.insert(expected.end(), block, block + 16);
    expected.insert(expected.end(), {0.0, 0.0});
    const gxtest::Subject s = wgs84(0.0, 1e-15 / kDeg); // within 2^-48 of the equator: y0 = 0
    ASSERT_EQ(s.constants_count(), 25);
    EXPECT_EQ(s.ivals()[0], 2);
    EXPECT_TRUE(gxtest::bitwise_equal(std::vector<double>(s.dvals(), s.dvals() + 25), expected));
    EXPECT_NEAR(wgs84(0.0, 49.0).dvals()[6], 5427455.7812, 1e-4); // 49 N, k0 included
}

TEST(TmComplex, SameResultsWithAndWithoutConstants)
{
    for (const gxtest::Ellipsoid &e : gxtest::ellipsoids()) {
        const gxtest::Subject s(GX_ROUTINES(tm_complex), e, {{2, -3.0}, {5, kK0}, {6, -27.5}});
        std::vector<double> with = gxtest::grid(-183.0, 177.0, -90.0, 90.0, 31);
        with.insert(with.end(), {87.0 * kDeg, 0.0, std::nan(""), 0.3}); // two that fail
        std::vector<double> without = with;
        EXPECT_EQ(s.fwd(with), s.fwd(without, false)) << e.name;
        EXPECT_TRUE(gxtest::bitwise_equal(with, without)) << e.name << " forward";
        EXPECT_EQ(s.inv(with), s.inv(without, false)) << e.name;
        EXPECT_TRUE(gxtest::bitwise_equal(with, without)) << e.name << " inverse";
    }
}

TEST(TmComplex, PolesAndOriginMapExactly)
{
    const gxtest::Subject s = wgs84(10.0);
    const double quarter = kA * kK0 * gx_ellint2(kWgs84.e2), pole = M_PI / 2;
    std::vector<double> xy = {10 * kDeg, pole, 75 * kDeg, -pole, -150 * kDeg, pole, 10 * kDeg, 0.0};
    ASSERT_EQ(s.fwd(xy), 4);
    EXPECT_TRUE(gxtest::same_values(xy, {0.0, quarter, 0.0, -quarter, 0.0, quarter, 0.0, 0.0}));
    ASSERT_EQ(s.inv(xy), 4);
    const double lon0 = 10 * kDeg;
    EXPECT_TRUE(gxtest::same_values(xy, {lon0, pole, lon0, -pole, lon0, pole, lon0, 0.0}));
}

// 90 degrees from the central meridian on the equator (either side), the branch point and NaN
// input are not carried nor counted; the points around them are converted.
TEST(TmComplex, SingularPointsFailAlone)
{
    const double branch = 20.0 + (1.0 - std::sqrt(kWgs84.e2)) * 90.0;
    std::vector<double> xy = {110 * kDeg, 0.0,  -70 * kDeg,   0.0, branch * kDeg, 0.0,  0.3,  NAN,
                              110 * kDeg, 1e-3, 109.9 * kDeg, 0.0, branch * kDeg, 1e-4, 0.25, 0.0};
    EXPECT_EQ(wgs84(20.0).fwd(xy), 4);
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(std::isnan(xy[2 * i]) && std::isnan(xy[2 * i + 1]), i < 4) << "point " << i;
    std::vector<double> plane = {std::nan(""), 0.0, 1e6, 1e6};
    EXPECT_EQ(wgs84(20.0).inv(plane), 1);
}

TEST(TmComplex, SphereIsTheSphericalClosedForm)
{
    const gxtest::Ellipsoid sphere{"sphere", 6371000.0, 0.0};
    const gxtest::Parms parms{{2, 5.0}, {5, kK0}, {6, 30.0}};
    const gxtest::Subject s(GX_ROUTINES(tm_complex), sphere, parms);
    ASSERT_EQ(s.constants_count(), 2);
    const double ak0 = 6371000.0 * kK0;
    EXPECT_TRUE(gxtest::bitwise_equal({s.dvals()[0], s.dvals()[1]}, {ak0, ak0 / 2}));
    const std::vector<double> geo = gxtest::grid(-55.0, 65.0, -89.0, 89.0, 13);
    std::vector<double> xy = geo;
    ASSERT_EQ(s.fwd(xy), int(geo.size() / 2));
    for (size_t i = 0; i < geo.size(); i += 2) {
        const double L = geo[i] - 5.0 * kDeg, phi = geo[i + 1];
        EXPECT_NEAR(xy[i], ak0 * std::atanh(std::cos(phi) * std::sin(L)), 1e-6);
        EXPECT_NEAR(xy[i + 1], ak0 * (std::atan2(std::tan(phi), std::cos(L)) - 30.0 * kDeg), 1e-6);
    }
    // The closed-form inverse takes asin of a number near 1 close to the poles: 5e-8 m at 89 deg.
    ASSERT_EQ(s.inv(xy), int(geo.size() / 2));
    for (size_t i = 0; i < geo.size(); i += 2)
        EXPECT_LE(gxtest::ground_distance(6371000.0, xy[i], xy[i + 1], geo[i], geo[i + 1]), 1e-7);
}

// Through the registry and the conversion driver: a UTM zone in degrees with a false easting.
TEST(TmComplex, ConvertsThroughTheDriver)
{
    gx_projcs *cs = gx_projcs_from_string(
        "PROJCS[\"UTM_33N_exact\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
        "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
        "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator_Complex\"],"
        "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
        "PARAMETER[\"Central_Meridian\",15.0],PARAMETER[\"Scale_Factor\",0.9996],"
        "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]");
    ASSERT_NE(cs, nullptr);
    const std::vector<double> geo = {12.0, 48.5, 21.0, -33.25};
    std::vector<double> xy = geo, direct = {12.0 * kDeg, 48.5 * kDeg, 21.0 * kDeg, -33.25 * kDeg};
    ASSERT_EQ(gx_geog_to_proj(cs, 2, xy.data()), 2);
    ASSERT_EQ(wgs84(15.0).fwd(direct), 2);
    for (int i = 0; i < 4; ++i) // the WKT degree, 0.0174532925199433, is 3e-17 short of pi/180
        EXPECT_NEAR(xy[i], direct[i] + (i % 2 ? 0.0 : 500000.0), 1e-7);
    ASSERT_EQ(gx_proj_to_geog(cs, 2, xy.data()), 2);
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(xy[i], geo[i], 1e-12);
    gx_projcs_del(cs);
}
