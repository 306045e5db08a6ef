#include "text/numbers/RealNumber.h"

#include "platform/base/String.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace utility
{
namespace
{

std::string Show(const CString& text)
{
    return std::string(text.View().begin(), text.View().end());
}

TEST(RealNumberTest, ReadsANumberAndStopsBehindIt)
{
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    const struct
    {
        const char16_t* m_Text;
        double m_Value;
        int m_Index;
    } rows[] = {
        {u"", 0, 0},
        {u"abc", 0, 0},
        {u"-", 0, 0},
        {u"   ", 0, 0},
        {u".", 0, 1},
        {u"5", 5, 1},
        {u"- 5", -5, 3},
        {u" \t+7x", 7, 4},
        {u"--5", 0, 0},
        {u"3.3", 3.3, 3},
        {u"3,3", 3.3, 3},
        {u"1.2.3", 1.2, 3},
        {u"5e", 5, 1},
        {u"5e3x", 5000, 3},
        {u"5 e3", 5000, 4},
        {u"6 e2 ", 600, 4},
        {u"5 E - 3", 0.005, 7},
        {u"5e+x", 5, 1},
        {u"e5", 0, 0},
        {u"-e5", 0, 0},
        {u".e5", 0, 3},
        {u".5", 0.5, 2},
        {u"5.", 5, 2},
        {u"5.e1", 50, 4},
        {u"5 ", 5, 1},
        {u"9e999", INFINITE, 5},
        {u"-9e999", -INFINITE, 6},
        {u"9e-999", 0, 6},
        {u"0e99999999999", 0, 13},
        {u"99999999999", 99999999999.0, 11},
        {u"1.7e-06", 1.7e-06, 7},
        {u"4.7e3", 4700, 5},
        {u"1e308", 1e308, 5},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Show(row.m_Text));
        double value = 99;
        EXPECT_EQ(ReadRealNumber(value, row.m_Text, 0, u'.', false), row.m_Index);
        EXPECT_DOUBLE_EQ(value, row.m_Value);
    }
}

TEST(RealNumberTest, TheDecimalCharacterDecidesWhereANumberEnds)
{
    const struct
    {
        const char16_t* m_Text;
        char16_t m_DecimalChar;
        bool m_OnlyDecimalChar;
        double m_Value;
        int m_Index;
    } rows[] = {
        {u"3,3", u'.', true, 3, 1},     {u"3.3", u'.', true, 3.3, 3},
        {u"3,3", u',', true, 3.3, 3},   {u"3'3", u'\'', false, 3.3, 3},
        {u"3.3", u'\'', false, 3.3, 3}, {u"3.3", 0, true, 3, 1},
        {u"3.3", 0, false, 3.3, 3},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Show(row.m_Text) + " with " + static_cast<char>(row.m_DecimalChar));
        double value = 99;
        EXPECT_EQ(ReadRealNumber(value, row.m_Text, 0, row.m_DecimalChar, row.m_OnlyDecimalChar),
                  row.m_Index);
        EXPECT_DOUBLE_EQ(value, row.m_Value);
    }
}

TEST(RealNumberTest, ReadsFromTheGivenIndexAndNowhereOutsideTheText)
{
    double value = 99;

    EXPECT_EQ(ReadRealNumber(value, u"12 345mm", 2, u'.', false), 6);
    EXPECT_EQ(value, 345);
    for (const int start : {-1, 8, 9})
    {
        EXPECT_EQ(ReadRealNumber(value, u"12 345mm", start, u'.', false), start);
        EXPECT_EQ(value, 0);
    }
}

TEST(RealNumberTest, LongRunsOfDigitsNeverWrapOrBreak)
{
    double value = 0;
    const std::u16string thirds(100'000, u'3');
    const CString fraction(u"0." + thirds);
    const CString scaled(thirds + u"e-99999");

    EXPECT_EQ(ReadRealNumber(value, fraction, 0, u'.', false), fraction.GetLength());
    EXPECT_DOUBLE_EQ(value, 1.0 / 3);
    EXPECT_EQ(ReadRealNumber(value, scaled, 0, u'.', false), scaled.GetLength());
    EXPECT_TRUE(std::isinf(value));
}

} // namespace
} // namespace utility
