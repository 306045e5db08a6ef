#include "files/AppFolder.h"

#include "files/FilePath.h"
#include "files/GeneralFolder.h"
#include "settings/AppRegistry.h"

#include "support/EnvironmentVariable.h"
#include "support/PrintText.h"
#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

#include <array>

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

TEST_F(AppFolderTest, EachTypeGivesItsFolderWithAndWithoutDesignAndGeneralFolder)
{
    struct CCase
    {
        const char* m_What;
        EFolderType m_Type;
        // The path with both, without a design, without a general folder, with neither
        std::array<const char16_t*, 4> m_Paths;
    };
    constexpr char16_t NAMED[] = u"F:\\Kept\\kept.txt";
    constexpr char16_t BELOW[] = u"C:\\Work\\F\\Kept\\kept.txt";
    constexpr char16_t BESIDE[] = u"C:\\Work\\kept.txt";
    constexpr char16_t COMMON[] = u"D:\\All\\kept.txt";
    const CEnvironmentVariable name("UTILITY_TEST_NAME", "Kept");
    const CEnvironmentVariable common("UTILITY_TEST_COMMON", "All");
    for (const CCase& test :
         {CCase{"named", EFolderType::Named, {NAMED, NAMED, NAMED, NAMED}},
          CCase{"below", EFolderType::BelowDesign, {BELOW, COMMON, BELOW, BEFORE}},
          CCase{"design", EFolderType::Design, {BESIDE, COMMON, BESIDE, BEFORE}},
          CCase{"general", EFolderType::General, {COMMON, COMMON, BEFORE, BEFORE}}})
    {
        for (unsigned int i = 0; i < 8; ++i)
        {
            const bool hasVariables = i >= 4;
            const CString kept = hasVariables ? u"%UTILITY_TEST_NAME%" : u"Kept";
            const CString general = hasVariables ? u"D:\\%UTILITY_TEST_COMMON%" : GENERAL;
            SCOPED_TRACE(testing::Message() << test.m_What << ", way " << i);
            CGeneralFolder().SetFolderName((i & 2U) == 0 ? general : CString());
            m_Folder.SetFolderType(test.m_Type);
            m_Folder.SetFolderName((test.m_Type == EFolderType::Named ? u"F:\\" : u"F\\") + kept);
            CFilePath path(BEFORE);

            m_Folder.GetFolderPath((i & 1U) == 0 ? DESIGN : u"", path);

            EXPECT_EQ(path.GetPath(), test.m_Paths[i % 4]);
        }
    }
}

TEST_F(AppFolderTest, NamesAndPlacesThatAreUnusualGiveTheirFolder)
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
             CCase{"named, closed", EFolderType::Named, u"\\Kept\\", u"", u"", u"\\Kept\\kept.txt"},
             {"named, empty", EFolderType::Named, u"", DESIGN, GENERAL, u"kept.txt"},
             {"named, a variable of a whole path", EFolderType::Named, u"%UTILITY_TEST_PLACE%\\x",
              DESIGN, u"", u"E:\\Place\\x\\kept.txt"},
             {"named, no such variable", EFolderType::Named, u"\\%UTILITY_TEST_NONE%", DESIGN, u"",
              u"\\%UTILITY_TEST_NONE%\\kept.txt"},
             {"below, empty", EFolderType::BelowDesign, u"", DESIGN, GENERAL,
              u"C:\\Work\\kept.txt"},
             {"below, no such variable", EFolderType::BelowDesign, u"a%UTILITY_TEST_NONE%b", DESIGN,
              u"", u"C:\\Work\\a%UTILITY_TEST_NONE%b\\kept.txt"},
             {"below, design without folder", EFolderType::BelowDesign, u"Backups", u"board.pcb",
              GENERAL, u"D:\\All\\kept.txt"},
             {"design without folder", EFolderType::Design, u"Backups", u"board.pcb", u"", BEFORE},
             {"general, a variable of a whole path", EFolderType::General, u"", u"",
              u"%UTILITY_TEST_PLACE%", u"E:\\Place\\kept.txt"},
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
