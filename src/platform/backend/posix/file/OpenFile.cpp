#include "platform/backend/posix/file/OpenFile.h"

#include "platform/backend/posix/file/FileMode.h"
#include "platform/backend/posix/file/FileShare.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/file/File.h"

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr UINT SHARE_MASK = 0x70;
constexpr int OPEN_TRIES = 8; // while others replace the file under its name

CFileShare ShareOf(UINT flags)
{
    CFileShare share;
    const UINT access = flags & FILE_ACCESS_MASK;
    share.Reads = access != CFile::modeWrite;
    share.Writes = access != CFile::modeRead;
    switch (flags & SHARE_MASK)
    {
    case CFile::shareDenyNone:
        break;
    case CFile::shareDenyRead:
        share.DeniesReaders = true;
        break;
    case CFile::shareDenyWrite:
        share.DeniesWriters = true;
        break;
    case CFile::shareExclusive:
        share.DeniesReaders = true;
        share.DeniesWriters = true;
        break;
    default:
        share.DeniesReaders = share.Writes;
        share.DeniesWriters = true;
        break;
    }
    return share;
}

/// Marks need a readable descriptor, so a writer asks for both and does with one where it must.
CDescriptor OpenOnDisk(const std::string& name, UINT flags)
{
    const int common = O_CLOEXEC | O_NOCTTY | ((flags & CFile::modeCreate) != 0 ? O_CREAT : 0);
    const bool writes = (flags & FILE_ACCESS_MASK) != CFile::modeRead;
    const int descriptor = open(name.c_str(), common | (writes ? O_RDWR : O_RDONLY), NEW_FILE_MODE);
    if (descriptor < 0 && errno == EACCES && (flags & FILE_ACCESS_MASK) == CFile::modeWrite)
        return CDescriptor(open(name.c_str(), common | O_WRONLY, NEW_FILE_MODE));
    return CDescriptor(descriptor);
}

bool IsStillNamed(const std::string& name, const struct stat& opened)
{
    struct stat named = {};
    return stat(name.c_str(), &named) == 0 && named.st_dev == opened.st_dev &&
           named.st_ino == opened.st_ino;
}

/// One try: 0 with the descriptor, a code, or none if the name led to another file meanwhile.
std::optional<DWORD> TryOpen(const std::string& name, UINT flags, CDescriptor& result)
{
    const bool writes = (flags & FILE_ACCESS_MASK) != CFile::modeRead;
    struct stat before = {};
    if (writes && stat(name.c_str(), &before) == 0 && S_ISREG(before.st_mode) &&
        IsReadOnlyOnDisk(name, before.st_mode))
        return ERROR_ACCESS_DENIED;

    CDescriptor descriptor = OpenOnDisk(name, flags);
    if (!descriptor)
        return PathErrorCode(errno, name);
    struct stat opened = {};
    if (fstat(descriptor.Get(), &opened) != 0)
        return PathErrorCode(errno, name);
    if (S_ISDIR(opened.st_mode))
        return ERROR_ACCESS_DENIED;
    if (S_ISREG(opened.st_mode))
    {
        if (const DWORD code = TakeFileShare(descriptor.Get(), ShareOf(flags));
            code != ERROR_SUCCESS)
            return code;
        if (!IsStillNamed(name, opened))
            return std::nullopt;
        const bool empties =
            (flags & CFile::modeCreate) != 0 && (flags & CFile::modeNoTruncate) == 0;
        if (empties && opened.st_size > 0 && ftruncate(descriptor.Get(), 0) != 0)
            return PathErrorCode(errno, name);
    }
    result = std::move(descriptor);
    return ERROR_SUCCESS;
}

} // namespace

DWORD OpenDescriptor(const std::string& name, UINT flags, CDescriptor& result)
{
    if (name.empty())
        return ERROR_PATH_NOT_FOUND;
    if ((flags & FILE_ACCESS_MASK) == FILE_ACCESS_MASK)
        return ERROR_INVALID_PARAMETER;
    for (int i = 0; i < OPEN_TRIES; ++i)
    {
        if (const std::optional<DWORD> code = TryOpen(name, flags, result))
            return *code;
    }
    return ERROR_SHARING_VIOLATION;
}

} // namespace utility
