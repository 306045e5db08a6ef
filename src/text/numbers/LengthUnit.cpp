#include "text/numbers/LengthUnit.h"

#include "platform/base/NumberText.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

#include <cmath>
#include <limits>

namespace utility
{

namespace
{

constexpr double PRECISION_PARTS = 1e6; // the least step shown is a millionth of this unit...
constexpr double LEAST_STEP = 10;       // ...but no less than this, in tenths of a micrometre
constexpr int MOST_PLACES = 6;

/// Files may name units that are not there: those count as the first row.
const CLengthUnitRow& RowOf(EBaseLengthUnit unit)
{
    const auto rows = GetLengthUnitRows();
    const auto index = static_cast<std::size_t>(unit);
    return rows[index < rows.size() ? index : 0];
}

double LengthOf(EBaseLengthUnit unit)
{
    return RowOf(unit).m_Length;
}

LONG RoundHalfAway(double value)
{
    constexpr double LEAST = std::numeric_limits<LONG>::min();
    constexpr double MOST = std::numeric_limits<LONG>::max();
    const double rounded = std::round(value);
    if (!(rounded > LEAST))
        return std::numeric_limits<LONG>::min();
    return rounded < MOST ? static_cast<LONG>(rounded) : std::numeric_limits<LONG>::max();
}

} // namespace

CLengthUnit::CLengthUnit()
{
    SetName();
    SetPrecision();
}

CLengthUnit::CLengthUnit(EBaseLengthUnit base, double unitsPerBase, bool wantRoundingIndicator,
                         bool wantTrailingZeros)
    : m_BaseUnit(base),
      m_UnitsPerBase(unitsPerBase),
      m_WantTrailingZeros(wantTrailingZeros),
      m_WantRoundingIndicator(wantRoundingIndicator)
{
    SetName();
    SetPrecision();
}

bool CLengthUnit::operator==(const CLengthUnit& other) const
{
    return m_BaseUnit == other.m_BaseUnit && m_UnitsPerBase == other.m_UnitsPerBase &&
           m_Name == other.m_Name && m_ShortName == other.m_ShortName &&
           m_Precision == other.m_Precision && m_WantTrailingZeros == other.m_WantTrailingZeros &&
           m_WantRoundingIndicator == other.m_WantRoundingIndicator &&
           m_DecimalChar == other.m_DecimalChar;
}

UINT CLengthUnit::GetBaseUnitNameId(EBaseLengthUnit unit)
{
    return RowOf(unit).m_NameId;
}

UINT CLengthUnit::GetBaseUnitShortNameId(EBaseLengthUnit unit)
{
    return RowOf(unit).m_ShortNameId;
}

bool CLengthUnit::IsMetric(EBaseLengthUnit unit)
{
    return RowOf(unit).m_Metric;
}

EBaseLengthUnit CLengthUnit::FirstBaseUnit(bool metric)
{
    const CLengthUnitRow* first = nullptr;
    for (const CLengthUnitRow& row : GetLengthUnitRows())
    {
        if (row.m_Metric == metric && (!first || row.m_Length < first->m_Length))
            first = &row;
    }
    return first->m_Unit;
}

EBaseLengthUnit CLengthUnit::NextBaseUnit(EBaseLengthUnit unit)
{
    const CLengthUnitRow& current = RowOf(unit);
    const CLengthUnitRow* next = nullptr;
    for (const CLengthUnitRow& row : GetLengthUnitRows())
    {
        if (row.m_Metric == current.m_Metric && row.m_Length > current.m_Length &&
            (!next || row.m_Length < next->m_Length))
            next = &row;
    }
    return next ? next->m_Unit : current.m_Unit;
}

double CLengthUnit::GetPrecisionStep(int precision)
{
    double step = 1.0;
    for (; precision > 0 && step > 0; --precision)
        step /= 10;
    return step;
}

CString CLengthUnit::GetSquaredName() const
{
    return m_Name + u" " + CStringTable::Get(IDS_SQUARED);
}

CString CLengthUnit::GetSquaredShortName() const
{
    return m_ShortName + CStringTable::Get(IDS_SQUARED_SHORT);
}

void CLengthUnit::SetBaseUnit(EBaseLengthUnit unit)
{
    m_BaseUnit = unit;
    SetName();
}

void CLengthUnit::SetName()
{
    m_Name = CStringTable::Get(GetBaseUnitNameId(m_BaseUnit));
    m_ShortName = CStringTable::Get(GetBaseUnitShortNameId(m_BaseUnit));
    if (m_UnitsPerBase == 1.0)
        return;
    for (CString* name : {&m_Name, &m_ShortName})
        name->Format(u"(%s/%f)", CString(*name), m_UnitsPerBase);
}

void CLengthUnit::SetPrecision()
{
    // Divided, not multiplied by 1e-6: the product falls just short of 10 in the case of cm.
    double step = LengthOf(m_BaseUnit) / m_UnitsPerBase / PRECISION_PARTS;
    m_Precision = MOST_PLACES;
    for (; step < LEAST_STEP && m_Precision > 0; --m_Precision)
        step *= 10;
}

double CLengthUnit::Convert(double value, const CLengthUnit& from) const
{
    // The order of the operations is kept by stored designs, to the last bit.
    const double length = LengthOf(from.m_BaseUnit) / from.m_UnitsPerBase * value;
    return length * m_UnitsPerBase / LengthOf(m_BaseUnit);
}

double CLengthUnit::Convert(const CString& text) const
{
    return _wtof(text);
}

double CLengthUnit::Convert(const CString& text, const CLengthUnit& from) const
{
    return Convert(from.Convert(text), from);
}

CPoint CLengthUnit::Convert(const CPoint& point, const CLengthUnit& from) const
{
    return CPoint(RoundHalfAway(Convert(static_cast<double>(point.x), from)),
                  RoundHalfAway(Convert(static_cast<double>(point.y), from)));
}

void CLengthUnit::Convert(const CPoint& point, const CLengthUnit& from, CPoint& out) const
{
    out = Convert(point, from);
}

double CLengthUnit::SquaredConvert(double value, const CLengthUnit& from) const
{
    return Convert(Convert(value, from), from);
}

void CLengthUnit::ChangeBaseUnit(EBaseLengthUnit newBase)
{
    m_UnitsPerBase *= LengthOf(newBase) / LengthOf(m_BaseUnit);
    m_BaseUnit = newBase;
}

void CLengthUnit::NormaliseBaseUnit()
{
    const CLengthUnitRow& current = RowOf(m_BaseUnit);
    const bool down = m_UnitsPerBase > 1; // from the smallest candidate up towards the current unit
    const auto isBeyond = [&](const CLengthUnitRow& row, const CLengthUnitRow& other)
    {
        return down ? row.m_Length > other.m_Length : row.m_Length < other.m_Length;
    };
    const auto perBase = [&](const CLengthUnitRow& row)
    {
        return m_UnitsPerBase * row.m_Length / current.m_Length;
    };

    if (m_UnitsPerBase != 1.0)
    {
        const CLengthUnitRow* candidate = nullptr;
        for (const CLengthUnitRow& row : GetLengthUnitRows())
        {
            if (row.m_Metric == current.m_Metric && (!candidate || isBeyond(*candidate, row)))
                candidate = &row;
        }
        double factor = perBase(*candidate);
        for (const CLengthUnitRow& row : GetLengthUnitRows())
        {
            if (!(down ? factor < 1 : factor > 1))
                break;
            if (row.m_Metric != current.m_Metric || !isBeyond(row, *candidate) ||
                !isBeyond(current, row))
                continue;
            candidate = &row;
            factor = perBase(row);
        }
        m_BaseUnit = candidate->m_Unit;
        m_UnitsPerBase = factor;
    }
    SetName();
}

} // namespace utility
