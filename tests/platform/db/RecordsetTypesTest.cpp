#include "platform/db/GXDynamicRecordset.h"
#include "platform/db/ODBCFieldInfo.h"

#include "DatabaseFixture.h"

namespace utility
{

class RecordsetTypesTest : public CDatabaseTest
{
};

/// One number, one text and one date, from whatever the query gives.
class CThreeSet : public CRecordset
{
public:
    explicit CThreeSet(CDatabase* database) : CRecordset(database) { m_nFields = 3; }
    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::param);
        if (m_nParams > 0)
            RFX_Text(exchange, u"[p]", m_Param);
        if (m_nParams > 1)
            RFX_Null(exchange, u"[q]");
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[a]", m_Number);
        RFX_Text(exchange, u"[b]", m_Text, 512);
        RFX_Date(exchange, u"[c]", m_Date);
    }
    LONG m_Number = 0;
    CString m_Text;
    TIMESTAMP_STRUCT m_Date = {};
    CString m_Param;
};

TEST_P(RecordsetTypesTest, ColumnsHaveClassicTypesAndGridTexts)
{
    const LPCWSTR blob = IsOn(EServer::PostgreSQL) ? u"BYTEA" : u"BLOB";
    Execute(CString(u"CREATE TABLE [T] ([i] INTEGER, [s] SMALLINT, [b] BIGINT, [n] NUMERIC(20,3), "
                    u"[r] DOUBLE "
                    u"PRECISION, [v] VARCHAR(40), [t] TIMESTAMP NULL, [d] DATE, [x] ") +
            blob + u")");
    Execute(CString(u"INSERT INTO [T] VALUES (-5, 7, 9000000000, 12345678.125, 4.7e-6, '\u2126 "
                    u"\U0001F50C', "
                    u"'2024-01-31 10:11:12', '2024-02-01', ") +
            (IsOn(EServer::PostgreSQL) ? u"'\\x4142'" : u"x'4142'") + u")");
    Execute(u"INSERT INTO [T] ([i]) VALUES (NULL)");
    struct CColumn
    {
        const char* Name;
        short Type;
        LPCWSTR Text;
    };
    const short numeric = IsOn(EServer::PostgreSQL) ? SQL_NUMERIC
                          : IsOn(EServer::MariaDB)  ? SQL_DECIMAL
                                                    : SQL_DOUBLE;
    const short real = IsOn(EServer::PostgreSQL) ? SQL_FLOAT : SQL_DOUBLE;
    const short text = IsOn(EServer::SQLite) ? SQL_VARCHAR : SQL_WVARCHAR;
    const short binary = IsOn(EServer::SQLite) ? SQL_BINARY : SQL_LONGVARBINARY;
    const CColumn columns[] = {{"i", SQL_INTEGER, u"-5"},
                               {"s", SQL_SMALLINT, u"7"},
                               {"b", SQL_BIGINT, u"9000000000"},
                               {"n", numeric, u"12345678.125"},
                               {"r", real, u"0.0000047"},
                               {"v", text, u"\u2126 \U0001F50C"},
                               {"t", SQL_TIMESTAMP, u"01/31/2024 10:11:12"},
                               {"d", SQL_DATE, u"02/01/2024"},
                               {"x", binary, u"AB"}};

    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"T"); });
    ASSERT_EQ(set.GetFieldCount(), static_cast<int>(std::size(columns)));
    for (int index = 0; index < set.GetFieldCount(); ++index)
    {
        SCOPED_TRACE(columns[index].Name);
        EXPECT_EQ(set.GetFieldInfo(index).m_nSQLType, columns[index].Type);
        EXPECT_EQ(ToUtf8(set.GetFieldData(index).View()), ToUtf8(columns[index].Text));
    }
    Allowed([&] { set.MoveNext(); });
    for (int index = 0; index < set.GetFieldCount(); ++index)
        EXPECT_TRUE(set.GetFieldData(index).IsEmpty()) << "NULL in column " << columns[index].Name;
}

TEST_P(RecordsetTypesTest, NumberBeyond32BitsIsRefusedWithItsColumn)
{
    if (IsOn(EServer::PostgreSQL))
    {
        // Its columns of 32 bits hold nothing more, so the number comes as the text of a BIGINT.
        Execute(u"CREATE TABLE [Wide] ([a b] BIGINT, [b] VARCHAR(9), [c] TIMESTAMP)");
    }
    else
        Execute(IsOn(EServer::SQLite)
                    ? u"CREATE TABLE [Wide] ([a b] INTEGER, [b] VARCHAR(9), [c] TIMESTAMP)"
                    : u"CREATE TABLE [Wide] ([a b] INT UNSIGNED, [b] VARCHAR(9), [c] DATETIME)");
    Execute(u"INSERT INTO [Wide] VALUES (4000000000, 'x', NULL)");
    CThreeSet set(&m_Database);

    const CRefusal refusal =
        RefusalOf([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Wide]"); });

    EXPECT_EQ(refusal.State, "22003");
    EXPECT_NE(refusal.Text.find("a b"), std::string::npos) << refusal.Text;
    CGXDynamicRecordset grid(&m_Database);
    Allowed([&] { grid.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Wide]"); });
    EXPECT_EQ(grid.GetFieldData(0), u"4000000000") << "a grid shows it as it is";
}

TEST_P(RecordsetTypesTest, ParametersSelectAndAreTakenAnewByRequery)
{
    Execute(u"CREATE TABLE [P] ([a] INTEGER, [b] VARCHAR(300), [c] TIMESTAMP NULL)");
    Execute(u"INSERT INTO [P] VALUES (1, 'R\u2126 ''1''', '2024-01-31 10:11:12')");
    Execute(u"INSERT INTO [P] VALUES (2, 'two', NULL)");
    CThreeSet set(&m_Database);
    set.m_nParams = 1;
    set.m_Param = u"R\u2126 '1'";
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [P] WHERE [b] = ?"); });
    EXPECT_EQ(set.m_Number, 1);
    EXPECT_EQ(set.m_Date, (TIMESTAMP_STRUCT{2024, 1, 31, 10, 11, 12, 0}));

    set.m_Param = u"two";
    Allowed([&] { EXPECT_TRUE(set.Requery()); });
    EXPECT_EQ(set.m_Number, 2);
    EXPECT_TRUE(set.IsFieldStatusNull(2));
    set.m_Param = u"none";
    Allowed([&] { EXPECT_TRUE(set.Requery()); });
    EXPECT_TRUE(set.IsEOF());
    set.m_Param = CString(u'x', 256);
    EXPECT_EQ(RefusalOf([&] { set.Requery(); }).State, "22001");
    set.Close();

    set.m_nParams = 2;
    set.m_Param = u"two";
    Allowed(
        [&]
        { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [P] WHERE [b] = ? AND [b] <> ?"); });
    EXPECT_TRUE(set.IsEOF()) << "a parameter without a value is NULL, which nothing differs from";
}

TEST_P(RecordsetTypesTest, DateThatIsNoneIsNotSent)
{
    Execute(u"CREATE TABLE [P] ([a] INTEGER, [b] VARCHAR(300), [c] TIMESTAMP NULL)");
    CThreeSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open(AFX_DB_USE_DEFAULT_TYPE, u"P");
            set.AddNew();
            set.m_Date = {-1, 65535, 65535, 65535, 65535, 65535, 0};
        });
    EXPECT_EQ(RefusalOf([&] { set.Update(); }).State, "22007");
}

UTILITY_ON_ALL_SERVERS(RecordsetTypesTest);

class ExpressionTypesTest : public CDatabaseTest
{
};

TEST_P(ExpressionTypesTest, TypeIsThatOfTheFirstRow)
{
    struct CCase
    {
        const char* Name;
        LPCWSTR Expression;
        short Type;
        LPCWSTR Text;
    };
    Execute(u"CREATE TABLE [T] ([i] INTEGER, [v] VARCHAR(20))");
    Execute(u"INSERT INTO [T] VALUES (2, 'two')");
    Execute(u"CREATE VIEW [Doubled] AS SELECT [i] * 2 AS [d] FROM [T]");
    for (const CCase& item :
         {CCase{"sum", u"SELECT [i] + 1 FROM [T]", SQL_INTEGER, u"3"},
          CCase{"count, closed", u"SELECT COUNT(*) FROM [T] ; ", SQL_INTEGER, u"1"},
          CCase{"long", u"SELECT [i] * 4000000000 FROM [T]", SQL_BIGINT, u"8000000000"},
          CCase{"real", u"SELECT [i] * 0.25 FROM [T]", SQL_DOUBLE, u"0.5"},
          CCase{"text, comment", u"SELECT 'n' || [v] FROM [T] -- last", SQL_VARCHAR, u"ntwo"},
          CCase{"bytes", u"SELECT x'4142' FROM [T]", SQL_BINARY, u"AB"},
          CCase{"no value", u"SELECT NULL FROM [T]", SQL_VARCHAR, u""},
          CCase{"no row", u"SELECT [i] + 1 FROM [T] WHERE [i] > 5", SQL_VARCHAR, u""},
          CCase{"view", u"[Doubled]", SQL_INTEGER, u"4"},
          CCase{"with", u"WITH w AS (SELECT [i] - 5 FROM [T]) SELECT * FROM w", SQL_INTEGER, u"-3"},
          CCase{"no query", u"PRAGMA user_version", SQL_VARCHAR, u"0"}})
    {
        SCOPED_TRACE(item.Name);
        CGXDynamicRecordset set(&m_Database);
        Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, item.Expression); });
        EXPECT_EQ(set.GetFieldInfo(0).m_nSQLType, item.Type);
        EXPECT_EQ(ToUtf8(set.GetFieldData(0).View()), ToUtf8(item.Text));
    }
}

TEST_P(ExpressionTypesTest, ParametersReachTheProbe)
{
    Execute(u"CREATE TABLE [T] ([i] INTEGER, [b] VARCHAR(20), [c] TIMESTAMP)");
    Execute(u"INSERT INTO [T] VALUES (7, 'x', NULL), (8, 'y', NULL)");
    CThreeSet set(&m_Database);
    set.m_nParams = 1;
    set.m_Param = u"y";
    Allowed(
        [&]
        { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT [i] + 1, [b], [c] FROM [T] WHERE [b] = ?"); });
    EXPECT_EQ(set.m_Number, 9);
    CODBCFieldInfo info;
    set.GetODBCFieldInfo(short{0}, info);
    EXPECT_EQ(info.m_nSQLType, SQL_INTEGER);
}

INSTANTIATE_TEST_SUITE_P(Sources, ExpressionTypesTest, testing::Values(EServer::SQLite),
                         [](const auto& source) { return std::string(NameOf(source.param)); });

} // namespace utility
