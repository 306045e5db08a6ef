#include "database/transfer/CellText.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

TEST(CellTextTest, OneValueHasOneTextWhoeverWritesIt)
{
    using enum ETransferType;
    constexpr struct
    {
        ETransferType m_Type;
        std::string_view m_Written;
        std::string_view m_Text; // empty: it is no value of the type
    } cases[] = {
        {Decimal, "-0012.500", "-12.5"},
        {Decimal, "-1.25e+01", "-12.5"},
        {Decimal, "+.5", "0.5"},
        {Decimal, "-0.000", "0"},
        {Decimal, "1E-3", "0.001"},
        {Decimal, "12345678901234567890.0123456789", "12345678901234567890.0123456789"},
        {Decimal, "1.5 ", ""},
        {Decimal, "1e", ""},
        {Decimal, "1e401", ""},
        {Decimal, ".", ""},
        {Decimal, "NaN", ""},
        {Big, "18446744073709551615", "18446744073709551615"},
        {Big, "n/a", ""},
        {Real, "0.30000000000000004", "0.30000000000000004"},
        {Real, "1.7976931348623157e308", "1.7976931348623157e+308"},
        {Real, "-0.0", "0"},
        {Real, "1,5", ""},
        {Date, "2024-02-29", "2024-02-29"},
        {Date, "2023-02-29", ""},
        {Date, "1900-02-29", ""},
        {Date, "0005-02-29 BC", "0005-02-29 BC"}, // year -4 of the count from 0
        {Date, "2024-01-31 00:00:00", "2024-01-31"},
        {Date, "2024-01-31 12:00:00", ""},
        {Date, "12024-01-31", "12024-01-31"},
        {Date, "0000-00-00", ""},
        {Date, "24-01-31", ""},
        {Timestamp, "2024-01-31", "2024-01-31 00:00:00"},
        {Timestamp, "2024-01-31T12:30:45.500", "2024-01-31 12:30:45.5"},
        {Timestamp, "2024-01-31 12:30", "2024-01-31 12:30:00"},
        {Timestamp, "2024-01-31 12:30:45.000000", "2024-01-31 12:30:45"},
        {Timestamp, "2024-01-31 24:00:00", ""},
        {Timestamp, "2024-01-31 12:30:45+01", ""},
        {Timestamp, "2024-01-31 12:30:45.1234567891", ""},
        {Timestamp, "infinity", ""},
        {Time, "07:05:09.250", "07:05:09.25"},
        {Time, "-100:00:00", "-100:00:00"},
        {Time, "7:05:09", ""},
        {Time, "07:60:00", ""},
        {Text, " as it stands ", " as it stands "},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Written);
        CDbValue value;
        value.Kind = EValueKind::Text;
        value.IsNull = false;
        value.Bytes = row.m_Written;
        std::string text;

        const bool isValue = MakeCellText(row.m_Type, value, text);

        EXPECT_EQ(isValue, !row.m_Text.empty());
        EXPECT_EQ(isValue ? text : std::string(), row.m_Text);
    }
}

TEST(CellTextTest, CharactersAreCountedAndBadBytesSeen)
{
    constexpr struct
    {
        std::string_view m_Bytes;
        std::int64_t m_Count;
    } cases[] = {
        {"", 0},
        {"abc", 3},
        {"aé漢😀", 4},
        {"\x80", -1},
        {"\xC3", -1},
        {"\xC0\xAF", -1},
        {"\xE0\x80\x80", -1},
        {"\xED\xA0\x80", -1},
        {"\xF4\x90\x80\x80", -1},
        {"\xF5\x80\x80\x80", -1},
        {"a\xC3(", -1},
    };
    for (const auto& row : cases)
        EXPECT_EQ(CountCharacters(row.m_Bytes), row.m_Count) << row.m_Bytes;
}

TEST(CellTextTest, YearsBeforeChristCountDownFromZero)
{
    EXPECT_EQ(YearOf("2024-01-31 12:00:00"), 2024);
    EXPECT_EQ(YearOf("0001-01-01 BC"), 0);
    EXPECT_EQ(YearOf("0044-03-15 BC"), -43);
}

} // namespace
