#include "PartsWindow.h"

#include "frame/Application.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"

#include "Ids.h"
#include "PartDialog.h"
#include "Resources.h"
#include "SettingsDialog.h"
#include "support/ScriptedUser.h"
#include "support/SettingsSandbox.h"
#include "support/TemporaryFolder.h"
#include "support/ui/Widgets.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

using namespace utility;

namespace partsdesk
{

namespace
{

void AddResourcesOnce()
{
    [[maybe_unused]] static const bool isAdded = (AddResources(), true);
}

/// The desk over a table of four parts, with idle work done.
class PartsWindowTest : public testing::Test
{
protected:
    PartsWindowTest()
    {
        AddResourcesOnce();
        CDBADatabase database;
        const CString file = m_Folder.PathOf(u"stock.db");
        EXPECT_TRUE(
            database.Open(nullptr, FALSE, FALSE, u"DRIVER=SQLite3;Database=" + NativePath(file)));
        database.ExecuteSQL(u"CREATE TABLE [Parts] ([Name] VARCHAR(20), [Kind] VARCHAR(20), "
                            u"[Value] VARCHAR(20), [Pins] INTEGER)");
        database.ExecuteSQL(u"INSERT INTO [Parts] VALUES ('R1', 'Resistor', '4k7', 2), "
                            u"('R2', 'Resistor', '10k', 2), ('C1', 'Capacitor', '100n', 2), "
                            u"('U1', 'Amplifier', 'LM358', 8)");
        database.Close();
        m_Window = std::make_unique<CPartsWindow>(file);
        EXPECT_TRUE(m_Window->Open());
        DoIdleWork();
    }
    ~PartsWindowTest() override { m_Window->DestroyWindow(); }

    static void DoIdleWork()
    {
        Settle();
        for (LONG count = 0; CIdleHandler::OnIdle(count) != 0; ++count)
        {
        }
    }

    template <typename TControl>
    TControl& Control(UINT id)
    {
        return static_cast<TControl&>(*m_Window->GetDlgItem(static_cast<int>(id)));
    }

    void Type(UINT id, const char* keys)
    {
        QTest::keyClicks(&FindWidget(*m_Window->GetDlgItem(static_cast<int>(id))), keys);
        DoIdleWork();
    }

    /// The names of the parts in the list.
    CString Names()
    {
        CString names;
        const CListBox& list = Control<CListBox>(IDC_PARTS);
        for (int row = 0; row < list.GetCount(); ++row)
        {
            CString line;
            list.GetText(row, line);
            names += line.SpanExcluding(u"\t") + u" ";
        }
        return names;
    }

    CString State() { return m_Window->GetDlgItem(IDC_STATE)->GetWindowText(); }

    CSettingsSandbox m_Settings;
    CScriptedUser m_User;
    CTemporaryFolder m_Folder;
    std::unique_ptr<CPartsWindow> m_Window;
};

} // namespace

TEST_F(PartsWindowTest, AllPartsShowOnceIdleWorkIsDone)
{
    EXPECT_EQ(Names(), u"R1 R2 C1 U1 ");
    EXPECT_TRUE(State().Find(u"4 parts in Parts") == 0) << testing::PrintToString(State());
}

TEST_F(PartsWindowTest, TheFilterWorksWhileItIsTyped)
{
    Type(IDC_FILTER, "Value=4k..20k");
    EXPECT_EQ(Names(), u"R1 R2 ");

    m_Window->SendMessage(WM_COMMAND, ID_CLEAR_FILTER);
    DoIdleWork();
    EXPECT_EQ(Names(), u"R1 R2 C1 U1 ");
    Type(IDC_FILTER, "Size=1");
    EXPECT_EQ(State(), u"There is no column \"Size\"");
}

TEST_F(PartsWindowTest, KeysReachTheirCommandsWhereverTheFocusIs)
{
    Type(IDC_FILTER, "R1");
    Control<CListBox>(IDC_PARTS).SetFocus();

    QTest::keyClick(&FindWidget(*m_Window->GetDlgItem(IDC_PARTS)), Qt::Key_E, Qt::ControlModifier);
    DoIdleWork();

    EXPECT_EQ(Names(), u"R1 R2 C1 U1 ");
    EXPECT_EQ(CWnd::GetFocus(), m_Window->GetDlgItem(IDC_FILTER));
}

TEST_F(PartsWindowTest, AFileThatIsGoneIsToldOnceAndLeavesAnEmptyDesk)
{
    const auto window = std::make_unique<CPartsWindow>(m_Folder.PathOf(u"absent.db"));
    ASSERT_TRUE(window->Open());

    EXPECT_EQ(m_User.GetBoxes().size(), 1U);
    EXPECT_EQ(window->GetDlgItem(IDC_STATE)->GetWindowText(),
              u"No database is open. Give one when starting: partsdesk parts.db");
    window->DestroyWindow();
}

TEST_F(PartsWindowTest, APartShowsAllItsValuesAndItsBody)
{
    CPartsRows rows;
    ASSERT_TRUE(rows.Open(m_Folder.PathOf(u"stock.db")));
    while (rows.FetchAhead(1000))
    {
    }
    CPartDialog dialog(rows.GetPart(3), 2.54, m_Window.get());
    ASSERT_TRUE(dialog.Create(DIALOG_PART, m_Window.get()));

    EXPECT_EQ(dialog.GetDlgItem(IDC_BODY)->GetWindowText(),
              u"As a body with two rows: 10.16 mm (400 thou)");
    dialog.SendMessage(WM_COMMAND, ID_COPY_PART);
    CString copied;
    ASSERT_TRUE(m_User.GetClipboardText(copied));
    EXPECT_EQ(copied, u"Name\tU1\r\nKind\tAmplifier\r\nValue\tLM358\r\nPins\t8\r\n");
    dialog.DestroyWindow();
}

TEST_F(PartsWindowTest, SettingsThatAreNoneKeepTheDialogOpen)
{
    CSettingsDialog dialog(CDeskSettings(), m_Window.get());
    ASSERT_TRUE(dialog.Create(DIALOG_SETTINGS, m_Window.get()));
    dialog.GetDlgItem(IDC_PITCH)->SetWindowText(u"wide");
    EXPECT_EQ(dialog.GetDlgItem(IDC_PITCH_READ)->GetWindowText(), u"This is no length above 0");

    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(m_User.GetBoxes().size(), 1U);
    dialog.GetDlgItem(IDC_PITCH)->SetWindowText(u"100 thou");
    dialog.GetDlgItem(IDC_COLUMNS)->SetWindowText(u"2.5");
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(m_User.GetBoxes().size(), 2U);
    dialog.GetDlgItem(IDC_COLUMNS)->SetWindowText(u"5");
    dialog.SendMessage(WM_COMMAND, IDOK);

    EXPECT_EQ(m_User.GetBoxes().size(), 2U);
    EXPECT_EQ(dialog.GetSettings().m_Columns, 5);
    EXPECT_EQ(dialog.GetSettings().m_Pitch, u"100 thou");
    dialog.DestroyWindow();
}

} // namespace partsdesk
