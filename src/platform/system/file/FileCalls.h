#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// Single calls on paths in classic form. Whatever fails writes the thread's last error.

/// What stands at a path, links followed; a closing separator asks for a folder.
enum class EEntryKind
{
    None,
    File,
    Folder,
    Other // a device, a pipe
};
UTILITY_CORE_API EEntryKind GetEntryKind(const char16_t* path);

/// Deletes a file or a link; a read-only file is refused with ERROR_ACCESS_DENIED though the disk
/// would allow it.
UTILITY_CORE_API bool DeleteFileW(const char16_t* path);
/// Gives a file the mode and, where permitted, the owner of another; its owner may always write it.
UTILITY_CORE_API bool CopyFileRights(const char16_t* from, const char16_t* to);
/// 0 if the file is gone, else -1.
UTILITY_CORE_API int _wremove(const char16_t* path);
/// Removes an empty folder.
UTILITY_CORE_API bool RemoveDirectoryW(const char16_t* path);
/// 0 if the folder was made, else -1.
UTILITY_CORE_API int _wmkdir(const char16_t* path);

/// The whole path: the current folder in front of a relative one, "." and ".." folded as text, no
/// link followed.
///
///     current folder \work     "a.pcb"       \work\a.pcb
///                              "..\a.pcb"    \a.pcb
///                              "C:\x\.\y"    C:\x\y
///                              ""            ""
UTILITY_CORE_API CString GetFullPathNameW(const char16_t* path);
/// The same path where it exists: there are no short names here. `shortPath` keeps its preset
/// otherwise.
UTILITY_CORE_API bool GetShortPathNameW(const char16_t* path, CString& shortPath);
UTILITY_CORE_API CString GetCurrentDirectoryW();
UTILITY_CORE_API bool SetCurrentDirectoryW(const char16_t* path);

/// Makes an empty file beside `target`, and behind its links, that can take its place by
/// ReplaceWholeFile: with the target's mode and, where permitted, owner. `written` is its path,
/// `replaced` where the links lead.
///
/// A read-only target fails with ERROR_ACCESS_DENIED before anything is made; the target need not
/// exist.
UTILITY_CORE_API bool MakeReplacement(const char16_t* target, CString& written, CString& replaced);

/// Lets the file `written` take the place of `replaced`, at once and for good, or leaves both as
/// they are.
///
/// It is synced before the rename and its folder after it.
UTILITY_CORE_API bool ReplaceWholeFile(const char16_t* written, const char16_t* replaced);

} // namespace utility
