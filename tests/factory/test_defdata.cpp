// The generated tables against the data files they come from, and the generator itself.
#include "factory/gx_defdata.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const std::string data_dir = GX_DEFINITIONS_DIR;

// The entries of a data file, split the simple way: the data has no commas inside names.
std::vector<std::vector<std::string>> read_rows(const std::string &file)
{
    std::ifstream in(data_dir + "/" + file);
    EXPECT_TRUE(in.good()) << file;
    std::vector<std::vector<std::string>> rows;
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::vector<std::string> tokens;
        std::stringstream fields(line);
        std::string token;
        while (std::getline(fields, token, ',')) {
            token.erase(0, token.find_first_not_of(' '));
            if (token.size() >= 2 && token.front() == '"' && token.back() == '"')
                token = token.substr(1, token.size() - 2);
            tokens.push_back(token);
        }
        rows.push_back(tokens);
    }
    return rows;
}

struct TypeInfo {
    const char *name;
    int type;
    int comps; // component slots in use, including a projcs or vertcs unit
    int values;
    const int *changes;
    const int *discontinued;
};

const TypeInfo types[] = {
    {"unit", GX_TYPE_UNIT, 0, 1, gx_factory_unit_codechange_codes,
     gx_factory_unit_discontinued_codes},
    {"spheroid", GX_TYPE_SPHEROID, 0, 2, gx_factory_spheroid_codechange_codes,
     gx_factory_spheroid_discontinued_codes},
    {"primem", GX_TYPE_PRIMEM, 0, 1, gx_factory_primem_codechange_codes,
     gx_factory_primem_discontinued_codes},
    {"datum", GX_TYPE_DATUM, 1, 0, gx_factory_datum_codechange_codes,
     gx_factory_datum_discontinued_codes},
    {"vdatum", GX_TYPE_VDATUM, 0, 0, gx_factory_vdatum_codechange_codes,
     gx_factory_vdatum_discontinued_codes},
    {"geogcs", GX_TYPE_GEOGCS, 3, 0, gx_factory_geogcs_codechange_codes,
     gx_factory_geogcs_discontinued_codes},
    {"projcs", GX_TYPE_PROJCS, 3, 0, gx_factory_projcs_codechange_codes,
     gx_factory_projcs_discontinued_codes},
    {"vertcs", GX_TYPE_VERTCS, 2, 0, gx_factory_vertcs_codechange_codes,
     gx_factory_vertcs_discontinued_codes},
    {"geogtran", GX_TYPE_GEOGTRAN, 3, 0, gx_factory_geogtran_codechange_codes,
     gx_factory_geogtran_discontinued_codes},
    {"verttran", GX_TYPE_VERTTRAN, 4, 0, gx_factory_verttran_codechange_codes,
     gx_factory_verttran_discontinued_codes},
};

// The fields after the name, as the record holds them, in the data file's order.
std::vector<std::string> fields_of(const TypeInfo &info, const gx_defrec &rec)
{
    std::vector<std::string> out;
    auto number = [](double v) {
        std::ostringstream s;
        s.precision(17);
        s << v;
        return s.str();
    };
    for (int i = 0; i < info.comps; i++)
        out.push_back(std::to_string(rec.comp[i]));
    for (int i = 0; i < info.values; i++)
        out.push_back(number(rec.value[i]));
    for (int i = 0; i < rec.parm_count; i++) {
        out.push_back(std::to_string(rec.parms[i].code));
        out.push_back(rec.parms[i].text ? rec.parms[i].text : number(rec.parms[i].value));
    }
    return out;
}

// Fields compare as numbers where they are numbers (1.0 and 1 are the same value).
bool same_field(const std::string &file, const std::string &rec)
{
    char *end_a;
    char *end_b;
    double a = std::strtod(file.c_str(), &end_a);
    double b = std::strtod(rec.c_str(), &end_b);
    if (*end_a == '\0' && *end_b == '\0' && end_a != file.c_str())
        return a == b;
    return file == rec;
}

} // namespace

TEST(DefData, EveryEntryOfTheDataFilesIsInItsTable)
{
    for (const TypeInfo &info : types) {
        SCOPED_TRACE(info.name);
        auto rows = read_rows(std::string(info.name) + ".txt");
        const gx_deftable *table = gx_defdata_table(info.type);
        ASSERT_NE(table, nullptr);
        ASSERT_EQ(table->count, static_cast<int>(rows.size()));
        for (int i = 1; i < table->count; i++)
            ASSERT_LT(table->rows[i - 1].code, table->rows[i].code);
        for (const auto &row : rows) {
            const gx_defrec *rec = gx_defdata_find(info.type, std::stoi(row[1]));
            ASSERT_NE(rec, nullptr) << row[1];
            EXPECT_EQ(rec->name, row[2]);
            std::vector<std::string> fields = fields_of(info, *rec);
            ASSERT_EQ(fields.size() + 3, row.size()) << row[1];
            for (size_t f = 0; f < fields.size(); f++)
                EXPECT_TRUE(same_field(row[f + 3], fields[f]))
                    << row[1] << ": " << row[f + 3] << " vs " << fields[f];
        }
    }
}

TEST(DefData, FindByTypeAndCode)
{
    const gx_defrec *meter = gx_defdata_find(GX_TYPE_LINUNIT, 9001);
    ASSERT_NE(meter, nullptr);
    EXPECT_EQ(meter, gx_defdata_find(GX_TYPE_UNIT, 9001));
    EXPECT_EQ(meter->value[0], 1.0);
    const gx_defrec *nadcon = gx_defdata_find(GX_TYPE_GEOGTRAN, 1241);
    ASSERT_NE(nadcon, nullptr);
    ASSERT_EQ(nadcon->parm_count, 1);
    EXPECT_EQ(nadcon->parms[0].code, GX_DEFDATA_DATASET_PARM);
    EXPECT_STREQ(nadcon->parms[0].text, "Dataset_conus");
    EXPECT_EQ(gx_defdata_find(GX_TYPE_DATUM, 6631), nullptr); // changed, not defined
    EXPECT_EQ(gx_defdata_find(GX_TYPE_DATUM, 0), nullptr);
    EXPECT_EQ(gx_defdata_find(GX_TYPE_METHOD, 9603), nullptr);
    EXPECT_EQ(gx_defdata_find(0, 4326), nullptr);
    EXPECT_EQ(gx_defdata_table(GX_TYPE_HVCOORDSYS), nullptr);
}

TEST(DefData, MacroTablesHoldEveryRowOfMacrosTxt)
{
    const std::map<std::string, const gx_deftbl *> tables = {
        {"geogcs", &gx_geogcs_deftbl},       {"projcs", &gx_projcs_deftbl},
        {"vertcs", &gx_vertcs_deftbl},       {"datum", &gx_datum_deftbl},
        {"vdatum", &gx_vdatum_deftbl},       {"geogtran", &gx_geogtran_deftbl},
        {"unit", &gx_unit_deftbl},           {"primem", &gx_primem_deftbl},
        {"spheroid", &gx_spheroid_deftbl},   {"method", &gx_method_deftbl},
        {"htmethod", &gx_htmethod_deftbl},   {"projection", &gx_projection_deftbl},
        {"parameter", &gx_parameter_deftbl}, {"vtmethod", &gx_vtmethod_deftbl},
        {"verttran", &gx_verttran_deftbl},
    };
    std::map<std::string, int> rows_per_type;
    for (const auto &row : read_rows("macros.txt")) {
        ASSERT_EQ(tables.count(row[0]), 1u) << row[0];
        rows_per_type[row[0]]++;
        EXPECT_EQ(gx_factory_defstring_to_int(row[2].c_str()), std::stoi(row[1])) << row[2];
    }
    for (const auto &[type, table] : tables)
        EXPECT_EQ(table->count, rows_per_type[type]) << type;
}

TEST(DefData, ChangedCodesFollowChangesTxt)
{
    std::map<std::string, std::vector<int>> pairs;
    for (const auto &row : read_rows("changes.txt")) {
        pairs[row[0]].push_back(std::stoi(row[1]));
        pairs[row[0]].push_back(std::stoi(row[2]));
    }
    for (const TypeInfo &info : types) {
        SCOPED_TRACE(info.name);
        std::vector<int> listed;
        for (const int *p = info.changes; p[0] != 0; p += 2)
            listed.insert(listed.end(), {p[0], p[1]});
        EXPECT_EQ(listed, pairs[info.name]);
    }
    EXPECT_EQ(gx_factory_hvcoordsys_codechange_codes[0], 0);
    EXPECT_EQ(gx_factory_primem_codechange_codes[0], 0);
}

TEST(DefData, CodeChangeAndDiscontinuedLookups)
{
    EXPECT_EQ(gx_factory_codechange_lookup(gx_factory_datum_codechange_codes, 106001), 6760);
    EXPECT_EQ(gx_factory_codechange_lookup(gx_factory_datum_codechange_codes, 6326), 0);
    EXPECT_EQ(gx_factory_codechange_lookup(gx_factory_datum_codechange_codes, 0), 0);
    EXPECT_EQ(gx_factory_codechange_lookup(nullptr, 106001), 0);

    EXPECT_EQ(gx_factory_discontinued_lookup(gx_factory_datum_discontinued_codes, 6264), 1);
    EXPECT_EQ(gx_factory_discontinued_lookup(gx_factory_datum_discontinued_codes, 6326), 0);
    EXPECT_EQ(gx_factory_discontinued_lookup(gx_factory_datum_discontinued_codes, 0), 0);
    EXPECT_EQ(gx_factory_discontinued_lookup(nullptr, 6264), 0);

    // The per-type lists hold exactly the codes of the discontinued name table.
    int listed = 0;
    for (const TypeInfo &info : types)
        for (const int *p = info.discontinued; *p != 0; p++, listed++)
            EXPECT_NE(gx_factory_int_to_defstring(*p), nullptr) << *p;
    EXPECT_EQ(listed, gx_discontinued_deftbl.count);
    for (int i = 0; i < gx_discontinued_deftbl.count; i++) {
        int code = gx_discontinued_deftbl.rows[i].code;
        bool found = false;
        for (const TypeInfo &info : types)
            found = found || gx_factory_discontinued_lookup(info.discontinued, code);
        EXPECT_TRUE(found) << code;
    }
}

TEST(DefData, AccuracyTableFollowsAccuracyTxt)
{
    auto rows = read_rows("accuracy.txt");
    ASSERT_EQ(gx_nga_geogtran_error_count, static_cast<int>(rows.size()));
    for (size_t i = 0; i < rows.size(); i++) {
        const gx_nga_error &e = gx_nga_geogtran_errors[i];
        EXPECT_EQ(e.agency, rows[i][0]);
        EXPECT_EQ(e.code, std::stoi(rows[i][1]));
        EXPECT_EQ(e.ex, std::stod(rows[i][2]));
        EXPECT_EQ(e.ey, std::stod(rows[i][3]));
        EXPECT_EQ(e.ez, std::stod(rows[i][4]));
        EXPECT_NE(gx_defdata_find(GX_TYPE_GEOGTRAN, e.code), nullptr);
    }
    const gx_nga_error &end = gx_nga_geogtran_errors[rows.size()];
    EXPECT_EQ(end.agency, nullptr);
    EXPECT_EQ(end.code, 0);
}

namespace {

// A fresh directory under the system's temporary one, removed on destruction.
struct TempDir {
    fs::path path;
    explicit TempDir(const std::string &tag)
        : path(fs::temp_directory_path() /
               ("gx_gendefs_" + tag + "_" +
                std::to_string(::testing::UnitTest::GetInstance()->random_seed())))
    {
        fs::remove_all(path);
        fs::create_directories(path);
    }
    ~TempDir() { fs::remove_all(path); }
};

int run_generator(const fs::path &data, const fs::path &out, const fs::path &log)
{
    std::string command = std::string("\"") + GX_GENDEFS_PATH + "\" \"" + data.string() + "\" \"" +
                          out.string() + "\" 2>\"" + log.string() + "\"";
    return std::system(command.c_str());
}

std::string contents(const fs::path &file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace

TEST(Generator, SameDataGivesByteIdenticalSources)
{
    TempDir first("first");
    TempDir second("second");
    ASSERT_EQ(run_generator(data_dir, first.path, first.path / "log"), 0);
    ASSERT_EQ(run_generator(data_dir, second.path, second.path / "log"), 0);
    int compared = 0;
    for (const auto &file : fs::directory_iterator(first.path)) {
        if (file.path().extension() != ".cpp")
            continue;
        EXPECT_EQ(contents(file.path()), contents(second.path / file.path().filename()))
            << file.path().filename();
        compared++;
    }
    EXPECT_EQ(compared, 13);
}

TEST(Generator, BadDataStopsWithItsPlace)
{
    TempDir dir("bad");
    fs::path data = dir.path / "data";
    fs::create_directories(data);
    for (const auto &file : fs::directory_iterator(data_dir))
        fs::copy_file(file.path(), data / file.path().filename());

    struct Case {
        const char *file;
        const char *line;
        const char *message;
    };
    const Case cases[] = {
        {"unit.txt", "unit, 9001, \"Meter_Again\", 1.0", "already defined"},
        {"spheroid.txt", "spheroid, 7999, \"Bad\", 6378137.0, 298.x", "not a number"},
        {"datum.txt", "datum, 6999, \"Bad\", GX_S_NO_SUCH_SPHEROID", "not a code"},
        {"projcs.txt", "projcs, 3999, \"Bad\", 4326, 43006, 100001", "no value"},
        {"geogcs.txt", "geogcs, 4999, \"Bad\", 6326, 8901", "tokens"},
        {"changes.txt", "datum, 6326, 6327", "still defined"},
        {"macros.txt", "datum, 6999, GX_D_NOT_DEFINED", "not a datum"},
        {"vdatum.txt", "vdatum, 5299, \"open", "Unbalanced quotes"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.file);
        std::string original = contents(data / c.file);
        std::ofstream(data / c.file, std::ios::app) << c.line << "\n";
        fs::path log = dir.path / "log";
        EXPECT_NE(run_generator(data, dir.path, log), 0);
        EXPECT_NE(contents(log).find(c.file), std::string::npos) << contents(log);
        EXPECT_NE(contents(log).find(c.message), std::string::npos) << contents(log);
        std::ofstream(data / c.file, std::ios::trunc | std::ios::binary) << original;
    }
}
