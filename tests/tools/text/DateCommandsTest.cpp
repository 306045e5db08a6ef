#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(DateCommandsTest, EveryFormOfADateIsShown)
{
    const std::string expected =
        "{\"display\": \"31-12-2024 23:59:58.123\", "
        "\"database\": \"2024-12-31 23:59:58.123\", "
        "\"function\": \"to_timestamp('2024-12-31 23:59:58.123', 'YYYY-MM-DD HH24:MI:SS.MS')\", "
        "\"iso\": \"2024-12-31T23:59:58.123Z\", "
        "\"filetime\": \"133801631981230000\", \"unix\": \"1735689598\"}\n";

    const CToolRun run = RunTool({"date", "convert", "31/12/2024 23:59:58.123", "--json"});

    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_EQ(run.m_Output, expected);
}

TEST(DateCommandsTest, OneFormAloneIsOneLine)
{
    const struct
    {
        std::vector<std::string> m_Words;
        const char* m_Output;
    } cases[] = {
        {{"12/31/2024 23:59:58", "--order", "MDY", "--as", "iso"}, "2024-12-31T23:59:58.000Z\n"},
        {{"133801631981230000", "--as", "database"}, "2024-12-31 23:59:58.123\n"},
        {{"31/12/2024 23:59:58", "--pattern", "%2!02d!/%3!02d!", "--as", "display"}, "12/24\n"},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Output);
        std::vector<std::string> words{"date", "convert"};
        words.insert(words.end(), row.m_Words.begin(), row.m_Words.end());
        const CToolRun run = RunTool(words);
        EXPECT_EQ(run.m_ExitCode, 0);
        EXPECT_EQ(run.m_Output, row.m_Output);
    }
}

TEST(DateCommandsTest, LocalShowsTheUsersZone)
{
    const CToolSandbox sandbox;

    const CToolRun run = sandbox.RunLine(
        "TZ=Europe/Berlin utility date convert '01/07/2024 12:00:00' --local --as iso");

    EXPECT_EQ(run.m_Output, "2024-07-01T14:00:00.000\n");
}

TEST(DateCommandsTest, WhatIsNoDateOrNoOrderIsToldApart)
{
    const CToolRun noDate = RunTool({"date", "convert", "31/02/2024 0:0:0"});
    EXPECT_EQ(noDate.m_ExitCode, 3);
    EXPECT_NE(noDate.m_Errors.find("31/02/2024 0:0:0"), std::string::npos);
    EXPECT_EQ(noDate.m_Output, "");

    const CToolRun noOrder = RunTool({"date", "convert", "31/12/2024 0:0:0", "--order", "DDY"});
    EXPECT_EQ(noOrder.m_ExitCode, 2);
    EXPECT_NE(noOrder.m_Errors.find("DDY"), std::string::npos);
}

TEST(DateCommandsTest, NowIsAfterTheYearThisWasWritten)
{
    const CToolRun run = RunTool({"date", "now", "--as", "iso"});

    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_EQ(run.m_Output.size(), 25U);
    EXPECT_GT(run.m_Output, "2025");
}

} // namespace utility
