#include "database/transfer/TableCopy.h"

#include "database/DatabaseFixture.h"
#include "database/ODBCRecordset.h"
#include "database/transfer/TableReader.h"
#include "database/transfer/TableSummary.h"
#include "platform/db/DelimitName.h"

#include <gmock/gmock.h>

using namespace utility;

namespace
{

bool GoOn(std::int64_t)
{
    return true;
}

CTableSummary SummaryOf(CDatabase& database, const CString& table,
                        const std::vector<CTransferColumn>& columns)
{
    CTableSummary summary(columns);
    CTableReader reader(database, table);
    std::vector<CDbValue> values(columns.size());
    while (reader.Next())
    {
        for (std::size_t column = 0; column < columns.size(); column++)
            values[column] = reader.GetValue(column);
        summary.Add(values);
    }
    return summary;
}

/// A pair of new databases, of kinds that a test chooses.
class CPair
{
public:
    CPair(EServer from, EServer to)
    {
        EXPECT_TRUE(m_From.Open(nullptr, FALSE, FALSE, CDatabaseServers::Get().MakeSource(from)));
        EXPECT_TRUE(m_To.Open(nullptr, FALSE, FALSE, CDatabaseServers::Get().MakeSource(to)));
    }

    void Execute(const std::vector<CString>& statements)
    {
        for (const CString& sql : statements)
            ASSERT_EQ(RefusalOf([&] { m_From.ExecuteSQL(sql); }), "") << ToUtf8(sql.View());
    }

    CCopyResult Copy(const CString& table)
    {
        CCopyResult result;
        EXPECT_EQ(RefusalOf([&] { result = CTableCopy(m_From, m_To, GoOn).Copy(table); }), "");
        return result;
    }

    CDBADatabase m_From;
    CDBADatabase m_To;
};

constexpr char16_t ODD_NAME[] = u"my \"parts\" [µ漢]"; // and a backtick would be no better

/// A table with every kind of column and values at the edges, as its source writes them.
std::vector<CString> MakeOddTable(EServer server)
{
    const bool isPostgreSQL = server == EServer::PostgreSQL;
    const bool isSQLite = server == EServer::SQLite;
    const CString real = isPostgreSQL ? u"DOUBLE PRECISION" : u"DOUBLE";
    const CString binary = isPostgreSQL ? u"BYTEA" : isSQLite ? u"BLOB" : u"LONGBLOB";
    const CString text = server == EServer::MariaDB ? u"LONGTEXT" : u"TEXT";
    const CString bytes = isPostgreSQL ? u"'\\x00ff27'" : u"X'00FF27'";
    const CString moment = server == EServer::MariaDB ? u"DATETIME(6)" : u"TIMESTAMP";
    const CString time = server == EServer::MariaDB ? u"TIME(6)" : u"TIME";
    const CString whole = isSQLite ? u"VARCHAR(32)" : u"DECIMAL(30,10)"; // SQLite would round it
    const CString table = DelimitName(ODD_NAME);
    const CString longText =
        isSQLite ? u"replace(hex(zeroblob(150000)), '00', 'aé')" : u"repeat('aé', 150000)";
    return {
        u"CREATE TABLE " + table + u" ([Id no] BIGINT, [a]]b] INTEGER, [Größe] " + real +
            u", [exact] " + whole + u", [price] DECIMAL(12,3), [short] VARCHAR(40), [long] " +
            text + u", [bytes] " + binary + u", [day] DATE, [hour] " + time + u", [moment] " +
            moment + u", [yes] BOOLEAN)",
        u"INSERT INTO " + table +
            u" VALUES (9223372036854775807, 2147483647, 1.7976931348623157e308, "
            u"'12345678901234567890.0123456789', 123456789.125, 'it''s \"x\" \\ 漢😀', " +
            longText + u", " + bytes +
            u", '1066-10-14', '23:59:59.123456', '2024-01-31 12:30:45.123456', " +
            (isPostgreSQL ? u"TRUE" : u"1") + u")",
        u"INSERT INTO " + table +
            u" VALUES (-9223372036854775808, -2147483648, 2.2250738585072014e-308, "
            u"'-0.0000000001', "
            u"-0.001, '', '', " +
            (isPostgreSQL ? u"''" : u"X''") +
            u", '0001-01-01', '00:00:00', '9999-12-31 23:59:59.999999', " +
            (isPostgreSQL ? u"FALSE" : u"0") + u")",
        u"INSERT INTO " + table + u" ([Id no], [Größe]) VALUES (0, 0.1)",
        u"INSERT INTO " + table + u" ([short]) VALUES ('  blanks ')",
    };
}

TEST(TableCopyTest, EveryValueSurvivesTheRoundBetweenAnyTwoSources)
{
    for (const EServer from : ALL_SERVERS)
        for (const EServer to : ALL_SERVERS)
        {
            SCOPED_TRACE(std::string(NameOf(from)) + " to " + NameOf(to));
            CPair there(from, to);
            there.Execute(MakeOddTable(from));
            CPair back(to, from);
            back.m_From.Close();
            ASSERT_TRUE(back.m_From.Open(nullptr, FALSE, FALSE, there.m_To.GetConnect()));

            const CCopyResult sent = there.Copy(ODD_NAME);
            const CCopyResult returned = back.Copy(ODD_NAME);

            EXPECT_EQ(sent.m_End, ECopyEnd::Copied)
                << ToUtf8(sent.m_Column.View()) << " " << static_cast<int>(sent.m_Fault)
                << ToUtf8(sent.m_Words.View());
            EXPECT_EQ(sent.m_Rows, 4);
            EXPECT_EQ(returned.m_End, ECopyEnd::Copied)
                << ToUtf8(returned.m_Column.View()) << " " << ToUtf8(returned.m_Words.View());
            const auto columns = CTableReader(there.m_From, ODD_NAME).GetColumns();
            const CTableSummary original = SummaryOf(there.m_From, ODD_NAME, columns);
            EXPECT_EQ(original.GetChecksum(), sent.m_Checksum);
            EXPECT_TRUE(original.IsSame(SummaryOf(back.m_To, ODD_NAME, columns)));
        }
}

TEST(TableCopyTest, ValueThatTheTargetCannotHoldIsNamedAndNothingStays)
{
    const struct
    {
        const char* m_Name;
        EServer m_From;
        EServer m_To;
        const char16_t* m_Columns; // of table T
        const char16_t* m_Rows;    // the last is the one
        ECellFault m_Fault;
        const char* m_Storage;
    } cases[] = {
        {"a text among numbers", EServer::SQLite, EServer::PostgreSQL, u"a INTEGER, b INTEGER",
         u"(1, 1), (2, 'n/a')", ECellFault::WrongStorage, "text"},
        {"a fraction among whole numbers", EServer::SQLite, EServer::SQLite,
         u"a INTEGER, b INTEGER", u"(1, 1), (2, 1.5)", ECellFault::WrongStorage, "real"},
        {"bytes among texts", EServer::SQLite, EServer::MariaDB, u"a INTEGER, b TEXT",
         u"(1, 'x'), (2, x'4142')", ECellFault::WrongStorage, "blob"},
        {"a text with a NUL", EServer::SQLite, EServer::MariaDB, u"a INTEGER, b TEXT",
         u"(1, 'x'), (2, 'a' || char(0))", ECellFault::WrongStorage, "NUL"},
        {"no UTF-8", EServer::SQLite, EServer::PostgreSQL, u"a INTEGER, b TEXT",
         u"(1, 'x'), (2, CAST(x'41FF' AS TEXT))", ECellFault::BadUtf8, ""},
        {"no date", EServer::SQLite, EServer::PostgreSQL, u"a INTEGER, b DATE",
         u"(1, '2024-02-29'), (2, '2023-02-29')", ECellFault::NoValue, ""},
        {"a longer text", EServer::SQLite, EServer::PostgreSQL, u"a INTEGER, b VARCHAR(3)",
         u"(1, '漢字x'), (2, '漢字xy')", ECellFault::TooLong, ""},
        {"infinity as a date", EServer::PostgreSQL, EServer::MariaDB, u"a INTEGER, b TIMESTAMP",
         u"(1, '9999-12-31'), (2, 'infinity')", ECellFault::Infinity, ""},
        {"a year of five digits", EServer::PostgreSQL, EServer::SQLite, u"a INTEGER, b DATE",
         u"(1, '0001-01-01'), (2, '12024-01-31')", ECellFault::FarDate, ""},
        {"before Christ", EServer::PostgreSQL, EServer::MariaDB, u"a INTEGER, b DATE",
         u"(1, NULL), (2, '0044-03-15 BC')", ECellFault::FarDate, ""},
        {"no number", EServer::PostgreSQL, EServer::MariaDB, u"a INTEGER, b DOUBLE PRECISION",
         u"(1, 5), (2, 'NaN')", ECellFault::Infinity, ""},
        {"a number of many digits", EServer::PostgreSQL, EServer::MariaDB, u"a INTEGER, b NUMERIC",
         u"(1, 0.5), (2, 1e-31)", ECellFault::TooManyDigits, ""},
        {"zero date", EServer::MariaDB, EServer::PostgreSQL, u"a INTEGER, b DATE",
         u"(1, '2024-01-31'), (2, '0000-00-00')", ECellFault::ZeroDate, ""},
        {"beyond 64 bits", EServer::MariaDB, EServer::SQLite, u"a INTEGER, b BIGINT UNSIGNED",
         u"(1, 9223372036854775807), (2, 9223372036854775808)", ECellFault::BeyondRange, ""},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        CPair pair(row.m_From, row.m_To);
        if (row.m_From == EServer::MariaDB)
            pair.Execute({u"SET sql_mode=''"});
        pair.Execute({CString(u"CREATE TABLE T (") + row.m_Columns + u")",
                      CString(u"INSERT INTO T VALUES ") + row.m_Rows});

        const CCopyResult result = pair.Copy(pair.m_From.TableExists(u"T") ? u"T" : u"t");

        EXPECT_EQ(result.m_End, ECopyEnd::Misfit);
        EXPECT_EQ(result.m_Row, 2);
        EXPECT_EQ(result.m_Column, u"b");
        EXPECT_EQ(result.m_Fault, row.m_Fault) << static_cast<int>(result.m_Fault);
        EXPECT_EQ(result.m_Storage, row.m_Storage);
        EXPECT_FALSE(pair.m_To.TableExists(u"T"));
        EXPECT_FALSE(pair.m_To.TableExists(u"t"));
    }
}

TEST(TableCopyTest, RowThatTheTargetRefusesIsFoundWithItsColumn)
{
    for (const EServer to : ALL_SERVERS)
    {
        SCOPED_TRACE(NameOf(to));
        CPair pair(EServer::SQLite, to);
        pair.Execute({u"CREATE TABLE t (a INTEGER, b INTEGER, c TEXT)",
                      u"INSERT INTO t VALUES (1, 5, 'x'), (2, 77, 'y'), (3, 6, 'z')"});
        pair.m_To.ExecuteSQL(u"CREATE TABLE t (c VARCHAR(9), d INTEGER DEFAULT 4, b INTEGER "
                             u"CHECK (b < 50), a INTEGER)");

        const CCopyResult refused = pair.Copy(u"t");

        EXPECT_EQ(refused.m_End, ECopyEnd::Refused);
        EXPECT_EQ(refused.m_Row, 2);
        EXPECT_EQ(refused.m_Column, u"b");
        EXPECT_FALSE(refused.m_Words.IsEmpty());
        EXPECT_FALSE(CTableReader(pair.m_To, u"t").Next()) << "rows were left behind";

        pair.m_From.ExecuteSQL(u"UPDATE t SET b = 7 WHERE a = 2");
        EXPECT_EQ(pair.Copy(u"t").m_End, ECopyEnd::Copied);
        CODBCRecordset rows(&pair.m_To);
        rows.Open(u"SELECT a, b, c, d FROM t WHERE a = 2");
        EXPECT_EQ(rows.GetInt(1), 7);
        EXPECT_EQ(rows.GetString(2), u"y");
        EXPECT_EQ(rows.GetInt(3), 4);
    }
}

TEST(TableCopyTest, SecondCopyTakesUpWhatTheFirstLeft)
{
    for (const EServer to : ALL_SERVERS)
    {
        SCOPED_TRACE(NameOf(to));
        CPair pair(EServer::SQLite, to);
        pair.Execute({u"CREATE TABLE t (a INTEGER, b TEXT)",
                      u"INSERT INTO t WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM "
                      u"n WHERE i < 2500) SELECT i, 'text ' || i FROM n"});
        int looks = 0;
        const auto stopAtTheThird = [&](std::int64_t)
        {
            return ++looks < 3;
        };

        EXPECT_EQ(CTableCopy(pair.m_From, pair.m_To, stopAtTheThird).Copy(u"t").m_End,
                  ECopyEnd::Stopped);
        EXPECT_FALSE(pair.m_To.TableExists(u"t"));
        const CCopyResult copied = pair.Copy(u"t");
        EXPECT_EQ(copied.m_End, ECopyEnd::Copied);
        const CCopyResult again = pair.Copy(u"t");
        EXPECT_EQ(again.m_End, ECopyEnd::StandsAlready);
        EXPECT_EQ(again.m_Rows, 2500);
        EXPECT_EQ(again.m_Checksum, copied.m_Checksum);

        pair.m_To.ExecuteSQL(u"UPDATE t SET b = 'another' WHERE a = 9");
        EXPECT_EQ(pair.Copy(u"t").m_End, ECopyEnd::OtherRows);
        pair.m_From.ExecuteSQL(u"ALTER TABLE t ADD more INTEGER");
        const CCopyResult lacking = pair.Copy(u"t");
        EXPECT_EQ(lacking.m_End, ECopyEnd::NoColumn);
        EXPECT_EQ(lacking.m_Column, u"more");
    }
}

TEST(TableCopyTest, TableOfAThousandColumnsIsCopied)
{
    CPair pair(EServer::SQLite, EServer::PostgreSQL);
    CString columns;
    CString values;
    for (int column = 1; column <= 1000; column++)
    {
        columns.AppendFormat(column == 1 ? u"[c %d] INTEGER" : u", [c %d] INTEGER", column);
        values.AppendFormat(column == 1 ? u"%d" : u", %d", column);
    }
    pair.Execute({u"CREATE TABLE wide (" + columns + u")",
                  u"INSERT INTO wide VALUES (" + values + u")",
                  u"INSERT INTO wide ([c 1000]) VALUES ('x')"});

    const CCopyResult odd = pair.Copy(u"wide");
    EXPECT_EQ(odd.m_Column, u"c 1000");
    EXPECT_EQ(odd.m_Row, 2);
    pair.m_From.ExecuteSQL(u"UPDATE wide SET [c 1000] = 7 WHERE [c 1] IS NULL");
    EXPECT_EQ(pair.Copy(u"wide").m_End, ECopyEnd::Copied);
}

} // namespace
