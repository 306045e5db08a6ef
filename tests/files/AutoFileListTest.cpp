#include "files/AutoFileList.h"

#include "files/AutoFileListWatch.h"
#include "files/FileFinder.h"
#include "files/backup/BackupFiles.h"
#include "platform/base/collections/StringArray.h"
#include "platform/system/window/MessageLoop.h"
#include "settings/AppRegistry.h"

#include "support/ChildProcess.h"
#include "support/EnvironmentVariable.h"
#include "support/PrintText.h"
#include "support/SettingsSandbox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

constexpr char16_t SETTINGS[] = u"Lists\\Libraries";

class AutoFileListTest : public testing::Test
{
protected:
    AutoFileListTest() { m_List.Init(nullptr, u"lib", SETTINGS); }

    /// Names of the files in their order, each with the last letter of its folder.
    CString Files() const { return TextsOf(m_List, &CAutoFileList::First, &CAutoFileList::Next); }

    using CFirst = CString (CAutoFileList::*)(POSITION&) const;
    static CString TextsOf(const CAutoFileList& list, CFirst first, CFirst next)
    {
        CString texts;
        POSITION position = nullptr;
        for (CString text = (list.*first)(position); position; text = (list.*next)(position))
        {
            const int name = text.ReverseFind(u'\\');
            texts += text.Mid(std::max(name - 1, 0)) + u"|";
        }
        return texts;
    }

    static void Disable(const CString& value, const CString& folder)
    {
        CStringArray folders;
        folders.Add(u"elsewhere");
        folders.Add(folder);
        CAppRegistry(CAutoFileList::GetDisabledFoldersRegistry()).SetValue(value, folders);
    }

    CSettingsSandbox m_Settings;
    CTemporaryFolder m_Folder;
    CString m_A = m_Folder.MakeFolder(u"a");
    CString m_B = m_Folder.MakeFolder(u"b");
    CAutoFileList m_List;
};

TEST_F(AutoFileListTest, FoldersAreGatheredInOrderAndFilesSortedWithinEach)
{
    for (const char16_t* name : {u"b\\r10.lib", u"b\\r9.LIB", u"a\\z.lib", u"a\\z.lib2", u"a\\z.li",
                                 u"a\\lib", u"a\\.lib", u"a\\below\\deep.lib"})
        m_Folder.MakeFile(name);
    m_Folder.MakeFolder(u"a\\folder.lib");
    EXPECT_TRUE(m_List.AddDir(m_B + u"\\"));
    EXPECT_TRUE(m_List.AddDir(m_A));
    EXPECT_FALSE(m_List.AddDir(m_B)) << "it stands there without its separator";

    EXPECT_TRUE(m_List.RefreshFiles(true));

    EXPECT_EQ(Files(), u"b\\r9.LIB|b\\r10.lib|a\\.lib|a\\z.lib|");
    EXPECT_FALSE(m_List.RefreshFiles(true)) << "nothing changed";
}

TEST_F(AutoFileListTest, TextsStandOnceWhateverTheirCaseAndSeparators)
{
    EXPECT_TRUE(m_List.Add(u"\\x\\A.lib"));
    EXPECT_FALSE(m_List.Add(u"/X/a.LIB"));
    EXPECT_TRUE(m_List.Add(u"\\x\\b.lib"));
    EXPECT_EQ(m_List.GetCount(), 2);
    EXPECT_NE(m_List.Find(u"\\X\\a.lib", false), nullptr);
    EXPECT_TRUE(m_List.Delete(u"\\X\\a.lib"));
    EXPECT_FALSE(m_List.Delete(u"\\X\\a.lib"));
    EXPECT_EQ(Files(), u"x\\b.lib|");

    EXPECT_TRUE(m_List.AddDir(u"x"));
    EXPECT_TRUE(m_List.InsertDir(u"y", 0));
    EXPECT_TRUE(m_List.InsertDir(u"z", 9));
    EXPECT_FALSE(m_List.InsertDir(u"X\\", 1));
    CAutoFileList copy;
    copy.AddDir(u"gone");
    copy.CopyDirs(&m_List);
    EXPECT_TRUE(copy.DeleteDir(u"X"));
    EXPECT_EQ(TextsOf(copy, &CAutoFileList::FirstDir, &CAutoFileList::NextDir), u"y|z|");
    EXPECT_EQ(m_List.GetDirCount(), 3);
}

TEST_F(AutoFileListTest, NamesLeadToTheFirstFileOfThatName)
{
    m_List.Add(u"\\x\\other.lib");
    m_List.Add(u"\\x\\amp.lib");
    m_List.Add(u"\\y\\amp.lib");

    EXPECT_EQ(m_List.GetFullFileName(u"AMP.lib"), u"\\x\\amp.lib");
    EXPECT_EQ(m_List.GetFullFileName(u"y/amp.lib"), u"\\y\\amp.lib");
    EXPECT_EQ(m_List.GetFullFileName(u"amp"), u"");
    EXPECT_EQ(m_List.GetFullFileName(u"mp.lib"), u"") << "a name is whole";
    EXPECT_EQ(m_List.GetFullFileName(u""), u"");
    EXPECT_EQ(m_List.GetFullFileNameWithExtension(u"other"), u"\\x\\other.lib");
}

TEST_F(AutoFileListTest, VariablesAreKeptOrExpanded)
{
    const CEnvironmentVariable variable("UTILITY_TEST_LIBS", "a");
    m_Folder.MakeFile(u"a\\amp.lib");
    const CString folder = m_Folder.PathOf(u"%UTILITY_TEST_LIBS%");
    const CString expanded = m_Folder.PathOf(u"a\\amp.lib");
    m_List.AddDir(folder);
    POSITION position = nullptr;

    m_List.RefreshFiles(true);
    EXPECT_EQ(m_List.First(position), expanded);

    m_List.SetKeepVariables(true);
    m_List.RefreshFiles(true);
    EXPECT_EQ(m_List.First(position), folder + u"\\amp.lib");
    EXPECT_EQ(m_List.Find(expanded, false), nullptr);
    EXPECT_NE(m_List.Find(expanded, true), nullptr);
    EXPECT_NE(m_List.FindDir(m_A, true), nullptr);

    m_List.SetWantVariables(false);
    EXPECT_EQ(m_List.First(position), expanded);
    EXPECT_EQ(m_List.GetFullFileName(u"amp.lib"), expanded);
}

TEST_F(AutoFileListTest, DisabledFoldersAreNotSearched)
{
    m_Folder.MakeFile(u"a\\1.lib");
    m_Folder.MakeFile(u"b\\2.lib");
    m_List.AddDir(m_A);
    m_List.AddDir(m_B);

    CString upper = m_A + u"\\";
    upper.MakeUpper();
    Disable(u"DisabledFolders_Libraries", upper);
    m_List.RefreshFiles(true);

    EXPECT_EQ(Files(), u"b\\2.lib|");
    EXPECT_FALSE(m_List.IsEnabledDir(m_A));
    EXPECT_TRUE(m_List.IsEnabledDir(m_B));
    EXPECT_EQ(
        TextsOf(m_List, &CAutoFileList::FirstEnabledDir, &CAutoFileList::NextEnabledDir).Right(2),
        u"b|");
}

TEST_F(AutoFileListTest, TheListOfDisabledFoldersIsNamedByQualifierOrPath)
{
    EXPECT_EQ(m_List.GetDisabledFoldersValue(), u"DisabledFolders_Libraries");
    m_List.SetQualifier(u"Mine");
    EXPECT_EQ(m_List.GetDisabledFoldersValue(), u"DisabledFolders_Mine");
    CAutoFileList plain;
    plain.Init(nullptr, u"", u"Libraries");
    EXPECT_EQ(plain.GetDisabledFoldersValue(), u"DisabledFolders");
    plain.Init(nullptr, u"", u"Lists\\Of\\Libraries");
    EXPECT_EQ(plain.GetDisabledFoldersValue(), u"DisabledFolders_Of\\Libraries");
    Disable(u"DisabledFolders_Of\\Libraries", m_A);
    EXPECT_FALSE(plain.IsEnabledDir(m_A));
}

TEST_F(AutoFileListTest, CopiesAreLeftOutUnlessTheyAreWanted)
{
    for (const char16_t* name : {u"a\\x.lib", u"a\\Backup Copy of x.lib",
                                 u"a\\security copy of x.lib", u"a\\Restore Point for x (l).lib"})
        m_Folder.MakeFile(name);
    m_List.AddDir(m_A);

    m_List.RefreshFiles(true);
    EXPECT_EQ(Files(), u"a\\Restore Point for x (l).lib|a\\x.lib|");
    m_List.IgnoreBackupFiles(false);
    m_List.RefreshFiles(true);
    EXPECT_EQ(m_List.GetCount(), 4);

    CBackupFiles::SetBackupFilenameTemplate(u"x$(DesignName)");
    m_List.IgnoreBackupFiles(true);
    m_List.RefreshFiles(true);
    EXPECT_EQ(Files(), u"a\\Backup Copy of x.lib|a\\Restore Point for x (l).lib|");
}

TEST_F(AutoFileListTest, AVanishedFolderLosesItsFilesOnlyIfThatIsWanted)
{
    m_Folder.MakeFile(u"a\\1.lib");
    m_Folder.MakeFile(u"b\\2.lib");
    m_List.AddDir(m_A);
    m_List.AddDir(m_B);
    m_List.RefreshFiles(true);
    std::filesystem::rename(m_Folder.GetNativePath() / "a", m_Folder.GetNativePath() / "away");

    EXPECT_FALSE(m_List.RefreshFiles(false));
    EXPECT_EQ(Files(), u"a\\1.lib|b\\2.lib|");
    EXPECT_TRUE(m_List.RefreshFiles(true));
    EXPECT_EQ(Files(), u"b\\2.lib|");

    m_Folder.MakeFile(u"a", "now a file");
    EXPECT_FALSE(m_List.RefreshFiles(true));
    std::filesystem::remove(m_Folder.GetNativePath() / "b/2.lib");
    EXPECT_TRUE(m_List.RefreshFiles(false)) << "a folder that is there tells what it holds";
    EXPECT_EQ(Files(), u"");
}

TEST_F(AutoFileListTest, AFolderThatIsNotOursToReadCountsAsVanished)
{
    m_Folder.MakeFile(u"a\\1.lib");
    m_List.AddDir(m_A);
    m_List.RefreshFiles(true);
    std::filesystem::permissions(m_Folder.GetNativePath() / "a", std::filesystem::perms::none);

    const int result =
        CChildProcess(
            [this]
            {
                DropRights();
                const bool isKept = !m_List.RefreshFiles(false) && m_List.GetCount() == 1;
                const bool isDropped = m_List.RefreshFiles(true) && m_List.GetCount() == 0;
                return isKept && isDropped ? 0 : 1;
            })
            .Wait();

    std::filesystem::permissions(m_Folder.GetNativePath() / "a", std::filesystem::perms::owner_all);
    EXPECT_EQ(result, 0);
}

TEST_F(AutoFileListTest, WhatIsSavedIsLoadedAgain)
{
    m_Folder.MakeFile(u"a\\1.lib");
    m_Folder.MakeFile(u"a\\2.lib");
    m_List.AddDir(m_A);
    m_List.AddDir(m_B);
    EXPECT_TRUE(m_List.Save());
    m_List.SetSearchDirs(false);
    m_List.Delete(m_Folder.PathOf(u"a\\2.lib"));
    m_List.Add(CString(u'x', 1024)); // would not read back
    EXPECT_TRUE(m_List.SaveToRegistry());

    CAutoFileList loaded;
    loaded.Init(nullptr, u".lib", SETTINGS);
    loaded.Add(u"gone");
    loaded.LoadFromRegistry();

    EXPECT_EQ(loaded.GetDirCount(), 2);
    EXPECT_EQ(TextsOf(loaded, &CAutoFileList::First, &CAutoFileList::Next), u"a\\1.lib|");
    EXPECT_FALSE(loaded.GetSearchDirs());
    EXPECT_FALSE(loaded.RefreshFiles(true)) << "files that were added are not searched for";
    loaded.SetSearchDirs(true);
    EXPECT_TRUE(loaded.SaveToRegistry());
    loaded.Refresh();
    EXPECT_EQ(loaded.GetCount(), 2);
}

TEST_F(AutoFileListTest, WithoutSettingsAListIsEmptyAndIsNotStored)
{
    m_List.AddDir(m_A);
    m_List.LoadFromRegistry();
    EXPECT_EQ(m_List.GetDirCount(), 0);

    CAppRegistry(SETTINGS).SetValue(u"CountDirs", 2'000'000'000); // more than is there
    CAppRegistry(CString(SETTINGS) + u"\\Dirs").SetValue(u"Item0", u"one");
    m_List.LoadFromRegistry();
    EXPECT_EQ(m_List.GetDirCount(), 1);

    CAutoFileList nowhere;
    nowhere.Init(nullptr, u"lib", u"");
    EXPECT_FALSE(nowhere.SaveToRegistry());
}

TEST_F(AutoFileListTest, TheVaultIsNoFolderOfTheDisk)
{
    m_Folder.MakeFile(u"a\\1.lib");
    m_List.AddDir(m_A);
    m_List.RefreshVaultInDirs(true);
    EXPECT_EQ(m_List.GetDirCount(), 1) << "not allowed";

    m_List.SetVaultAllowed(true);
    m_List.RefreshVaultInDirs(true);
    m_List.RefreshVaultInDirs(true);
    m_List.RefreshFiles(true);
    m_List.Add(CAutoFileList::GetVaultNameString() + u"\\kept.lib");

    POSITION position = nullptr;
    EXPECT_EQ(m_List.FirstDir(position), CAutoFileList::GetVaultNameString());
    EXPECT_EQ(m_List.FirstEnabledNonVaultDir(position), m_A);
    EXPECT_EQ(TextsOf(m_List, &CAutoFileList::FirstNonVault, &CAutoFileList::NextNonVault),
              u"a\\1.lib|");
    EXPECT_EQ(m_List.GetCount(), 2);
    m_List.RefreshVaultInDirs(false);
    EXPECT_EQ(m_List.GetDirCount(), 1);
}

TEST_F(AutoFileListTest, AFinderMeetsFoldersOnlyIfAskedAndAWildExtensionTakesAll)
{
    for (const char16_t* name : {u"a\\x.lib", u"a\\x.lib2", u"a\\Backup Copy of x.lib"})
        m_Folder.MakeFile(name);
    m_Folder.MakeFolder(u"a\\y.lib");
    const auto namesOf = [](CFileFinder& find)
    {
        CString names;
        for (bool more = find.FirstFile(); more; more = find.NextFile())
            names += find.GetFileName() + u"|";
        return names;
    };
    CFileFinder files(m_A + u"\\*.LIB");
    CFileFinder folders(m_A + u"\\*.lib", false);
    CFileFinder wild(m_A + u"\\*.lib*", true, true);
    CFileFinder none(m_B + u"\\*.lib");
    CFileFinder absent(m_Folder.PathOf(u"c\\*.lib"));

    EXPECT_EQ(namesOf(files), u"x.lib|");
    EXPECT_EQ(namesOf(folders), u"x.lib|y.lib|");
    EXPECT_EQ(namesOf(wild), u"Backup Copy of x.lib|x.lib|x.lib2|");
    EXPECT_EQ(namesOf(none), u"");
    EXPECT_TRUE(none.WasSearched());
    EXPECT_EQ(namesOf(absent), u"");
    EXPECT_FALSE(absent.WasSearched());
}

TEST_F(AutoFileListTest, AFollowedListIsRefreshedOnceForABurst)
{
    const std::unique_ptr<IMessageLoop> loop = MakeHeadlessMessageLoop();
    IMessageLoop* const before = SetMessageLoop(loop.get());
    m_List.AddDir(m_A);
    m_List.AddDir(m_Folder.PathOf(u"later"));
    m_List.RefreshFiles(false);
    CAutoFileListWatch watch(m_List);
    constexpr int BURST = 10'000; // more than the system's queue of changes holds
    int refreshes = 0;
    ASSERT_TRUE(watch.Start(true,
                            [&]
                            {
                                ++refreshes;
                                loop->Quit(0);
                            }));

    for (int i = 0; i < BURST; ++i)
    {
        CString name;
        name.Format(u"a\\%d.lib", i);
        m_Folder.MakeFile(name);
    }
    m_Folder.MakeFile(u"later\\last.lib");
    loop->Run();
    EXPECT_EQ(m_List.GetCount(), BURST + 1);
    std::filesystem::remove_all(m_Folder.GetNativePath() / "later");
    loop->Run();

    EXPECT_EQ(m_List.GetCount(), BURST);
    EXPECT_EQ(refreshes, 2);
    watch.Stop();
    SetMessageLoop(before);
}

} // namespace
