#include "files/DeleteFolder.h"

#include "files/FilePath.h"
#include "files/FileTools.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileFind.h"

#include <vector>

namespace utility
{

namespace
{

constexpr int ALL_GONE = 0;
constexpr int SOMETHING_LEFT = 1;
constexpr int NOT_SEARCHED = 2;

struct CFolderContents
{
    std::vector<CString> Folders;
    std::vector<CString> Files;
};

bool ReadFolder(const CString& path, CFolderContents& contents)
{
    CString pattern = path;
    CFilePath::AddDirectorySeparator(pattern);
    CFileFind find;
    if (!find.FindFile(pattern + u"*.*"))
        return false;
    for (bool more = true; more;)
    {
        more = find.FindNextFile();
        if (!find.IsDots())
            (find.IsDirectory() ? contents.Folders : contents.Files).push_back(find.GetFilePath());
    }
    return true;
}

} // namespace

int DeleteFolder(const CString& path, bool force)
{
    CFolderContents contents;
    if (path.IsEmpty() || !CFilePath::IsDirectory(path) || !ReadFolder(path, contents))
        return NOT_SEARCHED;

    int result = ALL_GONE;
    for (const CString& file : contents.Files)
    {
        if (!(force ? ForceDeleteFile(file) : DeleteFileW(file)))
            result = SOMETHING_LEFT;
    }
    for (const CString& folder : contents.Folders)
    {
        const int folderResult = DeleteFolder(folder, force);
        if (folderResult != ALL_GONE)
            result = folderResult;
        if (folderResult == NOT_SEARCHED)
            break;
    }
    if (result == ALL_GONE && !RemoveDirectoryW(path))
        result = SOMETHING_LEFT;
    return result;
}

} // namespace utility
