#include "files/DataFolder.h"
#include "frame/AppLog.h"
#include "frame/Application.h"
#include "platform/system/KnownFolders.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

#include <fstream>
#include <latch>
#include <map>
#include <thread>
#include <vector>

namespace utility
{
namespace
{

class AppLogThreadsTest : public testing::Test
{
protected:
    AppLogThreadsTest() { CApplication::SetProductName(u"Thread Test"); }
    ~AppLogThreadsTest() override { CApplication::SetProductName(u""); }

    void Start(bool discardRepeats)
    {
        CAppRegistry settings(u"Application");
        settings.SetValue(u"Logging", 1);
        settings.SetValue(u"LoggingContext", u"Work");
        settings.SetValue(u"LoggingDiscardRepeats", discardRepeats);
        CAppLog::Start();
    }
    /// How often each line stands in the log.
    static std::map<std::string, int> CountLines()
    {
        std::map<std::string, int> counts;
        std::ifstream file(
            DiskPathBytes(GetDataFolder(CSIDL_PERSONAL, u"Thread Test") + u"Application.Log"));
        for (std::string line; std::getline(file, line);)
            ++counts[line];
        return counts;
    }
    /// Runs `work` on so many threads at once, with their numbers.
    template <typename TWork>
    static void RunOnThreads(int count, const TWork& work)
    {
        std::latch start(count);
        std::vector<std::thread> threads;
        for (int thread = 0; thread < count; ++thread)
        {
            threads.emplace_back(
                [&work, &start, thread]
                {
                    start.arrive_and_wait();
                    work(thread);
                });
        }
        for (std::thread& thread : threads)
            thread.join();
    }

    const CSettingsSandbox m_Sandbox;
    const CAppLogContext m_Work{u"Work", 0};
};

TEST_F(AppLogThreadsTest, LinesOfAThousandThreadsAreAllThereAndWhole)
{
    constexpr int THREADS = 1000;
    constexpr int LINES = 5;
    Start(false);
    RunOnThreads(THREADS,
                 [this](int thread)
                 {
                     for (int i = 0; i < LINES; ++i)
                         CAppLog::LogStr(m_Work, u"line of worker %d\n", thread);
                 });

    const std::map<std::string, int> counts = CountLines();
    EXPECT_EQ(counts.size(), std::size_t{THREADS});
    for (int thread = 0; thread < THREADS; ++thread)
    {
        const auto found = counts.find("line of worker " + std::to_string(thread) + "\r");
        ASSERT_NE(found, counts.end()) << thread;
        EXPECT_EQ(found->second, LINES) << thread;
    }
}

TEST_F(AppLogThreadsTest, RepeatsAreFoundAcrossThreads)
{
    Start(true);
    CAppLog::LogStr(m_Work, u"first\n"); // whatever an earlier test left, the next text is new
    RunOnThreads(50,
                 [this](int)
                 {
                     for (int i = 0; i < 20; ++i)
                         CAppLog::LogStr(m_Work, u"again\n");
                 });

    const std::map<std::string, int> wanted{
        {"first\r", 1}, {"again\r", 1}, {"...repeated...\r", 1}};
    EXPECT_EQ(CountLines(), wanted);
}

TEST_F(AppLogThreadsTest, UnbalancedLevelsOfManyThreadsHarmNoLine)
{
    Start(false);
    RunOnThreads(8,
                 [this](int thread)
                 {
                     for (int i = 0; i < 50; ++i)
                     {
                         if (thread % 2 == 0)
                             CAppLog::Enter(m_Work, u"in");
                         else
                             CAppLog::Leave(m_Work);
                     }
                 });

    // The three writes of an Enter may have those of others between them, but none is torn or lost.
    int opened = 0;
    int closed = 0;
    for (const auto& [line, count] : CountLines())
    {
        opened += static_cast<int>(std::count(line.begin(), line.end(), '(')) * count;
        closed += static_cast<int>(std::count(line.begin(), line.end(), ')')) * count;
    }
    EXPECT_EQ(opened, 200);
    EXPECT_EQ(closed, 200);
}

} // namespace
} // namespace utility
