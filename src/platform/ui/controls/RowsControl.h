#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

struct DRAWITEMSTRUCT;
struct MEASUREITEMSTRUCT;

/// The messages by which a kind of control is asked for its rows.
struct CRowMessages
{
    UINT m_Add;
    UINT m_Insert;
    UINT m_Delete;
    UINT m_Reset;
    UINT m_GetCount;
    UINT m_GetTextLength;
    UINT m_GetText;
    UINT m_GetData;
    UINT m_SetData;
    UINT m_GetCurrent;
    UINT m_SetCurrent;
    UINT m_Find;
    UINT m_FindExact;
    UINT m_Select;
};

/// What lists and combos have in common: rows of a text and a value each, numbered from 0.
///
/// A call with a row that is not there answers -1 (LB_ERR, CB_ERR) or false. Rows stand as they
/// were added; in a sorted control AddString finds their place, case-blind. Only the user's changes
/// send notes.
class UTILITY_UI_API CRowsControl : public CWnd
{
    DECLARE_DYNAMIC(CRowsControl)

public:
    // Rows; the first three answer the row or the number of rows left
    int AddString(const CString& text);
    /// Before `row`, or at the end for -1; a sorted control's order does not count.
    int InsertString(int row, const CString& text);
    int DeleteString(int row);
    void ResetContent();
    int GetCount() const;

    // What a row carries for its owner; 0 at first, -1 if there is no such row
    LPARAM GetItemData(int row) const;
    bool SetItemData(int row, LPARAM data);
    void* GetItemDataPtr(int row) const { return reinterpret_cast<void*>(GetItemData(row)); }
    bool SetItemDataPtr(int row, void* data)
    {
        return SetItemData(row, reinterpret_cast<LPARAM>(data));
    }

    /// The row that is selected or was taken; -1 for none.
    int GetCurSel() const;
    /// -1 takes the selection away, or empties the field, which answers -1.
    int SetCurSel(int row);

    // Looking up, case-blind, from the row after `after` once around; a row or -1
    int FindString(int after, const CString& start) const;
    int FindStringExact(int after, const CString& text) const;
    int SelectString(int after, const CString& start);

    /// Paints what the owner of a control draws, unless its parent does.
    virtual void DrawItem(DRAWITEMSTRUCT* item);
    virtual void MeasureItem(MEASUREITEMSTRUCT* item);

protected:
    /// Both must outlive the object.
    CRowsControl(const char16_t* className, const CRowMessages& messages);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);
    int GetRowTextLen(int row) const;
    /// `text` keeps its preset if there is no such row.
    bool GetRowText(int row, CString& text) const;

private:
    int Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    int AskByText(UINT message, int row, const CString& text) const;

    const char16_t* m_Class;
    const CRowMessages& m_Messages;
};

} // namespace utility
