#include "utility/zip/ZipPassword.h"

#include "frame/AppError.h"
#include "platform/system/Terminal.h"

#include "utility/command/Command.h"
#include "utility/host/PasswordFile.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

bool TellLastError()
{
    PrintError(CAppError::GetLastErrorString());
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
        return ReadPasswordFile(call.Get("password-file"), password) || TellLastError();
    return !call.Has("password") || Ask(isNew, password);
}

} // namespace utility
