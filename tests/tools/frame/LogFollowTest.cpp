#include "frame/AppLog.h"
#include "frame/Application.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"
#include "support/TerminalProcess.h"
#include "tools/ToolProcess.h"
#include "utility/host/GrowingFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace utility
{
namespace
{

namespace fs = std::filesystem;

/// This process is the host whose log is followed, so each test has one of its own.
class LogFollowTest : public testing::Test
{
protected:
    LogFollowTest()
    {
        CApplication::SetCompanyName(u"Makers");
        CApplication::SetProductName(u"Board");
        CAppRegistry settings(u"Application");
        settings.SetValue(u"Logging", 1);
        settings.SetValue(u"LoggingContext", u"Board");
    }

    static fs::path GetLog() { return DiskPathBytes(CAppLog::GetLogPath()); }
    static void Trace(const char16_t* text)
    {
        static const CAppLogContext context(u"Board", 0);
        CAppLog::LogStr(context, u"%s\n", text);
    }
    static std::vector<std::string> Words(const std::vector<std::string>& options)
    {
        std::vector<std::string> words{UTILITY_TOOL, "log",   "show",
                                       "--follow",   "--app", "Makers/Board"};
        words.insert(words.end(), options.begin(), options.end());
        return words;
    }
};

TEST_F(LogFollowTest, ShowsWhatARunningHostWritesUntilCtrlC)
{
    if (!IsInFreshProcess())
        return;
    CAppLog::Start();
    Trace(u"first");
    Trace(u"second");
    CTerminalProcess tool(Words({"--last", "1"}));
    ASSERT_TRUE(tool.AwaitText("second\n"));
    Trace(u"third");
    ASSERT_TRUE(tool.AwaitText("third\n"));

    CAppLog::Start(); // the host is started again
    Trace(u"of the next run");
    ASSERT_TRUE(tool.AwaitText("of the next run\n"));
    fs::rename(GetLog(), GetLog().string() + ".old");
    Trace(u"of a new file");
    ASSERT_TRUE(tool.AwaitText("of a new file\n"));
    fs::resize_file(GetLog(), 0);
    Trace(u"cut");
    ASSERT_TRUE(tool.AwaitText("cut\n"));
    tool.Type(INTERRUPT);

    const CTerminalRun run = tool.Finish();
    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_EQ(run.m_Screen, "second\nthird\n"
                            "utility: the log was begun anew\nof the next run\n"
                            "utility: the log was begun anew\nof a new file\n"
                            "utility: the log was begun anew\ncut\n");
}

TEST_F(LogFollowTest, AwaitsALogAndEndsAtAText)
{
    if (!IsInFreshProcess())
        return;
    fs::remove_all(GetLog().parent_path());
    CTerminalProcess tool(Words({"--until", "saved"}));
    CAppLog::Start();
    Trace(u"opened");
    ASSERT_TRUE(tool.AwaitText("opened\n"));
    Trace(u"board.pcb saved");

    const CTerminalRun run = tool.Finish();
    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_EQ(run.m_Screen, "opened\nboard.pcb saved\n");
}

TEST(LogFollowUsageTest, UntilNeedsFollow)
{
    EXPECT_EQ(RunTool({"log", "show", "--until", "x"}).m_ExitCode, 2);
}

TEST(GrowingFileTest, ReadsEachByteOnceWhateverBecomesOfTheFile)
{
    const CTemporaryFolder folder;
    const fs::path path = folder.GetNativePath() / "log";
    const auto append = [&path](const char* text)
    {
        std::ofstream(path, std::ios::app) << text;
    };
    CGrowingFile file(folder.PathOf(u"log"));
    const struct
    {
        const char* m_Name;
        std::function<void()> m_Change;
        const char* m_New;
        bool m_IsAnew;
    } steps[] = {
        {"not there", [] {}, "", false},
        {"made", [&] { append("one"); }, "one", false},
        {"nothing new", [] {}, "", false},
        {"longer", [&] { append("two"); }, "two", false},
        {"cut shorter", [&] { fs::resize_file(path, 2); }, "on", true},
        {"removed", [&] { fs::remove(path); }, "", false},
        {"made anew, longer than before", [&] { append("0123456789"); }, "0123456789", true},
        {"renamed behind a last write, and made anew",
         [&]
         {
             append("a");
             fs::rename(path, path.string() + ".old");
             append("b");
         },
         "ab", true},
        {"an empty one in its place",
         [&]
         {
             folder.MakeFile(u"other");
             fs::rename(folder.GetNativePath() / "other", path);
         },
         "", true},
        {"a folder in its place",
         [&]
         {
             fs::remove(path);
             fs::create_directory(path);
         },
         "", false},
    };
    for (const auto& step : steps)
    {
        SCOPED_TRACE(step.m_Name);
        step.m_Change();
        std::string bytes;
        EXPECT_EQ(file.ReadNew(bytes), step.m_IsAnew);
        EXPECT_EQ(bytes, step.m_New);
    }
}

} // namespace
} // namespace utility
