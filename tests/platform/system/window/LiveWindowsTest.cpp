#include "platform/system/window/LiveWindows.h"

#include "platform/base/Atoms.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/Rect.h"
#include "platform/system/process/Handle.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/LiveSocket.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

#include "support/ChildProcess.h"
#include "support/HostProcess.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{
namespace
{

constexpr char16_t PING[] = u"InstanceHost.Ping";

std::vector<CLiveWindow> ListWindows()
{
    std::vector<CLiveWindow> windows;
    EnumWindows(
        [&windows](const CLiveWindow& window)
        {
            windows.push_back(window);
            return true;
        });
    return windows;
}

std::vector<CString> ListTitles()
{
    std::vector<CString> titles;
    for (const CLiveWindow& window : ListWindows())
        titles.push_back(window.m_Title);
    return titles;
}

HWND FindByTitle(const CString& title)
{
    for (const CLiveWindow& window : ListWindows())
    {
        if (window.m_Title == title)
            return window.m_Window;
    }
    return nullptr;
}

using Titles = std::vector<CString>;

TEST(LiveWindowsTest, OwnTopLevelWindowsAreListedTheTopmostFirst)
{
    CWnd first;
    CWnd second;
    CWnd child;
    CWnd box;
    ASSERT_TRUE(first.Create(u"Frame", u"One", 0, nullptr));
    ASSERT_TRUE(second.Create(u"Frame", u"Two", 0, nullptr));
    ASSERT_TRUE(child.Create(u"Edit", u"Child", WS_CHILD, &first));
    ASSERT_TRUE(box.Create(u"#32770", u"Box", WS_POPUP, &first));
    EXPECT_EQ(ListTitles(), (Titles{u"One", u"Two"}));

    second.SetForegroundWindow();
    first.SetWindowText(CString(u'x', 130));
    child.SetWindowText(u"Still a child");
    EXPECT_EQ(ListTitles(), (Titles{u"Two", CString(u'x', 127)}));
    EXPECT_EQ(ListWindows()[0].m_ProcessId, GetCurrentProcessId());
    EXPECT_EQ(ListWindows()[0].m_Window, second.GetSafeHwnd());

    first.DestroyWindow();
    EXPECT_EQ(ListTitles(), (Titles{u"Two"}));
}

TEST(LiveWindowsTest, FilesComeWithTheFirstWindowAndGoWithTheLast)
{
    CWnd first;
    CWnd second;
    ASSERT_TRUE(first.Create(u"Frame", u"One", 0, nullptr));
    ASSERT_TRUE(second.Create(u"Frame", u"Two", 0, nullptr));
    const std::vector<std::string> files = LiveWindowsFiles();
    ASSERT_EQ(files.size(), 2U);
    EXPECT_TRUE(files[0].ends_with(".entry")) << files[0];
    EXPECT_TRUE(files[1].ends_with(".socket")) << files[1];

    struct stat status = {};
    ASSERT_EQ(stat(LiveWindowsFolder().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0700U);

    first.DestroyWindow();
    EXPECT_EQ(LiveWindowsFiles(), files);
    second.DestroyWindow();
    EXPECT_TRUE(LiveWindowsFiles().empty());
}

TEST(LiveWindowsTest, WhatDeadProcessesLeftIsRemovedAndAllElseStays)
{
    CWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"Own", 0, nullptr));
    const std::string parent = std::to_string(getppid()); // it lives, but was not started then
    const Titles before = ListTitles();
    const struct
    {
        std::string m_Name;
        bool m_Stays;
    } rows[] = {
        {"4194304-5.entry", false}, // above the highest id
        {"4194304-5.socket", false},  {"4194304-5.new", false},
        {parent + "-1.entry", false}, {parent + "-.entry", true}, // not ours
        {"x-1.entry", true},          {"notes.txt", true},
    };
    for (const auto& row : rows)
        std::ofstream(LiveWindowsFolder() / row.m_Name)
            << "utility-windows 1\nprocess " << row.m_Name.substr(0, row.m_Name.find('-'))
            << " 1\nwindow 1\ntitle Ghost\n";

    EXPECT_EQ(ListTitles(), before);
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(std::filesystem::exists(LiveWindowsFolder() / row.m_Name), row.m_Stays);
        std::filesystem::remove(LiveWindowsFolder() / row.m_Name);
    }
}

TEST(LiveWindowsTest, WindowsOfAnotherProgramDoWhatTheyAreTold)
{
    CHostProcess host({"-I3", "far"});
    ASSERT_EQ(host.Hear(), "ready");
    const HWND window = FindByTitle(u"Boards - far");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(GetWindowThreadProcessId(window), host.GetId());
    EXPECT_EQ(CWnd::FromHandle(window), nullptr);
    EXPECT_EQ(host.Ask("state"), "1 0 0 0 0 0");

    EXPECT_TRUE(SetForegroundWindow(window));
    EXPECT_TRUE(MoveWindow(window, {-10, 20, 640, 480}));
    EXPECT_TRUE(ShowWindow(window, SW_MAXIMIZE));
    EXPECT_TRUE(PostMessageW(window, RegisterWindowMessageW(PING), 7, -8));
    EXPECT_EQ(host.Ask("await"), "message 7 -8");
    EXPECT_EQ(host.Ask("state"), "1 1 -10 20 640 480");

    EXPECT_EQ(host.Ask("title Renamed"), "done");
    EXPECT_EQ(GetWindowText(window), u"Renamed");
    EXPECT_TRUE(PostMessageW(window, WM_CLOSE));
    EXPECT_EQ(host.Ask("await"), "close");
    EXPECT_EQ(FindByTitle(u"Renamed"), nullptr);
}

TEST(LiveWindowsTest, AProgramThatChangesItsTitleIsNeverMissed)
{
    CHostProcess host({"-I3", "far"});
    ASSERT_EQ(host.Hear(), "ready");
    constexpr int CHANGES = 300;
    for (int i = 0; i < CHANGES; ++i)
    {
        host.Tell("title Title " + std::to_string(i));
        const std::vector<CLiveWindow> windows = ListWindows();
        ASSERT_EQ(windows.size(), 1U) << i;
        EXPECT_EQ(windows[0].m_ProcessId, host.GetId());
    }
    for (int i = 0; i < CHANGES; ++i)
        EXPECT_EQ(host.Hear(), "done");
    EXPECT_EQ(ListTitles(), (Titles{u"Title 299"}));
}

TEST(LiveWindowsTest, WhatAnotherProgramsWindowCannotDoIsRefused)
{
    CHostProcess host({"-I3", "far"});
    ASSERT_EQ(host.Hear(), "ready");
    const HWND window = FindByTitle(u"Boards - far");
    const UINT longName = RegisterWindowMessageW(CString(u'n', 256));
    for (const UINT message : {WM_COMMAND, WM_USER + 1, longName, 0xFFFFFFFFU})
    {
        SCOPED_TRACE(message);
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(PostMessageW(window, message));
        EXPECT_EQ(GetLastError(), ERROR_NOT_SUPPORTED);
    }
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(ShowWindow(window, SW_HIDE));
    EXPECT_EQ(GetLastError(), ERROR_NOT_SUPPORTED);

    host.Kill();
    EXPECT_FALSE(SetForegroundWindow(window));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(GetWindowThreadProcessId(window), 0U);
    EXPECT_FALSE(SetForegroundWindow(nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(LiveWindowsTest, AHaltedProgramIsGivenUpAfterAWhile)
{
    CHostProcess host({"-I3", "far"});
    ASSERT_EQ(host.Hear(), "ready");
    const HWND window = FindByTitle(u"Boards - far");
    kill(static_cast<pid_t>(host.GetId()), SIGSTOP);
    int taken = 0;
    constexpr int MORE_THAN_ANY_QUEUE = 1'000'000;
    while (taken < MORE_THAN_ANY_QUEUE && SetForegroundWindow(window))
        ++taken;
    EXPECT_LT(taken, MORE_THAN_ANY_QUEUE);
    EXPECT_EQ(GetLastError(), ERROR_SEM_TIMEOUT);

    kill(static_cast<pid_t>(host.GetId()), SIGCONT);
    EXPECT_EQ(host.Ask("state"), "1 0 0 0 0 0");
}

TEST(LiveWindowsTest, AProgramWithoutARuntimeFolderStillHasWindows)
{
    // Nothing below a plain file can be made, wherever the folder is sought.
    const CTemporaryFolder folder;
    folder.MakeFile(u"file");
    CChildProcess child(
        [file = (folder.GetNativePath() / "file").string()]
        {
            for (const char* name : {"XDG_RUNTIME_DIR", "TMPDIR", "XDG_CACHE_HOME"})
                setenv(name, file.c_str(), 1);
            CWnd window;
            SetLastError(ERROR_SUCCESS);
            const bool isMade = window.Create(u"Frame", u"Lonely", 0, nullptr);
            const bool isListed = ListTitles() == Titles{u"Lonely"};
            return isMade && isListed ? 0 : 1;
        });
    EXPECT_EQ(child.Wait(), 0);
}

TEST(LiveWindowsTest, OwnWindowsTakeTheSameCalls)
{
    CWnd first;
    CWnd second;
    ASSERT_TRUE(first.Create(u"Frame", u"One", WS_VISIBLE, nullptr));
    ASSERT_TRUE(second.Create(u"Frame", u"Two", WS_VISIBLE, nullptr));
    const HWND window = second.GetSafeHwnd();

    EXPECT_TRUE(SetForegroundWindow(window));
    EXPECT_TRUE(MoveWindow(window, {1, 2, 3, 4}));
    EXPECT_TRUE(ShowWindow(window, SW_MAXIMIZE));
    EXPECT_EQ(ListTitles(), (Titles{u"Two", u"One"}));
    EXPECT_EQ(second.GetWindowRect(), CRect(1, 2, 3, 4));
    EXPECT_TRUE(second.IsZoomed());
    EXPECT_TRUE(ShowWindow(window, SW_RESTORE));
    EXPECT_FALSE(second.IsZoomed());
    EXPECT_TRUE(ShowWindow(window, SW_HIDE)); // an own one may do anything
    EXPECT_FALSE(second.IsWindowVisible());
    EXPECT_EQ(GetWindowThreadProcessId(window), GetCurrentProcessId());
    EXPECT_EQ(GetWindowText(window), u"Two");

    EXPECT_TRUE(PostMessageW(window, WM_CLOSE));
    GetMessageLoop().HandleWaiting();
    EXPECT_EQ(second.GetSafeHwnd(), nullptr);
}

} // namespace
} // namespace utility
