#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

constexpr UINT UDM_SETBUDDY = 0x0469; // wParam: window; answers the one before
constexpr UINT UDM_GETBUDDY = 0x046A;
constexpr UINT UDM_SETRANGE32 = 0x046F; // wParam: low, lParam: high
constexpr UINT UDM_GETRANGE32 = 0x0470; // two int pointers
constexpr UINT UDM_SETPOS32 = 0x0471;   // answers the position before
constexpr UINT UDM_GETPOS32 = 0x0472;

/// Code of WM_NOTIFY to the parent, with a NMUPDOWN, before the user's step; an answer other than
/// 0 keeps the position.
constexpr int UDN_DELTAPOS = -722;

struct NMUPDOWN
{
    NMHDR hdr;
    int iPos = 0;
    int iDelta = 0; // may be changed
};

/// A pair of arrows that steps a number, in a range that is 0 to 100 at first.
///
/// With UDS_SETBUDDYINT the number is that of its buddy's text: with UDS_AUTOBUDDY the child before
/// it. A low end above the high one turns the direction round.
class UTILITY_UI_API CSpinButtonCtrl : public CWnd
{
    DECLARE_DYNAMIC(CSpinButtonCtrl)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);

    CWnd* SetBuddy(CWnd* buddy);
    CWnd* GetBuddy() const;
    void SetRange32(int low, int high);
    void GetRange32(int& low, int& high) const;
    /// Clipped to the range; the position before.
    int SetPos32(int position);
    int GetPos32() const;
};

} // namespace utility
