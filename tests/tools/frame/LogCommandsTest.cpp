#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(LogCommandsTest, KeepsSwitchAndContextsForTheNamedProgram)
{
    const CToolSandbox tool;
    EXPECT_EQ(tool.Run({"log", "on", "--app", "Makers/Board"}).m_Errors,
              "utility: the log is on, but writes nothing until 'utility log contexts' lists a "
              "context\n");
    EXPECT_EQ(
        tool.Run({"log", "contexts", "ReportError=2; Comms", "--app", "Makers/Board"}).m_ExitCode,
        0);
    EXPECT_EQ(tool.Run({"log", "contexts", "--app", "Makers/Board"}).m_Output,
              "ReportError=2; Comms\n");
    EXPECT_EQ(tool.Run({"log", "contexts"}).m_Output, "\n");

    const CToolRun json = tool.Run({"log", "contexts", "--json", "--app", "Makers/Board"});
    EXPECT_NE(json.m_Output.find("\"on\": true"), std::string::npos) << json.m_Output;
    EXPECT_EQ(tool.Run({"log", "off", "--app", "Makers/Board"}).m_ExitCode, 0);
    EXPECT_NE(tool.Run({"log", "contexts", "--json", "--app", "Makers/Board"})
                  .m_Output.find("\"on\": false"),
              std::string::npos);
}

TEST(LogCommandsTest, ShowsTheLogOrItsLastLines)
{
    const CToolSandbox tool;
    const CToolRun missing = tool.Run({"log", "show"});
    EXPECT_EQ(missing.m_ExitCode, 3);
    EXPECT_NE(missing.m_Errors.find("Application.Log: "), std::string::npos) << missing.m_Errors;

    const CToolRun made =
        tool.RunLine("log=$(utility log show --path) && mkdir -p \"$(dirname \"$log\")\" && "
                     "printf 'one\\r\\n    two\\r\\nthree\\r\\n' >\"$log\" && utility log show");
    EXPECT_EQ(made.m_Output, "one\n    two\nthree\n") << made.m_Errors;
    EXPECT_EQ(tool.Run({"log", "show", "--last", "2"}).m_Output, "    two\nthree\n");
    EXPECT_EQ(tool.Run({"log", "show", "--last", "9"}).m_Output, "one\n    two\nthree\n");
    EXPECT_EQ(tool.Run({"log", "show", "--last", "0"}).m_Output, "");
}

} // namespace
} // namespace utility
