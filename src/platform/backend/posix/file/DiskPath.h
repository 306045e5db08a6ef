#pragma once

#include "platform/base/String.h"

#include <string>
#include <string_view>

namespace utility
{

/// A path in classic form as the bytes that the system's calls take, found on disk.
///
/// Exact names first, else each component without regard to case (of two matches the lowest by
/// units), so "DIR\Board.PCB" leads to "dir/board.pcb". What is not there keeps its spelling. Empty
/// for an empty path or an unmapped share.
std::string DiskPath(std::u16string_view path);

/// As DiskPath, but the last component keeps its spelling: for a name that is to be given.
std::string DiskPathForNewName(std::u16string_view path);

/// One name on disk as units, and back; every name of bytes comes back as it was.
std::u16string NameFromDisk(std::string_view name);
std::string NameToDisk(std::u16string_view name);

/// A native path as a classic one: its separators and the odd names in it.
CString ClassicFromDisk(std::string_view native);

} // namespace utility
