#include "files/AutoFileList.h"
#include "files/FileFinder.h"
#include "text/ExpandVariables.h"
#include "text/match/StringCompare.h"

#include <algorithm>
#include <vector>

namespace utility
{

namespace
{

/// A path as it is looked for: variables expanded, one kind of separator.
CString OnDisk(CString path)
{
    ExpandVariables(path);
    path.Replace(u'/', u'\\');
    return path;
}

/// The folder that a file is looked for in.
CString FolderOf(const CString& file)
{
    const CString path = OnDisk(file);
    return path.Left(std::max(path.ReverseFind(u'\\'), 0));
}

bool AreSame(const CAutoFileList::CTexts& left, const CAutoFileList::CTexts& right)
{
    if (left.GetCount() != right.GetCount())
        return false;
    POSITION other = right.GetHeadPosition();
    for (POSITION next = left.GetHeadPosition(); next;)
    {
        if (left.GetNext(next) != right.GetNext(other))
            return false;
    }
    return true;
}

} // namespace

bool CAutoFileList::AddFilesFromDir(const CString& folder)
{
    CString searched = folder;
    ExpandVariables(searched);
    const bool hasVariable = searched != folder;
    CFilePath::AddDirectorySeparator(searched);
    CFileFinder find(searched + u"*" + m_Extension);
    find.SetShowBackups(!m_IgnoreBackupFiles);
    std::vector<CString> names;
    for (bool more = find.FirstFile(); more; more = find.NextFile())
        names.push_back(find.GetFileName());
    std::ranges::stable_sort(names, [](const CString& left, const CString& right)
                             { return StringCompare(left, right, false, true, true) < 0; });

    CString shown = m_KeepVariables && hasVariable ? folder : searched;
    CFilePath::AddDirectorySeparator(shown);
    for (const CString& name : names)
        Add(shown + name);
    return find.WasSearched();
}

void CAutoFileList::KeepFilesOf(const CString& folder, const CTexts& files)
{
    const CString wanted = OnDisk(folder);
    for (POSITION next = files.GetHeadPosition(); next;)
    {
        const CString& file = files.GetNext(next);
        if (EqualNoCase(FolderOf(file).View(), wanted.View()))
            Add(file);
    }
}

bool CAutoFileList::RefreshFiles(bool dropVanished)
{
    if (!m_SearchDirs)
        return false;
    const CTexts before = std::move(m_Files);
    Empty();
    POSITION position = nullptr;
    for (CString folder = FirstEnabledNonVaultDir(position); position;
         folder = NextEnabledNonVaultDir(position))
    {
        if (!AddFilesFromDir(folder) && !dropVanished)
            KeepFilesOf(folder, before);
    }
    return !AreSame(before, m_Files);
}

void CAutoFileList::Refresh()
{
    LoadFromRegistry();
    RefreshFiles(false);
}

} // namespace utility
