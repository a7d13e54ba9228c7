// The whole database through the factory: every entry of the data files builds through its
// type factory and through gx_factory, survives a WKT round trip, and the predefined lists hold
// as many objects per type as the data files define.
#include "gridex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using factory_fn = void *(*)(int, gx_err_rec *);
template <auto Factory> void *generic(int code, gx_err_rec *err) { return Factory(code, err); }

struct database_type {
    const char *file;
    int type;
    factory_fn make;
};

const database_type database_types[] = {
    {"unit", GX_TYPE_UNIT, generic<gx_factory_unit_errext>},
    {"spheroid", GX_TYPE_SPHEROID, generic<gx_factory_spheroid_errext>},
    {"primem", GX_TYPE_PRIMEM, generic<gx_factory_primem_errext>},
    {"datum", GX_TYPE_DATUM, generic<gx_factory_datum_errext>},
    {"vdatum", GX_TYPE_VDATUM, generic<gx_factory_vdatum_errext>},
    {"geogcs", GX_TYPE_GEOGCS, generic<gx_factory_geogcs_errext>},
    {"projcs", GX_TYPE_PROJCS, generic<gx_factory_projcs_errext>},
    {"vertcs", GX_TYPE_VERTCS, generic<gx_factory_vertcs_errext>},
    {"geogtran", GX_TYPE_GEOGTRAN, generic<gx_factory_geogtran_errext>},
    {"verttran", GX_TYPE_VERTTRAN, generic<gx_factory_verttran_errext>},
};

// The codes of a data file's entries, in file order.
std::vector<int> codes_of(const char *file)
{
    std::ifstream in(std::string(GX_DEFINITIONS_DIR) + "/" + file + ".txt");
    EXPECT_TRUE(in.good()) << file;
    std::vector<int> codes;
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        const size_t comma = line.find(',');
        codes.push_back(std::stoi(line.substr(comma + 1)));
    }
    return codes;
}

// Codes of every type that still build but are no longer recommended.
std::set<int> discontinued_codes()
{
    std::set<int> codes;
    for (int i = 0; i < gx_discontinued_deftbl.count; i++)
        codes.insert(gx_discontinued_deftbl.rows[i].code);
    return codes;
}

struct object_guard {
    void *object;
    ~object_guard() { gx_object_del(object); }
};

std::string with_brackets(std::string text)
{
    for (char &c : text)
        c = c == '(' ? '[' : c == ')' ? ']' : c;
    return text;
}

// Reads a text back and compares the copy with the object.
bool reads_back_equal(const void *object, const char *text)
{
    object_guard copy{gx_object_from_string(text)};
    return copy.object != nullptr && gx_object_eq(object, copy.object);
}

// Writes the object with every authority (options 2), reads the text back and writes the copy:
// the same text, except that the reader takes parentheses in names for square brackets.  The
// copy equals the object unless a name held parentheses, or the text did not fit the 1024-byte
// buffer: the writer then leaves off what does not fit (the last parameters of the longest
// transformations), and the text with the object's own authority only (options 1) must read
// back equal instead.  Returns whether the text was cut.
bool expect_round_trip(const void *object)
{
    char text[GX_TEXT_LEN];
    char again[GX_TEXT_LEN];
    gx_object_to_string_ext(object, 2, text);
    gx_err_rec err;
    object_guard copy{gx_object_from_string_errext(text, &err)};
    EXPECT_NE(copy.object, nullptr) << text << "\n" << err.message;
    if (copy.object == nullptr)
        return false;
    EXPECT_EQ(gx_object_to_string_ext(copy.object, 2, again), with_brackets(text));
    if (std::string(text).find('(') != std::string::npos || gx_object_eq(object, copy.object))
        return false;
    EXPECT_GT(std::strlen(text), 900u) << "lost in a text that fits:\n" << text;
    char short_text[GX_TEXT_LEN];
    EXPECT_TRUE(reads_back_equal(object, gx_object_to_string_ext(object, 1, short_text)))
        << short_text;
    return true;
}

} // namespace

TEST(FactoryDatabase, EveryEntryBuildsAndRoundTripsThroughWkt)
{
    const std::set<int> discontinued = discontinued_codes();
    for (const database_type &t : database_types) {
        SCOPED_TRACE(t.file);
        int built = 0;
        int cut = 0;
        for (int code : codes_of(t.file)) {
            SCOPED_TRACE(code);
            gx_err_rec err;
            object_guard made{t.make(code, &err)};
            ASSERT_NE(made.object, nullptr) << err.message;
            const auto *header = static_cast<const gx_object_header *>(made.object);
            EXPECT_EQ(header->code, code);
            EXPECT_EQ(header->status, discontinued.count(code) ? unsigned(GX_STATUS_DISCONTINUED)
                                                               : unsigned(GX_STATUS_CODE));
            object_guard generic_made{gx_factory_errext(code, &err)};
            ASSERT_NE(generic_made.object, nullptr) << err.message;
            EXPECT_TRUE(gx_object_eq(made.object, generic_made.object));
            cut += expect_round_trip(made.object);
            built++;
        }
        if (cut > 0)
            RecordProperty(std::string(t.file) + "_texts_cut", cut);
        // Every code of the type's code list is an entry of its file, and no more.
        int listed = 0;
        int *list = gx_factory_object_codelist(t.type, &listed);
        EXPECT_EQ(listed, built);
        gx_factory_codelist_del(list);
    }
}

TEST(FactoryDatabase, PredefinedListsHoldTheCurrentEntriesOfEveryType)
{
    const std::set<int> discontinued = discontinued_codes();
    for (const database_type &t : database_types) {
        SCOPED_TRACE(t.file);
        std::vector<int> expected;
        for (int code : codes_of(t.file))
            if (!discontinued.count(code))
                expected.push_back(code);
        int count = -1;
        gx_table_entry *table = gx_predefined_object(t.type, &count);
        ASSERT_NE(table, nullptr);
        ASSERT_EQ(count, static_cast<int>(expected.size()));
        std::set<int> listed;
        for (int i = 0; i < count; i++)
            listed.insert(table[i].code);
        EXPECT_EQ(listed, std::set<int>(expected.begin(), expected.end()));
        gx_table_del(table);
    }
}

namespace {

// The first present slot among `slots`, in radians, or `fallback`.
double angle_slot(gx_projcs *cs, std::initializer_list<int> slots, double fallback)
{
    gx_parameter **parameters = gx_projcs_parameters(cs);
    const double factor = gx_unit_factor(gx_geogcs_unit(gx_projcs_geogcs(cs)));
    for (int slot : slots)
        if (parameters[slot] != nullptr)
            return gx_parameter_value(parameters[slot]) * factor;
    return fallback;
}

} // namespace

// Every built-in projected system either refuses to convert (a projection whose formulas the
// library lacks: 0, the points untouched) or projects two points a tenth of a degree apart near
// its origin to plane points some kilometres apart, and back.  A projection wired to the identity
// would put them a few thousandths of a unit apart and fails.
TEST(FactoryDatabase, EveryProjectedSystemConvertsOrRefuses)
{
    constexpr double degree = 0.017453292519943295;
    int listed = 0;
    int *codes = gx_factory_object_codelist(GX_TYPE_PROJCS, &listed);
    int converted = 0;
    for (int i = 0; i < listed; ++i) {
        SCOPED_TRACE(codes[i]);
        auto *cs = static_cast<gx_projcs *>(gx_factory(codes[i]));
        ASSERT_NE(cs, nullptr);
        const double unit = gx_unit_factor(gx_geogcs_unit(gx_projcs_geogcs(cs)));
        const double lon0 = angle_slot(cs, {2, 10, 8}, 0.0);
        const double lat0 = std::clamp(angle_slot(cs, {6, 11, 3}, 0.0), -80 * degree, 80 * degree);
        const double input[4] = {(lon0 + 0.05 * degree) / unit, (lat0 - 0.05 * degree) / unit,
                                 (lon0 + 0.05 * degree) / unit, (lat0 + 0.05 * degree) / unit};
        double points[4];
        std::copy(input, input + 4, points);
        const int forward = gx_geog_to_proj(cs, 2, points);
        if (forward == 0) {
            EXPECT_TRUE(std::equal(input, input + 4, points));
        } else {
            ++converted;
            ASSERT_EQ(forward, 2);
            const double metres = gx_unit_factor(gx_projcs_unit(cs));
            const double apart = std::hypot(points[2] - points[0], points[3] - points[1]) * metres;
            EXPECT_GT(apart, 1000.0);
            EXPECT_LT(apart, 100000.0);
            ASSERT_EQ(gx_proj_to_geog_center(cs, 2, points, lon0 / unit), 2);
            for (int k = 0; k < 4; ++k)
                EXPECT_NEAR(points[k], input[k], 1e-9 * degree / unit) << k;
        }
        gx_projcs_del(cs);
    }
    gx_factory_codelist_del(codes);
    RecordProperty("converted", converted);
    RecordProperty("refused", listed - converted);
}
