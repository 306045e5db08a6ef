#include "files/DataFolder.h"
#include "frame/AppLog.h"
#include "frame/Application.h"
#include "platform/system/KnownFolders.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

namespace utility
{
namespace
{

TEST(AppLogThreadsTest, LinesOfWorkersAreAllThereAndWhole)
{
    constexpr int THREADS = 4;
    constexpr int LINES = 300;
    const CSettingsSandbox sandbox;
    CApplication::SetProductName(u"Thread Test");
    CAppRegistry settings(u"Application");
    settings.SetValue(u"Logging", 1);
    settings.SetValue(u"LoggingContext", u"Work");
    CAppLog::Start();
    const CAppLogContext work(u"Work", 0);

    std::vector<std::thread> threads;
    for (int thread = 0; thread < THREADS; ++thread)
    {
        threads.emplace_back(
            [&work, thread]
            {
                for (int i = 0; i < LINES; ++i)
                    CAppLog::LogStr(work, u"line of worker %d\n", thread);
            });
    }
    for (std::thread& thread : threads)
        thread.join();

    std::array<int, THREADS> counts{};
    std::ifstream file(
        DiskPathBytes(GetDataFolder(CSIDL_PERSONAL, u"Thread Test") + u"Application.Log"));
    for (std::string line; std::getline(file, line);)
    {
        ASSERT_EQ(line.substr(0, 15), "line of worker ");
        ASSERT_EQ(line.substr(16), "\r");
        ++counts.at(static_cast<std::size_t>(line[15] - '0'));
    }
    for (const int count : counts)
        EXPECT_EQ(count, LINES);
    CApplication::SetProductName(u"");
}

} // namespace
} // namespace utility
