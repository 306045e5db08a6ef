#pragma once

#include "utility/command/Command.h"
#include "utility/db/map/DbRules.h"
#include "utility/db/query/QueryTest.h"

#include <optional>
#include <vector>

namespace utility
{

/// A --match: a pattern for a column's texts.
struct CQueryPattern
{
    CString m_Column;
    CString m_Pattern;
};

/// What a query is asked for. Columns are named in any case.
struct CQueryOptions
{
    CString m_Table;
    std::vector<CQueryTest> m_Tests; // all must hold, as must the patterns
    std::vector<CQueryPattern> m_Patterns;
    std::vector<CColumnRule> m_ParseTypes; // of --parse, the last of a column counts
    std::vector<CColumnRule> m_Rules;      // kept ones, which count where --parse says nothing
    std::vector<CString> m_Columns;        // empty: all
    CString m_Sort;                        // empty: as the source gives them
    bool m_IsDescending = false;
    int m_Limit = -1; // -1: all

    /// PARSE_NONE where nothing is said of the column.
    int GetParseType(const CString& column) const;
};

/// Reads and checks the words of `db query`, with the kept rules of its table, before anything is
/// opened; none, and the reason is told, if one is wrong.
///
///     --where 'Value|Between|4k7|10k'     column, operator in any case, one value, of a range two
///     --where 'Name|Contains|a|b'         the value is "a|b": only ranges are cut further
///     --match 'Name|R*|C*'                the pattern is "R*|C*"
///     --parse Value=resistor
std::optional<CQueryOptions> ReadQueryOptions(const CCommandCall& call,
                                              const std::vector<CColumnRule>& rules);

} // namespace utility
