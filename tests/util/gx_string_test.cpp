// String helpers: loose comparison, bounded copy and format, trimming, tokens, globs.
#include "gridex.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

TEST(StringCompare, LooseStrictAndSearch)
{
    // gx_strcmp_ci skips blanks, dashes and underscores on both sides.
    EXPECT_EQ(gx_strcmp_ci("GCS_WGS_1984", "gcs wgs 1984"), 0);
    EXPECT_EQ(gx_strcmp_ci("GCS_WGS_1984", "GCSWGS1984"), 0);
    EXPECT_EQ(gx_strcmp_ci("GCS-WGS-1984_ ", " gcs_wgs_1984"), 0);
    EXPECT_LT(gx_strcmp_ci("abc", "abd"), 0);
    EXPECT_GT(gx_strcmp_ci("abcd", "ab_c"), 0);
    EXPECT_EQ(gx_strcmp_ci(nullptr, "_ -"), 0);
    EXPECT_NE(gx_strcmp_ci(nullptr, "a"), 0);
    // n counts significant characters; 0 compares nothing
    EXPECT_EQ(gx_strncmp_ci("a_b_cX", "ABCY", 3), 0);
    EXPECT_NE(gx_strncmp_ci("a_b_cX", "ABCY", 4), 0);
    EXPECT_EQ(gx_strncmp_ci("x", "y", 0), 0);
    EXPECT_EQ(gx_strncmp_ci("ab", "abc", 2), 0);
    // prefix tests count over a (ci1) or b (ci2)
    EXPECT_EQ(gx_strncmp_ci1("Trans_Merc", "trans mercator"), 0);
    EXPECT_NE(gx_strncmp_ci1("Trans_Merc", "transverse mercator"), 0);
    EXPECT_NE(gx_strncmp_ci1("TRANSVERSE", "Trans"), 0);
    EXPECT_EQ(gx_strncmp_ci2("PROJCS[\"x\"]", "proj_cs"), 0);
    EXPECT_NE(gx_strncmp_ci2("PROJ", "projcs"), 0);

    // gx_strcmp_i reads '-' as '_' and keeps blanks.
    EXPECT_EQ(gx_strcmp_i("linear-unit", "LINEAR_UNIT"), 0);
    EXPECT_NE(gx_strcmp_i("linear unit", "LINEAR_UNIT"), 0);
    EXPECT_NE(gx_strcmp_i("LINEARUNIT", "LINEAR_UNIT"), 0);
    EXPECT_LT(gx_strcmp_i("a", "B"), 0);
    EXPECT_EQ(gx_strcmp_i(nullptr, ""), 0);

    const char *s = "Hello World world";
    EXPECT_EQ(gx_strstr_ci(s, "WORLD"), s + 6);
    EXPECT_EQ(gx_strstr_ci(s, nullptr), s);
    EXPECT_EQ(gx_strstr_ci(s, "worlds"), nullptr);
    EXPECT_EQ(gx_strstr_ci(nullptr, "a"), nullptr);
}

TEST(StringCopy, BoundedCopyCaseMappingAndFormat)
{
    char buf[10] = "xxxxxxx";
    EXPECT_EQ(gx_strncpy(buf, "abc", 1), 0); // only the terminator
    EXPECT_EQ(buf[0], '\0');
    EXPECT_EQ(buf[1], 'x');
    EXPECT_EQ(gx_strncpy(buf, "abcdefghij", 4), 3);
    EXPECT_STREQ(buf, "abc");
    EXPECT_EQ(gx_strncpy(buf, nullptr, 8), 0);
    EXPECT_STREQ(buf, "");
    buf[0] = 'q';
    EXPECT_EQ(gx_strncpy(buf, "abc", 0) + gx_strncpy(nullptr, "abc", 4), 0);
    EXPECT_EQ(buf[0], 'q');

    EXPECT_EQ(gx_strcpy(buf, "Mix-Ed"), 6);
    EXPECT_EQ(gx_strupper(buf, buf), 6);
    EXPECT_STREQ(buf, "MIX-ED");
    EXPECT_EQ(gx_strlower(buf, "AbC"), 3);
    EXPECT_STREQ(buf, "abc");
    EXPECT_EQ(gx_strcpy(buf, nullptr), 0);
    EXPECT_STREQ(buf, "");
    EXPECT_EQ(gx_strcpy(nullptr, "a") + gx_strupper(nullptr, "a") + gx_strlower(nullptr, "a"), 0);

    // gx_snprintf keeps at most size - 2 characters.
    std::memset(buf, 'x', sizeof buf);
    EXPECT_EQ(gx_snprintf(buf, 10, "%s", "0123456789abc"), 9);
    EXPECT_STREQ(buf, "01234567");
    EXPECT_EQ(buf[9], '\0');
    EXPECT_EQ(gx_snprintf(buf, 10, "%s", "012345678"), 9); // would fit in 10, still cut
    EXPECT_STREQ(buf, "01234567");
    EXPECT_EQ(gx_snprintf(buf, 10, "%d-%d", 12, 34), 5);
    EXPECT_STREQ(buf, "12-34");
    EXPECT_EQ(gx_snprintf(buf, 1, "%s", "abc"), 0);
    EXPECT_STREQ(buf, "");
    EXPECT_EQ(gx_snprintf(buf, 10, nullptr), 0);
    buf[0] = 'q';
    EXPECT_EQ(gx_snprintf(buf, 0, "%s", "abc") + gx_snprintf(nullptr, 10, "%s", "abc"), 0);
    EXPECT_EQ(buf[0], 'q');
}

TEST(StringFields, TokensNumbersAndTrimming)
{
    char text[] = "a,,b;c";
    char *state = nullptr;
    EXPECT_STREQ(gx_strtok(text, ",;", &state), "a");
    EXPECT_STREQ(gx_strtok(nullptr, ",;", &state), "");
    EXPECT_STREQ(gx_strtok(nullptr, ",;", &state), "b");
    EXPECT_STREQ(gx_strtok(nullptr, ",;", &state), "c");
    EXPECT_EQ(gx_strtok(nullptr, ",;", &state), nullptr);
    EXPECT_EQ(gx_strtok(nullptr, ",;", &state), nullptr);
    char trailing[] = "a,";
    EXPECT_STREQ(gx_strtok(trailing, ",", &state), "a");
    EXPECT_EQ(gx_strtok(nullptr, ",", &state), nullptr);
    char whole[] = "a b";
    EXPECT_STREQ(gx_strtok(whole, nullptr, &state), "a b");
    EXPECT_EQ(gx_strtok(whole, ",", nullptr), nullptr);

    EXPECT_EQ(gx_str_isnumeric("0123") + gx_str_isnumeric("") + gx_str_isnumeric(nullptr), 3);
    EXPECT_EQ(gx_str_isnumeric("12a") + gx_str_isnumeric("-1"), 0);
    char a[] = " \tab c \n ";
    EXPECT_STREQ(gx_str_strip(a), " \tab c");
    char b[] = "  ab  ";
    EXPECT_EQ(gx_str_trim(b), b + 2);
    EXPECT_STREQ(b + 2, "ab");
    char c[] = "  ab  ";
    EXPECT_EQ(gx_str_trim_buf(c), c);
    EXPECT_STREQ(c, "ab");
    char d[] = "   ";
    EXPECT_STREQ(gx_str_trim_buf(d), "");
    EXPECT_EQ(gx_str_strip(nullptr), nullptr);
    EXPECT_EQ(gx_str_trim(nullptr), nullptr);
    EXPECT_EQ(gx_str_trim_buf(nullptr), nullptr);
}

TEST(StringGlob, StarAndQuestionMarkAndPassThroughs)
{
    EXPECT_EQ(gx_glob_match("anything", "") + gx_glob_match("anything", nullptr), 2);
    EXPECT_EQ(gx_glob_match("", "*") + gx_glob_match(nullptr, "*"), 0);
    EXPECT_EQ(gx_glob_match("ntv2_0.gsb", "*.gsb"), 1);
    EXPECT_EQ(gx_glob_match("ntv2_0.gsb", "*.GSB"), 0);
    EXPECT_EQ(gx_glob_match("abcbcd", "a*bcd"), 1); // the star's first guess must be undone
    EXPECT_EQ(gx_glob_match("abxbcxd", "a*b*x?"), 1);
    EXPECT_EQ(gx_glob_match("ac", "a?c"), 0);
    EXPECT_EQ(gx_glob_match("abc", "ab"), 0);
    EXPECT_EQ(gx_glob_match("ab", "ab**"), 1);

    setenv("GX_UTIL_TEST_VAR", "value", 1);
    EXPECT_STREQ(gx_getenv("GX_UTIL_TEST_VAR"), "value");
    EXPECT_EQ(gx_getenv(nullptr), nullptr);
    EXPECT_NE(gx_atexit(nullptr), 0);
    EXPECT_EQ(gx_atexit([] {}), 0);
}
