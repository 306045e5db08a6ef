#include "tools/ToolProcess.h"
#include "utility/command/Command.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(NumberCommandsTest, PrintsValuesAndNamesWhatIsNoNumber)
{
    const struct
    {
        std::vector<std::string> m_Words;
        int m_ExitCode;
        const char* m_Output;
        const char* m_Errors;
    } rows[] = {
        {{"eval", "2+(1-3)*4"}, RESULT_OK, "-6\n", ""},
        {{"eval", "1.0 / 1.7e-06"}, RESULT_OK, "588235.2941176471\n", ""},
        {{"eval", "5 mm"}, RESULT_NO, "5\n", "utility: no part of the expression: mm\n"},
        {{"eval", "--json", "3,5"}, RESULT_OK, "{\"value\": 3.5, \"rest\": \"\"}\n", ""},
        {{"si", "4k7"}, RESULT_OK, "4700 2\n", ""},
        {{"si", "100n", "--as", "capacitor"}, RESULT_OK, "1e-07 2\n", ""},
        {{"si", "10u", "--as", "resistor"}, RESULT_NO, "1e-05 1\n", ""},
        {{"si", "12 pieces", "--as", "number", "--json"},
         RESULT_OK,
         "{\"value\": 12, \"result\": 2}\n",
         ""},
        {{"si", "--normalise", "4700"}, RESULT_OK, "4.7e-06 G\n", ""},
        {{"si", "--normalise", "--json", "4700"},
         RESULT_OK,
         "{\"value\": 4.7e-06, \"unit\": \"G\"}\n",
         ""},
        {{"si", "x"}, RESULT_FAILURE, "", "utility: not a number: x\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Words.back());
        const CToolRun run = RunTool(row.m_Words);
        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Output, row.m_Output);
        EXPECT_EQ(run.m_Errors, row.m_Errors);
    }
}

} // namespace utility
