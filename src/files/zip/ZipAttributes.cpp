#include "files/zip/ZipAttributes.h"

#include "platform/system/file/FileStatus.h"

namespace utility
{

namespace
{

constexpr DWORD DOS_BITS = CFileStatus::readOnly | CFileStatus::hidden | CFileStatus::system |
                           CFileStatus::directory | CFileStatus::archive;

// Bits of a Unix mode
constexpr DWORD MODE_KIND = 0170000;
constexpr DWORD MODE_FOLDER = 0040000;
constexpr DWORD MODE_LINK = 0120000;
constexpr DWORD MODE_OWNER_WRITES = 0200;

bool HasDosBits(unsigned host)
{
    return host == 0 || host == 7 || host == 11 || host == 14;
}

DWORD FromMode(DWORD mode)
{
    DWORD attributes = 0;
    if ((mode & MODE_KIND) == MODE_FOLDER)
        attributes |= CFileStatus::directory;
    if (mode != 0 && (mode & MODE_OWNER_WRITES) == 0) // without a mode nothing is forbidden
        attributes |= CFileStatus::readOnly;
    return attributes;
}

} // namespace

DWORD ZipAttributesOf(unsigned host, DWORD external, bool isFolderName)
{
    const DWORD attributes = HasDosBits(host) ? external & DOS_BITS : FromMode(external >> 16U);
    return isFolderName ? attributes | CFileStatus::directory : attributes;
}

bool IsZipLink(unsigned host, DWORD external)
{
    return !HasDosBits(host) && (external >> 16U & MODE_KIND) == MODE_LINK;
}

DWORD ExternalZipAttributes(bool isFolder, bool isReadOnly)
{
    return (isFolder ? CFileStatus::directory : CFileStatus::archive) |
           (isReadOnly ? CFileStatus::readOnly : 0);
}

} // namespace utility
