#pragma once

namespace utility
{

/// Why a copy of a design is kept.
enum class EBackupKind
{
    Backup,       // made when a design is saved
    SecurityCopy, // made on a timer
    RestorePoint  // made on request, with a label
};

} // namespace utility
