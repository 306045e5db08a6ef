#include "platform/db/DBException.h"
#include "platform/db/DBRefusal.h"
#include "platform/db/Database.h"
#include "platform/db/FieldExchange.h"
#include "platform/db/Recordset.h"
#include "platform/db/RecordsetRows.h"
#include "platform/db/SelectText.h"

namespace utility
{

BOOL CRecordset::CanUpdate() const
{
    return IsOpen() && !m_pDatabase->IsReadOnly() && (m_dwOptions & readOnly) == 0 &&
           !FindEditableTable(m_strSQL.View()).IsEmpty();
}

void CRecordset::AddNew()
{
    RequireEditable(false);
    StartEdit(true);
}

void CRecordset::Edit()
{
    RequireEditable(true);
    StartEdit(false);
}

BOOL CRecordset::Update()
{
    if (!m_Rows || m_Rows->EditMode == EEditMode::None)
        ThrowRefusal(AFX_SQL_ERROR_NOTHING_TO_UPDATE);
    if (!CollectChanges())
    {
        EndEdit();
        return FALSE;
    }
    CRowEditor& editor = *m_Rows->GetEditor(m_strSQL.View());
    if (m_Rows->EditMode == EEditMode::AddNew)
        editor.Insert(m_Rows->Changes);
    else
    {
        editor.Update(m_Rows->Changes,
                      [this](std::size_t column) { return m_Rows->GetCurrent(column); });
        m_Rows->TakeChanges();
    }
    EndEdit();
    return TRUE;
}

void CRecordset::Delete()
{
    RequireEditable(true);
    m_Rows->GetEditor(m_strSQL.View())
        ->Delete([this](std::size_t column) { return m_Rows->GetCurrent(column); });
    m_Rows->MarkDeleted();
    m_bDeleted = true;
    EndEdit();
}

void CRecordset::CancelUpdate()
{
    if (m_Rows && m_Rows->EditMode != EEditMode::None)
        EndEdit();
}

void CRecordset::RequireEditable(bool needsRow)
{
    if (!IsOpen())
        ThrowRefusal(AFX_SQL_ERROR_NO_ROW);
    if (m_pDatabase->IsReadOnly())
        ThrowRefusal(AFX_SQL_ERROR_READ_ONLY, u"the connection is for reading only");
    if ((m_dwOptions & readOnly) != 0)
        ThrowRefusal(AFX_SQL_ERROR_READ_ONLY, u"the recordset is for reading only");
    if (!m_Rows->GetEditor(m_strSQL.View()))
        ThrowRefusal(AFX_SQL_ERROR_READ_ONLY, u"they do not come from one table");
    if (needsRow && (!m_Rows->IsOnRow() || m_Rows->IsDeleted()))
        ThrowRefusal(AFX_SQL_ERROR_NO_ROW);
    if (needsRow && m_Rows->HasCutText())
        ThrowRefusal(AFX_SQL_ERROR_TEXT_WAS_CUT);
}

void CRecordset::StartEdit(bool isNewRow)
{
    ClearFieldStatus();
    if (!isNewRow)
        Fixups(); // the marks come back, and what was assigned before Edit is no change
    m_Rows->EditMode = isNewRow ? EEditMode::AddNew : EEditMode::Edit;
    CFieldExchange exchange(isNewRow ? CFieldExchange::ClearField : CFieldExchange::ArmNullField,
                            this);
    DoFieldExchange(&exchange);
}

/// Finds what was changed; false if nothing was.
bool CRecordset::CollectChanges()
{
    if (m_Rows->ComparesFields)
    {
        CFieldExchange mark(CFieldExchange::MarkDirty, this);
        DoFieldExchange(&mark);
    }
    m_Rows->Changes.clear();
    CFieldExchange send(CFieldExchange::SendDirty, this);
    DoFieldExchange(&send);
    return !m_Rows->Changes.empty();
}

/// The fields show the current row again, or nothing where there is none.
void CRecordset::EndEdit()
{
    ClearFieldStatus();
    Fixups();
}

} // namespace utility
