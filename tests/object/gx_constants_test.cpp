// The constants container, under both of its families of names.
#include "gridex.h"

#include <gtest/gtest.h>

namespace {

template <class T> T *allocate(int n)
{
    return static_cast<T *>(gx_allocate_rtn(sizeof(T) * static_cast<size_t>(n)));
}

} // namespace

TEST(Constants, OwnsAndReplacesItsArraysUnderBothNames)
{
    gx_constants *c = gx_constants_new();
    ASSERT_EQ(gx_gtconstants_p(c), 1);
    EXPECT_TRUE(!gx_constants_ivals(c) && !gx_constants_fvals(c) && !gx_constants_dvals(c));
    int *ivals = allocate<int>(2);
    gx_constants_ivals_set(c, ivals);
    gx_gtconstants_fvals_set(c, allocate<float>(4));
    gx_constants_fvals_set(c, allocate<float>(4)); // the first array is released
    double *dvals = allocate<double>(3);
    gx_gtconstants_dvals_set(c, dvals);
    gx_constants_dvals_set(c, dvals); // the held array again: kept
    EXPECT_EQ(gx_gtconstants_ivals(c), ivals);
    EXPECT_EQ(gx_constants_dvals(c), dvals);
    gx_constants_fvals_set(c, nullptr);
    EXPECT_EQ(gx_gtconstants_fvals(c), nullptr);
    gx_gtconstants_del(c); // releases what it holds

    gx_constants *empty = gx_gtconstants_new();
    gx_constants_del(empty);
}

TEST(Constants, InvalidContainersAreIgnored)
{
    EXPECT_EQ(gx_constants_p(nullptr), 0);
    EXPECT_EQ(gx_constants_dvals(nullptr), nullptr);
    gx_constants_del(nullptr);

    gx_constants *dead = gx_constants_new();
    *reinterpret_cast<unsigned int *>(dead) = 0x2000000; // another record's signature
    float fvals[1] = {1.0f};
    EXPECT_EQ(gx_constants_p(dead), 0);
    EXPECT_EQ(gx_gtconstants_fvals_set(dead, fvals), nullptr); // the caller keeps fvals
    EXPECT_EQ(gx_constants_fvals(dead), nullptr);
    gx_constants_del(dead); // not a container: left alone
    *reinterpret_cast<unsigned int *>(dead) = 0x1000000;
    gx_constants_del(dead);
}
