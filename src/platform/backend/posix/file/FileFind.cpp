#include "platform/system/file/FileFind.h"

#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/DriveMap.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/CaseFold.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileStatus.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <sys/stat.h>
#include <vector>

namespace utility
{

struct CFileFind::CBackend
{
    struct CEntry
    {
        std::u16string Name;
        bool IsFolder = false;
    };

    const CEntry& GetPresent() const;

    CString Folder; // classic, with its separator; empty for the current folder
    std::vector<CEntry> Entries;
    std::size_t Next = 0; // the present entry is the one before
};

const CFileFind::CBackend::CEntry& CFileFind::CBackend::GetPresent() const
{
    static const CEntry none;
    return Next == 0 ? none : Entries[Next - 1];
}

namespace
{

/// `*` and `?` without regard to case; never slower than the product of both lengths.
bool MatchesPattern(std::u16string_view pattern, std::u16string_view name)
{
    std::size_t p = 0;
    std::size_t n = 0;
    std::size_t star = std::u16string_view::npos;
    std::size_t starName = 0;
    while (n < name.size())
    {
        if (p < pattern.size() && pattern[p] == u'*')
        {
            star = p++;
            starName = n;
        }
        else if (p < pattern.size() &&
                 (pattern[p] == u'?' || ToLower(pattern[p]) == ToLower(name[n])))
        {
            ++p;
            ++n;
        }
        else if (star != std::u16string_view::npos)
        {
            p = star + 1;
            n = ++starName;
        }
        else
            return false;
    }
    return pattern.find_first_not_of(u'*', p) == std::u16string_view::npos;
}

/// A pattern that ends in ".*" also takes names without an extension.
bool IsWanted(std::u16string_view pattern, std::u16string_view name)
{
    if (MatchesPattern(pattern, name))
        return true;
    return pattern.ends_with(u".*") && name.find(u'.') == std::u16string_view::npos &&
           MatchesPattern(pattern.substr(0, pattern.size() - 2), name);
}

bool IsFolderOnDisk(const std::string& folder, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat status = {};
    return lstat((folder + entry.d_name).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

CFileFind::CFileFind() = default;

CFileFind::~CFileFind() = default;

bool CFileFind::FindFile(const char16_t* pattern)
{
    Close();
    const CString given(pattern);
    std::size_t nameStart = given.View().size();
    while (nameStart > GetRootLength(given.View()) && !IsSeparator(given.View()[nameStart - 1]))
        --nameStart;
    const std::u16string_view wanted =
        nameStart == given.View().size() ? u"*" : given.View().substr(nameStart);

    auto backend = std::make_unique<CBackend>();
    backend->Folder = CString(given.View().substr(0, nameStart));
    const std::string folder = backend->Folder.IsEmpty() ? "./" : DiskPath(backend->Folder.View());
    DIR* entries = opendir(folder.c_str());
    if (entries == nullptr)
        return FailOnPath(errno == ENOENT ? ENOTDIR : errno, folder);
    while (const dirent* entry = readdir(entries))
    {
        std::u16string name = NameFromDisk(entry->d_name);
        if (IsWanted(wanted, name))
            backend->Entries.push_back({std::move(name), IsFolderOnDisk(folder, *entry)});
    }
    closedir(entries);

    if (backend->Entries.empty())
        return FailOnPath(ENOENT, folder);
    std::sort(backend->Entries.begin(), backend->Entries.end(),
              [](const CBackend::CEntry& left, const CBackend::CEntry& right)
              {
                  const int order = CompareNoCase(left.Name, right.Name);
                  return order != 0 ? order < 0 : left.Name < right.Name;
              });
    m_Backend = std::move(backend);
    return true;
}

bool CFileFind::FindNextFile()
{
    if (!m_Backend || m_Backend->Next == m_Backend->Entries.size())
        return false;
    ++m_Backend->Next;
    return m_Backend->Next < m_Backend->Entries.size();
}

void CFileFind::Close()
{
    m_Backend.reset();
}

CString CFileFind::GetFileName() const
{
    return m_Backend ? CString(std::u16string_view(m_Backend->GetPresent().Name)) : CString();
}

CString CFileFind::GetFilePath() const
{
    return m_Backend ? m_Backend->Folder + GetFileName() : CString();
}

CString CFileFind::GetFileTitle() const
{
    const CString name = GetFileName();
    const int point = name.ReverseFind(u'.');
    return point < 0 ? name : name.Left(point);
}

bool CFileFind::IsDots() const
{
    const CString name = GetFileName();
    return name == u"." || name == u"..";
}

bool CFileFind::IsDirectory() const
{
    return m_Backend && m_Backend->GetPresent().IsFolder;
}

bool CFileFind::IsReadOnly() const
{
    CFileStatus status;
    return CFile::GetStatus(GetFilePath(), status) && status.IsReadOnly();
}

std::int64_t CFileFind::GetLength() const
{
    CFileStatus status;
    return CFile::GetStatus(GetFilePath(), status) ? status.m_size : 0;
}

bool CFileFind::GetLastWriteTime(CTime& time) const
{
    CFileStatus status;
    if (!CFile::GetStatus(GetFilePath(), status))
        return false;
    time = status.m_mtime;
    return true;
}

} // namespace utility
