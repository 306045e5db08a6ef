#include "platform/system/process/Services.h"

#include <cstdlib>
#include <string_view>
#include <systemd/sd-login.h>

namespace utility
{

namespace
{

constexpr std::string_view USERS_MANAGER =
    "user@"; // a service, too, with all that a user runs below it

bool IsInSystemService()
{
    char* unit = nullptr;
    if (::sd_pid_get_unit(0, &unit) < 0)
        return false;
    const std::string_view name = unit;
    const bool isService = name.ends_with(".service") && !name.starts_with(USERS_MANAGER);
    std::free(unit);
    return isService;
}

bool HasDisplay()
{
    return std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr;
}

} // namespace

DWORD GetWindowStationFlags()
{
    return IsInSystemService() && !HasDisplay() ? 0 : WSF_VISIBLE;
}

} // namespace utility
