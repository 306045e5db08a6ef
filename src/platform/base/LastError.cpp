#include "platform/base/LastError.h"

namespace utility
{

namespace
{

thread_local constinit DWORD threadCode = 0;

} // namespace

DWORD GetLastError()
{
    return threadCode;
}

void SetLastError(DWORD code)
{
    threadCode = code;
}

} // namespace utility
