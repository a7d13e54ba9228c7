// Mercator, cylindrical equal area, stereographic, orthographic and gnomonic against PROJ, the
// auxiliary-sphere forms with each sphere type, and the far-side failure rule.
#include "gx_projection_test_util.h"

#ifdef GX_HAVE_GEOGRAPHICLIB
#include <GeographicLib/Ellipsoid.hpp>
#endif

#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

using namespace gxtest;

#ifdef GX_HAVE_PROJ
TEST(Cylindrical, MercatorAndEqualAreaAgreeWithProj)
{
    Worst merc_fwd("Mercator forward vs PROJ merc"), merc_trip("Mercator round trip");
    Worst cea_fwd("Cylindrical equal area forward vs PROJ cea"),
        cea_trip("Cylindrical equal area round trip");
    for (double lat_ts : {0.0, 40.0, -25.0}) {
        const std::string ts = " +lon_0=-75 +lat_ts=" + std::to_string(lat_ts);
        const Parms p{{2, -75}, {3, lat_ts}};
        check_on_ellipsoids(GX_ROUTINES(mercator), p, "+proj=merc" + ts, grid(-254, 104, -85, 85),
                            "merc", merc_fwd, merc_trip);
        check_on_ellipsoids(GX_ROUTINES(cylindrical_eqarea), p, "+proj=cea" + ts,
                            grid(-254, 104, -89.9, 89.9), "cea", cea_fwd, cea_trip);
    }
}

TEST(Azimuthal, StereographicAgreesWithProj)
{
    Worst fwd("Stereographic forward vs PROJ stere"), trip("Stereographic round trip");
    struct Origin {
        double lon0, lat0, k0;
    };
    for (const Origin o : {Origin{5.4, 52.1, 0.9999079}, Origin{0, 0, 1}, Origin{-45, 90, 0.994},
                           Origin{100, -90, 0.97}, Origin{-120, -30, 1}}) {
        char args[128];
        std::snprintf(args, sizeof args, "+proj=stere +lat_0=%.17g +lon_0=%.17g +k_0=%.17g", o.lat0,
                      o.lon0, o.k0);
        const double lo = std::fmax(-90, o.lat0 - 60), hi = std::fmin(90, o.lat0 + 60);
        check_on_ellipsoids(GX_ROUTINES(stereographic), Parms{{2, o.lon0}, {6, o.lat0}, {5, o.k0}},
                            args, grid(o.lon0 - 60, o.lon0 + 60, lo, hi), "stere", fwd, trip);
    }
}

// Orthographic and gnomonic are spherical with radius a on every datum: PROJ is given +R=a.
TEST(Azimuthal, OrthographicAndGnomonicAgreeWithProjOnTheSphereOfRadiusA)
{
    Worst o_fwd("Orthographic forward vs PROJ ortho +R=a"), o_trip("Orthographic round trip");
    Worst g_fwd("Gnomonic forward vs PROJ gnom +R=a"), g_trip("Gnomonic round trip");
    for (const Ellipsoid &e : ellipsoids())
        for (double lat_c : {50.0, 0.0, -90.0}) {
            const Parms p{{10, 10}, {11, lat_c}};
            const std::string center =
                " +lon_0=10 +lat_0=" + std::to_string(lat_c) + " +R=" + std::to_string(e.a);
            const Subject ortho(GX_ROUTINES(orthographic), e, p), gnom(GX_ROUTINES(gnomonic), e, p);
            const Oracle proj_ortho("+proj=ortho" + center), proj_gnom("+proj=gnom" + center);
            // points up to c = 85 degrees from the center for the orthographic (at its rim the
            // inverse loses half the digits: d(phi) ~ sqrt(d(rho))), 70 for the gnomonic (whose
            // scale grows as 1/cos^2 c)
            const std::vector<double> geo = grid(-90, 110, -89, 89, 31);
            std::vector<double> ortho_area, gnom_area;
            for (size_t i = 0; i < geo.size(); i += 2) {
                const double cos_c =
                    std::sin(lat_c * kDeg) * std::sin(geo[i + 1]) +
                    std::cos(lat_c * kDeg) * std::cos(geo[i + 1]) * std::cos(geo[i] - 10 * kDeg);
                if (cos_c > std::cos(85 * kDeg))
                    ortho_area.insert(ortho_area.end(), {geo[i], geo[i + 1]});
                if (cos_c > std::cos(70 * kDeg))
                    gnom_area.insert(gnom_area.end(), {geo[i], geo[i + 1]});
            }
            compare_with_proj(ortho, proj_ortho, e, ortho_area, o_fwd, o_trip, "ortho");
            compare_with_proj(gnom, proj_gnom, e, gnom_area, g_fwd, g_trip, "gnom");
        }
}
#else
TEST(Projections, AgreeWithProj) { GX_REQUIRE_PROJ(); }
#endif

TEST(Cylindrical, MercatorPolesAreFiniteAndTheEquatorIsZero)
{
    for (const Ellipsoid &e : ellipsoids()) {
        const Subject s(GX_ROUTINES(mercator), e, Parms{{3, 20}});
        EXPECT_EQ(s.constants_count(), e.e2 == 0 ? 2 : 20);
        std::vector<double> xy = {0.3, 90 * kDeg, 0.3, -90 * kDeg, 0.3, 0.0};
        EXPECT_EQ(s.fwd(xy), 3);
        EXPECT_TRUE(std::isfinite(xy[1]) && xy[1] > 1e8) << e.name;
        EXPECT_EQ(xy[3], -xy[1]);
        EXPECT_EQ(xy[5], 0.0);
    }
}

TEST(Azimuthal, FarSidePointsFailAndAreNotCounted)
{
    const Ellipsoid &grs80 = ellipsoids()[0];
    const Parms center{{10, 10}, {11, 0}, {6, 0}, {2, 10}};
    // the center, its antipode, a point 90 degrees away (the horizon), one just beyond it
    const std::vector<double> geo = {10 * kDeg,  0.0, -170 * kDeg,  0.0,
                                     100 * kDeg, 0.0, 100.5 * kDeg, 0.0};
    struct Expect {
        Routines r;
        int count;
        std::vector<bool> fails;
    };
    for (const Expect &x : {Expect{GX_ROUTINES(orthographic), 2, {false, true, false, true}},
                            Expect{GX_ROUTINES(gnomonic), 1, {false, true, true, true}},
                            Expect{GX_ROUTINES(stereographic), 3, {false, true, false, false}},
                            Expect{GX_ROUTINES(orthographic_auxs), 2, {false, true, false, true}},
                            Expect{GX_ROUTINES(gnomonic_auxs), 1, {false, true, true, true}}}) {
        const Subject s(x.r, grs80, center);
        std::vector<double> xy = geo;
        EXPECT_EQ(s.fwd(xy), x.count);
        for (size_t i = 0; i < x.fails.size(); ++i) {
            EXPECT_EQ(std::isnan(xy[2 * i]) && std::isnan(xy[2 * i + 1]), x.fails[i]) << i;
            if (x.fails[i]) {
                EXPECT_EQ(std::bit_cast<std::uint64_t>(xy[2 * i]), 0x7FF8000000000001u);
            }
        }
    }
    // orthographic inverse: a plane point beyond the globe's rim fails
    const Subject ortho(GX_ROUTINES(orthographic), grs80, center);
    std::vector<double> plane = {0.0, 0.0, grs80.a * 1.001, 0.0, grs80.a, 0.0};
    EXPECT_EQ(ortho.inv(plane), 2);
    EXPECT_TRUE(std::isnan(plane[2]) && std::isnan(plane[3]));
    EXPECT_NEAR(plane[0], 10 * kDeg, 1e-15);
    EXPECT_NEAR(plane[1], 0.0, 1e-15);
}

TEST(AuxiliarySphere, TypeChoosesTheSphere)
{
    const Ellipsoid &grs80 = ellipsoids()[0];
    const double b = grs80.a * std::sqrt(1 - grs80.e2), r_auth = gx_auth_r(grs80.a, grs80.e2);
    struct Case {
        double type;
        double radius;
        int count;
    };
    for (const Case c :
         {Case{0, grs80.a, 2}, Case{0.9995, b, 2}, Case{1, b, 2}, Case{2.4, r_auth, 2},
          Case{3, r_auth, 20}, Case{7, grs80.a, 2}, Case{-1, grs80.a, 2}}) {
        const Subject s(GX_ROUTINES(mercator_auxs), grs80, Parms{{12, c.type}});
        ASSERT_EQ(s.constants_count(), c.count) << c.type;
        EXPECT_EQ(s.dvals()[1], c.radius) << c.type; // R cos(phi1), phi1 = 0
    }
    // on a sphere every type is type 0
    const Ellipsoid &sphere = ellipsoids()[3];
    const std::vector<double> geo = grid(-170, 170, -80, 80, 7);
    std::vector<double> t0 = geo, t3 = geo;
    Subject(GX_ROUTINES(mercator_auxs), sphere, Parms{{12, 0}}).fwd(t0);
    Subject(GX_ROUTINES(mercator_auxs), sphere, Parms{{12, 3}}).fwd(t3);
    EXPECT_TRUE(bitwise_equal(t0, t3));
}

#ifdef GX_HAVE_PROJ
TEST(AuxiliarySphere, MercatorOnEachSphereAgreesWithProj)
{
    Worst fwd("Mercator_Auxiliary_Sphere forward vs PROJ"),
        trip("Mercator_Auxiliary_Sphere round trip");
    const std::vector<double> geo = grid(-180, 180, -85, 85);
    for (const Ellipsoid &e : ellipsoids()) {
        char a[64], b[64];
        std::snprintf(a, sizeof a, " +R=%.17g", e.a);
        std::snprintf(b, sizeof b, " +R=%.17g", e.a * std::sqrt(1 - e.e2));
        const Subject web(GX_ROUTINES(mercator_auxs), e, Parms{{12, 0}});
        compare_with_proj(web, Oracle("+proj=webmerc" + proj_ellipsoid(e)), e, geo, fwd, trip,
                          "type 0 webmerc");
        const Subject semi_major(GX_ROUTINES(mercator_auxs), e, Parms{{12, 0}, {3, 35}, {2, 20}});
        compare_with_proj(semi_major, Oracle(std::string("+proj=merc +lat_ts=35 +lon_0=20") + a), e,
                          geo, fwd, trip, "type 0");
        const Subject semi_minor(GX_ROUTINES(mercator_auxs), e, Parms{{12, 1}, {3, 35}, {2, 20}});
        compare_with_proj(semi_minor, Oracle(std::string("+proj=merc +lat_ts=35 +lon_0=20") + b), e,
                          geo, fwd, trip, "type 1");
    }
}

TEST(AuxiliarySphere, AzimuthalsOnTheSemiMinorSphereAgreeWithProj)
{
    Worst fwd("ortho/gnom/stere _Auxiliary_Sphere type 1 forward vs PROJ"), trip("  round trip");
    const std::vector<double> geo = grid(-30, 50, 0, 89, 15);
    for (const Ellipsoid &e : ellipsoids()) {
        char sph[96];
        std::snprintf(sph, sizeof sph, " +lon_0=10 +lat_0=50 +R=%.17g", e.a * std::sqrt(1 - e.e2));
        const Parms p{{10, 10}, {11, 50}, {2, 10}, {6, 50}, {12, 1}};
        compare_with_proj(Subject(GX_ROUTINES(orthographic_auxs), e, p),
                          Oracle(std::string("+proj=ortho") + sph), e, geo, fwd, trip,
                          "ortho_auxs");
        compare_with_proj(Subject(GX_ROUTINES(gnomonic_auxs), e, p),
                          Oracle(std::string("+proj=gnom") + sph), e, geo, fwd, trip, "gnom_auxs");
        compare_with_proj(Subject(GX_ROUTINES(stereographic_auxs), e, p),
                          Oracle(std::string("+proj=stere") + sph), e, geo, fwd, trip,
                          "stere_auxs");
    }
}
#endif

#if defined(GX_HAVE_PROJ) && defined(GX_HAVE_GEOGRAPHICLIB)
// Types 2 and 3: the authalic sphere (radius from GeographicLib), with the authalic latitude
// (GeographicLib's) for type 3.
TEST(AuxiliarySphere, MercatorOnTheAuthalicSphereAgreesWithProj)
{
    Worst fwd("Mercator_Auxiliary_Sphere types 2, 3 forward vs PROJ"), trip("  round trip");
    const std::vector<double> geo = grid(-180, 180, -85, 85);
    for (const Ellipsoid &e : ellipsoids()) {
        const GeographicLib::Ellipsoid ell(e.a, e.e2 / (1 + std::sqrt(1 - e.e2)));
        const double r_auth = std::sqrt(ell.Area() / (4 * 3.14159265358979323846));
        char args[96];
        std::snprintf(args, sizeof args, "+proj=merc +lat_ts=35 +lon_0=20 +R=%.17g", r_auth);
        const Oracle merc(args);
        const Subject type2(GX_ROUTINES(mercator_auxs), e, Parms{{12, 2}, {3, 35}, {2, 20}});
        compare_with_proj(type2, merc, e, geo, fwd, trip, "type 2");
        // type 3 takes beta where PROJ's sphere takes phi: feed PROJ the authalic latitude, and the
        // standard parallel too
        const Subject type3(GX_ROUTINES(mercator_auxs), e, Parms{{12, 3}, {3, 35}, {2, 20}});
        std::snprintf(args, sizeof args, "+proj=merc +lat_ts=%.17g +lon_0=20 +R=%.17g",
                      ell.AuthalicLatitude(35), r_auth);
        const Oracle merc_beta(args);
        std::vector<double> xy = geo;
        EXPECT_EQ(type3.fwd(xy), int(geo.size() / 2));
        std::vector<double> plain = geo;
        type3.fwd(plain, false);
        EXPECT_TRUE(bitwise_equal(xy, plain)) << e.name << " type 3 without constants";
        std::vector<double> back = xy;
        type3.inv(back);
        for (size_t i = 0; i < geo.size(); i += 2) {
            double px, py;
            ASSERT_TRUE(
                merc_beta.fwd(geo[i], ell.AuthalicLatitude(geo[i + 1] / kDeg) * kDeg, &px, &py));
            const std::string at = where("type 3", e, geo[i], geo[i + 1]);
            fwd.add(std::hypot(xy[i] - px, xy[i + 1] - py), at);
            trip.add(ground_distance(e.a, back[i], back[i + 1], geo[i], geo[i + 1]), at);
        }
    }
    EXPECT_LE(fwd.value(), kForwardTol);
    EXPECT_LE(trip.value(), kRoundTripTol);
}
#endif
