#include "database/AssignmentTable.h"
#include "database/DatabaseFixture.h"
#include "database/ODBCRecordset.h"
#include "platform/db/LongBinary.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

/// One column of each type that a source has, and a field made by hand with the same value.
struct CTypedColumn
{
    const char16_t* m_Declared;
    const char16_t* m_Written;
    DWORD m_Type;
    std::function<void(CDBField&)> m_Make;
};

const CTypedColumn COMMON_COLUMNS[] = {
    {u"INTEGER", u"70000", DBVT_LONG,
     [](CDBField& field)
     {
         field.m_lVal = 70000;
     }},
    {u"SMALLINT", u"-2", DBVT_LONG,
     [](CDBField& field)
     {
         field.m_lVal = -2;
     }},
    {u"DOUBLE PRECISION", u"-1.5", DBVT_DOUBLE,
     [](CDBField& field)
     {
         field.m_dblVal = -1.5;
     }},
    {u"TIMESTAMP", u"'2024-01-01 00:00:01'", DBVT_DATE,
     [](CDBField& field)
     {
         *field.m_pdate = {2024, 1, 1, 0, 0, 1, 0};
     }},
    {u"VARCHAR(40)", u"'12abc'", DBVT_STRING,
     [](CDBField& field)
     {
         *field.m_pstring = u"12abc";
     }},
    {u"VARCHAR(40)", u"'2024-05-06 07:08:09'", DBVT_STRING,
     [](CDBField& field)
     {
         *field.m_pstring = u"2024-05-06 07:08:09";
     }},
    {u"BIGINT", u"9000000000", DBVT_STRING,
     [](CDBField& field)
     {
         *field.m_pstring = u"9000000000";
     }},
};

const CTypedColumn SQLITE_COLUMNS[] = {
    {u"BOOLEAN", u"1", DBVT_BOOL,
     [](CDBField& field)
     {
         field.m_boolVal = 1;
     }},
    {u"TINYINT", u"84", DBVT_UCHAR,
     [](CDBField& field)
     {
         field.m_chVal = 84;
     }},
    {u"BLOB", u"x'4142'", DBVT_BINARY,
     [](CDBField& field)
     {
         field.SetBinary(MakeBlock("AB"), 2);
     }},
};

const CTypedColumn POSTGRESQL_COLUMNS[] = {
    {u"BOOLEAN", u"true", DBVT_BOOL,
     [](CDBField& field)
     {
         field.m_boolVal = 1;
     }},
    {u"REAL", u"2.75", DBVT_SINGLE,
     [](CDBField& field)
     {
         field.m_fltVal = 2.75f;
     }},
    {u"BYTEA", u"'\\x4142'", DBVT_BINARY,
     [](CDBField& field)
     {
         field.SetBinary(MakeBlock("AB"), 2);
     }},
};

const CTypedColumn MARIADB_COLUMNS[] = {
    {u"BIT(1)", u"b'1'", DBVT_BOOL,
     [](CDBField& field)
     {
         field.m_boolVal = 1;
     }},
    {u"TINYINT", u"-56", DBVT_UCHAR,
     [](CDBField& field)
     {
         field.m_chVal = 200;
     }},
    {u"FLOAT", u"2.75", DBVT_SINGLE,
     [](CDBField& field)
     {
         field.m_fltVal = 2.75f;
     }},
    {u"BLOB", u"x'4142'", DBVT_BINARY,
     [](CDBField& field)
     {
         field.SetBinary(MakeBlock("AB"), 2);
     }},
};

/// The tables of conversions hold for fields that a driver filled as for those made by hand.
class ODBCRecordsetConversionTest : public CSourceTest
{
protected:
    void SetUp() override
    {
        CSourceTest::SetUp();
        for (const CTypedColumn& column : COMMON_COLUMNS)
            m_Columns.push_back(&column);
        for (const CTypedColumn& column : On(std::span<const CTypedColumn>(SQLITE_COLUMNS),
                                             std::span<const CTypedColumn>(POSTGRESQL_COLUMNS),
                                             std::span<const CTypedColumn>(MARIADB_COLUMNS)))
            m_Columns.push_back(&column);
        CString declared;
        CString written;
        for (const CTypedColumn* column : m_Columns)
        {
            declared.AppendFormat(u"%s[c%d] %s NULL", declared.IsEmpty() ? u"" : u", ",
                                  declared.GetLength(), column->m_Declared);
            written += CString(written.IsEmpty() ? u"" : u", ") + column->m_Written;
        }
        Execute(u"CREATE TABLE [All] (" + declared + u")");
        Execute(u"INSERT INTO [All] VALUES (" + written + u")");
        ASSERT_TRUE(m_Set.Open(u"SELECT * FROM [All]"));
    }

    std::string Trace(std::size_t index) const
    {
        return ToUtf8(m_Columns[index]->m_Declared) + " " + ToUtf8(m_Columns[index]->m_Written);
    }

    std::vector<const CTypedColumn*> m_Columns;
    CODBCRecordset m_Set{&m_Database};
};

TEST_P(ODBCRecordsetConversionTest, FieldsOfADriverReadAsThoseMadeByHand)
{
    for (std::size_t index = 0; index < m_Columns.size(); ++index)
    {
        SCOPED_TRACE(Trace(index));
        CDBField made;
        made.SetType(m_Columns[index]->m_Type);
        m_Columns[index]->m_Make(made);
        const CDBField& field = m_Set.Field(static_cast<int>(index));
        EXPECT_EQ(Show(field), Show(made));

        const std::vector<CReading> expected = Readings(made);
        const std::vector<CReading> readings = Readings(field);
        for (std::size_t kind = 0; kind < expected.size(); ++kind)
            EXPECT_EQ(readings[kind].m_Value, expected[kind].m_Value) << expected[kind].m_Name;
    }
}

TEST_P(ODBCRecordsetConversionTest, FieldsOfADriverKeepTheirTypeInEveryCellOfTheTable)
{
    for (std::size_t index = 0; index < m_Columns.size(); ++index)
    {
        const auto* const place =
            std::find(std::begin(COLUMN_TYPES), std::end(COLUMN_TYPES), m_Columns[index]->m_Type);
        const std::size_t type = static_cast<std::size_t>(place - std::begin(COLUMN_TYPES));
        for (const CAssignment& assignment : Assignments())
        {
            if (!assignment.m_Results[type])
                continue;
            SCOPED_TRACE(std::string(assignment.m_Name) + " into " + Trace(index));
            m_Set.MoveFirst(); // the row's value again
            CDBField& field = m_Set.Field(static_cast<int>(index));
            const std::string before = Show(field);
            assignment.m_Assign(field);
            EXPECT_EQ(Show(field), assignment.m_Results[type] == std::string_view("-")
                                       ? before
                                       : assignment.m_Results[type]);
        }
    }
}

UTILITY_ON_ALL_SOURCES(ODBCRecordsetConversionTest);

} // namespace
} // namespace utility
