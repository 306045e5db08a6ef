#include "files/DataFolder.h"

#include "files/FilePath.h"
#include "frame/Application.h"
#include "frame/ProgramPath.h"
#include "platform/system/KnownFolders.h"

namespace utility
{

namespace
{

constexpr int LENGTH_LIMIT = 260;

} // namespace

CString GetDataFolderName(int folderId)
{
    CString folder;
    if (SHGetSpecialFolderPathW(folder, folderId, true) && !folder.IsEmpty())
        return folder.Left(LENGTH_LIMIT);
    folder = GetProgramPath();
    CFilePath::RemoveDirectorySeparator(folder);
    return folder;
}

CString GetDataFolder(int folderId, const CString& subFolder)
{
    const CString& separator = CFilePath::GetDirectorySeparator();
    return GetDataFolderName(folderId) + separator +
           (subFolder.IsEmpty() ? CApplication::GetProductName() : subFolder) + separator;
}

} // namespace utility
