// The WKT writers' bounded formatting: text_buf formats %s and %d itself, and the buffer it
// leaves must be the one gx_snprintf leaves, byte for byte (what fits, where the terminators go,
// what is cut), from every starting length up to a full buffer.
#include "gridex.h"
#include "object/gx_core.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

namespace {

constexpr int filled_lengths[] = {0,    1,    2,    500,  990,  1000, 1010,
                                  1015, 1018, 1019, 1020, 1021, 1022, 1023};

struct buffers {
    char actual[GX_TEXT_LEN];
    char expected[GX_TEXT_LEN];
    gx::text_buf out{actual};
    int expected_length;

    explicit buffers(int filled) : expected_length(filled)
    {
        for (char *buf : {actual, expected}) {
            std::memset(buf, '#', GX_TEXT_LEN);
            std::memset(buf, 'a', static_cast<std::size_t>(filled));
            if (filled < GX_TEXT_LEN)
                buf[filled] = '\0';
        }
        out.length = filled;
    }

    template <class... Args> void format(const char *format, Args... args)
    {
        out.printf(format, args...);
        if (expected_length < GX_TEXT_LEN) {
            gx_snprintf(expected + expected_length, GX_TEXT_LEN - expected_length, format, args...);
            expected_length += static_cast<int>(std::strlen(expected + expected_length));
        }
    }

    void check(const std::string &what)
    {
        ASSERT_EQ(out.length, expected_length) << what;
        ASSERT_EQ(std::memcmp(actual, expected, GX_TEXT_LEN), 0) << what;
    }
};

} // namespace

TEST(TextOutput, FormatsLikeTheBoundedCLibraryCall)
{
    const std::string pieces[] = {"", "x", "Transverse_Mercator", std::string(30, 'p'),
                                  std::string(1100, 'q')};
    const int numbers[] = {0, 7, -1, 32633, INT_MAX, INT_MIN};
    for (int filled : filled_lengths) {
        for (const std::string &piece : pieces) {
            const std::string what = std::to_string(filled) + " " + std::to_string(piece.size());
            buffers plain(filled);
            plain.format("%s", piece.c_str());
            plain.check("%s " + what);

            buffers comma(filled);
            comma.format(",%s", piece.c_str());
            comma.format(",%s", piece.c_str());
            comma.check(",%s ,%s " + what);

            buffers two(filled);
            two.format("PARAMETER[\"%s\",%s", piece.c_str(), "0.9996");
            two.check("PARAMETER " + what);

            buffers others(filled); // conversions the C library still formats
            others.format("%%%5s|%-3d|%s", piece.c_str(), 42, piece.c_str());
            others.check("others " + what);
        }
        for (int number : numbers) {
            buffers authority(filled);
            authority.format("AUTHORITY[\"%s\",%d", "EPSG", number);
            authority.check("AUTHORITY " + std::to_string(filled) + " " + std::to_string(number));
        }
    }
}
