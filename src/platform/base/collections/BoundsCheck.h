#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// Raises a new `CInvalidArgException` (platform/base/object), by pointer.
[[noreturn]] UTILITY_CORE_API void AfxThrowInvalidArgException();

/// What every container asks before it touches an element.
inline void CheckBounds(bool inBounds)
{
    if (!inBounds) [[unlikely]]
        AfxThrowInvalidArgException();
}

} // namespace utility
