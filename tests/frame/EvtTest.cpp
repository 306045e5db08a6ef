#include "frame/Evt.h"

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <functional>
#include <unistd.h>
#include <vector>

namespace utility
{
namespace
{

using Calls = std::vector<std::pair<LPARAM, LPARAM>>;

/// Notes its calls, then does what the test wants.
class CListener : public CEvt
{
public:
    unsigned char OnEvent(LPARAM a, LPARAM b)
    {
        m_Calls.emplace_back(a, b);
        if (m_Do)
            m_Do();
        return m_Answer;
    }
    void Listen(const CString& name) { Register(name, this, &CListener::OnEvent); }

    Calls m_Calls;
    std::function<void()> m_Do;
    unsigned char m_Answer = 0;
};

class EvtTest : public testing::Test
{
protected:
    ~EvtTest() override
    {
        CEvt::UnregisterAll();
        CEvt::RegisterSendToAll(nullptr, nullptr);
    }

    CListener m_First;
    CListener m_Second;
};

TEST_F(EvtTest, GivesTheValuesToWhoListensAndTheLastOnesAnswer)
{
    m_First.m_Answer = 5;
    m_Second.m_Answer = 255;
    m_First.Listen(u"Part.Changed");
    m_Second.Listen(u"part.CHANGED"); // names are case-blind
    const LPARAM wide = INTPTR_MAX;

    EXPECT_EQ(CEvt::Send(u"Part.Changed", wide, -2), 255);
    EXPECT_EQ(CEvt::Send(u"Part.Deleted", 1, 2), 0);
    EXPECT_EQ(m_First.m_Calls, (Calls{{wide, -2}}));
    EXPECT_EQ(m_Second.m_Calls, (Calls{{wide, -2}}));
}

TEST_F(EvtTest, GivesTheIdToWhoListensToEveryEvent)
{
    CEvt::Register(&m_First, &CListener::OnEvent);
    CEvt::Send(u"Part.Changed", 3, 4);

    const int id = CEvt::GetEventID(u"PART.changed");
    EXPECT_LT(id, 0);
    EXPECT_EQ(m_First.m_Calls, (Calls{{id, 0}}));
}

TEST_F(EvtTest, AnEmptyNameIsNoEvent)
{
    static int routed = 0;
    CEvt::RegisterSendToAll([](CString, LPARAM, LPARAM, void*) { return ++routed; }, nullptr);
    CEvt::Register(&m_First, &CListener::OnEvent);
    m_Second.Listen(u"Part.Changed");
    m_Second.Listen(u"");
    CEvt::Unregister(u"", &m_Second);

    EXPECT_EQ(CEvt::GetEventID(u""), 0);
    EXPECT_EQ(CEvt::SendToAllInstances(u"", 1, 2), 0);
    EXPECT_EQ(routed, 0);
    EXPECT_TRUE(m_First.m_Calls.empty());
    CEvt::Send(u"Part.Changed", 1, 2);
    EXPECT_EQ(m_Second.m_Calls.size(), 1U); // still listens
}

TEST_F(EvtTest, RemovesByNameByObjectAndWithTheObject)
{
    {
        CListener shortLived;
        shortLived.m_Answer = 9;
        shortLived.Listen(u"A");
    }
    m_First.Listen(u"A");
    m_First.Listen(u"B");
    m_Second.Listen(u"A");
    CEvt::Unregister(u"a", &m_First);
    EXPECT_EQ(CEvt::Send(u"A", 1, 0) + CEvt::Send(u"B", 2, 0), 0);
    EXPECT_EQ(m_First.m_Calls, (Calls{{2, 0}}));

    CEvt::UnregisterAll(&m_First);
    CEvt::Send(u"B", 3, 0);
    EXPECT_EQ(m_First.m_Calls.size(), 1U);
    EXPECT_EQ(m_Second.m_Calls, (Calls{{1, 0}}));
}

TEST_F(EvtTest, WhoIsRemovedWhileCalledIsNotCalledAgain)
{
    const struct
    {
        const char* m_Name;
        std::function<void()> m_Remove;
        std::size_t m_CallsOfSecond;
    } rows[] = {
        {"itself", [this] { CEvt::UnregisterAll(&m_First); }, 1},
        {"the one behind it", [this] { CEvt::Unregister(u"A", &m_Second); }, 0},
        {"all", [] { CEvt::UnregisterAll(); }, 0},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        CEvt::UnregisterAll();
        m_First.m_Calls.clear();
        m_Second.m_Calls.clear();
        m_First.Listen(u"A");
        m_First.Listen(u"A"); // twice: the second one stands behind the removal
        m_Second.Listen(u"A");
        m_First.m_Do = row.m_Remove;
        CEvt::Send(u"A", 1, 0);

        const bool removesItself = std::string(row.m_Name) != "the one behind it";
        EXPECT_EQ(m_First.m_Calls.size(), removesItself ? 1U : 2U);
        EXPECT_EQ(m_Second.m_Calls.size(), row.m_CallsOfSecond);
    }
}

TEST_F(EvtTest, AnObjectMayEndInItsOwnHandler)
{
    struct CMortal : CEvt
    {
        unsigned char OnEvent(LPARAM, LPARAM)
        {
            delete this;
            return 1;
        }
    };
    auto* mortal = new CMortal;
    CEvt::Register(u"A", mortal, &CMortal::OnEvent);
    m_Second.Listen(u"A");
    m_Second.m_Answer = 2;

    EXPECT_EQ(CEvt::Send(u"A", 0, 0), 2);
    EXPECT_EQ(CEvt::Send(u"A", 0, 0), 2);
    EXPECT_EQ(m_Second.m_Calls.size(), 2U);
}

TEST_F(EvtTest, WhoJoinsDuringASendIsReachedByIt)
{
    m_First.Listen(u"A");
    m_First.m_Do = [this]
    {
        for (int i = 0; i < 100; ++i) // enough to move the list
            m_Second.Listen(u"A");
    };
    CEvt::Send(u"A", 7, 8);

    EXPECT_EQ(m_First.m_Calls.size(), 1U);
    EXPECT_EQ(m_Second.m_Calls, Calls(100, {7, 8}));
}

TEST_F(EvtTest, SendsNestAndRemovalWaitsForTheOutermost)
{
    m_First.Listen(u"A");
    m_First.m_Do = [this]
    {
        CEvt::UnregisterAll(&m_First);
        m_First.m_Do = nullptr;
        CEvt::Send(u"A", 2, 0); // reaches the other one alone
    };
    m_Second.Listen(u"A");
    CEvt::Send(u"A", 1, 0);

    EXPECT_EQ(m_First.m_Calls, (Calls{{1, 0}}));
    EXPECT_EQ(m_Second.m_Calls, (Calls{{2, 0}, {1, 0}}));
}

TEST_F(EvtTest, AnExceptionPassesOnAndLeavesTheBusWhole)
{
    m_First.Listen(u"A");
    m_First.m_Do = [this]
    {
        CEvt::UnregisterAll(&m_First);
        throw 17;
    };
    m_Second.Listen(u"A");
    EXPECT_THROW(CEvt::Send(u"A", 1, 0), int);
    EXPECT_TRUE(m_Second.m_Calls.empty());

    // Had the count stayed up, this removal would be put off, and the object called when it is
    // gone.
    {
        CListener shortLived;
        shortLived.Listen(u"A");
    }
    CEvt::Send(u"A", 2, 0);
    EXPECT_EQ(m_First.m_Calls.size(), 1U);
    EXPECT_EQ(m_Second.m_Calls, (Calls{{2, 0}}));
}

TEST_F(EvtTest, SendsToOtherInstancesFirst)
{
    std::vector<std::string> notes;
    CEvt::RegisterSendToAll(
        [](CString name, LPARAM a, LPARAM b, void* info)
        {
            auto& list = *static_cast<std::vector<std::string>*>(info);
            list.push_back("route " + std::to_string(name.GetLength() + a + b));
            return 99;
        },
        &notes);
    m_First.m_Answer = 4;
    m_First.m_Do = [&]
    {
        notes.push_back("here");
    };
    m_First.Listen(u"A");

    EXPECT_EQ(CEvt::SendToAllInstances(u"A", 10, 100), 4);
    EXPECT_EQ(notes, (std::vector<std::string>{"route 111", "here"}));
}

/// What the route of this test writes into a pipe to the other process.
struct CEventRecord
{
    char16_t m_Name[32];
    LPARAM m_A;
    LPARAM m_B;
};

TEST_F(EvtTest, ReachesASecondProcessByTheInstalledRoute)
{
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    CChildProcess other(
        [&]
        {
            CListener listener;
            listener.Listen(u"Part.Changed");
            CEventRecord record = {};
            if (read(ends[0], &record, sizeof(record)) != sizeof(record))
                return 1;
            CEvt::Send(record.m_Name, record.m_A, record.m_B);
            return listener.m_Calls == Calls{{5, -7}} ? 0 : 2;
        });
    CEvt::RegisterSendToAll(
        [](CString name, LPARAM a, LPARAM b, void* info)
        {
            CEventRecord record = {{}, a, b};
            name.View().copy(record.m_Name, std::size(record.m_Name) - 1);
            return static_cast<int>(write(*static_cast<int*>(info), &record, sizeof(record)));
        },
        &ends[1]);
    CEvt::SendToAllInstances(u"Part.Changed", 5, -7);

    EXPECT_EQ(other.Wait(), 0);
    close(ends[0]);
    close(ends[1]);
}

} // namespace
} // namespace utility
