#pragma once

#include "dialogs/controls/BaseTabCtrl.h"
#include "platform/system/window/Wnd.h"

#include <vector>

namespace utility
{

/// Code of WM_NOTIFY to the parent, with a NMHDR: the user has gone to another page.
constexpr int TWN_SELCHANGE = -40;

/// A window of tabbed children, of which one is seen at a time and fills the place below the tabs.
///
/// Ctrl+Tab and Ctrl+PageDown lead to the next page, with Shift, or Ctrl+PageUp, to the one before,
/// wherever within the window the keys are. Pages are numbered from 0. User-interface thread.
class UTILITY_UI_API CTabWnd : public CWnd
{
    DECLARE_DYNAMIC(CTabWnd)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);

    /// Takes a child of this window, which is not owned, as the last page; its number, or -1 if it
    /// is none. The first page is active at once.
    int AddPage(CWnd& page, const CString& title);
    /// Hides the page and leaves it to its owner; false if there is none.
    bool RemovePage(int page);
    int GetPageCount() const { return static_cast<int>(m_Pages.size()); }
    /// Null if there is none, or its window has ended.
    CWnd* GetPage(int page) const;

    /// -1 without pages.
    int GetActivePage() const { return m_Active; }
    /// The parent is not told; false if there is no such page.
    bool SetActivePage(int page);
    CBaseTabCtrl& GetTabs() { return m_Tabs; }

    bool PreTranslateMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    const CMessageMap* GetMessageMap() const override;
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    LRESULT OnSize(WPARAM type, LPARAM size);
    void ActivateByUser(int page);
    void Place();

    CBaseTabCtrl m_Tabs;
    std::vector<HWND> m_Pages;
    int m_Active = -1;
};

} // namespace utility
