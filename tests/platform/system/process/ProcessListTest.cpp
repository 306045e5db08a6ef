#include "platform/system/process/ProcessList.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/process/Handle.h"
#include "platform/system/process/Process.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace utility
{

TEST(ProcessListTest, OwnProgramIsInItOnceEachWalk)
{
    const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    ASSERT_NE(list, INVALID_HANDLE_VALUE);
    for (int walk = 0; walk < 2; ++walk)
    {
        int found = 0;
        PROCESSENTRY32W entry;
        for (bool isMore = Process32FirstW(list, entry); isMore;
             isMore = Process32NextW(list, entry))
        {
            if (entry.th32ProcessID != GetCurrentProcessId())
                continue;
            EXPECT_EQ(entry.szExeFile, GetModuleFileNameW());
            ++found;
        }
        EXPECT_EQ(found, 1);
        EXPECT_EQ(GetLastError(), ERROR_NO_MORE_FILES);
    }
    EXPECT_TRUE(CloseHandle(list));
    PROCESSENTRY32W entry;
    EXPECT_FALSE(Process32FirstW(list, entry));
    EXPECT_EQ(CreateToolhelp32Snapshot(1, 0), INVALID_HANDLE_VALUE);
}

TEST(ProcessListTest, ProgramThatHasEndedIsNotInItThoughNobodyAskedForItsEnd)
{
    const pid_t ended = ::fork();
    if (ended == 0)
        ::_exit(0);
    siginfo_t information = {};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(ended), &information, WEXITED | WNOWAIT), 0);

    const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry;
    for (bool isMore = Process32FirstW(list, entry); isMore; isMore = Process32NextW(list, entry))
        EXPECT_NE(entry.th32ProcessID, static_cast<DWORD>(ended));
    CloseHandle(list);
    ::waitpid(ended, nullptr, 0);
}

} // namespace utility
