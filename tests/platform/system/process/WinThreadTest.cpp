#include "platform/system/process/WinThread.h"

#include "platform/base/ErrorCodes.h"
#include "platform/system/process/Handle.h"
#include "platform/system/process/SyncEvent.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <thread>
#include <vector>

namespace utility
{
namespace
{

/// What a thread of these tests does and finds out.
struct CWork
{
    CEvent m_MayEnd;
    CEvent m_HasEnded;
    DWORD m_Number = 0;
    CWinThread* m_Thread = nullptr;
    bool m_HasRun = false;

    static UINT Run(void* data)
    {
        auto& work = *static_cast<CWork*>(data);
        work.m_HasRun = true;
        work.m_Number = GetCurrentThreadId();
        work.m_Thread = AfxGetThread();
        work.m_MayEnd.Lock();
        work.m_HasEnded.SetEvent();
        return 0;
    }
};

TEST(WinThreadThreadsTest, NumbersAreNeverUsedTwice)
{
    const DWORD own = GetCurrentThreadId();
    std::vector<DWORD> numbers{own};
    for (int i = 0; i < 3; ++i)
        std::thread([&] { numbers.push_back(GetCurrentThreadId()); }).join();

    std::sort(numbers.begin(), numbers.end());
    EXPECT_EQ(std::unique(numbers.begin(), numbers.end()), numbers.end());
    EXPECT_EQ(GetCurrentThreadId(), own);
}

TEST(WinThreadThreadsTest, BeginsSuspendedAndIsWaitedForByItsHandle)
{
    CWork work;
    const std::unique_ptr<CWinThread> thread(
        AfxBeginThread(CWork::Run, &work, 0, 0, CREATE_SUSPENDED));
    ASSERT_NE(thread, nullptr);
    thread->m_bAutoDelete = FALSE;
    EXPECT_EQ(WaitForSingleObject(thread->m_hThread, 0), WAIT_TIMEOUT);
    EXPECT_EQ(thread->ResumeThread(), 1U);
    EXPECT_EQ(thread->ResumeThread(), 0U);
    work.m_MayEnd.SetEvent();

    EXPECT_EQ(WaitForSingleObject(thread->m_hThread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(work.m_Number, thread->m_nThreadID);
    EXPECT_EQ(work.m_Thread, thread.get());
    EXPECT_EQ(AfxGetThread(), nullptr);
}

TEST(WinThreadThreadsTest, AnObjectDeletedBeforeTheThreadBeganLetsItEnd)
{
    CWork work;
    delete AfxBeginThread(CWork::Run, &work, 0, 0, CREATE_SUSPENDED);

    EXPECT_FALSE(work.m_HasRun);
}

TEST(WinThreadThreadsTest, WithoutMoreItDeletesItself)
{
    CWork work;
    ASSERT_NE(AfxBeginThread(CWork::Run, &work), nullptr);
    work.m_MayEnd.SetEvent();

    EXPECT_TRUE(work.m_HasEnded.Lock());
}

TEST(WinThreadThreadsTest, IsNamedForDebuggersAndForUs)
{
    char systemName[16] = {};
    CEvent hasNumber;
    CEvent hasName;
    DWORD number = 0;
    std::thread thread(
        [&]
        {
            number = GetCurrentThreadId();
            hasNumber.SetEvent();
            hasName.Lock();
            pthread_getname_np(pthread_self(), systemName, sizeof(systemName));
            NameThread(CALLING_THREAD, "again");
            EXPECT_EQ(GetThreadName(number), u"again");
        });
    hasNumber.Lock();
    NameThread(number, "IPComms.Receiver");
    EXPECT_EQ(GetThreadName(number), u"IPComms.Receiver");
    hasName.SetEvent();
    thread.join();

    EXPECT_STREQ(systemName, "IPComms.Receive"); // 15 bytes
    EXPECT_EQ(GetThreadName(number), u"");       // gone with the thread
    NameThread(number, "nobody");
    EXPECT_EQ(GetThreadName(number), u"");
}

} // namespace
} // namespace utility
