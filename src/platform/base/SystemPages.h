#pragma once

#include "platform/base/Types.h"

#include <string>
#include <string_view>

/// The pages that the system's converter knows: platform/backend/posix/IconvPages.cpp.
namespace utility::systempages
{

/// Whether the system converts this page. 65001 and the pages of CodePageTables.h are not asked
/// for.
bool IsKnown(UINT page);

/// The units of a known page's bytes. A byte that begins no character gives U+FFFD.
std::u16string Decode(UINT page, std::string_view bytes);

/// The bytes of a text in a known page. For each unit that the page lacks, `substitute` is put and
/// `usedDefault` set; otherwise it keeps its preset.
std::string Encode(UINT page, std::u16string_view text, std::string_view substitute,
                   bool& usedDefault);

/// The page of the user's locale; 65001 for UTF-8, for "C", and for a code set without a number.
UINT GetLocalePage();

} // namespace utility::systempages
