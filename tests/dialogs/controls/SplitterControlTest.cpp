#include "dialogs/controls/SplitterControl.h"

#include "dialogs/PeersTest.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"

namespace utility
{
namespace
{

constexpr UINT LEFT_ID = 11;
constexpr UINT RIGHT_ID = 12;
constexpr UINT BAR_ID = 13;

// A dialog in small that remembers how far the bar said it went.
class CSplitParent : public CWnd
{
public:
    std::vector<int> m_Deltas;

protected:
    bool OnNotify(WPARAM, LPARAM lParam, LRESULT*) override
    {
        const auto& note = *reinterpret_cast<const NMSPLITTER*>(lParam);
        if (note.hdr.idFrom == BAR_ID && note.hdr.code == SPN_MOVED)
            m_Deltas.push_back(note.iDelta);
        return true;
    }
};

// 10 to 110 at the left, the bar, and 116 to 300 at the right.
class SplitterControlTest : public CPeersTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Parent.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 400, 200}, nullptr));
        ASSERT_TRUE(m_Left.CreateEx(0, u"Pane", u"", WS_CHILD | WS_VISIBLE, {10, 10, 110, 150},
                                    &m_Parent, LEFT_ID));
        ASSERT_TRUE(m_Right.CreateEx(0, u"Pane", u"", WS_CHILD | WS_VISIBLE, {116, 10, 300, 150},
                                     &m_Parent, RIGHT_ID));
        ASSERT_TRUE(m_Bar.Create(u"Splitter", WS_VISIBLE | WS_TABSTOP, {110, 10, 116, 150},
                                 &m_Parent, BAR_ID));
        m_Bar.SetPanes({LEFT_ID}, {RIGHT_ID, 999});
        m_Bar.SetMinimums(40, 60);
    }

    CRect PlaceOf(const CWnd& pane) const
    {
        CRect place = pane.GetWindowRect();
        m_Parent.ScreenToClient(place);
        return place;
    }
    void ExpectBarAt(int position) const
    {
        EXPECT_EQ(m_Bar.GetPosition(), position);
        EXPECT_EQ(PlaceOf(m_Left), CRect(10, 10, position, 150));
        EXPECT_EQ(PlaceOf(m_Right), CRect(position + 6, 10, 300, 150));
    }

    CSplitParent m_Parent;
    CWnd m_Left;
    CWnd m_Right;
    CSplitterControl m_Bar;
};

INSTANTIATE_TEST_SUITE_P(Peers, SplitterControlTest, AllPeers(), NamePeers);

TEST_P(SplitterControlTest, KeysMoveTheBarAndTheControlsOfBothSides)
{
    struct CCase
    {
        const char* m_Name;
        UINT m_Key;
        int m_Position;
    };
    const CCase cases[] = {{"right", VK_RIGHT, 118},
                           {"left", VK_LEFT, 110},
                           {"down is no key of it", VK_DOWN, 110},
                           {"home, at the left minimum", VK_HOME, 50},
                           {"left of there", VK_LEFT, 50},
                           {"end, at the right minimum", VK_END, 234}};

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        m_Bar.SendMessage(WM_KEYDOWN, row.m_Key);
        ExpectBarAt(row.m_Position);
    }
    EXPECT_EQ(m_Parent.m_Deltas, (std::vector<int>{8, -8, -60, 184}));
}

TEST_P(SplitterControlTest, DraggingFollowsThePointerAndEscapePutsTheBarBack)
{
    // The pointer's place is told within the bar, which moves along.
    m_Bar.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 20));
    m_Bar.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(33, 25));
    ExpectBarAt(140);
    m_Bar.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-500, 25));
    ExpectBarAt(50);
    m_Bar.SendMessage(WM_KEYDOWN, VK_ESCAPE);
    ExpectBarAt(110);
    m_Bar.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(60, 25));
    ExpectBarAt(110);

    m_Bar.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(0, 0));
    m_Bar.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(10, 0));
    m_Bar.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(0, 0));
    m_Bar.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(90, 0));
    ExpectBarAt(120);
    EXPECT_EQ(m_Parent.m_Deltas, (std::vector<int>{30, -90, 60, 10}));
}

TEST_P(SplitterControlTest, MovedByTheProgramItTellsNobody)
{
    EXPECT_TRUE(m_Bar.MoveTo(200));
    EXPECT_FALSE(m_Bar.MoveTo(200));

    ExpectBarAt(200);
    EXPECT_TRUE(m_Parent.m_Deltas.empty());
}

TEST_P(SplitterControlTest, ABarThatIsWiderThanHighMovesUpAndDown)
{
    m_Left.MoveWindow(CRect(10, 10, 110, 60));
    m_Right.MoveWindow(CRect(10, 66, 110, 190));
    m_Bar.MoveWindow(CRect(10, 60, 110, 66));

    m_Bar.SendMessage(WM_KEYDOWN, VK_DOWN);

    EXPECT_EQ(PlaceOf(m_Left), CRect(10, 10, 110, 68));
    EXPECT_EQ(PlaceOf(m_Bar), CRect(10, 68, 110, 74));
    EXPECT_EQ(PlaceOf(m_Right), CRect(10, 74, 110, 190));
}

} // namespace
} // namespace utility
