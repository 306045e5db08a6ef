#include "platform/base/time/Time.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/object/OleException.h"

#include "support/EnvironmentVariable.h"
#include "support/FixedClock.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(TimeTest, FormatsInTheUsersZoneWithEnglishNames)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");
    const CTime time(1719835205); // 1 July 2024, 12:00:05 UTC
    const struct
    {
        const char16_t* m_Format;
        const char16_t* m_Text;
    } cases[] = {
        {u"%H:%M:%S %d-%b-%Y", u"14:00:05 01-Jul-2024"},
        {u"%d-%b-%Y  %H:%M:%S", u"01-Jul-2024  14:00:05"},
        {u"%A, %d %B %y", u"Monday, 01 July 24"},
        {u"%a %j %I %p", u"Mon 183 02 PM"},
        {u"%m 100%% %Q %", u"07 100% %Q %"},
    };

    for (const auto& row : cases)
        EXPECT_EQ(time.Format(row.m_Format), row.m_Text);
}

TEST(TimeTest, FieldsAndSecondsLeadToEachOther)
{
    const CEnvironmentVariable zone("TZ", "America/New_York");
    const CTime time(2024, 7, 1, 8, 0, 5);

    EXPECT_EQ(time.GetTime(), 1719835205);
    EXPECT_EQ(time.GetYear(), 2024);
    EXPECT_EQ(time.GetMonth(), 7);
    EXPECT_EQ(time.GetDay(), 1);
    EXPECT_EQ(time.GetHour(), 8);
    EXPECT_EQ(time.GetMinute(), 0);
    EXPECT_EQ(time.GetSecond(), 5);
    EXPECT_EQ(time.GetDayOfWeek(), 2);

    SYSTEMTIME local{};
    ASSERT_TRUE(time.GetAsSystemTime(local));
    EXPECT_EQ(CTime(local), time);
}

TEST(TimeTest, DatesBefore1970AndImpossibleOnesRaise)
{
    const CEnvironmentVariable zone("TZ", "UTC");
    const int cases[][6] = {
        {1969, 12, 31, 23, 59, 59}, {2024, 2, 30, 0, 0, 0}, {2024, -1, 1, 0, 0, 0},
        {70000, 1, 1, 0, 0, 0},     {2024, 1, 1, 24, 0, 0},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row[0]);
        try
        {
            const CTime time(row[0], row[1], row[2], row[3], row[4], row[5]);
            ADD_FAILURE() << time.GetTime();
        }
        catch (COleException* exception)
        {
            const CExceptionGuard guard(exception);
            EXPECT_EQ(exception->m_sc, E_FAIL);
        }
    }
    EXPECT_EQ(CTime(1970, 1, 1, 0, 0, 0).GetTime(), 0);
}

TEST(TimeTest, PresentComesFromTheClock)
{
    const CFixedClock clock({2024, 7, 0, 1, 12, 0, 5, 999});

    EXPECT_EQ(CTime::GetCurrentTime().GetTime(), 1719835205);
}

TEST(TimeTest, SpansCountWholeSecondsWithOneSign)
{
    const CTimeSpan span(-1, -2, -3, -4);

    EXPECT_EQ(span.GetTotalSeconds(), -93784);
    EXPECT_EQ(span.GetDays(), -1);
    EXPECT_EQ(span.GetHours(), -2);
    EXPECT_EQ(span.GetMinutes(), -3);
    EXPECT_EQ(span.GetSeconds(), -4);
    EXPECT_EQ(CTime(100) - CTime(40), CTimeSpan(60));
    EXPECT_EQ(CTime(100) + CTimeSpan(0, 0, 1, 0), CTime(160));
    EXPECT_LT(CTime(1), CTime(2));
}

} // namespace utility
