// The conic projections -- Lambert conformal conic, Albers, equidistant conic -- against PROJ on
// several ellipsoids and a sphere, and their limits: symmetric parallels (Mercator, cylindrical
// equal area, equidistant cylindrical) and a Lambert cone at a pole (polar stereographic).
#include "gx_projection_test_util.h"

#include <cmath>
#include <vector>

using namespace gxtest;

namespace {

// One conic parameter set: slots and PROJ's arguments for the same cone, and the latitude band
// over which it is used.
struct Cone {
    const char *label;
    double lon0, lat0, lat1, lat2, k0;
    double lat_lo, lat_hi;
};

const Cone kCones[] = {
    {"two parallels 33/45", -96, 23, 33, 45, 1.0, -30, 85},
    {"one parallel 46.8, k0", 2.337, 46.8, 46.8, 46.8, 0.99987742, -30, 85},
    {"southern -20/-50", 130, -35, -20, -50, 1.0, -85, 30},
    {"origin off the parallels", 10, 60, 20, 40, 0.9996, -30, 85},
};

Parms cone_parms(const Cone &c)
{
    return Parms{{2, c.lon0}, {6, c.lat0}, {3, c.lat1}, {4, c.lat2}, {5, c.k0}};
}

std::string cone_args(const char *proj, const Cone &c, bool with_k0)
{
    char buf[200];
    std::snprintf(buf, sizeof buf, "+proj=%s +lat_1=%.17g +lat_2=%.17g +lat_0=%.17g +lon_0=%.17g",
                  proj, c.lat1, c.lat2, c.lat0, c.lon0);
    std::string s = buf;
    if (with_k0) {
        std::snprintf(buf, sizeof buf, " +k_0=%.17g", c.k0);
        s += buf;
    }
    return s;
}

void check_cones(const char *proj, Routines r, bool with_k0, const char *what)
{
    Worst fwd(std::string(what) + " forward vs PROJ " + proj);
    Worst trip(std::string(what) + " round trip");
    for (const Cone &c : kCones) {
        Parms p = cone_parms(c);
        if (!with_k0)
            p.v[5] = 1.0;
        check_on_ellipsoids(r, p, cone_args(proj, c, with_k0),
                            grid(c.lon0 - 70, c.lon0 + 70, c.lat_lo, c.lat_hi), c.label, fwd, trip);
    }
}

} // namespace

#ifdef GX_HAVE_PROJ
TEST(Conic, LambertConformalConicAgreesWithProj)
{
    check_cones("lcc", GX_ROUTINES(lambert_conformal_conic), true, "LCC");
}
TEST(Conic, AlbersAgreesWithProj) { check_cones("aea", GX_ROUTINES(albers), false, "Albers"); }
TEST(Conic, EquidistantConicAgreesWithProj)
{
    check_cones("eqdc", GX_ROUTINES(equidistant_conic), false, "Equidistant conic");
}
#else
TEST(Conic, AgreesWithProj) { GX_REQUIRE_PROJ(); }
#endif

TEST(Conic, LambertOneParallelUsesSinPhi1AndPolesStayFinite)
{
    const Ellipsoid &grs80 = ellipsoids()[0];
    const Subject s(GX_ROUTINES(lambert_conformal_conic), grs80, Parms{{3, 45}, {4, 45}, {6, 45}});
    ASSERT_EQ(s.constants_count(), 21);
    EXPECT_EQ(s.dvals()[0], std::sin(45 * kDeg));
    EXPECT_EQ(s.ivals()[0], 2);
    EXPECT_EQ(s.ivals()[1], 21);
    // both poles, and a latitude beyond one, convert to finite coordinates
    std::vector<double> xy = {0, 90 * kDeg, 0.5, -90 * kDeg, 1.0, 95 * kDeg};
    EXPECT_EQ(s.fwd(xy), 3);
    for (double v : xy)
        EXPECT_TRUE(std::isfinite(v));
    EXPECT_LT(std::hypot(xy[0], xy[1] - s.dvals()[2]), 1e-3); // the apex
    EXPECT_GT(std::fabs(xy[3]), 1e8);                         // the opposite pole
    // a radius of 0 is the pole of the cone's sign
    std::vector<double> apex = {0.0, s.dvals()[2]};
    EXPECT_EQ(s.inv(apex), 1);
    EXPECT_EQ(apex[1], 90 * kDeg);
}

TEST(Conic, LambertSymmetricParallelsIsScaledShiftedMercator)
{
    const double k0 = 0.9996;
    for (const Ellipsoid &e : ellipsoids()) {
        const Subject lcc(GX_ROUTINES(lambert_conformal_conic), e,
                          Parms{{2, 15}, {3, 30}, {4, -30}, {6, 10}, {5, k0}});
        const Subject merc(GX_ROUTINES(mercator), e, Parms{{2, 15}, {3, 30}});
        ASSERT_EQ(lcc.constants_count(), merc.constants_count()) << e.name;
        EXPECT_EQ(0,
                  std::memcmp(lcc.dvals(), merc.dvals(), sizeof(double) * merc.constants_count()));

        const std::vector<double> geo = grid(-160, 190, -80, 80, 9);
        std::vector<double> got = geo, want = geo, origin = {15 * kDeg, 10 * kDeg};
        EXPECT_EQ(lcc.fwd(got), 81);
        std::vector<double> plain = geo;
        lcc.fwd(plain, false);
        EXPECT_TRUE(bitwise_equal(got, plain)) << e.name << " without constants";
        merc.fwd(want);
        merc.fwd(origin);
        for (size_t i = 0; i < want.size(); i += 2) {
            want[i] *= k0;
            want[i + 1] = (want[i + 1] - origin[1]) * k0;
        }
        EXPECT_TRUE(same_values(got, want)) << e.name;
        EXPECT_EQ(lcc.inv(got), 81);
        for (size_t i = 0; i < geo.size(); i += 2)
            EXPECT_LT(ground_distance(e.a, got[i], got[i + 1], geo[i], geo[i + 1]), kRoundTripTol)
                << e.name;
    }
}

TEST(Conic, LambertBothParallelsAtAPoleIsPolarStereographic)
{
    for (const Ellipsoid &e : ellipsoids())
        for (double pole : {90.0, -90.0})
            for (double lat0 : {pole, pole * 0.6}) {
                const Subject lcc(GX_ROUTINES(lambert_conformal_conic), e,
                                  Parms{{2, -45}, {3, pole}, {4, pole}, {6, lat0}, {5, 0.994}});
                const Subject stere(GX_ROUTINES(stereographic), e,
                                    Parms{{2, -45}, {6, pole}, {5, 0.994}});
                ASSERT_EQ(lcc.constants_count(), stere.constants_count());
                const std::vector<double> geo = grid(-180, 180, pole * 0.1, pole, 9);
                std::vector<double> got = geo, want = geo, origin = {-45 * kDeg, lat0 * kDeg};
                EXPECT_EQ(lcc.fwd(got), 81);
                std::vector<double> plain = geo;
                lcc.fwd(plain, false);
                EXPECT_TRUE(bitwise_equal(got, plain)) << e.name << " without constants";
                stere.fwd(want);
                stere.fwd(origin);
                if (lat0 != pole) // northings count from the cone's own origin
                    for (size_t i = 1; i < want.size(); i += 2)
                        want[i] -= origin[1];
                EXPECT_TRUE(same_values(got, want))
                    << e.name << " pole " << pole << " lat0 " << lat0;
                EXPECT_EQ(lcc.inv(got), 81);
                for (size_t i = 0; i < geo.size(); i += 2)
                    EXPECT_LT(ground_distance(e.a, got[i], got[i + 1], geo[i], geo[i + 1]),
                              kRoundTripTol);
            }
}

TEST(Conic, LambertWithOneParallelAtAPoleConvertsNothing)
{
    const Ellipsoid &grs80 = ellipsoids()[0];
    for (const Parms &p :
         {Parms{{3, 90}, {4, 45}}, Parms{{3, 30}, {4, -90}}, Parms{{3, 90}, {4, -90}}}) {
        const Subject s(GX_ROUTINES(lambert_conformal_conic), grs80, p);
        EXPECT_EQ(s.constants_count(), 0);
        std::vector<double> xy = {0.1, 0.2}, plane = {1000.0, 2000.0};
        EXPECT_EQ(s.fwd(xy), 0);
        EXPECT_EQ(s.inv(plane), 0);
        EXPECT_EQ(xy, (std::vector<double>{0.1, 0.2}));
        EXPECT_EQ(plane, (std::vector<double>{1000.0, 2000.0}));
    }
}

TEST(Conic, AlbersSymmetricParallelsIsCylindricalEqualArea)
{
    for (const Ellipsoid &e : ellipsoids()) {
        const Subject aea(GX_ROUTINES(albers), e, Parms{{2, 15}, {3, 30}, {4, -30}});
        const Subject cea(GX_ROUTINES(cylindrical_eqarea), e, Parms{{2, 15}, {3, 30}});
        ASSERT_EQ(aea.constants_count(), cea.constants_count());
        const std::vector<double> geo = grid(-160, 190, -90, 90, 9);
        std::vector<double> got = geo, want = geo;
        aea.fwd(got);
        cea.fwd(want);
        EXPECT_TRUE(same_values(got, want)) << e.name;
        aea.inv(got);
        cea.inv(want);
        EXPECT_TRUE(same_values(got, want)) << e.name;
    }
}

TEST(Conic, EquidistantConicSymmetricParallelsIsEquidistantCylindrical)
{
    GX_REQUIRE_PROJ();
#ifdef GX_HAVE_PROJ
    // PROJ's eqc is spherical: compare on the sphere; on the ellipsoid the northing is the
    // meridian arc from the origin, checked against the one-parallel cone's own arc.
    Worst fwd("Equidistant conic, symmetric parallels, vs PROJ eqc"), trip("  round trip");
    const Ellipsoid &sphere = ellipsoids()[3];
    const Subject s(GX_ROUTINES(equidistant_conic), sphere,
                    Parms{{2, 15}, {3, 30}, {4, -30}, {6, 10}});
    const Oracle eqc("+proj=eqc +lat_ts=30 +lat_0=10 +lon_0=15" + proj_ellipsoid(sphere));
    compare_with_proj(s, eqc, sphere, grid(-160, 190, -90, 90), fwd, trip, "eqdc 30/-30");
#endif
    // On the ellipsoid: x = a m1 (lambda - lambda0), y = meridian arc from the origin.
    for (const Ellipsoid &e : ellipsoids()) {
        const Subject cyl(GX_ROUTINES(equidistant_conic), e, Parms{{3, 30}, {4, -30}, {6, 10}});
        std::vector<double> xy = {1.0, 70 * kDeg};
        EXPECT_EQ(cyl.fwd(xy), 1);
        const double m1 = std::cos(30 * kDeg) / std::sqrt(1 - e.e2 * 0.25);
        EXPECT_NEAR(xy[0], e.a * m1, 1e-6) << e.name;
        EXPECT_NEAR(xy[1], gx_q(e.a, e.e2, 70 * kDeg) - gx_q(e.a, e.e2, 10 * kDeg), kForwardTol)
            << e.name;
    }
}
