#include "platform/db/GXDynamicRecordset.h"

#include "DatabaseFixture.h"

namespace utility
{

/// Values that a column's type has no room for, however they came there.
class OddValuesTest : public CDatabaseTest
{
protected:
    /// The first row's cells as a grid shows them, between bars.
    std::string Show(const CString& sql)
    {
        CGXDynamicRecordset set(&m_Database);
        const CRefusal refusal = RefusalOf([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, sql); });
        if (refusal.Code != 0)
            return refusal.State;
        std::string cells;
        for (int column = 0; column < set.GetFieldCount(); ++column)
            cells += ToUtf8(set.GetFieldData(column).View()) + "|";
        return cells;
    }

    /// What the source says of a statement: nothing, or its state.
    std::string StateOf(const CString& sql)
    {
        return RefusalOf([&] { m_Database.ExecuteSQL(sql); }).State;
    }
};

TEST_P(OddValuesTest, NumbersBeyondADoubleAreInfiniteExactOrRefused)
{
    Execute(u"CREATE TABLE [Big] ([r] DOUBLE PRECISION, [n] NUMERIC(30,2))");
    const std::string refused = StateOf(u"INSERT INTO [Big] ([r]) VALUES (1e400)");
    Execute(u"DELETE FROM [Big]");
    Execute(u"INSERT INTO [Big] VALUES (1e308, 1234567890123456789012345678.25)");

    EXPECT_EQ(refused, IsOn(EServer::SQLite) ? "" : IsOn(EServer::PostgreSQL) ? "22003" : "22007");
    const std::string exact = IsOn(EServer::SQLite) ? "1234567890123460011341381632|"
                                                    : "1234567890123456789012345678.25|";
    EXPECT_EQ(Show(u"SELECT [n] FROM [Big]"), exact);
    if (IsOn(EServer::SQLite))
    {
        EXPECT_EQ(Show(u"SELECT [r] * 10 FROM [Big]"), "inf|");
    }
    else
    {
        EXPECT_EQ(Show(u"SELECT [r] * 10 FROM [Big]"), "22003");
    }
}

TEST_P(OddValuesTest, NumberTooLargeForItsColumnIsNotStoredAsAnother)
{
    Execute(u"CREATE TABLE [Small] ([i] INTEGER, [s] SMALLINT)");
    if (IsOn(EServer::SQLite)) // stores anything anywhere
    {
        Execute(u"INSERT INTO [Small] VALUES (9000000000, 70000)");
        EXPECT_EQ(Show(u"SELECT [i], [s] FROM [Small]"), "9000000000|70000|");
        return;
    }
    EXPECT_EQ(StateOf(u"INSERT INTO [Small] ([i]) VALUES (9000000000)"), "22003");
    EXPECT_EQ(StateOf(u"INSERT INTO [Small] ([s]) VALUES (70000)"), "22003");
    EXPECT_EQ(Show(u"SELECT COUNT(*) FROM [Small]"), "0|");
}

TEST_P(OddValuesTest, DatesThatNoFormShowsAreTheirsInAGrid)
{
    Execute(u"CREATE TABLE [Dates] ([d] DATE)");
    Execute(u"INSERT INTO [Dates] VALUES ('0099-12-31')");
    EXPECT_EQ(Show(u"SELECT [d] FROM [Dates]"), "Invalid DateTime|");
}

UTILITY_ON_ALL_SERVERS(OddValuesTest);

/// On SQLite, where any column holds values of any type.
class LooseColumnsTest : public OddValuesTest
{
};

TEST_P(LooseColumnsTest, TextInAColumnOfAnotherTypeIsNull)
{
    Execute(u"CREATE TABLE [Loose] ([i] INTEGER, [r] DOUBLE, [d] DATE, [t] TIMESTAMP, [b] BLOB)");
    Execute(u"INSERT INTO [Loose] VALUES ('n/a', 'n/a', 'n/a', 'n/a', 'n/a')");
    Execute(u"INSERT INTO [Loose] VALUES (x'31', x'31', x'31', x'31', x'31')");

    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"[Loose]"); });
    for (int row = 0; row < 2; ++row, set.MoveNext())
    {
        SCOPED_TRACE(row == 0 ? "a text" : "bytes");
        for (const int column : {0, 1, 2, 3})
            EXPECT_EQ(set.GetFieldData(column), u"") << column;
    }
}

TEST_P(LooseColumnsTest, TextsThatAreNoneAreReadWithoutHarm)
{
    EXPECT_EQ(Show(u"SELECT CAST(x'61FF62' AS TEXT)"), "a\uFFFDb|");
    EXPECT_EQ(Show(u"SELECT CAST(x'61EDA0BD62' AS TEXT)"), "a\uFFFD\uFFFD\uFFFDb|");
    EXPECT_EQ(Show(u"SELECT CAST(x'610062' AS TEXT)"), "a|") << "the driver ends it at the NUL";
}

INSTANTIATE_TEST_SUITE_P(Sources, LooseColumnsTest, testing::Values(EServer::SQLite),
                         [](const auto& source) { return std::string(NameOf(source.param)); });

} // namespace utility
