#include "frame/ProgramPath.h"

#include "platform/system/process/Process.h"
#include "platform/system/window/WinApp.h"

namespace utility
{

namespace
{

CString& ProgramPath()
{
    static CString& path = *new CString;
    return path;
}

} // namespace

void SetProgramPath()
{
    const CString program = GetModuleFileNameW();
    ProgramPath() = program.Left(program.ReverseFind(u'\\') + 1);
}

CString GetProgramPath()
{
    if (ProgramPath().IsEmpty())
        SetProgramPath();
    return ProgramPath();
}

void SetApplicationExeName()
{
    const CString program = GetModuleFileNameW();
    const int point = program.ReverseFind(u'.');
    // A point in a folder's name, or in front of a hidden program's, begins no extension.
    const bool hasExtension = point > program.ReverseFind(u'\\') + 1;
    AfxGetApp()->m_pszExeName = hasExtension ? program.Left(point) : program;
}

} // namespace utility
