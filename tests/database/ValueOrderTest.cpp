#include "database/ValueOrder.h"

#include "database/DBFieldRules.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

// The cells, put in order by the column's rule; the row number is the place in the list.
std::vector<CString> Ordered(const std::vector<CString>& cells, int parseType, bool ascending)
{
    std::vector<CValueOrderKey> keys;
    for (const CString& cell : cells)
        keys.push_back(MakeValueOrderKey(cell, parseType, static_cast<DWORD>(keys.size())));
    std::stable_sort(keys.begin(), keys.end(),
                     [ascending](const CValueOrderKey& left, const CValueOrderKey& right)
                     { return CompareValueOrder(left, right, ascending) < 0; });
    std::vector<CString> result;
    for (const CValueOrderKey& key : keys)
        result.push_back(key.m_Text);
    return result;
}

using CCells = std::vector<CString>;

TEST(ValueOrderTest, PutsNumbersBeforeTextsAndReversesBoth)
{
    const CCells cells = {u"net10", u"10k", u"", u"4k7", u"net9", u"100"};

    EXPECT_EQ(Ordered(cells, PARSE_RESISTOR, true),
              (CCells{u"100", u"4k7", u"10k", u"", u"net9", u"net10"}));
    EXPECT_EQ(Ordered(cells, PARSE_RESISTOR, false),
              (CCells{u"net10", u"net9", u"", u"10k", u"4k7", u"100"}));
}

TEST(ValueOrderTest, ReadsNumbersByTheColumnsParseType)
{
    const CCells cells = {u"104", u"1uF", u"100n"};

    EXPECT_EQ(Ordered(cells, PARSE_CAPACITOR, true), (CCells{u"100n", u"1uF", u"104"}));
    EXPECT_EQ(Ordered(cells, PARSE_ANY, true), (CCells{u"100n", u"1uF", u"104"}));
    // As plain numbers the letters do not count.
    EXPECT_EQ(Ordered(cells, PARSE_NUMBER, true), (CCells{u"1uF", u"100n", u"104"}));
}

TEST(ValueOrderTest, KeepsEqualRowsByTheirNumbersInBothDirections)
{
    const CCells cells = {u"4k7", u"4700", u"R1", u"r1", u"4.7k"};

    EXPECT_EQ(Ordered(cells, PARSE_RESISTOR, true),
              (CCells{u"4k7", u"4700", u"4.7k", u"R1", u"r1"}));
    EXPECT_EQ(Ordered(cells, PARSE_RESISTOR, false),
              (CCells{u"R1", u"r1", u"4k7", u"4700", u"4.7k"}));
}

TEST(ValueOrderTest, AnswersOneOrZeroForEqualRows)
{
    const CValueOrderKey low = MakeValueOrderKey(u"4k7", PARSE_RESISTOR, 1);
    const CValueOrderKey high = MakeValueOrderKey(u"4700", PARSE_RESISTOR, 2);
    for (const bool ascending : {true, false})
    {
        EXPECT_EQ(CompareValueOrder(high, low, ascending), 1);
        EXPECT_EQ(CompareValueOrder(low, high, ascending), 0);
        EXPECT_EQ(CompareValueOrder(low, low, ascending), 0);
    }
}

TEST(ValueOrderTest, TakesUnsuitedNumbersAsNumbers)
{
    const CValueOrderKey unsuited = MakeValueOrderKey(u"10u", PARSE_RESISTOR, 7);

    EXPECT_TRUE(unsuited.m_IsNumeric);
    EXPECT_DOUBLE_EQ(unsuited.m_Number, 1e-5);
    EXPECT_EQ(unsuited.m_Text, u"10u");
    EXPECT_EQ(unsuited.m_Record, 7u);
    EXPECT_FALSE(MakeValueOrderKey(u"R10", PARSE_RESISTOR, 0).m_IsNumeric);
}

} // namespace
} // namespace utility
