#include "tools/ToolProcess.h"
#include "utility/command/Command.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

class BackupCommandsTest : public testing::Test
{
protected:
    CToolRun Backup(std::vector<std::string> words) const
    {
        words.insert(words.begin(), "backup");
        return m_Tool.Run(words);
    }

    void Set(const char* name, const char* value, const char* type = "number") const
    {
        EXPECT_EQ(m_Tool.Run({"settings", "set", name, value, "--type", type}).m_ExitCode, 0);
    }

    std::string Read(const CString& name) const { return m_Tool.GetFolder().Read(name); }
    std::string PathOf(const std::string& name) const
    {
        return (m_Tool.GetFolder().GetNativePath() / name).string();
    }

    CToolSandbox m_Tool;
};

TEST_F(BackupCommandsTest, CopiesAreMadeRotatedListedAndRestored)
{
    Set("Backups\\BackupCopyCount", "2");
    for (const char* content : {"one", "two", "three"})
    {
        m_Tool.GetFolder().MakeFile(u"board.pcb", content);
        EXPECT_EQ(Backup({"make", "board.pcb"}).m_ExitCode, RESULT_OK);
    }
    EXPECT_EQ(Read(u"Backup Copy of board1.pcb") + Read(u"Backup Copy of board2.pcb"), "twothree");

    const CToolRun list = Backup({"list", "board.pcb"});
    EXPECT_NE(list.m_Output.find("Backup Copy of board1.pcb"), std::string::npos);
    EXPECT_EQ(Backup({"list", "board.pcb", "--kind", "security"}).m_ExitCode, RESULT_NO);

    m_Tool.GetFolder().MakeFile(u"board.pcb", "spoilt");
    const CToolRun restored = Backup({"restore", "board.pcb", "backup copy of board1.pcb"});
    EXPECT_EQ(restored.m_Output, PathOf("Backup Copy of board2.pcb") + "\n");
    EXPECT_EQ(Read(u"board.pcb"), "two");
    EXPECT_EQ(Read(u"Backup Copy of board2.pcb"), "spoilt");
    EXPECT_EQ(Backup({"restore", "board.pcb", "no such"}).m_ExitCode, RESULT_NO);
    EXPECT_EQ(Backup({"restore", "board.pcb", "--json"}).m_Output,
              "{\"kept\": \"" + PathOf("Backup Copy of board2.pcb") + "\"}\n");
    EXPECT_EQ(Read(u"board.pcb"), "spoilt") << "the youngest";
}

TEST_F(BackupCommandsTest, RestorePointsAreTheirLabels)
{
    const std::vector<std::string> make{"make",          "board.pcb", "--kind",
                                        "restore-point", "--label",   "a/b"};
    m_Tool.GetFolder().MakeFile(u"board.pcb", "one");
    EXPECT_EQ(Backup(make).m_Output, PathOf("Restore Point for board (a-b).pcb") + "\n");
    m_Tool.GetFolder().MakeFile(u"board.pcb", "two");
    EXPECT_EQ(Backup(make).m_ExitCode, RESULT_NO) << "nobody said that it may be replaced";
    EXPECT_EQ(
        Backup({"restore", "board.pcb", "--kind", "restore-point", "--label", "a/b"}).m_ExitCode,
        RESULT_OK);
    EXPECT_EQ(Read(u"board.pcb"), "one");
    EXPECT_EQ(Read(u"Backup Copy of board.pcb"), "two");
    m_Tool.GetFolder().MakeFile(u"board.pcb", "three");
    std::vector<std::string> replace = make;
    replace.push_back("--yes");
    EXPECT_EQ(Backup(replace).m_ExitCode, RESULT_OK);
    EXPECT_EQ(Read(u"Restore Point for board (a-b).pcb"), "three");
}

TEST_F(BackupCommandsTest, ALabelIsFoundAmongNumberedNamesTheYoungestFirst)
{
    Set("Backups\\RestorePoint\\FilenameTemplate", "$(Increment) $(DesignName) ($(Label))", "text");
    for (const char* label : {"a", "b", "a"})
    {
        m_Tool.GetFolder().MakeFile(u"board.pcb", std::string("new ") + label);
        EXPECT_EQ(
            Backup({"make", "board.pcb", "--kind", "restore-point", "--label", label}).m_ExitCode,
            RESULT_OK);
    }
    m_Tool.GetFolder().MakeFile(u"3 board (a).pcb", "the third");
    const auto restore = [&](const char* label)
    {
        return Backup({"restore", "board.pcb", "--kind", "restore-point", "--label", label})
            .m_ExitCode;
    };

    EXPECT_EQ(restore("a"), RESULT_OK);
    EXPECT_EQ(Read(u"board.pcb"), "the third");
    EXPECT_EQ(restore("c"), RESULT_NO);
    Set("Backups\\RestorePoint\\FilenameTemplate", "R $(DesignName)", "text");
    EXPECT_EQ(restore("a"), RESULT_USAGE);
}

TEST_F(BackupCommandsTest, ALostDesignComesBackAndNothingIsKept)
{
    m_Tool.GetFolder().MakeFile(u"Backup Copy of board.pcb", "one");

    const CToolRun run = Backup({"restore", "board.pcb"});

    EXPECT_EQ(run.m_ExitCode, RESULT_OK);
    EXPECT_EQ(run.m_Output, "");
    EXPECT_EQ(Read(u"board.pcb"), "one");
}

TEST_F(BackupCommandsTest, WrongWordsAndFailuresAreToldApart)
{
    struct CCase
    {
        std::vector<std::string> m_Words;
        int m_ExitCode;
        const char* m_Told;
    };
    m_Tool.GetFolder().MakeFile(u"board.pcb", "one");
    Set("Backups\\DoSecurity", "false", "bool");
    Set("Backups\\FolderType", "0");
    Set("Backups\\FolderName2", "/proc/none", "text");
    for (const CCase& test :
         {CCase{
              {"make", "board.pcb", "--kind", "restore-point"}, RESULT_USAGE, "needs its --label"},
          CCase{{"make", "board.pcb", "--label", "x"}, RESULT_USAGE, "--label is for"},
          CCase{{"make", "board.pcb", "--kind", "copy"}, RESULT_USAGE, "not in"},
          CCase{{"make", "board.pcb", "--kind", "security"}, RESULT_NO, "switched off"},
          CCase{{"make", "none.pcb"}, RESULT_FAILURE, "none.pcb: No such file"},
          CCase{{"make", "board.pcb"},
                RESULT_FAILURE,
                "in /proc/none, and older ones are as they were: "},
          CCase{{"restore", "board.pcb", "--label", "x"}, RESULT_USAGE, "--label goes with"},
          CCase{{"restore", "board.pcb"}, RESULT_NO, "no such copy"}})
    {
        SCOPED_TRACE(test.m_Told);
        const CToolRun run = Backup(test.m_Words);
        EXPECT_EQ(run.m_ExitCode, test.m_ExitCode);
        EXPECT_NE(run.m_Errors.find(test.m_Told), std::string::npos) << run.m_Errors;
    }
}

TEST_F(BackupCommandsTest, FoldersAreListedOnceOrFollowed)
{
    for (const char16_t* name :
         {u"lib\\r10.sym", u"lib\\r9.sym", u"lib\\Backup Copy of r9.sym", u"more\\x.lib"})
        m_Tool.GetFolder().MakeFile(name);

    EXPECT_EQ(m_Tool.Run({"path", "list", "lib", "--extension", "sym", "--native"}).m_Output,
              "lib/r9.sym\nlib/r10.sym\n");
    EXPECT_EQ(m_Tool.Run({"path", "list", "lib", "more", "--backups", "--json"}).m_Output,
              "[\"lib\\\\Backup Copy of r9.sym\", \"lib\\\\r9.sym\", \"lib\\\\r10.sym\", "
              "\"more\\\\x.lib\"]\n");
    const CToolRun absent = m_Tool.Run({"path", "list", "none", "lib", "--extension", "sym"});
    EXPECT_EQ(absent.m_ExitCode, RESULT_FAILURE);
    EXPECT_EQ(absent.m_Output, "lib\\r9.sym\nlib\\r10.sym\n");
    EXPECT_EQ(absent.m_Errors, "utility: there is no folder none\n");

    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"path", "list"},
          {"path", "list", "lib", "--changes", "2"},
          {"path", "list", "lib", "--watch", "--changes", "few"}})
        EXPECT_EQ(m_Tool.Run(words).m_ExitCode, RESULT_USAGE) << words.back();

    // Each change is made when the line before it has come, so that none is met too early.
    EXPECT_EQ(
        m_Tool
            .RunLine("utility path list none lib --extension sym --watch --changes 2 --native |"
                     "while read line; do echo \"$line\"; case $line in"
                     " lib/r10.sym) mkdir none; touch none/new.sym;;"
                     " '+ none/new.sym') rm lib/r9.sym;; esac; done")
            .m_Output,
        "lib/r9.sym\nlib/r10.sym\n+ none/new.sym\n- lib/r9.sym\n");
}

} // namespace

} // namespace utility
