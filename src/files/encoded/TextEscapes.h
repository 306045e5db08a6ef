#pragma once

#include "platform/base/String.h"

#include <string>

namespace utility
{

/// Numbers in place of the characters that an ASCII file cannot hold.
///
///     plain   lead "U+", four upper-case hexadecimal digits     U+00E9
///     RTF     lead "\u", a decimal number, a trailer            \u233?
///
/// RTF is a switch of the whole process: the format and trailer of all files that write escapes.
/// Any thread.
void SetRtfEscapes(bool on);

/// `unit` as an escape in the form in force, as bytes.
void AppendEscape(std::string& bytes, char16_t unit, const CString& lead);

/// Puts the character back for each lead with a hexadecimal number behind it that is not 0, and
/// takes the trailer in force with it. So a decimal RTF escape comes back as another character:
/// kept.
void UndoEscapes(CString& text, const CString& lead);

} // namespace utility
