#include "platform/ui/controls/Static.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Edit.h"
#include "platform/ui/drawing/Bitmap.h"

#include "ControlTest.h"

#include <QLabel>

namespace utility
{
namespace
{

using Codes = std::vector<int>;

class StaticTest : public ControlTest
{
protected:
    void Make(const char16_t* text, DWORD style)
    {
        ASSERT_TRUE(m_Label.Create(text, WS_CHILD | WS_VISIBLE | style, PLACE, &m_Parent, 3));
    }
    QString Shown() const { return static_cast<QLabel&>(FindWidget(m_Label)).text(); }

    CStatic m_Label;
};

TEST_F(StaticTest, ShowsTextsWithoutTheMarkOfTheLetter)
{
    struct CCase
    {
        const char16_t* m_Text;
        DWORD m_Style;
        const char* m_Shown;
    };
    constexpr CCase CASES[] = {{u"&Value", SS_LEFT, "Value"},
                               {u"R && C", SS_LEFT, "R & C"},
                               {u"R &", SS_LEFT, "R "},
                               {u"R && C", SS_NOPREFIX, "R && C"},
                               {u"<b>x</b>", SS_LEFT, "<b>x</b>"}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Shown);
        CStatic label;
        ASSERT_TRUE(label.Create(row.m_Text, WS_CHILD | row.m_Style, PLACE, &m_Parent, 3));
        EXPECT_EQ(static_cast<QLabel&>(FindWidget(label)).text().toStdString(), row.m_Shown);
        EXPECT_EQ(label.GetWindowText(), row.m_Text);
    }
}

TEST_F(StaticTest, GivesTheFocusToTheControlBehindIt)
{
    Make(u"&Value", SS_LEFT);
    CEdit edit;
    ASSERT_TRUE(edit.Create(SEEN, {10, 120, 90, 140}, &m_Parent, 4));

    EXPECT_EQ(static_cast<QLabel&>(FindWidget(m_Label)).buddy(), &FindWidget(edit));
    EXPECT_EQ(Shown(), QStringLiteral("&Value")) << "the letter has its line now";
    EXPECT_EQ(RoleOf(m_Label), QAccessible::StaticText);
}

TEST_F(StaticTest, TellsClicksOnlyIfItIsAskedTo)
{
    Make(u"Link", SS_NOTIFY);
    Click(m_Label, {5, 5});
    QTest::mouseDClick(&FindWidget(m_Label), Qt::LeftButton);

    const Codes codes = m_Parent.TakeCodes();
    ASSERT_GE(codes.size(), 2U);
    EXPECT_EQ(codes.front(), static_cast<int>(STN_CLICKED));
    EXPECT_EQ(codes.back(), static_cast<int>(STN_DBLCLK));
}

TEST_F(StaticTest, TakesTheSizeOfItsPicture)
{
    CBitmap picture;
    ASSERT_TRUE(picture.CreateBitmap(17, 23));
    Make(u"", SS_BITMAP);

    EXPECT_EQ(m_Label.SetBitmap(picture), nullptr);
    EXPECT_EQ(m_Label.GetBitmap(), picture.GetSafeHandle());
    EXPECT_EQ(m_Label.GetWindowRect().Size(), CSize(17, 23));

    CStatic centred;
    ASSERT_TRUE(centred.Create(u"", WS_CHILD | SS_BITMAP | SS_CENTERIMAGE, PLACE, &m_Parent, 4));
    centred.SetBitmap(picture);
    EXPECT_EQ(centred.GetWindowRect().Size(), PLACE.Size());

    CStatic text;
    ASSERT_TRUE(text.Create(u"Text", WS_CHILD, PLACE, &m_Parent, 5));
    text.SetBitmap(picture);
    EXPECT_EQ(text.GetBitmap(), nullptr) << "a label shows no picture";
}

} // namespace
} // namespace utility
