#pragma once

#include "platform/base/String.h"

#include <cstdint>
#include <optional>

namespace utility
{

/// A count of bytes as people write it: "500", "20K", "500M", "2G"; none for what is no such.
std::optional<std::uint64_t> ReadByteCount(const CString& text);

} // namespace utility
