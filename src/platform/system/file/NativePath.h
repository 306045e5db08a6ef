#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <string>
#include <string_view>

namespace utility
{

/// Paths in the program are in classic form (`\srv\lib\a.pcb`); the disk, users and other programs
/// see native ones.
///
///     classic              native
///     \srv\lib\a.pcb       /srv/lib/a.pcb
///     C:\lib//a.pcb        /lib/a.pcb        the drive map is asked; an unmapped drive is dropped
///     \\srv\parts\a.pcb    none unless `\\srv\parts` is mapped
///
/// A name on disk that is no text leads back to the same file: there a `\`, `:` or control of this
/// scheme is a private-use unit (U+F05C, U+F03A), and a byte that is no UTF-8 a lone surrogate
/// (U+DC80 to U+DCFF).

/// What a user reads: message inserts, labels. Asks no disk; a share that is not mapped stays as it
/// is.
UTILITY_CORE_API CString NativePath(const CString& path);

/// The classic form of what comes from outside in native form, such as a command-line argument or a
/// chosen file.
UTILITY_CORE_API CString ClassicPath(std::string_view native);

/// What other programs are given: the bytes of the disk, found without regard to case where the
/// exact name is absent. Empty for an unmapped share.
UTILITY_CORE_API std::string DiskPathBytes(const CString& path);

/// The host's drive map: "C:" or `\\server\share` to a native folder; an empty folder takes the
/// entry out. Any thread.
UTILITY_CORE_API void MapDrive(const CString& drive, const CString& nativeFolder);

} // namespace utility
