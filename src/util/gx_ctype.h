// gx_ctype.h -- internal: the C library's character classes of the current locale, asked less
// often, and the name comparisons built on them.
//
// ISO C fixes part of every locale's classes: the 26 letters of each case are letters and 0-9
// are digits in every locale, white space is never a letter or digit, and tolower and toupper
// change only letters.  So a letter or a digit is never white space and a digit is its own
// lower and upper case, whatever the locale; everything else is asked of the C library.
#ifndef GX_UTIL_CTYPE_H
#define GX_UTIL_CTYPE_H

#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace gx {

inline bool is_ascii_digit(char c) { return c >= '0' && c <= '9'; }

// The letters and digits of the basic character set, by byte value.
inline constexpr std::array<bool, 256> ascii_alnum_table = [] {
    std::array<bool, 256> table{};
    for (int c = 0; c < 256; ++c)
        table[c] = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return table;
}();

inline bool is_ascii_alnum(char c) { return ascii_alnum_table[static_cast<unsigned char>(c)]; }

inline int ask_isspace(unsigned char c) { return std::isspace(c) != 0; }
inline int ask_tolower(unsigned char c) { return std::tolower(c); }
inline int ask_toupper(unsigned char c) { return std::toupper(c); }

// isspace, tolower and toupper of the current locale, asked at every call.
struct locale_classes {
    static bool is_space(char c)
    {
        return !is_ascii_alnum(c) && ask_isspace(static_cast<unsigned char>(c)) != 0;
    }
    static int lower(char c)
    {
        return is_ascii_digit(c) ? c : ask_tolower(static_cast<unsigned char>(c));
    }
    static int upper(char c)
    {
        return is_ascii_digit(c) ? c : ask_toupper(static_cast<unsigned char>(c));
    }
};

// One of the C library's answers per character value, asked the first time it is needed.
template <int (*ask)(unsigned char)> class remembered_answers {
public:
    int operator()(char c)
    {
        const auto u = static_cast<unsigned char>(c);
        std::uint64_t &known = known_[u / 64];
        const std::uint64_t bit = std::uint64_t{1} << (u % 64);
        if ((known & bit) == 0) {
            answers_[u] = static_cast<unsigned char>(ask(u)); // tolower and toupper stay bytes
            known |= bit;
        }
        return answers_[u];
    }

private:
    std::uint64_t known_[4] = {};
    unsigned char answers_[256];
};

// The same answers as locale_classes, remembered for the life of the object: for a pass over a
// text or over a table of names, during which the locale does not change.
class remembered_classes {
public:
    bool is_space(char c) { return !is_ascii_alnum(c) && space_(c) != 0; }
    int lower(char c) { return is_ascii_digit(c) ? c : lower_(c); }
    int upper(char c) { return is_ascii_digit(c) ? c : upper_(c); }

private:
    remembered_answers<ask_isspace> space_;
    remembered_answers<ask_tolower> lower_;
    remembered_answers<ask_toupper> upper_;
};

// ---- name comparison ----------------------------------------------------------------------------

// gx_strncmp_ci: compares at most n significant characters (all when n is negative) without
// case; white space, '-' and '_' are ignored on both sides.  A byte that stands on both sides
// needs no locale: it is ignored on both or matches itself.
template <class Classes> int loose_compare(const char *a, const char *b, int n, Classes &classes)
{
    const auto ignorable = [&classes](char c) {
        return c == '-' || c == '_' || classes.is_space(c);
    };
    for (int compared = 0; n < 0 || compared < n;) {
        if (*a == *b && *a != '\0') {
            if (n >= 0 && !ignorable(*a))
                compared++;
            a++;
            b++;
            continue;
        }
        while (ignorable(*a))
            a++;
        while (ignorable(*b))
            b++;
        const int ca = classes.lower(*a);
        const int cb = classes.lower(*b);
        if (ca != cb || ca == '\0')
            return ca - cb;
        a++;
        b++;
        compared++;
    }
    return 0;
}

// gx_strcmp_i: compares without case, '-' counting as '_'.
template <class Classes> int compare_ignoring_case(const char *a, const char *b, Classes &classes)
{
    for (;; a++, b++) {
        if (*a == *b && *a != '\0')
            continue;
        const int ca = classes.upper(*a == '-' ? '_' : *a);
        const int cb = classes.upper(*b == '-' ? '_' : *b);
        if (ca != cb || ca == '\0')
            return ca - cb;
    }
}

// One name looked for in a table: which names gx_strcmp_ci finds equal to it.  The comparison
// begins with the first significant characters, lowered; the name's is kept, so most rows are
// told apart by their first character alone, and a row written exactly as the name is found by
// the C library's strcmp.
class loose_name {
public:
    loose_name(const char *name, remembered_classes &classes)
        : name_(name != nullptr ? name : ""), classes_(classes), first_(first_lowered(name_))
    {}

    bool matches(const char *other)
    {
        other = other != nullptr ? other : "";
        return first_lowered(other) == first_ &&
               (std::strcmp(name_, other) == 0 || loose_compare(name_, other, -1, classes_) == 0);
    }

    // The same without first trying strcmp: for tables whose rows are seldom written exactly as
    // the name (old names).
    bool matches_by_comparison(const char *other)
    {
        other = other != nullptr ? other : "";
        return first_lowered(other) == first_ && loose_compare(name_, other, -1, classes_) == 0;
    }

private:
    int first_lowered(const char *s)
    {
        while (*s == '-' || *s == '_' || classes_.is_space(*s))
            s++;
        return classes_.lower(*s);
    }

    const char *name_;
    remembered_classes &classes_;
    int first_;
};

// The same for gx_strcmp_i, which compares byte by byte: equal names are equally long.
class caseless_name {
public:
    caseless_name(const char *name, remembered_classes &classes)
        : name_(name != nullptr ? name : ""), classes_(classes), first_(first_upper(name_)),
          length_(std::strlen(name_))
    {}

    bool matches(const char *other)
    {
        other = other != nullptr ? other : "";
        return first_upper(other) == first_ && std::strlen(other) == length_ &&
               (std::strcmp(name_, other) == 0 ||
                compare_ignoring_case(name_, other, classes_) == 0);
    }

private:
    int first_upper(const char *s) { return classes_.upper(*s == '-' ? '_' : *s); }

    const char *name_;
    remembered_classes &classes_;
    int first_;
    std::size_t length_;
};

} // namespace gx

#endif // GX_UTIL_CTYPE_H
