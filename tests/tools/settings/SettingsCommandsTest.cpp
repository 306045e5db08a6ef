#include "tools/ToolProcess.h"

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

TEST(SettingsCommandsTest, EachTypeIsStoredAndShown)
{
    struct CCase
    {
        const char* m_Type;
        const char* m_Value;
        const char* m_Shown;
    };
    const CToolSandbox tool;
    for (const CCase& test :
         {CCase{"number", "-5", "-5\n"}, CCase{"wide", "5000000000", "5000000000\n"},
          CCase{"real", "0.1234567", "0.123457\n"}, CCase{"bool", "True", "1\n"},
          CCase{"bool", "0", "0\n"}, CCase{"bytes", "00fF", "00FF\n"}})
    {
        SCOPED_TRACE(test.m_Type);
        EXPECT_EQ(
            tool.Run({"settings", "set", "v", test.m_Value, "--type", test.m_Type}).m_ExitCode, 0);
        EXPECT_EQ(tool.Run({"settings", "get", "v"}).m_Output, test.m_Shown);
        EXPECT_EQ(tool.Run({"settings", "set", "v", "maybe", "--type", test.m_Type}).m_ExitCode, 2);
    }
}

} // namespace
} // namespace utility
