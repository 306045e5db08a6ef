#include "support/TemporaryFolder.h"
#include "support/TerminalProcess.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

/// Makes the restore point "a" of a design on a terminal.
CTerminalRun MakeRestorePoint(const CTemporaryFolder& folder, std::string_view keys,
                              const std::vector<std::string>& options = {})
{
    std::vector<std::string> words{
        UTILITY_TOOL, "backup",        "make",    (folder.GetNativePath() / "board.pcb").string(),
        "--kind",     "restore-point", "--label", "a"};
    words.insert(words.end(), options.begin(), options.end());
    return RunOnTerminal(words, keys);
}

TEST(ToolTerminalTest, AsksInTheTerminalUnlessToldYes)
{
    constexpr char16_t POINT[] = u"Restore Point for board (a).pcb";
    const CTemporaryFolder folder;
    folder.MakeFile(u"board.pcb", "one");
    ASSERT_EQ(MakeRestorePoint(folder, "").m_ExitCode, 0);
    folder.MakeFile(u"board.pcb", "two");

    const CTerminalRun declined = MakeRestorePoint(folder, "\n");
    EXPECT_EQ(declined.m_ExitCode, 1);
    EXPECT_TRUE(declined.m_Screen.starts_with("Utility: Replace the restore point"))
        << declined.m_Screen;
    EXPECT_EQ(folder.Read(POINT), "one");
    EXPECT_EQ(MakeRestorePoint(folder, "y\n").m_ExitCode, 0);
    EXPECT_EQ(folder.Read(POINT), "two");

    folder.MakeFile(u"board.pcb", "three");
    EXPECT_EQ(MakeRestorePoint(folder, "n\n", {"--yes"}).m_ExitCode, 0);
    EXPECT_EQ(folder.Read(POINT), "three");
}

} // namespace
} // namespace utility
