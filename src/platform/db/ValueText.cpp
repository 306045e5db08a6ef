#include "platform/db/ValueText.h"

#include "platform/base/Encoding.h"
#include "platform/base/NumberText.h"
#include "platform/base/time/OleDateTime.h"

#include <array>
#include <charconv>

namespace utility
{

namespace
{

constexpr std::size_t LONGEST_PLAIN_NUMBER =
    400; // the smallest double has 324 places before its last digit

template <typename TNumber, typename... TForm>
CString FormatNumber(TNumber number, TForm... form)
{
    std::array<char, LONGEST_PLAIN_NUMBER> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, form...).ptr;
    return FromUtf8({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

CString FormatDate(const TIMESTAMP_STRUCT& date)
{
    COleDateTime time;
    time.SetDateTime(date.year, date.month, date.day, date.hour, date.minute, date.second);
    return time.Format();
}

CString FormatBytes(std::string_view bytes)
{
    CString text;
    char16_t* const units = text.GetBufferSetLength(static_cast<int>(bytes.size()));
    for (std::size_t index = 0; index < bytes.size(); ++index)
        units[index] = static_cast<unsigned char>(bytes[index]);
    text.ReleaseBuffer(static_cast<int>(bytes.size()));
    return text;
}

} // namespace

CString FormatValue(const CDbValue& value)
{
    if (value.IsNull)
        return {};
    switch (value.Kind)
    {
    case EValueKind::None:
        return {};
    case EValueKind::Bit:
    case EValueKind::Integer:
        return FormatNumber(value.Integer);
    case EValueKind::Single:
        return FormatNumber(static_cast<float>(value.Real), std::chars_format::fixed);
    case EValueKind::Real:
        return FormatNumber(value.Real, std::chars_format::fixed);
    case EValueKind::Date:
        return FormatDate(value.Date);
    case EValueKind::Text:
        return FromUtf8(value.Bytes);
    case EValueKind::Binary:
        return FormatBytes(value.Bytes);
    }
    return {};
}

bool ConvertToInteger(const CDbValue& value, std::int64_t& number)
{
    switch (value.Kind)
    {
    case EValueKind::Bit:
    case EValueKind::Integer:
        number = value.Integer;
        return true;
    case EValueKind::Single:
    case EValueKind::Real:
        // Beyond what 64 bits hold is beyond 32 bits as well, which is what the caller asks next.
        number = value.Real > -9e18 && value.Real < 9e18 ? static_cast<std::int64_t>(value.Real)
                                                         : INT64_MAX;
        return true;
    case EValueKind::Text:
        number = _wtoi64(FromUtf8(value.Bytes));
        return true;
    default:
        return false;
    }
}

bool ConvertToReal(const CDbValue& value, double& number)
{
    switch (value.Kind)
    {
    case EValueKind::Bit:
    case EValueKind::Integer:
        number = static_cast<double>(value.Integer);
        return true;
    case EValueKind::Single:
    case EValueKind::Real:
        number = value.Real;
        return true;
    case EValueKind::Text:
        number = _wtof(FromUtf8(value.Bytes));
        return true;
    default:
        return false;
    }
}

} // namespace utility
