// Byte order and the NaN constant.
#include "gridex.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

TEST(ByteOrder, SwapsReverseEachWordAndRoundTrip)
{
    EXPECT_EQ(gx_is_little_endian() - gx_is_big_endian(), 1);
    std::uint32_t words[2] = {0x01020304u, 0xA0B0C0D0u};
    gx_swap4_int(words, 2);
    EXPECT_EQ(words[0], 0x04030201u);
    EXPECT_EQ(words[1], 0xD0C0B0A0u);
    gx_swap4_int(words, 1); // only the first word
    EXPECT_EQ(words[0], 0x01020304u);
    EXPECT_EQ(words[1], 0xD0C0B0A0u);

    float values[2] = {1.5f, -2.25f};
    gx_swap4_flt(values, 2);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(values[0]), 0x0000C03Fu);
    gx_swap4_flt(values, 2);
    EXPECT_EQ(values[1], -2.25f);

    double d[2] = {1.0, 123.456};
    gx_swap8_dbl(d, 2);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(d[0]), 0x000000000000F03Full);
    gx_swap8_dbl(d, 2);
    EXPECT_EQ(d[1], 123.456);
    gx_swap8_dbl(d, 0);
    gx_swap8_dbl(nullptr, 3);
    gx_swap4_int(nullptr, 3);
    gx_swap4_flt(d, -1);
    EXPECT_EQ(d[0], 1.0);

    gx_double_nan(&d[0]);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(d[0]), 0x7FF8000000000001ull);
    gx_double_nan(nullptr);
}
