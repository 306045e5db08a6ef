#include "database/transfer/TableWriter.h"

#include "database/transfer/CellText.h"
#include "platform/db/DBException.h"
#include "platform/db/Database.h"
#include "platform/db/DelimitName.h"
#include "platform/db/Driver.h"

namespace utility
{

namespace
{

/// What the driver is told of a mark: whatever the column's type, a text is a text, and the source
/// makes of it what it needs. Only so do dates and decimals arrive as they are written.
const CODBCFieldInfo& FieldOf(EValueKind kind)
{
    const auto make = [](short type)
    {
        CODBCFieldInfo info;
        info.m_nSQLType = type;
        return info;
    };
    static const CODBCFieldInfo integer = make(SQL_BIGINT);
    static const CODBCFieldInfo real = make(SQL_DOUBLE);
    static const CODBCFieldInfo binary = make(SQL_LONGVARBINARY);
    static const CODBCFieldInfo text = make(SQL_LONGVARCHAR);
    switch (kind)
    {
    case EValueKind::Integer:
        return integer;
    case EValueKind::Real:
        return real;
    case EValueKind::Binary:
        return binary;
    default:
        return text;
    }
}

} // namespace

CTableWriter::CTableWriter(CDatabase& database, const CString& table,
                           const std::vector<CTransferColumn>& columns)
    : m_Database(database),
      m_Kind(FindSourceKind(database)),
      m_Columns(columns),
      m_Statement(database.m_hdbc->MakeStatement(database.GetQueryTimeout()))
{
    if (!m_Statement)
        AfxThrowDBException(SQL_ERROR, &m_Database, nullptr);
    CString names;
    CString marks;
    for (const CTransferColumn& column : columns)
    {
        names += (names.IsEmpty() ? u"" : u", ") + DelimitName(column.Name);
        marks += marks.IsEmpty() ? u"?" : u", ?";
    }
    const CString sql =
        u"INSERT INTO " + DelimitName(table) + u" (" + names + u") VALUES (" + marks + u")";
    Require(m_Statement->Prepare(sql.View()));
}

CTableWriter::~CTableWriter() = default;

void CTableWriter::Require(RETCODE code)
{
    if (code != SQL_SUCCESS && code != SQL_SUCCESS_WITH_INFO)
        AfxThrowDBException(code, &m_Database, m_Statement.get());
}

void CTableWriter::Write(std::span<const CDbValue> values)
{
    for (std::size_t index = 0; index < values.size(); ++index)
        SetMark(index, values[index]);
    Require(m_Statement->ExecutePrepared());
}

void CTableWriter::SetMark(std::size_t index, const CDbValue& value)
{
    const ETransferType type = m_Columns[index].Type;
    // PostgreSQL's driver rounds a bound double, and takes no number for a truth value.
    const bool isNumberAsText = m_Kind == ESourceKind::PostgreSQL &&
                                (value.Kind == EValueKind::Real || type == ETransferType::Bit);
    CDbValue sent = value;
    if (!value.IsNull && (isNumberAsText || IsDateOrTime(type)) &&
        MakeCellText(type, value, m_Text))
    {
        sent.Kind = EValueKind::Text;
        sent.Bytes = m_Text;
    }
    else if (value.IsNull && type != ETransferType::Binary)
        sent.Kind = EValueKind::Text;
    Require(m_Statement->SetParameter(index, sent, FieldOf(sent.Kind)));
}

} // namespace utility
