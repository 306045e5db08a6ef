#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/Dialog.h"
#include "platform/ui/DialogItems.h"
#include "platform/ui/FindDialog.h"
#include "platform/ui/ResourceTables.h"
#include "platform/ui/controls/Edit.h"

#include "support/ui/Widgets.h"

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace utility
{
namespace
{

class CNotingDialog : public CDialog
{
public:
    std::vector<UINT> m_Commands; // of buttons
    std::function<void()> m_AtCommand;

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        const UINT id = LOWORD(wParam);
        if (HIWORD(wParam) != 0 || id == NAME_EDIT || id == COUNT_EDIT)
            return CDialog::OnCommand(wParam, lParam);
        m_Commands.push_back(id);
        if (m_AtCommand)
            m_AtCommand();
        return true;
    }
};

/// A field that takes digits alone.
class CDigitEdit : public CEdit
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_CHAR && (wParam < u'0' || wParam > u'9'))
            return 0;
        return CEdit::WindowProc(message, wParam, lParam);
    }
};

/// A dialog with real controls, by the keys and clicks of a user.
class DialogInputTest : public testing::Test
{
protected:
    DialogInputTest()
    {
        CResourceTables::AddDialogs(DIALOGS);
        EXPECT_TRUE(m_Dialog.Create(DIALOG_ID));
        m_Dialog.ShowWindow(SW_SHOW);
        m_Dialog.SetForegroundWindow();
        Settle();
    }
    ~DialogInputTest() override
    {
        m_Dialog.DestroyWindow();
        CResourceTables::RemoveDialogs(DIALOGS.View());
    }

    int GetFocusId() const
    {
        const CWnd* focused = CWnd::GetFocus();
        return focused ? focused->GetDlgCtrlID() : 0;
    }
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void Click(int id) { QTest::mouseClick(&FindWidget(*m_Dialog.GetDlgItem(id)), Qt::LeftButton); }

    CNotingDialog m_Dialog;
};

TEST_F(DialogInputTest, TabWalksInTheOrderOfTheTemplateAndBack)
{
    EXPECT_EQ(GetFocusId(), NAME_EDIT);
    for (const int next : {COUNT_EDIT, FIND_BUTTON, FIRST_CHOICE})
    {
        Press(Qt::Key_Tab);
        EXPECT_EQ(GetFocusId(), next);
    }
    for (const int next : {FIND_BUTTON, COUNT_EDIT, NAME_EDIT})
    {
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(GetFocusId(), next);
    }
}

TEST_F(DialogInputTest, LettersGoIntoAFieldAndAreMnemonicsElsewhere)
{
    Type("sense");
    EXPECT_EQ(GetDlgItemText(m_Dialog, NAME_EDIT), u"sense");
    EXPECT_TRUE(m_Dialog.m_Commands.empty());

    Press(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(GetFocusId(), FIND_BUTTON);
    Type("e");
    EXPECT_EQ(GetFocusId(), SECOND_CHOICE);
    EXPECT_EQ(IsDlgButtonChecked(m_Dialog, SECOND_CHOICE), 1U);
    Press(Qt::Key_N, Qt::AltModifier); // a label's letter leads to the field behind it
    EXPECT_EQ(GetFocusId(), NAME_EDIT);
    EXPECT_EQ(m_Dialog.m_Commands, (std::vector<UINT>{FIND_BUTTON, SECOND_CHOICE}));
}

TEST_F(DialogInputTest, EnterPressesTheFocusedButtonElseTheDefaultOne)
{
    Press(Qt::Key_Return);
    m_Dialog.GetDlgItem(FIND_BUTTON)->SetFocus();
    Press(Qt::Key_Return);
    Press(Qt::Key_Space);
    Press(Qt::Key_Escape);
    EXPECT_EQ(m_Dialog.m_Commands, (std::vector<UINT>{IDOK, FIND_BUTTON, FIND_BUTTON, IDCANCEL}));
}

TEST_F(DialogInputTest, ArrowsChooseWithinAGroup)
{
    m_Dialog.GetDlgItem(FIRST_CHOICE)->SetFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(IsDlgButtonChecked(m_Dialog, SECOND_CHOICE), 1U);
    Press(Qt::Key_Right);
    EXPECT_EQ(IsDlgButtonChecked(m_Dialog, FIRST_CHOICE), 1U);
    EXPECT_EQ(IsDlgButtonChecked(m_Dialog, SECOND_CHOICE), 0U);
    EXPECT_EQ(GetFocusId(), FIRST_CHOICE);
}

TEST_F(DialogInputTest, AHandlerThatAnswersKeepsTheCharacterFromTheField)
{
    CDigitEdit count;
    ASSERT_TRUE(count.SubclassDlgItem(COUNT_EDIT, &m_Dialog));
    count.SetFocus();
    Type("1a2-3");
    EXPECT_EQ(count.GetWindowText(), u"123");
    Press(Qt::Key_Backspace); // a character too, and no digit
    EXPECT_EQ(count.GetWindowText(), u"123");
    Press(Qt::Key_Left);
    Press(Qt::Key_Delete);
    EXPECT_EQ(count.GetWindowText(), u"12");
}

TEST_F(DialogInputTest, AClickMayDestroyTheDialogAroundTheButton)
{
    m_Dialog.m_AtCommand = [this]
    {
        m_Dialog.DestroyWindow();
    };
    Click(FIND_BUTTON);
    EXPECT_EQ(m_Dialog.m_Commands, (std::vector<UINT>{FIND_BUTTON}));
    EXPECT_EQ(m_Dialog.GetSafeHwnd(), nullptr);
}

TEST_F(DialogInputTest, WhatAHandlerThrowsPassesOutOfTheLoop)
{
    m_Dialog.m_AtCommand = []
    {
        throw 17;
    };
    GetMessageLoop().Post([this] { Click(FIND_BUTTON); });
    EXPECT_THROW(GetMessageLoop().RunUntil([] { return false; }, 60000), int);
}

TEST_F(DialogInputTest, TheFramesCloseButtonCancels)
{
    QCloseEvent close;
    QCoreApplication::sendEvent(&FindWidget(m_Dialog), &close);
    EXPECT_EQ(m_Dialog.m_Commands, (std::vector<UINT>{IDCANCEL}));
    EXPECT_TRUE(m_Dialog.IsWindowVisible()); // its handler kept it
}

TEST_F(DialogInputTest, ADisabledWindowGetsNoInputAndKeepsItsLooks)
{
    m_Dialog.EnableWindow(false);
    Click(FIND_BUTTON);
    QTest::keyClick(&FindWidget(*m_Dialog.GetDlgItem(NAME_EDIT)), Qt::Key_A);
    EXPECT_TRUE(m_Dialog.m_Commands.empty());
    EXPECT_EQ(GetDlgItemText(m_Dialog, NAME_EDIT), u"");
    EXPECT_TRUE(FindWidget(*m_Dialog.GetDlgItem(FIND_BUTTON)).isEnabled());

    m_Dialog.EnableWindow(true);
    Click(FIND_BUTTON);
    EXPECT_EQ(m_Dialog.m_Commands, (std::vector<UINT>{FIND_BUTTON}));
}

TEST_F(DialogInputTest, ScreenReadersAreToldRolesAndNames)
{
    const struct
    {
        int m_Id;
        QAccessible::Role m_Role;
        const char* m_Name;
    } rows[] = {
        {NAME_EDIT, QAccessible::EditableText, "Name"}, // the label before it
        {COUNT_EDIT, QAccessible::EditableText, "Count"},
        {FIND_BUTTON, QAccessible::PushButton, "Search"},
        {FIRST_CHOICE, QAccessible::RadioButton, "First"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        const QAccessibleInterface* told =
            QAccessible::queryAccessibleInterface(&FindWidget(*m_Dialog.GetDlgItem(row.m_Id)));
        ASSERT_NE(told, nullptr);
        EXPECT_EQ(told->role(), row.m_Role);
        EXPECT_EQ(told->text(QAccessible::Name).toStdString(), row.m_Name);
    }
    const QAccessibleInterface* dialog =
        QAccessible::queryAccessibleInterface(&FindWidget(m_Dialog));
    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_EQ(dialog->text(QAccessible::Name), "Find a part");
}

} // namespace
} // namespace utility
