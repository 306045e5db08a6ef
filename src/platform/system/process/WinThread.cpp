#include "platform/system/process/WinThread.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace utility
{

DWORD GetCurrentThreadId()
{
    static std::atomic<DWORD> last{0};
    static thread_local const DWORD number = ++last;
    return number;
}

void Sleep(DWORD milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace utility
