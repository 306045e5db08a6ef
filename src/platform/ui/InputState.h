#pragma once

#include "platform/base/Export.h"
#include "platform/base/Point.h"
#include "platform/base/Types.h"

namespace utility
{

/// What is pressed and where the pointer stands. User-interface thread.

/// Whether Shift, Control or Alt (VK_SHIFT, VK_CONTROL, VK_MENU) was down at the event that is
/// being handled; false for other keys.
UTILITY_UI_API bool IsKeyDown(UINT key);
/// The same in the classic form: below 0 for a key that is down.
UTILITY_UI_API std::int16_t GetKeyState(UINT key);

/// On the screen.
UTILITY_UI_API CPoint GetCursorPos();
UTILITY_UI_API bool GetCursorPos(CPoint* point);
/// Does nothing where the window system lets no program move the pointer.
UTILITY_UI_API bool SetCursorPos(int x, int y);

} // namespace utility
