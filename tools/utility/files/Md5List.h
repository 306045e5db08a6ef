#pragma once

#include "platform/base/String.h"

#include <string>
#include <string_view>

namespace utility
{

/// A line of a digest list, in the form that md5sum writes and reads: the digest, a blank, a blank
/// or "*", the name in native form. A name with a backslash or line end has these escaped, and a
/// backslash stands before the line.
struct CMd5Line
{
    CString m_Digest;
    std::string m_Name; // in native form, unescaped
};

/// False for a line that is none.
bool ParseMd5Line(std::string_view line, CMd5Line& parsed);

std::string FormatMd5Line(const CMd5Line& line);

} // namespace utility
