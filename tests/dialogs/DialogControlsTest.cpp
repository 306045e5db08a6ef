#include "dialogs/DialogControls.h"

#include "dialogs/ControlText.h"
#include "dialogs/PeersTest.h"
#include "dialogs/SqueezeDialog.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Edit.h"
#include "resources/StringIds.h"

#include "support/PrintText.h"
#include "support/ScriptedUser.h"
#include "support/ui/Widgets.h"

namespace utility
{
namespace
{

// Notes what is asked of it, as an edit would be.
class CAskedControl : public CWnd
{
public:
    struct CQuestion
    {
        UINT m_Message;
        WPARAM m_First;
        LPARAM m_Last;
        bool operator==(const CQuestion&) const = default;
    };
    std::vector<CQuestion> m_Questions;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == EM_SETSEL || message == EM_SCROLLCARET)
        {
            m_Questions.push_back({message, wParam, lParam});
            SetLastError(ERROR_ACCESS_DENIED); // as a call below may
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class DialogControlsTest : public CPeersTest
{
protected:
    static constexpr UINT EDIT_ID = 5;

    void SetUp() override
    {
        ASSERT_TRUE(m_Dialog.CreateEx(0, u"#32770", u"", WS_POPUP, {0, 0, 300, 200}, nullptr));
    }
    bool MakeControl(CWnd& control, const char16_t* className, DWORD style = 0)
    {
        return control.CreateEx(0, className, u"", WS_CHILD | WS_VISIBLE | style, {0, 0, 50, 20},
                                &m_Dialog, EDIT_ID);
    }

    CWnd m_Dialog;
};

INSTANTIATE_TEST_SUITE_P(Peers, DialogControlsTest, AllPeers(), NamePeers);

TEST_P(DialogControlsTest, KnowsDialogsAndWhatCanBeWrittenInByTheirClass)
{
    struct CCase
    {
        const char16_t* m_ClassName;
        DWORD m_Style;
        bool m_IsWritable;
    };
    const CCase cases[] = {{u"EDIT", 0, true},
                           {u"Edit", 0, true},
                           {u"EDIT", ES_READONLY, false},
                           {u"COMBOBOX", 0, true},
                           {u"ComboBox", CBS_DROPDOWNLIST, true},
                           {u"Static", 0, false},
                           {u"Button", 0, false}};
    for (const CCase& row : cases)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_ClassName)));
        CWnd control;
        ASSERT_TRUE(MakeControl(control, row.m_ClassName, row.m_Style));
        EXPECT_EQ(IsCtrlWritable(control), row.m_IsWritable);
        EXPECT_FALSE(IsDialog(control));
    }
    EXPECT_TRUE(IsDialog(m_Dialog));
}

TEST_P(DialogControlsTest, ReselectingAnEditSelectsAllAndKeepsTheLastError)
{
    CAskedControl edit;
    ASSERT_TRUE(MakeControl(edit, u"EDIT"));
    m_Dialog.ShowWindow(SW_SHOWNORMAL);
    Settle();
    SetLastError(ERROR_FILE_NOT_FOUND);

    ReselectControl(m_Dialog, EDIT_ID);

    EXPECT_EQ(edit.m_Questions,
              (std::vector<CAskedControl::CQuestion>{{EM_SETSEL, 0, -1}, {EM_SCROLLCARET, 0, 0}}));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(CWnd::GetFocus(), &edit);
}

TEST_P(DialogControlsTest, ReselectingAnythingElseOnlyGivesItTheFocus)
{
    CAskedControl button;
    ASSERT_TRUE(MakeControl(button, u"Button"));
    m_Dialog.ShowWindow(SW_SHOWNORMAL);
    Settle();

    ReselectControl(button);

    EXPECT_EQ(CWnd::GetFocus(), &button);
    EXPECT_TRUE(button.m_Questions.empty());
}

TEST_P(DialogControlsTest, SwitchesAndShowsChildrenAndPassesAbsentOnesOver)
{
    CWnd control;
    ASSERT_TRUE(MakeControl(control, u"Static"));
    m_Dialog.ShowWindow(SW_SHOWNORMAL);

    EnableCtrl(m_Dialog, EDIT_ID, false);
    EXPECT_FALSE(control.IsWindowEnabled());
    EnableCtrl(m_Dialog, EDIT_ID, true);
    HideControl(m_Dialog, EDIT_ID);
    EXPECT_FALSE(control.IsWindowVisible());
    EXPECT_TRUE(control.IsWindowEnabled());
    ShowControl(m_Dialog, EDIT_ID);
    EXPECT_TRUE(control.IsWindowVisible());

    HideControl(control, true);
    EXPECT_FALSE(control.IsWindowVisible());
    EXPECT_FALSE(control.IsWindowEnabled());
    HideControl(control, false);
    EXPECT_TRUE(control.IsWindowVisible());
    EXPECT_TRUE(control.IsWindowEnabled());

    SetCtrlText(m_Dialog, EDIT_ID, IDS_DIFFERENT);
    EXPECT_EQ(control.GetWindowText(), u"<Different>");

    constexpr UINT ABSENT = 99;
    EnableCtrl(m_Dialog, ABSENT, false);
    ShowControl(m_Dialog, ABSENT);
    HideControl(m_Dialog, ABSENT);
    ReselectControl(m_Dialog, ABSENT);
    SetCtrlText(m_Dialog, ABSENT, IDS_DIFFERENT);
}

TEST_P(DialogControlsTest, ATextIsTooLongFromATenthBeyondTheControl)
{
    const CScriptedUser user; // each letter is a pixel wide
    CWnd control;
    ASSERT_TRUE(MakeControl(control, u"Static"));

    EXPECT_FALSE(TextTooLongForControl(CString(u'a', 56), control)); // 50.4 counts as 50
    EXPECT_TRUE(TextTooLongForControl(CString(u'a', 57), control));  // 51.3
    EXPECT_FALSE(TextTooLongForControl(u"", control));
}

TEST_P(DialogControlsTest, HidingAControlClosesItsGapAndMayLowerTheDialog)
{
    CWnd group;
    CWnd inside;
    CWnd below;
    ASSERT_TRUE(MakeControl(group, u"Button"));
    group.MoveWindow(CRect(10, 50, 200, 90));
    for (CWnd* child : {&inside, &below})
        ASSERT_TRUE(child->CreateEx(0, u"Static", u"", WS_CHILD | WS_VISIBLE, {20, 60, 90, 80},
                                    &m_Dialog, 7));
    below.MoveWindow(CRect(10, 100, 200, 120));
    m_Dialog.ShowWindow(SW_SHOWNORMAL);
    const CSize size = m_Dialog.GetWindowRect().Size();
    const CRect before = below.GetWindowRect();

    HideControlAndResizeDialog(m_Dialog, EDIT_ID, true);

    EXPECT_FALSE(group.IsWindowVisible());
    EXPECT_FALSE(inside.IsWindowVisible());
    EXPECT_TRUE(below.IsWindowVisible());
    EXPECT_EQ(below.GetWindowRect(), before - CPoint(0, 40));
    EXPECT_EQ(m_Dialog.GetWindowRect().Size(), CSize(size.cx, size.cy - 40));

    HideControlAndSqueezeDialog(m_Dialog, 7, false);
    EXPECT_EQ(m_Dialog.GetWindowRect().Size(), CSize(size.cx, size.cy - 40));
    HideControlAndResizeDialog(m_Dialog, 99, false);
    EXPECT_EQ(m_Dialog.GetWindowRect().Size(), CSize(size.cx, size.cy - 40));
}

} // namespace
} // namespace utility
