#pragma once

#include "platform/base/Export.h"
#include "platform/ui/controls/RowsControl.h"

namespace utility
{

/// A field with a list that drops down: the field takes any text (CBS_DROPDOWN) or rows alone
/// (CBS_DROPDOWNLIST).
///
/// Messages and notes stand in ComboBoxMessages.h; CBS_SORT makes it a sorted control. The current
/// row is the one that was taken, until the user writes. The height given at creation is that of
/// field and open list together; the field takes what it needs of it.
class UTILITY_UI_API CComboBox : public CRowsControl
{
    DECLARE_DYNAMIC(CComboBox)

public:
    CComboBox();
    using CRowsControl::Create;

    int GetLBTextLen(int row) const { return GetRowTextLen(row); }
    /// `text` keeps its preset if there is no such row.
    bool GetLBText(int row, CString& text) const { return GetRowText(row, text); }

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
};

} // namespace utility
