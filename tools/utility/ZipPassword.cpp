#include "ZipPassword.h"

#include "files/encoded/StdioFileEx.h"
#include "frame/AppError.h"
#include "platform/base/object/Exception.h"
#include "platform/system/Terminal.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"

#include "Command.h"
#include "ToolOutput.h"

namespace utility
{

namespace
{

bool ReadFirstLine(const CString& path, CString& password)
{
    try
    {
        CStdioFileEx file;
        CString line;
        if (!file.Open(path, CFile::modeRead))
            PrintError(NativePath(path) + u": " + CAppError::GetLastErrorString());
        else if (!file.ReadString(line) || line.IsEmpty())
            PrintError(NativePath(path) + u": its first line is empty, so it is no password");
        else
        {
            password = line;
            return true;
        }
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        PrintError(NativePath(path) + u": " + exception->GetErrorText());
    }
    return false;
}

bool Ask(bool isNew, CString& password)
{
    CString first;
    CString second;
    if (!ReadSecret(u"Password: ", first) || (isNew && !ReadSecret(u"Once more: ", second)))
        PrintError(u"no password was given; without a terminal see --password-file");
    else if (first.IsEmpty())
        PrintError(u"the password is empty");
    else if (isNew && first != second)
        PrintError(u"the two passwords differ");
    else
    {
        password = first;
        return true;
    }
    return false;
}

} // namespace

CCommandOption ZipPasswordOption()
{
    return {"password", "", "Ask for the password, unseen"};
}

CCommandOption ZipPasswordFileOption()
{
    return {"password-file", "FILE", "Take the first line of a file as password"};
}

bool ReadZipPassword(const CCommandCall& call, bool isNew, CString& password)
{
    if (call.Has("password-file"))
        return ReadFirstLine(call.Get("password-file"), password);
    return !call.Has("password") || Ask(isNew, password);
}

} // namespace utility
