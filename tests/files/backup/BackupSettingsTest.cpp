#include "files/AppFolder.h"
#include "files/backup/BackupFixture.h"
#include "settings/AppRegistry.h"

using namespace utility;

namespace
{

class BackupSettingsTest : public CBackupFixture
{
};

TEST_F(BackupSettingsTest, NothingStoredGivesTheDefaults)
{
    EXPECT_EQ(CBackupFiles::GetBackupFilenameTemplate(), u"Backup Copy of $(DesignName)");
    EXPECT_EQ(CBackupFiles::GetSecurityCopyFilenameTemplate(), u"Security Copy of $(DesignName)");
    EXPECT_EQ(CBackupFiles::GetRestorePointFilenameTemplate(),
              u"Restore Point for $(DesignName) ($(Label))");
    EXPECT_TRUE(CBackupFiles::GetDoBackup());
    EXPECT_EQ(CBackupFiles::GetBackupCopyCount(), 1);
    EXPECT_TRUE(CBackupFiles::GetDoSecurity());
    EXPECT_EQ(CBackupFiles::GetSecurityInterval(), 600);
    EXPECT_EQ(CBackupFiles::GetSecurityCopyCount(), 1);
    EXPECT_FALSE(CBackupFiles::GetRestoreBackupShowAllFiles());
    EXPECT_TRUE(CBackupFiles::GetRestoreRestorePoints());
}

TEST_F(BackupSettingsTest, WhatARestoreShowsFollowsWhatIsMadeUntilItIsSet)
{
    CBackupFiles::SetDoBackup(false);
    CBackupFiles::SetDoSecurity(false);
    EXPECT_FALSE(CBackupFiles::GetRestoreBackups());
    EXPECT_FALSE(CBackupFiles::GetRestoreSecurityCopies());

    CBackupFiles::SetRestoreBackups(true);
    CBackupFiles::SetRestoreSecurityCopies(true);
    EXPECT_TRUE(CBackupFiles::GetRestoreBackups());
    EXPECT_TRUE(CBackupFiles::GetRestoreSecurityCopies());
}

TEST_F(BackupSettingsTest, EachSettingHasAKeyOfItsOwn)
{
    struct CCase
    {
        const char16_t* m_Path;
        const char16_t* m_Key;
        std::function<void()> m_Set;
        int m_Stored;
    };
    for (const CCase& test :
         {
             CCase{u"Backups", u"DoBackup", [] { CBackupFiles::SetDoBackup(false); }, 0},
             CCase{u"Backups", u"BackupCopyCount", [] { CBackupFiles::SetBackupCopyCount(7); }, 7},
             CCase{u"Backups", u"DoSecurity", [] { CBackupFiles::SetDoSecurity(false); }, 0},
             CCase{u"Backups", u"SecurityInterval", [] { CBackupFiles::SetSecurityInterval(5); },
                   5},
             CCase{u"Backups", u"SecurityCopyCount", [] { CBackupFiles::SetSecurityCopyCount(4); },
                   4},
             CCase{u"Backups", u"Restore", [] { CBackupFiles::SetRestoreBackups(false); }, 0},
             CCase{u"Backups", u"RestoreShowAll",
                   [] { CBackupFiles::SetRestoreBackupShowAllFiles(true); }, 1},
             CCase{u"Backups\\SecurityCopy", u"Restore",
                   [] { CBackupFiles::SetRestoreSecurityCopies(false); }, 0},
             CCase{u"Backups\\RestorePoint", u"Restore",
                   [] { CBackupFiles::SetRestoreRestorePoints(false); }, 0},
             CCase{u"Backups", u"FolderType",
                   [] { CBackupFiles::SetBackupKeepWhere(EFolderType::General); }, 3},
             CCase{u"Backups\\SecurityCopy", u"FolderType",
                   [] { CBackupFiles::SetSecurityCopyKeepWhere(EFolderType::Named); }, 0},
             CCase{u"Backups\\RestorePoint", u"FolderType",
                   [] { CBackupFiles::SetRestorePointKeepWhere(EFolderType::BelowDesign); }, 1},
         })
    {
        SCOPED_TRACE(testing::PrintToString(CString(test.m_Path) + u"\\" + test.m_Key));
        int stored = -1;
        EXPECT_FALSE(CAppRegistry(test.m_Path).GetValue(test.m_Key, stored));
        test.m_Set();
        EXPECT_TRUE(CAppRegistry(test.m_Path).GetValue(test.m_Key, stored));
        EXPECT_EQ(stored, test.m_Stored);
    }
    CBackupFiles::SetBackupDir(u"b");
    CBackupFiles::SetSecurityCopyDir(u"s");
    CBackupFiles::SetRestorePointDir(u"r");
    EXPECT_EQ(CBackupFiles::GetBackupDir(), u"b");
    EXPECT_EQ(CBackupFiles::GetSecurityCopyDir(), u"s");
    EXPECT_EQ(CBackupFiles::GetRestorePointDir(), u"r");
}

TEST_F(BackupSettingsTest, OldPlacesAreBroughtOverOnce)
{
    struct CCase
    {
        int m_Version;
        int m_KeepWhere;
        EFolderType m_Type;
        const char16_t* m_Dir;
        bool m_IsKept;
    };
    for (const CCase& test : {CCase{1, 1, EFolderType::Named, u"D:\\Old", false},
                              CCase{0, 0, EFolderType::Design, u"D:\\Old", false},
                              CCase{2, 1, EFolderType::General, u"now", true}})
    {
        SCOPED_TRACE(test.m_Version);
        CAppRegistry settings(u"Backups");
        CBackupFiles::SetBackupKeepWhere(EFolderType::General);
        CBackupFiles::SetBackupDir(u"now");
        settings.SetValue(u"KeepWhere", test.m_KeepWhere);
        settings.SetValue(u"BackupDir", u"D:\\Old");

        CBackupFiles::ConvertRegistry(test.m_Version);

        int keepWhere = 0;
        CString dir;
        EXPECT_EQ(CBackupFiles::GetBackupKeepWhere(), test.m_Type);
        EXPECT_EQ(CBackupFiles::GetBackupDir(), test.m_Dir);
        EXPECT_EQ(settings.GetValue(u"KeepWhere", keepWhere), test.m_IsKept);
        EXPECT_EQ(settings.GetValue(u"BackupDir", dir), test.m_IsKept);
    }
}

TEST_F(BackupSettingsTest, NoOldPlaceChangesNothing)
{
    CBackupFiles::SetBackupKeepWhere(EFolderType::General);

    CBackupFiles::ConvertRegistry(0);

    EXPECT_EQ(CBackupFiles::GetBackupKeepWhere(), EFolderType::General);
    EXPECT_EQ(CBackupFiles::GetBackupDir(), u"");
}

TEST_F(BackupSettingsTest, TheOtherKindsTakeThePlaceOfBackupsUnlessTheyHaveOne)
{
    CBackupFiles::SetBackupKeepWhere(EFolderType::Named);
    CBackupFiles::SetBackupDir(u"D:\\Copies");

    CBackupFiles::ConvertFolders();
    EXPECT_EQ(CBackupFiles::GetSecurityCopyKeepWhere(), EFolderType::Named);
    EXPECT_EQ(CBackupFiles::GetSecurityCopyDir(), u"D:\\Copies");
    EXPECT_EQ(CBackupFiles::GetRestorePointKeepWhere(), EFolderType::Named);
    EXPECT_EQ(CBackupFiles::GetRestorePointDir(), u"D:\\Copies");

    CBackupFiles::SetBackupDir(u"D:\\Later");
    CBackupFiles::ConvertFolders();
    EXPECT_EQ(CBackupFiles::GetSecurityCopyDir(), u"D:\\Copies");
    EXPECT_EQ(CBackupFiles::GetRestorePointDir(), u"D:\\Copies");
}

} // namespace
