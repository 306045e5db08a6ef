#include "platform/system/SystemMessage.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/UserLocale.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"

#include <cstring>

namespace utility
{

namespace
{

struct COwnWords
{
    DWORD m_Code;
    const char16_t* m_Text;
};

/// Codes that no errno stands for.
constexpr COwnWords OWN_WORDS[] = {
    {ERROR_NO_MORE_FILES, u"There are no more files"},
    {ERROR_GEN_FAILURE, u"The system failed to do this"},
    {ERROR_HANDLE_EOF, u"The end of the file has been reached"},
    {ERROR_INVALID_NAME, u"The name is not valid"},
    {ERROR_PROC_NOT_FOUND, u"The module has no such function"},
    {ERROR_MORE_DATA, u"More data is available"},
    {WAIT_TIMEOUT, u"The wait has timed out"},
    {ERROR_NO_MORE_ITEMS, u"There is no more data"},
    {ERROR_BADKEY, u"The settings key is not valid"},
    {ERROR_SERVICE_DISABLED, u"The service is disabled"},
    {ERROR_SERVICE_DOES_NOT_EXIST, u"There is no such service"},
    {ERROR_SERVICE_NOT_ACTIVE, u"The service has not been started"},
    {ERROR_SERVICE_EXISTS, u"There is a service of that name already"},
    {RPC_S_SERVER_UNAVAILABLE, u"No manager of services answers on this system"},
    {ERROR_RESOURCE_NAME_NOT_FOUND, u"No table holds a dialog or picture of that number or name"},
};

} // namespace

CString GetSystemMessage(DWORD code)
{
    for (const COwnWords& words : OWN_WORDS)
    {
        if (words.m_Code == code)
            return words.m_Text;
    }
    const int number = ErrnoFromError(code);
    if (number == 0)
        return CString();

    const CUserLocale locale(LC_MESSAGES_MASK | LC_CTYPE_MASK);
    if (!locale.Get())
        return CString();
    return FromBytes(CP_ACP, ::strerror_l(number, locale.Get()));
}

} // namespace utility
