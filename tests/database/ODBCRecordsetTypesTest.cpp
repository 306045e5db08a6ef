#include "database/DatabaseFixture.h"
#include "database/FieldTools.h"
#include "database/ODBCRecordset.h"
#include "platform/db/ODBCFieldInfo.h"

#include <gtest/gtest.h>

#include <array>
#include <span>

namespace utility
{
namespace
{

/// What holds on SQLite, PostgreSQL and MariaDB: one value for all, or one each.
template <typename TValue>
struct CEach : std::array<TValue, 3>
{
    CEach(TValue all) : std::array<TValue, 3>{all, all, all} {}
    CEach(TValue sqlite, TValue postgresql, TValue mariadb)
        : std::array<TValue, 3>{sqlite, postgresql, mariadb}
    {
    }
    TValue At(EServer server) const { return (*this)[static_cast<std::size_t>(server)]; }
};

using CSqlText = CEach<const char16_t*>;
using CShown = CEach<const char*>;
using CSqlType = CEach<short>;

/// A column as declared, a value as written, and what both read as.
struct CColumn
{
    CSqlText m_Declared;
    CSqlText m_Written;
    CSqlType m_SqlType;
    CShown m_Read;
    CShown m_Text; // AsString
};

// docs/database-drivers.md lists every row here in which the sources differ.
const CColumn COLUMNS[] = {
    {u"INTEGER", u"70000", SQL_INTEGER, "LONG 70000", "70000"},
    {u"INTEGER", u"-2147483648", SQL_INTEGER, "LONG -2147483648", "-2147483648"},
    // Small whole numbers travel as 32-bit ones.
    {u"SMALLINT", u"-7", SQL_SMALLINT, "LONG -7", "-7"},
    {u"BIGINT", u"9000000000", SQL_BIGINT, "STRING 9000000000", "9000000000"},
    {u"BIGINT", u"-9223372036854775808", SQL_BIGINT, "STRING -9223372036854775808",
     "-9223372036854775808"},
    {{u"TINYINT", u"SMALLINT", u"TINYINT"},
     u"84",
     {SQL_TINYINT, SQL_SMALLINT, SQL_TINYINT},
     {"UCHAR 84", "LONG 84", "UCHAR 84"},
     "84"},
    {{u"TINYINT", u"SMALLINT", u"TINYINT"},
     u"-5",
     {SQL_TINYINT, SQL_SMALLINT, SQL_TINYINT},
     {"UCHAR 251", "LONG -5", "UCHAR 251"},
     {"4294967291", "-5", "4294967291"}},
    {u"NUMERIC(12,3)",
     u"1234.500",
     {SQL_DOUBLE, SQL_NUMERIC, SQL_DECIMAL},
     {"DOUBLE 1234.5", "STRING 1234.500", "STRING 1234.500"},
     {"1234.5", "1234.500", "1234.500"}},
    {u"DECIMAL(20,5)",
     u"12345678901234.12345",
     {SQL_VARCHAR, SQL_NUMERIC, SQL_DECIMAL},
     {"STRING 12345678901234.1", "STRING 12345678901234.12345", "STRING 12345678901234.12345"},
     {"12345678901234.1", "12345678901234.12345", "12345678901234.12345"}},
    {u"REAL",
     u"1.5",
     {SQL_DOUBLE, SQL_REAL, SQL_DOUBLE},
     {"DOUBLE 1.5", "SINGLE 1.5", "DOUBLE 1.5"},
     {"1.5", "1.500000", "1.5"}},
    {u"FLOAT",
     u"2.5",
     {SQL_DOUBLE, SQL_FLOAT, SQL_REAL},
     {"DOUBLE 2.5", "DOUBLE 2.5", "SINGLE 2.5"},
     {"2.5", "2.5", "2.500000"}},
    {u"DOUBLE PRECISION",
     u"0.1",
     {SQL_DOUBLE, SQL_FLOAT, SQL_DOUBLE},
     "DOUBLE 0.10000000000000001",
     "0.1"},
    {u"DOUBLE PRECISION",
     u"-1.5e-300",
     {SQL_DOUBLE, SQL_FLOAT, SQL_DOUBLE},
     "DOUBLE -1.5000000000000001e-300",
     "-1.5e-300"},
    {u"BOOLEAN",
     {u"1", u"true", u"true"},
     {SQL_BIT, SQL_BIT, SQL_TINYINT},
     {"BOOL 1", "BOOL 1", "UCHAR 1"},
     {"TRUE", "TRUE", "1"}},
    {u"BOOLEAN",
     {u"0", u"false", u"false"},
     {SQL_BIT, SQL_BIT, SQL_TINYINT},
     {"BOOL 0", "BOOL 0", "UCHAR 0"},
     {"FALSE", "FALSE", "0"}},
    {{u"BIT", u"BIT(1)", u"BIT(1)"},
     {u"1", u"B'1'", u"b'1'"},
     {SQL_BIT, SQL_VARCHAR, SQL_BIT},
     {"BOOL 1", "STRING 1", "BOOL 1"},
     {"TRUE", "1", "TRUE"}},
    {{u"BIT", u"BIT(1)", u"BIT(1)"},
     {u"0", u"B'0'", u"b'0'"},
     {SQL_BIT, SQL_VARCHAR, SQL_BIT},
     {"BOOL 0", "STRING 0", "BOOL 0"},
     {"FALSE", "0", "FALSE"}},
    {u"CHAR(5)",
     u"'ab'",
     {SQL_VARCHAR, SQL_WCHAR, SQL_WCHAR},
     {"STRING ab", "STRING ab   ", "STRING ab"},
     {"ab", "ab   ", "ab"}},
    {u"VARCHAR(20)",
     u"'\u03A9mega \U0001F600'",
     {SQL_VARCHAR, SQL_WVARCHAR, SQL_WVARCHAR},
     "STRING \u03A9mega \U0001F600",
     "\u03A9mega \U0001F600"},
    {u"VARCHAR(20)", u"''", {SQL_VARCHAR, SQL_WVARCHAR, SQL_WVARCHAR}, "STRING ", ""},
    {u"TEXT",
     u"'It''s [long]'",
     {SQL_LONGVARCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR},
     "STRING It's [long]",
     "It's [long]"},
    {u"JSON",
     u"'{\"a\": [1, \"\u03A9\"]}'",
     {SQL_VARCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR},
     "STRING {\"a\": [1, \"\u03A9\"]}",
     "{\"a\": [1, \"\u03A9\"]}"},
    {u"DATE", u"'2024-05-06'", SQL_DATE, "DATE 2024-05-06 00:00:00+0", "05/06/2024"},
    {u"TIMESTAMP", u"'2024-05-06 07:08:09'", SQL_TIMESTAMP, "DATE 2024-05-06 07:08:09+0",
     "05/06/2024 07:08:09"},
    {{u"DATETIME", u"TIMESTAMP(3)", u"DATETIME(3)"},
     u"'1999-12-31 23:59:58.123'",
     SQL_TIMESTAMP,
     "DATE 1999-12-31 23:59:58+123000000",
     "12/31/1999 23:59:58"},
    {{u"BLOB", u"BYTEA", u"BLOB"},
     {u"x'4142ff'", u"'\\x4142ff'", u"x'4142ff'"},
     {SQL_BINARY, SQL_LONGVARBINARY, SQL_LONGVARBINARY},
     "BINARY AB\xFF",
     nullptr},
    {{u"VARBINARY(10)", u"BYTEA", u"VARBINARY(10)"},
     {u"x'41'", u"'\\x41'", u"x'41'"},
     {SQL_VARBINARY, SQL_LONGVARBINARY, SQL_VARBINARY},
     "BINARY A",
     nullptr},
    // PostgreSQL's driver writes an identifier in capitals.
    {{u"TEXT", u"UUID", u"UUID"},
     u"'00000000-0000-0000-0000-00000000000a'",
     {SQL_LONGVARCHAR, SQL_VARCHAR, SQL_WCHAR},
     {"STRING 00000000-0000-0000-0000-00000000000a", "STRING 00000000-0000-0000-0000-00000000000A",
      "STRING 00000000-0000-0000-0000-00000000000a"},
     {"00000000-0000-0000-0000-00000000000a", "00000000-0000-0000-0000-00000000000A",
      "00000000-0000-0000-0000-00000000000a"}},
};

class ODBCRecordsetTypesTest : public CSourceTest
{
protected:
    static std::string Trace(const CColumn& column)
    {
        return ToUtf8(column.m_Declared.At(GetParam())) + " " +
               ToUtf8(column.m_Written.At(GetParam()));
    }

    /// Table Types, with a column for each of COLUMNS, its values in row 1 and NULL in row 2.
    void MakeTypesTable()
    {
        CString declared;
        CString written;
        CString nulls;
        int number = 0;
        for (const CColumn& column : COLUMNS)
        {
            CString item;
            item.Format(u", [c%d] %s NULL", number++, column.m_Declared.At(GetParam()));
            declared += item;
            written += CString(u", ") + column.m_Written.At(GetParam());
            nulls += u", NULL";
        }
        Execute(u"CREATE TABLE [Types] ([Row] INTEGER" + declared + u")");
        Execute(u"INSERT INTO [Types] VALUES (1" + written + u")");
        Execute(u"INSERT INTO [Types] VALUES (2" + nulls + u")");
    }
};

TEST_P(ODBCRecordsetTypesTest, ReadsEveryColumnTypeAndItsNull)
{
    MakeTypesTable();
    CODBCRecordset set(&m_Database);
    ASSERT_TRUE(set.Open(u"SELECT * FROM [Types] ORDER BY [Row]"));

    int index = 0;
    for (const CColumn& column : COLUMNS)
    {
        SCOPED_TRACE(Trace(column));
        CODBCFieldInfo info;
        set.GetODBCFieldInfo(static_cast<short>(++index), info);
        EXPECT_EQ(info.m_nSQLType, column.m_SqlType.At(GetParam()));
        EXPECT_EQ(Show(set.Field(index)), column.m_Read.At(GetParam()));
        EXPECT_FALSE(set.IsNull(index));
        if (const char* text = column.m_Text.At(GetParam()))
        {
            EXPECT_EQ(set.GetString(index), FromUtf8(text));
        }
    }
    set.MoveNext();
    for (index = 1; index <= static_cast<int>(std::size(COLUMNS)); ++index)
    {
        SCOPED_TRACE(Trace(COLUMNS[index - 1]));
        EXPECT_TRUE(set.IsNull(index));
        EXPECT_EQ(set.GetString(index), u"");
        EXPECT_EQ(set.GetChar(index), 0);
        EXPECT_EQ(set.GetInt64(index), 0);
        EXPECT_EQ(set.GetDate(index).GetStatus(), COleDateTime::null);
    }
    set.MoveNext();
    EXPECT_TRUE(set.IsEOF());
}

TEST_P(ODBCRecordsetTypesTest, SharesValuesWhereverTheColumnTypeIsTheSame)
{
    // The one exception: blanks that pad a CHAR are kept by PostgreSQL alone.
    for (const CColumn& column : COLUMNS)
        for (const EServer other : ALL_SERVERS)
        {
            const short type = column.m_SqlType.At(other);
            if (type != column.m_SqlType.At(GetParam()) || type == SQL_WCHAR)
                continue;
            EXPECT_STREQ(column.m_Read.At(other), column.m_Read.At(GetParam())) << Trace(column);
        }
}

TEST_P(ODBCRecordsetTypesTest, ReadsATimeWithTheDayOfReading)
{
    Execute(u"CREATE TABLE [Times] ([At] TIME)");
    Execute(u"INSERT INTO [Times] VALUES ('07:08:09')");
    CODBCRecordset set(&m_Database);
    const COleDateTime before = COleDateTime::GetCurrentTime();
    ASSERT_TRUE(set.Open(u"SELECT [At] FROM [Times]"));
    const COleDateTime after = COleDateTime::GetCurrentTime();

    const TIMESTAMP_STRUCT time = set.GetTimeStamp(u"At");
    EXPECT_EQ(time.hour * 10000 + time.minute * 100 + time.second, 70809);
    EXPECT_GE(std::tuple(time.year, time.month, time.day),
              std::tuple(before.GetYear(), before.GetMonth(), before.GetDay()));
    EXPECT_LE(std::tuple(time.year, time.month, time.day),
              std::tuple(after.GetYear(), after.GetMonth(), after.GetDay()));
}

TEST_P(ODBCRecordsetTypesTest, KeepsTheFractionOfATimeOnPostgreSQLAlone)
{
    Execute(CString(u"CREATE TABLE [Times] ([At] ") +
            On<const char16_t*>(u"TIME", u"TIME(3)", u"TIME(3)") + u")");
    Execute(u"INSERT INTO [Times] VALUES ('07:08:09.250')");
    CODBCRecordset set(&m_Database);
    ASSERT_TRUE(set.Open(u"SELECT [At] FROM [Times]"));

    EXPECT_EQ(set.GetTimeStamp(0).second, 9);
    EXPECT_EQ(set.GetTimeStamp(0).fraction, On(0u, 250'000'000u, 0u));
}

/// Types that only one of the sources has.
TEST_P(ODBCRecordsetTypesTest, ReadsTheOwnTypesOfASource)
{
    struct COwnType
    {
        const char16_t* m_Declared;
        const char16_t* m_Written;
        const char* m_Read;
    };
    const COwnType postgresql[] = {
        {u"JSONB", u"'{\"a\":1}'", "STRING {\"a\": 1}"},
        {u"BIT(3)", u"B'101'", "STRING 101"},
        {u"TIMETZ", u"'07:08:09+02'", "STRING 07:08:09+02"},
        {u"INTERVAL", u"'1 day 2 hours'", "STRING 1 day 02:00:00"},
        {u"MONEY", u"12.5", "DOUBLE 12.5"},
        {u"TEXT[]", u"'{a,b}'", "STRING {a,b}"},
        {u"INET", u"'10.0.0.1'", "STRING 10.0.0.1"},
        {u"XML", u"'<a/>'", "STRING <a/>"},
        {u"NUMERIC", u"'NaN'", "STRING NaN"},
    };
    const COwnType mariadb[] = {
        {u"YEAR", u"2024", "LONG 2024"},
        {u"ENUM('a','b')", u"'b'", "STRING b"},
        {u"SET('a','b')", u"'a,b'", "STRING a,b"},
        {u"MEDIUMINT", u"-7", "LONG -7"},
        {u"SMALLINT UNSIGNED", u"65535", "LONG 65535"},
        {u"BIGINT UNSIGNED", u"18446744073709551615", "STRING 18446744073709551615"},
        {u"BIT(12)", u"b'100000101'", "BINARY \1\5"},
        {u"INET6", u"'::1'", "STRING ::1"},
    };
    const COwnType sqlite[] = {
        {u"MONEY", u"12.5", "STRING 12.5"}, // a name that the driver does not know
        {u"MEDIUMINT", u"7", "LONG 7"},
    };
    const std::span<const COwnType> types =
        On(std::span<const COwnType>(sqlite), std::span<const COwnType>(postgresql),
           std::span<const COwnType>(mariadb));
    for (const COwnType& type : types)
    {
        SCOPED_TRACE(ToUtf8(type.m_Declared));
        m_Database.DeleteTable(u"[Own]");
        Execute(CString(u"CREATE TABLE [Own] ([c] ") + type.m_Declared + u")");
        Execute(CString(u"INSERT INTO [Own] VALUES (") + type.m_Written + u")");
        CODBCRecordset set(&m_Database);
        ASSERT_TRUE(set.Open(u"SELECT [c] FROM [Own]"));
        EXPECT_EQ(Show(set.Field(0)), type.m_Read);
    }
}

TEST_P(ODBCRecordsetTypesTest, ReadsATimeOfMariaDBThatIsNoTimeOfDay)
{
    if (GetParam() != EServer::MariaDB) // the others refuse it, or keep it as a text
        return;
    Execute(u"CREATE TABLE [Spans] ([n] INTEGER, [c] TIME)");
    Execute(u"INSERT INTO [Spans] VALUES (1, '100:00:00'), (2, '-07:00:00')");
    CODBCRecordset set(&m_Database);
    ASSERT_TRUE(set.Open(u"SELECT [c] FROM [Spans] ORDER BY [n]"));

    EXPECT_EQ(set.GetTimeStamp(0).hour, 100);
    EXPECT_EQ(set.GetString(0), u"Invalid DateTime");
    set.MoveNext();
    EXPECT_EQ(set.GetTimeStamp(0).hour, 7);
}

TEST_P(ODBCRecordsetTypesTest, NotesSmallNumbersAsLongAlsoWithoutRows)
{
    Execute(u"CREATE TABLE [Small] ([n] SMALLINT)");
    CODBCRecordset set(&m_Database);
    ASSERT_TRUE(set.Open(u"SELECT [n] FROM [Small]"));

    EXPECT_TRUE(set.IsEOF());
    EXPECT_EQ(set.Field(0).m_dwType, DBVT_LONG);
}

TEST_P(ODBCRecordsetTypesTest, ConvertsLargeNumbersThroughTheirText)
{
    Execute(u"CREATE TABLE [Large] ([n] BIGINT)");
    Execute(u"INSERT INTO [Large] VALUES (9000000000)");
    CODBCRecordset set(&m_Database);
    ASSERT_TRUE(set.Open(u"SELECT [n] FROM [Large]"));

    EXPECT_EQ(set.GetInt64(0), 9000000000);
    EXPECT_EQ(set.GetLong(0), 2147483647);
    EXPECT_EQ(set.GetDouble(0), 9e9);
}

TEST_P(ODBCRecordsetTypesTest, RefusesAWholeNumberBeyond32Bits)
{
    if (GetParam() == EServer::PostgreSQL)
    {
        EXPECT_NE(RefusalOf([&] { m_Database.ExecuteSQL(u"SELECT CAST(9000000000 AS INTEGER)"); }),
                  "");
        return;
    }
    Execute(On<const char16_t*>(u"CREATE TABLE [Wide] ([n] INTEGER)", nullptr,
                                u"CREATE TABLE [Wide] ([n] INT UNSIGNED)"));
    Execute(u"INSERT INTO [Wide] VALUES (4000000000)");
    CODBCRecordset set(&m_Database);

    const std::string refusal = RefusalOf([&] { set.Open(u"SELECT [n] FROM [Wide]"); });
    EXPECT_NE(refusal.find("22003"), std::string::npos) << refusal;
    EXPECT_NE(refusal.find("column n "), std::string::npos) << refusal;
}

TEST_P(ODBCRecordsetTypesTest, ReadsTextInANumberColumnAsNull)
{
    if (GetParam() != EServer::SQLite) // the others store no such thing
    {
        Execute(u"CREATE TABLE [Odd] ([n] INTEGER)");
        EXPECT_NE(RefusalOf([&] { m_Database.ExecuteSQL(u"INSERT INTO [Odd] VALUES ('n/a')"); }),
                  "");
        return;
    }
    Execute(u"CREATE TABLE [Odd] ([n] INTEGER)");
    Execute(u"INSERT INTO [Odd] VALUES ('n/a')");
    CODBCRecordset set(&m_Database);
    ASSERT_TRUE(set.Open(u"SELECT [n] FROM [Odd]"));

    EXPECT_TRUE(set.IsNull(0));
}

UTILITY_ON_ALL_SOURCES(ODBCRecordsetTypesTest);

} // namespace
} // namespace utility
