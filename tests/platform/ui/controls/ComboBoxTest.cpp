#include "platform/ui/controls/ComboBox.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/OwnerDraw.h"
#include "platform/ui/controls/ComboBoxMessages.h"
#include "platform/ui/controls/ComboRows.h"
#include "platform/ui/controls/Static.h"
#include "platform/ui/controls/VComboBox.h"
#include "platform/ui/drawing/DC.h"

#include "ControlTest.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

namespace utility
{
namespace
{

using Codes = std::vector<int>;

class ComboBoxTest : public ControlTest
{
protected:
    void Make(CComboBox& combo, DWORD style)
    {
        ASSERT_TRUE(combo.Create(SEEN | style, {10, 10, 210, 160}, &m_Parent, 7));
        for (const char16_t* text : {u"mm", u"inch", u"mil"})
            ASSERT_GE(combo.AddString(text), 0);
        m_Parent.m_Silent = {CBN_SETFOCUS, CBN_KILLFOCUS};
    }
    static QComboBox& BoxOf(const CComboBox& combo)
    {
        return static_cast<QComboBox&>(FindWidget(combo));
    }
};

TEST_F(ComboBoxTest, HoldsRowsAndTheirData)
{
    CComboBox combo;
    Make(combo, CBS_DROPDOWNLIST | CBS_SORT);
    CString text = u"preset";
    EXPECT_TRUE(combo.GetLBText(0, text));
    EXPECT_EQ(text, u"inch");
    EXPECT_FALSE(combo.GetLBText(3, text));
    EXPECT_EQ(text, u"inch");
    EXPECT_EQ(combo.GetCurSel(), CB_ERR) << "the first row is not taken by itself";

    EXPECT_TRUE(combo.SetItemData(1, 42));
    EXPECT_EQ(combo.InsertString(0, u"um"), 0);
    EXPECT_EQ(combo.GetItemData(2), 42);
    EXPECT_EQ(combo.GetItemData(4), CB_ERR);
    EXPECT_EQ(combo.FindString(-1, u"MI"), 2);
    EXPECT_EQ(combo.FindStringExact(-1, u"MI"), CB_ERR);
    EXPECT_EQ(combo.SelectString(-1, u"m"), 2);
    EXPECT_EQ(combo.GetWindowText(), u"mil");
    EXPECT_EQ(combo.DeleteString(2), 3);
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{});
}

TEST_F(ComboBoxTest, TakesRowsByKeys)
{
    for (const DWORD style : {CBS_DROPDOWN, CBS_DROPDOWNLIST})
    {
        SCOPED_TRACE(style);
        CComboBox combo;
        Make(combo, style);
        combo.SetCurSel(0);

        Press(combo, Qt::Key_Down);

        EXPECT_EQ(combo.GetCurSel(), 1);
        EXPECT_EQ(combo.GetWindowText(), u"inch");
        EXPECT_EQ(m_Parent.TakeCodes(), (Codes{CBN_SELENDOK, CBN_SELCHANGE}));
    }
}

TEST_F(ComboBoxTest, TellsHowItsListIsLeft)
{
    CComboBox combo;
    Make(combo, CBS_DROPDOWNLIST);

    combo.ShowDropDown();
    Settle();
    EXPECT_TRUE(combo.GetDroppedState());
    QTest::keyClick(BoxOf(combo).view(), Qt::Key_Down);
    QTest::keyClick(BoxOf(combo).view(), Qt::Key_Return);
    Settle();
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_GE(combo.GetCurSel(), 0);
    EXPECT_EQ(m_Parent.TakeCodes(),
              (Codes{CBN_DROPDOWN, CBN_SELENDOK, CBN_CLOSEUP, CBN_SELCHANGE}));

    combo.ShowDropDown();
    Settle();
    QTest::keyClick(BoxOf(combo).view(), Qt::Key_Escape);
    Settle();
    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{CBN_DROPDOWN, CBN_SELENDCANCEL, CBN_CLOSEUP}));

    combo.ShowDropDown();
    combo.ShowDropDown(false);
    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{CBN_DROPDOWN, CBN_SELENDCANCEL, CBN_CLOSEUP}));
}

TEST_F(ComboBoxTest, LetsTheUserWrite)
{
    CComboBox combo;
    Make(combo, CBS_DROPDOWN);
    combo.SetCurSel(1);
    EXPECT_EQ(combo.GetCurSel(), 1);

    EXPECT_TRUE(combo.SetEditSel(0, -1));
    QTest::keyClicks(BoxOf(combo).lineEdit(), QStringLiteral("ft"));
    EXPECT_EQ(combo.GetWindowText(), u"ft");
    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{CBN_EDITCHANGE, CBN_EDITCHANGE}));
    EXPECT_EQ(combo.GetCurSel(), CB_ERR) << "what is written is no row";

    int first = 0;
    int last = 0;
    EXPECT_TRUE(combo.SetEditSel(1, 2));
    EXPECT_TRUE(combo.GetEditSel(first, last));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(last, 2);
    combo.AddString(u"yard");
    EXPECT_EQ(combo.GetWindowText(), u"ft") << "new rows leave the field alone";
    combo.SetWindowText(u"km");
    EXPECT_EQ(combo.GetWindowText(), u"km");
    EXPECT_EQ(combo.SetCurSel(-1), CB_ERR);
    EXPECT_EQ(combo.GetWindowText(), u"");
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{});

    combo.LimitText(2);
    QTest::keyClicks(BoxOf(combo).lineEdit(), QStringLiteral("abc"));
    EXPECT_EQ(combo.GetWindowText(), u"ab");
}

TEST_F(ComboBoxTest, HasNoFieldWhereRowsAloneCanBeTaken)
{
    CComboBox combo;
    Make(combo, CBS_DROPDOWNLIST);
    int first = 7;
    int last = 7;

    EXPECT_FALSE(combo.GetEditSel(first, last));
    EXPECT_EQ(first, 7);
    EXPECT_FALSE(combo.SetEditSel(0, 1));
    combo.SetWindowText(u"other");
    EXPECT_EQ(combo.GetWindowText(), u"");
}

TEST_F(ComboBoxTest, TakesTheHeightOfItsFieldAlone)
{
    CComboBox combo;
    Make(combo, CBS_DROPDOWNLIST);
    const CRect place = combo.GetWindowRect();

    EXPECT_LT(place.Height(), 60);
    EXPECT_EQ(place.Width(), 200);
    combo.MoveWindow(CRect(0, 0, 120, 400));
    EXPECT_EQ(combo.GetWindowRect().Height(), place.Height());
    EXPECT_EQ(combo.SetDroppedWidth(300), 300);
    EXPECT_EQ(combo.SetDroppedWidth(20), 120) << "never less wide than the field";
}

TEST_F(ComboBoxTest, IsDrawnByItsOwner)
{
    class COwnCombo : public CComboBox
    {
    public:
        void DrawItem(DRAWITEMSTRUCT* item) override
        {
            m_States.push_back(item->itemState & ODS_COMBOBOXEDIT);
            CDC::FromHandle(item->hDC)->FillSolidRect(item->rcItem, RGB(0, 0, 220));
        }
        std::vector<UINT> m_States;
    };
    COwnCombo combo;
    Make(combo, CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS);
    combo.SetCurSel(2);

    const QImage image = FindWidget(combo).grab().toImage();

    ASSERT_FALSE(combo.m_States.empty());
    EXPECT_EQ(combo.m_States.front(), ODS_COMBOBOXEDIT);
    EXPECT_EQ(image.pixelColor(image.width() / 3, image.height() / 2), QColor(0, 0, 220));
}

TEST_F(ComboBoxTest, IsNamedByTheLabelBeforeIt)
{
    CStatic label;
    ASSERT_TRUE(label.Create(u"&Unit", WS_CHILD | WS_VISIBLE, {10, 0, 90, 9}, &m_Parent, 1));
    CComboBox combo;
    Make(combo, CBS_DROPDOWNLIST);

    EXPECT_EQ(RoleOf(combo), QAccessible::ComboBox);
    EXPECT_EQ(NameOf(combo), u"Unit");
}

/// Numbers as texts, as many as wanted.
class CNumberRows final : public IComboRows
{
public:
    int GetCount() const override { return m_Count; }
    CString GetText(int row) const override
    {
        CString text;
        text.Format(u"Row %d", row);
        return text;
    }

    int m_Count = 1000000;
};

TEST_F(ComboBoxTest, ShowsAMillionRowsOfItsOwner)
{
    CNumberRows rows;
    CVComboBox combo;
    ASSERT_TRUE(combo.Create(SEEN | CBS_DROPDOWN, {10, 10, 210, 160}, &m_Parent, 7));
    combo.SetWindowText(u"kept");
    combo.SetRows(&rows);

    EXPECT_EQ(combo.GetWindowText(), u"kept");
    EXPECT_EQ(combo.GetCount(), 1000000);
    EXPECT_EQ(combo.FindStringExact(-1, u"row 777"), 777);
    EXPECT_EQ(combo.GetItemData(777), 777);
    EXPECT_EQ(combo.SetCurSel(999999), 999999);
    EXPECT_EQ(combo.GetWindowText(), u"Row 999999");
    EXPECT_EQ(combo.AddString(u"own"), CB_ERR);
    EXPECT_EQ(combo.DeleteString(0), CB_ERR);

    rows.m_Count = 2;
    combo.SetRows(&rows);
    EXPECT_EQ(combo.GetCount(), 2);
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    combo.SetRows(nullptr);
    EXPECT_EQ(combo.GetCount(), 0);
    EXPECT_EQ(combo.AddString(u"own"), 0);
}

} // namespace
} // namespace utility
