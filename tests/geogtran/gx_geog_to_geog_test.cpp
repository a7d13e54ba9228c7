// The datum-shift driver: the method routines run by hand on points brought to radians about
// Greenwich give what the driver gives in grads about Paris; parameters reach the routines in
// radians and ratios; longitude rotations turn between two meridians of one datum; grid
// methods get their loaded nodes and dataset and no meridian shift; refusals leave the points.
#include "gridex.h"
#include "object/gx_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

using samples::make_geogcs_on;
using samples::make_geogtran;

namespace {

constexpr double degree = 0.017453292519943295;
constexpr double grad = 0.015707963267948967;
constexpr double paris = 2.33722917; // degrees east of Greenwich
constexpr double clarke_a = 6378249.2, clarke_f = 1 / 293.4660212936269;
constexpr double wgs84_a = 6378137.0, wgs84_f = 1 / 298.257223563;

// A method that records what the driver hands it and converts nothing.
struct recorded_call {
    int calls = 0;
    double ellipsoid1[2], ellipsoid2[2], parms[16];
    std::string dataset;
    bool has_dataset;
    std::vector<double> points;
    const double *heights;
    const double *dvals;
};
recorded_call recorded;

int record(const double e1[2], const double e2[2], const double parms[16], const char *dataset,
           int n, double *points, double *heights, const int *, const float *, const double *dvals)
{
    recorded_call &r = recorded;
    ++r.calls;
    std::copy(e1, e1 + 2, r.ellipsoid1);
    std::copy(e2, e2 + 2, r.ellipsoid2);
    std::copy(parms, parms + 16, r.parms);
    r.has_dataset = dataset != nullptr;
    r.dataset = dataset != nullptr ? dataset : "";
    r.points.assign(points, points + 2 * n);
    r.heights = heights;
    r.dvals = dvals;
    return n;
}

int load_one_node(gx_constants *constants, const char *)
{
    auto *node = static_cast<double *>(gx_allocate_rtn(sizeof(double)));
    *node = 0.25;
    gx_constants_dvals_set(constants, node);
    return 1;
}

gx_geogcs *ntf_paris_grads()
{
    return make_geogcs_on("D_NTF", clarke_a, clarke_f, "Paris", paris, "Grad", grad);
}

gx_geogcs *wgs84()
{
    return make_geogcs_on("D_WGS_1984", wgs84_a, wgs84_f, "Greenwich", 0, "Degree", degree);
}

} // namespace

// Coordinate frame from NTF (grads, Paris) to WGS 84 (degrees, Greenwich), and back.
TEST(GeogToGeog, ReproducesTheMethodRunByHandWithUnitsAndPrimeMeridian)
{
    gx_geogtran *gt = make_geogtran(ntf_paris_grads(), wgs84(),
                                    gx_method_new("Coordinate_Frame", nullptr, nullptr),
                                    {{"X_Axis_Translation", -168.0},
                                     {"Y_Axis_Translation", -60.0},
                                     {"Z_Axis_Translation", 320.0},
                                     {"X_Axis_Rotation", 0.4},
                                     {"Y_Axis_Rotation", -0.3},
                                     {"Z_Axis_Rotation", 0.8},
                                     {"Scale_Difference", 1.5}});
    const double e_ntf[2] = {clarke_a, (2 - clarke_f) * clarke_f};
    const double e_wgs[2] = {wgs84_a, (2 - wgs84_f) * wgs84_f};
    double parms[16] = {-168.0,
                        -60.0,
                        320.0,
                        0.4 * 4.84813681109536e-6,
                        -0.3 * 4.84813681109536e-6,
                        0.8 * 4.84813681109536e-6,
                        1.5e-6};

    const std::vector<double> start = {0.5, 52.0, -5.25, 46.5, 9.75, 48.0};
    std::vector<double> points = start, heights = {10.0, 200.0, 3000.0};
    std::vector<double> by_hand = start, hand_heights = heights;
    for (std::size_t i = 0; i < by_hand.size(); i += 2) {
        by_hand[i] = gx_delta(paris * degree + by_hand[i] * grad);
        by_hand[i + 1] *= grad;
    }
    gx_coordinate_frame_fwd(e_ntf, e_wgs, parms, nullptr, 3, by_hand.data(), hand_heights.data(),
                            nullptr, nullptr, nullptr);
    for (double &value : by_hand)
        value /= degree;

    EXPECT_EQ(gx_geog1_to_geog2(gt, 3, points.data(), heights.data()), 3);
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_DOUBLE_EQ(points[i], by_hand[i]) << i;
    for (std::size_t i = 0; i < heights.size(); ++i)
        EXPECT_DOUBLE_EQ(heights[i], hand_heights[i]) << i;

    // Back with the inverse routine, still with the first ellipsoid first.
    std::vector<double> back = points;
    EXPECT_EQ(gx_geog2_to_geog1(gt, 3, back.data(), heights.data()), 3);
    std::vector<double> back_by_hand = points;
    for (double &value : back_by_hand)
        value *= degree;
    gx_coordinate_frame_inv(e_ntf, e_wgs, parms, nullptr, 3, back_by_hand.data(),
                            hand_heights.data(), nullptr, nullptr, nullptr);
    for (std::size_t i = 0; i < back.size(); i += 2) {
        EXPECT_DOUBLE_EQ(back[i], gx_delta(back_by_hand[i] - paris * degree) / grad);
        EXPECT_DOUBLE_EQ(back[i + 1], back_by_hand[i + 1] / grad);
        EXPECT_NEAR(back[i], start[i], 1e-9);
        EXPECT_NEAR(back[i + 1], start[i + 1], 1e-9);
    }
    gx_geogtran_del(gt);
}

TEST(GeogToGeog, ParametersReachTheMethodInRadiansAndRatios)
{
    recorded = {};
    gx_geogtran *gt =
        make_geogtran(ntf_paris_grads(), wgs84(), gx_method_new("Recorder", record, record),
                      {{"X_Axis_Translation", 1.0},
                       {"Z_Axis_Rotation", 1.0},
                       {"Scale_Difference", 1.0},
                       {"Z_Coordinate_of_Rotation_Origin", 7.0}});
    double point[2] = {10.0, 50.0}, height[1] = {};
    EXPECT_EQ(gx_geog_to_geog(gt, 1, point, height, 0), 1);
    EXPECT_EQ(recorded.heights, height);
    EXPECT_EQ(recorded.parms[0], 1.0);
    EXPECT_EQ(recorded.parms[5], 4.84813681109536e-6);
    EXPECT_EQ(recorded.parms[6], 1e-6);
    EXPECT_EQ(recorded.parms[9], 7.0);
    EXPECT_FALSE(recorded.has_dataset);
    EXPECT_EQ(recorded.ellipsoid1[0], clarke_a);
    EXPECT_EQ(recorded.ellipsoid2[1], (2 - wgs84_f) * wgs84_f);
    EXPECT_DOUBLE_EQ(recorded.points[0], (10.0 * grad + paris * degree));
    EXPECT_DOUBLE_EQ(point[0], 10.0 * grad / degree + paris); // the method did not move it

    // n = 0 still calls the method; a negative count converts nothing.
    EXPECT_EQ(gx_geog_to_geog(gt, 0, point, nullptr, 0), 0);
    EXPECT_EQ(recorded.calls, 2);
    EXPECT_EQ(gx_geog_to_geog(gt, -1, point, nullptr, 0), 0);
    EXPECT_EQ(recorded.calls, 2);
    gx_geogtran_del(gt);
}

// A change of prime meridian on one datum: 1 -> 2 adds pm1 - pm2 and keeps the longitude in
// the principal range; the transformation's own parameters are not read.
TEST(GeogToGeog, LongitudeRotationBetweenTwoMeridiansOfOneDatum)
{
    gx_geogtran *gt = make_geogtran(
        wgs84(), make_geogcs_on("D_WGS_1984", wgs84_a, wgs84_f, "Paris", paris, "Degree", degree),
        gx_method_new("Longitude_Rotation", nullptr, nullptr), {{"Z_Axis_Rotation", 99.0}});
    double points[4] = {10.0, 45.0, -179.0, -30.0};
    EXPECT_EQ(gx_geog1_to_geog2(gt, 2, points, nullptr), 2);
    EXPECT_NEAR(points[0], 10.0 - paris, 1e-12);
    EXPECT_EQ(points[1], 45.0);
    EXPECT_DOUBLE_EQ(points[2], gx_delta(-179.0 * degree - paris * degree) / degree);
    EXPECT_NEAR(points[2], 360.0 - 179.0 - paris, 1e-12);
    EXPECT_EQ(gx_geog2_to_geog1(gt, 2, points, nullptr), 2);
    EXPECT_NEAR(points[0], 10.0, 1e-12);
    EXPECT_NEAR(points[2], -179.0, 1e-12);
    gx_geogtran_del(gt);
}

// A grid is read with the Greenwich longitude as it comes, from nodes loaded once.
TEST(GeogToGeog, GridMethodsGetTheirNodesAndNoMeridianShift)
{
    recorded = {};
    gx_method *grid = gx_method_new_extended("NTv2", record, record, load_one_node, nullptr);
    gx_geogtran *gt =
        make_geogtran(ntf_paris_grads(), ntf_paris_grads(), grid, {{"Dataset_ntf_r93", 0.0}});
    double point[2] = {10.0, 50.0};
    EXPECT_EQ(gx_geog_to_geog(gt, 1, point, nullptr, 1), 1);
    EXPECT_EQ(recorded.dataset, "Dataset_ntf_r93");
    ASSERT_NE(recorded.dvals, nullptr);
    EXPECT_EQ(recorded.dvals[0], 0.25);
    EXPECT_EQ(recorded.points[0], 10.0 * grad);
    EXPECT_EQ(point[0], 10.0 * grad / grad);
    const gx_constants *loaded = gx_geogtran_constants(gt);
    EXPECT_EQ(gx_geog_to_geog(gt, 1, point, nullptr, 0), 1);
    EXPECT_EQ(gx_geogtran_constants(gt), loaded); // not loaded again
    gx_geogtran_del(gt);
}

TEST(GeogToGeog, RefusalsLeaveThePointsUntouched)
{
    recorded = {};
    std::vector<gx_geogtran *> refused = {
        // Two datums cannot be joined by a rotation.
        make_geogtran(wgs84(), ntf_paris_grads(),
                      gx_method_new("Longitude_Rotation", nullptr, nullptr), {}),
        // A grid that loads without a dataset name, and one that does not load.
        make_geogtran(wgs84(), wgs84(),
                      gx_method_new_extended("NADCON", record, record, load_one_node, nullptr), {}),
        make_geogtran(wgs84(), wgs84(), gx_method_new("HARN", record, record),
                      {{"Dataset_hpgn", 0.0}}),
        // A method without routines.
        make_geogtran(wgs84(), wgs84(),
                      gx_method_new_extended("NTv2", nullptr, nullptr, nullptr, nullptr),
                      {{"Dataset_ntv2_0", 0.0}}),
        nullptr,
    };
    for (gx_geogtran *gt : refused) {
        double points[4] = {10.0, 45.0, 20.0, 50.0};
        double heights[2] = {1.0, 2.0};
        EXPECT_EQ(gx_geog_to_geog(gt, 2, points, heights, 0), 0);
        EXPECT_EQ(gx_geog_to_geog(gt, 2, points, heights, 1), 0);
        EXPECT_EQ(points[0], 10.0);
        EXPECT_EQ(points[3], 50.0);
        EXPECT_EQ(heights[1], 2.0);
        gx_geogtran_del(gt);
    }
    EXPECT_EQ(recorded.calls, 0);
}
