#pragma once

#include "files/FilePath.h"
#include "platform/system/file/FileFind.h"

#include <memory>

namespace utility
{

class CBackupNameTest;

/// Walks the files of a folder that fit a pattern, without the copies that backups leave.
///
///     CFileFinder find(u"\\lib\\*.pcb");
///     for (bool more = find.FirstFile(); more; more = find.NextFile())
///         Use(find.GetFilePath());
///
/// Without a wildcard in the pattern's extension a file has exactly this extension, whatever its
/// case. What is a copy is told by the settings of the moment the walk begins.
class UTILITY_CORE_API CFileFinder : public CFileFind
{
public:
    explicit CFileFinder(const CString& path, bool filesOnly = true, bool showBackups = false);
    ~CFileFinder() override;

    /// False if there is no such file or the folder cannot be searched; `WasSearched` tells which.
    bool FirstFile();
    /// False if there is no further one.
    bool NextFile();

    /// Backup and security copies are met, too; before the walk begins.
    void SetShowBackups(bool show) { m_ShowBackups = show; }
    /// The last `FirstFile` could read the folder.
    bool WasSearched() const { return m_WasSearched; }

private:
    bool IsWanted() const;
    bool IsCopy(std::u16string_view name) const;

    CString m_Pattern;
    CFilePath m_Path; // of the search
    CString m_Extension;
    bool m_FilesOnly;
    bool m_ShowBackups;
    bool m_HasWildExtension;
    bool m_HasMore = false;
    bool m_WasSearched = false;
    std::unique_ptr<CBackupNameTest> m_IsBackup; // during a walk that leaves copies out
    std::unique_ptr<CBackupNameTest> m_IsSecurityCopy;
};

} // namespace utility
