#pragma once

#include "platform/base/Export.h"
#include "platform/base/time/SystemTime.h"

namespace utility
{

/// Milliseconds of a clock that never goes back; its start has no meaning. Any thread, as all here.
UTILITY_CORE_API std::uint64_t GetTickCount();

/// The present, in UTC.
UTILITY_CORE_API FILETIME CoFileTimeNow();
UTILITY_CORE_API SYSTEMTIME GetSystemTime();
/// The present in the user's zone.
UTILITY_CORE_API SYSTEMTIME GetLocalTime();

/// What stands behind the calls above.
struct CClockSource
{
    FILETIME (*m_Now)();
    std::uint64_t (*m_Ticks)();
};

/// Lets a test set the time; the source is kept alive by the caller, null returns to the system's
/// clock.
UTILITY_CORE_API void SetClockSource(const CClockSource* source);

} // namespace utility
