#pragma once

#include "platform/base/Export.h"

#include <cstddef>

namespace utility
{

/// Fills the bytes from the system's source of random numbers, fit for keys. Any thread.
UTILITY_CORE_API void FillRandom(void* bytes, std::size_t count);

/// What stands behind the call above.
struct CRandomSource
{
    void (*m_Fill)(void* bytes, std::size_t count);
};

/// Lets a test set the bytes; the source is kept alive by the caller, null returns to the system's
/// source.
UTILITY_CORE_API void SetRandomSource(const CRandomSource* source);

} // namespace utility
