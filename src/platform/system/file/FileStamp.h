#pragma once

#include "platform/base/Export.h"

#include <cstdint>

namespace utility
{

/// Tells one state of a file from every other: which file it is, how long, and when it was written
/// to, as exactly as the disk knows it. To be compared, not read.
struct CFileStamp
{
    std::uint64_t m_Disk = 0;
    std::uint64_t m_Number = 0; // of the file on its disk
    std::uint64_t m_Size = 0;
    std::int64_t m_Seconds = 0; // of the last writing
    std::uint32_t m_Nanoseconds = 0;

    bool operator==(const CFileStamp&) const = default;
};

/// Of the file at a path in classic form, links followed. False if there is none; the stamp is then
/// left alone, and so is the last error in any case.
[[nodiscard]] UTILITY_CORE_API bool GetFileStamp(const char16_t* path, CFileStamp& stamp);

} // namespace utility
