#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

#include <initializer_list>

namespace utility
{

/// Whether a key is down and none of the others is; numbers are those of GetKeyState.
///
///     IsKeyDownExclusively(VK_SHIFT, {VK_CONTROL, VK_MENU})
UTILITY_UI_API bool IsKeyDownExclusively(UINT key, std::initializer_list<UINT> others);

} // namespace utility
