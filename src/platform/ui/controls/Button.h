#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

constexpr UINT BM_GETCHECK = 0x00F0;
constexpr UINT BM_SETCHECK = 0x00F1;
constexpr UINT BM_SETSTYLE = 0x00F4; // wParam: the new kind
constexpr UINT BM_CLICK = 0x00F5;
constexpr UINT BM_GETIMAGE = 0x00F6;
constexpr UINT BM_SETIMAGE = 0x00F7; // IMAGE_..., handle; answers the one before

constexpr int BST_UNCHECKED = 0;
constexpr int BST_CHECKED = 1;
constexpr int BST_INDETERMINATE = 2;

// Codes of WM_COMMAND to the parent
constexpr UINT BN_CLICKED = 0;
constexpr UINT BN_SETFOCUS = 6;
constexpr UINT BN_KILLFOCUS = 7;

/// A push button, a check box of two or three states, a radio button or a group's frame.
///
/// An automatic radio button takes the mark from the others of its group: from a child with
/// WS_GROUP up to the next one, in the order of the children. SetCheck sends no note and leaves
/// the others of a group alone.
class UTILITY_UI_API CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)

public:
    bool Create(const char16_t* title, DWORD style, const CRect& place, CWnd* parent, UINT id);

    /// A BST_... value; 0 for a button without a mark.
    int GetCheck() const;
    void SetCheck(int check);
    /// Shows a picture in place of the text; the caller keeps it, and it is shown from a copy. The
    /// picture shown before.
    HBITMAP SetBitmap(HBITMAP bitmap);
    HICON SetIcon(HICON icon);
    /// Changes the kind of a button, such as to a default one.
    void SetButtonStyle(DWORD style);
};

} // namespace utility
