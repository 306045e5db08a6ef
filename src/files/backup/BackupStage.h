#pragma once

#include "files/backup/BackupKind.h"
#include "platform/base/String.h"
#include "platform/system/file/File.h"

#include <memory>
#include <vector>

namespace utility
{

/// Copies of a design that stand whole beside their place, before older ones make room for them.
///
/// A copy is written as "board.pcb.backup.part", synced, and then renamed to
/// "board.pcb.backup~1.whole", with a label behind the number if it has one. From then on it lasts:
/// whatever ends the process, the next one that finishes copies of the design finishes it, too.
/// Exclusive opening keeps a second process from the same files; it fails with
/// ERROR_SHARING_VIOLATION.
class CBackupStage
{
public:
    CBackupStage(EBackupKind kind, const CString& design);

    /// Copies the design. False, with the reason and nothing left, if it cannot be read or copied,
    /// or if a copy would take its place or that of a read-only file.
    [[nodiscard]] bool Add(const CString& label);
    /// Deletes the copy that was added.
    void TakeBack();
    /// Gives every staged copy its name, the oldest first; `made` is the path of the last one.
    /// False with the reason; what has no name yet stays staged.
    [[nodiscard]] bool Finish(CString& made);

    /// The copy that was added, while it is staged.
    const CString& GetAdded() const { return m_Added; }

private:
    struct CStaged
    {
        int m_Number;
        CString m_Path;
        CString m_Label;
        std::unique_ptr<CFile> m_Held;
    };

    bool CanTakeName(const CString& label) const;
    bool CopyDesign();
    bool NameWhole(const CString& label);
    std::vector<CStaged> FindStaged() const;
    bool HoldOthers(std::vector<CStaged>& staged) const;
    bool GiveName(const CStaged& staged, CString& made) const;

    EBackupKind m_Kind;
    CString m_Design;
    CString m_Base; // what the names of staged copies begin with
    CString m_Added;
    std::unique_ptr<CFile> m_Copy; // held open as long as it is staged
};

} // namespace utility
