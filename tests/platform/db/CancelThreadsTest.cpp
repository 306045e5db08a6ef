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

} // namespace utility
