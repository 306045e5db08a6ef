#pragma once

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace utility
{

/// The name of an entry as text: UTF-8, or code page 437 for what is none.
std::u16string DecodeZipName(std::string_view bytes);

/// The part of a read name that stays below any folder; dots within names stay.
///
///     "../x"           "x"
///     "a/../../b"      "b"     whatever stands before the last ".." goes with it
///     "x/../C:\b"      "b"     drives and leading separators go, again and again
///     "a/.."           ""
///     "a..b/c"         "a..b/c"
UTILITY_CORE_API std::u16string_view CleanZipName(std::u16string_view name);

/// Whether a file of that name is compressed already, by its extension: ".zip", ".gz" and their
/// kin, whatever their case.
bool IsStoredZipName(std::string_view name);

constexpr bool IsZipSeparator(char16_t unit)
{
    return unit == u'/' || unit == u'\\';
}

} // namespace utility
