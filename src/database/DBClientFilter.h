#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"

#include <string_view>

namespace utility
{

/// One of the two values that a filter compares with.
struct FilterValue
{
    CString m_Text; // lower-cased
    BOOL m_IsNumeric = FALSE;
    double m_Value = 0;
    CString m_Multiplier;
    CString m_Unit;
};

/// One test of one column, made in the program and not by the database, so that ranges work on
/// texts.
///
/// The operators are those of FilterOperators.h, the parse types those of DBFieldRules.h. A first
/// value that is a number makes the filter numeric, but for the four text operators. A numeric
/// filter turns each cell into a number by the column's type and matches none that has no suitable
/// one; with "Any Value" a cell without a number is compared as text. A range with a bound that is
/// no number, and an unknown operator, match nothing. Text tests ignore case by the library's fold
/// and know no wildcards. Values are parsed once, at construction.
class UTILITY_CORE_API CDBClientFilter : public CObject
{
public:
    CDBClientFilter() = default;
    CDBClientFilter(const CString& fieldName, int op, const CString& value1, const CString& value2,
                    int parseType);

    const CString& GetFieldName() const { return m_FieldName; }
    int GetOperator() const { return m_Operator; }
    /// For "Any Value" narrowed to what the lower bound's unit tells.
    int GetParseType() const { return m_ParseType; }
    /// Lower-cased; of a range the smaller one.
    const CString& GetValue1() const { return m_Value1.m_Text; }
    const CString& GetValue2() const { return m_Value2.m_Text; }
    int GetFieldIndex() const { return m_FieldIndex; }
    void SetFieldIndex(int index) { m_FieldIndex = index; }

    bool IsMatch(const CString& text) const;

    // The steps of IsMatch, for who tests a whole column and reads each of its values once

    enum class EVerdict
    {
        No,
        Yes,
        ByText // MatchText decides
    };
    /// The first step; only a numeric filter's looks at its arguments, which are what
    /// CDBFieldRules::GetNumericValue gives for the cell by the filter's parse type.
    EVerdict MatchParsed(int result, double number) const;
    bool IsNumeric() const { return m_UseNumeric != FALSE; }
    /// The second step, for a cell's lower-cased text.
    bool MatchText(std::u16string_view lowered) const;

private:
    bool MatchNumber(double cell) const;
    void NarrowParseType();

    CString m_FieldName;
    int m_Operator = 0;
    BOOL m_UseNumeric = FALSE;
    FilterValue m_Value1;
    FilterValue m_Value2;
    int m_ParseType = 0;
    int m_FieldIndex = -1; // -1 until the column is found
};

} // namespace utility
