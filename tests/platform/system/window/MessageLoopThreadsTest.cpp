#include "MessageLoopSuite.h"

#include <future>
#include <string>
#include <thread>
#include <vector>

namespace utility
{

TEST_P(MessageLoopThreadsTest, WakesForPostsOfManyThreadsAndKeepsEachThreadsOrder)
{
    constexpr int THREADS = 4;
    constexpr int POSTS = 500;
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
                    m_Loop->Post(
                        [&, thread, i]
                        {
                            notes[static_cast<std::size_t>(thread)].push_back(i);
                            if (--left == 0)
                                m_Loop->Quit(0);
                        });
                }
            });
    }
    m_Loop->Run();
    for (std::thread& thread : threads)
        thread.join();

    for (const std::vector<int>& sequence : notes)
    {
        EXPECT_EQ(sequence.size(), static_cast<std::size_t>(POSTS));
        EXPECT_TRUE(std::is_sorted(sequence.begin(), sequence.end()));
    }
}

TEST_P(MessageLoopThreadsTest, RunsSentTasksOnTheMainThreadBeforeSendReturns)
{
    bool ranOnMainThread = false;
    bool wasSent = false;
    bool sawWorkerAsMain = true;
    std::thread worker(
        [&]
        {
            sawWorkerAsMain = m_Loop->IsMainThread();
            wasSent = m_Loop->Send([&] { ranOnMainThread = m_Loop->IsMainThread(); });
            EXPECT_TRUE(ranOnMainThread);
            m_Loop->Quit(0);
        });
    m_Loop->Run();
    worker.join();

    EXPECT_TRUE(wasSent);
    EXPECT_FALSE(sawWorkerAsMain);
}

TEST_P(MessageLoopThreadsTest, LetsNoSenderHangWhenTheLoopEnds)
{
    bool wasSent = true;
    m_Loop->Post([&] { m_Loop->Quit(0); });
    std::thread worker(
        [&]
        {
            while (m_Loop->Send([] {}))
            {
            }
            wasSent = false;
        });
    m_Loop->Run();
    worker.join();

    EXPECT_FALSE(wasSent);
}

TEST_P(MessageLoopThreadsTest, TellsTheSenderThatItsTaskThrew)
{
    std::thread worker([&] { EXPECT_FALSE(m_Loop->Send([] { throw 17; })); });
    EXPECT_THROW(m_Loop->Run(), int);
    worker.join();
}

/// A thread that runs a loop of its own, until it is told to quit.
class CLoopThread
{
public:
    explicit CLoopThread(LoopMaker make)
    {
        std::promise<IMessageLoop*> made;
        m_Thread = std::thread(
            [&made, make]
            {
                const auto loop = make();
                loop->Post([&] { made.set_value(loop.get()); });
                loop->Run();
            });
        m_Loop = made.get_future().get();
    }
    ~CLoopThread()
    {
        m_Loop->Quit(0);
        m_Thread.join();
    }
    IMessageLoop& GetLoop() { return *m_Loop; }

private:
    std::thread m_Thread;
    IMessageLoop* m_Loop = nullptr;
};

TEST_P(MessageLoopThreadsTest, ThreadsThatSendToEachOtherAtOnceAllGetTheirAnswers)
{
    constexpr int ROUNDS = 300;
    CLoopThread other(GetParam());
    CLoopThread third(GetParam());
    IMessageLoop& second = other.GetLoop();
    std::atomic<int> answers = 0;
    // Each of three threads sends to the next, whose task sends on: rings that meet halfway.
    const auto sendRound = [&](IMessageLoop& next, IMessageLoop& afterNext)
    {
        for (int i = 0; i < ROUNDS; ++i)
        {
            next.Send([&] { afterNext.Send([&] { ++answers; }); });
        }
    };
    const auto whenOver = [&]
    {
        return answers == 3 * ROUNDS;
    };

    second.Post(
        [&]
        {
            sendRound(third.GetLoop(), *m_Loop);
            m_Loop->WakeUp();
        });
    third.GetLoop().Post(
        [&]
        {
            sendRound(*m_Loop, second);
            m_Loop->WakeUp();
        });
    m_Loop->Post([&] { sendRound(second, third.GetLoop()); });

    EXPECT_TRUE(m_Loop->RunUntil(whenOver, 60000));
}

TEST_P(MessageLoopThreadsTest, ASenderRunsNothingButWhatIsSentToIt)
{
    CLoopThread other(GetParam());
    std::vector<std::string> notes;
    m_Loop->Post([&] { notes.push_back("posted"); });
    other.GetLoop().Send([&] { m_Loop->Send([&] { notes.push_back("sent"); }); });

    EXPECT_EQ(notes, (std::vector<std::string>{"sent"}));
    m_Loop->HandleWaiting();
    EXPECT_EQ(notes, (std::vector<std::string>{"sent", "posted"}));
}

TEST_P(MessageLoopThreadsTest, WhatThrowsInsideASendPassesOnOnceTheAnswerIsThere)
{
    CLoopThread other(GetParam());
    bool hasRun = false;
    const auto send = [&]
    {
        other.GetLoop().Send(
            [&]
            {
                EXPECT_FALSE(m_Loop->Send([] { throw 17; }));
                hasRun = true;
            });
    };

    EXPECT_THROW(send(), int);
    EXPECT_TRUE(hasRun);
}

TEST_P(MessageLoopThreadsTest, AWaitIsWokenByOtherThreads)
{
    std::atomic<bool> isDone = false;
    std::thread worker(
        [&]
        {
            m_Loop->Send([] {});
            isDone = true;
            m_Loop->WakeUp();
        });

    EXPECT_TRUE(m_Loop->RunUntil([&] { return isDone.load(); }, 60000));
    worker.join();
}

} // namespace utility
