#include "text/match/WildcardItems.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "text/numbers/LengthUnitTable.h"
#include "text/numbers/SIUnit.h"

namespace utility
{

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
