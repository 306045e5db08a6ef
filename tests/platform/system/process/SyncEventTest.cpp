#include "platform/system/process/SyncEvent.h"

#include "platform/system/process/CriticalSection.h"

#include <gtest/gtest.h>

#include <thread>

namespace utility
{

TEST(SyncEventTest, ResetByItselfLetsOneWaitThrough)
{
    CEvent event;
    EXPECT_FALSE(event.Lock(0));

    event.SetEvent();
    event.SetEvent();
    EXPECT_TRUE(event.Lock(0));
    EXPECT_FALSE(event.Lock(0));
}

TEST(SyncEventTest, ResetByHandStaysSet)
{
    CEvent event(true, true);

    EXPECT_TRUE(event.Lock(0));
    EXPECT_TRUE(event.Lock());
    event.ResetEvent();
    EXPECT_FALSE(event.Lock(0));
}

TEST(SyncEventThreadsTest, WaitersOnOtherThreadsAreWoken)
{
    CEvent start(false, true);
    CEvent done;
    std::thread worker(
        [&]
        {
            start.Lock();
            done.SetEvent();
        });

    start.SetEvent();
    EXPECT_TRUE(done.Lock());
    worker.join();
}

TEST(CriticalSectionThreadsTest, HolderMayTakeItAgainAndOthersWait)
{
    CCriticalSection section;
    int count = 0;
    const auto work = [&]
    {
        for (int i = 0; i < 1000; ++i)
        {
            CSingleLock outer(section, true);
            CSingleLock inner(section);
            inner.Lock();
            inner.Lock(); // once is enough
            ++count;
        }
    };

    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();

    EXPECT_EQ(count, 2000);
    CSingleLock lock(section, true);
    lock.Unlock();
    EXPECT_FALSE(lock.IsLocked());
}

} // namespace utility
