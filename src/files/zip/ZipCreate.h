#pragma once

#include "files/zip/Zip.h"
#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <functional>

namespace utility
{

/// Making archives: to a file, an open handle or memory, entry by entry.
///
///     const HZIP zip = CreateZip(u"C:\\boards\\amplifier.zip", nullptr);
///     ZipAdd(zip, u"amplifier.pcb", u"C:\\boards\\amplifier.pcb");
///     ZipAddFolder(zip, u"library");
///     CloseZipZ(zip);
///
/// Any failed addition ends the archive: later ones give ZIP_FAILED_BEFORE, and what is complete
/// becomes a sound archive when it is closed. A null handle gives ZIP_ARGUMENTS, one of an archive
/// being read ZIP_WRONG_KIND. Zip64 records are written only where an entry or the archive passes
/// 32 bits; a source that does not tell its size, such as a pipe, fails there with
/// ZIP_WRITE_FAILED.

/// Null on failure, the reason being the last result. A password, null or "" for none, encrypts in
/// the traditional way, which keeps nobody out for long.
///
///     path      made, or emptied
///     memory    of that length, which must be enough; null takes a block for ZipGetMemory
///     handle    from its present place on; the archive keeps one of its own
UTILITY_CORE_API HZIP CreateZip(const char16_t* path, const char16_t* password);
UTILITY_CORE_API HZIP CreateZip(void* memory, unsigned length, const char16_t* password);
UTILITY_CORE_API HZIP CreateZipHandle(HANDLE handle, const char16_t* password);

/// Each entry has the name given, `\` being stored as "/". What is compressed already by its
/// extension (".zip", ".gz" ...) is stored, all else deflated.
UTILITY_CORE_API ZRESULT ZipAdd(HZIP zip, const char16_t* name, const char16_t* path);
UTILITY_CORE_API ZRESULT ZipAdd(HZIP zip, const char16_t* name, const void* memory,
                                unsigned length);
/// From its present place on, to its end or for `length` bytes, which must come: else
/// ZIP_SIZE_WRONG.
UTILITY_CORE_API ZRESULT ZipAddHandle(HZIP zip, const char16_t* name, HANDLE handle);
UTILITY_CORE_API ZRESULT ZipAddHandle(HZIP zip, const char16_t* name, HANDLE handle,
                                      unsigned length);
/// With the times of the folder at `path`; without one, or null, those of the present.
UTILITY_CORE_API ZRESULT ZipAddFolder(HZIP zip, const char16_t* name);
UTILITY_CORE_API ZRESULT ZipAddFolder(HZIP zip, const char16_t* name, const char16_t* path);

/// Told of each piece of an entry's data, some 64 KB, before it is packed; false stops, and the
/// addition fails with ZIP_WRITE_FAILED.
using CZipProgress = std::function<bool(std::size_t bytes)>;
UTILITY_CORE_API ZRESULT SetZipProgress(HZIP zip, CZipProgress progress);

/// Moves the first entry of that name, whatever its case, to the head of the directory, so that it
/// stands first in lists.
UTILITY_CORE_API ZRESULT ZipPromote(HZIP zip, const CString& name);

/// Ends an archive in memory and tells where it is; it may be asked again. Valid until the archive
/// is closed.
UTILITY_CORE_API ZRESULT ZipGetMemory(HZIP zip, void** memory, std::uint32_t* length);

UTILITY_CORE_API ZRESULT CloseZipZ(HZIP zip);

} // namespace utility
