#include "database/AssignmentTable.h"
#include "database/FieldTools.h"
#include "database/ODBCRecordset.h"
#include "text/time/TimeConversion.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(DBFieldAssignTest, KeepsTheColumnsTypeInEveryCellOfTheTable)
{
    for (const CAssignment& assignment : Assignments())
        for (std::size_t column = 0; column < COLUMN_TYPE_COUNT; ++column)
        {
            if (!assignment.m_Results[column])
                continue; // a text of 300 digits, or one that the C library chooses
            const auto field = MakeField(COLUMN_TYPES[column]);
            SCOPED_TRACE(std::string(assignment.m_Name) + " into " + Show(*field));
            const std::string expected = assignment.m_Results[column] == std::string("-")
                                             ? Show(*field)
                                             : assignment.m_Results[column];
            assignment.m_Assign(*field);
            EXPECT_EQ(Show(*field), expected);
        }
}

// What a parameter holds after the same assignments, whatever it held before.
const struct
{
    const char* m_Name;
    const char* m_Result;
} PARAM_RESULTS[] = {{"true", "BOOL 1"},
                     {"unsigned char T", "UCHAR 84"},
                     {"char 1", "UCHAR 49"},
                     {"short -2", "LONG -2"},
                     {"int 70000", "LONG 70000"},
                     {"long -70000", "LONG -70000"},
                     {"__int64", "STRING 133485408001230000"},
                     {"float 2.75", "SINGLE 2.75"},
                     {"double -1.5", "DOUBLE -1.5"},
                     {"text 12abc", "STRING 12abc"},
                     {"null text", "STRING "},
                     {"COleDateTime", "DATE 2024-05-06 07:08:09+0"},
                     {"TIMESTAMP_STRUCT", "DATE 2024-05-06 07:08:09+123000000"}};

TEST(DBFieldAssignTest, GivesAParameterTheTypeOfTheValue)
{
    CODBCRecordset set;
    CDBField& param = set.Param(u"p");
    for (const DWORD before :
         {DBVT_NULL, DBVT_BOOL, DBVT_LONG, DBVT_STRING, DBVT_BINARY, DBVT_ASTRING, DBVT_WSTRING})
        for (const auto& row : PARAM_RESULTS)
            for (const CAssignment& assignment : Assignments())
            {
                if (assignment.m_Name != std::string_view(row.m_Name))
                    continue;
                param.SetType(before);
                SCOPED_TRACE(std::string(row.m_Name) + " into " + Show(param));
                assignment.m_Assign(param);
                EXPECT_EQ(Show(param), row.m_Result);
            }
}

TEST(DBFieldAssignTest, LeavesADateParameterADateForAFileTime)
{
    CODBCRecordset set;
    set.SetInt64ParamAsTimeStamp(u"p", 133485408000000000);
    EXPECT_EQ(Show(set.Param(u"p")), "DATE 2024-01-01 00:00:00+0");

    set.SetInt64Param(u"p", 133485408010000000);
    EXPECT_EQ(Show(set.Param(u"p")), "DATE 2024-01-01 00:00:01+0");
}

TEST(DBFieldAssignTest, IgnoresEverythingInAColumnOfNarrowOrWideText)
{
    for (const DWORD type : {DBVT_ASTRING, DBVT_WSTRING})
        for (const CAssignment& assignment : Assignments())
        {
            CDBField field;
            field.SetType(type);
            SCOPED_TRACE(std::string(assignment.m_Name) + " into " + Show(field));
            const std::string before = Show(field);
            assignment.m_Assign(field);
            EXPECT_EQ(Show(field), before);
        }
}

TEST(DBFieldAssignTest, WritesAnInvalidDateAsItsWordsAndAsNoDate)
{
    COleDateTime invalid;
    invalid.SetStatus(COleDateTime::invalid);
    const auto text = MakeField(DBVT_STRING);
    const auto date = MakeField(DBVT_DATE);

    *text = invalid;
    *date = invalid;

    EXPECT_EQ(Show(*text), "STRING Invalid DateTime");
    EXPECT_EQ(Show(*date), "DATE -1-65535-65535 65535:65535:65535+0");
}

} // namespace
} // namespace utility
