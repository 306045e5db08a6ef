#include "files/backup/BackupRotation.h"

#include "files/FilePath.h"
#include "files/backup/BackupFileInfo.h"
#include "files/backup/BackupFiles.h"
#include "files/backup/BackupListing.h"
#include "files/backup/BackupTemplate.h"
#include "platform/base/StringHash.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"
#include "resources/StringIds.h"

#include <limits>
#include <unordered_map>
#include <vector>

namespace utility
{

namespace
{

CString NumberedName(const CBackupFileInfo& file, std::int64_t number)
{
    CString path;
    path.Format(u"%s%I64d%s", file.m_Before, number, file.m_After);
    return path;
}

bool RenameCopy(CBackupFileInfo& file, const CString& path)
{
    try
    {
        CFile::Rename(file.m_Path, path);
        file.m_Path = path;
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

/// The copies of one rotation on their way to their new names.
class CRenumbering
{
public:
    CRenumbering(CSortedList& files, int first, int step, std::int64_t freeNumber);

    void Run();

private:
    enum class EState
    {
        Waits,
        IsNext, // as soon as its name is free
        Done
    };
    struct CMove
    {
        CBackupFileInfo* m_File;
        CString m_Target;
        EState m_State = EState::Waits;
    };

    void Move(std::size_t index);
    CMove* FindBearer(const CMove& move);
    void Park(CMove& move);

    std::vector<CMove> m_Moves;
    std::unordered_map<CString, std::size_t, CNoCaseHash, CNoCaseEqual> m_Bearers; // by first name
    std::int64_t m_FreeNumber;
};

CRenumbering::CRenumbering(CSortedList& files, int first, int step, std::int64_t freeNumber)
    : m_FreeNumber(freeNumber)
{
    POSITION position = nullptr;
    int number = first;
    for (void* item = files.First(position); item; item = files.Next(position), number += step)
    {
        auto* const file = static_cast<CBackupFileInfo*>(item);
        m_Bearers.emplace(file->m_Path, m_Moves.size());
        m_Moves.push_back({file, NumberedName(*file, number)});
    }
}

void CRenumbering::Run()
{
    for (std::size_t i = 0; i < m_Moves.size(); ++i)
        Move(i);
}

/// The copy that bears the wanted name and has still to move; null if none does.
CRenumbering::CMove* CRenumbering::FindBearer(const CMove& move)
{
    const auto found = m_Bearers.find(move.m_Target);
    if (found == m_Bearers.end() || &m_Moves[found->second] == &move)
        return nullptr;
    CMove& bearer = m_Moves[found->second];
    return bearer.m_State == EState::Done ? nullptr : &bearer;
}

void CRenumbering::Park(CMove& move)
{
    m_Bearers.erase(move.m_File->m_Path);
    RenameCopy(*move.m_File, NumberedName(*move.m_File, m_FreeNumber++));
}

void CRenumbering::Move(std::size_t index)
{
    std::vector<CMove*> chain; // each waits for the one behind it
    for (CMove* next = &m_Moves[index]; next && next->m_State != EState::Done;
         next = FindBearer(*next))
    {
        if (next->m_State == EState::IsNext) // a circle
        {
            Park(*next);
            break;
        }
        next->m_State = EState::IsNext;
        chain.push_back(next);
    }
    for (; !chain.empty(); chain.pop_back())
    {
        CMove& move = *chain.back();
        if (move.m_File->m_Path != move.m_Target)
            RenameCopy(*move.m_File, move.m_Target);
        move.m_State = EState::Done;
    }
}

/// Leaves room for one more.
void TakeOffOldest(CSortedList& files, int copyCount, bool apply)
{
    while (copyCount >= 1 && files.GetCount() >= copyCount)
    {
        auto* const oldest = static_cast<CBackupFileInfo*>(files.RemoveHead());
        if (apply)
            DeleteFileW(oldest->m_Path);
        delete oldest;
    }
}

} // namespace

void RenumberCopies(CSortedList& files, int first, int step, std::int64_t freeNumber)
{
    CRenumbering(files, first, step, freeNumber).Run();
}

void CBackupFiles::MakeNextMultipleCopyName(CFilePath& out, const CFilePath& design,
                                            const CBackupTemplate& pattern, int copyCount,
                                            const CString& label, bool apply,
                                            const CTimeFormatter* time)
{
    CBackupFileList files;
    const int highest = ListBackupFiles(out, pattern, design, files);
    const std::int64_t freeNumber = std::int64_t{std::max(highest, files.GetCount())} + 2;
    TakeOffOldest(files, copyCount, apply);

    const int count = files.GetCount();
    int next = 1;
    if (count > 0 && pattern.GetNumberTag() == IDS_TOKEN_INCREMENT)
    {
        next = count + 1;
        if (apply)
            RenumberCopies(files, 1, 1, freeNumber);
    }
    else if (count > 0 && pattern.GetNumberTag() == IDS_TOKEN_DECREMENT && apply)
        RenumberCopies(files, count + 1, -1, freeNumber);
    else if (pattern.GetNumberTag() == IDS_TOKEN_INFINITE && highest > 0)
        next = highest == std::numeric_limits<int>::max() ? highest : highest + 1;
    out.SetFileName(pattern.BuildMultipleCopyName(next, label, time));
}

} // namespace utility
