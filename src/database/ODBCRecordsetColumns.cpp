#include "database/ODBCRecordset.h"
#include "platform/db/ODBCFieldInfo.h"

namespace utility
{

namespace
{

// The field type that holds a column of an ODBC type; large and exact numbers come as text on
// purpose.
DWORD FieldTypeOf(short sqlType)
{
    switch (sqlType)
    {
    case SQL_WLONGVARCHAR:
    case SQL_WVARCHAR:
    case SQL_WCHAR:
    case SQL_LONGVARCHAR:
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_BIGINT:
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        return DBVT_STRING;
    case SQL_BIT:
        return DBVT_BOOL;
    case SQL_TINYINT:
        return DBVT_UCHAR;
    case SQL_LONGVARBINARY:
    case SQL_VARBINARY:
    case SQL_BINARY:
        return DBVT_BINARY;
    case SQL_INTEGER:
        return DBVT_LONG;
    case SQL_SMALLINT:
        return DBVT_SHORT;
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return DBVT_DOUBLE;
    case SQL_REAL:
        return DBVT_SINGLE;
    case SQL_DATE:
    case SQL_TIME:
    case SQL_TIMESTAMP:
        return DBVT_DATE;
    default:
        return DBVT_NULL;
    }
}

} // namespace

void CODBCRecordset::PreBindFields()
{
    if (!m_bNeedLoad || m_nResultCols < 1)
        return;
    LoadFieldNamesMap();
    m_bNeedLoad = false;
}

void CODBCRecordset::LoadFieldNamesMap()
{
    const int count = std::max<int>(m_nResultCols, 0);
    m_NameMap.clear();
    m_Keys.clear();
    m_SqlTypes.clear();
    m_Precisions.clear();
    m_nFields = count;
    if (m_AllocatedFields < count)
    {
        m_Fields = std::make_unique<CDBField[]>(static_cast<std::size_t>(count));
        m_AllocatedFields = count;
    }
    for (int index = 0; index < count; ++index)
        LoadColumn(index);
}

// Enters a column under the first of Name, Name2, Name3 ... that is free.
void CODBCRecordset::LoadColumn(int index)
{
    CODBCFieldInfo info;
    GetODBCFieldInfo(static_cast<short>(index), info);
    CDBField& field = m_Fields[static_cast<std::size_t>(index)];
    field.Clear();
    field.SetType(FieldTypeOf(info.m_nSQLType));

    CString name = info.m_strName;
    CString key = FoldName(name);
    for (int number = 2; GetFieldID(key) >= 0; ++number)
    {
        name.Format(u"%s%d", info.m_strName, number);
        key = FoldName(name);
    }
    field.m_strName = name;
    field.m_bParam = false;
    field.m_DateFormat = m_DateOutputFormat;
    m_NameMap[key] = index;
    m_Keys.push_back(key);
    m_SqlTypes.push_back(info.m_nSQLType);
    m_Precisions.push_back(static_cast<int>(std::min<std::uint32_t>(info.m_nPrecision, INT32_MAX)));
}

CString CODBCRecordset::FoldName(const CString& name) const
{
    CString key(name);
    if (m_ColSyntax == COL_SYNTAX_LOWER)
        key.MakeLower();
    else if (m_ColSyntax == COL_SYNTAX_UPPER)
        key.MakeUpper();
    return key;
}

int CODBCRecordset::GetFieldID(const CString& name) const
{
    const auto found = m_NameMap.find(FoldName(name));
    return found == m_NameMap.end() ? -1 : found->second;
}

CString CODBCRecordset::GetFieldName(int index) const
{
    if (index < 0 || index >= static_cast<int>(m_Keys.size()))
        return CString();
    const auto place = static_cast<std::size_t>(index);
    return m_ColSyntax == COL_SYNTAX_LOWER ? m_Fields[place].GetName() : m_Keys[place];
}

CString CODBCRecordset::GetLiteralFieldName(int index) const
{
    if (index < 0 || index >= static_cast<int>(m_Keys.size()))
        return CString();
    return m_Fields[static_cast<std::size_t>(index)].GetName();
}

void CODBCRecordset::ResetFields()
{
    m_Fields.reset();
    m_AllocatedFields = 0;
    m_nFields = 0;
    m_NameMap.clear();
    m_Keys.clear();
    m_SqlTypes.clear();
    m_Precisions.clear();
    m_Params.clear();
    m_nParams = 0;
}

CDBField& CODBCRecordset::MakeDateParam(CDBField& field)
{
    field.TakeParamType(DBVT_DATE);
    return field;
}

} // namespace utility
