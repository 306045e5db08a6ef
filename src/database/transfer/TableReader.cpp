#include "database/transfer/TableReader.h"

#include "database/ODBCRecordset.h"
#include "database/transfer/StorageCheck.h"
#include "database/transfer/TypeMap.h"
#include "platform/db/DBException.h"
#include "platform/db/Database.h"
#include "platform/db/DelimitName.h"
#include "platform/db/Driver.h"
#include "platform/db/SnapshotStore.h"

#include <charconv>

namespace utility
{

namespace
{

constexpr std::size_t BATCH_ROWS = 1000;
constexpr std::size_t BATCH_BYTES = 8 * 1024 * 1024; // of texts and binaries

EValueKind KindOf(ESourceKind source, ETransferType type)
{
    if (source == ESourceKind::SQLite && IsReal(type))
        return EValueKind::Text;
    switch (type)
    {
    case ETransferType::Bit:
    case ETransferType::Small:
    case ETransferType::Integer:
        return EValueKind::Integer;
    case ETransferType::Single:
    case ETransferType::Real:
        return EValueKind::Real;
    case ETransferType::Binary:
        return EValueKind::Binary;
    default:
        return EValueKind::Text;
    }
}

/// How a column is selected so that nothing of it is lost: the drivers read dates into records that
/// know no infinity and no fifth digit of a year, SQLite's reads a double with 15 digits, and
/// MariaDB writes a FLOAT with six.
CString ComposeRead(ESourceKind kind, const CTransferColumn& column)
{
    const CString name = DelimitName(column.Name);
    if (kind == ESourceKind::PostgreSQL && column.Type == ETransferType::Timestamp)
        return u"CAST(CAST(" + name + u" AS TIMESTAMP) AS VARCHAR)"; // a zone becomes local time
    if (kind == ESourceKind::PostgreSQL && IsDateOrTime(column.Type))
        return u"CAST(" + name + u" AS VARCHAR)";
    if (kind == ESourceKind::SQLite && IsReal(column.Type))
        return u"CASE typeof(" + name + u") WHEN 'real' THEN printf('%!.20g'," + name + u") ELSE " +
               name + u" END";
    if (kind == ESourceKind::MariaDB && column.Type == ETransferType::Single)
        return u"CAST(" + name + u" AS DOUBLE)";
    return name;
}

CString Join(const std::vector<CString>& pieces)
{
    CString list;
    for (const CString& piece : pieces)
        list += (list.IsEmpty() ? u"" : u", ") + piece;
    return list;
}

bool IsDone(RETCODE code)
{
    return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

} // namespace

CTableReader::CTableReader(CDatabase& database, const CString& table,
                           const std::vector<CString>& names)
    : m_Database(database),
      m_Table(table),
      m_Kind(FindSourceKind(database))
{
    Describe(names);
    if (m_Kind == ESourceKind::SQLite)
        ReadDeclaredTypes();
}

CTableReader::~CTableReader() = default;

void CTableReader::Require(RETCODE code) const
{
    if (!IsDone(code))
        AfxThrowDBException(code, &m_Database, m_Statement.get());
}

void CTableReader::Describe(const std::vector<CString>& names)
{
    std::vector<CString> delimited;
    for (const CString& name : names)
        delimited.push_back(DelimitName(name));
    const CString list = names.empty() ? CString(u"*") : Join(delimited);
    m_Statement = m_Database.m_hdbc->MakeStatement(0);
    if (!m_Statement)
        AfxThrowDBException(SQL_ERROR, &m_Database, nullptr);
    const CString sql = u"SELECT " + list + u" FROM " + DelimitName(m_Table) + u" WHERE 0";
    Require(m_Statement->Execute(sql.View()));
    std::vector<CODBCFieldInfo> infos;
    Require(m_Statement->DescribeColumns(infos));
    for (const CODBCFieldInfo& info : infos)
    {
        m_Columns.push_back(ReadColumn(m_Kind, info));
        m_Infos.push_back(info);
    }
    m_Statement.reset();
}

void CTableReader::ReadDeclaredTypes()
{
    CString name = m_Table;
    name.Replace(u"'", u"''");
    CODBCRecordset rows(&m_Database);
    for (rows.Open(u"SELECT [name], [type], [notnull] FROM pragma_table_info('" + name + u"')");
         !rows.IsEOF(); rows.MoveNext())
        for (std::size_t column = 0; column < m_Columns.size(); ++column)
            if (m_Columns[column].Name.CompareNoCase(rows.GetString(0)) == 0)
                m_Columns[column] =
                    ReadDeclaredColumn(m_Infos[column], rows.GetString(1), rows.GetInt(2) == 0);
}

CString CTableReader::ComposeSelect() const
{
    std::vector<CString> pieces;
    for (const CTransferColumn& column : m_Columns)
        pieces.push_back(ComposeRead(m_Kind, column));
    if (m_Kind == ESourceKind::SQLite)
        for (const CString& check : ComposeStorageChecks(m_Columns))
            pieces.push_back(check);
    return u"SELECT " + Join(pieces) + u" FROM " + DelimitName(m_Table);
}

void CTableReader::Open()
{
    m_Statement = m_Database.m_hdbc->MakeStatement(0); // a long table may take its time
    if (!m_Statement)
        AfxThrowDBException(SQL_ERROR, &m_Database, nullptr);
    Require(m_Statement->Execute(ComposeSelect().View()));
    std::vector<CODBCFieldInfo> infos;
    Require(m_Statement->DescribeColumns(infos));
    std::vector<CColumnLayout> layouts;
    for (std::size_t column = 0; column < infos.size(); ++column)
    {
        m_Kinds.push_back(column < m_Columns.size() ? KindOf(m_Kind, m_Columns[column].Type)
                                                    : EValueKind::Text);
        layouts.push_back({m_Kinds.back(), 0});
    }
    Require(m_Statement->BindColumns(layouts));
    m_Batch = std::make_unique<CSnapshotStore>(m_Kinds);
}

bool CTableReader::Next()
{
    if (!m_Batch)
        Open();
    else
        ++m_BatchRow;
    if (m_BatchRow >= m_Batch->GetRowCount() && !FetchBatch())
        return false;
    ++m_RowNumber;
    return true;
}

/// The store stays where it is: the statement may fill it on its own when the connection is wanted
/// for something else.
bool CTableReader::FetchBatch()
{
    *m_Batch = CSnapshotStore(m_Kinds);
    m_BatchRow = 0;
    std::size_t bytes = 0;
    while (!m_IsAtEnd && m_Batch->GetRowCount() < BATCH_ROWS && bytes < BATCH_BYTES)
    {
        const std::size_t before = m_Batch->GetRowCount();
        const RETCODE code = m_Statement->FetchRows(*m_Batch);
        m_IsAtEnd = code == SQL_NO_DATA;
        if (!m_IsAtEnd)
            Require(code);
        for (std::size_t row = before; row < m_Batch->GetRowCount(); ++row)
            for (std::size_t column = 0; column < m_Columns.size(); ++column)
                bytes += m_Batch->Get(row, column).Bytes.size();
    }
    return m_Batch->GetRowCount() > 0;
}

CDbValue CTableReader::GetValue(std::size_t column) const
{
    CDbValue value = m_Batch->Get(m_BatchRow, column);
    if (value.IsNull || value.Kind != EValueKind::Text || !IsReal(m_Columns[column].Type))
        return value;
    double number = 0;
    const auto read =
        std::from_chars(value.Bytes.data(), value.Bytes.data() + value.Bytes.size(), number);
    if (read.ec != std::errc())
        return value; // no number: the wrong storage tells
    value.Kind = EValueKind::Real;
    value.Real = number;
    return value;
}

std::string_view CTableReader::FindWrongStorage(std::size_t column) const
{
    if (m_Kind != ESourceKind::SQLite)
        return {};
    const CDbValue told = m_Batch->Get(m_BatchRow, m_Columns.size() + StorageCheckOf(column));
    return told.IsNull ? std::string_view() : FindStorage(told.Bytes, column);
}

} // namespace utility
