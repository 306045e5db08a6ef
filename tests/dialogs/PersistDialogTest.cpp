#include "dialogs/PersistDialog.h"

#include "dialogs/PeersTest.h"
#include "dialogs/TestDialogs.h"
#include "platform/base/String.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

namespace utility
{
namespace
{

class CKeptDialog : public CPersistDialog
{
public:
    explicit CKeptDialog(CWnd* parent) : CPersistDialog(CTestDialogs::PARTS_DIALOG, parent)
    {
        SetSizeRegistryKey(u"Parts");
    }

    std::vector<std::string> m_Notes;
    int m_EndBeforeShown = 0;

    /// Lets the next showing answer, once it waits for messages.
    void WillPress(UINT button, const CString& typed = {})
    {
        GetMessageLoop().Post(
            [this, button, typed]
            {
                m_OwnerWasEnabled = GetOwner()->IsWindowEnabled();
                m_WasVisible = IsWindowVisible() && IsWindowEnabled();
                if (!typed.IsEmpty())
                    GetDlgItem(CTestDialogs::NAME_EDIT)->SetWindowText(typed);
                SendMessage(WM_COMMAND, button);
            });
    }
    bool m_OwnerWasEnabled = true;
    bool m_WasVisible = false;

protected:
    bool OnInitDialog() override
    {
        m_Notes.push_back("init");
        return CPersistDialog::OnInitDialog();
    }
    void OnDisplayWindow() override
    {
        m_Notes.push_back("display");
        if (m_EndBeforeShown != 0)
            EndDialog(m_EndBeforeShown);
    }
    void OnHideWindow() override { m_Notes.push_back("hide"); }
};

class PersistDialogTest : public CPeersTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Owner.CreateEx(0, u"Frame", u"", WS_CAPTION, {0, 0, 300, 200}, nullptr));
        m_Owner.ShowWindow(SW_SHOWNORMAL);
    }

    const CSettingsSandbox m_Settings;
    const CTestDialogs m_Templates;
    CWnd m_Owner;
};

INSTANTIATE_TEST_SUITE_P(Peers, PersistDialogTest, AllPeers(), NamePeers);

TEST_P(PersistDialogTest, ShownTwiceItKeepsItsContents)
{
    CKeptDialog dialog(&m_Owner);
    dialog.WillPress(IDOK, u"R17");
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(dialog.IsFirstTime());
    EXPECT_TRUE(dialog.m_WasVisible);
    const HWND window = dialog.GetSafeHwnd();
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(dialog.IsWindowVisible());

    dialog.WillPress(IDCANCEL);
    dialog.m_WasVisible = false;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_FALSE(dialog.IsFirstTime());
    EXPECT_TRUE(dialog.m_WasVisible);
    EXPECT_EQ(dialog.GetSafeHwnd(), window);
    EXPECT_EQ(dialog.GetDlgItem(CTestDialogs::NAME_EDIT)->GetWindowText(), u"R17");
    EXPECT_FALSE(dialog.IsWindowVisible());
    EXPECT_EQ(dialog.m_Notes, (std::vector<std::string>{"init", "hide", "display", "hide"}));
}

TEST_P(PersistDialogTest, ItsOwnerWaitsEachTime)
{
    CKeptDialog dialog(&m_Owner);
    for (int time = 0; time < 3; ++time)
    {
        SCOPED_TRACE(time);
        dialog.m_OwnerWasEnabled = true;
        dialog.WillPress(IDOK);
        dialog.DoModal();
        EXPECT_FALSE(dialog.m_OwnerWasEnabled);
        EXPECT_TRUE(m_Owner.IsWindowEnabled());
    }
}

TEST_P(PersistDialogTest, EndedBeforeItIsShownAgainItAnswersAtOnce)
{
    CKeptDialog dialog(&m_Owner);
    dialog.WillPress(IDOK);
    dialog.DoModal();
    dialog.m_EndBeforeShown = 42;

    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_TRUE(m_Owner.IsWindowEnabled());
}

TEST_P(PersistDialogTest, EndsWithItsOwnerAndIsMadeAnewOverAnother)
{
    CKeptDialog dialog(&m_Owner);
    dialog.WillPress(IDOK, u"R17");
    dialog.DoModal();
    m_Owner.DestroyWindow();
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
    EXPECT_TRUE(CAppRegistry(u"Parts\\Window").KeyExists()) << "its place is stored all the same";

    ASSERT_TRUE(m_Owner.CreateEx(0, u"Frame", u"", WS_CAPTION, {0, 0, 300, 200}, nullptr));
    m_Owner.ShowWindow(SW_SHOWNORMAL);
    dialog.WillPress(IDOK);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(dialog.IsFirstTime());
    EXPECT_EQ(dialog.GetDlgItem(CTestDialogs::NAME_EDIT)->GetWindowText(), u"");
}

TEST_P(PersistDialogTest, AnOwnerThatEndsWhileItIsShownEndsTheShowing)
{
    CKeptDialog dialog(&m_Owner);
    dialog.WillPress(IDOK);
    dialog.DoModal();
    GetMessageLoop().Post([this] { m_Owner.DestroyWindow(); });

    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
}

TEST_P(PersistDialogTest, DieEndsTheWindow)
{
    CKeptDialog dialog(&m_Owner);
    dialog.WillPress(IDOK);
    dialog.DoModal();
    EXPECT_FALSE(dialog.DestroyWindow());
    EXPECT_NE(dialog.GetSafeHwnd(), nullptr);

    dialog.Die();
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
    dialog.WillPress(IDOK);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(dialog.IsFirstTime());
}

} // namespace
} // namespace utility
