#include "platform/ui/controls/Menu.h"

#include "ControlTest.h"

#include <QMenu>
#include <QTimer>

namespace utility
{
namespace
{

/// Acts on the menu that comes up next.
void WhenShown(std::function<void(QMenu&)> act)
{
    QTimer::singleShot(0, qApp,
                       [act = std::move(act)]
                       {
                           auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                           ASSERT_NE(menu, nullptr);
                           act(*menu);
                       });
}

class MenuTest : public ControlTest
{
protected:
    MenuTest()
    {
        m_Menu.CreatePopupMenu();
        m_Menu.AppendMenu(MF_STRING, 101, u"&Copy\tCtrl+C");
        m_Menu.AppendMenu(MF_GRAYED, 102, u"&Paste");
        m_Menu.AppendMenu(MF_SEPARATOR);
        m_Menu.AppendMenu(MF_CHECKED, 103, u"&Snap");
    }

    CMenu m_Menu;
};

TEST_F(MenuTest, ShowsItsRowsAndGivesBackTheChosenOne)
{
    WhenShown(
        [](QMenu& menu)
        {
            const QList<QAction*> rows = menu.actions();
            ASSERT_EQ(rows.size(), 4);
            EXPECT_EQ(rows[0]->text(), QStringLiteral("&Copy\tCtrl+C"));
            EXPECT_FALSE(rows[1]->isEnabled());
            EXPECT_TRUE(rows[2]->isSeparator());
            EXPECT_TRUE(rows[3]->isChecked());
            QTest::keyClick(&menu, Qt::Key_S);
        });
    EXPECT_EQ(m_Menu.TrackPopupMenu(TPM_RETURNCMD, 50, 50, &m_Parent), 103);

    WhenShown([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    EXPECT_EQ(m_Menu.TrackPopupMenu(TPM_RETURNCMD, 50, 50, &m_Parent), 0);
    Settle();
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{}) << "the caller has the answer";
}

TEST_F(MenuTest, SendsTheCommandToTheParent)
{
    WhenShown([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_C); });
    EXPECT_NE(m_Menu.TrackPopupMenu(0, 50, 50, &m_Parent), 0);
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{}) << "once the menu is gone";
    Settle();
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{0});
}

TEST_F(MenuTest, OwnsTheMenusAppendedToIt)
{
    CMenu below;
    ASSERT_TRUE(below.CreatePopupMenu());
    EXPECT_TRUE(below.AppendMenu(MF_STRING, 201, u"Inner"));
    const HMENU handle = below.Detach();
    EXPECT_TRUE(m_Menu.AppendMenu(MF_POPUP, reinterpret_cast<WPARAM>(handle), u"More"));
    EXPECT_FALSE(m_Menu.AppendMenu(MF_POPUP, reinterpret_cast<WPARAM>(handle), u"Twice"));
    const auto own = reinterpret_cast<WPARAM>(m_Menu.GetSafeHmenu());
    EXPECT_FALSE(m_Menu.AppendMenu(MF_POPUP, own, u"Itself"));

    EXPECT_EQ(m_Menu.GetMenuItemCount(), 5);
    EXPECT_EQ(m_Menu.GetMenuItemID(4), 0U);
    EXPECT_EQ(m_Menu.GetMenuItemID(9), static_cast<UINT>(-1));
    EXPECT_EQ(m_Menu.EnableMenuItem(201, MF_GRAYED), 0U) << "found below";
    EXPECT_EQ(CMenu::GetItems(handle)[0].m_Flags, MF_GRAYED);
    EXPECT_EQ(m_Menu.CheckMenuItem(3, MF_BYPOSITION | MF_UNCHECKED), MF_CHECKED);
    EXPECT_EQ(m_Menu.CheckMenuItem(999, MF_CHECKED), static_cast<UINT>(-1));

    EXPECT_TRUE(m_Menu.DestroyMenu());
    EXPECT_TRUE(CMenu::GetItems(handle).empty());
    EXPECT_FALSE(m_Menu.AppendMenu(MF_STRING, 1, u"Late"));
}

} // namespace
} // namespace utility
