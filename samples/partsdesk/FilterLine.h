#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{
class CDBClientFilterSet;
}

namespace partsdesk
{

/// A column that a filter may name.
struct CColumn
{
    utility::CString m_Name;
    bool m_IsNumeric = false; // of the database's own number types
};

/// A line of tests as a user types it, all of which must hold.
///
///     typed                        keeps rows where
///     opamp                        the column Name, or else the first, contains it
///     Kind=Resistor                the column is that
///     Value=4k7..10k               the value lies in the range, whatever its letters
///     Stock>=100 Package!=0603     both hold
///     Description~"low noise"      the column contains it; ^ begins with it, !~ does not contain
///
/// Columns are named in any case of letters. Values are compared as component values, and in the
/// column Value by what Kind says.
class CFilterLine
{
public:
    explicit CFilterLine(const std::vector<CColumn>& columns) : m_Columns(columns) {}

    /// Adds the line's tests. False, with the reason, at the first word that is no test; `filters`
    /// then has those before it.
    [[nodiscard]] bool Parse(const utility::CString& line, utility::CDBClientFilterSet& filters,
                             utility::CString& reason) const;

private:
    struct CTest;

    bool ReadTest(const utility::CString& line, int& place, CTest& test,
                  utility::CString& reason) const;
    const CColumn* FindColumn(const utility::CString& name) const;
    static int ParseTypeOfKind(const std::vector<CTest>& tests);
    static int ParseTypeOf(const CTest& test, int kindType);

    const std::vector<CColumn>& m_Columns;
};

} // namespace partsdesk
