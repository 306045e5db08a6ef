#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

#include <span>

namespace utility
{

/// The base units of length; the values stand in files.
enum class EBaseLengthUnit
{
    Inch = 0,
    Thou = 1,
    Metre = 2,
    Millimetre = 3,
    Micron = 4,
    Centimetre = 5,
    Mils = 6,
    NoUnit = 7
};

/// One base unit.
///
/// The names stand here, too, and not in the message table alone: patterns and typed lengths read
/// alike in every language, whatever texts a host adds under the ids.
struct CLengthUnitRow
{
    EBaseLengthUnit m_Unit;
    UINT m_NameId;
    const char16_t* m_Name;
    UINT m_ShortNameId;
    const char16_t* m_ShortName;
    bool m_Metric;
    double m_Length; // in tenths of a micrometre: the measure of all conversion
};

/// The seven rows, in the order of their values.
UTILITY_CORE_API std::span<const CLengthUnitRow> GetLengthUnitRows();

} // namespace utility
