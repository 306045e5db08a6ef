#include "platform/ui/controls/TreeCtrl.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ImageList.h"
#include "platform/ui/controls/Static.h"

#include "ControlTest.h"

#include <QLineEdit>
#include <QTreeWidget>

#include <map>

namespace utility
{
namespace
{

using Codes = std::vector<int>;

class TreeCtrlTest : public ControlTest
{
protected:
    /// Parts: resistors (two) and capacitors (none).
    void Make(DWORD style)
    {
        ASSERT_TRUE(
            m_Tree.Create(SEEN | TVS_HASBUTTONS | TVS_LINESATROOT | style, PLACE, &m_Parent, 7));
        m_Resistors = m_Tree.InsertItem(u"Resistors");
        m_Capacitors = m_Tree.InsertItem(u"Capacitors");
        m_R1 = m_Tree.InsertItem(u"R1", m_Resistors);
        m_R2 = m_Tree.InsertItem(u"R2", m_Resistors);
        m_Parent.m_Silent = {NM_CLICK};
    }
    /// In the middle of an item's text; `step` pixels beside its beginning if given.
    CPoint Find(HTREEITEM item, int step = 20) const
    {
        CRect text;
        EXPECT_TRUE(m_Tree.GetItemRect(item, text, true));
        return {FromStart(text, step), text.CenterPoint().y};
    }

    CTreeCtrl m_Tree;
    HTREEITEM m_Resistors = nullptr;
    HTREEITEM m_Capacitors = nullptr;
    HTREEITEM m_R1 = nullptr;
    HTREEITEM m_R2 = nullptr;
};

TEST_F(TreeCtrlTest, KnowsHowItsItemsStandToEachOther)
{
    Make(0);
    EXPECT_EQ(m_Tree.GetRootItem(), m_Resistors);
    EXPECT_EQ(m_Tree.GetNextSiblingItem(m_Resistors), m_Capacitors);
    EXPECT_EQ(m_Tree.GetPrevSiblingItem(m_Capacitors), m_Resistors);
    EXPECT_EQ(m_Tree.GetNextSiblingItem(m_Capacitors), nullptr);
    EXPECT_EQ(m_Tree.GetChildItem(m_Resistors), m_R1);
    EXPECT_EQ(m_Tree.GetChildItem(TVI_ROOT), m_Resistors);
    EXPECT_EQ(m_Tree.GetChildItem(m_R1), nullptr);
    EXPECT_EQ(m_Tree.GetParentItem(m_R2), m_Resistors);
    EXPECT_EQ(m_Tree.GetParentItem(m_Resistors), nullptr);
    EXPECT_EQ(m_Tree.GetCount(), 4U);
}

TEST_F(TreeCtrlTest, PutsItemsWhereTheyAreToStand)
{
    Make(0);
    const HTREEITEM first = m_Tree.InsertItem(u"R0", m_Resistors, TVI_FIRST);
    const HTREEITEM between = m_Tree.InsertItem(u"R15", m_Resistors, m_R1);
    const HTREEITEM sorted = m_Tree.InsertItem(u"r19", m_Resistors, TVI_SORT);

    EXPECT_EQ(m_Tree.GetChildItem(m_Resistors), first);
    EXPECT_EQ(m_Tree.GetNextSiblingItem(m_R1), between);
    EXPECT_EQ(m_Tree.GetNextSiblingItem(between), sorted);
    EXPECT_EQ(m_Tree.GetNextSiblingItem(sorted), m_R2);
    EXPECT_EQ(m_Tree.InsertItem(u"X", reinterpret_cast<HTREEITEM>(std::uintptr_t{999})), nullptr);
}

TEST_F(TreeCtrlTest, KeepsTextsDataAndStates)
{
    Make(0);
    EXPECT_TRUE(m_Tree.SetItemText(m_R1, u"R100"));
    EXPECT_TRUE(m_Tree.SetItemData(m_R1, 88));
    EXPECT_TRUE(m_Tree.SetItemState(m_R1, TVIS_BOLD, TVIS_BOLD));
    EXPECT_EQ(m_Tree.GetItemText(m_R1), u"R100");
    EXPECT_EQ(m_Tree.GetItemData(m_R1), 88);
    EXPECT_EQ(m_Tree.GetItemState(m_R1, TVIS_BOLD | TVIS_EXPANDED), TVIS_BOLD);

    EXPECT_TRUE(m_Tree.Expand(m_Resistors, TVE_EXPAND));
    EXPECT_FALSE(m_Tree.Expand(m_Resistors, TVE_EXPAND)) << "it is open";
    EXPECT_EQ(m_Tree.GetItemState(m_Resistors, TVIS_EXPANDED), TVIS_EXPANDED);
    EXPECT_TRUE(m_Tree.Expand(m_Resistors, TVE_COLLAPSE));
    EXPECT_FALSE(m_Tree.Expand(m_Capacitors, TVE_EXPAND)) << "there is nothing below";
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{});
}

TEST_F(TreeCtrlTest, TellsWhatGoes)
{
    Make(0);
    m_Tree.SelectItem(m_R1);
    m_Parent.TakeCodes();

    EXPECT_TRUE(m_Tree.DeleteItem(m_Resistors));
    const Codes codes = m_Parent.TakeCodes();
    EXPECT_EQ(std::count(codes.begin(), codes.end(), TVN_DELETEITEM), 3) << "with those below";
    EXPECT_EQ(m_Tree.GetCount(), 1U);
    EXPECT_FALSE(m_Tree.DeleteItem(m_R1));
    EXPECT_EQ(m_Tree.GetItemText(m_R1), u"");
    EXPECT_FALSE(m_Tree.SetItemData(m_R1, 1));
    EXPECT_FALSE(m_Tree.EnsureVisible(m_R1));

    m_Parent.TakeCodes();
    m_Tree.DestroyWindow();
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{TVN_DELETEITEM}) << "those left when the tree ends";
}

TEST_F(TreeCtrlTest, AsksBeforeItSelects)
{
    Make(0);
    m_Tree.Expand(m_Resistors, TVE_EXPAND);
    const Codes selected{TVN_SELCHANGING, TVN_SELCHANGED};

    EXPECT_TRUE(m_Tree.SelectItem(m_Resistors));
    EXPECT_EQ(m_Parent.TakeCodes(), selected) << "by the program";
    Click(m_Tree, Find(m_R2));
    EXPECT_EQ(m_Tree.GetSelectedItem(), m_R2);
    EXPECT_EQ(m_Parent.TakeCodes(), selected) << "by a click";
    Press(m_Tree, Qt::Key_Up);
    EXPECT_EQ(m_Tree.GetSelectedItem(), m_R1);
    EXPECT_EQ(m_Parent.TakeCodes(), selected) << "by a key";

    m_Parent.m_Answer = 1;
    Click(m_Tree, Find(m_R2));
    Press(m_Tree, Qt::Key_Down);
    EXPECT_FALSE(m_Tree.SelectItem(m_R2));
    EXPECT_EQ(m_Tree.GetSelectedItem(), m_R1) << "the parent keeps it";
    EXPECT_EQ(m_Parent.TakeCodes(), Codes(3, TVN_SELCHANGING));
    m_Parent.m_Answer = 0;
    EXPECT_TRUE(m_Tree.SelectItem(nullptr));
    EXPECT_EQ(m_Tree.GetSelectedItem(), nullptr);
}

TEST_F(TreeCtrlTest, OpensAndClosesByKeysAndClicks)
{
    Make(0);
    m_Tree.SelectItem(m_Resistors);
    m_Parent.TakeCodes();
    const auto isOpen = [&]
    {
        return m_Tree.GetItemState(m_Resistors, TVIS_EXPANDED) != 0;
    };
    const Codes told{TVN_ITEMEXPANDING, TVN_ITEMEXPANDED};
    struct CCase
    {
        const char* m_Name;
        std::function<void()> m_Do;
        bool m_IsOpen;
    };
    const CCase CASES[] = {{"right", [&] { Press(m_Tree, Turned(Qt::Key_Right)); }, true},
                           {"left", [&] { Press(m_Tree, Turned(Qt::Key_Left)); }, false},
                           {"plus", [&] { Press(m_Tree, Qt::Key_Plus); }, true},
                           {"minus", [&] { Press(m_Tree, Qt::Key_Minus); }, false},
                           {"arrow", [&] { Click(m_Tree, Find(m_Resistors, -8)); }, true}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        row.m_Do();
        EXPECT_EQ(isOpen(), row.m_IsOpen);
        EXPECT_EQ(m_Parent.TakeCodes(), told);
    }
    m_Parent.m_Answer = 1;
    Press(m_Tree, Turned(Qt::Key_Left));
    EXPECT_TRUE(isOpen()) << "the parent keeps it";
    m_Parent.m_Answer = 0;
    Press(m_Tree, Turned(Qt::Key_Right));
    EXPECT_EQ(m_Tree.GetSelectedItem(), m_R1) << "into an open item";
}

TEST_F(TreeCtrlTest, TurnsSidewaysKeysAndArrowsRoundFromRightToLeft)
{
    Make(0);
    FindWidget(m_Tree).setLayoutDirection(Qt::RightToLeft);
    m_Tree.SelectItem(m_Resistors);
    const auto isOpen = [&]
    {
        return m_Tree.GetItemState(m_Resistors, TVIS_EXPANDED) != 0;
    };
    Press(m_Tree, Qt::Key_Left);
    EXPECT_TRUE(isOpen());
    Press(m_Tree, Qt::Key_Right);
    EXPECT_FALSE(isOpen());

    CRect text;
    ASSERT_TRUE(m_Tree.GetItemRect(m_Resistors, text, true));
    Click(m_Tree, {text.right + 8, text.CenterPoint().y});
    EXPECT_TRUE(isOpen());
}

TEST_F(TreeCtrlTest, MarksItemsByClicksAndKeys)
{
    Make(TVS_CHECKBOXES);
    m_Tree.Expand(m_Resistors, TVE_EXPAND);
    EXPECT_FALSE(m_Tree.GetCheck(m_R1));

    Click(m_Tree, Find(m_R1, 8));
    EXPECT_TRUE(m_Tree.GetCheck(m_R1));
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{TVN_ITEMCHANGED});
    m_Tree.SelectItem(m_R1);
    m_Parent.TakeCodes();
    Press(m_Tree, Qt::Key_Space);
    EXPECT_FALSE(m_Tree.GetCheck(m_R1));
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{TVN_ITEMCHANGED});

    EXPECT_TRUE(m_Tree.SetCheck(m_R2));
    EXPECT_TRUE(m_Tree.GetCheck(m_R2));
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{}) << "the program's own marks are not told";
    UINT flags = 0;
    EXPECT_EQ(m_Tree.HitTest(Find(m_R1, 8), &flags), m_R1);
    EXPECT_EQ(flags, TVHT_ONITEMSTATEICON);
    EXPECT_EQ(m_Tree.HitTest(Find(m_R1, 24), &flags), m_R1);
    EXPECT_EQ(flags, TVHT_ONITEMLABEL);
    EXPECT_EQ(m_Tree.HitTest({5, 95}, &flags), nullptr);
    EXPECT_EQ(flags, TVHT_NOWHERE);
}

TEST_F(TreeCtrlTest, LetsItsOwnerJudgeNewLabels)
{
    for (const bool isTaken : {true, false})
    {
        SCOPED_TRACE(isTaken);
        CTreeCtrl tree;
        ASSERT_TRUE(tree.Create(SEEN | TVS_EDITLABELS, PLACE, &m_Parent, 7));
        const HTREEITEM item = tree.InsertItem(u"old");
        tree.SelectItem(item);
        m_Parent.TakeCodes();
        ASSERT_TRUE(tree.EditLabel(item));
        EXPECT_EQ(m_Parent.TakeCodes(), Codes{TVN_BEGINLABELEDIT});
        auto* field = FindWidget(tree).findChild<QLineEdit*>();
        ASSERT_NE(field, nullptr);

        m_Parent.m_Answer = isTaken;
        field->selectAll();
        QTest::keyClicks(field, QStringLiteral("new"));
        QTest::keyClick(field, Qt::Key_Return);
        Settle();

        EXPECT_EQ(m_Parent.TakeCodes(), Codes{TVN_ENDLABELEDIT});
        EXPECT_EQ(tree.GetItemText(item), isTaken ? u"new" : u"old");
        m_Parent.m_Answer = 0;
        tree.DestroyWindow();
        m_Parent.TakeCodes();
    }
}

TEST_F(TreeCtrlTest, ShowsThePicturesOfItsItems)
{
    CBitmap strip;
    ASSERT_TRUE(strip.CreateBitmap(33, 16));
    CImageList images;
    EXPECT_FALSE(images.Create(strip, 34, 0));
    ASSERT_TRUE(images.Create(strip, 16, RGB(255, 0, 255)));
    EXPECT_EQ(images.GetImageCount(), 2) << "a rest is no picture";
    Make(0);

    EXPECT_EQ(m_Tree.SetImageList(&images), nullptr);
    EXPECT_TRUE(m_Tree.SetItemImage(m_R1, 0, 1));

    auto& widget = static_cast<QTreeWidget&>(FindWidget(m_Tree));
    EXPECT_FALSE(widget.topLevelItem(0)->child(0)->icon(0).isNull());
    EXPECT_TRUE(widget.topLevelItem(1)->icon(0).isNull());
    EXPECT_EQ(m_Tree.SetImageList(nullptr), &images);
}

TEST_F(TreeCtrlTest, IsATreeNamedByTheLabelBeforeIt)
{
    CStatic label;
    ASSERT_TRUE(label.Create(u"&Library", WS_CHILD | WS_VISIBLE, {10, 0, 90, 9}, &m_Parent, 1));
    Make(0);

    EXPECT_EQ(RoleOf(m_Tree), QAccessible::Tree);
    EXPECT_EQ(NameOf(m_Tree), u"Library");
}

} // namespace
} // namespace utility
