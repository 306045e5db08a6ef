#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

#include <cstddef>

namespace utility
{

constexpr UINT GMEM_MOVEABLE = 2;
constexpr UINT GMEM_ZEROINIT = 0x40;
constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;

/// Blocks of bytes behind a handle: long binaries and printer settings pass through interfaces this
/// way.
///
/// A block never moves. The caller owns it until `GlobalFree`; a null handle gives null or 0
/// everywhere. A block may go from thread to thread, one at a time.
[[nodiscard]] UTILITY_CORE_API HGLOBAL GlobalAlloc(UINT flags, std::size_t size);
/// The handle for a block of the new size with the old bytes; null, and the old block stays, if
/// memory is short.
[[nodiscard]] UTILITY_CORE_API HGLOBAL GlobalReAlloc(HGLOBAL block, std::size_t size, UINT flags);
UTILITY_CORE_API void* GlobalLock(HGLOBAL block);
UTILITY_CORE_API BOOL GlobalUnlock(HGLOBAL block);
UTILITY_CORE_API std::size_t GlobalSize(HGLOBAL block);
/// Always null.
UTILITY_CORE_API HGLOBAL GlobalFree(HGLOBAL block);

} // namespace utility
