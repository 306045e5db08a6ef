#include "dialogs/BaseDialog.h"

#include "dialogs/DpiScale.h"
#include "dialogs/MacroItem.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/BCGPVisualManager.h"
#include "platform/ui/SystemMetrics.h"
#include "platform/ui/drawing/PaintDC.h"
#include "resources/MessageNames.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CBaseDialog, CBCGPDialog)

CBaseDialog::CBaseDialog(UINT templateId, CWnd* parent) : CBCGPDialog(templateId, parent)
{
    CBaseDialog::SetWindowTheme();
}

CBaseDialog::CBaseDialog(const char16_t* templateName, CWnd* parent)
    : CBCGPDialog(templateName, parent)
{
    CBaseDialog::SetWindowTheme();
}

const CMessageMap* CBaseDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        MessageRow<&CBaseDialog::OnCreate>(WM_CREATE), MessageRow<&CBaseDialog::OnPaint>(WM_PAINT),
        MessageRow<&CBaseDialog::OnMacroItemGetValue>(MSG_MACRO_ITEM_GET_VALUE),
        MessageRow<&CBaseDialog::OnMacroItemReplay>(MSG_MACRO_ITEM_REPLAY)};
    static const CMessageMap MAP{CBCGPDialog::GetMessageMap(), ROWS};
    return &MAP;
}

int CBaseDialog::DPIScale(int value)
{
    return CBCGPVisualManager::GetInstance()->ScaleByDPI(value);
}

bool CBaseDialog::IsDefaultDPI()
{
    return !IsDpiScaling();
}

void CBaseDialog::SetWindowTheme()
{
    const CBCGPVisualManager& manager = *CBCGPVisualManager::GetInstance();
    const bool isStyled = manager.IsStylingDialogs();
    EnableVisualManagerStyle(isStyled, false, m_NonSubclassed);
    m_BackgroundColour = isStyled ? manager.GetDialogBackground() : GetSysColor(COLOR_WINDOW);
    m_TextColour = isStyled ? manager.GetDialogTextColor() : GetSysColor(COLOR_WINDOWTEXT);
    m_BackgroundBrush.DeleteObject();
    m_BackgroundBrush.CreateSolidBrush(m_BackgroundColour);
}

void CBaseDialog::AddNonSubclassedItem(UINT id)
{
    m_NonSubclassed.push_back(id);
    EnableVisualManagerStyle(true, false, m_NonSubclassed);
}

LRESULT CBaseDialog::OnCreate(WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefWindowProc(WM_CREATE, wParam, lParam);
    SetWindowTheme();
    return result;
}

LRESULT CBaseDialog::OnPaint(WPARAM, LPARAM)
{
    CPaintDC context(this);
    context.FillRect(GetClientRect(), &m_BackgroundBrush);
    return 0;
}

LRESULT CBaseDialog::OnMacroItemGetValue(WPARAM id, LPARAM value)
{
    const CWnd* control = GetDlgItem(static_cast<int>(id));
    return control && GetMacroItemValue(*control, *reinterpret_cast<CString*>(value));
}

LRESULT CBaseDialog::OnMacroItemReplay(WPARAM id, LPARAM value)
{
    CWnd* control = GetDlgItem(static_cast<int>(id));
    return control && ReplayMacroItem(*control, *reinterpret_cast<const CString*>(value));
}

LRESULT CBaseDialog::OnChangeVisualManager(WPARAM wParam, LPARAM lParam)
{
    SetWindowTheme();
    return CBCGPDialog::OnChangeVisualManager(wParam, lParam);
}

} // namespace utility
