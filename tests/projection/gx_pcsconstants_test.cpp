// The per-projected-CS constants record: ownership of its two arrays and invalid records.
#include "gridex.h"

#include <gtest/gtest.h>

namespace {

template <class T> T *allocate(int n)
{
    return static_cast<T *>(gx_allocate_rtn(sizeof(T) * static_cast<size_t>(n)));
}

} // namespace

TEST(Pcsconstants, OwnsAndReplacesItsArrays)
{
    gx_pcsconstants *rec = gx_pcsconstants_new();
    ASSERT_NE(rec, nullptr);
    EXPECT_EQ(gx_pcsconstants_p(rec), 1);
    EXPECT_EQ(gx_pcsconstants_ivals(rec), nullptr);
    EXPECT_EQ(gx_pcsconstants_dvals(rec), nullptr);

    int *ivals = allocate<int>(2);
    EXPECT_EQ(gx_pcsconstants_ivals_set(rec, ivals), ivals);
    EXPECT_EQ(gx_pcsconstants_ivals(rec), ivals);
    EXPECT_EQ(gx_pcsconstants_ivals_set(rec, ivals), ivals); // setting the held array keeps it
    double *first = allocate<double>(4);
    double *second = allocate<double>(8);
    gx_pcsconstants_dvals_set(rec, first); // released by the next set (ASan would see a leak)
    EXPECT_EQ(gx_pcsconstants_dvals_set(rec, second), second);
    EXPECT_EQ(gx_pcsconstants_dvals(rec), second);
    gx_pcsconstants_dvals_set(rec, nullptr);
    EXPECT_EQ(gx_pcsconstants_dvals(rec), nullptr);
    gx_pcsconstants_del(rec); // frees ivals too
}

TEST(Pcsconstants, InvalidRecordsAreIgnored)
{
    EXPECT_EQ(gx_pcsconstants_p(nullptr), 0);
    // A constants container has another signature.
    gx_constants *other = gx_constants_new();
    auto *foreign = reinterpret_cast<gx_pcsconstants *>(other);
    EXPECT_EQ(gx_pcsconstants_p(foreign), 0);
    int ivals[2] = {2, 0};
    EXPECT_EQ(gx_pcsconstants_ivals_set(foreign, ivals), nullptr);
    EXPECT_EQ(gx_pcsconstants_dvals_set(nullptr, nullptr), nullptr);
    EXPECT_EQ(gx_pcsconstants_ivals(foreign), nullptr);
    gx_pcsconstants_del(foreign); // not ours: left alone
    EXPECT_EQ(gx_constants_p(other), 1);
    gx_constants_del(other);
    gx_pcsconstants_del(nullptr);
}
