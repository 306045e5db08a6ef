#pragma once

#include "files/zip/ZipInput.h"

namespace utility
{

/// Where the directory of an archive lies, as its end record tells.
struct CZipEnd
{
    std::uint64_t m_Begin = 0;  // of the archive in the file: a program may stand in front
    std::uint64_t m_Offset = 0; // of the directory in the file
    std::uint64_t m_Size = 0;
    std::uint64_t m_Count = 0;
};

/// Looks for the end record from the file's end on; a result code.
///
/// Size and offset lie in the file, the count is what the record claims.
std::uint32_t FindZipEnd(CZipInput& input, CZipEnd& end);

} // namespace utility
