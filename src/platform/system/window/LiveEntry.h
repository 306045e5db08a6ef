#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// Names a process for ever: its id alone is given anew some time after it has ended.
struct CProcessStamp
{
    DWORD m_Id = 0;
    std::uint64_t m_Start = 0; // ticks of the system's clock since it was started

    auto operator<=>(const CProcessStamp&) const = default;
};

/// A window as its program tells others of it.
struct CLiveEntryWindow
{
    DWORD m_Number = 0; // its handle within its process
    CString m_ClassName;
    CString m_Title; // at most LIVE_TITLE_LIMIT units

    bool operator==(const CLiveEntryWindow&) const = default;
};

constexpr int LIVE_TITLE_LIMIT = 127;               // units of a title that others see
constexpr std::size_t LIVE_WINDOW_LIMIT = 64;       // windows of one program that others see
constexpr std::size_t LIVE_ENTRY_LIMIT = 64 * 1024; // bytes of a file that may be an entry

/// What a program tells others of itself while it has top-level windows; its text is described in
/// docs/formats/live-windows.md.
struct CLiveEntry
{
    CProcessStamp m_Process;
    int m_Instance = 0;
    CString m_Application;
    std::vector<CLiveEntryWindow> m_Windows; // the topmost first

    bool operator==(const CLiveEntry&) const = default;
};

/// At most the first LIVE_WINDOW_LIMIT windows are written.
UTILITY_CORE_API std::string FormatLiveEntry(const CLiveEntry& entry);

/// False, and `entry` keeps its preset, for what is no entry. Lines of a kind not known here are
/// passed over; more windows than the limit make it none.
UTILITY_CORE_API bool ParseLiveEntry(std::string_view text, CLiveEntry& entry);

} // namespace utility
