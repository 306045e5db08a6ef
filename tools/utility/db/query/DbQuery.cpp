#include "utility/db/query/DbQuery.h"

#include "database/DBADatabase.h"
#include "database/DBClientFilter.h"
#include "database/ValueOrder.h"
#include "frame/AppLogBlock.h"
#include "platform/db/DelimitName.h"
#include "platform/system/Clock.h"
#include "text/match/StringMatch.h"

#include "utility/db/DbColumns.h"
#include "utility/db/DbTrace.h"
#include "utility/host/Interrupt.h"
#include "utility/output/RowProgress.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::int32_t STEP_ROWS = 1000; // between two looks at the user

bool Contains(const std::vector<CString>& names, const CString& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

CDbQuery::CDbQuery(CDBADatabase& database, const CQueryOptions& options)
    : m_Database(database),
      m_Options(options),
      m_Rows(&database)
{
}

EQueryEnd CDbQuery::Run()
{
    const CAppLogBlock block(DbContext(), u"Query of '%1'", m_Options.m_Table);
    const std::uint64_t start = GetTickCount();
    if (!FindColumns())
        return EQueryEnd::NoColumn;
    const CString select = ComposeSelect();
    CAppLog::Log(DbContext(), u"%1\n", select);
    m_Rows.Open(CRecordset::snapshot, select, CRecordset::readOnly);
    PrepareTests();
    if (!FetchRows())
        return EQueryEnd::Stopped;

    const std::uint64_t filterStart = GetTickCount();
    if (!FilterRows())
        return EQueryEnd::Stopped;
    const std::uint64_t sortStart = GetTickCount();
    m_FilterTime = sortStart - filterStart;
    if (!m_Options.m_Sort.IsEmpty())
        SortRows();
    const std::uint64_t end = GetTickCount();
    m_Time = end - start;
    CAppLog::Log(DbContext(), u"%1!d! of %2!d! rows match\n", static_cast<int>(m_Matches.size()),
                 GetRowCount());
    CAppLog::Log(DbContext(), u"Milliseconds: fetch %1!d!, filter %2!d!, sort %3!d!\n",
                 static_cast<int>(filterStart - start), static_cast<int>(m_FilterTime),
                 static_cast<int>(end - sortStart));
    return EQueryEnd::Done;
}

/// Finds every column that is named, as the source spells it, so that only those are fetched.
bool CDbQuery::FindColumns()
{
    m_TableColumns = ReadColumnNames(m_Database, m_Options.m_Table);
    for (const CString& name : m_Options.m_Columns)
        if (!FindColumn(name, m_Shown.emplace_back()))
            return false;
    if (m_Shown.empty())
        m_Shown = m_TableColumns;
    for (const CString& column : m_Shown)
        AddRead(column);
    CString column;
    for (const CQueryTest& test : m_Options.m_Tests)
    {
        if (!FindColumn(test.m_Column, column))
            return false;
        AddRead(column);
    }
    for (const CQueryPattern& pattern : m_Options.m_Patterns)
    {
        if (!FindColumn(pattern.m_Column, column))
            return false;
        AddRead(column);
    }
    for (const CColumnRule& parse : m_Options.m_ParseTypes)
        if (!FindColumn(parse.m_Column, column))
            return false;
    if (m_Options.m_Sort.IsEmpty())
        return true;
    if (!FindColumn(m_Options.m_Sort, column))
        return false;
    AddRead(column);
    return true;
}

bool CDbQuery::FindColumn(const CString& name, CString& found) const
{
    const int place = ColumnPlace(m_TableColumns, name);
    if (place < 0)
    {
        TellNoColumn(m_Options.m_Table, name, m_TableColumns);
        return false;
    }
    found = m_TableColumns[static_cast<std::size_t>(place)];
    return true;
}

void CDbQuery::AddRead(const CString& column)
{
    if (!Contains(m_Read, column))
        m_Read.push_back(column);
}

CString CDbQuery::ComposeSelect() const
{
    CString columns;
    for (const CString& column : m_Read)
        columns += (columns.IsEmpty() ? u"" : u", ") + DelimitName(column);
    return u"SELECT " + columns + u" FROM " + DelimitTable(m_Database, m_Options.m_Table);
}

int CDbQuery::FindField(const CString& name) const
{
    return ColumnPlace(m_Read, name);
}

void CDbQuery::PrepareTests()
{
    for (const CString& column : m_Shown)
    {
        const int field = FindField(column);
        m_ShownFields.push_back(field);
        m_IsNumeric.push_back(IsNumericType(m_Rows.GetFieldInfo(field).m_nSQLType));
    }
    for (const CQueryTest& test : m_Options.m_Tests)
    {
        auto filter =
            std::make_unique<CDBClientFilter>(test.m_Column, test.m_Operator, test.m_Value1,
                                              test.m_Value2, m_Options.GetParseType(test.m_Column));
        filter->SetFieldIndex(FindField(test.m_Column));
        m_Filters.AddFilter(filter.release());
    }
    for (const CQueryPattern& pattern : m_Options.m_Patterns)
        m_Patterns.push_back({FindField(pattern.m_Column), pattern.m_Pattern});
}

bool CDbQuery::FetchRows()
{
    CRowProgress progress(u"Reading", 0);
    while (!m_Rows.IsEOF())
    {
        if (IsInterrupted())
            return false;
        m_Rows.Move(STEP_ROWS);
        progress.Step(m_Rows.GetRecordCount(), m_Rows.GetRecordCount());
    }
    return true;
}

bool CDbQuery::FilterRows()
{
    const std::int32_t count = m_Rows.GetRecordCount();
    for (std::int32_t row = 0; row < count; row++)
    {
        if (row % STEP_ROWS == 0 && IsInterrupted())
            return false;
        m_Rows.SetAbsolutePosition(row + 1);
        if (DoesRowMatch())
            m_Matches.push_back(row);
    }
    return true;
}

bool CDbQuery::DoesRowMatch() const
{
    for (POSITION position = m_Filters.GetHeadPosition(); position;)
    {
        const CDBClientFilter& filter = *m_Filters.GetNext(position);
        if (!filter.IsMatch(m_Rows.GetFieldData(filter.GetFieldIndex())))
            return false;
    }
    for (const CPattern& pattern : m_Patterns)
        if (!StringMatch(pattern.m_Pattern, m_Rows.GetFieldData(pattern.m_Field), false))
            return false;
    return true;
}

void CDbQuery::SortRows()
{
    const int field = FindField(m_Options.m_Sort);
    const int parseType = m_Options.GetParseType(m_Options.m_Sort);
    std::vector<CValueOrderKey> keys;
    keys.reserve(m_Matches.size());
    for (const std::int32_t row : m_Matches)
    {
        m_Rows.SetAbsolutePosition(row + 1);
        keys.push_back(
            MakeValueOrderKey(m_Rows.GetFieldData(field), parseType, static_cast<DWORD>(row)));
    }
    const bool ascending = !m_Options.m_IsDescending;
    std::stable_sort(keys.begin(), keys.end(),
                     [ascending](const CValueOrderKey& left, const CValueOrderKey& right)
                     { return CompareValueOrder(left, right, ascending) < 0; });
    std::transform(keys.begin(), keys.end(), m_Matches.begin(),
                   [](const CValueOrderKey& key)
                   { return static_cast<std::int32_t>(key.m_Record); });
}

CString CDbQuery::FindColumnWithoutRule() const
{
    for (const CQueryTest& test : m_Options.m_Tests)
        if (LacksRule(test, m_Options.GetParseType(test.m_Column), m_Matches.empty()) &&
            !IsNumericType(m_Rows.GetFieldInfo(FindField(test.m_Column)).m_nSQLType))
            return test.m_Column;
    return CString();
}

std::size_t CDbQuery::GetShownCount() const
{
    if (m_Options.m_Limit < 0)
        return m_Matches.size();
    return std::min(m_Matches.size(), static_cast<std::size_t>(m_Options.m_Limit));
}

std::vector<CString> CDbQuery::ReadRow(std::size_t index)
{
    m_Rows.SetAbsolutePosition(m_Matches[index] + 1);
    std::vector<CString> cells;
    for (const int field : m_ShownFields)
        cells.push_back(m_Rows.GetFieldData(field));
    return cells;
}

} // namespace utility
