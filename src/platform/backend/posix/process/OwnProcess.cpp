#include "platform/system/file/NativePath.h"
#include "platform/system/process/Process.h"

#include <unistd.h>

namespace utility
{

DWORD GetCurrentProcessId()
{
    return static_cast<DWORD>(::getpid());
}

CString GetModuleFileNameW()
{
    constexpr int LONGEST_PATH = 260;
    std::array<char, 4096> path{}; // the kernel's longest path
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0)
        return CString();
    return ClassicPath(std::string_view(path.data(), static_cast<std::size_t>(length)))
        .Left(LONGEST_PATH);
}

} // namespace utility
