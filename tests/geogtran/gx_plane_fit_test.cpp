// The affine and projective plane fits: values, inverses, singular fits and the identity.
#include "gridex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

// Plane points over a 100 km square around a false origin.
std::vector<double> plane_points()
{
    std::vector<double> xy;
    for (int i = 0; i <= 20; ++i)
        for (int j = 0; j <= 20; ++j) {
            xy.push_back(400000.0 + 5000.0 * i);
            xy.push_back(5200000.0 + 5000.0 * j);
        }
    return xy;
}

double worst_difference(const std::vector<double> &u, const std::vector<double> &v)
{
    double worst = 0.0;
    for (size_t i = 0; i < u.size(); ++i)
        worst = std::max(worst, std::fabs(u[i] - v[i]));
    return worst;
}

struct Fit {
    gx_htm_rtn fwd, inv;
};

const Fit kAffine{gx_affine_parametric_fwd, gx_affine_parametric_inv};
const Fit kProjective{gx_projective_parametric_fwd, gx_projective_parametric_inv};

// A similarity with a shear (scale 1.0001, 0.5 degrees), and a mild perspective on top of it.
const double kAffineParms[] = {1.00009, -0.0087, -12000.0, 0.0088, 1.00011, 3500.0};
const double kProjectiveParms[] = {1.00009, -0.0087, -12000.0, 0.0088,
                                   1.00011, 3500.0,  2e-9,     -3e-9};

TEST(PlaneFit, ForwardValues)
{
    const double affine[] = {2.0, 3.0, 5.0, -1.0, 4.0, 7.0};
    std::vector<double> p = {10.0, 20.0, -1.0, 0.5};
    EXPECT_EQ(gx_affine_parametric_fwd(nullptr, affine, 2, p.data()), 2);
    EXPECT_EQ(p, (std::vector<double>{85.0, 77.0, 4.5, 10.0}));

    // The unit square onto a quadrilateral: (1, 0) -> (2 / 1.5, 0), (0, 1) -> (0, 3 / 1.25).
    const double projective[] = {2.0, 0.0, 0.0, 0.0, 3.0, 0.0, 0.5, 0.25};
    p = {1.0, 0.0, 0.0, 1.0, 0.0, 0.0};
    EXPECT_EQ(gx_projective_parametric_fwd(nullptr, projective, 3, p.data()), 3);
    EXPECT_DOUBLE_EQ(p[0], 2.0 / 1.5);
    EXPECT_EQ(p[1], 0.0);
    EXPECT_EQ(p[2], 0.0);
    EXPECT_DOUBLE_EQ(p[3], 3.0 / 1.25);
    EXPECT_EQ(p[4], 0.0);
    EXPECT_EQ(p[5], 0.0);
}

// Forward then inverse returns the start (a micrometre on coordinates of 5e6 m would show a
// wrong cofactor at once; rounding is 1e-9 m).
TEST(PlaneFit, InverseUndoesForward)
{
    for (auto [fit, parms] :
         {std::pair{kAffine, kAffineParms}, std::pair{kProjective, kProjectiveParms}}) {
        const std::vector<double> start = plane_points();
        std::vector<double> p = start;
        const int n = static_cast<int>(p.size() / 2);
        EXPECT_EQ(fit.fwd(nullptr, parms, n, p.data()), n);
        EXPECT_GT(worst_difference(p, start), 1000.0);
        EXPECT_EQ(fit.inv(nullptr, parms, n, p.data()), n);
        EXPECT_LE(worst_difference(p, start), 1e-8);
    }
}

// A fit that cannot be inverted (A E = B D; for the projective fit a singular matrix, or a NaN
// coefficient) leaves the points alone and reports none; its forward still works.
TEST(PlaneFit, SingularFitsHaveNoInverse)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double affine_singular[] = {2.0, 4.0, 1.0, 1.0, 2.0, 3.0};
    const double affine_nan[] = {1.0, 0.0, 0.0, 0.0, nan, 0.0};
    // Third row (G, H, 1) = first row (A, B, C): the homography matrix is singular.
    const double projective_singular[] = {0.5, 0.25, 1.0, 3.0, 1.0, -2.0, 0.5, 0.25};
    for (auto [fit, parms] : {std::pair{kAffine, affine_singular}, std::pair{kAffine, affine_nan},
                              std::pair{kProjective, projective_singular}}) {
        const std::vector<double> start = {1.0, 2.0, 3.0, 4.0};
        std::vector<double> p = start;
        EXPECT_EQ(fit.inv(nullptr, parms, 2, p.data()), 0);
        EXPECT_EQ(p, start);
    }
    std::vector<double> p = {1.0, 2.0};
    EXPECT_EQ(gx_affine_parametric_fwd(nullptr, affine_singular, 1, p.data()), 1);
    EXPECT_EQ(p, (std::vector<double>{11.0, 8.0}));
    EXPECT_EQ(gx_htm_null_inv(nullptr, nullptr, 1, p.data()), 1); // the identity
    EXPECT_EQ(p, (std::vector<double>{11.0, 8.0}));
}

} // namespace
