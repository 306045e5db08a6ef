#pragma once

#include "platform/backend/posix/process/ProgramSearch.h"

#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// What a command line asks for.
struct CProgramCall
{
    CFoundProgram m_Program;
    std::vector<std::string> m_Arguments; // the program's own path first
};

/// The first name that is a program; else the shortest, with the reason why it is none.
CProgramCall FindProgramCall(std::u16string_view line);

} // namespace utility
