#include "platform/ui/controls/CheckListBox.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/ListBoxMessages.h"

#include "ControlTest.h"

namespace utility
{
namespace
{

using Codes = std::vector<int>;
using Marks = std::vector<int>;

class CheckListBoxTest : public ControlTest
{
protected:
    void Make(DWORD style)
    {
        ASSERT_TRUE(m_List.Create(SEEN | style, PLACE, &m_Parent, 7));
        for (const char16_t* text : {u"Top", u"Inner", u"Bottom"})
            m_List.AddString(text);
    }
    Marks GetMarks() const
    {
        Marks marks;
        for (int row = 0; row < m_List.GetCount(); ++row)
            marks.push_back(m_List.GetCheck(row));
        return marks;
    }
    /// In the middle of a row's mark, or of its text.
    CPoint Find(int row, bool mark) const
    {
        CRect place;
        EXPECT_TRUE(m_List.GetItemRect(row, place));
        return {FromStart(place, mark ? 10 : 60), place.CenterPoint().y};
    }

    CCheckListBox m_List;
};

TEST_F(CheckListBoxTest, ChangesMarksByClicksAndKeys)
{
    Make(0);
    Click(m_List, Find(1, true));
    EXPECT_EQ(GetMarks(), (Marks{0, 1, 0}));
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{CLBN_CHKCHANGE});
    Click(m_List, Find(2, false));
    EXPECT_EQ(GetMarks(), (Marks{0, 1, 0})) << "a click on the text selects only";
    Press(m_List, Qt::Key_Space);
    EXPECT_EQ(GetMarks(), (Marks{0, 1, 1}));
    const CPoint text = Find(0, false);
    QTest::mouseDClick(&Surface(m_List), Qt::LeftButton, {}, QPoint(text.x, text.y));
    EXPECT_EQ(GetMarks(), (Marks{1, 1, 1}));
    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{CLBN_CHKCHANGE, CLBN_CHKCHANGE}));
}

TEST_F(CheckListBoxTest, SpreadsAChangeOverTheSelectedRows)
{
    Make(LBS_EXTENDEDSEL);
    m_List.SetSel(0);
    m_List.SetSel(1);
    m_List.Enable(1, false);

    Click(m_List, Find(0, true), Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(m_List.GetCheck(0), BST_CHECKED);
    EXPECT_EQ(m_List.GetCheck(1), BST_UNCHECKED) << "disabled";

    m_List.SetSel(-1);
    m_List.SetSelectionCheck(BST_CHECKED);
    EXPECT_EQ(GetMarks(), (Marks{1, 0, 1}));
}

TEST_F(CheckListBoxTest, FollowsItsStyleOfMarks)
{
    Make(0);
    struct CCase
    {
        const char* m_Name;
        UINT m_Style;
        Marks m_Marks; // of row 0 behind each click
    };
    const CCase CASES[] = {{"two states", BS_AUTOCHECKBOX, {1, 0, 1}},
                           {"three states", BS_AUTO3STATE, {1, 2, 0}},
                           {"its owner's", BS_CHECKBOX, {0, 0, 0}}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        m_List.SetCheckStyle(row.m_Style);
        m_List.SetCheck(0, BST_UNCHECKED);
        m_Parent.TakeCodes();
        for (const int mark : row.m_Marks)
        {
            Click(m_List, Find(0, true));
            EXPECT_EQ(m_List.GetCheck(0), mark);
            EXPECT_EQ(m_Parent.TakeCodes(), Codes{CLBN_CHKCHANGE});
        }
    }
}

TEST_F(CheckListBoxTest, LeavesDisabledRowsAsTheyAre)
{
    Make(0);
    m_List.Enable(1, false);
    EXPECT_FALSE(m_List.IsEnabled(1));

    Click(m_List, Find(1, true));
    EXPECT_EQ(GetMarks(), (Marks{0, 0, 0}));
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{});
    m_List.SetCheck(1, BST_CHECKED);
    EXPECT_EQ(GetMarks(), (Marks{0, 1, 0})) << "the program may";
}

TEST_F(CheckListBoxTest, GivesMarksToAListThatItTakesOver)
{
    CListBox plain;
    ASSERT_TRUE(plain.Create(SEEN | LBS_NOTIFY, PLACE, &m_Parent, 7));
    plain.AddString(u"Top");
    EXPECT_EQ(plain.SendMessage(CLB_GETCHECKSTYLE), 0);

    ASSERT_TRUE(m_List.SubclassDlgItem(7, &m_Parent));

    EXPECT_EQ(m_List.GetCheckStyle(), BS_AUTOCHECKBOX);
    Click(m_List, Find(0, true));
    EXPECT_EQ(GetMarks(), Marks{1});
}

} // namespace
} // namespace utility
