#include "files/zip/ZipCreate.h"

#include "files/zip/ZipFixture.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileHandle.h"
#include "platform/system/file/FileStatus.h"

#include "support/FixedClock.h"
#include "support/FormatPage.h"

#include <fstream>

namespace utility
{

namespace
{

/// The archive as the file of tests/data/zip holds it.
std::string Golden(const char* name)
{
    std::ifstream file(std::string(UTILITY_TEST_DATA) + "/zip/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const std::vector<CZipContent> GOLDEN_CONTENTS = {
    {u"library/", ""},
    {u"library/amp.txt", "amp amp amp amp amp amp\r\n"},
    {u"old.ZIP", "stored"},
    {u"gr\u00F6\u00DFe.txt", ""},
};
constexpr SYSTEMTIME GOLDEN_TIME{2024, 2, 0, 29, 13, 45, 31, 0};

} // namespace

class ZipCreateTest : public testing::Test
{
protected:
    static HZIP MakeInMemory(unsigned length = 1U << 20U)
    {
        return CreateZip(nullptr, length, nullptr);
    }
    static std::string Bytes(HZIP zip)
    {
        void* memory = nullptr;
        std::uint32_t length = 0;
        EXPECT_EQ(ZipGetMemory(zip, &memory, &length), ZIP_SUCCESS);
        return std::string(static_cast<const char*>(memory), length);
    }

    CTemporaryFolder m_Folder;
};

TEST_F(ZipCreateTest, BytesAreThoseLaidDown)
{
    const CFixedClock clock(GOLDEN_TIME);
    const CCountedRandom random;

    EXPECT_EQ(MakeZip(GOLDEN_CONTENTS), Golden("plain.zip"));
    EXPECT_EQ(MakeZip(GOLDEN_CONTENTS, u"gehe\u00EDm"), Golden("encrypted.zip"));
    EXPECT_EQ(MakeZip({}), Golden("empty.zip"));
}

TEST_F(ZipCreateTest, TheExampleOfTheFormatPageIsWritten)
{
    const CFixedClock clock(GOLDEN_TIME);
    std::string example;
    for (int part = 0; part < 4; ++part)
        example += ReadByteListing("zip-archive.md", part);

    EXPECT_EQ(MakeZip({{u"a.txt", "hello"}}), example);
}

TEST_F(ZipCreateTest, GoldenArchivesReadBack)
{
    EXPECT_EQ(ReadZip(Golden("plain.zip")), GOLDEN_CONTENTS);
    EXPECT_EQ(ReadZip(Golden("encrypted.zip"), "gehe\xC3\xADm"), GOLDEN_CONTENTS);
    EXPECT_TRUE(ReadZip(Golden("empty.zip")).empty());
}

TEST_F(ZipCreateTest, FileHandleAndMemoryMakeTheSameArchive)
{
    const CFixedClock clock(GOLDEN_TIME);
    const CString path = m_Folder.PathOf(u"a.zip");
    const HZIP toFile = CreateZip(path, nullptr);
    ASSERT_EQ(ZipAdd(toFile, u"a", "abc", 3), ZIP_SUCCESS);
    ASSERT_EQ(CloseZipZ(toFile), ZIP_SUCCESS);

    const HANDLE handle =
        CreateFileW(m_Folder.MakeFile(u"b.zip", "prefix"), GENERIC_WRITE, 0, OPEN_EXISTING);
    ASSERT_TRUE(SetFilePointerEx(handle, 0, nullptr, FILE_END));
    const HZIP toHandle = CreateZipHandle(handle, nullptr);
    ASSERT_TRUE(CloseHandle(handle)); // the archive has its own
    ASSERT_EQ(ZipAdd(toHandle, u"a", "abc", 3), ZIP_SUCCESS);
    ASSERT_EQ(CloseZipZ(toHandle), ZIP_SUCCESS);

    char block[1000] = {};
    const HZIP toBlock = CreateZip(block, sizeof block, nullptr);
    ASSERT_EQ(ZipAdd(toBlock, u"a", "abc", 3), ZIP_SUCCESS);
    const std::string bytes = Bytes(toBlock);
    EXPECT_EQ(bytes, Bytes(toBlock)); // may be asked again
    ASSERT_EQ(CloseZipZ(toBlock), ZIP_SUCCESS);

    EXPECT_EQ(m_Folder.Read(u"a.zip"), bytes);
    EXPECT_EQ(m_Folder.Read(u"b.zip"), "prefix" + bytes);
    EXPECT_EQ(std::string(block, bytes.size()), bytes);
    EXPECT_EQ(ReadZip(CZipClosing(OpenZip(m_Folder.PathOf(u"b.zip"), nullptr))),
              (std::vector<CZipContent>{{u"a", "abc"}}));
}

TEST_F(ZipCreateTest, EntriesComeFromFilesHandlesAndPipes)
{
    const CString path = m_Folder.MakeFile(u"source", "0123456789");
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(readEnd, writeEnd));
    DWORD done = 0;
    ASSERT_TRUE(WriteFile(writeEnd, "piped", 5, done));
    ASSERT_TRUE(CloseHandle(writeEnd));
    const HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    ASSERT_TRUE(SetFilePointerEx(file, 2, nullptr, FILE_BEGIN));

    const HZIP zip = MakeInMemory();
    EXPECT_EQ(ZipAdd(zip, u"file", path), ZIP_SUCCESS);
    EXPECT_EQ(ZipAddHandle(zip, u"piece", file, 3), ZIP_SUCCESS);
    EXPECT_EQ(ZipAddHandle(zip, u"rest", file), ZIP_SUCCESS);
    EXPECT_EQ(ZipAddHandle(zip, u"pipe", readEnd), ZIP_SUCCESS);
    EXPECT_EQ(ZipAdd(zip, u"sub\\none", nullptr, 0), ZIP_SUCCESS);
    EXPECT_EQ(ZipAddFolder(zip, u"sub"), ZIP_SUCCESS);

    const std::vector<CZipContent> expected = {{u"file", "0123456789"}, {u"piece", "234"},
                                               {u"rest", "56789"},      {u"pipe", "piped"},
                                               {u"sub/none", ""},       {u"sub/", ""}};
    EXPECT_EQ(ReadZip(Bytes(zip)), expected);
    EXPECT_EQ(CloseZipZ(zip), ZIP_SUCCESS);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_TRUE(CloseHandle(readEnd));
}

TEST_F(ZipCreateTest, MethodFollowsTheExtension)
{
    const struct
    {
        const char16_t* m_Name;
        int m_Method;
    } cases[] = {
        {u"data.ZIP", 0}, {u"a.zoo", 0}, {u"a.Arc", 0},    {u"a.lzh", 0},    {u"a.arj", 0},
        {u"a.gz", 0},     {u"a.tgz", 0}, {u".gz", 0},      {u"a.tar.gz", 0}, {u"dir.zip\\file", 8},
        {u"a.gzip", 8},   {u"zip", 8},   {u"a.gz.txt", 8},
    };
    const HZIP made = MakeInMemory();
    for (const auto& each : cases)
        ASSERT_EQ(ZipAdd(made, each.m_Name, "aaaaaaaaaaaaaaaaaaaa", 20), ZIP_SUCCESS);
    const std::string bytes = Bytes(made);
    const CZipClosing zip(OpenBytes(bytes));
    int index = 0;
    for (const auto& each : cases)
    {
        ZIPENTRYINFO info;
        ASSERT_EQ(GetZipItemInfo(zip, index++, &info), ZIP_SUCCESS);
        EXPECT_EQ(info.method, each.m_Method) << index;
    }
    EXPECT_EQ(CloseZipZ(made), ZIP_SUCCESS);
}

TEST_F(ZipCreateTest, PromotedEntryStandsFirstInTheDirectory)
{
    const HZIP zip = MakeInMemory();
    for (const char16_t* name : {u"a", u"sub\\B", u"c", u"SUB/b"})
        ASSERT_EQ(ZipAdd(zip, name, "x", 1), ZIP_SUCCESS);

    EXPECT_EQ(ZipPromote(zip, u"sub\\b"), ZIP_SUCCESS);
    EXPECT_EQ(ZipPromote(zip, u"d"), ZIP_NOT_FOUND);
    EXPECT_EQ(LastZipTextZ(), u"File not found in the zipfile");

    std::vector<CString> names;
    for (const CZipContent& each : ReadZip(Bytes(zip)))
        names.push_back(each.m_Name);
    EXPECT_EQ(names, (std::vector<CString>{u"sub/B", u"a", u"c", u"SUB/b"}));
    EXPECT_EQ(ZipPromote(zip, u"c"), ZIP_ENDED);
    EXPECT_EQ(CloseZipZ(zip), ZIP_SUCCESS);
}

TEST_F(ZipCreateTest, EachFailureHasItsCodeAndWords)
{
    const std::string empty = MakeZip({});
    const HZIP read = OpenBytes(empty);
    const HANDLE closed = CreateFileW(m_Folder.MakeFile(u"h"), GENERIC_READ, 0, OPEN_EXISTING);
    ASSERT_TRUE(CloseHandle(closed));
    const HANDLE toRead = CreateFileW(m_Folder.MakeFile(u"short", "12"), GENERIC_READ,
                                      FILE_SHARE_READ, OPEN_EXISTING);
    const HANDLE toWrite = CreateFileW(m_Folder.PathOf(u"out"), GENERIC_WRITE, 0, CREATE_ALWAYS);
    const auto add = [](auto... source)
    {
        const HZIP zip = MakeInMemory();
        const ZRESULT code = ZipAdd(zip, source...);
        const CString words = LastZipTextZ();
        const ZRESULT later = ZipAdd(zip, u"later", "x", 1);
        const CString laterWords = LastZipTextZ();
        EXPECT_EQ(later, ZIP_FAILED_BEFORE);
        EXPECT_EQ(laterWords, u"Caller: there was a previous error");
        EXPECT_EQ(CloseZipZ(zip), ZIP_SUCCESS);
        return std::pair(code, words);
    };
    const auto addHandle = [](auto... source)
    {
        const HZIP zip = MakeInMemory();
        const ZRESULT code = ZipAddHandle(zip, u"a", source...);
        const CString words = LastZipTextZ();
        EXPECT_EQ(CloseZipZ(zip), ZIP_SUCCESS);
        return std::pair(code, words);
    };
    using CResult = std::pair<ZRESULT, CString>;

    EXPECT_EQ(addHandle(closed), CResult(0x100, u"Couldn't duplicate handle"));
    EXPECT_EQ(add(u"a", m_Folder.PathOf(u"absent")), CResult(0x200, u"Couldn't create/open file"));
    EXPECT_EQ(addHandle(toWrite), CResult(0x800, u"Error reading file"));
    EXPECT_EQ(add(u"", "x", 1), CResult(0x10000, u"Caller: faulty arguments"));
    EXPECT_EQ(add(nullptr, "x", 1), CResult(0x10000, u"Caller: faulty arguments"));
    EXPECT_EQ(add(u"a", nullptr, 1), CResult(0x10000, u"Caller: faulty arguments"));
    EXPECT_EQ(add(u"a", static_cast<const char16_t*>(nullptr)),
              CResult(0x10000, u"Caller: faulty arguments"));
    EXPECT_EQ(add(CString(u'x', 0x10000).GetString(), "x", 1),
              CResult(0x10000, u"Caller: faulty arguments"));
    EXPECT_EQ(addHandle(toRead, 3U),
              CResult(0x60000, u"Zip-bug: the anticipated size turned out wrong"));
    EXPECT_EQ(ZipAdd(read, u"a", "x", 1), 0x80000U);
    EXPECT_EQ(LastZipTextZ(), u"Caller: mixing creation and opening of zip");

    const HZIP onFile = CreateZip(m_Folder.PathOf(u"f.zip"), nullptr);
    void* memory = nullptr;
    std::uint32_t length = 0;
    EXPECT_EQ(ZipGetMemory(onFile, &memory, &length), 0x20000U);
    EXPECT_EQ(LastZipTextZ(), u"Caller: can only get memory of a memory zipfile");
    EXPECT_EQ(CloseZipU(onFile), 0x80000U);
    EXPECT_EQ(CloseZipZ(onFile), ZIP_SUCCESS);

    const HZIP ended = MakeInMemory();
    (void)Bytes(ended);
    EXPECT_EQ(ZipAdd(ended, u"a", "x", 1), 0x50000U);
    EXPECT_EQ(LastZipTextZ(), u"Caller: additions to the zip have already been ended");
    EXPECT_EQ(CloseZipZ(ended), ZIP_SUCCESS);

    const HZIP onReadOnly = CreateZipHandle(toRead, nullptr);
    EXPECT_EQ(ZipAdd(onReadOnly, u"a", "x", 1), 0x400U);
    EXPECT_EQ(LastZipTextZ(), u"Error writing to file");
    EXPECT_EQ(CloseZipZ(onReadOnly), 0x400U);

    EXPECT_EQ(CreateZip(m_Folder.PathOf(u"none\\a.zip"), nullptr), nullptr);
    EXPECT_EQ(LastZipTextZ(), u"Couldn't create/open file");
    EXPECT_EQ(CreateZipHandle(closed, nullptr), nullptr);
    EXPECT_EQ(LastZipTextZ(), u"Couldn't duplicate handle");
    EXPECT_EQ(CreateZipHandle(nullptr, nullptr), nullptr);
    EXPECT_EQ(LastZipTextZ(), u"Caller: faulty arguments");
    EXPECT_EQ(CloseZipU(read), ZIP_SUCCESS);
    EXPECT_TRUE(CloseHandle(toRead));
    EXPECT_TRUE(CloseHandle(toWrite));
}

TEST_F(ZipCreateTest, FullMemoryKeepsWhatIsComplete)
{
    const std::string noise = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const std::vector<CZipContent> first = {{u"a", "first"}};
    const std::vector<CZipContent> both = {{u"a", "first"}, {u"b", noise}};
    const std::size_t noneSize = MakeZip({}).size();
    const std::size_t firstSize = MakeZip(first).size();
    const std::size_t bothSize = MakeZip(both).size(); // a block that fits exactly is enough
    for (unsigned length = 1; length < bothSize + 10; ++length)
    {
        SCOPED_TRACE(length);
        const HZIP zip = MakeInMemory(length);
        const ZRESULT code = ZipAdd(zip, u"a", "first", 5);
        const ZRESULT next = ZipAdd(zip, u"b", noise.data(), static_cast<unsigned>(noise.size()));

        EXPECT_EQ(code, length >= firstSize ? ZIP_SUCCESS : ZIP_MEMORY_SIZE);
        EXPECT_EQ(next, length < firstSize  ? ZIP_FAILED_BEFORE
                        : length < bothSize ? ZIP_MEMORY_SIZE
                                            : ZIP_SUCCESS);
        if (length >= noneSize)
        {
            EXPECT_EQ(ReadZip(Bytes(zip)), length < firstSize  ? std::vector<CZipContent>()
                                           : length < bothSize ? first
                                                               : both);
        }
        EXPECT_EQ(CloseZipZ(zip), length >= noneSize ? ZIP_SUCCESS : ZIP_MEMORY_SIZE);
    }
}

TEST_F(ZipCreateTest, FailedEntryLeavesNoTraceInAFile)
{
    const CFixedClock clock(GOLDEN_TIME);
    const HANDLE shortFile = CreateFileW(m_Folder.MakeFile(u"short", "12"), GENERIC_READ,
                                         FILE_SHARE_READ, OPEN_EXISTING);
    const HZIP zip = CreateZip(m_Folder.PathOf(u"a.zip"), nullptr);
    ASSERT_EQ(ZipAdd(zip, u"a", "first", 5), ZIP_SUCCESS);
    ASSERT_EQ(ZipAddHandle(zip, u"b", shortFile, 1000), ZIP_SIZE_WRONG);

    EXPECT_EQ(CloseZipZ(zip), ZIP_SUCCESS);

    EXPECT_EQ(m_Folder.Read(u"a.zip"), MakeZip({{u"a", "first"}}));
    EXPECT_TRUE(CloseHandle(shortFile));
}

TEST_F(ZipCreateTest, FailedEntryCutsNothingBehindTheArchive)
{
    const std::string tail(5000, 't');
    const HANDLE handle = CreateFileW(m_Folder.MakeFile(u"a", tail), GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ, OPEN_EXISTING);
    const HANDLE shortFile = CreateFileW(m_Folder.MakeFile(u"short", "12"), GENERIC_READ,
                                         FILE_SHARE_READ, OPEN_EXISTING);
    const HZIP zip = CreateZipHandle(handle, nullptr);
    ASSERT_EQ(ZipAdd(zip, u"a", "first", 5), ZIP_SUCCESS);
    ASSERT_EQ(ZipAddHandle(zip, u"b", shortFile, 1000), ZIP_SIZE_WRONG);

    EXPECT_EQ(CloseZipZ(zip), ZIP_SUCCESS);

    const std::string bytes = m_Folder.Read(u"a");
    EXPECT_EQ(bytes.size(), tail.size());
    EXPECT_EQ(ReadZip(bytes), (std::vector<CZipContent>{{u"a", "first"}}));
    EXPECT_TRUE(CloseHandle(handle));
    EXPECT_TRUE(CloseHandle(shortFile));
}

TEST_F(ZipCreateTest, ReadOnlyFileIsMarkedSo)
{
    const CString path = m_Folder.MakeFile(u"a", "x");
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(path, status));
    status.m_attribute |= CFileStatus::readOnly;
    CFile::SetStatus(path, status);
    const HZIP made = MakeInMemory();
    ASSERT_EQ(ZipAdd(made, u"a", path), ZIP_SUCCESS);
    const std::string bytes = Bytes(made);

    const CZipClosing zip(OpenBytes(bytes));
    ZIPENTRY entry{};
    EXPECT_EQ(GetZipItem(zip, 0, &entry), ZIP_SUCCESS);

    EXPECT_EQ(entry.attr, 33U); // an archive file, read-only
    EXPECT_EQ(CloseZipZ(made), ZIP_SUCCESS);
}

} // namespace utility
