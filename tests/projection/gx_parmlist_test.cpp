// The parameter registry: the table's integrity, lookups by code and name with the dataset
// rule, the factories and their errors, and set_code.
#include "gridex.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

std::vector<const gx_parmlist_entry *> all_parameters()
{
    std::vector<const gx_parmlist_entry *> rows;
    for (int code = 100000; code <= 100999; ++code)
        if (const gx_parmlist_entry *entry = gx_parmlist_from_code(code))
            rows.push_back(entry);
    return rows;
}

const gx_object_header *header(const gx_parameter *p)
{
    return reinterpret_cast<const gx_object_header *>(p);
}

} // namespace

TEST(Parmlist, TableHas41UniqueRowsWithSlotsAndUsage)
{
    const auto rows = all_parameters();
    EXPECT_EQ(rows.size(), 41u);
    std::set<std::string> names;
    const unsigned int known_usage =
        GX_TYPE_PROJCS | GX_TYPE_VERTCS | GX_TYPE_GEOGTRAN | GX_TYPE_VERTTRAN;
    for (const gx_parmlist_entry *entry : rows) {
        SCOPED_TRACE(entry->name);
        EXPECT_TRUE(names.insert(entry->name).second);
        EXPECT_EQ(gx_parmlist_from_name(entry->name), entry);
        EXPECT_GE(entry->index, 0);
        EXPECT_LE(entry->index, 15);
        EXPECT_NE(entry->usage, 0u);
        EXPECT_EQ(entry->usage & ~known_usage, 0u);
        EXPECT_STREQ(entry->authority, "TAVU");
        EXPECT_STREQ(entry->version, "9.3.0");
    }
}

TEST(Parmlist, SlotsDefaultsAndUsageOfSharedSlots)
{
    EXPECT_EQ(gx_parmlist_index_from_name("Central_Meridian"), 2);
    EXPECT_EQ(gx_parmlist_index_from_name("longitude_of_origin"), 2);
    EXPECT_EQ(gx_parmlist_index_from_name("Pseudo_Standard_Parallel_1"), 3);
    EXPECT_EQ(gx_parmlist_index_from_name("Auxiliary_Sphere_Type"), 12);
    EXPECT_EQ(gx_parmlist_index_from_code(100036), 15); // Option
    EXPECT_EQ(gx_parmlist_index_from_code(100999), -1);
    EXPECT_EQ(gx_parmlist_index_from_name("Semi_Major"), -1);
    EXPECT_EQ(gx_parmlist_index_from_name(nullptr), -1);

    EXPECT_EQ(gx_parmlist_from_code(100012)->default_value, -75.0);
    EXPECT_EQ(gx_parmlist_from_code(100007)->default_value, 1.0);
    EXPECT_EQ(gx_parmlist_from_name("Direction")->usage, unsigned{GX_TYPE_VERTCS});
    EXPECT_EQ(gx_parmlist_from_name("X_Axis_Rotation")->usage, unsigned{GX_TYPE_GEOGTRAN});
    EXPECT_EQ(gx_parmlist_from_name("Dataset_")->usage, 0x80080u);
}

TEST(Parmlist, DatasetNamesNameTheDatasetParameter)
{
    const gx_parmlist_entry *dataset = gx_parmlist_from_name("Dataset_ntv2_file");
    ASSERT_NE(dataset, nullptr);
    EXPECT_EQ(dataset->code, 100047);
    EXPECT_EQ(gx_parmlist_index_from_name("Dataset_ntv2_file"), 15);
    EXPECT_EQ(gx_parmlist_from_name("DATASET_x"), dataset);
    EXPECT_EQ(gx_parmlist_from_name("Dataset_"), dataset); // the row's own name
    EXPECT_EQ(gx_parmlist_from_name("Dataset"), nullptr);
    EXPECT_EQ(gx_parmlist_index_from_name("Dataset"), -1);
    EXPECT_EQ(gx_parmlist_from_name("Datasetx_file"), nullptr);
    EXPECT_EQ(gx_parmlist_from_name("My_Dataset_file"), nullptr);
}

TEST(Parmlist, FactoriesSetNameValueStatusAndCode)
{
    gx_err_rec err;
    gx_parameter *by_code = gx_parmlist_parameter_from_code(100022, &err);
    ASSERT_NE(by_code, nullptr);
    EXPECT_STREQ(header(by_code)->name, "Latitude_Of_Center");
    EXPECT_EQ(gx_parameter_value(by_code), 40.0);
    EXPECT_EQ(header(by_code)->status, unsigned{GX_STATUS_CODE});
    EXPECT_EQ(header(by_code)->code, 100022);
    EXPECT_STREQ(header(by_code)->authname, "TAVU");
    EXPECT_STREQ(header(by_code)->version, "9.3.0");

    gx_parameter *with_value = gx_parmlist_parameter_from_code_value(100003, 0.9996, nullptr);
    ASSERT_NE(with_value, nullptr);
    EXPECT_EQ(gx_parameter_value(with_value), 0.9996);
    EXPECT_EQ(header(with_value)->status, unsigned{GX_STATUS_STRING});
    EXPECT_EQ(header(with_value)->code, 100003);

    gx_parameter *by_name = gx_parmlist_parameter_from_name("Dataset_conus", &err);
    ASSERT_NE(by_name, nullptr);
    EXPECT_STREQ(header(by_name)->name, "Dataset_conus"); // the grid file stays in the name
    EXPECT_EQ(header(by_name)->code, 100047);
    EXPECT_EQ(header(by_name)->status, unsigned{GX_STATUS_STRING});
    EXPECT_EQ(gx_parameter_value(by_name), 0.0);

    gx_parameter_del(by_code);
    gx_parameter_del(with_value);
    gx_parameter_del(by_name);
}

TEST(Parmlist, FactoryErrors)
{
    gx_err_rec err;
    EXPECT_EQ(gx_parmlist_parameter_from_code(100008, &err), nullptr);
    EXPECT_EQ(err.level, unsigned{GX_ERRLVL_ERROR});
    EXPECT_EQ(err.category, unsigned{GX_ERRCAT_FACTORY});
    EXPECT_EQ(err.number, 218u);
    EXPECT_STREQ(err.message, "Invalid parameter factory code (100008)");
    EXPECT_STREQ(err.function, "gx_parmlist_parameter_from_code");

    EXPECT_EQ(gx_parmlist_parameter_from_code_value(43001, 1.0, &err), nullptr);
    EXPECT_EQ(err.number, 218u);
    EXPECT_STREQ(err.function, "gx_parmlist_parameter_from_code_value");

    EXPECT_EQ(gx_parmlist_parameter_from_name("Dataset", &err), nullptr);
    EXPECT_EQ(err.category, unsigned{GX_ERRCAT_ARGUMENT});
    EXPECT_EQ(err.number, 308u);
    EXPECT_STREQ(err.message, "Invalid parameter name \"Dataset\"");

    EXPECT_EQ(gx_parmlist_parameter_from_name(nullptr, nullptr), nullptr);
    EXPECT_EQ(gx_parmlist_parameter_from_code(0, nullptr), nullptr);
}

TEST(Parmlist, SetCodeFollowsTheName)
{
    gx_parameter *p = gx_parameter_new("scale_factor", 1.0);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(header(p)->code, 100003); // the constructor looks itself up
    gx_parameter_name_set(p, "Azimuth");
    gx_parmlist_set_code(p);
    EXPECT_EQ(header(p)->code, 100004);
    gx_parameter_name_set(p, "Semi_Major");
    gx_parmlist_set_code(p);
    EXPECT_EQ(header(p)->code, 100004); // unknown names leave the code alone
    gx_parmlist_set_code(nullptr);
    gx_parameter_del(p);
}
