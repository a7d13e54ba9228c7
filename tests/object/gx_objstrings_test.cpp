// WKT tokens and number text: every tokenizer error, the walk's errors on the unit and authority
// types, the written number forms and their independence of the locale.
#include "gridex.h"
#include "gx_test_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>

namespace {

struct tokens {
    std::unique_ptr<gx_token_list> list = std::make_unique<gx_token_list>();
    int rc = 0;
    tokens(const char *text, const char *keyword = nullptr)
    {
        rc = gx_objstring_to_tokens(list.get(), text, keyword);
    }
    std::string text(int i) const { return list->tokens[i].text; }
    int level(int i) const { return list->tokens[i].level; }
};

std::string dtoa(double value)
{
    char buf[64];
    return gx_dtoa(value, buf, 16);
}

std::string unit_text(const char *wkt, int options = 0)
{
    gx_unit *unit = gx_unit_from_string(wkt);
    char buf[GX_TEXT_LEN] = "(none)";
    if (unit != nullptr)
        gx_unit_to_string_ext(unit, options, buf);
    gx_unit_del(unit);
    return buf;
}

unsigned int unit_error(const char *wkt, std::string *message = nullptr)
{
    gx_err_rec err;
    gx_unit *unit = gx_unit_from_string_errext(wkt, &err);
    gx_unit_del(unit);
    if (message != nullptr)
        *message = err.message;
    return unit != nullptr ? 0 : err.number;
}

} // namespace

TEST(Tokenizer, SplitsIntoLeveledNormalizedTokens)
{
    tokens t("DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]]");
    ASSERT_EQ(t.rc, 0);
    ASSERT_EQ(t.list->count, 6);
    const char *texts[] = {"DATUM",    "D_WGS_1984", "SPHEROID",
                           "WGS_1984", "6378137.0",  "298.257223563"};
    const int levels[] = {0, 1, 1, 2, 2, 2};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(t.text(i), texts[i]);
        EXPECT_EQ(t.level(i), levels[i]);
    }
    // Blanks around names dropped, a tab read as a blank, parentheses read as brackets; the
    // list starts at the keyword asked for.
    const struct {
        const char *text, *keyword;
        int count;
        const char *name;
    } cases[] = {
        {"UNIT [ \"  Meter \" , 1 ]", nullptr, 3, "Meter"},
        {"UNIT[\"Us\tFoot (survey)\",0.3048006096012192]", nullptr, 3, "Us Foot [survey]"},
        {"UNIT(\"m\",1)", nullptr, 3, "m"},
        {"GEOGCS[\"g\",UNIT[\"Degree\",0.0174532925199433]]", "unit", 3, "Degree"},
        {"UNIT[\"\",1]", nullptr, 3, ""},
    };
    for (const auto &c : cases) {
        tokens n(c.text, c.keyword);
        ASSERT_EQ(n.rc, 0) << c.text;
        EXPECT_EQ(n.list->count, c.count) << c.text;
        EXPECT_EQ(n.text(0), "UNIT") << c.text;
        EXPECT_EQ(n.text(1), c.name) << c.text;
    }
}

TEST(Tokenizer, EveryErrorNumber)
{
    struct {
        const char *text;
        const char *keyword;
        int rc;
        unsigned int level, number;
        const char *message;
    } cases[] = {
        {"GEOGCS[\"g\"]", "UNIT", -1, 2, 466,
         "Object type keyword \"UNIT\" not found in WKT string"},
        {"   \t ", nullptr, -1, 4, 457, "Empty WKT string"},
        {" 1UNIT[\"m\",1]", nullptr, -1, 2, 463, "WKT string must start with a letter"},
        {"UNIT[\"Meter\"x,1]", nullptr, -1, 2, 458, "Expecting ',' or ']' in WKT string"},
        {"DATUM[\"d\",SPHEROID[\"s\",1,0]x]", nullptr, -1, 2, 458,
         "Expecting ',' or ']' in WKT string"},
        {"UNIT[\"m,1]", nullptr, -1, 2, 469, "Unbalanced quotes in WKT string"},
        {"UNIT[\"m\",1", nullptr, 0, 4, 464, "Missing 1 closing ] character in WKT string"},
        {"DATUM[\"d\",SPHEROID[\"s\",1,0", nullptr, 0, 4, 464,
         "Missing 2 closing ] characters in WKT string"},
        {"UNIT[\"m\",1]x", nullptr, 0, 0, 0, ""},
    };
    for (const auto &c : cases) {
        tokens t(c.text, c.keyword);
        EXPECT_EQ(t.rc, c.rc) << c.text;
        EXPECT_EQ(t.list->error_level, c.level) << c.text;
        EXPECT_EQ(t.list->error_number, c.number) << c.text;
        EXPECT_STREQ(t.list->message, c.message) << c.text;
    }

    // 256 tokens fit, the 257th does not.
    std::string text = "ARRAY[\"a\",253";
    for (int i = 0; i < 253; ++i)
        text += ",1";
    text += "]";
    EXPECT_EQ(tokens(text.c_str()).rc, 0);
    text.insert(text.size() - 1, ",1");
    tokens many(text.c_str());
    EXPECT_EQ(many.list->error_number, 468u);
    EXPECT_STREQ(many.list->message, "Token count in WKT string exceeds 256");

    // 1023 normalized characters fit, 1024 do not; dropped blanks do not count.
    std::string name(1023 - 10, 'n');
    std::string fits = "UNIT[\"" + name + "\",1]";
    ASSERT_EQ(fits.size(), 1023u);
    EXPECT_EQ(tokens(fits.c_str()).rc, 0);
    EXPECT_EQ(tokens(("UNIT[ \"" + name + "\" , 1 ]").c_str()).rc, 0);
    tokens too_long(("UNIT[\"" + name + "n\",1]").c_str());
    EXPECT_EQ(too_long.list->error_number, 467u);
    EXPECT_STREQ(too_long.list->message, "WKT string length exceeds 1023 characters");
}

TEST(WktWalk, ParseErrorsOfUnitAndAuthority)
{
    const struct {
        const char *text;
        unsigned int number;
        const char *message; // null: not compared
    } cases[] = {
        {nullptr, 456, "Null WKT string"},
        {"UNIT[\"m\"]", 459, nullptr},
        {"UNIT[\"m\",AUTHORITY[\"EPSG\",9001]]", 455, nullptr},
        {"UNIT[\"m\",0]", 422, "Unit factor (0) in WKT string is <= 0"},
        {"UNIT[\"m\",1,AUTHORITY[\"EPSG\",9001],AUTHORITY[\"EPSG\",9001]]", 403,
         "Duplicate authority in WKT string"},
        {"UNIT[\"m\",1,AUTHORITY[\"EPSG\"]]", 459, nullptr},
    };
    for (const auto &c : cases) {
        std::string message;
        EXPECT_EQ(unit_error(c.text, &message), c.number) << (c.text ? c.text : "null");
        if (c.message != nullptr) {
            EXPECT_EQ(message, c.message);
        }
    }

    // Token errors reported through the entry point carry category 16 and its function name.
    gx_err_rec err;
    EXPECT_EQ(gx_unit_from_string_errext("   ", &err), nullptr);
    EXPECT_EQ(err.number, 466u); // the keyword is looked for first
    EXPECT_EQ(gx_unit_from_string_errext("UNIT[\"m,1]", &err), nullptr);
    expect_error(err, 2, 16, 469, "gx_unit_from_string", nullptr);

    // The walk's own start check.
    EXPECT_EQ(gx_object_from_string_by_type_errext(0x1234, "UNIT[\"m\",1]", &err), nullptr);
    EXPECT_EQ(err.number, 426u);
    EXPECT_STREQ(err.message, "Invalid object type (001234)");
}

TEST(WktWalk, AcceptsUnitsAndAuthoritiesInTheirForms)
{
    EXPECT_EQ(unit_text("UNIT[\"Degree\",0.017453292519943295,AUTHORITY[\"EPSG\",9102]]", 1),
              "UNIT[\"Degree\",0.0174532925199433,AUTHORITY[\"EPSG\",9102]]");
    EXPECT_EQ(unit_text("UNIT[\"Degree\",0.017453292519943295,AUTHORITY[\"EPSG\",9102]]", 0),
              "UNIT[\"Degree\",0.0174532925199433]");
    // Unknown sub-objects and surplus values are skipped; text after the object is ignored.
    EXPECT_EQ(unit_text("UNIT[\"m\",1,FOO[\"x\",BAR[1]],7]garbage"), "UNIT[\"m\",1.0]");
    // The first UNIT of a larger text.
    EXPECT_EQ(unit_text("GEOGCS[\"g\",UNIT[\"Degree\",0.0174532925199433]]"),
              "UNIT[\"Degree\",0.0174532925199433]");

    for (const char *text : {"AUTHORITY[\"EPSG\",4326,\"x\"]", "AUTHORITY[\"EPSG\",\"x\",4326]"}) {
        gx_authority *auth = gx_authority_from_string(text);
        ASSERT_NE(auth, nullptr) << text;
        EXPECT_EQ(gx_authority_authcode(auth), 4326);
        EXPECT_STREQ(gx_authority_version(auth), "x");
        char buf[GX_TEXT_LEN];
        EXPECT_STREQ(gx_authority_to_string_ext(auth, 2, buf), "AUTHORITY[\"EPSG\",4326]");
        gx_authority_del(auth);
    }

    // A parsed object carries status 2; a warning leaves the caller's record empty.
    gx_err_rec err;
    gx_unit *unit = gx_unit_from_string_errext("UNIT[\"m\",1", &err);
    ASSERT_NE(unit, nullptr);
    EXPECT_EQ(gx_unit_status(unit), 2u);
    EXPECT_EQ(err.number, 0u);
    gx_unit_del(unit);
}

TEST(WktWalk, GenericEntryPointsPickTheType)
{
    void *obj = gx_object_from_string("  unit[\"m\",1]");
    EXPECT_EQ(gx_object_type(obj), 0x300u);
    gx_object_del(obj);
    obj = gx_object_from_string_by_type(0x100, "UNIT[\"m\",1]");
    EXPECT_EQ(gx_object_type(obj), 0x300u);
    gx_object_del(obj);

    gx_err_rec err;
    EXPECT_EQ(gx_object_from_string_errext("FOO[\"x\",1]", &err), nullptr);
    EXPECT_EQ(err.number, 461u);
    EXPECT_STREQ(err.message, "Unrecognized object keyword \"FOO[\"x\",1\" in WKT string");
    EXPECT_EQ(gx_object_from_string_errext("123", &err), nullptr);
    EXPECT_EQ(err.number, 0u);
    EXPECT_EQ(gx_object_from_string_errext(nullptr, &err), nullptr);
    EXPECT_EQ(err.number, 456u);
    EXPECT_STREQ(err.function, "gx_object_from_string");
}

TEST(NumberText, WrittenAndReadForms)
{
    EXPECT_EQ(dtoa(6378137.0), "6378137.0");
    EXPECT_EQ(dtoa(298.257223563), "298.257223563");
    EXPECT_EQ(dtoa(0.017453292519943295), "0.0174532925199433");
    EXPECT_EQ(dtoa(0.0), "0.0");
    EXPECT_EQ(dtoa(1e20), "1.000000e+20");
    EXPECT_EQ(dtoa(1.5e-12), "1.5e-12");
    EXPECT_EQ(dtoa(0.1), "0.1");
    EXPECT_EQ(dtoa(-0.9996), "-0.9996");
    EXPECT_EQ(dtoa(500000.0), "500000.0");
    EXPECT_EQ(dtoa(0.3048006096012192), "0.3048006096012192");
    EXPECT_EQ(dtoa(100.0), "100.0");
    char buf[8];
    EXPECT_EQ(gx_dtoa(1.0, nullptr, 16), nullptr);
    EXPECT_STREQ(gx_dtoa(1.0, buf, 16), "1.0");

    EXPECT_EQ(gx_atod(nullptr), 0.0);
    EXPECT_EQ(gx_atod(""), 0.0);
    EXPECT_EQ(gx_atod("2.5xyz"), 2.5);
    EXPECT_EQ(gx_get_decimal_point_char(), '.');
}

TEST(NumberText, IndependentOfTheLocale)
{
    comma_locale locale;
    if (!locale.active())
        GTEST_SKIP() << "no locale with ',' as decimal point is installed";
    EXPECT_EQ(gx_atod("1.5"), 1.5);
    EXPECT_EQ(dtoa(298.257223563), "298.257223563");
    EXPECT_EQ(unit_text("UNIT[\"Degree\",0.0174532925199433]"),
              "UNIT[\"Degree\",0.0174532925199433]");

    // Round trip to 15 significant digits between 1e-9 and 1e16 (beyond, the exponent forms
    // keep fewer digits by design: six decimals above, 14 or 15 significant digits below).
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> exponent(-8, 14);
    for (int i = 0; i < 20000; ++i) {
        const double value = mantissa(random) * std::pow(10.0, exponent(random));
        const double back = gx_atod(dtoa(value).c_str());
        const double unit15 = std::pow(10.0, std::floor(std::log10(std::fabs(value))) - 14);
        ASSERT_LE(std::fabs(back - value), unit15) << dtoa(value);
    }
}
