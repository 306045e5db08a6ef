#include "tools/ToolProcess.h"
#include "utility/command/Command.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(RangeCommandsTest, ChangesAndShowsRanges)
{
    const struct
    {
        std::vector<std::string> m_Words;
        int m_ExitCode;
        const char* m_Output;
        const char* m_Errors = "";
    } rows[] = {
        {{"R[1-10],R12", "--add", "R11"}, RESULT_OK, "R[1-12]\n"},
        {{"--add", "R3,R1,R2"}, RESULT_OK, "R[1-3]\n"},
        {{"R[1-10]", "--delete", "R4"}, RESULT_OK, "R[1-3],R[5-10]\n"},
        {{"R[1-3]", "--delete", "R2,R9"}, RESULT_OK, "R1,R3\n"},
        {{"R[1-3]", "--delete", "R9"}, RESULT_NO, "", "utility: no such name: R9\n"},
        {{"R1", "--add", "R[2-200000]", "--delete", "R[100-199999]"},
         RESULT_OK,
         "R[1-99],R200000\n"},
        {{"R[1-3]", "--contains", "r2"}, RESULT_OK, ""},
        {{"R[1-3]", "--contains", "R4"}, RESULT_NO, ""},
        {{"R[1-3]", "--add", "R4", "--contains", "R4"}, RESULT_OK, ""},
        {{"R[1-3]", "--contains", "R4", "--json"}, RESULT_NO, "{\"contains\": false}\n"},
        {{"R[1-10],C3", "--wildcard"}, RESULT_OK, "R%[1:10%]|C3\n"},
        {{"R[1-2000000000]", "--count"}, RESULT_OK, "2000000000\n"},
        {{"R[1-10],C3", "--json"},
         RESULT_OK,
         "{\"range\": \"R[1-10],C3\", \"wildcard\": \"R%[1:10%]|C3\", \"count\": 11}\n"},
        {{"R[a-b]"}, RESULT_FAILURE, "", "utility: not a name range: R[a-b]\n"},
        {{"R1", "--add", "R[1-]"}, RESULT_FAILURE, "", "utility: not a name range: R[1-]\n"},
        {{"R1", "--delete", "R[-1]"}, RESULT_FAILURE, "", "utility: not a name range: R[-1]\n"},
        {{}, RESULT_USAGE, "", "utility: RANGE is required, or --add or --next\n"},
    };
    for (const auto& row : rows)
    {
        std::vector<std::string> words{"range"};
        words.insert(words.end(), row.m_Words.begin(), row.m_Words.end());
        SCOPED_TRACE(testing::PrintToString(words));

        const CToolRun run = RunTool(words);

        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Output, row.m_Output);
        EXPECT_EQ(run.m_Errors, row.m_Errors);
    }
}

TEST(RangeCommandsTest, NamesFollowEachOtherInFourStyles)
{
    const struct
    {
        std::vector<std::string> m_Words;
        const char* m_Output;
    } rows[] = {
        {{"C9"}, "C10\n"},
        {{"A1B", "--style", "name"}, "A2B\n"},
        {{"Az", "--style", "letters"}, "Ba\n"},
        {{"9.9", "--style", "number"}, "10.0\n"},
        {{"boards/x09.pcb", "--style", "file"}, "boards/x10.pcb\n"},
        {{"C9", "--json"}, "{\"next\": \"C10\"}\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Output);
        std::vector<std::string> words{"range", "--next"};
        words.insert(words.end(), row.m_Words.begin(), row.m_Words.end());
        EXPECT_EQ(RunTool(words).m_Output, row.m_Output);
    }
    EXPECT_EQ(RunTool({"range", "--next", "R9", "--style", "roman"}).m_ExitCode, RESULT_USAGE);
}

} // namespace utility
