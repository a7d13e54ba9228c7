// The fixed vector and the double-ended sequence built on it.
#include "gridex.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<int> contents(const gx_seq *s)
{
    std::vector<int> out(static_cast<size_t>(gx_seq_length(s)), -1);
    for (int i = 0; i < gx_seq_length(s); i++)
        EXPECT_EQ(gx_seq_get(s, i, &out[static_cast<size_t>(i)]), 1);
    return out;
}

int take(int (*remove)(gx_seq *, void *), gx_seq *s)
{
    int v = -1;
    EXPECT_EQ(remove(s, &v), 1);
    return v;
}

void append(int (*add)(gx_seq *, const void *), gx_seq *s, std::initializer_list<int> values)
{
    for (int v : values)
        EXPECT_EQ(add(s, &v), 1);
}

} // namespace

TEST(Vector, SetGetBoundsAndBadArguments)
{
    EXPECT_EQ(gx_create_vector(0, 4), nullptr);
    EXPECT_EQ(gx_create_vector(4, 0), nullptr);
    gx_vector *v = gx_create_vector(3, sizeof(double));
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(gx_vector_length(v) + gx_vector_elemsize(v), 11);
    double x = 2.5, y = 0;
    EXPECT_EQ(gx_vector_set(v, 2, &x) + gx_vector_get(v, 2, &y), 2);
    EXPECT_EQ(y, 2.5);
    EXPECT_EQ(gx_vector_set(v, 3, &x) + gx_vector_set(v, -1, &x) + gx_vector_get(v, 3, &y), 0);
    EXPECT_EQ(gx_vector_get(v, 0, nullptr) + gx_vector_set(nullptr, 0, &x), 0);
    gx_destroy_vector(v);
    gx_destroy_vector(nullptr);
}

TEST(Sequence, GrowthUnwrapsFromTheFirstElement)
{
    gx_seq *s = gx_create_seq(4, sizeof(int));
    ASSERT_NE(s, nullptr);
    append(gx_seq_apptail, s, {1, 2, 3, 4});
    EXPECT_EQ(take(gx_seq_remhead, s), 1);
    EXPECT_EQ(take(gx_seq_remhead, s), 2);
    append(gx_seq_apptail, s,
           {5, 6, 7}); // 5 and 6 wrap to index 0 and 1 (first index 2); 7 grows it
    EXPECT_EQ(contents(s), (std::vector<int>{3, 4, 5, 6, 7}));
    append(gx_seq_apphead, s, {2, 1, 0}); // the head wraps back to the last slot, then grows again
    append(gx_seq_apptail, s, {8, 9});
    EXPECT_EQ(contents(s), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(take(gx_seq_remtail, s), 9);
    EXPECT_EQ(take(gx_seq_remhead, s), 0);
    int v = 10;
    EXPECT_EQ(gx_seq_set(s, 7, &v), 1);
    EXPECT_EQ(contents(s), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 10}));
    gx_destroy_seq(s);

    s = gx_create_seq(2, sizeof(int));
    append(gx_seq_apphead, s, {1});        // first index moves from 0 to 1
    EXPECT_EQ(take(gx_seq_remhead, s), 1); // and wraps forward to 0
    append(gx_seq_apptail, s, {1});
    EXPECT_EQ(contents(s), (std::vector<int>{1}));
    EXPECT_EQ(take(gx_seq_remtail, s), 1);
    gx_destroy_seq(s);
}

TEST(Sequence, RejectsBadArguments)
{
    EXPECT_EQ(gx_create_seq(0, 4), nullptr);
    EXPECT_EQ(gx_create_seq(4, 0), nullptr);
    gx_seq *s = gx_create_seq(2, sizeof(int));
    ASSERT_NE(s, nullptr);
    EXPECT_EQ(gx_seq_elemsize(s), 4);
    int v = 1;
    EXPECT_EQ(gx_seq_get(s, 0, &v) + gx_seq_set(s, 0, &v), 0); // empty: 0 is outside
    EXPECT_EQ(gx_seq_apptail(s, &v), 1);
    EXPECT_EQ(gx_seq_get(s, 1, &v) + gx_seq_get(s, -1, &v) + gx_seq_get(s, 0, nullptr), 0);
    EXPECT_EQ(gx_seq_apptail(s, nullptr) + gx_seq_apphead(s, nullptr), 0);
    EXPECT_EQ(gx_seq_remtail(s, nullptr) + gx_seq_remhead(s, nullptr), 0);
    EXPECT_EQ(gx_seq_length(s), 1);
    EXPECT_EQ(gx_seq_apptail(nullptr, &v) + gx_seq_remhead(nullptr, &v), 0);
    EXPECT_EQ(gx_seq_length(nullptr) + gx_seq_elemsize(nullptr), 0);
    gx_destroy_seq(s);
    gx_destroy_seq(nullptr);
}
