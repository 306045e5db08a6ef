#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

struct DRAWITEMSTRUCT;
struct MEASUREITEMSTRUCT;

/// A field with a list that drops down: the field takes any text (CBS_DROPDOWN) or rows alone
/// (CBS_DROPDOWNLIST).
///
/// Messages and notes stand in ComboBoxMessages.h. Rows are numbered from 0. A call with a row
/// that is not there answers CB_ERR or false. With CBS_SORT AddString finds the place, case-blind.
/// Only the user's changes send notes. The height given at creation is that of field and open
/// list together; the field takes what it needs of it.
class UTILITY_UI_API CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);

    // Rows; the first three answer the row or the number of rows left
    int AddString(const CString& text);
    /// Before `row`, or at the end for -1; the order of CBS_SORT does not count.
    int InsertString(int row, const CString& text);
    int DeleteString(int row);
    void ResetContent();
    int GetCount() const;
    int GetLBTextLen(int row) const;
    /// `text` keeps its preset if there is no such row.
    bool GetLBText(int row, CString& text) const;

    // What a row carries for its owner; 0 at first, CB_ERR if there is no such row
    LPARAM GetItemData(int row) const;
    bool SetItemData(int row, LPARAM data);
    void* GetItemDataPtr(int row) const { return reinterpret_cast<void*>(GetItemData(row)); }
    bool SetItemDataPtr(int row, void* data)
    {
        return SetItemData(row, reinterpret_cast<LPARAM>(data));
    }

    /// The row that was taken; CB_ERR if none was, or the user has written since.
    int GetCurSel() const;
    /// -1 empties the field, which answers CB_ERR.
    int SetCurSel(int row);

    // Looking up, case-blind, from the row after `after` once around; a row or CB_ERR
    int FindString(int after, const CString& start) const;
    int FindStringExact(int after, const CString& text) const;
    int SelectString(int after, const CString& start);

    // The field; false for a list without one
    bool GetEditSel(int& first, int& last) const;
    /// As CEdit::SetSel.
    bool SetEditSel(int first, int last);
    /// The most that the user can enter; 0 is without limit.
    void LimitText(int limit);

    // The list
    void ShowDropDown(bool show = true);
    bool GetDroppedState() const;
    /// At least so wide, in pixels, and never less wide than the field.
    int SetDroppedWidth(int width);
    int GetDroppedWidth() const;
    /// Of the rows, or of the field for row -1.
    bool SetItemHeight(int row, UINT height);
    int GetItemHeight(int row) const;

    /// Paints a row, or the field, of a combo that its owner draws, unless its parent does.
    virtual void DrawItem(DRAWITEMSTRUCT* item);
    virtual void MeasureItem(MEASUREITEMSTRUCT* item);

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

} // namespace utility
