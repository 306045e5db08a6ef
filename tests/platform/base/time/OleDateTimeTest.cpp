#include "platform/base/time/OleDateTime.h"

#include "platform/base/time/OleDateTimeSpan.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

#include <cmath>

namespace utility
{

TEST(OleDateTimeTest, KnownDatesHaveTheirDayCounts)
{
    const struct
    {
        int m_Fields[6];
        DATE m_Date;
    } cases[] = {
        {{1899, 12, 30, 0, 0, 0}, 0},        {{1899, 12, 30, 6, 0, 0}, 0.25},
        {{1899, 12, 29, 6, 0, 0}, -1.25}, // the time of day counts upwards
        {{1900, 1, 1, 0, 0, 0}, 2},          {{1970, 1, 1, 0, 0, 0}, 25569},
        {{2024, 12, 31, 12, 0, 0}, 45657.5}, {{100, 1, 1, 0, 0, 0}, -657434},
        {{9999, 12, 31, 0, 0, 0}, 2958465},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Date);
        const auto& f = row.m_Fields;
        const COleDateTime made(f[0], f[1], f[2], f[3], f[4], f[5]);
        EXPECT_EQ(made.GetStatus(), COleDateTime::valid);
        EXPECT_EQ(made.m_dt, row.m_Date);

        const COleDateTime read(row.m_Date);
        EXPECT_EQ(read.GetYear(), f[0]);
        EXPECT_EQ(read.GetMonth(), f[1]);
        EXPECT_EQ(read.GetDay(), f[2]);
        EXPECT_EQ(read.GetHour(), f[3]);
        EXPECT_EQ(read.GetMinute(), f[4]);
        EXPECT_EQ(read.GetSecond(), f[5]);
    }
}

TEST(OleDateTimeTest, EverySecondOfADayComesBack)
{
    for (const int day : {45657, -657434, 0})
    {
        SYSTEMTIME fields{};
        ASSERT_TRUE(VariantTimeToSystemTime(day, fields));
        for (int second = 0; second < 86400; second += 7)
        {
            fields.wHour = static_cast<WORD>(second / 3600);
            fields.wMinute = static_cast<WORD>(second / 60 % 60);
            fields.wSecond = static_cast<WORD>(second % 60);
            DATE date = 0;
            SYSTEMTIME back{};
            ASSERT_TRUE(SystemTimeToVariantTime(fields, date));
            ASSERT_TRUE(VariantTimeToSystemTime(date, back));
            ASSERT_EQ(back, fields) << day << " " << second;
        }
    }
}

TEST(OleDateTimeTest, HalfASecondBeforeMidnightIsTheNextDay)
{
    SYSTEMTIME fields{};

    ASSERT_TRUE(VariantTimeToSystemTime(45656.999999, fields));
    EXPECT_EQ(fields.wYear, 2024);
    EXPECT_EQ(fields.wDay, 31);
    EXPECT_EQ(fields.wHour, 0);
    EXPECT_FALSE(VariantTimeToSystemTime(2958465.999999, fields)); // would be the year 10000
}

TEST(OleDateTimeTest, WhatIsNoDateIsInvalidInEveryPart)
{
    const COleDateTime cases[] = {
        COleDateTime(2024, 2, 30, 0, 0, 0),
        COleDateTime(99, 12, 31, 0, 0, 0),
        COleDateTime(2024, 1, 1, 0, 60, 0),
        COleDateTime(2958466.0),
        COleDateTime(-657435.0),
        COleDateTime(std::nan("")),
        COleDateTime(CountToFileTime(-1)),
        COleDateTime(INT64_MAX),
    };

    for (const COleDateTime& date : cases)
    {
        SCOPED_TRACE(date.m_dt);
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
        EXPECT_EQ(date.GetYear(), -1);
        EXPECT_EQ(date.GetDayOfWeek(), -1);
        EXPECT_EQ(date.Format(u"%Y"), u"Invalid DateTime");
        EXPECT_EQ(date.Format(), u"Invalid DateTime");
    }
}

TEST(OleDateTimeTest, SpansCrossDayZeroAndCarryTheStatus)
{
    const COleDateTime before(1899, 12, 29, 6, 0, 0);
    const COleDateTime after(1899, 12, 31, 18, 0, 0);
    const COleDateTimeSpan span = after - before;

    EXPECT_EQ(span.GetTotalDays(), 2.5);
    EXPECT_EQ(span.GetDays(), 2);
    EXPECT_EQ(span.GetHours(), 12);
    EXPECT_EQ(before + span, after);
    EXPECT_EQ(after - span, before);
    EXPECT_LT(before, COleDateTime(1899, 12, 29, 7, 0, 0));

    COleDateTime nothing;
    nothing.SetStatus(COleDateTime::null);
    EXPECT_EQ((after - nothing).GetStatus(), COleDateTimeSpan::null);
    EXPECT_EQ((nothing + span).GetStatus(), COleDateTime::null);
    EXPECT_EQ(nothing.Format(), u"");
    EXPECT_EQ(COleDateTimeSpan(3615897).GetStatus(), COleDateTimeSpan::valid);
    EXPECT_EQ(COleDateTimeSpan(-3615898).GetStatus(), COleDateTimeSpan::invalid);
}

TEST(OleDateTimeTest, CountsPassThroughTheZone)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");

    EXPECT_EQ(COleDateTime(std::int64_t{1719835205}).Format(u"%Y-%m-%d %H:%M:%S"),
              u"2024-07-01 14:00:05");
    EXPECT_EQ(COleDateTime(CountToFileTime(FILETIME_OF_1970)).Format(u"%H"), u"01");
}

} // namespace utility
