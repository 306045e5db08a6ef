#pragma once

#include "files/backup/BackupFiles.h"

#include "utility/command/Command.h"

namespace utility
{

class CBackupFileList;

// What a call on copies of a design means by its words.

/// Backup copies, if the call names no kind.
EBackupKind GetBackupKind(const CCommandCall& call);
CString GetDesign(const CCommandCall& call);

/// The copies that are asked for, the oldest first, behind a heading; `files` owns them.
std::vector<CBackupListRow> FindBackupCopies(CBackupFileList& files, const CCommandCall& call);
/// The youngest copy of the name, or restore point of the label, that is wanted, or of all; empty
/// if there is none.
CString FindBackupCopy(const CCommandCall& call);

} // namespace utility
