#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <cstdint>

namespace utility
{

/// In bytes; 0 if the file cannot be asked.
UTILITY_CORE_API std::int64_t GetFileSize(const CString& path);

/// A size for people.
///
///     0      "0"            1536     "1.50 KB"
///     512    "512.00  B"    1048576  "1.00 MB"
UTILITY_CORE_API CString ReadableFileSize(std::int64_t size);

/// That of a file; empty if it cannot be asked.
UTILITY_CORE_API CString ReadableFileSize(const CString& path);

} // namespace utility
