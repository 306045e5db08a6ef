#include "text/match/WildcardItems.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "text/numbers/LengthUnitTable.h"
#include "text/numbers/SIUnit.h"

namespace utility
{

bool IsWildItemUnit(char16_t item, char16_t unit)
{
    switch (item)
    {
    case u'c':
    case u'a':
        return IsAlpha(unit);
    case u'C':
    case u'A':
        return IsUpper(unit);
    case u's':
        return IsAlnum(unit);
    case u'S':
        return IsUpper(unit) || IsDigit(unit);
    case u'd':
    case u'D':
    case u'i':
    case u'I':
    case u'f':
    case u'F':
        return IsDigit(unit);
    default:
        return false;
    }
}

bool IsWildSeparator(char16_t item, char16_t unit)
{
    return (item == u'f' || item == u'F') && (unit == u'.' || unit == u',');
}

bool IsWildPrefix(char16_t unit, bool capital)
{
    for (const CSIPrefix& prefix : GetSIPrefixes())
    {
        const bool isCapital =
            capital && IsLower(prefix.m_Character) && ToUpper(prefix.m_Character) == unit;
        if (prefix.m_Character == unit || isCapital)
            return prefix.m_Exponent != 0;
    }
    return false;
}

std::u16string_view GetWildUnitName(std::uint8_t index)
{
    const CLengthUnitRow& row = GetLengthUnitRows()[index / 2];
    return index % 2 == 0 ? row.m_Name : row.m_ShortName;
}

} // namespace utility
