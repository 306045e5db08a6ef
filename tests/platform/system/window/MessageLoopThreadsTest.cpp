#include "platform/system/window/MessageLoop.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace utility
{
namespace
{

TEST(MessageLoopThreadsTest, WakesForPostsOfManyThreadsAndKeepsEachThreadsOrder)
{
    constexpr int THREADS = 4;
    constexpr int POSTS = 500;
    const auto loop = MakeHeadlessMessageLoop();
    std::array<std::vector<int>, THREADS> notes;
    int left = THREADS * POSTS;

    std::vector<std::thread> threads;
    for (int thread = 0; thread < THREADS; ++thread)
    {
        threads.emplace_back(
            [&, thread]
            {
                for (int i = 0; i < POSTS; ++i)
                {
                    loop->Post(
                        [&, thread, i]
                        {
                            notes[static_cast<std::size_t>(thread)].push_back(i);
                            if (--left == 0)
                                loop->Quit(0);
                        });
                }
            });
    }
    loop->Run();
    for (std::thread& thread : threads)
        thread.join();

    for (const std::vector<int>& sequence : notes)
    {
        EXPECT_EQ(sequence.size(), static_cast<std::size_t>(POSTS));
        EXPECT_TRUE(std::is_sorted(sequence.begin(), sequence.end()));
    }
}

TEST(MessageLoopThreadsTest, RunsSentTasksOnTheMainThreadBeforeSendReturns)
{
    const auto loop = MakeHeadlessMessageLoop();
    bool ranOnMainThread = false;
    bool wasSent = false;
    bool sawWorkerAsMain = true;
    std::thread worker(
        [&]
        {
            sawWorkerAsMain = loop->IsMainThread();
            wasSent = loop->Send([&] { ranOnMainThread = loop->IsMainThread(); });
            EXPECT_TRUE(ranOnMainThread);
            loop->Quit(0);
        });
    loop->Run();
    worker.join();

    EXPECT_TRUE(wasSent);
    EXPECT_FALSE(sawWorkerAsMain);
}

TEST(MessageLoopThreadsTest, LetsNoSenderHangWhenTheLoopEnds)
{
    const auto loop = MakeHeadlessMessageLoop();
    std::atomic<bool> wasRun = false;
    bool wasSent = true;
    // The order to quit stands in front, so the loop ends with the task still waiting, or has ended before.
    loop->Post([&] { loop->Quit(0); });
    std::thread worker;
    loop->SetIdleHandler({});
    worker = std::thread(
        [&]
        {
            while (loop->Send([&] { wasRun = true; }))
            {
            }
            wasSent = false;
        });
    loop->Run();
    worker.join();

    EXPECT_FALSE(wasSent);
}

} // namespace
} // namespace utility
