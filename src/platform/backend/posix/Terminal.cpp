#include "platform/system/Terminal.h"

#include <unistd.h>

namespace utility
{

bool IsTerminal(EStandardStream stream)
{
    switch (stream)
    {
    case EStandardStream::Input:
        return isatty(STDIN_FILENO) == 1;
    case EStandardStream::Output:
        return isatty(STDOUT_FILENO) == 1;
    case EStandardStream::Error:
        return isatty(STDERR_FILENO) == 1;
    }
    return false;
}

} // namespace utility
