#include "ToolProcess.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(SettingsCommandsTest, ValuesAreStoredShownAndDeletedForTheNamedProgram)
{
    const CToolSandbox tool;
    const std::string app = "Makers/Board";
    EXPECT_EQ(tool.Run({"settings", "set", "View\\Title", "Ω x", "--app", app}).m_ExitCode, 0);
    EXPECT_EQ(
        tool.Run({"settings", "set", "Size", "12x", "--type", "number", "--app", app}).m_ExitCode,
        2);
    EXPECT_EQ(tool.Run({"settings", "get", "view\\title", "--app", app}).m_Output, "Ω x\n");
    EXPECT_EQ(tool.Run({"settings", "get", "View\\Title"}).m_ExitCode, 1);
    EXPECT_EQ(tool.Run({"settings", "list", "View", "--json", "--app", app}).m_Output,
              "[{\"name\": \"Title\", \"type\": \"text\", \"value\": \"Ω x\"}]\n");
    EXPECT_EQ(tool.Run({"settings", "delete", "View\\Title", "--app", app}).m_ExitCode, 0);
    EXPECT_EQ(tool.Run({"settings", "delete", "View\\Title", "--app", app}).m_ExitCode, 1);
}

TEST(SettingsCommandsTest, ATextThatWillNotReadBackIsWarnedAbout)
{
    const CToolSandbox tool;

    const CToolRun readable = tool.Run({"settings", "set", "v", std::string(1023, 'x')});
    const CToolRun stored = tool.Run({"settings", "set", "v", std::string(1024, 'x')});
    const CToolRun refused = tool.Run({"settings", "set", "v", std::string(2048, 'x')});

    EXPECT_EQ(readable.m_Errors, "");
    EXPECT_EQ(stored.m_ExitCode, 0);
    EXPECT_NE(stored.m_Errors.find("warning"), std::string::npos);
    EXPECT_EQ(refused.m_ExitCode, 3);
}

} // namespace
} // namespace utility
