#include "dialogs/lists/ListTabStops.h"
#include "files/backup/BackupFileInfo.h"
#include "files/backup/BackupFiles.h"
#include "platform/ui/controls/ListBox.h"

namespace utility
{

void CBackupFiles::FillList(CListBox& list, CSortedList& files, const CFilePath& design,
                            bool security, bool backup, bool restorePoints, bool showAll)
{
    list.ResetContent();
    for (const CBackupListRow& row :
         ListFiles(files, design, security, backup, restorePoints, showAll))
    {
        const int index = list.InsertString(-1, row.m_Text);
        list.SetItemData(index, reinterpret_cast<LPARAM>(row.m_File));
    }
    SetListTabStops(list);
}

CString CBackupFiles::GetPathFromList(const CListBox& list, int index)
{
    if (index < 0 || index >= list.GetCount())
        return CString();
    const auto* file = static_cast<const CBackupFileInfo*>(list.GetItemDataPtr(index));
    return file ? file->m_Path : CString();
}

} // namespace utility
