// The constants container, under both of its families of names.
#include "gridex.h"

#include <gtest/gtest.h>

namespace {

template <class T> T *allocate(int n)
{
    return static_cast<T *>(gx_allocate_rtn(sizeof(T) * static_cast<size_t>(n)));
}

} // namespace

TEST(Constants, OwnsReplacesAndReleasesItsArrays)
{
    gx_constants *c = gx_constants_new();
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(gx_constants_p(c), 1);
    EXPECT_EQ(gx_constants_ivals(c), nullptr);
    EXPECT_EQ(gx_constants_fvals(c), nullptr);
    EXPECT_EQ(gx_constants_dvals(c), nullptr);

    int *ivals = allocate<int>(2);
    ivals[0] = 2;
    ivals[1] = 3;
    gx_constants_ivals_set(c, ivals);
    gx_constants_fvals_set(c, allocate<float>(4));
    gx_constants_fvals_set(c, allocate<float>(4)); // the first array is released (ASan checks)
    double *dvals = allocate<double>(3);
    gx_constants_dvals_set(c, dvals);
    gx_constants_dvals_set(c, dvals); // the held array again: kept, not released
    EXPECT_EQ(gx_constants_ivals(c)[1], 3);
    EXPECT_EQ(gx_constants_dvals(c), dvals);
    gx_constants_fvals_set(c, nullptr);
    EXPECT_EQ(gx_constants_fvals(c), nullptr);
    gx_constants_del(c);

    gx_constants *empty = gx_constants_new();
    gx_constants_del(empty);
}

TEST(Constants, BothFamiliesShareTheRecord)
{
    gx_constants *c = gx_gtconstants_new();
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(gx_constants_p(c), 1);
    double *dvals = allocate<double>(1);
    gx_constants_dvals_set(c, dvals);
    EXPECT_EQ(gx_gtconstants_dvals(c), dvals);
    gx_gtconstants_del(c);

    gx_constants *p = gx_constants_new();
    EXPECT_EQ(gx_gtconstants_p(p), 1);
    gx_gtconstants_ivals_set(p, allocate<int>(2));
    gx_constants_del(p);
}

TEST(Constants, InvalidContainersAreIgnored)
{
    EXPECT_EQ(gx_constants_p(nullptr), 0);
    EXPECT_EQ(gx_constants_dvals(nullptr), nullptr);
    gx_constants_del(nullptr);

    // A record whose first word is not the signature.
    gx_pcsconstants *other = gx_pcsconstants_new();
    auto *foreign = reinterpret_cast<gx_constants *>(other);
    EXPECT_EQ(gx_constants_p(foreign), 0);
    EXPECT_EQ(gx_gtconstants_p(foreign), 0);
    float fvals[1] = {1.0f};
    EXPECT_EQ(gx_constants_fvals_set(foreign, fvals), nullptr); // the caller keeps fvals
    EXPECT_EQ(gx_gtconstants_ivals(foreign), nullptr);
    gx_constants_del(foreign);
    EXPECT_EQ(gx_pcsconstants_p(other), 1);
    gx_pcsconstants_del(other);
}
