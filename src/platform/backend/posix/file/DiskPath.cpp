#include "platform/backend/posix/file/DiskPath.h"

#include "platform/backend/posix/file/DriveMap.h"
#include "platform/base/CaseFold.h"
#include "platform/system/file/NativePath.h"

#include <cerrno>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace utility
{

namespace
{

struct CFolderCloser
{
    void operator()(DIR* folder) const { closedir(folder); }
};

/// False only if the system says that nothing has this name.
bool MayBeThere(const std::string& path)
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 || errno != ENOENT;
}

/// The path in native form as spelt, runs of separators as one; empty for an unmapped share.
std::string AsSpelt(std::u16string_view path)
{
    const CRootedPath rooted = LookUpDrive(path);
    if (path.empty() || !rooted.IsKnown)
        return std::string();

    std::string native = rooted.Root;
    std::u16string_view rest = rooted.Rest;
    bool separate = !native.empty();
    while (!rest.empty())
    {
        if (IsSeparator(rest.front()))
        {
            separate = true;
            rest.remove_prefix(1);
            continue;
        }
        std::size_t length = 0;
        while (length < rest.size() && !IsSeparator(rest[length]))
            ++length;
        if (separate && !native.ends_with('/'))
            native += '/';
        separate = false;
        native += NameToDisk(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    if (separate && !native.ends_with('/'))
        native += '/';
    return native.empty() ? "." : native;
}

/// The entry of a folder that equals `name` without regard to case, the lowest by units; empty if
/// there is none.
std::string FindFolded(const std::string& folder, std::string_view name)
{
    const std::unique_ptr<DIR, CFolderCloser> entries(
        opendir(folder.empty() ? "." : folder.c_str()));
    if (!entries)
        return std::string();

    const std::u16string wanted = NameFromDisk(name);
    std::string best;
    std::u16string bestUnits;
    while (const dirent* entry = readdir(entries.get()))
    {
        const std::string_view candidate(entry->d_name);
        if (candidate.size() != name.size()) // folding never changes the length in bytes
            continue;
        const std::u16string units = NameFromDisk(candidate);
        if (!EqualNoCase(units, wanted) || (!best.empty() && bestUnits <= units))
            continue;
        best = candidate;
        bestUnits = units;
    }
    return best;
}

/// The same path with each absent component replaced by its case-blind match, up to one that has
/// none.
std::string FindOnDisk(const std::string& spelt)
{
    if (spelt.empty() || MayBeThere(spelt))
        return spelt;

    std::string found;
    std::size_t start = 0;
    while (start < spelt.size())
    {
        if (spelt[start] == '/')
        {
            found += spelt[start++];
            continue;
        }
        const std::size_t end = std::min(spelt.find('/', start), spelt.size());
        const std::string name = spelt.substr(start, end - start);
        if (MayBeThere(found + name))
            found += name;
        else
        {
            const std::string match = FindFolded(found, name);
            if (match.empty())
                return found + spelt.substr(start);
            found += match;
        }
        start = end;
    }
    return found;
}

/// Where the last component begins, closing separators not counted.
std::size_t StartOfLastName(const std::string& native)
{
    const std::size_t lastUnit = native.find_last_not_of('/');
    if (lastUnit == std::string::npos)
        return native.size();
    const std::size_t separator = native.rfind('/', lastUnit);
    return separator == std::string::npos ? 0 : separator + 1;
}

} // namespace

std::string DiskPath(std::u16string_view path)
{
    return FindOnDisk(AsSpelt(path));
}

std::string DiskPathForNewName(std::u16string_view path)
{
    const std::string spelt = AsSpelt(path);
    const std::size_t nameStart = StartOfLastName(spelt);
    const std::string folder = spelt.substr(0, nameStart);
    return FindOnDisk(folder) + spelt.substr(nameStart);
}

std::string DiskPathBytes(const CString& path)
{
    return DiskPath(path.View());
}

CString ClassicFromDisk(std::string_view native)
{
    CString path;
    path.Preallocate(static_cast<int>(native.size()));
    while (!native.empty())
    {
        const std::size_t length = std::min(native.find('/'), native.size());
        path += std::u16string_view(NameFromDisk(native.substr(0, length)));
        native.remove_prefix(length);
        if (!native.empty())
        {
            path += u'\\';
            native.remove_prefix(1);
        }
    }
    return path;
}

CString ClassicPath(std::string_view native)
{
    return ClassicFromDisk(native);
}

} // namespace utility
