#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/process/Handle.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/WindowMessages.h"

#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <sys/stat.h>
#include <thread>

namespace utility
{

namespace
{

namespace fs = std::filesystem;

/// Programs that write what they were given to "out", one argument a line, and end with 7.
class CreateProcessTest : public testing::Test
{
protected:
    CreateProcessTest() { MakeProgram(u"My Tools\\pcb", Telling()); }

    std::string Telling() const
    {
        return "#!/bin/sh\nprintf '%s\\n' \"$UTILITY_START_MINIMISED\" \"$@\" >'" +
               (m_Folder.GetNativePath() / "out").string() + "'\nexit 7\n";
    }

    CString MakeProgram(const CString& name, const std::string& text) const
    {
        const CString path = m_Folder.MakeFile(name, text);
        fs::permissions(NativeOf(path), fs::perms::owner_all);
        return path;
    }

    static std::string NativeOf(const CString& path) { return DiskPathBytes(path); }

    /// What the program was given behind its name; "failed" and the code if it was not started.
    std::string Run(const CString& line, const STARTUPINFOW& startup = {})
    {
        PROCESS_INFORMATION process;
        if (!CreateProcessW(line, NORMAL_PRIORITY_CLASS, startup, process))
            return "failed " + std::to_string(GetLastError());
        EXPECT_EQ(WaitForSingleObject(process.hProcess, INFINITE), WAIT_OBJECT_0);
        DWORD exitCode = 0;
        EXPECT_TRUE(GetExitCodeProcess(process.hThread, exitCode));
        EXPECT_EQ(exitCode, 7U);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return m_Folder.Read(u"out");
    }

    CTemporaryFolder m_Folder;
};

} // namespace

TEST_F(CreateProcessTest, ShortestRunOfWordsThatNamesAProgramIsStarted)
{
    const CString program = m_Folder.PathOf(u"My Tools\\pcb");
    const CString folder = m_Folder.PathOf(u"My Tools");
    const CEnvironmentVariable path("PATH", NativeOf(folder).c_str());

    for (const CString& line :
         {program + u" -I2", u"\"" + program + u"\" -I2", program + u".exe -I2",
          program + u".EXE\t-I2 ", u"  " + program + u"   -I2", CString(u"pcb -I2"),
          CString(u"pcb.exe -I2"), u"C:" + folder + u"\\PCB -I2"})
    {
        SCOPED_TRACE(testing::PrintToString(line));
        EXPECT_EQ(Run(line), "\n-I2\n");
    }

    MakeProgram(u"My", "#!/bin/sh\nexit 7\n"); // now the shorter run names one
    m_Folder.MakeFile(u"out", "untouched");
    EXPECT_EQ(Run(program + u" -I2"), "untouched");
}

TEST_F(CreateProcessTest, ArgumentsFollowTheRulesOfQuotesAndBackslashes)
{
    const CString program = u"\"" + m_Folder.PathOf(u"My Tools\\pcb") + u"\" ";
    const struct
    {
        const char16_t* m_Line;
        const char* m_Arguments;
    } CASES[] = {
        {u"a b\tc", "a\nb\nc\n"},
        {u"\"a b\" \"\" c", "a b\n\nc\n"},
        {u"a\"b c\"d", "ab cd\n"},
        {uR"(a\\b \\s\p)", "a\\\\b\n\\\\s\\p\n"},
        {uR"(a\"b "c\\" d)", "a\"b\nc\\\nd\n"},
        {uR"(a\\\"b "x""y")", "a\\\"b\nx\"y\n"},
        {u"\"never ends", "never ends\n"},
        {u"$HOME *;'`id`' \u03A9\U0001F600", "$HOME\n*;'`id`'\n\u03A9\U0001F600\n"},
    };
    for (const auto& [line, arguments] : CASES)
    {
        SCOPED_TRACE(testing::PrintToString(CString(line)));
        EXPECT_EQ(Run(program + line), std::string("\n") + arguments);
    }
}

TEST_F(CreateProcessTest, WhatCannotBeStartedTellsWhy)
{
    m_Folder.MakeFile(u"plain", "text");
    MakeProgram(u"garbage", std::string("\x01\x02\x03\x04", 4));
    m_Folder.MakeFolder(u"folder");

    EXPECT_EQ(Run(m_Folder.PathOf(u"absent x")), "failed 2");
    EXPECT_EQ(Run(m_Folder.PathOf(u"no\\where")), "failed 3");
    EXPECT_EQ(Run(m_Folder.PathOf(u"plain")), "failed 5");
    EXPECT_EQ(Run(m_Folder.PathOf(u"folder")), "failed 5");
    EXPECT_EQ(Run(m_Folder.PathOf(u"garbage")), "failed 193");
    EXPECT_EQ(Run(u"no-such-program-anywhere"), "failed 2");
    EXPECT_EQ(Run(u""), "failed 2");
    EXPECT_EQ(Run(u"\"\" x"), "failed 2");
}

TEST_F(CreateProcessTest, WishForAMinimisedWindowReachesTheProgramAlone)
{
    STARTUPINFOW startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = static_cast<WORD>(SW_MINIMIZE);
    const CString program = u"\"" + m_Folder.PathOf(u"My Tools\\pcb") + u"\"";
    EXPECT_EQ(Run(program, startup), "1\n");
    EXPECT_FALSE(StartsMinimised());

    const CEnvironmentVariable asked("UTILITY_START_MINIMISED", "1");
    EXPECT_TRUE(StartsMinimised());
    EXPECT_EQ(Run(program), "\n"); // our own starter's wish is not handed on
}

TEST_F(CreateProcessTest, ProgramThatASignalEndsTells128AndItsNumber)
{
    PROCESS_INFORMATION process;
    ASSERT_TRUE(
        CreateProcessW(u"\"" + MakeProgram(u"x", "#!/bin/sh\nread line\nkill -9 $$\n") + u"\"",
                       DETACHED_PROCESS, {}, process));
    EXPECT_EQ(WaitForSingleObject(process.hProcess, INFINITE), WAIT_OBJECT_0);
    DWORD exitCode = 0;
    EXPECT_TRUE(GetExitCodeProcess(process.hProcess, exitCode));
    EXPECT_EQ(exitCode, 137U);
    EXPECT_TRUE(CloseHandle(process.hProcess));
    EXPECT_TRUE(CloseHandle(process.hThread));
}

TEST_F(CreateProcessTest, HandlesClosedEarlyLeaveNoDeadProcess)
{
    const CString fifo = m_Folder.PathOf(u"fifo");
    ASSERT_EQ(::mkfifo(NativeOf(fifo).c_str(), 0600), 0);
    PROCESS_INFORMATION process;
    ASSERT_TRUE(CreateProcessW(
        u"\"" +
            MakeProgram(u"x", "#!/bin/sh\nread line <'" +
                                  (m_Folder.GetNativePath() / "fifo").string() + "'\n") +
            u"\"",
        DETACHED_PROCESS, {}, process));
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 0), WAIT_TIMEOUT);
    DWORD exitCode = 0;
    EXPECT_TRUE(GetExitCodeProcess(process.hProcess, exitCode));
    EXPECT_EQ(exitCode, STILL_ACTIVE);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);

    m_Folder.MakeFile(u"fifo", "go\n"); // returns once the program reads
    const auto id = static_cast<pid_t>(process.dwProcessId);
    while (::kill(id, 0) == 0) // a dead process that nobody collects would still be there
        std::this_thread::yield();
    EXPECT_EQ(errno, ESRCH);
}

} // namespace utility
