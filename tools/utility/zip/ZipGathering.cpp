#include "utility/zip/ZipGathering.h"

#include "files/FileSize.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileFind.h"
#include "platform/system/file/NativePath.h"

#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

bool Refuse(const CString& path, const CString& reason)
{
    PrintError(NativePath(path) + u": " + reason);
    return false;
}

std::string PlaceOnDisk(const CString& path)
{
    return DiskPathBytes(GetFullPathNameW(path));
}

/// A path as it stands in an archive: relative, "/" between the names, nothing that leads upwards.
CString NameInArchive(std::u16string_view path)
{
    CString name;
    while (!path.empty())
    {
        const std::size_t length = std::min(path.find_first_of(u"/\\"), path.size());
        const std::u16string_view part = path.substr(0, length);
        path.remove_prefix(std::min(length + 1, path.size()));
        const bool isDrive = part.size() == 2 && part[1] == u':';
        if (part == u".." || isDrive)
            name.Empty();
        else if (!part.empty() && part != u".")
            name += (name.IsEmpty() ? CString() : CString(u"/")) + CString(part);
    }
    return name;
}

} // namespace

CZipGathering::CZipGathering(const CString& archive) : m_Archive(PlaceOnDisk(archive)) {}

bool CZipGathering::Gather(const CString& path)
{
    const CString name = NameInArchive(path.View());
    switch (GetEntryKind(path))
    {
    case EEntryKind::Folder:
        return GatherFolder(name, path);
    case EEntryKind::File:
        return AddFile(name, path);
    case EEntryKind::Other:
        return Refuse(path, u"neither a file nor a folder");
    case EEntryKind::None:
        break;
    }
    return Refuse(path, GetSystemMessage(ERROR_FILE_NOT_FOUND));
}

bool CZipGathering::GatherFolder(const CString& name, const CString& path)
{
    m_Waiting.push_back({name, path, true, 0});
    while (!m_Waiting.empty())
    {
        const CZipPart folder = m_Waiting.back();
        m_Waiting.pop_back();
        if (IsInterrupted() || !AddFolder(folder.m_Name, folder.m_Path))
            return false;
    }
    return true;
}

bool CZipGathering::AddFolder(const CString& name, const CString& path)
{
    if (!name.IsEmpty() && !Add({name + u"/", path, true, 0}))
        return false;
    CFileFind find;
    const std::size_t firstBelow = m_Waiting.size();
    bool hasMore = find.FindFile(path + u"\\*.*");
    if (!hasMore)
        return Refuse(path, GetSystemMessage(GetLastError()));
    while (hasMore)
    {
        hasMore = find.FindNextFile();
        const CString below =
            name.IsEmpty() ? find.GetFileName() : name + u"/" + find.GetFileName();
        if (find.IsDots())
            continue;
        if (find.IsDirectory())
            m_Waiting.push_back({below, find.GetFilePath(), true, 0});
        else if (GetEntryKind(find.GetFilePath()) != EEntryKind::File)
            PassOver(find.GetFilePath());
        else if (!AddFile(below, find.GetFilePath()))
            return false;
    }
    // The last one is taken up first.
    std::reverse(m_Waiting.begin() + static_cast<std::ptrdiff_t>(firstBelow), m_Waiting.end());
    return true;
}

void CZipGathering::PassOver(const CString& path)
{
    CString reason = u"passed over: neither a file nor a folder";
    if (GetEntryKind(path) == EEntryKind::Folder)
        reason = u"passed over: a link to a folder";
    else if (GetEntryKind(path) == EEntryKind::None)
        reason = u"passed over: a link that leads nowhere";
    Refuse(path, reason);
    ++m_PassedOver;
}

bool CZipGathering::AddFile(const CString& name, const CString& path)
{
    if (PlaceOnDisk(path) == m_Archive)
        return true;
    return Add({name, path, false, GetFileSize(path)});
}

bool CZipGathering::Add(CZipPart part)
{
    const auto [found, isNew] = m_Names.try_emplace(part.m_Name, m_Parts.size());
    if (!isNew)
    {
        const CString& first = m_Parts[found->second].m_Path;
        if (part.m_IsFolder || PlaceOnDisk(first) == PlaceOnDisk(part.m_Path))
            return true; // named twice
        return Refuse(part.m_Path, u"another file has the name '" + part.m_Name + u"' already");
    }
    m_Size += static_cast<std::uint64_t>(part.m_Size);
    m_Parts.push_back(std::move(part));
    return true;
}

} // namespace utility
