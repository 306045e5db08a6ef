#include "database/DBADatabase.h"

#include "database/DatabaseFixture.h"
#include "database/TraceLog.h"
#include "frame/AppError.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

std::string DetailsOf(const CDBADatabase& database)
{
    return ToUtf8(database.GetErrorDetails().View());
}

/// Connections to SQLite files, whose names say the words that choose the dialect.
class DBADatabaseDialectTest : public testing::Test
{
protected:
    bool Open(const char* file)
    {
        const std::string path = (CDatabaseServers::Get().GetFolder() / file).string();
        return m_Database.Open(nullptr, FALSE, FALSE,
                               u"DRIVER={SQLite3};Database=" + FromUtf8(path)) != 0;
    }

    CDBADatabase m_Database;
};

TEST_F(DBADatabaseDialectTest, IsChosenByWordsAnywhereInTheConnectString)
{
    const struct
    {
        const char* m_File;
        int m_Type;
    } rows[] = {{"parts.db", DB_TYPE_DEFAULT},
                {"my-Oracle-parts.db", DB_TYPE_ORACLE},
                {"PostgreSQL-parts.db", DB_TYPE_POSTGRESQL},
                {"postgresql-to-oracle.db", DB_TYPE_ORACLE},
                {"postgres.db", DB_TYPE_DEFAULT}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_File);
        ASSERT_TRUE(Open(row.m_File));
        EXPECT_EQ(m_Database.GetDbType(), row.m_Type);
        m_Database.Close();
        EXPECT_EQ(m_Database.GetDbType(), DB_TYPE_DEFAULT);
    }
}

TEST_F(DBADatabaseDialectTest, LeavesAQualifiedNameAsItIsOnOracleAlone)
{
    const struct
    {
        const char* m_File;
        const char16_t* m_Qualified;
    } rows[] = {{"plain.db", u"[store.Parts]"},
                {"oracle.db", u"store.Parts"},
                {"postgresql.db", u"[store.Parts]"}};
    EXPECT_EQ(m_Database.DelimitTableName(u"store.Parts"), u"[store.Parts]");
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_File);
        ASSERT_TRUE(Open(row.m_File));
        EXPECT_EQ(m_Database.DelimitTableName(u"store.Parts"), row.m_Qualified);
        EXPECT_EQ(m_Database.DelimitTableName(u"Parts"), u"[Parts]");
        m_Database.Close();
        EXPECT_EQ(m_Database.DelimitTableName(u"store.Parts"), u"[store.Parts]");
    }
}

TEST_F(DBADatabaseDialectTest, StaysWithAConnectionThatIsOpenedTwice)
{
    ASSERT_TRUE(Open("oracle-twice.db"));
    EXPECT_FALSE(Open("plain-twice.db"));

    EXPECT_EQ(m_Database.GetDbType(), DB_TYPE_ORACLE);
    EXPECT_TRUE(m_Database.IsOpen());
}

TEST(DBADatabaseSqlTest, PrefersAnOverrideFoundInAnyCase)
{
    CDBADatabase database;
    EXPECT_EQ(database.GetTableSql(u"Parts"), u"SELECT * FROM [Parts]");
    database.SetTableSql(u"Parts", u"SELECT Id FROM Parts");
    database.SetTableSql(u"PARTS", u"SELECT Name FROM Parts");
    database.SetTableSql(u"Other", u"SELECT 1");

    EXPECT_EQ(database.GetTableSql(u"parts"), u"SELECT Name FROM Parts");
    database.Close();
    EXPECT_EQ(database.GetTableSql(u"parts"), u"SELECT Name FROM Parts");

    CDBADatabase worker;
    worker.SetTableSql(u"Old", u"SELECT 0");
    worker.CopyTableSql(database);
    EXPECT_EQ(worker.GetTableSql(u"OTHER"), u"SELECT 1");
    EXPECT_EQ(worker.GetTableSql(u"Old"), u"SELECT * FROM [Old]");
    worker.RemoveAllTableSql();
    EXPECT_EQ(worker.GetTableSql(u"Other"), u"SELECT * FROM [Other]");
    EXPECT_EQ(database.GetTableSql(u"Other"), u"SELECT 1");
}

TEST(DBADatabaseClosedTest, AnswersWithoutAConnection)
{
    CDBADatabase database;
    EXPECT_EQ(database.GetErrorDetails(), u"No error");
    EXPECT_EQ(database.GetDSN(), u"");
    CStringArray names;
    names.Add(u"preset");
    database.ReadTableNames(names);
    EXPECT_EQ(names.GetSize(), 0);
    EXPECT_EQ(database.GetErrorDetails(), u"No error");

    EXPECT_FALSE(database.CreateTable(u"T"));
    EXPECT_NE(DetailsOf(database).find("08003"), std::string::npos);
    EXPECT_TRUE(database.DeleteTable(u"T"));
    EXPECT_FALSE(database.TableExists(u"T"));
}

TEST(DBADatabaseClosedTest, KeepsTheOldTransactionAnswer)
{
    CDBADatabase database;
    const BOOL first = database.SetTransactionsAllowed(TRUE);

    EXPECT_EQ(first, FALSE);
    EXPECT_EQ(database.SetTransactionsAllowed(FALSE), TRUE);
    EXPECT_EQ(database.CanTransact(), FALSE);
}

class DBADatabaseTest : public CSourceTest
{
};

TEST_P(DBADatabaseTest, KnowsItsDialect)
{
    EXPECT_EQ(m_Database.GetDbType(),
              On<int>(DB_TYPE_DEFAULT, DB_TYPE_POSTGRESQL, DB_TYPE_DEFAULT));
}

TEST_P(DBADatabaseTest, MakesFindsAndDropsTables)
{
    EXPECT_FALSE(m_Database.TableExists(u"Stock"));
    EXPECT_NE(DetailsOf(m_Database).find("Database error:\n"), std::string::npos);

    EXPECT_TRUE(m_Database.CreateTable(u"[Stock]"));
    EXPECT_TRUE(m_Database.TableExists(u"Stock"));
    // The number of a row counts by itself.
    Execute(On<const char16_t*>(u"INSERT INTO [Stock] DEFAULT VALUES",
                                u"INSERT INTO [Stock] DEFAULT VALUES",
                                u"INSERT INTO [Stock] () VALUES ()"));

    EXPECT_FALSE(m_Database.CreateTable(u"[Stock]"));
    EXPECT_TRUE(m_Database.DeleteTable(u"[Stock]"));
    EXPECT_FALSE(m_Database.TableExists(u"Stock"));
}

TEST_P(DBADatabaseTest, TakesNamesOfSchemaStatementsAsTheyAre)
{
    ASSERT_TRUE(m_Database.CreateTable(u"Stock"));

    // Undelimited, PostgreSQL makes it stock.
    EXPECT_EQ(m_Database.TableExists(u"Stock"), GetParam() != EServer::PostgreSQL);
    EXPECT_TRUE(m_Database.TableExists(On<const char16_t*>(u"Stock", u"stock", u"Stock")));
}

TEST_P(DBADatabaseTest, CallsADropOfAnAbsentTableTrueAndKeepsTheDriversWords)
{
    const CTraceLog log(u"DBADatabase");
    EXPECT_EQ(m_Database.GetErrorDetails(), u"No error");
    EXPECT_TRUE(m_Database.DeleteTable(u"Absent"));

    const std::string details = DetailsOf(m_Database);
    EXPECT_EQ(details.find("Database error:\n"), 0u) << details;
    EXPECT_NE(details.find(On("no such table", "does not exist", "Unknown table")),
              std::string::npos)
        << details;
    EXPECT_NE(details.find("State:"), std::string::npos) << details;
    EXPECT_NE(log.Read().find("CDBException: Database error:\n"), std::string::npos);

    // Later successes leave the record.
    EXPECT_TRUE(m_Database.CreateTable(u"Stock"));
    EXPECT_EQ(DetailsOf(m_Database), details);
}

TEST_P(DBADatabaseTest, LogsAnOpenWithoutItsPassword)
{
    const CTraceLog log(u"DBADatabase");
    CDBADatabase other;
    // MariaDB alone asks: its user has no password, so this one is wrong.
    const BOOL opened = On(TRUE, TRUE, FALSE);
    EXPECT_EQ(other.Open(nullptr, FALSE, TRUE, m_Connect + u";PWD=s3cret", FALSE), opened);

    const std::string lines = log.Read();
    EXPECT_EQ(lines.find("CDBADatabase::Open\n(\nbExclusive = 0\nbReadOnly = 1\nlpszConnect = "),
              0u)
        << lines;
    EXPECT_NE(lines.find("PWD=***"), std::string::npos) << lines;
    EXPECT_NE(lines.find("\nbUseCursorLib = 0\nCalling CDatabase::Open()\n"), std::string::npos)
        << lines;
    EXPECT_NE(lines.find(opened ? "Result = 1\n" : "Result = 0\n"), std::string::npos) << lines;
    EXPECT_EQ(lines.find("s3cret"), std::string::npos) << lines;
}

TEST(DBADatabaseOpenTest, AnswersARefusedOpenWithZeroAndRecordsItForTheUserAlone)
{
    const CTraceLog log(u"DBADatabase");
    CDBADatabase database;
    EXPECT_FALSE(database.Open(u"No such source", FALSE, FALSE, u"PWD=s3cret"));

    const std::string lines = log.Read();
    EXPECT_NE(lines.find("lpszDSN = No such source\n"), std::string::npos) << lines;
    EXPECT_NE(lines.find("\nError = "), std::string::npos) << lines;
    EXPECT_NE(lines.find("\nException = '"), std::string::npos) << lines;
    EXPECT_NE(lines.find("Result = 0\n"), std::string::npos) << lines;
    EXPECT_EQ(lines.find("s3cret"), std::string::npos) << lines;
    EXPECT_EQ(database.GetErrorDetails(), u"No error");
    EXPECT_EQ(CAppError::GetLastError(), 10690u);
    EXPECT_EQ(database.GetDbType(), DB_TYPE_DEFAULT);
}

UTILITY_ON_ALL_SOURCES(DBADatabaseTest);

} // namespace
} // namespace utility
