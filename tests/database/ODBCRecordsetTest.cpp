#include "database/ODBCRecordset.h"

#include "database/DatabaseFixture.h"
#include "database/FieldTools.h"
#include "database/ODBCRecordsetException.h"
#include "platform/base/object/InvalidArgException.h"
#include "platform/db/LongBinary.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

/// The id and argument of what a step was refused with, such as "10729 99"; empty if it was not.
template <typename TStep>
std::string RecordsetRefusalOf(const TStep& step)
{
    try
    {
        step();
        return {};
    }
    catch (CODBCRecordsetException* exception)
    {
        const CExceptionGuard guard(exception);
        EXPECT_EQ(exception->GetDetail(), u"");
        return std::to_string(exception->GetId()) + " " + ToUtf8(exception->GetArgument().View());
    }
}

class CDatabaseDates : public CODBCRecordset
{
public:
    explicit CDatabaseDates(CDatabase* database) : CODBCRecordset(database)
    {
        SetDateOutputFormat(DATE_OUTPUT_DATABASE);
    }
};

class ODBCRecordsetTest : public CSourceTest
{
protected:
    void SetUp() override
    {
        CSourceTest::SetUp();
        Execute(u"CREATE TABLE [Stock] ([Id] INTEGER NOT NULL PRIMARY KEY, [Name] VARCHAR(600), "
                u"[Price] DOUBLE PRECISION, [Made] TIMESTAMP NULL)");
        Execute(u"INSERT INTO [Stock] VALUES (1, 'R1', 0.5, '2024-05-06 07:08:09')");
        Execute(u"INSERT INTO [Stock] VALUES (2, 'C1', 1.25, '2024-01-01 00:00:00')");
        Execute(u"INSERT INTO [Stock] VALUES (3, NULL, NULL, NULL)");
    }

    /// The ids of the rows of the present query, such as "1 2 ".
    static std::string Ids(CODBCRecordset& set)
    {
        std::string ids;
        for (; !set.IsEOF(); set.MoveNext())
            ids += std::to_string(set.GetInt(u"Id")) + " ";
        return ids;
    }

    CODBCRecordset m_Set{&m_Database};
};

constexpr LPCWSTR ALL = u"SELECT * FROM [Stock] ORDER BY [Id]";

TEST_P(ODBCRecordsetTest, FindsOutColumnsAndReadsRows)
{
    ASSERT_TRUE(m_Set.Open(ALL));

    EXPECT_EQ(m_Set.m_nFields, 4);
    EXPECT_EQ(m_Set.GetFieldID(u"NAME"), 1);
    EXPECT_EQ(m_Set.GetFieldIndex(u"name"), 1);
    EXPECT_EQ(m_Set.GetFieldID(u"Nam"), -1);
    EXPECT_EQ(m_Set(u"Name").GetName(), u"Name");
    EXPECT_EQ(&m_Set(1), &m_Set.Field(u"nAmE"));
    EXPECT_EQ(m_Set.GetString(u"Name"), u"R1");
    EXPECT_EQ(m_Set.GetDouble(2), 0.5);
    m_Set.MoveLast();
    EXPECT_EQ(m_Set.GetInt(u"Id"), 3);
    EXPECT_TRUE(m_Set.IsNull(u"Name"));
    m_Set.MovePrev();
    EXPECT_EQ(m_Set.GetString(u"Name"), u"C1");
    EXPECT_FALSE(m_Set.IsNull(1));
    m_Set.SetAbsolutePosition(1);
    EXPECT_EQ(m_Set.GetString(u"Name"), u"R1");
}

TEST_P(ODBCRecordsetTest, NumbersColumnsOfOneName)
{
    ASSERT_TRUE(m_Set.Open(u"SELECT 1 AS [Value], 2 AS [Value], 3 AS [value], 4 AS [Value2]"));

    const char16_t* const names[] = {u"Value", u"Value2", u"value3", u"Value22"};
    const char16_t* const keys[] = {u"VALUE", u"VALUE2", u"VALUE3", u"VALUE22"};
    for (int index = 0; index < 4; ++index)
    {
        EXPECT_EQ(m_Set.Field(index).GetName(), names[index]);
        EXPECT_EQ(m_Set.GetLiteralFieldName(index), names[index]);
        EXPECT_EQ(m_Set.GetFieldName(index), keys[index]);
        EXPECT_EQ(m_Set.GetInt(keys[index]), index + 1);
    }
}

TEST_P(ODBCRecordsetTest, FoldsNamesByTheColumnSyntax)
{
    const struct
    {
        int m_Syntax;
        const char16_t* m_FieldName; // of the second column
        const char16_t* m_Second;    // its stored name
        int m_Exact, m_Upper, m_Lower;
    } rows[] = {{COL_SYNTAX_EXACT, u"name", u"name", 0, -1, 1},
                {COL_SYNTAX_LOWER, u"name2", u"name2", 0, 0, 0},
                {COL_SYNTAX_UPPER, u"NAME2", u"name2", 0, 0, 0}};
    EXPECT_EQ(m_Set.GetColSyntax(), COL_SYNTAX_UPPER);
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Syntax);
        m_Set.SetColSyntax(row.m_Syntax);
        ASSERT_TRUE(m_Set.Open(u"SELECT 1 AS [Name], 2 AS [name]"));

        EXPECT_EQ(m_Set.GetFieldName(1), row.m_FieldName);
        EXPECT_EQ(m_Set.GetLiteralFieldName(1), row.m_Second);
        EXPECT_EQ(m_Set.GetFieldID(u"Name"), row.m_Exact);
        EXPECT_EQ(m_Set.GetFieldID(u"NAME"), row.m_Upper);
        EXPECT_EQ(m_Set.GetFieldID(u"name"), row.m_Lower);
        m_Set.Close();
    }
    EXPECT_EQ(m_Set.GetFieldName(0), u"");
    EXPECT_EQ(m_Set.GetLiteralFieldName(-1), u"");
}

TEST_P(ODBCRecordsetTest, ShowsDatesInTheFormOfTheSet)
{
    CDatabaseDates set(&m_Database);
    ASSERT_TRUE(set.Open(ALL));
    ASSERT_TRUE(m_Set.Open(ALL));

    EXPECT_EQ(set.GetString(u"Made"), u"2024-05-06 07:08:09.000");
    EXPECT_EQ(m_Set.GetString(u"Made"), u"05/06/2024 07:08:09");
    // Texts are read in the same form.
    set.SetString(u"Made", u"2023-12-31 23:59:58.123");
    EXPECT_EQ(set.GetString(u"Made"), u"2023-12-31 23:59:58.123");
    set.SetString(u"Made", u"12/31/2023");
    EXPECT_EQ(Show(set.Field(u"Made")), "DATE -1-65535-65535 65535:65535:65535+0");
}

TEST_P(ODBCRecordsetTest, TakesParametersInTheOrderOfTheirFirstUse)
{
    m_Set.SetDoubleParam(u"most", 1.0);
    m_Set.SetStringParam(u"name", u"R%");
    m_Set.SetDoubleParam(u"most", 2.0);

    ASSERT_TRUE(m_Set.Open(u"SELECT * FROM [Stock] WHERE [Price] < ? AND [Name] LIKE ?"));
    EXPECT_EQ(Ids(m_Set), "1 ");
    EXPECT_EQ(m_Set.GetParamID(u"name"), 1);
    EXPECT_EQ(m_Set.GetParamID(u"NAME"), -1);
    EXPECT_EQ(&m_Set[1], &m_Set[u"name"]);

    m_Set.SetStringParam(1, u"C%");
    ASSERT_TRUE(m_Set.Requery());
    EXPECT_EQ(Ids(m_Set), "2 ");
}

TEST_P(ODBCRecordsetTest, SendsParametersOfEveryType)
{
    const struct
    {
        const char* m_Name;
        const char16_t* m_Column;
        void (*m_Set)(CODBCRecordset&);
        const char* m_Ids;
    } rows[] = {
        {"char", u"Id", [](CODBCRecordset& set) { set.SetCharParam(u"p", 2); }, "2 "},
        {"short", u"Id", [](CODBCRecordset& set) { set.SetShortParam(u"p", 3); }, "3 "},
        {"int", u"Id", [](CODBCRecordset& set) { set.SetIntParam(u"p", 1); }, "1 "},
        {"long", u"Id", [](CODBCRecordset& set) { set.SetLongParam(u"p", 2); }, "2 "},
        {"float", u"Price", [](CODBCRecordset& set) { set.SetFloatParam(u"p", 1.25f); }, "2 "},
        {"double", u"Price", [](CODBCRecordset& set) { set.SetDoubleParam(u"p", 0.5); }, "1 "},
        {"text", u"Name", [](CODBCRecordset& set) { set.SetStringParam(u"p", u"C1"); }, "2 "},
        {"date", u"Made",
         [](CODBCRecordset& set) { set.SetDateParam(u"p", COleDateTime(2024, 5, 6, 7, 8, 9)); },
         "1 "},
        {"time stamp", u"Made",
         [](CODBCRecordset& set) {
             set.SetTimeStampParam(u"p", {2024, 1, 1, 0, 0, 0, 0});
         },
         "2 "},
        {"file time", u"Made",
         [](CODBCRecordset& set) { set.SetInt64ParamAsTimeStamp(u"p", 133485408000000000); }, "2 "},
        // Named, never assigned: NULL, which equals nothing.
        {"none", u"Name", [](CODBCRecordset& set) { set.Param(u"p"); }, ""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        CODBCRecordset set(&m_Database);
        row.m_Set(set);
        EXPECT_EQ(
            RefusalOf(
                [&]
                { set.Open(u"SELECT * FROM [Stock] WHERE [" + CString(row.m_Column) + u"] = ?"); }),
            "");
        EXPECT_EQ(Ids(set), row.m_Ids);
    }
}

TEST_P(ODBCRecordsetTest, RefusesATextParameterAbove255UnitsBeforeItIsSent)
{
    m_Set.SetStringParam(u"name", CString(u'x', 255));
    EXPECT_TRUE(m_Set.Open(u"SELECT * FROM [Stock] WHERE [Name] = ?"));
    m_Set.SetStringParam(u"name", CString(u'x', 256));

    EXPECT_NE(RefusalOf([&] { m_Set.Requery(); }).find("22001"), std::string::npos);
}

TEST_P(ODBCRecordsetTest, DropsFieldsAndParametersWhenClosedUnlessTheyAreKept)
{
    m_Set.SetIntParam(u"id", 2);
    ASSERT_TRUE(m_Set.Open(u"SELECT * FROM [Stock] WHERE [Id] = ?"));
    EXPECT_TRUE(m_Set.IsResetOnClose());
    m_Set.SetResetOnClose(false);
    const CDBField* field = &m_Set.Field(0);
    m_Set.Close();
    EXPECT_EQ(m_Set.GetParamCount(), 1);
    EXPECT_EQ(m_Set.GetFieldID(u"Name"), 1);

    ASSERT_TRUE(m_Set.Open(u"SELECT [Name], [Id] FROM [Stock] WHERE [Id] = ?"));
    EXPECT_EQ(m_Set.GetString(0), u"C1");
    EXPECT_EQ(&m_Set.Field(0), field) << "fields are made anew";
    m_Set.SetResetOnClose(true);
    m_Set.Close();
    EXPECT_EQ(m_Set.GetParamCount(), 0);
    EXPECT_EQ(m_Set.GetFieldID(u"Name"), -1);
    EXPECT_EQ(m_Set.m_nFields, 0);
    ASSERT_TRUE(m_Set.Open(ALL));
    EXPECT_EQ(Ids(m_Set), "1 2 3 ");
}

TEST_P(ODBCRecordsetTest, ExchangesNoFieldOfAStatementWithoutResultColumns)
{
    ASSERT_TRUE(m_Set.Open(u"UPDATE [Stock] SET [Price] = 9 WHERE [Id] = 1"));

    EXPECT_EQ(m_Set.m_nFields, 9999);
    EXPECT_EQ(m_Set.GetFieldID(u"Id"), -1);
    EXPECT_EQ(m_Set.GetFieldName(0), u"");
    EXPECT_TRUE(m_Set.IsBOF());
    EXPECT_TRUE(m_Set.IsEOF());
    m_Set.Close();
    ASSERT_TRUE(m_Set.Open(ALL));
    EXPECT_EQ(m_Set.GetDouble(u"Price"), 9.0);
}

TEST_P(ODBCRecordsetTest, PassesTheDriversWordsThroughWhateverItWasTold)
{
    for (const bool throws : {false, true})
    {
        m_Set.SetThrowOnError(throws);
        EXPECT_NE(RefusalOf([&] { m_Set.Open(u"SELECT * FROM [Absent]"); }), "");
        EXPECT_FALSE(m_Set.IsOpen());
    }
}

TEST_P(ODBCRecordsetTest, RefusesToOpenOnAClosedConnection)
{
    CDatabase closed;
    CODBCRecordset set(&closed);
    EXPECT_FALSE(set.IsThrowOnError());
    EXPECT_EQ(set.Open(u"SELECT 1"), 0);
    EXPECT_EQ(set.Requery(), 0);

    set.SetThrowOnError(true);
    EXPECT_EQ(RecordsetRefusalOf([&] { set.Open(u"SELECT 1"); }), "10728 SELECT 1");
    EXPECT_EQ(RecordsetRefusalOf([&] { set.Requery(); }).substr(0, 5), "10728");
}

TEST_P(ODBCRecordsetTest, TellsAWrongFieldOrParameterByItsIndex)
{
    ASSERT_TRUE(m_Set.Open(ALL));
    m_Set.SetThrowOnError(true);

    EXPECT_EQ(RecordsetRefusalOf([&] { m_Set.Field(4); }), "10729 4");
    EXPECT_EQ(RecordsetRefusalOf([&] { m_Set.GetInt(u"Absent"); }), "10729 -1");
    EXPECT_EQ(RecordsetRefusalOf([&] { m_Set.Param(0); }), "10729 0");

    m_Set.SetThrowOnError(false);
    EXPECT_THROW(
        try { m_Set.Param(0); } catch (CInvalidArgException* exception) {
            exception->Delete();
            throw 0;
        },
        int);
}

TEST_P(ODBCRecordsetTest, SendsABinaryThatAFieldWasGiven)
{
    Execute(On<const char16_t*>(u"CREATE TABLE [Blobs] ([Id] INTEGER, [Data] BLOB)",
                                u"CREATE TABLE [Blobs] ([Id] INTEGER, [Data] BYTEA)",
                                u"CREATE TABLE [Blobs] ([Id] INTEGER, [Data] LONGBLOB)"));
    const std::string bytes(300000, '\xFE');
    m_Set.HasBinaryField();
    ASSERT_TRUE(m_Set.Open(u"SELECT * FROM [Blobs]"));
    m_Set.AddNew();
    m_Set.SetInt(u"Id", 1);
    m_Set.SetBinary(u"Data", MakeBlock(bytes), static_cast<DWORD>(bytes.size()));
    EXPECT_FALSE(m_Set.IsNull(u"Data"));
    EXPECT_EQ(RefusalOf([&] { m_Set.Update(); }), "");

    ASSERT_TRUE(m_Set.Requery());
    EXPECT_EQ(Show(m_Set.Field(u"Data")), "BINARY " + bytes);
    ASSERT_NE(m_Set.GetBinary(u"Data"), nullptr);
    EXPECT_EQ(m_Set.GetBinary(1)->m_dwDataLength, bytes.size());
}

TEST_P(ODBCRecordsetTest, UpdatesWhatWasAssigned)
{
    ASSERT_TRUE(m_Set.Open(ALL));
    m_Set.Edit();
    m_Set.SetString(u"Name", u"R1b \u03A9");
    m_Set.SetTimeStamp(u"Made", {2024, 2, 29, 1, 2, 3, 0});
    EXPECT_EQ(RefusalOf([&] { EXPECT_TRUE(m_Set.Update()); }), "");

    ASSERT_TRUE(m_Set.Requery());
    EXPECT_EQ(m_Set.GetString(u"Name"), u"R1b \u03A9");
    EXPECT_EQ(m_Set.GetString(u"Made"), u"02/29/2024 01:02:03");
    EXPECT_EQ(m_Set.GetDouble(u"Price"), 0.5);
}

TEST_P(ODBCRecordsetTest, SendsOnlyMarkedFieldsWhereItIsNotToCompare)
{
    ASSERT_TRUE(m_Set.Open(ALL, AFX_DB_USE_DEFAULT_TYPE, CRecordset::noDirtyFieldCheck));
    m_Set.Edit();
    m_Set.SetString(u"Name", u"unmarked");
    EXPECT_EQ(RefusalOf([&] { EXPECT_FALSE(m_Set.Update()); }), "");
    m_Set.Edit();
    m_Set.SetString(u"Name", u"marked");
    m_Set.SetFieldDirty(1);
    EXPECT_EQ(RefusalOf([&] { EXPECT_TRUE(m_Set.Update()); }), "");

    ASSERT_TRUE(m_Set.Requery());
    EXPECT_EQ(m_Set.GetString(u"Name"), u"marked");
}

TEST_P(ODBCRecordsetTest, SkipsRowsDeletedHereWhenAsked)
{
    ASSERT_TRUE(m_Set.Open(ALL, AFX_DB_USE_DEFAULT_TYPE, CRecordset::skipDeletedRecords));
    m_Set.MoveNext();
    EXPECT_EQ(RefusalOf([&] { m_Set.Delete(); }), "");

    m_Set.MoveFirst();
    EXPECT_EQ(Ids(m_Set), "1 3 ");
}

UTILITY_ON_ALL_SOURCES(ODBCRecordsetTest);

#ifdef NDEBUG
TEST(ODBCRecordsetFieldTest, GivesAnEmptyFieldForAWrongIndexAnewEachTime)
{
    CODBCRecordset set;
    set.Field(-1) = 5; // lost

    EXPECT_EQ(set.Field(-1).m_dwType, DBVT_NULL);
    EXPECT_EQ(set.GetString(7), u"");
}
#else
TEST(ODBCRecordsetFieldDeathTest, AssertsOnAWrongIndex)
{
    CODBCRecordset set;

    EXPECT_DEATH(set.Field(-1), "no such column");
}
#endif

} // namespace
} // namespace utility
