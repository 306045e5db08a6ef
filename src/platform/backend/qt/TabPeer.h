#pragma once

#include "platform/backend/qt/QtWindowPeer.h"

#include <vector>

class QTabBar;

namespace utility
{

/// A row of tabs over the frame of a page.
class CTabPeer final : public CQtWindowPeer
{
public:
    CTabPeer(const CWindowRequest& request, QWidget* parent);
    ~CTabPeer() override;

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void TakeFocus() override;

private:
    struct CTab
    {
        CString m_Text;
        LPARAM m_Data = 0;
    };

    LRESULT OnInsertItem(WPARAM tab, LPARAM item);
    LRESULT OnDeleteItem(WPARAM tab, LPARAM);
    LRESULT OnDeleteAllItems(WPARAM, LPARAM);
    LRESULT OnGetItemCount(WPARAM, LPARAM);
    LRESULT OnGetItem(WPARAM tab, LPARAM item);
    LRESULT OnSetItem(WPARAM tab, LPARAM item);
    LRESULT OnGetCurSel(WPARAM, LPARAM);
    LRESULT OnSetCurSel(WPARAM tab, LPARAM);
    LRESULT OnAdjustRect(WPARAM larger, LPARAM rect);
    LRESULT OnGetDialogCode(WPARAM, LPARAM);

    bool Has(int tab) const { return tab >= 0 && tab < static_cast<int>(m_Tabs.size()); }
    void GoTo(int tab);
    void OnUserChange(int tab);

    QTabBar* m_Bar; // the widget's
    std::vector<CTab> m_Tabs;
    int m_Current = -1;
    bool m_IsOwnChange = false;
};

} // namespace utility
