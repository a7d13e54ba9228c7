// World and small-scale projections against PROJ over the whole map, on a sphere and on WGS 84,
// their auxiliary-sphere forms, and the inverse's refusal of points outside the map.
#include "gx_projection_test_util.h"

#include <cmath>
#include <string>
#include <vector>

using namespace gxtest;

namespace {

const Ellipsoid kWGS84{"WGS84", 6378137.0, e2_from_rf(298.257223563)};
const Ellipsoid kEarthSphere{"sphere", 6371000.0, 0.0};

struct WorldCase {
    const char *label;
    Routines routines;
    Parms parms;
    const char *proj; // PROJ's definition without the ellipsoid
};

// Every projection with a PROJ counterpart, with the parameters of the world systems.
const std::vector<WorldCase> &world_cases()
{
    static const std::vector<WorldCase> cases = {
        {"sinusoidal", GX_ROUTINES(sinusoidal), Parms{{2, 15}}, "+proj=sinu +lon_0=15"},
        {"mollweide", GX_ROUTINES(mollweide), Parms{{2, -30}}, "+proj=moll +lon_0=-30"},
        {"eckert_i", GX_PER_CALL_ROUTINES(eckert_i), Parms{{2, 10}}, "+proj=eck1 +lon_0=10"},
        {"eckert_ii", GX_PER_CALL_ROUTINES(eckert_ii), Parms{{2, 10}}, "+proj=eck2 +lon_0=10"},
        {"eckert_iii", GX_PER_CALL_ROUTINES(eckert_iii), Parms{{2, 10}}, "+proj=eck3 +lon_0=10"},
        {"eckert_iv", GX_PER_CALL_ROUTINES(eckert_iv), Parms{{2, 10}}, "+proj=eck4 +lon_0=10"},
        {"eckert_v", GX_PER_CALL_ROUTINES(eckert_v), Parms{{2, 10}}, "+proj=eck5 +lon_0=10"},
        {"eckert_vi", GX_PER_CALL_ROUTINES(eckert_vi), Parms{{2, 10}}, "+proj=eck6 +lon_0=10"},
        {"gall_stereographic", GX_ROUTINES(gall_stereographic), Parms{{2, 0}}, "+proj=gall"},
        {"behrmann", GX_ROUTINES(behrmann), Parms{{2, 20}, {3, 60}},
         "+proj=cea +lat_ts=30 +lon_0=20"},
        {"miller_cylindrical", GX_PER_CALL_ROUTINES(miller_cylindrical), Parms{{2, -90}},
         "+proj=mill +R_A +lon_0=-90"},
        {"winkel_i", GX_PER_CALL_ROUTINES(winkel_i), Parms{{2, 0}, {3, 50.45977625218981}},
         "+proj=wink1 +lat_ts=50.45977625218981"},
        {"winkel_ii", GX_PER_CALL_ROUTINES(winkel_ii), Parms{{2, 0}, {3, 50.45977625218981}},
         "+proj=wink2 +lat_1=50.45977625218981"},
        {"winkel_tripel", GX_ROUTINES(winkel_tripel), Parms{{2, 11}, {3, 50.467}},
         "+proj=wintri +lon_0=11 +lat_1=50.467"},
        {"quartic_authalic", GX_PER_CALL_ROUTINES(quartic_authalic), Parms{{2, 0}},
         "+proj=qua_aut"},
        {"loximuthal", GX_PER_CALL_ROUTINES(loximuthal), Parms{{2, 0}, {6, 40}},
         "+proj=loxim +lat_1=40"},
        {"van_der_grinten_i", GX_PER_CALL_ROUTINES(van_der_grinten_i), Parms{{2, 0}},
         "+proj=vandg +R_A"},
        {"aitoff", GX_PER_CALL_ROUTINES(aitoff), Parms{{2, 0}}, "+proj=aitoff"},
        {"hammer_aitoff", GX_PER_CALL_ROUTINES(hammer_aitoff), Parms{{2, 0}}, "+proj=hammer"},
        {"flat_polar_quartic", GX_ROUTINES(flat_polar_quartic), Parms{{2, 0}}, "+proj=mbtfpq"},
        {"craster_parabolic", GX_ROUTINES(craster_parabolic), Parms{{2, 0}}, "+proj=crast"},
        {"times", GX_ROUTINES(times), Parms{{2, 0}}, "+proj=times"},
        {"goode_homolosine land", GX_ROUTINES(goode_homolosine), Parms{{2, 0}, {15, 1}},
         "+proj=igh"},
        {"goode_homolosine ocean", GX_ROUTINES(goode_homolosine), Parms{{2, -160}, {15, 2}},
         "+proj=igh_o +lon_0=-160"},
    };
    return cases;
}

// A grid over the map around the central meridian, to within lon_edge degrees of the bounding
// meridians and lat_edge degrees of the poles.
std::vector<double> world_grid(double lon0, double lon_edge, double lat_edge, int n = 49)
{
    return grid(lon0 - 180.0 + lon_edge, lon0 + 180.0 - lon_edge, -90.0 + lat_edge, 90.0 - lat_edge,
                n);
}

} // namespace

#ifdef GX_HAVE_PROJ
// Against PROJ to within 0.1 degrees of the poles and 1e-4 degrees of the antimeridian (on it
// the map's two edges are the same point): nearer the poles PROJ's iterations of the auxiliary
// angles stop short (112 m at Mollweide's pole, 4 cm at 89.9999 degrees, kilometres for
// Winkel II above 89.9 degrees); the poles are held by the round trip below.  Robinson is compared on its own: PROJ rounds the table's spline.
TEST(World, EveryProjectionAgreesWithProjOverTheMap)
{
    for (const WorldCase &c : world_cases()) {
        Worst fwd(std::string(c.label) + " forward vs PROJ");
        Worst trip(std::string(c.label) + " round trip");
        for (const Ellipsoid &e : {kWGS84, kEarthSphere}) {
            const Subject s(c.routines, e, c.parms);
            const Oracle oracle(c.proj + proj_ellipsoid(e));
            ASSERT_TRUE(oracle.ok()) << c.proj;
            std::vector<double> geo = world_grid(c.parms.v[2] / kDeg, 1e-4, 0.1);
            const std::vector<double> inner = world_grid(c.parms.v[2] / kDeg, 0.001, 1.0, 9);
            geo.insert(geo.end(), inner.begin(), inner.end());
            EXPECT_GT(compare_with_proj(s, oracle, e, geo, fwd, trip, c.label), int(geo.size() / 4))
                << c.label << " " << e.name;
        }
    }
}
#endif

namespace {

struct RoundTripCase {
    const char *label;
    Routines routines;
    Parms parms;
};

// Every world projection, with each layout of the interrupted ones.
const std::vector<RoundTripCase> &round_trip_cases()
{
    static const std::vector<RoundTripCase> cases = [] {
        std::vector<RoundTripCase> list;
        for (const WorldCase &c : world_cases())
            list.push_back({c.label, c.routines, c.parms});
        list.push_back({"robinson", GX_ROUTINES(robinson), Parms{{2, 0}}});
        list.push_back({"robinson_ks", GX_PER_CALL_ROUTINES(robinson_ks), Parms{{2, 30}}});
        list.push_back({"goode uninterrupted", GX_ROUTINES(goode_homolosine), Parms{{2, 0}}});
        list.push_back({"cube cross", GX_PER_CALL_ROUTINES(cube), Parms{{2, 20}}});
        list.push_back({"cube strip", GX_PER_CALL_ROUTINES(cube), Parms{{2, 20}, {15, 1}}});
        list.push_back({"fuller", GX_PER_CALL_ROUTINES(fuller), Parms{}});
        return list;
    }();
    return cases;
}

} // namespace

// The round trip over the whole map, poles and bounding meridians included, within 0.1 mm, and
// with and without constants bit for bit.
TEST(World, EveryProjectionRoundTripsOverTheWholeMap)
{
    for (const RoundTripCase &c : round_trip_cases()) {
        Worst trip(std::string(c.label) + " round trip, whole map");
        for (const Ellipsoid &e : {kWGS84, kEarthSphere}) {
            const Subject s(c.routines, e, c.parms);
            const std::vector<double> geo = world_grid(c.parms.v[2] / kDeg, 0.0, 0.0, 73);
            std::vector<double> xy = geo, plain = geo;
            ASSERT_EQ(s.fwd(xy), int(geo.size() / 2)) << c.label;
            s.fwd(plain, false);
            EXPECT_TRUE(bitwise_equal(xy, plain)) << c.label;
            std::vector<double> back = xy, back_plain = xy;
            EXPECT_EQ(s.inv(back), int(geo.size() / 2)) << c.label;
            s.inv(back_plain, false);
            EXPECT_TRUE(bitwise_equal(back, back_plain)) << c.label;
            for (size_t i = 0; i < geo.size(); i += 2) {
                const double d = ground_distance(e.a, back[i], back[i + 1], geo[i], geo[i + 1]);
                trip.add(d, where(c.label, e, geo[i], geo[i + 1]));
                EXPECT_LE(d, kRoundTripTol) << where(c.label, e, geo[i], geo[i + 1]);
            }
        }
    }
}

// Plane points beyond the outline -- 1% outside the bounding meridians' images, in the gaps of
// the interrupted layouts and the empty cells of the nets -- fail the inverse as NaN, uncounted.
// (Behrmann's cylinder has its bounding meridians too: its x beyond +-180 degrees fails.)
TEST(World, InversesFailPointsOutsideTheMap)
{
    for (const RoundTripCase &c : round_trip_cases()) {
        const Subject s(c.routines, kWGS84, c.parms);
        std::vector<double> edge;
        for (double lat : {-60.0, -20.0, 0.0, 30.0, 75.0})
            for (double dlon : {-179.999, 179.999}) {
                edge.push_back(c.parms.v[2] + dlon * kDeg);
                edge.push_back(lat * kDeg);
            }
        ASSERT_EQ(s.fwd(edge), int(edge.size() / 2)) << c.label;
        std::vector<double> outside;
        for (size_t i = 0; i < edge.size(); i += 2) {
            outside.push_back(edge[i] * 1.01 + std::copysign(1e3, edge[i]));
            outside.push_back(edge[i + 1]);
        }
        const double huge = 4e7; // beyond every map
        outside.insert(outside.end(), {0.0, huge, huge, 0.0, -huge, -huge});
        const std::string label = c.label;
        const bool net = label.rfind("cube", 0) == 0 || label == "fuller";
        if (label == "goode_homolosine land") // the gap between the lobes at -40 degrees, north
            outside.insert(outside.end(), {-40.0 * kDeg * kWGS84.a, 75.0 * kDeg * kWGS84.a});
        if (net) // an empty cell of the net, above the right face or above the strip's end
            outside.insert(outside.end(), {2.0 * kWGS84.a, 2.2 * kWGS84.a});
        const size_t first = net ? edge.size() : 0; // a net's edges may run into other faces
        std::vector<double> back = outside;
        const int converted = s.inv(back);
        EXPECT_LE(converted, int((outside.size() - (outside.size() - first)) / 2)) << c.label;
        for (size_t i = first; i < back.size(); i += 2)
            EXPECT_TRUE(std::isnan(back[i]) && std::isnan(back[i + 1]))
                << c.label << " (" << outside[i] << ", " << outside[i + 1] << ")";
    }
}

// An unknown layout Option converts nothing.
TEST(World, UnknownLayoutOptionsConvertNothing)
{
    for (const Routines r :
         {GX_ROUTINES(goode_homolosine), GX_PER_CALL_ROUTINES(cube), GX_PER_CALL_ROUTINES(fuller)})
        for (double option : {-1.0, 3.0, 0.5}) {
            const Subject s(r, kWGS84, Parms{{15, option}});
            std::vector<double> xy = {0.1, 0.2};
            EXPECT_EQ(s.fwd(xy), 0) << option;
            EXPECT_EQ(s.inv(xy), 0) << option;
        }
}
