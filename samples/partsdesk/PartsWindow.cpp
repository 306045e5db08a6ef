#include "PartsWindow.h"

#include "frame/AppError.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/DataExchange.h"
#include "platform/ui/DialogItems.h"
#include "platform/ui/InputState.h"
#include "platform/ui/controls/ComboBoxMessages.h"
#include "platform/ui/controls/ListBoxMessages.h"
#include "platform/ui/controls/Menu.h"
#include "text/Clipboard.h"

#include "AboutDialog.h"
#include "GalleryDialog.h"
#include "Ids.h"
#include "LogDialog.h"
#include "PartDialog.h"
#include "SettingsDialog.h"

#include <algorithm>

using namespace utility;

namespace partsdesk
{

namespace
{

// In quarters of a letter: the first column names the part
constexpr int FIRST_COLUMN = 124;
constexpr int COLUMN_WIDTH = 60;
constexpr int LINES_OF_A_STEP = 400; // what the list takes at once without delay

constexpr WPARAM KEY_F4 = VK_F1 + 3;
constexpr WPARAM KEY_F5 = VK_F1 + 4;

struct CKey
{
    WPARAM m_Key;
    bool m_IsWithControl;
    UINT m_Command;
};

constexpr CKey KEYS[] = {
    {VK_F1, false, ID_ABOUT},      {KEY_F5, false, ID_READ_AGAIN}, {u'F', true, ID_GO_TO_FILTER},
    {u'L', true, ID_LOG},          {u'G', true, ID_GALLERY},       {KEY_F4, false, ID_MENU},
    {u'E', true, ID_CLEAR_FILTER},
};

struct CMenuRow
{
    UINT m_Command; // 0: a line
    const char16_t* m_Text;
};

constexpr CMenuRow MENU[] = {
    {ID_SHOW_PART, u"&Show part\tEnter"},
    {ID_COPY_LINE, u"&Copy line"},
    {0, nullptr},
    {ID_GO_TO_FILTER, u"&Filter\tCtrl+F"},
    {ID_CLEAR_FILTER, u"C&lear filter\tCtrl+E"},
    {ID_READ_AGAIN, u"&Read again\tF5"},
    {0, nullptr},
    {ID_SETTINGS, u"S&ettings..."},
    {ID_LOG, u"Lo&g...\tCtrl+L"},
    {ID_GALLERY, u"G&allery of controls...\tCtrl+G"},
    {ID_ABOUT, u"A&bout...\tF1"},
};

} // namespace

CPartsWindow::CPartsWindow(const CString& database) : CResizeDialog(DIALOG_PARTS, nullptr)
{
    SetSizeRegistryKey(u"Desk");
    m_Settings.Load();
    if (!database.IsEmpty())
        m_Settings.m_Database = database;
}

bool CPartsWindow::Open()
{
    if (!Create(DIALOG_PARTS))
        return false;
    ShowWindow(SW_SHOW);
    return true;
}

const CMessageMap* CPartsWindow::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        CommandRow<&CPartsWindow::OnShowPart>(ID_SHOW_PART),
        CommandRow<&CPartsWindow::OnShowPart>(IDC_PARTS, LBN_DBLCLK),
        CommandRow<&CPartsWindow::OnCopyLine>(ID_COPY_LINE),
        CommandRow<&CPartsWindow::OnGoToFilter>(ID_GO_TO_FILTER),
        CommandRow<&CPartsWindow::OnClearFilter>(ID_CLEAR_FILTER),
        CommandRow<&CPartsWindow::OnReadAgain>(ID_READ_AGAIN),
        CommandRow<&CPartsWindow::OnSettings>(ID_SETTINGS),
        CommandRow<&CPartsWindow::OnLog>(ID_LOG),
        CommandRow<&CPartsWindow::OnGallery>(ID_GALLERY),
        CommandRow<&CPartsWindow::OnAbout>(ID_ABOUT),
        CommandRow<&CPartsWindow::OnMenu>(ID_MENU),
        CommandRow<&CPartsWindow::OnTableChosen>(IDC_TABLES, CBN_SELCHANGE),
        CommandRow<&CPartsWindow::OnFilterChange>(IDC_FILTER, EN_CHANGE),
        MessageRow<&CPartsWindow::OnContextMenu>(WM_CONTEXTMENU),
    };
    static const CMessageMap MAP{CResizeDialog::GetMessageMap(), ROWS};
    return &MAP;
}

void CPartsWindow::DoDataExchange(CDataExchange* exchange)
{
    CResizeDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_PARTS, m_List);
    DDX_Control(exchange, IDC_TABLES, m_Tables);
    DDX_Control(exchange, IDC_FILTER, m_Filter);
}

bool CPartsWindow::OnInitDialog()
{
    CResizeDialog::OnInitDialog();
    std::vector<int> stops;
    for (int column = 0; column < CDeskSettings::MOST_COLUMNS; ++column)
        stops.push_back(FIRST_COLUMN + column * COLUMN_WIDTH);
    m_List.SetTabStops(stops);
    if (!m_Settings.m_Database.IsEmpty())
        OpenDatabase(m_Settings.m_Database);
    TellState();
    m_Filter.SetFocus();
    return false; // the focus is set
}

void CPartsWindow::OnCancel()
{
    m_Settings.m_Database = m_Rows.GetFile();
    m_Settings.Save();
    DestroyWindow();
    GetMessageLoop().Quit(0);
}

bool CPartsWindow::PreTranslateMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool isWithControl = GetKeyState(VK_CONTROL) < 0;
    const auto isPressed = [&](const CKey& key)
    {
        return key.m_Key == wParam && key.m_IsWithControl == isWithControl;
    };
    const auto key = std::ranges::find_if(KEYS, isPressed);
    if (message != WM_KEYDOWN || key == std::end(KEYS))
        return CResizeDialog::PreTranslateMessage(message, wParam, lParam);
    SendMessage(WM_COMMAND, key->m_Command);
    return true;
}

void CPartsWindow::OpenDatabase(const CString& file)
{
    if (!m_Rows.Open(file))
        CAppError::ReportLastError();
    ListTables();
    ListFromStart();
}

void CPartsWindow::ListTables()
{
    m_Tables.ResetContent();
    for (const CString& table : m_Rows.GetTables())
        m_Tables.AddString(table);
    m_Tables.SelectString(-1, m_Rows.GetTable());
}

void CPartsWindow::ListFromStart()
{
    m_List.ResetContent();
    m_Listed = 0;
    m_IsReading = true;
    ReadOn(); // the first lines are there at once
    m_List.SetCurSel(0);
}

/// A step of reading; true while more may come.
bool CPartsWindow::ReadOn()
{
    if (!m_IsReading)
        return false;
    bool mayMoreCome = true;
    if (m_Listed == m_Rows.GetCount())
        mayMoreCome = m_Rows.FetchAhead(static_cast<DWORD>(m_Settings.m_IdleMilliseconds));
    const int end = std::min(m_Rows.GetCount(), m_Listed + LINES_OF_A_STEP);
    m_List.SetRedraw(false);
    for (; m_Listed < end; ++m_Listed)
        m_List.AddString(m_Rows.GetLine(m_Listed, m_Settings.m_Columns));
    m_List.SetRedraw(true);
    m_IsReading = mayMoreCome || m_Listed < m_Rows.GetCount();
    TellState();
    return m_IsReading;
}

void CPartsWindow::TellState()
{
    CString state(u"No database is open. Give one when starting: partsdesk parts.db");
    if (!m_Rows.GetFile().IsEmpty())
        state.Format(u"%d parts in %s of %s%s", m_Listed, m_Rows.GetTable(),
                     NativePath(m_Rows.GetFile()),
                     CString(m_IsReading ? u", reading on ..." : u""));
    SetDlgItemText(*this, IDC_STATE, state);
}

void CPartsWindow::OnTableChosen()
{
    CString table;
    if (!m_Tables.GetLBText(m_Tables.GetCurSel(), table))
        return;
    if (!m_Rows.OpenTable(table))
        CAppError::ReportLastError();
    OnFilterChange();
}

/// Filters while the user types. A line that is no filter yet changes no rows.
void CPartsWindow::OnFilterChange()
{
    CString reason;
    if (m_Rows.SetFilter(m_Filter.GetWindowText(), reason))
        ListFromStart();
    else
        SetDlgItemText(*this, IDC_STATE, reason);
}

void CPartsWindow::OnShowPart()
{
    std::vector<CPartValue> part = m_Rows.GetPart(m_List.GetCurSel());
    double pitch = 0;
    if (part.empty() || !ReadPitch(m_Settings.m_Pitch, pitch))
        return;
    CPartDialog(std::move(part), pitch, this).DoModal();
}

void CPartsWindow::OnCopyLine()
{
    CString line;
    if (m_List.GetText(m_List.GetCurSel(), line) && !StringToClipboard(line))
        SetDlgItemText(*this, IDC_STATE, u"The clipboard cannot be had now.");
}

void CPartsWindow::OnGoToFilter()
{
    m_Filter.SetFocus();
    m_Filter.SetSel(0, -1);
}

void CPartsWindow::OnClearFilter()
{
    m_Filter.SetWindowText(u"");
    OnGoToFilter();
}

void CPartsWindow::OnReadAgain()
{
    const CString table = m_Rows.GetTable();
    if (m_Rows.GetFile().IsEmpty())
        return;
    OpenDatabase(CString(m_Rows.GetFile()));
    m_Tables.SelectString(-1, table);
    OnTableChosen();
}

void CPartsWindow::OnSettings()
{
    CSettingsDialog dialog(m_Settings, this);
    if (dialog.DoModal() != IDOK)
        return;
    m_Settings = dialog.GetSettings();
    m_Settings.Save();
    ListFromStart();
}

void CPartsWindow::OnLog()
{
    CLogDialog(this).DoModal();
}

void CPartsWindow::OnGallery()
{
    CGalleryDialog(this).DoModal();
}

void CPartsWindow::OnAbout()
{
    CAboutDialog(this).DoModal();
}

/// Below its button.
void CPartsWindow::OnMenu()
{
    const CRect button = GetDlgItem(ID_MENU)->GetWindowRect();
    ShowMenuAt({button.left, button.bottom});
}

LRESULT CPartsWindow::OnContextMenu(WPARAM, LPARAM)
{
    ShowMenuAt(GetCursorPos());
    return 0;
}

void CPartsWindow::ShowMenuAt(CPoint place)
{
    CMenu menu;
    menu.CreatePopupMenu();
    const UINT partFlags = m_List.GetCurSel() >= 0 ? MF_STRING : MF_STRING | MF_GRAYED;
    for (const CMenuRow& row : MENU)
    {
        const bool isOfPart = row.m_Command == ID_SHOW_PART || row.m_Command == ID_COPY_LINE;
        if (row.m_Command == 0)
            menu.AppendMenu(MF_SEPARATOR);
        else
            menu.AppendMenu(isOfPart ? partFlags : MF_STRING, row.m_Command, row.m_Text);
    }
    menu.TrackPopupMenu(TPM_LEFTALIGN, place.x, place.y, this);
}

} // namespace partsdesk
