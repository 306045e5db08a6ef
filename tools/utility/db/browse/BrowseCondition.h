#pragma once

#include "utility/db/query/QueryTest.h"

#include <vector>

namespace utility
{

/// A column of the table that is browsed.
struct CBrowseColumn
{
    CString m_Name;           // as the source spells it
    CString m_Heading;        // what it is mapped to
    int m_ParseType = 0;      // the rule of its texts
    bool m_IsNumeric = false; // to the source
    bool m_IsShown = true;
};

/// The place of the column with that heading or, if none has it, that name, in any case of letters;
/// -1 if there is none.
int FindBrowseColumn(const std::vector<CBrowseColumn>& columns, const CString& name);

/// What a user asks of rows: a test of one column, or a text that any shown column may hold.
struct CBrowseCondition
{
    CString m_Words;   // as they were typed
    int m_Column = -1; // -1: any shown one may hold the words
    CQueryTest m_Test; // of that column
};

/// Reads what a user asks; false with the reason in `fault`, and the condition left alone, if the
/// values do not suit the operator.
///
///     Value between 4k7 10k       the operators' names in any case; = != < <= > >= too
///     Value Between 10 uF and 22 uF
///     Name begins R06             "begins" is enough
///     R06                         no column stands before it: a text in any column
bool ReadBrowseCondition(const CString& words, const std::vector<CBrowseColumn>& columns,
                         CBrowseCondition& condition, CString& fault);

} // namespace utility
