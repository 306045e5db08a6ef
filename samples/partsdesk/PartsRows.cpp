#include "PartsRows.h"

#include "database/DBClientFilterSet.h"
#include "frame/AppError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/db/ConnectString.h"
#include "platform/db/DBException.h"
#include "platform/db/ODBCFieldInfo.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileStatus.h"
#include "platform/system/file/NativePath.h"
#include "resources/StringIds.h"

#include <algorithm>

using namespace utility;

namespace partsdesk
{

namespace
{

constexpr char16_t FILE_DRIVER[] = u"SQLite3"; // as the driver's package registers it

CString ConnectTo(const CString& file)
{
    CConnectString connect;
    connect.Append(u"DRIVER", FILE_DRIVER);
    connect.Append(u"Database", NativePath(file).View());
    return connect.Format();
}

bool IsNumericType(short type)
{
    return (type >= SQL_NUMERIC && type <= SQL_DOUBLE) || type == SQL_BIGINT || type == SQL_TINYINT;
}

/// Runs database work; a driver's refusal becomes the recorded reason.
template <typename TWork>
bool Try(const TWork& work)
{
    try
    {
        work();
        return true;
    }
    catch (CDBException* exception)
    {
        const CExceptionGuard guard(exception);
        CAppError::SetLastError(IDS_PLAIN_TEXT, exception->GetErrorText());
        return false;
    }
}

} // namespace

bool CPartsRows::Open(const CString& file)
{
    Close();
    CFileStatus status;
    if (!CFile::GetStatus(file, status)) // the driver would make the file
    {
        CAppError::SetLastError(IDS_PAGE_NOT_FOUND, NativePath(file));
        return false;
    }
    if (!m_Database.Open(nullptr, FALSE, TRUE, ConnectTo(file)))
        return false;
    // The driver opens any file, and lists no tables of one that is no database.
    if (!Try([&] { m_Database.ExecuteSQL(u"SELECT 1 FROM sqlite_master WHERE 0"); }))
    {
        Close();
        return false;
    }

    m_File = file;
    CStringArray names;
    m_Database.ReadTableNames(names);
    for (int i = 0; i < names.GetSize(); ++i)
        m_Tables.push_back(names[i]);
    std::sort(m_Tables.begin(), m_Tables.end());
    return m_Tables.empty() || OpenTable(m_Tables.front());
}

void CPartsRows::Close()
{
    m_Rows.reset();
    m_Database.Close();
    m_Tables.clear();
    m_Columns.clear();
    m_File.Empty();
    m_Table.Empty();
    m_Count = 0;
}

bool CPartsRows::OpenTable(const CString& table)
{
    auto rows = std::make_unique<COGDynRecordset>(&m_Database);
    const auto open = [&]
    {
        rows->Open(CRecordset::snapshot, u"SELECT * FROM " + m_Database.DelimitTableName(table),
                   CRecordset::readOnly);
    };
    if (!Try(open))
        return false;

    m_Rows = std::move(rows);
    m_Table = table;
    ReadColumns();
    CountRows();
    return true;
}

void CPartsRows::ReadColumns()
{
    m_Columns.clear();
    for (short column = 0; column < m_Rows->GetODBCFieldCount(); ++column)
    {
        CODBCFieldInfo info;
        m_Rows->GetODBCFieldInfo(column, info);
        m_Columns.push_back({info.m_strName, IsNumericType(info.m_nSQLType)});
    }
}

bool CPartsRows::SetFilter(const CString& line, CString& reason)
{
    if (!m_Rows)
        return true;
    auto filters = std::make_unique<CDBClientFilterSet>();
    if (!CFilterLine(m_Columns).Parse(line, *filters, reason))
        return false;

    const bool isFiltering = filters->GetHeadPosition() != nullptr;
    const auto apply = [&]
    {
        m_Rows->ApplyLocalFilters(isFiltering ? filters.release() : nullptr);
    };
    if (!Try(apply))
    {
        reason = CAppError::GetLastErrorString();
        return false;
    }
    CountRows();
    return true;
}

bool CPartsRows::FetchAhead(DWORD milliseconds)
{
    bool mayMoreCome = false;
    const auto fetch = [&]
    {
        mayMoreCome = m_Rows && m_Rows->FetchAhead(milliseconds);
    };
    if (!Try(fetch))
        CAppError::ReportLastError();
    CountRows();
    return mayMoreCome;
}

void CPartsRows::CountRows()
{
    m_Count = m_Rows ? m_Rows->GetRecordCount() : 0;
}

bool CPartsRows::GoTo(int row)
{
    return row >= 0 && row < m_Count && Try([&] { m_Rows->SetAbsolutePosition(row + 1); });
}

CString CPartsRows::GetLine(int row, int columns)
{
    CString line;
    if (!GoTo(row))
        return line;
    const int count = std::min(columns, m_Rows->GetFieldCount());
    for (int column = 0; column < count; ++column)
        line += (column == 0 ? u"" : u"\t") + m_Rows->GetFieldData(column);
    return line;
}

std::vector<CPartValue> CPartsRows::GetPart(int row)
{
    std::vector<CPartValue> values;
    if (!GoTo(row))
        return values;
    for (int column = 0; column < m_Rows->GetFieldCount(); ++column)
    {
        values.push_back(
            {m_Columns[static_cast<std::size_t>(column)].m_Name, m_Rows->GetFieldData(column)});
    }
    return values;
}

} // namespace partsdesk
