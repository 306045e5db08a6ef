#include "files/backup/BackupNameTest.h"

#include "files/AppFolder.h"
#include "files/backup/BackupFiles.h"
#include "files/backup/BackupMatch.h"

namespace utility
{

namespace
{

constexpr int COUNT_OF_RESTORE_POINTS = 2; // there may be several

int CountOf(EBackupKind kind)
{
    return kind == EBackupKind::RestorePoint ? COUNT_OF_RESTORE_POINTS
                                             : CBackupFiles::GetCopyCount(kind);
}

} // namespace

CBackupNameTest::CBackupNameTest(EBackupKind kind)
    : m_Template(CBackupFiles::GetFilenameTemplate(kind), CString())
{
    m_Template.AddNumber(CountOf(kind));
    m_ClaimsNames = CBackupFiles::GetFolder(kind).GetFolderType() != EFolderType::Design ||
                    m_Template.HasLiteral();
}

bool CBackupNameTest::DoesNameMatchTemplate(std::u16string_view name) const
{
    CBackupNameMatch match;
    return m_ClaimsNames && MatchBackupFilename(name, m_Template, match);
}

} // namespace utility
