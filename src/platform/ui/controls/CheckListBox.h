#pragma once

#include "platform/ui/controls/ListBox.h"

namespace utility
{

// To a list: marks in front of its rows. wParam: row
constexpr UINT CLB_SETCHECKSTYLE = 0x0581; // wParam: BS_AUTOCHECKBOX and kin; 0 takes marks away
constexpr UINT CLB_GETCHECKSTYLE = 0x0582;
constexpr UINT CLB_SETCHECK = 0x0583; // lParam: BST_...
constexpr UINT CLB_GETCHECK = 0x0584;
constexpr UINT CLB_ENABLE = 0x0585; // lParam: enabled
constexpr UINT CLB_ISENABLED = 0x0586;
constexpr UINT CLB_SETSELECTIONCHECK = 0x0587; // wParam: BST_..., for all selected rows

/// Code of WM_COMMAND to the parent: the user has changed a mark.
constexpr UINT CLBN_CHKCHANGE = 40;

/// A list with a check mark in front of each row.
///
/// A click on the mark, a double click on the text, and Space change the mark of the row, and of
/// all selected rows if it is one of them. Marks of disabled rows stay as they are.
class UTILITY_UI_API CCheckListBox : public CListBox
{
    DECLARE_DYNAMIC(CCheckListBox)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);
    /// Gives a list that is taken over its marks.
    void PreSubclassWindow() override;

    /// BS_CHECKBOX (the owner changes marks), BS_AUTOCHECKBOX (at first), BS_3STATE or
    /// BS_AUTO3STATE.
    void SetCheckStyle(UINT style);
    UINT GetCheckStyle() const;

    /// Sends no note; a row that is not there is left out.
    void SetCheck(int row, int check);
    int GetCheck(int row) const;
    void Enable(int row, bool enabled = true);
    bool IsEnabled(int row) const;
    /// Marks all selected rows that are enabled.
    void SetSelectionCheck(int check);
    /// Paints the mark of a row again.
    void InvalidateCheck(int row);
};

} // namespace utility
