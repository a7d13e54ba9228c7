// The coordinate-system types as text: round trips under every output option, the choice of
// type from text (the compound-system rule included), every parse error of these types, the
// level-4 warnings of a vertical system, name synonyms and the length limits of the written text.
#include "gridex.h"
#include "gx_coordsys_samples.h"
#include "gx_test_support.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using samples::geogcs;
using samples::projcs;
using samples::vertcs;

namespace {

const std::string auth(const char *name, int code)
{
    return ",AUTHORITY[\"" + std::string(name) + "\"," + std::to_string(code) + "]";
}

// Inserts an AUTHORITY clause before the last closing bracket of a text.
std::string with_authority(const std::string &text, int code)
{
    return text.substr(0, text.size() - 1) + auth("EPSG", code) + "]";
}

} // namespace

TEST(CoordsysWkt, EveryTypeRoundTripsUnderEveryOption)
{
    const std::string texts[] = {
        with_authority(geogcs, 4326),
        with_authority(projcs, 32633),
        with_authority("GEOXYZCS[\"WGS_1984_XYZ\"," + geogcs + ",UNIT[\"Meter\",1.0]]", 4978),
        with_authority("VDATUM[\"North_American_Vertical_Datum_1988\"]", 5103),
        with_authority(vertcs, 5703),
        "VERTCS[\"Ellipsoidal\"," + samples::datum +
            ",PARAMETER[\"Vertical_Shift\",0.0],PARAMETER[\"Direction\",-1.0]"
            ",UNIT[\"Foot\",0.3048]]",
        "HVCOORDSYS[\"UTM and NAVD\"," + projcs + "," + vertcs + "]",
        "HVCOORDSYS[\"\"," + geogcs + "]",
        "HVCOORDSYS[\"\"," + vertcs + "]",
    };
    for (const std::string &source : texts) {
        void *obj = gx_object_from_string(source.c_str());
        ASSERT_NE(obj, nullptr) << source;
        char text[GX_TEXT_LEN], again_text[GX_TEXT_LEN];
        EXPECT_EQ(std::string(gx_object_to_string_ext(obj, 1, text)), source);
        for (int options : {0, 1, 2}) {
            gx_object_to_string_ext(obj, options, text);
            void *again = gx_object_from_string(text);
            ASSERT_NE(again, nullptr) << text;
            EXPECT_EQ(gx_object_type(again), gx_object_type(obj)) << text;
            EXPECT_EQ(gx_object_eq(obj, again), 1) << text;
            EXPECT_EQ(gx_object_status(again), unsigned(GX_STATUS_STRING)) << text;
            EXPECT_STREQ(gx_object_to_string_ext(again, options, again_text), text);
            gx_object_del(again);
        }
        gx_object_del(obj);
    }
}

TEST(CoordsysWkt, OptionsWriteAuthoritiesOfTheObjectOrOfEveryLevel)
{
    gx_projcs *cs = gx_projcs_from_string(with_authority(projcs, 32633).c_str());
    ASSERT_NE(cs, nullptr);
    gx_geogcs_code_set(gx_projcs_geogcs(cs), 4326, "EPSG", "6.13");
    char text[GX_TEXT_LEN];
    EXPECT_EQ(std::string(gx_projcs_to_string(cs, text)), projcs);
    const std::string level2 = gx_projcs_to_string_ext(cs, 2, text);
    EXPECT_NE(level2.find(auth("EPSG", 4326) + "],PROJECTION[\"Transverse_Mercator\"" +
                          auth("TAVU", 43006) + "],PARAMETER[\"False_Easting\",500000.0" +
                          auth("TAVU", 100001) + "]"),
              std::string::npos)
        << level2;
    EXPECT_TRUE(level2.ends_with(",UNIT[\"Meter\",1.0]" + auth("EPSG", 32633) + "]")) << level2;
    gx_projcs_del(cs);
}

TEST(CoordsysWkt, ObjectFromStringChoosesTheType)
{
    const std::string vdatum = "VDATUM[\"v\"]";
    const struct {
        std::string text;
        unsigned int type;
    } cases[] = {
        {"  geogcs" + geogcs.substr(6), GX_TYPE_GEOGCS},
        {projcs, GX_TYPE_PROJCS},
        {"GEOXYZCS[\"x\"," + geogcs + ",UNIT[\"Meter\",1.0]]", GX_TYPE_GEOXYZCS},
        {vdatum, GX_TYPE_VDATUM},
        {vertcs, GX_TYPE_VERTCS},
        {"HVCOORDSYS[\"h\"," + geogcs + "]", GX_TYPE_HVCOORDSYS},
        // A horizontal and a vertical keyword anywhere make a compound system, in either order
        // and whatever keyword comes first.
        {geogcs + "," + vertcs, GX_TYPE_HVCOORDSYS},
        {vertcs + " " + projcs, GX_TYPE_HVCOORDSYS},
        {"vdatum[\"v\"] " + vertcs + "," + geogcs, GX_TYPE_HVCOORDSYS},
    };
    for (const auto &c : cases) {
        void *obj = gx_object_from_string(c.text.c_str());
        ASSERT_NE(obj, nullptr) << c.text;
        EXPECT_EQ(gx_object_type(obj), c.type) << c.text;
        gx_object_del(obj);
    }
}

TEST(CoordsysWkt, CompoundSystemWithoutWrapper)
{
    // The projected system is preferred to the geographic one, wherever each stands.
    const std::string text = geogcs + "," + vertcs + "," + projcs;
    gx_hvcoordsys *cs = gx_hvcoordsys_from_string(text.c_str());
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(gx_object_type(gx_hvcoordsys_coordsys(cs)), unsigned(GX_TYPE_PROJCS));
    EXPECT_EQ(gx_hvcoordsys_status(cs), unsigned(GX_STATUS_STRING));
    char buf[GX_TEXT_LEN];
    EXPECT_STREQ(gx_hvcoordsys_to_string(cs, buf),
                 ("HVCOORDSYS[\"\"," + projcs + "," + vertcs + "]").c_str());
    gx_hvcoordsys_del(cs);

    cs = gx_hvcoordsys_from_string(vertcs.c_str()); // one part is enough
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(gx_hvcoordsys_coordsys(cs), nullptr);
    gx_hvcoordsys_del(cs);
}

// Every parse error of these types, with the caller's record (the first error ends the parse)
// and without one (the walk goes on and every error reaches the message routine).  Nothing may
// leak either way.
TEST(CoordsysWkt, ParseErrors)
{
    const std::string datum = samples::datum;
    const std::string primem = "PRIMEM[\"Greenwich\",0.0]";
    const std::string degree = "UNIT[\"Degree\",0.0174532925199433]";
    const std::string meter = "UNIT[\"Meter\",1.0]";
    const std::string proj = samples::projection;
    const std::string vdatum = "VDATUM[\"v\"]";
    const std::string shift = "PARAMETER[\"Vertical_Shift\",0.0]";
    auto projected = [&](const std::string &middle) {
        return "PROJCS[\"p\"," + geogcs + "," + proj + "," + middle + "," + meter + "]";
    };
    const struct {
        unsigned int type; // what to parse as (0: choose from the text)
        std::string text;
        unsigned int number;
        const char *function;
        const char *message;
    } cases[] = {
        {0, "GEOGCS[\"g\"," + datum + "," + primem + "," + degree + "," + degree + "]", 401,
         "gx_geogcs_from_string", "Duplicate unit in WKT string"},
        {0, "GEOXYZCS[\"x\"," + geogcs + "," + meter + "," + meter + "]", 401,
         "gx_geoxyzcs_from_string", "Duplicate angular unit in WKT string"},
        {0, "HVCOORDSYS[\"h\"," + geogcs + "," + projcs + "]", 404, "gx_hvcoordsys_from_string",
         "Duplicate coordsys in WKT string"},
        {0, "GEOGCS[\"g\"," + datum + "," + datum + "," + primem + "," + degree + "]", 405,
         "gx_geogcs_from_string", "Duplicate datum in WKT string"},
        {0, "PROJCS[\"p\"," + geogcs + "," + geogcs + "," + proj + "," + meter + "]", 406,
         "gx_projcs_from_string", "Duplicate geographic CS in WKT string"},
        {0, "GEOXYZCS[\"x\"," + geogcs + "," + geogcs + "," + meter + "]", 406,
         "gx_geoxyzcs_from_string", "Duplicate geographic CS in WKT string"},
        {0, "VERTCS[\"v\"," + vdatum + "," + datum + "," + meter + "]", 408,
         "gx_vertcs_from_string", "Duplicate hvdatum in WKT string"},
        {0, projected(meter), 409, "gx_projcs_from_string", "Duplicate linear unit in WKT string"},
        {0, "VERTCS[\"v\"," + vdatum + "," + meter + "," + meter + "]", 409,
         "gx_vertcs_from_string", "Duplicate linear unit in WKT string"},
        {0, projected("PARAMETER[\"Central_Meridian\",1],PARAMETER[\"central_meridian\",2]"), 411,
         "gx_projcs_from_string", "Duplicate parameter \"central_meridian\" in WKT string"},
        // Two names for one slot are one parameter given twice.
        {0, projected("PARAMETER[\"Central_Meridian\",1],PARAMETER[\"Longitude_Of_Origin\",2]"),
         411, "gx_projcs_from_string", "Duplicate parameter \"Longitude_Of_Origin\" in WKT string"},
        {0, "VERTCS[\"v\"," + vdatum + "," + shift + "," + shift + "," + meter + "]", 411,
         "gx_vertcs_from_string", "Duplicate parameter \"Vertical_Shift\" in WKT string"},
        {0, "GEOGCS[\"g\"," + datum + "," + primem + "," + primem + "," + degree + "]", 412,
         "gx_geogcs_from_string", "Duplicate primem in WKT string"},
        {0, "PROJCS[\"p\"," + geogcs + "," + proj + "," + proj + "," + meter + "]", 414,
         "gx_projcs_from_string", "Duplicate projection in WKT string"},
        {0, "HVCOORDSYS[\"h\"," + vertcs + "," + vertcs + "]", 418, "gx_hvcoordsys_from_string",
         "Duplicate vertcs in WKT string"},
        {0, projected("PARAMETER[\"Semi_Major\",6378137.0]"), 423, "gx_projcs_from_string",
         "Invalid parameter name \"Semi_Major\" in WKT string"},
        {0, projected("PARAMETER[\"X_Axis_Translation\",1]"), 424, "gx_projcs_from_string",
         "Parameter \"X_Axis_Translation\" in WKT string is not valid for a projcs"},
        {0, "VERTCS[\"v\"," + vdatum + ",PARAMETER[\"False_Easting\",1]," + meter + "]", 424,
         "gx_vertcs_from_string",
         "Parameter \"False_Easting\" in WKT string is not valid for a vertcs"},
        {0, "GEOGCS[\"g\"," + datum + "," + primem + "]", 427, "gx_geogcs_from_string",
         "Missing angular unit in WKT string"},
        {0, "GEOXYZCS[\"x\"," + geogcs + "]", 427, "gx_geoxyzcs_from_string",
         "Missing angular unit in WKT string"},
        {0, "HVCOORDSYS[\"h\"," + vdatum + "]", 430, "gx_hvcoordsys_from_string",
         "Missing both coordsys and vertcs in WKT string"},
        {GX_TYPE_HVCOORDSYS, datum, 430, "gx_hvcoordsys_from_string",
         "Missing both coordsys and vertcs in WKT string"},
        {0, "GEOGCS[\"g\"," + primem + "," + degree + "]", 431, "gx_geogcs_from_string",
         "Missing datum in WKT string"},
        {0, "PROJCS[\"p\"," + proj + "," + meter + "]", 433, "gx_projcs_from_string",
         "Missing geographic CS in WKT string"},
        {0, "GEOXYZCS[\"x\"," + meter + "]", 433, "gx_geoxyzcs_from_string",
         "Missing geographic CS in WKT string"},
        {0, "VERTCS[\"v\"," + shift + "," + meter + "]", 437, "gx_vertcs_from_string",
         "Missing hvdatum in WKT string"},
        {0, "PROJCS[\"p\"," + geogcs + "," + proj + "]", 438, "gx_projcs_from_string",
         "Missing linear unit in WKT string"},
        {0, "VERTCS[\"v\"," + vdatum + "]", 438, "gx_vertcs_from_string",
         "Missing linear unit in WKT string"},
        {0, "GEOGCS[\"g\"," + datum + "," + degree + "]", 440, "gx_geogcs_from_string",
         "Missing prime meridian in WKT string"},
        {0, "PROJCS[\"p\"," + geogcs + "," + meter + "]", 441, "gx_projcs_from_string",
         "Missing projection in WKT string"},
        {0, "PROJCS", 459, "gx_projcs_from_string", "insufficient tokens"},
        {0, "GEOGCS[]", 459, "gx_geogcs_from_string", "Insufficient tokens in WKT string"},
        // The innermost error is the one the caller sees, also through a compound system.
        {0, projected("PARAMETER[\"Scale_Factor\"]"), 459, "gx_parameter_from_string",
         "Insufficient tokens in WKT string"},
        {0, geogcs + ",VERTCS[\"v\"," + meter + "]", 437, "gx_vertcs_from_string",
         "Missing hvdatum in WKT string"},
        {GX_TYPE_HVCOORDSYS, "GEOGCS[\"g\"]," + vertcs, 431, "gx_geogcs_from_string",
         "Missing datum in WKT string"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        gx_err_rec err;
        EXPECT_EQ(gx_object_from_string_by_type_errext(c.type, c.text.c_str(), &err), nullptr);
        EXPECT_EQ(err.number, c.number);
        EXPECT_EQ(err.level, unsigned(GX_ERRLVL_ERROR));
        EXPECT_EQ(err.category, unsigned(GX_ERRCAT_WKT));
        EXPECT_STREQ(err.function, c.function);
        EXPECT_STREQ(err.message, c.message);

        message_recorder recorder;
        EXPECT_EQ(gx_object_from_string_by_type(c.type, c.text.c_str()), nullptr);
        bool reported = false;
        for (const received_message &m : recorder.received)
            reported = reported || m.number == c.number;
        EXPECT_TRUE(reported);
    }
}

TEST(CoordsysWkt, VerticalSystemWithoutItsParametersIsBuiltWithWarnings)
{
    const std::string text = "VERTCS[\"v\",VDATUM[\"d\"],UNIT[\"Meter\",1.0]]";
    message_recorder recorder;
    gx_err_rec err;
    gx_vertcs *cs = gx_vertcs_from_string_errext(text.c_str(), &err);
    ASSERT_NE(cs, nullptr);
    ASSERT_EQ(recorder.received.size(), 2u);
    EXPECT_EQ(recorder.received[0].number, 447u);
    EXPECT_EQ(recorder.received[0].message, "Missing vertical shift parameter in WKT string");
    EXPECT_EQ(recorder.received[1].number, 432u);
    EXPECT_EQ(recorder.received[1].message, "Missing direction parameter in WKT string");
    for (const received_message &m : recorder.received) {
        EXPECT_EQ(m.level, unsigned(GX_ERRLVL_WARNING));
        EXPECT_EQ(m.category, unsigned(GX_ERRCAT_WKT));
        EXPECT_EQ(m.function, "gx_vertcs_from_string");
    }
    EXPECT_EQ(err.number, 432u); // the record keeps the last report
    gx_vertcs_del(cs);
}

TEST(CoordsysWkt, NameSynonyms)
{
    using samples::renamed;
    const struct {
        std::string text;
        const char *name;
    } cases[] = {
        {renamed(geogcs, "GCS_Tahiti"), "GCS_Tahiti_1952"},
        {renamed(geogcs, "gcs piton des neiges"), "GCS_Reunion_1947"},
        {renamed(projcs, "NAD_1983_CRS98_MTM_10"), "NAD_1983_CRS_MTM_10"},
        {renamed(projcs, "NAD_1927_StatePlane_Vermont_FIPS_3400"),
         "NAD_1927_StatePlane_Vermont_FIPS_4400"},
        {renamed(projcs, "NAD_1983_CSRS98_UTM_Zone_16N"), "NAD_1983_CSRS_UTM_Zone_16N"},
    };
    for (const auto &c : cases) {
        void *obj = gx_object_from_string(c.text.c_str());
        char name[GX_NAME_LEN];
        EXPECT_STREQ(gx_object_name(obj, name), c.name);
        gx_object_del(obj);
    }
    // Constructors keep the name they are given.
    gx_geogcs *cs = samples::make_geogcs("GCS_Tahiti");
    char name[GX_NAME_LEN];
    EXPECT_STREQ(gx_geogcs_name(cs, name), "GCS_Tahiti");
    gx_geogcs_del(cs);
}

// A projected system longer than its buffer loses whole pieces: each parameter and the unit is
// appended only while the text stays below 1022 characters, and a piece that does not fit does
// not stop a later, shorter one.
TEST(CoordsysWkt, LongProjectedSystemDropsPiecesThatDoNotFit)
{
    const std::string long_name(63, 'n');
    gx_parameter *slots[16] = {};
    for (int slot = 0; slot < 16; ++slot)
        slots[slot] = gx_parameter_new((long_name.substr(0, 62) + char('a' + slot)).c_str(), slot);
    gx_projection *tm = gx_projection_new("Transverse_Mercator", nullptr, nullptr, nullptr);
    gx_projcs *cs = gx_projcs_new(long_name.c_str(), samples::make_geogcs(long_name.c_str()), tm,
                                  slots, gx_unit_new("Meter", 1.0));
    gx_projcs_code_set(cs, 32633, "EPSG", "6.13");

    char text[GX_TEXT_LEN], piece[GX_TEXT_LEN];
    std::string expected = "PROJCS[\"" + long_name + "\",";
    expected += gx_geogcs_to_string(gx_projcs_geogcs(cs), piece);
    expected += ",";
    expected += gx_projection_to_string(gx_projcs_projection(cs), piece);
    int dropped = 0;
    auto append = [&](const char *part) {
        if (expected.size() + 1 + std::strlen(part) < 1022) {
            expected += ',';
            expected += part;
        }
        else
            ++dropped;
    };
    for (gx_parameter *parameter : slots)
        append(gx_parameter_to_string(parameter, piece));
    append(gx_unit_to_string(gx_projcs_unit(cs), piece));
    EXPECT_GT(dropped, 0);
    EXPECT_NE(expected.find("UNIT[\"Meter\",1.0]"), std::string::npos);
    EXPECT_EQ(std::string(gx_projcs_to_string(cs, text)), expected + "]");

    // The authority clause is appended only while the text stays below 1021 characters.
    const std::string with_auth = expected + auth("EPSG", 32633);
    EXPECT_EQ(std::string(gx_projcs_to_string_ext(cs, 1, text)),
              (with_auth.size() < 1021 ? with_auth : expected) + "]");
    gx_projcs_del(cs);
}

// A compound system appends each part only while the whole fits the 1024-byte buffer.
TEST(CoordsysWkt, LongCompoundSystemLeavesOutWhatDoesNotFit)
{
    const std::string n = "\"" + std::string(63, 'n') + "\"";
    const std::string long_geogcs = "GEOGCS[" + n + ",DATUM[" + n + ",SPHEROID[" + n +
                                    ",6378137.0,0.0]],PRIMEM[" + n + ",0.0],UNIT[" + n + ",1.0]]";
    const std::string long_vertcs = "VERTCS[" + n + ",VDATUM[" + n + "]," +
                                    "PARAMETER[\"Vertical_Shift\",0.0]," +
                                    "PARAMETER[\"Direction\",1.0],UNIT[" + n + ",1.0]]";
    gx_projcs *proj = gx_projcs_from_string(("PROJCS[" + n + "," + long_geogcs + "," +
                                             samples::projection + "," + samples::utm_parameters +
                                             ",UNIT[" + n + ",1.0]]")
                                                .c_str());
    gx_vertcs *vert = gx_vertcs_from_string(long_vertcs.c_str());
    ASSERT_NE(proj, nullptr);
    ASSERT_NE(vert, nullptr);
    char proj_text[GX_TEXT_LEN], vert_text[GX_TEXT_LEN], text[GX_TEXT_LEN];
    gx_projcs_to_string(proj, proj_text);
    gx_vertcs_to_string(vert, vert_text);
    ASSERT_GT(std::strlen(proj_text) + std::strlen(vert_text), 1000u);
    gx_hvcoordsys *cs = gx_hvcoordsys_new_extended("both", proj, vert);
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(std::string(gx_hvcoordsys_to_string(cs, text)),
              "HVCOORDSYS[\"both\"," + std::string(proj_text) + "]");
    gx_hvcoordsys_del(cs);
}
