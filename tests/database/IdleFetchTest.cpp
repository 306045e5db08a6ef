#include "database/IdleFetch.h"

#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "database/DBFieldRules.h"
#include "database/DatabaseFixture.h"
#include "database/FilterOperators.h"
#include "database/OGDynRecordset.h"
#include "platform/system/Clock.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

/// Each look at the clock finds 100 ms gone, so that a step is as short as it can be.
class CHurriedClock
{
public:
    CHurriedClock() { SetClockSource(&SOURCE); }
    ~CHurriedClock() { SetClockSource(nullptr); }
    CHurriedClock(const CHurriedClock&) = delete;
    CHurriedClock& operator=(const CHurriedClock&) = delete;

private:
    static std::uint64_t& Ticks()
    {
        static std::uint64_t ticks = 0;
        return ticks;
    }

    static constexpr CClockSource SOURCE{[] { return FILETIME{}; },
                                         []
                                         {
                                             return Ticks() += 100;
                                         }};
};

class IdleFetchTest : public CSourceTest
{
protected:
    void MakeStock(int rows)
    {
        Execute(u"CREATE TABLE [Stock] ([Id] INTEGER)");
        std::string values = "(1)";
        for (int row = 2; row <= rows; ++row)
            values += ", (" + std::to_string(row) + ")";
        Execute(u"INSERT INTO [Stock] VALUES " + FromUtf8(values));
    }

    /// Idle calls as a host makes them, until nobody wants more; how many.
    static int RunIdle()
    {
        int calls = 0;
        while (CIdleHandler::OnIdle(calls))
            ++calls;
        return calls;
    }

    void Note(EIdleFetch state)
    {
        m_Told.push_back(state);
        m_Counts.push_back(m_Set.GetRecordCount());
    }

    COGDynRecordset m_Set{&m_Database};
    CIdleFetch m_Fetch{m_Set, [this](EIdleFetch state)
                       {
                           Note(state);
                       }};
    std::vector<EIdleFetch> m_Told;
    std::vector<int> m_Counts;
};

TEST_P(IdleFetchTest, GrowsTheCountStepByStepAndSaysWhenAllIsHere)
{
    const CHurriedClock clock;
    MakeStock(900);
    ASSERT_TRUE(m_Set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock]"));

    EXPECT_GE(RunIdle(), 8);

    ASSERT_EQ(m_Fetch.GetState(), EIdleFetch::Complete);
    EXPECT_EQ(m_Counts.back(), 900);
    EXPECT_TRUE(std::ranges::is_sorted(m_Counts));
    EXPECT_EQ(std::ranges::count(m_Told, EIdleFetch::Complete), 1);
    EXPECT_EQ(RunIdle(), 0) << "nothing is left to do";

    ASSERT_TRUE(m_Set.Requery());
    EXPECT_EQ(m_Set.GetRecordCount(), 1);
    m_Fetch.Restart();
    RunIdle();
    EXPECT_EQ(m_Set.GetRecordCount(), 900);
}

TEST_P(IdleFetchTest, CountsMatchesWhereTheSetFilters)
{
    MakeStock(900);
    auto* const filters = new CDBClientFilterSet;
    filters->AddFilter(new CDBClientFilter(u"Id", FILTER_GREATER, u"500", u"", PARSE_NUMBER));
    m_Set.SetLocalFilters(filters);
    ASSERT_TRUE(m_Set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock] ORDER BY [Id]"));

    RunIdle();

    EXPECT_EQ(m_Fetch.GetState(), EIdleFetch::Complete);
    EXPECT_EQ(m_Set.GetRecordCount(), 400);
    EXPECT_EQ(m_Set.GetFieldData(0), u"501");
}

TEST_P(IdleFetchTest, StopsQuietlyWhereItIsCancelledOrTheSetIsClosed)
{
    MakeStock(900);
    ASSERT_TRUE(m_Set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock]"));
    m_Set.Cancel();
    EXPECT_EQ(RunIdle(), 0);
    EXPECT_EQ(m_Fetch.GetState(), EIdleFetch::Failed);

    m_Set.Close();
    m_Fetch.Restart();
    RunIdle();
    EXPECT_EQ(m_Fetch.GetState(), EIdleFetch::Complete);
}

UTILITY_ON_ALL_SOURCES(IdleFetchTest);

} // namespace
} // namespace utility
