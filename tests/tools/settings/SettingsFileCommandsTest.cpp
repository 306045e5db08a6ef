#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(SettingsFileCommandsTest, SettingsAreSavedLoadedAndRefusedWithTheReason)
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

TEST(SettingsFileCommandsTest, SavingTracesToTheToolsOwnLogAndNoOther)
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

const std::string APP = "Makers/Board";

CToolRun RunBoard(const CToolSandbox& tool, std::vector<std::string> words)
{
    words.insert(words.begin(), "settings");
    words.insert(words.end(), {"--app", APP});
    return tool.Run(words);
}

TEST(SettingsFileCommandsTest, ExportsCarryEveryTypeToAnotherPlace)
{
    for (const std::string format : {"xml", "form"})
    {
        SCOPED_TRACE(format);
        const CToolSandbox tool;
        RunBoard(tool, {"set", "View\\Two words", "line\n<&\">"});
        RunBoard(tool, {"set", "View\\Grid\\Wide", "5000000000", "--type", "wide"});
        RunBoard(tool, {"set", "View\\Data", "00FF", "--type", "bytes"});
        ASSERT_EQ(RunBoard(tool, {"save", "v", "View", "--format", format}).m_ExitCode, 0);
        ASSERT_EQ(RunBoard(tool, {"delete", "--key", "View"}).m_ExitCode, 0);

        const CToolRun loaded = RunBoard(tool, {"load", "v", "View", "--format", format});

        EXPECT_EQ(loaded.m_ExitCode, 0) << loaded.m_Errors;
        EXPECT_EQ(loaded.m_Output, "");
        EXPECT_EQ(RunBoard(tool, {"get", "View\\Two words"}).m_Output, "line\n<&\">\n");
        EXPECT_EQ(RunBoard(tool, {"get", "View\\Grid\\Wide"}).m_Output, "5000000000\n");
        EXPECT_EQ(RunBoard(tool, {"get", "View\\Data"}).m_Output, "00FF\n");
        EXPECT_EQ(RunBoard(tool, {"save", "w", "View", "--format", format}).m_ExitCode, 0);
        EXPECT_EQ(tool.GetFolder().Read(u"w"), tool.GetFolder().Read(u"v"));
    }
}

TEST(SettingsFileCommandsTest, ADryRunTellsWhatALoadChangesAndChangesNothing)
{
    for (const std::string format : {"config", "xml", "form"})
    {
        SCOPED_TRACE(format);
        const CToolSandbox tool;
        const std::string table = "Change  Name        Type    Before  After\n"
                                  "------  ----------  ------  ------  -----\n"
                                  "new     Count       number          7\n"
                                  "other   View\\Title  text    x       Main\n";
        RunBoard(tool, {"set", "View\\Title", "Main"});
        RunBoard(tool, {"set", "Count", "7", "--type", "number"});
        RunBoard(tool, {"set", "Same", "s"});
        ASSERT_EQ(RunBoard(tool, {"save", "a", "--format", format}).m_ExitCode, 0);
        RunBoard(tool, {"set", "view\\title", "x"});
        RunBoard(tool, {"delete", "Count"});

        EXPECT_EQ(RunBoard(tool, {"load", "a", "--format", format, "--dry-run"}).m_Output, table);
        EXPECT_EQ(RunBoard(tool, {"get", "View\\Title"}).m_Output, "x\n");
        EXPECT_EQ(RunBoard(tool, {"get", "Count"}).m_ExitCode, 1);
        EXPECT_EQ(RunBoard(tool, {"load", "a", "--format", format}).m_ExitCode, 0);
        EXPECT_EQ(RunBoard(tool, {"get", "View\\Title"}).m_Output, "Main\n");
        EXPECT_EQ(RunBoard(tool, {"load", "a", "--format", format, "--dry-run"}).m_Output,
                  "nothing would change\n");
    }
}

TEST(SettingsFileCommandsTest, ADryRunOverNothingShowsKeysAndJson)
{
    const CToolSandbox tool;
    tool.GetFolder().MakeFile(u"a", "(Settings 1 \"Board\" (k (l texts \"a\" \"b\")))");

    EXPECT_EQ(RunBoard(tool, {"load", "a", "--format", "form", "--dry-run", "--json"}).m_Output,
              "[{\"change\": \"new\", \"name\": \"k\", \"type\": \"key\", \"before\": \"\", "
              "\"after\": \"\"}, "
              "{\"change\": \"new\", \"name\": \"k\\\\l\", \"type\": \"texts\", \"before\": \"\", "
              "\"after\": \"a, "
              "b\"}]\n");
    EXPECT_EQ(RunBoard(tool, {"list"}).m_ExitCode, 1) << "the key was not made";
}

TEST(SettingsFileCommandsTest, RefusalsNamePlaceAndReason)
{
    struct
    {
        const char* m_Case;
        std::vector<std::string> m_Words;
        std::string m_Bytes;
        int m_ExitCode;
        std::string m_Errors;
    } const rows[] = {
        {"absent",
         {"load", "b", "--format", "xml"},
         "",
         3,
         "utility: b: the file cannot be read\n"},
        {"foreign",
         {"load", "a", "--format", "xml"},
         "\n <svg/>",
         3,
         "utility: a:2:2: this is no file of exported settings of this format\n"},
        {"cut",
         {"load", "a", "--format", "xml"},
         "<Settings version='1' name='Board'>\n",
         3,
         "utility: a:1:1: \"Settings\" is not closed before the end of the file\n"},
        {"another key's",
         {"load", "a", "View", "--format", "form"},
         "(Settings 1 \"Board\")",
         3,
         "utility: a:1:13: \"Board\" is the key that these settings are of, not the one they are "
         "to go to\n"},
        {"a bad value",
         {"load", "a", "--format", "form", "--dry-run"},
         "(Settings 1 \"Board\"\n(v text \"1\")\n(n number x))",
         3,
         "utility: a:3:1: \"n\" has a value that is none of its type\n"},
        {"an unexpected tag",
         {"load", "a", "--format", "xml"},
         "<Settings version='1' name='Board'><!DOCTYPE",
         3,
         "utility: a:1:37: this is not expected here\n"},
        {"an absent key",
         {"save", "a", "None", "--format", "xml"},
         "old",
         3,
         "utility: a: there is no such key\n"},
        {"an absent folder",
         {"save", "no/a", "--format", "form"},
         "",
         3,
         "utility: no/a: the file cannot be written\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        const CToolSandbox tool;
        ASSERT_EQ(RunBoard(tool, {"set", "v", "before"}).m_ExitCode, 0);
        tool.GetFolder().MakeFile(u"a", row.m_Bytes);

        const CToolRun run = RunBoard(tool, row.m_Words);

        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Errors, row.m_Errors);
        EXPECT_EQ(tool.GetFolder().Read(u"a"), row.m_Bytes);
        EXPECT_EQ(RunBoard(tool, {"get", "v"}).m_Output, "before\n");
    }
    EXPECT_EQ(RunTool({"settings", "save", "a", "--format", "ini"}).m_ExitCode, 2);
}

TEST(SettingsFileCommandsTest, AValueThatCannotComeBackFailsTheSaveByName)
{
    const CToolSandbox tool;
    ASSERT_EQ(RunBoard(tool, {"set", "View\\v", "x"}).m_ExitCode, 0);
    // As another program's text without its end: the store takes it, and a file could not give it
    // back.
    const CToolRun spoilt = tool.RunLine("sqlite3 \"$UTILITY_SETTINGS_DIR/user.db\" \"update "
                                         "key_values set data = x'4100', type = 1\"");
    ASSERT_EQ(spoilt.m_ExitCode, 0) << spoilt.m_Errors;
    tool.GetFolder().MakeFile(u"a", "old");

    const CToolRun run = RunBoard(tool, {"save", "a", "--format", "xml"});

    EXPECT_EQ(run.m_ExitCode, 3);
    EXPECT_EQ(run.m_Errors, "utility: a: \"View\\v\" could not be given back as it is\n");
    EXPECT_EQ(tool.GetFolder().Read(u"a"), "old");
}

} // namespace
} // namespace utility
