#include "FilterLine.h"

#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"

#include <gtest/gtest.h>

using namespace utility;

namespace partsdesk
{

namespace
{

const std::vector<CColumn> COLUMNS = {
    {u"Name", false}, {u"Kind", false}, {u"Value", false}, {u"Stock", true}};

/// The last test of a line: column, operator, values and parse type; or the reason.
CString LastTestOf(const CString& line)
{
    CDBClientFilterSet filters;
    CString reason;
    if (!CFilterLine(COLUMNS).Parse(line, filters, reason))
        return reason;
    CString last(u"none");
    for (POSITION position = filters.GetHeadPosition(); position;)
    {
        const CDBClientFilter& filter = *filters.GetNext(position);
        last.Format(u"%s %d %s|%s %d", filter.GetFieldName(), filter.GetOperator(),
                    filter.GetValue1(), filter.GetValue2(), filter.GetParseType());
    }
    return last;
}

} // namespace

TEST(FilterLineTest, EachWordIsATestOfAColumn)
{
    const struct
    {
        const char16_t* m_Line;
        const char16_t* m_Test;
    } rows[] = {
        {u"", u"none"},
        {u"   ", u"none"},
        {u"opamp", u"Name 7 opamp| 0"},
        {u"kind=Resistor", u"Kind 0 resistor| 0"},
        {u"Kind!=Resistor", u"Kind 1 resistor| 0"},
        {u"Stock>5", u"Stock 2 5| 5"},
        {u"Stock>=5", u"Stock 3 5| 5"},
        {u"Stock<5 Stock<=5", u"Stock 5 5| 5"},
        {u"Name^R1", u"Name 6 r1| 0"},
        {u"Name~R1", u"Name 7 r1| 0"},
        {u"Name!~R1", u"Name 10 r1| 0"},
        {u"Name~\"low noise\"", u"Name 7 low noise| 0"},
        {u"Name~a=b", u"Name 7 a=b| 0"},
        {u"Kind=Resistor Value=4k7..10k", u"Value 8 4k7|10k 2"},
        {u"Kind=Capacitor Value!=1n..1u", u"Value 11 1n|1u 1"},
        {u"Value=4k7", u"Value 0 4k7| 2"},
        {u"Kind=Inductor Value=10", u"Value 0 10| 3"},
        {u"Value=10", u"Value 0 10| 4"},
        {u"Size=1", u"There is no column \"Size\""},
        {u"=1", u"There is no column \"\""},
        {u"Stock>= 5", u"A value is missing behind \"Stock>=\""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Line)));
        EXPECT_EQ(LastTestOf(row.m_Line), CString(row.m_Test));
    }
}

TEST(FilterLineTest, AWordAloneIsSoughtInTheNameWhereverThatStands)
{
    const std::pair<std::vector<CColumn>, const char16_t*> rows[] = {
        {{{u"Library", false}, {u"name", false}}, u"name"},
        {{{u"Library", false}, {u"Pins", true}}, u"Library"},
    };
    for (const auto& [columns, sought] : rows)
    {
        CDBClientFilterSet filters;
        CString reason;
        ASSERT_TRUE(CFilterLine(columns).Parse(u"opamp", filters, reason));
        POSITION position = filters.GetHeadPosition();
        EXPECT_EQ(filters.GetNext(position)->GetFieldName(), sought);
    }
}

TEST(FilterLineTest, NothingCanBeTestedWithoutColumns)
{
    CDBClientFilterSet filters;
    CString reason;
    const std::vector<CColumn> none;
    EXPECT_FALSE(CFilterLine(none).Parse(u"opamp", filters, reason));
    EXPECT_TRUE(CFilterLine(none).Parse(u"", filters, reason));
}

} // namespace partsdesk
