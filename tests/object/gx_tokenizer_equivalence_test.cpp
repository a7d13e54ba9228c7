// The tokenizer against the character-by-character version it replaced: every field of the
// token record (the normalized text byte for byte, the tokens as places in it, the count, the
// error level, number and message) must come out the same, on mutated WKT texts with white
// space of every kind, quotes, brackets, parentheses and bytes above 127, under every locale the
// machine has, and on texts that reach the length and token limits.
#include "gridex.h"

#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstdarg>
#include <cstddef>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace reference {


namespace detail {

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
                return detail::fail(list, GX_ERRLVL_ERROR, 467, "WKT string length exceeds %d characters",
                            max_text);
            if (!quoted && out[length - 1] == ']')
                return detail::fail(list, GX_ERRLVL_ERROR, 458, expecting_message);
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
                    return detail::fail(list, GX_ERRLVL_ERROR, 458, expecting_message);
            }
            continue;
        }
        if (quoted) {
            if (length >= max_text)
                return detail::fail(list, GX_ERRLVL_ERROR, 467, "WKT string length exceeds %d characters",
                            max_text);
            out[length++] = is_space(c) ? ' ' : c;
            continue;
        }
        if (is_space(c))
            continue;
        if (c == ']' && depth == 0)
            break;
        if (out[length - 1] == ']' && c != ']' && c != ',')
            return detail::fail(list, GX_ERRLVL_ERROR, 458, expecting_message);
        if (length >= max_text)
            return detail::fail(list, GX_ERRLVL_ERROR, 467, "WKT string length exceeds %d characters",
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
        return detail::fail(list, GX_ERRLVL_ERROR, 469, "Unbalanced quotes in WKT string");
    return depth;
}

} // namespace detail

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

int objstring_to_tokens(gx_token_list *list, const char *text, const char *keyword)
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
            return detail::fail(list, GX_ERRLVL_ERROR, 466,
                        "Object type keyword \"%s\" not found in WKT string", keyword);
        text = found;
    }
    while (detail::is_space(*text))
        ++text;
    if (*text == '\0')
        return detail::fail(list, GX_ERRLVL_WARNING, 457, "Empty WKT string");
    if (!std::isalpha(static_cast<unsigned char>(*text)))
        return detail::fail(list, GX_ERRLVL_ERROR, 463, "WKT string must start with a letter");

    const int open = detail::normalize(list, text);
    if (open < 0)
        return -1;
    if (open > 0) // the missing brackets count as present at the end
        detail::fail(list, GX_ERRLVL_WARNING, 464, "Missing %d closing ] character%s in WKT string", open,
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
                return detail::fail(list, GX_ERRLVL_ERROR, 468, "Token count in WKT string exceeds %d",
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

} // namespace reference

namespace {

std::vector<std::string> seed_texts()
{
    std::string many = "ARRAY[\"a\",300";
    for (int i = 0; i < 300; ++i)
        many += ",1";
    many += "]";
    return {
        "PROJCS[\"WGS_1984_UTM_Zone_33N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
        "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
        "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
        "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
        "PARAMETER[\"Central_Meridian\",15.0],PARAMETER[\"Scale_Factor\",0.9996],"
        "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0],AUTHORITY[\"EPSG\",32633]]",
        "  unit ( \" Meter \" , 1 ) trailing",
        "UNIT[\"m\",1",
        "DATUM[\"d\",SPHEROID[\"s\",1,0]x]",
        "UNIT[\"Meter\"x,1]",
        "UNIT[\"a\tb\",1]]]",
        "UNIT[\"" + std::string(1030, 'x') + "\",1]",
        "UNIT[\"" + std::string(1015, 'y') + "\",1]",
        many,
    };
}

std::string mutate(const std::string &text, std::mt19937 &random)
{
    static const char inserts[] = "[](),\"\" \t\n\v\f\rAUTHORITY0-9e._+\xa0\xc3\xa9";
    std::string out = text;
    const int edits = 1 + static_cast<int>(random() % 4);
    for (int e = 0; e < edits && !out.empty(); ++e) {
        const std::size_t at = random() % (out.size() + 1);
        switch (random() % 5) {
        case 0:
            out.resize(at);
            break;
        case 1:
            out.insert(at, 1, inserts[random() % (sizeof inserts - 1)]);
            break;
        case 2:
            if (at < out.size())
                out.erase(at, 1);
            break;
        case 3:
            if (at < out.size())
                out.insert(at, 1, out[at]);
            break;
        default:
            out.insert(at, out.substr(at, random() % 40));
            break;
        }
    }
    return out;
}

// Fills a record with the same garbage for both tokenizers, so that every byte can be compared.
std::unique_ptr<gx_token_list> garbage_record()
{
    auto list = std::make_unique<gx_token_list>();
    std::memset(list.get(), 0x5a, sizeof *list);
    return list;
}

void expect_same_tokens(const std::string &text, const char *keyword)
{
    auto expected = garbage_record();
    auto actual = garbage_record();
    const int expected_rc = reference::objstring_to_tokens(expected.get(), text.c_str(), keyword);
    const int actual_rc = gx_objstring_to_tokens(actual.get(), text.c_str(), keyword);
    ASSERT_EQ(actual_rc, expected_rc) << text;
    ASSERT_EQ(std::memcmp(actual->text, expected->text, sizeof actual->text), 0) << text;
    ASSERT_EQ(actual->count, expected->count) << text;
    ASSERT_EQ(actual->error_level, expected->error_level) << text;
    ASSERT_EQ(actual->error_number, expected->error_number) << text;
    ASSERT_EQ(std::memcmp(actual->message, expected->message, sizeof actual->message), 0) << text;
    for (int i = 0; i < GX_MAX_TOKENS; ++i) {
        const bool set = i < expected->count;
        ASSERT_EQ(actual->tokens[i].level, expected->tokens[i].level) << text << ' ' << i;
        if (set)
            ASSERT_EQ(actual->tokens[i].text - actual->text,
                      expected->tokens[i].text - expected->text)
                << text << ' ' << i;
        else
            ASSERT_EQ(std::memcmp(&actual->tokens[i].text, &expected->tokens[i].text,
                                  sizeof(char *)),
                      0);
    }
}

template <class Check> void under_every_locale(Check check)
{
    for (const char *name : {"C", "C.UTF-8", "C.utf8", "de_DE.UTF-8", "de_DE.ISO-8859-1",
                             "tr_TR.ISO-8859-9", "en_US.UTF-8"}) {
        if (std::setlocale(LC_CTYPE, name) == nullptr)
            continue;
        SCOPED_TRACE(name);
        check();
    }
    std::setlocale(LC_CTYPE, "C");
}

} // namespace

TEST(TokenizerEquivalence, MutatedTexts)
{
    under_every_locale([] {
        std::mt19937 random(11);
        const char *keywords[] = {nullptr, "", "UNIT", "PROJCS", "geogcs", "ARRAY", "NONE"};
        for (const std::string &seed : seed_texts()) {
            expect_same_tokens(seed, nullptr);
            for (int i = 0; i < 4000; ++i) {
                const std::string text = mutate(seed, random);
                expect_same_tokens(text, keywords[random() % 7]);
            }
        }
    });
}

TEST(TokenizerEquivalence, LengthAndTokenLimits)
{
    for (int length = 1000; length <= 1030; ++length) {
        expect_same_tokens("UNIT[\"" + std::string(length, 'n') + "\",1]", nullptr);
        expect_same_tokens("UNIT[\"" + std::string(length, '_') + "\",1]", nullptr);
        expect_same_tokens("UNIT[n" + std::string(length, '1') + ",1]", nullptr);
        expect_same_tokens("UNIT[\"a\"," + std::string(length, '2') + "]", nullptr);
    }
    for (int count = 250; count <= 260; ++count) {
        std::string text = "ARRAY[\"a\"";
        for (int i = 0; i < count; ++i)
            text += ",1";
        expect_same_tokens(text + "]", nullptr);
    }
}
