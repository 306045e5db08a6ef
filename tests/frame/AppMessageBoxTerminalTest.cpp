#include "frame/AppLog.h"
#include "frame/AppMessageBox.h"
#include "frame/Application.h"
#include "frame/MacroOps.h"
#include "frame/ThreadInfo.h"
#include "frame/WaitForWorker.h"
#include "platform/system/process/Handle.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/UserInterface.h"
#include "platform/system/window/Wnd.h"
#include "resources/MessageNames.h"
#include "settings/AppRegistry.h"

#include "support/ChildProcess.h"
#include "support/SettingsSandbox.h"
#include "support/TerminalProcess.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <thread>

namespace utility
{
namespace
{

/// Boxes of a program that installs no user interface. Each test runs in a process of its own,
/// since the standard interface looks at the streams once.
class AppMessageBoxTerminalTest : public testing::Test
{
protected:
    AppMessageBoxTerminalTest()
    {
        CApplication::SetName(u"Parts");
        SetUserInterface(nullptr);
    }

    static int ShowYesNo() { return CAppMessageBox::Show(u"Replace it?", MB_YESNO, 0); }
};

TEST_F(AppMessageBoxTerminalTest, AsksInTheTerminal)
{
    if (!IsInFreshProcess())
        return;
    const struct
    {
        const char* m_Name;
        std::string m_Keys;
        int m_Answer;
        int m_Prompts;
    } cases[] = {
        {"first letter", "y\n", IDYES, 1},
        {"word in any case", "yES\n", IDYES, 1},
        {"no", "No\n", IDNO, 1},
        {"empty line", "\n", IDNO, 1},
        {"end of the input", std::string(END_OF_INPUT), IDNO, 1},
        {"asked again until it is a button", "perhaps\ncancel\ny\n", IDYES, 3},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Name);

        const CTerminalRun run = RunOnTerminal(ShowYesNo, row.m_Keys);

        EXPECT_EQ(run.m_ExitCode, row.m_Answer);
        std::string screen = "Parts: Replace it?\n";
        for (int i = 0; i < row.m_Prompts; ++i)
            screen += "[Yes/No] (No): ";
        EXPECT_EQ(run.m_Screen, screen + (row.m_Keys == END_OF_INPUT ? "\n" : ""));
    }
}

TEST_F(AppMessageBoxTerminalTest, AsksNobodyWhereAStreamIsNoTerminal)
{
    if (!IsInFreshProcess())
        return;
    const auto withoutAnswers = []
    {
        return std::freopen("/dev/null", "r", stdin) ? ShowYesNo() : -1;
    };
    const auto withoutScreen = []
    {
        return std::freopen("/dev/null", "w", stderr) ? ShowYesNo() : -1;
    };

    const CTerminalRun shown = RunOnTerminal(withoutAnswers, "y\n");
    EXPECT_EQ(shown.m_ExitCode, IDNO);
    EXPECT_EQ(shown.m_Screen, "Parts: Replace it?\n[Yes/No] (No): \n");
    const CTerminalRun silent = RunOnTerminal(withoutScreen, "y\n");
    EXPECT_EQ(silent.m_ExitCode, IDNO);
    EXPECT_EQ(silent.m_Screen, "");
}

TEST_F(AppMessageBoxTerminalTest, AMacroAnswersInTheUsersPlace)
{
    if (!IsInFreshProcess())
        return;
    const auto replay = [](const CString*, int* answer)
    {
        *answer = IDCANCEL;
        return true;
    };
    CMacroOps::InitFunctions(nullptr, replay, {}, {}, {}, {}, {}, {}, {});
    CMacroOps::SetReplaying(true);

    const CTerminalRun run = RunOnTerminal(ShowYesNo, "y\n");

    EXPECT_EQ(run.m_ExitCode, IDCANCEL);
    EXPECT_EQ(run.m_Screen, "");
}

TEST_F(AppMessageBoxTerminalTest, AWorkersBoxIsAskedByTheMainThread)
{
    if (!IsInFreshProcess())
        return;
    struct CMainWnd : CWnd
    {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message != MSG_SHOW_APP_MESSAGE_BOX)
                return CWnd::WindowProc(message, wParam, lParam);
            std::fputs(GetMessageLoop().IsMainThread() ? "main thread\n" : "worker\n", stderr);
            return CAppMessageBox::Answer(wParam, lParam);
        }
    };
    const auto ask = []
    {
        CMainWnd mainWindow;
        mainWindow.Create(u"Frame", u"", 0, nullptr);
        CApplication::SetMainWnd(&mainWindow);
        CThreadInfo info;
        int answer = -1;
        std::thread worker(
            [&]
            {
                answer = ShowYesNo();
                info.StopRunning();
            });
        const bool hasEnded = WaitForWorker(info, 0, INFINITE);
        worker.join();
        return hasEnded ? answer : -1;
    };

    const CTerminalRun run = RunOnTerminal(ask, "y\n");

    EXPECT_EQ(run.m_ExitCode, IDYES);
    EXPECT_EQ(run.m_Screen, "main thread\nParts: Replace it?\n[Yes/No] (No): ");
}

} // namespace
} // namespace utility
