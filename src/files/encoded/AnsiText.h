#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Text lines between UTF-8 and the default code page, in place; plain ASCII stays as it is. Any thread.
///
///     default page 65001   sound text stays as it is
///     default page 1252    AnsiToUTF8: "é" becomes the units C3 A9, the bytes read in the default page
///                          UTF8ToAnsi: "é" stays, for it goes out and in through the same page; what the page
///                          lacks becomes "?"
UTILITY_CORE_API void AnsiToUTF8(CString& text);
UTILITY_CORE_API void UTF8ToAnsi(CString& text);

} // namespace utility
