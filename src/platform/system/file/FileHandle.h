#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/base/time/FileTime.h"
#include "platform/system/process/OwnHandle.h"

#include <cstdint>

namespace utility
{

/// Bytes through an open handle: files and ends of pipes. Closed by `CloseHandle` of Handle.h.
///
/// Whatever fails writes the thread's last error. Calls on one handle move one common place, so one
/// thread at a time.

constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;

// What others may do meanwhile
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;

constexpr DWORD CREATE_ALWAYS = 2; // an old one is emptied
constexpr DWORD OPEN_EXISTING = 3;

// Places that SetFilePointerEx counts from
constexpr DWORD FILE_BEGIN = 0;
constexpr DWORD FILE_CURRENT = 1;
constexpr DWORD FILE_END = 2;

/// A file or pipe by its path in classic form; INVALID_HANDLE_VALUE if it cannot be opened so.
UTILITY_CORE_API HANDLE CreateFileW(const char16_t* path, DWORD access, DWORD share,
                                    DWORD disposition);

/// The same for reading, whatever others do with it meanwhile; none if it cannot be opened so.
inline COwnHandle OpenToRead(const char16_t* path)
{
    return COwnHandle(
        CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING));
}

/// An unnamed pipe: what is written to one end is read from the other.
UTILITY_CORE_API bool CreatePipe(HANDLE& readEnd, HANDLE& writeEnd);

/// `done` is the bytes read: of a file all that were wanted, or less at its end; of a pipe what is
/// there by now, and 0 once the other side is closed.
UTILITY_CORE_API bool ReadFile(HANDLE handle, void* bytes, DWORD count, DWORD& done);
/// All of them, or false; `done` tells how many went out.
UTILITY_CORE_API bool WriteFile(HANDLE handle, const void* bytes, DWORD count, DWORD& done);
/// Returns once all that was written stands on the disk.
UTILITY_CORE_API bool FlushFileBuffers(HANDLE handle);

/// False, and `place` keeps its preset, for a pipe and for a place before the start.
UTILITY_CORE_API bool SetFilePointerEx(HANDLE handle, std::int64_t distance, std::int64_t* place,
                                       DWORD from);
/// False, and `size` keeps its preset, for a pipe.
UTILITY_CORE_API bool GetFileSizeEx(HANDLE handle, std::int64_t& size);

/// Cuts or lengthens a file at its present place.
UTILITY_CORE_API bool SetEndOfFile(HANDLE handle);

/// Null leaves a time out. The creation is the last change where the disk keeps none, and cannot be
/// set: it is taken and without effect.
UTILITY_CORE_API bool GetFileTime(HANDLE handle, FILETIME* creation, FILETIME* access,
                                  FILETIME* write);
UTILITY_CORE_API bool SetFileTime(HANDLE handle, const FILETIME* creation, const FILETIME* access,
                                  const FILETIME* write);

} // namespace utility
