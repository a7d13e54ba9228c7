// gx_dtoa and gx_atod against the C library: the library formats numbers with std::to_chars and
// reads plain decimals with std::from_chars, and its texts and values must stay the ones that
// printf and strtod gave, bit for bit.  The C library versions are kept here as the reference
// and both are run on a few hundred thousand values of every kind: random bit patterns
// (subnormals, huge values, infinities and NaNs included), short decimals whose 16-digit
// mantissas end in 00x or 99x, exact binary fractions that round on a tie, values next to powers
// of ten, whole numbers, every digit count from 1 to 17, under a ',' locale and under every
// rounding mode.
#include "gridex.h"
#include "gx_test_support.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cfenv>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

// ---- the printf-based formatting, as the library once had it ----------------------------------

void reference_trim_fraction(char *text, char point)
{
    char *dot = std::strchr(text, point);
    if (dot == nullptr)
        return;
    char *end = text + std::strlen(text);
    while (end > dot + 1 && end[-1] == '0')
        --end;
    if (end == dot + 1) {
        *end++ = '0';
    }
    *end = '\0';
}

int reference_exponent_of(const char *etext, char *digits, int room)
{
    int n = 0;
    const char *c = etext;
    for (; *c != '\0' && *c != 'e' && *c != 'E'; ++c)
        if (std::isdigit(static_cast<unsigned char>(*c)) && n < room - 1)
            digits[n++] = *c;
    digits[n] = '\0';
    return *c != '\0' ? std::atoi(c + 1) : 0;
}

std::string reference_dtoa(double value, int digits)
{
    char buf[128];
    digits = digits < 1 ? 1 : digits > 17 ? 17 : digits;
    const int precision = digits == 16 ? 15 : digits;
    int d = digits;
    char scratch[128];
    char mantissa[64];
    std::snprintf(scratch, sizeof scratch, "%*.*e", precision + 8, precision, value);
    const int e = reference_exponent_of(scratch, mantissa, sizeof mantissa);

    if (digits == 16 && e < 12) {
        const int n = static_cast<int>(std::strlen(mantissa));
        const bool smeared = n >= 3 && ((mantissa[n - 3] == '0' && mantissa[n - 2] == '0') ||
                                        (mantissa[n - 3] == '9' && mantissa[n - 2] == '9'));
        d = smeared ? 15 : 16;
    }

    const char point = gx_get_decimal_point_char();
    if (e >= 0) {
        const int decimals = d - e - 1;
        if (decimals < 0) {
            std::snprintf(scratch, sizeof scratch, "%*e", d + 7, value);
        } else {
            std::snprintf(scratch, sizeof scratch, "%*.*f", d + 2, decimals, value);
            reference_trim_fraction(scratch, point);
        }
    } else {
        std::snprintf(scratch, sizeof scratch, "%*.*f", d - e + 2, d - e - 1, value);
        reference_trim_fraction(scratch, point);
        if (std::strlen(scratch) > 24 || e < -9)
            std::snprintf(scratch, sizeof scratch, "%*.*g", d + 7, d - 1, value);
    }

    const char *start = scratch;
    while (std::isspace(static_cast<unsigned char>(*start)))
        ++start;
    std::size_t length = std::strlen(start);
    while (length > 0 && std::isspace(static_cast<unsigned char>(start[length - 1])))
        --length;
    std::memmove(buf, start, length);
    buf[length] = '\0';
    if (point != '.')
        if (char *p = std::strchr(buf, point))
            *p = '.';
    return buf;
}

double reference_atod(const char *text)
{
    if (text == nullptr || text[0] == '\0')
        return 0.0;
    const char point = gx_get_decimal_point_char();
    if (point == '.')
        return std::strtod(text, nullptr);
    char copy[128];
    gx_strncpy(copy, text, sizeof copy);
    if (char *p = std::strchr(copy, '.'))
        *p = point;
    return std::strtod(copy, nullptr);
}

// ---- the values -----------------------------------------------------------------------------

class value_source {
public:
    explicit value_source(unsigned long long seed) : random_(seed) {}

    // Any 64-bit pattern: every exponent, subnormals, infinities and NaNs.
    double any_bits()
    {
        const unsigned long long bits = random_();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    // A decimal of 1 to 17 digits times a power of ten, read as the C library reads it: the
    // values WKT texts carry, and the ones whose mantissas end in 00x or 99x.
    double short_decimal()
    {
        const int length = pick(1, 17);
        std::string text;
        if (pick(0, 1) != 0)
            text += '-';
        for (int i = 0; i < length; ++i)
            text += static_cast<char>('0' + pick(i == 0 ? 1 : 0, 9));
        text += 'e';
        text += std::to_string(pick(-40, 40) - length);
        return std::strtod(text.c_str(), nullptr);
    }

    // Short decimals made by arithmetic, which leaves the 0000001 and 9999999 endings.
    double smeared_decimal()
    {
        const double a = pick(1, 9999) / 1000.0;
        const double b = pick(1, 9999) / 100.0;
        const double value = pick(0, 1) != 0 ? a + b : a * b;
        return value * std::pow(10.0, pick(-12, 14));
    }

    // Exact binary fractions: their decimal expansions end in 5, so rounding meets exact ties.
    double binary_fraction()
    {
        const double whole = static_cast<double>(random_() >> pick(11, 63));
        const double value = std::ldexp(whole, -pick(0, 70));
        return pick(0, 1) != 0 ? -value : value;
    }

    // A few units in the last place from a power of ten, where the exponent may round up.
    double near_power_of_ten()
    {
        double value = std::pow(10.0, pick(-320, 308));
        const int steps = pick(-4, 4);
        for (int i = 0; i < std::abs(steps); ++i)
            value = std::nextafter(value, steps < 0 ? 0.0 : HUGE_VAL);
        return pick(0, 1) != 0 ? -value : value;
    }

    // Nines that round up into the next power of ten at some digit count: 9.9999995e-10.
    double run_of_nines()
    {
        std::string text = "9.";
        const int nines = pick(0, 18);
        for (int i = 0; i < nines; ++i)
            text += '9';
        text += std::to_string(pick(0, 9));
        text += 'e';
        text += std::to_string(pick(-14, 20));
        return std::strtod(text.c_str(), nullptr);
    }

    // Whole numbers of up to 16 digits, which have a shorter way through.
    double whole_number()
    {
        const double value = std::trunc(std::ldexp(static_cast<double>(random_() >> 11), -53) *
                                        std::pow(10.0, pick(0, 16)));
        return pick(0, 1) != 0 ? -value : value;
    }

    double next()
    {
        switch (pick(0, 6)) {
        case 0:
            return any_bits();
        case 1:
            return short_decimal();
        case 2:
            return smeared_decimal();
        case 3:
            return binary_fraction();
        case 4:
            return near_power_of_ten();
        case 5:
            return whole_number();
        default:
            return run_of_nines();
        }
    }

    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

private:
    std::mt19937_64 random_;
};

const double special_values[] = {
    0.0,
    -0.0,
    1.0,
    -1.0,
    0.1,
    0.3,
    1e-10,
    9.999999999999999e-10,
    1e-9,
    0.999999999999999,
    0.9999999999999999,
    99999999999.99998,
    999999999999.9999,
    99999999999999.0,
    100000000000000.0,
    999999999999999.0,
    -99999999999999.0,
    1e16,
    1e17,
    1e20,
    1.5e-12,
    0.5,
    2.5,
    0.125,
    6378137.0,
    298.257223563,
    0.017453292519943295,
    0.3048006096012192,
    DBL_MAX,
    -DBL_MAX,
    DBL_MIN,
    DBL_TRUE_MIN,
    -DBL_TRUE_MIN,
    std::numeric_limits<double>::infinity(),
    -std::numeric_limits<double>::infinity(),
    std::numeric_limits<double>::quiet_NaN(),
    -std::numeric_limits<double>::quiet_NaN(),
};

std::string library_dtoa(double value, int digits)
{
    char buf[GX_TEXT_LEN];
    return gx_dtoa(value, buf, digits);
}

// Compares the two on `count` values, each with 16 digits and with one other digit count.
void compare_on_random_values(unsigned long long seed, int count)
{
    value_source source(seed);
    for (int i = 0; i < count; ++i) {
        const double value = source.next();
        for (int digits : {16, source.pick(-1, 19)}) {
            const std::string expected = reference_dtoa(value, digits);
            ASSERT_EQ(library_dtoa(value, digits), expected)
                << "value " << std::hexfloat << value << " digits " << digits;
        }
    }
}

// Number texts of every form strtod reads, most of them plain decimals.
class number_text_source {
public:
    explicit number_text_source(unsigned int seed) : random_(seed) {}

    std::string next()
    {
        static const char *const odd[] = {"",    "-",      ".5",    "5.",  "+1.5", " 1.5",
                                          "1e5", "1.5E-3", "0x1p3", "inf", "-nan", "1.5x",
                                          "1,5", "--1",    "1..5",  "-0",  "-0.0", "1.5 "};
        if (pick(0, 9) == 0)
            return odd[pick(0, sizeof odd / sizeof *odd - 1)];
        std::string text;
        if (pick(0, 1) != 0)
            text += '-';
        text += digits(pick(1, pick(0, 9) == 0 ? 130 : 20));
        if (pick(0, 3) != 0) {
            text += '.';
            text += digits(pick(1, pick(0, 9) == 0 ? 130 : 20));
        }
        if (pick(0, 9) == 0) {
            text += 'e';
            text += std::to_string(pick(-330, 330));
        }
        return text;
    }

private:
    std::string digits(int count)
    {
        std::string out;
        for (int i = 0; i < count; ++i)
            out += static_cast<char>('0' + pick(0, 9));
        return out;
    }

    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    std::mt19937 random_;
};

bool same_bits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

void compare_reading(unsigned int seed, int count)
{
    number_text_source source(seed);
    for (int i = 0; i < count; ++i) {
        const std::string text = source.next();
        ASSERT_TRUE(same_bits(gx_atod(text.c_str()), reference_atod(text.c_str()))) << text;
    }
}

// Sets a rounding mode for its lifetime.
class rounding_mode {
public:
    explicit rounding_mode(int mode) : saved_(std::fegetround()) { std::fesetround(mode); }
    ~rounding_mode() { std::fesetround(saved_); }

private:
    int saved_;
};

const int directed_modes[] = {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};

} // namespace

TEST(NumberTextEquivalence, SpecialValuesWithEveryDigitCount)
{
    for (double value : special_values)
        for (int digits = -1; digits <= 19; ++digits)
            ASSERT_EQ(library_dtoa(value, digits), reference_dtoa(value, digits))
                << "value " << std::hexfloat << value << " digits " << digits;
}

TEST(NumberTextEquivalence, EveryDigitCountOnSmallSamples)
{
    value_source source(7);
    for (int i = 0; i < 20000; ++i) {
        const double value = source.next();
        for (int digits = 1; digits <= 17; ++digits)
            ASSERT_EQ(library_dtoa(value, digits), reference_dtoa(value, digits))
                << "value " << std::hexfloat << value << " digits " << digits;
    }
}

TEST(NumberTextEquivalence, RandomValues) { compare_on_random_values(20240611, 300000); }

TEST(NumberTextEquivalence, RandomValuesUnderACommaLocale)
{
    comma_locale locale;
    if (!locale.active())
        GTEST_SKIP() << "no locale with ',' as decimal point is installed";
    compare_on_random_values(99, 30000);
}

TEST(NumberTextEquivalence, UnderEveryRoundingMode)
{
    for (int mode : directed_modes) {
        rounding_mode scope(mode);
        SCOPED_TRACE(mode);
        for (double value : special_values)
            for (int digits = 1; digits <= 17; ++digits)
                ASSERT_EQ(library_dtoa(value, digits), reference_dtoa(value, digits))
                    << "value " << std::hexfloat << value << " digits " << digits;
        compare_on_random_values(static_cast<unsigned long long>(mode), 10000);
    }
}

TEST(NumberReadingEquivalence, RandomTexts) { compare_reading(5, 300000); }

TEST(NumberReadingEquivalence, UnderACommaLocale)
{
    comma_locale locale;
    if (!locale.active())
        GTEST_SKIP() << "no locale with ',' as decimal point is installed";
    compare_reading(6, 30000);
}

TEST(NumberReadingEquivalence, UnderEveryRoundingMode)
{
    for (int mode : directed_modes) {
        rounding_mode scope(mode);
        SCOPED_TRACE(mode);
        compare_reading(static_cast<unsigned int>(mode), 30000);
    }
}
