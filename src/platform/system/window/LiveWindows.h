#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <functional>

namespace utility
{

class CRect;

/// The top-level windows of all programs of this user that are built on this library.
///
/// A window of another program is a value, as it was told last: it may be gone by now. It can be
/// brought to the top, moved, maximised, closed and sent a registered message; all else fails with
/// 50, a window that is gone with 6, a program that takes nothing with 121. Those calls return
/// before the other program has acted, and take own windows, too. Any thread, but own windows are
/// changed on the main thread only.
struct CLiveWindow
{
    HWND m_Window = nullptr;
    DWORD m_ProcessId = 0;
    int m_Instance = 0;    // what the program said by SetLiveInstance, 0 before
    CString m_Application; // the program's name
    CString m_ClassName;
    CString m_Title; // the first 127 units
};

/// Calls `visit` for each window, own ones first, the topmost of each program before its others,
/// until it answers false; then the result is false, too.
UTILITY_CORE_API bool EnumWindows(const std::function<bool(const CLiveWindow&)>& visit);

/// The process of a window; 0, with 6, for one that is gone.
UTILITY_CORE_API DWORD GetWindowThreadProcessId(HWND window);

/// The first 127 units of the title; "", with 6, for a window that is gone.
UTILITY_CORE_API CString GetWindowText(HWND window);

UTILITY_CORE_API bool SetForegroundWindow(HWND window);
UTILITY_CORE_API bool MoveWindow(HWND window, const CRect& place);
/// Of another program's window: SW_MAXIMIZE alone.
UTILITY_CORE_API bool ShowWindow(HWND window, int command);
/// To another program: a registered message, whose name travels and whose numbers are bare, or
/// WM_CLOSE.
UTILITY_CORE_API bool PostMessageW(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// The number that other programs know this one by. Main thread.
UTILITY_CORE_API void SetLiveInstance(int instance);

// Events: names with two numbers, from program to program rather than from window to window

/// Gets on the main thread what other programs send.
using LiveEventHandler = void (*)(const CString& name, LPARAM a, LPARAM b);

/// Returns the one before; null passes events over. Any thread.
UTILITY_CORE_API LiveEventHandler SetLiveEventHandler(LiveEventHandler handler);
UTILITY_CORE_API LiveEventHandler GetLiveEventHandler();

/// Sends an event to all other programs of the same application name that have a window; how many
/// took it. A name above 255 units goes to none.
UTILITY_CORE_API int SendLiveEvent(const CString& name, LPARAM a, LPARAM b);

} // namespace utility
