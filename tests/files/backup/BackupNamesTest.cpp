#include "files/AppFolder.h"
#include "files/FilePath.h"
#include "files/GeneralFolder.h"
#include "files/backup/BackupFileInfo.h"
#include "files/backup/BackupFixture.h"
#include "platform/system/file/NativePath.h"
#include "text/SortedList.h"

#include "support/FixedClock.h"

using namespace utility;

namespace
{

class BackupNamesTest : public CBackupFixture
{
};

TEST_F(BackupNamesTest, DefaultsKeepOneCopyBesideTheDesign)
{
    CFilePath name;

    EXPECT_TRUE(CBackupFiles::MakeBackupName(name, u"C:\\w\\board.pcb", false));
    EXPECT_EQ(name.GetPath(), u"C:\\w\\Backup Copy of board.pcb");
    EXPECT_TRUE(CBackupFiles::MakeSecurityCopyName(name, u"C:\\w\\board.pcb", false));
    EXPECT_EQ(name.GetPath(), u"C:\\w\\Security Copy of board.pcb");
    EXPECT_TRUE(CBackupFiles::MakeRestorePointName(name, u"C:\\w\\board.pcb", u"a:b", false));
    EXPECT_EQ(name.GetPath(), u"C:\\w\\Restore Point for board (a-b).pcb");
}

TEST_F(BackupNamesTest, AKindSwitchedOffGivesTheDesignsPath)
{
    CBackupFiles::SetDoBackup(false);
    CBackupFiles::SetDoSecurity(false);
    CFilePath backup;
    CFilePath security;

    EXPECT_FALSE(CBackupFiles::MakeBackupName(backup, m_Design, true));
    EXPECT_FALSE(CBackupFiles::MakeSecurityCopyName(security, m_Design, true));

    EXPECT_EQ(backup.GetPath(), m_Design);
    EXPECT_EQ(security.GetPath(), m_Design);
    EXPECT_EQ(m_Folder.List(), std::vector<std::string>{"board.pcb"});
}

TEST_F(BackupNamesTest, WithoutADesignTheNameIsMadeFromWhatThePathWas)
{
    CGeneralFolder().SetFolderName(u"D:\\All");
    CFilePath name(u"C:\\w\\board.pcb");

    EXPECT_TRUE(CBackupFiles::MakeBackupName(name, u"", false));

    EXPECT_EQ(name.GetPath(), u"D:\\All\\Backup Copy of board.pcb");
}

TEST_F(BackupNamesTest, OnlyApplyingMakesTheFolderAndFailsWhereThereCanBeNone)
{
    CBackupFiles::SetBackupKeepWhere(EFolderType::BelowDesign);
    CBackupFiles::SetBackupDir(u"deep\\down");
    CFilePath name;

    EXPECT_TRUE(CBackupFiles::MakeBackupName(name, m_Design, false));
    EXPECT_FALSE(m_Folder.Exists(u"deep"));
    EXPECT_TRUE(CBackupFiles::MakeBackupName(name, m_Design, true));
    EXPECT_TRUE(m_Folder.Exists(u"deep/down"));
    EXPECT_EQ(name.GetPath(), m_Folder.PathOf(u"deep\\down\\Backup Copy of board.pcb"));

    CBackupFiles::SetBackupDir(u"board.pcb"); // "is there already" is taken for the folder: kept
    EXPECT_TRUE(CBackupFiles::MakeBackupName(name, m_Design, true));
    CBackupFiles::SetBackupKeepWhere(EFolderType::Named);
    CBackupFiles::SetBackupDir(u"\\proc\\none"); // where nobody can make folders
    EXPECT_FALSE(CBackupFiles::MakeBackupName(name, m_Design, true));
}

TEST_F(BackupNamesTest, OneNumberTagAloneIsANameAsItStands)
{
    CBackupFiles::SetBackupFilenameTemplate(u"$(Increment)");
    CBackupFiles::SetBackupCopyCount(3);
    MakeCopy(u"1.pcb", 1); // a design of the user's own, which such a template must not claim
    CFilePath name;

    EXPECT_TRUE(CBackupFiles::MakeBackupName(name, m_Design, true));

    EXPECT_EQ(name.GetFileName(), u"$(Increment)");
    EXPECT_TRUE(m_Folder.Exists(u"1.pcb"));
}

TEST_F(BackupNamesTest, EveryNameMadeIsRecognisedByItsKindAndNoOther)
{
    using CIsName = bool (*)(const CString&);
    constexpr CIsName IS_NAME[] = {CBackupFiles::IsBackupName, CBackupFiles::IsSecurityCopyName,
                                   CBackupFiles::IsRestorePointName};
    const CFixedClock clock({2024, 12, 2, 31, 12, 59, 58, 0});
    for (const int count : {1, 3})
    {
        for (const char16_t* tail :
             {u"", u" $(Increment)", u" $(Decrement)", u" $(Infinite)", u" $(Date)", u" $(Time)",
              u" $(Date) $(Time) $(Infinite)", u" $(Time)$(Date)$(Decrement)",
              u" $(Nonsense) $(Increment)", u" $(Label)"})
        {
            SCOPED_TRACE(
                testing::PrintToString(CString(tail) + (count == 1 ? u", 1 copy" : u", 3 copies")));
            CBackupFiles::SetBackupCopyCount(count);
            CBackupFiles::SetSecurityCopyCount(count);
            CBackupFiles::SetBackupFilenameTemplate(CString(u"B $(DesignName)") + tail);
            CBackupFiles::SetSecurityCopyFilenameTemplate(CString(u"S $(DesignName)") + tail);
            CBackupFiles::SetRestorePointFilenameTemplate(CString(u"R $(Label) $(DesignName)") +
                                                          tail);
            CFilePath names[3];
            ASSERT_TRUE(CBackupFiles::MakeBackupName(names[0], m_Design, false));
            ASSERT_TRUE(CBackupFiles::MakeSecurityCopyName(names[1], m_Design, false));
            ASSERT_TRUE(CBackupFiles::MakeRestorePointName(names[2], m_Design, u"x", false));

            for (std::size_t name = 0; name < 3; ++name)
            {
                SCOPED_TRACE(testing::PrintToString(names[name].GetPath()));
                for (std::size_t kind = 0; kind < 3; ++kind)
                    EXPECT_EQ(IS_NAME[kind](names[name].GetPath()), kind == name) << kind;
            }
        }
    }
}

TEST_F(BackupNamesTest, ATemplateWithoutTextClaimsNothingInTheDesignsFolder)
{
    EXPECT_TRUE(CBackupFiles::IsBackupName(u"Backup Copy of x"));
    EXPECT_TRUE(CBackupFiles::IsBackupName(u"C:\\w\\backup copy of x.pcb"));
    EXPECT_FALSE(CBackupFiles::IsBackupName(u"x.pcb"));

    for (const char16_t* text : {u"$(DesignName)", u" $(DesignName) $(Infinite)", u""})
    {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        CBackupFiles::SetBackupFilenameTemplate(text);
        CBackupFiles::SetBackupKeepWhere(EFolderType::Design);
        EXPECT_FALSE(CBackupFiles::IsBackupName(u" x 1.pcb"));
    }
    CBackupFiles::SetBackupFilenameTemplate(u"$(DesignName)");
    CBackupFiles::SetBackupKeepWhere(EFolderType::Named);
    EXPECT_TRUE(CBackupFiles::IsBackupName(u"x.pcb"));
}

TEST_F(BackupNamesTest, ARestorePointIncludesItsLabelByTemplate)
{
    EXPECT_TRUE(CBackupFiles::DoesRestorePointIncludeLabel());
    CBackupFiles::SetRestorePointFilenameTemplate(u"R $(DesignName) $(Date)");
    EXPECT_FALSE(CBackupFiles::DoesRestorePointIncludeLabel());
}

CString TextsOf(const std::vector<CBackupListRow>& rows)
{
    CString texts;
    for (const CBackupListRow& row : rows)
        texts += row.m_Text + u"\n";
    return texts;
}

TEST_F(BackupNamesTest, TheListShowsCopiesByAgeThenName)
{
    m_Folder.MakeFile(u"Backup Copy of board.pcb", std::string(1023, 'x'));
    m_Folder.MakeFile(u"security copy of board.PCB", std::string(1024, 'x'));
    m_Folder.MakeFile(u"Restore Point for board (10).pcb");
    m_Folder.MakeFile(u"Restore Point for board (9).pcb");
    m_Folder.MakeFile(u"Backup Copy of other.pcb");
    m_Folder.MakeFile(u"Backup Copy of board.sch");
    m_Folder.MakeFolder(u"Restore Point for board (folder).pcb");
    constexpr std::time_t NOON = 1'700'000'000; // 14-Nov-2023, 22:13:20 UTC
    for (const auto& entry : std::filesystem::directory_iterator(m_Folder.GetNativePath()))
    {
        const bool isBackup = entry.path().filename().string().starts_with("Backup");
        std::filesystem::last_write_time(
            entry, std::chrono::file_clock::from_sys(
                       std::chrono::system_clock::from_time_t(NOON + (isBackup ? 1 : 0))));
    }
    CSortedList files;

    const auto rows = CBackupFiles::ListFiles(files, CFilePath(m_Design), true, true, true, false);
    EXPECT_EQ(TextsOf(rows), u"Name\tDate/Time\tSize\n"
                             u"Restore Point for board (9).pcb\t14-Nov-2023  22:13:20\t0\n"
                             u"Restore Point for board (10).pcb\t14-Nov-2023  22:13:20\t0\n"
                             u"security copy of board.PCB\t14-Nov-2023  22:13:20\t1Kb\n"
                             u"Backup Copy of board.pcb\t14-Nov-2023  22:13:21\t1023\n");
    EXPECT_EQ(CBackupFiles::GetPathFromList(rows, 0), u"");
    EXPECT_EQ(CBackupFiles::GetPathFromList(rows, 3),
              m_Folder.PathOf(u"security copy of board.PCB"));
    EXPECT_EQ(CBackupFiles::GetPathFromList(rows, 5), u"");
    EXPECT_EQ(files.GetCount(), 4);

    const auto only =
        CBackupFiles::ListFiles(files, CFilePath(m_Design), true, false, false, false);
    EXPECT_EQ(only.size(), 2U);
    const auto all = CBackupFiles::ListFiles(files, CFilePath(m_Design), true, true, true, true);
    EXPECT_EQ(all.size(), 1U + 6U) << "each file with the extension once, the design too";
    CBackupFiles::FreeList(files);
    EXPECT_TRUE(files.IsEmpty());
}

TEST_F(BackupNamesTest, AFolderThatIsAbsentOrAFileGivesAnEmptyList)
{
    for (const CString& place : {m_Folder.PathOf(u"absent"), m_Design})
    {
        CBackupFiles::SetBackupKeepWhere(EFolderType::Named);
        CBackupFiles::SetBackupDir(place);
        CSortedList files;
        EXPECT_EQ(
            CBackupFiles::ListFiles(files, CFilePath(m_Design), false, true, false, true).size(),
            1U);
    }
}

} // namespace
