#include "files/backup/BackupListing.h"

#include "files/AppFolder.h"
#include "files/FilePath.h"
#include "files/backup/BackupFileInfo.h"
#include "files/backup/BackupFiles.h"
#include "files/backup/BackupMatch.h"
#include "files/backup/BackupTemplate.h"
#include "platform/base/CaseFold.h"
#include "platform/base/StringHash.h"
#include "platform/base/time/Time.h"
#include "platform/system/file/FileFind.h"
#include "platform/system/file/FileStamp.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"
#include "text/match/StringCompare.h"

#include <functional>
#include <memory>
#include <unordered_set>

namespace utility
{

namespace
{

constexpr char16_t ROW_FORMAT[] = u"%1\t%2\t%3";
constexpr char16_t TIME_FORMAT[] = u"%d-%b-%Y  %H:%M:%S";
constexpr std::int64_t KILOBYTE = 1024;
constexpr int COUNT_OF_LISTED_RESTORE_POINTS = 2;

const CBackupFileInfo& InfoOf(const void* item)
{
    return *static_cast<const CBackupFileInfo*>(item);
}

int CompareTimes(void* left, void* right, void*)
{
    const auto timeOf = [](const CBackupFileInfo& info)
    {
        return std::pair(info.m_Time, info.m_Nanoseconds);
    };
    const auto order = timeOf(InfoOf(left)) <=> timeOf(InfoOf(right));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

int CompareTimesAndPaths(void* left, void* right, void* data)
{
    const int order = CompareTimes(left, right, data);
    return order != 0 ? order
                      : StringCompare(InfoOf(left).m_Path, InfoOf(right).m_Path, false, true, true);
}

CString FolderOf(const CFilePath& place)
{
    CString folder = place.GetDrive() + place.GetDirectory();
    if (!folder.IsEmpty())
        CFilePath::AddDirectorySeparator(folder);
    return folder;
}

/// Whether the last point of a name begins this extension; without one a name has no point.
bool HasExtension(std::u16string_view name, std::u16string_view extension)
{
    const std::size_t point = std::min(name.rfind(u'.'), name.size());
    return EqualNoCase(name.substr(point), extension);
}

/// Calls for each file of the folder with the extension of `place`: its path, and its name without
/// extension.
void ForEachFile(const CFilePath& place,
                 const std::function<void(const CString& path, std::u16string_view name)>& use)
{
    const CString extension = place.GetExtension();
    CFileFind find;
    bool more = find.FindFile(FolderOf(place) + u"*" + extension);
    while (more)
    {
        more = find.FindNextFile();
        const CString name = find.GetFileName();
        const std::u16string_view view = name.View();
        if (!find.IsDirectory() && !find.IsDots() && HasExtension(view, extension.View()))
            use(find.GetFilePath(), view.substr(0, view.size() - extension.View().size()));
    }
}

/// None if the file has gone meanwhile.
std::unique_ptr<CBackupFileInfo> MakeInfo(const CString& path)
{
    CFileStamp stamp;
    if (!GetFileStamp(path, stamp))
        return nullptr;
    auto info = std::make_unique<CBackupFileInfo>();
    info->m_Path = path;
    info->m_Size = static_cast<std::int64_t>(stamp.m_Size);
    info->m_Time = stamp.m_Seconds;
    info->m_Nanoseconds = stamp.m_Nanoseconds;
    return info;
}

CString SizeText(std::int64_t size)
{
    CString text;
    if (size < KILOBYTE)
        text.Format(u"%I64d", size);
    else
        text.Format(u"%I64dKb", size / KILOBYTE);
    return text;
}

CString RowText(const CBackupFileInfo& info)
{
    CString text;
    text.FormatMessage(ROW_FORMAT, CFilePath(info.m_Path).GetFileNameAndExtension(),
                       CTime(info.m_Time).Format(TIME_FORMAT), SizeText(info.m_Size));
    return text;
}

} // namespace

CBackupFileList::CBackupFileList() : CSortedList(CompareTimes) {}

CBackupFileList::~CBackupFileList()
{
    CBackupFiles::FreeList(*this);
}

int ListBackupFiles(const CFilePath& place, const CBackupTemplate& pattern, const CFilePath& design,
                    CSortedList& files)
{
    int highest = -1;
    CPtrList found;
    ForEachFile(place,
                [&](const CString& path, std::u16string_view name)
                {
                    CBackupNameMatch match;
                    if (!MatchBackupFilename(name, pattern, match) || design.EqualPath(path))
                        return;
                    std::unique_ptr<CBackupFileInfo> info = MakeInfo(path);
                    if (!info)
                        return;
                    if (match.m_Number >= 0)
                    {
                        const int tail = place.GetExtension().GetLength();
                        info->m_Number = match.m_Number;
                        info->m_Before = FolderOf(place) + match.m_Before;
                        info->m_After = match.m_After + path.Right(tail);
                        highest = std::max(highest, match.m_Number);
                    }
                    found.AddTail(info.release());
                });
    files.AddSorted(found);
    return highest;
}

void ListAllFilesFromFolder(const CFilePath& place, CSortedList& files)
{
    std::unordered_set<CString, CStringHash, CStringEqual> known;
    POSITION position = nullptr;
    for (const void* item = files.First(position); item; item = files.Next(position))
        known.insert(InfoOf(item).m_Path);
    CPtrList found;
    ForEachFile(place,
                [&](const CString& path, std::u16string_view)
                {
                    std::unique_ptr<CBackupFileInfo> info = MakeInfo(path);
                    if (info && known.insert(path).second)
                        found.AddTail(info.release());
                });
    files.AddSorted(found);
}

void CBackupFiles::AddFilesToList(CSortedList& files, EBackupKind kind, const CFilePath& design,
                                  bool showAll)
{
    CFilePath place(design);
    GetFolder(kind).GetFolderPath(design, place);
    if (showAll)
    {
        ListAllFilesFromFolder(place, files);
        return;
    }
    CBackupTemplate pattern(GetFilenameTemplate(kind), design.GetFileName());
    pattern.AddNumber(kind == EBackupKind::RestorePoint ? COUNT_OF_LISTED_RESTORE_POINTS
                                                        : GetCopyCount(kind));
    ListBackupFiles(place, pattern, design, files);
}

std::vector<CBackupListRow> CBackupFiles::ListFiles(CSortedList& files, const CFilePath& design,
                                                    bool security, bool backup, bool restorePoints,
                                                    bool showAll)
{
    FreeList(files);
    files.SetSortFunction(CompareTimesAndPaths);
    if (security)
        AddFilesToList(files, EBackupKind::SecurityCopy, design, showAll);
    if (backup)
        AddFilesToList(files, EBackupKind::Backup, design, showAll);
    if (restorePoints)
        AddFilesToList(files, EBackupKind::RestorePoint, design, showAll);

    std::vector<CBackupListRow> rows{{CStringTable::Get(IDS_BACKUP_LIST_HEADING)}};
    POSITION position = nullptr;
    for (const void* item = files.First(position); item; item = files.Next(position))
        rows.push_back({RowText(InfoOf(item)), &InfoOf(item)});
    return rows;
}

CString CBackupFiles::GetPathFromList(const std::vector<CBackupListRow>& rows, int index)
{
    if (index < 0 || index >= static_cast<int>(rows.size()))
        return CString();
    const CBackupFileInfo* file = rows[static_cast<std::size_t>(index)].m_File;
    return file ? file->m_Path : CString();
}

void CBackupFiles::FreeList(CSortedList& files)
{
    while (!files.IsEmpty())
        delete static_cast<CBackupFileInfo*>(files.RemoveHead());
}

} // namespace utility
