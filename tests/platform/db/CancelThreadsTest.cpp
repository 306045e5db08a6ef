#include "DatabaseFixture.h"

#include <atomic>
#include <thread>

namespace utility
{

/// One thread waits for a long statement, another stops it.
class DatabaseCancelThreadsTest : public CDatabaseTest
{
};

TEST_P(DatabaseCancelThreadsTest, LongStatementIsStopped)
{
    const LPCWSTR longStatement =
        IsOn(EServer::PostgreSQL) ? u"SELECT pg_sleep(60)"
        : IsOn(EServer::MariaDB)
            ? u"SELECT SLEEP(60) FROM (SELECT 1 UNION SELECT 2) AS twice"
            : u"CREATE TABLE [Long] AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
              u"FROM n WHERE i < 2000000000) SELECT COUNT(*) AS c FROM n";
    std::atomic<bool> isDone = false;
    std::thread stopper(
        [&]
        {
            while (!isDone)
            {
                m_Database.Cancel(); // nothing until the statement runs
                std::this_thread::yield();
            }
        });

    const CRefusal refusal = RefusalOf([&] { m_Database.ExecuteSQL(longStatement); });
    isDone = true;
    stopper.join();

    EXPECT_EQ(refusal.Failure, EDBFailure::Cancelled) << refusal.Text << refusal.StateNativeOrigin;
    Execute(u"CREATE TABLE [After] ([i] INTEGER)");
}

UTILITY_ON_ALL_SERVERS(DatabaseCancelThreadsTest);

} // namespace utility
