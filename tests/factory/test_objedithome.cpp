// User definitions: the files of a temporary directory read into records, the lines that do not
// load, the checks made when an entry is looked up, and the life of the definitions.
#include "factory/gx_objedithome.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// A directory of definition files, removed with the object.
class TempDir {
public:
    TempDir()
    {
        std::string pattern = (fs::temp_directory_path() / "gx_objedit_XXXXXX").string();
        path_ = mkdtemp(pattern.data()) != nullptr ? pattern : "";
    }
    ~TempDir() { fs::remove_all(path_); }
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;

    const char *path() const { return path_.c_str(); }
    void write(const std::string &file, const std::string &text) const
    {
        std::ofstream(path_ + "/" + file) << text;
    }

private:
    std::string path_;
};

// What the message routine receives while it lives.
class Messages {
public:
    Messages()
    {
        gx_msg_getrtn(&old_data_, &old_levels_, &old_categories_, &old_routine_);
        gx_msg_setrtn(this, GX_ERRLVL_ERROR | GX_ERRLVL_WARNING, 0xff, collect);
    }
    ~Messages() { gx_msg_setrtn(old_data_, old_levels_, old_categories_, old_routine_); }
    Messages(const Messages &) = delete;
    Messages &operator=(const Messages &) = delete;

    std::vector<gx_err_rec> all;
    void clear() { all.clear(); }

private:
    static void collect(void *data, const gx_err_rec *err)
    {
        static_cast<Messages *>(data)->all.push_back(*err);
    }
    void *old_data_ = nullptr;
    int old_levels_ = 0;
    int old_categories_ = 0;
    gx_msg_rtn old_routine_ = nullptr;
};

class ObjEditHome : public ::testing::Test {
protected:
    void TearDown() override { gx_factory_uninit(); }

    // Writes one file and reads the directory anew; returns the mask.
    int load(const std::string &file, const std::string &text)
    {
        dir.write(file, text);
        gx_objedithome_setdir(nullptr);
        messages.clear();
        return gx_objedithome_setdir(dir.path());
    }

    TempDir dir;
    Messages messages;
};

std::string context_of(int type, int code)
{
    char context[GX_OBJEDIT_CONTEXT_LEN];
    gx_objedithome_find(type, code, context);
    return context;
}

void expect_message(const gx_err_rec &err, unsigned int level, unsigned int number,
                    const std::string &function, const std::string &message)
{
    EXPECT_EQ(err.level, level);
    EXPECT_EQ(err.category, GX_ERRCAT_OBJEDIT);
    EXPECT_EQ(err.number, number);
    EXPECT_EQ(std::string(err.function), function);
    EXPECT_EQ(std::string(err.message), message);
}

// ---- reading the files ---------------------------------------------------------------------

// What a record ought to hold, in full.
struct Expected {
    int type;
    int code;
    const char *name;
    int comp[4];
    double value[2];
    std::vector<gx_defparm> parms;
};

void expect_record(const Expected &want)
{
    SCOPED_TRACE(want.name);
    const gx_defrec *rec = gx_objedit_find(want.type, want.code, nullptr);
    ASSERT_NE(rec, nullptr);
    EXPECT_EQ(rec->code, want.code);
    EXPECT_STREQ(rec->name, want.name);
    for (int i = 0; i < 4; i++)
        EXPECT_EQ(rec->comp[i], want.comp[i]) << "comp " << i;
    EXPECT_EQ(rec->value[0], want.value[0]);
    EXPECT_EQ(rec->value[1], want.value[1]);
    ASSERT_EQ(rec->parm_count, static_cast<int>(want.parms.size()));
    for (int i = 0; i < rec->parm_count; i++) {
        EXPECT_EQ(rec->parms[i].code, want.parms[i].code);
        EXPECT_EQ(rec->parms[i].value, want.parms[i].value);
        EXPECT_EQ(rec->parms[i].text == nullptr, want.parms[i].text == nullptr);
        if (rec->parms[i].text != nullptr && want.parms[i].text != nullptr) {
            EXPECT_STREQ(rec->parms[i].text, want.parms[i].text);
        }
    }
}

TEST_F(ObjEditHome, EveryTypeReadsIntoItsRecord)
{
    dir.write("unit", "unit, 209001, \"My_Foot\", 0.3\n");
    dir.write("spheroid", "spheroid, 207001, \"My_Sphere\", 6371000, 0\n"
                          "spheroid, 207002, \"My_Ellipsoid\", 6378137, 298.25\n");
    dir.write("primem", "primem, 208901, \"My_Meridian\", -9.5\n");
    dir.write("datum", "datum, 206001, \"D_Mine\", GX_S_WGS_1984\n");
    dir.write("vdatum", "vdatum, 205101, \"My_Vertical_Datum\"\n");
    dir.write("geogcs", "geogcs, 204001, \"GCS_Mine\", 206001, GX_PM_GREENWICH, GX_U_DEGREE\n");
    dir.write("projcs", "projcs, 202001, \"My_TM\", 204001, 43006, 100001, 500000, 100002, 0, "
                        "9001, 100010, 15, 100003, 0.9996\n");
    dir.write("vertcs", "vertcs, 205601, \"My_Heights\", 205101, 9001, 100006, 0.5, 100007, -1\n");
    dir.write("geogtran",
              "geogtran, 208001, \"My_Shift\", 204001, 4326, 9603, 100040, 1.5, 100041, -2, "
              "100042, 3\n"
              "geogtran, 208002, \"My_Grid\", 204001, 4326, 9615, 100047, \"Dataset_my grid\"\n");
    dir.write("verttran", "verttran, 210001, \"My_Offset\", 0, 205601, 5703, 129616, 100060, 1.25\n"
                          "verttran, 210002, \"My_Geoid\", 4326, 205601, 5703, 129661, 100047, "
                          "\"Dataset_egm96\"\n");
    EXPECT_EQ(gx_objedithome_setdir(dir.path()),
              0x1 | 0x2 | 0x8 | 0x20 | 0x40 | 0x80 | 0x300 | 0x400 | 0x800 | 0x80000);

    // The slots of gx_defdata.h: a spheroid keeps its inverse flattening, a projcs its unit
    // item wherever it stands and its parameters in file order, a verttran 0 for no
    // horizontal system, a dataset parameter its name.
    const Expected records[] = {
        {GX_TYPE_UNIT, 209001, "My_Foot", {}, {0.3, 0}, {}},
        {GX_TYPE_SPHEROID, 207001, "My_Sphere", {}, {6371000, 0}, {}},
        {GX_TYPE_SPHEROID, 207002, "My_Ellipsoid", {}, {6378137, 298.25}, {}},
        {GX_TYPE_PRIMEM, 208901, "My_Meridian", {}, {-9.5, 0}, {}},
        {GX_TYPE_DATUM, 206001, "D_Mine", {7030}, {}, {}},
        {GX_TYPE_VDATUM, 205101, "My_Vertical_Datum", {}, {}, {}},
        {GX_TYPE_GEOGCS, 204001, "GCS_Mine", {206001, 8901, 9102}, {}, {}},
        {GX_TYPE_PROJCS,
         202001,
         "My_TM",
         {204001, 43006, 9001},
         {},
         {{100001, 500000, nullptr},
          {100002, 0, nullptr},
          {100010, 15, nullptr},
          {100003, 0.9996, nullptr}}},
        {GX_TYPE_VERTCS,
         205601,
         "My_Heights",
         {205101, 9001},
         {},
         {{100006, 0.5, nullptr}, {100007, -1, nullptr}}},
        {GX_TYPE_GEOGTRAN,
         208001,
         "My_Shift",
         {204001, 4326, 9603},
         {},
         {{100040, 1.5, nullptr}, {100041, -2, nullptr}, {100042, 3, nullptr}}},
        {GX_TYPE_GEOGTRAN,
         208002,
         "My_Grid",
         {204001, 4326, 9615},
         {},
         {{100047, 0, "Dataset_my grid"}}},
        {GX_TYPE_VERTTRAN,
         210001,
         "My_Offset",
         {0, 205601, 5703, 129616},
         {},
         {{100060, 1.25, nullptr}}},
        {GX_TYPE_VERTTRAN,
         210002,
         "My_Geoid",
         {4326, 205601, 5703, 129661},
         {},
         {{100047, 0, "Dataset_egm96"}}},
    };
    for (const Expected &want : records)
        expect_record(want);
    EXPECT_TRUE(messages.all.empty());
}

TEST_F(ObjEditHome, LookupsByTypeAndCode)
{
    dir.write("datum", "datum, 6326, \"D_Mine\", 7022\n");
    dir.write("unit", "unit, 209001, \"My_Foot\", 0.3\nunit, 209101, \"My_Angle\", 0.01\n");
    gx_objedithome_setdir(dir.path());

    // A user entry hides the built-in definition of its code.
    const gx_defrec *mine = gx_objedit_find(GX_TYPE_DATUM, 6326, nullptr);
    ASSERT_NE(mine, nullptr);
    EXPECT_STREQ(mine->name, "D_Mine");
    EXPECT_EQ(mine->comp[0], 7022);
    EXPECT_STRNE(gx_defdata_find(GX_TYPE_DATUM, 6326)->name, "D_Mine");
    EXPECT_EQ(gx_objedit_find(GX_TYPE_DATUM, 6326, nullptr), mine); // the same record each time
    EXPECT_EQ(context_of(GX_TYPE_DATUM, 6326), "objedit file \"datum\" line 1 code 6326");

    // Other codes and other types have none, and the find says nothing of them.
    EXPECT_EQ(gx_objedit_find(GX_TYPE_DATUM, 6269, nullptr), nullptr);
    EXPECT_EQ(gx_objedit_find(GX_TYPE_GEOGCS, 6326, nullptr), nullptr);
    EXPECT_EQ(gx_objedit_find(GX_TYPE_HVCOORDSYS, 6326, nullptr), nullptr);
    EXPECT_EQ(context_of(GX_TYPE_DATUM, 6269), "");

    // The unit file serves units of either kind.
    EXPECT_NE(gx_objedit_find(GX_TYPE_UNIT, 209001, nullptr), nullptr);
    EXPECT_NE(gx_objedit_find(GX_TYPE_LINUNIT, 209001, nullptr), nullptr);
    EXPECT_NE(gx_objedit_find(GX_TYPE_ANGUNIT, 209101, nullptr), nullptr);
    EXPECT_TRUE(messages.all.empty());
}

TEST_F(ObjEditHome, BadLinesAreReportedAndSkipped)
{
    std::string many = "datum, 206007, \"D_Many\"";
    for (int i = 0; i < 62; i++)
        many += ", 7030";
    int mask = load("datum", "# my datums\n"                                 // 1
                             "\n"                                            // 2
                             "datum, 206001, \"D_Good\", 7030\n"             // 3
                             "datum, 99, \"D_Low\", 7030\n"                  // 4
                             "datum, 206002, \"D_Short\"\n"                  // 5
                             "geogcs, 206003, \"D_Wrong\", 7030\n"           // 6
                             "datum, 206004, \"D_Open, 7030\n"               // 7
                                 + many + "\n" +                             // 8
                                 "datum, 206001, \"D_Again\", 7001\n"        // 9
                                 "Datum, 206006, \"D_Case\", 7030\n"         // 10
                                 "datum, 6326x, \"D_Typo\", 7030\n"          // 11
                                 "datum, 206005, \"D_Long\", 7030, 7030\n"); // 12
    EXPECT_EQ(mask, GX_TYPE_DATUM);

    const char *file = "objedit file \"datum\" line ";
    ASSERT_EQ(messages.all.size(), 8u);
    expect_message(messages.all[0], GX_ERRLVL_WARNING, 101, file + std::string("4"),
                   "Code value (99) in objedit entry out of range");
    expect_message(messages.all[1], GX_ERRLVL_WARNING, 103, file + std::string("5"),
                   "Invalid token/keyword count for a \"datum\" in objedit entry");
    expect_message(messages.all[2], GX_ERRLVL_WARNING, 104, file + std::string("6"),
                   "Invalid object name \"geogcs\" in objedit entry");
    expect_message(messages.all[3], GX_ERRLVL_WARNING, 106, file + std::string("7"),
                   "Unbalanced quotes in objedit entry");
    expect_message(messages.all[4], GX_ERRLVL_WARNING, 105, file + std::string("8"),
                   "Token/keyword count in objedit entry exceeds 64");
    expect_message(messages.all[5], GX_ERRLVL_WARNING, 101, file + std::string("11"),
                   "Code value (6326x) in objedit entry out of range");
    expect_message(messages.all[6], GX_ERRLVL_WARNING, 103, file + std::string("12"),
                   "Invalid token/keyword count for a \"datum\" in objedit entry");
    expect_message(messages.all[7], GX_ERRLVL_WARNING, 102, file + std::string("9"),
                   "Code (206001) duplicates the code at objedit line 3");

    // Both entries of a duplicated code stay; the first one is found.
    const gx_defrec *good = gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr);
    ASSERT_NE(good, nullptr);
    EXPECT_STREQ(good->name, "D_Good");
    EXPECT_NE(gx_objedit_find(GX_TYPE_DATUM, 206006, nullptr), nullptr); // keyword in any case
    for (int skipped : {99, 206002, 206003, 206004, 206005, 206007, 6326})
        EXPECT_EQ(gx_objedithome_find(GX_TYPE_DATUM, skipped, nullptr), nullptr) << skipped;
}

TEST_F(ObjEditHome, TokenCountsOfFixedAndOpenLayouts)
{
    dir.write("geogcs", "geogcs, 204001, \"GCS_Seven\", 6326, 8901, 9102, 9102\n");
    dir.write("projcs", "projcs, 202001, \"My_Mercator\", 4326, 43004, 9001, 100001, 0, "
                        "100002, 0, 100010, 0\n");
    EXPECT_EQ(gx_objedithome_setdir(dir.path()), GX_TYPE_PROJCS);
    ASSERT_EQ(messages.all.size(), 1u);
    EXPECT_EQ(messages.all[0].number, 103u);
    const gx_defrec *projcs = gx_objedit_find(GX_TYPE_PROJCS, 202001, nullptr);
    ASSERT_NE(projcs, nullptr);
    EXPECT_EQ(projcs->parm_count, 3);
}

TEST_F(ObjEditHome, ContinuationLinesAndQuotedNames)
{
    load("datum", "datum, 206001, \\\n"                      // 1
                  "    \"D_Continued\", \\\n"                // 2
                  "    7030\n"                               // 3
                  "datum, 206002, \"My, Datum\", 7030\n"     // 4
                  "datum, 206003, \\\n"                      // 5
                  "  \"D_Open, 7030\n"                       // 6
                  "datum, 206004, \"  Tab\there  \", 7030\n" // 7
                  "datum, 206005, \"#1\", \\\n"              // 8
                  "# not a comment, 7030\n");                // 9

    const gx_defrec *continued = gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr);
    ASSERT_NE(continued, nullptr);
    EXPECT_STREQ(continued->name, "D_Continued");
    EXPECT_EQ(continued->comp[0], 7030);
    EXPECT_EQ(context_of(GX_TYPE_DATUM, 206001), "objedit file \"datum\" line 1 code 206001");

    const gx_defrec *comma = gx_objedit_find(GX_TYPE_DATUM, 206002, nullptr);
    ASSERT_NE(comma, nullptr);
    EXPECT_STREQ(comma->name, "My, Datum");
    EXPECT_EQ(comma->comp[0], 7030);
    EXPECT_EQ(context_of(GX_TYPE_DATUM, 206002), "objedit file \"datum\" line 4 code 206002");

    // An error in a continued entry names the entry's first line.
    ASSERT_EQ(messages.all.size(), 2u);
    expect_message(messages.all[0], GX_ERRLVL_WARNING, 106, "objedit file \"datum\" line 5",
                   "Unbalanced quotes in objedit entry");

    const gx_defrec *tab = gx_objedit_find(GX_TYPE_DATUM, 206004, nullptr);
    ASSERT_NE(tab, nullptr);
    EXPECT_STREQ(tab->name, "Tab here");

    // A continuation line is never a comment: line 9 gives the entry of line 8 a fifth token.
    expect_message(messages.all[1], GX_ERRLVL_WARNING, 103, "objedit file \"datum\" line 8",
                   "Invalid token/keyword count for a \"datum\" in objedit entry");
}

TEST_F(ObjEditHome, TxtFilesWhenThePlainNameIsMissing)
{
    dir.write("datum.txt", "datum, 206001, \"D_Txt\", 7030\n");
    EXPECT_EQ(gx_objedithome_setdir(dir.path()), GX_TYPE_DATUM);
    const gx_defrec *txt = gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr);
    ASSERT_NE(txt, nullptr);
    EXPECT_STREQ(txt->name, "D_Txt");
    EXPECT_EQ(context_of(GX_TYPE_DATUM, 206001), "objedit file \"datum.txt\" line 1 code 206001");

    // With both present only the plain name is read.
    load("datum", "datum, 206002, \"D_Plain\", 7030\n");
    EXPECT_EQ(gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr), nullptr);
    EXPECT_NE(gx_objedit_find(GX_TYPE_DATUM, 206002, nullptr), nullptr);
}

TEST_F(ObjEditHome, FilesAreReadWhenTheDirectoryChanges)
{
    EXPECT_EQ(load("datum", "datum, 206001, \"D_First\", 7030\n"), GX_TYPE_DATUM);
    EXPECT_EQ(gx_objedithome_is_set(), 1);
    const gx_defrec *first = gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr);
    ASSERT_NE(first, nullptr);

    // The same string again reads nothing: the edit is not seen, the record stays valid.
    dir.write("datum", "datum, 206001, \"D_Second\", 7030\n");
    EXPECT_EQ(gx_objedithome_setdir(dir.path()), GX_TYPE_DATUM);
    EXPECT_EQ(gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr), first);
    EXPECT_STREQ(first->name, "D_First");

    // Away and back reads the files again.
    EXPECT_EQ(gx_objedithome_setdir(""), 0);
    EXPECT_EQ(gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr), nullptr);
    EXPECT_EQ(gx_objedithome_setfunc([] { return static_cast<const char *>(nullptr); }), 0);
    static std::string where;
    where = dir.path();
    EXPECT_EQ(gx_objedithome_setfunc([] { return where.c_str(); }), GX_TYPE_DATUM);
    EXPECT_STREQ(gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr)->name, "D_Second");

    // A directory of 246 characters is refused and changes nothing; 245 is taken (and,
    // being no directory, holds no definitions).
    std::string too_long(246, 'x');
    EXPECT_EQ(gx_objedithome_setdir(too_long.c_str()), GX_TYPE_DATUM);
    EXPECT_NE(gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr), nullptr);
    EXPECT_EQ(gx_objedithome_setdir(too_long.substr(1).c_str()), 0);
    EXPECT_EQ(gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr), nullptr);

    // gx_factory_init does nothing once the directory is set; gx_factory_uninit drops it all.
    gx_objedithome_setdir(dir.path());
    EXPECT_EQ(gx_factory_init(0, 1), 1);
    gx_factory_uninit();
    EXPECT_EQ(gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr), nullptr);
    EXPECT_EQ(gx_objedithome_is_set(), 1);
}

// ---- checks made when an entry is looked up ---------------------------------------------------

struct BadEntry {
    const char *file;
    const char *line;
    int type;
    int code;
    unsigned int number;
    const char *message;
};

const BadEntry bad_entries[] = {
    {"unit", "unit, 209001, \"U\", 0", GX_TYPE_UNIT, 209001, 113,
     "Unit factor (0) in objedit entry is <= 0"},
    {"spheroid", "spheroid, 207001, \"S\", 0, 300", GX_TYPE_SPHEROID, 207001, 111,
     "Semimajor axis (0) in objedit entry is <= 0"},
    {"spheroid", "spheroid, 207001, \"S\", 6378137, 0.5", GX_TYPE_SPHEROID, 207001, 112,
     "Flattening inverse (0.5) in objedit entry is not 0 and is < 1"},
    {"primem", "primem, 208901, \"P\", 180.5", GX_TYPE_PRIMEM, 208901, 114,
     "Longitude (180.5) in objedit entry is < -180 or > 180"},
    {"primem", "primem, 208901, \"P\", -181", GX_TYPE_PRIMEM, 208901, 114,
     "Longitude (-181) in objedit entry is < -180 or > 180"},
    {"datum", "datum, 206001, \"D\", GX_S_NO_SUCH", GX_TYPE_DATUM, 206001, 214,
     "Invalid spheroid factory code (GX_S_NO_SUCH)"},
    {"geogcs", "geogcs, 204001, \"G\", 6326, 8901, 9001", GX_TYPE_GEOGCS, 204001, 123,
     "Wrong unit type (9001) in objedit entry"},
    {"geogcs", "geogcs, 204001, \"G\", GX_D_NO_SUCH, 8901, 9102", GX_TYPE_GEOGCS, 204001, 206,
     "Invalid datum factory code (GX_D_NO_SUCH)"},
    {"projcs", "projcs, 202001, \"P\", 4326, 43006, 9001, 100040, 1", GX_TYPE_PROJCS, 202001, 110,
     "Invalid parameter code (100040) for a projcs in objedit entry"},
    {"projcs", "projcs, 202001, \"P\", 4326, 43006, 9001, 100001, 1, 100001, 2", GX_TYPE_PROJCS,
     202001, 107, "Duplicate parameter code (100001) in objedit entry"},
    {"projcs", "projcs, 202001, \"P\", 4326, 43006, 9001, 100001, 1, 100003", GX_TYPE_PROJCS,
     202001, 116, "Missing value for parameter (100003) in objedit entry"},
    {"projcs", "projcs, 202001, \"P\", 4326, 43006, 100001, 1", GX_TYPE_PROJCS, 202001, 121,
     "Missing unit in objedit entry"},
    {"projcs", "projcs, 202001, \"P\", 4326, 43006, 9001, 4326, 100001, 1", GX_TYPE_PROJCS, 202001,
     218, "Invalid parameter factory code (4326)"},
    {"vertcs", "vertcs, 205601, \"V\", 5103, 9001, 100001, 0, 100007, 1", GX_TYPE_VERTCS, 205601,
     110, "Invalid parameter code (100001) for a vertcs in objedit entry"},
    {"vertcs", "vertcs, 205601, \"V\", 5103, 9001, 100006, 0, 100006, 1", GX_TYPE_VERTCS, 205601,
     107, "Duplicate parameter code (100006) in objedit entry"},
    {"vertcs", "vertcs, 205601, \"V\", GX_VERTD_NO_SUCH, 9001, 100006, 0, 100007, 1",
     GX_TYPE_VERTCS, 205601, 208,
     "Invalid datum or vertical datum factory code (GX_VERTD_NO_SUCH)"},
    {"geogtran", "geogtran, 208001, \"T\", 4267, 4326, 9603, 100040, 1, 100041, 2, 100043, 3",
     GX_TYPE_GEOGTRAN, 208001, 110,
     "Invalid parameter code (100043) for a geogtran in objedit entry"},
    {"geogtran", "geogtran, 208001, \"T\", 4267, 4326, 9603, 100040, 1, 100041, 2",
     GX_TYPE_GEOGTRAN, 208001, 109, "Number of parameters (2) in objedit entry should be 3"},
    {"geogtran", "geogtran, 208001, \"T\", 4267, 4326, 9603, 100040, 1, 100040, 2, 100042, 3",
     GX_TYPE_GEOGTRAN, 208001, 102, "Duplicate parameter code (100040) in objedit entry"},
    {"geogtran", "geogtran, 208001, \"T\", 4267, 4326, GX_MTH_NO_SUCH, 100040, 1", GX_TYPE_GEOGTRAN,
     208001, 215, "Invalid method factory code (GX_MTH_NO_SUCH)"},
    {"verttran", "verttran, 210001, \"H\", 0, 5703, 5702, 129661, 100047, \"Dataset_egm96\"",
     GX_TYPE_VERTTRAN, 210001, 115, "Invalid coordsys type for vtmethod (129661) in object entry"},
    {"verttran", "verttran, 210001, \"H\", 32633, 5703, 5702, 129661, 100047, \"Dataset_egm96\"",
     GX_TYPE_VERTTRAN, 210001, 115, "Invalid coordsys type for vtmethod (129661) in object entry"},
    {"verttran", "verttran, 210001, \"H\", 4326, 5703, 5702, 129661", GX_TYPE_VERTTRAN, 210001, 117,
     "Missing parameter for vtmethod (129661) in objedit entry"},
    {"verttran", "verttran, 210001, \"H\", 4326, 5703, 5702, 129657, 100060, 1", GX_TYPE_VERTTRAN,
     210001, 118, "Missing parameter for vtmethod (129657) in objedit entry"},
    {"verttran", "verttran, 210001, \"H\", 0, 5703, 5702, 129616, 100001, 1", GX_TYPE_VERTTRAN,
     210001, 110, "Invalid parameter code (100001) for a verttran in objedit entry"},
    {"verttran", "verttran, 210001, \"H\", GX_GCS_NO_SUCH, 5703, 5702, 129616, 100060, 1",
     GX_TYPE_VERTTRAN, 210001, 219, "Invalid coordsys factory code (GX_GCS_NO_SUCH)"},
};

TEST_F(ObjEditHome, BadValuesMakeNoRecord)
{
    for (const BadEntry &bad : bad_entries) {
        SCOPED_TRACE(bad.line);
        load(bad.file, std::string(bad.line) + "\n");
        ASSERT_TRUE(messages.all.empty()); // the line loads; its values are checked on lookup
        gx_err_rec err;
        EXPECT_EQ(gx_objedit_find(bad.type, bad.code, &err), nullptr);
        std::string context = "objedit file \"" + std::string(bad.file) + "\" line 1 code " +
                              std::to_string(bad.code);
        expect_message(err, GX_ERRLVL_ERROR, bad.number, context, bad.message);
        EXPECT_EQ(messages.all.size(), 1u);
        // Without a record the routine hears of it all the same.
        messages.clear();
        EXPECT_EQ(gx_objedit_find(bad.type, bad.code, nullptr), nullptr);
        ASSERT_FALSE(messages.all.empty());
        EXPECT_EQ(messages.all[0].number, bad.number);
    }
}

TEST_F(ObjEditHome, WarningsLeaveTheRecordMade)
{
    // A parameter the height method does not use.
    load("verttran", "verttran, 210001, \"H\", 0, 5703, 5702, 129616, 100060, 1, 100061, 2\n");
    gx_err_rec err;
    const gx_defrec *extra = gx_objedit_find(GX_TYPE_VERTTRAN, 210001, &err);
    ASSERT_NE(extra, nullptr);
    EXPECT_EQ(extra->parm_count, 2);
    expect_message(err, GX_ERRLVL_WARNING, 108, "objedit file \"verttran\" line 1 code 210001",
                   "Extra parameter for vtmethod (129616) in objedit entry");

    // A vertical CS without its direction or its shift; a later unit item wins.
    load("vertcs", "vertcs, 205601, \"V\", 5103, 9001, 100006, 0.5, 9002, 9003\n"
                   "vertcs, 205602, \"W\", 5103, 100007, -1, 9001, 9002, 9001\n");
    const gx_defrec *no_direction = gx_objedit_find(GX_TYPE_VERTCS, 205601, &err);
    ASSERT_NE(no_direction, nullptr);
    EXPECT_EQ(no_direction->comp[1], 9003);
    expect_message(err, GX_ERRLVL_WARNING, 119, "objedit file \"vertcs\" line 1 code 205601",
                   "Missing direction parameter in objedit entry");
    const gx_defrec *no_shift = gx_objedit_find(GX_TYPE_VERTCS, 205602, &err);
    ASSERT_NE(no_shift, nullptr);
    expect_message(err, GX_ERRLVL_WARNING, 120, "objedit file \"vertcs\" line 2 code 205602",
                   "Missing vertical shift parameter in objedit entry");

    // A sound lookup clears what the record held.
    load("unit", "unit, 209001, \"U\", 2\n");
    EXPECT_NE(gx_objedit_find(GX_TYPE_UNIT, 209001, &err), nullptr);
    EXPECT_EQ(err.number, 0u);
}

TEST_F(ObjEditHome, WithARecordTheFirstErrorEndsTheEntry)
{
    // Three faults: a parameter not for a projcs, a duplicate, and no unit.
    load("projcs", "projcs, 202001, \"P\", 4326, 43006, 100040, 1, 100001, 0, 100001, 0\n");
    gx_err_rec err;
    EXPECT_EQ(gx_objedit_find(GX_TYPE_PROJCS, 202001, &err), nullptr);
    EXPECT_EQ(err.number, 110u);
    ASSERT_EQ(messages.all.size(), 1u);

    messages.clear();
    EXPECT_EQ(gx_objedit_find(GX_TYPE_PROJCS, 202001, nullptr), nullptr);
    ASSERT_EQ(messages.all.size(), 3u);
    EXPECT_EQ(messages.all[0].number, 110u);
    EXPECT_EQ(messages.all[1].number, 107u);
    EXPECT_EQ(messages.all[2].number, 121u);
}

// ---- the first lookup, in a process of its own ----------------------------------------------

// Runs in a fresh process (the directory is set only once per process): returns 0, or the
// number of the first expectation that failed.
int first_lookup_reads_the_environment(const TempDir &dir)
{
    if (gx_objedithome_is_set())
        return 1;
    dir.write("datum", "datum, 206001, \"D_From_Env\", 7030\n");
    setenv("GXOBJEDITHOME", dir.path(), 1);
    const gx_defrec *rec = gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr);
    if (rec == nullptr || std::strcmp(rec->name, "D_From_Env") != 0)
        return 2;
    if (!gx_objedithome_is_set() || gx_factory_init(0, 1) != 1)
        return 3;
    gx_factory_uninit();
    if (gx_objedit_find(GX_TYPE_DATUM, 206001, nullptr) != nullptr || !gx_objedithome_is_set())
        return 4;
    // Loaded again and left so: the exit handler registered by the first lookup drops it.
    if (gx_objedithome_setdir(dir.path()) != GX_TYPE_DATUM)
        return 5;
    return 0;
}

int init_without_a_directory()
{
    unsetenv("GXOBJEDITHOME");
    if (gx_factory_init(0, 1) != 0 || !gx_objedithome_is_set())
        return 1;
    return gx_objedit_find(GX_TYPE_DATUM, 6326, nullptr) == nullptr ? 0 : 2;
}

int init_with_a_directory(const TempDir &dir)
{
    dir.write("spheroid.txt", "spheroid, 207001, \"S\", 6378000, 300\n");
    setenv("GXOBJEDITHOME", dir.path(), 1);
    if (gx_factory_init(7, 0) != GX_TYPE_SPHEROID) // without the exit handler: the mask
        return 1;
    gx_factory_uninit();
    return 0;
}

// Runs a scenario in a directory of its own, removed before the process exits.
int in_temp_dir(int (*scenario)(const TempDir &))
{
    TempDir dir;
    return scenario(dir);
}

TEST(ObjEditHomeProcess, InitialisationFromTheEnvironment)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(exit(in_temp_dir(first_lookup_reads_the_environment)), ::testing::ExitedWithCode(0),
                "");
    EXPECT_EXIT(exit(init_without_a_directory()), ::testing::ExitedWithCode(0), "");
    EXPECT_EXIT(exit(in_temp_dir(init_with_a_directory)), ::testing::ExitedWithCode(0), "");
}

} // namespace
