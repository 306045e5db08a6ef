#include "utility/files/BackupCall.h"

#include "files/FilePath.h"
#include "files/backup/BackupFileInfo.h"
#include "files/backup/BackupMatch.h"
#include "files/backup/BackupTemplate.h"

#include <functional>

namespace utility
{

namespace
{

using CIsWanted = std::function<bool(const CFilePath& copy)>;

/// The copy of that name, a restore point of that label, or any.
CIsWanted WhatIsWanted(const CCommandCall& call)
{
    if (call.Has("label"))
    {
        CBackupTemplate pattern(CBackupFiles::GetRestorePointFilenameTemplate(),
                                CFilePath(GetDesign(call)).GetFileName());
        pattern.FixLabel(call.Get("label"));
        return [pattern](const CFilePath& copy)
        {
            CBackupNameMatch match;
            return MatchBackupFilename(copy.GetFileName().View(), pattern, match);
        };
    }
    const CString name = call.GetArgument(1);
    return [name](const CFilePath& copy)
    {
        return name.IsEmpty() || name.CompareNoCase(copy.GetFileNameAndExtension()) == 0;
    };
}

} // namespace

EBackupKind GetBackupKind(const CCommandCall& call)
{
    const CString name = call.Get("kind");
    return name == u"security"        ? EBackupKind::SecurityCopy
           : name == u"restore-point" ? EBackupKind::RestorePoint
                                      : EBackupKind::Backup;
}

CString GetDesign(const CCommandCall& call)
{
    return CFilePath::FullPath(call.GetArgument(0));
}

std::vector<CBackupListRow> FindBackupCopies(CBackupFileList& files, const CCommandCall& call)
{
    const bool isAny = !call.Has("kind");
    const EBackupKind kind = GetBackupKind(call);
    return CBackupFiles::ListFiles(files, CFilePath(GetDesign(call)),
                                   isAny || kind == EBackupKind::SecurityCopy,
                                   isAny || kind == EBackupKind::Backup,
                                   isAny || kind == EBackupKind::RestorePoint, call.Has("all"));
}

CString FindBackupCopy(const CCommandCall& call)
{
    CBackupFileList files;
    const CIsWanted isWanted = WhatIsWanted(call);
    CString found;
    for (const CBackupListRow& row : FindBackupCopies(files, call))
    {
        if (row.m_File && isWanted(CFilePath(row.m_File->m_Path)))
            found = row.m_File->m_Path;
    }
    return found;
}

} // namespace utility
