#include "frame/IdleHandler.h"

#include "frame/IdleException.h"
#include "frame/MacroOps.h"
#include "platform/system/window/MessageLoop.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace utility
{
namespace
{

/// Notes the counts that it is called with in a list of the test, marked by its own letter.
class CNotingHandler : public CIdleHandler
{
public:
    CNotingHandler(std::string& notes, char letter, bool atHead = false)
        : CIdleHandler(atHead),
          m_Notes(notes),
          m_Letter(letter)
    {
    }
    ~CNotingHandler() override { m_Notes += static_cast<char>(std::toupper(m_Letter)); }

    bool DoIdleProcessing(LONG count) override
    {
        (m_Notes += m_Letter) += static_cast<char>('0' + count);
        if (m_Do)
            m_Do();
        return m_WantsMore;
    }

    bool m_WantsMore = false;
    std::function<void()> m_Do;

private:
    std::string& m_Notes;
    char m_Letter;
};

class IdleHandlerTest : public testing::Test
{
protected:
    IdleHandlerTest() : m_PreviousLoop(SetMessageLoop(m_Loop.get())) {}
    ~IdleHandlerTest() override
    {
        CIdleHandler::AllowIdleAbort(true);
        CMacroOps::SetReplaying(false);
        SetMessageLoop(m_PreviousLoop);
    }

    std::unique_ptr<IMessageLoop> m_Loop = MakeHeadlessMessageLoop();
    IMessageLoop* m_PreviousLoop;
    std::string m_Notes; // "a0" is a call of handler a with count 0, "A" its end
};

TEST_F(IdleHandlerTest, CallsAllFirstAndLaterWhoWantsMore)
{
    EXPECT_EQ(CIdleHandler::OnIdle(0), 0);
    CNotingHandler a(m_Notes, 'a');
    CNotingHandler b(m_Notes, 'b');
    CNotingHandler atHead(m_Notes, 'h', true);
    b.m_WantsMore = true;

    EXPECT_EQ(CIdleHandler::OnIdle(0), 1);
    EXPECT_EQ(CIdleHandler::OnIdle(1), 1);
    EXPECT_EQ(CIdleHandler::OnIdle(2), 1);
    b.m_WantsMore = false;
    EXPECT_EQ(CIdleHandler::OnIdle(3), 0);
    EXPECT_EQ(CIdleHandler::OnIdle(4), 0);
    EXPECT_EQ(m_Notes, "h0a0b0h1a1b1b2b3");
}

TEST_F(IdleHandlerTest, DeletesInIdleTimeOnlyWhoWantsNoMore)
{
    auto* handler = new CNotingHandler(m_Notes, 'a');
    handler->m_WantsMore = true;
    handler->m_Do = [handler]
    {
        handler->Delete();
    };
    CIdleHandler::OnIdle(0);
    CIdleHandler::OnIdle(1);
    EXPECT_EQ(m_Notes, "a0a1");
    handler->m_WantsMore = false;
    EXPECT_EQ(CIdleHandler::OnIdle(2), 0);
    EXPECT_EQ(m_Notes, "a0a1a2A");

    (new CNotingHandler(m_Notes, 'b'))->Delete(); // outside idle time at once
    EXPECT_EQ(CIdleHandler::OnIdle(0), 0);
    EXPECT_EQ(m_Notes, "a0a1a2AB");
}

TEST_F(IdleHandlerTest, DeletesWhoIsPassedOverToo)
{
    CNotingHandler first(m_Notes, 'a');
    first.m_WantsMore = true;
    auto* idle = new CNotingHandler(m_Notes, 'b');
    CIdleHandler::OnIdle(0);
    first.m_Do = [idle]
    {
        idle->Delete();
    };
    CIdleHandler::OnIdle(2);

    EXPECT_EQ(m_Notes, "a0b0a2B");
}

TEST_F(IdleHandlerTest, TheListMayChangeWhileItIsCalled)
{
    CNotingHandler first(m_Notes, 'a');
    auto second = std::make_unique<CNotingHandler>(m_Notes, 'b');
    CNotingHandler third(m_Notes, 'c');
    std::unique_ptr<CNotingHandler> joined;
    first.m_Do = [&]
    {
        second.reset();
        joined = std::make_unique<CNotingHandler>(m_Notes, 'j');
    };
    CIdleHandler::OnIdle(0);
    first.m_Do = nullptr;
    CIdleHandler::OnIdle(1);

    EXPECT_EQ(m_Notes, "a0Bc0j0a1c1j1");
}

TEST_F(IdleHandlerTest, ALoopInsideAHandlerMayGiveIdleTimeToo)
{
    auto* outer = new CNotingHandler(m_Notes, 'a');
    outer->m_Do = [&]
    {
        outer->m_Do = nullptr;
        outer->Delete();
        CIdleHandler::OnIdle(0); // must not end the handler that is at work
        m_Notes += "|";
    };
    CIdleHandler::OnIdle(0);

    EXPECT_EQ(m_Notes, "a0a0|A");
}

TEST_F(IdleHandlerTest, AnIdleExceptionEndsTheRowWithTheAnswerSoFar)
{
    CNotingHandler a(m_Notes, 'a');
    CNotingHandler b(m_Notes, 'b');
    CNotingHandler c(m_Notes, 'c');
    b.m_Do = []
    {
        throw new CIdleException;
    };
    EXPECT_EQ(CIdleHandler::OnIdle(0), 0);
    a.m_WantsMore = true;
    EXPECT_EQ(CIdleHandler::OnIdle(0), 1);
    EXPECT_EQ(m_Notes, "a0b0a0b0");

    // Idle time is over after it: an object deletes itself at once.
    (new CNotingHandler(m_Notes, 'd'))->Delete();
    EXPECT_EQ(m_Notes, "a0b0a0b0D");
}

TEST_F(IdleHandlerTest, AnyOtherExceptionEndsTheProgram)
{
    CNotingHandler a(m_Notes, 'a');
    a.m_Do = []
    {
        throw std::runtime_error("not idle");
    };

    EXPECT_DEATH(CIdleHandler::OnIdle(0), "");
}

TEST_F(IdleHandlerTest, AbortsOnlyInIdleTimeWhileAllowedAndNoMacroReplays)
{
    const struct
    {
        const char* m_Name;
        bool m_IsWaiting, m_IsAllowed, m_IsReplaying;
        bool m_Aborts;
    } rows[] = {
        {"a message waits", true, true, false, true},
        {"nothing waits", false, true, false, false},
        {"not allowed", true, false, false, false},
        {"a macro replays", true, true, true, false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        bool wasAborted = true;
        CNotingHandler worker(m_Notes, 'a');
        worker.m_Do = [&]
        {
            CIdleHandler::CheckIdleAbort();
            wasAborted = false;
        };
        CIdleHandler::AllowIdleAbort(row.m_IsAllowed);
        CMacroOps::SetReplaying(row.m_IsReplaying);
        if (row.m_IsWaiting)
            m_Loop->Post([] {});
        CIdleHandler::OnIdle(0);
        EXPECT_EQ(wasAborted, row.m_Aborts);
        CIdleHandler::CheckIdleAbort(); // outside idle time never
        m_Loop->HandleWaiting();
    }
}

TEST_F(IdleHandlerTest, AHandlerThatPostsStartsTheCountAnew)
{
    m_Loop->SetIdleHandler([](LONG count) { return CIdleHandler::OnIdle(count) != 0; });
    CNotingHandler worker(m_Notes, 'a');
    worker.m_WantsMore = true;
    int posts = 0;
    worker.m_Do = [&]
    {
        if (posts < 3)
            m_Loop->Post([&] { ++posts; });
        else if (m_Notes.size() >= 14)
            m_Loop->Quit(0);
    };
    m_Loop->Run();

    EXPECT_EQ(m_Notes, "a0a0a0a0a1a2a3");
}

} // namespace
} // namespace utility
