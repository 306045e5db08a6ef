#include "MessageLoopSuite.h"

namespace utility
{

TEST_P(MessageLoopTest, RunsTasksInTheOrderOfPostsAndReturnsTheQuitCode)
{
    PostNote(1);
    PostNote(2);
    PostQuit(17);

    EXPECT_EQ(m_Loop->Run(), 17);
    EXPECT_EQ(m_Notes, (Notes{1, 2}));
}

TEST_P(MessageLoopTest, HandlesWhatWaitsOnceAndLeavesWhatItPosts)
{
    m_Loop->Post([this] { PostNote(2); });
    PostNote(1);
    EXPECT_TRUE(m_Loop->IsMessageWaiting());

    m_Loop->HandleWaiting();
    EXPECT_EQ(m_Notes, (Notes{1}));
    EXPECT_TRUE(m_Loop->IsMessageWaiting());

    m_Loop->HandleWaiting();
    EXPECT_EQ(m_Notes, (Notes{1, 2}));
    EXPECT_FALSE(m_Loop->IsMessageWaiting());
}

TEST_P(MessageLoopTest, CountsIdleCallsAnewAfterEachTask)
{
    m_Loop->SetIdleHandler(
        [this](LONG count)
        {
            m_Notes.push_back(count);
            if (m_Notes.size() == 3)
                m_Loop->Post([] {});
            if (m_Notes.size() == 5)
                m_Loop->Quit(0);
            return true;
        });
    m_Loop->Run();

    EXPECT_EQ(m_Notes, (Notes{0, 1, 2, 0, 1}));
}

TEST_P(MessageLoopTest, StopsIdleCallsThatAreNotWantedUntilTheNextTask)
{
    int ticks = 0;
    const auto tick = [&]
    {
        if (++ticks == 3)
            m_Loop->Quit(0);
    };
    m_Loop->SetIdleHandler(
        [&](LONG count)
        {
            m_Notes.push_back(count);
            m_Loop->SetTimer(0, tick);
            return false;
        });
    m_Loop->Run();

    EXPECT_EQ(m_Notes, (Notes{0})); // timers are no reason for idle calls
}

TEST_P(MessageLoopTest, QuitEndsTheInnermostRunOnly)
{
    m_Loop->Post(
        [this]
        {
            PostQuit(1);
            m_Notes.push_back(m_Loop->Run());
            PostQuit(2);
        });

    EXPECT_EQ(m_Loop->Run(), 2);
    EXPECT_EQ(m_Notes, (Notes{1}));
}

TEST_P(MessageLoopTest, DropsWhatWaitsAndRefusesPostsAfterTheOutermostRun)
{
    const auto held = std::make_shared<int>(0);
    PostQuit(0);
    m_Loop->Post([this, held] { m_Notes.push_back(*held); });
    m_Loop->Run();

    EXPECT_TRUE(m_Notes.empty());
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_FALSE(m_Loop->Post([] {}));
}

TEST_P(MessageLoopTest, RunsAgainAfterItsEnd)
{
    PostQuit(0);
    m_Loop->Run();
    m_Loop->SetIdleHandler(
        [this](LONG)
        {
            PostNote(1);
            PostQuit(5);
            return false;
        });

    EXPECT_EQ(m_Loop->Run(), 5);
    EXPECT_EQ(m_Notes, (Notes{1}));
}

TEST_P(MessageLoopTest, RepeatsTimersUntilTheyEndThemselves)
{
    UINT id = 0;
    id = m_Loop->SetTimer(1,
                          [&]
                          {
                              m_Notes.push_back(1);
                              if (m_Notes.size() < 3)
                                  return;
                              m_Loop->KillTimer(id);
                              m_Loop->SetTimer(2, [this] { m_Loop->Quit(0); });
                          });
    m_Loop->Run();

    EXPECT_NE(id, 0U);
    EXPECT_EQ(m_Notes, (Notes{1, 1, 1}));
}

TEST_P(MessageLoopTest, SendsAtOnceOnItsOwnThread)
{
    PostNote(2);
    EXPECT_TRUE(m_Loop->Send([this] { m_Notes.push_back(1); }));

    EXPECT_EQ(m_Notes, (Notes{1}));
}

TEST_P(MessageLoopTest, WaitsForAConditionWhileTasksAndTimersRun)
{
    bool isDone = false;
    int idleCalls = 0;
    m_Loop->SetIdleHandler([&](LONG) { return ++idleCalls > 0; });
    m_Loop->SetTimer(1, [&] { isDone = m_Notes.size() == 2; });
    PostNote(1);
    PostNote(2);

    EXPECT_TRUE(m_Loop->RunUntil([&] { return isDone; }, 60000));
    EXPECT_EQ(m_Notes, (Notes{1, 2}));
    EXPECT_EQ(idleCalls, 0);
}

TEST_P(MessageLoopTest, GivesUpAWaitWhenItsTimeIsOver)
{
    int asked = 0;
    const auto never = [&]
    {
        ++asked;
        return false;
    };
    PostNote(1);

    EXPECT_FALSE(m_Loop->RunUntil(never, 0));
    EXPECT_TRUE(m_Notes.empty()); // no time, no task
    EXPECT_FALSE(m_Loop->RunUntil(never, 5));
    EXPECT_EQ(m_Notes, (Notes{1}));
    EXPECT_LT(asked, 10); // sleeps between
}

TEST_P(MessageLoopTest, LeavesAnOrderToQuitToTheRunAroundAWait)
{
    m_Loop->Post(
        [this]
        {
            PostQuit(3);
            PostNote(1);
            EXPECT_TRUE(m_Loop->RunUntil([this] { return !m_Notes.empty(); }, 60000));
            m_Notes.push_back(2);
        });

    EXPECT_EQ(m_Loop->Run(), 3);
    EXPECT_EQ(m_Notes, (Notes{1, 2}));
}

TEST_P(MessageLoopTest, PassesExceptionsOnAndIsWholeAfterwards)
{
    const auto held = std::make_shared<int>(0);
    m_Loop->Post([] { throw 17; });
    m_Loop->Post([held] {});

    EXPECT_THROW(m_Loop->Run(), int);
    EXPECT_EQ(held.use_count(), 1); // the run has ended, so what waited is dropped
    EXPECT_FALSE(m_Loop->Post([] {}));
    m_Loop->SetIdleHandler(
        [this](LONG)
        {
            PostQuit(4);
            return false;
        });
    EXPECT_EQ(m_Loop->Run(), 4);
}

TEST_P(MessageLoopTest, CallsIdleBetweenTheShortestTimers)
{
    m_Loop->SetTimer(0, [] {});
    m_Loop->SetIdleHandler(
        [this](LONG count)
        {
            if (count == 3)
                m_Loop->Quit(1);
            return true;
        });

    EXPECT_EQ(m_Loop->Run(), 1);
}

} // namespace utility
