#include "platform/system/Locale.h"

#include "platform/base/Encoding.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

constexpr DATE DATE_OF_TEST = 45657; // 31 December 2024

CDateCustoms German()
{
    CDateCustoms customs = ReadDatePattern("%d.%m.%Y");
    customs.m_Months[11] = u"Dezember";
    customs.m_ShortMonths[11] = u"Dez.";
    return customs;
}

} // namespace

TEST(LocaleTest, PatternOfTheLocaleGivesOrderAndSeparator)
{
    const struct
    {
        const char* m_Pattern;
        const char16_t* m_Shown;
    } cases[] = {
        {"%m/%d/%y", u"12/31/2024"}, {"%d.%m.%Y", u"31.12.2024"},    {"%F", u"2024-12-31"},
        {"%Y-%m-%d", u"2024-12-31"}, {"%-d/%-m/%Y", u"31/12/2024"},  {"%e-%b-%Y", u"31-12-2024"},
        {"%d %b %Y", u"31 12 2024"}, {"%Oy/%Om/%Od", u"2024/12/31"}, {"", u"12/31/2024"},
        {"%d.%m", u"12/31/2024"},    {"%d%m%Y", u"12/31/2024"},      {"%", u"12/31/2024"},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Pattern);
        CString text;
        EXPECT_EQ(FormatLocaleDate(DATE_OF_TEST, ReadDatePattern(row.m_Pattern), text), S_OK);
        EXPECT_EQ(text, row.m_Shown);
    }
}

TEST(LocaleTest, ReadsTheUsersFormIsoDatesAndMonthNames)
{
    const struct
    {
        const char16_t* m_Text;
        DATE m_Date;
    } cases[] = {
        {u"31.12.2024", DATE_OF_TEST},
        {u"31/12/24", DATE_OF_TEST},
        {u" 2024-12-31 ", DATE_OF_TEST},
        {u"2024-12-31T18:00:00", DATE_OF_TEST + 0.75},
        {u"2024-12-31 18:00:00.123", DATE_OF_TEST + 0.75},
        {u"18:00:00 31-Dec-2024", DATE_OF_TEST + 0.75},
        {u"31. Dezember 2024", DATE_OF_TEST},
        {u"31. dez. 2024 6:00 pm", DATE_OF_TEST + 0.75},
        {u"December 31, 2024", DATE_OF_TEST},
        {u"Dec 31 12:00 AM 2024", DATE_OF_TEST},
        {u"12:00 PM", 0.5},
        {u"1.1.29", 47119},
        {u"1.1.30", 10959},
        {u"1.1.0100", -657434},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(ToUtf8(row.m_Text));
        DATE date = -1;
        EXPECT_EQ(ReadLocaleDate(row.m_Text, German(), date), S_OK);
        EXPECT_EQ(date, row.m_Date);
    }
}

TEST(LocaleTest, WhatIsNoDateIsATypeMismatchAndKeepsThePreset)
{
    const char16_t* const cases[] = {
        u"",
        u" ",
        u"x",
        u"31.12",
        u"12.31.2024",
        u"31.12.20245",
        u"1.2.3.4",
        u"31.2.2024",
        u"31 Foo 2024",
        u"Dec 2024",
        u"Dec Dec 31 2024",
        u"25:00",
        u"10:60",
        u"10:",
        u"10:00 10:00",
        u"13:00 pm",
        u"10:00 am am",
        u"T",
        u"31.12.2024 Tx",
        u"31+12+2024",
        u"De 31 2024",
    };

    for (const char16_t* text : cases)
    {
        SCOPED_TRACE(ToUtf8(text));
        DATE date = 42;
        EXPECT_EQ(ReadLocaleDate(text, German(), date), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(date, 42);
    }
}

TEST(LocaleTest, WhatIsWrittenReadsBackInEveryOrder)
{
    for (const char* pattern : {"%m/%d/%Y", "%d.%m.%Y", "%Y-%m-%d", "%Y/%d/%m"})
    {
        for (const DATE date : {DATE_OF_TEST, DATE_OF_TEST + 0.5, 0.25, 2.0, -1.25, -657434.0})
        {
            SCOPED_TRACE(testing::Message() << pattern << " " << date);
            const CDateCustoms customs = ReadDatePattern(pattern);
            CString text;
            DATE back = 42;
            ASSERT_EQ(FormatLocaleDate(date, customs, text), S_OK);
            ASSERT_EQ(ReadLocaleDate(text, customs, back), S_OK) << ToUtf8(text.View());
            EXPECT_EQ(back, date);
        }
    }
}

TEST(LocaleTest, TimeShowsOnlyWhereItSaysSomething)
{
    const CDateCustoms customs = German();
    const struct
    {
        DATE m_Date;
        const char16_t* m_Text;
    } cases[] = {
        {DATE_OF_TEST, u"31.12.2024"},
        {DATE_OF_TEST + 0.5, u"31.12.2024 12:00:00"},
        {0, u"00:00:00"},
        {0.5, u"12:00:00"},
    };

    for (const auto& row : cases)
    {
        CString text;
        EXPECT_EQ(FormatLocaleDate(row.m_Date, customs, text), S_OK);
        EXPECT_EQ(text, row.m_Text);
    }
    CString preset = u"preset";
    EXPECT_EQ(FormatLocaleDate(1e9, customs, preset), E_FAIL);
    EXPECT_EQ(preset, u"preset");
}

TEST(LocaleTest, CustomsFollowTheEnvironment)
{
    {
        const CEnvironmentVariable all("LC_ALL", "C");
        EXPECT_EQ(GetDateCustoms().m_Separator, u'/');
        EXPECT_EQ(GetDateCustoms().m_Months[0], u"January");
    }
    const CEnvironmentVariable all("LC_ALL", "no_such_locale");
    EXPECT_EQ(GetDateCustoms().m_ShortMonths[11], u"Dec");
}

TEST(LocaleTest, CodePageIsTheDefaultOne)
{
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, 5), u"");
    SetACP(1252);
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE), u"1252");
    SetACP(0);
}

} // namespace utility
