#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

constexpr UINT EM_GETSEL = 0x00B0; // two DWORD pointers, each may be null
constexpr UINT EM_SETSEL = 0x00B1;
constexpr UINT EM_SCROLLCARET = 0x00B7;
constexpr UINT EM_GETMODIFY = 0x00B8;
constexpr UINT EM_SETMODIFY = 0x00B9;
constexpr UINT EM_GETLINECOUNT = 0x00BA;
constexpr UINT EM_REPLACESEL = 0x00C2; // wParam: may be undone
constexpr UINT EM_LIMITTEXT = 0x00C5;
constexpr UINT EM_SETREADONLY = 0x00CF;
constexpr UINT EM_GETLIMITTEXT = 0x00D5;

// Codes of WM_COMMAND to the parent
constexpr UINT EN_SETFOCUS = 0x0100;
constexpr UINT EN_KILLFOCUS = 0x0200;
constexpr UINT EN_CHANGE = 0x0300;  // the text is another, whoever changed it
constexpr UINT EN_UPDATE = 0x0400;  // just before EN_CHANGE
constexpr UINT EN_MAXTEXT = 0x0501; // what the user typed or pasted was cut to the limit

/// A text field: one line, many lines (ES_MULTILINE) or a password.
///
/// Positions count 16-bit units. Lines of a field of many lines end in CR LF, also where the
/// user typed Enter. SetWindowText sends EN_CHANGE as the user's own changes do, save in a field
/// of many lines, which sends it for the user's changes and ReplaceSel alone.
class UTILITY_UI_API CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);

    /// Selects from `first` up to `last`, where the caret then stands:
    ///
    ///     first  last
    ///     0      -1    the whole text
    ///     -1     any   nothing; the caret stays
    ///     5      2     from 2 up to 5, the caret at the end
    ///
    /// The caret is scrolled into view unless `noScroll` is set.
    void SetSel(int first, int last, bool noScroll = false);
    void GetSel(int& first, int& last) const;
    /// Puts a text where the selection is, as if typed, the limit left aside.
    void ReplaceSel(const CString& text, bool canUndo = false);
    /// The most that the user can enter; 0 is without limit. A longer text that is there stays.
    void LimitText(int limit = 0);
    /// False if there is no window.
    bool SetReadOnly(bool readOnly = true);
    /// Whether the user has changed the text since it was set.
    bool GetModify() const;
    void SetModify(bool modified = true);
    int GetLineCount() const;
};

} // namespace utility
