#include "database/DBFieldRules.h"

#include "database/ValueText.h"
#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "resources/StringIds.h"

namespace utility
{

namespace
{

constexpr int NOT_SUITED = 1;
constexpr int SUITED = 2;

bool IsCapacitive(int type)
{
    return type == PARSE_CAPACITOR || type == PARSE_INDUCTOR;
}

// F and H are real units where the type takes them; elsewhere such a letter is a multiplier that is
// none.
bool IsRealUnit(char16_t unit, int type)
{
    const char16_t upper = ToUpper(unit);
    return (upper == u'F' && (type == PARSE_ANY || type == PARSE_CAPACITOR)) ||
           (upper == u'H' && (type == PARSE_ANY || type == PARSE_INDUCTOR));
}

int ApplyRealUnit(char16_t multiplier, double& value)
{
    const double scale = ValueScale(multiplier, true);
    if (scale != 0)
        value /= scale;
    return scale != 0 || multiplier == 0 ? SUITED : NOT_SUITED;
}

int ApplyMultiplier(char16_t letter, int type, double& value)
{
    const double scale = ValueScale(letter, IsCapacitive(type));
    if (scale != 0)
    {
        value /= scale;
        return IsCapacitive(type) || type == PARSE_ANY ? SUITED : NOT_SUITED;
    }
    const char16_t upper = ToUpper(letter);
    if (upper == u'K')
        value *= 1e3;
    else if (upper == u'M')
        value *= 1e6;
    else if (upper != u'R')
        return type == PARSE_ANY ? SUITED : NOT_SUITED;
    return type == PARSE_RESISTOR || type == PARSE_ANY ? SUITED : NOT_SUITED;
}

bool HoldsDigit(std::u16string_view text)
{
    return std::any_of(text.begin(), text.end(), IsDigit);
}

CString Letter(char16_t unit)
{
    return unit == 0 ? CString() : CString(unit);
}

} // namespace

CString CDBFieldRules::GetParseTypeString(int type)
{
    static constexpr UINT ids[] = {IDS_PARSE_CAPACITOR, IDS_PARSE_RESISTOR, IDS_PARSE_INDUCTOR,
                                   IDS_PARSE_ANY, IDS_PARSE_NUMBER};
    CString text;
    if (type >= PARSE_CAPACITOR && type <= PARSE_NUMBER)
        text.LoadString(ids[type - PARSE_CAPACITOR]);
    return text;
}

int CDBFieldRules::GetParseType(const CString& text)
{
    for (int type = PARSE_NONE; type <= PARSE_NUMBER; ++type)
        if (GetParseTypeString(type).CompareNoCase(text) == 0)
            return type;
    return -1;
}

int CDBFieldRules::GetNumericValue(std::u16string_view text, double& value, char16_t& multiplier,
                                   char16_t& unit, int type)
{
    multiplier = 0;
    unit = 0;
    if (!HoldsDigit(text))
        return 0;
    if (IsCapacitive(type) || type == PARSE_ANY)
        if (const std::optional<double> code = ReadShortValueCode(text, IsCapacitive(type)))
            return value = *code, SUITED;

    CValueText pieces;
    if (!SplitValueText(text, pieces))
        return 0;
    multiplier = pieces.m_Multiplier;
    unit = pieces.m_Unit;
    value = static_cast<double>(pieces.m_Whole) + pieces.m_Fraction;
    if (unit == 0 || type == PARSE_NUMBER)
        return SUITED;
    return IsRealUnit(unit, type) ? ApplyRealUnit(multiplier, value)
                                  : ApplyMultiplier(unit, type, value);
}

int CDBFieldRules::GetNumericValue(const CString& text, double& value, CString& multiplier,
                                   CString& unit, int type)
{
    char16_t multiplierLetter = 0;
    char16_t unitLetter = 0;
    const int result = GetNumericValue(text.View(), value, multiplierLetter, unitLetter, type);
    multiplier = Letter(multiplierLetter);
    unit = Letter(unitLetter);
    return result;
}

int CDBFieldRules::GetNumericValue(const CString& text, double& value, int type)
{
    char16_t multiplier = 0;
    char16_t unit = 0;
    return GetNumericValue(text.View(), value, multiplier, unit, type);
}

} // namespace utility
