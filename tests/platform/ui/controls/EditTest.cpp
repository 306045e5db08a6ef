#include "platform/ui/controls/Edit.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Static.h"

#include "ControlTest.h"

namespace utility
{
namespace
{

using Codes = std::vector<int>;

class EditTest : public ControlTest
{
protected:
    void Make(DWORD style) { ASSERT_TRUE(m_Edit.Create(SEEN | style, PLACE, &m_Parent, 7)); }

    CEdit m_Edit;
};

TEST_F(EditTest, TellsChangesOfTheUserAndOfTheProgram)
{
    Make(0);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{}) << "a new field is no change";

    Type(m_Edit, "R1");
    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{EN_UPDATE, EN_CHANGE, EN_UPDATE, EN_CHANGE}));
    EXPECT_EQ(m_Edit.GetWindowText(), u"R1");
    EXPECT_TRUE(m_Edit.GetModify());

    m_Edit.SetWindowText(u"C7");
    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{EN_UPDATE, EN_CHANGE}));
    EXPECT_FALSE(m_Edit.GetModify());
}

TEST_F(EditTest, TellsWhenItTakesAndLosesTheFocus)
{
    Make(0);
    CEdit other;
    ASSERT_TRUE(other.Create(SEEN, {10, 120, 210, 140}, &m_Parent, 8));

    m_Edit.SendMessage(WM_SETFOCUS);
    m_Edit.SendMessage(WM_KILLFOCUS);

    EXPECT_EQ(m_Parent.TakeCodes(), (Codes{EN_SETFOCUS, EN_KILLFOCUS}));
}

TEST_F(EditTest, SelectsRanges)
{
    struct CCase
    {
        const char* m_Name;
        int m_First, m_Last;
        int m_From, m_To;
    };
    constexpr CCase CASES[] = {
        {"part", 2, 5, 2, 5},        {"turned round", 5, 2, 2, 5},    {"all", 0, -1, 0, 8},
        {"to the end", 3, -1, 3, 8}, {"beyond the end", 3, 99, 3, 8}, {"a place", 4, 4, 4, 4}};
    for (const DWORD style : {DWORD{0}, ES_MULTILINE})
    {
        CEdit edit;
        ASSERT_TRUE(edit.Create(SEEN | style, PLACE, &m_Parent, 9));
        edit.SetWindowText(u"resistor");
        for (const CCase& row : CASES)
        {
            SCOPED_TRACE(row.m_Name);
            edit.SetSel(row.m_First, row.m_Last);
            int from = -1;
            int to = -1;
            edit.GetSel(from, to);
            EXPECT_EQ(from, row.m_From);
            EXPECT_EQ(to, row.m_To);
        }
        edit.SetSel(-1, 0);
        int from = 0;
        int to = 9;
        edit.GetSel(from, to);
        EXPECT_EQ(from, to);
    }
}

TEST_F(EditTest, CutsWhatIsTypedToTheLimitAndLeavesALongerTextAlone)
{
    for (const DWORD style : {DWORD{0}, ES_MULTILINE})
    {
        SCOPED_TRACE(style == 0 ? "one line" : "many lines");
        CEdit edit;
        ASSERT_TRUE(edit.Create(SEEN | style, PLACE, &m_Parent, 9));
        edit.LimitText(3);
        m_Parent.TakeCodes();

        Type(edit, "abcd");
        EXPECT_EQ(edit.GetWindowText(), u"abc");
        const Codes codes = m_Parent.TakeCodes();
        EXPECT_EQ(std::count(codes.begin(), codes.end(), static_cast<int>(EN_MAXTEXT)), 1);

        edit.SetWindowText(u"longer text");
        EXPECT_EQ(edit.GetWindowText(), u"longer text");
        Type(edit, "x");
        EXPECT_EQ(edit.GetWindowText(), u"longer text");

        edit.LimitText();
        edit.SetSel(0, 0);
        Type(edit, "x");
        EXPECT_EQ(edit.GetWindowText(), u"xlonger text");
    }
}

TEST_F(EditTest, KeepsAReadOnlyTextFromTheUserAlone)
{
    Make(0);
    m_Edit.SetWindowText(u"fixed");
    EXPECT_TRUE(m_Edit.SetReadOnly());
    EXPECT_TRUE(m_Edit.GetStyle() & ES_READONLY);

    Type(m_Edit, "x");
    EXPECT_EQ(m_Edit.GetWindowText(), u"fixed");
    m_Edit.SetSel(0, 3);
    m_Edit.ReplaceSel(u"wa");
    EXPECT_EQ(m_Edit.GetWindowText(), u"waed");

    m_Edit.SetReadOnly(false);
    EXPECT_FALSE(m_Edit.GetStyle() & ES_READONLY);
    Type(m_Edit, "x");
    EXPECT_EQ(m_Edit.GetWindowText(), u"waxed");
}

TEST_F(EditTest, TakesWhatItsStyleAllows)
{
    struct CCase
    {
        const char* m_Name;
        DWORD m_Style;
        const char16_t* m_Text;
    };
    constexpr CCase CASES[] = {{"digits", ES_NUMBER, u"12"},
                               {"upper case", ES_UPPERCASE, u"A1B2"},
                               {"lower case", ES_LOWERCASE, u"a1b2"},
                               {"password", ES_PASSWORD, u"a1B2"}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        CEdit edit;
        ASSERT_TRUE(edit.Create(SEEN | row.m_Style, PLACE, &m_Parent, 9));
        Type(edit, "a1B2");
        EXPECT_EQ(edit.GetWindowText(), row.m_Text);
    }
}

TEST_F(EditTest, CountsLineEndsOfManyLinesAsTwoUnits)
{
    Make(ES_MULTILINE | ES_WANTRETURN);
    Type(m_Edit, "ab");
    Press(m_Edit, Qt::Key_Return);
    Type(m_Edit, "cd");
    EXPECT_EQ(m_Edit.GetWindowText(), u"ab\r\ncd");
    EXPECT_EQ(m_Edit.GetLineCount(), 2);

    m_Edit.SetSel(4, 5);
    m_Edit.ReplaceSel(u"X\r\nY");

    EXPECT_EQ(m_Edit.GetWindowText(), u"ab\r\nX\r\nYd");
    int first = 0;
    int last = 0;
    m_Edit.GetSel(first, last);
    EXPECT_EQ(first, 8);

    m_Parent.TakeCodes();
    m_Edit.SetWindowText(u"one\r\ntwo");
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{}) << "of many lines the user's changes alone are told";
    EXPECT_EQ(m_Edit.GetWindowText(), u"one\r\ntwo");
}

TEST_F(EditTest, IsNamedByTheLabelBeforeIt)
{
    CStatic label;
    ASSERT_TRUE(label.Create(u"&Value:", WS_CHILD | WS_VISIBLE, {10, 0, 90, 9}, &m_Parent, 1));
    Make(0);

    EXPECT_EQ(RoleOf(m_Edit), QAccessible::EditableText);
    EXPECT_EQ(NameOf(m_Edit), u"Value:");
}

} // namespace
} // namespace utility
