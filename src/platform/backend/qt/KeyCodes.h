#pragma once

#include "platform/base/Types.h"

#include <QtCore/qnamespace.h>

namespace utility
{

/// The number of a key in our vocabulary; 0 for one that has none.
UINT VirtualKeyOf(int key);

/// MK_... of what is held down.
WPARAM PointerKeysOf(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers);

} // namespace utility
