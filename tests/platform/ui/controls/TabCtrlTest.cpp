#include "platform/ui/controls/TabCtrl.h"

#include "platform/ui/ControlStyles.h"

#include "ControlTest.h"

#include <QTabBar>

namespace utility
{
namespace
{

using Codes = std::vector<int>;

class TabCtrlTest : public ControlTest
{
protected:
    TabCtrlTest()
    {
        m_Tabs.Create(SEEN, PLACE, &m_Parent, 7);
        for (const char16_t* text : {u"Part", u"Footprint", u"Model"})
            m_Tabs.InsertItem(m_Tabs.GetItemCount(), text);
    }
    QTabBar& Bar() const { return *FindWidget(m_Tabs).findChild<QTabBar*>(); }

    CTabCtrl m_Tabs;
};

TEST_F(TabCtrlTest, KeepsTabsAndTheirData)
{
    EXPECT_EQ(m_Tabs.GetCurSel(), 0) << "the first tab becomes the current one";
    const TCITEM data{TCIF_TEXT | TCIF_PARAM, u"Pins", 42};
    EXPECT_TRUE(m_Tabs.SetItem(1, &data));
    EXPECT_EQ(m_Tabs.InsertItem(0, u"First"), 0);
    EXPECT_EQ(m_Tabs.GetCurSel(), 1) << "the current tab stays";

    TCITEM found;
    found.mask = TCIF_TEXT | TCIF_PARAM;
    ASSERT_TRUE(m_Tabs.GetItem(2, &found));
    EXPECT_EQ(CString(found.pszText), u"Pins");
    EXPECT_EQ(found.lParam, 42);
    EXPECT_FALSE(m_Tabs.GetItem(4, &found));
    EXPECT_FALSE(m_Tabs.DeleteItem(4));
    EXPECT_TRUE(m_Tabs.DeleteItem(0));
    EXPECT_EQ(m_Tabs.GetItemCount(), 3);
    EXPECT_TRUE(m_Tabs.DeleteAllItems());
    EXPECT_EQ(m_Tabs.GetCurSel(), -1);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{}) << "the program's own changes are not told";
}

TEST_F(TabCtrlTest, TellsWhereTheUserGoes)
{
    EXPECT_EQ(m_Tabs.SetCurSel(1), 0);
    EXPECT_EQ(m_Tabs.SetCurSel(9), -1);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{});

    QTest::mouseClick(&Bar(), Qt::LeftButton, {}, Bar().tabRect(2).center());
    EXPECT_EQ(m_Tabs.GetCurSel(), 2);
    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{TCN_SELCHANGING, TCN_SELCHANGE}));
    QTest::keyClick(&Bar(), Turned(Qt::Key_Left));
    EXPECT_EQ(m_Tabs.GetCurSel(), 1);
    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{TCN_SELCHANGING, TCN_SELCHANGE}));

    m_Parent.m_Answer = 1;
    QTest::keyClick(&Bar(), Turned(Qt::Key_Left));
    EXPECT_EQ(m_Tabs.GetCurSel(), 1) << "the parent keeps it";
    EXPECT_EQ(Bar().currentIndex(), 1);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{TCN_SELCHANGING});
}

TEST_F(TabCtrlTest, TellsThePlaceOfItsPage)
{
    CTabCtrl below;
    ASSERT_TRUE(below.Create(SEEN | TCS_BOTTOM, PLACE, &m_Parent, 8));
    below.InsertItem(0, u"Part");
    CRect page = PLACE;
    m_Tabs.AdjustRect(false, page);
    CRect upper = PLACE;
    below.AdjustRect(false, upper);

    EXPECT_GT(page.top - PLACE.top, PLACE.bottom - page.bottom);
    EXPECT_LT(upper.top - PLACE.top, PLACE.bottom - upper.bottom);
    m_Tabs.AdjustRect(true, page);
    EXPECT_EQ(page, PLACE);
}

TEST_F(TabCtrlTest, ShowsItsTabsToAssistiveTools)
{
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&Bar());
    EXPECT_EQ(list->role(), QAccessible::PageTabList);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), QStringLiteral("Footprint"));
}

} // namespace
} // namespace utility
