#include "files/zip/ZipFault.h"
#include "files/zip/ZipFixture.h"
#include "files/zip/ZipWriter.h"
#include "platform/system/file/FileHandle.h"

#include "support/RawZip.h"

#include <cstring>

namespace utility
{

namespace
{

/// The archive of a worker in memory that takes numbers as too large from there on.
std::string MakeLarge(const CZipLimits& limits, const std::vector<CZipContent>& contents)
{
    std::vector<char> memory(1U << 20U);
    CZipWriter writer(nullptr, limits);
    EXPECT_EQ(writer.OpenMemory(memory.data(), memory.size()), ZIP_SUCCESS);
    for (const CZipContent& each : contents)
        EXPECT_EQ(writer.AddMemory(each.m_Name, each.m_Bytes.data(), each.m_Bytes.size()),
                  ZIP_SUCCESS);
    EXPECT_EQ(writer.End(), ZIP_SUCCESS);
    return std::string(memory.data(), static_cast<std::size_t>(writer.GetLength()));
}

const std::vector<CZipContent> CONTENTS = {{u"small", "x"},
                                           {u"large", std::string(2000, 'y')},
                                           {u"stored.gz", std::string(1500, 'z')},
                                           {u"behind", "w"}};

bool HasLargeRecords(const std::string& bytes)
{
    return bytes.find("PK\x06\x06") != std::string::npos;
}

} // namespace

TEST(ZipLargeTest, RecordsComeOnlyWhereAnEntryOrTheArchivePassesItsLimit)
{
    const std::string plain = MakeLarge({}, CONTENTS);
    const struct
    {
        const char* m_Name;
        CZipLimits m_Limits;
        bool m_HasLargeEnd;
    } cases[] = {
        {"nothing passes", {.m_Size = 100'000, .m_Count = 5}, false},
        {"as many entries as the mark", {.m_Size = 100'000, .m_Count = 4}, true},
        {"entries and places", {.m_Size = 1000}, true},
    };
    for (const auto& each : cases)
    {
        SCOPED_TRACE(each.m_Name);
        const std::string bytes = MakeLarge(each.m_Limits, CONTENTS);
        EXPECT_EQ(HasLargeRecords(bytes), each.m_HasLargeEnd);
        EXPECT_EQ(bytes == plain, !each.m_HasLargeEnd);
        // Sizes are short of the format's own limit, but the marks are there: readers must take
        // both.
        EXPECT_EQ(ReadZip(bytes), CONTENTS);
        EXPECT_EQ(ReadZip("program in front" + bytes), CONTENTS);
    }
}

TEST(ZipLargeTest, SourceThatDoesNotTellItsSizeFailsAtTheLimit)
{
    const CTemporaryFolder folder;
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(readEnd, writeEnd));
    DWORD done = 0;
    const std::string content(2000, 'y');
    ASSERT_TRUE(WriteFile(writeEnd, content.data(), 2000, done));
    ASSERT_TRUE(CloseHandle(writeEnd));
    std::vector<char> memory(10'000);
    CZipWriter writer(nullptr, {.m_Size = 1000});
    ASSERT_EQ(writer.OpenMemory(memory.data(), memory.size()), ZIP_SUCCESS);
    ASSERT_EQ(writer.AddMemory(u"a", "x", 1), ZIP_SUCCESS);

    EXPECT_EQ(writer.AddHandle(u"pipe", readEnd, std::nullopt), ZIP_WRITE_FAILED);

    EXPECT_EQ(writer.End(), ZIP_SUCCESS);
    const std::string bytes(memory.data(), static_cast<std::size_t>(writer.GetLength()));
    EXPECT_EQ(ReadZip(bytes), (std::vector<CZipContent>{{u"a", "x"}}));
    EXPECT_TRUE(CloseHandle(readEnd));
}

TEST(ZipLargeTest, MoreEntriesThanSixteenBitsCount)
{
    for (const int count : {65'534, 65'535, 65'536})
    {
        SCOPED_TRACE(count);
        const HZIP made = CreateZip(nullptr, 32U << 20U, nullptr);
        for (int i = 0; i < count; ++i)
        {
            CString name;
            name.Format(u"%d/", i);
            ASSERT_EQ(ZipAddFolder(made, name), ZIP_SUCCESS);
        }
        void* memory = nullptr;
        std::uint32_t length = 0;
        ASSERT_EQ(ZipGetMemory(made, &memory, &length), ZIP_SUCCESS);
        const std::string_view end(static_cast<const char*>(memory) + length - 98, 98);

        const CZipClosing zip(OpenZip(memory, length, nullptr));
        ZIPENTRY total{};
        int index = -1;
        EXPECT_EQ(GetZipItem(zip, -1, &total), ZIP_SUCCESS);
        EXPECT_EQ(total.index, count);
        EXPECT_EQ(FindZipItem(zip, u"65533/", true, &index, nullptr), ZIP_SUCCESS);
        EXPECT_EQ(index, 65'533);
        EXPECT_EQ(end.starts_with("PK\x06\x06"), count >= 65'535);
        EXPECT_EQ(CloseZipZ(made), ZIP_SUCCESS);
    }
}

TEST(ZipLargeTest, SixteenBitMarkWithoutARecordIsACount)
{
    CRawZip zip;
    for (int i = 0; i < 65'535; ++i)
        zip.m_Entries.push_back({.m_Name = "f/", .m_Data = ""});
    const std::string bytes = BuildRawZip(zip); // as programs without Zip64 write it
    const CZipClosing opened(OpenBytes(bytes));
    ZIPENTRY total{};

    EXPECT_EQ(GetZipItem(opened, -1, &total), ZIP_SUCCESS);

    EXPECT_EQ(total.index, 65'535);
}

} // namespace utility
