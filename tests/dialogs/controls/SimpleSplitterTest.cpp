#include "dialogs/controls/SimpleSplitter.h"

#include "dialogs/PeersTest.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"

namespace utility
{
namespace
{

class SimpleSplitterTest : public CPeersTest
{
protected:
    void Make(bool isSideBySide)
    {
        ASSERT_TRUE(m_Frame.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 500, 400}, nullptr));
        ASSERT_TRUE(m_Splitter.Create(WS_VISIBLE, {0, 0, 206, 106}, &m_Frame, 1, isSideBySide));
        for (CWnd* pane : {&m_First, &m_Second})
            ASSERT_TRUE(pane->CreateEx(0, u"Pane", u"", WS_CHILD | WS_VISIBLE, {0, 0, 9, 9},
                                       &m_Splitter, 2));
        m_Splitter.SetPanes(m_First, m_Second);
    }
    CRect PlaceOf(const CWnd& pane) const
    {
        CRect place = pane.GetWindowRect();
        m_Splitter.ScreenToClient(place);
        return place;
    }

    CWnd m_Frame;
    CSimpleSplitter m_Splitter;
    CWnd m_First;
    CWnd m_Second;
};

INSTANTIATE_TEST_SUITE_P(Peers, SimpleSplitterTest, AllPeers(), NamePeers);

TEST_P(SimpleSplitterTest, ThePanesFillTheWindowOnBothSidesOfTheBar)
{
    Make(true);
    m_Splitter.SetPosition(50);

    EXPECT_EQ(PlaceOf(m_First), CRect(0, 0, 50, 106));
    EXPECT_EQ(PlaceOf(m_Splitter.GetBar()), CRect(50, 0, 56, 106));
    EXPECT_EQ(PlaceOf(m_Second), CRect(56, 0, 206, 106));
}

TEST_P(SimpleSplitterTest, PanesFollowTheBarThatTheUserMoves)
{
    Make(false);
    m_Splitter.SetMinimums(20, 30);
    m_Splitter.GetBar().SendMessage(WM_KEYDOWN, VK_DOWN);

    EXPECT_EQ(PlaceOf(m_First), CRect(0, 0, 206, 61));
    EXPECT_EQ(PlaceOf(m_Second), CRect(0, 67, 206, 106));
    m_Splitter.GetBar().SendMessage(WM_KEYDOWN, VK_END);
    EXPECT_EQ(m_Splitter.GetPosition(), 70);
}

TEST_P(SimpleSplitterTest, PanesKeepTheirPartWhenTheWindowGrowsAndTheirMinimumsWhenItShrinks)
{
    Make(true);
    m_Splitter.SetMinimums(30, 30);
    m_Splitter.SetPosition(50);

    m_Splitter.MoveWindow(CRect(0, 0, 406, 106));
    EXPECT_EQ(m_Splitter.GetPosition(), 100);
    m_Splitter.MoveWindow(CRect(0, 0, 86, 106));
    EXPECT_EQ(m_Splitter.GetPosition(), 30);
    EXPECT_EQ(PlaceOf(m_Second), CRect(36, 0, 86, 106));
}

} // namespace
} // namespace utility
