#include "files/FileFinder.h"

#include "files/backup/BackupNameTest.h"
#include "platform/base/CaseFold.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

namespace utility
{

CFileFinder::CFileFinder(const CString& path, bool filesOnly, bool showBackups)
    : m_Pattern(path),
      m_Path(path),
      m_Extension(m_Path.GetExtension()),
      m_FilesOnly(filesOnly),
      m_ShowBackups(showBackups),
      m_HasWildExtension(m_Extension.FindOneOf(u"*?") >= 0)
{
}

CFileFinder::~CFileFinder() = default;

bool CFileFinder::FirstFile()
{
    if (!m_ShowBackups)
    {
        m_IsBackup = std::make_unique<CBackupNameTest>(EBackupKind::Backup);
        m_IsSecurityCopy = std::make_unique<CBackupNameTest>(EBackupKind::SecurityCopy);
    }
    m_HasMore = FindFile(m_Pattern);
    m_WasSearched = m_HasMore || GetLastError() == ERROR_FILE_NOT_FOUND;
    return NextFile();
}

bool CFileFinder::NextFile()
{
    while (m_HasMore)
    {
        m_HasMore = FindNextFile();
        if (IsWanted())
            return true;
    }
    return false;
}

bool CFileFinder::IsWanted() const
{
    if (IsDirectory() && (m_FilesOnly || IsDots()))
        return false;
    const CString entry = GetFileName();
    const std::u16string_view name = entry.View();
    const std::size_t point = std::min(name.rfind(u'.'), name.size());
    if (!m_HasWildExtension && !EqualNoCase(name.substr(point), m_Extension.View()))
        return false;
    return m_ShowBackups || !IsCopy(name.substr(0, point));
}

bool CFileFinder::IsCopy(std::u16string_view name) const
{
    return m_IsBackup->DoesNameMatchTemplate(name) || m_IsSecurityCopy->DoesNameMatchTemplate(name);
}

} // namespace utility
