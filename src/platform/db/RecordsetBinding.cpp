#include "platform/db/FieldExchange.h"
#include "platform/db/Recordset.h"
#include "platform/db/RecordsetRows.h"

namespace utility
{

void CRecordset::InitRecord()
{
    if (m_nFields == 0)
    {
        m_nFieldsBound = -1;
        return;
    }
    m_nFieldsBound = BindFieldsToColumns();
    if (m_bCheckCacheForDirtyFields && (m_dwOptions & noDirtyFieldCheck) == 0)
        AllocDataCache();
}

int CRecordset::BindFieldsToColumns()
{
    m_FieldStatus.assign(static_cast<std::size_t>(m_nFields), BYTE{0});
    CFieldExchange exchange(CFieldExchange::BindFieldToColumn, this);
    DoFieldExchange(&exchange);
    return m_nFields;
}

void CRecordset::AllocDataCache()
{
    if (m_Rows)
        m_Rows->ComparesFields = true;
}

void CRecordset::ClearFieldStatus()
{
    m_FieldStatus.assign(static_cast<std::size_t>(m_nFields), BYTE{0});
    if (m_Rows)
        m_Rows->EditMode = EEditMode::None;
}

void CRecordset::Fixups()
{
    CFieldExchange exchange(CFieldExchange::LoadField, this);
    DoFieldExchange(&exchange);
}

void CRecordset::SendParameters()
{
    CFieldExchange exchange(CFieldExchange::BindParam, this);
    DoFieldExchange(&exchange);
}

void CRecordset::SetFieldNull(DWORD field, bool isNull)
{
    if (field >= m_FieldStatus.size())
        return;
    const bool isEditing = m_Rows && m_Rows->EditMode != EEditMode::None;
    if (isNull)
        m_FieldStatus[field] |= isEditing ? FIELD_NULL | FIELD_DIRTY : FIELD_NULL;
    else
        m_FieldStatus[field] &= static_cast<BYTE>(~FIELD_NULL);
}

void CRecordset::SetFieldDirty(DWORD field, bool isDirty)
{
    if (field >= m_FieldStatus.size())
        return;
    if (isDirty)
        m_FieldStatus[field] |= FIELD_DIRTY;
    else
        m_FieldStatus[field] &= static_cast<BYTE>(~FIELD_DIRTY);
}

} // namespace utility
