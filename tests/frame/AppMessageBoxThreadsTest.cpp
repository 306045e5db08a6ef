#include "frame/AppMessageBox.h"
#include "frame/Application.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/Wnd.h"
#include "resources/MessageNames.h"

#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

#include <latch>
#include <thread>

namespace utility
{
namespace
{

class CAnsweringWnd : public CWnd
{
public:
    bool m_WasOnMainThread = false;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != MSG_SHOW_APP_MESSAGE_BOX)
            return CWnd::WindowProc(message, wParam, lParam);
        m_WasOnMainThread = GetMessageLoop().IsMainThread();
        return CAppMessageBox::Answer(wParam, lParam);
    }
};

class AppMessageBoxThreadsTest : public testing::Test
{
protected:
    AppMessageBoxThreadsTest() : m_PreviousLoop(SetMessageLoop(m_Loop.get())) {}
    ~AppMessageBoxThreadsTest() override
    {
        CApplication::SetMainWnd(nullptr);
        SetMessageLoop(m_PreviousLoop);
    }

    /// Shows a box from a worker while this thread runs the loop.
    int ShowFromWorker()
    {
        int answer = -1;
        std::latch isRunning(1); // a loop that has run before takes nothing in between
        UINT timer = 0;
        timer = m_Loop->SetTimer(1,
                                 [&]
                                 {
                                     m_Loop->KillTimer(timer);
                                     isRunning.count_down();
                                 });
        std::thread worker(
            [&]
            {
                isRunning.wait();
                answer = CAppMessageBox::Show(u"from a worker", MB_YESNO, 0);
                m_Loop->Quit(0);
            });
        m_Loop->Run();
        worker.join();
        return answer;
    }

    std::unique_ptr<IMessageLoop> m_Loop = MakeHeadlessMessageLoop();
    IMessageLoop* m_PreviousLoop;
    CScriptedUser m_User;
};

TEST_F(AppMessageBoxThreadsTest, AWorkersBoxIsShownByTheMainWindow)
{
    CAnsweringWnd mainWindow;
    ASSERT_TRUE(mainWindow.Create(u"Frame", u"", 0, nullptr));
    CApplication::SetMainWnd(&mainWindow);
    m_User.WillAnswer(IDYES);

    EXPECT_EQ(ShowFromWorker(), IDYES);
    EXPECT_TRUE(mainWindow.m_WasOnMainThread);
    EXPECT_EQ(m_User.GetOnlyText(), u"from a worker");
}

TEST_F(AppMessageBoxThreadsTest, WithoutAMainWindowItGoesStraightToTheUser)
{
    m_User.WillAnswer(IDNO);

    EXPECT_EQ(ShowFromWorker(), IDNO);
}

TEST_F(AppMessageBoxThreadsTest, AMainWindowThatIsGoneAnswersZero)
{
    CAnsweringWnd mainWindow; // has no window any more
    CApplication::SetMainWnd(&mainWindow);

    EXPECT_EQ(ShowFromWorker(), 0);
    EXPECT_TRUE(m_User.GetBoxes().empty());
}

TEST_F(AppMessageBoxThreadsTest, WhereTheMainWindowsHandlerThrowsTheWorkerGetsZero)
{
    struct CThrowingWnd : CAnsweringWnd
    {
        bool m_Throws = true;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == MSG_SHOW_APP_MESSAGE_BOX && std::exchange(m_Throws, false))
                throw 1;
            return CAnsweringWnd::WindowProc(message, wParam, lParam);
        }
    };
    CThrowingWnd mainWindow;
    ASSERT_TRUE(mainWindow.Create(u"Frame", u"", 0, nullptr));
    CApplication::SetMainWnd(&mainWindow);
    int first = -1;
    std::thread worker([&] { first = CAppMessageBox::Show(u"?", MB_YESNO, 0); });
    EXPECT_THROW(m_Loop->Run(), int);
    worker.join();
    m_User.WillAnswer(IDYES);

    EXPECT_EQ(first, 0);
    EXPECT_EQ(ShowFromWorker(), IDYES) << "the next box is not held up";
}

} // namespace
} // namespace utility
