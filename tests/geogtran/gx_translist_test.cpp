// Transformation lists: a chain of projection, datum and height steps gives what the steps give
// run by hand; heights go only to steps that ask for them; a short step stops the chain; a list
// that refused an addition stays invalid and never touches the points.
#include "gridex.h"
#include "object/gx_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using samples::make_geogcs;
using samples::make_geogcs_on;
using samples::make_geogtran;

namespace {

constexpr double degree = 0.017453292519943295;

struct step_log {
    int calls = 0;
    const double *heights = nullptr;
    int shortfall = 0;
};
step_log first_step, second_step;

int run_logged(step_log &log, int n, double *heights)
{
    ++log.calls;
    log.heights = heights;
    return n - log.shortfall;
}

int first_fwd(const double *, const double *, const double *, const char *, int n, double *,
              double *heights, const int *, const float *, const double *)
{
    return run_logged(first_step, n, heights);
}

int second_fwd(const double *, const double *, const double *, const char *, int n, double *,
               double *heights, const int *, const float *, const double *)
{
    return run_logged(second_step, n, heights);
}

gx_geogtran *logged_geogtran(gx_mth_rtn routine)
{
    return make_geogtran(make_geogcs(), make_geogcs(), gx_method_new("Logged", routine, routine),
                         {});
}

gx_projcs *mercator_on(gx_geogcs *geogcs, double central_meridian)
{
    samples::parameter_slots parameters = {{"Central_Meridian", central_meridian},
                                           {"Standard_Parallel_1", 30.0},
                                           {"False_Easting", 500000.0},
                                           {"False_Northing", 100000.0}};
    return gx_projcs_new("Mercator", geogcs,
                         gx_projection_new("Mercator", nullptr, nullptr, nullptr), parameters.slots,
                         gx_unit_new("Meter", 1.0));
}

} // namespace

// Eastings on Clarke 1866 to eastings on WGS 84: projection inverse, datum shift, projection
// forward.
TEST(Translist, ProjectionDatumProjectionChainEqualsTheStepsByHand)
{
    gx_projcs *from =
        mercator_on(make_geogcs_on("D_North_American_1927", 6378206.4, 1 / 294.9786982, "Greenwich",
                                   0.0, "Degree", degree),
                    -100.0);
    gx_projcs *to = mercator_on(make_geogcs(), -95.0);
    gx_geogtran *shift = make_geogtran(gx_geogcs_clone(gx_projcs_geogcs(from)), make_geogcs(),
                                       gx_method_new("Geocentric_Translation", nullptr, nullptr),
                                       {{"X_Axis_Translation", -8.0},
                                        {"Y_Axis_Translation", 160.0},
                                        {"Z_Axis_Translation", 176.0}});

    gx_translist *list = gx_translist_new();
    ASSERT_EQ(gx_translist_add_transformation(list, from, 0, 0), 0);
    ASSERT_EQ(gx_translist_add_transformation(list, shift, 0, 0), 0);
    ASSERT_EQ(gx_translist_add_transformation(list, to, 1, 0), 0);
    EXPECT_EQ(gx_translist_entrylist(list)->next->object, shift);

    const std::vector<double> start = {412000.0, 3900000.0, 650000.0, 5200000.0};
    std::vector<double> chained = start, by_hand = start;
    EXPECT_EQ(gx_translist_transform_coords(list, 2, chained.data(), nullptr), 2);
    EXPECT_EQ(gx_proj_geog(from, 2, by_hand.data(), 0), 2);
    EXPECT_EQ(gx_geog_to_geog(shift, 2, by_hand.data(), nullptr, 0), 2);
    EXPECT_EQ(gx_proj_geog(to, 2, by_hand.data(), 1), 2);
    for (std::size_t i = 0; i < start.size(); ++i) {
        EXPECT_DOUBLE_EQ(chained[i], by_hand[i]) << i;
        EXPECT_GT(std::abs(chained[i] - start[i]), 1.0) << i; // every step moved the points
    }
    gx_translist_del(list);
    for (void *obj : {(void *)from, (void *)to, (void *)shift})
        gx_object_del(obj);
}

// Heights go only to the steps that ask for them; a step that converts fewer points than it was
// given stops the chain, and its count is the list's.
TEST(Translist, HeightsAndShortSteps)
{
    first_step = second_step = {};
    gx_geogtran *first = logged_geogtran(first_fwd), *second = logged_geogtran(second_fwd);
    gx_translist *list = gx_translist_new();
    gx_translist_add_transformation(list, first, 0, 1);
    gx_translist_add_transformation(list, second, 0, 0);
    double points[4] = {1.0, 2.0, 3.0, 4.0}, heights[2] = {};
    EXPECT_EQ(gx_translist_transform_coords(list, 2, points, heights), 2);
    EXPECT_EQ(first_step.heights, heights);
    EXPECT_EQ(second_step.heights, nullptr);

    first_step.shortfall = 1;
    EXPECT_EQ(gx_translist_transform_coords(list, 2, points, heights), 1);
    EXPECT_EQ(first_step.calls, 2);
    EXPECT_EQ(second_step.calls, 1);
    gx_translist_del(list);
    gx_geogtran_del(first);
    gx_geogtran_del(second);
}

TEST(Translist, AnInvalidAdditionSpoilsTheListForGoodAndNonListsAreRefused)
{
    first_step = {};
    gx_geogtran *step = logged_geogtran(first_fwd);
    gx_spheroid *not_a_step = gx_spheroid_new("S", 6378137.0, 0.0);
    gx_translist *list = gx_translist_new();
    EXPECT_EQ(gx_translist_is_valid(list), 1);
    EXPECT_EQ(gx_translist_add_transformation(list, step, 0, 0), 0);
    EXPECT_EQ(gx_translist_add_transformation(list, not_a_step, 0, 0), -1);
    EXPECT_EQ(gx_translist_is_valid(list), 0);
    EXPECT_EQ(gx_translist_add_transformation(list, step, 0, 0), -1);
    EXPECT_EQ(gx_translist_entrylist(list)->next, nullptr);

    double points[2] = {1.0, 2.0};
    EXPECT_EQ(gx_translist_transform_coords(list, 1, points, nullptr), 0);
    EXPECT_EQ(first_step.calls, 0);
    EXPECT_EQ(points[0], 1.0);
    gx_translist_del(list);
    gx_spheroid_del(not_a_step);
    gx_geogtran_del(step);

    // An empty list converts nothing; what is not a list is refused and not deleted.
    gx_translist *empty = gx_translist_new();
    EXPECT_EQ(gx_translist_transform_coords(empty, 1, points, nullptr), 0);
    gx_translist_del(empty);
    alignas(8) unsigned int not_a_list[8] = {};
    auto *fake = reinterpret_cast<gx_translist *>(not_a_list);
    EXPECT_EQ(gx_translist_p(fake), 0);
    EXPECT_EQ(gx_translist_add_transformation(fake, nullptr, 0, 0), -1);
    gx_translist_del(fake);
}
