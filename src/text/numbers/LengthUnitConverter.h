#pragma once

#include "text/numbers/LengthUnit.h"

namespace utility
{

/// A unit that takes its values from one fixed source unit, so that a page of values can be shown
/// in the user's unit.
///
/// The source is referred to and must outlive the converter; as a unit it begins as
/// `CLengthUnit()`.
class UTILITY_CORE_API CLengthUnitConverter : public CLengthUnit
{
public:
    explicit CLengthUnitConverter(const CLengthUnit& source) : m_Source(source) {}
    explicit CLengthUnitConverter(const CLengthUnit&& source) = delete;
    /// Keeps the same source.
    CLengthUnitConverter(const CLengthUnitConverter& other) = default;
    CLengthUnitConverter& operator=(const CLengthUnitConverter&) = delete;

    // To a number of this unit
    double Convert(int value) const { return Convert(static_cast<double>(value)); }
    double Convert(double value) const { return Convert(value, m_Source); }
    double Convert(const CString& text) const { return CLengthUnit::Convert(text, m_Source); }
    double Convert(double value, const CLengthUnit& from) const
    {
        return CLengthUnit::Convert(value, from);
    }
    CPoint Convert(const CPoint& point) const { return Convert(point, m_Source); }
    CPoint Convert(const CPoint& point, const CLengthUnit& from) const
    {
        return CLengthUnit::Convert(point, from);
    }

    // To a text in this unit
    void Convert(int value, CString& out) const;
    void Convert(double value, CString& out) const;
    void Convert(const CString& text, CString& out) const;

private:
    const CLengthUnit& m_Source;
};

} // namespace utility
