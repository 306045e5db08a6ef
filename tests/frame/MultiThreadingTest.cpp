#include "frame/MultiThreading.h"

#include "platform/system/process/WinThread.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

class MultiThreadingTest : public testing::Test
{
protected:
    ~MultiThreadingTest() override { IsMultiThreaded(false); }

    CSettingsSandbox m_Sandbox;
    CAppRegistry m_Settings = CAppRegistry(u"design");
    const int m_Processors = GetProcessorCount();
};

TEST_F(MultiThreadingTest, LeavesOneThreadToTheMainOne)
{
    EXPECT_EQ(GetThreadCount(), m_Processors - 1);
    m_Settings.SetValue(u"ThreadCount", 4);
    EXPECT_EQ(GetThreadCount(), 3);
}

TEST_F(MultiThreadingTest, NeedsTwoThreadsAndAProcessorForEach)
{
    const struct
    {
        const char* m_Name;
        int m_Setting; // of ThreadCount
        int m_Threads;
        bool m_Can;
    } rows[] = {
        {"one thread", 4, 1, false},
        {"none", 4, 0, false},
        {"below -1", 4, -2, false},
        {"as set: one", 2, -1, false},
        {"as set: none", 1, -1, false},
        {"as set: more than processors", m_Processors + 2, -1, false},
        {"as set: all processors", m_Processors + 1, -1, m_Processors >= 2},
        {"more than processors", 4, m_Processors + 1, false},
        {"two", 1, 2, m_Processors >= 2},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        m_Settings.SetValue(u"ThreadCount", row.m_Setting);
        EXPECT_EQ(CanMultiThread(row.m_Threads), row.m_Can);
    }
}

TEST_F(MultiThreadingTest, ParallelTasksDoNotNestAndMayBeSwitchedOff)
{
    const bool can = m_Processors >= 2;
    EXPECT_EQ(CanMultiThread(2), can);
    IsMultiThreaded(true);
    EXPECT_FALSE(CanMultiThread(2));
    IsMultiThreaded(false);
    EXPECT_EQ(CanMultiThread(2), can);

    EXPECT_TRUE(IsMultiThreadingEnabled());
    m_Settings.SetValue(u"EnableThreads", false);
    EXPECT_FALSE(IsMultiThreadingEnabled());
    EXPECT_FALSE(CanMultiThread(2));
}

} // namespace
} // namespace utility
