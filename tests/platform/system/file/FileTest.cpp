#include "platform/system/file/File.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/FileStatus.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

/// The cause and code that a call fails with; none and 0 if it does not.
template <typename TCall>
std::pair<int, LONG> FailureOf(const TCall& call)
{
    try
    {
        call();
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return {exception->m_cause, exception->m_lOsError};
    }
    return {CFileException::none, 0};
}

TEST(FileTest, OpenModesSayWhatBecomesOfTheContent)
{
    struct CCase
    {
        const char* Name;
        UINT Flags;
        const char* Result;
    };
    const CCase cases[] = {
        {"create", CFile::modeCreate | CFile::modeWrite, "new"},
        {"create, keep", CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite,
         "newcontent"},
        {"write", CFile::modeWrite, "newcontent"},
        {"read and write", CFile::modeReadWrite, "newcontent"},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(test.Name);
        const CTemporaryFolder folder;
        CFile file(folder.MakeFile(u"a", "oldcontent"), test.Flags);
        file.Write("new", 3);
        EXPECT_EQ(file.GetPosition(), 3U);
        file.Close();
        EXPECT_EQ(folder.Read(u"a"), test.Result);
    }
}

TEST(FileTest, PlacesCountInSixtyFourBits)
{
    const CTemporaryFolder folder;
    CFile file(folder.PathOf(u"a"), CFile::modeCreate | CFile::modeReadWrite);
    const std::int64_t far = std::int64_t(5) << 30U;

    EXPECT_EQ(file.Seek(far, CFile::begin), static_cast<std::uint64_t>(far));
    file.Write("end", 3);
    EXPECT_EQ(file.GetLength(), static_cast<std::uint64_t>(far) + 3);
    EXPECT_EQ(file.Seek(-3, CFile::end), static_cast<std::uint64_t>(far));
    char text[8] = {};
    EXPECT_EQ(file.Read(text, sizeof text), 3U);
    EXPECT_STREQ(text, "end");
    file.SetLength(10);
    EXPECT_EQ(file.GetPosition(), 10U);
    EXPECT_EQ(FailureOf([&] { file.Seek(-1, CFile::begin); }).first, CFileException::badSeek);
    EXPECT_EQ(file.GetPosition(), 10U);
}

TEST(FileTest, ShareBitsKeepOthersOut)
{
    constexpr UINT READ = CFile::modeRead;
    constexpr UINT WRITE = CFile::modeWrite;
    struct CCase
    {
        const char* Name;
        UINT First;
        UINT Second;
        bool IsAllowed;
    };
    const CCase cases[] = {
        {"two plain readers", READ, READ, true},
        {"plain reader, then writer", READ, WRITE, false},
        {"plain writer, then reader that denies nothing", WRITE, READ | CFile::shareDenyNone,
         false},
        {"open writer, then open reader", WRITE | CFile::shareDenyNone, READ | CFile::shareDenyNone,
         true},
        {"open writer, then reader that denies writing", WRITE | CFile::shareDenyNone,
         READ | CFile::shareDenyWrite, false},
        {"two open writers", WRITE | CFile::shareDenyNone, WRITE | CFile::shareDenyNone, true},
        {"exclusive reader, then reader", READ | CFile::shareExclusive, READ | CFile::shareDenyNone,
         false},
        {"reader that denies reading, then writer", READ | CFile::shareDenyRead,
         WRITE | CFile::shareDenyNone, true},
        {"writer that denies writing, then reader", WRITE | CFile::shareDenyWrite,
         READ | CFile::shareDenyNone, true},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(test.Name);
        const CTemporaryFolder folder;
        const CString path = folder.MakeFile(u"a", "content");
        CFile first(path, test.First);
        CFile second;
        CFileException why;
        EXPECT_EQ(second.Open(path, test.Second, &why), test.IsAllowed);
        EXPECT_EQ(why.m_cause,
                  test.IsAllowed ? CFileException::none : CFileException::sharingViolation);
        first.Close();
        EXPECT_TRUE(CFile().Open(path, test.Second) || test.IsAllowed) << "marks go with the file";
    }
}

TEST(FileTest, ARefusedWriterEmptiesNothing)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a", "content");
    const CFile reader(path, CFile::modeRead | CFile::shareDenyWrite);

    CFile writer;
    EXPECT_FALSE(writer.Open(path, CFile::modeCreate | CFile::modeWrite));

    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(folder.Read(u"a"), "content");
}

TEST(FileTest, ReadOnlyFilesAreNeitherWrittenNorDeleted)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a", "content");
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(path, status));
    status.m_attribute |= CFileStatus::readOnly;
    CFile::SetStatus(path, status);

    EXPECT_FALSE(CFile().Open(path, CFile::modeWrite));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(DeleteFileW(path));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(folder.Read(u"a"), "content");

    status.m_attribute &= ~CFileStatus::readOnly;
    CFile::SetStatus(path, status);
    EXPECT_TRUE(DeleteFileW(path));
}

TEST(FileTest, AttributesOtherThanReadOnlyCannotBeSet)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a");
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(path, status));
    status.m_attribute |= CFileStatus::hidden;

    EXPECT_EQ(FailureOf([&] { CFile::SetStatus(path, status); }).second,
              static_cast<LONG>(ERROR_NOT_SUPPORTED));
}

TEST(FileTest, StatusTellsKindSizeTimesAndHiddenNames)
{
    const CTemporaryFolder folder;
    CFileStatus file;
    CFileStatus sub;
    ASSERT_TRUE(CFile::GetStatus(folder.MakeFile(u".hidden", "12345"), file));
    ASSERT_TRUE(CFile::GetStatus(folder.MakeFolder(u"sub"), sub));

    EXPECT_EQ(file.m_attribute, CFileStatus::hidden);
    EXPECT_EQ(file.m_size, 5);
    EXPECT_EQ(file.m_szFullName, folder.PathOf(u".hidden"));
    EXPECT_EQ(sub.m_attribute, CFileStatus::directory);

    file.m_mtime = CTime(std::int64_t(1'000'000'000));
    CFile::SetStatus(file.m_szFullName, file);
    CFileStatus changed;
    ASSERT_TRUE(CFile::GetStatus(file.m_szFullName, changed));
    EXPECT_EQ(changed.m_mtime.GetTime(), 1'000'000'000);
}

TEST(FileTest, RenameNeverReplacesButMayChangeTheCase)
{
    const CTemporaryFolder folder;
    const CString first = folder.MakeFile(u"first", "1");
    folder.MakeFile(u"second", "2");

    EXPECT_EQ(FailureOf([&] { CFile::Rename(first, folder.PathOf(u"SECOND")); }).second,
              static_cast<LONG>(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(FailureOf([&] { CFile::Rename(folder.PathOf(u"none"), first); }).first,
              CFileException::fileNotFound);
    CFile::Rename(first, folder.PathOf(u"First"));
    CFile::Rename(folder.PathOf(u"second"), folder.PathOf(u"third"));

    EXPECT_EQ(folder.List(), (std::vector<std::string>{"First", "third"}));
}

TEST(FileTest, RenameToAnotherDiskMovesTheBytes)
{
    const CTemporaryFolder folder;
    const std::filesystem::path other =
        "/dev/shm/utility-rename-" + folder.GetNativePath().filename().string();
    const CString from = folder.MakeFile(u"a", std::string(100000, 'x'));

    CFile::Rename(from, CString(other.u16string()));

    EXPECT_FALSE(folder.Exists(u"a"));
    EXPECT_EQ(std::filesystem::file_size(other), 100000U);
    std::filesystem::remove(other);
}

TEST(FileTest, AFullDiskIsToldAsSuch)
{
    CFile full(u"\\dev\\full", CFile::modeWrite);

    EXPECT_EQ(FailureOf([&] { full.Write("x", 1); }),
              std::make_pair(int(CFileException::diskFull), static_cast<LONG>(ERROR_DISK_FULL)));
}

TEST(FileTest, CallsOnAClosedFileFail)
{
    CFile file;
    char byte = 0;

    EXPECT_EQ(FailureOf([&] { file.Read(&byte, 1); }).first, CFileException::invalidFile);
    EXPECT_EQ(FailureOf([&] { file.Write(&byte, 1); }).first, CFileException::invalidFile);
    EXPECT_EQ(FailureOf([] { CFile absent(u"\\no\\such", CFile::modeRead); }).first,
              CFileException::badPath);
}

} // namespace
