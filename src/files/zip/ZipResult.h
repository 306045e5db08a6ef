#pragma once

#include "files/zip/Zip.h"
#include "platform/base/Export.h"

namespace utility
{

constexpr ZRESULT ZIP_SUCCESS = 0;
// Of the system
constexpr ZRESULT ZIP_NO_DUPLICATE = 0x100;
constexpr ZRESULT ZIP_NO_FILE = 0x200;
constexpr ZRESULT ZIP_NO_MEMORY = 0x300;
constexpr ZRESULT ZIP_WRITE_FAILED = 0x400;
constexpr ZRESULT ZIP_NOT_FOUND = 0x500;
constexpr ZRESULT ZIP_MORE = 0x600;
constexpr ZRESULT ZIP_CORRUPT = 0x700;
constexpr ZRESULT ZIP_READ_FAILED = 0x800;
constexpr ZRESULT ZIP_PASSWORD = 0x1000; // when reading only
// Of the caller
constexpr ZRESULT ZIP_ARGUMENTS = 0x10000;
constexpr ZRESULT ZIP_NOT_MEMORY = 0x20000;
constexpr ZRESULT ZIP_MEMORY_SIZE = 0x30000;
constexpr ZRESULT ZIP_FAILED_BEFORE = 0x40000;
constexpr ZRESULT ZIP_ENDED = 0x50000;
constexpr ZRESULT ZIP_SIZE_WRONG = 0x60000;
constexpr ZRESULT ZIP_PARTLY_UNZIPPED = 0x70000;
constexpr ZRESULT ZIP_WRONG_KIND = 0x80000;
// Of the library
constexpr ZRESULT ZIP_NOT_INITIALISED = 0x1000000;
constexpr ZRESULT ZIP_UNSEEKABLE = 0x2000000;
constexpr ZRESULT ZIP_NO_CHANGE = 0x4000000;
constexpr ZRESULT ZIP_FLATION = 0x5000000;

/// Stands for the last result of a side in the calls below.
constexpr ZRESULT ZIP_RECENT = 1;

/// The words of a code for reading and for making archives; the result is their full length.
///
/// At most `length` - 1 units are copied and a zero put behind them; a null buffer or a length of 0
/// only measures. Both last results are of the whole process, so `ZIP_RECENT` means something right
/// after a call only.
UTILITY_CORE_API unsigned FormatZipMessageU(ZRESULT code, char16_t* buffer, unsigned length);
UTILITY_CORE_API unsigned FormatZipMessageZ(ZRESULT code, char16_t* buffer, unsigned length);

/// What the last call of the side gave.
UTILITY_CORE_API ZRESULT GetLastZipResultU();
UTILITY_CORE_API ZRESULT GetLastZipResultZ();

// The calls leave their result here, and return it.
ZRESULT SetLastZipResultU(ZRESULT code);
ZRESULT SetLastZipResultZ(ZRESULT code);

} // namespace utility
