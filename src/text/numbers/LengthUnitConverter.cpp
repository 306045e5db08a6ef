#include "text/numbers/LengthUnitConverter.h"

namespace utility
{

void CLengthUnitConverter::Convert(int value, CString& out) const
{
    CLengthUnit::Convert(value, m_Source, out);
}

void CLengthUnitConverter::Convert(double value, CString& out) const
{
    CLengthUnit::Convert(value, m_Source, out);
}

void CLengthUnitConverter::Convert(const CString& text, CString& out) const
{
    CLengthUnit::Convert(text, m_Source, out);
}

} // namespace utility
