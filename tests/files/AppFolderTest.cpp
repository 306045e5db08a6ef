#include "files/AppFolder.h"

#include "files/FilePath.h"
#include "files/GeneralFolder.h"
#include "settings/AppRegistry.h"

#include "support/EnvironmentVariable.h"
#include "support/PrintText.h"
#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

class AppFolderTest : public testing::Test
{
protected:
    CSettingsSandbox m_Settings;
    CAppFolder m_Folder{u"Reports"};
};

constexpr char16_t DESIGN[] = u"C:\\Work\\board.pcb";
constexpr char16_t GENERAL[] = u"D:\\All";
constexpr char16_t BEFORE[] = u"X:\\before\\kept.txt";

TEST_F(AppFolderTest, NothingStoredIsTheDesignsFolderWithoutAName)
{
    EXPECT_EQ(m_Folder.GetFolderType(), EFolderType::Design);
    EXPECT_EQ(m_Folder.GetFolderName(), u"");
}

TEST_F(AppFolderTest, EachTypeGivesItsFolder)
{
    struct CCase
    {
        const char* m_What;
        EFolderType m_Type;
        const char16_t* m_Name;
        const char16_t* m_Design;
        const char16_t* m_General;
        const char16_t* m_Path;
    };
    const CEnvironmentVariable variable("UTILITY_TEST_PLACE", "E:\\Place");
    constexpr EFolderType UNKNOWN = static_cast<EFolderType>(4);
    for (const CCase& test : {
             CCase{"named", EFolderType::Named, u"F:\\Kept", DESIGN, GENERAL,
                   u"F:\\Kept\\kept.txt"},
             {"named, no design", EFolderType::Named, u"\\Kept\\", u"", u"", u"\\Kept\\kept.txt"},
             {"named, empty", EFolderType::Named, u"", DESIGN, GENERAL, u"kept.txt"},
             {"named, variable", EFolderType::Named, u"%UTILITY_TEST_PLACE%\\x", DESIGN, u"",
              u"E:\\Place\\x\\kept.txt"},
             {"named, no such variable", EFolderType::Named, u"\\%UTILITY_TEST_NONE%", DESIGN, u"",
              u"\\%UTILITY_TEST_NONE%\\kept.txt"},
             {"below", EFolderType::BelowDesign, u"Backups", DESIGN, GENERAL,
              u"C:\\Work\\Backups\\kept.txt"},
             {"below, empty", EFolderType::BelowDesign, u"", DESIGN, GENERAL,
              u"C:\\Work\\kept.txt"},
             {"below, variable", EFolderType::BelowDesign, u"a%UTILITY_TEST_NONE%b", DESIGN, u"",
              u"C:\\Work\\a%UTILITY_TEST_NONE%b\\kept.txt"},
             {"below, no design", EFolderType::BelowDesign, u"Backups", u"", GENERAL,
              u"D:\\All\\kept.txt"},
             {"below, design without folder", EFolderType::BelowDesign, u"Backups", u"board.pcb",
              GENERAL, u"D:\\All\\kept.txt"},
             {"below, neither", EFolderType::BelowDesign, u"Backups", u"", u"", BEFORE},
             {"design", EFolderType::Design, u"Backups", DESIGN, GENERAL, u"C:\\Work\\kept.txt"},
             {"design, none", EFolderType::Design, u"Backups", u"", GENERAL, u"D:\\All\\kept.txt"},
             {"design, neither", EFolderType::Design, u"Backups", u"", u"", BEFORE},
             {"general", EFolderType::General, u"Backups", DESIGN, GENERAL, u"D:\\All\\kept.txt"},
             {"general, variable", EFolderType::General, u"", u"", u"%UTILITY_TEST_PLACE%",
              u"E:\\Place\\kept.txt"},
             {"general, empty", EFolderType::General, u"Backups", DESIGN, u"", BEFORE},
             {"unknown type", UNKNOWN, u"Backups", DESIGN, GENERAL, BEFORE},
         })
    {
        SCOPED_TRACE(test.m_What);
        CGeneralFolder().SetFolderName(test.m_General);
        m_Folder.SetFolderType(test.m_Type);
        m_Folder.SetFolderName(test.m_Name);
        CFilePath stored(BEFORE);
        CFilePath given(BEFORE);

        m_Folder.GetFolderPath(test.m_Design, stored);
        CAppFolder(u"Other").GetFolderPath(test.m_Type, test.m_Name, test.m_Design, given);

        EXPECT_EQ(stored.GetPath(), test.m_Path);
        EXPECT_EQ(given.GetPath(), test.m_Path);
    }
}

TEST_F(AppFolderTest, TheOlderNameIsMovedOnceAndStays)
{
    CAppRegistry older(u"Reports");
    older.SetValue(u"FolderName", u"Old");

    EXPECT_EQ(m_Folder.GetFolderName(), u"Old");
    older.SetValue(u"FolderName", u"Later");
    EXPECT_EQ(m_Folder.GetFolderName(), u"Old");

    CString stored;
    EXPECT_TRUE(older.GetValue(u"FolderName2", stored));
    EXPECT_EQ(stored, u"Old");
    m_Folder.SetFolderName(u"New");
    EXPECT_EQ(m_Folder.GetFolderName(), u"New");
    EXPECT_TRUE(older.GetValue(u"FolderName", stored));
    EXPECT_EQ(stored, u"Later");
}

TEST_F(AppFolderTest, EveryAskedNameIsStoredEvenIfItIsEmpty)
{
    CString stored = u"preset";
    EXPECT_EQ(m_Folder.GetFolderName(), u"");

    EXPECT_TRUE(CAppRegistry(u"Reports").GetValue(u"FolderName2", stored));
    EXPECT_EQ(stored, u"");
}

TEST_F(AppFolderTest, ACopyIsTheSameChoice)
{
    CAppFolder copy(m_Folder);
    copy.SetFolderType(EFolderType::General);
    EXPECT_EQ(m_Folder.GetFolderType(), EFolderType::General);

    copy = CAppFolder(u"Exports");
    EXPECT_EQ(copy.GetFolderType(), EFolderType::Design);
}

TEST_F(AppFolderTest, RowsOfTheBoxBeginWithTheDesignsFolder)
{
    const auto textsOf = [](bool forLibrary)
    {
        CString texts;
        for (const CFolderTypeRow& row : CAppFolder::GetTypeRows(forLibrary))
            texts += CString(char16_t(u'0' + static_cast<int>(row.m_Type))) + row.m_Text + u"|";
        return texts;
    };

    EXPECT_EQ(textsOf(false), u"2Design Folder|0This Folder:|1This Folder below design file:|"
                              u"3General Folder|");
    EXPECT_EQ(textsOf(true), u"2Library Folder|0This Folder:|1This Folder below Library file:|"
                             u"3General Folder|");
}

} // namespace
