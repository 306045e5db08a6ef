// A host program in a few lines: the last error, its system words, and a hook that nobody filled.

#include "frame/AppError.h"
#include "frame/Application.h"
#include "frame/MacroOps.h"
#include "frame/UtilIoOps.h"
#include "platform/base/Encoding.h"
#include "platform/base/LastError.h"
#include "platform/system/file/File.h"
#include "platform/system/window/UserInterface.h"
#include "resources/StringIds.h"

#include <cstdio>

using namespace utility;

namespace
{

int g_Failures = 0;

void Expect(bool holds, const char* what)
{
    if (holds)
        return;
    ++g_Failures;
    std::fprintf(stderr, "consumer: %s\n", what);
}

// A failing system call behind a recorded error: the words are the system's, the record stays.
void CheckNewerSystemError()
{
    CAppError::SetLastError(IDS_CANNOT_OVERWRITE, u"board.pcb");
    const CString recorded = CAppError::GetLastErrorString();
    Expect(recorded == u"Unable to overwrite 'board.pcb' or its backup file.",
           "the recorded text is worded");

    CFile file;
    Expect(!file.Open(u"absent/board.pcb", CFile::modeRead), "an absent file does not open");
    const CString words = CAppError::GetLastErrorString();
    Expect(!words.IsEmpty() && words != recorded, "the newer system failure wins");
    Expect(words == CAppError::GetErrorString(GetLastError()), "its words are the system's");
    Expect(CAppError::GetLastError() == 10687, "the recorded code stays");
    std::printf("system: %s\n", ToUtf8(words.View()).c_str());
}

// A table with a hole reports the missing function's name at each call.
void CheckNullHook()
{
    CUtilIoOps::InitFunctions(nullptr, nullptr, nullptr, nullptr, nullptr);
    const CErrorLock lock;
    for (int call = 0; call < 2; ++call)
    {
        CAppError::SetLastError(0);
        Expect(CUtilIoOps::IsWarningEnabled(1), "without a hook a warning is enabled");
        Expect(CAppError::GetLastError() == IDS_PLAIN_TEXT ||
                   CAppError::GetLastError() == IDS_UTIL_IO_OPS_UNDEFINED,
               "the missing hook is reported");
        Expect(CAppError::GetLastErrorString() ==
                   u"Error: UtilIoOps function 'IsWarningEnabled' undefined",
               "the report names the hook");
    }
}

} // namespace

int main()
{
    CApplication::SetCompanyName(u"Example Company");
    CApplication::SetName(u"Consumer");
    CApplication::SetVersion(u"1.2.3.4");
    Expect(CApplication::GetProductVersion() == u"1.2", "the product version is cut");
    CheckNewerSystemError();
    CheckNullHook();
    std::printf("consumer: %s\n", g_Failures == 0 ? "all well" : "failed");
    return g_Failures == 0 ? 0 : 1;
}
