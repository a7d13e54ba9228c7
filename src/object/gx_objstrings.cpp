// WKT text: the tokenizer that every parser goes through, and the fixed number text the library
// writes and reads whatever the process locale.
#include "object/gx_core.h"

#include <cctype>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// ---- numbers ------------------------------------------------------------------------------------

char gx_get_decimal_point_char(void)
{
    const struct lconv *conv = std::localeconv();
    if (conv == nullptr || conv->decimal_point == nullptr || conv->decimal_point[0] == '\0')
        return '.';
    return conv->decimal_point[0];
}

namespace {

// Removes the zeros that end the fraction of a fixed-point text; a bare decimal point gets one
// "0" back, so 6378137.000 becomes 6378137.0.
void trim_fraction(char *text, char point)
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

// The mantissa digits of an "%e" text, without sign and point, and its decimal exponent.
int exponent_of(const char *etext, char *digits, int room)
{
    int n = 0;
    const char *c = etext;
    for (; *c != '\0' && *c != 'e' && *c != 'E'; ++c)
        if (std::isdigit(static_cast<unsigned char>(*c)) && n < room - 1)
            digits[n++] = *c;
    digits[n] = '\0';
    return *c != '\0' ? std::atoi(c + 1) : 0;
}

} // namespace

// Writes a value in the library's text form.  With 16 digits the working precision is 15
// significant digits, and a sixteenth is kept only where it carries information: when the two
// digits before the last of a 16-digit mantissa are 00 or 99, the value is a short decimal that
// binary arithmetic has smeared (0.1000000000000000055...), and 15 digits give it back exactly.
char *gx_dtoa(double value, char *buf, int digits)
{
    if (buf == nullptr)
        return nullptr;
    digits = digits < 1 ? 1 : digits > 17 ? 17 : digits;
    const int precision = digits == 16 ? 15 : digits;
    int d = digits;
    char scratch[128];
    char mantissa[64];
    std::snprintf(scratch, sizeof scratch, "%*.*e", precision + 8, precision, value);
    const int e = exponent_of(scratch, mantissa, sizeof mantissa);

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
            trim_fraction(scratch, point);
        }
    } else {
        std::snprintf(scratch, sizeof scratch, "%*.*f", d - e + 2, d - e - 1, value);
        trim_fraction(scratch, point);
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

double gx_atod(const char *text)
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

// ---- the tokenizer ------------------------------------------------------------------------------

namespace {

bool is_space(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

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

// Copies `text` into list->text in normalized form: parentheses become square brackets, white
// space outside quotes is dropped and inside quotes folded to single blanks (none next to the
// quotes), and everything after the outermost closing bracket is ignored.  Returns the bracket
// depth left open, or -1 after an error.
int normalize(gx_token_list *list, const char *text)
{
    char *out = list->text;
    int length = 0;
    bool quoted = false;
    int depth = 0;

    out[length++] = *text++;
    for (;; ++text) {
        char c = *text;
        if (c == '\0')
            break;
        if (c == '(')
            c = '[';
        else if (c == ')')
            c = ']';

        if (c == '"') {
            if (length >= max_text)
                return fail(list, GX_ERRLVL_ERROR, 467, "WKT string length exceeds %d characters",
                            max_text);
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
                return fail(list, GX_ERRLVL_ERROR, 467, "WKT string length exceeds %d characters",
                            max_text);
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
            return fail(list, GX_ERRLVL_ERROR, 467, "WKT string length exceeds %d characters",
                        max_text);
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

} // namespace

// Cuts the next token off the normalized text at *cursor.  A quoted token runs to the closing
// quote; any other to the next bracket or comma.  The delimiter is overwritten with NUL and
// returned ('[', ']', ',' or 0 at the end of the text); *token receives the token's text.
static char objstring_name(char **cursor, char **token)
{
    char *c = *cursor;
    if (*c == '"') {
        *token = ++c;
        while (*c != '\0' && *c != '"')
            ++c;
        if (*c == '"')
            *c++ = '\0';
    } else {
        *token = c;
    }
    while (*c != '\0' && *c != '[' && *c != ']' && *c != ',')
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
    while (is_space(*text))
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
        const bool add = delimiter == '['
                             ? true
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
