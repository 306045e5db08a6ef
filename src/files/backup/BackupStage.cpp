#include "files/backup/BackupStage.h"

#include "files/FilePath.h"
#include "files/FileTools.h"
#include "files/backup/BackupContent.h"
#include "files/backup/BackupFiles.h"
#include "files/backup/BackupTemplate.h"
#include "frame/AppError.h"
#include "platform/base/CaseFold.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/NumberText.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileFind.h"
#include "platform/system/file/FileStatus.h"
#include "platform/system/file/NativePath.h"
#include "resources/StringIds.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr char16_t PART_ENDING[] = u".part";
constexpr std::u16string_view WHOLE_ENDING = u".whole";
constexpr char16_t NUMBER_MARK = u'~';
constexpr UINT EXCLUSIVE = CFile::modeReadWrite | CFile::shareExclusive;

const char16_t* NameOf(EBackupKind kind)
{
    switch (kind)
    {
    case EBackupKind::SecurityCopy:
        return u".security-copy";
    case EBackupKind::RestorePoint:
        return u".restore-point";
    case EBackupKind::Backup:
        break;
    }
    return u".backup";
}

/// Its name is its own, so no other copy may be replaced by it.
bool IsNumbered(EBackupKind kind, const CString& design)
{
    CBackupTemplate pattern(CBackupFiles::GetFilenameTemplate(kind),
                            CFilePath(design).GetFileName());
    pattern.AddNumber(CBackupFiles::GetCopyCount(kind));
    return pattern.GetNumberTag() != 0 && pattern.GetParts().size() > 1;
}

bool FailToOverwrite(const CString& design)
{
    CAppError::SetLastError(IDS_CANNOT_OVERWRITE, NativePath(design));
    return false;
}

CString FolderFor(EBackupKind kind, const CString& design)
{
    CFilePath name;
    CBackupFiles::MakeName(kind, name, design, CString(), true, false);
    CString folder = name.GetDriveAndDirectory();
    CFilePath::AddDirectorySeparator(folder);
    return folder;
}

} // namespace

CBackupStage::CBackupStage(EBackupKind kind, const CString& design)
    : m_Kind(kind),
      m_Design(CFilePath::FullPath(design)),
      m_Base(FolderFor(kind, m_Design) + CFilePath(m_Design).GetFileNameAndExtension() +
             NameOf(kind))
{
}

bool CBackupStage::Add(const CString& label)
{
    return CanTakeName(label) && CopyDesign() && NameWhole(label);
}

bool CBackupStage::CanTakeName(const CString& label) const
{
    CFileStatus status;
    if (!CFile::GetStatus(m_Design, status))
        return false;
    CFilePath name;
    CBackupFiles::MakeName(m_Kind, name, m_Design, label, true, false);
    if (name.WasCut())
    {
        SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return false;
    }
    if (name.EqualPath(m_Design))
        return FailToOverwrite(m_Design);
    return IsNumbered(m_Kind, m_Design) || IsFileWriteable(name) ||
           CAppError::GetLastError() != IDS_FILE_READ_ONLY;
}

/// Leaves the copy synced and held under its first name, or nothing.
bool CBackupStage::CopyDesign()
{
    const CFilePath part(m_Base + PART_ENDING);
    const CString folder = part.GetDriveAndDirectory();
    if (!CFilePath::IsDirectory(folder) && !CFilePath::CreateDirectoryW(folder))
    {
        CAppError::SetLastError(IDS_CREATE_DIRECTORY_FAILED, NativePath(folder));
        return false;
    }
    m_Added = m_Base + PART_ENDING;
    m_Copy = CopyContent(m_Design, m_Added, ECopyRights::OfSource);
    if (!m_Copy)
        m_Added.Empty();
    return m_Copy != nullptr;
}

bool CBackupStage::NameWhole(const CString& label)
{
    CString cleaned = label;
    CFilePath::CleanWith(cleaned, u"-");
    const std::vector<CStaged> staged = FindStaged();
    CString path;
    path.Format(u"%s%c%d", m_Base, NUMBER_MARK, staged.empty() ? 1 : staged.back().m_Number + 1);
    if (!cleaned.IsEmpty())
        path += u"." + cleaned;
    path += WHOLE_ENDING;
    // The name is free: whoever adds copies of this design has its first name to himself.
    if (!ReplaceWholeFile(m_Added, path))
    {
        TakeBack();
        return false;
    }
    m_Added = path;
    return true;
}

void CBackupStage::TakeBack()
{
    const CLastErrorKeeper reason;
    if (!m_Added.IsEmpty())
        DeleteFileW(m_Added);
    m_Copy.reset();
    m_Added.Empty();
}

/// By their numbers; read from their names alone.
std::vector<CBackupStage::CStaged> CBackupStage::FindStaged() const
{
    std::vector<CStaged> staged;
    CFileFind find;
    bool more = find.FindFile(m_Base + NUMBER_MARK + u"*" + CString(WHOLE_ENDING));
    while (more)
    {
        more = find.FindNextFile();
        const CString path = find.GetFilePath();
        const int start = m_Base.GetLength() + 1;
        if (find.IsDirectory() || !EqualNoCase(path.Left(start - 1).View(), m_Base.View()))
            continue; // a wildcard in the design's name fits other designs, too
        const int length = path.GetLength() - start - static_cast<int>(WHOLE_ENDING.size());
        const CString middle = path.Mid(start, length);
        const int point = middle.Find(u'.');
        const int number = _wtoi(middle);
        if (number > 0)
            staged.push_back({number, path, point < 0 ? CString() : middle.Mid(point + 1), {}});
    }
    std::ranges::stable_sort(staged, {}, &CStaged::m_Number);
    return staged;
}

bool CBackupStage::HoldOthers(std::vector<CStaged>& staged) const
{
    for (CStaged& copy : staged)
    {
        copy.m_Held = std::make_unique<CFile>();
        if (!EqualNoCase(copy.m_Path.View(), m_Added.View()) &&
            !copy.m_Held->Open(copy.m_Path, EXCLUSIVE))
            return false;
    }
    return true;
}

bool CBackupStage::GiveName(const CStaged& staged, CString& made) const
{
    CFilePath name;
    if (!CBackupFiles::MakeName(m_Kind, name, m_Design, staged.m_Label, true, true))
        return false;
    if (IsNumbered(m_Kind, m_Design) && CFilePath::DoesFileExist(name))
        return FailToOverwrite(m_Design); // an older copy could not make room
    if (!ReplaceWholeFile(staged.m_Path, name))
        return false;
    made = name.GetPath();
    return true;
}

bool CBackupStage::Finish(CString& made)
{
    std::vector<CStaged> staged = FindStaged();
    if (!HoldOthers(staged))
        return false;
    for (CStaged& copy : staged)
    {
        if (!GiveName(copy, made))
            return false;
        copy.m_Held.reset(); // the next one may have to replace it
    }
    m_Copy.reset();
    m_Added.Empty();
    return true;
}

} // namespace utility
