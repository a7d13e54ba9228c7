// The standard and abridged Molodensky shifts against PROJ's molodensky over each
// transformation's area, forward and inverse, heights given and absent; the poles, a shift past
// a pole, and the identity of every geodetic method.
#include "gx_datum_shift_test_util.h"

#include <array>
#include <tuple>

namespace gxtest {
namespace {

struct Translation {
    const char *name;
    double tx, ty, tz;
    std::array<double, 16> parms() const { return {tx, ty, tz}; }
};

// Published three-parameter sets (EPSG transformation codes).
const Translation kED50{"ED50 to WGS 84 (1), 1133", -87.0, -98.0, -121.0};
const Translation kTokyo{"Tokyo to WGS 84 (5), 1305", -147.0, 506.0, 687.0};
const Translation kNAD27{"NAD27 to WGS 84 (4), 1173", -8.0, 160.0, 176.0};

double flattening(const Ellipsoid &e) { return e.e2() / (1.0 + std::sqrt(1.0 - e.e2())); }

#ifdef GX_HAVE_PROJ
// PROJ's molodensky from e1 to e2 with the translation t scaled by sign.
std::string proj_molodensky(const Ellipsoid &e1, const Ellipsoid &e2, const Translation &t,
                            double sign, bool abridged)
{
    char buf[300];
    std::snprintf(buf, sizeof buf,
                  "+proj=molodensky%s +dx=%.17g +dy=%.17g +dz=%.17g +da=%.17g +df=%.17g",
                  e1.proj().c_str(), sign * t.tx, sign * t.ty, sign * t.tz, e2.a - e1.a,
                  flattening(e2) - flattening(e1));
    return std::string(buf) + (abridged ? " +abridged" : "");
}
#endif

struct Form {
    const char *name;
    gx_mth_rtn fwd, inv;
    bool abridged;
};

const Form kForms[] = {
    {"Molodensky", gx_molodensky_fwd, gx_molodensky_inv, false},
    {"abridged Molodensky", gx_molodensky_abridged_fwd, gx_molodensky_abridged_inv, true}};

// Forward against PROJ's forward; the inverse against PROJ's forward from the second ellipsoid
// with the translations negated (the same one-step formula), and against PROJ's inverse, which
// evaluates the forward shift at the shifted point and subtracts it: the two one-step inverses
// differ by the change of the shift over the ellipsoids, up to 5 cm for Tokyo (da = 739 m).
TEST(Molodensky, MatchesProjOverEuropeJapanAndNorthAmerica)
{
    GX_REQUIRE_PROJ();
#ifdef GX_HAVE_PROJ
    for (const Form &form : kForms)
        for (const auto &[t, e1, area] :
             {std::tuple{kED50, kIntl, kEurope}, std::tuple{kTokyo, kBessel, kJapan},
              std::tuple{kNAD27, kClarke66, kNorthAmerica}}) {
            const Oracle there(proj_molodensky(e1, kWGS84, t, 1.0, form.abridged));
            const Oracle back(proj_molodensky(kWGS84, e1, t, -1.0, form.abridged));
            ASSERT_TRUE(there.ok() && back.ok());
            const auto parms = t.parms();
            const Cloud start = cloud(area);
            for (bool heights : {true, false}) {
                const std::string tag =
                    std::string(form.name) + ", " + t.name + (heights ? "" : ", no heights");
                Worst fwd{tag + ", forward"}, inv{tag + ", inverse"},
                    proj_inv{tag + ", inverse against PROJ's inverse"};
                const Cloud want = there.run(start, PJ_FWD, heights);
                compare(fwd, run(form.fwd, e1, kWGS84, parms.data(), start, heights), want,
                        kWGS84.a, heights);
                const Cloud got = run(form.inv, e1, kWGS84, parms.data(), want, heights);
                compare(inv, got, back.run(want, PJ_FWD, heights), e1.a, heights);
                compare(proj_inv, got, there.run(want, PJ_INV, heights), e1.a, heights);
                EXPECT_LE(fwd.value, kSameFormulaTol) << tag;
                EXPECT_LE(inv.value, kSameFormulaTol) << tag;
                EXPECT_LE(proj_inv.value, 0.1) << tag;
            }
        }
#endif
}

// At a pole every longitude names the same point: the longitude is kept, not divided by
// cos(phi) = 6e-17.  A shift across the pole stops at the pole.
TEST(Molodensky, PolesKeepTheLongitudeAndHoldTheLatitude)
{
    const auto parms = kNAD27.parms();
    for (const Form &form : kForms) {
        for (gx_mth_rtn method : {form.fwd, form.inv}) {
            const Cloud c = run(method, kClarke66, kWGS84, parms.data(),
                                Cloud{{1.25, kPi / 2, -2.5, -kPi / 2}, {100.0, 100.0}});
            EXPECT_EQ(c.points[0], 1.25) << form.name;
            EXPECT_EQ(c.points[2], -2.5) << form.name;
            EXPECT_LE(c.points[1], kPi / 2) << form.name;
            EXPECT_NE(c.heights[0], 100.0) << form.name;
        }
        // 1 km towards the pole from 0.02 m short of it (X' = X + tx moves the point at
        // longitude 0 towards -X; the inverse negates the translation).
        const std::array<double, 16> minus_x = {-1000.0}, plus_x = {1000.0};
        for (auto [method, parms] : {std::pair{form.fwd, minus_x}, std::pair{form.inv, plus_x}}) {
            const Cloud c =
                run(method, kWGS84, kWGS84, parms.data(), Cloud{{0.0, kPi / 2 - 3e-9}, {0.0}});
            EXPECT_EQ(c.points[1], kPi / 2) << form.name;
        }
    }
}

// All parameters zero on one ellipsoid: every geodetic method gives the point back.  The
// Molodensky forms and the longitude rotation add exact zeros; the geocentric ones go through
// cartesian coordinates and back, within 1e-9 m.
TEST(DatumShift, ZeroParametersOnOneEllipsoidReturnTheInput)
{
    const std::array<double, 16> zero = {};
    const Cloud start = cloud(kGlobe, 40, 30);
    const gx_mth_rtn exact[] = {gx_molodensky_fwd,          gx_molodensky_inv,
                                gx_molodensky_abridged_fwd, gx_molodensky_abridged_inv,
                                gx_longitude_rotation_ccw,  gx_mth_null_fwd};
    for (gx_mth_rtn method : exact) {
        const Cloud got = run(method, kIntl, kIntl, zero.data(), start);
        EXPECT_EQ(got.points, start.points);
        EXPECT_EQ(got.heights, start.heights);
    }
    const gx_mth_rtn geocentric[] = {gx_geocentric_translation_fwd,
                                     gx_geocentric_translation_inv,
                                     gx_coordinate_frame_fwd,
                                     gx_coordinate_frame_inv,
                                     gx_bursa_wolf_fwd,
                                     gx_bursa_wolf_inv,
                                     gx_position_vector_fwd,
                                     gx_position_vector_inv,
                                     gx_molodensky_badekas_fwd,
                                     gx_molodensky_badekas_inv};
    Worst worst{"zero parameters, geocentric methods"};
    for (gx_mth_rtn method : geocentric)
        compare(worst, run(method, kIntl, kIntl, zero.data(), start), start, kIntl.a);
    EXPECT_LE(worst.value, 1e-9);
}

} // namespace
} // namespace gxtest
