#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

constexpr UINT TTM_ACTIVATE = 0x0401;
constexpr UINT TTM_GETTOOLCOUNT = 0x040D;
constexpr UINT TTM_SETMAXTIPWIDTH = 0x0418; // lParam: pixels; answers the width before
constexpr UINT TTM_GETMAXTIPWIDTH = 0x0419;
constexpr UINT TTM_ADDTOOL = 0x0432;       // lParam: CToolTipTool
constexpr UINT TTM_DELTOOL = 0x0433;       // lParam: CToolTipTool
constexpr UINT TTM_UPDATETIPTEXT = 0x0439; // lParam: CToolTipTool

/// Code of WM_NOTIFY to the owner of a tool without a text, which gives it now.
constexpr int TTN_NEEDTEXT = -530;

/// A window, or a part of one, with a tip; known by window and id.
struct CToolTipTool
{
    HWND m_Window = nullptr;
    WPARAM m_Id = 0;
    CRect m_Place;  // in pixels of the window; empty: the whole window
    CString m_Text; // empty: asked for by TTN_NEEDTEXT
};

struct TOOLTIPTEXT
{
    NMHDR hdr;
    CString m_Text; // to be filled
};

/// Tips that come up when the pointer rests on a tool, at the place where it rests.
///
/// Without a greatest width a tip is one line; with one it is broken into lines where it is
/// longer, and at its own line ends. Assistive tools read the tip of a whole window as its
/// description.
class UTILITY_UI_API CToolTipCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolTipCtrl)

public:
    bool Create(CWnd* owner, DWORD style = 0);

    /// False if the window is gone. A tool that is there already takes the new text and place.
    bool AddTool(CWnd* window, const CString& text, const CRect& place = {}, UINT id = 0);
    void DelTool(CWnd* window, UINT id = 0);
    void UpdateTipText(const CString& text, CWnd* window, UINT id = 0);
    void Activate(bool active);
    int GetToolCount() const;
    /// -1 for tips of one line; the width before.
    int SetMaxTipWidth(int width);
};

} // namespace utility
