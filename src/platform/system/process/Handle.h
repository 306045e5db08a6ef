#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

/// A `HANDLE` names something of the system that is open: a file, an end of a pipe, a process, a
/// thread. Each is a number of the process's own that is never given twice, so a closed one is
/// known as such. Any thread; a handle may be closed while another thread waits for it.

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(~std::uintptr_t{0});

constexpr DWORD INFINITE = 0xFFFFFFFF;

// What WaitForSingleObject gives; after the time-out it is WAIT_TIMEOUT of ErrorCodes.h
constexpr DWORD WAIT_OBJECT_0 = 0;
constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;

/// False with ERROR_INVALID_HANDLE for what is no handle, or is one no more.
UTILITY_CORE_API bool CloseHandle(HANDLE handle);

/// Another handle for the same thing, which stays open until both are closed; false, and `copy`
/// keeps its preset, for what is no handle.
UTILITY_CORE_API bool DuplicateHandle(HANDLE handle, HANDLE& copy);

/// Waits at most so many milliseconds until the handle is signalled.
///
///     process, thread    once it has ended
///     pipe               while there is something to read, or the other side is gone
///     file               always
///
/// WAIT_FAILED, with the last error, for what is no handle.
UTILITY_CORE_API DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);

} // namespace utility
