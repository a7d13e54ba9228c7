// Name comparison against the plain character-by-character versions it replaced: the public
// comparisons, the table scans that remember the locale's answers, and the bounded copy, on
// random names made of letters of both cases, digits, dashes, underscores, every kind of white
// space, punctuation and bytes above 127, under every locale the machine has.
#include "gridex.h"
#include "util/gx_ctype.h"

#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

// ---- the character-by-character versions -----------------------------------------------------

const char *or_empty(const char *s) { return s ? s : ""; }
int lower(char c) { return std::tolower(static_cast<unsigned char>(c)); }
int upper(char c) { return std::toupper(static_cast<unsigned char>(c)); }
bool is_ignorable(char c)
{
    return c == '-' || c == '_' || std::isspace(static_cast<unsigned char>(c)) != 0;
}
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

int reference_strncmp_ci(const char *a, const char *b, int n)
{
    a = or_empty(a);
    b = or_empty(b);
    for (int compared = 0; n < 0 || compared < n; compared++) {
        a = skip_ignorable(a);
        b = skip_ignorable(b);
        int ca = lower(*a);
        int cb = lower(*b);
        if (ca != cb || ca == '\0')
            return ca - cb;
        a++;
        b++;
    }
    return 0;
}

int reference_strcmp_i(const char *a, const char *b)
{
    a = or_empty(a);
    b = or_empty(b);
    for (;; a++, b++) {
        int ca = upper(*a == '-' ? '_' : *a);
        int cb = upper(*b == '-' ? '_' : *b);
        if (ca != cb || ca == '\0')
            return ca - cb;
    }
}

const char *reference_strstr_ci(const char *s, const char *t)
{
    if (!s)
        return nullptr;
    t = or_empty(t);
    for (; *s; s++) {
        size_t i = 0;
        while (t[i] && lower(s[i]) == lower(t[i]))
            i++;
        if (!t[i])
            return s;
    }
    return *t ? nullptr : s;
}

int reference_strncpy(char *dst, const char *src, int n)
{
    if (!dst || n < 1)
        return 0;
    src = or_empty(src);
    int copied = 0;
    while (copied < n - 1 && src[copied]) {
        dst[copied] = src[copied];
        copied++;
    }
    dst[copied] = '\0';
    return copied;
}

// ---- the names ----------------------------------------------------------------------------

class name_source {
public:
    explicit name_source(unsigned int seed) : random_(seed) {}

    std::string any()
    {
        static const char pieces[] = "aAbBgGiIzZ09-_ \t\n\v\f\r.,[]\"()#";
        std::string name;
        const int length = pick(0, 12);
        for (int i = 0; i < length; ++i) {
            if (pick(0, 9) == 0)
                name += static_cast<char>(pick(128, 255)); // Latin-1 or a UTF-8 byte
            else
                name += pieces[pick(0, sizeof pieces - 2)];
        }
        return name;
    }

    // A name that differs from `name` by case, by ignorable characters or by one character:
    // mostly equal under the loose comparison, sometimes not.
    std::string variant(const std::string &name)
    {
        std::string out;
        for (char c : name) {
            if (pick(0, 5) == 0)
                out += "-_ \t"[pick(0, 3)];
            if (pick(0, 3) == 0 && std::isalpha(static_cast<unsigned char>(c)))
                c = static_cast<char>(std::isupper(static_cast<unsigned char>(c))
                                          ? std::tolower(static_cast<unsigned char>(c))
                                          : std::toupper(static_cast<unsigned char>(c)));
            if (c == '_' && pick(0, 2) == 0)
                c = '-';
            out += c;
        }
        if (!out.empty() && pick(0, 4) == 0)
            out[pick(0, static_cast<int>(out.size()) - 1)] = static_cast<char>(pick(1, 255));
        return out;
    }

    std::pair<std::string, std::string> pair()
    {
        std::string a = any();
        std::string b = pick(0, 2) == 0 ? any() : variant(a);
        if (pick(0, 1) != 0)
            std::swap(a, b);
        return {a, b};
    }

    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

private:
    std::mt19937 random_;
};

// Runs `check` under the C locale and under every other installed locale that sets LC_CTYPE.
template <class Check> void under_every_locale(Check check)
{
    for (const char *name : {"C", "C.UTF-8", "C.utf8", "de_DE.UTF-8", "de_DE.ISO-8859-1",
                             "tr_TR.UTF-8", "tr_TR.ISO-8859-9", "en_US.UTF-8"}) {
        if (std::setlocale(LC_CTYPE, name) == nullptr)
            continue;
        SCOPED_TRACE(name);
        check();
    }
    std::setlocale(LC_CTYPE, "C");
}

int sign(int value) { return (value > 0) - (value < 0); }

} // namespace

TEST(NameCompareEquivalence, PublicComparisons)
{
    under_every_locale([] {
        name_source names(1);
        for (int i = 0; i < 100000; ++i) {
            const auto [a, b] = names.pair();
            const int n = names.pick(-1, 14);
            ASSERT_EQ(gx_strncmp_ci(a.c_str(), b.c_str(), n),
                      reference_strncmp_ci(a.c_str(), b.c_str(), n))
                << '"' << a << "\" \"" << b << "\" " << n;
            ASSERT_EQ(gx_strcmp_ci(a.c_str(), b.c_str()),
                      reference_strncmp_ci(a.c_str(), b.c_str(), -1));
            ASSERT_EQ(gx_strncmp_ci1(a.c_str(), b.c_str()),
                      reference_strncmp_ci(a.c_str(), b.c_str(), count_significant(a.c_str())));
            ASSERT_EQ(gx_strncmp_ci2(a.c_str(), b.c_str()),
                      reference_strncmp_ci(a.c_str(), b.c_str(), count_significant(b.c_str())));
            ASSERT_EQ(gx_strcmp_i(a.c_str(), b.c_str()), reference_strcmp_i(a.c_str(), b.c_str()))
                << '"' << a << "\" \"" << b << '"';
            ASSERT_EQ(gx_strstr_ci(a.c_str(), b.c_str()),
                      reference_strstr_ci(a.c_str(), b.c_str()));
            const std::string hay = a + b + a;
            ASSERT_EQ(gx_strstr_ci(hay.c_str(), b.c_str()),
                      reference_strstr_ci(hay.c_str(), b.c_str()));
        }
    });
}

TEST(NameCompareEquivalence, TableScansThatRememberTheLocale)
{
    under_every_locale([] {
        name_source names(2);
        for (int round = 0; round < 3000; ++round) {
            const std::string wanted = names.any();
            std::vector<std::string> rows;
            for (int i = 0; i < 12; ++i)
                rows.push_back(names.pick(0, 1) != 0 ? names.variant(wanted) : names.any());
            gx::remembered_classes classes;
            gx::loose_name loose(wanted.c_str(), classes);
            gx::caseless_name caseless(wanted.c_str(), classes);
            for (const std::string &row : rows) {
                ASSERT_EQ(loose.matches(row.c_str()),
                          gx_strcmp_ci(wanted.c_str(), row.c_str()) == 0)
                    << '"' << wanted << "\" \"" << row << '"';
                ASSERT_EQ(caseless.matches(row.c_str()),
                          gx_strcmp_i(wanted.c_str(), row.c_str()) == 0)
                    << '"' << wanted << "\" \"" << row << '"';
                ASSERT_EQ(sign(gx::loose_compare(wanted.c_str(), row.c_str(), -1, classes)),
                          sign(reference_strncmp_ci(wanted.c_str(), row.c_str(), -1)));
            }
        }
        gx::remembered_classes classes;
        EXPECT_FALSE(gx::loose_name(nullptr, classes).matches("a"));
        EXPECT_TRUE(gx::loose_name(nullptr, classes).matches("_ -"));
        EXPECT_TRUE(gx::caseless_name("", classes).matches(nullptr));
    });
}

TEST(NameCompareEquivalence, ClassesAgreeWithTheCLibrary)
{
    under_every_locale([] {
        gx::remembered_classes remembered;
        for (int round = 0; round < 2; ++round) // asked, then remembered
            for (int c = 0; c < 256; ++c) {
                const char ch = static_cast<char>(c);
                ASSERT_EQ(remembered.is_space(ch), std::isspace(c) != 0) << c;
                ASSERT_EQ(remembered.lower(ch), std::tolower(c)) << c;
                ASSERT_EQ(remembered.upper(ch), std::toupper(c)) << c;
                ASSERT_EQ(gx::locale_classes::is_space(ch), std::isspace(c) != 0) << c;
                ASSERT_EQ(gx::locale_classes::lower(ch), std::tolower(c)) << c;
                ASSERT_EQ(gx::locale_classes::upper(ch), std::toupper(c)) << c;
            }
    });
}

TEST(NameCompareEquivalence, BoundedCopyIncludingCopiesOntoTheSource)
{
    name_source names(3);
    for (int i = 0; i < 20000; ++i) {
        const std::string source = names.any() + names.any();
        const int n = names.pick(-1, 30);
        char expected[64];
        char actual[64];
        std::memset(expected, '#', sizeof expected);
        std::memset(actual, '#', sizeof actual);
        ASSERT_EQ(gx_strncpy(actual, source.c_str(), n),
                  reference_strncpy(expected, source.c_str(), n));
        ASSERT_EQ(std::memcmp(actual, expected, sizeof actual), 0);

        // Source and destination in one buffer, at every distance either way.
        const int shift = names.pick(-8, 8);
        char own[96];
        char own_expected[96];
        std::memset(own, '#', sizeof own);
        std::memcpy(own + 20, source.c_str(), source.size() + 1);
        std::memcpy(own_expected, own, sizeof own);
        ASSERT_EQ(gx_strncpy(own + 20 + shift, own + 20, n),
                  reference_strncpy(own_expected + 20 + shift, own_expected + 20, n));
        ASSERT_EQ(std::memcmp(own, own_expected, sizeof own), 0) << shift << ' ' << n;
    }
}
