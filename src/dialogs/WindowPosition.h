#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CRect;
class CString;
class CWnd;

/// Places of windows in the settings, each below a key of its own, private to this instance of the
/// program: `Top`, `Bottom`, `Left`, `Right` and `Maximised`. User-interface thread.

/// False, and `place` keeps its preset, unless all four sides are there, in order, and on the
/// screen as it is now: what was partly on a monitor since removed is refused as a whole.
[[nodiscard]] UTILITY_UI_API bool GetWindowPosition(const CString& key, CRect& place);
/// Nothing while the window is maximised, so that the size before is kept.
UTILITY_UI_API void SaveWindowPosition(const CWnd& window, const CString& key);

UTILITY_UI_API bool GetWindowMaximised(const CString& key);
UTILITY_UI_API void SaveWindowMaximised(const CWnd& window, const CString& key);
UTILITY_UI_API void SaveWindowMaximised(bool isMaximised, const CString& key);

/// The kept size with its bottom left corner at the pointer; nothing if no place is kept.
UTILITY_UI_API void SnapSavedWindowPositionToCursor(const CString& key);

} // namespace utility
