#include "files/backup/BackupCopy.h"

#include "files/FilePath.h"
#include "files/SafeFile.h"
#include "files/backup/BackupContent.h"
#include "files/backup/BackupStage.h"
#include "frame/AppError.h"
#include "platform/system/file/File.h"
#include "platform/system/file/NativePath.h"
#include "resources/StringIds.h"

namespace utility
{

bool CBackupCopy::Make(EBackupKind kind, const CString& design, const CString& label, CString& made)
{
    made.Empty();
    CBackupStage stage(kind, design);
    if (!stage.Add(label))
        return false;
    if (stage.Finish(made))
        return true;
    made = stage.GetAdded();
    return false;
}

bool CBackupCopy::Restore(const CString& copy, const CString& design, CString& kept)
{
    if (CFilePath(CFilePath::FullPath(copy)).EqualPath(CFilePath::FullPath(design)))
    {
        CAppError::SetLastError(IDS_CANNOT_OVERWRITE, NativePath(design));
        return false;
    }
    const bool isThere = CFilePath::DoesFileExist(design);
    const ECopyRights rights = isThere ? ECopyRights::OfTarget : ECopyRights::OfSource;
    CSafeFile content;
    if (!content.Begin(design) || !CopyContent(copy, content.GetWrittenPath(), rights))
        return false;

    CBackupStage stage(EBackupKind::Backup, design);
    if (isThere && !stage.Add(CString()))
        return false;
    if (!content.Commit())
    {
        stage.TakeBack();
        return false;
    }
    kept = stage.GetAdded();
    if (isThere && !stage.Finish(kept))
        kept = stage.GetAdded(); // it waits there for its name
    return true;
}

} // namespace utility
