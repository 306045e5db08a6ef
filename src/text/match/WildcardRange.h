#pragma once

#include "platform/base/Types.h"
#include "text/match/WildcardNumber.h"

namespace utility
{

/// The bounds of a range %[a:z%] or %[1.5:20%], in either order.
class CWildcardRange
{
public:
    /// `first` is the place behind the %[ of a zero-terminated pattern, `numbers` finds its
    /// numbers.
    CWildcardRange(const char16_t* pattern, CNumberFinder& numbers, std::uint32_t first);

    /// Classes of the units that may begin what fits; none for malformed bounds.
    BYTE GetFirstClasses() const { return m_FirstClasses; }

    /// The place in the pattern behind the range.
    std::uint32_t GetEnd() const { return m_End; }

    /// What stands in the text from there on and may fit, a letter or a number; its end is the
    /// place itself if nothing does.
    CWrittenNumber Find(const char16_t* text, CNumberFinder& numbers, std::uint32_t place) const
    {
        const bool mayFit = (m_FirstClasses & GetUnitClass(text[place])) != 0;
        if (mayFit && m_FirstLetter == 0)
            return numbers.Find(place);
        return {mayFit && FitsLetter(text[place]) ? place + 1 : place};
    }
    /// Whether what Find has found lies between the bounds.
    bool Fits(const CNumberFinder& numbers, const CWrittenNumber& found) const
    {
        return m_FirstLetter != 0 || FitsNumber(numbers, found);
    }

private:
    void ReadLetters(const char16_t* pattern, std::uint32_t first);
    void ReadNumbers(const char16_t* pattern, CNumberFinder& numbers, std::uint32_t first);
    bool FitsLetter(char16_t unit) const;
    bool FitsNumber(const CNumberFinder& numbers, const CWrittenNumber& number) const;

    static int Compare(const CNumberFinder& numbers, const CWrittenNumber& number,
                       const CScaledNumber& bound);

    BYTE m_FirstClasses = 0;
    std::uint32_t m_End = 0;
    char16_t m_FirstLetter = 0;
    char16_t m_LastLetter = 0;
    CScaledNumber m_Low;
    CScaledNumber m_High;
    bool m_HasWholeBounds = false; // both with few digits
    std::uint32_t m_LeastWhole = 0;
    std::uint32_t m_WholeSpan = 0; // from there to the largest
};

} // namespace utility
