#include "platform/ui/Dialog.h"

#include "platform/base/Encoding.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowPeer.h"
#include "platform/ui/DataExchange.h"
#include "platform/ui/DialogKeys.h"
#include "platform/ui/FindDialog.h"
#include "platform/ui/ResourceTables.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

/// A dialog that notes its commands and does as told.
class CFindDialog : public CDialog
{
public:
    explicit CFindDialog(UINT id = DIALOG_ID, CWnd* parent = nullptr) : CDialog(id, parent) {}

    std::vector<UINT> m_Commands;
    std::function<void()> m_AtStart;
    std::function<void()> m_AtCommand;
    CString m_Name = u"resistor";
    int m_Count = 7;

protected:
    bool OnInitDialog() override
    {
        CDialog::OnInitDialog();
        if (m_AtStart)
            m_AtStart();
        return true;
    }
    bool OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        if (HIWORD(wParam) == 0) // a button or key, not what a field tells
        {
            m_Commands.push_back(LOWORD(wParam));
            if (m_AtCommand)
                m_AtCommand();
        }
        return CDialog::OnCommand(wParam, lParam);
    }
    void DoDataExchange(CDataExchange* exchange) override
    {
        CDialog::DoDataExchange(exchange);
        DDX_Text(exchange, NAME_EDIT, m_Name);
        DDX_Text(exchange, COUNT_EDIT, m_Count);
    }
};

/// Null: the real windows of this program.
using FactoryMaker = std::unique_ptr<IWindowPeerFactory> (*)();

std::unique_ptr<IWindowPeerFactory> KeepReal()
{
    return nullptr;
}

/// What every dialog does, over real windows and over plain values.
class DialogTest : public testing::TestWithParam<FactoryMaker>
{
protected:
    DialogTest()
    {
        CResourceTables::AddDialogs(DIALOGS);
        if (m_Factory)
            m_Real = SetWindowPeerFactory(m_Factory.get());
    }
    ~DialogTest() override
    {
        if (m_Factory)
            SetWindowPeerFactory(m_Real);
        CResourceTables::RemoveDialogs(DIALOGS.View());
    }

    /// Runs the dialog, with something done as soon as its loop handles messages.
    static int RunWith(CDialog& dialog, std::function<void()> whileShown)
    {
        GetMessageLoop().Post(std::move(whileShown));
        return dialog.DoModal();
    }

    std::unique_ptr<IWindowPeerFactory> m_Factory = GetParam()();
    IWindowPeerFactory* m_Real = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Headless, DialogTest, testing::Values(&MakeHeadlessWindowPeerFactory));
INSTANTIATE_TEST_SUITE_P(Windows, DialogTest, testing::Values(&KeepReal));

TEST_P(DialogTest, RunsUntilItIsEndedAndThenHasNoWindow)
{
    CFindDialog dialog;
    bool wasShown = false;
    const auto whileShown = [&]
    {
        wasShown = dialog.IsWindowVisible();
        dialog.EndDialog(42);
        EXPECT_FALSE(dialog.IsWindowVisible());
    };

    EXPECT_EQ(RunWith(dialog, whileShown), 42);
    EXPECT_TRUE(wasShown);
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
    EXPECT_EQ(RunWith(dialog, [&] { dialog.EndDialog(43); }), 43); // once more
}

TEST_P(DialogTest, IsMadeOfItsTemplate)
{
    CFindDialog dialog;
    ASSERT_TRUE(dialog.Create(DIALOG_ID));

    EXPECT_EQ(dialog.GetClassName(), u"#32770");
    EXPECT_EQ(dialog.GetWindowText(), u"Find a part");
    CRect client(0, 0, 220, 100);
    dialog.MapDialogRect(client);
    EXPECT_EQ(dialog.GetClientRect(), client);
    EXPECT_EQ(dialog.GetChildren().size(), 8U);
    const CWnd* count = dialog.GetDlgItem(COUNT_EDIT);
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count->GetClassName().CompareNoCase(u"EDIT"), 0);
    EXPECT_EQ(count->GetAccessibleName(), u"Count");
    CRect place(50, 27, 210, 39);
    dialog.MapDialogRect(place);
    CRect onScreen = count->GetWindowRect();
    dialog.ScreenToClient(onScreen);
    EXPECT_EQ(onScreen, place);
    EXPECT_FALSE(dialog.IsWindowVisible());
}

TEST_P(DialogTest, WithoutATemplateThereIsNoDialog)
{
    CFindDialog dialog(11999);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_FALSE(dialog.Create(11999));
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
}

TEST_P(DialogTest, EndsBeforeItIsShownIfItsStartSaysSo)
{
    CFindDialog dialog;
    dialog.m_AtStart = [&]
    {
        dialog.EndDialog(5);
    };

    EXPECT_EQ(dialog.DoModal(), 5);
}

TEST_P(DialogTest, ItsOwnerIsDisabledWhileItRuns)
{
    CWnd frame;
    ASSERT_TRUE(frame.CreateEx(0, u"Frame", u"Host", WS_VISIBLE, CRect(0, 0, 300, 200), nullptr));
    CWnd view;
    ASSERT_TRUE(view.Create(u"View", u"", WS_CHILD | WS_VISIBLE, &frame));
    CFindDialog dialog(DIALOG_ID, &view);
    bool wasEnabled = true;
    const auto whileShown = [&]
    {
        wasEnabled = frame.IsWindowEnabled();
        EXPECT_EQ(dialog.GetOwner(), &frame);
        dialog.EndDialog(IDOK);
    };

    EXPECT_EQ(RunWith(dialog, whileShown), IDOK);
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(frame.IsWindowEnabled());
}

TEST_P(DialogTest, AnswersMinusOneWhenItsWindowIsDestroyedInItsOwnMessage)
{
    CFindDialog dialog;
    dialog.m_AtCommand = [&]
    {
        dialog.DestroyWindow();
    };

    EXPECT_EQ(RunWith(dialog, [&] { dialog.SendMessage(WM_COMMAND, FIND_BUTTON); }), -1);
    EXPECT_EQ(dialog.m_Commands, std::vector<UINT>{FIND_BUTTON});
}

TEST_P(DialogTest, ADialogOverADialogEndsAloneAndInAnyOrder)
{
    CFindDialog outer;
    CFindDialog inner(DIALOG_ID, &outer);
    int innerResult = 0;
    const auto whileInnerIsShown = [&]
    {
        outer.EndDialog(1); // first, and its loop waits for the inner one
        inner.EndDialog(2);
    };
    const auto whileShown = [&]
    {
        innerResult = RunWith(inner, whileInnerIsShown);
    };

    EXPECT_EQ(RunWith(outer, whileShown), 1);
    EXPECT_EQ(innerResult, 2);
}

TEST_P(DialogTest, CloseCancelsUnlessCancelIsDisabled)
{
    CFindDialog dialog;
    const auto whileShown = [&]
    {
        dialog.GetDlgItem(IDCANCEL)->EnableWindow(false);
        dialog.SendMessage(WM_SYSCOMMAND, SC_CLOSE);
        EXPECT_TRUE(dialog.m_Commands.empty());
        dialog.GetDlgItem(IDCANCEL)->EnableWindow(true);
        dialog.SendMessage(WM_SYSCOMMAND, SC_CLOSE);
    };

    EXPECT_EQ(RunWith(dialog, whileShown), IDCANCEL);
}

TEST_P(DialogTest, MovesMembersIntoControlsAndBack)
{
    CFindDialog dialog;
    const auto whileShown = [&]
    {
        EXPECT_EQ(dialog.GetDlgItem(NAME_EDIT)->GetWindowText(), u"resistor");
        EXPECT_EQ(dialog.GetDlgItem(COUNT_EDIT)->GetWindowText(), u"7");
        dialog.GetDlgItem(NAME_EDIT)->SetWindowText(u"diode");
        dialog.GetDlgItem(COUNT_EDIT)->SetWindowText(u" -12 ");
        dialog.SendMessage(WM_COMMAND, IDOK);
    };

    EXPECT_EQ(RunWith(dialog, whileShown), IDOK);
    EXPECT_EQ(dialog.m_Name, u"diode");
    EXPECT_EQ(dialog.m_Count, -12);
}

TEST_P(DialogTest, StaysWhenAControlHoldsNoNumber)
{
    for (const char16_t* text : {u"", u"12 pieces", u"99999999999", u"1.5"})
    {
        SCOPED_TRACE(ToUtf8(CString(text).View()));
        CFindDialog dialog;
        const auto whileShown = [&]
        {
            dialog.GetDlgItem(COUNT_EDIT)->SetWindowText(text);
            dialog.SendMessage(WM_COMMAND, IDOK);
            EXPECT_TRUE(dialog.IsWindowVisible());
            dialog.SendMessage(WM_COMMAND, IDCANCEL);
        };

        EXPECT_EQ(RunWith(dialog, whileShown), IDCANCEL);
        EXPECT_EQ(dialog.m_Count, 7);
    }
}

TEST_P(DialogTest, EnterAndEscapeComeAsTheirButtons)
{
    CFindDialog dialog;
    ASSERT_TRUE(dialog.Create(DIALOG_ID));
    dialog.ShowWindow(SW_SHOW);

    EXPECT_TRUE(dialog.PreTranslateMessage(WM_KEYDOWN, VK_RETURN, 0));
    dialog.SetDefID(FIND_BUTTON);
    EXPECT_TRUE(dialog.PreTranslateMessage(WM_KEYDOWN, VK_RETURN, 0));
    EXPECT_TRUE(dialog.PreTranslateMessage(WM_KEYDOWN, VK_ESCAPE, 0));
    EXPECT_FALSE(dialog.PreTranslateMessage(WM_KEYDOWN, u'A', 0));
    EXPECT_EQ(dialog.m_Commands, (std::vector<UINT>{IDOK, FIND_BUTTON, IDCANCEL}));
}

TEST_P(DialogTest, TabStopsFollowTheTemplateAndGoRound)
{
    CFindDialog dialog;
    ASSERT_TRUE(dialog.Create(DIALOG_ID));
    dialog.ShowWindow(SW_SHOW);
    dialog.GetDlgItem(COUNT_EDIT)->EnableWindow(false);
    dialog.GetDlgItem(IDCANCEL)->ShowWindow(SW_HIDE);

    const CWnd* name = dialog.GetDlgItem(NAME_EDIT);
    const CWnd* find = dialog.GetDlgItem(FIND_BUTTON);
    EXPECT_EQ(GetNextDlgTabItem(dialog, nullptr, false), name);
    EXPECT_EQ(GetNextDlgTabItem(dialog, name, false), find);
    EXPECT_EQ(GetNextDlgTabItem(dialog, find, true), name);
    EXPECT_EQ(GetNextDlgTabItem(dialog, name, true), dialog.GetDlgItem(IDOK));
    EXPECT_EQ(GetNextDlgTabItem(dialog, dialog.GetDlgItem(IDOK), false), name);
}

TEST_P(DialogTest, GroupsGoRoundWithinTheirBounds)
{
    CFindDialog dialog;
    ASSERT_TRUE(dialog.Create(DIALOG_ID));
    dialog.ShowWindow(SW_SHOW);

    CWnd* first = dialog.GetDlgItem(FIRST_CHOICE);
    CWnd* second = dialog.GetDlgItem(SECOND_CHOICE);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, first, false), second);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, second, false), first);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, first, true), second);
}

TEST_P(DialogTest, TakesTenThousandControls)
{
    constexpr int CONTROLS = 10000;
    CFindDialog dialog;
    ASSERT_TRUE(dialog.Create(DIALOG_ID));
    std::vector<std::unique_ptr<CWnd>> labels;
    for (int i = 0; i < CONTROLS; ++i)
    {
        labels.push_back(std::make_unique<CWnd>());
        ASSERT_TRUE(labels.back()->CreateEx(0, u"Label", u"", WS_CHILD | WS_VISIBLE,
                                            CRect(0, i, 10, i + 1), &dialog, 20000U));
    }
    dialog.ShowWindow(SW_SHOW);

    EXPECT_EQ(dialog.GetWindow(GW_CHILD)->GetWindow(GW_HWNDLAST), labels.back().get());
    EXPECT_EQ(GetNextDlgTabItem(dialog, labels.back().get(), false), dialog.GetDlgItem(NAME_EDIT));
    dialog.DestroyWindow();
    EXPECT_EQ(labels.front()->GetSafeHwnd(), nullptr);
}

} // namespace
} // namespace utility
