// The parameter registry: the table's integrity, lookups with the dataset rule, the factories
// and their errors.
#include "gridex.h"

#include <gtest/gtest.h>

namespace {

const gx_object_header *header(const gx_parameter *p)
{
    return reinterpret_cast<const gx_object_header *>(p);
}

} // namespace

TEST(Parmlist, TableIntegrity)
{
    const unsigned int usages =
        GX_TYPE_PROJCS | GX_TYPE_VERTCS | GX_TYPE_GEOGTRAN | GX_TYPE_VERTTRAN;
    int rows = 0;
    for (int code = 100000; code <= 100999; ++code) {
        const gx_parmlist_entry *entry = gx_parmlist_from_code(code);
        if (entry == nullptr)
            continue;
        ++rows;
        SCOPED_TRACE(entry->name);
        EXPECT_EQ(gx_parmlist_from_name(entry->name), entry); // names unique, none hidden
        EXPECT_EQ(gx_parmlist_index_from_code(code), entry->index);
        EXPECT_TRUE(entry->index >= 0 && entry->index <= 15);
        EXPECT_TRUE(entry->usage != 0 && (entry->usage & ~usages) == 0);
        EXPECT_STREQ(entry->authority, "TAVU");
        EXPECT_STREQ(entry->version, "9.3.0");
    }
    EXPECT_EQ(rows, 41);
    EXPECT_EQ(gx_parmlist_index_from_name("longitude_of_origin"), 2); // shares central meridian's
    EXPECT_EQ(gx_parmlist_from_code(100012)->default_value, -75.0);
    EXPECT_EQ(gx_parmlist_index_from_code(100999), -1);
    EXPECT_EQ(gx_parmlist_index_from_name("Semi_Major"), -1);
}

TEST(Parmlist, DatasetNamesNameTheDatasetParameter)
{
    const gx_parmlist_entry *dataset = gx_parmlist_from_name("Dataset_ntv2_file");
    ASSERT_NE(dataset, nullptr);
    EXPECT_EQ(dataset->code, 100047);
    EXPECT_EQ(dataset->usage, 0x80080u);
    EXPECT_EQ(gx_parmlist_index_from_name("Dataset_ntv2_file"), 15);
    EXPECT_EQ(gx_parmlist_from_name("DATASET_x"), dataset);
    EXPECT_EQ(gx_parmlist_from_name("Dataset_"), dataset);
    EXPECT_EQ(gx_parmlist_from_name("Dataset"), nullptr);
    EXPECT_EQ(gx_parmlist_index_from_name("Dataset"), -1);
    EXPECT_EQ(gx_parmlist_from_name("My_Dataset_file"), nullptr);
    EXPECT_EQ(gx_parmlist_from_name(nullptr), nullptr);
}

TEST(Parmlist, Factories)
{
    gx_err_rec err;
    gx_parameter *by_code = gx_parmlist_parameter_from_code(100022, &err);
    ASSERT_NE(by_code, nullptr);
    EXPECT_STREQ(header(by_code)->name, "Latitude_Of_Center");
    EXPECT_EQ(gx_parameter_value(by_code), 40.0);
    EXPECT_EQ(header(by_code)->status, unsigned{GX_STATUS_CODE});
    EXPECT_EQ(header(by_code)->code, 100022);
    EXPECT_STREQ(header(by_code)->authname, "TAVU");

    gx_parameter *with_value = gx_parmlist_parameter_from_code_value(100003, 0.9996, nullptr);
    EXPECT_EQ(gx_parameter_value(with_value), 0.9996);
    EXPECT_EQ(header(with_value)->status, unsigned{GX_STATUS_STRING});

    gx_parameter *by_name = gx_parmlist_parameter_from_name("Dataset_conus", &err);
    ASSERT_NE(by_name, nullptr);
    EXPECT_STREQ(header(by_name)->name, "Dataset_conus"); // the grid file stays in the name
    EXPECT_EQ(header(by_name)->code, 100047);
    EXPECT_EQ(header(by_name)->status, unsigned{GX_STATUS_STRING});

    gx_parameter_name_set(by_name, "Azimuth");
    gx_parmlist_set_code(by_name);
    EXPECT_EQ(header(by_name)->code, 100004);
    for (gx_parameter *p : {by_code, with_value, by_name})
        gx_parameter_del(p);

    EXPECT_EQ(gx_parmlist_parameter_from_code(100008, &err), nullptr);
    EXPECT_EQ(err.level, unsigned{GX_ERRLVL_ERROR});
    EXPECT_EQ(err.category, unsigned{GX_ERRCAT_FACTORY});
    EXPECT_EQ(err.number, 218u);
    EXPECT_STREQ(err.message, "Invalid parameter factory code (100008)");
    EXPECT_STREQ(err.function, "gx_parmlist_parameter_from_code");
    EXPECT_EQ(gx_parmlist_parameter_from_code_value(43001, 1.0, &err), nullptr);
    EXPECT_EQ(err.number, 218u);
    EXPECT_EQ(gx_parmlist_parameter_from_name("Dataset", &err), nullptr);
    EXPECT_EQ(err.category, unsigned{GX_ERRCAT_ARGUMENT});
    EXPECT_EQ(err.number, 308u);
    EXPECT_STREQ(err.message, "Invalid parameter name \"Dataset\"");
    EXPECT_EQ(gx_parmlist_parameter_from_name(nullptr, nullptr), nullptr);
}
