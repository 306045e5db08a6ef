#include "platform/ui/controls/Button.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/drawing/Bitmap.h"

#include "ControlTest.h"

#include <QShortcutEvent>

#include <array>

namespace utility
{
namespace
{

using Codes = std::vector<int>;

class ButtonTest : public ControlTest
{
};

TEST_F(ButtonTest, ChangesItsMarkAtEachClick)
{
    struct CCase
    {
        const char* m_Name;
        DWORD m_Kind;
        std::array<int, 3> m_Marks; // behind each of three clicks
        QAccessible::Role m_Role;
    };
    const CCase CASES[] = {
        {"push", BS_PUSHBUTTON, {0, 0, 0}, QAccessible::PushButton},
        {"default", BS_DEFPUSHBUTTON, {0, 0, 0}, QAccessible::PushButton},
        {"check box of its owner", BS_CHECKBOX, {0, 0, 0}, QAccessible::CheckBox},
        {"check box", BS_AUTOCHECKBOX, {1, 0, 1}, QAccessible::CheckBox},
        {"three states", BS_AUTO3STATE, {1, 2, 0}, QAccessible::CheckBox},
        {"three states of its owner", BS_3STATE, {0, 0, 0}, QAccessible::CheckBox},
        {"radio button", BS_AUTORADIOBUTTON, {1, 1, 1}, QAccessible::RadioButton},
        {"radio button of its owner", BS_RADIOBUTTON, {0, 0, 0}, QAccessible::RadioButton},
        {"check box like a push button",
         BS_AUTOCHECKBOX | BS_PUSHLIKE,
         {1, 0, 1},
         QAccessible::CheckBox}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        CButton button;
        ASSERT_TRUE(button.Create(u"&Mirror", SEEN | WS_GROUP | row.m_Kind, {10, 10, 110, 40},
                                  &m_Parent, 5));
        EXPECT_EQ(button.GetCheck(), BST_UNCHECKED);
        for (const int mark : row.m_Marks)
        {
            Click(button, FromStart(button, {10, 15}));
            EXPECT_EQ(button.GetCheck(), mark);
            EXPECT_EQ(m_Parent.TakeCodes(), Codes{BN_CLICKED});
        }
        Press(button, Qt::Key_Space);
        EXPECT_EQ(m_Parent.TakeCodes(), Codes{BN_CLICKED}) << "by key";
        EXPECT_EQ(RoleOf(button), row.m_Role);
        EXPECT_EQ(NameOf(button), u"Mirror");
    }
}

TEST_F(ButtonTest, SetsMarksWithoutANote)
{
    CButton two;
    CButton three;
    ASSERT_TRUE(two.Create(u"Two", SEEN | BS_AUTOCHECKBOX, {0, 0, 50, 20}, &m_Parent, 1));
    ASSERT_TRUE(three.Create(u"Three", SEEN | BS_AUTO3STATE, {0, 30, 50, 50}, &m_Parent, 2));

    two.SetCheck(BST_INDETERMINATE);
    three.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(two.GetCheck(), BST_CHECKED);
    EXPECT_EQ(three.GetCheck(), BST_INDETERMINATE);
    three.SetCheck(17);
    EXPECT_EQ(three.GetCheck(), BST_INDETERMINATE);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{});
}

TEST_F(ButtonTest, TakesTheMarkFromTheOthersOfItsGroupAlone)
{
    CButton buttons[5];
    for (int i = 0; i < 5; ++i)
    {
        // Two groups: 0 to 2, and 3 and 4.
        const DWORD group = i == 0 || i == 3 ? WS_GROUP : 0;
        ASSERT_TRUE(buttons[i].Create(u"One", SEEN | group | BS_AUTORADIOBUTTON,
                                      {0, i * 20, 80, i * 20 + 18}, &m_Parent,
                                      static_cast<UINT>(10 + i)));
    }
    const auto marks = [&]
    {
        std::array<int, 5> result{};
        for (std::size_t i = 0; i < 5; ++i)
            result[i] = buttons[i].GetCheck();
        return result;
    };

    Click(buttons[0], FromStart(buttons[0], {5, 9}));
    Click(buttons[4], FromStart(buttons[4], {5, 9}));
    EXPECT_EQ(marks(), (std::array<int, 5>{1, 0, 0, 0, 1}));
    Click(buttons[2], FromStart(buttons[2], {5, 9}));
    EXPECT_EQ(marks(), (std::array<int, 5>{0, 0, 1, 0, 1}));
    buttons[3].SetCheck(BST_CHECKED);
    EXPECT_EQ(marks(), (std::array<int, 5>{0, 0, 1, 1, 1})) << "SetCheck leaves the group alone";
}

TEST_F(ButtonTest, LeavesClicksAloneWhileItIsDisabled)
{
    CButton button;
    ASSERT_TRUE(button.Create(u"Go", SEEN | WS_DISABLED, {0, 0, 50, 20}, &m_Parent, 1));

    Click(button, FromStart(button, {5, 5}));
    button.SendMessage(BM_CLICK);

    EXPECT_EQ(m_Parent.TakeCodes(), Codes{});
    button.EnableWindow();
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(m_Parent.TakeCodes(), Codes{BN_CLICKED});
}

TEST_F(ButtonTest, ShowsAPictureAndKeepsItsName)
{
    CButton button;
    ASSERT_TRUE(button.Create(u"&Rotate", SEEN, {0, 0, 50, 20}, &m_Parent, 1));
    CBitmap picture;
    ASSERT_TRUE(picture.CreateBitmap(17, 17));

    EXPECT_EQ(button.SetBitmap(picture), nullptr);
    EXPECT_EQ(NameOf(button), u"Rotate");
    EXPECT_EQ(button.SetBitmap(nullptr), picture.GetSafeHandle());
    EXPECT_EQ(button.GetWindowText(), u"&Rotate");
}

TEST_F(ButtonTest, FramesAGroupWithoutTakingItsClicks)
{
    CButton inside;
    ASSERT_TRUE(inside.Create(u"In", SEEN, {30, 30, 90, 50}, &m_Parent, 1));
    CButton frame;
    ASSERT_TRUE(frame.Create(u"Group", WS_CHILD | WS_VISIBLE | BS_GROUPBOX, {20, 10, 120, 90},
                             &m_Parent, 2));

    QWidget* hit = FindWidget(m_Parent).childAt(40, 40);
    ASSERT_EQ(hit, &FindWidget(inside));
    QTest::mouseClick(hit, Qt::LeftButton);

    EXPECT_EQ(m_Parent.TakeCodes(), Codes{BN_CLICKED});
    EXPECT_EQ(RoleOf(frame), QAccessible::Grouping);
    EXPECT_EQ(NameOf(frame), u"Group");
}

TEST_F(ButtonTest, GivesTheFocusToTheControlBehindAFrame)
{
    CButton frame;
    ASSERT_TRUE(frame.Create(u"&Layers", WS_CHILD | WS_VISIBLE | BS_GROUPBOX, {0, 0, 99, 99},
                             &m_Parent, 1));
    CButton disabled;
    ASSERT_TRUE(disabled.Create(u"Top", SEEN | WS_DISABLED, {9, 9, 50, 20}, &m_Parent, 2));
    CButton button;
    ASSERT_TRUE(button.Create(u"Bottom", SEEN, {9, 30, 50, 50}, &m_Parent, 3));

    QShortcutEvent event(QKeySequence(Qt::ALT | Qt::Key_L), 1);
    QApplication::sendEvent(&FindWidget(frame), &event);

    EXPECT_EQ(FindWidget(m_Parent).focusWidget(), &FindWidget(button));
}

} // namespace
} // namespace utility
