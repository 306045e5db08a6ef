#include "GalleryDialog.h"

#include "dialogs/controls/SplitterControl.h"
#include "frame/AppMessageBox.h"
#include "platform/base/Colour.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/DataExchange.h"
#include "platform/ui/DialogItems.h"
#include "platform/ui/controls/TreeMessages.h"

#include "Ids.h"

using namespace utility;

namespace partsdesk
{

namespace
{

constexpr UINT SPLASH_MILLISECONDS = 1500;
constexpr int TIP_WIDTH = 300;
constexpr COLORREF SOLDER_MASK = RGB(0, 104, 72);
constexpr DWORD PANE_STYLE = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_MULTILINE;

} // namespace

CGalleryDialog::CGalleryDialog(CWnd* parent) : CBaseDialog(DIALOG_GALLERY, parent) {}

void CGalleryDialog::DoDataExchange(CDataExchange* exchange)
{
    CBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_TREE, m_Tree);
    DDX_Control(exchange, IDC_COLOUR, m_Colour);
    DDX_Control(exchange, IDC_PACKAGES, m_Packages);
    DDX_Control(exchange, IDC_COUNT_SPIN, m_Spin);
}

bool CGalleryDialog::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    FillFields();
    FillTree();
    MakePages();
    MakePanes();
    MakeTasks();
    Tell(u"nothing yet");
    return true;
}

void CGalleryDialog::FillFields()
{
    for (const char16_t* package : {u"0402", u"0603", u"0805", u"SOT-23", u"SOIC-8"})
        m_Packages.AddString(package);
    m_Packages.SetCurSel(1);
    m_Spin.SetBuddy(GetDlgItem(IDC_COUNT));
    m_Spin.SetRange32(1, 99);
    m_Spin.SetPos32(10);
    m_Colour.SetColor(SOLDER_MASK);
    OnColourChange();
    m_Tips.Create(this);
    m_Tips.SetMaxTipWidth(TIP_WIDTH);
    m_Tips.AddTool(&m_Packages, u"The body that the part comes in.\nAny other may be typed.");
}

void CGalleryDialog::FillTree()
{
    for (const char16_t* kind : {u"Passive", u"Active"})
    {
        HTREEITEM const branch = m_Tree.InsertItem(kind);
        for (const char16_t* part : {u"First", u"Second", u"Third"})
            m_Tree.InsertItem(part, branch);
        m_Tree.Expand(branch, TVE_EXPAND);
    }
    m_Tree.SetCheck(m_Tree.GetRootItem(), true);
}

void CGalleryDialog::MakePages()
{
    m_Pages.Create(WS_CHILD | WS_VISIBLE, TakePlace(IDC_PAGES), this, IDC_PAGES);
    m_FirstPage.Create(PANE_STYLE, CRect(), &m_Pages, 1);
    m_SecondPage.Create(PANE_STYLE, CRect(), &m_Pages, 2);
    m_FirstPage.SetWindowText(u"Ctrl+Tab leads to the next page.");
    m_SecondPage.SetWindowText(u"This is the second page.");
    m_Pages.AddPage(m_FirstPage, u"First");
    m_Pages.AddPage(m_SecondPage, u"Second");
}

void CGalleryDialog::MakePanes()
{
    m_Splitter.Create(WS_CHILD | WS_VISIBLE, TakePlace(IDC_PANES), this, IDC_PANES, false);
    m_UpperPane.Create(PANE_STYLE, CRect(), &m_Splitter, 1);
    m_LowerPane.Create(PANE_STYLE, CRect(), &m_Splitter, 2);
    m_UpperPane.SetWindowText(u"The bar below moves by pointer and by arrow keys.");
    m_LowerPane.SetWindowText(u"Lower pane");
    m_Splitter.SetPanes(m_UpperPane, m_LowerPane);
    m_Splitter.SetMinimums(40, 40);
}

void CGalleryDialog::MakeTasks()
{
    m_Tasks.Create(u"Tasks", WS_CHILD | WS_VISIBLE | WS_TABSTOP, TakePlace(IDC_TASKS), this,
                   IDC_TASKS);
    const int parts = m_Tasks.AddGroup(u"Parts");
    m_Tasks.AddTask(parts, u"Greet", ID_GREET);
    m_Tasks.AddTask(parts, u"Show the splash", ID_SPLASH);
    const int other = m_Tasks.AddGroup(u"Other", false);
    m_Tasks.AddTask(other, u"Close", IDCANCEL);
}

/// Where a control of the template stands, which then makes room.
CRect CGalleryDialog::TakePlace(int id)
{
    CWnd* const control = GetDlgItem(id);
    CRect place = control->GetWindowRect();
    ScreenToClient(place);
    control->DestroyWindow();
    return place;
}

bool CGalleryDialog::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const int id = static_cast<int>(wParam & 0xFFFF);
    const UINT code = static_cast<UINT>(wParam >> 16);
    if (id == IDC_COLOUR && code == CWN_COLOURCHANGE)
        OnColourChange();
    else if (id >= IDC_FIRST_BUTTON && id <= IDC_LAST_BUTTON)
        Tell(u"a click on " + GetDlgItem(id)->GetWindowText());
    else if (id == ID_GREET)
        Tell(u"a task: good day");
    else if (id == ID_SPLASH)
        OnSplash();
    return CBaseDialog::OnCommand(wParam, lParam);
}

bool CGalleryDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const NMHDR& note = *reinterpret_cast<const NMHDR*>(lParam);
    if (note.idFrom == IDC_PAGES && note.code == TWN_SELCHANGE)
        Tell(u"another page");
    if (note.idFrom == IDC_TREE && note.code == TVN_SELCHANGED)
        Tell(u"the branch " + m_Tree.GetItemText(m_Tree.GetSelectedItem()));
    return CBaseDialog::OnNotify(wParam, lParam, result);
}

void CGalleryDialog::OnColourChange()
{
    const COLORREF colour = m_Colour.GetColor();
    CString name;
    name.Format(u"red %d, green %d, blue %d", static_cast<int>(GetRValue(colour)),
                static_cast<int>(GetGValue(colour)), static_cast<int>(GetBValue(colour)));
    SetDlgItemText(*this, IDC_COLOUR_NAME, name);
}

void CGalleryDialog::OnSplash()
{
    m_SplashPicture.LoadBitmap(BITMAP_DESK);
    m_Splash.Show(m_SplashPicture, SPLASH_MILLISECONDS, this);
    m_Splash.SetStatus(u"Starting ...");
    Tell(u"the splash");
}

void CGalleryDialog::Tell(const CString& heard)
{
    SetDlgItemText(*this, IDC_HEARD, u"Heard last: " + heard);
}

} // namespace partsdesk
