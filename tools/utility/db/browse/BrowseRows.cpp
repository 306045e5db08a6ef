#include "utility/db/browse/BrowseRows.h"

#include "database/DBADatabase.h"
#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "database/OGDynSortInfo.h"
#include "platform/base/collections/PtrList.h"
#include "platform/db/DelimitName.h"
#include "platform/system/Clock.h"

#include "utility/db/DbColumns.h"

#include <memory>

namespace utility
{

namespace
{

constexpr int STEP_ROWS = 100; // between two looks at the clock

std::unique_ptr<CDBClientFilter> MakeFilter(const CQueryTest& test, int parseType)
{
    return std::make_unique<CDBClientFilter>(test.m_Column, test.m_Operator, test.m_Value1,
                                             test.m_Value2, parseType);
}

bool Contains(CString text, const CString& lowered)
{
    text.MakeLower();
    return text.Find(lowered) >= 0;
}

} // namespace

CBrowseRows::CBrowseRows(CDBADatabase& database, const CDBFieldMap& map)
    : m_Database(database),
      m_Rows(&database)
{
    for (int index = 0; index < map.GetCount(); index++)
    {
        const CDBFInfo& info = *map.GetField(index);
        if (!info.GetLoad())
            continue;
        CBrowseColumn& column = m_Columns.emplace_back();
        column.m_Name = info.GetName();
        column.m_Heading = info.GetMapTo().IsEmpty() ? info.GetName() : info.GetMapTo();
        column.m_ParseType = static_cast<int>(info.GetParseType());
        column.m_IsShown = info.GetShow();
    }
    if (!m_Columns.empty())
        Open(map.GetTableName());
}

void CBrowseRows::Open(const CString& table)
{
    CString list;
    for (const CBrowseColumn& column : m_Columns)
        list += (list.IsEmpty() ? u"" : u", ") + DelimitName(column.m_Name);
    m_Rows.Open(CRecordset::snapshot,
                u"SELECT " + list + u" FROM " + DelimitTable(m_Database, table),
                CRecordset::readOnly);
    for (std::size_t column = 0; column < m_Columns.size(); column++)
        m_Columns[column].m_IsNumeric =
            IsNumericType(m_Rows.GetFieldInfo(static_cast<int>(column)).m_nSQLType);
}

int CBrowseRows::GetCount() const
{
    return m_Text.IsEmpty() ? m_Rows.GetRecordCount() : static_cast<int>(m_Matches.size());
}

bool CBrowseRows::FetchAhead(DWORD milliseconds)
{
    if (m_IsComplete)
        return false;
    const bool isMoreThere = m_Rows.FetchAhead(milliseconds);
    const bool isMoreToTest = !m_Text.IsEmpty() && TestTexts(milliseconds);
    m_IsComplete = !isMoreThere && !isMoreToTest;
    return !m_IsComplete;
}

/// False once all rows of the recordset are tested.
bool CBrowseRows::TestTexts(DWORD milliseconds)
{
    const std::uint64_t end = GetTickCount() + milliseconds;
    while (m_TestedCount < m_Rows.GetRecordCount())
    {
        if (m_TestedCount % STEP_ROWS == 0 && GetTickCount() >= end)
            return true;
        m_Rows.SetAbsolutePosition(m_TestedCount + 1);
        if (HoldsText(m_Text))
            m_Matches.push_back(m_TestedCount);
        m_TestedCount++;
    }
    return false;
}

/// Of the current row.
bool CBrowseRows::HoldsText(const CString& text)
{
    for (std::size_t column = 0; column < m_Columns.size(); column++)
        if (m_Columns[column].m_IsShown &&
            Contains(m_Rows.GetFieldData(static_cast<int>(column)), text))
            return true;
    return false;
}

CString CBrowseRows::GetText(int row, std::size_t column)
{
    MoveTo(row);
    return m_Rows.GetFieldData(static_cast<int>(column));
}

bool CBrowseRows::DoesMatch(int row, const CBrowseCondition& condition)
{
    MoveTo(row);
    if (condition.m_Column >= 0)
        return MakeFilter(condition.m_Test, GetParseType(condition))
            ->IsMatch(m_Rows.GetFieldData(condition.m_Column));
    CString text = condition.m_Words;
    text.MakeLower();
    return HoldsText(text);
}

void CBrowseRows::MoveTo(int row)
{
    const int place = m_Text.IsEmpty() ? row : m_Matches[static_cast<std::size_t>(row)];
    m_Rows.SetAbsolutePosition(place + 1);
}

int CBrowseRows::GetParseType(const CBrowseCondition& condition) const
{
    return m_Columns[static_cast<std::size_t>(condition.m_Column)].m_ParseType;
}

void CBrowseRows::Filter(const CBrowseCondition* condition)
{
    ForgetMatches();
    m_Text.Empty();
    std::unique_ptr<CDBClientFilterSet> filters;
    if (condition && condition->m_Column >= 0)
    {
        filters = std::make_unique<CDBClientFilterSet>();
        filters->AddFilter(MakeFilter(condition->m_Test, GetParseType(*condition)).release());
    }
    else if (condition)
    {
        m_Text = condition->m_Words;
        m_Text.MakeLower();
    }
    m_Rows.ApplyLocalFilters(filters.release());
}

void CBrowseRows::ForgetMatches()
{
    m_Matches.clear();
    m_TestedCount = 0;
    m_IsComplete = false;
}

void CBrowseRows::Sort(std::size_t column, bool ascending)
{
    COGDynSortInfo key{m_Columns[column].m_Name, m_Columns[column].m_ParseType, ascending};
    CPtrList keys;
    keys.AddTail(&key);
    m_Rows.SortFilteredRecords(keys);
    ForgetMatches();
}

} // namespace utility
