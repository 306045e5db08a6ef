#include "platform/system/file/ConfinedFolder.h"

#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileHandle.h"
#include "platform/system/file/FileStatus.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace utility
{

class ConfinedFolderTest : public testing::Test
{
protected:
    ConfinedFolderTest()
    {
        m_Top.MakeFolder(u"base");
        m_Top.MakeFolder(u"outside");
        EXPECT_TRUE(m_Folder.Open(m_Top.PathOf(u"base")));
    }
    bool Write(const CString& path, std::string_view bytes, bool replaces = true,
               bool isReadOnly = false) const
    {
        CConfinedFile file;
        DWORD done = 0;
        return file.Begin(m_Folder, path.View()) &&
               WriteFile(file.GetHandle(), bytes.data(), static_cast<DWORD>(bytes.size()), done) &&
               file.Commit(replaces, isReadOnly);
    }
    void Link(const char* target, const char* name) const
    {
        std::filesystem::create_symlink(target, m_Top.GetNativePath() / "base" / name);
    }

    CTemporaryFolder m_Top;
    CConfinedFolder m_Folder;
};

TEST_F(ConfinedFolderTest, MakesFilesAndFoldersBelow)
{
    EXPECT_TRUE(Write(u"a\\b/c.txt", "x"));
    EXPECT_TRUE(Write(u"\\.\\d.txt", "y"));
    EXPECT_TRUE(m_Folder.MakeFolder(u"a\\e\\f\\"));
    EXPECT_TRUE(m_Folder.MakeFolder(u""));

    EXPECT_EQ(m_Top.List(),
              (std::vector<std::string>{"base/", "base/a/", "base/a/b/", "base/a/b/c.txt",
                                        "base/a/e/", "base/a/e/f/", "base/d.txt", "outside/"}));
    EXPECT_EQ(m_Folder.GetKind(u"a\\b\\c.txt"), EEntryKind::File);
    EXPECT_EQ(m_Folder.GetKind(u"a"), EEntryKind::Folder);
    EXPECT_EQ(m_Folder.GetKind(u"A"), EEntryKind::None);
    EXPECT_GT(m_Folder.GetFreeSpace(), 0U);
}

TEST_F(ConfinedFolderTest, SetsTheTimesOfFoldersAlone)
{
    m_Top.MakeFolder(u"base\\a");
    m_Top.MakeFile(u"base\\file");
    Link("../outside", "down");
    const FILETIME time = CountToFileTime(FILETIME_OF_1970 + 1'700'000'000 * FILETIME_PER_SECOND);

    EXPECT_TRUE(m_Folder.SetFolderTimes(u"a/", time, time));
    for (const char16_t* path : {u"down", u"file", u"absent", u"..", u"down/x"})
        EXPECT_FALSE(m_Folder.SetFolderTimes(path, time, time)) << ToUtf8(path);

    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(m_Top.PathOf(u"base\\a"), status));
    EXPECT_EQ(status.m_mtime, CTime(1'700'000'000));
    ASSERT_TRUE(CFile::GetStatus(m_Top.PathOf(u"outside"), status));
    EXPECT_NE(status.m_mtime, CTime(1'700'000'000));
}

TEST_F(ConfinedFolderTest, NoLinkIsFollowedBelowTheBase)
{
    Link("../outside", "down");
    Link("../outside/x", "file");
    m_Top.MakeFile(u"outside\\x", "old");
    CConfinedFile file;

    EXPECT_FALSE(file.Begin(m_Folder, u"down\\x"));
    EXPECT_FALSE(file.Begin(m_Folder, u"down\\y\\z"));
    EXPECT_FALSE(m_Folder.MakeFolder(u"down\\sub"));
    EXPECT_FALSE(m_Folder.MakeFolder(u"down"));
    EXPECT_EQ(m_Folder.GetKind(u"down"), EEntryKind::Other);
    EXPECT_EQ(m_Folder.GetKind(u"down\\x"), EEntryKind::None);
    EXPECT_FALSE(Write(u"file", "new", false));
    EXPECT_TRUE(Write(u"file", "new")); // the link itself is replaced

    EXPECT_EQ(m_Top.Read(u"outside\\x"), "old");
    EXPECT_EQ(m_Top.Read(u"base\\file"), "new");
    EXPECT_EQ(m_Top.List(), (std::vector<std::string>{"base/", "base/down", "base/file", "outside/",
                                                      "outside/x"}));
}

TEST_F(ConfinedFolderTest, BaseItselfMayBeALink)
{
    std::filesystem::create_symlink("outside", m_Top.GetNativePath() / "link");
    CConfinedFolder folder;

    EXPECT_TRUE(folder.Open(m_Top.PathOf(u"link")));
    EXPECT_TRUE(folder.MakeFolder(u"a"));

    EXPECT_TRUE(m_Top.Exists(u"outside\\a"));
}

TEST_F(ConfinedFolderTest, UpwardsAndZeroUnitsAreRefused)
{
    for (const std::u16string_view path :
         {std::u16string_view(u".."), std::u16string_view(u"a\\..\\..\\x"),
          std::u16string_view(u"../x"), std::u16string_view(u"a\0b", 3)})
    {
        SCOPED_TRACE(ToUtf8(path));
        CConfinedFile file;
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(file.Begin(m_Folder, path));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_NAME);
        EXPECT_FALSE(m_Folder.MakeFolder(path));
    }
    EXPECT_FALSE(m_Top.Exists(u"x"));
}

TEST_F(ConfinedFolderTest, OldFileStaysUntilTheNewOneIsCommitted)
{
    ASSERT_TRUE(Write(u"a", "old"));
    {
        CConfinedFile file;
        DWORD done = 0;
        ASSERT_TRUE(file.Begin(m_Folder, u"a"));
        ASSERT_TRUE(WriteFile(file.GetHandle(), "new", 3, done));
        EXPECT_EQ(m_Top.Read(u"base\\a"), "old");
    }
    EXPECT_FALSE(Write(u"a", "new", false));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(m_Top.Read(u"base\\a"), "old");
    EXPECT_TRUE(Write(u"a", "newer"));
    EXPECT_EQ(m_Top.Read(u"base\\a"), "newer");
    EXPECT_EQ(m_Top.List(), (std::vector<std::string>{"base/", "base/a", "outside/"}));
}

TEST_F(ConfinedFolderTest, ReadOnlyFilesAndFoldersAreNotReplaced)
{
    ASSERT_TRUE(Write(u"a", "old", true, true));
    ASSERT_TRUE(m_Folder.MakeFolder(u"b"));

    for (const char16_t* path : {u"a", u"b"})
    {
        EXPECT_FALSE(Write(path, "new"));
        EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    }
    EXPECT_EQ(m_Top.Read(u"base\\a"), "old");
    EXPECT_EQ(m_Top.List(), (std::vector<std::string>{"base/", "base/a", "base/b/", "outside/"}));
}

} // namespace utility
