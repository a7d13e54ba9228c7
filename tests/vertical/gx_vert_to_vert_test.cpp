// The height driver and the vtmethod registry: heights leave their system's unit and shift
// before the method and enter the other's after it; the method gets the direction product, its
// parameters in metres and radians, the geographic frame of the points, and a grid's nodes when
// it keeps them loaded; refusals leave the heights.
#include "gridex.h"
#include "object/gx_samples.h"
#include "object/gx_test_support.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using samples::make_vertcs_in;
using samples::parameter_slots;

namespace {

constexpr double degree = 0.017453292519943295;
constexpr double grad = 0.015707963267948967;
constexpr double foot = 0.3048;

// A height method that records what the driver hands it and converts nothing.
struct recorded_call {
    int calls = 0;
    double ellipsoid[2], unit_factor, prime_meridian, direction_product, parms[16];
    std::string dataset;
    const double *dvals;
    const double *points;
    std::vector<double> heights;
};
recorded_call recorded;

int record(const double ellipsoid[2], double unit_factor, double prime_meridian,
           double direction_product, const double parms[16], const char *dataset, const int *,
           const float *, const double *dvals, int n, const double *points, double *heights)
{
    recorded_call &r = recorded;
    ++r.calls;
    std::copy(ellipsoid, ellipsoid + 2, r.ellipsoid);
    r.unit_factor = unit_factor;
    r.prime_meridian = prime_meridian;
    r.direction_product = direction_product;
    std::copy(parms, parms + 16, r.parms);
    r.dataset = dataset;
    r.dvals = dvals;
    r.points = points;
    r.heights.assign(heights, heights + n);
    return n;
}

int load_one_node(gx_constants *constants, const char *)
{
    auto *node = static_cast<double *>(gx_allocate_rtn(sizeof(double)));
    *node = 17.0;
    gx_constants_dvals_set(constants, node);
    return 1;
}

gx_geogcs *paris_grads()
{
    return samples::make_geogcs_on("D", 6378249.2, 1 / 293.4660212936269, "Paris", 2.33722917,
                                   "Grad", grad);
}

// A recording method under a registry name, so that the driver takes that method's path.
gx_vtmethod *recorder(const char *name, gx_vtm_const_rtn constfunc = nullptr)
{
    return gx_vtmethod_new_extended(name, record, record, constfunc, 0, nullptr);
}

} // namespace

TEST(VtmethodRegistry, LookupsAndFactories)
{
    const gx_vtmethlist_entry *egm96 = gx_vtmethlist_from_code(129661);
    EXPECT_EQ(gx_vtmethlist_from_name("EGM96_Bilinear"), egm96);
    EXPECT_EQ(gx_vtmethlist_from_name("egm96-bl"), egm96);

    gx_vtmethod *by_name = gx_vtmethlist_vtmethod_from_name("EGM96_ns", nullptr);
    EXPECT_EQ(gx_vtmethod_status(by_name), unsigned(GX_STATUS_STRING));
    EXPECT_EQ(gx_vtmethod_code(by_name), 129761);
    EXPECT_EQ(gx_vtmethod_coordsys_type(by_name), unsigned(GX_TYPE_GEOGCS));
    gx_vtmethod_del(by_name);

    gx_err_rec err;
    EXPECT_EQ(gx_vtmethlist_vtmethod_from_code(9603, &err), nullptr);
    expect_error(err, GX_ERRLVL_ERROR, GX_ERRCAT_FACTORY, 222, "gx_vtmethlist_vtmethod_from_code",
                 "Invalid vtmethod factory code (9603)");
    EXPECT_EQ(gx_vtmethlist_vtmethod_from_name("NTv2", &err), nullptr);
    expect_error(err, GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 307, "gx_vtmethlist_vtmethod_from_name",
                 "Invalid vtmethod name \"NTv2\"");
}

// Feet both sides: the method sees metres, the caller feet again; the offset, given in the
// second system's unit, reaches the method in metres.  A shift is taken off before the method.
TEST(VertToVert, HeightsGoThroughMetresFromEachSystemsShift)
{
    recorded = {};
    gx_verttran *vt =
        gx_verttran_new("v", nullptr, make_vertcs_in("Foot", foot, 2.0, 1.0),
                        make_vertcs_in("Foot", foot, 0.0, 1.0), recorder("Vertical_Offset"),
                        parameter_slots({{"Vertical_Offset", 10.0}}).slots);
    double heights[2] = {12.0, 102.0};
    EXPECT_EQ(gx_vert1_to_vert2(vt, 2, nullptr, heights), 2);
    EXPECT_DOUBLE_EQ(recorded.heights[0], 10.0 * foot);
    EXPECT_DOUBLE_EQ(recorded.heights[1], 100.0 * foot);
    EXPECT_DOUBLE_EQ(recorded.parms[0], 10.0 * foot);
    EXPECT_EQ(recorded.dataset, "");
    EXPECT_DOUBLE_EQ(heights[0], 10.0); // into the second system, which has no shift
    EXPECT_EQ(gx_vert2_to_vert1(vt, 2, nullptr, heights), 2);
    EXPECT_DOUBLE_EQ(heights[0], 12.0);
    EXPECT_EQ(recorded.direction_product, 1.0);
    gx_verttran_del(vt);
}

TEST(VertToVert, OffsetMethodRunsOnHeightsAloneAndKnowsDepths)
{
    gx_verttran *vt = gx_verttran_from_string(samples::offset_verttran.c_str());
    ASSERT_NE(vt, nullptr);
    double heights[2] = {0.0, 10.0};
    EXPECT_EQ(gx_vert_to_vert(vt, 2, nullptr, heights, 0), 2);
    EXPECT_EQ(heights[1], 11.5);
    EXPECT_EQ(gx_vert_to_vert(vt, 2, nullptr, heights, 1), 2);
    EXPECT_EQ(heights[1], 10.0);
    gx_verttran_del(vt);

    // Heights up into depths down: the direction product is -1, and the offset method turns
    // the sign.
    recorded = {};
    vt = gx_verttran_new("v", nullptr, make_vertcs_in("Meter", 1.0, 0.0, 1.0),
                         make_vertcs_in("Meter", 1.0, 0.0, -1.0),
                         gx_vtmethod_new("Vertical_Offset", nullptr, nullptr),
                         parameter_slots({}).slots);
    EXPECT_EQ(gx_vert_to_vert(vt, 2, nullptr, heights, 0), 2);
    EXPECT_EQ(heights[1], -10.0);
    gx_verttran_del(vt);
}

// The slope's origin reaches it in radians from grads, its inclinations in radians from
// arc-seconds; the frame is the geographic system's ellipsoid, unit and prime meridian.
TEST(VertToVert, SlopeGetsItsParametersInRadiansAndTheGeographicFrame)
{
    recorded = {};
    gx_verttran *vt = gx_verttran_new("v", paris_grads(), make_vertcs_in("Meter", 1.0, 0.0, 1.0),
                                      make_vertcs_in("Meter", 1.0, 0.0, 1.0),
                                      recorder("Vertical_Offset_and_Slope"),
                                      parameter_slots({{"Vertical_Offset", 1.0},
                                                       {"Longitude_Of_Evaluation", 10.0},
                                                       {"Latitude_Of_Evaluation", 50.0},
                                                       {"Inclination_North", 2.0},
                                                       {"Inclination_East", -3.0}})
                                          .slots);
    const double points[2] = {12.0, 51.0};
    double heights[1] = {100.0};
    EXPECT_EQ(gx_vert_to_vert(vt, 1, points, heights, 0), 1);
    EXPECT_EQ(recorded.parms[2], 10.0 * grad);
    EXPECT_EQ(recorded.parms[6], 50.0 * grad);
    EXPECT_EQ(recorded.parms[13], 2.0 * 4.84813681109536e-6);
    EXPECT_EQ(recorded.parms[14], -3.0 * 4.84813681109536e-6);
    EXPECT_EQ(recorded.points, points);
    EXPECT_EQ(recorded.unit_factor, grad);
    EXPECT_EQ(recorded.prime_meridian, 2.33722917);
    EXPECT_EQ(recorded.ellipsoid[0], 6378249.2);

    // Without points the slope cannot be evaluated.
    EXPECT_EQ(gx_vert_to_vert(vt, 1, nullptr, heights, 0), 0);
    EXPECT_EQ(recorded.calls, 1);
    gx_verttran_del(vt);
}

// A dataset parameter of value 0 keeps the grid loaded; any other value leaves the method to
// read its file on every call.
TEST(VertToVert, GridMethodsKeepTheirNodesLoadedOnlyWhenAsked)
{
    recorded = {};
    const double points[2] = {12.0, 51.0};
    double heights[1] = {100.0};
    for (double keep : {0.0, 1.0}) {
        gx_verttran *vt = gx_verttran_new(
            "v", samples::make_geogcs(), make_vertcs_in("Meter", 1.0, 0.0, 1.0),
            make_vertcs_in("Meter", 1.0, 0.0, 1.0), recorder("EGM96", load_one_node),
            parameter_slots({{"Dataset_egm96", keep}}).slots);
        EXPECT_EQ(gx_vert_to_vert(vt, 1, points, heights, 0), 1);
        EXPECT_EQ(recorded.dataset, "Dataset_egm96");
        if (keep == 0.0) {
            ASSERT_NE(recorded.dvals, nullptr);
            EXPECT_EQ(recorded.dvals[0], 17.0);
        } else {
            EXPECT_EQ(recorded.dvals, nullptr);
            EXPECT_EQ(gx_verttran_isconstloaded(vt), 0);
        }
        // No positions, no grid.
        EXPECT_EQ(gx_vert_to_vert(vt, 1, nullptr, heights, 0), 0);
        gx_verttran_del(vt);
    }
    EXPECT_EQ(recorded.calls, 2);
}

TEST(VertToVert, RefusalsLeaveTheHeightsUntouched)
{
    recorded = {};
    auto make = [](gx_vtmethod *method, parameter_slots parameters) {
        return gx_verttran_new("v", samples::make_geogcs(), make_vertcs_in("Foot", foot, 1.0, 1.0),
                               make_vertcs_in("Meter", 1.0, 0.0, 1.0), method, parameters.slots);
    };
    gx_verttran *offset = make(recorder("Vertical_Offset"), {});
    gx_verttran *refused[] = {
        make(recorder("EGM96"), {}),         // no dataset
        make(recorder("Shift_By_Hand"), {}), // not a method it knows
        make(gx_vtmethod_new("GEOID", nullptr, nullptr), {{"Dataset_g2012", 0.0}}), // no routines
    };
    const double points[2] = {1.0, 2.0};
    double heights[2] = {5.0, 6.0};
    for (gx_verttran *vt : refused) {
        EXPECT_EQ(gx_vert_to_vert(vt, 2, points, heights, 0), 0);
        gx_verttran_del(vt);
    }
    EXPECT_EQ(gx_vert_to_vert(offset, 2, points, heights, 2), 0);
    EXPECT_EQ(gx_vert_to_vert(offset, 2, points, nullptr, 0), 0);
    EXPECT_EQ(gx_vert_to_vert(offset, 0, points, heights, 0), 0);
    EXPECT_EQ(gx_vert_to_vert(nullptr, 2, points, heights, 0), 0);
    EXPECT_EQ(heights[0], 5.0);
    EXPECT_EQ(heights[1], 6.0);
    EXPECT_EQ(recorded.calls, 0);
    gx_verttran_del(offset);
}
