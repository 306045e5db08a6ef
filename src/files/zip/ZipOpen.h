#pragma once

#include "files/zip/Zip.h"
#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// Reading archives: opened from a file, an open handle or memory, entries taken in any order.
///
///     const HZIP zip = OpenZip(u"C:\\boards\\amplifier.zip", nullptr);
///     ZIPENTRY entry;
///     for (int i = 0; GetZipItem(zip, i, &entry) == ZIP_SUCCESS; ++i)
///         UnzipItem(zip, i, entry.name);
///     CloseZipU(zip);
///
/// Read are stored and deflated entries, encrypted in the traditional way or not, with Zip64
/// records and with a program in front; all else is ZIP_CORRUPT, and ZipFault.h tells what it is. A
/// null handle gives ZIP_ARGUMENTS, one of an archive being made ZIP_WRONG_KIND.

/// Null on failure, the reason being the last result. A password of bytes, null or "" for none, is
/// asked for where an entry wants it only. Memory must outlive the archive; of a handle one of its
/// own is kept.
UTILITY_CORE_API HZIP OpenZip(const char16_t* path, const char* password);
UTILITY_CORE_API HZIP OpenZip(const void* memory, unsigned length, const char* password);
UTILITY_CORE_API HZIP OpenZipHandle(HANDLE handle, const char* password);

/// What the directory tells of an entry; index -1 gives the number of entries in `index`.
UTILITY_CORE_API ZRESULT GetZipItem(HZIP zip, int index, ZIPENTRY* entry);

enum class EZipEncryption
{
    None,
    Traditional,
    Unknown // cannot be read here
};

/// What has no room in a ZIPENTRY.
struct ZIPENTRYINFO
{
    CString name; // whole and cleaned
    std::uint64_t comp_size = 0;
    std::uint64_t unc_size = 0;
    std::uint32_t crc = 0;
    std::uint16_t method = 0; // 0 stored, 8 deflated; others cannot be read here
    EZipEncryption encryption = EZipEncryption::None;
    bool is_link = false; // a symbolic link where it was made; here its target's text is a file
};

UTILITY_CORE_API ZRESULT GetZipItemInfo(HZIP zip, int index, ZIPENTRYINFO* info);

/// The first entry of that name, `\` taken for `/`; `index` is -1 if there is none. Both outputs
/// may be null.
UTILITY_CORE_API ZRESULT FindZipItem(HZIP zip, const char16_t* name, bool ignoreCase, int* index,
                                     ZIPENTRY* entry);

/// Where relative paths of UnzipItem count from; at first the folder that is current when the
/// archive is opened.
UTILITY_CORE_API ZRESULT SetUnzipBaseDir(HZIP zip, const char16_t* dir);

/// To a file, with its times and its read-only mark, and the folders above it. Never the entry's
/// name counts but the caller's path.
///
///     "sub\a.txt"      below the base, no link being followed from there on; ".." is refused
///     "sub\"           makes the folder
///     "C:\x\a.txt"     as it stands
///
/// A file that is there is replaced once the entry is unpacked and sound, never before; links of
/// the archive become files.
UTILITY_CORE_API ZRESULT UnzipItem(HZIP zip, int index, const char16_t* path);

/// To memory, in as many calls as it takes: ZIP_MORE when the buffer is full and something is left,
/// ZIP_SUCCESS with the last piece. Until then no other entry can be unpacked: ZIP_PARTLY_UNZIPPED.
UTILITY_CORE_API ZRESULT UnzipItem(HZIP zip, int index, void* memory, unsigned length);

/// To an open handle, from its present place on.
UTILITY_CORE_API ZRESULT UnzipItemHandle(HZIP zip, int index, HANDLE handle);

UTILITY_CORE_API ZRESULT CloseZipU(HZIP zip);

} // namespace utility
