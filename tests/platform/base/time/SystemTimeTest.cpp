#include "platform/base/time/SystemTime.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

SYSTEMTIME Fields(int year, int month, int day, int hour = 0, int minute = 0, int second = 0,
                  int milliseconds = 0)
{
    return {static_cast<WORD>(year),   static_cast<WORD>(month),       0,
            static_cast<WORD>(day),    static_cast<WORD>(hour),        static_cast<WORD>(minute),
            static_cast<WORD>(second), static_cast<WORD>(milliseconds)};
}

SYSTEMTIME WithoutDayOfWeek(SYSTEMTIME fields)
{
    fields.wDayOfWeek = 0;
    return fields;
}

} // namespace

TEST(SystemTimeTest, KnownDatesHaveTheirCounts)
{
    const struct
    {
        SYSTEMTIME m_Fields;
        std::int64_t m_Count;
        int m_DayOfWeek;
    } cases[] = {
        {Fields(1601, 1, 1), 0, 1},
        {Fields(1970, 1, 1), FILETIME_OF_1970, 4},
        {Fields(2000, 2, 29, 12, 0, 0), 125962992000000000, 2},
        {Fields(2024, 12, 31, 23, 59, 58, 123), 133801631981230000, 2},
        {Fields(9999, 12, 31, 23, 59, 59, 999), 2650467743999990000, 5},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Count);
        FILETIME time{};
        ASSERT_TRUE(SystemTimeToFileTime(row.m_Fields, time));
        EXPECT_EQ(FileTimeToCount(time), row.m_Count);

        SYSTEMTIME back{};
        ASSERT_TRUE(FileTimeToSystemTime(time, back));
        EXPECT_EQ(back.wDayOfWeek, row.m_DayOfWeek);
        EXPECT_EQ(WithoutDayOfWeek(back), row.m_Fields);
    }
}

TEST(SystemTimeTest, WhatIsNoDateIsRefusedAndKeepsThePreset)
{
    const SYSTEMTIME cases[] = {
        Fields(1600, 12, 31),
        Fields(30828, 1, 1),
        Fields(2023, 2, 29),
        Fields(2024, 0, 1),
        Fields(2024, 13, 1),
        Fields(2024, 257, 1),
        Fields(2024, 1, 0),
        Fields(2024, 4, 31),
        Fields(2024, 1, 257),
        Fields(2024, 1, 1, 24),
        Fields(2024, 1, 1, 0, 60),
        Fields(2024, 1, 1, 0, 0, 60),
        Fields(2024, 1, 1, 0, 0, 0, 1000),
    };

    for (const SYSTEMTIME& fields : cases)
    {
        SCOPED_TRACE(testing::Message()
                     << fields.wYear << "-" << fields.wMonth << "-" << fields.wDay);
        FILETIME time = CountToFileTime(42);
        EXPECT_FALSE(SystemTimeToFileTime(fields, time));
        EXPECT_EQ(FileTimeToCount(time), 42);
    }
    SYSTEMTIME preset = Fields(2024, 1, 1);
    EXPECT_FALSE(FileTimeToSystemTime(CountToFileTime(-1), preset));
    EXPECT_EQ(preset, Fields(2024, 1, 1));
    EXPECT_TRUE(FileTimeToSystemTime(CountToFileTime(INT64_MAX), preset));
    EXPECT_EQ(preset.wYear, 30828);
}

TEST(SystemTimeTest, LocalTimeFollowsTheZoneInSummerAndWinter)
{
    const struct
    {
        const char* m_Zone;
        SYSTEMTIME m_Utc;
        SYSTEMTIME m_Local;
    } cases[] = {
        {"Europe/Berlin", Fields(2024, 7, 1, 12, 0, 0, 7), Fields(2024, 7, 1, 14, 0, 0, 7)},
        {"Europe/Berlin", Fields(2024, 12, 31, 23, 30), Fields(2025, 1, 1, 0, 30)},
        {"Asia/Kolkata", Fields(2024, 7, 1, 12), Fields(2024, 7, 1, 17, 30)},
        {"America/New_York", Fields(1969, 12, 31, 23, 59, 59, 999),
         Fields(1969, 12, 31, 18, 59, 59, 999)},
        {"UTC", Fields(2024, 7, 1, 12), Fields(2024, 7, 1, 12)},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Zone);
        const CEnvironmentVariable zone("TZ", row.m_Zone);
        SYSTEMTIME local{};
        ASSERT_TRUE(SystemTimeToTzSpecificLocalTime(row.m_Utc, local));
        EXPECT_EQ(WithoutDayOfWeek(local), row.m_Local);

        SYSTEMTIME utc{};
        ASSERT_TRUE(TzSpecificLocalTimeToSystemTime(local, utc));
        EXPECT_EQ(WithoutDayOfWeek(utc), row.m_Utc);
    }
}

TEST(SystemTimeTest, DoubledHourIsTheFirstAndSkippedHourRunsOn)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");
    const struct
    {
        SYSTEMTIME m_Local;
        SYSTEMTIME m_Utc;
    } cases[] = {
        {Fields(2024, 3, 31, 1, 59), Fields(2024, 3, 31, 0, 59)},
        {Fields(2024, 3, 31, 2, 30), Fields(2024, 3, 31, 1, 30)}, // shown as 3:30
        {Fields(2024, 3, 31, 3, 0), Fields(2024, 3, 31, 1, 0)},
        {Fields(2024, 10, 27, 1, 59), Fields(2024, 10, 26, 23, 59)},
        {Fields(2024, 10, 27, 2, 30), Fields(2024, 10, 27, 0, 30)},
        {Fields(2024, 10, 27, 3, 0), Fields(2024, 10, 27, 2, 0)},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(testing::Message() << row.m_Local.wMonth << " " << row.m_Local.wHour << ":"
                                        << row.m_Local.wMinute);
        SYSTEMTIME utc{};
        ASSERT_TRUE(TzSpecificLocalTimeToSystemTime(row.m_Local, utc));
        EXPECT_EQ(WithoutDayOfWeek(utc), row.m_Utc);
    }
}

} // namespace utility
