#include "platform/db/FieldExchange.h"

#include "platform/db/DBException.h"
#include "platform/db/DBRefusal.h"
#include "platform/db/FieldFaces.h"
#include "platform/db/Recordset.h"
#include "platform/db/RecordsetRows.h"

namespace utility
{

/// What an exchange reaches inside a recordset.
class CFieldExchangeAccess
{
public:
    static CRecordsetRows& Rows(const CFieldExchange& exchange) { return *exchange.m_prs->m_Rows; }

    static BYTE& Status(const CFieldExchange& exchange, std::size_t field)
    {
        std::vector<BYTE>& status = exchange.m_prs->m_FieldStatus;
        if (field >= status.size())
            status.resize(field + 1);
        return status[field];
    }

    static constexpr BYTE IS_NULL = CRecordset::FIELD_NULL;
    static constexpr BYTE IS_DIRTY = CRecordset::FIELD_DIRTY;
    static constexpr BYTE IS_CUT = CRecordset::FIELD_CUT;
    static constexpr BYTE IS_NULL_IN_PLACE = IS_NULL | IS_CUT; // of a value that cannot be read
};

namespace
{

using CAccess = CFieldExchangeAccess;

[[noreturn]] void ThrowForColumn(RETCODE code, const CFieldExchange& exchange, std::size_t column)
{
    ThrowRefusal(code, CAccess::Rows(exchange).GetColumns()[column].m_strName.View());
}

std::size_t RequireColumn(const CFieldExchange& exchange, int index)
{
    const auto column = static_cast<std::size_t>(index);
    if (column >= CAccess::Rows(exchange).GetColumns().size())
        ThrowRefusal(AFX_SQL_ERROR_WRONG_TYPE, u"that the query does not have");
    return column;
}

template <typename TFace>
void TakeOrThrow(const CFieldExchange& exchange, const TFace& face, const CDbValue& value,
                 std::size_t column)
{
    const ETaken taken = face.Take(value);
    if (taken != ETaken::Yes)
        ThrowForColumn(taken == ETaken::OutOfRange ? AFX_SQL_ERROR_OUT_OF_RANGE
                                                   : AFX_SQL_ERROR_WRONG_TYPE,
                       exchange, column);
}

template <typename TFace>
void LoadField(const CFieldExchange& exchange, const TFace& face, std::size_t column)
{
    const CDbValue value = CAccess::Rows(exchange).GetCurrent(column);
    BYTE& status = CAccess::Status(exchange, column);
    if (value.IsNull)
    {
        face.Empty();
        status = value.IsCut ? CAccess::IS_NULL_IN_PLACE : CAccess::IS_NULL;
        return;
    }
    TakeOrThrow(exchange, face, value, column);
    status = value.IsCut ? CAccess::IS_CUT : BYTE{0};
}

template <typename TFace>
void ArmField(const CFieldExchange& exchange, const TFace& face, std::size_t column)
{
    CAccess::Status(exchange, column) = CAccess::IS_NULL;
    if constexpr (requires { face.Arm(); })
        face.Arm();
    else
        face.Empty();
}

/// A field that was marked by hand stays as it was marked.
template <typename TFace>
void MarkIfChanged(const CFieldExchange& exchange, const TFace& face, std::size_t column)
{
    if constexpr (requires { face.Arm(); })
    {
        BYTE& status = CAccess::Status(exchange, column);
        if ((status & CAccess::IS_DIRTY) != 0)
            return;
        typename TFace::TField before{};
        const TFace beforeFace = face.On(before);
        const CRecordsetRows& rows = CAccess::Rows(exchange);
        const CDbValue value = rows.GetCurrent(column);
        if (rows.EditMode == EEditMode::AddNew || value.IsNull)
            beforeFace.Arm();
        else
            TakeOrThrow(exchange, beforeFace, value, column);
        if (face.IsChanged(before))
            status = CAccess::IS_DIRTY;
    }
}

template <typename TFace>
void SendIfDirty(const CFieldExchange& exchange, const TFace& face, std::size_t column)
{
    const BYTE status = CAccess::Status(exchange, column);
    if ((status & CAccess::IS_DIRTY) == 0)
        return;
    CRowChange& change = CAccess::Rows(exchange).Changes.emplace_back();
    change.Column = column;
    if ((status & CAccess::IS_NULL) == 0) // what a field set to NULL holds is nobody's value
        change.Value = face.Give(change.Bytes);
}

template <typename TFace>
void SendParameter(const CFieldExchange& exchange, const TFace& face, int index, short sqlType,
                   short scale)
{
    std::string bytes;
    CDbValue value = face.Give(bytes);
    value.Bytes = bytes;
    CODBCFieldInfo column;
    column.m_nSQLType = sqlType;
    column.m_nScale = scale;
    StatementRecord& statement = CAccess::Rows(exchange).GetStatement();
    const RETCODE code = statement.SetParameter(static_cast<std::size_t>(index), value, column);
    if (code != SQL_SUCCESS && code != SQL_SUCCESS_WITH_INFO)
        exchange.m_prs->ThrowDBException(code, &statement);
}

template <typename TFace>
void ExchangeColumn(const CFieldExchange& exchange, const TFace& face, int index)
{
    const std::size_t column = RequireColumn(exchange, index);
    switch (exchange.m_nOperation)
    {
    case CFieldExchange::BindParam:
    case CFieldExchange::BindFieldToColumn:
        break;
    case CFieldExchange::LoadField:
        LoadField(exchange, face, column);
        break;
    case CFieldExchange::ClearField:
        ArmField(exchange, face, column);
        break;
    case CFieldExchange::ArmNullField:
        if ((CAccess::Status(exchange, column) & CAccess::IS_NULL) != 0)
            ArmField(exchange, face, column);
        break;
    case CFieldExchange::MarkDirty:
        MarkIfChanged(exchange, face, column);
        break;
    case CFieldExchange::SendDirty:
        SendIfDirty(exchange, face, column);
        break;
    }
}

template <typename TFace>
void ExchangeField(CFieldExchange* exchange, const TFace& face, short sqlType)
{
    int index = 0;
    if (!exchange->IsFieldType(index))
        return;
    if (exchange->m_nOperation == CFieldExchange::BindParam)
        SendParameter(*exchange, face, index, sqlType, 0);
    else
        ExchangeColumn(*exchange, face, index);
}

template <typename TFace>
void ExchangeText(CFieldExchange* exchange, LPCWSTR name, const TFace& face, int maxLength,
                  int columnType, short scale)
{
    int index = 0;
    if (!exchange->IsFieldType(index))
        return;
    if (exchange->m_nOperation == CFieldExchange::BindParam)
    {
        if (face.IsLongerThan(maxLength))
            ThrowRefusal(AFX_SQL_ERROR_TEXT_TOO_LONG, name ? name : u"");
        SendParameter(*exchange, face, index, static_cast<short>(columnType), scale);
        return;
    }
    if (exchange->m_nOperation == CFieldExchange::BindFieldToColumn)
        CAccess::Rows(*exchange).SetTextLimit(static_cast<std::size_t>(index), maxLength);
    ExchangeColumn(*exchange, face, index);
}

} // namespace

bool CFieldExchange::IsFieldType(int& index)
{
    const bool wantsParams = m_nOperation == BindParam;
    if (m_nFieldType == noFieldType || wantsParams != (m_nFieldType == param))
        return false;
    index = m_nFields++;
    return true;
}

void RFX_Bool(CFieldExchange* exchange, LPCWSTR /*name*/, BOOL& value)
{
    ExchangeField(exchange, CIntegerFace{value, EValueKind::Bit}, SQL_BIT);
}

void RFX_Byte(CFieldExchange* exchange, LPCWSTR /*name*/, BYTE& value)
{
    ExchangeField(exchange, CByteFace{value}, SQL_TINYINT);
}

void RFX_Long(CFieldExchange* exchange, LPCWSTR /*name*/, LONG& value)
{
    ExchangeField(exchange, CIntegerFace{value}, SQL_INTEGER);
}

void RFX_Single(CFieldExchange* exchange, LPCWSTR /*name*/, float& value)
{
    ExchangeField(exchange, CSingleFace{value}, SQL_REAL);
}

void RFX_Double(CFieldExchange* exchange, LPCWSTR /*name*/, double& value)
{
    ExchangeField(exchange, CDoubleFace{value}, SQL_DOUBLE);
}

void RFX_Date(CFieldExchange* exchange, LPCWSTR /*name*/, TIMESTAMP_STRUCT& value)
{
    ExchangeField(exchange, CDateFace{value}, SQL_TIMESTAMP);
}

void RFX_Text(CFieldExchange* exchange, LPCWSTR name, CString& value, int maxLength, int columnType,
              short scale)
{
    ExchangeText(exchange, name, CTextFace{value}, maxLength, columnType, scale);
}

void RFX_Text(CFieldExchange* exchange, LPCWSTR name, std::string& value, int maxLength,
              int columnType, short scale)
{
    ExchangeText(exchange, name, CUtf8Face{value}, maxLength, columnType, scale);
}

void RFX_LongBinary(CFieldExchange* exchange, LPCWSTR /*name*/, CLongBinary& value)
{
    ExchangeField(exchange, CBinaryFace{value}, SQL_LONGVARBINARY);
}

void RFX_Null(CFieldExchange* exchange, LPCWSTR /*name*/)
{
    int index = 0;
    if (!exchange->IsFieldType(index))
        return;
    if (exchange->m_nOperation == CFieldExchange::LoadField)
        CAccess::Status(*exchange, static_cast<std::size_t>(index)) = CAccess::IS_NULL;
    if (exchange->m_nOperation != CFieldExchange::BindParam)
        return;
    StatementRecord& statement = CAccess::Rows(*exchange).GetStatement();
    const RETCODE code =
        statement.SetParameter(static_cast<std::size_t>(index), CDbValue{}, CODBCFieldInfo{});
    if (code != SQL_SUCCESS && code != SQL_SUCCESS_WITH_INFO)
        exchange->m_prs->ThrowDBException(code, &statement);
}

} // namespace utility
