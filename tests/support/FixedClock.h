#pragma once

#include "platform/system/Clock.h"

namespace utility
{

/// Sets the present, in UTC, until the end of its scope; ticks stand still at 0. One at a time.
class CFixedClock
{
public:
    explicit CFixedClock(const SYSTEMTIME& utc)
    {
        (void)SystemTimeToFileTime(utc, Now());
        SetClockSource(&SOURCE);
    }
    ~CFixedClock() { SetClockSource(nullptr); }
    CFixedClock(const CFixedClock&) = delete;
    CFixedClock& operator=(const CFixedClock&) = delete;

private:
    static FILETIME& Now()
    {
        static FILETIME now{};
        return now;
    }

    static constexpr CClockSource SOURCE{[] { return Now(); },
                                         []
                                         {
                                             return std::uint64_t{0};
                                         }};
};

} // namespace utility
