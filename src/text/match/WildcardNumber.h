#pragma once

#include "text/match/WildcardUnit.h"

#include <cstdint>
#include <vector>

namespace utility
{

/// A number of a text as it is written: digits, then perhaps a separator and more digits.
struct CWrittenNumber
{
    std::uint32_t m_End = 0;
    std::uint32_t m_Leading = 0; // first digit that is not 0, or the end; unless whole
    int m_Exponent = 0;          // decimal, of that digit; unless whole
    std::int32_t m_Whole = -1;   // the number, if it is whole and has few digits
};

/// Finds the numbers of a zero-terminated text, which must outlive the object.
///
/// Remembers where long runs of digits end, so that reading one from each of its places stays
/// cheap.
class CNumberFinder
{
public:
    explicit CNumberFinder(const char16_t* text) : m_Text(text) {}

    /// Nothing stands there if the end is the place itself.
    CWrittenNumber Find(std::uint32_t first)
    {
        CWrittenNumber number{first, 0, 0, 0};
        for (; number.m_End - first < WHOLE_DIGITS && IsDigit(m_Text[number.m_End]); ++number.m_End)
            number.m_Whole = number.m_Whole * 10 + (m_Text[number.m_End] - u'0');
        const bool goesOn = (GetUnitClass(m_Text[number.m_End]) & (UNIT_DIGIT | UNIT_POINT)) != 0;
        return goesOn ? FindLong(first) : number;
    }

    /// The nearest double; the largest where the number is too large for one.
    double GetValue(const CWrittenNumber& number) const;

private:
    /// Whole numbers of no more digits are in the order of their values: scaling moves their
    /// mantissas by far less than they differ.
    static constexpr std::uint32_t WHOLE_DIGITS = 9;

    struct CEnds
    {
        std::uint32_t m_Digits;
        std::uint32_t m_Zeros;
    };

    CWrittenNumber FindLong(std::uint32_t first);
    std::uint32_t EndOfDigits(std::uint32_t first);
    std::uint32_t EndOfZeros(std::uint32_t first);
    void Prepare();
    double ReadShort(const CWrittenNumber& number) const;
    double ReadLong(const CWrittenNumber& number) const;

    const char16_t* m_Text;
    std::vector<CEnds> m_Ends; // by position, made at the first long run
};

/// A number of a range as it is compared: by exponent, then by mantissa.
///
/// The mantissa is brought below or to 10 and, unless it is 0, to at least 1; 0 keeps exponent 0
/// and so counts as greater than any value under 1.
struct CScaledNumber
{
    double m_Mantissa = 0;
    int m_Exponent = 0;

    CScaledNumber() = default;
    explicit CScaledNumber(double value);
    int Compare(const CScaledNumber& other) const;
};

} // namespace utility
