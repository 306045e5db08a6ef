#include "platform/ui/Dialog.h"

#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageScope.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/DataExchange.h"
#include "platform/ui/DialogFont.h"
#include "platform/ui/DialogKeys.h"
#include "platform/ui/Monitor.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CDialog, CWnd)

namespace
{

constexpr const char16_t* DIALOG_CLASS = u"#32770";
constexpr DWORD RUN_SHOWN = 4; // with RunModalLoop

} // namespace

CDialog::CDialog(UINT templateId, CWnd* parent) : m_TemplateId(templateId), m_Parent(parent) {}

CDialog::CDialog(const char16_t* templateName, CWnd* parent)
    : m_TemplateName(templateName),
      m_Parent(parent)
{
}

CDialog::~CDialog()
{
    CWnd::DestroyWindow();
}

// Life

bool CDialog::Load(CDialogTemplate& design) const
{
    return m_TemplateId ? design.Load(m_TemplateId) : design.Load(m_TemplateName.GetString());
}

CWnd* CDialog::FindOwner() const
{
    CWnd* owner = m_Parent ? m_Parent : AfxGetMainWnd();
    return owner && owner->GetSafeHwnd() ? owner->GetTopLevelParent() : nullptr;
}

int CDialog::DoModal()
{
    CDialogTemplate design;
    if (!Load(design))
        return -1;
    ExpectModalLoop();
    CWnd* owner = FindOwner();
    const HWND ownerWindow = owner ? owner->GetSafeHwnd() : nullptr;
    const bool disables = owner && owner->EnableWindow(false);
    const int result = CreateIndirect(design, owner) ? RunModalLoop(RUN_SHOWN) : -1;

    owner = FromHandle(ownerWindow); // it may be gone by now
    if (owner && disables)
    {
        owner->EnableWindow(true);
        if (!GetActiveWindow() || GetActiveWindow() == this)
            owner->SetActiveWindow();
    }
    DestroyWindow();
    return result;
}

bool CDialog::Create(UINT templateId, CWnd* parent)
{
    m_TemplateId = templateId;
    CDialogTemplate design;
    return Load(design) && CreateIndirect(design, parent);
}

bool CDialog::Create(const char16_t* templateName, CWnd* parent)
{
    m_TemplateId = 0;
    m_TemplateName = templateName;
    CDialogTemplate design;
    return Load(design) && CreateIndirect(design, parent);
}

bool CDialog::CreateIndirect(const CDialogTemplate& design, CWnd* parent)
{
    const CMessageScope scope;
    CString face;
    WORD height = 0;
    m_Units = design.GetFont(face, height) ? GetDialogUnits(face, height) : GetDialogUnits();
    const bool isShown = design.GetStyle() & WS_VISIBLE;
    if (!CreateEx(design.GetExStyle(), DIALOG_CLASS, design.GetCaption(),
                  design.GetStyle() & ~WS_VISIBLE, FindPlace(design, parent), parent,
                  design.GetId()))
        return false;
    if (design.HasFont())
        SetDialogFont(*this, face, height);
    MakeControls(design);
    if (!Initialise())
        return false;
    if (isShown)
        ShowWindow(SW_SHOW);
    return true;
}

/// In the middle of its owner or, without one, of the screen; else where the template says.
CRect CDialog::FindPlace(const CDialogTemplate& design, CWnd* parent) const
{
    const CSize size = design.GetSizeInPixels(m_Units);
    CPoint topLeft(m_Units.ToPixelsX(design.GetPosition().x),
                   m_Units.ToPixelsY(design.GetPosition().y));
    if (design.GetStyle() & WS_CHILD)
        return {topLeft, size};
    if (design.GetStyle() & DS_CENTER)
    {
        const bool hasParent = parent && parent->IsWindowVisible();
        const CRect around = hasParent ? parent->GetWindowRect() : GetPrimaryWorkArea();
        topLeft = around.CenterPoint() - CPoint(size.cx / 2, size.cy / 2);
    }
    else if (parent)
    {
        parent->ClientToScreen(topLeft);
    }
    return KeepOnScreen({topLeft, size});
}

/// The template's controls stand in its own order; each is answered for by a plain object until a
/// member of the dialog takes it over.
void CDialog::MakeControls(const CDialogTemplate& design)
{
    for (const CDialogTemplateItem& item : design.GetItems())
    {
        CWnd control;
        if (!control.CreateEx(0, item.m_ClassName, item.m_Text, item.m_Style | WS_CHILD,
                              m_Units.ToPixels(item.m_Place), this, item.m_Id))
            continue;
        if (!item.m_AccessibleName.IsEmpty())
            control.SetAccessibleName(item.m_AccessibleName);
        const bool isDefault = item.m_ClassName.CompareNoCase(u"Button") == 0 &&
                               (item.m_Style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        if (isDefault && m_DefaultId == 0)
            m_DefaultId = item.m_Id;
        control.Detach();
    }
}

/// False if the dialog has ended its own window meanwhile.
bool CDialog::Initialise()
{
    const HWND window = m_hWnd;
    CWnd* first = GetNextDlgTabItem(*this, nullptr, false);
    const bool wantsFocus =
        SendMessage(WM_INITDIALOG, reinterpret_cast<WPARAM>(first ? first->m_hWnd : nullptr)) != 0;
    if (m_hWnd != window)
        return false;
    first = GetNextDlgTabItem(*this, nullptr, false);
    if (wantsFocus && first && !(GetStyle() & WS_CHILD))
        GotoDlgCtrl(first);
    return true;
}

void CDialog::EndDialog(int result)
{
    EndModalLoop(result);
    ShowWindow(SW_HIDE);
}

// Contents

bool CDialog::UpdateData(bool save)
{
    CDataExchange exchange(this, save);
    try
    {
        DoDataExchange(&exchange);
        return true;
    }
    catch (const CDataExchange::CFailure&)
    {
        return false;
    }
}

void CDialog::DoDataExchange(CDataExchange*) {}

void CDialog::MapDialogRect(CRect& place) const
{
    place = m_Units.ToPixels(place);
}

// Messages

const CMessageMap* CDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {CommandRow<&CDialog::OnOK>(IDOK),
                                           CommandRow<&CDialog::OnCancel>(IDCANCEL)};
    static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
    return &MAP;
}

bool CDialog::OnInitDialog()
{
    UpdateData(false);
    return true;
}

void CDialog::OnOK()
{
    if (UpdateData(true))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

LRESULT CDialog::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_INITDIALOG:
        return OnInitDialog();
    case WM_CLOSE:
        Close();
        return 0;
    case DM_GETDEFID:
        return m_DefaultId;
    case DM_SETDEFID:
        m_DefaultId = static_cast<UINT>(wParam);
        return TRUE;
    default:
        return CWnd::DefWindowProc(message, wParam, lParam);
    }
}

/// As if cancelled, unless that is not to be had just now.
void CDialog::Close()
{
    const CWnd* cancel = GetDlgItem(IDCANCEL);
    if (!cancel || cancel->IsWindowEnabled())
        SendMessage(WM_COMMAND, IDCANCEL);
}

// The keyboard

bool CDialog::PreTranslateMessage(UINT message, WPARAM wParam, LPARAM)
{
    // A page leaves its keys to the dialog around it.
    return !(GetStyle() & WS_CHILD) && HandleDialogKey(*this, message, wParam);
}

void CDialog::GotoDlgCtrl(CWnd* control)
{
    FocusControl(*control);
}

void CDialog::NextDlgCtrl()
{
    if (CWnd* next = GetNextDlgTabItem(*this, GetFocus(), false))
        GotoDlgCtrl(next);
}

void CDialog::PrevDlgCtrl()
{
    if (CWnd* previous = GetNextDlgTabItem(*this, GetFocus(), true))
        GotoDlgCtrl(previous);
}

UINT CDialog::GetDefID() const
{
    return static_cast<UINT>(SendMessage(DM_GETDEFID));
}

void CDialog::SetDefID(UINT id)
{
    SendMessage(DM_SETDEFID, id);
}

} // namespace utility
