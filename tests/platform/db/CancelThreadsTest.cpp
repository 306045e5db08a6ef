#include "platform/db/GXDynamicRecordset.h"

#include "DatabaseFixture.h"
#include "LongQueries.h"

#include <atomic>
#include <thread>

namespace utility
{

namespace
{

/// Calls `stop` again and again until it goes, from a thread of its own.
template <typename TStop>
class CStopper
{
public:
    explicit CStopper(const TStop& stop)
        : m_Thread(
              [this, stop]
              {
                  while (!m_IsDone)
                  {
                      stop(); // nothing until there is something to stop
                      std::this_thread::yield();
                  }
              })
    {
    }
    ~CStopper()
    {
        m_IsDone = true;
        m_Thread.join();
    }
    CStopper(const CStopper&) = delete;
    CStopper& operator=(const CStopper&) = delete;

private:
    std::atomic<bool> m_IsDone = false;
    std::thread m_Thread;
};

} // namespace

/// One thread waits for a long statement, another stops it.
class DatabaseCancelThreadsTest : public CDatabaseTest
{
};

TEST_P(DatabaseCancelThreadsTest, LongStatementIsStopped)
{
    CString sql = LongQuery(GetParam());
    if (IsOn(EServer::SQLite))
        sql = u"CREATE TABLE [Long] AS " + sql; // executing alone computes nothing there
    CRefusal refusal;
    {
        const CStopper stopper([this] { m_Database.Cancel(); });
        refusal = RefusalOf([&] { m_Database.ExecuteSQL(sql); });
    }
    EXPECT_EQ(refusal.Failure, EDBFailure::Cancelled) << refusal.Text << refusal.StateNativeOrigin;
    const std::string driversOwn = IsOn(EServer::SQLite)       ? "HY000"
                                   : IsOn(EServer::PostgreSQL) ? "57014"
                                                               : "HY018";
    EXPECT_TRUE(refusal.State == driversOwn || refusal.State == "HY008") << refusal.State;
    Execute(u"CREATE TABLE [After] ([i] INTEGER)");
}

TEST_P(DatabaseCancelThreadsTest, LongQueryOfARecordsetIsStopped)
{
    CGXDynamicRecordset set(&m_Database);
    CRefusal refusal;
    {
        const CStopper stopper([&set] { set.Cancel(); });
        refusal = RefusalOf([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, LongQuery(GetParam())); });
    }
    EXPECT_EQ(refusal.Failure, EDBFailure::Cancelled) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_FALSE(set.IsOpen());
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT 42"); });
    EXPECT_EQ(set.GetFieldData(0), u"42");
}

TEST_P(DatabaseCancelThreadsTest, RowsMayGoWhileTheyAreStopped)
{
    CGXDynamicRecordset set(&m_Database);
    {
        const CStopper stopper([&set] { set.Cancel(); });
        for (int round = 0; round < 50; ++round)
        {
            RefusalOf([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT 1"); });
            RefusalOf([&] { set.Requery(); });
            set.Close();
        }
    }
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT 42"); });
    EXPECT_EQ(set.GetFieldData(0), u"42");
}

UTILITY_ON_ALL_SERVERS(DatabaseCancelThreadsTest);

/// Where rows come while they are fetched, one thread fetches and another stops it.
class FetchCancelThreadsTest : public CDatabaseTest
{
};

TEST_P(FetchCancelThreadsTest, RowsThatCameStay)
{
    const LPCWSTR endless = IsOn(EServer::SQLite)
                                ? u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                                  u"WHERE i < 2000000000) SELECT i FROM n"
                                : u"SELECT generate_series(1, 2000000000)";
    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, endless); });
    CRefusal refusal;
    {
        const CStopper stopper([&set] { set.Cancel(); });
        refusal = RefusalOf([&] { set.MoveLast(); });
    }

    EXPECT_EQ(refusal.Failure, EDBFailure::Cancelled) << refusal.Text << refusal.StateNativeOrigin;
    Allowed([&] { set.SetAbsolutePosition(1); });
    EXPECT_EQ(set.GetFieldData(0), u"1");
    set.Close();
    Execute(u"CREATE TABLE [After] ([i] INTEGER)");
}

INSTANTIATE_TEST_SUITE_P(Sources, FetchCancelThreadsTest,
                         testing::Values(EServer::SQLite, EServer::PostgreSQL),
                         [](const auto& source) { return std::string(NameOf(source.param)); });

/// Where the driver takes the whole result before the first row, one thread waits for it.
class ResultCancelThreadsTest : public CDatabaseTest
{
};

TEST_P(ResultCancelThreadsTest, ResultUnderWayIsStopped)
{
    // The server makes the table at its first use, and has words of its own for a stop within that.
    CGXDynamicRecordset set(&m_Database);
    Allowed([&]
            { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT seq FROM seq_1_to_1000000 LIMIT 1"); });
    set.Close();
    CRefusal refusal;
    {
        const CStopper stopper([&set] { set.Cancel(); });
        refusal = RefusalOf(
            [&]
            {
                set.Open(AFX_DB_USE_DEFAULT_TYPE,
                         u"SELECT a.seq FROM seq_1_to_1000000 AS a, seq_1_to_1000000 AS b");
            });
    }

    EXPECT_EQ(refusal.Failure, EDBFailure::Cancelled) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_FALSE(set.IsOpen());
    Execute(u"CREATE TABLE [After] ([i] INTEGER)");
}

INSTANTIATE_TEST_SUITE_P(Servers, ResultCancelThreadsTest, testing::Values(EServer::MariaDB),
                         [](const auto& source) { return std::string(NameOf(source.param)); });

} // namespace utility
