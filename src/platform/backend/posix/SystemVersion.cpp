#include "platform/system/SystemVersion.h"

#include "platform/base/Encoding.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <pwd.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr int LONGEST_PACK_NAME = 127;
constexpr int LONGEST_USER_NAME = 255;

/// The value of PRETTY_NAME in the system's own description, without its quotes; "" if it does not
/// tell.
std::string ReadPrettyName()
{
    constexpr std::string_view KEY = "PRETTY_NAME=";
    std::ifstream file("/etc/os-release");
    for (std::string line; std::getline(file, line);)
    {
        if (!line.starts_with(KEY))
            continue;
        std::string_view name = std::string_view(line).substr(KEY.size());
        if (name.size() >= 2 && (name.front() == '"' || name.front() == '\''))
            name = name.substr(1, name.size() - 2);
        return std::string(name);
    }
    return {};
}

} // namespace

BOOL GetVersionExW(OSVERSIONINFOW& version)
{
    utsname kernel{};
    if (version.dwOSVersionInfoSize != OSVERSIONINFO_SIZE || ::uname(&kernel) != 0)
        return FALSE;

    unsigned numbers[3] = {};
    std::sscanf(kernel.release, "%u.%u.%u", &numbers[0], &numbers[1], &numbers[2]);
    version.dwMajorVersion = numbers[0];
    version.dwMinorVersion = numbers[1];
    version.dwBuildNumber = numbers[2];
    version.dwPlatformId = VER_PLATFORM_UNIX;
    version.szCSDVersion = GetDistributionName().Left(LONGEST_PACK_NAME);
    return TRUE;
}

CString GetDistributionName()
{
    const std::string name = ReadPrettyName();
    if (!name.empty())
        return FromUtf8(name);

    utsname kernel{};
    return ::uname(&kernel) == 0 ? FromUtf8(kernel.sysname) : CString();
}

int GetMachineWordSize()
{
    return static_cast<int>(::sysconf(_SC_LONG_BIT));
}

CString GetUserNameW()
{
    std::array<char, 4096> buffer{};
    passwd record{};
    passwd* found = nullptr;
    ::getpwuid_r(::geteuid(), &record, buffer.data(), buffer.size(), &found);
    const char* name = found ? found->pw_name : std::getenv("LOGNAME");
    return name ? FromUtf8(name).Left(LONGEST_USER_NAME) : CString();
}

} // namespace utility
