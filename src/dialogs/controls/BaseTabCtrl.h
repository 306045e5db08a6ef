#pragma once

#include "platform/base/String.h"
#include "platform/ui/controls/TabCtrl.h"

namespace utility
{

/// A row of tabs that each carry a number or pointer of their owner's.
class UTILITY_UI_API CBaseTabCtrl : public CTabCtrl
{
    DECLARE_DYNAMIC(CBaseTabCtrl)

public:
    /// Behind the last tab; its number, or -1.
    int AddTab(const CString& text, LPARAM data);

    // Of a tab that is not there: empty, 0 or false
    CString GetTabText(int tab) const;
    bool SetTabText(int tab, const CString& text);
    LPARAM GetTabData(int tab) const;
    bool SetTabData(int tab, LPARAM data);

    /// The first tab with that data, or -1.
    int FindTab(LPARAM data) const;
    /// False if there is none. As all of the program's own changes it sends no note.
    bool SelectTab(LPARAM data);
    /// The next tab, or the one before, once around; -1 without tabs.
    int GetNextTab(bool forward) const;
};

} // namespace utility
