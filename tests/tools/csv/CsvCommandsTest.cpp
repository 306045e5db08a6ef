#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

using namespace utility;
using namespace std::string_literals;

namespace
{

const std::string PARTS = "\xEF\xBB\xBFName,Value,\"Note, long\"\r\n# comment\r\n\r\nR1,10k,\"1%, "
                          "0603\"\r\nR2,4k7,\"\"\r\n";

TEST(CsvCommandsTest, ColumnsAndSelectReadByEitherRules)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(u"parts.csv", PARTS);
    const struct
    {
        std::vector<std::string> Words;
        std::string Input;
        std::string Output;
    } cases[] = {
        {{"columns", "parts.csv", "--json"}, "", "[\"Name\", \"Value\", \"Note, long\"]\n"},
        {{"columns", "-"}, "a,b", "Column  Name\n------  ----\n     1  a\n     2  b\n"},
        {{"select", "parts.csv", "Note, long", "1"},
         "",
         "\"Note, long\",Name\n\"1%, 0603\",R1\n,R2\n"},
        {{"select", "parts.csv", "--json", "Name"},
         "",
         "[{\"Name\": \"R1\"}, {\"Name\": \"R2\"}]\n"},
        {{"select", "-", "--rules", "break", "--separator", "tab", "b", "a"},
         "a\tb\n#1\t2\n\n3\n",
         "b\ta\n2\t#1\n\t3\n"},
        {{"select", "-", "3", "--rules", "break"}, "\"a\"x,b,\n", "\"\"\n"},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(testing::PrintToString(test.Words));
        std::vector<std::string> words = {"csv"};
        words.insert(words.end(), test.Words.begin(), test.Words.end());
        const CToolRun run = sandbox.Run(words, test.Input);
        EXPECT_EQ(run.m_ExitCode, 0) << run.m_Errors;
        EXPECT_EQ(run.m_Output, test.Output);
    }
}

TEST(CsvCommandsTest, CheckNamesEachLineThatLosesSomething)
{
    const struct
    {
        std::string Bytes;
        std::string Rules;
        int ExitCode;
        std::string Told; // on either output
    } cases[] = {
        {PARTS, "reader", 0, "-: 3 lines of 3 fields\n"},
        {"a,b\r\n1,2\n3,4\n", "break", 0, "-: 3 lines of 2 fields\n"},
        {"a,b\n1\n", "break", 3, "utility: -:2: 1 fields, the header has 2\n"},
        {"a\n\"b\n", "break", 3, "utility: -:2: a quote is not closed\n"},
        {"a\rb\n", "reader", 3, "utility: -:1: it holds a CR without LF, which ends no line\n"},
        {"a\0b\n"s, "reader", 3, "utility: -:1: it holds a NUL\n"},
        {"a\nb\xE9\n", "reader", 3,
         "utility: -:2: this is no UTF-8; 'utility text convert --page' makes it so\n"},
        {"\xFF\xFE\x61\0"s, "break", 3,
         "utility: -:1: the file is UTF-16; 'utility text convert' makes UTF-8 of it\n"},
        {"a" + std::string(1000, ';') + "b\n", "reader", 0, "-: 1 lines of 1 fields\n"},
        {"a" + std::string(1000, ',') + "b\n", "break", 3,
         "utility: -:1: 1001 fields; whoever reads whole files gets the first 1000\n"},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Told);
        const CToolRun run = RunTool({"csv", "check", "-", "--rules", test.Rules}, test.Bytes);
        EXPECT_EQ(run.m_ExitCode, test.ExitCode);
        EXPECT_EQ(run.m_Output + run.m_Errors, test.Told);
    }
}

TEST(CsvCommandsTest, AMillionColumnsAreSelectedFrom)
{
    std::string bytes;
    for (int i = 0; i < 1000000; ++i)
        bytes += "x,";
    const CToolRun run = RunTool({"csv", "select", "-", "1000001"}, bytes + "y\n");

    EXPECT_EQ(run.m_ExitCode, 0) << run.m_Errors;
    EXPECT_EQ(run.m_Output, "y\n");
}

TEST(CsvCommandsTest, ConvertWritesWhatTheOtherRulesReadBack)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(u"parts.csv", PARTS);

    const CToolRun run = sandbox.Run(
        {"csv", "convert", "parts.csv", "parts.csv", "--to-rules", "break", "--to-separator", ";"});

    EXPECT_EQ(run.m_ExitCode, 0) << run.m_Errors;
    EXPECT_EQ(sandbox.GetFolder().Read(u"parts.csv"),
              "Name;Value;Note, long\r\nR1;10k;1%, 0603\r\nR2;4k7;\r\n");
    EXPECT_EQ(sandbox.GetFolder().List(), std::vector<std::string>{"parts.csv"});
}

TEST(CsvCommandsTest, WhatCannotBeDoneLeavesTheTargetAsItWas)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(u"old.csv", "old");
    sandbox.GetFolder().MakeFile(u"quotes.csv", "A;B\nx,\"y;z\n");
    const struct
    {
        std::vector<std::string> Words;
        int ExitCode;
        std::string Told;
    } cases[] = {
        {{"convert", "quotes.csv", "old.csv", "--rules", "break", "--separator", ";", "--to-rules",
          "reader"},
         3,
         "utility: quotes.csv:2: 'x,\"y' cannot be written so that these rules read it back\n"
         "utility: old.csv: left as it was\n"},
        {{"convert", "none.csv", "old.csv"}, 3, "utility: none.csv: No such file or directory\n"},
        {{"convert", "quotes.csv", "old.csv", "--to-separator", ";"},
         2,
         "utility: to-separator: the reader's rules know the comma alone; see --rules break\n"},
        {{"columns", "quotes.csv", "--rules", "break", "--separator", "ab"},
         2,
         "utility: separator: one character, or 'tab', is wanted\n"},
        {{"select", "quotes.csv", "C"},
         3,
         "utility: there is no column 'C'; see 'utility csv columns'\n"},
        {{"columns", "-"}, 3, "utility: -: no line has fields\n"},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Told);
        std::vector<std::string> words = {"csv"};
        words.insert(words.end(), test.Words.begin(), test.Words.end());
        const CToolRun run = sandbox.Run(words);
        EXPECT_EQ(run.m_ExitCode, test.ExitCode);
        EXPECT_EQ(run.m_Errors, test.Told);
        EXPECT_EQ(sandbox.GetFolder().Read(u"old.csv"), "old");
    }
}

} // namespace
