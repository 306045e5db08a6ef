#include "files/FilePath.h"
#include "frame/AppError.h"
#include "frame/AppMessageBox.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileFind.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "resources/StringIds.h"

namespace utility
{

namespace
{

CString WithSeparator(const CString& path)
{
    CString folder = path;
    CFilePath::AddDirectorySeparator(folder);
    return folder;
}

} // namespace

bool CFilePath::CheckRelativeDirectoryPath(const CString& path)
{
    if (IsRelativeDirectoryPath(path))
        return true;
    CAppError::ReportError(IDS_BAD_RELATIVE_DIRECTORY, NativePath(path));
    return false;
}

bool CFilePath::DoesFileExist(const CString& path)
{
    return !path.IsEmpty() && GetEntryKind(path) == EEntryKind::File;
}

bool CFilePath::DoesFolderExist(const CString& path)
{
    return !path.IsEmpty() && GetEntryKind(WithSeparator(path) + u".") == EEntryKind::Folder;
}

bool CFilePath::IsDirectory(const CString& path)
{
    const CString folder = WithSeparator(path);
    const EEntryKind kind = GetEntryKind(folder);
    return (kind == EEntryKind::None ? GetEntryKind(folder + u".") : kind) == EEntryKind::Folder;
}

bool CFilePath::IsEmptyDirectory(const CString& path)
{
    CFileFind find;
    if (!find.FindFile(WithSeparator(path) + u"*.*"))
        return false;
    for (bool more = true; more;)
    {
        more = find.FindNextFile();
        if (!find.IsDots())
            return false;
    }
    return true;
}

bool CFilePath::CreateDirectoryW(const CString& path)
{
    if (IsDirectory(path))
        return true;
    const CFilePath folder(path);
    if (folder.WasCut())
    {
        SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return false;
    }
    if (folder.GetDirectory().IsEmpty() || !CreateDirectoryW(folder.GetDriveAndDirectory()))
        return false;
    return folder.GetFileNameAndExtension().IsEmpty() || _wmkdir(path) == 0;
}

bool CFilePath::AskCreateDirectory(const CString& path, CString& full)
{
    if (path.IsEmpty())
    {
        CAppError::ReportError(IDS_NO_DIRECTORY_PATH);
        return false;
    }
    full = FullPath(path);
    if (IsDirectory(full))
        return true;
    const CString question = CAppError::GetErrorString(IDS_ASK_CREATE_DIRECTORY, NativePath(full));
    if (CAppMessageBox::Show(question, MB_YESNO | MB_ICONQUESTION, 0) != IDYES)
        return false;
    if (CreateDirectoryW(full))
        return true;
    CAppError::ReportError(IDS_CREATE_DIRECTORY_FAILED, NativePath(full));
    return false;
}

void CFilePath::DeleteEmptyLeafNodes(const CString& path, const CString& root)
{
    CString leaf = path;
    CString stop = root;
    RemoveDirectorySeparator(leaf);
    RemoveDirectorySeparator(stop);
    while (leaf.GetLength() > stop.GetLength() && IsEmptyDirectory(leaf))
    {
        RemoveDirectoryW(leaf);
        const int separator = leaf.ReverseFind(u'\\');
        if (separator <= 0)
            return;
        leaf = leaf.Left(separator);
    }
}

} // namespace utility
