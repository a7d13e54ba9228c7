// Code ranges, authorities and code lists.
#include "gridex.h"

#include <gtest/gtest.h>

#include <string>

TEST(CodeRanges, TypeOfACode)
{
    EXPECT_EQ(gx_factory_coderanges_type(9001), 256);
    EXPECT_EQ(gx_factory_coderanges_type(9102), 512);
    EXPECT_EQ(gx_factory_coderanges_type(10084), 524288);
    EXPECT_EQ(gx_factory_coderanges_type(10085), 128);
    EXPECT_EQ(gx_factory_coderanges_type(15780), 128);
    EXPECT_EQ(gx_factory_coderanges_type(15781), 524288);
    EXPECT_EQ(gx_factory_coderanges_type(15782), 128);
    EXPECT_EQ(gx_factory_coderanges_type(4326), 1);
    EXPECT_EQ(gx_factory_coderanges_type(1000), 128);
    EXPECT_EQ(gx_factory_coderanges_type(210099), 524288);
    EXPECT_EQ(gx_factory_coderanges_type(999), 0);
    EXPECT_EQ(gx_factory_coderanges_type(210100), 0);
    EXPECT_EQ(gx_factory_coderanges_type(0), 0);
    EXPECT_EQ(gx_factory_coderanges_type(-4326), 0);
    EXPECT_EQ(gx_factory_coderanges_type(5439), 0); // between ranges
}

TEST(CodeRanges, ChecksAreInclusiveAndNullSafe)
{
    const gx_coderanges *geogcs = gx_factory_coderanges_geogcs();
    EXPECT_EQ(geogcs->count, 4);
    EXPECT_EQ(gx_factory_coderanges_check(geogcs, 4000), 1);
    EXPECT_EQ(gx_factory_coderanges_check(geogcs, 4999), 1);
    EXPECT_EQ(gx_factory_coderanges_check(geogcs, 5000), 0);
    EXPECT_EQ(gx_factory_coderanges_check(nullptr, 4326), 0);
    EXPECT_EQ(gx_factory_coderanges_check(gx_factory_coderanges_hvcoordsys(), 4326), 0);
    EXPECT_EQ(gx_factory_coderanges_hvcoordsys()->count, 0);
    EXPECT_EQ(gx_factory_coderanges_check_type(GX_TYPE_UNIT, 9102), 1);
    EXPECT_EQ(gx_factory_coderanges_check_type(GX_TYPE_LINUNIT, 9102), 0);
    EXPECT_EQ(gx_factory_coderanges_check_type(GX_TYPE_GEOXYZCS, 4326), 0);
}

TEST(CodeRanges, RegistryByType)
{
    EXPECT_EQ(gx_factory_coderanges_tbl(GX_TYPE_PROJCS), gx_factory_coderanges_projcs());
    EXPECT_EQ(gx_factory_coderanges_tbl(GX_TYPE_UNIT), gx_factory_coderanges_unit());
    EXPECT_EQ(gx_factory_coderanges_tbl(GX_TYPE_VTMETHOD), gx_factory_coderanges_vtmethod());
    EXPECT_EQ(gx_factory_coderanges_tbl(0), nullptr);
    EXPECT_EQ(gx_factory_coderanges_tbl(GX_TYPE_GEOXYZCS), nullptr);
    // Angular units have no range of this library's own.
    const gx_coderanges *angunit = gx_factory_coderanges_angunit();
    for (int i = 0; i < angunit->count; i++)
        EXPECT_STRNE(angunit->rows[i].authority, "TAVU");
}

TEST(CodeRanges, AuthorityOfACode)
{
    const char *authority = nullptr;
    const char *version = nullptr;
    gx_factory_authority_unit(9102, &authority, &version);
    EXPECT_STREQ(authority, "EPSG");
    EXPECT_STREQ(version, "6.13");
    gx_factory_authority_geogcs(104020, &authority, &version);
    EXPECT_STREQ(authority, "TAVU");
    EXPECT_STREQ(version, "9.3.0");
    gx_factory_authority_linunit(209050, &authority, &version);
    EXPECT_STREQ(authority, "CUSTOM");
    EXPECT_STREQ(version, "");

    // A code outside every range leaves the outputs as they were.
    const char *keep_a = "unchanged";
    const char *keep_v = "unchanged";
    gx_factory_authority_unit(9500, &keep_a, &keep_v);
    gx_factory_authority_hvcoordsys(4326, &keep_a, &keep_v);
    gx_factory_authority_geogcs(204000 + 1000, &keep_a, &keep_v);
    EXPECT_STREQ(keep_a, "unchanged");
    EXPECT_STREQ(keep_v, "unchanged");
    gx_factory_authority_datum(6326, nullptr, nullptr); // null outputs are allowed
}

namespace {

struct CodeList {
    int *codes;
    int count;
    explicit CodeList(int type) : codes(gx_factory_object_codelist(type, &count)) {}
    ~CodeList() { gx_factory_codelist_del(codes); }
};

void expect_ascending_unique_terminated(const CodeList &list)
{
    ASSERT_NE(list.codes, nullptr);
    for (int i = 1; i < list.count; i++)
        ASSERT_LT(list.codes[i - 1], list.codes[i]);
    EXPECT_EQ(list.codes[list.count], 0);
}

} // namespace

TEST(CodeList, ListsAreAscendingWithoutDuplicatesAndEndWithZero)
{
    const int types[] = {GX_TYPE_GEOGCS,   GX_TYPE_PROJCS,   GX_TYPE_VERTCS,   GX_TYPE_DATUM,
                         GX_TYPE_VDATUM,   GX_TYPE_GEOGTRAN, GX_TYPE_VERTTRAN, GX_TYPE_LINUNIT,
                         GX_TYPE_ANGUNIT,  GX_TYPE_UNIT,     GX_TYPE_PRIMEM,   GX_TYPE_SPHEROID,
                         GX_TYPE_METHOD,   GX_TYPE_HTMETHOD, GX_TYPE_VTMETHOD, GX_TYPE_PROJECTION,
                         GX_TYPE_PARAMETER};
    for (int type : types) {
        SCOPED_TRACE(type);
        CodeList list(type);
        expect_ascending_unique_terminated(list);
        EXPECT_GT(list.count, 0);
    }
    // Aliases appear once: the datum table has more names than codes.
    CodeList datums(GX_TYPE_DATUM);
    EXPECT_LT(datums.count, gx_datum_deftbl.count);
}

TEST(CodeList, UnitListsSplitTheSharedTable)
{
    CodeList linear(GX_TYPE_LINUNIT);
    CodeList angular(GX_TYPE_ANGUNIT);
    CodeList all(GX_TYPE_UNIT);
    for (int i = 0; i < linear.count; i++) {
        EXPECT_FALSE(linear.codes[i] >= 9100 && linear.codes[i] <= 9199) << linear.codes[i];
        EXPECT_EQ(gx_factory_coderanges_type(linear.codes[i]), 256);
    }
    for (int i = 0; i < angular.count; i++)
        EXPECT_EQ(gx_factory_coderanges_type(angular.codes[i]), 512);
    EXPECT_EQ(linear.count + angular.count, all.count);
}

TEST(CodeList, WrappersAndEdgeCases)
{
    int count = -1;
    int *list = gx_factory_linear_unit_codelist(&count);
    CodeList linear(GX_TYPE_LINUNIT);
    ASSERT_EQ(count, linear.count);
    EXPECT_EQ(list[0], linear.codes[0]);
    gx_factory_codelist_del(list);

    list = gx_factory_geogcs_codelist(nullptr); // count is optional
    ASSERT_NE(list, nullptr);
    gx_factory_codelist_del(list);

    // An empty table reports one code: the 0 ahead of the terminator.
    list = gx_factory_hvcoordsys_codelist(&count);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(list[0], 0);
    EXPECT_EQ(list[1], 0);
    gx_factory_codelist_del(list);

    count = -1;
    EXPECT_EQ(gx_factory_object_codelist(GX_TYPE_GEOXYZCS, &count), nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(gx_factory_object_codelist(0, nullptr), nullptr);
    gx_factory_codelist_del(nullptr);
}
