#include "platform/backend/posix/process/ProgramCall.h"

#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/process/CommandLine.h"
#include "platform/base/ErrorCodes.h"

#include <utility>

namespace utility
{

CProgramCall FindProgramCall(std::u16string_view line)
{
    CProgramCall call{{{}, ERROR_FILE_NOT_FOUND}, {}};
    bool isFirst = true;
    for (const CProgramName& name : ProgramNames(line))
    {
        CFoundProgram found = FindProgram(name.m_Name);
        if (!found.m_Path.empty())
        {
            call = {found, {found.m_Path}};
            for (const CString& argument : SplitArguments(line.substr(name.m_End)))
                call.m_Arguments.push_back(NameToDisk(argument.View()));
            return call;
        }
        if (std::exchange(isFirst, false))
            call.m_Program = found;
    }
    return call;
}

} // namespace utility
