#include "platform/system/window/MessageLoop.h"

#include <gtest/gtest.h>

#include <vector>

namespace utility
{
namespace
{

class MessageLoopTest : public testing::Test
{
protected:
    /// Posts a task that notes a number.
    void PostNote(int number)
    {
        ASSERT_TRUE(m_Loop->Post([this, number] { m_Notes.push_back(number); }));
    }
    void PostQuit(int code)
    {
        ASSERT_TRUE(m_Loop->Post([this, code] { m_Loop->Quit(code); }));
    }

    std::unique_ptr<IMessageLoop> m_Loop = MakeHeadlessMessageLoop();
    std::vector<int> m_Notes;
};

using Notes = std::vector<int>;

TEST_F(MessageLoopTest, RunsTasksInTheOrderOfPostsAndReturnsTheQuitCode)
{
    PostNote(1);
    PostNote(2);
    PostQuit(17);

    EXPECT_EQ(m_Loop->Run(), 17);
    EXPECT_EQ(m_Notes, (Notes{1, 2}));
}

TEST_F(MessageLoopTest, HandlesWhatWaitsOnceAndLeavesWhatItPosts)
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

TEST_F(MessageLoopTest, CountsIdleCallsAnewAfterEachTask)
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

TEST_F(MessageLoopTest, StopsIdleCallsThatAreNotWantedUntilTheNextTask)
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

TEST_F(MessageLoopTest, QuitEndsTheInnermostRunOnly)
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

TEST_F(MessageLoopTest, DropsWhatWaitsAndRefusesPostsAfterTheOutermostRun)
{
    const auto held = std::make_shared<int>(0);
    PostQuit(0);
    m_Loop->Post([this, held] { m_Notes.push_back(*held); });
    m_Loop->Run();

    EXPECT_TRUE(m_Notes.empty());
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_FALSE(m_Loop->Post([] {}));
}

TEST_F(MessageLoopTest, RunsAgainAfterItsEnd)
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

TEST_F(MessageLoopTest, RepeatsTimersUntilTheyEndThemselves)
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

TEST_F(MessageLoopTest, SendsAtOnceOnItsOwnThread)
{
    PostNote(2);
    EXPECT_TRUE(m_Loop->Send([this] { m_Notes.push_back(1); }));

    EXPECT_EQ(m_Notes, (Notes{1}));
}

TEST_F(MessageLoopTest, InstallingOneHandsBackTheOneBefore)
{
    IMessageLoop& byDefault = GetMessageLoop();
    IMessageLoop* previous = SetMessageLoop(m_Loop.get());
    EXPECT_EQ(&GetMessageLoop(), m_Loop.get());
    EXPECT_EQ(SetMessageLoop(previous), m_Loop.get());

    EXPECT_EQ(&GetMessageLoop(), &byDefault);
    EXPECT_TRUE(byDefault.IsMainThread());
}

} // namespace
} // namespace utility
