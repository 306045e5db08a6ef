#pragma once

#include <string>
#include <string_view>

namespace utility
{

/// A classic path with its drive or share looked up in the host's drive map.
struct CRootedPath
{
    bool IsKnown = true; // false: a share that is not mapped
    std::string
        Root; // native folder of the drive or share, without a closing separator; empty if dropped
    std::u16string_view Rest; // what stands behind the drive or share
};
CRootedPath LookUpDrive(std::u16string_view path);

/// The length of the drive ("C:") or share (`\\server\share`) that a path begins with, 0 if there
/// is none.
std::size_t GetRootLength(std::u16string_view path);

inline bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

} // namespace utility
