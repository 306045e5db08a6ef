#pragma once

#include "files/backup/BackupKind.h"

namespace utility
{

/// Where the settings of a kind stand, below the application's key; its `CAppFolder` stands there
/// as well.
constexpr const char16_t* BackupSettingsPath(EBackupKind kind)
{
    switch (kind)
    {
    case EBackupKind::SecurityCopy:
        return u"Backups\\SecurityCopy";
    case EBackupKind::RestorePoint:
        return u"Backups\\RestorePoint";
    case EBackupKind::Backup:
        break;
    }
    return u"Backups";
}

} // namespace utility
