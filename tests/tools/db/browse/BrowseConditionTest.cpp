#include "utility/db/browse/BrowseCondition.h"

#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

/// "Value" is mapped to "Part value", and "Size" to what another column is called.
std::vector<CBrowseColumn> Columns()
{
    return {
        {u"Value", u"Part value", PARSE_RESISTOR},
        {u"Part", u"Part"},
        {u"Size", u"Name"},
        {u"Name", u"Label"},
        {u"a=b", u"a=b"},
        {u"Stock", u"Stock", PARSE_NONE, true},
    };
}

TEST(BrowseConditionTest, WordsAreReadAsATestOfTheColumnThatBeginsThem)
{
    const struct
    {
        const char16_t* m_Words;
        int m_Column; // -1: a text in any column
        int m_Operator;
        const char16_t* m_Value1;
        const char16_t* m_Value2;
    } cases[] = {
        {u"Value between 4k7 10k", 0, FILTER_BETWEEN, u"4k7", u"10k"},
        {u"value BETWEEN 4.7 k and 10 k", 0, FILTER_BETWEEN, u"4.7 k", u"10 k"},
        {u"part value is not between 1 2", 0, FILTER_NOT_BETWEEN, u"1", u"2"},
        {u"Value not between 1 AND 2", 0, FILTER_NOT_BETWEEN, u"1", u"2"},
        {u"part value=4k7", 0, FILTER_EQUAL, u"4k7", u""},
        {u"Part = value", 1, FILTER_EQUAL, u"value", u""}, // the shorter name fits
        {u"  Stock >=  100 ", 5, FILTER_GREATER_OR_EQUAL, u"100", u""},
        {u"Stock>100", 5, FILTER_GREATER, u"100", u""},
        {u"Stock less than or equal to 7", 5, FILTER_LESS_OR_EQUAL, u"7", u""},
        {u"Stock less than 7", 5, FILTER_LESS, u"7", u""},
        {u"Stock != 0", 5, FILTER_NOT_EQUAL, u"0", u""},
        {u"Name begins R06 03", 2, FILTER_BEGINS, u"R06 03", u""}, // the heading comes first
        {u"Label begins with R06", 3, FILTER_BEGINS, u"R06", u""},
        {u"Size does not contain 06", 2, FILTER_NOT_CONTAINS, u"06", u""},
        {u"a=b = c", 4, FILTER_EQUAL, u"c", u""},
        {u"Part =", 1, FILTER_EQUAL, u"", u""},
        {u"R0603", -1, 0, u"", u""},
        {u"Stock of May", -1, 0, u"", u""}, // no operator
        {u"Stocks = 5", -1, 0, u"", u""},   // no column
        {u"Stock lessthan 5", -1, 0, u"", u""},
        {u"", -1, 0, u"", u""},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Words)));
        CBrowseCondition test;
        CString fault;
        EXPECT_TRUE(ReadBrowseCondition(row.m_Words, Columns(), test, fault));
        EXPECT_EQ(test.m_Words, CString(row.m_Words).Trim());
        EXPECT_EQ(test.m_Column, row.m_Column);
        EXPECT_EQ(test.m_Test.m_Operator, row.m_Operator);
        EXPECT_EQ(test.m_Test.m_Value1, CString(row.m_Value1));
        EXPECT_EQ(test.m_Test.m_Value2, CString(row.m_Value2));
        EXPECT_TRUE(fault.IsEmpty());
    }
}

TEST(BrowseConditionTest, ValuesThatCannotMatchAreTold)
{
    const struct
    {
        const char16_t* m_Words;
        const char16_t* m_Fault;
    } cases[] = {
        {u"Value between 4k7", u"a range takes two values, as in: between 4k7 10k"},
        {u"Value between", u"a range takes two values, as in: between 4k7 10k"},
        {u"Value between 4k7 lots", u"'lots' is no number as resistor"},
        {u"Value = 10uF", u"the letters of '10uF' do not suit resistor"},
        {u"Stock between few many", u"'few' is no number"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Words)));
        CBrowseCondition test;
        test.m_Words = u"kept";
        CString fault;
        EXPECT_FALSE(ReadBrowseCondition(row.m_Words, Columns(), test, fault));
        EXPECT_EQ(fault, CString(row.m_Fault));
        EXPECT_EQ(test.m_Words, CString(u"kept"));
    }
}

} // namespace
