#include "files/AppFolder.h"
#include "files/backup/BackupFiles.h"
#include "platform/ui/controls/ComboBox.h"

namespace utility
{

void CAppFolder::FillCombo(CComboBox& combo, bool forLibrary) const
{
    FillCombo(GetFolderType(), combo, forLibrary);
}

void CAppFolder::FillCombo(EFolderType selected, CComboBox& combo, bool forLibrary)
{
    combo.ResetContent();
    for (const CFolderTypeRow& row : GetTypeRows(forLibrary))
    {
        // Inserted, not added: a box that sorts keeps this order all the same.
        const int index = combo.InsertString(-1, row.m_Text);
        combo.SetItemData(index, static_cast<LPARAM>(row.m_Type));
        if (row.m_Type == selected)
            combo.SetCurSel(index);
    }
}

void CBackupFiles::FillBackupKeepWhereCombo(CComboBox& combo)
{
    CAppFolder::FillCombo(GetBackupKeepWhere(), combo, false);
}

void CBackupFiles::FillSecurityCopyKeepWhereCombo(CComboBox& combo)
{
    CAppFolder::FillCombo(GetSecurityCopyKeepWhere(), combo, false);
}

void CBackupFiles::FillRestorePointKeepWhereCombo(CComboBox& combo)
{
    CAppFolder::FillCombo(GetRestorePointKeepWhere(), combo, false);
}

} // namespace utility
