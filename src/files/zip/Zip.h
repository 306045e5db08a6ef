#pragma once

#include "platform/base/Types.h"
#include "platform/base/time/FileTime.h"

#include <cstdint>

namespace utility
{

/// A zip archive that is being read or made: ZipOpen.h and ZipCreate.h. For one thread.
using HZIP = struct ZipRecord*;

/// What a call on an archive gives: a code of ZipResult.h.
using ZRESULT = std::uint32_t;

/// An entry of an archive that is read.
struct ZIPENTRY
{
    int index;              // -1 for a total
    char16_t name[260];     // cleaned, zero-terminated; cut at 259 units
    DWORD attr;             // bits of CFileStatus::m_attribute
    FILETIME atime;         // last access
    FILETIME ctime;         // creation
    FILETIME mtime;         // last modification
    std::int32_t comp_size; // bytes in the archive; -1 if unknown or above 2^31 - 1
    std::int32_t unc_size;  // bytes when unpacked; likewise
};

} // namespace utility
