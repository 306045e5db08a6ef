#include "text/numbers/LengthUnitTable.h"

#include "resources/StringTable.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(LengthUnitTableTest, RowsStandInTheOrderOfTheirValuesAndShareTheMessageTablesNames)
{
    int value = 0;
    for (const CLengthUnitRow& row : GetLengthUnitRows())
    {
        SCOPED_TRACE(value);
        EXPECT_EQ(static_cast<int>(row.m_Unit), value++);
        EXPECT_TRUE(CStringTable::Get(row.m_NameId) == row.m_Name);
        EXPECT_TRUE(CStringTable::Get(row.m_ShortNameId) == row.m_ShortName);
    }
    EXPECT_EQ(value, static_cast<int>(EBaseLengthUnit::NoUnit));
}

TEST(LengthUnitTableTest, LengthsAreInTenthsOfAMicrometre)
{
    const double lengths[] = {254000, 254, 10000000, 10000, 10, 100000, 254};
    ASSERT_EQ(std::size(lengths), GetLengthUnitRows().size());
    for (const CLengthUnitRow& row : GetLengthUnitRows())
        EXPECT_EQ(row.m_Length, lengths[static_cast<int>(row.m_Unit)]);
}

} // namespace
} // namespace utility
