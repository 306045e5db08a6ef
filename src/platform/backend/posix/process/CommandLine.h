#pragma once

#include "platform/base/String.h"

#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// Cuts the arguments of a command line by the classic rules of quotes and backslashes.
std::vector<CString> SplitArguments(std::u16string_view text);

/// Where a command line's program name ends.
struct CProgramName
{
    CString m_Name;
    std::size_t m_End = 0; // where the arguments begin
};

/// The names that the line's first words may stand for, the shortest first: one if it is quoted.
std::vector<CProgramName> ProgramNames(std::u16string_view line);

} // namespace utility
