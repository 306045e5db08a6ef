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

TEST(SettingsCommandsTest, SettingsAreSavedLoadedAndRefusedWithTheReason)
{
    const CToolSandbox tool;
    const std::string app = "Makers/Board";
    const auto run = [&](std::vector<std::string> words)
    {
        words.insert(words.end(), {"--app", app});
        return tool.Run(words);
    };
    ASSERT_EQ(run({"settings", "set", "View\\Title", "one"}).m_ExitCode, 0);
    EXPECT_EQ(run({"settings", "save", "a.cfg"}).m_ExitCode, 0);
    EXPECT_EQ(tool.GetFolder().Read(u"a.cfg").substr(0, 9), "[Board]\r\n");
    ASSERT_EQ(run({"settings", "set", "View\\Title", "two"}).m_ExitCode, 0);
    EXPECT_EQ(run({"settings", "load", "a.cfg"}).m_ExitCode, 0);
    EXPECT_EQ(run({"settings", "get", "View\\Title"}).m_Output, "one\n");

    tool.GetFolder().MakeFile(u"b.cfg", "[Board]\r\nv=1:abcd\r\ncs=5\r\n");
    const CToolRun altered = run({"settings", "load", "b.cfg"});
    EXPECT_EQ(altered.m_ExitCode, 3);
    EXPECT_NE(altered.m_Errors.find("its sum is wrong"), std::string::npos);
    const CToolRun absent = run({"settings", "load", "none.cfg"});
    EXPECT_NE(absent.m_Errors.find("cannot be read"), std::string::npos);
    ASSERT_EQ(run({"settings", "set", "a=b", "x"}).m_ExitCode, 0);
    const CToolRun unsaved = run({"settings", "save", "a.cfg"});
    EXPECT_EQ(unsaved.m_ExitCode, 3);
    EXPECT_NE(unsaved.m_Errors.find("[Board] a=b cannot stand"), std::string::npos);
}

TEST(SettingsCommandsTest, SavingTracesToTheToolsOwnLogAndNoOther)
{
    const CToolSandbox tool;
    tool.Run({"settings", "save", "first.cfg"});
    EXPECT_EQ(tool.Run({"log", "show"}).m_ExitCode, 3) << "a log that is off is not made";

    for (const std::string app : {"Utility/Utility", "Makers/Board"})
    {
        tool.Run({"log", "on", "--app", app});
        tool.RunLine("log=$(utility log show --path --app " + app +
                     ") && mkdir -p \"$(dirname \"$log\")\" && echo old >\"$log\"");
    }
    tool.Run({"settings", "set", "line", "one\ntwo"}); // no file can hold it, which is traced
    tool.Run({"log", "contexts", "ConfigFile"});

    EXPECT_EQ(tool.Run({"settings", "save", "second.cfg"}).m_ExitCode, 3);
    EXPECT_EQ(tool.Run({"settings", "save", "board.cfg", "--app", "Makers/Board"}).m_ExitCode, 0);

    EXPECT_NE(tool.Run({"log", "show"}).m_Output.find("line"), std::string::npos);
    EXPECT_EQ(tool.Run({"log", "show", "--app", "Makers/Board"}).m_Output, "old\n");
}

} // namespace
} // namespace utility
