#include "platform/base/Atoms.h"
#include "platform/system/process/Handle.h"
#include "platform/system/window/LiveSocket.h"
#include "platform/system/window/LiveWindows.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/Wnd.h"

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <unistd.h>

namespace utility
{
namespace
{

constexpr char16_t COUNT[] = u"LiveWindows.Count";

class CCountingWnd : public CWnd
{
public:
    int m_Count = 0;
    LPARAM m_Last = 0;

    std::string Order(LPARAM number) const
    {
        return "utility-order 1 message " +
               std::to_string(reinterpret_cast<std::uintptr_t>(m_hWnd)) + " 0 " +
               std::to_string(number) + " LiveWindows.Count";
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == m_Message)
        {
            ++m_Count;
            m_Last = lParam;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    const UINT m_Message = RegisterWindowMessageW(COUNT);
};

class LiveWindowsThreadsTest : public testing::Test
{
protected:
    LiveWindowsThreadsTest() { m_Window.Create(u"Frame", u"Counting", 0, nullptr); }

    void AwaitLast(LPARAM number)
    {
        GetMessageLoop().RunUntil([this, number] { return m_Window.m_Last == number; }, INFINITE);
    }

    CCountingWnd m_Window;
};

TEST_F(LiveWindowsThreadsTest, WhatIsNoOrderIsDropped)
{
    const CLiveSocket socket;
    const std::string order = m_Window.Order(1);
    for (const std::string& bytes :
         {std::string("x"), order + std::string(2000, 'x'), std::string("utility-order 9 top 1"),
          std::string("utility-order 1 top 999999"), std::string(order.size(), '\0'),
          std::string("utility-order 1 message 999999 0 5 LiveWindows.Count"),
          std::string("utility-order 1 event 0 1 2 Nobody.Listens")})
        EXPECT_TRUE(socket.SendAndWait(bytes));
    EXPECT_TRUE(socket.SendAndWait(order));

    AwaitLast(1);
    EXPECT_EQ(m_Window.m_Count, 1);
    EXPECT_EQ(FindWindowMessage(u"Nobody.Listens"), 0U);
}

TEST_F(LiveWindowsThreadsTest, AFloodStaysWithItsSenderUntilTheLoopRuns)
{
    const CLiveSocket socket;
    constexpr int FLOOD = 5'000; // several times what may wait
    int sent = 0;
    std::thread flood(
        [&]
        {
            while (sent < FLOOD && socket.SendAndWait(m_Window.Order(sent + 1)))
                ++sent;
        });
    // More than may wait come through, in their order, and none is lost.
    AwaitLast(FLOOD);
    flood.join();
    GetMessageLoop().HandleWaiting();
    EXPECT_EQ(sent, FLOOD);
    EXPECT_EQ(m_Window.m_Count, FLOOD);

    int taken = 0;
    while (taken < FLOOD && socket.Send(m_Window.Order(FLOOD + taken)))
        ++taken;
    EXPECT_LT(taken, FLOOD) << "while the loop stands, orders must stay with their sender";
    m_Window.DestroyWindow();
    EXPECT_FALSE(socket.Send("x"));
}

TEST_F(LiveWindowsThreadsTest, AnotherUsersOrdersAreDropped)
{
    const bool isOther = geteuid() == 0; // only then can there be another user
    CChildProcess child(
        [this]
        {
            const CLiveSocket socket(getppid());
            DropRights();
            return socket.Send(m_Window.Order(5)) ? 0 : 1;
        });
    EXPECT_EQ(child.Wait(), 0);

    const CLiveSocket own;
    ASSERT_TRUE(own.SendAndWait(m_Window.Order(6)));
    AwaitLast(6);
    EXPECT_EQ(m_Window.m_Count, isOther ? 1 : 2);
}

TEST_F(LiveWindowsThreadsTest, OtherThreadsLookWhileWindowsComeAndGo)
{
    std::atomic<bool> isOver = false;
    std::atomic<int> lookCount = 0;
    std::thread looker(
        [&]
        {
            while (!isOver)
            {
                EnumWindows(
                    [](const CLiveWindow& window)
                    {
                        EXPECT_TRUE(window.m_Title.Left(8) == u"Counting");
                        return true;
                    });
                ++lookCount;
            }
        });
    for (int i = 0; i < 50 || lookCount < 20; ++i)
    {
        CWnd second;
        second.Create(u"Frame", u"Counting on", 0, nullptr);
        m_Window.SetWindowText(i % 2 == 0 ? u"Counting" : u"Counting too");
    }
    isOver = true;
    looker.join();
    EXPECT_GE(lookCount, 20);
}

TEST_F(LiveWindowsThreadsTest, TheReceiverStartsAndEndsWithTheWindows)
{
    for (int i = 1; i <= 100; ++i)
    {
        const CLiveSocket socket;
        EXPECT_TRUE(socket.SendAndWait(m_Window.Order(i)));
        m_Window.DestroyWindow();
        ASSERT_TRUE(m_Window.Create(u"Frame", u"Counting", 0, nullptr));
    }
    const CLiveSocket socket;
    EXPECT_TRUE(socket.SendAndWait(m_Window.Order(1000)));
    AwaitLast(1000);
    EXPECT_EQ(m_Window.m_Count, 1) << "what was for windows that are gone reaches nobody";
}

} // namespace
} // namespace utility
