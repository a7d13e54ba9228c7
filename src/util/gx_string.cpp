// String helpers: loose name comparison, bounded copying and formatting, trimming, a
// re-entrant tokenizer and glob matching.
//
// A null text argument reads as the empty text unless a function says otherwise; functions
// that return a pointer into their argument return null for a null argument.
#include "gridex.h"
#include "util/gx_ctype.h"

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool is_space(char c) { return gx::locale_classes::is_space(c); }
int lower(char c) { return gx::locale_classes::lower(c); }
int upper(char c) { return gx::locale_classes::upper(c); }

const char *or_empty(const char *s) { return s ? s : ""; }

// Characters that loose name comparison ignores: "GCS_WGS_1984", "gcs wgs 1984" and
// "GCS-WGS-1984" all name the same thing.
bool is_ignorable(char c) { return c == '-' || c == '_' || is_space(c); }

const char *skip_ignorable(const char *s)
{
    while (is_ignorable(*s))
        s++;
    return s;
}

int count_significant(const char *s)
{
    int n = 0;
    for (s = skip_ignorable(s); *s; s = skip_ignorable(s + 1))
        n++;
    return n;
}

char *skip_space(char *s)
{
    while (is_space(*s))
        s++;
    return s;
}

// Whether two runs of `length` bytes share a byte.
bool overlap(const char *a, const char *b, std::size_t length)
{
    const auto x = reinterpret_cast<std::uintptr_t>(a);
    const auto y = reinterpret_cast<std::uintptr_t>(b);
    return x < y ? y - x < length : x - y < length;
}

// gx_strncpy one byte at a time, which decides what a copy onto its own source gives.
int copy_forward(char *dst, const char *src, int n)
{
    int copied = 0;
    while (copied < n - 1 && src[copied]) {
        dst[copied] = src[copied];
        copied++;
    }
    dst[copied] = '\0';
    return copied;
}

// Copies src into dst through a character mapping; dst and src may be the same buffer.
int copy_mapped(char *dst, const char *src, int (*map)(char))
{
    if (!dst)
        return 0;
    src = or_empty(src);
    int n = 0;
    for (; src[n]; n++)
        dst[n] = static_cast<char>(map(src[n]));
    dst[n] = '\0';
    return n;
}

} // namespace

// ---- comparison ---------------------------------------------------------------------------

int gx_strncmp_ci(const char *a, const char *b, int n)
{
    gx::locale_classes classes;
    return gx::loose_compare(or_empty(a), or_empty(b), n, classes);
}

int gx_strcmp_ci(const char *a, const char *b) { return gx_strncmp_ci(a, b, -1); }

int gx_strncmp_ci1(const char *a, const char *b)
{
    return gx_strncmp_ci(a, b, count_significant(or_empty(a)));
}

int gx_strncmp_ci2(const char *a, const char *b)
{
    return gx_strncmp_ci(a, b, count_significant(or_empty(b)));
}

int gx_strcmp_i(const char *a, const char *b)
{
    gx::locale_classes classes;
    return gx::compare_ignoring_case(or_empty(a), or_empty(b), classes);
}

const char *gx_strstr_ci(const char *s, const char *t)
{
    if (!s)
        return nullptr;
    t = or_empty(t);
    for (; *s; s++) {
        size_t i = 0;
        while (t[i] && (s[i] == t[i] || lower(s[i]) == lower(t[i])))
            i++;
        if (!t[i])
            return s;
    }
    return *t ? nullptr : s;
}

// ---- copying ------------------------------------------------------------------------------

int gx_strncpy(char *dst, const char *src, int n)
{
    if (!dst || n < 1)
        return 0;
    src = or_empty(src);
    const std::size_t room = static_cast<std::size_t>(n - 1);
    const void *end = std::memchr(src, '\0', room); // reads no further than the terminator
    const std::size_t length = end != nullptr ? static_cast<const char *>(end) - src : room;
    if (overlap(dst, src, length + 1))
        return copy_forward(dst, src, n);
    std::memcpy(dst, src, length);
    dst[length] = '\0';
    return static_cast<int>(length);
}

int gx_strcpy(char *dst, const char *src)
{
    if (!dst)
        return 0;
    src = or_empty(src);
    size_t len = std::strlen(src);
    std::memmove(dst, src, len + 1);
    return static_cast<int>(len);
}

int gx_strupper(char *dst, const char *src) { return copy_mapped(dst, src, upper); }

int gx_strlower(char *dst, const char *src) { return copy_mapped(dst, src, lower); }

// ---- fields and trimming ------------------------------------------------------------------

// Like strsep: every delimiter ends a field, so "a,,b" gives "a", "" and "b".  The text is
// used up once nothing follows the last delimiter, so "a," gives only "a".
char *gx_strtok(char *s, const char *delimiters, char **state)
{
    if (!state)
        return nullptr;
    char *field = s ? s : *state;
    if (!field || !*field) {
        *state = nullptr;
        return nullptr;
    }
    char *end = field + std::strcspn(field, or_empty(delimiters));
    if (*end) {
        *end = '\0';
        *state = end + 1;
    } else {
        *state = end;
    }
    return field;
}

int gx_str_isnumeric(const char *s)
{
    for (s = or_empty(s); *s; s++) {
        if (!std::isdigit(static_cast<unsigned char>(*s)))
            return 0;
    }
    return 1;
}

char *gx_str_strip(char *s)
{
    if (!s)
        return nullptr;
    size_t len = std::strlen(s);
    while (len > 0 && is_space(s[len - 1]))
        len--;
    s[len] = '\0';
    return s;
}

char *gx_str_trim(char *s)
{
    if (!s)
        return nullptr;
    return skip_space(gx_str_strip(s));
}

char *gx_str_trim_buf(char *s)
{
    if (!s)
        return nullptr;
    char *start = gx_str_trim(s);
    if (start != s)
        std::memmove(s, start, std::strlen(start) + 1);
    return s;
}

// ---- glob matching ------------------------------------------------------------------------

// '*' matches any run and '?' any one character.  On a mismatch after a '*' the match resumes
// with the star swallowing one more character; only the latest star needs revisiting, since
// an earlier star can never help where a later one cannot.
int gx_glob_match(const char *name, const char *pattern)
{
    if (!name || !*name)
        return 0;
    if (!pattern || !*pattern)
        return 1;
    const char *star = nullptr;
    const char *resume = nullptr;
    while (*name) {
        if (*pattern == '*') {
            star = ++pattern;
            resume = name;
        } else if (*pattern == '?' || *pattern == *name) {
            pattern++;
            name++;
        } else if (star) {
            pattern = star;
            name = ++resume;
        } else {
            return 0;
        }
    }
    while (*pattern == '*')
        pattern++;
    return *pattern == '\0';
}

// ---- formatting and the C library ---------------------------------------------------------

// The C library is given one byte less than the buffer holds, so at most size-2 characters
// are written; the last byte is always a terminator.  A cut text reports size-1.
int gx_vsnprintf(char *buf, int size, const char *format, va_list args)
{
    if (!buf || size < 1)
        return 0;
    int limit = size - 1;
    int len = format ? std::vsnprintf(buf, static_cast<size_t>(limit), format, args) : -1;
    buf[limit] = '\0';
    if (len < 0) {
        buf[0] = '\0';
        return 0;
    }
    return len >= limit ? limit : len;
}

int gx_snprintf(char *buf, int size, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    int len = gx_vsnprintf(buf, size, format, args);
    va_end(args);
    return len;
}

const char *gx_getenv(const char *name) { return name ? std::getenv(name) : nullptr; }

// A null routine is refused with -1, like any other registration atexit cannot make.
int gx_atexit(void (*routine)(void)) { return routine ? std::atexit(routine) : -1; }
