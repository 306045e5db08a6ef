#include "files/AppFolder.h"
#include "files/backup/BackupFiles.h"
#include "files/backup/BackupPaths.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"
#include "settings/AppRegistry.h"

namespace utility
{

namespace
{

constexpr char16_t FILENAME_TEMPLATE[] = u"FilenameTemplate";
constexpr char16_t DO_BACKUP[] = u"DoBackup";
constexpr char16_t BACKUP_COPY_COUNT[] = u"BackupCopyCount";
constexpr char16_t DO_SECURITY[] = u"DoSecurity";
constexpr char16_t SECURITY_INTERVAL[] = u"SecurityInterval";
constexpr char16_t SECURITY_COPY_COUNT[] = u"SecurityCopyCount";
constexpr char16_t RESTORE[] = u"Restore";
constexpr char16_t RESTORE_SHOW_ALL[] = u"RestoreShowAll";

constexpr int DEFAULT_COPY_COUNT = 1;
constexpr int DEFAULT_INTERVAL = 600;
constexpr int RESTORE_POINT_COUNT = 0; // a user's restore points are his to delete

constexpr EBackupKind BACKUP = EBackupKind::Backup;
constexpr EBackupKind SECURITY_COPY = EBackupKind::SecurityCopy;
constexpr EBackupKind RESTORE_POINT = EBackupKind::RestorePoint;

CString DefaultTemplate(EBackupKind kind)
{
    const CString design = CStringTable::Get(IDS_TOKEN_DESIGN_NAME);
    switch (kind)
    {
    case BACKUP:
        return CStringTable::Get(IDS_BACKUP_COPY_OF) + design;
    case SECURITY_COPY:
        return CStringTable::Get(IDS_SECURITY_COPY_OF) + design;
    case RESTORE_POINT:
        break;
    }
    return CStringTable::Get(IDS_RESTORE_POINT_FOR) + design + u" (" +
           CStringTable::Get(IDS_TOKEN_LABEL) + u")";
}

} // namespace

template <typename T>
T CBackupFiles::GetValue(EBackupKind kind, const char16_t* key, T preset)
{
    CAppRegistry(BackupSettingsPath(kind)).GetValue(key, preset);
    return preset;
}

template <typename T>
void CBackupFiles::SetValue(EBackupKind kind, const char16_t* key, const T& value)
{
    CAppRegistry(BackupSettingsPath(kind)).SetValue(key, value);
}

// Each kind

CString CBackupFiles::GetFilenameTemplate(EBackupKind kind)
{
    return GetValue(kind, FILENAME_TEMPLATE, DefaultTemplate(kind));
}

int CBackupFiles::GetCopyCount(EBackupKind kind)
{
    switch (kind)
    {
    case BACKUP:
        return GetBackupCopyCount();
    case SECURITY_COPY:
        return GetSecurityCopyCount();
    case RESTORE_POINT:
        break;
    }
    return RESTORE_POINT_COUNT;
}

CAppFolder CBackupFiles::GetFolder(EBackupKind kind)
{
    return CAppFolder(BackupSettingsPath(kind));
}

bool CBackupFiles::IsWanted(EBackupKind kind)
{
    return kind == RESTORE_POINT || (kind == BACKUP ? GetDoBackup() : GetDoSecurity());
}

// Templates

CString CBackupFiles::GetBackupFilenameTemplate()
{
    return GetFilenameTemplate(BACKUP);
}

void CBackupFiles::SetBackupFilenameTemplate(const CString& text)
{
    SetValue(BACKUP, FILENAME_TEMPLATE, text);
}

CString CBackupFiles::GetSecurityCopyFilenameTemplate()
{
    return GetFilenameTemplate(SECURITY_COPY);
}

void CBackupFiles::SetSecurityCopyFilenameTemplate(const CString& text)
{
    SetValue(SECURITY_COPY, FILENAME_TEMPLATE, text);
}

CString CBackupFiles::GetRestorePointFilenameTemplate()
{
    return GetFilenameTemplate(RESTORE_POINT);
}

void CBackupFiles::SetRestorePointFilenameTemplate(const CString& text)
{
    SetValue(RESTORE_POINT, FILENAME_TEMPLATE, text);
}

// Places

EFolderType CBackupFiles::GetBackupKeepWhere()
{
    return GetFolder(BACKUP).GetFolderType();
}

void CBackupFiles::SetBackupKeepWhere(EFolderType type)
{
    GetFolder(BACKUP).SetFolderType(type);
}

CString CBackupFiles::GetBackupDir()
{
    return GetFolder(BACKUP).GetFolderName();
}

void CBackupFiles::SetBackupDir(const CString& folder)
{
    GetFolder(BACKUP).SetFolderName(folder);
}

EFolderType CBackupFiles::GetSecurityCopyKeepWhere()
{
    return GetFolder(SECURITY_COPY).GetFolderType();
}

void CBackupFiles::SetSecurityCopyKeepWhere(EFolderType type)
{
    GetFolder(SECURITY_COPY).SetFolderType(type);
}

CString CBackupFiles::GetSecurityCopyDir()
{
    return GetFolder(SECURITY_COPY).GetFolderName();
}

void CBackupFiles::SetSecurityCopyDir(const CString& folder)
{
    GetFolder(SECURITY_COPY).SetFolderName(folder);
}

EFolderType CBackupFiles::GetRestorePointKeepWhere()
{
    return GetFolder(RESTORE_POINT).GetFolderType();
}

void CBackupFiles::SetRestorePointKeepWhere(EFolderType type)
{
    GetFolder(RESTORE_POINT).SetFolderType(type);
}

CString CBackupFiles::GetRestorePointDir()
{
    return GetFolder(RESTORE_POINT).GetFolderName();
}

void CBackupFiles::SetRestorePointDir(const CString& folder)
{
    GetFolder(RESTORE_POINT).SetFolderName(folder);
}

// Whether and how many

bool CBackupFiles::GetDoBackup()
{
    return GetValue(BACKUP, DO_BACKUP, true);
}

void CBackupFiles::SetDoBackup(bool wanted)
{
    SetValue(BACKUP, DO_BACKUP, wanted);
}

int CBackupFiles::GetBackupCopyCount()
{
    return GetValue(BACKUP, BACKUP_COPY_COUNT, DEFAULT_COPY_COUNT);
}

void CBackupFiles::SetBackupCopyCount(int count)
{
    SetValue(BACKUP, BACKUP_COPY_COUNT, count);
}

bool CBackupFiles::GetDoSecurity()
{
    return GetValue(BACKUP, DO_SECURITY, true);
}

void CBackupFiles::SetDoSecurity(bool wanted)
{
    SetValue(BACKUP, DO_SECURITY, wanted);
}

int CBackupFiles::GetSecurityInterval()
{
    return GetValue(BACKUP, SECURITY_INTERVAL, DEFAULT_INTERVAL);
}

void CBackupFiles::SetSecurityInterval(int seconds)
{
    SetValue(BACKUP, SECURITY_INTERVAL, seconds);
}

int CBackupFiles::GetSecurityCopyCount()
{
    return GetValue(BACKUP, SECURITY_COPY_COUNT, DEFAULT_COPY_COUNT);
}

void CBackupFiles::SetSecurityCopyCount(int count)
{
    SetValue(BACKUP, SECURITY_COPY_COUNT, count);
}

// What a restore dialog shows

bool CBackupFiles::GetRestoreBackups()
{
    return GetValue(BACKUP, RESTORE, GetDoBackup());
}

void CBackupFiles::SetRestoreBackups(bool shown)
{
    SetValue(BACKUP, RESTORE, shown);
}

bool CBackupFiles::GetRestoreBackupShowAllFiles()
{
    return GetValue(BACKUP, RESTORE_SHOW_ALL, false);
}

void CBackupFiles::SetRestoreBackupShowAllFiles(bool shown)
{
    SetValue(BACKUP, RESTORE_SHOW_ALL, shown);
}

bool CBackupFiles::GetRestoreSecurityCopies()
{
    return GetValue(SECURITY_COPY, RESTORE, GetDoSecurity());
}

void CBackupFiles::SetRestoreSecurityCopies(bool shown)
{
    SetValue(SECURITY_COPY, RESTORE, shown);
}

bool CBackupFiles::GetRestoreRestorePoints()
{
    return GetValue(RESTORE_POINT, RESTORE, true);
}

void CBackupFiles::SetRestoreRestorePoints(bool shown)
{
    SetValue(RESTORE_POINT, RESTORE, shown);
}

} // namespace utility
