#pragma once

#include "platform/base/Export.h"

#include <cstdint>
#include <string_view>

namespace utility
{

/// The beginning of a name, packed so that two of them are compared at once: what sorts of a
/// million names use before they look at the names themselves.
struct CNameKey
{
    std::uint64_t m_High = 0;
    std::uint64_t m_Low = 0; // the lowest byte counts the bytes that decide
};

UTILITY_CORE_API CNameKey MakeNameKey(std::u16string_view name);

/// The sign of `StringCompare(left, right, false, true, true)` where the keys tell it; else 0, and
/// the names have to be compared.
UTILITY_CORE_API int CompareNameKeys(const CNameKey& left, const CNameKey& right);

} // namespace utility
