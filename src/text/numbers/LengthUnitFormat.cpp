#include "platform/base/NumberText.h"
#include "text/numbers/LengthUnit.h"

#include <algorithm>
#include <cmath>

namespace utility
{

namespace
{

constexpr double SAME = 1e-10; // differences below this are none

/// The zeros at the end, at most `places` of them, then a point.
void CutTrailingZeros(CString& text, int places)
{
    if (places <= 0)
        return;
    int length = text.GetLength();
    const int last = length - places;
    while (length > last && text[length - 1] == u'0')
        --length;
    if (length > 0 && text[length - 1] == u'.')
        --length;
    text.Delete(length, text.GetLength() - length);
}

/// "0.050" becomes "50": the number counts in units of its last place.
void MakeDecimalFree(CString& text)
{
    text.Remove(u'.');
    int zeros = 0;
    while (zeros < text.GetLength() - 1 && text[zeros] == u'0')
        ++zeros;
    text.Delete(0, zeros);
}

} // namespace

CString CLengthUnit::FormatRounded(double value) const
{
    const double scale = std::pow(10.0, m_Precision);
    const double scaled = std::floor(std::fabs(value) * scale + 0.5) / scale;
    // What the scaling would overflow has no places to round.
    const double rounded = std::isfinite(scaled) ? std::copysign(scaled, value) : value;
    CString text;
    text.Format(u"%.*f", std::max(m_Precision, 0), rounded);
    return text;
}

void CLengthUnit::MarkRounding(CString& text, double value) const
{
    // On purpose read back as shown: behind a decimal comma only the integer part counts.
    const double difference = value - _wtof(text);
    if (std::fabs(difference) >= SAME)
        text += difference > 0 ? u'+' : u'-';
}

CString CLengthUnit::Convert(double value) const
{
    CString text = FormatRounded(value);
    if (!m_WantTrailingZeros)
        CutTrailingZeros(text, m_Precision);
    if (m_DecimalChar == 0)
        MakeDecimalFree(text);
    else if (m_DecimalChar != u'.')
        text.Replace(u'.', m_DecimalChar);
    if (m_WantRoundingIndicator)
        MarkRounding(text, value);
    return text;
}

CString CLengthUnit::Convert(int value) const
{
    return Convert(static_cast<double>(value));
}

void CLengthUnit::Convert(const CString& text, const CLengthUnit& from, CString& out) const
{
    out = Convert(Convert(text, from));
}

void CLengthUnit::Convert(int value, const CLengthUnit& from, CString& out) const
{
    out = Convert(Convert(static_cast<double>(value), from));
}

void CLengthUnit::Convert(double value, const CLengthUnit& from, CString& out) const
{
    out = Convert(Convert(value, from));
}

void CLengthUnit::SquaredConvert(double value, const CLengthUnit& from, CString& out) const
{
    out = Convert(SquaredConvert(value, from));
}

void CLengthUnit::SquaredConvert(int value, const CLengthUnit& from, CString& out) const
{
    out = Convert(SquaredConvert(static_cast<double>(value), from));
}

} // namespace utility
