#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace utility
{

/// Ends of the runs of digits and of zeros in a text, so that many readings of one long run stay
/// cheap.
class CDigitRuns
{
public:
    explicit CDigitRuns(std::u16string_view text) : m_Text(text) {}

    std::u16string_view GetText() const { return m_Text; }
    std::uint32_t EndOfDigits(std::uint32_t first);
    std::uint32_t EndOfZeros(std::uint32_t first);

private:
    struct CEnds
    {
        std::uint32_t m_Digits;
        std::uint32_t m_Zeros;
    };

    template <typename TFits>
    std::uint32_t End(std::uint32_t first, std::uint32_t CEnds::*end, TFits fits);
    void Prepare();

    std::u16string_view m_Text;
    std::vector<CEnds> m_Ends; // by position, made at the first long run
};

/// Places of a number: digits, a separator, digits.
struct CNumberPlaces
{
    std::uint32_t m_End = 0;
    std::uint32_t m_Leading = 0; // first digit that is not 0, or the end
    int m_Exponent = 0;          // decimal, of that digit
    std::int32_t m_Whole = -1;   // the number, if it is whole and has few digits
};

/// A number of a range as it is compared: by exponent, then by mantissa.
///
/// The mantissa is brought below or to 10 and, unless it is 0, to at least 1; 0 keeps exponent 0
/// and so counts as greater than any value under 1.
struct CRangeNumber
{
    double m_Mantissa = 0;
    int m_Exponent = 0;

    CRangeNumber() = default;
    explicit CRangeNumber(double value);
    int Compare(const CRangeNumber& other) const;
};

/// The ranges %[a:z%] and %[1.5:20%] of one pattern over one text; both must outlive the object.
class CWildcardRange
{
public:
    CWildcardRange(std::u16string_view pattern, std::u16string_view text)
        : m_Pattern(pattern),
          m_Text(text)
    {
    }

    /// Takes what fits the range whose bounds begin at `pattern` and moves both positions behind
    /// it; leaves them alone if nothing does.
    bool Take(std::uint32_t& pattern, std::uint32_t& text);

private:
    bool TakeLetter(std::uint32_t& pattern, std::uint32_t& text) const;
    bool TakeNumber(std::uint32_t& pattern, std::uint32_t& text);
    bool ReadBounds(std::uint32_t pattern);
    bool IsBetweenBounds(const CNumberPlaces& number);
    bool IsClosed(std::uint32_t pattern) const;

    CDigitRuns m_Pattern;
    CDigitRuns m_Text;

    // The bounds read last, which a * asks for again and again.
    std::uint32_t m_BoundsAt = UINT32_MAX;
    std::uint32_t m_BehindBounds = 0; // 0 if they are malformed
    CNumberPlaces m_LowPlaces;
    CNumberPlaces m_HighPlaces;
    bool m_AreScaled = false; // the bounds below are made
    CRangeNumber m_Low;
    CRangeNumber m_High;
};

} // namespace utility
