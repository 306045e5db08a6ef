#include "frame/AppLog.h"
#include "frame/Application.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

namespace utility
{
namespace
{

/// Traces for ever in three levels, with a byte to the parent for each round.
[[noreturn]] void TraceUntilKilled(int pipe)
{
    const CAppLogContext comms(u"Comms", 0);
    const CAppLogContext report(u"ReportError", 2);
    const CAppLogContext old(u"Old", 0);
    for (int round = 0;; ++round)
    {
        CAppLog::Enter(comms, u"Round %1", round);
        CAppLog::Enter(report, u"Inner");
        for (int i = 0; i < 3; ++i)
            CAppLog::LogStr(report, u"a line with Ω and 40 units of text around it\n");
        CAppLog::LogStr(old, u"never seen\n");
        CAppLog::Leave(report);
        CAppLog::Leave(comms);
        if (write(pipe, "x", 1) != 1)
            _exit(1);
    }
}

/// Runs the tracing child for so many rounds and kills it in the middle of a further one.
void RunAndKill(int rounds)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0)
        TraceUntilKilled(ends[1]);
    ASSERT_GT(child, 0);
    char ignored = 0;
    for (int i = 0; i < rounds; ++i)
        ASSERT_EQ(read(ends[0], &ignored, 1), 1);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    close(ends[0]);
    close(ends[1]);
    ASSERT_TRUE(WIFSIGNALED(status));
}

/// A line's indentation in blanks, or -1 if its text is none that is ever written.
int CheckLine(const std::string& line)
{
    const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
    const std::string text = line.substr(indent);
    const bool isRound =
        text.starts_with("Round ") && text.find_first_not_of("0123456789", 6) == std::string::npos;
    const bool isKnown = isRound || text == "(" || text == ")" || text == "Inner    " ||
                         text == "...repeated..." ||
                         text == "a line with Ω and 40 units of text around it";
    return isKnown ? static_cast<int>(indent) : -1;
}

/// Checks that each line is a known one at the indentation of the brackets around it.
void CheckLines(const std::string& text)
{
    int depth = 0;
    bool wasClosing = false;
    std::size_t begin = 0;
    for (std::size_t end = text.find("\r\n"); end != std::string::npos;
         begin = end + 2, end = text.find("\r\n", begin))
    {
        const std::string line = text.substr(begin, end - begin);
        // Two brackets that close in a row are a repeat, too.
        const bool isClosing = line.ends_with(")") || (line.ends_with("repeated...") && wasClosing);
        if (isClosing)
            --depth;
        ASSERT_EQ(CheckLine(line), depth * 4) << line;
        if (line.ends_with("("))
            ++depth;
        wasClosing = isClosing;
    }
}

class AppLogCrashTest : public testing::Test
{
protected:
    AppLogCrashTest()
    {
        CApplication::SetProductName(u"Crash Test");
        CAppRegistry settings(u"Application");
        settings.SetValue(u"Logging", 1);
        settings.SetValue(u"LoggingContext", u"ReportError=2; Comms,!Old=5");
        settings.SetValue(u"LoggingDiscardRepeats", true);
    }
    ~AppLogCrashTest() override { CApplication::SetProductName(u""); }

    CSettingsSandbox m_Sandbox;
};

TEST_F(AppLogCrashTest, EveryLineIsWholeWhenTheProgramIsKilled)
{
    for (int round = 1; round <= 20; ++round)
    {
        SCOPED_TRACE(round);
        CAppLog::Start();
        RunAndKill(round * 7);
        std::ifstream file(DiskPathBytes(CAppLog::GetLogPath()), std::ios::binary);
        std::string text(std::istreambuf_iterator<char>(file), {});
        ASSERT_GT(text.size(), 100U);
        EXPECT_EQ(text.find("never seen"), std::string::npos);
        EXPECT_NE(text.find("...repeated..."), std::string::npos);

        // The text of an Enter stands open until its line end, a write of its own, has come.
        const std::size_t last = text.rfind("\r\n") + 2;
        const std::string open = text.substr(last);
        EXPECT_TRUE(open.empty() || open == "    Inner" || open.starts_with("Round ")) << open;
        CheckLines(text.substr(0, last));
    }
}

} // namespace
} // namespace utility
