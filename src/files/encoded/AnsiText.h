#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Text lines between UTF-8 and the default code page, in place; plain ASCII stays as it is.
///
///     default page   AnsiToUTF8                     UTF8ToAnsi
///     65001          sound text stays as it is      sound text stays as it is
///     1252           "é" becomes the units C3 A9,   "é" stays, for it goes out and in through the
///                    the bytes read in that page    same page; what the page lacks becomes "?"
///
/// Any thread.
UTILITY_CORE_API void AnsiToUTF8(CString& text);
UTILITY_CORE_API void UTF8ToAnsi(CString& text);

} // namespace utility
