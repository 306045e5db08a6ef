#include "database/ODBCRecordset.h"
#include "frame/AppLogBlock.h"
#include "platform/db/FieldExchange.h"

namespace utility
{

namespace
{

// A text column holds what its driver tells, within these limits, in units.
constexpr int TEXT_LIMIT_LEAST = 512;
constexpr int TEXT_LIMIT_MOST = 8196;
constexpr int TEXT_PARAM_LIMIT = 255;

const CAppLogContext& RecordsetContext()
{
    static const CAppLogContext context(u"ODBCRecordset", 0);
    return context;
}

const CAppLogContext& DetailsContext()
{
    static const CAppLogContext context(u"ODBCRecordsetDetails", 0);
    return context;
}

CString DelimitedName(const CString& name)
{
    return u"[" + name + u"]";
}

// Only the binding operations read names; the others run for every row.
bool ReadsNames(const CFieldExchange& exchange)
{
    return exchange.m_nOperation == CFieldExchange::BindParam ||
           exchange.m_nOperation == CFieldExchange::BindFieldToColumn;
}

void ExchangeParam(CFieldExchange& exchange, LPCWSTR name, CDBVariant& value)
{
    switch (value.m_dwType)
    {
    case DBVT_STRING:
        RFX_Text(&exchange, name, *value.m_pstring, TEXT_PARAM_LIMIT, SQL_VARCHAR, 0);
        break;
    case DBVT_WSTRING:
        RFX_Text(&exchange, name, *value.m_pstringW, TEXT_PARAM_LIMIT, SQL_VARCHAR, 0);
        break;
    case DBVT_ASTRING:
        RFX_Text(&exchange, name, *value.m_pstringA, TEXT_PARAM_LIMIT, SQL_VARCHAR, 0);
        break;
    default:
        break;
    }
}

// The types that columns and parameters exchange alike; false for texts and a field without type.
bool ExchangePlain(CFieldExchange& exchange, LPCWSTR name, CDBVariant& value)
{
    switch (value.m_dwType)
    {
    case DBVT_BOOL:
        RFX_Bool(&exchange, name, value.m_boolVal);
        return true;
    case DBVT_UCHAR:
        RFX_Byte(&exchange, name, value.m_chVal);
        return true;
    case DBVT_SHORT:
    {
        // Small whole numbers travel as 32-bit ones, and are noted as such from the first exchange
        // on.
        const LONG widened = value.m_iVal;
        value.SetType(DBVT_LONG);
        value.m_lVal = widened;
        [[fallthrough]];
    }
    case DBVT_LONG:
        RFX_Long(&exchange, name, value.m_lVal);
        return true;
    case DBVT_SINGLE:
        RFX_Single(&exchange, name, value.m_fltVal);
        return true;
    case DBVT_DOUBLE:
        RFX_Double(&exchange, name, value.m_dblVal);
        return true;
    case DBVT_DATE:
        RFX_Date(&exchange, name, *value.m_pdate);
        return true;
    case DBVT_BINARY:
        RFX_LongBinary(&exchange, name, *value.m_pbinary);
        return true;
    default:
        return false;
    }
}

} // namespace

void CODBCRecordset::Move(std::int32_t rows, WORD fetchType)
{
    if (m_nFieldsBound == 0)
    {
        InitRecord();
        ResetCursor();
    }
    if (m_nFieldsBound > 0)
        ClearFieldStatus();
    CheckRowsetCurrencyStatus(fetchType, rows);

    const bool steps = fetchType == SQL_FETCH_NEXT || fetchType == SQL_FETCH_FIRST ||
                       fetchType == SQL_FETCH_LAST || fetchType == SQL_FETCH_PRIOR ||
                       fetchType == SQL_FETCH_RELATIVE;
    const RETCODE code = steps && (m_dwOptions & skipDeletedRecords) != 0
                             ? SkipDeletedRecords(fetchType, rows)
                             : FetchData(fetchType, rows);
    SetRowsetCurrencyStatus(code, fetchType, rows);
    if (m_nFields > 0 && !IsBOF() && !IsEOF())
        Fixups();
}

void CODBCRecordset::InitRecord()
{
    const CAppLogBlock block(RecordsetContext(), u"CODBCRecordset::InitRecord");
    if (m_nFields == 0)
    {
        m_nFieldsBound = -1;
        return;
    }
    m_nFieldsBound = BindFieldsToColumns();
    if (m_bCheckCacheForDirtyFields && (m_dwOptions & noDirtyFieldCheck) == 0)
        AllocDataCache();
}

void CODBCRecordset::DoFieldExchange(CFieldExchange* exchange)
{
    const CAppLogBlock block(DetailsContext(), u"CODBCRecordset::DoFieldExchange");
    if (exchange->m_nOperation == CFieldExchange::BindParam)
        ExchangeParams(*exchange);
    else
        ExchangeColumns(*exchange);
}

void CODBCRecordset::ExchangeParams(CFieldExchange& exchange)
{
    exchange.SetFieldType(CFieldExchange::param);
    for (const auto& param : m_Params)
    {
        const CString name = DelimitedName(param->GetName());
        if (ExchangePlain(exchange, name, *param))
            continue;
        if (param->m_dwType == DBVT_NULL)
            RFX_Null(&exchange, name); // named, but never assigned
        else
            ExchangeParam(exchange, name, *param);
    }
}

void CODBCRecordset::ExchangeColumns(CFieldExchange& exchange)
{
    const bool traced = CAppLog::IsStarted(DetailsContext());
    const bool named = traced || ReadsNames(exchange);
    exchange.SetFieldType(CFieldExchange::outputColumn);
    for (int index = 0; index < static_cast<int>(m_Keys.size()); ++index)
    {
        if (named)
            ExchangeNamedColumn(exchange, index, traced);
        else
            ExchangeColumn(exchange, u"", index, false);
        const bool isNull = IsFieldStatusNull(static_cast<DWORD>(index));
        m_Fields[static_cast<std::size_t>(index)].m_NullState = isNull ? 1 : 0;
        if (exchange.m_nOperation == CFieldExchange::LoadField &&
            IsFieldCut(static_cast<DWORD>(index)))
            TraceCutColumn(index);
    }
}

void CODBCRecordset::ExchangeNamedColumn(CFieldExchange& exchange, int index, bool traced)
{
    const CString name = DelimitedName(GetFieldName(index));
    if (traced)
        CAppLog::Log(DetailsContext(), u"FieldName[%1!d!]=%2, Type=%3!d!\n", index, name,
                     m_Fields[static_cast<std::size_t>(index)].m_dwType);
    ExchangeColumn(exchange, name, index, traced);
}

void CODBCRecordset::ExchangeColumn(CFieldExchange& exchange, LPCWSTR name, int index, bool traced)
{
    const auto place = static_cast<std::size_t>(index);
    CDBField& field = m_Fields[place];
    if (field.m_dwType != DBVT_STRING)
    {
        if (!ExchangePlain(exchange, name, field))
            RFX_Null(&exchange, name);
        return;
    }
    if (traced)
        CAppLog::Log(DetailsContext(), u"RFX_Text(%1, Precision=%2!d!, SQLType=%3!d!)\n", name,
                     m_Precisions[place], static_cast<int>(m_SqlTypes[place]));
    const int limit = std::clamp(m_Precisions[place], TEXT_LIMIT_LEAST, TEXT_LIMIT_MOST);
    RFX_Text(&exchange, name, *field.m_pstring, limit, SQL_VARCHAR, 0);
}

void CODBCRecordset::TraceCutColumn(int index)
{
    if (IsFieldStatusNull(static_cast<DWORD>(index)))
        CAppLog::Log(RecordsetContext(), u"Date of [%1] cannot be read\n", GetFieldName(index));
    else
        CAppLog::Log(RecordsetContext(), u"Text of [%1] is cut at %2!d! characters\n",
                     GetFieldName(index),
                     m_Fields[static_cast<std::size_t>(index)].m_pstring->GetLength());
}

} // namespace utility
