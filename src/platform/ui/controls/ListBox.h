#pragma once

#include "platform/base/Export.h"
#include "platform/ui/controls/RowsControl.h"

#include <vector>

namespace utility
{

/// A list of rows, of which none, one or several are selected.
///
/// Styles, messages and notes stand in ListBoxMessages.h; LBS_SORT makes it a sorted control.
class UTILITY_UI_API CListBox : public CRowsControl
{
    DECLARE_DYNAMIC(CListBox)

public:
    CListBox();
    using CRowsControl::Create;

    int GetTextLen(int row) const { return GetRowTextLen(row); }
    /// `text` keeps its preset if there is no such row.
    bool GetText(int row, CString& text) const { return GetRowText(row, text); }

    // Selection of several
    bool GetSel(int row) const;
    /// Row -1 is every row.
    bool SetSel(int row, bool select = true);
    int GetSelCount() const;
    /// In rising order.
    std::vector<int> GetSelItems() const;
    int GetCaretIndex() const;
    int GetTopIndex() const;
    bool SetTopIndex(int row);

    // Look
    /// Tab stops in quarters of the mean width of a character; with LBS_USETABSTOPS.
    bool SetTabStops(const std::vector<int>& stops);
    bool SetTabStops(int distance) { return SetTabStops(std::vector<int>{distance}); }
    /// Scrolls sideways over so many pixels.
    void SetHorizontalExtent(int width);
    int GetHorizontalExtent() const;
    /// Of every row, or of one with LBS_OWNERDRAWVARIABLE.
    bool SetItemHeight(int row, UINT height);
    int GetItemHeight(int row) const;
    /// In pixels of the list.
    bool GetItemRect(int row, CRect& place) const;

    /// A key, with LBS_WANTKEYBOARDINPUT: -1 lets the list move as it would, -2 does nothing more,
    /// a row goes there.
    virtual int VKeyToItem(UINT key, UINT row);

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

} // namespace utility
