#include "dialogs/MacroItem.h"

#include "dialogs/BaseDialog.h"
#include "dialogs/TestDialogs.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/ComboBox.h"
#include "platform/ui/controls/Edit.h"
#include "resources/MessageNames.h"

#include "support/ui/Widgets.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include <map>

namespace utility
{
namespace
{

using Values = std::map<UINT, CString>; // by control

// Remembers, as a host's recorder does, what its controls hold after each of the user's changes.
class CRecordedDialog : public CBaseDialog
{
public:
    CRecordedDialog() : CBaseDialog(CTestDialogs::PARTS_DIALOG, nullptr) {}

    Values m_Record;
    std::vector<UINT> m_Closed; // by which button

    CString GetValue(UINT id)
    {
        CString value = u"none";
        SendMessage(MSG_MACRO_ITEM_GET_VALUE, id, reinterpret_cast<LPARAM>(&value));
        return value;
    }
    bool Replay(UINT id, const CString& value)
    {
        return SendMessage(MSG_MACRO_ITEM_REPLAY, id, reinterpret_cast<LPARAM>(&value)) != 0;
    }

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        const UINT id = LOWORD(wParam);
        const UINT code = HIWORD(wParam);
        const bool isChange =
            id == CTestDialogs::NAME_EDIT ? code == EN_CHANGE : code == BN_CLICKED;
        if (isChange && id != CTestDialogs::FIRST_LIST)
            m_Record[id] = GetValue(id);
        if (id == IDOK || id == IDCANCEL)
            m_Closed.push_back(id);
        return CBaseDialog::OnCommand(wParam, lParam);
    }
};

class MacroItemTest : public testing::Test
{
protected:
    const CTestDialogs m_Templates;
};

TEST_F(MacroItemTest, ADialogThatWasRecordedIsPlayedBack)
{
    CRecordedDialog first;
    ASSERT_TRUE(first.Create(CTestDialogs::PARTS_DIALOG));
    first.ShowWindow(SW_SHOWNORMAL);
    QTest::keyClicks(&FindWidget(*first.GetDlgItem(CTestDialogs::NAME_EDIT)), "R17");
    QTest::keyClick(&FindWidget(*first.GetDlgItem(CTestDialogs::ALL_CHECK)), Qt::Key_Space);
    first.GetDlgItem(IDOK)->SendMessage(BM_CLICK);
    const Values record = first.m_Record;
    EXPECT_EQ(
        record,
        (Values{{CTestDialogs::NAME_EDIT, u"R17"}, {CTestDialogs::ALL_CHECK, u"1"}, {IDOK, u""}}));

    CRecordedDialog again;
    ASSERT_TRUE(again.Create(CTestDialogs::PARTS_DIALOG));
    for (const UINT id : {CTestDialogs::NAME_EDIT, CTestDialogs::ALL_CHECK, UINT{IDOK}})
        EXPECT_TRUE(again.Replay(id, record.at(id)));

    EXPECT_EQ(again.GetValue(CTestDialogs::NAME_EDIT), u"R17");
    EXPECT_EQ(again.GetValue(CTestDialogs::ALL_CHECK), u"1");
    EXPECT_EQ(again.m_Closed, (std::vector<UINT>{IDOK}));
    EXPECT_EQ(again.m_Record, record) << "the parent hears of it as of the user's own";
}

TEST_F(MacroItemTest, WhatTheUserCouldNotDoIsRefused)
{
    CRecordedDialog dialog;
    ASSERT_TRUE(dialog.Create(CTestDialogs::PARTS_DIALOG));

    EXPECT_FALSE(dialog.Replay(99, u"absent"));
    EXPECT_EQ(dialog.GetValue(99), u"none");
    for (const char16_t* value : {u"", u"2", u"-1", u"11", u"x"})
        EXPECT_FALSE(dialog.Replay(CTestDialogs::ALL_CHECK, value)) << "two states alone";
    EXPECT_EQ(dialog.GetValue(CTestDialogs::ALL_CHECK), u"0");

    CWnd& edit = *dialog.GetDlgItem(CTestDialogs::NAME_EDIT);
    edit.EnableWindow(false);
    EXPECT_FALSE(dialog.Replay(CTestDialogs::NAME_EDIT, u"R17"));
    edit.EnableWindow(true);
    edit.SendMessage(EM_SETREADONLY, 1);
    EXPECT_FALSE(dialog.Replay(CTestDialogs::NAME_EDIT, u"R17"));
    EXPECT_EQ(dialog.GetValue(CTestDialogs::NAME_EDIT), u"");
}

TEST_F(MacroItemTest, ACombosTextIsChosenAmongItsRowsOrWrittenWhereItMayBe)
{
    CWnd parent;
    CComboBox closed;
    CComboBox open;
    ASSERT_TRUE(parent.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 300, 200}, nullptr));
    ASSERT_TRUE(
        closed.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, {0, 0, 90, 90}, &parent, 1));
    ASSERT_TRUE(open.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, {0, 30, 90, 90}, &parent, 2));
    for (CComboBox* combo : {&closed, &open})
    {
        combo->AddString(u"inch");
        combo->AddString(u"mm");
        EXPECT_TRUE(ReplayMacroItem(*combo, u"mm"));
        EXPECT_EQ(combo->GetCurSel(), 1);
    }
    EXPECT_FALSE(ReplayMacroItem(closed, u"furlong"));
    EXPECT_TRUE(ReplayMacroItem(open, u"furlong"));

    CString value;
    EXPECT_TRUE(GetMacroItemValue(closed, value));
    EXPECT_EQ(value, u"mm");
    EXPECT_TRUE(GetMacroItemValue(open, value));
    EXPECT_EQ(value, u"furlong");
}

} // namespace
} // namespace utility
