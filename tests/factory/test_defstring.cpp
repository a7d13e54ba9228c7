// Macro names to codes and back.
#include "factory/gx_defstring_compare.h"
#include "gridex.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const gx_deftbl *const all_tables[] = {
    &gx_geogcs_deftbl,       &gx_projcs_deftbl,    &gx_vertcs_deftbl,   &gx_hvcoordsys_deftbl,
    &gx_datum_deftbl,        &gx_vdatum_deftbl,    &gx_geogtran_deftbl, &gx_unit_deftbl,
    &gx_primem_deftbl,       &gx_spheroid_deftbl,  &gx_method_deftbl,   &gx_htmethod_deftbl,
    &gx_projection_deftbl,   &gx_parameter_deftbl, &gx_vtmethod_deftbl, &gx_verttran_deftbl,
    &gx_discontinued_deftbl,
};

// The first macro of a code in table order, as code-to-name lookup must find it.
const char *first_macro(const gx_deftbl *table, int code)
{
    for (int i = 0; i < table->count; i++)
        if (table->rows[i].code == code)
            return table->rows[i].macro;
    return nullptr;
}

bool in_table(const gx_deftbl *table, const char *macro)
{
    for (int i = 0; i < table->count; i++)
        if (std::string(table->rows[i].macro) == macro)
            return true;
    return false;
}

} // namespace

TEST(DefString, MacroComparisonFoldsCaseAndHyphens)
{
    EXPECT_EQ(gx_defstring_compare("GX_U_FOOT", "gx-u-foot"), 0);
    EXPECT_LT(gx_defstring_compare("GX_U_FOOT", "GX_U_FOOT_US"), 0);
    EXPECT_GT(gx_defstring_compare("GX_U_FOOT_US", "GX_U_FOOT"), 0);
    EXPECT_LT(gx_defstring_compare("GX_D_A", "GX_D_B"), 0);
    EXPECT_EQ(gx_defstring_compare("", ""), 0);
}

TEST(DefString, EveryTableIsSortedForBinarySearch)
{
    for (const gx_deftbl *table : all_tables)
        for (int i = 1; i < table->count; i++)
            ASSERT_LT(gx_defstring_compare(table->rows[i - 1].macro, table->rows[i].macro), 0)
                << table->rows[i].macro;
}

TEST(DefString, EveryMacroRoundTripsToTheFirstMacroOfItsCode)
{
    for (const gx_deftbl *table : all_tables) {
        if (table == &gx_discontinued_deftbl)
            continue;
        for (int i = 0; i < table->count; i++) {
            const gx_deftbl_entry &row = table->rows[i];
            ASSERT_EQ(gx_factory_defstring_to_int(row.macro), row.code) << row.macro;
            ASSERT_STREQ(gx_factory_int_to_defstring(row.code), first_macro(table, row.code))
                << row.macro;
        }
    }
}

TEST(DefString, NamesMayBeWrittenLoosely)
{
    int foot = gx_factory_defstring_to_int("GX_U_FOOT");
    EXPECT_EQ(foot, 9002);
    EXPECT_EQ(gx_factory_defstring_to_int("   GX_U_FOOT"), foot);
    EXPECT_EQ(gx_factory_defstring_to_int("\tgx-u-foot"), foot);
    EXPECT_EQ(gx_factory_defstring_to_int("gx_gcs_wgs_1984"), 4326);
    EXPECT_EQ(gx_factory_defstring_to_int("GX-GCS-WGS_1984"), 4326);
    // The loose prefix only chooses the table; the name itself must still match.
    EXPECT_EQ(gx_factory_defstring_to_int("GXGCS WGS_1984"), 0);
    // A vertical method is not taken for a vertical transformation.
    EXPECT_EQ(gx_factory_defstring_to_int("GX_VTMTH_EGM84"), 129861);
}

TEST(DefString, NumbersAreTakenAsTheyStand)
{
    EXPECT_EQ(gx_factory_defstring_to_int("4326"), 4326);
    EXPECT_EQ(gx_factory_defstring_to_int("4326abc"), 4326);
    EXPECT_EQ(gx_factory_defstring_to_int("  99999999"), 99999999);
    EXPECT_EQ(gx_factory_defstring_to_int("99999999999999"), 2147483647);
}

TEST(DefString, UnknownNamesGiveZero)
{
    EXPECT_EQ(gx_factory_defstring_to_int(nullptr), 0);
    EXPECT_EQ(gx_factory_defstring_to_int(""), 0);
    EXPECT_EQ(gx_factory_defstring_to_int("   "), 0);
    EXPECT_EQ(gx_factory_defstring_to_int("GX_GCS_NO_SUCH_SYSTEM"), 0);
    EXPECT_EQ(gx_factory_defstring_to_int("GX_NOPREFIX_WGS_1984"), 0);
    EXPECT_EQ(gx_factory_defstring_to_int("GX_U_FOOT "), 0);
    EXPECT_EQ(gx_factory_defstring_to_int("-4326"), 0);
}

TEST(DefString, DiscontinuedNamesAreFoundLast)
{
    EXPECT_EQ(gx_discontinued_deftbl.count, 16);
    EXPECT_EQ(gx_factory_defstring_to_int("GX_D_GANDAJIKA_1970"), 6233);
    // K0 1949 is gone from the datum table; only the discontinued table knows the name.
    ASSERT_FALSE(in_table(&gx_datum_deftbl, "GX_D_K0_1949"));
    EXPECT_EQ(gx_factory_defstring_to_int("GX_D_K0_1949"), 6631);
    EXPECT_EQ(gx_factory_defstring_to_int("gx_pcs_k0_1949_utm_42s"), 2979);
    EXPECT_STREQ(gx_factory_int_to_defstring(6631), "GX_D_K0_1949");
    EXPECT_STREQ(gx_factory_int_to_defstring(4631), "GX_GCS_K0_1949");
}

TEST(DefString, CodesWithoutNames)
{
    EXPECT_EQ(gx_factory_int_to_defstring(0), nullptr);
    EXPECT_EQ(gx_factory_int_to_defstring(999), nullptr);
    EXPECT_EQ(gx_factory_int_to_defstring(4998), nullptr);
    EXPECT_EQ(gx_factory_int_to_defstring(-4326), nullptr);
    EXPECT_EQ(gx_factory_int_to_defstring(210100), nullptr);
    // Unit codes go through the linear or the angular row of the registry.
    EXPECT_STREQ(gx_factory_int_to_defstring(9001), "GX_U_METER");
    EXPECT_STREQ(gx_factory_int_to_defstring(9102), "GX_U_DEGREE");
}

TEST(DefString, TablesByType)
{
    EXPECT_EQ(gx_factory_defstring_get_tbl(GX_TYPE_GEOGCS), &gx_geogcs_deftbl);
    EXPECT_EQ(gx_factory_defstring_get_tbl(GX_TYPE_LINUNIT), &gx_unit_deftbl);
    EXPECT_EQ(gx_factory_defstring_get_tbl(GX_TYPE_ANGUNIT), &gx_unit_deftbl);
    EXPECT_EQ(gx_factory_defstring_get_tbl(GX_TYPE_UNIT), &gx_unit_deftbl);
    EXPECT_EQ(gx_factory_defstring_get_tbl(GX_TYPE_VTMETHOD), &gx_vtmethod_deftbl);
    EXPECT_EQ(gx_factory_defstring_get_tbl(GX_TYPE_HVCOORDSYS), &gx_hvcoordsys_deftbl);
    EXPECT_EQ(gx_hvcoordsys_deftbl.count, 0);
    EXPECT_EQ(gx_factory_defstring_get_tbl(GX_TYPE_GEOXYZCS), nullptr);
    EXPECT_EQ(gx_factory_defstring_get_tbl(0), nullptr);
}
