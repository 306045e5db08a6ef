#include "frame/AppError.h"
#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "resources/StringIds.h"
#include "text/numbers/Expression.h"
#include "text/numbers/LengthUnit.h"

#include <algorithm>

namespace utility
{

namespace
{

bool FitsName(std::u16string_view text, std::u16string_view name)
{
    if (text.size() > name.size() || (text.size() == 1 && name.size() != 1))
        return false;
    return std::equal(text.begin(), text.end(), name.begin(),
                      [](char16_t left, char16_t right)
                      { return ToUpper(left) == ToUpper(right); });
}

void SkipSpace(const CString& text, int& index)
{
    while (index < text.GetLength() && IsSpace(text[index]))
        ++index;
}

CString TakeWord(const CString& text, int& index)
{
    const int start = index;
    while (index < text.GetLength() && (IsAlpha(text[index]) || text[index] == u'"'))
        ++index;
    return text.Mid(start, index - start);
}

/// No word fits, too; `fits` then stays false.
bool ReadUnit(const CString& word, EBaseLengthUnit& unit, bool& fits)
{
    fits = false;
    if (word.IsEmpty())
        return true;
    fits = CLengthUnit::MatchBaseUnit(word, unit);
    if (!fits)
        CAppError::SetLastError(IDS_BAD_LENGTH_UNIT, word);
    return fits;
}

bool RefuseNumber(const CString& text)
{
    CAppError::SetLastError(IDS_BAD_NUMBER, text);
    return false;
}

} // namespace

bool CLengthUnit::MatchBaseUnit(const CString& text, EBaseLengthUnit& unit)
{
    // All rows, on purpose: the last that fits wins, so that "mi" is mils and not micron.
    bool found = false;
    for (const CLengthUnitRow& row : GetLengthUnitRows())
    {
        if (FitsName(text.View(), row.m_ShortName) || FitsName(text.View(), row.m_Name))
        {
            unit = row.m_Unit;
            found = true;
        }
    }
    return found;
}

bool CLengthUnit::ReadLengthValue(CString& text, double& value1, EBaseLengthUnit& unit1,
                                  double& value2, EBaseLengthUnit& unit2, char16_t decimalChar)
{
    value1 = value2 = 0;
    unit1 = unit2 = EBaseLengthUnit::NoUnit;
    const int length = text.GetLength();
    int resume = EvaluateExpression(value1, text, 0, decimalChar, false);
    if (resume == 0)
        return RefuseNumber(text);

    bool fits = false;
    if (resume < length)
    {
        int index = resume;
        if (text[index] == u'-' || text[index] == u'+')
            ++index;
        SkipSpace(text, index);
        if (!ReadUnit(TakeWord(text, index), unit1, fits))
            return false;
        if (fits)
            resume = index; // otherwise a sign is read again, with its number
    }
    SkipSpace(text, resume);
    if (resume < length)
    {
        // On purpose into the first value: a second number replaces the first.
        int index = EvaluateExpression(value1, text, resume, decimalChar, false);
        if (index > resume)
        {
            SkipSpace(text, index);
            if (!ReadUnit(TakeWord(text, index), unit2, fits))
                return false;
            SkipSpace(text, index);
        }
        resume = index;
    }
    return resume == length || RefuseNumber(text);
}

bool CLengthUnit::ReadLengthValue(const CLengthUnit& target, const CLengthUnit& input,
                                  CString& text, double& value)
{
    double value1 = 0;
    double value2 = 0;
    EBaseLengthUnit unit1 = EBaseLengthUnit::NoUnit;
    EBaseLengthUnit unit2 = EBaseLengthUnit::NoUnit;
    if (!ReadLengthValue(text, value1, unit1, value2, unit2, input.m_DecimalChar))
        return false;

    const auto inTarget = [&](double number, EBaseLengthUnit unit)
    {
        if (unit == EBaseLengthUnit::NoUnit)
            return target.Convert(number, input);
        return target.Convert(number, CLengthUnit(unit, 1.0, false, true));
    };
    double sum = value2 != 0 ? inTarget(value2, unit2) : 0;
    sum += inTarget(value1, unit1);
    value = sum;
    return true;
}

} // namespace utility
