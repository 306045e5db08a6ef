#include "database/FieldTools.h"
#include "platform/base/Encoding.h"
#include "platform/db/LongBinary.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

#include <functional>

namespace utility
{
namespace
{

constexpr const char* ZEROS = "0-00-00 00:00:00+0";

CDBField MakeText(const char16_t* text)
{
    CDBField field;
    field.SetType(DBVT_STRING);
    *field.m_pstring = text;
    return field;
}

void ExpectReadings(const char* name, const CDBField& field,
                    const std::vector<std::string>& expected)
{
    SCOPED_TRACE(name);
    const std::vector<CReading> readings = Readings(field);
    ASSERT_EQ(readings.size(), expected.size());
    for (std::size_t index = 0; index < readings.size(); ++index)
        EXPECT_EQ(readings[index].m_Value, expected[index]) << readings[index].m_Name;
}

TEST(DBFieldReadTest, ConvertsEveryTypeToEveryOther)
{
    const struct
    {
        const char* m_Name;
        DWORD m_Type;
        std::function<void(CDBField&)> m_Set;
        std::vector<std::string>
            m_Expected; // bool char short long int64 float double date timestamp string
    } rows[] = {
        {"NULL type",
         DBVT_NULL,
         [](CDBField&) {},
         {"false", "0", "0", "0", "0", "0", "0", "null", ZEROS, "\"\""}},
        {"BOOL true",
         DBVT_BOOL,
         [](CDBField& f) { f.m_boolVal = 1; },
         {"true", "84", "1", "1", "1", "1", "1", "invalid", ZEROS, "\"TRUE\""}},
        {"BOOL false",
         DBVT_BOOL,
         [](CDBField& f) { f.m_boolVal = 0; },
         {"false", "70", "0", "0", "0", "0", "0", "invalid", ZEROS, "\"FALSE\""}},
        {"UCHAR T",
         DBVT_UCHAR,
         [](CDBField& f) { f.m_chVal = 'T'; },
         {"true", "84", "84", "84", "84", "84", "84", "invalid", ZEROS, "\"84\""}},
        {"UCHAR 1",
         DBVT_UCHAR,
         [](CDBField& f) { f.m_chVal = '1'; },
         {"true", "49", "49", "49", "49", "49", "49", "invalid", ZEROS, "\"49\""}},
        // Sign-extended on its way to a text, and only there.
        {"UCHAR 200",
         DBVT_UCHAR,
         [](CDBField& f) { f.m_chVal = 200; },
         {"false", "200", "200", "200", "200", "200", "200", "invalid", ZEROS, "\"4294967240\""}},
        {"SHORT -2",
         DBVT_SHORT,
         [](CDBField& f) { f.m_iVal = -2; },
         {"true", "254", "-2", "-2", "-2", "-2", "-2", "1969-12-31 23:59:58", ZEROS, "\"-2\""}},
        {"LONG 70000",
         DBVT_LONG,
         [](CDBField& f) { f.m_lVal = 70000; },
         {"true", "112", "4464", "70000", "70000", "70000", "70000", "1970-01-01 19:26:40", ZEROS,
          "\"70000\""}},
        {"LONG 0",
         DBVT_LONG,
         [](CDBField& f) { f.m_lVal = 0; },
         {"false", "0", "0", "0", "0", "0", "0", "1970-01-01 00:00:00", ZEROS, "\"0\""}},
        {"SINGLE 1.5",
         DBVT_SINGLE,
         [](CDBField& f) { f.m_fltVal = 1.5f; },
         {"true", "1", "1", "1", "1", "1.5", "1.5", "1970-01-01 00:00:01", ZEROS, "\"1.500000\""}},
        {"SINGLE NaN",
         DBVT_SINGLE,
         [](CDBField& f) { f.m_fltVal = std::nanf(""); },
         {"true", "0", "0", "0", "0", "nan", "nan", "1970-01-01 00:00:00", ZEROS, "\"nan\""}},
        {"DOUBLE 123456789",
         DBVT_DOUBLE,
         [](CDBField& f) { f.m_dblVal = 123456789; },
         {"true", "255", "32767", "123456789", "123456789", "123456792", "123456789",
          "1973-11-29 21:33:09", ZEROS, "\"1.23457e+08\""}},
        {"DOUBLE -1e300",
         DBVT_DOUBLE,
         [](CDBField& f) { f.m_dblVal = -1e300; },
         {"true", "0", "-32768", "-2147483648", "-9223372036854775808", "-inf",
          "-1.0000000000000001e+300", "invalid", ZEROS, "\"-1e+300\""}},
        {"DATE",
         DBVT_DATE,
         [](CDBField& f) { *f.m_pdate = {2024, 1, 1, 0, 0, 1, 123000000}; },
         {"false", "32", "0", "0", "133485408011230000", "0", "0", "2024-01-01 00:00:01",
          "2024-01-01 00:00:01+123000000", "\"01/01/2024 00:00:01\""}},
        {"DATE at midnight",
         DBVT_DATE,
         [](CDBField& f) { *f.m_pdate = {2024, 1, 1, 0, 0, 0, 0}; },
         {"false", "32", "0", "0", "133485408000000000", "0", "0", "2024-01-01 00:00:00",
          "2024-01-01 00:00:00+0", "\"01/01/2024\""}},
        {"DATE that is none",
         DBVT_DATE,
         [](CDBField& f) { *f.m_pdate = {2024, 2, 30, 0, 0, 0, 0}; },
         {"false", "32", "0", "0", "0", "0", "0", "invalid", "2024-02-30 00:00:00+0",
          "\"Invalid DateTime\""}},
        {"STRING 12abc",
         DBVT_STRING,
         [](CDBField& f) { *f.m_pstring = u"12abc"; },
         {"true", "49", "12", "12", "12", "12", "12", "invalid", ZEROS, "\"12abc\""}},
        {"STRING 9000000000",
         DBVT_STRING,
         [](CDBField& f) { *f.m_pstring = u"9000000000"; },
         {"false", "57", "-1", "2147483647", "9000000000", "8999999488", "9000000000", "invalid",
          ZEROS, "\"9000000000\""}},
        {"STRING 4.25",
         DBVT_STRING,
         [](CDBField& f) { *f.m_pstring = u"4.25"; },
         {"false", "52", "4", "4", "4", "4.25", "4.25", "invalid", ZEROS, "\"4.25\""}},
        {"STRING of a date",
         DBVT_STRING,
         [](CDBField& f) { *f.m_pstring = u"2024-05-06 07:08:09.5"; },
         {"false", "50", "2024", "2024", "2024", "2024", "2024", "2024-05-06 07:08:09",
          "2024-05-06 07:08:09+5000000", "\"2024-05-06 07:08:09.5\""}},
        {"STRING of the locale's date",
         DBVT_STRING,
         [](CDBField& f) { *f.m_pstring = u"05/06/2024 07:08:09"; },
         {"false", "48", "5", "5", "5", "5", "5", "2024-05-06 07:08:09", ZEROS,
          "\"05/06/2024 07:08:09\""}},
        {"STRING empty",
         DBVT_STRING,
         [](CDBField&) {},
         {"false", "32", "0", "0", "0", "0", "0", "invalid", ZEROS, "\"\""}},
        {"BINARY",
         DBVT_BINARY,
         [](CDBField& f) { f.SetBinary(MakeBlock("AB"), 2); },
         {"false", "32", "0", "0", "0", "0", "0", "invalid", ZEROS,
          std::string("\"\xE4\x89\x81\0\"", 6)}},
        {"ASTRING",
         DBVT_ASTRING,
         [](CDBField& f) { *f.m_pstringA = "12"; },
         {"false", "0", "0", "0", "0", "0", "0", "null", ZEROS, "\"\""}},
        {"WSTRING",
         DBVT_WSTRING,
         [](CDBField& f) { *f.m_pstringW = u"12"; },
         {"false", "0", "0", "0", "0", "0", "0", "null", ZEROS, "\"\""}},
    };
    for (const auto& row : rows)
    {
        CDBField field;
        field.SetType(row.m_Type);
        row.m_Set(field);
        ExpectReadings(row.m_Name, field, row.m_Expected);
    }
}

TEST(DBFieldReadTest, TakesUpperCaseTAndOneForTrueInTexts)
{
    for (const char16_t* text : {u"1", u"True", u"T", u"10"})
        EXPECT_TRUE(MakeText(text).AsBool()) << ToUtf8(text);
    for (const char16_t* text : {u"0", u"False", u"true", u"", u" 1", u"2"})
        EXPECT_FALSE(MakeText(text).AsBool()) << ToUtf8(text);
}

TEST(DBFieldReadTest, ShowsSecondsInTheLocalZone)
{
    const CEnvironmentVariable zone("TZ", "Europe/Berlin");
    CDBField field;
    field.SetType(DBVT_LONG);

    field.m_lVal = 1704067200; // winter
    EXPECT_EQ(Show(field.AsDate()), "2024-01-01 01:00:00");
    field.m_lVal = 1719792000; // summer
    EXPECT_EQ(Show(field.AsDate()), "2024-07-01 02:00:00");
}

TEST(DBFieldReadTest, TellsATextThatIsNoDateByACountOfZero)
{
    const COleDateTime date = MakeText(u"no date").AsDate();

    EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(date.m_dt, 0.0);
}

TEST(DBFieldReadTest, PutsBytesAtTheStartOfAsManyUnits)
{
    CDBField field;
    field.SetType(DBVT_BINARY);
    field.SetBinary(MakeBlock("ABCD"), 4);

    EXPECT_EQ(field.AsString(), CString(std::u16string_view(u"\u4241\u4443\0\0", 4)));
    ASSERT_NE(field.AsBinary(), nullptr);
    EXPECT_EQ(field.AsBinary()->m_dwDataLength, 4u);
}

TEST(DBFieldReadTest, GivesAPointerToBinariesOnly)
{
    for (const DWORD type : COLUMN_TYPES)
        EXPECT_EQ(MakeField(type)->AsBinary() != nullptr, type == DBVT_BINARY) << type;
}

TEST(DBFieldReadTest, ConvertsByOperatorsAsByName)
{
    const CDBField field = MakeText(u"1704067200");

    EXPECT_EQ(static_cast<int>(field), 1704067200);
    EXPECT_EQ(static_cast<std::int64_t>(field), 1704067200);
    EXPECT_EQ(static_cast<double>(field), 1704067200.0);
    EXPECT_EQ(static_cast<short>(field), field.AsShort());
    EXPECT_EQ(static_cast<bool>(field), true);
    EXPECT_EQ(static_cast<unsigned char>(field), '1');
    EXPECT_EQ(static_cast<CString>(field), u"1704067200");
    EXPECT_EQ(static_cast<CLongBinary*>(field), nullptr);
    EXPECT_EQ(static_cast<TIMESTAMP_STRUCT>(MakeText(u"2024-05-06 07:08:09")).day, 6);
}

} // namespace
} // namespace utility
