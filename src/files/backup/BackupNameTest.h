#pragma once

#include "files/backup/BackupKind.h"
#include "files/backup/BackupTemplate.h"

namespace utility
{

/// Whether names are those of copies of one kind, by the settings of the moment it is made: for a
/// walk over many names.
class UTILITY_CORE_API CBackupNameTest
{
public:
    explicit CBackupNameTest(EBackupKind kind);

    /// A file name without folder and extension.
    bool DoesNameMatchTemplate(std::u16string_view name) const;

private:
    CBackupTemplate m_Template;
    bool m_ClaimsNames; // false: kept in the design's folder under a template that would claim all
};

} // namespace utility
