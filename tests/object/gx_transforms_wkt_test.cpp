// The transformation types as text: round trips under every output option, every parse error
// and warning of these types (the method-parameter checks included), and the name synonyms.
#include "gridex.h"
#include "gx_test_support.h"
#include "object/gx_transforms_samples.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using samples::geogcs;
using samples::nad27;

namespace {

std::string with_authority(const std::string &text, const char *authority, int code)
{
    return text.substr(0, text.size() - 1) + ",AUTHORITY[\"" + authority + "\"," +
           std::to_string(code) + "]]";
}

} // namespace

TEST(TransformsWkt, EveryTypeRoundTripsUnderEveryOption)
{
    const std::string texts[] = {
        with_authority(samples::geogtran, "EPSG", 1173),
        with_authority(samples::verttran, "TAVU", 110001),
        with_authority(samples::offset_verttran, "EPSG", 5400),
        samples::adjhcs, // no authority, ever
        with_authority("METHOD[\"NTv2\"]", "EPSG", 9615),
        with_authority("HTMETHOD[\"2D_Projective_Parametric\"]", "TAVU", 119625),
        with_authority("VTMETHOD[\"Vertical_Offset_and_Slope\"]", "TAVU", 129657),
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

TEST(TransformsWkt, OptionTwoWritesEveryLevelsAuthority)
{
    gx_geogtran *gt = gx_geogtran_from_string(samples::geogtran.c_str());
    ASSERT_NE(gt, nullptr);
    EXPECT_EQ(gx_method_code(gx_geogtran_method(gt)), 9603);
    char text[GX_TEXT_LEN];
    const std::string all = gx_geogtran_to_string_ext(gt, 2, text);
    EXPECT_NE(all.find("METHOD[\"Geocentric_Translation\",AUTHORITY[\"EPSG\",9603]],"
                       "PARAMETER[\"X_Axis_Translation\",-3.0,AUTHORITY[\"TAVU\",100040]]"),
              std::string::npos)
        << all;
    gx_geogtran_del(gt);
}

// Every parse error of these types, with the caller's record (the first error ends the parse)
// and without one (every error reaches the message routine).  Nothing may leak either way.
TEST(TransformsWkt, ParseErrors)
{
    const std::string method = "METHOD[\"Geocentric_Translation\"]";
    const std::string dx = "PARAMETER[\"X_Axis_Translation\",1.0]";
    const std::string v1 = samples::vertcs, v2 = samples::egm96_vertcs;
    const std::string offset = "VTMETHOD[\"Vertical_Offset\"]";
    const std::string fit = "HTMETHOD[\"Affine_Parametric\"]";
    const std::string array = "ARRAY[\"A\",1,1.0]", meter = "UNIT[\"Meter\",1.0]";
    auto geogtran = [&](const std::string &body) { return "GEOGTRAN[\"t\"," + body + "]"; };
    auto verttran = [&](const std::string &body) { return "VERTTRAN[\"v\"," + body + "]"; };
    auto adjhcs = [&](const std::string &body) { return "ADJHCS[\"a\"," + body + "]"; };
    const std::string two_systems = nad27 + "," + geogcs;
    const struct {
        std::string text;
        unsigned int category;
        unsigned int number;
        const char *function;
        const char *message;
    } cases[] = {
        {geogtran(two_systems + "," + method + ",AUTHORITY[\"EPSG\",1],AUTHORITY[\"EPSG\",2]"),
         GX_ERRCAT_WKT, 403, "gx_geogtran_from_string", "Duplicate authority in WKT string"},
        {geogtran(two_systems + "," + geogcs + "," + method), GX_ERRCAT_WKT, 406,
         "gx_geogtran_from_string", "Duplicate geographic CS in WKT string"},
        {geogtran(two_systems + "," + method + "," + method), GX_ERRCAT_WKT, 410,
         "gx_geogtran_from_string", "Duplicate method in WKT string"},
        {geogtran(two_systems + "," + method + "," + dx + "," + dx), GX_ERRCAT_WKT, 411,
         "gx_geogtran_from_string", "Duplicate parameter \"X_Axis_Translation\" in WKT string"},
        {geogtran(two_systems + "," + method + ",PARAMETER[\"Shift\",1]"), GX_ERRCAT_WKT, 423,
         "gx_geogtran_from_string", "Invalid parameter name \"Shift\" in WKT string"},
        {geogtran(two_systems + "," + method + ",PARAMETER[\"False_Easting\",1]"), GX_ERRCAT_WKT,
         424, "gx_geogtran_from_string",
         "Parameter \"False_Easting\" in WKT string is not valid for a geogtran"},
        {geogtran(method), GX_ERRCAT_WKT, 434, "gx_geogtran_from_string",
         "Missing geogcs1 in WKT string"},
        {geogtran(geogcs + "," + method), GX_ERRCAT_WKT, 435, "gx_geogtran_from_string",
         "Missing geogcs2 in WKT string"},
        {geogtran(two_systems), GX_ERRCAT_WKT, 439, "gx_geogtran_from_string",
         "Missing method in WKT string"},
        // A grid method cannot run without its grid: the text is refused.
        {geogtran(two_systems + ",METHOD[\"NTv2\"],PARAMETER[\"X_Axis_Translation\",1.0]"),
         GX_ERRCAT_OBJEDIT, 453, "gx_geogtran_from_string",
         "Missing parameter for method \"NTv2\" in WKT string"},
        {geogtran(two_systems + ",METHOD[\"Shift_By_Guess\"]"), GX_ERRCAT_ARGUMENT, 305,
         "gx_methlist_method_from_name", "Invalid method name \"Shift_By_Guess\""},
        {"METHOD[\"NTv2\",AUTHORITY[\"EPSG\",9615],AUTHORITY[\"EPSG\",9615]]", GX_ERRCAT_WKT,
         403, "gx_method_from_string", "Duplicate authority in WKT string"},
        {verttran(geogcs + "," + samples::projcs + "," + v1 + "," + v2 + "," + offset),
         GX_ERRCAT_WKT, 404, "gx_verttran_from_string", "Duplicate coordsys in WKT string"},
        {verttran(v1 + "," + v2 + "," + offset + "," + offset), GX_ERRCAT_WKT, 417,
         "gx_verttran_from_string", "Duplicate vtmethod in WKT string"},
        {verttran(v1 + "," + v2 + "," + v1 + "," + offset), GX_ERRCAT_WKT, 418,
         "gx_verttran_from_string", "Duplicate vertical CS in WKT string"},
        {verttran(v1 + "," + v2 + "," + offset + "," + dx), GX_ERRCAT_WKT, 424,
         "gx_verttran_from_string",
         "Parameter \"X_Axis_Translation\" in WKT string is not valid for a verttran"},
        {verttran(offset), GX_ERRCAT_WKT, 443, "gx_verttran_from_string",
         "Missing vertcs1 in WKT string"},
        {verttran(v1 + "," + offset), GX_ERRCAT_WKT, 444, "gx_verttran_from_string",
         "Missing vertcs2 in WKT string"},
        {verttran(v1 + "," + v2), GX_ERRCAT_WKT, 445, "gx_verttran_from_string",
         "Missing vtmethod in WKT string"},
        {verttran(v1 + "," + v2 + ",VTMETHOD[\"EGM2008\"]"), GX_ERRCAT_ARGUMENT, 307,
         "gx_vtmethlist_vtmethod_from_name", "Invalid vtmethod name \"EGM2008\""},
        {verttran(samples::projcs + "," + v1 + "," + v2 + ",VTMETHOD[\"EGM96\"]"),
         GX_ERRCAT_ARGUMENT, 312, "gx_verttran_new", "Invalid coordsys type for vtmethod"},
        {adjhcs(geogcs + "," + samples::projcs + "," + fit + "," + array + "," + meter),
         GX_ERRCAT_WKT, 404, "gx_adjhcs_from_string", "Duplicate coordsys in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + fit + "," + array + "," + meter), GX_ERRCAT_WKT, 407,
         "gx_adjhcs_from_string", "Duplicate htmethod in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + array + "," + array + "," + meter), GX_ERRCAT_WKT, 402,
         "gx_adjhcs_from_string", "Duplicate array in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + array + "," + meter + "," + meter), GX_ERRCAT_WKT, 416,
         "gx_adjhcs_from_string", "Duplicate unit in WKT string"},
        {adjhcs(fit + "," + array + "," + meter), GX_ERRCAT_WKT, 429, "gx_adjhcs_from_string",
         "Missing coordsys in WKT string"},
        {adjhcs(geogcs + "," + array + "," + meter), GX_ERRCAT_WKT, 436, "gx_adjhcs_from_string",
         "Missing htmethod in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + meter), GX_ERRCAT_WKT, 428, "gx_adjhcs_from_string",
         "Missing array in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + array), GX_ERRCAT_WKT, 446, "gx_adjhcs_from_string",
         "Missing unit in WKT string"},
        {adjhcs(geogcs + ",HTMETHOD[\"Rubber_Sheet\"]," + array + "," + meter),
         GX_ERRCAT_ARGUMENT, 306, "gx_htmethlist_htmethod_from_name",
         "Invalid htmethod name \"Rubber_Sheet\""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        gx_err_rec err;
        EXPECT_EQ(gx_object_from_string_errext(c.text.c_str(), &err), nullptr);
        EXPECT_EQ(err.level, unsigned(GX_ERRLVL_ERROR));
        EXPECT_EQ(err.category, c.category);
        EXPECT_EQ(err.number, c.number);
        EXPECT_STREQ(err.function, c.function);
        EXPECT_STREQ(err.message, c.message);

        message_recorder recorder;
        EXPECT_EQ(gx_object_from_string(c.text.c_str()), nullptr);
        bool reported = false;
        for (const received_message &m : recorder.received)
            reported = reported || m.number == c.number;
        EXPECT_TRUE(reported);
    }
}

// Formula methods are built with a missing parameter (it counts as 0) and any surplus one; both
// only warn, in the user-definition category, after the object is made.
TEST(TransformsWkt, MethodParameterWarnings)
{
    auto geogtran = [](const std::string &method, const std::string &parameters) {
        return "GEOGTRAN[\"t\"," + nad27 + "," + geogcs + ",METHOD[\"" + method + "\"]" +
               parameters + "]";
    };
    const std::string dx = ",PARAMETER[\"X_Axis_Translation\",1.0]";
    const std::string dy = ",PARAMETER[\"Y_Axis_Translation\",1.0]";
    const std::string dz = ",PARAMETER[\"Z_Axis_Translation\",1.0]";
    const std::string rotations = ",PARAMETER[\"X_Axis_Rotation\",1.0]"
                                  ",PARAMETER[\"Y_Axis_Rotation\",1.0]"
                                  ",PARAMETER[\"Z_Axis_Rotation\",1.0]"
                                  ",PARAMETER[\"Scale_Difference\",1.0]";
    const std::string origin = ",PARAMETER[\"X_Coordinate_of_Rotation_Origin\",1.0]"
                               ",PARAMETER[\"Y_Coordinate_of_Rotation_Origin\",1.0]"
                               ",PARAMETER[\"Z_Coordinate_of_Rotation_Origin\",1.0]";
    const std::string dataset = ",PARAMETER[\"Dataset_conus\",0.0]";
    const struct {
        std::string text;
        std::vector<unsigned int> warnings;
        const char *method;
    } cases[] = {
        {geogtran("Molodensky", dx + dy), {453}, "Molodensky"},
        {geogtran("Geocentric_Translation", dx + dy + dz + rotations), {454},
         "Geocentric_Translation"},
        {geogtran("Coordinate_Frame", dx + dy + dz), {453}, "Coordinate_Frame"},
        {geogtran("Bursa_Wolf", dx + dy + rotations + origin), {453, 454}, "Bursa_Wolf"},
        {geogtran("Molodensky_Badekas", dx + dy + dz + rotations + origin), {}, ""},
        {geogtran("Molodensky_Badekas", dx), {453}, "Molodensky_Badekas"},
        // The grid methods need their dataset; the central translation slot is not checked.
        {geogtran("NTv2", dataset + dz), {}, ""},
        {geogtran("HARN", dataset + dx), {454}, "HARN"},
        {geogtran("Longitude_Rotation", dx + rotations), {}, ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        message_recorder recorder;
        gx_err_rec err;
        gx_geogtran *gt = gx_geogtran_from_string_errext(c.text.c_str(), &err);
        ASSERT_NE(gt, nullptr);
        ASSERT_EQ(recorder.received.size(), c.warnings.size());
        for (std::size_t i = 0; i < c.warnings.size(); ++i) {
            const received_message &m = recorder.received[i];
            EXPECT_EQ(m.number, c.warnings[i]);
            EXPECT_EQ(m.level, unsigned(GX_ERRLVL_WARNING));
            EXPECT_EQ(m.category, unsigned(GX_ERRCAT_OBJEDIT));
            EXPECT_EQ(m.function, "gx_geogtran_from_string");
            EXPECT_EQ(m.message, std::string(m.number == 453 ? "Missing" : "Extra") +
                                     " parameter for method \"" + c.method + "\" in WKT string");
        }
        EXPECT_EQ(err.number, c.warnings.empty() ? 0u : c.warnings.back());
        gx_geogtran_del(gt);
    }
}

TEST(TransformsWkt, NameSynonyms)
{
    using samples::renamed;
    const struct {
        std::string text;
        const char *name;
    } cases[] = {
        {renamed(samples::geogtran, "Tahiti_To_WGS_1984_1"), "Tahiti_1952_To_WGS_1984_1"},
        {renamed(samples::geogtran, "nad 1983 csrs98 to wgs 1984 2"),
         "NAD_1983_CSRS_To_WGS_1984_2"},
        // The plain KKJ names mean the old definitions.
        {renamed(samples::geogtran, "KKJ_To_WGS_1984_1"), "KKJ_To_WGS_1984_1_Old"},
        {"VTMETHOD[\"EGM96_Bilinear\"]", "EGM96"},
        {"METHOD[\"ntv2\"]", "NTv2"},
    };
    for (const auto &c : cases) {
        void *obj = gx_object_from_string(c.text.c_str());
        char name[GX_NAME_LEN];
        EXPECT_STREQ(gx_object_name(obj, name), c.name) << c.text;
        gx_object_del(obj);
    }
}
