#include "platform/backend/posix/file/DriveMap.h"

#include "platform/backend/posix/file/DiskPath.h"
#include "platform/base/CaseFold.h"
#include "platform/system/file/NativePath.h"

#include <map>
#include <mutex>

namespace utility
{

namespace
{

struct CDriveMap
{
    std::mutex Lock;
    std::map<std::u16string, std::string> Folders; // by folded drive or share
};

CDriveMap& GetDriveMap()
{
    static CDriveMap map;
    return map;
}

std::u16string FoldRoot(std::u16string_view root)
{
    std::u16string folded(root);
    for (char16_t& unit : folded)
        unit = unit == u'/' ? u'\\' : ToLower(unit);
    return folded;
}

std::size_t EndOfComponent(std::u16string_view path, std::size_t start)
{
    while (start < path.size() && !IsSeparator(path[start]))
        ++start;
    return start;
}

/// Only backslashes begin a share: a doubled "/" is the harmless run that joining folders leaves.
std::size_t GetShareLength(std::u16string_view path)
{
    if (!path.starts_with(u"\\\\"))
        return 0;
    const std::size_t serverEnd = EndOfComponent(path, 2);
    if (serverEnd == 2 || serverEnd == path.size())
        return 0;
    const std::size_t shareEnd = EndOfComponent(path, serverEnd + 1);
    return shareEnd == serverEnd + 1 ? 0 : shareEnd;
}

} // namespace

std::size_t GetRootLength(std::u16string_view path)
{
    if (path.size() >= 2 && path[1] == u':' && !IsSeparator(path[0]))
        return 2;
    return GetShareLength(path);
}

CRootedPath LookUpDrive(std::u16string_view path)
{
    const std::size_t rootLength = GetRootLength(path);
    CRootedPath result;
    result.Rest = path.substr(rootLength);
    if (rootLength == 0)
        return result;

    CDriveMap& map = GetDriveMap();
    const std::scoped_lock lock(map.Lock);
    const auto found = map.Folders.find(FoldRoot(path.substr(0, rootLength)));
    if (found != map.Folders.end())
        result.Root = found->second;
    else
        result.IsKnown = rootLength == 2;
    return result;
}

void MapDrive(const CString& drive, const CString& nativeFolder)
{
    std::string folder = NameToDisk(nativeFolder.View());
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();

    CDriveMap& map = GetDriveMap();
    const std::scoped_lock lock(map.Lock);
    if (folder.empty())
        map.Folders.erase(FoldRoot(drive.View()));
    else
        map.Folders[FoldRoot(drive.View())] = folder;
}

} // namespace utility
