#include "platform/ui/controls/ListBox.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/OwnerDraw.h"
#include "platform/ui/controls/ListBoxMessages.h"
#include "platform/ui/controls/Static.h"
#include "platform/ui/drawing/DC.h"

#include "ControlTest.h"

namespace utility
{
namespace
{

using Codes = std::vector<int>;
using Rows = std::vector<int>;

class ListBoxTest : public ControlTest
{
protected:
    void Make(CListBox& list, DWORD style)
    {
        ASSERT_TRUE(list.Create(SEEN | LBS_NOTIFY | style, PLACE, &m_Parent, 7));
        for (const char16_t* text : {u"R10", u"C2", u"r2", u"U1"})
            ASSERT_GE(list.AddString(text), 0);
    }
    static CPoint CentreOf(const CListBox& list, int row)
    {
        CRect place;
        EXPECT_TRUE(list.GetItemRect(row, place));
        return {place.left + 40, place.CenterPoint().y};
    }
    static std::vector<CString> TextsOf(const CListBox& list)
    {
        std::vector<CString> texts;
        for (int row = 0; row < list.GetCount(); ++row)
        {
            CString text;
            EXPECT_TRUE(list.GetText(row, text));
            texts.push_back(text);
        }
        return texts;
    }
};

TEST_F(ListBoxTest, KeepsRowsAsAddedOrSorted)
{
    CListBox plain;
    Make(plain, 0);
    EXPECT_EQ(TextsOf(plain), (std::vector<CString>{u"R10", u"C2", u"r2", u"U1"}));
    CListBox sorted;
    Make(sorted, LBS_SORT);
    EXPECT_EQ(TextsOf(sorted), (std::vector<CString>{u"C2", u"R10", u"r2", u"U1"}));

    EXPECT_EQ(sorted.InsertString(0, u"Z"), 0) << "a place that is named counts more than order";
    EXPECT_EQ(sorted.InsertString(-1, u"A"), 5);
    EXPECT_EQ(sorted.InsertString(9, u"A"), LB_ERR);
    EXPECT_EQ(sorted.DeleteString(0), 5);
    EXPECT_EQ(sorted.DeleteString(5), LB_ERR);
    sorted.ResetContent();
    EXPECT_EQ(sorted.GetCount(), 0);
}

TEST_F(ListBoxTest, AnswersForRowsThatAreNotThere)
{
    CListBox list;
    Make(list, 0);
    CString text = u"preset";
    for (const int row : {-1, 4})
    {
        SCOPED_TRACE(row);
        EXPECT_EQ(list.GetTextLen(row), LB_ERR);
        EXPECT_FALSE(list.GetText(row, text));
        EXPECT_EQ(list.GetItemData(row), LB_ERR);
        EXPECT_FALSE(list.SetItemData(row, 1));
        EXPECT_FALSE(list.GetSel(row));
        EXPECT_EQ(list.SetCurSel(row), LB_ERR);
    }
    EXPECT_EQ(text, u"preset");
    EXPECT_TRUE(list.SetItemData(2, 77));
    EXPECT_EQ(list.GetItemData(2), 77);
    list.DeleteString(0);
    EXPECT_EQ(list.GetItemData(1), 77) << "data stays with its row";
}

TEST_F(ListBoxTest, FindsRowsOnceAround)
{
    CListBox list;
    Make(list, 0);
    struct CCase
    {
        const char* m_Name;
        int m_After;
        const char16_t* m_Text;
        int m_Start; // found by the beginning
        int m_Whole;
    };
    constexpr CCase CASES[] = {{"first", -1, u"R", 0, -1},
                               {"behind", 0, u"r", 2, -1},
                               {"around", 2, u"r", 0, -1},
                               {"whole, other case", -1, u"R2", 2, 2},
                               {"the row itself", 3, u"u1", 3, 3},
                               {"none", -1, u"X", -1, -1},
                               {"longer than a row", -1, u"C22", -1, -1}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(list.FindString(row.m_After, row.m_Text), row.m_Start);
        EXPECT_EQ(list.FindStringExact(row.m_After, row.m_Text), row.m_Whole);
    }
    EXPECT_EQ(list.SelectString(-1, u"u"), 3);
    EXPECT_EQ(list.GetCurSel(), 3);
}

TEST_F(ListBoxTest, SelectsOneRowByKeysClicksAndCalls)
{
    CListBox list;
    Make(list, 0);
    EXPECT_EQ(list.GetCurSel(), LB_ERR);

    Click(list, CentreOf(list, 1));
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{LBN_SELCHANGE});
    Press(list, Qt::Key_Down);
    EXPECT_EQ(list.GetCurSel(), 2);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{LBN_SELCHANGE});
    Type(list, "u");
    EXPECT_EQ(list.GetCurSel(), 3) << "goes to what is typed";
    m_Parent.TakeCodes();

    EXPECT_EQ(list.SetCurSel(0), 0);
    EXPECT_TRUE(list.GetSel(0));
    EXPECT_EQ(list.DeleteString(0), 3);
    EXPECT_EQ(list.GetCurSel(), LB_ERR) << "no other row takes the place of one that goes";
    EXPECT_FALSE(list.SetSel(1)) << "is for several rows";
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{}) << "the program's own changes are not told";

    QTest::mouseDClick(&Surface(list), Qt::LeftButton, {},
                       QPoint(CentreOf(list, 1).x, CentreOf(list, 1).y));
    const Codes codes = m_Parent.TakeCodes();
    EXPECT_EQ(std::count(codes.begin(), codes.end(), static_cast<int>(LBN_DBLCLK)), 1);
}

TEST_F(ListBoxTest, SelectsSeveralRows)
{
    struct CCase
    {
        const char* m_Name;
        DWORD m_Style;
        Qt::KeyboardModifiers m_Keys; // of the second click
    };
    const CCase CASES[] = {{"each click changes its row", LBS_MULTIPLESEL, {}},
                           {"with Control", LBS_EXTENDEDSEL, Qt::ControlModifier},
                           {"both bits", LBS_MULTIPLESEL | LBS_EXTENDEDSEL, Qt::ControlModifier}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        CListBox list;
        Make(list, row.m_Style);
        Click(list, CentreOf(list, 2));
        Click(list, CentreOf(list, 0), row.m_Keys);
        EXPECT_EQ(list.GetSelItems(), (Rows{0, 2}));
        EXPECT_EQ(list.GetCurSel(), 0) << "the caret";
        EXPECT_EQ(m_Parent.TakeCodes(), (Codes{LBN_SELCHANGE, LBN_SELCHANGE}));

        EXPECT_TRUE(list.SetSel(0, false));
        EXPECT_TRUE(list.SetSel(3));
        EXPECT_EQ(list.GetSelItems(), (Rows{2, 3}));
        EXPECT_TRUE(list.SetSel(-1));
        EXPECT_EQ(list.GetSelCount(), 4);
        EXPECT_TRUE(list.SetSel(-1, false));
        EXPECT_EQ(list.GetSelItems(), Rows{});
        EXPECT_EQ(list.SetCurSel(1), LB_ERR) << "is for one row";
        EXPECT_EQ(m_Parent.TakeCodes(), Codes{});
    }
}

/// Answers keys, and draws its rows.
class COwnList : public CListBox
{
public:
    int VKeyToItem(UINT key, UINT row) override
    {
        m_Keys.push_back({key, row});
        return m_Answer;
    }
    void MeasureItem(MEASUREITEMSTRUCT* item) override { item->itemHeight = 31; }
    void DrawItem(DRAWITEMSTRUCT* item) override
    {
        m_Drawn.push_back(static_cast<int>(item->itemID));
        m_LastData = item->itemData;
        CDC::FromHandle(item->hDC)->FillSolidRect(item->rcItem, RGB(200, 0, 0));
    }

    int m_Answer = -1;
    std::vector<std::pair<UINT, UINT>> m_Keys;
    std::vector<int> m_Drawn;
    LPARAM m_LastData = 0;
};

TEST_F(ListBoxTest, AsksItsOwnerAboutKeys)
{
    COwnList list;
    Make(list, LBS_WANTKEYBOARDINPUT);
    list.SetCurSel(1);

    Press(list, Qt::Key_Down);
    EXPECT_EQ(list.GetCurSel(), 2) << "-1: as it would";
    list.m_Answer = -2;
    Press(list, Qt::Key_Down);
    EXPECT_EQ(list.GetCurSel(), 2) << "-2: nothing more";
    list.m_Answer = 0;
    Press(list, Qt::Key_Down);
    EXPECT_EQ(list.GetCurSel(), 0) << "a row: goes there";
    ASSERT_EQ(list.m_Keys.size(), 3U);
    EXPECT_EQ(list.m_Keys[0], (std::pair<UINT, UINT>(0x28, 1)));
}

TEST_F(ListBoxTest, LetsItsOwnerMeasureAndDrawRows)
{
    COwnList list;
    Make(list, LBS_OWNERDRAWFIXED | LBS_HASSTRINGS);
    list.SetItemData(0, 5);
    CRect first;
    CRect second;
    ASSERT_TRUE(list.GetItemRect(0, first));
    ASSERT_TRUE(list.GetItemRect(1, second));
    EXPECT_EQ(first.Height(), 31);
    EXPECT_EQ(second.top - first.top, 31);

    list.SetItemHeight(0, 20);
    const QImage image = Surface(list).grab().toImage();

    EXPECT_EQ(list.m_Drawn, (Rows{0, 1, 2, 3}));
    EXPECT_EQ(list.m_LastData, 0);
    EXPECT_EQ(image.pixelColor(5, 5), QColor(200, 0, 0));
}

TEST_F(ListBoxTest, ScrollsSidewaysOverItsExtent)
{
    CListBox list;
    Make(list, 0);
    EXPECT_EQ(list.GetHorizontalExtent(), 0);
    list.SetHorizontalExtent(900);
    EXPECT_EQ(list.GetHorizontalExtent(), 900);
    CRect row;
    ASSERT_TRUE(list.GetItemRect(0, row));
    EXPECT_GE(row.Width(), 900);
}

TEST_F(ListBoxTest, HoldsTenThousandSortedRows)
{
    CListBox list;
    Make(list, LBS_SORT);
    for (int i = 0; i < 10000; ++i)
    {
        CString text;
        text.Format(u"N%05d", i * 7919 % 10000);
        list.AddString(text);
    }
    EXPECT_EQ(list.GetCount(), 10004);
    EXPECT_EQ(list.FindStringExact(-1, u"N09999"), 10000);
    EXPECT_TRUE(list.SetTopIndex(5000));
    EXPECT_EQ(list.GetTopIndex(), 5000);
}

TEST_F(ListBoxTest, IsAListNamedByTheLabelBeforeIt)
{
    CStatic label;
    ASSERT_TRUE(label.Create(u"&Parts", WS_CHILD | WS_VISIBLE, {10, 0, 90, 9}, &m_Parent, 1));
    CListBox list;
    Make(list, 0);

    EXPECT_EQ(RoleOf(list), QAccessible::List);
    EXPECT_EQ(NameOf(list), u"Parts");
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&FindWidget(list));
    ASSERT_EQ(tree->childCount(), 4);
    EXPECT_EQ(tree->child(1)->text(QAccessible::Name), QStringLiteral("C2"));
}

} // namespace
} // namespace utility
