// Brent's root finder on [0, pi/2].
#include "gridex.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct Counted {
    double target;
    int calls = 0;
};

double cos_minus(double x, void *ctx)
{
    auto *c = static_cast<Counted *>(ctx);
    ++c->calls;
    return std::cos(x) - c->target;
}

double cubic(double x, void *ctx)
{
    auto *c = static_cast<Counted *>(ctx);
    ++c->calls;
    return (x - c->target) * (x - c->target) * (x - c->target);
}

double step(double x, void *ctx)
{
    auto *c = static_cast<Counted *>(ctx);
    ++c->calls;
    return x < c->target ? -1.0 : 1.0;
}

// The latitude at which the conformal latitude equals a given value: a typical use.
double chi_minus(double x, void *ctx)
{
    auto *c = static_cast<Counted *>(ctx);
    ++c->calls;
    return gx_phi_to_chi(0.0069, x) - c->target;
}

TEST(Zeroin, FindsRoots)
{
    for (double t : {0.05, 0.3, 0.5, 0.9, 0.999}) {
        Counted c{t};
        const double x = gx_zeroin(&c, cos_minus);
        EXPECT_NEAR(x, std::acos(t), 1e-14) << t;
        EXPECT_LT(c.calls, 20) << t;
    }
    for (double t : {0.1, 0.7854, 1.2}) {
        Counted c{t};
        EXPECT_NEAR(gx_zeroin(&c, cubic), t, 1e-4) << t; // a triple root: |f| <= 2^-48 stops it
        Counted s{t};
        EXPECT_NEAR(gx_zeroin(&s, step), t, 2 * 5.580589596813811e-15) << t; // a jump: within 2 tol
        EXPECT_LT(s.calls, 70);
        Counted k{t};
        EXPECT_NEAR(gx_zeroin(&k, chi_minus), gx_chi_to_phi(0.0069, t), 1e-14) << t;
    }
    Counted end{0.0};
    EXPECT_NEAR(gx_zeroin(&end, cos_minus), 1.5707963267948966, 1e-15); // root at the bracket end
}

} // namespace
