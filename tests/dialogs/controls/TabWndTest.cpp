#include "dialogs/controls/TabWnd.h"

#include "platform/base/Rect.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"

#include "support/ui/Widgets.h"

#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

namespace utility
{
namespace
{

class CTabParent : public CWnd
{
public:
    int m_Changes = 0;

protected:
    bool OnNotify(WPARAM, LPARAM lParam, LRESULT*) override
    {
        m_Changes += reinterpret_cast<const NMHDR*>(lParam)->code == TWN_SELCHANGE;
        return true;
    }
};

class TabWndTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Parent.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 400, 300}, nullptr));
        ASSERT_TRUE(m_Tabs.Create(WS_VISIBLE, {0, 0, 400, 300}, &m_Parent, 1));
        int number = 0;
        for (CWnd& page : m_Pages)
        {
            ASSERT_TRUE(page.CreateEx(0, u"Page", u"", WS_CHILD, {0, 0, 9, 9}, &m_Tabs, 2));
            EXPECT_EQ(m_Tabs.AddPage(page, CString(TITLES[number])), number);
            ++number;
        }
        m_Parent.ShowWindow(SW_SHOWNORMAL);
        Settle();
    }
    // Which pages are seen, such as "-x-".
    std::string GetSeen() const
    {
        std::string seen;
        for (const CWnd& page : m_Pages)
            seen += page.GetSafeHwnd() && page.IsWindowVisible() ? 'x' : '-';
        return seen;
    }
    void PressWithControl(Qt::Key key, Qt::KeyboardModifiers more = Qt::NoModifier)
    {
        QTest::keyClick(&FindWidget(m_Pages[0]), key, Qt::ControlModifier | more);
    }

    static constexpr const char16_t* TITLES[] = {u"Parts", u"Nets", u"Rules"};
    CTabParent m_Parent;
    CTabWnd m_Tabs;
    CWnd m_Pages[3];
};

TEST_F(TabWndTest, ShowsOnePageBelowTheTabs)
{
    EXPECT_EQ(GetSeen(), "x--");
    EXPECT_TRUE(m_Tabs.SetActivePage(2));
    EXPECT_EQ(GetSeen(), "--x");
    EXPECT_FALSE(m_Tabs.SetActivePage(3));

    const CRect page = m_Pages[2].GetWindowRect();
    const CRect window = m_Tabs.GetWindowRect();
    EXPECT_GT(page.top, window.top + 10) << "the tabs have no room";
    EXPECT_GT(page.Height(), 200);
    EXPECT_EQ(m_Parent.m_Changes, 0) << "the program's own change";
}

TEST_F(TabWndTest, AClickOnATabGoesToItsPageAndTellsTheParent)
{
    auto* bar = FindWidget(m_Tabs.GetTabs()).findChild<QTabBar*>();
    if (!bar)
        bar = qobject_cast<QTabBar*>(&FindWidget(m_Tabs.GetTabs()));
    ASSERT_NE(bar, nullptr);

    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(1).center());

    EXPECT_EQ(m_Tabs.GetActivePage(), 1);
    EXPECT_EQ(GetSeen(), "-x-");
    EXPECT_EQ(m_Parent.m_Changes, 1);
}

TEST_F(TabWndTest, KeysGoRoundThePagesFromWithinThem)
{
    struct CCase
    {
        Qt::Key m_Key;
        Qt::KeyboardModifiers m_More;
        int m_Page;
    };
    const CCase cases[] = {{Qt::Key_Tab, Qt::NoModifier, 1},
                           {Qt::Key_PageDown, Qt::NoModifier, 2},
                           {Qt::Key_Tab, Qt::NoModifier, 0},
                           {Qt::Key_PageUp, Qt::NoModifier, 2},
                           {Qt::Key_Tab, Qt::ShiftModifier, 1}};

    for (const CCase& row : cases)
    {
        PressWithControl(row.m_Key, row.m_More);
        EXPECT_EQ(m_Tabs.GetActivePage(), row.m_Page);
    }
    QTest::keyClick(&FindWidget(m_Pages[0]), Qt::Key_A); // nothing is held any more
    EXPECT_EQ(m_Parent.m_Changes, 5);
}

TEST_F(TabWndTest, RemovingAPageKeepsTheActiveOneOrShowsItsNeighbour)
{
    m_Tabs.SetActivePage(2);
    EXPECT_TRUE(m_Tabs.RemovePage(0));
    EXPECT_EQ(m_Tabs.GetPage(m_Tabs.GetActivePage()), &m_Pages[2]);
    EXPECT_TRUE(m_Tabs.RemovePage(1));
    EXPECT_EQ(GetSeen(), "-x-");
    EXPECT_EQ(m_Tabs.GetTabs().GetTabText(0), u"Nets");
    EXPECT_TRUE(m_Tabs.RemovePage(0));
    EXPECT_EQ(m_Tabs.GetActivePage(), -1);
    EXPECT_EQ(GetSeen(), "---");
    EXPECT_FALSE(m_Tabs.RemovePage(0));
}

TEST_F(TabWndTest, APageThatHasEndedLeavesATabWithoutOne)
{
    m_Pages[1].DestroyWindow();
    EXPECT_EQ(m_Tabs.GetPage(1), nullptr);
    EXPECT_TRUE(m_Tabs.SetActivePage(1));

    CWnd stranger;
    ASSERT_TRUE(stranger.CreateEx(0, u"Page", u"", WS_CHILD, {0, 0, 9, 9}, &m_Parent, 3));
    EXPECT_EQ(m_Tabs.AddPage(stranger, u"Stranger"), -1) << "no child of the window";
}

TEST(BaseTabCtrlTest, TabsCarryDataOfTheirOwner)
{
    CWnd parent;
    CBaseTabCtrl tabs;
    ASSERT_TRUE(parent.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 400, 300}, nullptr));
    ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, {0, 0, 400, 300}, &parent, 1));
    EXPECT_EQ(tabs.GetNextTab(true), -1);
    EXPECT_EQ(tabs.AddTab(u"Parts", 10), 0);
    EXPECT_EQ(tabs.AddTab(u"Nets", 20), 1);

    EXPECT_EQ(tabs.FindTab(20), 1);
    EXPECT_EQ(tabs.FindTab(30), -1);
    EXPECT_FALSE(tabs.SelectTab(30));
    EXPECT_TRUE(tabs.SelectTab(20));
    EXPECT_EQ(tabs.GetCurSel(), 1);
    EXPECT_EQ(tabs.GetNextTab(true), 0);

    EXPECT_TRUE(tabs.SetTabData(0, 30));
    EXPECT_TRUE(tabs.SetTabText(0, u"Places"));
    EXPECT_EQ(tabs.GetTabData(0), 30);
    EXPECT_EQ(tabs.GetTabText(0), u"Places");
    EXPECT_EQ(tabs.GetTabText(5), u"");
    EXPECT_FALSE(tabs.SetTabData(5, 1));
}

} // namespace
} // namespace utility
