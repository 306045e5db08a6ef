#include "frame/LaunchProcess.h"

#include "frame/RunningProcess.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/process/Handle.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/MessageLoop.h"

#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

namespace utility
{

namespace
{

namespace fs = std::filesystem;

/// Notes what happens to the main window, and when: "M" minimised, "R" restored.
class CWatchingUser : public CScriptedUser
{
public:
    void MinimiseMainWindow() override { m_Steps += 'M'; }
    void RestoreMainWindow() override { m_Steps += 'R'; }

    std::string m_Steps;
};

CString MakeProgram(const CTemporaryFolder& folder, const CString& name, const std::string& text)
{
    const CString path = folder.MakeFile(name, text);
    fs::permissions(DiskPathBytes(path), fs::perms::owner_all);
    return path;
}

} // namespace

TEST(LaunchProcessTest, WaitingKeepsPostedMessagesQueued)
{
    const CScriptedUser user;
    bool wasDelivered = false;
    ASSERT_TRUE(GetMessageLoop().Post([&] { wasDelivered = true; }));

    DWORD exitCode = 0;
    EXPECT_TRUE(LaunchProcess(u"sh -c \"exit 5\"", true, false, false, &exitCode));
    EXPECT_EQ(exitCode, 5U);
    EXPECT_FALSE(wasDelivered);
    EXPECT_EQ(user.GetWaitDepth(), 0);

    GetMessageLoop().HandleWaiting();
    EXPECT_TRUE(wasDelivered);
}

TEST(LaunchProcessTest, HandleTellsOfAnEarlyEnd)
{
    HANDLE process = nullptr;
    ASSERT_TRUE(LaunchProcess(u"sh -c \"exit 9\"", &process));
    EXPECT_EQ(WaitForSingleObject(process, INFINITE), WAIT_OBJECT_0);
    DWORD exitCode = 0;
    EXPECT_TRUE(GetExitCodeProcess(process, exitCode));
    EXPECT_EQ(exitCode, 9U);
    EXPECT_TRUE(CloseHandle(process));
}

TEST(LaunchProcessTest, WhatIsNoProgramIsNotLaunched)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"plain", "text");
    MakeProgram(folder, u"garbage", "\x01\x02\x03");
    const struct
    {
        CString m_Line;
        DWORD m_Code;
    } CASES[] = {
        {u"no-such-program", ERROR_FILE_NOT_FOUND},
        {u"", ERROR_FILE_NOT_FOUND},
        {folder.PathOf(u"no-folder\\x"), ERROR_PATH_NOT_FOUND},
        {folder.PathOf(u"plain"), ERROR_ACCESS_DENIED},
        {folder.GetPath(), ERROR_ACCESS_DENIED},
        {folder.PathOf(u"garbage"), ERROR_BAD_EXE_FORMAT},
    };
    for (const auto& [line, code] : CASES)
    {
        SCOPED_TRACE(testing::PrintToString(line));
        CWatchingUser user;
        HANDLE process = nullptr;
        DWORD exitCode = 1;
        EXPECT_FALSE(LaunchProcess(line, &process));
        EXPECT_EQ(GetLastError(), code);
        EXPECT_FALSE(LaunchProcess(line, true, true, true, &exitCode));
        EXPECT_EQ(GetLastError(), code);
        EXPECT_EQ(process, nullptr);
        EXPECT_EQ(exitCode, 1U);
        EXPECT_EQ(user.m_Steps, "");
        EXPECT_EQ(user.GetWaitDepth(), 0);
    }
}

TEST(LaunchProcessTest, MainWindowIsAsideOnlyWhileAProgramIsWaitedFor)
{
    CWatchingUser user;
    EXPECT_TRUE(LaunchProcess(u"sh -c \"exit 3\"", true, false, true, nullptr));
    EXPECT_EQ(user.m_Steps, "MR");
    EXPECT_TRUE(LaunchProcess(u"sh -c \"exit 3\"", true, false, false, nullptr));
    EXPECT_TRUE(LaunchProcess(u"sh -c \"exit 3\"", false, false, true, nullptr));
    EXPECT_EQ(user.m_Steps, "MR");
}

TEST(LaunchProcessTest, ArgumentsAndTheWishForAMinimisedWindowArrive)
{
    const CTemporaryFolder folder;
    const CString program =
        MakeProgram(folder, u"My Tools\\pcb",
                    "#!/bin/sh\nprintf '%s|' \"$UTILITY_START_MINIMISED\" \"$@\" >'" +
                        (folder.GetNativePath() / "out").string() + "'\n");
    const CString line = program + u" -L \"a  b\" \"\" $HOME ; c\\\"d \u00E9";
    const std::string arguments = "-L|a  b||$HOME|;|c\"d|\xC3\xA9|";

    for (const bool minimised : {false, true})
    {
        DWORD exitCode = 1;
        EXPECT_TRUE(LaunchProcess(line, true, minimised, false, &exitCode));
        EXPECT_EQ(exitCode, 0U);
        EXPECT_EQ(folder.Read(u"out"), (minimised ? "1|" : "|") + arguments);
    }
    HANDLE process = nullptr;
    ASSERT_TRUE(LaunchProcess(line, &process));
    EXPECT_EQ(WaitForSingleObject(process, INFINITE), WAIT_OBJECT_0);
    CloseHandle(process);
    EXPECT_EQ(folder.Read(u"out"), "1|" + arguments); // this form always asks for it
}

TEST(RunningProcessTest, FindsAProgramByItsNameInAnyCase)
{
    const CString own = GetModuleFileNameW();
    const CString name = own.Mid(own.ReverseFind(u'\\') + 1);
    CString shouted = name;
    shouted.MakeUpper();
    CRunningProcess process;
    ASSERT_TRUE(process.Find(shouted));
    EXPECT_EQ(process.GetPath().Right(name.GetLength() + 1), u"\\" + name); // or another run of it
    EXPECT_GT(process.GetProcessID(), 0U);

    EXPECT_FALSE(process.Find(u"no-such-program"));
    EXPECT_EQ(process.GetPath(), u"");
    EXPECT_EQ(process.GetProcessID(), 0U);
}

TEST(RunningProcessTest, LaunchedProgramIsFoundUntilItEnds)
{
    const CTemporaryFolder folder;
    const CString name =
        FromUtf8(folder.GetNativePath().filename().string()); // no other run has it
    const CString program = folder.PathOf(name + u".run");
    fs::copy_file("/bin/cat", DiskPathBytes(program));
    const std::string pipe = (folder.GetNativePath() / "pipe").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);

    HANDLE helper = nullptr;
    ASSERT_TRUE(LaunchProcess(program + u" " + FromUtf8(pipe), &helper));
    CRunningProcess process;
    EXPECT_TRUE(process.Find(name + u".RUN"));
    EXPECT_EQ(process.GetPath(), program);
    EXPECT_NE(process.GetProcessID(), GetCurrentProcessId());
    EXPECT_FALSE(CRunningProcess().Find(name)); // the extension counts

    folder.MakeFile(u"pipe"); // opened and closed: there is nothing more to read
    EXPECT_EQ(WaitForSingleObject(helper, INFINITE), WAIT_OBJECT_0);
    EXPECT_FALSE(process.Find(name + u".run"));
    EXPECT_TRUE(process.GetPath().IsEmpty());
    CloseHandle(helper);
}

} // namespace utility
