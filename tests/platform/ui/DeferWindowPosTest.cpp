#include "platform/ui/DeferWindowPos.h"

#include "platform/base/Rect.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

constexpr UINT KEEP_ORDER = SWP_NOZORDER | SWP_NOACTIVATE;

class DeferWindowPosTest : public testing::Test
{
protected:
    DeferWindowPosTest()
    {
        EXPECT_TRUE(m_Parent.CreateEx(0, u"Frame", u"", 0, CRect(0, 0, 300, 200), nullptr));
        for (CWnd& child : m_Children)
            EXPECT_TRUE(child.CreateEx(0, u"Pane", u"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10),
                                       &m_Parent));
    }
    CRect PlaceOf(const CWnd& child) const
    {
        CRect place = child.GetWindowRect();
        m_Parent.ScreenToClient(place);
        return place;
    }

    CWnd m_Parent;
    std::array<CWnd, 3> m_Children;
};

TEST_F(DeferWindowPosTest, MovesAllWhenTheBlockEndsAndMoreThanItWasBegunFor)
{
    HDWP moves = BeginDeferWindowPos(1);
    for (CWnd& child : m_Children)
        moves = DeferWindowPos(moves, child, nullptr, 5, 6, 70, 80, KEEP_ORDER);
    EXPECT_EQ(PlaceOf(m_Children[0]), CRect(0, 0, 10, 10));

    EXPECT_TRUE(EndDeferWindowPos(moves));
    for (const CWnd& child : m_Children)
        EXPECT_EQ(PlaceOf(child), CRect(5, 6, 75, 86));
}

TEST_F(DeferWindowPosTest, PassesOverAWindowThatIsGone)
{
    HDWP moves = BeginDeferWindowPos(8);
    for (CWnd& child : m_Children)
        moves = DeferWindowPos(moves, child, nullptr, 5, 6, 70, 80, KEEP_ORDER);
    m_Children[0].DestroyWindow();

    EXPECT_TRUE(EndDeferWindowPos(moves));
    EXPECT_EQ(PlaceOf(m_Children[2]), CRect(5, 6, 75, 86));
}

TEST_F(DeferWindowPosTest, RefusesWhatIsNoBlockAndWhatIsNoWindow)
{
    HDWP moves = BeginDeferWindowPos(8);
    const CWnd none;
    EXPECT_EQ(DeferWindowPos(moves, none, nullptr, 0, 0, 1, 1, KEEP_ORDER), nullptr);
    EXPECT_TRUE(EndDeferWindowPos(moves));
    EXPECT_FALSE(EndDeferWindowPos(moves));
    EXPECT_EQ(DeferWindowPos(moves, m_Children[0], nullptr, 0, 0, 1, 1, KEEP_ORDER), nullptr);
    EXPECT_FALSE(EndDeferWindowPos(nullptr));
}

TEST_F(DeferWindowPosTest, PutsAChildBehindAnother)
{
    HDWP moves = BeginDeferWindowPos(8);
    moves = DeferWindowPos(moves, m_Children[0], &m_Children[2], 0, 0, 1, 1,
                           SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_TRUE(EndDeferWindowPos(moves));

    EXPECT_EQ(m_Parent.GetTopWindow(), &m_Children[1]);
    EXPECT_EQ(m_Children[2].GetNextWindow(), &m_Children[0]);
    EXPECT_EQ(m_Children[0].GetNextWindow(), nullptr);
}

} // namespace
} // namespace utility
