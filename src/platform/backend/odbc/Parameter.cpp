#include "platform/backend/odbc/Parameter.h"

#include "platform/backend/odbc/DriverManager.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace utility
{

namespace
{

// The record is handed to the driver as it lies.
static_assert(sizeof(TIMESTAMP_STRUCT) == sizeof(SQL_TIMESTAMP_STRUCT));

constexpr SQLSMALLINT TIMESTAMP_DIGITS = 6; // of a second: what the three servers keep
constexpr std::size_t TIMESTAMP_SIZE = 26;  // "2024-01-31 12:30:45.123456"
constexpr std::size_t FIRST_ROOM = 256;
constexpr std::uint32_t NANOSECONDS_A_MILLISECOND = 1'000'000;

/// The type a driver is told: in the new numbering for dates, and the general one where the
/// column's says nothing.
short SentType(const CDbValue& value, const CODBCFieldInfo& column)
{
    switch (column.m_nSQLType)
    {
    case SQL_DATE:
        return SQL_TYPE_DATE;
    case SQL_TIME:
        return SQL_TYPE_TIME;
    case SQL_TIMESTAMP:
        return SQL_TYPE_TIMESTAMP;
    case 0:
        return value.Kind == EValueKind::Binary ? short{SQL_LONGVARBINARY} : short{SQL_VARCHAR};
    default:
        return column.m_nSQLType;
    }
}

} // namespace

RETCODE CParameter::Set(void* statement, std::size_t index, const CDbValue& value,
                        const CODBCFieldInfo& column, bool takesDatesAsText)
{
    m_Binding = Store(value, column, takesDatesAsText);
    if (value.IsNull)
        m_Length = SQL_NULL_DATA;
    return Bind(statement, index);
}

RETCODE CParameter::Bind(void* statement, std::size_t index)
{
    // Each time anew: the SQLite driver keeps the length it found at the first execution of a
    // binding.
    return ::SQLBindParameter(statement, static_cast<SQLUSMALLINT>(index + 1), SQL_PARAM_INPUT,
                              m_Binding.Carrier, m_Binding.SqlType, m_Binding.Size, m_Binding.Scale,
                              const_cast<void*>(m_Binding.Data),
                              static_cast<SQLLEN>(m_Binding.Size), &m_Length);
}

CParameter::CBinding CParameter::Store(const CDbValue& value, const CODBCFieldInfo& column,
                                       bool takesDatesAsText)
{
    const short type = SentType(value, column);
    switch (value.Kind)
    {
    case EValueKind::Bit:
        m_Bit = value.Integer != 0 ? 1 : 0;
        m_Length = sizeof(m_Bit);
        return {&m_Bit, SQL_C_BIT, type, 1, 0};
    case EValueKind::Integer:
        m_Integer = value.Integer;
        m_Length = sizeof(m_Integer);
        return {&m_Integer, SQL_C_SBIGINT, type, 0, 0};
    case EValueKind::Single:
        m_Single = static_cast<float>(value.Real);
        m_Length = sizeof(m_Single);
        return {&m_Single, SQL_C_FLOAT, type, 0, 0};
    case EValueKind::Real:
        m_Real = value.Real;
        m_Length = sizeof(m_Real);
        return {&m_Real, SQL_C_DOUBLE, type, 0, 0};
    case EValueKind::Date:
        return takesDatesAsText ? StoreDateText(value, column) : StoreDate(value, column);
    case EValueKind::None:
    case EValueKind::Text:
    case EValueKind::Binary:
        break;
    }
    return StoreBytes(value, column);
}

CParameter::CBinding CParameter::StoreDate(const CDbValue& value, const CODBCFieldInfo& column)
{
    m_Date = value.Date;
    m_Length = sizeof(m_Date);
    const short digits = m_Date.fraction == 0 ? short{0} : TIMESTAMP_DIGITS;
    return {&m_Date, SQL_C_TYPE_TIMESTAMP, SentType(value, column), TIMESTAMP_SIZE, digits};
}

/// ISO 8601 as SQL writes it, only the part that the column holds; a fraction is written where
/// there is one.
CParameter::CBinding CParameter::StoreDateText(const CDbValue& value, const CODBCFieldInfo& column)
{
    const TIMESTAMP_STRUCT& date = value.Date;
    std::array<char, 64> day{};
    std::array<char, 64> time{};
    std::snprintf(day.data(), day.size(), "%04d-%02u-%02u", date.year, date.month, date.day);
    std::snprintf(time.data(), time.size(), "%02u:%02u:%02u", date.hour, date.minute, date.second);
    std::string text(column.m_nSQLType == SQL_TIME ? time.data() : day.data());
    if (column.m_nSQLType != SQL_TIME && column.m_nSQLType != SQL_DATE)
        text.append(" ").append(time.data());
    if (date.fraction != 0 && column.m_nSQLType != SQL_DATE)
    {
        std::snprintf(time.data(), time.size(), ".%03u", date.fraction / NANOSECONDS_A_MILLISECOND);
        text += time.data();
    }
    CDbValue written;
    written.Kind = EValueKind::Text;
    written.Bytes = text;
    return StoreBytes(written, {});
}

CParameter::CBinding CParameter::StoreBytes(const CDbValue& value, const CODBCFieldInfo& column)
{
    if (m_Bytes.capacity() < std::max(value.Bytes.size(), FIRST_ROOM))
        m_Bytes.reserve(std::max(value.Bytes.size() * 2, FIRST_ROOM));
    m_Bytes = value.Bytes;
    m_Length = static_cast<std::int64_t>(m_Bytes.size());
    const bool isBinary = value.Kind == EValueKind::Binary;
    const short type = SentType(value, column);
    const bool isExact = type == SQL_NUMERIC || type == SQL_DECIMAL;
    return {m_Bytes.data(), isBinary ? short{SQL_C_BINARY} : short{SQL_C_CHAR}, type,
            isExact ? column.m_nPrecision : m_Bytes.capacity(),
            isExact ? column.m_nScale : short{0}};
}

} // namespace utility
