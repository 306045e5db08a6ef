#include "utility/db/stock/PassiveStock.h"

#include "database/DBFieldRules.h"
#include "platform/base/Encoding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

namespace utility
{

TEST(PassiveStockTest, EveryWrittenValueReadsBackAsTheValueOfItsKind)
{
    const std::map<CString, int> types = {{u"Resistor", PARSE_RESISTOR},
                                          {u"Capacitor", PARSE_CAPACITOR},
                                          {u"Inductor", PARSE_INDUCTOR}};
    for (const CPassive& part : MakePassiveStock())
    {
        double value = 0;
        const int result =
            CDBFieldRules::GetNumericValue(part.m_Value, value, types.at(part.m_Kind));
        ASSERT_EQ(result, 2) << ToUtf8((part.m_Name + u" " + part.m_Value).View());
        ASSERT_NEAR(value / part.m_Nominal, 1, 1e-9)
            << ToUtf8((part.m_Name + u" " + part.m_Value).View());
    }
}

TEST(PassiveStockTest, LooksLikeAStockThatManyPeopleWrote)
{
    const std::vector<CPassive> stock = MakePassiveStock();
    std::set<CString> names;
    std::set<CString> values;
    for (const CPassive& part : stock)
    {
        names.insert(part.m_Name);
        values.insert(part.m_Value);
    }

    EXPECT_GE(stock.size(), 33000u);
    EXPECT_EQ(names.size(), stock.size()); // the key
    for (const char16_t* const value :
         {u"4k7", u"4.7K", u"4700", u"100nF", u"0.1u", u"2R2", u"97.6K"})
        EXPECT_TRUE(values.contains(value)) << ToUtf8(value);
}

} // namespace utility
