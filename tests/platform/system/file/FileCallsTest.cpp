#include "platform/system/file/FileCalls.h"

#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/FileFind.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

/// Another current folder for a scope.
class CCurrentFolder
{
public:
    explicit CCurrentFolder(const CString& folder) : m_Old(GetCurrentDirectoryW())
    {
        EXPECT_TRUE(SetCurrentDirectoryW(folder));
    }
    ~CCurrentFolder() { SetCurrentDirectoryW(m_Old); }
    CCurrentFolder(const CCurrentFolder&) = delete;
    CCurrentFolder& operator=(const CCurrentFolder&) = delete;

private:
    CString m_Old;
};

std::vector<CString> NamesOf(const CString& pattern)
{
    std::vector<CString> names;
    CFileFind find;
    for (bool more = find.FindFile(pattern); more;)
    {
        more = find.FindNextFile();
        names.push_back(find.GetFileName());
    }
    return names;
}

TEST(FileCallsTest, FullPathsAreFoldedAsText)
{
    const CTemporaryFolder folder;
    const CCurrentFolder current(folder.GetPath());
    const CString here = folder.GetPath();
    const std::pair<CString, CString> cases[] = {
        {u"", u""},
        {u"a.pcb", here + u"\\a.pcb"},
        {u"sub/./x\\", here + u"\\sub\\x\\"},
        {u".", here},
        {u"\\x\\..\\..\\y", u"\\y"},
        {u"/", u"\\"},
        {u"C:\\x\\.\\y", u"C:\\x\\y"},
        {u"C:", u"C:" + here},
        {u"\\\\srv\\parts\\..\\..\\a", u"\\\\srv\\parts\\a"},
        {u"\\a\\\\//b", u"\\a\\b"},
    };
    for (const auto& [path, full] : cases)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(path)));
        EXPECT_EQ(GetFullPathNameW(path), full);
    }
}

TEST(FileCallsTest, FoldersAreMadeAndRemovedWithTheirReasons)
{
    const CTemporaryFolder folder;
    EXPECT_EQ(_wmkdir(folder.PathOf(u"sub")), 0);
    EXPECT_EQ(_wmkdir(folder.PathOf(u"SUB")), -1);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(_wmkdir(folder.PathOf(u"no\\sub")), -1);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);

    folder.MakeFile(u"sub\\x");
    EXPECT_FALSE(RemoveDirectoryW(folder.PathOf(u"sub")));
    EXPECT_EQ(GetLastError(), ERROR_DIR_NOT_EMPTY);
    EXPECT_TRUE(DeleteFileW(folder.PathOf(u"sub\\x")));
    EXPECT_TRUE(RemoveDirectoryW(folder.PathOf(u"sub")));
}

TEST(FileCallsTest, AnAbsentEntryIsNoFailure)
{
    const CTemporaryFolder folder;
    SetLastError(7);

    EXPECT_EQ(GetEntryKind(folder.PathOf(u"absent")), EEntryKind::None);
    EXPECT_EQ(GetEntryKind(folder.GetPath()), EEntryKind::Folder);
    EXPECT_EQ(GetEntryKind(u"\\dev\\null"), EEntryKind::Other);

    EXPECT_EQ(GetLastError(), 7U);
}

TEST(FileCallsTest, ALinkIsDeletedAndNotWhatItLeadsTo)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"target", "x");
    std::filesystem::create_symlink("target", folder.GetNativePath() / "link");

    EXPECT_TRUE(DeleteFileW(folder.PathOf(u"link")));

    EXPECT_EQ(folder.List(), std::vector<std::string>{"target"});
}

TEST(FileFindTest, EntriesComeInFoldedOrderWithDotsAndHiddenOnes)
{
    const CTemporaryFolder folder;
    for (const char16_t* name : {u"b.txt", u"A.TXT", u"_c.txt", u".hidden", u"noextension"})
        folder.MakeFile(name);

    EXPECT_EQ(NamesOf(folder.PathOf(u"*.*")),
              (std::vector<CString>{u".", u"..", u".hidden", u"_c.txt", u"A.TXT", u"b.txt",
                                    u"noextension"}));
}

TEST(FileFindTest, PatternsMatchWithoutRegardToCase)
{
    const CTemporaryFolder folder;
    for (const char16_t* name : {u"a1.txt", u"A2.TXT", u"a10.txt", u"a", u"b.sch"})
        folder.MakeFile(name);
    const std::pair<CString, std::vector<CString>> cases[] = {
        {u"*.txt", {u"a1.txt", u"a10.txt", u"A2.TXT"}},
        {u"a?.txt", {u"a1.txt", u"A2.TXT"}},
        {u"a.*", {u"a"}},
        {u"*1*", {u"a1.txt", u"a10.txt"}},
        {u"B.SCH", {u"b.sch"}},
        {u"*.none", {}},
    };
    for (const auto& [pattern, names] : cases)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(pattern)));
        EXPECT_EQ(NamesOf(folder.PathOf(pattern)), names);
    }
}

TEST(FileFindTest, NothingFoundAndNoFolderAreToldApart)
{
    const CTemporaryFolder folder;
    CFileFind find;

    EXPECT_FALSE(find.FindFile(folder.PathOf(u"*.none")));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(find.FindFile(folder.PathOf(u"none\\*.*")));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST(FileFindTest, DescribesEachEntryAndWalksNoLink)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"deep\\x");
    folder.MakeFile(u"part.sch", "12345");
    std::filesystem::create_directory_symlink("deep", folder.GetNativePath() / "link");
    std::string seen;

    CFileFind find;
    for (bool more = find.FindFile(folder.PathOf(u"*")); more;)
    {
        more = find.FindNextFile();
        if (find.IsDots())
            continue;
        seen += ToUtf8(find.GetFileTitle().View());
        seen += find.IsDirectory() ? "/ " : " ";
        if (find.GetFileName() == u"part.sch")
            seen += std::to_string(find.GetLength()) + " ";
    }

    EXPECT_EQ(seen, "deep/ link part 5 ");
}

} // namespace
