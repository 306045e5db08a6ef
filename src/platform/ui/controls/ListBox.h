#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"

#include <vector>

namespace utility
{

class CSize;
struct DRAWITEMSTRUCT;
struct MEASUREITEMSTRUCT;

/// A list of rows, of which none, one or several are selected.
///
/// Styles, messages and notes stand in ListBoxMessages.h. Rows are numbered from 0. A call with a
/// row that is not there answers LB_ERR or false. Without LBS_SORT rows stand as they were added;
/// with it AddString finds their place, case-blind. Only the user's changes send notes.
class UTILITY_UI_API CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);

    // Rows; the first three answer the row or the number of rows left
    int AddString(const CString& text);
    /// Before `row`, or at the end for -1; the order of LBS_SORT does not count.
    int InsertString(int row, const CString& text);
    int DeleteString(int row);
    void ResetContent();
    int GetCount() const;
    int GetTextLen(int row) const;
    /// `text` keeps its preset if there is no such row.
    bool GetText(int row, CString& text) const;

    // What a row carries for its owner; 0 at first, LB_ERR if there is no such row
    LPARAM GetItemData(int row) const;
    bool SetItemData(int row, LPARAM data);
    void* GetItemDataPtr(int row) const { return reinterpret_cast<void*>(GetItemData(row)); }
    bool SetItemDataPtr(int row, void* data)
    {
        return SetItemData(row, reinterpret_cast<LPARAM>(data));
    }

    // Selection: of one row, then of several
    int GetCurSel() const;
    /// -1 takes the selection away, which answers LB_ERR.
    int SetCurSel(int row);
    bool GetSel(int row) const;
    /// Row -1 is every row.
    bool SetSel(int row, bool select = true);
    int GetSelCount() const;
    /// In rising order.
    std::vector<int> GetSelItems() const;
    int GetCaretIndex() const;
    int GetTopIndex() const;
    bool SetTopIndex(int row);

    // Looking up, case-blind, from the row after `after` once around; a row or LB_ERR
    int FindString(int after, const CString& start) const;
    int FindStringExact(int after, const CString& text) const;
    int SelectString(int after, const CString& start);

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

    /// Paints a row of a list that its owner draws, unless its parent does.
    virtual void DrawItem(DRAWITEMSTRUCT* item);
    virtual void MeasureItem(MEASUREITEMSTRUCT* item);
    /// A key, with LBS_WANTKEYBOARDINPUT: -1 lets the list move as it would, -2 does nothing more,
    /// a row goes there.
    virtual int VKeyToItem(UINT key, UINT row);

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

} // namespace utility
