#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CWnd;

/// Many windows moved together: they are placed when the block ends, and painted once.
///
///     HDWP moves = BeginDeferWindowPos(8);
///     moves = DeferWindowPos(moves, edit, nullptr, x, y, width, height, SWP_NOZORDER);
///     EndDeferWindowPos(moves);
///
/// The count is a first guess; a block grows. A window that is gone by the end is passed over.
/// User-interface thread.
UTILITY_UI_API HDWP BeginDeferWindowPos(int count);
/// The block, or null if it was ended before or the window is none.
UTILITY_UI_API HDWP DeferWindowPos(HDWP moves, const CWnd& window, const CWnd* behind, int x, int y,
                                   int width, int height, UINT flags);
/// False if the block was ended before.
UTILITY_UI_API bool EndDeferWindowPos(HDWP moves);

} // namespace utility
