// The reverse lookup of an object's code and the tables of predefined objects.
#include "gridex.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct object_guard {
    void *object;
    ~object_guard() { gx_object_del(object); }
};

const char *const wgs84_without_code =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

} // namespace

TEST(FactoryCode, ACodelessObjectIsFoundInTheDatabase)
{
    object_guard coded{gx_factory_geogcs(4326)};
    EXPECT_EQ(gx_factory_code(coded.object), 4326);
    EXPECT_EQ(gx_factory_code(nullptr), 0);

    object_guard gcs{gx_geogcs_from_string(wgs84_without_code)};
    ASSERT_EQ(gx_object_code(gcs.object), -1);
    EXPECT_EQ(gx_factory_code(gcs.object), 4326);
    const auto *header = static_cast<const gx_object_header *>(gcs.object);
    EXPECT_EQ(header->code, 4326);
    EXPECT_STREQ(header->authname, "EPSG");
    EXPECT_STREQ(header->version, "6.13");

    // Nothing current matches, a retired definition does.
    object_guard datum{gx_datum_from_string(
        "DATUM[\"D_ST87_Ouvea\",SPHEROID[\"International_1924\",6378388.0,297.0]]")};
    EXPECT_EQ(gx_factory_code(datum.object), 6635);
}

TEST(FactoryCode, AnUnknownObjectGetsCodeZero)
{
    object_guard primem{gx_primem_new("Nowhere", 12.345)};
    EXPECT_EQ(gx_factory_code(primem.object), 0);
    EXPECT_EQ(gx_object_code(primem.object), 0);
    const double values[] = {1.0}; // a type without code ranges
    object_guard array{gx_array_new("Values", 1, values)};
    EXPECT_EQ(gx_factory_code(array.object), 0);
}

TEST(Predefined, TableIsSortedByNameAndEndsWithAnEmptyEntry)
{
    int count = 0;
    gx_table_entry *table = gx_predefined_geogcs(&count);
    ASSERT_NE(table, nullptr);
    ASSERT_GT(count, 800);
    for (int i = 1; i < count; i++)
        EXPECT_LE(gx_strcmp_ci(table[i - 1].name, table[i].name), 0)
            << table[i - 1].name << " before " << table[i].name;
    EXPECT_EQ(table[count].code, 0);
    EXPECT_STREQ(table[count].name, "");
    bool has_wgs84 = false;
    for (int i = 0; i < count; i++) {
        has_wgs84 =
            has_wgs84 || (table[i].code == 4326 && std::string(table[i].name) == "GCS_WGS_1984");
        EXPECT_NE(table[i].code, 4635); // retired
        EXPECT_NE(table[i].code, 4233); // discontinued
        EXPECT_NE(table[i].code, 4631); // changed
    }
    EXPECT_TRUE(has_wgs84);
    gx_table_del(table);
}

TEST(Predefined, UnitKindsAreListedApart)
{
    int linear = 0;
    int angular = 0;
    int all = 0;
    gx_table_del(gx_predefined_linear_unit(&linear));
    gx_table_entry *angular_table = gx_predefined_angunit(&angular);
    gx_table_del(gx_predefined_unit(&all));
    EXPECT_EQ(linear + angular, all);
    for (int i = 0; i < angular; i++)
        EXPECT_EQ(gx_factory_coderanges_type(angular_table[i].code), int(GX_TYPE_ANGUNIT));
    gx_table_del(angular_table);
}

TEST(Predefined, TypesWithoutObjectsGiveNoTable)
{
    int count = -1;
    EXPECT_EQ(gx_predefined_hvcoordsys(&count), nullptr);
    EXPECT_EQ(count, 0);
    count = -1;
    EXPECT_EQ(gx_predefined_object(GX_TYPE_GEOXYZCS, &count), nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(gx_predefined_object(0, nullptr), nullptr);
    gx_table_del(nullptr);

    gx_table_entry *primems = gx_predefined_primem(nullptr); // a null count is accepted
    EXPECT_NE(primems, nullptr);
    gx_table_del(primems);
}
