#include "frame/AppError.h"
#include "frame/AppMessageBox.h"
#include "frame/Application.h"
#include "frame/MultiThreading.h"
#include "frame/ThreadInfo.h"
#include "frame/WaitForWorker.h"
#include "platform/system/process/WinThread.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/Wnd.h"
#include "resources/MessageNames.h"
#include "resources/StringIds.h"

#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

#include <thread>

namespace utility
{
namespace
{

class CAnsweringWnd : public CWnd
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == MSG_SHOW_APP_MESSAGE_BOX ? CAppMessageBox::Answer(wParam, lParam)
                                                   : CWnd::WindowProc(message, wParam, lParam);
    }
};

class WaitForWorkerThreadsTest : public testing::Test
{
protected:
    WaitForWorkerThreadsTest() : m_PreviousLoop(SetMessageLoop(m_Loop.get()))
    {
        m_MainWindow.Create(u"Frame", u"", 0, nullptr);
        CApplication::SetMainWnd(&m_MainWindow);
    }
    ~WaitForWorkerThreadsTest() override
    {
        CApplication::SetMainWnd(nullptr);
        SetMessageLoop(m_PreviousLoop);
        CAppError::SetLastError(0);
    }

    std::unique_ptr<IMessageLoop> m_Loop = MakeHeadlessMessageLoop();
    IMessageLoop* m_PreviousLoop;
    CAnsweringWnd m_MainWindow;
    CScriptedUser m_User;
    CThreadInfo m_Info;
};

TEST_F(WaitForWorkerThreadsTest, AnswersBoxesMeanwhile)
{
    constexpr int BOXES = 50;
    int yes = 0;
    for (int i = 0; i < BOXES; ++i)
        m_User.WillAnswer(IDYES);
    std::thread worker(
        [&]
        {
            for (int i = 0; i < BOXES; ++i)
                yes += CAppMessageBox::Show(u"Go on?", MB_YESNO, 0) == IDYES ? 1 : 0;
            m_Info.StopRunning();
        });

    EXPECT_TRUE(WaitForWorker(m_Info, 0, 60000));
    worker.join();
    EXPECT_EQ(yes, BOXES);
}

TEST_F(WaitForWorkerThreadsTest, NamesAWorkerThatNeverAsksWhetherItIsToldToQuit)
{
    std::atomic<DWORD> number = 0;
    std::atomic<bool> mayEnd = false;
    std::thread worker(
        [&]
        {
            number = GetCurrentThreadId();
            while (!mayEnd)
                std::this_thread::yield();
            m_Info.StopRunning();
        });
    while (number == 0)
        std::this_thread::yield();
    m_Info.Quit();

    EXPECT_FALSE(WaitForWorker(m_Info, number, 1));
    CString byNumber;
    byNumber.Format(u"Thread \"%u\" is still running.", number.load());
    EXPECT_EQ(CAppError::GetLastErrorString(), byNumber);
    SetThreadName(number, "Netlist.Reader");
    EXPECT_FALSE(WaitForWorker(m_Info, number, 1));
    EXPECT_EQ(CAppError::GetLastErrorString(), u"Thread \"Netlist.Reader\" is still running.");

    mayEnd = true;
    EXPECT_TRUE(WaitForWorker(m_Info, number, 60000));
    worker.join();
}

TEST_F(WaitForWorkerThreadsTest, AfterTheLoopHasEndedBoxesAnswerZero)
{
    m_Loop->Post([this] { m_Loop->Quit(0); });
    m_Loop->Run();
    int answer = -1;
    std::thread worker(
        [&]
        {
            answer = CAppMessageBox::Show(u"Too late?", MB_YESNO, 0);
            m_Info.StopRunning();
        });

    EXPECT_TRUE(WaitForWorker(m_Info, 0, 60000));
    worker.join();
    EXPECT_EQ(answer, 0);
    EXPECT_TRUE(m_User.GetBoxes().empty());
}

} // namespace
} // namespace utility
