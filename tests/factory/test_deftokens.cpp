// Lines and tokens of definition files.
#include "factory/gx_deftokens.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> tokens_of(const char *line, int *result = nullptr)
{
    gx_deftokens entry;
    int errnum = 0;
    char message[GX_DEFTOKENS_MSG_LEN] = "";
    int n = gx_factory_tokenize(&entry, line, &errnum, message);
    if (result != nullptr)
        *result = n;
    std::vector<std::string> out;
    for (int i = 0; i < n; i++)
        out.push_back(gx_factory_token(&entry, i));
    return out;
}

// A temporary file holding text, positioned at its start.
FILE *file_with(const std::string &text)
{
    FILE *fp = tmpfile();
    fputs(text.c_str(), fp);
    rewind(fp);
    return fp;
}

struct Entry {
    int line;
    std::vector<std::string> tokens;
};

std::vector<Entry> entries_of(const std::string &text)
{
    FILE *fp = file_with(text);
    gx_deffile file;
    gx_deffile_init(&file, fp);
    gx_deftokens entry;
    int errnum;
    char message[GX_DEFTOKENS_MSG_LEN];
    std::vector<Entry> out;
    int n;
    while ((n = gx_deffile_next(&file, &entry, &errnum, message)) != 0) {
        Entry e{file.line, {}};
        for (int i = 0; i < n; i++)
            e.tokens.push_back(gx_factory_token(&entry, i));
        out.push_back(e);
    }
    fclose(fp);
    return out;
}

} // namespace

TEST(DefTokens, SplitsAtCommasAndDropsWhiteSpaceOutsideQuotes)
{
    using V = std::vector<std::string>;
    EXPECT_EQ(tokens_of("geogcs, 204001, GCS_My_Datum, 206001, 8901, 9102"),
              (V{"geogcs", "204001", "GCS_My_Datum", "206001", "8901", "9102"}));
    EXPECT_EQ(tokens_of(" a b ,\tc "), (V{"ab", "c"}));
    // Quoted names keep commas and inner blanks (tabs become blanks); ends are trimmed.
    EXPECT_EQ(tokens_of("datum, 206001, \" My,\tDatum \", 7030"),
              (V{"datum", "206001", "My, Datum", "7030"}));
    // Text between a closing quote and the next comma is ignored.
    EXPECT_EQ(tokens_of("\"a\"junk,b"), (V{"a", "b"}));
    // Empty tokens keep positions, a trailing comma makes one more.
    EXPECT_EQ(tokens_of("a,,b,"), (V{"a", "", "b", ""}));
    // A quote inside an unquoted token does not start a name.
    EXPECT_EQ(tokens_of("a\"b,\"c"), (V{"a\"b", "c"}));
}

TEST(DefTokens, EmptyLinesHaveNoTokens)
{
    int n = -2;
    EXPECT_TRUE(tokens_of("", &n).empty());
    EXPECT_EQ(n, 0);
    EXPECT_TRUE(tokens_of(" \t\r\n", &n).empty());
    EXPECT_EQ(n, 0);
    gx_deftokens entry;
    EXPECT_EQ(gx_factory_tokenize(&entry, nullptr, nullptr, nullptr), 0);
}

TEST(DefTokens, ReportsUnbalancedQuotesAndTooManyTokens)
{
    gx_deftokens entry;
    int errnum = 0;
    char message[GX_DEFTOKENS_MSG_LEN] = "";
    EXPECT_EQ(gx_factory_tokenize(&entry, "datum, 1, \"open, 7030", &errnum, message), -1);
    EXPECT_EQ(errnum, 106);
    EXPECT_STREQ(message, "Unbalanced quotes in objedit entry");

    std::string line = "t";
    for (int i = 1; i < 64; i++)
        line += ",t";
    EXPECT_EQ(gx_factory_tokenize(&entry, line.c_str(), &errnum, message), 64);
    EXPECT_STREQ(gx_factory_token(&entry, 63), "t");
    line += ",t";
    EXPECT_EQ(gx_factory_tokenize(&entry, line.c_str(), &errnum, message), -1);
    EXPECT_EQ(errnum, 105);
    EXPECT_STREQ(message, "Token/keyword count in objedit entry exceeds 64");
    EXPECT_EQ(gx_factory_token(&entry, 0), nullptr);
}

TEST(DefTokens, TokenAccessIsBounded)
{
    gx_deftokens entry;
    ASSERT_EQ(gx_factory_tokenize(&entry, "a,b", nullptr, nullptr), 2);
    EXPECT_STREQ(gx_factory_token(&entry, 1), "b");
    EXPECT_EQ(gx_factory_token(&entry, 2), nullptr);
    EXPECT_EQ(gx_factory_token(&entry, -1), nullptr);
    EXPECT_EQ(gx_factory_token(&entry, 64), nullptr);
    EXPECT_EQ(gx_factory_token(nullptr, 0), nullptr);
}

TEST(DefTokens, ReadlineJoinsContinuedLines)
{
    FILE *fp = file_with("  one, two \\\n   three\nfour\\\n\\\nfive");
    char buf[64];
    EXPECT_EQ(gx_factory_readline(fp, buf, sizeof buf), 2);
    EXPECT_STREQ(buf, "one, two three");
    EXPECT_EQ(gx_factory_readline(fp, buf, sizeof buf), 3);
    EXPECT_STREQ(buf, "four five");
    EXPECT_EQ(gx_factory_readline(fp, buf, sizeof buf), -1);
    fclose(fp);
}

TEST(DefTokens, ReadlineDropsTheRestOfAnOverlongLine)
{
    FILE *fp = file_with(std::string(100, 'x') + "\nnext\n");
    char buf[16];
    EXPECT_EQ(gx_factory_readline(fp, buf, sizeof buf), 1);
    EXPECT_EQ(std::string(buf), std::string(15, 'x'));
    EXPECT_EQ(gx_factory_readline(fp, buf, sizeof buf), 1);
    EXPECT_STREQ(buf, "next");
    fclose(fp);
}

TEST(DefTokens, FileEntriesSkipCommentsAndBlanksAndKnowTheirFirstLine)
{
    std::vector<Entry> entries = entries_of("# a comment\n"
                                            "\n"
                                            "unit, 9001, \"Meter\", 1.0\n"
                                            "   # indented comment\n"
                                            "unit, 9002, \\\n"
                                            "  \"Foot\", 0.3048\n"
                                            "unit, 9003, \"Foot_US\", 0.30480060960121924\n");
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].line, 3);
    EXPECT_EQ(entries[1].line, 5);
    EXPECT_EQ(entries[1].tokens, (std::vector<std::string>{"unit", "9002", "Foot", "0.3048"}));
    EXPECT_EQ(entries[2].line, 7);
}

TEST(DefTokens, FileReadingGoesOnAfterABadEntry)
{
    FILE *fp = file_with("a, \"b\nc, d\n");
    gx_deffile file;
    gx_deffile_init(&file, fp);
    gx_deftokens entry;
    int errnum = 0;
    char message[GX_DEFTOKENS_MSG_LEN];
    EXPECT_EQ(gx_deffile_next(&file, &entry, &errnum, message), -1);
    EXPECT_EQ(file.line, 1);
    EXPECT_EQ(errnum, 106);
    EXPECT_EQ(gx_deffile_next(&file, &entry, &errnum, message), 2);
    EXPECT_EQ(file.line, 2);
    EXPECT_EQ(gx_deffile_next(&file, &entry, &errnum, message), 0);
    fclose(fp);
}
