// The two formula methods of height transformation: vertical offset, and vertical offset and
// slope against PROJ's vertoffset with a published EPSG set.
#include "gridex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <vector>

#ifdef GX_HAVE_PROJ
#include <proj.h>
#endif

namespace {

constexpr double kDeg = 3.14159265358979323846 / 180.0;
constexpr double kArcSec = 4.84813681109536e-6;
const double kGRS80[2] = {6378137.0, 0.00669438002290078755};

struct Call {
    gx_vtm_rtn method;
    double unit_factor;
    double direction_product;
    const double *parms;
};

int convert(const Call &c, std::vector<double> *points, std::vector<double> &heights)
{
    return c.method(kGRS80, c.unit_factor, 0.0, c.direction_product, c.parms, "", nullptr, nullptr,
                    nullptr, static_cast<int>(heights.size()), points ? points->data() : nullptr,
                    heights.data());
}

TEST(VerticalOffset, AddsTheOffsetInTheDirectionOfTheSystems)
{
    double parms[16] = {};
    parms[0] = 2.5;
    for (double d : {1.0, -1.0}) {
        std::vector<double> h = {100.0, -7.25}; // no points needed
        EXPECT_EQ(convert({gx_vtm_vertical_offset_fwd, 1.0, d, parms}, nullptr, h), 2);
        EXPECT_EQ(h, (std::vector<double>{d * 100.0 + 2.5, d * -7.25 + 2.5}));
        EXPECT_EQ(convert({gx_vtm_vertical_offset_inv, 1.0, d, parms}, nullptr, h), 2);
        EXPECT_EQ(h, (std::vector<double>{100.0, -7.25}));
    }
}

// HVRS71 height to EVRF2000 height (1), EPSG 5196: origin 45 deg 21' N, 16 deg 22' E, offset
// -0.343 m, inclinations -0.007" in latitude and -0.016" in longitude, on ETRS89.
struct Slope {
    double parms[16] = {};
    Slope()
    {
        parms[0] = -0.343;
        parms[2] = (16.0 + 22.0 / 60.0) * kDeg;
        parms[6] = (45.0 + 21.0 / 60.0) * kDeg;
        parms[13] = -0.007 * kArcSec;
        parms[14] = -0.016 * kArcSec;
    }
};

// Points in degrees over Croatia (the unit factor turns them to radians).
std::vector<double> croatia()
{
    std::vector<double> p;
    for (int i = 0; i < 40; ++i)
        for (int j = 0; j < 30; ++j) {
            p.push_back(13.4 + 6.0 * i / 39.0);
            p.push_back(42.3 + 4.3 * j / 29.0);
        }
    return p;
}

TEST(VerticalOffsetSlope, MatchesProjVertoffset)
{
#ifndef GX_HAVE_PROJ
    GTEST_SKIP() << "PROJ is not available: the comparison with it is skipped";
#else
    PJ_CONTEXT *ctx = proj_context_create();
    PJ *pj = proj_create(ctx, "+proj=vertoffset +lat_0=45.35 +lon_0=16.366666666666667 "
                              "+dh=-0.343 +slope_lat=-0.007 +slope_lon=-0.016 +ellps=GRS80");
    ASSERT_NE(pj, nullptr);
    const Slope slope;
    std::vector<double> points = croatia();
    const int n = static_cast<int>(points.size() / 2);
    std::vector<double> start(n), fwd, inv;
    for (int i = 0; i < n; ++i)
        start[i] = 150.0 + 10.0 * i;
    fwd = inv = start;
    EXPECT_EQ(convert({gx_vtm_vertical_offset_slope_fwd, kDeg, 1.0, slope.parms}, &points, fwd), n);
    EXPECT_EQ(convert({gx_vtm_vertical_offset_slope_inv, kDeg, 1.0, slope.parms}, &points, inv), n);
    double worst_fwd = 0.0, worst_inv = 0.0, largest_slope = 0.0;
    for (int i = 0; i < n; ++i) {
        const PJ_COORD c = proj_coord(points[2 * i] * kDeg, points[2 * i + 1] * kDeg, start[i], 0);
        worst_fwd = std::max(worst_fwd, std::fabs(fwd[i] - proj_trans(pj, PJ_FWD, c).xyz.z));
        worst_inv = std::max(worst_inv, std::fabs(inv[i] - proj_trans(pj, PJ_INV, c).xyz.z));
        largest_slope = std::max(largest_slope, std::fabs(fwd[i] - start[i] + 0.343));
    }
    std::printf("[ worst    ] offset and slope against PROJ: forward %.3g m, inverse %.3g m "
                "(slope up to %.3f m)\n",
                worst_fwd, worst_inv, largest_slope);
    EXPECT_LE(worst_fwd, 1e-4);
    EXPECT_LE(worst_inv, 1e-4);
    EXPECT_GT(largest_slope, 0.02); // the slope is not lost
    proj_destroy(pj);
    proj_context_destroy(ctx);
#endif
}

// Depths against heights: the direction product turns the height before the offset and the
// slope are applied, and the inverse undoes it; without points there is nothing to do.
TEST(VerticalOffsetSlope, DirectionProductAndMissingPoints)
{
    const Slope slope;
    std::vector<double> points = {18.0, 44.0};
    std::vector<double> up = {120.0}, down = {120.0};
    convert({gx_vtm_vertical_offset_slope_fwd, kDeg, 1.0, slope.parms}, &points, up);
    convert({gx_vtm_vertical_offset_slope_fwd, kDeg, -1.0, slope.parms}, &points, down);
    const double s = up[0] - 120.0 + 0.343; // the slope term at the point
    EXPECT_DOUBLE_EQ(down[0], -(120.0 + s) - 0.343);
    EXPECT_EQ(convert({gx_vtm_vertical_offset_slope_inv, kDeg, -1.0, slope.parms}, &points, down),
              1);
    EXPECT_NEAR(down[0], 120.0, 1e-12);

    std::vector<double> h = {5.0};
    EXPECT_EQ(convert({gx_vtm_vertical_offset_slope_fwd, kDeg, 1.0, slope.parms}, nullptr, h), 0);
    EXPECT_EQ(h[0], 5.0);
}

} // namespace
