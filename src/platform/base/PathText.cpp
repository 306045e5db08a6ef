#include "platform/base/PathText.h"

#include <algorithm>

namespace utility
{

namespace
{

bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

CString CutTo(int limit, std::u16string_view text, bool* wasCut)
{
    const auto capacity = static_cast<std::size_t>(limit);
    if (text.size() > capacity && wasCut)
        *wasCut = true;
    return CString(text.substr(0, capacity));
}

} // namespace

CPathParts _wsplitpath(std::u16string_view path, bool* wasCut)
{
    CPathParts parts;
    if (path.size() >= 2 && path[1] == u':')
    {
        parts.m_Drive = path.substr(0, DRIVE_LIMIT);
        path.remove_prefix(DRIVE_LIMIT);
    }

    const auto lastSeparator = std::find_if(path.rbegin(), path.rend(), IsSeparator);
    const auto directory = static_cast<std::size_t>(path.rend() - lastSeparator);
    parts.m_Directory = CutTo(DIRECTORY_LIMIT, path.substr(0, directory), wasCut);
    path.remove_prefix(directory);

    const std::size_t dot = std::min(path.rfind(u'.'), path.size());
    parts.m_FileName = CutTo(FILE_NAME_LIMIT, path.substr(0, dot), wasCut);
    parts.m_Extension = CutTo(EXTENSION_LIMIT, path.substr(dot), wasCut);
    return parts;
}

CString _wmakepath(const CPathParts& parts, bool* wasCut)
{
    CString path;
    if (!parts.m_Drive.IsEmpty())
    {
        path += parts.m_Drive[0];
        path += u':';
    }
    const int directory = parts.m_Directory.GetLength();
    path += parts.m_Directory;
    if (directory > 0 && !IsSeparator(parts.m_Directory[directory - 1]))
        path += u'\\';
    path += parts.m_FileName;
    if (!parts.m_Extension.IsEmpty() && parts.m_Extension[0] != u'.')
        path += u'.';
    path += parts.m_Extension;
    return path.GetLength() > PATH_LIMIT ? CutTo(PATH_LIMIT, path.View(), wasCut) : path;
}

} // namespace utility
