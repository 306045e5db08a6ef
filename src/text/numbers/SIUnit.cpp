#include "text/numbers/SIUnit.h"

#include "platform/base/String.h"

namespace utility
{

namespace
{

constexpr CSIPrefix PREFIXES[] = {
    {u'y', -24}, {u'z', -21}, {u'a', -18}, {u'f', -15}, {u'p', -12}, {u'n', -9},
    {u'u', -6},  {u'm', -3},  {u'.', 0},   {u'k', 3},   {u'M', 6},   {u'G', 9},
    {u'T', 12},  {u'P', 15},  {u'E', 18},  {u'Z', 21},  {u'Y', 24},
};

struct CSIUnitRow
{
    std::u16string_view m_Name;
    double m_Factor;
};

/// Differs from the prefixes on purpose: knows the micro sign and K, stops at atto and exa.
constexpr CSIUnitRow UNITS[] = {
    {u"a", 1e-18},     {u"f", 1e-15}, {u"p", 1e-12}, {u"n", 1e-9}, {u"u", 1e-6},
    {u"\u00B5", 1e-6}, {u"m", 1e-3},  {u"k", 1e3},   {u"K", 1e3},  {u"M", 1e6},
    {u"G", 1e9},       {u"T", 1e12},  {u"P", 1e15},  {u"E", 1e18}, {u"", 1.0},
};

constexpr double CLOSING_FACTOR = 1.0;

} // namespace

std::span<const CSIPrefix> GetSIPrefixes()
{
    return PREFIXES;
}

int ReadSIUnit(double& factor, const CString& text)
{
    for (const CSIUnitRow& row : UNITS)
    {
        if (row.m_Factor == CLOSING_FACTOR)
            break;
        if (text.View().starts_with(row.m_Name))
        {
            factor = row.m_Factor;
            return static_cast<int>(row.m_Name.size());
        }
    }
    factor = CLOSING_FACTOR;
    return 0;
}

double NormaliseSIUnit(double value, CString& unitName)
{
    // One less, so that a negative value stays one; it is then always below the first row.
    const double working = value < 0 ? value - 1.0 : value;
    const CSIUnitRow* row = std::begin(UNITS);
    const CSIUnitRow* const closing = std::end(UNITS) - 1;
    while (row != closing && row->m_Factor < working)
        ++row;
    if (row != closing)
        ++row; // on purpose the one behind the first that is large enough

    unitName = row->m_Name;
    const double quotient = working / row->m_Factor;
    return value < 0 ? -quotient : quotient;
}

void NormaliseSIUnitString(double value, CString& text)
{
    CString unitName;
    const double number = NormaliseSIUnit(value, unitName);
    text.Format(u"%3.0f%s", number, unitName);
}

} // namespace utility
