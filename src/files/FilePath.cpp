#include "files/FilePath.h"

#include "platform/base/CaseFold.h"
#include "platform/base/PathText.h"
#include "platform/system/file/FileCalls.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr int FULL_PATH_LIMIT = 260; // what the system is asked for at most
constexpr char16_t CLOSING_MARK[] =
    u"//"; // two on purpose; the disk takes a run of separators as one

bool IsPathSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

bool EndsInSeparator(const CString& text)
{
    return !text.IsEmpty() && IsPathSeparator(text[text.GetLength() - 1]);
}

/// Without regard to case, and with one separator as good as the other.
bool AreEqualPaths(const CString& left, const CString& right)
{
    return std::ranges::equal(left.View(), right.View(),
                              [](char16_t a, char16_t b) {
                                  return ToLower(a) == ToLower(b) ||
                                         (IsPathSeparator(a) && IsPathSeparator(b));
                              });
}

/// Fills a buffer with as much as fits; true if that is all.
template <std::size_t Capacity>
bool Store(std::array<char16_t, Capacity>& buffer, const CString& text)
{
    const std::size_t length = std::min(text.View().size(), Capacity - 1);
    std::copy_n(text.GetString(), length, buffer.begin());
    std::fill(buffer.begin() + static_cast<std::ptrdiff_t>(length), buffer.end(), u'\0');
    return length == text.View().size();
}

} // namespace

CFilePath::CFilePath(const CString& path)
{
    SetParts(_wsplitpath(path.View(), &m_WasCut));
}

CFilePath::operator const char16_t*() const
{
    MakePath();
    return m_FullPath.data();
}

CPathParts CFilePath::GetParts() const
{
    return {GetDrive(), GetDirectory(), GetFileName(), GetExtension()};
}

void CFilePath::SetParts(const CPathParts& parts)
{
    const bool isWhole = Store(m_Drive, parts.m_Drive) && Store(m_Directory, parts.m_Directory) &&
                         Store(m_FileName, parts.m_FileName) &&
                         Store(m_Extension, parts.m_Extension);
    m_WasCut = m_WasCut || !isWhole;
}

void CFilePath::MakePath() const
{
    Store(m_FullPath, _wmakepath(GetParts(), &m_WasCut));
}

void CFilePath::Resplit()
{
    MakePath();
    SetParts(_wsplitpath(CString(m_FullPath.data()).View(), &m_WasCut));
}

CString CFilePath::GetPath() const
{
    MakePath();
    return m_FullPath.data();
}

CString CFilePath::GetDriveAndDirectory() const
{
    const CString folder = GetDrive() + GetDirectory();
    return EndsInSeparator(folder) ? folder.Left(folder.GetLength() - 1) : folder;
}

void CFilePath::SetPath(const CString& path)
{
    if (!Store(m_FullPath, path))
        m_WasCut = true;
    SetParts(_wsplitpath(CString(m_FullPath.data()).View(), &m_WasCut));
}

void CFilePath::SetDrive(const CString& drive)
{
    if (!Store(m_Drive, drive))
        m_WasCut = true;
    Resplit();
}

void CFilePath::SetDirectory(const CString& directory)
{
    if (!Store(m_Directory, directory))
        m_WasCut = true;
    Resplit();
}

void CFilePath::SetFileName(const CString& fileName)
{
    if (!Store(m_FileName, fileName))
        m_WasCut = true;
    Resplit();
}

void CFilePath::SetExtension(const CString& extension)
{
    if (!Store(m_Extension, extension))
        m_WasCut = true;
    Resplit();
}

void CFilePath::SetDriveAndDirectory(const CString& directory)
{
    m_Drive.fill(0);
    CString folder = directory;
    if (!folder.IsEmpty())
        AddDirectorySeparator(folder);
    SetDirectory(folder);
}

void CFilePath::AddSubDirectory(const CString& directory)
{
    CString folder = GetDirectory();
    if (folder.GetLength() > 1 && !EndsInSeparator(folder))
        folder += CLOSING_MARK;
    SetDirectory(folder + directory);
}

void CFilePath::AddFileNameSuffix(UINT stringId)
{
    CString suffix;
    if (suffix.LoadString(stringId))
        SetFileName(GetFileName() + suffix);
}

bool CFilePath::MakeLegal()
{
    CString name = GetFileName();
    if (!MakeFileNameLegal(name))
        return false;
    Store(m_FileName, name);
    return true;
}

void CFilePath::FullPath()
{
    const CString full = FullPath(GetPath());
    m_WasCut = m_WasCut || full.GetLength() > FULL_PATH_LIMIT;
    SetParts(_wsplitpath(full.Left(FULL_PATH_LIMIT).View(), &m_WasCut));
}

bool CFilePath::IsUntitled() const
{
    return m_FileName[0] == 0 || EqualFileName(CStringTable::Get(GetUntitledStringId()));
}

void CFilePath::SetUntitled()
{
    SetFileName(CStringTable::Get(GetUntitledStringId()));
}

bool CFilePath::GetShortPath(CString& path) const
{
    return GetShortPathNameW(GetPath(), path);
}

bool CFilePath::EqualPath(const CString& path) const
{
    return AreEqualPaths(GetPath(), path);
}

bool CFilePath::EqualDrive(const CString& drive) const
{
    return EqualNoCase(m_Drive.data(), drive.View());
}

bool CFilePath::EqualDirectory(const CString& directory) const
{
    return AreEqualPaths(GetDirectory(), directory);
}

bool CFilePath::EqualFileName(const CString& fileName) const
{
    return EqualNoCase(m_FileName.data(), fileName.View());
}

bool CFilePath::EqualExtension(const CString& extension) const
{
    const bool lacksDot = !extension.IsEmpty() && extension[0] != u'.';
    return EqualNoCase(m_Extension.data(), (lacksDot ? u"." + extension : extension).View());
}

const CString& CFilePath::GetDirectorySeparator()
{
    static const CString separator(u"\\");
    return separator;
}

UINT CFilePath::GetUntitledStringId()
{
    return IDS_UNTITLED;
}

void CFilePath::AddDirectorySeparator(CString& path)
{
    if (!EndsInSeparator(path))
        path += GetDirectorySeparator();
}

void CFilePath::RemoveDirectorySeparator(CString& path)
{
    if (!path.IsEmpty() && path[path.GetLength() - 1] == u'\\')
        path = path.Left(path.GetLength() - 1);
}

CString CFilePath::FullPath(const CString& path)
{
    return GetFullPathNameW(path);
}

void CFilePath::SetExtension(CString& path, const CString& extension)
{
    if (path.IsEmpty())
        return;
    CPathParts parts = _wsplitpath(path.View());
    parts.m_Extension = extension;
    path = _wmakepath(parts);
}

bool CFilePath::IsRelativeDirectoryPath(const CString& path)
{
    const CPathParts parts = _wsplitpath(path.View());
    return parts.m_Drive.IsEmpty() &&
           (parts.m_Directory.IsEmpty() || !IsPathSeparator(parts.m_Directory[0]));
}

void CFilePath::ApplyCurrentDir(CString& path, const CString& currentDir)
{
    if (!IsRelativeDirectoryPath(path))
        return;
    CPathParts parts;
    parts.m_Directory = currentDir.Left(DIRECTORY_LIMIT);
    parts.m_FileName = path.Left(FILE_NAME_LIMIT);
    path = _wmakepath(parts);
}

bool CFilePath::FirstDirectory(const CString& path, CString& first)
{
    CString rest = path;
    if (!IsRelativeDirectoryPath(path))
    {
        rest = path.Mid(_wsplitpath(path.View()).m_Drive.GetLength());
        rest.TrimLeft(u"\\/");
    }
    const int separator = rest.Find(u'\\', 1);
    if (separator < 0)
        return false;
    first = rest.Left(separator);
    return true;
}

} // namespace utility
