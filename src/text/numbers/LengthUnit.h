#pragma once

#include "platform/base/Export.h"
#include "platform/base/Point.h"
#include "platform/base/String.h"
#include "text/numbers/LengthUnitTable.h"

namespace utility
{

class CArchive;
class CFormExportWriter;
class CFormItem;

/// What a plain number means as a length, and how it reads as text: a base unit scaled by a factor.
///
///     base   per base   want trailing zeros, rounding mark   value    text
///     thou   1          yes, no                              1234.56  "1234.6"
///     mm     1          no,  no                              2.0      "2"
///     mm     1          yes, yes                             1.2346   "1.235-"   more is shown
///
/// A value, for one thread at a time. Conversions never fail; only `ReadLengthValue` does.
class UTILITY_CORE_API CLengthUnit
{
public:
    CLengthUnit();
    CLengthUnit(EBaseLengthUnit base, double unitsPerBase, bool wantRoundingIndicator,
                bool wantTrailingZeros);
    CLengthUnit(const CLengthUnit& other) = default;
    virtual ~CLengthUnit() = default;
    CLengthUnit& operator=(const CLengthUnit& other) = default;
    /// All fields are equal, the names exactly.
    bool operator==(const CLengthUnit& other) const;

    // The table of base units
    static UINT GetBaseUnitNameId(EBaseLengthUnit unit);
    static UINT GetBaseUnitShortNameId(EBaseLengthUnit unit);
    static bool IsMetric(EBaseLengthUnit unit);
    /// The last unit whose name or short name begins with the text, in any case; one letter fits
    /// only a name of one letter. `unit` keeps its preset if none does.
    ///
    ///     "M"   metre        "th"   thou        ""   mils
    ///     "mm"  mm           "mi"   mils        "x"  false
    static bool MatchBaseUnit(const CString& text, EBaseLengthUnit& unit);
    /// The smallest unit of the system.
    static EBaseLengthUnit FirstBaseUnit(bool metric);
    /// The next larger unit of the same system; the largest gives itself.
    static EBaseLengthUnit NextBaseUnit(EBaseLengthUnit unit);

    EBaseLengthUnit GetBaseUnit() const { return m_BaseUnit; }
    double GetUnitsPerBaseUnit() const { return m_UnitsPerBase; }
    const CString& GetName() const { return m_Name; }
    const CString& GetShortName() const { return m_ShortName; }
    CString GetSquaredName() const;
    CString GetSquaredShortName() const;
    int GetPrecision() const { return m_Precision; }
    double GetPrecisionStep() const { return GetPrecisionStep(m_Precision); }
    /// 1.0 divided by 10 that many times.
    static double GetPrecisionStep(int precision);
    bool GetWantTrailingZeros() const { return m_WantTrailingZeros; }
    bool GetWantRoundingIndicator() const { return m_WantRoundingIndicator; }
    char16_t GetDecimalChar() const { return m_DecimalChar; }
    bool IsMetric() const { return IsMetric(m_BaseUnit); }

    /// Composes the names anew; every other setter sets its field alone.
    void SetBaseUnit(EBaseLengthUnit unit);
    void SetUnitsPerBaseUnit(double unitsPerBase) { m_UnitsPerBase = unitsPerBase; }
    void SetName(const CString& name) { m_Name = name; }
    void SetShortName(const CString& name) { m_ShortName = name; }
    void SetPrecision(int precision) { m_Precision = precision; }
    void SetWantTrailingZeros(bool want) { m_WantTrailingZeros = want; }
    void SetWantRoundingIndicator(bool want) { m_WantRoundingIndicator = want; }
    /// 0 writes decimal-free: 1.5 mm at precision 3 is "1500".
    void SetDecimalChar(char16_t decimalChar) { m_DecimalChar = decimalChar; }
    /// The table's names, or "(mm/2.000000)" with a factor.
    void SetName();
    /// As many places as show a millionth of an inch or a metre: inch 4, thou 1, metre 6, mm 3,
    /// micron 0, cm 4.
    void SetPrecision();

    // Numbers and texts in `from`, or of this unit
    double Convert(double value, const CLengthUnit& from) const;
    double Convert(const CString& text) const;
    double Convert(const CString& text, const CLengthUnit& from) const;
    void Convert(const CString& text, const CLengthUnit& from, CString& out) const;
    void Convert(int value, const CLengthUnit& from, CString& out) const;
    void Convert(double value, const CLengthUnit& from, CString& out) const;
    CString Convert(double value) const;
    CString Convert(int value) const;
    /// Halves are rounded away from zero.
    CPoint Convert(const CPoint& point, const CLengthUnit& from) const;
    void Convert(const CPoint& point, const CLengthUnit& from, CPoint& out) const;
    double SquaredConvert(double value, const CLengthUnit& from) const;
    void SquaredConvert(double value, const CLengthUnit& from, CString& out) const;
    void SquaredConvert(int value, const CLengthUnit& from, CString& out) const;

    /// Keeps the physical size; the names stay.
    void ChangeBaseUnit(EBaseLengthUnit newBase);
    /// Turns a factor, as far as it goes, into another base unit of the same system.
    void NormaliseBaseUnit();

    // Typed lengths; false with IDS_BAD_NUMBER or IDS_BAD_LENGTH_UNIT as the last error
    /// One expression with a unit, or none (NoUnit). A second number replaces the first, and
    /// `value2` is always 0: "1 inch 3 mm" is 3 with inch and mm. Outputs hold what was read.
    static bool ReadLengthValue(CString& text, double& value1, EBaseLengthUnit& unit1,
                                double& value2, EBaseLengthUnit& unit2, char16_t decimalChar);
    /// The length in `target`; a number without a unit is one of `input`. `value` keeps its preset
    /// on failure.
    static bool ReadLengthValue(const CLengthUnit& target, const CLengthUnit& input, CString& text,
                                double& value);

    // Files
    /// Writes the forms of the unit into the open form, each with a line end if `newLine`.
    bool ExportContents(CFormExportWriter& writer, bool newLine) const;
    /// The stored names and precision stand; the result is that of the last read.
    bool Import(CFormItem* item);
    /// Version 1 has no decimal character. Raises the archive's exceptions.
    void Serialize(CArchive& archive, int version);

private:
    CString FormatRounded(double value) const;
    void MarkRounding(CString& text, double value) const;

    EBaseLengthUnit m_BaseUnit = EBaseLengthUnit::Thou;
    double m_UnitsPerBase = 1.0; // of this unit in one base unit
    CString m_Name;
    CString m_ShortName;
    int m_Precision = 0; // decimal places
    bool m_WantTrailingZeros = true;
    bool m_WantRoundingIndicator = false;
    char16_t m_DecimalChar = u'.'; // 0: none
};

} // namespace utility
