#include "database/transfer/TypeMap.h"

#include "database/LowerCased.h"
#include "platform/base/NumberText.h"
#include "platform/db/DelimitName.h"
#include "platform/db/ODBCFieldInfo.h"

#include <algorithm>
#include <array>

namespace utility
{

namespace
{

constexpr std::uint32_t LONGEST_TOLD_TEXT =
    8190;                                        // of PostgreSQL's driver, for a text of any length
constexpr std::uint32_t ANY_DECIMAL_DIGITS = 28; // likewise for a number
constexpr short ANY_DECIMAL_SCALE = 6;
constexpr std::uint32_t SQLITE_EXACT_DIGITS = 15; // which a double keeps
constexpr std::uint32_t MARIADB_MOST_DIGITS = 65;
constexpr short MARIADB_MOST_SCALE = 30;
constexpr std::uint32_t MARIADB_LONGEST_VARCHAR = 255; // longer ones stand outside the row
constexpr std::uint32_t MARIADB_ROW_BYTES = 60'000;    // of 65,535, with room for what is no text
constexpr std::uint32_t MARIADB_CHARACTER_BYTES = 4;

// By ETransferType; an empty name is composed.
constexpr std::array<const char16_t*, 12> TYPE_NAMES[] = {
    {u"BOOLEAN", u"SMALLINT", u"INTEGER", u"BIGINT", u"", u"REAL", u"DOUBLE", u"DATE", u"TIME",
     u"TIMESTAMP", u"", u"BLOB"},
    {u"BOOLEAN", u"SMALLINT", u"INTEGER", u"BIGINT", u"", u"REAL", u"DOUBLE PRECISION", u"DATE",
     u"TIME", u"TIMESTAMP", u"", u"BYTEA"},
    // FLOAT of MariaDB is read with six digits, so that singles become doubles.
    {u"BOOLEAN", u"SMALLINT", u"INTEGER", u"BIGINT", u"", u"DOUBLE", u"DOUBLE", u"DATE", u"TIME(6)",
     u"DATETIME(6)", u"", u"LONGBLOB"},
    {u"SMALLINT", u"SMALLINT", u"INTEGER", u"BIGINT", u"", u"REAL", u"DOUBLE PRECISION", u"DATE",
     u"TIME", u"TIMESTAMP", u"", u"BLOB"},
};

ETransferType TypeOf(short sqlType)
{
    switch (sqlType)
    {
    case SQL_BIT:
        return ETransferType::Bit;
    case SQL_TINYINT:
    case SQL_SMALLINT:
        return ETransferType::Small;
    case SQL_INTEGER:
        return ETransferType::Integer;
    case SQL_BIGINT:
        return ETransferType::Big;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        return ETransferType::Decimal;
    case SQL_REAL:
        return ETransferType::Single;
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return ETransferType::Real;
    case SQL_DATE:
        return ETransferType::Date;
    case SQL_TIME:
        return ETransferType::Time;
    case SQL_TIMESTAMP:
        return ETransferType::Timestamp;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
        return ETransferType::Binary;
    default:
        return ETransferType::Text;
    }
}

ETransferType Wider(ETransferType type)
{
    switch (type)
    {
    case ETransferType::Small:
        return ETransferType::Integer;
    case ETransferType::Integer:
        return ETransferType::Big;
    default:
        return type;
    }
}

CString WithSize(const char16_t* name, std::uint32_t size)
{
    CString text;
    text.Format(u"%s(%u)", name, size);
    return text;
}

CString WithDigits(const char16_t* name, std::uint32_t digits, short scale)
{
    CString text;
    text.Format(u"%s(%u,%d)", name, digits, scale);
    return text;
}

// What a double does not keep stands in SQLite as a text; its column for numbers would round.
CString ComposeDecimal(ESourceKind target, const CTransferColumn& column)
{
    const std::uint32_t digits = column.Length;
    switch (target)
    {
    case ESourceKind::SQLite:
        if (digits == 0)
            return u"TEXT";
        return digits <= SQLITE_EXACT_DIGITS ? WithDigits(u"DECIMAL", digits, column.Scale)
                                             : WithSize(u"VARCHAR", digits + 2); // sign and point
    case ESourceKind::PostgreSQL:
        return digits == 0 ? CString(u"NUMERIC") : WithDigits(u"NUMERIC", digits, column.Scale);
    default:
        if (digits == 0 || digits > MARIADB_MOST_DIGITS || column.Scale > MARIADB_MOST_SCALE)
            return WithDigits(u"DECIMAL", MARIADB_MOST_DIGITS, MARIADB_MOST_SCALE);
        return WithDigits(u"DECIMAL", digits, column.Scale);
    }
}

bool IsInRow(const CTransferColumn& column)
{
    return column.Type == ETransferType::Text && column.Length > 0 &&
           column.Length <= MARIADB_LONGEST_VARCHAR;
}

CString ComposeText(ESourceKind target, const CTransferColumn& column, bool isRowTooLong)
{
    switch (target)
    {
    case ESourceKind::MariaDB:
        return IsInRow(column) && !isRowTooLong ? WithSize(u"VARCHAR", column.Length)
                                                : CString(u"LONGTEXT");
    case ESourceKind::Other:
        return column.Length > 0 ? WithSize(u"VARCHAR", column.Length) : CString(u"CLOB");
    default:
        return column.Length > 0 ? WithSize(u"VARCHAR", column.Length) : CString(u"TEXT");
    }
}

bool IsRowTooLong(const std::vector<CTransferColumn>& columns)
{
    std::uint64_t bytes = 0;
    for (const CTransferColumn& column : columns)
        bytes += IsInRow(column) ? column.Length * MARIADB_CHARACTER_BYTES : 0;
    return bytes > MARIADB_ROW_BYTES;
}

/// The numbers in the brackets of a declared type; false where there are none.
bool ReadSize(const CString& declared, std::uint32_t& length, short& scale)
{
    const int open = declared.Find(u'(');
    if (open < 0)
        return false;
    const int comma = declared.Find(u',', open);
    length = static_cast<std::uint32_t>(std::max(_wtoi(declared.Mid(open + 1)), 0));
    scale = comma < 0 ? short{0} : static_cast<short>(_wtoi(declared.Mid(comma + 1)));
    return length > 0;
}

} // namespace

CTransferColumn ReadColumn(ESourceKind source, const CODBCFieldInfo& info)
{
    CTransferColumn column;
    column.Name = info.m_strName;
    column.Type = TypeOf(info.m_nSQLType);
    column.IsNullable = info.m_nNullability != SQL_NO_NULLS;
    if (column.Type == ETransferType::Text && info.m_nPrecision < LONGEST_TOLD_TEXT)
        column.Length = info.m_nPrecision;
    if (column.Type != ETransferType::Decimal)
        return column;
    const bool isAny = source == ESourceKind::PostgreSQL &&
                       info.m_nPrecision == ANY_DECIMAL_DIGITS &&
                       info.m_nScale == ANY_DECIMAL_SCALE;
    column.Length = isAny ? 0 : info.m_nPrecision;
    column.Scale = isAny ? short{0} : info.m_nScale;
    return column;
}

CTransferColumn ReadDeclaredColumn(const CODBCFieldInfo& info, const CString& declared,
                                   bool isNullable)
{
    CTransferColumn column;
    column.Name = info.m_strName;
    column.Type = TypeOf(info.m_nSQLType);
    column.IsNullable = isNullable;
    const CString lower = LowerCased(declared);
    const bool isDecimal = lower.Find(u"dec") == 0 || lower.Find(u"numeric") == 0;
    std::uint32_t length = 0;
    short scale = 0;
    if (!ReadSize(declared, length, scale))
        return column;
    if (isDecimal)
        column.Type = ETransferType::Decimal;
    if (isDecimal || column.Type == ETransferType::Text)
        column.Length = length;
    column.Scale = isDecimal ? scale : short{0};
    return column;
}

std::vector<CTransferColumn> WidenColumns(ESourceKind source, ESourceKind target,
                                          std::vector<CTransferColumn> columns)
{
    if (target == ESourceKind::SQLite)
        return columns;
    for (CTransferColumn& column : columns)
    {
        if (source == ESourceKind::MariaDB)
            column.Type = Wider(column.Type);
        else if (source == ESourceKind::SQLite && IsWholeNumber(column.Type) &&
                 column.Type != ETransferType::Bit)
            column.Type = ETransferType::Big;
    }
    return columns;
}

CString ComposeColumnType(ESourceKind target, const CTransferColumn& column, bool isRowTooLong)
{
    if (column.Type == ETransferType::Decimal)
        return ComposeDecimal(target, column);
    if (column.Type == ETransferType::Text)
        return ComposeText(target, column, isRowTooLong);
    return TYPE_NAMES[static_cast<std::size_t>(target)][static_cast<std::size_t>(column.Type)];
}

CString ComposeCreateTable(ESourceKind target, const CString& table,
                           const std::vector<CTransferColumn>& columns)
{
    const bool isRowTooLong = IsRowTooLong(columns);
    CString list;
    for (const CTransferColumn& column : columns)
        list += (list.IsEmpty() ? u"" : u", ") + DelimitName(column.Name) + u" " +
                ComposeColumnType(target, column, isRowTooLong);
    return u"CREATE TABLE " + DelimitName(table) + u" (" + list + u")";
}

} // namespace utility
