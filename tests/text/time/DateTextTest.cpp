#include "text/time/DateText.h"

#include "platform/base/Encoding.h"
#include "text/time/TimeConversion.h"

#include "support/EnvironmentVariable.h"
#include "support/FixedClock.h"
#include "support/FuzzCorpus.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

constexpr std::int64_t COUNT = 133801631981230000; // 31 December 2024, 23:59:58.123
constexpr SYSTEMTIME FIELDS{2024, 12, 2, 31, 23, 59, 58, 123};

} // namespace

TEST(DateTextTest, DatabaseTextShowsEveryForm)
{
    const CString text = u"2024-12-31 23:59:58.123";

    EXPECT_EQ(ConvertSystemTimeToPgDateString(FIELDS), text);
    EXPECT_EQ(ConvertI64TimeStampToPgDateString(COUNT), text);
    EXPECT_EQ(ConvertFileTimeToPgDateString(CountToFileTime(COUNT)), text);
    EXPECT_EQ(ConvertTimeStampStructToPgDateString({2024, 12, 31, 23, 59, 58, 123999999}), text);
    EXPECT_EQ(ConvertTimeStampStructToPgFunctionString({2024, 12, 31, 0, 0, 0, 0}),
              u"to_timestamp('2024-12-31 00:00:00.000', 'YYYY-MM-DD HH24:MI:SS.MS')");
    EXPECT_EQ(ConvertI64TimeStampToPgFunctionString(COUNT),
              u"to_timestamp('2024-12-31 23:59:58.123', 'YYYY-MM-DD HH24:MI:SS.MS')");
}

TEST(DateTextTest, DisplayTextFollowsThePattern)
{
    const struct
    {
        CString m_Pattern;
        const char16_t* m_Text;
    } cases[] = {
        {u"", u"31-12-2024"},
        {GetDefaultDatePattern() + GetTimePattern(), u"31-12-2024 23:59:58.123"},
        {u"%2!02d!/%1!02d!/%3!02d!", u"12/31/24"}, // a year field of two digits
        {u"%3", u"2024"},
        {u"%3!2d!", u"2024"},
        {u"%1.%2.%3 100%%", u"31.12.2024 100%"},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(ToUtf8(row.m_Pattern.View()));
        EXPECT_EQ(ConvertSystemTimeToMvtDateString(FIELDS, row.m_Pattern), row.m_Text);
    }
}

TEST(DateTextTest, ZoneChangesOnlyOnWish)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");
    const CString pattern = u"%1!02d! %4!02d!:%5!02d!.%7!03d!";

    EXPECT_EQ(ConvertI64TimeStampToMvtDateString(COUNT, false, pattern), u"31 23:59.123");
    EXPECT_EQ(ConvertI64TimeStampToMvtDateString(COUNT, true, pattern), u"01 00:59.123");
    EXPECT_EQ(ConvertFileTimeToMvtDateString(CountToFileTime(COUNT), true, pattern),
              u"01 00:59.123");
    EXPECT_EQ(ConvertI64TimeStampToMvtDateString(-1, true, u"%3!04d!"), u"0000");
}

TEST(DateTextTest, TextsAreReadInTheGivenOrder)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Order;
        const char16_t* m_Read;
    } cases[] = {
        {u"31/12/2024 23:59:58", u"DMY", u"2024-12-31 23:59:58.000"},
        {u"12/31/2024 23:59:58", u"mdy", u"2024-12-31 23:59:58.000"},
        {u"2024-12-31 23:59:58.123", u"YMD", u"2024-12-31 23:59:58.123"},
        {u"2024-12-31T23:59:58.5", u"YMD", nullptr}, // a blank or nothing before the time
        {u"2024-12-31 23:59:58.5", u"YMD", u"2024-12-31 23:59:58.005"},
        {u"2024-12-31 23:59:58.5x", u"YMD", u"2024-12-31 23:59:58.005"},
        {u"2024-12-31 23:59:58.", u"YMD", u"2024-12-31 23:59:58.000"},
        {u"2024-12-31 23:59:58  7", u"YMD", u"2024-12-31 23:59:58.007"},
        {u"  1x 2y2024   3a 4b 5", u"", u"2024-02-01 03:04:05.000"}, // the process's order
        {u"29.02.2024 0:0:0", u"DMY", u"2024-02-29 00:00:00.000"},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(ToUtf8(row.m_Text));
        std::int64_t count = 42;
        ASSERT_EQ(ConvertDateTimeStringToI64(row.m_Text, count, row.m_Order),
                  row.m_Read != nullptr);
        if (row.m_Read)
            EXPECT_EQ(ConvertI64TimeStampToPgDateString(count), row.m_Read);
        else
            EXPECT_EQ(count, 42);
    }
}

TEST(DateTextTest, WhatIsNoDateKeepsThePreset)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Order;
    } cases[] = {
        {u"", u"DMY"},
        {u"31/12/2024", u"DMY"},
        {u"31/12/2024 23:59", u"DMY"},
        {u"31/12 23:59:58", u"DMY"},
        {u"x31/12/2024 23:59:58", u"DMY"},
        {u"31/02/2024 23:59:58", u"DMY"},
        {u"12/31/2024 23:59:58", u"DMY"},
        {u"31/12/2024 24:00:00", u"DMY"},
        {u"31/12/2024 23:59:60", u"DMY"},
        {u"31/12/2024 23:59:58.1000", u"DMY"},
        {u"31/12/2024 23:59:58.x", u"DMY"},
        {u"31--12/2024 23:59:58", u"DMY"},
        {u"99999999999999/12/2024 23:59:58", u"DMY"},
        {u"31/12/2024 23:59:58", u"DDY"},
        {u"31/12/2024 23:59:58", u"DM"},
        {u"31/12/2024 23:59:58", u"DMYY"},
        {u"31/12/2024 23:59:58", u"DMX"},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(ToUtf8(row.m_Text) + " " + ToUtf8(row.m_Order));
        FILETIME time = CountToFileTime(42);
        TIMESTAMP_STRUCT stamp{1, 2, 3, 4, 5, 6, 7};
        EXPECT_FALSE(ConvertDateTimeStringToFileTime(row.m_Text, time, row.m_Order));
        EXPECT_FALSE(ConvertDateTimeStringToTimeStampStruct(row.m_Text, stamp, row.m_Order));
        EXPECT_EQ(FileTimeToCount(time), 42);
        EXPECT_EQ(stamp, (TIMESTAMP_STRUCT{1, 2, 3, 4, 5, 6, 7}));
    }
}

TEST(DateTextTest, ShortYearStaysShortWhereARecordCanHoldIt)
{
    TIMESTAMP_STRUCT stamp{};
    FILETIME time{};

    EXPECT_TRUE(ConvertDateTimeStringToTimeStampStruct(u"31/12/24 23:59:58", stamp, u"DMY"));
    EXPECT_EQ(stamp.year, 24);
    EXPECT_FALSE(ConvertDateTimeStringToFileTime(u"31/12/24 23:59:58", time, u"DMY"));
}

TEST(DateTextTest, DefaultsOfTheProcessAreUsed)
{
    const CString pattern = GetDefaultDatePattern();
    const CString order = GetDefaultDateOrder();
    SetDefaultDatePattern(u"%3!04d!.%2!02d!.%1!02d!");
    SetDefaultDateOrder(u"YMD");

    std::int64_t count = 0;
    EXPECT_TRUE(ConvertDateTimeStringToI64(u"2024.12.31 23:59:58.123", count, u""));
    EXPECT_EQ(count, COUNT);
    EXPECT_EQ(ConvertI64TimeStampToMvtDateString(COUNT, false, u""), u"2024.12.31");

    SetDefaultDatePattern(pattern);
    SetDefaultDateOrder(order);
}

TEST(DateTextTest, PresentIsLocalAndInDigitGroups)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");
    const CFixedClock clock(FIELDS);

    EXPECT_EQ(GetCurrentSystemDate(), u"01-01-2025");
    EXPECT_EQ(GetCurrentSystemTime(), u"00:59:58");
}

TEST(DateTextTest, FuzzCorpusReadsToDatesThatPrintAndReadBack)
{
    const std::vector<CString> corpus = ReadFuzzCorpus("DateText");
    int dates = 0;
    for (const CString& text : corpus)
    {
        std::int64_t count = 0;
        if (!ConvertDateTimeStringToI64(text, count, u"YMD"))
            continue;

        std::int64_t back = 0;
        ++dates;
        EXPECT_TRUE(
            ConvertDateTimeStringToI64(ConvertI64TimeStampToPgDateString(count), back, u"YMD"));
        EXPECT_EQ(back, count);
    }
    EXPECT_GE(dates, 1);
    EXPECT_GT(static_cast<int>(corpus.size()), dates);
}

} // namespace utility
