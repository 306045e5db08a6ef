#include "dialogs/controls/TabWnd.h"

#include "platform/base/Rect.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/ui/InputState.h"

#include <algorithm>

namespace utility
{

IMPLEMENT_DYNAMIC(CTabWnd, CWnd)

namespace
{

constexpr UINT TABS_ID = 1;

} // namespace

const CMessageMap* CTabWnd::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {MessageRow<&CTabWnd::OnSize>(WM_SIZE)};
    static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
    return &MAP;
}

bool CTabWnd::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CreateEx(WS_EX_CONTROLPARENT, u"TabWnd", u"", style | WS_CHILD, place, parent, id))
        return false;
    return m_Tabs.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, GetClientRect(), this, TABS_ID);
}

int CTabWnd::AddPage(CWnd& page, const CString& title)
{
    const int number = GetPageCount();
    if (page.GetParent() != this || m_Tabs.AddTab(title, number) < 0)
        return -1;
    m_Pages.push_back(page.GetSafeHwnd());
    page.ShowWindow(SW_HIDE);
    if (m_Active < 0)
        SetActivePage(0);
    return number;
}

bool CTabWnd::RemovePage(int page)
{
    if (page < 0 || page >= GetPageCount())
        return false;
    if (CWnd* window = GetPage(page))
        window->ShowWindow(SW_HIDE);
    m_Pages.erase(m_Pages.begin() + page);
    m_Tabs.DeleteItem(page);

    const int next = m_Active > page ? m_Active - 1 : std::min(m_Active, GetPageCount() - 1);
    m_Active = -1;
    SetActivePage(next);
    return true;
}

CWnd* CTabWnd::GetPage(int page) const
{
    if (page < 0 || page >= GetPageCount())
        return nullptr;
    return FromHandle(m_Pages[static_cast<std::size_t>(page)]);
}

bool CTabWnd::SetActivePage(int page)
{
    if (page < 0 || page >= GetPageCount())
        return false;
    CWnd* before = GetPage(m_Active);
    m_Active = page;
    m_Tabs.SetCurSel(page);
    Place();
    CWnd* after = GetPage(page);
    if (after)
        after->ShowWindow(SW_SHOW);
    if (before && before != after)
        before->ShowWindow(SW_HIDE);
    return true;
}

void CTabWnd::ActivateByUser(int page)
{
    if (page == m_Active || !SetActivePage(page))
        return;
    NMHDR note;
    note.hwndFrom = GetSafeHwnd();
    note.idFrom = static_cast<WPARAM>(GetDlgCtrlID());
    note.code = TWN_SELCHANGE;
    if (const CWnd* parent = GetParent())
        parent->SendMessage(WM_NOTIFY, note.idFrom, reinterpret_cast<LPARAM>(&note));
}

bool CTabWnd::PreTranslateMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool isPageKey = wParam == VK_TAB || wParam == VK_NEXT || wParam == VK_PRIOR;
    if (message != WM_KEYDOWN || !isPageKey || !IsKeyDown(VK_CONTROL))
        return CWnd::PreTranslateMessage(message, wParam, lParam);
    const bool isBack = wParam == VK_PRIOR || (wParam == VK_TAB && IsKeyDown(VK_SHIFT));
    ActivateByUser(m_Tabs.GetNextTab(!isBack));
    return true;
}

bool CTabWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto& note = *reinterpret_cast<const NMHDR*>(lParam);
    if (note.hwndFrom != m_Tabs.GetSafeHwnd() || note.code != TCN_SELCHANGE)
        return CWnd::OnNotify(wParam, lParam, result);
    ActivateByUser(m_Tabs.GetCurSel());
    return true;
}

LRESULT CTabWnd::OnSize(WPARAM type, LPARAM size)
{
    const LRESULT result = DefWindowProc(WM_SIZE, type, size);
    Place();
    return result;
}

void CTabWnd::Place()
{
    if (!m_Tabs.GetSafeHwnd())
        return;
    CRect place = GetClientRect();
    m_Tabs.MoveWindow(place);
    m_Tabs.AdjustRect(false, place);
    // The tabs stand before their siblings otherwise, and would hide the page.
    if (CWnd* page = GetPage(m_Active))
        page->SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(),
                           SWP_NOACTIVATE);
}

} // namespace utility
