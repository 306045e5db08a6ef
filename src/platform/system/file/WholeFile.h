#pragma once

#include "platform/system/file/File.h"

#include <cstdint>
#include <string>

namespace utility
{

constexpr std::uint64_t LARGEST_WHOLE_FILE = 0xFFFFFFFF; // bytes, as many as one read gives

/// All bytes of a file; `share` is what others may do meanwhile, one of CFile's share modes.
///
/// False, with the last error, if it cannot be read or is larger than `limit` (then
/// ERROR_NOT_ENOUGH_MEMORY); what `bytes` hold is then undefined.
[[nodiscard]] UTILITY_CORE_API bool ReadWholeFile(const CString& path, std::string& bytes,
                                                  UINT share = CFile::shareDenyWrite,
                                                  std::uint64_t limit = LARGEST_WHOLE_FILE);

} // namespace utility
