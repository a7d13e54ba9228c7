// The object types as text: round trips under every output option, the choice of type from text
// (the compound-system rule included), every parse error and warning of the component,
// coordinate-system and transformation types, name synonyms, and the length limits of the
// written text.
#include "gridex.h"
#include "gx_test_support.h"
#include "object/gx_components.h"
#include "gx_samples.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using samples::geogcs;
using samples::nad27;
using samples::projcs;
using samples::vertcs;

namespace {

std::string auth(const char *name, int code)
{
    return ",AUTHORITY[\"" + std::string(name) + "\"," + std::to_string(code) + "]";
}

// Inserts an AUTHORITY clause before the last closing bracket of a text.
std::string with_authority(const std::string &text, int code, const char *name = "EPSG")
{
    return text.substr(0, text.size() - 1) + auth(name, code) + "]";
}

} // namespace

TEST(Wkt, EveryTypeRoundTripsUnderEveryOption)
{
    const std::string spheroid = "SPHEROID[\"WGS_1984\",6378137.0,298.257223563";
    for (const std::string &source : {
             // Option 1 writes the object's own authority, the parameter's from the registry.
             with_authority(samples::datum, 6326),
             std::string("SPHEROID[\"Sphere\",6371000.0,0.0]"),
             std::string("SPHEROID[\"Flat\",1.0,1.0]"),
             std::string("PRIMEM[\"E\",180.0]"),
             std::string("PRIMEM[\"W\",-180.0]"),
             with_authority("PRIMEM[\"Paris\",2.33722917]", 8903),
             std::string("PARAMETER[\"Central_Meridian\",-123.0,AUTHORITY[\"TAVU\",100010]]"),
             std::string("ARRAY[\"Offsets\",3,0.5,-1.25,1e-12]"), // never an authority
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
             with_authority(samples::geogtran, 1173),
             with_authority(samples::verttran, 110001, "TAVU"),
             with_authority(samples::offset_verttran, 5400),
             samples::adjhcs, // no authority, ever
             with_authority("METHOD[\"NTv2\"]", 9615),
             with_authority("HTMETHOD[\"2D_Projective_Parametric\"]", 119625, "TAVU"),
             with_authority("VTMETHOD[\"Vertical_Offset_and_Slope\"]", 129657, "TAVU"),
         })
        expect_round_trips(source);
    // Option 2 writes every level's authority.
    expect_round_trips("DATUM[\"D_WGS_1984\"," + spheroid + auth("EPSG", 7030) + "]" +
                           auth("EPSG", 6326) + "]",
                       2);
}

TEST(Wkt, OptionsWriteAuthoritiesOfTheObjectOrOfEveryLevel)
{
    gx_projcs *cs = gx_projcs_from_string(with_authority(projcs, 32633).c_str());
    ASSERT_NE(cs, nullptr);
    gx_geogcs_code_set(gx_projcs_geogcs(cs), 4326, "EPSG", "6.13");
    char text[GX_TEXT_LEN];
    EXPECT_EQ(std::string(gx_projcs_to_string(cs, text)), projcs);
    EXPECT_EQ(std::string(gx_projcs_to_string_ext(cs, 1, text)), with_authority(projcs, 32633));
    const std::string level2 = gx_projcs_to_string_ext(cs, 2, text);
    EXPECT_NE(level2.find(auth("EPSG", 4326) + "],PROJECTION[\"Transverse_Mercator\"" +
                          auth("TAVU", 43006) + "],PARAMETER[\"False_Easting\",500000.0" +
                          auth("TAVU", 100001) + "]"),
              std::string::npos)
        << level2;
    EXPECT_TRUE(level2.ends_with(",UNIT[\"Meter\",1.0]" + auth("EPSG", 32633) + "]")) << level2;
    gx_projcs_del(cs);

    gx_geogtran *gt = gx_geogtran_from_string(samples::geogtran.c_str());
    ASSERT_NE(gt, nullptr);
    EXPECT_EQ(gx_method_code(gx_geogtran_method(gt)), 9603);
    const std::string all = gx_geogtran_to_string_ext(gt, 2, text);
    EXPECT_NE(all.find("METHOD[\"Geocentric_Translation\",AUTHORITY[\"EPSG\",9603]],"
                       "PARAMETER[\"X_Axis_Translation\",-3.0,AUTHORITY[\"TAVU\",100040]]"),
              std::string::npos)
        << all;
    gx_geogtran_del(gt);
}

TEST(Wkt, EllipsoidIsReadAsSpheroidWithoutAMessage)
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

TEST(Wkt, ObjectFromStringChoosesTheType)
{
    const struct {
        std::string text;
        unsigned int type;
    } cases[] = {
        {"  geogcs" + geogcs.substr(6), GX_TYPE_GEOGCS},
        {projcs, GX_TYPE_PROJCS},
        {"GEOXYZCS[\"x\"," + geogcs + ",UNIT[\"Meter\",1.0]]", GX_TYPE_GEOXYZCS},
        {"VDATUM[\"v\"]", GX_TYPE_VDATUM},
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

    // Without a wrapper the projected system is preferred to the geographic one, wherever each
    // stands; one part is enough.
    gx_hvcoordsys *cs = gx_hvcoordsys_from_string((geogcs + "," + vertcs + "," + projcs).c_str());
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(gx_hvcoordsys_status(cs), unsigned(GX_STATUS_STRING));
    char buf[GX_TEXT_LEN];
    EXPECT_STREQ(gx_hvcoordsys_to_string(cs, buf),
                 ("HVCOORDSYS[\"\"," + projcs + "," + vertcs + "]").c_str());
    gx_hvcoordsys_del(cs);
    cs = gx_hvcoordsys_from_string(vertcs.c_str());
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(gx_hvcoordsys_coordsys(cs), nullptr);
    gx_hvcoordsys_del(cs);
}

// Every parse error of these types (level 2), each with its function and message.
TEST(Wkt, ParseErrors)
{
    const std::string datum = samples::datum, proj = samples::projection;
    const std::string primem = "PRIMEM[\"Greenwich\",0.0]";
    const std::string degree = "UNIT[\"Degree\",0.0174532925199433]";
    const std::string meter = "UNIT[\"Meter\",1.0]", vdatum = "VDATUM[\"v\"]";
    const std::string shift = "PARAMETER[\"Vertical_Shift\",0.0]";
    const std::string method = "METHOD[\"Geocentric_Translation\"]";
    const std::string dx = "PARAMETER[\"X_Axis_Translation\",1.0]";
    const std::string v1 = vertcs, v2 = samples::egm96_vertcs;
    const std::string offset = "VTMETHOD[\"Vertical_Offset\"]";
    const std::string fit = "HTMETHOD[\"Affine_Parametric\"]", array = "ARRAY[\"A\",1,1.0]";
    const std::string two = nad27 + "," + geogcs;
    auto projected = [&](const std::string &middle) {
        return "PROJCS[\"p\"," + geogcs + "," + proj + "," + middle + "," + meter + "]";
    };
    auto geogtran = [&](const std::string &body) { return "GEOGTRAN[\"t\"," + body + "]"; };
    auto verttran = [&](const std::string &body) { return "VERTTRAN[\"v\"," + body + "]"; };
    auto adjhcs = [&](const std::string &body) { return "ADJHCS[\"a\"," + body + "]"; };
    const char *const sph_from = "gx_spheroid_from_string", *const sph = "gx_spheroid from string";
    const char *const geog = "gx_geogcs_from_string", *const prj = "gx_projcs_from_string";
    const char *const xyz = "gx_geoxyzcs_from_string", *const vert = "gx_vertcs_from_string";
    const char *const hv = "gx_hvcoordsys_from_string", *const gt = "gx_geogtran_from_string";
    const char *const vt = "gx_verttran_from_string", *const adj = "gx_adjhcs_from_string";
    const struct {
        std::string text;
        unsigned int number;
        const char *function, *message;
        unsigned int category = GX_ERRCAT_WKT, type = 0; // type 0: chosen from the text
    } cases[] = {
        // Components.
        {"DATUM[\"D\",SPHEROID[\"S\",1,0],ELLIPSOID[\"S\",1,0]]", 415, "gx_datum_from_string",
         "Duplicate spheroid in WKT string"},
        {"PRIMEM[\"P\",nan]", 419, "gx_primem_from_string",
         "Longitude (nan) in WKT string is < -180 or > 180"},
        {"SPHEROID[\"S\",0,300]", 420, sph, "Semimajor axis (0) in WKT string is <= 0"},
        {"SPHEROID[\"S\",6378137,0.5]", 421, sph,
         "Flattening inverse (0.5) in WKT string is not 0 and is < 1"},
        {"ARRAY[\"A\",3,1,2]", 425, "gx_array_from_string",
         "Num_values (3) in WKT string is != number of values (2)"},
        {"ARRAY[\"A\",1,1,2,AUTHORITY[\"EPSG\",1]]", 425, "gx_array_from_string",
         "Num_values (1) in WKT string is != number of values (2)"},
        {"DATUM[\"D\",AUTHORITY[\"EPSG\",6326]]", 442, "gx_datum_from_string",
         "Missing spheroid in WKT string"},
        {"ARRAY[A[1]]", 448, "gx_array_from_string", "Missing num_values in WKT string"},
        {"PRIMEM[\"P\",AUTHORITY[\"EPSG\",8901]]", 449, "gx_primem_from_string",
         "Missing longitude in WKT string"},
        {"PARAMETER[\"P\",AUTHORITY[\"EPSG\",1]]", 450, "gx_parameter_from_string",
         "Missing parameter value in WKT string"},
        {"SPHEROID[\"S\",AUTHORITY[\"EPSG\",7030]]", 451, sph_from,
         "Missing semimajor axis in WKT string"},
        {"SPHEROID[\"S\",6378137,AUTHORITY[\"EPSG\",7030]]", 452, sph_from,
         "Missing flattening in WKT string"},
        // A constructor check reached through text keeps its category.
        {"ARRAY[\"A\",0]", 310, "gx_array_new", "Invalid num_values argument (0) for array",
         GX_ERRCAT_ARGUMENT},
        // Coordinate systems.
        {"GEOGCS[\"g\"," + datum + "," + primem + "," + degree + "," + degree + "]", 401, geog,
         "Duplicate unit in WKT string"},
        {"GEOXYZCS[\"x\"," + geogcs + "," + meter + "," + meter + "]", 401, xyz,
         "Duplicate angular unit in WKT string"},
        {"HVCOORDSYS[\"h\"," + geogcs + "," + projcs + "]", 404, hv,
         "Duplicate coordsys in WKT string"},
        {"GEOGCS[\"g\"," + datum + "," + datum + "," + primem + "," + degree + "]", 405, geog,
         "Duplicate datum in WKT string"},
        {"PROJCS[\"p\"," + geogcs + "," + geogcs + "," + proj + "," + meter + "]", 406, prj,
         "Duplicate geographic CS in WKT string"},
        {"VERTCS[\"v\"," + vdatum + "," + datum + "," + meter + "]", 408, vert,
         "Duplicate hvdatum in WKT string"},
        {projected(meter), 409, prj, "Duplicate linear unit in WKT string"},
        // Two names for one slot are one parameter given twice.
        {projected("PARAMETER[\"Central_Meridian\",1],PARAMETER[\"Longitude_Of_Origin\",2]"), 411,
         prj, "Duplicate parameter \"Longitude_Of_Origin\" in WKT string"},
        {"VERTCS[\"v\"," + vdatum + "," + shift + "," + shift + "," + meter + "]", 411, vert,
         "Duplicate parameter \"Vertical_Shift\" in WKT string"},
        {"GEOGCS[\"g\"," + datum + "," + primem + "," + primem + "," + degree + "]", 412, geog,
         "Duplicate primem in WKT string"},
        {"PROJCS[\"p\"," + geogcs + "," + proj + "," + proj + "," + meter + "]", 414, prj,
         "Duplicate projection in WKT string"},
        {"HVCOORDSYS[\"h\"," + vertcs + "," + vertcs + "]", 418, hv,
         "Duplicate vertcs in WKT string"},
        {projected("PARAMETER[\"Semi_Major\",6378137.0]"), 423, prj,
         "Invalid parameter name \"Semi_Major\" in WKT string"},
        {projected("PARAMETER[\"X_Axis_Translation\",1]"), 424, prj,
         "Parameter \"X_Axis_Translation\" in WKT string is not valid for a projcs"},
        {"VERTCS[\"v\"," + vdatum + ",PARAMETER[\"False_Easting\",1]," + meter + "]", 424, vert,
         "Parameter \"False_Easting\" in WKT string is not valid for a vertcs"},
        {"GEOGCS[\"g\"," + datum + "," + primem + "]", 427, geog,
         "Missing angular unit in WKT string"},
        {"HVCOORDSYS[\"h\"," + vdatum + "]", 430, hv,
         "Missing both coordsys and vertcs in WKT string"},
        {"GEOGCS[\"g\"," + primem + "," + degree + "]", 431, geog, "Missing datum in WKT string"},
        {"PROJCS[\"p\"," + proj + "," + meter + "]", 433, prj,
         "Missing geographic CS in WKT string"},
        {"VERTCS[\"v\"," + shift + "," + meter + "]", 437, vert, "Missing hvdatum in WKT string"},
        {"PROJCS[\"p\"," + geogcs + "," + proj + "]", 438, prj,
         "Missing linear unit in WKT string"},
        {"GEOGCS[\"g\"," + datum + "," + degree + "]", 440, geog,
         "Missing prime meridian in WKT string"},
        {"PROJCS[\"p\"," + geogcs + "," + meter + "]", 441, prj,
         "Missing projection in WKT string"},
        {"PROJCS", 459, prj, "insufficient tokens"},
        // The innermost error is the one the caller sees, also through a compound system.
        {projected("PARAMETER[\"Scale_Factor\"]"), 459, "gx_parameter_from_string",
         "Insufficient tokens in WKT string"},
        {geogcs + ",VERTCS[\"v\"," + meter + "]", 437, vert, "Missing hvdatum in WKT string"},
        {"GEOGCS[\"g\"]," + vertcs, 431, geog, "Missing datum in WKT string", GX_ERRCAT_WKT,
         GX_TYPE_HVCOORDSYS},
        // Transformations.
        {geogtran(two + "," + method + ",AUTHORITY[\"EPSG\",1],AUTHORITY[\"EPSG\",2]"), 403, gt,
         "Duplicate authority in WKT string"},
        {geogtran(two + "," + geogcs + "," + method), 406, gt,
         "Duplicate geographic CS in WKT string"},
        {geogtran(two + "," + method + "," + method), 410, gt, "Duplicate method in WKT string"},
        {geogtran(two + "," + method + "," + dx + "," + dx), 411, gt,
         "Duplicate parameter \"X_Axis_Translation\" in WKT string"},
        {geogtran(two + "," + method + ",PARAMETER[\"False_Easting\",1]"), 424, gt,
         "Parameter \"False_Easting\" in WKT string is not valid for a geogtran"},
        {geogtran(method), 434, gt, "Missing geogcs1 in WKT string"},
        {geogtran(geogcs + "," + method), 435, gt, "Missing geogcs2 in WKT string"},
        {geogtran(two), 439, gt, "Missing method in WKT string"},
        // A grid method cannot run without its grid: the text is refused.
        {geogtran(two + ",METHOD[\"NTv2\"],PARAMETER[\"X_Axis_Translation\",1.0]"), 453, gt,
         "Missing parameter for method \"NTv2\" in WKT string", GX_ERRCAT_OBJEDIT},
        {geogtran(two + ",METHOD[\"Shift_By_Guess\"]"), 305, "gx_methlist_method_from_name",
         "Invalid method name \"Shift_By_Guess\"", GX_ERRCAT_ARGUMENT},
        {verttran(geogcs + "," + projcs + "," + v1 + "," + v2 + "," + offset), 404, vt,
         "Duplicate coordsys in WKT string"},
        {verttran(v1 + "," + v2 + "," + offset + "," + offset), 417, vt,
         "Duplicate vtmethod in WKT string"},
        {verttran(v1 + "," + v2 + "," + v1 + "," + offset), 418, vt,
         "Duplicate vertical CS in WKT string"},
        {verttran(v1 + "," + v2 + "," + offset + "," + dx), 424, vt,
         "Parameter \"X_Axis_Translation\" in WKT string is not valid for a verttran"},
        {verttran(offset), 443, vt, "Missing vertcs1 in WKT string"},
        {verttran(v1 + "," + offset), 444, vt, "Missing vertcs2 in WKT string"},
        {verttran(v1 + "," + v2), 445, vt, "Missing vtmethod in WKT string"},
        {verttran(v1 + "," + v2 + ",VTMETHOD[\"EGM2008\"]"), 307,
         "gx_vtmethlist_vtmethod_from_name", "Invalid vtmethod name \"EGM2008\"",
         GX_ERRCAT_ARGUMENT},
        {verttran(projcs + "," + v1 + "," + v2 + ",VTMETHOD[\"EGM96\"]"), 312, "gx_verttran_new",
         "Invalid coordsys type for vtmethod", GX_ERRCAT_ARGUMENT},
        {adjhcs(geogcs + "," + fit + "," + fit + "," + array + "," + meter), 407, adj,
         "Duplicate htmethod in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + array + "," + array + "," + meter), 402, adj,
         "Duplicate array in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + array + "," + meter + "," + meter), 416, adj,
         "Duplicate unit in WKT string"},
        {adjhcs(fit + "," + array + "," + meter), 429, adj, "Missing coordsys in WKT string"},
        {adjhcs(geogcs + "," + array + "," + meter), 436, adj, "Missing htmethod in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + meter), 428, adj, "Missing array in WKT string"},
        {adjhcs(geogcs + "," + fit + "," + array), 446, adj, "Missing unit in WKT string"},
        {adjhcs(geogcs + ",HTMETHOD[\"Rubber_Sheet\"]," + array + "," + meter), 306,
         "gx_htmethlist_htmethod_from_name", "Invalid htmethod name \"Rubber_Sheet\"",
         GX_ERRCAT_ARGUMENT},
    };
    for (const auto &c : cases)
        expect_wkt_error(c.type, c.text, c.category, c.number, c.function, c.message);
}

TEST(Wkt, TokenParsersCheckKeywordAndStart)
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

// Missing parameters only warn (level 4): a vertical system without its shift and direction,
// and a formula method with a missing parameter (it counts as 0) or a surplus one, in the
// user-definition category, after the object is made.  The record keeps the last report.
TEST(Wkt, Warnings)
{
    {
        message_recorder recorder;
        gx_err_rec err;
        gx_vertcs *cs =
            gx_vertcs_from_string_errext("VERTCS[\"v\",VDATUM[\"d\"],UNIT[\"Meter\",1.0]]", &err);
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
        EXPECT_EQ(err.number, 432u);
        gx_vertcs_del(cs);
    }
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
        {geogtran("Geocentric_Translation", dx + dy + dz + rotations),
         {454},
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

TEST(Wkt, NamesFromTextGoThroughSynonymsAndConstructorsKeepTheirs)
{
    using samples::renamed;
    const std::string datum = "DATUM[\"x\",SPHEROID[\"International_1924\",6378388,297]]";
    const struct {
        std::string text;
        const char *name;
    } cases[] = {
        {renamed(datum, "D_Tahiti"), "D_Tahiti_1952"},
        {renamed(datum, "d tahiti"), "D_Tahiti_1952"},
        {renamed(datum, "D_Tahiti_1952"), "D_Tahiti_1952"},
        {renamed(datum, "D_Piton_des_Neiges"), "D_Reunion_1947"},
        {renamed(geogcs, "GCS_Tahiti"), "GCS_Tahiti_1952"},
        {renamed(geogcs, "gcs piton des neiges"), "GCS_Reunion_1947"},
        {renamed(projcs, "NAD_1983_CRS98_MTM_10"), "NAD_1983_CRS_MTM_10"},
        {renamed(projcs, "NAD_1927_StatePlane_Vermont_FIPS_3400"),
         "NAD_1927_StatePlane_Vermont_FIPS_4400"},
        {renamed(projcs, "NAD_1983_CSRS98_UTM_Zone_16N"), "NAD_1983_CSRS_UTM_Zone_16N"},
        {renamed(samples::geogtran, "Tahiti_To_WGS_1984_1"), "Tahiti_1952_To_WGS_1984_1"},
        {renamed(samples::geogtran, "nad 1983 csrs98 to wgs 1984 2"),
         "NAD_1983_CSRS_To_WGS_1984_2"},
        // The plain KKJ names mean the old definitions.
        {renamed(samples::geogtran, "KKJ_To_WGS_1984_1"), "KKJ_To_WGS_1984_1_Old"},
        {"VTMETHOD[\"EGM96_Bilinear\"]", "EGM96"},
        {"METHOD[\"ntv2\"]", "NTv2"},
    };
    char name[GX_NAME_LEN];
    for (const auto &c : cases) {
        void *obj = gx_object_from_string(c.text.c_str());
        EXPECT_STREQ(gx_object_name(obj, name), c.name) << c.text;
        gx_object_del(obj);
    }
    gx_geogcs *cs = samples::make_geogcs("GCS_Tahiti");
    EXPECT_STREQ(gx_geogcs_name(cs, name), "GCS_Tahiti");
    gx_geogcs_del(cs);
}

// Texts longer than the buffer lose whole pieces.  An array is cut after the last value that
// fits; a value that would pass the limit ends the text even when a shorter one would fit.
TEST(Wkt, LongArrayIsCutAfterTheLastValueThatFits)
{
    // ARRAY["a",300 is 13 characters and each ",1.0" 4 more: 252 values fill exactly 1021.
    std::vector<double> values(300, 1.0);
    gx_array *array = gx_array_new("a", 300, values.data());
    char text[GX_TEXT_LEN];
    gx_array_to_string(array, text);
    std::string expected = "ARRAY[\"a\",300";
    for (int i = 0; i < 252; ++i)
        expected += ",1.0";
    EXPECT_EQ(text, expected + "]");
    gx_array_del(array);

    values[251] = 0.1234567890123456;
    array = gx_array_new("a", 300, values.data());
    gx_array_to_string(array, text);
    EXPECT_EQ(std::strlen(text), 13u + 4u * 251u + 1u);
    gx_array_del(array);
}

// A projected system appends each parameter and the unit only while the text stays below 1022
// characters, and a piece that does not fit does not stop a later, shorter one.
TEST(Wkt, LongProjectedSystemDropsPiecesThatDoNotFit)
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
        if (expected.size() + 1 + std::strlen(part) < 1022)
            expected += std::string(",") + part;
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
TEST(Wkt, LongCompoundSystemLeavesOutWhatDoesNotFit)
{
    const std::string n = "\"" + std::string(63, 'n') + "\"";
    const std::string long_geogcs = "GEOGCS[" + n + ",DATUM[" + n + ",SPHEROID[" + n +
                                    ",6378137.0,0.0]],PRIMEM[" + n + ",0.0],UNIT[" + n + ",1.0]]";
    const std::string long_vertcs = "VERTCS[" + n + ",VDATUM[" + n + "]," +
                                    "PARAMETER[\"Vertical_Shift\",0.0]," +
                                    "PARAMETER[\"Direction\",1.0],UNIT[" + n + ",1.0]]";
    gx_projcs *proj =
        gx_projcs_from_string(("PROJCS[" + n + "," + long_geogcs + "," + samples::projection + "," +
                               samples::utm_parameters + ",UNIT[" + n + ",1.0]]")
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
