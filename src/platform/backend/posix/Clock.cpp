#include "platform/system/Clock.h"

#include <atomic>
#include <time.h>

namespace utility
{

namespace
{

timespec ReadClock(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return time;
}

FILETIME ReadNow()
{
    const timespec now = ReadClock(CLOCK_REALTIME);
    return CountToFileTime(FILETIME_OF_1970 + now.tv_sec * FILETIME_PER_SECOND + now.tv_nsec / 100);
}

std::uint64_t ReadTicks()
{
    const timespec now = ReadClock(CLOCK_MONOTONIC);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000 +
           static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000;
}

constexpr CClockSource SYSTEM_SOURCE{ReadNow, ReadTicks};
constinit std::atomic<const CClockSource*> g_Source{&SYSTEM_SOURCE};

} // namespace

std::uint64_t GetTickCount()
{
    return g_Source.load()->m_Ticks();
}

FILETIME CoFileTimeNow()
{
    return g_Source.load()->m_Now();
}

SYSTEMTIME GetSystemTime()
{
    SYSTEMTIME fields{};
    (void)FileTimeToSystemTime(CoFileTimeNow(), fields); // the present is a date
    return fields;
}

SYSTEMTIME GetLocalTime()
{
    const SYSTEMTIME utc = GetSystemTime();
    SYSTEMTIME local = utc;
    (void)SystemTimeToTzSpecificLocalTime(utc, local);
    return local;
}

void SetClockSource(const CClockSource* source)
{
    g_Source = source ? source : &SYSTEM_SOURCE;
}

} // namespace utility
