#include "utility/db/stock/PassiveValue.h"

#include <algorithm>

namespace utility
{

namespace
{

/// The digits before and behind the point when the value is counted by the prefix of its own three
/// decades.
struct CPieces
{
    CString m_Whole;
    CString m_Fraction; // without zeros at the end
    int m_Prefix = 0;
};

CPieces CutValue(const CNominalValue& value)
{
    CString digits;
    digits.Format(u"%d", value.m_Digits);
    const int whole = value.m_Decade % 3 + 1;
    CPieces pieces{digits.Left(whole), digits.Mid(whole), value.m_Decade / 3};
    pieces.m_Fraction.TrimRight(u'0');
    return pieces;
}

CString WithPoint(const CPieces& pieces)
{
    return pieces.m_Fraction.IsEmpty() ? pieces.m_Whole : pieces.m_Whole + u"." + pieces.m_Fraction;
}

/// All digits of a resistor's value, without any letter.
CString InFull(const CPieces& pieces)
{
    if (pieces.m_Prefix == 0)
        return WithPoint(pieces);
    CString digits = pieces.m_Whole + pieces.m_Fraction;
    const int wanted = pieces.m_Whole.GetLength() + 3 * pieces.m_Prefix;
    return digits + CString(u'0', std::max(0, wanted - digits.GetLength()));
}

/// Counted by the next larger prefix: 0.1u for 100n.
CString InNextPrefix(const CPieces& pieces, char16_t prefix)
{
    CString digits =
        CString(u'0', 3 - pieces.m_Whole.GetLength()) + pieces.m_Whole + pieces.m_Fraction;
    digits.TrimRight(u'0');
    return u"0." + digits + CString(prefix);
}

CString CodeOf(const CPieces& pieces, const CValueLetters& letters)
{
    return pieces.m_Whole + CString(letters.m_Prefixes[pieces.m_Prefix]) + pieces.m_Fraction;
}

void AddResistorWays(const CPieces& pieces, const CString& letter, std::vector<CString>& ways)
{
    CString upper = letter;
    upper.MakeUpper();
    ways.push_back(WithPoint(pieces) + upper);
    if (pieces.m_Prefix < 2)
        ways.push_back(InFull(pieces));
    else
        ways.push_back(WithPoint(pieces) + letter);
}

} // namespace

CString FormatValueCode(const CNominalValue& value, const CValueLetters& letters)
{
    return CodeOf(CutValue(value), letters);
}

std::vector<CString> FormatValueWays(const CNominalValue& value, const CValueLetters& letters)
{
    const CPieces pieces = CutValue(value);
    const CString letter(letters.m_Prefixes[pieces.m_Prefix]);
    const char16_t next = letters.m_Prefixes[pieces.m_Prefix + 1];
    std::vector<CString> ways{CodeOf(pieces, letters)};
    if (*letters.m_Unit == 0)
    {
        AddResistorWays(pieces, letter, ways);
        return ways;
    }
    ways.push_back(WithPoint(pieces) + letter + letters.m_Unit);
    ways.push_back(WithPoint(pieces) + letter);
    if (next != 0 && pieces.m_Whole.GetLength() == 3)
        ways.push_back(InNextPrefix(pieces, next));
    return ways;
}

} // namespace utility
