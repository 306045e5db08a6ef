#include "database/DBADatabase.h"
#include "database/DBARecordset.h"
#include "database/DBFieldMap.h"
#include "database/DatabaseFixture.h"
#include "platform/backend/odbc/StatementAdapter.h"
#include "platform/db/Driver.h"

#include <gtest/gtest.h>

#include <functional>

namespace utility
{
namespace
{

/// Takes statements down and gives no columns.
class CRecordingStatement : public StatementRecord
{
public:
    explicit CRecordingStatement(std::vector<CString>& sent) : m_Sent(sent) {}

    RETCODE Execute(std::u16string_view sql) override
    {
        m_Sent.emplace_back(sql);
        return SQL_SUCCESS;
    }
    RETCODE Prepare(std::u16string_view sql) override { return Execute(sql); }
    RETCODE ExecutePrepared() override { return SQL_SUCCESS; }
    std::int64_t GetRowCount() override { return 0; }
    RETCODE SetParameter(std::size_t, const CDbValue&, const CODBCFieldInfo&) override
    {
        return SQL_SUCCESS;
    }
    RETCODE DescribeColumns(std::vector<CODBCFieldInfo>& columns) override
    {
        columns.clear();
        return SQL_SUCCESS;
    }
    RETCODE BindColumns(std::span<const CColumnLayout>) override { return SQL_SUCCESS; }
    RETCODE FetchRows(CSnapshotStore&) override { return SQL_NO_DATA; }
    void CloseCursor() override {}
    void Cancel() override {}
    bool WasStopped() const override { return false; }
    std::vector<CDiagnostic> ReadDiagnostics() const override { return {}; }

private:
    std::vector<CString>& m_Sent;
};

/// A source that takes down what is sent to it, as composed.
class CRecordingConnection : public ConnectionRecord
{
public:
    std::unique_ptr<StatementRecord> MakeStatement(DWORD) override
    {
        return std::make_unique<CRecordingStatement>(m_Sent);
    }
    const CDriverTraits& GetTraits() const override { return m_Traits; }
    const CString& GetConnect() const override { return m_Connect; }
    RETCODE SetAutoCommit(bool) override { return SQL_SUCCESS; }
    RETCODE EndTransaction(bool) override { return SQL_SUCCESS; }
    bool IsLost() const override { return false; }
    std::vector<CDiagnostic> ReadDiagnostics() const override { return {}; }

    std::vector<CString> m_Sent;

private:
    CDriverTraits m_Traits;
    CString m_Connect;
};

/// How Oracle's SQL differs from what is composed: as any source's that was never measured.
constexpr CSqlDialect ORACLE = {};
constexpr CSqlDialect DEFAULT = {
    .Quote = u'`', .KeepsWhereZero = true, .AutoIncrement = EAutoIncrement::Keep};
constexpr CSqlDialect POSTGRESQL = {.AutoIncrement = EAutoIncrement::Identity};

struct CDialect
{
    const char* File; // whose name chooses it
    int Type;
    const CSqlDialect& Sql;
};

const CDialect DIALECTS[] = {{"statements.db", DB_TYPE_DEFAULT, DEFAULT},
                             {"statements-oracle.db", DB_TYPE_ORACLE, ORACLE},
                             {"statements-postgresql.db", DB_TYPE_POSTGRESQL, POSTGRESQL}};

struct CStatement
{
    const char* Name;
    std::function<void(CDBADatabase&)> Run;
    const char16_t* Composed[std::size(DIALECTS)]; // in the order of DIALECTS
    const char16_t* Sent[std::size(DIALECTS)];
};

void ReadFields(CDBADatabase& database, const CString& table)
{
    CDBFieldMap fields;
    database.ReadFieldNames(table, fields);
}

void OpenSet(CDBADatabase& database, const CString& table)
{
    CDBARecordset set(&database, table);
    set.Open();
}

void AddColumn(CDBADatabase& database, const CString& table, const CString& column)
{
    CDBARecordset set(&database, table);
    EXPECT_TRUE(set.CreateTextField(column));
}

const CStatement STATEMENTS[] = {
    {"probe",
     [](CDBADatabase& database) { database.TableExists(u"Parts"); },
     {u"SELECT * FROM [Parts] WHERE 0", u"SELECT * FROM [Parts] WHERE 0",
      u"SELECT * FROM [Parts] WHERE 0"},
     {u"SELECT * FROM `Parts` WHERE 0", u"SELECT * FROM \"Parts\" WHERE 1=0",
      u"SELECT * FROM \"Parts\" WHERE 1=0"}},
    {"probe of a qualified name",
     [](CDBADatabase& database) { database.TableExists(u"store.Parts"); },
     {u"SELECT * FROM [store.Parts] WHERE 0", u"SELECT * FROM store.Parts WHERE 0",
      u"SELECT * FROM [store.Parts] WHERE 0"},
     {u"SELECT * FROM `store.Parts` WHERE 0", u"SELECT * FROM store.Parts WHERE 1=0",
      u"SELECT * FROM \"store.Parts\" WHERE 1=0"}},
    {"columns",
     [](CDBADatabase& database) { ReadFields(database, u"Parts"); },
     {u"SELECT * FROM [Parts]", u"SELECT * FROM [Parts]", u"SELECT * FROM [Parts]"},
     {u"SELECT * FROM `Parts`", u"SELECT * FROM \"Parts\"", u"SELECT * FROM \"Parts\""}},
    {"columns of a qualified name",
     [](CDBADatabase& database) { ReadFields(database, u"store.Parts"); },
     {u"SELECT * FROM [store.Parts]", u"SELECT * FROM store.Parts", u"SELECT * FROM [store.Parts]"},
     {u"SELECT * FROM `store.Parts`", u"SELECT * FROM store.Parts",
      u"SELECT * FROM \"store.Parts\""}},
    {"columns of an override",
     [](CDBADatabase& database)
     {
         database.SetTableSql(u"Parts", u"SELECT Id FROM store.Parts WHERE [Kind] = 'R'");
         ReadFields(database, u"PARTS");
     },
     {u"SELECT Id FROM store.Parts WHERE [Kind] = 'R'",
      u"SELECT Id FROM store.Parts WHERE [Kind] = 'R'",
      u"SELECT Id FROM store.Parts WHERE [Kind] = 'R'"},
     {u"SELECT Id FROM store.Parts WHERE `Kind` = 'R'",
      u"SELECT Id FROM store.Parts WHERE \"Kind\" = 'R'",
      u"SELECT Id FROM store.Parts WHERE \"Kind\" = 'R'"}},
    {"rows of a table, enclosed whatever the dialect",
     [](CDBADatabase& database) { OpenSet(database, u"store.Parts"); },
     {u"SELECT * FROM [store.Parts]", u"SELECT * FROM [store.Parts]",
      u"SELECT * FROM [store.Parts]"},
     {u"SELECT * FROM `store.Parts`", u"SELECT * FROM \"store.Parts\"",
      u"SELECT * FROM \"store.Parts\""}},
    {"new table, its name as given",
     [](CDBADatabase& database) { EXPECT_TRUE(database.CreateTable(u"Parts")); },
     {u"CREATE TABLE Parts (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)",
      u"CREATE TABLE Parts (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)",
      u"CREATE TABLE Parts (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)"},
     {u"CREATE TABLE Parts (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)",
      u"CREATE TABLE Parts (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)",
      u"CREATE TABLE Parts (ID INTEGER NOT NULL PRIMARY KEY GENERATED BY DEFAULT AS IDENTITY)"}},
    {"new table in brackets",
     [](CDBADatabase& database) { EXPECT_TRUE(database.CreateTable(u"[store.Parts]")); },
     {u"CREATE TABLE [store.Parts] (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)",
      u"CREATE TABLE [store.Parts] (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)",
      u"CREATE TABLE [store.Parts] (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)"},
     {u"CREATE TABLE `store.Parts` (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)",
      u"CREATE TABLE \"store.Parts\" (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)",
      u"CREATE TABLE \"store.Parts\" (ID INTEGER NOT NULL PRIMARY KEY GENERATED BY DEFAULT AS "
      u"IDENTITY)"}},
    {"drop, its name as given",
     [](CDBADatabase& database) { EXPECT_TRUE(database.DeleteTable(u"store.Parts")); },
     {u"DROP TABLE store.Parts", u"DROP TABLE store.Parts", u"DROP TABLE store.Parts"},
     {u"DROP TABLE store.Parts", u"DROP TABLE store.Parts", u"DROP TABLE store.Parts"}},
    {"new column, both names as given",
     [](CDBADatabase& database) { AddColumn(database, u"store.Parts", u"[Maker name]"); },
     {u"ALTER TABLE store.Parts ADD [Maker name] VARCHAR(255)",
      u"ALTER TABLE store.Parts ADD [Maker name] VARCHAR(255)",
      u"ALTER TABLE store.Parts ADD [Maker name] VARCHAR(255)"},
     {u"ALTER TABLE store.Parts ADD `Maker name` VARCHAR(255)",
      u"ALTER TABLE store.Parts ADD \"Maker name\" VARCHAR(255)",
      u"ALTER TABLE store.Parts ADD \"Maker name\" VARCHAR(255)"}},
};

/// What a connection of one dialect composes for a statement.
std::vector<CString> Record(const CDialect& dialect, const CStatement& statement)
{
    CDBADatabase database;
    const std::string path = (CDatabaseServers::Get().GetFolder() / dialect.File).string();
    EXPECT_TRUE(
        database.Open(nullptr, FALSE, FALSE, u"DRIVER={SQLite3};Database=" + FromUtf8(path)));
    EXPECT_EQ(database.GetDbType(), dialect.Type);
    CRecordingConnection connection;
    database.m_hdbc = &connection; // until Close
    statement.Run(database);
    database.Close();
    return connection.m_Sent;
}

} // namespace

TEST(DBADatabaseStatementsTest, AreComposedAndSentAsEachDialectWantsThem)
{
    for (const CStatement& statement : STATEMENTS)
        for (std::size_t index = 0; index < std::size(DIALECTS); ++index)
        {
            SCOPED_TRACE(std::string(statement.Name) + " on " + DIALECTS[index].File);
            const std::vector<CString> sent = Record(DIALECTS[index], statement);
            ASSERT_EQ(sent.size(), 1u);
            EXPECT_EQ(ToUtf8(sent[0].View()), ToUtf8(statement.Composed[index]));
            EXPECT_EQ(ToUtf8(AdaptStatement(sent[0].View(), DIALECTS[index].Sql).View()),
                      ToUtf8(statement.Sent[index]));
        }
}

TEST(DBADatabaseStatementsTest, NothingIsSentWithoutATableName)
{
    const CStatement nothing = {"nothing",
                                [](CDBADatabase& database)
                                {
                                    CDBARecordset set(&database, CString());
                                    EXPECT_FALSE(set.CreateTextField(u"Maker"));
                                    ReadFields(database, CString());
                                },
                                {},
                                {}};
    EXPECT_TRUE(Record(DIALECTS[0], nothing).empty());
}

} // namespace utility
