#include "platform/system/file/NativePath.h"

#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/DriveMap.h"

namespace utility
{

CString NativePath(const CString& path)
{
    const CRootedPath rooted = LookUpDrive(path.View());
    if (!rooted.IsKnown)
        return path;

    std::u16string native = NameFromDisk(rooted.Root);
    if (!native.empty() && !rooted.Rest.empty() && !IsSeparator(rooted.Rest.front()))
        native += u'/';
    for (const char16_t unit : rooted.Rest)
        native += unit == u'\\' ? u'/' : unit;
    // Marks for characters that are no part of a classic name are shown as what they stand for.
    for (char16_t& unit : native)
    {
        if (unit == 0xF000 + u'\\' || unit == 0xF000 + u':')
            unit = static_cast<char16_t>(unit - 0xF000);
    }
    return CString(std::u16string_view(native));
}

} // namespace utility
