#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

/// Loops over runs of units, quicker than those that the standard library has for 16-bit units.
namespace utility::units
{

constexpr std::size_t NOT_FOUND = static_cast<std::size_t>(-1);

/// Units before the terminator; 0 for a null pointer.
inline std::size_t Length(const char16_t* text) noexcept
{
    if (!text)
        return 0;
    const char16_t* end = text;
    while (*end)
        ++end;
    return static_cast<std::size_t>(end - text);
}

/// The text before the terminator; a null pointer is the empty text.
inline std::u16string_view View(const char16_t* text) noexcept
{
    return {text, Length(text)};
}

inline bool Equal(const char16_t* left, const char16_t* right, std::size_t length) noexcept
{
    return length == 0 || std::memcmp(left, right, length * sizeof(char16_t)) == 0;
}

/// Units that both texts begin with. Four units a step.
inline std::size_t CommonLength(std::u16string_view left, std::u16string_view right) noexcept
{
    const std::size_t length = left.size() < right.size() ? left.size() : right.size();
    std::size_t common = 0;
    for (; length - common >= 4; common += 4)
        if (std::memcmp(left.data() + common, right.data() + common, 4 * sizeof(char16_t)) != 0)
            break;
    while (common < length && left[common] == right[common])
        ++common;
    return common;
}

/// First place of the unit, or NOT_FOUND. Four units a step.
inline std::size_t Find(std::u16string_view text, char16_t unit) noexcept
{
    constexpr std::uint64_t LOW_BITS = 0x0001000100010001U;
    constexpr std::uint64_t HIGH_BITS = 0x8000800080008000U;
    const std::uint64_t wanted = LOW_BITS * unit;
    const char16_t* place = text.data();
    const char16_t* const end = place + text.size();

    for (; end - place >= 4; place += 4)
    {
        std::uint64_t block;
        std::memcpy(&block, place, sizeof(block));
        block ^= wanted;
        if ((block - LOW_BITS) & ~block & HIGH_BITS)
            break; // one of the four is the wanted one
    }
    for (; place != end; ++place)
        if (*place == unit)
            return static_cast<std::size_t>(place - text.data());
    return NOT_FOUND;
}

/// First place of the wanted text from `start` on, or NOT_FOUND; the empty text is found at once.
inline std::size_t Find(std::u16string_view text, std::u16string_view wanted,
                        std::size_t start) noexcept
{
    if (start > text.size() || wanted.size() > text.size() - start)
        return NOT_FOUND;
    if (wanted.empty())
        return start;

    const std::size_t last = text.size() - wanted.size();
    while (start <= last)
    {
        const std::size_t step = Find(text.substr(start, last - start + 1), wanted.front());
        if (step == NOT_FOUND)
            return NOT_FOUND;
        start += step;
        if (Equal(text.data() + start + 1, wanted.data() + 1, wanted.size() - 1))
            return start;
        ++start;
    }
    return NOT_FOUND;
}

/// Whether the unit is one of the set's; sets are a few units long.
inline bool IsOneOf(char16_t unit, std::u16string_view set) noexcept
{
    for (const char16_t member : set)
        if (member == unit)
            return true;
    return false;
}

} // namespace utility::units
