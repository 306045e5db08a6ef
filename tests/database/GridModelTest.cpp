#include "database/GridModel.h"

#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "database/DBFieldRules.h"
#include "database/DatabaseFixture.h"
#include "database/FilterOperators.h"
#include "database/OGDynRecordset.h"
#include "database/OGDynSortInfo.h"
#include "platform/base/collections/PtrList.h"
#include "platform/db/RecordsetStatus.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <sstream>

namespace utility
{
namespace
{

constexpr DWORD NO_LIMIT = 0xFFFFFFFF;

int StepCount()
{
    return std::getenv("UTILITY_NIGHTLY") ? 100'000 : 3'000;
}

/// Texts that the order of names does not put in a circle, and numbers in every way of writing.
constexpr const char16_t* VALUES[] = {u"4k7",   u"10k", u"4700", u"100R", u"1M", u"net9", u"net10",
                                      u"Net10", u"",    u"<n>",  u"-5",   u"0",  u"2u2",  u"_a"};
constexpr const char16_t* KINDS[] = {u"R", u"C", u"Resistor", u""};

/// Drives a recordset and its model by the same random steps.
class GridModelTest : public CSourceTest
{
protected:
    void SetUp() override
    {
        CSourceTest::SetUp();
        Execute(u"CREATE TABLE [Grid] ([Id] INTEGER, [Kind] VARCHAR(8), [Value] VARCHAR(20))");
        m_Set.SetSQL(u"SELECT * FROM [Grid] ORDER BY [Id]");
    }

    int Random(int count) { return static_cast<int>(m_Random() % static_cast<unsigned>(count)); }

    template <typename TChoices>
    const auto& Choose(const TChoices& choices)
    {
        return choices[static_cast<std::size_t>(Random(static_cast<int>(std::size(choices))))];
    }

    /// A table of another size; the open set does not see it before its next query.
    void ChangeTable()
    {
        Execute(u"DELETE FROM [Grid]");
        std::vector<CModelRow> rows;
        std::string values;
        for (int count = Random(8) == 0 ? Random(2) : Random(250); count > 0; --count)
        {
            const int id = static_cast<int>(rows.size()) + 1;
            rows.push_back({id, Choose(KINDS), Choose(VALUES)});
            values += (values.empty() ? "(" : ", (") + std::to_string(id) + ", '" +
                      ToUtf8(rows.back().m_Kind) + "', '" + ToUtf8(rows.back().m_Value) + "')";
        }
        if (!rows.empty())
            Execute(u"INSERT INTO [Grid] VALUES " + FromUtf8(values));
        m_Model.SetTable(rows);
    }

    CModelFilter MakeFilter()
    {
        using EField = CModelFilter::EField;
        constexpr EField FIELDS[] = {EField::None,  EField::Kind,  EField::Kind,
                                     EField::Value, EField::Value, EField::Absent};
        constexpr int OPERATORS[] = {FILTER_EQUAL, FILTER_GREATER, FILTER_CONTAINS, FILTER_BEGINS,
                                     FILTER_NOT_BEGINS};
        CModelFilter filter;
        filter.m_Field = Choose(FIELDS);
        filter.m_Operator = Choose(OPERATORS);
        filter.m_Text = filter.m_Field == EField::Kind ? Choose(KINDS) : Choose(VALUES);
        return filter;
    }

    static CDBClientFilterSet* MakeFilterSet(const CModelFilter& filter)
    {
        using EField = CModelFilter::EField;
        if (filter.m_Field == EField::None)
            return nullptr;
        const char16_t* const name = filter.m_Field == EField::Kind    ? u"KIND"
                                     : filter.m_Field == EField::Value ? u"value"
                                                                       : u"Weight";
        auto* const filters = new CDBClientFilterSet;
        filters->AddFilter(new CDBClientFilter(name, filter.m_Operator, CString(filter.m_Text), u"",
                                               PARSE_RESISTOR));
        return filters;
    }

    void Step()
    {
        const int kind = Random(100);
        if (kind < 80)
            MoveBoth();
        else if (kind < 86)
            FetchBoth();
        else if (kind < 90)
            SortBoth();
        else if (kind < 96)
            FilterBoth();
        else
            QueryBoth();
    }

    void MoveBoth()
    {
        constexpr WORD FETCHES[] = {SQL_FETCH_NEXT,     SQL_FETCH_NEXT,     SQL_FETCH_NEXT,
                                    SQL_FETCH_PRIOR,    SQL_FETCH_PRIOR,    SQL_FETCH_FIRST,
                                    SQL_FETCH_ABSOLUTE, SQL_FETCH_RELATIVE, SQL_FETCH_LAST};
        const WORD fetch = Choose(FETCHES);
        const int reach = Random(3) == 0 ? 300 : 12;
        const int rows = Random(2 * reach + 1) - reach;
        m_Step << "move " << rows << " by " << fetch;
        const std::string refusal = RefusalOf([&] { m_Set.Move(rows, fetch); });
        EXPECT_EQ(refusal.empty(), m_Model.Move(rows, fetch)) << refusal;
    }

    void FetchBoth()
    {
        // A set that shows all rows fetches as many as the driver gives at once: so all of them.
        const int rows = m_Set.IsLocalFiltering() ? 1 + Random(60) : INT32_MAX;
        m_Step << "fetch " << rows << " ahead";
        bool isMore = true;
        EXPECT_EQ(RefusalOf([&] { isMore = m_Set.FetchAhead(NO_LIMIT, rows); }), "");
        EXPECT_EQ(isMore, m_Model.FetchAhead(rows));
    }

    void SortBoth()
    {
        const int type = Random(2) == 0 ? PARSE_RESISTOR : PARSE_NONE;
        const bool ascending = Random(2) == 0;
        m_Step << "sort by type " << type << (ascending ? " up" : " down");
        COGDynSortInfo keys[] = {{u"Kind", PARSE_NONE, true}, // not the last, so it does not count
                                 {u"Value", type, ascending},
                                 {u"Weight", PARSE_NONE, true}};
        CPtrList list;
        for (COGDynSortInfo& key : keys)
            list.AddTail(&key);
        EXPECT_EQ(RefusalOf([&] { m_Set.SortFilteredRecords(list); }), "");
        m_Model.Sort(type, ascending);
    }

    void FilterBoth()
    {
        const CModelFilter filter = MakeFilter();
        const bool isAtOnce = Random(2) == 0;
        m_Step << (isAtOnce ? "apply" : "set") << " filter " << static_cast<int>(filter.m_Field)
               << ", operator " << filter.m_Operator << ", text " << ToUtf8(filter.m_Text);
        if (isAtOnce)
        {
            EXPECT_EQ(RefusalOf([&] { m_Set.ApplyLocalFilters(MakeFilterSet(filter)); }), "");
            m_Model.ApplyFilter(filter);
            return;
        }
        m_Set.SetLocalFilters(MakeFilterSet(filter));
        m_Model.SetFilter(filter);
    }

    void QueryBoth()
    {
        if (Random(2) == 0)
            ChangeTable();
        const bool isAnew = Random(3) == 0;
        m_Step << (isAnew ? "open anew" : "requery");
        if (!isAnew)
        {
            EXPECT_EQ(RefusalOf([&] { m_Set.Requery(); }), "");
            m_Model.Requery();
            return;
        }
        m_Set.Close();
        OpenBoth();
    }

    void OpenBoth()
    {
        EXPECT_EQ(RefusalOf([&] { m_Set.Open(); }), "");
        m_Model.Open();
    }

    CGridView Look() const
    {
        CGridView view;
        view.m_IsBegin = m_Set.IsBOF() != FALSE;
        view.m_IsEnd = m_Set.IsEOF() != FALSE;
        if (!view.m_IsBegin && !view.m_IsEnd)
            view.m_Id = std::stoi(ToUtf8(m_Set.GetFieldData(0).View()));
        CRecordsetStatus status;
        m_Set.GetStatus(status);
        view.m_Count = m_Set.GetRecordCount();
        view.m_CurrentRecord = status.m_lCurrentRecord;
        view.m_IsFiltering = m_Set.IsLocalFiltering();
        view.m_IsCountFinal = status.m_bRecordCountFinal != FALSE;
        return view;
    }

    /// True if both look alike.
    bool Compare()
    {
        const CGridView expected = m_Model.Look();
        CGridView found = Look();
        if (expected.m_Count < 0)
            found.m_Count = expected.m_Count;
        EXPECT_EQ(found, expected);
        return found == expected;
    }

    std::mt19937 m_Random{21};
    std::ostringstream m_Step;
    CGridModel m_Model;
    COGDynRecordset m_Set{&m_Database};
};

TEST_P(GridModelTest, BehavesAsAPlainVectorWouldUnderRandomSteps)
{
    ChangeTable();
    OpenBoth();
    ASSERT_TRUE(Compare());
    std::string before = "open";
    const int count = StepCount();
    for (int step = 0; step < count; ++step)
    {
        m_Step.str("");
        Step();
        SCOPED_TRACE(testing::Message()
                     << "step " << step << ": " << m_Step.str() << ", after: " << before);
        ASSERT_TRUE(Compare() && !HasFailure());
        before = m_Step.str();
    }
}

UTILITY_ON_ALL_SOURCES(GridModelTest);

} // namespace
} // namespace utility
