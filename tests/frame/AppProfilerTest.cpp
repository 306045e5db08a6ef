#include "frame/AppProfiler.h"

#include "frame/Application.h"
#include "platform/base/Encoding.h"
#include "platform/system/Clock.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageLoop.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

namespace utility
{
namespace
{

std::int64_t g_Now = 0; // 100 ns steps

constexpr CClockSource SOURCE{[] { return CountToFileTime(g_Now); },
                              []
                              {
                                  return std::uint64_t{0};
                              }};

/// A region at a call site of its own.
struct CSite
{
    const char16_t* Name;
    int Id = 0;

    void Begin() { CAppProfiler::Begin(Name, Id); }
    void End() const { CAppProfiler::End(Id); }
};

class AppProfilerTest : public testing::Test
{
protected:
    AppProfilerTest()
    {
        CApplication::SetProductName(u"Profiler Test");
        g_Now = FILETIME_OF_1970;
        SetClockSource(&SOURCE);
        m_Settings.SetValue(u"Options", 2);
    }
    ~AppProfilerTest() override
    {
        CAppProfiler::Stop();
        SetClockSource(nullptr);
        std::filesystem::remove(GetDiskName());
        CApplication::SetProductName(u"");
    }

    void Start(int points, const char16_t* startName = u"")
    {
        m_Settings.SetValue(u"Profiling", points);
        m_Settings.SetValue(u"StartName", startName);
        CAppProfiler::Start();
    }
    static void Pass(double milliseconds)
    {
        g_Now += static_cast<std::int64_t>(milliseconds * FILETIME_PER_MILLISECOND);
    }
    static std::string GetDiskName() { return DiskPathBytes(CAppProfiler::GetLogPath()); }
    static std::string Read()
    {
        std::ifstream file(GetDiskName(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    CSettingsSandbox m_Sandbox;
    CAppRegistry m_Settings{u"Application\\Profiler"};
    CSite m_Board{u"Board"};
    CSite m_Route{u"Route"};
    CSite m_Draw{u"Draw"};
};

using AppProfilerThreadsTest = AppProfilerTest;

TEST_F(AppProfilerTest, TheTableIsWrittenWhenTheOutermostRegionCloses)
{
    Start(1);

    m_Board.Begin();
    for (int i = 0; i < 3; ++i)
    {
        m_Route.Begin();
        Pass(200.5);
        m_Route.Begin(); // within itself: one call and one span
        Pass(33);
        m_Route.End();
        m_Route.End();
        m_Draw.Begin();
        m_Draw.End(); // no time passed: not in the table
    }
    Pass(1000);
    EXPECT_FALSE(std::filesystem::exists(GetDiskName()));
    m_Board.End();

    EXPECT_EQ(Read(), "--------------------------------------------------\r\n"
                      "Board                                             :   1700 (100%) [1]\r\n"
                      "Route                                             :    700 (41%) [3]\r\n");
}

TEST_F(AppProfilerTest, EachTableBeginsAnewAndARegionOfNoTimeDropsOut)
{
    Start(1000);
    for (int run = 0; run < 2; ++run)
    {
        m_Draw.Begin();
        m_Route.Begin();
        Pass(run == 0 ? 0 : 7);
        m_Route.End();
        Pass(3);
        m_Draw.End();
    }

    const std::string rule = std::string(50, '-') + "\r\n";
    EXPECT_EQ(Read(),
              rule + "Draw                                              :      3 (100%) [1]\r\n" +
                  rule +
                  "Draw                                              :     10 (100%) [1]\r\n");
}

TEST_F(AppProfilerTest, NothingIsMeasuredBeforeTheStartNameIsMet)
{
    Start(1, u"BOARD");
    EXPECT_TRUE(CAppProfiler::IsStarted());
    for (int run = 0; run < 2; ++run)
    {
        m_Route.Begin();
        Pass(5);
        m_Route.End();
        m_Board.Begin();
        Pass(2);
        m_Board.End();
    }

    const std::string table =
        std::string(50, '-') +
        "\r\nBoard                                             :      2 (100%) [1]\r\n";
    EXPECT_EQ(Read(), table + table);
    EXPECT_EQ(m_Route.Id, 0);
}

TEST_F(AppProfilerTest, OffMeansThatNothingHappens)
{
    m_Settings.DeleteAllValues();
    CAppProfiler::Start();
    EXPECT_FALSE(CAppProfiler::IsStarted());
    Start(0);
    EXPECT_FALSE(CAppProfiler::IsStarted());

    m_Board.Begin();
    m_Board.End();

    EXPECT_EQ(m_Board.Id, 0);
    Start(1);
    EXPECT_TRUE(CAppProfiler::IsStarted());
    CAppProfiler::Stop();
    EXPECT_FALSE(CAppProfiler::IsStarted());
    EXPECT_FALSE(std::filesystem::exists(GetDiskName()));
}

TEST_F(AppProfilerTest, AtLeastAThousandPointsAndNoFurtherOne)
{
    for (const int points : {5, -3, 1002})
    {
        SCOPED_TRACE(points);
        const std::size_t wanted = points == 1002 ? 1002 : 1000;
        std::vector<CSite> sites(wanted + 1, CSite{u"Point"});
        Start(points);

        for (CSite& site : sites)
            site.Begin();
        sites.back().Begin();
        sites.back().End();

        EXPECT_EQ(sites[wanted - 1].Id, static_cast<int>(wanted));
        EXPECT_EQ(sites.back().Id, 0);
        EXPECT_EQ(Read(), "Error: Too many profile points at Point\r\n"
                          "Error: Too many profile points at Point\r\n");
    }
}

TEST_F(AppProfilerTest, AnIdOfAnEarlierRunIsGivenAnew)
{
    Start(1);
    m_Board.Begin();
    m_Board.End();
    m_Route.Begin();
    EXPECT_EQ(m_Route.Id, 2);

    Start(1);
    m_Route.End(); // entered in the run before
    m_Route.Begin();
    m_Board.Begin();
    Pass(1);
    m_Board.End();
    m_Route.End();

    EXPECT_EQ(m_Route.Id, 1);
    EXPECT_EQ(m_Board.Id, 2);
    EXPECT_EQ(Read(),
              std::string(50, '-') +
                  "\r\nRoute                                             :      1 (100%) [1]\r\n"
                  "Board                                             :      1 (100%) [1]\r\n");
}

TEST_F(AppProfilerTest, WithoutItsOptionNoFileIsTouched)
{
    m_Settings.SetValue(u"Options", 1);
    Start(1);
    m_Board.Begin();
    Pass(1);
    m_Board.End();

    EXPECT_FALSE(std::filesystem::exists(GetDiskName()));
}

/// The same call site on whatever thread.
void PassSharedSite()
{
    static int id = 0;
    const CProfiledRegion region(u"Shared", id);
    if (CAppProfiler::IsStarted() && GetMessageLoop().IsMainThread())
        g_Now += FILETIME_PER_MILLISECOND;
}

TEST_F(AppProfilerThreadsTest, CallsOfOtherThreadsAreLeftOut)
{
    Start(1);
    m_Board.Begin();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(
            []
            {
                for (int call = 0; call < 1000; ++call)
                    PassSharedSite();
            });
    for (int call = 0; call < 1000; ++call)
        PassSharedSite();
    for (std::thread& thread : threads)
        thread.join();
    m_Board.End();

    EXPECT_NE(
        Read().find("Shared                                            :   1000 (100%) [1000]\r\n"),
        std::string::npos)
        << Read();
}

} // namespace
} // namespace utility
