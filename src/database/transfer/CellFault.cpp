#include "database/transfer/CellFault.h"

#include "database/transfer/CellText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace utility
{

namespace
{

constexpr std::size_t TIME_DIGITS = 6; // of a second: what PostgreSQL and MariaDB keep
constexpr std::size_t SQLITE_EXACT_DIGITS = 15;
constexpr std::int64_t LAST_COMMON_YEAR = 9999;

ECellFault FindBadDate(std::string_view text)
{
    if (text.find("infinity") != std::string_view::npos)
        return ECellFault::Infinity;
    const bool isZero = text.starts_with("0000-") || text.find("-00") != std::string_view::npos;
    return isZero ? ECellFault::ZeroDate : ECellFault::NoValue;
}

bool IsFarYear(std::string_view date)
{
    const std::int64_t year = YearOf(date);
    return year < 1 || year > LAST_COMMON_YEAR;
}

bool IsIn64Bits(std::string_view digits)
{
    std::int64_t number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return read.ec == std::errc();
}

ECellFault FindOddText(std::string_view bytes)
{
    if (bytes.find('\0') != std::string_view::npos)
        return ECellFault::NulInText;
    return CountCharacters(bytes) < 0 ? ECellFault::BadUtf8 : ECellFault::None;
}

/// Decimals of PostgreSQL may be "NaN" and "Infinity".
ECellFault FindBadNumber(std::string_view text)
{
    return text == "NaN" || text.ends_with("Infinity") ? ECellFault::Infinity : ECellFault::NoValue;
}

/// What no target can take.
ECellFault FindFault(const CTransferColumn& column, const CDbValue& value, std::string& text)
{
    if (column.Type == ETransferType::Text)
    {
        text = value.Bytes;
        return FindOddText(value.Bytes);
    }
    if (MakeCellText(column.Type, value, text))
        return ECellFault::None;
    return IsDateOrTime(column.Type) ? FindBadDate(text) : FindBadNumber(text);
}

bool HasFractionBeyond(std::string_view text, std::size_t digits)
{
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos)
        return false;
    const std::string_view fraction = text.substr(point + 1);
    return std::min(fraction.find_first_not_of("0123456789"), fraction.size()) > digits;
}

bool HasDigitsBeyond(std::string_view text, const CTransferColumn& to)
{
    const std::size_t start = text.starts_with('-') ? 1 : 0;
    const std::size_t whole = std::min(text.find('.'), text.size()) - start;
    const bool isZero = text.substr(start, whole) == "0";
    return (!isZero && whole + static_cast<std::size_t>(to.Scale) > to.Length) ||
           HasFractionBeyond(text, static_cast<std::size_t>(to.Scale));
}

std::size_t CountSignificant(std::string_view text)
{
    const auto digits = static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char unit) { return unit >= '0' && unit <= '9'; }));
    const std::size_t first = std::min(text.find_first_of("123456789"), text.size());
    const auto zeros = static_cast<std::size_t>(
        std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(first), '0'));
    return digits - zeros;
}

ECellFault FindDateMisfit(ESourceKind target, const CTransferColumn& to, std::string_view text)
{
    if (to.Type != ETransferType::Text && target != ESourceKind::SQLite &&
        HasFractionBeyond(text, TIME_DIGITS))
        return ECellFault::TooManyDigits;
    const bool isDate = to.Type == ETransferType::Date || to.Type == ETransferType::Timestamp;
    return isDate && target != ESourceKind::PostgreSQL && IsFarYear(text) ? ECellFault::FarDate
                                                                          : ECellFault::None;
}

ECellFault FindDecimalMisfit(ESourceKind target, const CTransferColumn& to, std::string_view text)
{
    if (to.Type != ETransferType::Decimal)
        return ECellFault::None;
    if (target == ESourceKind::SQLite)
        return CountSignificant(text) > SQLITE_EXACT_DIGITS ? ECellFault::TooManyDigits
                                                            : ECellFault::None;
    return to.Length > 0 && HasDigitsBeyond(text, to) ? ECellFault::TooManyDigits
                                                      : ECellFault::None;
}

} // namespace

ECellFault FindOddCell(const CTransferColumn& column, const CDbValue& value)
{
    if (value.IsNull || column.Type == ETransferType::Binary)
        return ECellFault::None;
    if (value.Kind == EValueKind::Real)
        return std::isfinite(value.Real) ? ECellFault::None : ECellFault::Infinity;
    if (column.Type == ETransferType::Integer && value.Kind == EValueKind::Integer)
        return value.Integer < INT32_MIN || value.Integer > INT32_MAX ? ECellFault::BeyondRange
                                                                      : ECellFault::None;
    std::string text;
    const ECellFault fault = FindFault(column, value, text);
    if (fault != ECellFault::None)
        return fault;
    const bool isDate =
        column.Type == ETransferType::Date || column.Type == ETransferType::Timestamp;
    return isDate && IsFarYear(text) ? ECellFault::FarDate : ECellFault::None;
}

ECellFault FindMisfit(ESourceKind target, const CTransferColumn& to, const CTransferColumn& from,
                      const CDbValue& value)
{
    if (value.IsNull)
        return to.IsNullable ? ECellFault::None : ECellFault::Null;
    if (from.Type == ETransferType::Binary)
        return ECellFault::None;
    if (value.Kind == EValueKind::Real)
        return target == ESourceKind::PostgreSQL || std::isfinite(value.Real)
                   ? ECellFault::None
                   : ECellFault::Infinity;
    std::string text;
    const ECellFault fault = FindFault(from, value, text);
    if (fault != ECellFault::None)
        return fault;
    if (to.Type == ETransferType::Text && to.Length > 0 && target != ESourceKind::SQLite &&
        CountCharacters(text) > static_cast<std::int64_t>(to.Length))
        return ECellFault::TooLong;
    if (IsDateOrTime(from.Type))
        return FindDateMisfit(target, to, text);
    if (from.Type == ETransferType::Decimal)
        return FindDecimalMisfit(target, to, text);
    if (target == ESourceKind::SQLite && from.Type == ETransferType::Big && !IsIn64Bits(text))
        return ECellFault::BeyondRange;
    return ECellFault::None;
}

} // namespace utility
