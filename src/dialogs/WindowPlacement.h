#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CRect;
class CWnd;

/// Windows put where they are seen. User-interface thread.

/// The rectangle around all monitors.
UTILITY_UI_API CRect GetVirtualScreen();

/// Whether the window is maximised, or minimised from there.
UTILITY_UI_API bool IsWindowMaximised(const CWnd& window);

/// Shifts a window into the work area of the monitor that is nearest to its top left corner; of a
/// window larger than that area the top left corner stays visible. True if it moved.
UTILITY_UI_API bool MoveWindowOnScreen(CWnd& window);

/// A rectangle of that size on the screen, centred in the client area of a window, or on the main
/// monitor for null.
UTILITY_UI_API void CentreWindow(const CRect& place, const CWnd* parent, CRect& centred);

/// Puts two windows side by side: halves of one monitor, or maximised on two. Takes windows of
/// other programs too, where windows may be placed at all.
UTILITY_UI_API void ArrangeSideBySide(HWND first, HWND second);

/// Puts a window before the others, with `force` also before the foreground window of this program.
/// With `moveCursor` the pointer goes to the window's centre unless it is over the window.
UTILITY_UI_API void BringWindowToTop(CWnd& window, bool force, bool moveCursor);

} // namespace utility
