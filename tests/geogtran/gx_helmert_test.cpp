// The geocentric methods -- translation, coordinate frame (Bursa-Wolf), position vector and
// Molodensky-Badekas -- against PROJ's helmert (+exact) over each transformation's area with
// published EPSG parameters, forward and inverse, heights given and absent; the exact inverse on
// rotations of degrees; the sign conventions against each other.
#include "gx_datum_shift_test_util.h"

#include <array>

namespace gxtest {
namespace {

// A seven-parameter set as published: metres, arc-seconds, ppm; origin in metres.
struct Helmert7 {
    const char *name;
    double tx, ty, tz, rx, ry, rz, ds;
    double px = 0.0, py = 0.0, pz = 0.0;

    std::array<double, 16> parms() const
    {
        return {tx, ty, tz, rx * kArcSec, ry * kArcSec, rz * kArcSec, ds * 1e-6, px, py, pz};
    }
    // PROJ's helmert step (molobadekas about an origin); a null convention gives the pure
    // translation.
    std::string proj(const char *convention) const
    {
        const bool about_origin = px != 0.0 || py != 0.0 || pz != 0.0;
        char buf[400];
        int len = std::snprintf(buf, sizeof buf, " +step +proj=%s +x=%.17g +y=%.17g +z=%.17g",
                                about_origin ? "molobadekas" : "helmert", tx, ty, tz);
        if (convention)
            len += std::snprintf(buf + len, sizeof buf - len,
                                 " +rx=%.17g +ry=%.17g +rz=%.17g +s=%.17g +convention=%s +exact",
                                 rx, ry, rz, ds, convention);
        if (about_origin)
            std::snprintf(buf + len, sizeof buf - len, " +px=%.17g +py=%.17g +pz=%.17g", px, py,
                          pz);
        return buf;
    }
    Helmert7 negated_rotations() const
    {
        Helmert7 h = *this;
        h.rx = -rx, h.ry = -ry, h.rz = -rz;
        return h;
    }
};

// Published sets (EPSG transformation codes).
const Helmert7 kED50Europe{"ED50 to WGS 84 (1), 1133", -87.0, -98.0, -121.0, 0, 0, 0, 0};
const Helmert7 kTokyo{"Tokyo to WGS 84 (5), 1305", -147.0, 506.0, 687.0, 0, 0, 0, 0};
const Helmert7 kNAD27{"NAD27 to WGS 84 (4), 1173", -8.0, 160.0, 176.0, 0, 0, 0, 0};
const Helmert7 kED50Frame{
    "ED50 to WGS 84 (34), 1989", -74.292, -135.889, -104.967, 0.524, 0.136, -0.61, -3.761};
const Helmert7 kED50Norway{
    "ED50 to WGS 84 (23), 1612", -116.641, -56.931, -110.559, 0.893, 0.921, -0.917, -3.52};
const Helmert7 kED50NorthSea{"ED50 to WGS 84 (18), 1311", -89.5, -93.8, -123.1, 0, 0, -0.156, 1.2};
// Published with its rotations in microradians.
constexpr double kMicroradian = 1e-6 / kArcSec; // in arc-seconds
const Helmert7 kAmersfoort{"Amersfoort to ETRS89 (2), 1066",
                           593.032,
                           26.0,
                           478.741,
                           1.9848 * kMicroradian,
                           -1.7439 * kMicroradian,
                           9.0587 * kMicroradian,
                           4.0772,
                           3903453.148,
                           368135.313,
                           5012970.306};
// Rotations of degrees, far beyond any datum shift: the exact matrix must still hold.
const Helmert7 kLarge{
    "rotations of 2, -3 and 5 degrees", 1200.0, -800.0, 450.0, 7200.0, -10800.0, 18000.0, 25.0};

struct Case {
    gx_mth_rtn fwd, inv;
    Helmert7 set;
    const char *convention; // for PROJ
    Ellipsoid e1, e2;
    Area area;
    double tol;
    const Helmert7 *proj_set = nullptr; // what PROJ is given, when not the set itself
};

// Forward and inverse against PROJ, heights given and absent.
void check_against_proj(const Case &c)
{
#ifdef GX_HAVE_PROJ
    const Helmert7 &proj_set = c.proj_set ? *c.proj_set : c.set;
    const Oracle proj("+proj=pipeline +step +proj=cart" + c.e1.proj() +
                      proj_set.proj(c.convention) + " +step +inv +proj=cart" + c.e2.proj());
    ASSERT_TRUE(proj.ok()) << c.set.name;
    const auto parms = c.set.parms();
    const Cloud start = cloud(c.area);
    for (bool heights : {true, false}) {
        const std::string tag =
            std::string(c.set.name) + " over " + c.area.name + (heights ? "" : ", no heights");
        Worst fwd{tag + ", forward"}, inv{tag + ", inverse"};
        const Cloud want = proj.run(start, PJ_FWD, heights);
        compare(fwd, run(c.fwd, c.e1, c.e2, parms.data(), start, heights), want, c.e2.a, heights);
        compare(inv, run(c.inv, c.e1, c.e2, parms.data(), want, heights),
                proj.run(want, PJ_INV, heights), c.e1.a, heights);
        EXPECT_LE(fwd.value, c.tol) << tag;
        EXPECT_LE(inv.value, c.tol) << tag;
    }
#else
    (void)c;
#endif
}

TEST(GeocentricTranslation, MatchesProjOverEuropeJapanAndNorthAmerica)
{
    GX_REQUIRE_PROJ();
    for (const auto &[set, e1, area] :
         {std::tuple{kED50Europe, kIntl, kEurope}, std::tuple{kTokyo, kBessel, kJapan},
          std::tuple{kNAD27, kClarke66, kNorthAmerica}})
        check_against_proj({gx_geocentric_translation_fwd, gx_geocentric_translation_inv, set,
                            nullptr, e1, kWGS84, area, kSameFormulaTol});
}

TEST(CoordinateFrame, MatchesProjExactHelmert)
{
    GX_REQUIRE_PROJ();
    check_against_proj({gx_coordinate_frame_fwd, gx_coordinate_frame_inv, kED50Frame,
                        "coordinate_frame", kIntl, kWGS84, kEurope, kSameFormulaTol});
    check_against_proj({gx_bursa_wolf_fwd, gx_bursa_wolf_inv, kLarge, "coordinate_frame", kIntl,
                        kWGS84, kGlobe, kSameFormulaTol});
}

// PROJ transposes the frame matrix where these routines negate the angles; the two rotation
// orders differ at second order in the angles, well under a millimetre for datum shifts.
TEST(PositionVector, MatchesProjExactHelmert)
{
    GX_REQUIRE_PROJ();
    for (const Helmert7 &set : {kED50Norway, kED50NorthSea}) {
        check_against_proj({gx_position_vector_fwd, gx_position_vector_inv, set, "position_vector",
                            kIntl, kWGS84, kEurope, kOracleTol});
        const Helmert7 frame = set.negated_rotations();
        check_against_proj({gx_position_vector_fwd, gx_position_vector_inv, set, "coordinate_frame",
                            kIntl, kWGS84, kEurope, kSameFormulaTol, &frame});
    }
}

// PROJ's own Molodensky-Badekas operation, molobadekas +exact; its helmert (9.1) accepts
// +px +py +pz but ignores them.
TEST(MolodenskyBadekas, MatchesProjHelmertAboutAnOrigin)
{
    GX_REQUIRE_PROJ();
    check_against_proj({gx_molodensky_badekas_fwd, gx_molodensky_badekas_inv, kAmersfoort,
                        "coordinate_frame", kBessel, kGRS80, kNetherlands, kSameFormulaTol});
}

// The inverse matrix is the exact inverse, so forward then inverse returns the start to rounding
// even for rotations of degrees (and with a change of ellipsoid on the way).  Rounding here means
// 1e-9 m beyond one unit in the last place of the angles (2.8e-9 m in longitude near 180
// degrees), which the geocentric conversions alone already use up: with all parameters zero
// the round trip is off by 1.4e-9 m horizontally.
TEST(CoordinateFrame, InverseUndoesForwardForLargeRotations)
{
    const auto ulp_metres = [](double x) {
        return 6378388.0 * (std::nextafter(std::fabs(x), 4.0) - std::fabs(x));
    };
    for (const Helmert7 &set : {kLarge, kLarge.negated_rotations(), kED50Frame}) {
        const auto parms = set.parms();
        const Cloud start = cloud(kGlobe);
        const Cloud back = run(gx_coordinate_frame_inv, kIntl, kWGS84, parms.data(),
                               run(gx_coordinate_frame_fwd, kIntl, kWGS84, parms.data(), start));
        Worst beyond_ulp{std::string(set.name) + ", there and back, beyond 1 ulp"};
        Worst height{std::string(set.name) + ", there and back, height"};
        for (int i = 0; i < start.size(); ++i) {
            const double lam = start.points[2 * i], phi = start.points[2 * i + 1];
            const double moved =
                ground_distance(kIntl.a, back.points[2 * i], back.points[2 * i + 1], lam, phi);
            beyond_ulp.add(moved - std::hypot(ulp_metres(lam) * std::cos(phi), ulp_metres(phi)),
                           lam, phi);
            height.add(std::fabs(back.heights[i] - start.heights[i]), lam, phi);
        }
        EXPECT_LE(beyond_ulp.value, 1e-9) << set.name;
        EXPECT_LE(height.value, 2e-9) << set.name;
    }
}

TEST(SevenParameters, SignConventionsAndOriginAgree)
{
    const Cloud start = cloud(kEurope, 12, 10);
    const auto same = [](const Cloud &u, const Cloud &v) {
        return u.points == v.points && u.heights == v.heights;
    };
    using Pair = std::pair<gx_mth_rtn, gx_mth_rtn>;
    // Position vector with +Rz is coordinate frame with -Rz.
    const Helmert7 rz{"rz", 0, 0, 0, 0, 0, 1.0, 0};
    for (auto [pv, cf] : {Pair{gx_position_vector_fwd, gx_coordinate_frame_fwd},
                          Pair{gx_position_vector_inv, gx_coordinate_frame_inv}})
        EXPECT_TRUE(same(run(pv, kIntl, kWGS84, rz.parms().data(), start),
                         run(cf, kIntl, kWGS84, rz.negated_rotations().parms().data(), start)));
    // Molodensky-Badekas about the geocentre is the coordinate-frame shift.
    Helmert7 about_geocentre = kAmersfoort;
    about_geocentre.px = about_geocentre.py = about_geocentre.pz = 0.0;
    const auto parms = about_geocentre.parms();
    for (auto [mb, cf] : {Pair{gx_molodensky_badekas_fwd, gx_coordinate_frame_fwd},
                          Pair{gx_molodensky_badekas_inv, gx_coordinate_frame_inv}})
        EXPECT_TRUE(same(run(mb, kBessel, kGRS80, parms.data(), start),
                         run(cf, kBessel, kGRS80, parms.data(), start)));
}

} // namespace
} // namespace gxtest
