// Path helpers: taking paths apart, extensions, joining and existence.
#include "gridex.h"

#include <gtest/gtest.h>

#include <string>

TEST(Path, BasenameTakesLastSlashBeforeBackslash)
{
    EXPECT_STREQ(gx_path_basename("a/b/c.txt"), "c.txt");
    EXPECT_STREQ(gx_path_basename("a\\b\\c.txt"), "c.txt");
    EXPECT_STREQ(gx_path_basename("a\\b/c\\d"), "c\\d");
    EXPECT_STREQ(gx_path_basename("dir/"), "");
    EXPECT_EQ(gx_path_basename(nullptr), nullptr);
}

TEST(Path, DirnameDropsBaseAndSeparator)
{
    char buf[64];
    EXPECT_STREQ(gx_path_dirname(buf, "a/b/c.txt"), "a/b");
    EXPECT_STREQ(gx_path_dirname(buf, "c:\\grids\\x.gsb"), "c:\\grids");
    EXPECT_STREQ(gx_path_dirname(buf, "c.txt"), ".");
    EXPECT_STREQ(gx_path_dirname(buf, "/c.txt"), "");
    EXPECT_STREQ(gx_path_dirname(buf, nullptr), "");
    EXPECT_EQ(gx_path_dirname(nullptr, "a/b"), nullptr);
    char same[] = "x/y/z";
    EXPECT_STREQ(gx_path_dirname(same, same), "x/y");
}

TEST(Path, ExtensionGetAndSet)
{
    EXPECT_STREQ(gx_path_ext_get("a.b/c.las"), "las");
    EXPECT_EQ(gx_path_ext_get("a.b/c"), nullptr);
    EXPECT_STREQ(gx_path_ext_get("c."), "");
    EXPECT_EQ(gx_path_ext_get(nullptr), nullptr);

    char buf[64] = "grid";
    EXPECT_STREQ(gx_path_ext_set(buf, "las"), "grid.las");
    EXPECT_STREQ(gx_path_ext_set(buf, ".las"), "grid.las");
    EXPECT_STREQ(gx_path_ext_set(buf, "LAS"), "grid.las.LAS");
    EXPECT_STREQ(gx_path_ext_set(buf, nullptr), "grid.las.LAS");
    EXPECT_STREQ(gx_path_ext_set(buf, "."), "grid.las.LAS");
    char dotted[64] = "grid.tar.gz";
    EXPECT_STREQ(gx_path_ext_set(dotted, "tar.gz"), "grid.tar.gz");
    char bare[64] = "gridlas";
    EXPECT_STREQ(gx_path_ext_set(bare, "las"), "gridlas.las");
    EXPECT_EQ(gx_path_ext_set(nullptr, "las"), nullptr);
}

TEST(Path, JoiningAddsOneSlashAndExistence)
{
    char buf[64] = "data";
    EXPECT_STREQ(gx_dircat(buf, "ntv2"), "data/ntv2");
    EXPECT_STREQ(gx_filecat(buf, "x.gsb"), "data/ntv2/x.gsb");
    char slash[64] = "data/";
    EXPECT_STREQ(gx_filecat(slash, "x.gsb"), "data/x.gsb");
    char back[64] = "data\\";
    EXPECT_STREQ(gx_dircat(back, "x"), "data\\/x");
    EXPECT_STREQ(gx_dircat(slash, nullptr), "data/x.gsb");
    EXPECT_EQ(gx_dircat(nullptr, "x"), nullptr);

    std::string dir = ::testing::TempDir();
    EXPECT_EQ(gx_dir_exists(dir.c_str()), 1);
    EXPECT_EQ(gx_file_exists((dir + "/gx_no_such_file").c_str()), 0);
    EXPECT_EQ(gx_dir_exists("") + gx_file_exists(nullptr), 0);
}
