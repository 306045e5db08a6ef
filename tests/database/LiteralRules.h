#pragma once

#include <string>

/// The rules of component values and filters once more, step by step as they are laid down, slow
/// and without any of the library's own helpers: what the real ones are compared with.
namespace literal
{

struct CNumber
{
    int m_Result = 0; // 0 no number, 1 letters do not suit, 2 suits
    double m_Value = 0;
    std::u16string m_Multiplier;
    std::u16string m_Unit;
};

/// Parse types: 0 none, 1 capacitor, 2 resistor, 3 inductor, 4 any, 5 number.
CNumber ReadNumber(const std::u16string& text, int type);

struct CFilterValue
{
    std::u16string m_Text; // lower-cased
    CNumber m_Number;
};

struct CFilter
{
    CFilter(int op, const std::u16string& value1, const std::u16string& value2, int type);

    bool IsMatch(const std::u16string& cell) const;

    int m_Operator;
    int m_Type;
    bool m_UseNumeric;
    CFilterValue m_First;
    CFilterValue m_Second;
};

} // namespace literal
