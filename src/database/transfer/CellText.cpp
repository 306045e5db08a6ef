#include "database/transfer/CellText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

namespace utility
{

namespace
{

constexpr std::int64_t MOST_EXPONENT = 400; // beyond that no source writes a number
constexpr std::size_t MOST_FRACTION = 9;    // digits of a second
constexpr std::string_view BEFORE_CHRIST = " BC";

bool IsDigit(char unit)
{
    return unit >= '0' && unit <= '9';
}

template <typename TNumber>
std::string FormatNumber(TNumber number)
{
    std::array<char, 64> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

/// Takes the digits at the front off the text.
std::string_view TakeDigits(std::string_view& text)
{
    const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
    const std::string_view digits = text.substr(0, end);
    text.remove_prefix(end);
    return digits;
}

bool Take(std::string_view& text, char unit)
{
    if (!text.starts_with(unit))
        return false;
    text.remove_prefix(1);
    return true;
}

// Numbers

bool ReadExponent(std::string_view text, std::int64_t& exponent)
{
    exponent = 0;
    if (text.empty())
        return true;
    if (!Take(text, 'e') && !Take(text, 'E'))
        return false;
    Take(text, '+');
    const auto read = std::from_chars(text.data(), text.data() + text.size(), exponent);
    return read.ec == std::errc() && read.ptr == text.data() + text.size() &&
           std::abs(exponent) <= MOST_EXPONENT;
}

bool FormatDecimal(std::string_view source, std::string& text)
{
    const bool isNegative = Take(source, '-');
    if (!isNegative)
        Take(source, '+');
    std::string digits(TakeDigits(source));
    const std::size_t whole = digits.size();
    if (Take(source, '.'))
        digits += TakeDigits(source);
    std::int64_t exponent = 0;
    if (digits.empty() || !ReadExponent(source, exponent))
        return false;
    std::int64_t point = static_cast<std::int64_t>(whole) + exponent; // digits before it
    if (point < 0)
    {
        digits.insert(0, static_cast<std::size_t>(-point), '0');
        point = 0;
    }
    if (point > static_cast<std::int64_t>(digits.size()))
        digits.append(static_cast<std::size_t>(point) - digits.size(), '0');
    const auto place = static_cast<std::size_t>(point);
    std::string_view integer = std::string_view(digits).substr(0, place);
    std::string_view fraction = std::string_view(digits).substr(place);
    integer.remove_prefix(std::min(integer.find_first_not_of('0'), integer.size()));
    fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);
    const bool isZero = integer.empty() && fraction.empty();
    text = isNegative && !isZero ? "-" : "";
    text += integer.empty() ? "0" : integer;
    if (!fraction.empty())
        text.append(".").append(fraction);
    return true;
}

bool FormatReal(const CDbValue& value, std::string& text)
{
    double number = value.Real;
    if (value.Kind == EValueKind::Integer)
        number = static_cast<double>(value.Integer);
    else if (value.Kind == EValueKind::Text)
    {
        const char* const end = value.Bytes.data() + value.Bytes.size();
        const auto read = std::from_chars(value.Bytes.data(), end, number);
        if (read.ec != std::errc() || read.ptr != end)
            return false;
    }
    text = FormatNumber(number == 0 ? 0.0 : number); // -0 comes back as 0 from some
    return true;
}

// Dates

int DaysOfMonth(std::int64_t year, int month)
{
    constexpr int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && isLeap ? 29 : DAYS[month - 1];
}

bool TakePair(std::string_view& text, int& number)
{
    if (text.size() < 2 || !IsDigit(text[0]) || !IsDigit(text[1]))
        return false;
    number = (text[0] - '0') * 10 + (text[1] - '0');
    text.remove_prefix(2);
    return true;
}

bool TakeDate(std::string_view& text, bool isBeforeChrist, std::string& date)
{
    const std::string_view digits = TakeDigits(text);
    std::int64_t year = 0;
    int month = 0;
    int day = 0;
    const bool isRead = digits.size() >= 4 && digits.size() <= MOST_FRACTION && Take(text, '-') &&
                        TakePair(text, month) && Take(text, '-') && TakePair(text, day);
    std::from_chars(digits.data(), digits.data() + digits.size(), year);
    if (!isRead || year == 0 || month < 1 || month > 12 || day < 1 ||
        day > DaysOfMonth(isBeforeChrist ? 1 - year : year, month))
        return false;
    date = digits;
    date += {'-', static_cast<char>('0' + month / 10), static_cast<char>('0' + month % 10),
             '-', static_cast<char>('0' + day / 10),   static_cast<char>('0' + day % 10)};
    return true;
}

/// "12:30:45.5"; a span of time may have more hours than a day, or a sign.
bool FormatTime(std::string_view source, bool isSpan, std::string& text)
{
    const bool isNegative = isSpan && Take(source, '-');
    const std::string_view hours = TakeDigits(source);
    int minute = 0;
    int second = 0;
    if (hours.size() < 2 || hours.size() > 3 || !Take(source, ':') || !TakePair(source, minute) ||
        minute > 59 || (Take(source, ':') && (!TakePair(source, second) || second > 59)))
        return false;
    int hour = 0;
    std::from_chars(hours.data(), hours.data() + hours.size(), hour);
    std::string_view fraction;
    if (Take(source, '.'))
        fraction = TakeDigits(source);
    if (!source.empty() || fraction.size() > MOST_FRACTION || (!isSpan && hour > 23))
        return false;
    fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);
    text = isNegative ? "-" : "";
    text += hours;
    text += {':', static_cast<char>('0' + minute / 10), static_cast<char>('0' + minute % 10),
             ':', static_cast<char>('0' + second / 10), static_cast<char>('0' + second % 10)};
    if (!fraction.empty())
        text.append(".").append(fraction);
    return true;
}

bool FormatTimestamp(std::string_view source, bool hasTime, std::string& text)
{
    const bool isBeforeChrist = source.ends_with(BEFORE_CHRIST);
    if (isBeforeChrist)
        source.remove_suffix(BEFORE_CHRIST.size());
    std::string date;
    std::string time = "00:00:00";
    if (!TakeDate(source, isBeforeChrist, date))
        return false;
    if (!source.empty() &&
        ((!Take(source, ' ') && !Take(source, 'T')) || !FormatTime(source, false, time)))
        return false;
    if (!hasTime && time != "00:00:00")
        return false; // more than the column is for
    text = hasTime ? date + " " + time : date;
    if (isBeforeChrist)
        text += BEFORE_CHRIST;
    return true;
}

} // namespace

bool MakeCellText(ETransferType type, const CDbValue& value, std::string& text)
{
    if (IsReal(type))
        return FormatReal(value, text);
    if (value.Kind == EValueKind::Integer)
    {
        text = FormatNumber(value.Integer);
        return true;
    }
    if (value.Kind == EValueKind::Real)
        text = FormatNumber(value.Real);
    else
        text = value.Bytes;
    if (IsWholeNumber(type) || type == ETransferType::Decimal)
        return FormatDecimal(std::string(text), text);
    if (type == ETransferType::Time)
        return FormatTime(std::string(text), true, text);
    if (IsDateOrTime(type))
        return FormatTimestamp(std::string(text), type == ETransferType::Timestamp, text);
    return true;
}

std::int64_t YearOf(std::string_view date)
{
    std::int64_t year = 0;
    std::from_chars(date.data(), date.data() + date.size(), year);
    return date.ends_with(BEFORE_CHRIST) ? 1 - year : year;
}

std::int64_t CountCharacters(std::string_view bytes)
{
    std::int64_t count = 0;
    for (std::size_t place = 0; place < bytes.size(); ++count)
    {
        const auto lead = static_cast<unsigned char>(bytes[place]);
        if (lead < 0x80)
        {
            ++place;
            continue;
        }
        const std::size_t length = lead < 0xC2   ? 0
                                   : lead < 0xE0 ? 2
                                   : lead < 0xF0 ? 3
                                   : lead < 0xF5 ? 4
                                                 : 0;
        if (length == 0 || place + length > bytes.size())
            return -1;
        std::uint32_t code = lead & (0xFFU >> (length + 1));
        for (std::size_t index = 1; index < length; ++index)
        {
            const auto next = static_cast<unsigned char>(bytes[place + index]);
            if ((next & 0xC0) != 0x80)
                return -1;
            code = code << 6U | (next & 0x3FU);
        }
        constexpr std::uint32_t LEAST[] = {0, 0, 0x80, 0x800, 0x10000};
        if (code < LEAST[length] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
            return -1;
        place += length;
    }
    return count;
}

} // namespace utility
