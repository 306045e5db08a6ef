#include "database/DBARecordset.h"
#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "database/DatabaseFixture.h"
#include "database/TraceLog.h"
#include "platform/db/OdbcTypes.h"

#include <gtest/gtest.h>

#include <set>

namespace utility
{
namespace
{

// What a table may be called, and the same enclosed for a statement.
constexpr struct
{
    const char16_t* m_Name;
    const char16_t* m_Delimited;
} ODD_NAMES[] = {{u"With blank", u"[With blank]"}, {u"Quo\"te", u"[Quo\"te]"},
                 {u"Back`tick", u"[Back`tick]"},   {u"Brack]et", u"[Brack]]et]"},
                 {u"Full.stop", u"[Full.stop]"},   {u"\u03A9 ohm", u"[\u03A9 ohm]"}};

class DBADatabaseCatalogueTest : public CSourceTest
{
protected:
    std::set<std::string> TableNames()
    {
        CStringArray names;
        m_Database.ReadTableNames(names);
        std::set<std::string> found;
        for (const CString& name : names)
            found.insert(ToUtf8(name.View()));
        EXPECT_EQ(found.size(), static_cast<std::size_t>(names.GetSize()));
        return found;
    }

    static std::string Describe(const CDBFieldMap& map)
    {
        std::string text;
        for (const CDBFInfo* field : map.GetFields())
            text += ToUtf8(field->GetName().View()) + ":" + std::to_string(field->GetType()) + " ";
        return text;
    }
};

TEST_P(DBADatabaseCatalogueTest, ListsProbesAndReadsTablesOfOddNames)
{
    for (const auto& name : ODD_NAMES)
    {
        SCOPED_TRACE(testing::PrintToString(CString(name.m_Name)));
        Execute(u"CREATE TABLE " + CString(name.m_Delimited) +
                u" ([Id] INTEGER, [Odd \u03A9 name] VARCHAR(20))");
        Execute(u"INSERT INTO " + CString(name.m_Delimited) + u" VALUES (5, 'text')");

        EXPECT_TRUE(TableNames().contains(ToUtf8(name.m_Name)));
        // An opening bracket needs no mark, a closing one inside a name does, as in statements.
        const CString table =
            CString(name.m_Delimited).Mid(1, CString(name.m_Delimited).GetLength() - 2);
        EXPECT_TRUE(m_Database.TableExists(table)) << ToUtf8(m_Database.GetErrorDetails().View());
        CDBFieldMap map;
        EXPECT_TRUE(m_Database.ReadFieldNames(table, map));
        EXPECT_EQ(Describe(map), "Id:4 Odd \u03A9 name:8 ");
        CDBARecordset set(&m_Database, table);
        ASSERT_TRUE(set.Open());
        EXPECT_EQ(set.GetString(u"ODD \u03A9 NAME"), u"text");
    }
    EXPECT_EQ(TableNames().size(), std::size(ODD_NAMES));
}

TEST_P(DBADatabaseCatalogueTest, ListsViewsAndReadsThem)
{
    Execute(u"CREATE TABLE [Parts] ([Id] INTEGER, [Name] VARCHAR(20))");
    Execute(u"CREATE VIEW [Cheap parts] AS SELECT [Name] FROM [Parts]");

    EXPECT_EQ(TableNames(), (std::set<std::string>{"Parts", "Cheap parts"}));
    EXPECT_EQ(TableNames(),
              (std::set<std::string>{"Parts", "Cheap parts"})); // again, by the same statement
    EXPECT_TRUE(m_Database.TableExists(u"Cheap parts"));
    CDBFieldMap map;
    EXPECT_TRUE(m_Database.ReadFieldNames(u"Cheap parts", map));
    EXPECT_EQ(Describe(map), "Name:8 ");
}

TEST_P(DBADatabaseCatalogueTest, BringsAFieldMapInLineWithItsTable)
{
    Execute(u"CREATE TABLE [Parts] ([Id] SMALLINT, [Name] VARCHAR(20), [Price] DOUBLE PRECISION)");
    CDBFieldMap map;
    map.Add(new CDBFInfo(u"Gone", DBVT_STRING));
    map.Add(new CDBFInfo(u"NAME", DBVT_LONG));
    map.GetField(0)->SetMapTo(u"kept by nobody");
    map.GetField(1)->SetMapTo(u"Part name");

    ASSERT_TRUE(m_Database.ReadFieldNames(u"Parts", map));

    // Earlier entries stay first; a small number is noted as the long one that it reads as.
    EXPECT_EQ(Describe(map), "NAME:8 Id:4 Price:6 ");
    EXPECT_EQ(map.GetField(0)->GetMapTo(), u"Part name");
    EXPECT_EQ(map.GetField(1)->GetSqlType(), DWORD{SQL_SMALLINT});
}

TEST_P(DBADatabaseCatalogueTest, EmptiesAMapForNoTableAndLeavesItForAnAbsentOne)
{
    CDBFieldMap map;
    map.Add(new CDBFInfo(u"Id"));
    EXPECT_FALSE(m_Database.ReadFieldNames(u"Absent", map));
    EXPECT_EQ(map.GetCount(), 1);
    EXPECT_NE(m_Database.GetErrorDetails(), u"No error");

    EXPECT_TRUE(m_Database.ReadFieldNames(u"", map));
    EXPECT_EQ(map.GetCount(), 0);
}

TEST_P(DBADatabaseCatalogueTest, ReadsFieldsOfTheOverridingStatement)
{
    Execute(u"CREATE TABLE [Parts] ([Id] INTEGER, [Name] VARCHAR(20))");
    m_Database.SetTableSql(u"PARTS", u"SELECT [Name] AS [Label] FROM [Parts]");
    CDBFieldMap map;

    EXPECT_TRUE(m_Database.ReadFieldNames(u"Parts", map));
    EXPECT_EQ(Describe(map), "Label:8 ");
}

TEST_P(DBADatabaseCatalogueTest, TracesWhatItReads)
{
    Execute(u"CREATE TABLE [Parts] ([Id] INTEGER)");
    Execute(u"INSERT INTO [Parts] VALUES (5)");
    const CTraceLog log(u"DBADatabase, DBADatabaseDetails");
    CDBFieldMap map;
    TableNames();
    ASSERT_TRUE(m_Database.ReadFieldNames(u"Parts", map));

    const std::string lines = log.Read();
    EXPECT_EQ(lines.find("CheckHstmt(0, 0)"), std::string::npos) << lines;
    for (const char* line :
         {"CDBADatabase::ReadTableNames\n(\nIsOpen = 1\nSQLAllocStmt(",
          "\nSQLTables(...)\nCheckHstmt(0, ", "\nSQLFetch(...)\nCheckHstmt(0, ",
          "\nSQLGetData(...)\nCheckHstmt(0, ", "\nTableName(Parts)\n", "\nSQLFreeStmt(...)\n)\n",
          "\nReadFieldNames::Open(Parts)\n(\nAbout to call RS.Open(SELECT * FROM [Parts])\n",
          "\nRS.Open(SELECT * FROM [Parts]) = true\nRS.GetODBCFieldCount() = 1\n",
          "\nRS.Field(0) = Id (4)", "Value=5\nRS.Close()\n)\n"})
        EXPECT_NE(lines.find(line), std::string::npos) << line << "in\n" << lines;
}

UTILITY_ON_ALL_SOURCES(DBADatabaseCatalogueTest);

class DBARecordsetTest : public CSourceTest
{
protected:
    void SetUp() override
    {
        CSourceTest::SetUp();
        Execute(u"CREATE TABLE [Parts] ([Id] INTEGER)");
        Execute(u"INSERT INTO [Parts] VALUES (1)");
        Execute(u"INSERT INTO [Parts] VALUES (2)");
    }

    CDBARecordset m_Set{&m_Database, u"[Parts]"};
};

TEST_P(DBARecordsetTest, OpensItsTable)
{
    CDBARecordset set(&m_Database, u"Parts");

    EXPECT_EQ(set.GetDefaultSQL(), u"[Parts]");
    ASSERT_TRUE(set.Open());
    EXPECT_EQ(set.GetInt(u"Id"), 1);
    EXPECT_EQ(set.DelimitTableName(u"a.b"), u"[a.b]");
    EXPECT_EQ(CDBARecordset(nullptr, u"Parts").DelimitTableName(u"a"), u"");
}

TEST_P(DBARecordsetTest, AddsATextFieldOnceAndKnowsItAtOnce)
{
    ASSERT_TRUE(m_Set.Open(u"SELECT * FROM [Parts] ORDER BY [Id]"));
    m_Set.MoveNext();

    EXPECT_FALSE(m_Set.HasTextField(u"Note"));
    EXPECT_TRUE(m_Set.CreateTextField(u"Note")) << ToUtf8(m_Set.GetErrorDetails().View());
    EXPECT_TRUE(m_Set.HasTextField(u"note"));
    EXPECT_EQ(m_Set.GetInt(u"Id"), 1); // on the first row
    EXPECT_TRUE(m_Set.IsNull(u"Note"));
    EXPECT_FALSE(m_Set.CreateTextField(u"NOTE"));
    EXPECT_EQ(m_Set.GetErrorDetails(), u"No error");
}

TEST_P(DBARecordsetTest, RecordsARefusedFieldInItsOwnRecord)
{
    CDBARecordset nameless(&m_Database, u"");
    EXPECT_FALSE(nameless.CreateTextField(u"Note"));
    EXPECT_EQ(nameless.GetErrorDetails(), u"No error");

    m_Set.SetTableName(u"Absent");
    EXPECT_FALSE(m_Set.CreateTextField(u"Note"));
    EXPECT_NE(m_Set.GetErrorDetails(), u"No error");
    EXPECT_EQ(m_Database.GetErrorDetails(), u"No error");
}

TEST_P(DBARecordsetTest, AnswersAFailedRequeryOrThrowsAsTold)
{
    ASSERT_TRUE(m_Set.Open(u"SELECT * FROM [Parts]"));
    while (!m_Set.IsEOF())
        m_Set.MoveNext();
    Execute(u"DROP TABLE [Parts]");

    EXPECT_EQ(m_Set.Requery(), 0);
    EXPECT_NE(m_Set.GetErrorDetails(), u"No error");
    m_Set.SetThrowOnError(true);
    EXPECT_NE(RefusalOf([&] { m_Set.Requery(); }), "");
}

UTILITY_ON_ALL_SOURCES(DBARecordsetTest);

} // namespace
} // namespace utility
