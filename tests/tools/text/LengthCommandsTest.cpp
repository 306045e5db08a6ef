#include "tools/ToolProcess.h"
#include "utility/command/Command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

TEST(LengthCommandsTest, GivesALengthInAnotherUnit)
{
    const struct
    {
        std::vector<std::string> m_Words;
        const char* m_Output;
    } rows[] = {
        {{"2*3 mm", "--to", "inch", "--precision", "4"}, "0.2362 \"\n"},
        {{"1 inch"}, "25.400 mm\n"},
        {{"-5 thou"}, "-0.127 mm\n"},
        {{"5 -mm"}, "5.000 mm\n"},
        {{"5", "--to", "MIC"}, "5 um\n"},
        {{"2.50 cm", "--short"}, "25 mm\n"},
        {{"1.2346", "--mark"}, "1.235- mm\n"},
        {{"5", "--to", "m", "--json"},
         "{\"value\": 5, \"text\": \"5.000000\", \"unit\": \"metre\"}\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Output);
        std::vector<std::string> words{"length"};
        words.insert(words.end(), row.m_Words.begin(), row.m_Words.end());

        const CToolRun run = RunTool(words);

        EXPECT_EQ(run.m_ExitCode, RESULT_OK);
        EXPECT_EQ(run.m_Output, row.m_Output);
        EXPECT_EQ(run.m_Errors, "");
    }
}

TEST(LengthCommandsTest, RefusesByNameWhatTheLibraryWouldReadLeniently)
{
    const struct
    {
        std::vector<std::string> m_Words;
        int m_ExitCode;
        const char* m_Errors;
    } rows[] = {
        {{"1e400mm"}, RESULT_FAILURE, "not a finite length: 1e400mm"},
        {{"1e400-1e400"}, RESULT_FAILURE, "not a finite length: 1e400-1e400"},
        {{"1,234.5"}, RESULT_FAILURE, "two numbers, of which one would be lost: 1,234.5"},
        {{"1 inch 3 mm"}, RESULT_FAILURE, "two numbers, of which one would be lost: 1 inch 3 mm"},
        {{"--", "--5"}, RESULT_FAILURE, "a second sign: --5"},
        {{"2 - +3"}, RESULT_FAILURE, "a second sign: 2 - +3"},
        {{"5 furlongs"}, RESULT_FAILURE, "'furlongs' is not a valid length unit"},
        {{"mm"}, RESULT_FAILURE, "'mm' is not a valid number"},
        {{""}, RESULT_FAILURE, "'' is not a valid number"},
        {{"5", "--to", "furlong"}, RESULT_USAGE, "'furlong' is not a valid length unit"},
        {{"5", "--to", ""}, RESULT_USAGE, "'' is not a valid length unit"},
        {{"5", "--precision", "16"},
         RESULT_USAGE,
         "--precision: '16' is no whole number from 0 to 15; see 'utility length --help'"},
        {{"5", "--precision", "two"},
         RESULT_USAGE,
         "--precision: 'two' is no whole number from 0 to 15; see 'utility length --help'"},
        {{}, RESULT_USAGE, "LENGTH is required, or --table"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Errors);
        std::vector<std::string> words{"length"};
        words.insert(words.end(), row.m_Words.begin(), row.m_Words.end());

        const CToolRun run = RunTool(words);

        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Output, "");
        EXPECT_EQ(run.m_Errors, std::string("utility: ") + row.m_Errors + "\n");
    }
}

TEST(LengthCommandsTest, TableListsEveryUnit)
{
    const CToolRun table = RunTool({"length", "--table"});
    const CToolRun json = RunTool({"length", "--table", "--json"});

    EXPECT_THAT(table.m_Output, testing::HasSubstr("\nmils    mil    imperial           254\n"));
    EXPECT_EQ(std::count(table.m_Output.begin(), table.m_Output.end(), '\n'), 2 + 7);
    EXPECT_THAT(json.m_Output, testing::StartsWith("[{\"name\": \"inch\", \"short\": \"\\\"\", "
                                                   "\"metric\": false, \"tenths of um\": 254000}"));
}

} // namespace utility
