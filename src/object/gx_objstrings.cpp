// WKT text: the tokenizer that every parser goes through, and the fixed number text the library
// writes and reads whatever the process locale.
#include "object/gx_core.h"
#include "util/gx_ctype.h"

#include <array>
#include <cctype>
#include <cfenv>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

// ---- numbers ------------------------------------------------------------------------------------

char gx_get_decimal_point_char(void)
{
    const struct lconv *conv = std::localeconv();
    if (conv == nullptr || conv->decimal_point == nullptr || conv->decimal_point[0] == '\0')
        return '.';
    return conv->decimal_point[0];
}

namespace {

// The C library's number conversions follow the floating-point rounding mode; std::to_chars and
// std::from_chars always round to nearest, ties to even, which is the default mode.
bool rounds_to_nearest() { return std::fegetround() == FE_TONEAREST; }

// A number as the C library's "%.*e", "%.*f" or "%.*g" writes it, but always with '.' as the
// decimal point.  std::to_chars gives the same digits without the locale and faster; under
// another rounding mode the C library is asked.
struct formatted {
    // gx_dtoa asks for fixed texts only of values from 1e-10 to 1e17, so 40 characters do
    char text[64];
    int length = 0;

    formatted(double value, std::chars_format form, int precision)
    {
        if (rounds_to_nearest())
            write_to_chars(value, form, precision);
        else
            write_printf(value, form, precision);
    }

private:
    void write_to_chars(double value, std::chars_format form, int precision)
    {
        const std::to_chars_result result =
            std::to_chars(text, text + sizeof text - 1, value, form, precision);
        length = result.ec == std::errc() ? static_cast<int>(result.ptr - text) : 0;
        text[length] = '\0';
    }

    void write_printf(double value, std::chars_format form, int precision)
    {
        const char *format = form == std::chars_format::scientific ? "%.*e"
                             : form == std::chars_format::fixed    ? "%.*f"
                                                                   : "%.*g";
        constexpr int room = static_cast<int>(sizeof text);
        const int written = std::snprintf(text, sizeof text, format, precision, value);
        length = written < 0 ? 0 : written < room ? written : room - 1;
        const char point = gx_get_decimal_point_char();
        if (point != '.')
            if (char *p = std::strchr(text, point))
                *p = '.';
    }
};

// The decimal exponent of an "%e" text: a sign and at least two digits after the 'e'.
int exponent_of(const formatted &etext)
{
    const char *c = std::strchr(etext.text, 'e') + 1;
    const bool negative = *c++ == '-';
    int e = 0;
    for (; *c != '\0'; ++c)
        e = e * 10 + (*c - '0');
    return negative ? -e : e;
}

// Whether the two digits before the last of an "%e" text's mantissa are 00 or 99.
bool smeared(const formatted &etext)
{
    const char *e = std::strchr(etext.text, 'e');
    const char *last = e - 1; // the mantissa has a point, so two digits stand before the last
    return (last[-2] == '0' && last[-1] == '0') || (last[-2] == '9' && last[-1] == '9');
}

// Removes the zeros that end the fraction of a fixed-point text; a bare decimal point gets one
// "0" back, so 6378137.000 becomes 6378137.0.
void trim_fraction(formatted &fixed)
{
    char *dot = std::strchr(fixed.text, '.');
    if (dot == nullptr)
        return;
    char *end = fixed.text + fixed.length;
    while (end > dot + 1 && end[-1] == '0')
        --end;
    if (end == dot + 1)
        *end++ = '0';
    *end = '\0';
    fixed.length = static_cast<int>(end - fixed.text);
}

// The C library writes infinities and NaNs as inf and nan, with a sign when it is set.
const char *non_finite_text(double value)
{
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";
    return std::signbit(value) ? "-nan" : "nan";
}

char *copy_out(char *buf, const char *text, int length)
{
    std::memcpy(buf, text, static_cast<std::size_t>(length));
    buf[length] = '\0';
    return buf;
}

char *copy_out(char *buf, const formatted &number)
{
    return copy_out(buf, number.text, number.length);
}

// A whole number below 1e14 in magnitude is exact in "%.*e" with 15 or more decimals and its
// exponent is at most 13, so with 15 or more digits it is always written in fixed point with at
// least one decimal, all zeros, of which one is kept: 6378137 becomes 6378137.0.
bool is_short_whole_number(double value, int digits)
{
    return digits >= 15 && std::fabs(value) < 1e14 && value == std::trunc(value);
}

char *write_whole_number(char *buf, double value)
{
    char text[24];
    char *end = text;
    if (std::signbit(value))
        *end++ = '-';
    end = std::to_chars(end, text + sizeof text, static_cast<long long>(std::fabs(value))).ptr;
    *end++ = '.';
    *end++ = '0';
    return copy_out(buf, text, static_cast<int>(end - text));
}

} // namespace

// Writes a value in the library's text form.  With 16 digits the working precision is 15
// significant digits, and a sixteenth is kept only where it carries information: when the two
// digits before the last of a 16-digit mantissa are 00 or 99, the value is a short decimal that
// binary arithmetic has smeared (0.1000000000000000055...), and 15 digits give it back exactly.
//
// The text was first made with the C library's "%*.*e", "%*.*f" and "%*.*g" in right-aligned
// fields, and the field widths still decide one thing: a fixed text below 1 counts its padding
// when it is measured against the 24 characters beyond which the exponent form is used.
char *gx_dtoa(double value, char *buf, int digits)
{
    if (buf == nullptr)
        return nullptr;
    if (!std::isfinite(value)) {
        const char *text = non_finite_text(value);
        return copy_out(buf, text, static_cast<int>(std::strlen(text)));
    }
    digits = digits < 1 ? 1 : digits > 17 ? 17 : digits;
    if (is_short_whole_number(value, digits))
        return write_whole_number(buf, value);
    const int precision = digits == 16 ? 15 : digits;
    const formatted etext(value, std::chars_format::scientific, precision);
    const int e = exponent_of(etext);
    int d = digits;
    if (digits == 16 && e < 12)
        d = smeared(etext) ? 15 : 16;

    if (e >= 0) {
        const int decimals = d - e - 1;
        if (decimals < 0) // the C library's default of six decimals
            return copy_out(buf, formatted(value, std::chars_format::scientific, 6));
        formatted fixed(value, std::chars_format::fixed, decimals);
        trim_fraction(fixed);
        return copy_out(buf, fixed);
    }
    if (e >= -9) {
        formatted fixed(value, std::chars_format::fixed, d - e - 1);
        const int width = d - e + 2;
        const int padding = width > fixed.length ? width - fixed.length : 0;
        trim_fraction(fixed);
        if (padding + fixed.length <= 24)
            return copy_out(buf, fixed);
    }
    return copy_out(buf, formatted(value, std::chars_format::general, d - 1));
}

namespace {

// Whole numbers up to 2^53 and powers of ten up to 1e22 are exact doubles, and one division
// rounds the quotient of two exact doubles correctly: for a decimal of up to 15 digits (point
// left out) and up to 22 decimals, digits / 10^decimals is the double strtod reads.
constexpr double exact_powers_of_ten[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t exact_whole_limit = std::uint64_t{1} << 53;

// Reads a text that is a plain decimal number as a whole: an optional '-', digits, and
// optionally a '.' with digits after it.  Up to 100 characters, far from overflow and underflow,
// its value is what strtod reads under any locale whose decimal point is one character, and
// std::from_chars (correctly rounded, like strtod when rounding to nearest) reads it without
// the locale.  Returns false, reading nothing, for any other text.
bool read_plain_decimal(const char *text, double &value)
{
    constexpr std::size_t longest = 100;
    const bool negative = text[0] == '-';
    std::size_t i = negative ? 1 : 0;
    std::uint64_t whole = 0; // the digits without the point, while `exact`
    bool exact = true;
    const auto take_digits = [&] {
        const std::size_t first = i;
        for (; gx::is_ascii_digit(text[i]); ++i) {
            if (whole <= (exact_whole_limit - 9) / 10)
                whole = whole * 10 + static_cast<std::uint64_t>(text[i] - '0');
            else
                exact = false;
        }
        return i > first;
    };
    if (!take_digits())
        return false;
    std::size_t decimals = 0;
    if (text[i] == '.') {
        const std::size_t point = i++;
        if (!take_digits())
            return false;
        decimals = i - point - 1;
    }
    if (text[i] != '\0' || i > longest)
        return false;
    if (exact && decimals < std::size(exact_powers_of_ten)) {
        const double magnitude = static_cast<double>(whole) / exact_powers_of_ten[decimals];
        value = negative ? -magnitude : magnitude;
    } else {
        std::from_chars(text, text + i, value);
    }
    return true;
}

} // namespace

double gx_atod(const char *text)
{
    if (text == nullptr || text[0] == '\0')
        return 0.0;
    if (double value = 0.0; rounds_to_nearest() && read_plain_decimal(text, value))
        return value;
    const char point = gx_get_decimal_point_char();
    if (point == '.')
        return std::strtod(text, nullptr);
    char copy[128];
    gx_strncpy(copy, text, sizeof copy);
    if (char *p = std::strchr(copy, '.'))
        *p = point;
    return std::strtod(copy, nullptr);
}

// ---- the tokenizer ------------------------------------------------------------------------------

namespace {

int fail(gx_token_list *list, unsigned int level, unsigned int number, const char *format, ...)
    GX_PRINTF(4, 5);

int fail(gx_token_list *list, unsigned int level, unsigned int number, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    gx_vsnprintf(list->message, sizeof list->message, format, args);
    va_end(args);
    list->error_level = level;
    list->error_number = number;
    return -1;
}

constexpr int max_text = GX_TEXT_LEN - 1;
const char expecting_message[] = "Expecting ',' or ']' in WKT string";

int too_long(gx_token_list *list)
{
    return fail(list, GX_ERRLVL_ERROR, 467, "WKT string length exceeds %d characters", max_text);
}

// The characters copied as they come, quoted or not: letters, digits, and the punctuation that
// names and numbers are made of unless the current locale counts it as white space.
std::array<bool, 256> plain_characters()
{
    std::array<bool, 256> plain = gx::ascii_alnum_table;
    for (unsigned char c : {'_', '.', '-', '+'})
        plain[c] = !gx::locale_classes::is_space(static_cast<char>(c));
    return plain;
}

// Copies `text` into list->text in normalized form: parentheses become square brackets, white
// space outside quotes is dropped and inside quotes folded to single blanks (none next to the
// quotes), and everything after the outermost closing bracket is ignored.  Returns the bracket
// depth left open, or -1 after an error.
int normalize(gx_token_list *list, const char *text)
{
    const std::array<bool, 256> plain = plain_characters();
    const auto is_plain = [&plain](char c) { return plain[static_cast<unsigned char>(c)]; };
    gx::remembered_classes classes;
    const auto is_space = [&classes](char c) { return classes.is_space(c); };
    char *out = list->text;
    int length = 0;
    bool quoted = false;
    int depth = 0;

    out[length++] = *text++;
    for (;; ++text) {
        char c = *text;
        if (is_plain(c)) { // most of a text
            if (!quoted && out[length - 1] == ']')
                return fail(list, GX_ERRLVL_ERROR, 458, expecting_message);
            int run = 1;
            while (is_plain(text[run]))
                ++run;
            const int fits = run < max_text - length ? run : max_text - length;
            std::memcpy(out + length, text, static_cast<std::size_t>(fits));
            length += fits;
            if (fits < run) // copied up to the limit
                return too_long(list);
            text += run - 1; // the loop's step goes past the run
            continue;
        }
        if (c == '\0')
            break;
        if (c == '(')
            c = '[';
        else if (c == ')')
            c = ']';

        if (c == '"') {
            if (length >= max_text)
                return too_long(list);
            if (!quoted && out[length - 1] == ']')
                return fail(list, GX_ERRLVL_ERROR, 458, expecting_message);
            if (quoted) // the name's own blanks end before the closing quote
                while (length > 0 && out[length - 1] == ' ')
                    --length;
            out[length++] = '"';
            quoted = !quoted;
            while (is_space(text[1]))
                ++text;
            if (!quoted) {
                const char after = text[1];
                if (after != ',' && after != ']' && after != ')')
                    return fail(list, GX_ERRLVL_ERROR, 458, expecting_message);
            }
            continue;
        }
        if (quoted) {
            if (length >= max_text)
                return too_long(list);
            out[length++] = is_space(c) ? ' ' : c;
            continue;
        }
        if (is_space(c))
            continue;
        if (c == ']' && depth == 0)
            break;
        if (out[length - 1] == ']' && c != ']' && c != ',')
            return fail(list, GX_ERRLVL_ERROR, 458, expecting_message);
        if (length >= max_text)
            return too_long(list);
        out[length++] = c;
        if (c == '[') {
            ++depth;
        } else if (c == ']') {
            if (--depth == 0)
                break;
        }
    }
    out[length] = '\0';
    if (quoted)
        return fail(list, GX_ERRLVL_ERROR, 469, "Unbalanced quotes in WKT string");
    return depth;
}

// The characters that end an unquoted token: '[', ']', ',' and the end of the text.
constexpr std::array<bool, 256> ends_token = [] {
    std::array<bool, 256> table{};
    table['\0'] = table['['] = table[']'] = table[','] = true;
    return table;
}();

} // namespace

// Cuts the next token off the normalized text at *cursor.  A quoted token runs to the closing
// quote; any other to the next bracket or comma.  The delimiter is overwritten with NUL and
// returned ('[', ']', ',' or 0 at the end of the text); *token receives the token's text.
static char objstring_name(char **cursor, char **token)
{
    char *c = *cursor;
    if (*c == '"') {
        *token = ++c;
        char *quote = std::strchr(c, '"');
        c = quote != nullptr ? quote : c + std::strlen(c);
        if (*c == '"')
            *c++ = '\0';
    } else {
        *token = c;
    }
    while (!ends_token[static_cast<unsigned char>(*c)])
        ++c;
    const char delimiter = *c;
    if (*c != '\0')
        *c++ = '\0';
    *cursor = c;
    return delimiter;
}

int gx_objstring_to_tokens(gx_token_list *list, const char *text, const char *keyword)
{
    list->count = 0;
    list->error_level = 0;
    list->error_number = 0;
    list->message[0] = '\0';
    list->text[0] = '\0';
    if (text == nullptr)
        text = "";

    if (keyword != nullptr && keyword[0] != '\0') {
        const char *found = gx_strstr_ci(text, keyword);
        if (found == nullptr)
            return fail(list, GX_ERRLVL_ERROR, 466,
                        "Object type keyword \"%s\" not found in WKT string", keyword);
        text = found;
    }
    while (gx::locale_classes::is_space(*text))
        ++text;
    if (*text == '\0')
        return fail(list, GX_ERRLVL_WARNING, 457, "Empty WKT string");
    if (!std::isalpha(static_cast<unsigned char>(*text)))
        return fail(list, GX_ERRLVL_ERROR, 463, "WKT string must start with a letter");

    const int open = normalize(list, text);
    if (open < 0)
        return -1;
    if (open > 0) // the missing brackets count as present at the end
        fail(list, GX_ERRLVL_WARNING, 464, "Missing %d closing ] character%s in WKT string", open,
             open == 1 ? "" : "s");

    char *cursor = list->text;
    int level = 0;
    char previous = 0;
    while (*cursor != '\0') {
        char *token = nullptr;
        const char delimiter = objstring_name(&cursor, &token);
        const bool add = delimiter == '['   ? true
                         : delimiter == ',' ? !(token[0] == '\0' && previous == ']')
                                            : token[0] != '\0';
        if (add) {
            if (list->count == GX_MAX_TOKENS)
                return fail(list, GX_ERRLVL_ERROR, 468, "Token count in WKT string exceeds %d",
                            GX_MAX_TOKENS);
            list->tokens[list->count].text = token;
            list->tokens[list->count].level = level;
            ++list->count;
        }
        previous = delimiter;
        if (delimiter == '[') {
            ++level;
        } else if (delimiter == ']' || delimiter == '\0') {
            if (--level <= 0)
                break;
        }
    }
    return 0;
}
