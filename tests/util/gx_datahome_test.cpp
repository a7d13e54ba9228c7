// The data directory and opening files under it.
#include "gridex.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

namespace fs = std::filesystem;

namespace {

// A fresh data directory under the test temporary directory.  Each file made holds its own
// relative name, so a test can tell which spelling was opened.
class DataHome : public ::testing::Test {
protected:
    void SetUp() override
    {
        root_ = fs::path(::testing::TempDir()) / ("gx_datahome_" + std::to_string(getpid()));
        fs::create_directories(root_);
        gx_datahome_setdir(root_.c_str());
    }
    void TearDown() override
    {
        fs::remove_all(root_);
        gx_datahome_setdir(nullptr);
    }
    void make_file(const std::string &rel)
    {
        fs::create_directories((root_ / rel).parent_path());
        FILE *fp = std::fopen((root_ / rel).c_str(), "w");
        ASSERT_NE(fp, nullptr);
        std::fputs(rel.c_str(), fp);
        std::fclose(fp);
    }
    std::string open(const char *dir, const char *name, int mode, const char *sub2 = nullptr)
    {
        FILE *fp = gx_datahome_open(path_, dir, sub2, name, "las", mode);
        if (!fp)
            return "(none)";
        char text[256] = "";
        text[std::fread(text, 1, sizeof text - 1, fp)] = '\0';
        std::fclose(fp);
        return text;
    }
    std::string path() const { return fs::relative(path_, root_).string(); }

    fs::path root_;
    char path_[1024] = "";
};

} // namespace

TEST_F(DataHome, SetDirAndSetFuncRejectEmptyAndOverlongDirectories)
{
    EXPECT_STREQ(gx_get_datahome(), root_.c_str());
    std::string longest(255, 'd');
    gx_datahome_setdir(longest.c_str());
    EXPECT_STREQ(gx_get_datahome(), longest.c_str());
    gx_datahome_setdir(std::string(256, 'd').c_str());
    EXPECT_EQ(gx_get_datahome(), nullptr);
    gx_datahome_setfunc([]() -> const char * { return "/from/routine"; });
    EXPECT_STREQ(gx_get_datahome(), "/from/routine");
    gx_datahome_setfunc(nullptr);
    EXPECT_EQ(gx_get_datahome(), nullptr);
}

// Run in a fresh process: only there has the directory never been set.
TEST(DataHomeEnvironment, FirstUseReadsGxdatahomeOnce)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            setenv("GXDATAHOME", "/env/data", 1);
            const char *first = gx_get_datahome();
            setenv("GXDATAHOME", "/changed", 1);
            bool ok = first && std::strcmp(gx_get_datahome(), "/env/data") == 0;
            std::exit(ok ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST_F(DataHome, BuildsThePathAndDropsTheDatasetPrefix)
{
    make_file("harn/abc.las");
    make_file("a/b/g.las");
    EXPECT_EQ(open("harn", "DATASET_abc", 0), "harn/abc.las");
    EXPECT_EQ(path(), "harn/abc.las");
    EXPECT_EQ(open("harn", "dataset_abc.las", 0), "harn/abc.las");
    EXPECT_EQ(open("a", "g", 0, "b"), "a/b/g.las");
    EXPECT_EQ(open("", "a/b/g", 0), "a/b/g.las");
    EXPECT_EQ(open("missing", "g", 1), "(none)");
    EXPECT_EQ(path(), "missing");
    EXPECT_EQ(open("harn", nullptr, 0), "(none)");
    gx_datahome_setdir(nullptr);
    EXPECT_EQ(open("harn", "abc", 0), "(none)");
}

// Each folder holds the spelling that must win and the one that comes after it.
TEST_F(DataHome, CaseSearchTriesFiveSpellingsInOrder)
{
    const char *files[][2] = {{"exact/Abc.las", "exact/abc.las"},
                              {"ext_upper/Abc.LAS", "ext_upper/abc.las"},
                              {"lower/abc.las", "lower/abc.LAS"},
                              {"lower_ext_upper/abc.LAS", "lower_ext_upper/ABC.LAS"},
                              {"upper/ABC.LAS", nullptr}};
    for (const auto &pair : files) {
        make_file(pair[0]);
        if (pair[1])
            make_file(pair[1]);
        std::string dir = fs::path(pair[0]).parent_path();
        EXPECT_EQ(open(dir.c_str(), "Abc", 1), pair[0]);
        EXPECT_EQ(path(), pair[0]);
    }
    EXPECT_EQ(open("upper", "Abc", 0), "(none)");
    fs::create_directories(root_ / "none");
    EXPECT_EQ(open("none", "Abc", 1), "(none)");
    EXPECT_EQ(path(), "none/ABC.LAS");
}
