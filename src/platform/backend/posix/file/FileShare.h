#pragma once

#include "platform/base/Types.h"

namespace utility
{

/// What an open file does and what it keeps others from doing.
struct CFileShare
{
    bool Reads = false;
    bool Writes = false;
    bool DeniesReaders = false;
    bool DeniesWriters = false;
};

/// Marks an open regular file with what its opener does and denies; 0, or the code why not:
/// ERROR_SHARING_VIOLATION if others' marks and these exclude each other.
///
/// The marks go with the descriptor. A file that cannot be marked (not readable, or on a disk
/// without locks) is open to everybody.
DWORD TakeFileShare(int descriptor, const CFileShare& share);

} // namespace utility
