#include "platform/system/Faults.h"

#include "support/TemporaryFolder.h"
#include "support/TerminalProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace utility
{
namespace
{

constexpr char PARTS[] = "R1 10k\nR2\nC1 100n\nC2\n";

class ConsoleTest : public testing::Test
{
protected:
    ConsoleTest() { m_Folder.MakeFile(u"parts.txt", PARTS); }

    std::vector<std::string> Words(const std::vector<std::string>& options = {}) const
    {
        std::vector<std::string> words{UTILITY_CONSOLE_SAMPLE,
                                       (m_Folder.GetNativePath() / "parts.txt").string()};
        words.insert(words.end(), options.begin(), options.end());
        return words;
    }
    /// Without a terminal; the exit code.
    int RunWithoutTerminal(const std::vector<std::string>& options = {}) const
    {
        std::string line;
        for (const std::string& word : Words(options))
            line += "'" + word + "' ";
        line += "</dev/null >'" + m_Folder.GetNativePath().string() + "/output' 2>&1";
        const int status = std::system(line.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string Saved() const { return m_Folder.Read(u"parts.txt"); }

    CTemporaryFolder m_Folder;
};

TEST_F(ConsoleTest, AsksInTheTerminalAndSavesWhatIsKept)
{
    const CTerminalRun run = RunOnTerminal(Words(), "n\ny\n");

    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_EQ(run.m_Screen, "kept: R1 10k\n"
                            "Console: Part R2 has no value. Drop it?\n[Yes/No] (No): "
                            "recorded: 7\nkept: R2\nkept: C1 100n\n"
                            "Console: Part C2 has no value. Drop it?\n[Yes/No] (No): "
                            "recorded: 6\ndropped: C2\n");
    EXPECT_EQ(Saved(), "R1 10k\nR2\nC1 100n\n");
}

TEST_F(ConsoleTest, WithoutATerminalNobodyIsAskedAndNothingChanges)
{
    EXPECT_EQ(RunWithoutTerminal(), 0);
    EXPECT_EQ(Saved(), PARTS);
}

TEST_F(ConsoleTest, AMacroAnswersInTheUsersPlace)
{
    EXPECT_EQ(RunWithoutTerminal({"--replay", "67"}), 0);
    EXPECT_EQ(m_Folder.Read(u"output"), "kept: R1 10k\nrecorded: 6\ndropped: R2\n"
                                        "kept: C1 100n\nrecorded: 7\nkept: C2\n");
    EXPECT_EQ(Saved(), "R1 10k\nC1 100n\nC2\n");
}

TEST_F(ConsoleTest, SurvivesAModuleThatFaultsAndSaves)
{
    m_Folder.MakeFile(u"parts.txt", "R1 10k\n");
    const int exitCode = RunWithoutTerminal({"--fault"});
    if (!CanTranslateFaults())
    {
        EXPECT_NE(exitCode, 0) << "the fault went by, though nothing translates it";
        return;
    }
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(m_Folder.Read(u"output"), "kept: R1 10k\nrecorded: 1\n");
    EXPECT_EQ(Saved(), "R1 10k\n");

    const CTerminalRun run = RunOnTerminal(Words({"--fault"}), "");
    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_EQ(run.m_Screen, "kept: R1 10k\n"
                            "Console: The module has failed; the list is saved.\nrecorded: 1\n");
}

TEST_F(ConsoleTest, AListThatIsNotThereIsAnError)
{
    std::filesystem::remove(m_Folder.GetNativePath() / "parts.txt");

    const CTerminalRun run = RunOnTerminal(Words(), "");

    EXPECT_EQ(run.m_ExitCode, 1);
    EXPECT_NE(run.m_Screen.find("No such file or directory"), std::string::npos) << run.m_Screen;
}

TEST_F(ConsoleTest, TracesTheCheckWhereTheLogIsOn)
{
    const std::filesystem::path log =
        std::filesystem::path(std::getenv("HOME")) / "Documents/Console/Application.Log";
    const std::string tool = std::string(UTILITY_TOOL) + " log ";
    ASSERT_EQ(std::system((tool + "on --app Makers/Console 2>/dev/null").c_str()), 0);
    ASSERT_EQ(std::system((tool + "contexts Console --app Makers/Console").c_str()), 0);

    EXPECT_EQ(RunWithoutTerminal(), 0);

    std::ifstream file(log);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              "Checking 4 parts\r\n(\r\n)\r\n");
    ASSERT_EQ(std::system((tool + "off --app Makers/Console").c_str()), 0);
}

} // namespace
} // namespace utility
