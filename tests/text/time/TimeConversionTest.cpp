#include "text/time/TimeConversion.h"

#include "platform/base/time/Time.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

constexpr std::int64_t COUNT = 133801631981230000; // 31 December 2024, 23:59:58.123
constexpr SYSTEMTIME FIELDS{2024, 12, 2, 31, 23, 59, 58, 123};
constexpr TIMESTAMP_STRUCT STAMP{2024, 12, 31, 23, 59, 58, 123000000};

} // namespace

TEST(TimeConversionTest, OneInstantInAllForms)
{
    EXPECT_EQ(ConvertFileTimeToInt64(ConvertInt64ToFileTime(COUNT)), COUNT);
    EXPECT_EQ(ConvertInt64ToFileTime(0x123456789ABCDEF0), (FILETIME{0x9ABCDEF0, 0x12345678}));
    EXPECT_EQ(ConvertSystemTimeToInt64(FIELDS), COUNT);
    EXPECT_EQ(ConvertInt64ToSystemTime(COUNT), FIELDS);
    EXPECT_EQ(ConvertTimeStampStructToInt64(STAMP), COUNT);
    EXPECT_EQ(ConvertInt64ToTimeStampStruct(COUNT), STAMP);
    EXPECT_EQ(ConvertSystemTimeToTimeStampStruct(FIELDS), STAMP);
}

TEST(TimeConversionTest, FractionsAreCutToMilliseconds)
{
    TIMESTAMP_STRUCT stamp = STAMP;
    stamp.fraction = 123999999;

    const SYSTEMTIME fields = ConvertTimeStampStructToSystemTime(stamp);

    EXPECT_EQ(fields.wMilliseconds, 123);
    EXPECT_EQ(fields.wDayOfWeek, 0);
}

TEST(TimeConversionTest, WhatIsNoDateIsZero)
{
    TIMESTAMP_STRUCT stamp = STAMP;
    stamp.month = 13;
    SYSTEMTIME fields = FIELDS;
    fields.wDay = 32;

    EXPECT_EQ(ConvertSystemTimeToInt64(fields), 0);
    EXPECT_EQ(ConvertTimeStampStructToInt64(stamp), 0);
    EXPECT_EQ(ConvertInt64ToSystemTime(-1), SYSTEMTIME{});
    EXPECT_EQ(ConvertInt64ToTimeStampStruct(INT64_MIN), TIMESTAMP_STRUCT{});
}

TEST(TimeConversionTest, LocalFieldsAreTakenAsTheyStand)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");
    const std::int64_t count = ConvertCTimeToInt64(CTime(1719835205)); // 12:00:05 UTC

    EXPECT_EQ(ConvertInt64ToSystemTime(count), (SYSTEMTIME{2024, 7, 1, 1, 14, 0, 5, 0}));
}

} // namespace utility
