#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

/// The columns that a character takes on a terminal: 2 for wide ones, 0 for marks that go with the
/// one before, 1 for controls, too.
int ScreenWidth(char32_t character);

/// The same of a whole text.
int ScreenWidth(const CString& text);

/// As much of a text as fits, with "…" at the end where something is left out.
///
///     "100 kOhm"   8   "100 kOhm"
///     "100 kOhm"   6   "100 k…"
///     "抵抗器"       4   "抵…"          the second wide character would need the columns 3 and 4
CString CutToWidth(const CString& text, int width);

/// The text in pieces that fit, at least one. A character that is wider than all the room stands
/// alone.
std::vector<CString> BreakToWidth(const CString& text, int width);

/// The text with as many blanks behind it as make it that wide, or more.
CString PadToWidth(const CString& text, int width);

} // namespace utility
