#pragma once

#include "files/backup/BackupKind.h"
#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// Makes copies of designs and brings them back.
///
/// A copy stands whole and synced beside its place before any older copy is touched. Whatever ends
/// the process: the design is whole, every copy that the count lets stay is there, and the old or
/// the new copy is there whole, under its name or under one that the next call finishes
/// (docs/formats/backup-names.md). A full disk or a folder that cannot be written fails before
/// anything is rotated. User-interface thread; a second process at the same design fails.
class UTILITY_CORE_API CBackupCopy
{
public:
    CBackupCopy() = delete;

    /// The next copy of a kind, by its template and place, whether or not the kind is switched on.
    /// `made` is its path. A name without a number or a time is that of the copy before, which it
    /// replaces.
    ///
    /// False with the last error: the system's code, IDS_CREATE_DIRECTORY_FAILED,
    /// IDS_FILE_READ_ONLY, or IDS_CANNOT_OVERWRITE if the copy's name is the design's own or that
    /// of a copy that could not make room. `made` is empty if no older copy was touched; else it is
    /// the whole copy that waits for its name.
    [[nodiscard]] static bool Make(EBackupKind kind, const CString& design, const CString& label,
                                   CString& made);

    /// Puts a copy in the design's place. What it replaces becomes a backup copy, as when a design
    /// is saved, also where those are switched off; `kept` is its path, empty if there was no
    /// design. The copy may make room for that and be gone then.
    ///
    /// False, with the last error and the design as it was.
    [[nodiscard]] static bool Restore(const CString& copy, const CString& design, CString& kept);
};

} // namespace utility
