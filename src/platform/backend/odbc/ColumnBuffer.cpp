#include "platform/backend/odbc/ColumnBuffer.h"

#include "platform/backend/odbc/DriverManager.h"

#include <algorithm>
#include <cstring>

namespace utility
{

namespace
{

constexpr std::size_t BYTES_A_UNIT = 3;        // of UTF-8, at most
constexpr std::size_t FIRST_TEXT_SIZE = 1024;  // most texts of a row set fit
constexpr std::size_t FIRST_WHOLE_SIZE = 4096; // likewise of values of any length

short CarrierOf(EValueKind kind)
{
    switch (kind)
    {
    case EValueKind::None:
        return 0;
    case EValueKind::Bit:
        return SQL_C_UTINYINT; // of a bound SQL_C_BIT MariaDB's driver does not tell the length
    case EValueKind::Integer:
        return SQL_C_SBIGINT;
    case EValueKind::Single: // through bound floats MariaDB's driver goes in steps of 8 bytes
    case EValueKind::Real:
        return SQL_C_DOUBLE;
    case EValueKind::Date:
        return SQL_C_TYPE_TIMESTAMP;
    case EValueKind::Text:
        return SQL_C_CHAR;
    case EValueKind::Binary:
        return SQL_C_BINARY;
    }
    return 0;
}

/// Where a UTF-8 text is cut so that it has at most `limit` 16-bit units; no character is divided.
std::size_t FindCut(std::string_view bytes, int limit)
{
    int units = 0;
    std::size_t place = 0;
    while (place < bytes.size())
    {
        const auto lead = static_cast<unsigned char>(bytes[place]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        units += length == 4 ? 2 : 1;
        if (units > limit || place + length > bytes.size())
            break;
        place += length;
    }
    return place;
}

template <typename TValue>
TValue ReadAs(const unsigned char* place)
{
    TValue value;
    std::memcpy(&value, place, sizeof(value));
    return value;
}

} // namespace

std::size_t CColumnBuffer::ElementSizeFor(const CColumnLayout& layout, std::uint32_t precision,
                                          bool mayGrow)
{
    switch (layout.Kind)
    {
    case EValueKind::None:
        return 0;
    case EValueKind::Bit:
        return 1;
    case EValueKind::Integer:
    case EValueKind::Single:
    case EValueKind::Real:
        return sizeof(std::int64_t);
    case EValueKind::Date:
        return sizeof(SQL_TIMESTAMP_STRUCT);
    case EValueKind::Text:
    {
        if (layout.TextLimit == 0)
            return precision > 0 && precision < FIRST_WHOLE_SIZE / BYTES_A_UNIT
                       ? precision * BYTES_A_UNIT + 1
                       : FIRST_WHOLE_SIZE;
        const std::size_t full = static_cast<std::size_t>(layout.TextLimit) * BYTES_A_UNIT + 1;
        if (!mayGrow)
            return full;
        const std::size_t told =
            precision > 0 && precision < FIRST_TEXT_SIZE ? precision * BYTES_A_UNIT + 1 : full;
        return std::min({full, told, FIRST_TEXT_SIZE});
    }
    case EValueKind::Binary:
        return FIRST_WHOLE_SIZE;
    }
    return 0;
}

CColumnBuffer::CColumnBuffer(const CColumnLayout& layout, std::size_t rows, std::uint32_t precision,
                             bool mayGrow, const CDateDoubt& dateDoubt)
    : m_Layout(layout),
      m_Carrier(CarrierOf(layout.Kind)),
      m_ElementSize(ElementSizeFor(layout, precision, mayGrow)),
      m_Data(rows * m_ElementSize),
      m_Indicators(rows, SQL_NULL_DATA),
      m_DateDoubt(dateDoubt)
{
}

void CColumnBuffer::Preset()
{
    std::ranges::fill(m_Indicators, SQL_NULL_DATA);
    m_DateDoubt.NoteToday();
}

std::size_t CColumnBuffer::GetFullSize() const
{
    return IsUnlimited() ? 0 : static_cast<std::size_t>(m_Layout.TextLimit) * BYTES_A_UNIT + 1;
}

bool CColumnBuffer::StoreRow(std::size_t row, CSnapshotColumn& column) const
{
    const std::int64_t length = m_Indicators[row];
    if (length == SQL_NULL_DATA)
    {
        if (m_DateDoubt.IsNullAValue())
            column.AddUnreadable();
        else
            column.AddNull();
        return true;
    }
    const unsigned char* const place = m_Data.data() + row * m_ElementSize;
    switch (m_Layout.Kind)
    {
    case EValueKind::None:
        column.AddNull();
        break;
    case EValueKind::Bit:
        column.AddInteger(*place);
        break;
    case EValueKind::Integer:
        column.AddInteger(ReadAs<std::int64_t>(place));
        break;
    case EValueKind::Single:
        column.AddReal(static_cast<float>(ReadAs<double>(place)));
        break;
    case EValueKind::Real:
        column.AddReal(ReadAs<double>(place));
        break;
    case EValueKind::Date:
        return StoreDate(row, column);
    case EValueKind::Text:
    case EValueKind::Binary:
        return StoreBytes(place, length, column);
    }
    return true;
}

TIMESTAMP_STRUCT CColumnBuffer::ReadDate(std::size_t row) const
{
    const auto value = ReadAs<SQL_TIMESTAMP_STRUCT>(m_Data.data() + row * m_ElementSize);
    return {value.year,   value.month,  value.day,     value.hour,
            value.minute, value.second, value.fraction};
}

bool CColumnBuffer::StoreDate(std::size_t row, CSnapshotColumn& column) const
{
    const TIMESTAMP_STRUCT date = ReadDate(row);
    const EDateTrust trust = m_DateDoubt.Judge(date);
    if (trust == EDateTrust::Sure)
        column.AddDate(date);
    else if (trust == EDateTrust::None)
        column.AddUnreadable();
    return trust != EDateTrust::Doubtful;
}

void CColumnBuffer::StoreDoubted(std::size_t row, std::string_view text,
                                 CSnapshotColumn& column) const
{
    if (CDateDoubt::IsReadable(text))
        column.AddDate(ReadDate(row));
    else
        column.AddUnreadable();
}

bool CColumnBuffer::StoreBytes(const unsigned char* place, std::int64_t length,
                               CSnapshotColumn& column) const
{
    const bool isBinary = m_Layout.Kind == EValueKind::Binary;
    const std::int64_t room = GetElementSize() - (isBinary ? 0 : 1);
    const bool isWhole = length >= 0 && length <= room; // a driver may not know how long it is
    if (!isWhole && (IsUnlimited() || m_ElementSize < GetFullSize()))
        return false;
    const auto size = static_cast<std::size_t>(isWhole ? length : room);
    StoreLong({reinterpret_cast<const char*>(place), size}, isWhole, column);
    return true;
}

void CColumnBuffer::StoreLong(std::string_view bytes, bool isWhole, CSnapshotColumn& column) const
{
    // Fewer bytes than the limit has units cannot be too long: the usual case is not counted.
    if (IsUnlimited() || (isWhole && bytes.size() <= static_cast<std::size_t>(m_Layout.TextLimit)))
    {
        column.AddBytes(bytes, false);
        return;
    }
    const std::size_t cut = FindCut(bytes, m_Layout.TextLimit);
    column.AddBytes(bytes.substr(0, cut), !isWhole || cut < bytes.size());
}

} // namespace utility
