#include "tools/ToolProcess.h"
#include "utility/command/Command.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(MatchCommandsTest, MatchPrintsFittingNamesOfArgumentsOrInput)
{
    const struct
    {
        const char* m_Name;
        std::vector<std::string> m_Words;
        const char* m_Input;
        int m_ExitCode;
        const char* m_Output;
    } rows[] = {
        {"arguments", {"match", "R%i|C%i", "R1", "C22", "X3"}, "", RESULT_OK, "R1\nC22\n"},
        {"input", {"match", "r*"}, "R1\r\nC2\nR3", RESULT_OK, "R1\nR3\n"},
        {"case", {"match", "--case", "r*", "R1", "r2"}, "", RESULT_OK, "r2\n"},
        {"residue", {"match", "--residue", "R*", "R12"}, "", RESULT_OK, "R12\t12\n"},
        {"json", {"match", "--json", "R*", "R1", "x"}, "", RESULT_OK, "[{\"name\": \"R1\"}]\n"},
        {"no match", {"match", "R*", "C1"}, "", RESULT_NO, ""},
        {"series",
         {"match", "--next", "R*", "--from", "9", "--count", "2"},
         "",
         RESULT_OK,
         "R9\nR10\n"},
        {"series that ends",
         {"match", "--next", "N?", "--from", "9", "--count", "2"},
         "",
         RESULT_NO,
         "N9\n"},
        {"sort", {"sort", "R10", "R9", "<None>"}, "", RESULT_OK, "<None>\nR9\nR10\n"},
        {"sort the input", {"sort", "--reverse"}, "a1.5\na1.10\n", RESULT_OK, "a1.5\na1.10\n"},
        {"sort as json", {"sort", "--json", "b", "a"}, "", RESULT_OK, "[\"a\", \"b\"]\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        const CToolRun run = RunTool(row.m_Words, row.m_Input);
        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Output, row.m_Output);
        EXPECT_EQ(run.m_Errors, "");
    }
}

} // namespace utility
