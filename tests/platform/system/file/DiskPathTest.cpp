#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileFind.h"
#include "platform/system/file/NativePath.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace utility;

namespace
{

TEST(DiskPathTest, NamesAreFoundWithoutRegardToCase)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"dir\\file.ext", "content");

    CFile file;
    ASSERT_TRUE(file.Open(folder.PathOf(u"DIR\\File.Ext"), CFile::modeRead));

    EXPECT_EQ(file.GetLength(), 7U);
}

TEST(DiskPathTest, TheExactNameWinsAndOfTwoOthersTheLowest)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"board.pcb", "lower");
    folder.MakeFile(u"BOARD.pcb", "upper");
    const auto lengthOf = [&](const char16_t* name)
    {
        CFile file(folder.PathOf(name), CFile::modeRead);
        std::string text(file.GetLength(), ' ');
        file.Read(text.data(), static_cast<UINT>(text.size()));
        return text;
    };

    EXPECT_EQ(lengthOf(u"board.pcb"), "lower");
    EXPECT_EQ(lengthOf(u"Board.PCB"), "upper");
}

TEST(DiskPathTest, CreatingUnderAnotherSpellingKeepsTheNameOnDisk)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"Lib\\board.pcb", "old");

    CFile file(folder.PathOf(u"LIB/Board.PCB"), CFile::modeCreate | CFile::modeWrite);
    file.Write("new", 3);
    file.Close();

    EXPECT_EQ(folder.List(), (std::vector<std::string>{"Lib/", "Lib/board.pcb"}));
    EXPECT_EQ(folder.Read(u"Lib\\board.pcb"), "new");
}

TEST(DiskPathTest, AbsentNamesTellFolderFromFile)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"file", "");
    struct CCase
    {
        const char16_t* Name;
        DWORD Code;
    };
    const CCase cases[] = {
        {u"absent", ERROR_FILE_NOT_FOUND},
        {u"absent\\x", ERROR_PATH_NOT_FOUND},
        {u"file\\x", ERROR_PATH_NOT_FOUND},
        {u"", ERROR_ACCESS_DENIED}, // the folder itself is no file
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(testing::Message() << "case " << (&test - cases));
        SetLastError(0);
        CFile file;
        EXPECT_FALSE(file.Open(folder.PathOf(test.Name), CFile::modeRead));
        EXPECT_EQ(GetLastError(), test.Code);
    }
    CFile share;
    EXPECT_FALSE(share.Open(u"\\\\nobody\\parts\\a.pcb", CFile::modeRead));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST(DiskPathTest, RunsOfSeparatorsAreOne)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"a\\b", "x");

    EXPECT_EQ(GetEntryKind(folder.PathOf(u"a//b")), EEntryKind::File);
    EXPECT_EQ(GetEntryKind(folder.PathOf(u"\\a\\//b")), EEntryKind::File);
    EXPECT_EQ(GetEntryKind(folder.PathOf(u"a\\b\\")), EEntryKind::None) << "a file is no folder";
}

TEST(DiskPathTest, DrivesAndSharesFollowTheMap)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"lib\\a.pcb", "x");
    const CString native = NativePath(folder.GetPath());
    MapDrive(u"Q:", native);
    MapDrive(u"\\\\srv\\parts", native + u"/lib/");

    EXPECT_EQ(GetEntryKind(u"q:\\LIB\\a.pcb"), EEntryKind::File);
    EXPECT_EQ(GetEntryKind(u"Q:lib\\a.pcb"), EEntryKind::File);
    EXPECT_EQ(GetEntryKind(u"\\\\SRV\\Parts\\a.pcb"), EEntryKind::File);
    EXPECT_EQ(NativePath(u"Q:\\lib\\a.pcb"), native + u"/lib/a.pcb");
    EXPECT_EQ(GetEntryKind(u"R:" + folder.PathOf(u"lib\\a.pcb")), EEntryKind::File)
        << "an unmapped drive is dropped";

    MapDrive(u"Q:", u"");
    MapDrive(u"\\\\srv\\parts", u"");
    EXPECT_EQ(GetEntryKind(u"Q:\\lib\\a.pcb"), EEntryKind::None);
    EXPECT_EQ(NativePath(u"\\\\srv\\parts\\a.pcb"), u"\\\\srv\\parts\\a.pcb");
}

TEST(DiskPathTest, AnyNameOnDiskLeadsBackToItsFile)
{
    const std::string names[] = {
        "plain",
        "a\\b",
        "c:d",
        "\xC3\xA9t\xC3\xA9",
        "\xFF\xFE"
        "x",
        "\xC3",
        "\xED\xA0\x80",
        "\xF0\x9F\x94\x8C plug",
        "\xEF\x81\x9C",
        "\xEF\x80\xBA",
        "\xF4\x90\x80\x80",
        "\xC0\xAF",
    };
    for (const std::string& name : names)
    {
        SCOPED_TRACE(testing::PrintToString(name));
        const CTemporaryFolder folder;
        std::ofstream(folder.GetNativePath() / name) << "content";

        CFileFind find;
        ASSERT_TRUE(find.FindFile(folder.PathOf(u"*")));
        while (find.FindNextFile())
        {
        }
        EXPECT_EQ(find.GetFileName().View().find_first_of(u"\\:/"), std::u16string_view::npos);
        EXPECT_EQ(find.GetLength(), 7);
        EXPECT_EQ(DiskPathBytes(find.GetFilePath()), (folder.GetNativePath() / name).string());
    }
}

TEST(DiskPathTest, ClassicAndNativeFormsMirrorEachOther)
{
    struct CCase
    {
        const char* Native;
        const char16_t* Classic;
    };
    const CCase cases[] = {
        {"/srv/lib/a.pcb", u"\\srv\\lib\\a.pcb"},
        {"a.pcb", u"a.pcb"},
        {"/", u"\\"},
        {"/x/a\\b", u"\\x\\a\uF05Cb"},
        {"/x/c:d", u"\\x\\c\uF03Ad"},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(test.Native);
        EXPECT_EQ(ClassicPath(test.Native), test.Classic);
        EXPECT_EQ(DiskPathBytes(test.Classic), test.Native);
    }
    EXPECT_EQ(NativePath(u"C:\\lib//a.pcb"), u"/lib//a.pcb");
    EXPECT_EQ(DiskPathBytes(u"C:\\lib//a.pcb"), "/lib/a.pcb");
}

} // namespace
