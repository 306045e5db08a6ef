#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/object/Object.h"

#include <string_view>

namespace utility
{

/// What kind of component value a column is said to hold. The numbers are kept in settings.
enum EParseType : int
{
    PARSE_NONE = 0,
    PARSE_CAPACITOR = 1, // farads
    PARSE_RESISTOR = 2,  // ohms
    PARSE_INDUCTOR = 3,  // henries
    PARSE_ANY = 4,       // the unit decides
    PARSE_NUMBER = 5     // a plain number, any text behind it is ignored
};

/// Component values as engineers write them, turned into numbers.
///
///     text        as resistor   as capacitor    as any value
///     4k7         4700          4700, unsuited  4700
///     4R7         4.7           4.7E-6          4.7
///     1M          1000000       0.001           1000000
///     104         104           0.1             104
///     3,3 PF      3.3, unsuited 3.3E-12         3.3E-12
///     10 kOhm     10, unsuited: letters are a multiplier and the first of the unit
///
/// Any thread.
class UTILITY_CORE_API CDBFieldRules : public CObject
{
public:
    CDBFieldRules() = default;

    /// The kind's words; empty outside 1 to 5.
    static CString GetParseTypeString(int type);
    /// In any case of letters; the empty text is 0, an unknown one, "None" too, is -1.
    static int GetParseType(const CString& text);

    /// 0: no number; 1: a number whose letters do not suit the type; 2: one that suits.
    /// The letters are emptied in any case, the value keeps its preset on 0.
    static int GetNumericValue(const CString& text, double& value, CString& multiplier,
                               CString& unit, int type);
    static int GetNumericValue(const CString& text, double& value, int type);
    /// The same with the letters as units, 0 for none: what filters use on whole columns.
    static int GetNumericValue(std::u16string_view text, double& value, char16_t& multiplier,
                               char16_t& unit, int type);
};

} // namespace utility
