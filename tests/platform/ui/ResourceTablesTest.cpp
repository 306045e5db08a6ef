#include "platform/ui/ResourceTables.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/ui/DialogTemplate.h"

#include <gtest/gtest.h>

#include <string>

namespace utility
{

namespace
{

constexpr COLORREF GREEN = RGB(0, 128, 0);
constexpr CPixelPicture HOST_BITMAPS[] = {
    CPixelPicture(11001, {{'#', GREEN}, {'s', SystemColour(16)}}, R"(
.#s
#..
)"),
    CPixelPicture(10686, {}, R"(
..
)"),
};

CString FaultOf(std::u16string_view text)
{
    CDialogTextFault fault;
    if (CResourceTables::AddDialogs(text, fault))
    {
        CResourceTables::RemoveDialogs(text);
        return CString();
    }
    return DescribeFault(fault, text);
}

} // namespace

TEST(ResourceTablesTest, EachFaultOfATextIsNamedWithItsPlace)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Fault;
    } rows[] = {
        {u"", u""},
        {u"# nothing\r\n\r\n", u""},
        {u"dialog 1 \"\" 9x9\nend", u""},
        {u"dialogue 1", u"line 1, column 1: the word dialog is expected, not \"dialogue\""},
        {u"dialog \"A\"", u"line 1, column 8: a number from 1 to 65535, or a name, is expected, "
                          u"not \"\"A\"\""},
        {u"dialog 65536 \"A\" 9x9", u"line 1, column 8: a smaller number is expected, not "
                                    u"\"65536\""},
        {u"dialog 0 \"A\" 9x9", u"line 1, column 8: a number from 1 to 65535, or a name, is "
                                u"expected, not \"0\""},
        {u"dialog 1 \"A", u"line 1, column 10: a closing quote before the line's end is expected, "
                          u"not \"\"A\""},
        {u"dialog 1 \"\\t\"", u"line 1, column 11: n, a quote or a backslash behind the backslash "
                              u"is expected, not \"\\t\"\""},
        {u"dialog 1 \"A\" 9x0", u"line 1, column 14: a size such as 50x14, from 1x1 to "
                                u"32767x32767, is expected, not \"9x0\""},
        {u"dialog 1 \"A\" 9x9 wide", u"line 1, column 18: a word for a dialog, such as resizable, "
                                     u"is expected, not \"wide\""},
        {u"dialog 1 \"A\" 9x9\n", u"line 2, column 1: the kind of a control, or end, is expected, "
                                  u"not the line's end"},
        {u"dialog 1 \"A\" 9x9\n dialog 2", u"line 2, column 2: the kind of a control, or end, is "
                                           u"expected, not \"dialog\""},
        {u"dialog 1 \"A\" 9x9\nend x", u"line 2, column 5: the line's end is expected, not \"x\""},
        {u"dialog 1 \"A\" 9x9\nlabel 5 \"B\"", u"line 2, column 1: the kind of a control, or end, "
                                               u"is expected, not \"label\""},
        {u"dialog 1 \"A\" 9x9\npush 5 0,0 1x1", u"line 2, column 8: a text in quotes, or @ and the "
                                                u"number of a text, is expected, not \"0,0\""},
        {u"dialog 1 \"A\" 9x9\npush 5 \"B\" 0 0", u"line 2, column 12: a corner such as 7,9 is "
                                                  u"expected, not \"0\""},
        {u"dialog 1 \"A\" 9x9\npush 5 \"B\" 5,5 5x4",
         u"line 2, column 1: a place inside the dialog "
         u"is expected, not \"push\""},
        {u"dialog 1 \"A\" 9x9\nedit 5 0,0 1x1", u"line 2, column 1: a name for what takes keys: a "
                                                u"text, a label before it, or name \"...\", is "
                                                u"expected, not \"edit\""},
        {u"dialog 1 \"A\" 9x9\npush 5 \"B\" 0,0 1x1 readonly",
         u"line 2, column 20: a word for this kind of control, such as group, is expected, not "
         u"\"readonly\""},
        {u"dialog 1 \"A\" 9x9\nwindow 5 \"\" 0,0 1x1", u"line 2, column 10: the name of a window "
                                                       u"class is expected, not \"\"\"\""},
        {u"dialog 1 \"A\" 9x9\nline 5 0,0 1x1\nline 4 0,0 1x1\nline 5 0,0 1x1\nend",
         u"line 4, column 6: a number that no other control of the dialog has is expected, not "
         u"\"5\""},
        {u"dialog A \"A\" 9x9\nend\ndialog 1 \"A\" 9x9\nend\ndialog a \"A\" 9x9\nend",
         u"line 5, column 8: a dialog number or name that no other dialog of the text has is "
         u"expected, not \"a\""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        EXPECT_EQ(FaultOf(row.m_Text), CString(row.m_Fault));
    }
}

TEST(ResourceTablesTest, TheNewestTableWinsUntilItGoes)
{
    const std::u16string older = u"dialog 11001 \"Old\" 9x9\nend";
    const std::u16string newer = u"dialog 11001 \"New\" 9x9\nend";
    CDialogTextFault fault;
    ASSERT_TRUE(CResourceTables::AddDialogs(older, fault));
    ASSERT_TRUE(CResourceTables::AddDialogs(newer, fault));
    CDialogTemplate dialog;

    ASSERT_TRUE(dialog.Load(11001));
    EXPECT_EQ(dialog.GetCaption(), u"New");
    CResourceTables::RemoveDialogs(newer);
    ASSERT_TRUE(dialog.Load(11001));
    EXPECT_EQ(dialog.GetCaption(), u"Old");
    CResourceTables::RemoveDialogs(older);
    EXPECT_FALSE(dialog.Load(11001));
}

TEST(ResourceTablesTest, ADialogOfTenThousandControlsIsRead)
{
    std::u16string text = u"dialog 11001 \"Many\" 9x9\n";
    for (int id = 1; id <= 10000; ++id)
    {
        CString line;
        line.Format(u"line %d 0,0 9x9\n", id);
        text += line.View();
    }
    text += u"end\n";
    CDialogTextFault fault;
    ASSERT_TRUE(CResourceTables::AddDialogs(text, fault));
    CDialogTemplate dialog;

    ASSERT_TRUE(dialog.Load(11001));

    EXPECT_EQ(dialog.GetItems().size(), 10000U);
    CResourceTables::RemoveDialogs(text);
}

TEST(ResourceTablesTest, PicturesAreFoundPixelByPixel)
{
    const CPixelPicture* grip = CResourceTables::FindBitmap(10686);
    ASSERT_NE(grip, nullptr);
    EXPECT_EQ(grip->GetSize(), CSize(12, 12));
    EXPECT_EQ(grip->GetPixel(0, 0), CLEAR_PIXEL);

    CResourceTables::AddBitmaps(HOST_BITMAPS);
    const CPixelPicture* picture = CResourceTables::FindBitmap(11001);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->GetSize(), CSize(3, 2));
    EXPECT_EQ(picture->GetPixel(0, 0), CLEAR_PIXEL);
    EXPECT_EQ(picture->GetPixel(0, 1), GREEN);
    EXPECT_TRUE(IsSystemColour(picture->GetPixel(2, 0)));
    EXPECT_EQ(GetSystemColourIndex(picture->GetPixel(2, 0)), 16);
    EXPECT_EQ(CResourceTables::FindBitmap(10686), &HOST_BITMAPS[1]);

    CResourceTables::RemoveBitmaps(HOST_BITMAPS);
    EXPECT_EQ(CResourceTables::FindBitmap(10686), grip);
    SetLastError(0);
    EXPECT_EQ(CResourceTables::FindBitmap(11001), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
}

} // namespace utility
