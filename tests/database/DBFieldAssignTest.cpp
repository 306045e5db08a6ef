#include "database/FieldTools.h"
#include "database/ODBCRecordset.h"
#include "text/time/TimeConversion.h"

#include <gtest/gtest.h>

#include <functional>

namespace utility
{
namespace
{

const COleDateTime DATE_VALUE(2024, 5, 6, 7, 8, 9);
constexpr TIMESTAMP_STRUCT TIME_VALUE = {2024, 5, 6, 7, 8, 9, 123000000};

// What each assignment leaves in a column of each type; "-" for the value it had before.
struct CAssignment
{
    const char* m_Name;
    std::function<void(CDBField&)> m_Assign;
    const char* m_Results[COLUMN_TYPE_COUNT]; // in the order of COLUMN_TYPES
};

const CAssignment ASSIGNMENTS[] = {
    {"true",
     [](CDBField& field) { field = true; },
     {"BOOL 1", "BOOL 1", "UCHAR 84", "SHORT 1", "LONG 1", "SINGLE 1", "DOUBLE 1", "-", "STRING T",
      "-"}},
    {"false",
     [](CDBField& field) { field = false; },
     {"BOOL 0", "BOOL 0", "UCHAR 70", "SHORT 0", "LONG 0", "SINGLE 0", "DOUBLE 0", "-", "STRING F",
      "-"}},
    {"unsigned char T",
     [](CDBField& field) { field = static_cast<unsigned char>('T'); },
     {"UCHAR 84", "BOOL 1", "UCHAR 84", "SHORT 84", "LONG 84", "SINGLE 84", "DOUBLE 84", "-",
      "STRING T", "-"}},
    {"unsigned char 200",
     [](CDBField& field) { field = static_cast<unsigned char>(200); },
     {"UCHAR 200", "BOOL 0", "UCHAR 200", "SHORT 200", "LONG 200", "SINGLE 200", "DOUBLE 200", "-",
      "STRING \xC3\x88", "-"}},
    {"char 1",
     [](CDBField& field) { field = '1'; },
     {"UCHAR 49", "BOOL 1", "UCHAR 49", "SHORT 49", "LONG 49", "SINGLE 49", "DOUBLE 49", "-",
      "STRING 1", "-"}},
    {"char t",
     [](CDBField& field) { field = 't'; },
     {"UCHAR 116", "BOOL 0", "UCHAR 116", "SHORT 116", "LONG 116", "SINGLE 116", "DOUBLE 116", "-",
      "STRING t", "-"}},
    {"short -2",
     [](CDBField& field) { field = static_cast<short>(-2); },
     {"LONG -2", "BOOL 1", "UCHAR 254", "SHORT -2", "LONG -2", "SINGLE -2", "DOUBLE -2", "-",
      "STRING -2", "-"}},
    {"int 70000",
     [](CDBField& field) { field = 70000; },
     {"LONG 70000", "BOOL 1", "UCHAR 112", "SHORT 4464", "LONG 70000", "SINGLE 70000",
      "DOUBLE 70000", "-", "STRING 70000", "-"}},
    {"int 0",
     [](CDBField& field) { field = 0; },
     {"LONG 0", "BOOL 0", "UCHAR 0", "SHORT 0", "LONG 0", "SINGLE 0", "DOUBLE 0", "-", "STRING 0",
      "-"}},
    {"long -70000",
     [](CDBField& field) { field = std::int32_t{-70000}; },
     {"LONG -70000", "BOOL 1", "UCHAR 144", "SHORT -4464", "LONG -70000", "SINGLE -70000",
      "DOUBLE -70000", "-", "STRING -70000", "-"}},
    // A count of 100-nanosecond ticks since 1601.
    {"__int64",
     [](CDBField& field) { field = std::int64_t{133485408001230000}; },
     {"NULL", "BOOL 1", "UCHAR 176", "SHORT -31568", "LONG 1989969072", "SINGLE 1.3348541e+17",
      "DOUBLE 1.3348540800123e+17", "DATE 2024-01-01 00:00:00+123000000",
      "STRING 133485408001230000", "-"}},
    {"float 2.75",
     [](CDBField& field) { field = 2.75f; },
     {"SINGLE 2.75", "BOOL 1", "UCHAR 2", "SHORT 2", "LONG 2", "SINGLE 2.75", "DOUBLE 2.75", "-",
      "STRING 2.750000", "-"}},
    {"double -1.5",
     [](CDBField& field) { field = -1.5; },
     {"DOUBLE -1.5", "BOOL 1", "UCHAR 0", "SHORT -1", "LONG -1", "SINGLE -1.5", "DOUBLE -1.5", "-",
      "STRING -1.500000", "-"}},
    {"double 1e300",
     [](CDBField& field) { field = 1e300; },
     {"DOUBLE 1.0000000000000001e+300", "BOOL 1", "UCHAR 255", "SHORT 32767", "LONG 2147483647",
      "SINGLE inf", "DOUBLE 1.0000000000000001e+300", "-", nullptr, "-"}},
    {"double NaN",
     [](CDBField& field) { field = std::nan(""); },
     {"DOUBLE nan", "BOOL 1", "UCHAR 0", "SHORT 0", "LONG 0", "SINGLE nan", "DOUBLE nan", "-",
      nullptr, "-"}},
    {"text 12abc",
     [](CDBField& field) { field = u"12abc"; },
     {"ASTRING 12abc", "BOOL 1", "UCHAR 49", "SHORT 12", "LONG 12", "SINGLE 12", "DOUBLE 12",
      "DATE -1-65535-65535 65535:65535:65535+0", "STRING 12abc", "-"}},
    // Any text, even "0", is true.
    {"text 0",
     [](CDBField& field) { field = CString(u"0"); },
     {"ASTRING 0", "BOOL 1", "UCHAR 48", "SHORT 0", "LONG 0", "SINGLE 0", "DOUBLE 0",
      "DATE -1-65535-65535 65535:65535:65535+0", "STRING 0", "-"}},
    {"text -70000.25",
     [](CDBField& field) { field = u"-70000.25"; },
     {"ASTRING -70000.25", "BOOL 1", "UCHAR 45", "SHORT -4464", "LONG -70000", "SINGLE -70000.25",
      "DOUBLE -70000.25", "DATE -1-65535-65535 65535:65535:65535+0", "STRING -70000.25", "-"}},
    {"text of a date",
     [](CDBField& field) { field = u"2024-05-06 07:08:09"; },
     {"ASTRING 2024-05-06 07:08:09", "BOOL 1", "UCHAR 50", "SHORT 2024", "LONG 2024", "SINGLE 2024",
      "DOUBLE 2024", "DATE 2024-05-06 07:08:09+0", "STRING 2024-05-06 07:08:09", "-"}},
    {"null text",
     [](CDBField& field) { field = static_cast<const char16_t*>(nullptr); },
     {"ASTRING ", "BOOL 0", "UCHAR 0", "SHORT 0", "LONG 0", "SINGLE 0", "DOUBLE 0",
      "DATE -1-65535-65535 65535:65535:65535+0", "STRING ", "-"}},
    {"COleDateTime",
     [](CDBField& field) { field = DATE_VALUE; },
     {"DATE 2024-05-06 07:08:09+0", "-", "-", "-", "-", "-", "-", "DATE 2024-05-06 07:08:09+0",
      "STRING 05/06/2024 07:08:09", "-"}},
    {"TIMESTAMP_STRUCT",
     [](CDBField& field) { field = TIME_VALUE; },
     {"DATE 2024-05-06 07:08:09+123000000", "-", "-", "-", "-", "-", "-",
      "DATE 2024-05-06 07:08:09+123000000", "-", "-"}},
};

TEST(DBFieldAssignTest, KeepsTheColumnsTypeInEveryCellOfTheTable)
{
    for (const CAssignment& assignment : ASSIGNMENTS)
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
            for (const CAssignment& assignment : ASSIGNMENTS)
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
        for (const CAssignment& assignment : ASSIGNMENTS)
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
