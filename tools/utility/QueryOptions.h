#pragma once

#include "Command.h"

#include <optional>
#include <vector>

namespace utility
{

/// A --where: one test of a column's values.
struct CQueryTest
{
    CString m_Column;
    int m_Operator = 0; // one of EFilterOperator
    CString m_Value1;
    CString m_Value2; // of the two range operators
};

/// A --match: a pattern for a column's texts.
struct CQueryPattern
{
    CString m_Column;
    CString m_Pattern;
};

/// A --parse: what the texts of a column mean.
struct CQueryParse
{
    CString m_Column;
    int m_Type = 0;
};

/// What a query is asked for. Columns are named in any case.
struct CQueryOptions
{
    CString m_Table;
    std::vector<CQueryTest> m_Tests; // all must hold, as must the patterns
    std::vector<CQueryPattern> m_Patterns;
    std::vector<CQueryParse> m_ParseTypes; // the last of a column counts
    std::vector<CString> m_Columns;        // empty: all
    CString m_Sort;                        // empty: as the source gives them
    bool m_IsDescending = false;
    int m_Limit = -1; // -1: all

    /// PARSE_NONE where --parse does not name the column.
    int GetParseType(const CString& column) const;
};

/// Reads and checks the words of `db query` before anything is opened; none, and the reason is
/// told, if one is wrong.
///
///     --where 'Value|Between|4k7|10k'     column, operator in any case, one value, of a range two
///     --where 'Name|Contains|a|b'         the value is "a|b": only ranges are cut further
///     --match 'Name|R*|C*'                the pattern is "R*|C*"
///     --parse Value=resistor
std::optional<CQueryOptions> ReadQueryOptions(const CCommandCall& call);

} // namespace utility
