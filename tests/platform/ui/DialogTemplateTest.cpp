#include "platform/ui/DialogTemplate.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/ResourceTables.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

constexpr CDialogText DIALOGS = uR"(
# Two dialogs, one by number and one by name
dialog 11001 "Find a part" 220x80 font "Sans" 9 resizable maximisable
    text           "&Name:"              7,9     40x8
    edit     1001                        50,7    160x12   group readonly
    edit     1002                        50,27   160x12   name "Second name"
    check3   1003  "R && &D \"x\"\n"     50,45   80x10    hidden
    picture  1004                        7,45    12x12    bitmap 10686
    default  1     "&Find"               110,60  50x14    disabled
    push     2     @10617                163,60  50x14    # a quote, by the string table
end

dialog Page "A page" 4,5 100x50 page
    list     1001                        0,0     100x50   notabstop multiple
    window   1002  "Ruler"               0,0     10x10
end
)";

class DialogTemplateTest : public testing::Test
{
protected:
    DialogTemplateTest() { CResourceTables::AddDialogs(DIALOGS); }
    ~DialogTemplateTest() override { CResourceTables::RemoveDialogs(DIALOGS.View()); }
};

} // namespace

TEST_F(DialogTemplateTest, TheFirstLineMakesTheFrame)
{
    CDialogTemplate dialog;
    ASSERT_TRUE(dialog.Load(11001));

    EXPECT_EQ(dialog.GetId(), 11001U);
    EXPECT_EQ(dialog.GetCaption(), u"Find a part");
    EXPECT_EQ(dialog.GetSizeInDialogUnits(), CSize(220, 80));
    EXPECT_EQ(dialog.GetStyle(), WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME |
                                     WS_MAXIMIZEBOX | DS_CENTER | DS_SETFONT);
    CString face;
    WORD height = 0;
    ASSERT_TRUE(dialog.GetFont(face, height));
    EXPECT_EQ(face, u"Sans");
    EXPECT_EQ(height, 9);
}

TEST_F(DialogTemplateTest, APageIsFoundByItsNameAndStandsWhereItSays)
{
    CDialogTemplate page;
    ASSERT_TRUE(page.Load(u"PAGE"));

    EXPECT_EQ(page.GetName(), u"Page");
    EXPECT_EQ(page.GetId(), 0U);
    EXPECT_EQ(page.GetPosition(), CPoint(4, 5));
    EXPECT_EQ(page.GetStyle(), WS_CHILD | DS_CONTROL);
    EXPECT_FALSE(page.HasFont());
}

TEST_F(DialogTemplateTest, EachControlHasClassTextPlaceStyleAndSpokenName)
{
    constexpr DWORD SHOWN = WS_CHILD | WS_VISIBLE;
    const struct
    {
        UINT m_Id;
        const char16_t* m_ClassName;
        const char16_t* m_Text;
        const char16_t* m_Spoken;
        CRect m_Place;
        DWORD m_Style;
    } rows[] = {
        {IDC_STATIC, u"Static", u"&Name:", u"Name", {7, 9, 47, 17}, SHOWN},
        {1001,
         u"EDIT",
         u"",
         u"Name",
         {50, 7, 210, 19},
         SHOWN | WS_TABSTOP | WS_GROUP | WS_BORDER | ES_AUTOHSCROLL | ES_READONLY},
        {1002,
         u"EDIT",
         u"",
         u"Second name",
         {50, 27, 210, 39},
         SHOWN | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL},
        {1003,
         u"Button",
         u"R && &D \"x\"\n",
         u"R & D \"x\"\n",
         {50, 45, 130, 55},
         WS_CHILD | WS_TABSTOP | BS_AUTO3STATE},
        {1004, u"Static", u"#10686", u"", {7, 45, 19, 57}, SHOWN | SS_BITMAP},
        {1,
         u"Button",
         u"&Find",
         u"Find",
         {110, 60, 160, 74},
         SHOWN | WS_TABSTOP | WS_DISABLED | BS_DEFPUSHBUTTON},
        {2, u"Button", u"\"", u"\"", {163, 60, 213, 74}, SHOWN | WS_TABSTOP},
    };

    CDialogTemplate dialog;
    ASSERT_TRUE(dialog.Load(11001));
    ASSERT_EQ(dialog.GetItems().size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i)
    {
        SCOPED_TRACE(i);
        const CDialogTemplateItem& item = dialog.GetItems()[i];
        EXPECT_EQ(item.m_Id, rows[i].m_Id);
        EXPECT_EQ(item.m_ClassName, rows[i].m_ClassName);
        EXPECT_EQ(item.m_Text, rows[i].m_Text);
        EXPECT_EQ(item.m_AccessibleName, rows[i].m_Spoken);
        EXPECT_EQ(item.m_Place, rows[i].m_Place);
        EXPECT_EQ(item.m_Style, rows[i].m_Style);
    }
    EXPECT_EQ(dialog.FindItem(9), nullptr);
}

TEST_F(DialogTemplateTest, AnUnknownDialogTellsSoAndLeavesTheTemplateAlone)
{
    CDialogTemplate dialog;
    ASSERT_TRUE(dialog.Load(11001));
    SetLastError(0);

    EXPECT_FALSE(dialog.Load(11999));

    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(dialog.GetId(), 11001U);
    EXPECT_FALSE(dialog.Load(u"Nobody"));
    EXPECT_FALSE(dialog.Load(u""));
    EXPECT_FALSE(dialog.Load(UINT{0})); // the page has no number, and is not found by none
}

TEST_F(DialogTemplateTest, AFontIsSetInACopyAlone)
{
    CDialogTemplate dialog;
    ASSERT_TRUE(dialog.Load(u"Page"));

    CDialogTemplate copy = dialog;
    copy.SetFont(u"Serif", 12);

    CString face;
    WORD height = 7;
    EXPECT_TRUE(copy.GetFont(face, height));
    EXPECT_EQ(height, 12);
    EXPECT_EQ(copy.GetStyle(), dialog.GetStyle() | DS_SETFONT);
    EXPECT_FALSE(dialog.HasFont());
    copy.SetFont(u"Serif", 0);
    EXPECT_FALSE(copy.GetFont(face, height));
    EXPECT_EQ(face, u"Serif"); // the preset stays
}

TEST(DialogUnitsTest, UnitsFollowTheLetterToTheNearestPixel)
{
    constexpr CDialogUnits UNITS{7, 15};
    const struct
    {
        int m_Units;
        int m_X;
        int m_Y;
    } rows[] = {{0, 0, 0}, {1, 2, 2}, {2, 4, 4}, {4, 7, 8}, {50, 88, 94}, {-1, -2, -2}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Units);
        EXPECT_EQ(UNITS.ToPixelsX(row.m_Units), row.m_X);
        EXPECT_EQ(UNITS.ToPixelsY(row.m_Units), row.m_Y);
    }
    EXPECT_EQ(UNITS.ToPixels(CRect(4, 8, 8, 16)), CRect(7, 15, 14, 30));
}

} // namespace utility
