#include "text/time/TimeFormatter.h"

#include "platform/base/time/Variant.h"

#include "support/EnvironmentVariable.h"
#include "support/FixedClock.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

const char16_t* const SHOWN = u"%Y-%m-%d %H:%M:%S";
constexpr std::int64_t SECONDS = 1719835205; // 1 July 2024, 12:00:05 UTC
constexpr std::int64_t COUNT = FILETIME_OF_1970 + SECONDS * FILETIME_PER_SECOND;

} // namespace

TEST(TimeFormatterTest, CountsPassThroughTheZoneAndFieldsDoNot)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");
    const CFixedClock clock({2024, 7, 0, 1, 12, 0, 5, 0});
    const CString local = u"2024-07-01 14:00:05";
    const CString plain = u"2024-07-01 12:00:05";

    EXPECT_EQ(CTimeFormatter().Format(SHOWN), local);
    EXPECT_EQ(CTimeFormatter(SECONDS).Format(SHOWN), local);
    EXPECT_EQ(CTimeFormatter(SECONDS, false).Format(SHOWN), local);
    EXPECT_EQ(CTimeFormatter(COUNT, true).Format(SHOWN), local);
    EXPECT_EQ(CTimeFormatter(CountToFileTime(COUNT)).Format(SHOWN), local);

    EXPECT_EQ(CTimeFormatter(SYSTEMTIME{2024, 7, 0, 1, 12, 0, 5, 999}).Format(SHOWN), plain);
    EXPECT_EQ(CTimeFormatter(2024, 7, 1, 12, 0, 5).Format(SHOWN), plain);
    EXPECT_EQ(CTimeFormatter(COleDateTime(2024, 7, 1, 12, 0, 5)).Format(SHOWN), plain);
    EXPECT_EQ(CTimeFormatter(45474.5).Format(SHOWN), u"2024-07-01 12:00:00");
    EXPECT_EQ(CTimeFormatter(VARIANT{VT_DATE, 45474.5}).Format(SHOWN), u"2024-07-01 12:00:00");
}

TEST(TimeFormatterTest, WhatIsNoTimeSaysSo)
{
    const CTimeFormatter cases[] = {
        CTimeFormatter(CountToFileTime(-1)),  CTimeFormatter(std::int64_t{-1}, true),
        CTimeFormatter(SYSTEMTIME{}),         CTimeFormatter(VARIANT{8, 0}),
        CTimeFormatter(2024, 2, 30, 0, 0, 0), CTimeFormatter(1e9),
    };

    for (const CTimeFormatter& formatter : cases)
    {
        EXPECT_EQ(formatter.Format(SHOWN), u"Invalid DateTime");
        EXPECT_EQ(formatter.Format(0, 1024), u"Invalid DateTime");
        EXPECT_EQ(formatter.Format(2, 1024), u"Invalid DateTime");
        EXPECT_EQ(formatter.GetDefaultDateTimeString(), u"Invalid DateTime");
    }
}

TEST(TimeFormatterTest, DefaultTextsAreDigitGroups)
{
    const CTimeFormatter formatter(2024, 12, 31, 23, 59, 58);

    EXPECT_EQ(formatter.GetDefaultDateString(), u"31-12-2024");
    EXPECT_EQ(formatter.GetDefaultTimeString(), u"23:59:58");
    EXPECT_EQ(formatter.GetDefaultDateTimeString(), u"31-12-2024 23:59:58");
}

TEST(TimeFormatterTest, LocaleFormShowsTheHalvesAskedFor)
{
    const CEnvironmentVariable all("LC_ALL", "C");
    const CTimeFormatter formatter(2024, 12, 31, 23, 59, 58);

    EXPECT_EQ(formatter.Format(0, 1024), u"12/31/2024 23:59:58");
    EXPECT_EQ(formatter.Format(1, 1024), u"23:59:58");
    EXPECT_EQ(formatter.Format(2, 1024), u"12/31/2024");
    EXPECT_EQ(formatter.Format(4000000000U), u""); // no such text
}

} // namespace utility
