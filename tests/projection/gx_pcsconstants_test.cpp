// The per-projected-CS constants record: ownership of its two arrays and invalid records.
#include "gridex.h"

#include <gtest/gtest.h>

TEST(Pcsconstants, OwnsReplacesAndIgnoresForeignRecords)
{
    gx_pcsconstants *rec = gx_pcsconstants_new();
    ASSERT_EQ(gx_pcsconstants_p(rec), 1);
    EXPECT_EQ(gx_pcsconstants_ivals(rec), nullptr);
    EXPECT_EQ(gx_pcsconstants_dvals(rec), nullptr);
    auto *ivals = static_cast<int *>(gx_allocate_rtn(2 * sizeof(int)));
    EXPECT_EQ(gx_pcsconstants_ivals_set(rec, ivals), ivals);
    EXPECT_EQ(gx_pcsconstants_ivals_set(rec, ivals), ivals); // the held array is kept
    gx_pcsconstants_dvals_set(rec, static_cast<double *>(gx_allocate_rtn(sizeof(double))));
    auto *dvals = static_cast<double *>(gx_allocate_rtn(4 * sizeof(double)));
    EXPECT_EQ(gx_pcsconstants_dvals_set(rec, dvals), dvals); // the first is released
    EXPECT_EQ(gx_pcsconstants_dvals(rec), dvals);

    // A constants container is not such a record, and the other way round.
    gx_constants *container = gx_constants_new();
    auto *foreign = reinterpret_cast<gx_pcsconstants *>(container);
    int local[2] = {2, 0};
    EXPECT_EQ(gx_pcsconstants_p(foreign), 0);
    EXPECT_EQ(gx_pcsconstants_ivals_set(foreign, local), nullptr);
    EXPECT_EQ(gx_pcsconstants_ivals(foreign), nullptr);
    gx_pcsconstants_del(foreign);
    EXPECT_EQ(gx_constants_p(container), 1);
    EXPECT_EQ(gx_constants_p(reinterpret_cast<gx_constants *>(rec)), 0);
    gx_constants_del(reinterpret_cast<gx_constants *>(rec));
    EXPECT_EQ(gx_pcsconstants_p(rec), 1);

    gx_constants_del(container);
    gx_pcsconstants_del(rec); // releases both arrays
    gx_pcsconstants_del(nullptr);
}
