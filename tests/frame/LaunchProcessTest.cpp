#include "frame/LaunchProcess.h"

#include "frame/RunningProcess.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/process/Handle.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/MessageLoop.h"

#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

namespace utility
{

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
    HANDLE process = nullptr;
    DWORD exitCode = 1;
    EXPECT_FALSE(LaunchProcess(u"no-such-program", &process));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(LaunchProcess(u"\\no-folder\\x", true, true, true, &exitCode));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(process, nullptr);
    EXPECT_EQ(exitCode, 1U);
}

TEST(RunningProcessTest, FindsAProgramByItsNameInAnyCase)
{
    CRunningProcess process;
    ASSERT_TRUE(process.Find(u"FRAMEtests"));
    EXPECT_EQ(process.GetPath(), GetModuleFileNameW());
    EXPECT_GT(process.GetProcessID(), 0U);

    EXPECT_FALSE(process.Find(u"no-such-program"));
    EXPECT_EQ(process.GetPath(), u"");
    EXPECT_EQ(process.GetProcessID(), 0U);
}

} // namespace utility
