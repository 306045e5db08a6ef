#include "frame/ThreadPointer.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <set>
#include <thread>
#include <vector>

namespace utility
{
namespace
{

TEST(ThreadPointerThreadsTest, EachThreadHasItsOwn)
{
    CThreadPointer pointer;
    int mine = 0;
    EXPECT_EQ(pointer.Get(), nullptr);
    pointer.Set(&mine);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            [&]
            {
                int own = 0;
                for (int round = 0; round < 500; ++round)
                {
                    ASSERT_EQ(pointer.Get(), nullptr);
                    pointer.Set(&own);
                    ASSERT_EQ(pointer.Get(), &own);
                    pointer.Clear();
                }
            });
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(pointer.Get(), &mine);
    pointer.ClearAll();
    EXPECT_EQ(pointer.Get(), nullptr);
}

TEST(ThreadPointerThreadsTest, NothingOfADeadThreadReachesALaterOne)
{
    constexpr int THREADS = 200;
    CThreadPointer pointer;
    std::set<pthread_t> systemIds;
    for (int i = 0; i < THREADS; ++i)
    {
        std::thread(
            [&]
            {
                systemIds.insert(pthread_self());
                EXPECT_EQ(pointer.Get(), nullptr);
                pointer.Set(&pointer); // and left behind
            })
            .join();
    }

    EXPECT_LT(systemIds.size(), std::size_t{THREADS}); // the system did use its ids again
}

} // namespace
} // namespace utility
