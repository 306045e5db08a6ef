#include "text/names/NameParts.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/String.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace utility
{

namespace
{

constexpr std::size_t NUMBER_DIGITS = 10; // of the largest number
constexpr int NO_NUMBER = std::numeric_limits<int>::max();

} // namespace

CNameParts ReadNameParts(std::u16string_view name)
{
    CNameParts parts;
    parts.m_Stem = name;
    std::size_t end = name.size();
    while (end > 1 && !IsDigit(name[end - 1]))
        --end;
    if (end <= 1)
        return parts;
    std::size_t start = end - 1;
    while (start > 0 && IsDigit(name[start - 1]))
        --start;
    const std::u16string_view digits = name.substr(start, end - start);
    const int number = ReadDigits(digits);
    if (number == NO_NUMBER)
        return parts;
    return {name.substr(0, start), digits, name.substr(end), number};
}

int ReadDigits(std::u16string_view digits)
{
    std::int64_t number = 0;
    for (const char16_t digit : digits)
    {
        number = number * 10 + (digit - u'0');
        if (number >= NO_NUMBER)
            return NO_NUMBER;
    }
    return static_cast<int>(number);
}

void AppendNumber(CString& text, int number, int width)
{
    std::array<char, NUMBER_DIGITS + 1> digits;
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const auto count = static_cast<int>(end - digits.data());
    if (width > count)
        text += CString(u'0', width - count);
    for (const char* digit = digits.data(); digit != end; ++digit)
        text += static_cast<char16_t>(*digit);
}

bool IsPrintedAt(std::u16string_view digits, int width)
{
    const auto least = static_cast<std::size_t>(width);
    return digits.size() == least || (digits.size() > least && digits.front() != u'0');
}

bool IsSameName(std::u16string_view left, std::u16string_view right, bool caseSensitive)
{
    return left.size() == right.size() &&
           (caseSensitive ? left == right : EqualNoCase(left, right));
}

std::u16string_view CutBlanks(std::u16string_view text)
{
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

std::u16string_view TrimEntry(std::u16string_view text)
{
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

} // namespace utility
