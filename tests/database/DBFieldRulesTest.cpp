#include "database/DBFieldRules.h"

#include "database/LiteralRules.h"
#include "database/ValueTexts.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(DBFieldRulesTest, AgreesWithTheLiteralRulesOnEveryTextAndType)
{
    for (const std::u16string& text : MakeValueTexts())
        for (int type = -1; type <= PARSE_NUMBER + 1; ++type)
        {
            SCOPED_TRACE(testing::PrintToString(CString(text)) + " as " + std::to_string(type));
            const literal::CNumber expected = literal::ReadNumber(text, type);
            double value = 0;
            CString multiplier = u"preset";
            CString unit = u"preset";

            EXPECT_EQ(CDBFieldRules::GetNumericValue(CString(text), value, multiplier, unit, type),
                      expected.m_Result);
            EXPECT_EQ(value, expected.m_Value);
            EXPECT_EQ(multiplier, CString(expected.m_Multiplier));
            EXPECT_EQ(unit, CString(expected.m_Unit));
        }
}

TEST(DBFieldRulesTest, ReadsValuesAsTheyAreWritten)
{
    const struct
    {
        const char16_t* m_Text;
        int m_Type;
        int m_Result;
        double m_Value;
    } rows[] = {
        {u"3,3 PF", PARSE_ANY, 2, 3.3 / 1e12},
        {u"4R7", PARSE_RESISTOR, 2, 4.7},
        {u"4R7", PARSE_CAPACITOR, 2, 4.7 / 1e6},
        {u"0.05 mF", PARSE_ANY, 2, 0.05 / 1e3},
        {u"1M", PARSE_ANY, 2, 1e6},
        {u"1M", PARSE_CAPACITOR, 2, 0.001},
        {u"100", PARSE_CAPACITOR, 2, 10 / 1e6},
        {u"100", PARSE_RESISTOR, 2, 100},
        {u"104", PARSE_INDUCTOR, 2, 0.1},
        {u"3. PF", PARSE_NONE, 1, 3},
        {u"3. PF", PARSE_RESISTOR, 1, 3},
        {u"3. PF", PARSE_ANY, 2, 3},
        {u"3. PF", PARSE_NUMBER, 2, 3},
        {u"10/anything", PARSE_RESISTOR, 2, 10},
        {u"10k", PARSE_RESISTOR, 2, 1e4},
        {u"10u", PARSE_RESISTOR, 1, 10 / 1e6},
        {u"10 kOhm", PARSE_RESISTOR, 1, 10},
        {u"-3.5", PARSE_NONE, 2, -2.5},
        {u"-0.5", PARSE_NONE, 2, 0.5},
        {u"4.7e3", PARSE_NONE, 2, 704},
        {u"1e3", PARSE_NONE, 1, 1.3},
        {u"10m", PARSE_ANY, 2, 1e7},
        {u"10mF", PARSE_ANY, 2, 10 / 1e3},
        {u"10\u00B5", PARSE_CAPACITOR, 2, 10 / 1e6},
        {u"10\u03BC", PARSE_CAPACITOR, 1, 10},
        {u"99999999999999999999", PARSE_NONE, 2, 9223372036854775807.0},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        double value = 0;
        EXPECT_EQ(CDBFieldRules::GetNumericValue(row.m_Text, value, row.m_Type), row.m_Result);
        EXPECT_DOUBLE_EQ(value, row.m_Value);
    }
}

TEST(DBFieldRulesTest, KeepsTheValueOfATextThatIsNoNumberAndEmptiesItsLetters)
{
    for (const char16_t* text : {u"", u"pF", u"R", u"k10", u"/10"})
    {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        double value = 12.5;
        CString multiplier = u"preset";
        CString unit = u"preset";
        EXPECT_EQ(CDBFieldRules::GetNumericValue(text, value, multiplier, unit, PARSE_RESISTOR), 0);
        EXPECT_EQ(value, 12.5);
        EXPECT_EQ(multiplier, u"");
        EXPECT_EQ(unit, u"");
    }
}

TEST(DBFieldRulesTest, NamesParseTypesAndFindsThemInAnyCase)
{
    const char16_t* const names[] = {
        u"", u"Capacitor Value", u"Resistor Value", u"Inductor Value", u"Any Value", u"Number"};
    for (int type = PARSE_NONE; type <= PARSE_NUMBER; ++type)
    {
        EXPECT_EQ(CDBFieldRules::GetParseTypeString(type), names[type]);
        EXPECT_EQ(CDBFieldRules::GetParseType(names[type]), type);
        CString upper(names[type]);
        upper.MakeUpper();
        EXPECT_EQ(CDBFieldRules::GetParseType(upper), type);
    }
    EXPECT_EQ(CDBFieldRules::GetParseTypeString(-1), u"");
    EXPECT_EQ(CDBFieldRules::GetParseTypeString(6), u"");
    EXPECT_EQ(CDBFieldRules::GetParseType(u"None"), -1);
    EXPECT_EQ(CDBFieldRules::GetParseType(u"Numbers"), -1);
}

} // namespace
} // namespace utility
