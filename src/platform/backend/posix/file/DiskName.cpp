#include "platform/backend/posix/file/DiskPath.h"

#include <optional>

namespace utility
{

namespace
{

// A byte that is part of no character becomes this plus the byte: a lone low surrogate, which no
// sound text holds.
constexpr char16_t BYTE_MARK = 0xDC00;
// Characters that would read as part of a classic path stand this much higher, in the private-use
// area.
constexpr char16_t PRIVATE_MARK = 0xF000;

bool IsReserved(char16_t unit)
{
    return unit == u'\\' || unit == u':';
}

bool IsHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The character at the start of `bytes` and its length; none if the bytes there are no sound
/// UTF-8.
std::optional<char32_t> TakeCharacter(std::string_view bytes, std::size_t& length)
{
    const auto byteAt = [&](std::size_t index)
    {
        return static_cast<unsigned char>(bytes[index]);
    };
    const unsigned char lead = byteAt(0);
    length = lead < 0x80   ? 1
             : lead < 0xC2 ? 0
             : lead < 0xE0 ? 2
             : lead < 0xF0 ? 3
             : lead < 0xF5 ? 4
                           : 0;
    if (length == 0 || length > bytes.size())
        return std::nullopt;
    if (length == 1)
        return lead;

    char32_t character = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i)
    {
        if ((byteAt(i) & 0xC0U) != 0x80)
            return std::nullopt;
        character = character << 6U | (byteAt(i) & 0x3FU);
    }
    const bool isOverlong =
        (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (isOverlong || isSurrogate || character > 0x10FFFF)
        return std::nullopt;
    return character;
}

void AppendUnits(std::u16string& units, char32_t character)
{
    if (character >= 0x10000)
    {
        units += static_cast<char16_t>(0xD7C0 + (character >> 10U));
        units += static_cast<char16_t>(0xDC00 + (character & 0x3FFU));
    }
    else if (IsReserved(static_cast<char16_t>(character)))
        units += static_cast<char16_t>(PRIVATE_MARK + character);
    else
        units += static_cast<char16_t>(character);
}

void AppendBytes(std::string& bytes, char32_t character)
{
    const auto tail = [&](unsigned shift)
    {
        bytes += static_cast<char>(0x80U | (character >> shift & 0x3FU));
    };
    if (character < 0x80)
        bytes += static_cast<char>(character);
    else if (character < 0x800)
    {
        bytes += static_cast<char>(0xC0U | character >> 6U);
        tail(0);
    }
    else if (character < 0x10000)
    {
        bytes += static_cast<char>(0xE0U | character >> 12U);
        tail(6);
        tail(0);
    }
    else
    {
        bytes += static_cast<char>(0xF0U | character >> 18U);
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

std::u16string NameFromDisk(std::string_view name)
{
    std::u16string units;
    units.reserve(name.size());
    for (std::size_t i = 0; i < name.size();)
    {
        std::size_t length = 0;
        const std::optional<char32_t> character = TakeCharacter(name.substr(i), length);
        // A name that holds one of our own marks as a character is spelt in bytes, so that no two
        // names meet.
        const bool isOwnMark = character && *character > PRIVATE_MARK &&
                               *character < PRIVATE_MARK + 0x80U &&
                               IsReserved(static_cast<char16_t>(*character - PRIVATE_MARK));
        if (character && !isOwnMark)
        {
            AppendUnits(units, *character);
            i += length;
            continue;
        }
        for (const std::size_t end = i + (isOwnMark ? length : 1); i < end; ++i)
            units += static_cast<char16_t>(BYTE_MARK + static_cast<unsigned char>(name[i]));
    }
    return units;
}

std::string NameToDisk(std::u16string_view name)
{
    std::string bytes;
    bytes.reserve(name.size());
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        const char16_t unit = name[i];
        if (IsHighSurrogate(unit) && i + 1 < name.size() && IsLowSurrogate(name[i + 1]))
            AppendBytes(bytes, 0x10000U + ((unit - 0xD800U) << 10U) + (name[++i] - 0xDC00U));
        else if (unit >= BYTE_MARK + 0x80 && unit <= BYTE_MARK + 0xFF)
            bytes += static_cast<char>(unit - BYTE_MARK);
        else if (unit > PRIVATE_MARK && unit < PRIVATE_MARK + 0x80 &&
                 IsReserved(static_cast<char16_t>(unit - PRIVATE_MARK)))
            bytes += static_cast<char>(unit - PRIVATE_MARK);
        else if (IsHighSurrogate(unit) || IsLowSurrogate(unit))
            AppendBytes(bytes, 0xFFFD);
        else
            AppendBytes(bytes, unit);
    }
    return bytes;
}

} // namespace utility
