#include "platform/ui/controls/RowsControl.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/OwnerDraw.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CRowsControl, CWnd)

namespace
{

constexpr int NO_ROW = -1;

} // namespace

CRowsControl::CRowsControl(const char16_t* className, const CRowMessages& messages)
    : m_Class(className),
      m_Messages(messages)
{
}

bool CRowsControl::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(m_Class, u"", style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

int CRowsControl::Ask(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return static_cast<int>(SendMessage(message, wParam, lParam));
}

int CRowsControl::AskByText(UINT message, int row, const CString& text) const
{
    return Ask(message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.GetString()));
}

int CRowsControl::AddString(const CString& text)
{
    return AskByText(m_Messages.m_Add, 0, text);
}

int CRowsControl::InsertString(int row, const CString& text)
{
    return AskByText(m_Messages.m_Insert, row, text);
}

int CRowsControl::DeleteString(int row)
{
    return Ask(m_Messages.m_Delete, static_cast<WPARAM>(row));
}

void CRowsControl::ResetContent()
{
    SendMessage(m_Messages.m_Reset);
}

int CRowsControl::GetCount() const
{
    return Ask(m_Messages.m_GetCount);
}

int CRowsControl::GetRowTextLen(int row) const
{
    return Ask(m_Messages.m_GetTextLength, static_cast<WPARAM>(row));
}

bool CRowsControl::GetRowText(int row, CString& text) const
{
    const int length = GetRowTextLen(row);
    if (length < 0)
        return false;
    CString result;
    SendMessage(m_Messages.m_GetText, static_cast<WPARAM>(row),
                reinterpret_cast<LPARAM>(result.GetBuffer(length)));
    result.ReleaseBuffer(length);
    text = result;
    return true;
}

LPARAM CRowsControl::GetItemData(int row) const
{
    return SendMessage(m_Messages.m_GetData, static_cast<WPARAM>(row));
}

bool CRowsControl::SetItemData(int row, LPARAM data)
{
    return SendMessage(m_Messages.m_SetData, static_cast<WPARAM>(row), data) != NO_ROW;
}

int CRowsControl::GetCurSel() const
{
    return Ask(m_Messages.m_GetCurrent);
}

int CRowsControl::SetCurSel(int row)
{
    return Ask(m_Messages.m_SetCurrent, static_cast<WPARAM>(row));
}

int CRowsControl::FindString(int after, const CString& start) const
{
    return AskByText(m_Messages.m_Find, after, start);
}

int CRowsControl::FindStringExact(int after, const CString& text) const
{
    return AskByText(m_Messages.m_FindExact, after, text);
}

int CRowsControl::SelectString(int after, const CString& start)
{
    return AskByText(m_Messages.m_Select, after, start);
}

void CRowsControl::DrawItem(DRAWITEMSTRUCT*) {}

void CRowsControl::MeasureItem(MEASUREITEMSTRUCT*) {}

LRESULT CRowsControl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    // What the parent leaves to the control comes back to it.
    switch (message)
    {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        return TRUE;
    default:
        return CWnd::WindowProc(message, wParam, lParam);
    }
}

} // namespace utility
