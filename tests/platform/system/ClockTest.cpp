#include "platform/system/Clock.h"

#include "support/EnvironmentVariable.h"
#include "support/FixedClock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace utility
{

TEST(ClockTest, SetTimeIsSeenInUtcAndInTheZone)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");
    const CFixedClock clock({2024, 7, 0, 1, 22, 30, 0, 5});

    EXPECT_EQ(GetSystemTime(), (SYSTEMTIME{2024, 7, 1, 1, 22, 30, 0, 5}));
    EXPECT_EQ(GetLocalTime(), (SYSTEMTIME{2024, 7, 2, 2, 0, 30, 0, 5}));
}

TEST(ClockTest, SystemsClockAgreesWithTheLibrarys)
{
    const std::int64_t before = std::time(nullptr);
    const std::int64_t now =
        (FileTimeToCount(CoFileTimeNow()) - FILETIME_OF_1970) / FILETIME_PER_SECOND;
    const std::int64_t after = std::time(nullptr);

    EXPECT_LE(before - 1, now); // the library's clock may lag by a tick
    EXPECT_LE(now, after + 1);

    const std::uint64_t ticks = GetTickCount();
    EXPECT_LE(ticks, GetTickCount());
}

} // namespace utility
