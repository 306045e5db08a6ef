#include "database/transfer/TableCopy.h"

#include "database/DBADatabase.h"
#include "database/transfer/TableReader.h"
#include "database/transfer/TableSummary.h"
#include "database/transfer/TableWriter.h"
#include "database/transfer/TypeMap.h"
#include "platform/db/DBException.h"
#include "platform/db/DelimitName.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::int64_t STEP_ROWS = 1000; // between two looks at the caller

// Without it MariaDB cuts what does not fit, and counts a zero up.
constexpr const char16_t* MARIADB_STRICT =
    u"SET SESSION sql_mode=CONCAT(@@sql_mode,',STRICT_ALL_TABLES,NO_AUTO_VALUE_ON_ZERO')";

/// Rows that come to stand together: gone unless committed.
class CRowsTransaction
{
public:
    explicit CRowsTransaction(CDatabase& database) : m_Database(database)
    {
        if (!m_Database.BeginTrans())
            m_Database.ThrowDBException(SQL_ERROR);
    }
    ~CRowsTransaction()
    {
        if (m_Database.IsInTransaction())
            m_Database.Rollback();
    }
    CRowsTransaction(const CRowsTransaction&) = delete;
    CRowsTransaction& operator=(const CRowsTransaction&) = delete;

    void Commit()
    {
        if (!m_Database.CommitTrans())
            m_Database.ThrowDBException(SQL_ERROR);
    }

private:
    CDatabase& m_Database;
};

void ReadValues(const CTableReader& reader, std::vector<CDbValue>& values)
{
    values.resize(reader.GetColumns().size());
    for (std::size_t column = 0; column < values.size(); ++column)
        values[column] = reader.GetValue(column);
}

std::vector<CString> NamesOf(const std::vector<CTransferColumn>& columns)
{
    std::vector<CString> names;
    for (const CTransferColumn& column : columns)
        names.push_back(column.Name);
    return names;
}

CCopyResult Stopped()
{
    CCopyResult result;
    result.m_End = ECopyEnd::Stopped;
    return result;
}

} // namespace

CTableCopy::CTableCopy(CDBADatabase& from, CDBADatabase& to, const CProgress& progress)
    : m_From(from),
      m_To(to),
      m_Progress(progress),
      m_Target(FindSourceKind(to))
{
    if (m_Target == ESourceKind::MariaDB)
        to.ExecuteSQL(MARIADB_STRICT);
}

CCopyResult CTableCopy::Copy(const CString& table)
{
    m_Columns = CTableReader(m_From, table).GetColumns();
    if (m_To.TableExists(DoubleBrackets(table)))
        return Compare(table);
    const std::vector<CTransferColumn> columns =
        WidenColumns(FindSourceKind(m_From), m_Target, m_Columns);
    m_To.ExecuteSQL(ComposeCreateTable(m_Target, table, columns));
    struct CDropUnlessFilled
    {
        CTableCopy& Copy;
        const CString& Table;
        bool IsFilled = false;
        ~CDropUnlessFilled()
        {
            if (!IsFilled)
                Copy.Drop(Table);
        }
    } made{*this, table};
    m_ToColumns = CTableReader(m_To, table, NamesOf(m_Columns)).GetColumns();
    const CCopyResult result = Fill(table);
    made.IsFilled = result.m_End == ECopyEnd::Copied;
    return result;
}

/// The table stands in the target.
CCopyResult CTableCopy::Compare(const CString& table)
{
    CCopyResult result;
    if (!HasColumns(table, result))
        return result;
    CTableSummary there(m_Columns);
    {
        CTableReader reader(m_To, table, NamesOf(m_Columns));
        m_ToColumns = reader.GetColumns();
        if (!Summarise(reader, there))
            return Stopped();
    }
    if (there.GetRowCount() == 0)
        return Fill(table);
    CTableSummary here(m_Columns);
    CTableReader reader(m_From, table);
    if (!Summarise(reader, here))
        return Stopped();
    result.m_End = here.IsSame(there) ? ECopyEnd::StandsAlready : ECopyEnd::OtherRows;
    result.m_Rows = here.GetRowCount();
    result.m_Checksum = here.GetChecksum();
    return result;
}

bool CTableCopy::HasColumns(const CString& table, CCopyResult& result)
{
    const std::vector<CTransferColumn> there = CTableReader(m_To, table).GetColumns();
    for (const CTransferColumn& column : m_Columns)
    {
        const auto isSame = [&](const CTransferColumn& other)
        {
            return other.Name.CompareNoCase(column.Name) == 0;
        };
        const auto found = std::find_if(there.begin(), there.end(), isSame);
        if (found == there.end())
        {
            result.m_End = ECopyEnd::NoColumn;
            result.m_Column = column.Name;
            return false;
        }
    }
    return true;
}

CCopyResult CTableCopy::Fill(const CString& table)
{
    CCopyResult result;
    CTableSummary sent(m_Columns);
    CRowsTransaction transaction(m_To);
    const bool isWritten = WriteRows(table, sent, result);
    result.m_Rows = sent.GetRowCount();
    result.m_Checksum = sent.GetChecksum();
    if (!isWritten)
        return result;
    CTableSummary back(m_Columns);
    {
        CTableReader reader(m_To, table, NamesOf(m_Columns));
        if (!Summarise(reader, back))
        {
            result.m_End = ECopyEnd::Stopped;
            return result;
        }
    }
    if (back.IsSame(sent))
        transaction.Commit();
    else
        result.m_End = ECopyEnd::Differs;
    return result;
}

bool CTableCopy::WriteRows(const CString& table, CTableSummary& summary, CCopyResult& result)
{
    CTableReader reader(m_From, table);
    CTableWriter writer(m_To, table, m_Columns);
    while (reader.Next())
    {
        ReadValues(reader, m_Values);
        result.m_Row = reader.GetRowNumber();
        if (!Step())
        {
            result.m_End = ECopyEnd::Stopped;
            return false;
        }
        if (!IsRowFit(reader, result) || !WriteRow(table, writer, result))
            return false;
        summary.Add(m_Values);
    }
    return true;
}

bool CTableCopy::IsRowFit(const CTableReader& reader, CCopyResult& result)
{
    for (std::size_t column = 0; column < m_Columns.size(); ++column)
    {
        result.m_Storage = reader.FindWrongStorage(column);
        result.m_Fault = result.m_Storage.empty() ? FindMisfit(m_Target, m_ToColumns[column],
                                                               m_Columns[column], m_Values[column])
                                                  : ECellFault::WrongStorage;
        if (result.m_Fault == ECellFault::None)
            continue;
        result.m_End = ECopyEnd::Misfit;
        result.m_Column = m_Columns[column].Name;
        return false;
    }
    return true;
}

bool CTableCopy::WriteRow(const CString& table, CTableWriter& writer, CCopyResult& result)
{
    try
    {
        writer.Write(m_Values);
        return true;
    }
    catch (CDBException* exception)
    {
        if (exception->m_Failure == EDBFailure::NoServer)
            throw;
        const CExceptionGuard guard(exception);
        result.m_End = ECopyEnd::Refused;
        result.m_Words = exception->GetErrorText();
    }
    FindRefusedColumn(table, result);
    return false;
}

/// The column without whose value the row is taken; none where even that does not help.
void CTableCopy::FindRefusedColumn(const CString& table, CCopyResult& result)
{
    m_To.Rollback(); // the rows go, and a server that takes nothing after a refusal listens again
    for (std::size_t column = 0; column < m_Columns.size(); ++column)
    {
        if (m_Values[column].IsNull || !m_ToColumns[column].IsNullable)
            continue;
        const CDbValue value = m_Values[column];
        m_Values[column].IsNull = true;
        const bool isTaken = CanWrite(table);
        m_Values[column] = value;
        if (isTaken)
        {
            result.m_Column = m_Columns[column].Name;
            return;
        }
    }
}

bool CTableCopy::CanWrite(const CString& table)
{
    try
    {
        const CRowsTransaction undone(m_To);
        CTableWriter(m_To, table, m_Columns).Write(m_Values);
        return true;
    }
    catch (CDBException* exception)
    {
        exception->Delete(); // the refusal of the whole row is the one to tell
        return false;
    }
}

void CTableCopy::Drop(const CString& table)
{
    try
    {
        m_To.ExecuteSQL(u"DROP TABLE " + DelimitName(table));
    }
    catch (CDBException* exception)
    {
        exception->Delete(); // it stays empty, so that the next copy fills it
    }
}

bool CTableCopy::Summarise(CTableReader& reader, CTableSummary& summary)
{
    while (reader.Next())
    {
        if (!Step())
            return false;
        ReadValues(reader, m_Values);
        summary.Add(m_Values);
    }
    return true;
}

bool CTableCopy::Step()
{
    return m_Steps++ % STEP_ROWS != 0 || m_Progress(m_Steps);
}

} // namespace utility
