#include "database/OGDynRecordset.h"

#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "database/DBFieldRules.h"
#include "database/DatabaseFixture.h"
#include "database/FilterOperators.h"
#include "database/OGDynSortInfo.h"
#include "database/ValueOrder.h"
#include "platform/base/collections/PtrList.h"
#include "platform/base/collections/StringArray.h"
#include "platform/db/RecordsetStatus.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace utility
{
namespace
{

/// Row i of the stock: its number, kind R for each seventh, and a value that is no order.
std::string KindOf(int row)
{
    return row % 7 == 0 ? "R" : "C";
}

std::string ValueOf(int row)
{
    return row % 11 == 0 ? "none" + std::to_string(row % 3)
                         : std::to_string(row * 7919 % 1000) + (row % 2 == 0 ? "k" : "");
}

CDBClientFilterSet* FiltersOn(const char16_t* field, int op, const char16_t* value)
{
    auto* const filters = new CDBClientFilterSet;
    filters->AddFilter(new CDBClientFilter(field, op, value, u"", PARSE_NONE));
    return filters;
}

class OGDynRecordsetTest : public CSourceTest
{
protected:
    void MakeStock(int rows)
    {
        Execute(u"CREATE TABLE [Stock] ([Id] INTEGER, [Kind] VARCHAR(8), [Value] VARCHAR(20))");
        m_Database.BeginTrans();
        for (int row = 1; row <= rows;)
        {
            std::string values;
            for (const int end = std::min(row + 500, rows + 1); row < end; ++row)
                values += (values.empty() ? "(" : ", (") + std::to_string(row) + ", '" +
                          KindOf(row) + "', '" + ValueOf(row) + "')";
            Execute(u"INSERT INTO [Stock] VALUES " + FromUtf8(values));
        }
        m_Database.CommitTrans();
        m_Rows = rows;
    }

    void Open()
    {
        m_Set.SetSQL(u"SELECT * FROM [Stock] ORDER BY [Id]");
        ASSERT_TRUE(m_Set.Open());
    }

    int Id() const { return std::stoi(ToUtf8(m_Set.GetFieldData(0).View())); }

    /// The numbers of all rows, in the order of the set.
    std::vector<int> Ids()
    {
        std::vector<int> ids;
        for (m_Set.MoveFirst(); !m_Set.IsEOF(); m_Set.MoveNext())
            ids.push_back(Id());
        return ids;
    }

    /// The same, ordered by value as the program would without a database.
    std::vector<int> SortedIds(bool isResistorsOnly, bool ascending) const
    {
        std::vector<CValueOrderKey> keys;
        for (int row = 1; row <= m_Rows; ++row)
            if (!isResistorsOnly || row % 7 == 0)
                keys.push_back(MakeValueOrderKey(FromUtf8(ValueOf(row)), PARSE_RESISTOR,
                                                 static_cast<DWORD>(row - 1)));
        std::stable_sort(keys.begin(), keys.end(),
                         [&](const CValueOrderKey& left, const CValueOrderKey& right)
                         { return CompareValueOrder(left, right, ascending) < 0; });
        std::vector<int> ids;
        for (const CValueOrderKey& key : keys)
            ids.push_back(static_cast<int>(key.m_Record) + 1);
        return ids;
    }

    void Sort(std::vector<COGDynSortInfo> keys)
    {
        CPtrList list;
        for (COGDynSortInfo& key : keys)
            list.AddTail(&key);
        m_Set.SortFilteredRecords(list);
    }

    int m_Rows = 0;
    COGDynRecordset m_Set{&m_Database};
};

TEST_P(OGDynRecordsetTest, TestsOnlyAsManyRowsAsAMoveNeeds)
{
    MakeStock(50000);
    m_Set.SetLocalFilters(FiltersOn(u"KIND", FILTER_EQUAL, u"r"));
    Open();

    ASSERT_TRUE(m_Set.IsLocalFiltering());
    EXPECT_EQ(Id(), 7);
    EXPECT_EQ(m_Set.GetRecordCount(), 1);
    m_Set.SetAbsolutePosition(3000);
    EXPECT_EQ(Id(), 21000);
    EXPECT_EQ(m_Set.GetRecordCount(), 3000);
    CRecordsetStatus status;
    m_Set.GetStatus(status);
    EXPECT_EQ(status.m_lCurrentRecord, 2999);
    EXPECT_FALSE(status.m_bRecordCountFinal);
    m_Set.SetAbsolutePosition(20);
    EXPECT_EQ(Id(), 140);
    EXPECT_EQ(m_Set.GetRecordCount(), 3000);

    m_Set.SetAbsolutePosition(100000);
    EXPECT_TRUE(m_Set.IsEOF());
    EXPECT_EQ(m_Set.GetRecordCount(), 7142);
    m_Set.GetStatus(status);
    EXPECT_TRUE(status.m_bRecordCountFinal);
    m_Set.MoveLast();
    EXPECT_EQ(Id(), 49994);
}

TEST_P(OGDynRecordsetTest, TestsRowsAheadInIdleStepsAndStaysWhereItIs)
{
    MakeStock(5000);
    m_Set.SetLocalFilters(FiltersOn(u"Kind", FILTER_EQUAL, u"R"));
    Open();
    m_Set.MoveNext();
    EXPECT_EQ(Id(), 14);

    int steps = 0;
    for (int found = m_Set.GetRecordCount(); m_Set.FetchAhead(0, 700); ++steps)
    {
        EXPECT_GE(m_Set.GetRecordCount(), found) << "rows of a step without a match add none";
        EXPECT_LE(m_Set.GetRecordCount(), found + 100) << "one row in seven";
        found = m_Set.GetRecordCount();
    }

    EXPECT_GE(steps, 7);
    EXPECT_EQ(m_Set.GetRecordCount(), 714);
    CRecordsetStatus status;
    m_Set.GetStatus(status);
    EXPECT_TRUE(status.m_bRecordCountFinal);
    EXPECT_EQ(status.m_lCurrentRecord, 1);
    EXPECT_EQ(Id(), 14);
    m_Set.MoveNext();
    EXPECT_EQ(Id(), 21);
}

TEST_P(OGDynRecordsetTest, FiltersApplyToTheFetchedRowsWithoutAQuery)
{
    MakeStock(3000);
    Open();
    Sort({{u"Id", PARSE_NUMBER, false}});
    Execute(u"DELETE FROM [Stock]"); // a query would find nothing

    m_Set.ApplyLocalFilters(FiltersOn(u"Kind", FILTER_EQUAL, u"R"));
    EXPECT_EQ(Id(), 7);
    EXPECT_EQ(Ids().size(), 428u);
    m_Set.ApplyLocalFilters(FiltersOn(u"Id", FILTER_GREATER, u"2990"));
    EXPECT_EQ(Ids(),
              (std::vector<int>{2991, 2992, 2993, 2994, 2995, 2996, 2997, 2998, 2999, 3000}));
    m_Set.ApplyLocalFilters(FiltersOn(u"Kind", FILTER_EQUAL, u"X"));
    EXPECT_TRUE(m_Set.IsEOF());
    EXPECT_EQ(m_Set.GetRecordCount(), 0);

    m_Set.ApplyLocalFilters(nullptr);
    EXPECT_FALSE(m_Set.IsLocalFiltering());
    EXPECT_EQ(Id(), 1);
    EXPECT_EQ(Ids().size(), 3000u);
}

TEST_P(OGDynRecordsetTest, ShowsAllRowsWithoutAFilterThatHasItsColumn)
{
    MakeStock(30);
    m_Set.SetLocalFilters(FiltersOn(u"Weight", FILTER_EQUAL, u"5"));
    Open();

    EXPECT_FALSE(m_Set.IsLocalFiltering());
    EXPECT_EQ(Ids().size(), 30u);
    CDBClientFilter* filter = nullptr;
    EXPECT_TRUE(m_Set.IsFieldFiltered(u"WEIGHT", &filter));
    EXPECT_EQ(filter->GetFieldName(), u"Weight");
    EXPECT_FALSE(m_Set.IsFieldFiltered(u"Kind"));
    CStringArray names;
    m_Set.GetFieldNames(names);
    ASSERT_EQ(names.GetSize(), 3);
    EXPECT_EQ(names.GetAt(1), u"[Kind]");
}

TEST_P(OGDynRecordsetTest, BeginsAnewWithEachQuery)
{
    MakeStock(100);
    m_Set.SetLocalFilters(FiltersOn(u"Kind", FILTER_EQUAL, u"R"));
    Open();
    m_Set.MoveLast();
    EXPECT_EQ(m_Set.GetRecordCount(), 14);
    Execute(u"DELETE FROM [Stock] WHERE [Id] < 50");

    EXPECT_TRUE(m_Set.Requery());
    EXPECT_EQ(m_Set.GetRecordCount(), 1);
    EXPECT_EQ(Id(), 56);
    m_Set.Close();
    Open();
    EXPECT_EQ(Ids().size(), 7u);

    m_Set.SetLocalFilters(nullptr);
    EXPECT_TRUE(m_Set.Requery());
    EXPECT_EQ(Ids().size(), 51u);
}

TEST_P(OGDynRecordsetTest, SortsByTheLastKeyThatIsThereNumbersFirst)
{
    MakeStock(200);
    for (const bool isFiltered : {false, true})
        for (const bool ascending : {true, false})
        {
            SCOPED_TRACE(testing::Message() << isFiltered << ascending);
            m_Set.SetLocalFilters(isFiltered ? FiltersOn(u"Kind", FILTER_EQUAL, u"R") : nullptr);
            Open();

            Sort({{u"Id", PARSE_NUMBER, false},
                  {u"value", PARSE_RESISTOR, ascending},
                  {u"Weight", PARSE_NUMBER, true}});

            EXPECT_TRUE(m_Set.IsLocalFiltering());
            EXPECT_EQ(Id(), SortedIds(isFiltered, ascending).front());
            EXPECT_EQ(Ids(), SortedIds(isFiltered, ascending));
            EXPECT_TRUE(m_Set.Requery());
            EXPECT_EQ(Id(), isFiltered ? 7 : 1);
            m_Set.Close();
        }
}

TEST_P(OGDynRecordsetTest, LeavesAnUnknownSortAndAnEmptySetAlone)
{
    MakeStock(0);
    Open();
    Sort({{u"Value", PARSE_RESISTOR, true}});
    EXPECT_TRUE(m_Set.IsEOF());
    m_Set.Close();

    Execute(u"INSERT INTO [Stock] VALUES (1, 'R', '4k7')");
    Open();
    Sort({{u"Weight", PARSE_NUMBER, true}});
    EXPECT_FALSE(m_Set.IsLocalFiltering());
    EXPECT_EQ(Id(), 1);
}

UTILITY_ON_ALL_SOURCES(OGDynRecordsetTest);

} // namespace
} // namespace utility
