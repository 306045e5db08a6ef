#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <string>

namespace utility
{

/// A program on disk, or why there is none.
struct CFoundProgram
{
    std::string m_Path; // as the system's calls take it; empty: not found
    DWORD m_Error = 0;  // then 2, 3 or 5
};

/// Finds what a command line's program name stands for; `CreateProcessW` tells the rules.
CFoundProgram FindProgram(const CString& name);

} // namespace utility
