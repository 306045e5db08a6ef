#include "text/numbers/RealNumber.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/String.h"

namespace utility
{

namespace
{

/// Digits of a fraction behind this one change nothing, and their count stays a finite power of
/// ten.
constexpr int FRACTION_LIMIT = 300;

/// Far beyond what a double spans, even behind as many digits as a text may have in practice.
constexpr int EXPONENT_LIMIT = 100000;

double PowerOfTen(int exponent)
{
    static constexpr double EXACT[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (exponent >= 0 && exponent < static_cast<int>(std::size(EXACT)))
        return EXACT[exponent];
    return std::pow(10.0, exponent);
}

/// In steps that are finite themselves, so that 0 stays 0 and no infinity meets a zero.
double Scale(double value, int exponent)
{
    constexpr int STEP = 300;
    while (value != 0 && std::isfinite(value) && std::abs(exponent) > STEP)
    {
        const int step = exponent > 0 ? STEP : -STEP;
        value *= PowerOfTen(step);
        exponent -= step;
    }
    return value != 0 && std::isfinite(value) ? value * PowerOfTen(exponent) : value;
}

/// Walks over a text; behind its end stands 0, which no test accepts.
class CNumberScan
{
public:
    CNumberScan(std::u16string_view text, std::size_t index) : m_Text(text), m_Index(index) {}

    std::size_t GetIndex() const { return m_Index; }
    char16_t Peek() const { return m_Index < m_Text.size() ? m_Text[m_Index] : u'\0'; }
    void Step() { ++m_Index; }

    void SkipBlanks()
    {
        while (IsSpace(Peek()))
            Step();
    }

    /// Takes one sign, and blanks behind it; 1 or -1.
    int TakeSign()
    {
        const int sign = Peek() == u'-' ? -1 : 1;
        if (Peek() == u'-' || Peek() == u'+')
            Step();
        SkipBlanks();
        return sign;
    }

    /// Takes a run of digits; false if none stands here. A long run never wraps.
    bool TakeInteger(double& value)
    {
        const std::size_t first = m_Index;
        for (value = 0; IsDigit(Peek()); Step())
            value = value * 10 + (Peek() - u'0');
        return m_Index != first;
    }

    bool TakeFraction(double& value)
    {
        const std::size_t first = m_Index;
        double digits = 0;
        int count = 0;
        for (; IsDigit(Peek()); Step())
        {
            if (count == FRACTION_LIMIT)
                continue;
            digits = digits * 10 + (Peek() - u'0');
            ++count;
        }
        value = digits / PowerOfTen(count);
        return m_Index != first;
    }

    /// Takes an exponent with the blanks around it, or nothing at all if its digits are missing.
    int TakeExponent()
    {
        const std::size_t first = m_Index;
        SkipBlanks();
        double exponent = 0;
        if (Peek() == u'e' || Peek() == u'E')
        {
            Step();
            SkipBlanks();
            const int sign = TakeSign();
            if (TakeInteger(exponent))
                return sign * static_cast<int>(std::min<double>(exponent, EXPONENT_LIMIT));
        }
        m_Index = first;
        return 0;
    }

private:
    std::u16string_view m_Text;
    std::size_t m_Index;
};

bool IsDecimal(char16_t unit, char16_t decimalChar, bool onlyDecimalChar)
{
    if (unit == 0)
        return false;
    return unit == decimalChar || (!onlyDecimalChar && (unit == u'.' || unit == u','));
}

} // namespace

int ReadRealNumber(double& value, const CString& text, int start, char16_t decimalChar,
                   bool onlyDecimalChar)
{
    value = 0;
    if (start < 0)
        return start;

    CNumberScan scan(text.View(), static_cast<std::size_t>(start));
    scan.SkipBlanks();
    const int sign = scan.TakeSign();
    bool found = scan.TakeInteger(value);
    if (IsDecimal(scan.Peek(), decimalChar, onlyDecimalChar))
    {
        scan.Step();
        found = true;
    }
    double fraction = 0;
    found = scan.TakeFraction(fraction) || found;
    if (!found)
        return start;

    value = sign * (value + fraction);
    const int exponent = scan.TakeExponent();
    value = Scale(value, exponent);
    return static_cast<int>(scan.GetIndex());
}

} // namespace utility
