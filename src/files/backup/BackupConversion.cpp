#include "files/AppFolder.h"
#include "files/backup/BackupFiles.h"
#include "files/backup/BackupPaths.h"
#include "settings/AppRegistry.h"

namespace utility
{

namespace
{

// Settings of versions below 2, at the path of the backup copies
constexpr char16_t KEEP_WHERE[] = u"KeepWhere"; // a number: whether the folder below is used
constexpr char16_t BACKUP_DIR[] = u"BackupDir";
constexpr int VERSION_OF_FOLDER_TYPES = 2;

} // namespace

void CBackupFiles::ConvertRegistry(int version)
{
    if (version >= VERSION_OF_FOLDER_TYPES)
        return;
    CAppRegistry settings(BackupSettingsPath(EBackupKind::Backup));
    int usesFolder = 0;
    if (settings.GetValue(KEEP_WHERE, usesFolder))
    {
        settings.DeleteValue(KEEP_WHERE);
        SetBackupKeepWhere(usesFolder != 0 ? EFolderType::Named : EFolderType::Design);
    }
    CString folder;
    if (settings.GetValue(BACKUP_DIR, folder))
    {
        settings.DeleteValue(BACKUP_DIR);
        SetBackupDir(folder);
    }
}

void CBackupFiles::ConvertFolders()
{
    if (CAppRegistry(BackupSettingsPath(EBackupKind::SecurityCopy)).KeyExists())
        return;
    const EFolderType type = GetBackupKeepWhere();
    const CString folder = GetBackupDir();
    for (const EBackupKind kind : {EBackupKind::RestorePoint, EBackupKind::SecurityCopy})
    {
        CAppFolder place = GetFolder(kind);
        place.SetFolderType(type);
        place.SetFolderName(folder);
    }
}

} // namespace utility
