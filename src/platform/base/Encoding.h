#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <string>
#include <string_view>

namespace utility
{

constexpr UINT CP_ACP = 0; // the default page
constexpr UINT CP_UTF8 = 65001;

/// Units to bytes of a code page; a length of -1 means up to and with the terminator.
///
/// Returns the bytes written, or those needed when `capacity` is 0; 0 when the buffer is too small
/// or the page unknown. What the page lacks becomes `defaultChar` ("?" if null), and `usedDefault`
/// tells so. UTF-8 writes a lone surrogate as EF BF BD. Flags 0 and 544 are accepted and change
/// nothing.
UTILITY_CORE_API int WideCharToMultiByte(UINT page, DWORD flags, const char16_t* text, int length,
                                         char* bytes, int capacity, const char* defaultChar,
                                         BOOL* usedDefault);

/// Bytes of a code page to units; a length of -1 means up to and with the terminator. Results as
/// above.
///
/// Ill-formed UTF-8 gives one U+FFFD for each maximal bad piece.
UTILITY_CORE_API int MultiByteToWideChar(UINT page, DWORD flags, const char* bytes, int length,
                                         char16_t* text, int capacity);

/// The default page: 65001 when the locale's code set is UTF-8 or "C".
UTILITY_CORE_API UINT GetACP();

/// Overrides the default page; 0 returns to the locale's. For tests and for hosts with old files.
UTILITY_CORE_API void SetACP(UINT page);

/// Whole texts, of any length.
UTILITY_CORE_API std::string ToBytes(UINT page, std::u16string_view text);
UTILITY_CORE_API CString FromBytes(UINT page, std::string_view bytes);
UTILITY_CORE_API std::string ToUtf8(std::u16string_view text);
UTILITY_CORE_API CString FromUtf8(std::string_view bytes);

} // namespace utility
