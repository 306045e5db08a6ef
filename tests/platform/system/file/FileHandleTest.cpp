#include "platform/system/file/FileHandle.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace utility
{

class FileHandleTest : public testing::Test
{
protected:
    static HANDLE Open(const CString& path, DWORD access = GENERIC_READ,
                       DWORD share = FILE_SHARE_READ, DWORD disposition = OPEN_EXISTING)
    {
        return CreateFileW(path, access, share, disposition);
    }
    static std::string ReadAll(HANDLE handle)
    {
        char bytes[16] = {};
        DWORD done = 0;
        EXPECT_TRUE(ReadFile(handle, bytes, sizeof bytes, done));
        return std::string(bytes, done);
    }

    CTemporaryFolder m_Folder;
};

TEST_F(FileHandleTest, WritesSeeksAndReadsOneFile)
{
    const HANDLE file = Open(m_Folder.PathOf(u"a"), GENERIC_READ | GENERIC_WRITE, 0, CREATE_ALWAYS);
    DWORD done = 0;
    ASSERT_TRUE(WriteFile(file, "hello", 5, done));
    EXPECT_EQ(done, 5U);
    std::int64_t place = -1;
    std::int64_t size = -1;

    EXPECT_TRUE(SetFilePointerEx(file, 1, &place, FILE_BEGIN));
    EXPECT_EQ(place, 1);
    EXPECT_EQ(ReadAll(file), "ello");
    EXPECT_EQ(ReadAll(file), ""); // at the end
    EXPECT_TRUE(GetFileSizeEx(file, size));
    EXPECT_EQ(size, 5);
    EXPECT_FALSE(SetFilePointerEx(file, -6, &place, FILE_END));
    EXPECT_EQ(place, 1);
    EXPECT_TRUE(FlushFileBuffers(file));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(m_Folder.Read(u"a"), "hello");
}

TEST_F(FileHandleTest, RefusalsNameTheirReason)
{
    const CString path = m_Folder.MakeFile(u"a", "old");
    const HANDLE alone = Open(path, GENERIC_READ, 0);
    const struct
    {
        const char* m_Name;
        CString m_Path;
        DWORD m_Access;
        DWORD m_Disposition;
        DWORD m_Code;
    } cases[] = {
        {"absent", m_Folder.PathOf(u"b"), GENERIC_READ, OPEN_EXISTING, ERROR_FILE_NOT_FOUND},
        {"no folder", m_Folder.PathOf(u"c\\b"), GENERIC_READ, OPEN_EXISTING, ERROR_PATH_NOT_FOUND},
        {"a folder", m_Folder.GetPath(), GENERIC_READ, OPEN_EXISTING, ERROR_ACCESS_DENIED},
        {"held", path, GENERIC_WRITE, CREATE_ALWAYS, ERROR_SHARING_VIOLATION},
        {"no access", path, 0, OPEN_EXISTING, ERROR_INVALID_PARAMETER},
        {"no disposition", path, GENERIC_READ, 0, ERROR_INVALID_PARAMETER},
    };
    for (const auto& each : cases)
    {
        SCOPED_TRACE(each.m_Name);
        EXPECT_EQ(Open(each.m_Path, each.m_Access, FILE_SHARE_READ, each.m_Disposition),
                  INVALID_HANDLE_VALUE);
        EXPECT_EQ(GetLastError(), each.m_Code);
    }
    EXPECT_EQ(m_Folder.Read(u"a"), "old");
    EXPECT_TRUE(CloseHandle(alone));
}

TEST_F(FileHandleTest, HandleDoesWhatItWasOpenedForOnly)
{
    const CString path = m_Folder.MakeFile(u"a", "old");
    char byte = 'x';
    DWORD done = 7;

    const HANDLE toWrite = Open(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_FALSE(ReadFile(toWrite, &byte, 1, done));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    const HANDLE toRead = Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(WriteFile(toRead, &byte, 1, done));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);

    EXPECT_EQ(done, 0U);
    EXPECT_TRUE(CloseHandle(toWrite));
    EXPECT_TRUE(CloseHandle(toRead));
    EXPECT_EQ(m_Folder.Read(u"a"), "old");
}

TEST_F(FileHandleTest, CopyStaysOpenAndSharesThePlace)
{
    const HANDLE file = Open(m_Folder.MakeFile(u"a", "hello"));
    HANDLE copy = nullptr;
    ASSERT_TRUE(DuplicateHandle(file, copy));
    ASSERT_TRUE(SetFilePointerEx(file, 2, nullptr, FILE_BEGIN));
    ASSERT_TRUE(CloseHandle(file));

    EXPECT_EQ(ReadAll(copy), "llo");

    HANDLE none = copy;
    EXPECT_FALSE(DuplicateHandle(file, none));
    EXPECT_EQ(none, copy);
    EXPECT_TRUE(CloseHandle(copy));
}

TEST_F(FileHandleTest, FileIsCutAndLengthenedAtItsPlace)
{
    const HANDLE file = Open(m_Folder.MakeFile(u"a", "hello"), GENERIC_READ | GENERIC_WRITE);
    ASSERT_TRUE(SetFilePointerEx(file, 2, nullptr, FILE_BEGIN));
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_EQ(m_Folder.Read(u"a"), "he");
    ASSERT_TRUE(SetFilePointerEx(file, 1, nullptr, FILE_END));
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_EQ(m_Folder.Read(u"a"), std::string("he\0", 3));
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(FileHandleTest, PipeHasNoPlaceAndNoSizeAndEnds)
{
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(readEnd, writeEnd));
    std::int64_t value = 7;
    DWORD done = 0;

    EXPECT_FALSE(SetFilePointerEx(readEnd, 0, &value, FILE_CURRENT));
    EXPECT_FALSE(GetFileSizeEx(readEnd, value));
    EXPECT_EQ(value, 7);
    ASSERT_TRUE(WriteFile(writeEnd, "ab", 2, done));
    EXPECT_EQ(ReadAll(readEnd), "ab");
    EXPECT_TRUE(CloseHandle(writeEnd));
    EXPECT_EQ(ReadAll(readEnd), "");
    EXPECT_TRUE(CloseHandle(readEnd));
}

TEST_F(FileHandleTest, TimesAreKeptToHundredNanosecondsAndBefore1970)
{
    const CString path = m_Folder.MakeFile(u"a");
    const HANDLE file = Open(path, GENERIC_READ | GENERIC_WRITE);
    for (const std::int64_t count :
         {FILETIME_OF_1970 + 15'000'000'001, FILETIME_OF_1970 - FILETIME_PER_DAY - 3})
    {
        const FILETIME wanted = CountToFileTime(count);
        ASSERT_TRUE(SetFileTime(file, nullptr, nullptr, &wanted));
        FILETIME access{};
        FILETIME write{};
        ASSERT_TRUE(GetFileTime(file, nullptr, &access, &write));
        EXPECT_EQ(FileTimeToCount(write), count);
        EXPECT_NE(access, wanted);
    }
    EXPECT_TRUE(CloseHandle(file));
}

} // namespace utility
