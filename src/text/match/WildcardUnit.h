#pragma once

#include "platform/base/CharacterClass.h"
#include "platform/base/Types.h"

#include <array>

namespace utility
{

/// Classes of a text's units, as bits, by which most places of a pattern refuse at a glance.
constexpr BYTE UNIT_UPPER = 0x01;
constexpr BYTE UNIT_LOWER = 0x02;
constexpr BYTE UNIT_DIGIT = 0x04;
constexpr BYTE UNIT_POINT = 0x08; // the separators of numbers
constexpr BYTE UNIT_OTHER = 0x10;
constexpr BYTE UNIT_END = 0x20; // the text's end

constexpr BYTE UNIT_LETTER = UNIT_UPPER | UNIT_LOWER;
constexpr BYTE UNIT_ANY = UNIT_LETTER | UNIT_DIGIT | UNIT_POINT | UNIT_OTHER;

namespace units
{

inline constexpr std::array<BYTE, 128> WILDCARD_CLASSES = []
{
    std::array<BYTE, 128> classes{};
    for (char16_t unit = 1; unit < classes.size(); ++unit)
    {
        const bool isPoint = unit == u'.' || unit == u',';
        classes[unit] = IsUpper(unit)   ? UNIT_UPPER
                        : IsLower(unit) ? UNIT_LOWER
                        : IsDigit(unit) ? UNIT_DIGIT
                        : isPoint       ? UNIT_POINT
                                        : UNIT_OTHER;
    }
    classes[0] = UNIT_END;
    return classes;
}();

} // namespace units

constexpr BYTE GetUnitClass(char16_t unit)
{
    return unit < units::WILDCARD_CLASSES.size() ? units::WILDCARD_CLASSES[unit] : UNIT_OTHER;
}

} // namespace utility
