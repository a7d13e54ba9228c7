// Spheroid, prime meridian, datum, parameter and array as text: round trips under every output
// option, the choice of type from text, every parse error of these types, name synonyms and the
// cut of a long array.
#include "gridex.h"
#include "gx_test_support.h"
#include "object/gx_components.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

struct sample {
    void *obj;
    const char *text[3]; // written with options 0, 1 and 2; null: as with the option before
};

// One object of each type, with codes so that options 1 and 2 have authorities to write.
std::vector<sample> samples()
{
    gx_spheroid *wgs84 = gx_spheroid_new("WGS_1984", 6378137.0, 1.0 / 298.257223563);
    gx_spheroid_code_set(wgs84, 7030, "EPSG", "6.13");
    gx_datum *datum = gx_datum_new("D_WGS_1984", wgs84);
    gx_datum_code_set(datum, 6326, "EPSG", "6.13");
    gx_primem *paris = gx_primem_new("Paris", 2.33722917);
    gx_primem_code_set(paris, 8903, "EPSG", "6.13");
    const double values[] = {0.5, -1.25, 1e-12};
    return {
        {datum,
         {"DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]]",
          "DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563],"
          "AUTHORITY[\"EPSG\",6326]]",
          "DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563,"
          "AUTHORITY[\"EPSG\",7030]],AUTHORITY[\"EPSG\",6326]]"}},
        {gx_spheroid_new("Sphere", 6371000.0, 0.0), {"SPHEROID[\"Sphere\",6371000.0,0.0]"}},
        {gx_spheroid_new("Flat", 1.0, 1.0), {"SPHEROID[\"Flat\",1.0,1.0]"}},
        {gx_primem_new("E", 180.0), {"PRIMEM[\"E\",180.0]"}},
        {gx_primem_new("W", -180.0), {"PRIMEM[\"W\",-180.0]"}},
        {paris,
         {"PRIMEM[\"Paris\",2.33722917]", "PRIMEM[\"Paris\",2.33722917,AUTHORITY[\"EPSG\",8903]]"}},
        // The registry gives the parameter its code.
        {gx_parameter_new("Central_Meridian", -123.0),
         {"PARAMETER[\"Central_Meridian\",-123.0]",
          "PARAMETER[\"Central_Meridian\",-123.0,AUTHORITY[\"TAVU\",100010]]"}},
        // Arrays never write an authority.
        {gx_array_new("Offsets", 3, values), {"ARRAY[\"Offsets\",3,0.5,-1.25,1e-12]"}},
    };
}

} // namespace

TEST(ComponentsWkt, EveryTypeRoundTripsUnderEveryOption)
{
    for (const sample &s : samples()) {
        for (int options : {0, 1, 2}) {
            char text[GX_TEXT_LEN], again_text[GX_TEXT_LEN];
            gx_object_to_string_ext(s.obj, options, text);
            const char *expected = s.text[0];
            for (int o = 1; o <= options; ++o)
                expected = s.text[o] != nullptr ? s.text[o] : expected;
            EXPECT_STREQ(text, expected);
            void *again = gx_object_from_string(text); // chooses the type from the keyword
            ASSERT_NE(again, nullptr) << text;
            EXPECT_EQ(gx_object_type(again), gx_object_type(s.obj)) << text;
            EXPECT_EQ(gx_object_eq(s.obj, again), 1) << text;
            EXPECT_EQ(gx_object_status(again), unsigned(GX_STATUS_STRING));
            EXPECT_STREQ(gx_object_to_string_ext(again, options, again_text), text);
            gx_object_del(again);
        }
        gx_object_del(s.obj);
    }
}

TEST(ComponentsWkt, EllipsoidIsReadAsSpheroidWithoutAMessage)
{
    message_recorder recorder;
    const char *text = "ELLIPSOID[\"GRS_1980\",6378137,298.257222101,AUTHORITY[\"EPSG\",7019]]";
    auto *sph = static_cast<gx_spheroid *>(gx_object_from_string(text));
    ASSERT_NE(sph, nullptr);
    EXPECT_EQ(gx_spheroid_type(sph), unsigned(GX_TYPE_SPHEROID));
    EXPECT_DOUBLE_EQ(gx_spheroid_flattening(sph), 1.0 / 298.257222101);
    char out[GX_TEXT_LEN];
    EXPECT_STREQ(gx_spheroid_to_string_ext(sph, 1, out),
                 "SPHEROID[\"GRS_1980\",6378137.0,298.257222101,AUTHORITY[\"EPSG\",7019]]");
    gx_spheroid_del(sph);

    // Inside a datum too; inverse flattening 0 is a sphere.
    auto *datum = gx_datum_from_string("DATUM[\"D\",ELLIPSOID[\"S\",6371000,0]]");
    ASSERT_NE(datum, nullptr);
    EXPECT_EQ(gx_spheroid_flattening(gx_datum_spheroid(datum)), 0.0);
    gx_datum_del(datum);
    EXPECT_TRUE(recorder.received.empty());
}

TEST(ComponentsWkt, DatumNamesFromTextGoThroughSynonyms)
{
    const char *spheroid = "\",SPHEROID[\"International_1924\",6378388,297]]";
    char name[GX_NAME_LEN];
    for (const char *old_name : {"D_Tahiti", "d tahiti", "D_Tahiti_1952"}) {
        gx_datum *datum = gx_datum_from_string(
            (std::string("DATUM[\"") + old_name + spheroid).c_str());
        EXPECT_STREQ(gx_datum_name(datum, name), "D_Tahiti_1952") << old_name;
        gx_datum_del(datum);
    }
    gx_datum *datum = gx_datum_from_string(
        (std::string("DATUM[\"D_Piton_des_Neiges") + spheroid).c_str());
    EXPECT_STREQ(gx_datum_name(datum, name), "D_Reunion_1947");
    gx_datum_del(datum);
    // The constructor keeps the name it is given.
    datum = gx_datum_new("D_Tahiti", gx_spheroid_new("International_1924", 6378388.0, 1 / 297.0));
    EXPECT_STREQ(gx_datum_name(datum, name), "D_Tahiti");
    gx_datum_del(datum);
}

TEST(ComponentsWkt, EveryParseErrorIsReportedAndLeaksNothing)
{
    const char *const wkt_function[] = {"gx_spheroid_from_string", "gx_spheroid from string"};
    const struct {
        const char *text;
        unsigned int number, category;
        const char *function, *message;
    } cases[] = {
        {"DATUM[\"D\",SPHEROID[\"S\",1,0],ELLIPSOID[\"S\",1,0]]", 415, 16, "gx_datum_from_string",
         "Duplicate spheroid in WKT string"},
        {"PRIMEM[\"P\",180.0001]", 419, 16, "gx_primem_from_string",
         "Longitude (180.0001) in WKT string is < -180 or > 180"},
        {"PRIMEM[\"P\",nan]", 419, 16, "gx_primem_from_string",
         "Longitude (nan) in WKT string is < -180 or > 180"},
        {"SPHEROID[\"S\",0,300]", 420, 16, wkt_function[1],
         "Semimajor axis (0) in WKT string is <= 0"},
        {"DATUM[\"D\",ELLIPSOID[\"S\",-1,300]]", 420, 16, wkt_function[1],
         "Semimajor axis (-1) in WKT string is <= 0"},
        {"SPHEROID[\"S\",6378137,0.5]", 421, 16, wkt_function[1],
         "Flattening inverse (0.5) in WKT string is not 0 and is < 1"},
        {"SPHEROID[\"S\",6378137,-300]", 421, 16, wkt_function[1],
         "Flattening inverse (-300) in WKT string is not 0 and is < 1"},
        {"ARRAY[\"A\",3,1,2]", 425, 16, "gx_array_from_string",
         "Num_values (3) in WKT string is != number of values (2)"},
        {"ARRAY[\"A\",1,1,2,AUTHORITY[\"EPSG\",1]]", 425, 16, "gx_array_from_string",
         "Num_values (1) in WKT string is != number of values (2)"},
        {"DATUM[\"D\",AUTHORITY[\"EPSG\",6326]]", 442, 16, "gx_datum_from_string",
         "Missing spheroid in WKT string"},
        {"ARRAY[A[1]]", 448, 16, "gx_array_from_string", "Missing num_values in WKT string"},
        {"PRIMEM[\"P\",AUTHORITY[\"EPSG\",8901]]", 449, 16, "gx_primem_from_string",
         "Missing longitude in WKT string"},
        {"PARAMETER[\"P\",AUTHORITY[\"EPSG\",1]]", 450, 16, "gx_parameter_from_string",
         "Missing parameter value in WKT string"},
        {"SPHEROID[\"S\",AUTHORITY[\"EPSG\",7030]]", 451, 16, wkt_function[0],
         "Missing semimajor axis in WKT string"},
        {"SPHEROID[\"S\",6378137,AUTHORITY[\"EPSG\",7030]]", 452, 16, wkt_function[0],
         "Missing flattening in WKT string"},
        {"SPHEROID[\"S\",6378137]", 459, 16, wkt_function[0], "Insufficient tokens in WKT string"},
        {"DATUM[]", 459, 16, "gx_datum_from_string", "Insufficient tokens in WKT string"},
        {"PARAMETER[\"P\",1,AUTHORITY[\"EPSG\",1],AUTHORITY[\"EPSG\",2]]", 403, 16,
         "gx_parameter_from_string", "Duplicate authority in WKT string"},
        // Constructor checks reached through text (category 8).
        {"ARRAY[\"A\",0]", 310, 8, "gx_array_new", "Invalid num_values argument (0) for array"},
        {"DATUM[\"D\",SPHEROID[\"S\",1,0],AUTHORITY[\"EPSG\",0]]", 311, 8, "gx_authority_new",
         "Invalid authority code argument (0)"},
    };
    for (const auto &c : cases) {
        gx_err_rec err;
        EXPECT_EQ(gx_object_from_string_errext(c.text, &err), nullptr) << c.text;
        EXPECT_EQ(err.level, 2u) << c.text;
        EXPECT_EQ(err.number, c.number) << c.text;
        EXPECT_EQ(err.category, c.category) << c.text;
        EXPECT_STREQ(err.function, c.function) << c.text;
        EXPECT_STREQ(err.message, c.message) << c.text;

        // Without a caller's record the walk goes to the end; the error still reaches the
        // message routine.
        message_recorder recorder;
        EXPECT_EQ(gx_object_from_string(c.text), nullptr);
        ASSERT_FALSE(recorder.received.empty()) << c.text;
        EXPECT_EQ(recorder.received.back().number, c.number) << c.text;
    }
}

TEST(ComponentsWkt, TokenParsersCheckKeywordAndStart)
{
    gx_token_list list;
    const char *primem = "PRIMEM[\"Greenwich\",0,AUTHORITY[\"EPSG\",8901]]";
    ASSERT_EQ(gx_objstring_to_tokens(&list, primem, nullptr), 0);
    gx_err_rec err;
    EXPECT_EQ(gx::spheroid_from_tokens(&list, 0, nullptr, &err), nullptr);
    EXPECT_EQ(err.number, 466u);
    EXPECT_STREQ(err.message, "Object type keyword \"SPHEROID\" not found in WKT string");

    EXPECT_EQ(gx::array_from_tokens(&list, 9, nullptr, &err), nullptr);
    EXPECT_EQ(err.number, 462u);
    EXPECT_STREQ(err.function, "gx_array_from_string");
    EXPECT_STREQ(err.message, "Token start (9) int WKT string is out of range");
    EXPECT_EQ(gx::datum_from_tokens(&list, 9, nullptr, &err), nullptr);
    EXPECT_STREQ(err.message, "Token start (9) in WKT string is out of range");
}

TEST(ComponentsWkt, LongArrayIsCutAfterTheLastValueThatFits)
{
    // ARRAY["a",300 is 13 characters and each ",1.0" 4 more: 252 values fill exactly 1021.
    const std::vector<double> ones(300, 1.0);
    gx_array *array = gx_array_new("a", 300, ones.data());
    char text[GX_TEXT_LEN];
    gx_array_to_string(array, text);
    EXPECT_EQ(std::strlen(text), 1022u);
    std::string expected = "ARRAY[\"a\",300";
    for (int i = 0; i < 252; ++i)
        expected += ",1.0";
    EXPECT_EQ(text, expected + "]");
    gx_array_del(array);

    // A value that would pass the limit ends the text even when a shorter one would still fit.
    std::vector<double> mixed(300, 1.0);
    mixed[251] = 0.1234567890123456;
    array = gx_array_new("a", 300, mixed.data());
    gx_array_to_string(array, text);
    EXPECT_EQ(std::strlen(text), 13u + 4u * 251u + 1u);
    gx_array_del(array);
}
