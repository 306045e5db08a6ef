#include "support/TemporaryFolder.h"
#include "utility/command/Command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace utility
{
namespace
{

constexpr const char* HUGE_RANGE = "R[1-2000000000]"; // name by name, it would take most of an hour

/// The tool at work on two huge ranges, with a terminal as its error output.
class CRangeAtWork
{
public:
    CRangeAtWork(const char* option, const std::string& output)
        : m_Terminal(posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (grantpt(m_Terminal) != 0 || unlockpt(m_Terminal) != 0)
            return;
        const std::string errors = ptsname(m_Terminal);
        m_Tool = fork();
        if (m_Tool != 0)
            return;
        const int terminal = open(errors.c_str(), O_RDWR | O_NOCTTY);
        if (dup2(terminal, STDERR_FILENO) >= 0 && std::freopen(output.c_str(), "w", stdout))
            execl(UTILITY_TOOL, "utility", "range", HUGE_RANGE, option, HUGE_RANGE, nullptr);
        _exit(127);
    }

    ~CRangeAtWork()
    {
        if (m_Tool > 0)
            kill(m_Tool, SIGKILL);
        close(m_Terminal);
    }

    /// What the terminal shows until that text stands there, or until the tool has ended.
    std::string ReadUntil(const std::string& text)
    {
        std::string shown;
        char unit = 0;
        while (shown.find(text) == std::string::npos && read(m_Terminal, &unit, 1) == 1)
            shown += unit;
        return shown;
    }

    void PressCtrlC() { kill(m_Tool, SIGINT); }

    int WaitForExitCode()
    {
        int status = 0;
        waitpid(m_Tool, &status, 0);
        m_Tool = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    int m_Terminal;
    pid_t m_Tool = -1;
};

TEST(RangeInterruptTest, LongWorkShowsABarAndLeavesNothingHalfDone)
{
    const CTemporaryFolder folder;
    for (const auto& [option, title] :
         {std::pair{"--add", "Adding names"}, std::pair{"--delete", "Deleting names"}})
    {
        SCOPED_TRACE(option);
        CRangeAtWork tool(option, (folder.GetNativePath() / "output").string());

        EXPECT_THAT(tool.ReadUntil(" %"), testing::HasSubstr(std::string(title) + " ["));
        tool.PressCtrlC();

        EXPECT_THAT(tool.ReadUntil("interrupted"), testing::EndsWith("utility: interrupted"));
        EXPECT_EQ(tool.WaitForExitCode(), RESULT_FAILURE);
        EXPECT_EQ(folder.Read(u"output"), "");
    }
}

} // namespace
} // namespace utility
