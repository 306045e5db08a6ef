#include "files/AppFolder.h"
#include "files/FilePath.h"
#include "files/backup/BackupFiles.h"
#include "files/backup/BackupNameTest.h"
#include "files/backup/BackupTemplate.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

namespace utility
{

namespace
{

bool IsNameOf(EBackupKind kind, const CString& path)
{
    return CBackupNameTest(kind).DoesNameMatchTemplate(CFilePath(path).GetFileName().View());
}

bool MakeFolderOf(const CFilePath& path)
{
    return CFilePath::CreateDirectoryW(path.GetDriveAndDirectory()) ||
           GetLastError() == ERROR_ALREADY_EXISTS;
}

} // namespace

bool CBackupFiles::MakeName(EBackupKind kind, CFilePath& out, const CString& designPath,
                            const CString& label, bool wanted, bool apply)
{
    if (!designPath.IsEmpty())
        out = CFilePath(designPath);
    if (!wanted)
        return false;
    const CFilePath design(out);
    GetFolder(kind).GetFolderPath(designPath, out);

    CBackupTemplate pattern(GetFilenameTemplate(kind), out.GetFileName());
    pattern.AddNumber(GetCopyCount(kind));
    if (pattern.GetParts().size() == 1)
        out.SetFileName(pattern.GetParts().front().m_Text);
    else
        MakeNextMultipleCopyName(out, design, pattern, GetCopyCount(kind), label, apply, nullptr);
    return !apply || MakeFolderOf(out);
}

bool CBackupFiles::MakeBackupName(CFilePath& out, const CString& designPath, bool apply)
{
    return MakeName(EBackupKind::Backup, out, designPath, CString(), GetDoBackup(), apply);
}

bool CBackupFiles::MakeSecurityCopyName(CFilePath& out, const CString& designPath, bool apply)
{
    return MakeName(EBackupKind::SecurityCopy, out, designPath, CString(), GetDoSecurity(), apply);
}

bool CBackupFiles::MakeRestorePointName(CFilePath& out, const CString& designPath,
                                        const CString& label, bool apply)
{
    return MakeName(EBackupKind::RestorePoint, out, designPath, label, true, apply);
}

bool CBackupFiles::IsBackupName(const CString& path)
{
    return IsNameOf(EBackupKind::Backup, path);
}

bool CBackupFiles::IsSecurityCopyName(const CString& path)
{
    return IsNameOf(EBackupKind::SecurityCopy, path);
}

bool CBackupFiles::IsRestorePointName(const CString& path)
{
    return IsNameOf(EBackupKind::RestorePoint, path);
}

bool CBackupFiles::DoesRestorePointIncludeLabel()
{
    return CBackupTemplate(GetRestorePointFilenameTemplate(), CString()).HasLabel();
}

} // namespace utility
