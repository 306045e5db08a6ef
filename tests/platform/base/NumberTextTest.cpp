#include "platform/base/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace utility;

TEST(NumberTextTest, ReadsIntegersWithClassicResults)
{
    const struct
    {
        const char16_t* m_Text;
        std::int32_t m_Short;
        std::int64_t m_Long;
        std::uint32_t m_Wrapped;
    } rows[] = {
        {u"  42x", 42, 42, 42},
        {u"\t\r\n\v\f-7", -7, -7, 4294967289U},
        {u"+5", 5, 5, 5},
        {u"- 5", 0, 0, 0},
        {u"--5", 0, 0, 0},
        {u"x", 0, 0, 0},
        {u"", 0, 0, 0},
        {nullptr, 0, 0, 0},
        {u"0x10", 0, 0, 0},
        {u"1e3", 1, 1, 1},
        {u"-1", -1, -1, 4294967295U},
        {u"\u0664", 0, 0, 0}, // a digit of another script is none
        {u"2147483647", 2147483647, 2147483647, 2147483647},
        {u"2147483648", 2147483647, 2147483648, 2147483648U},
        {u"-2147483648", -2147483647 - 1, -2147483648LL, 2147483648U},
        {u"-2147483649", -2147483647 - 1, -2147483649LL, 2147483647U},
        {u"9223372036854775808", 2147483647, std::numeric_limits<std::int64_t>::max(), 0},
        {u"-9223372036854775809", -2147483647 - 1, std::numeric_limits<std::int64_t>::min(),
         4294967295U},
        {u"18446744073709551616", 2147483647, std::numeric_limits<std::int64_t>::max(), 0},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Text ? testing::PrintToString(std::u16string(row.m_Text)) : "null");
        EXPECT_EQ(_wtoi(row.m_Text), row.m_Short);
        EXPECT_EQ(_wtol(row.m_Text), row.m_Short);
        EXPECT_EQ(_wtoi64(row.m_Text), row.m_Long);
        EXPECT_EQ(ReadUnsignedWrapped(row.m_Text), row.m_Wrapped);
    }
}

TEST(NumberTextTest, ReadsInABaseAndTellsTheEnd)
{
    const struct
    {
        const char16_t* m_Text;
        int m_Base;
        std::int32_t m_Value;
        int m_Used;
    } rows[] = {
        {u"ff", 16, 255, 2},
        {u"0xFFg", 16, 255, 4},
        {u"0xg", 16, 0, 1},
        {u"0x1f", 0, 31, 4},
        {u"017", 0, 15, 3},
        {u"09", 0, 0, 1},
        {u"  12;", 10, 12, 4},
        {u"  ;", 10, 0, 0},
        {u"z", 36, 35, 1},
        {u"12", 1, 0, 0},
        {u"12", 37, 0, 0},
        {u"-0x10", 16, -16, 5},
        {u"99999999999 ", 10, 2147483647, 11},
        {u"1012", 2, 5, 3},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Text)) + " in base " +
                     std::to_string(row.m_Base));
        const char16_t* end = nullptr;
        EXPECT_EQ(wcstol(row.m_Text, &end, row.m_Base), row.m_Value);
        EXPECT_EQ(end - row.m_Text, row.m_Used);
        EXPECT_EQ(_wcstoi64(row.m_Text, &end, row.m_Base),
                  row.m_Used == 11 ? 99999999999 : row.m_Value);
    }
}

TEST(NumberTextTest, ReadsRealsAndTellsTheEnd)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        const char16_t* m_Text;
        double m_Value;
        int m_Used;
    } rows[] = {
        {u"1.5", 1.5, 3},
        {u"  -.5x", -0.5, 5},
        {u"5.", 5, 2},
        {u".", 0, 0},
        {u"-", 0, 0},
        {u"e5", 0, 0},
        {u"1e3", 1000, 3},
        {u"1d3", 1000, 3},
        {u"1E+2", 100, 4},
        {u"1D-2", 0.01, 4},
        {u"1e", 1, 1},
        {u"1e+", 1, 1},
        {u"0x10", 0, 1},
        {u"1,5", 1, 1},
        {u"inf", 0, 0},
        {u"nan", 0, 0},
        {u"1e400", infinity, 5},
        {u"-1e400", -infinity, 6},
        {u"1e-400", 0, 6},
        {u"0e999", 0, 5},
        {u"1e99999999999999999999", infinity, 22},
        {u"1e-99999999999999999999", 0, 23},
        {u"0.1", 0.1, 3},
        {u"9007199254740993", 9007199254740992.0, 16},
        {u"+.5e1", 5, 5},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Text)));
        const char16_t* end = nullptr;
        EXPECT_EQ(wcstod(row.m_Text, &end), row.m_Value);
        EXPECT_EQ(end - row.m_Text, row.m_Used);
    }
    EXPECT_TRUE(std::signbit(_wtof(u"-0")));
    EXPECT_EQ(_wtof(nullptr), 0);
}

TEST(NumberTextTest, LongNumbersAreWeighedByTheirFirstDigit)
{
    const std::u16string zeros(400, u'0');
    EXPECT_EQ(_wtof((u"1" + zeros).c_str()), std::numeric_limits<double>::infinity());
    EXPECT_EQ(_wtof((u"0." + zeros + u"1").c_str()), 0);
    EXPECT_EQ(_wtof((u"0." + zeros + u"1e401").c_str()), 1);
    EXPECT_EQ(_wtof((u"1" + zeros + u"e-400").c_str()), 1);
    EXPECT_EQ(_wtof((u"1" + zeros + u"e-900").c_str()), 0);
}
