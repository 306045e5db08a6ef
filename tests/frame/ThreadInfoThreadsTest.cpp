#include "frame/ThreadInfo.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

namespace utility
{
namespace
{

/// Hand-offs of one test: enough to meet in every order, a million in a night.
int HandOffs()
{
    return std::getenv("UTILITY_NIGHTLY") ? 1'000'000 : 20'000;
}

TEST(ThreadInfoThreadsTest, NoHandOffIsLostWhicheverSideComesFirst)
{
    const int handOffs = HandOffs();
    CThreadInfo info;
    std::condition_variable finished;
    std::atomic<int> requested = 0;
    std::atomic<int> answered = 0;
    std::thread worker(
        [&]
        {
            for (int i = 1; i <= handOffs; ++i)
            {
                requested = i;
                // Every other time the main thread has finished before the wait begins.
                while (i % 2 == 0 && answered < i)
                    std::this_thread::yield();
                info.WaitForMainThread(&finished);
            }
            info.StopRunning();
        });
    for (int i = 1; i <= handOffs; ++i)
    {
        while (requested < i)
            std::this_thread::yield();
        info.MainThreadTaskFinished(&finished);
        answered = i;
    }
    worker.join();

    EXPECT_FALSE(info.IsRunning());
}

TEST(ThreadInfoThreadsTest, CountsTheStepsOfAllThreads)
{
    constexpr int STEPS = 5000;
    CThreadInfo info;
    const auto work = [&]
    {
        for (int i = 0; i < STEPS; ++i)
            info.IncrementPendingSteps();
    };
    std::thread first(work);
    std::thread second(work);
    while (info.GetPendingSteps() < STEPS)
        std::this_thread::yield();
    first.join();
    second.join();

    EXPECT_EQ(info.GetPendingSteps(), 2 * STEPS);
    info.ResetPendingSteps();
    EXPECT_EQ(info.GetPendingSteps(), 0);
}

TEST(ThreadInfoThreadsTest, TheWorkerSeesThatItIsToldToQuit)
{
    CThreadInfo info;
    std::thread worker(
        [&]
        {
            while (!info.ToldToQuit())
                info.SetState(info.GetState() + 1);
            info.StopRunning();
        });
    while (info.GetState() == 0)
        std::this_thread::yield();
    EXPECT_TRUE(info.IsRunning());
    info.Quit();
    worker.join();

    EXPECT_FALSE(info.IsRunning());
}

} // namespace
} // namespace utility
