#include "files/zip/ZipFixture.h"

#include "support/HostileZips.h"
#include "support/PeakMemory.h"

namespace utility
{

namespace
{

constexpr std::uintmax_t LARGE = 32U << 20U;
constexpr unsigned PIECE = 64 * 1024;

bool PackLarge(const CTemporaryFolder& folder, const char16_t* name)
{
    const HZIP zip = CreateZip(folder.PathOf(u"a.zip"), nullptr);
    const bool isAdded = ZipAdd(zip, name, folder.PathOf(u"large")) == ZIP_SUCCESS;
    return CloseZipZ(zip) == ZIP_SUCCESS && isAdded;
}

bool UnpackLarge(const CTemporaryFolder& folder)
{
    const CZipClosing zip(OpenZip(folder.PathOf(u"a.zip"), nullptr));
    return UnzipItem(zip, 0, folder.PathOf(u"out")) == ZIP_SUCCESS;
}

/// All that a program may do with an archive, whatever it is.
void UseZip(const std::string& bytes)
{
    const CZipClosing zip(OpenBytes(bytes, "secret"));
    ZIPENTRY entry{};
    std::vector<char> buffer(PIECE);
    for (int index = 0; GetZipItem(zip, index, &entry) == ZIP_SUCCESS; ++index)
    {
        FindZipItem(zip, entry.name, true, nullptr, nullptr);
        while (UnzipItem(zip, index, buffer.data(), PIECE) == ZIP_MORE)
        {
        }
    }
}

} // namespace

TEST(ZipMemoryTest, MemoryDoesNotGrowWithTheData)
{
    for (const char16_t* name : {u"deflated", u"stored.gz"})
    {
        SCOPED_TRACE(CString(name).GetLength());
        const CTemporaryFolder folder;
        folder.MakeFile(u"large");
        std::filesystem::resize_file(folder.GetNativePath() / "large", LARGE);

        EXPECT_LE(PeakMegabytes([&] { return PackLarge(folder, name); }), 8);
        EXPECT_LE(PeakMegabytes([&] { return UnpackLarge(folder); }), 8);
        EXPECT_EQ(std::filesystem::file_size(folder.GetNativePath() / "out"), LARGE);
    }
}

TEST(ZipMemoryTest, NoHostileArchiveTakesMoreThanItsBytes)
{
    const std::vector<CHostileZip> zips = HostileZips();
    const int cost = PeakMegabytes(
        [&]
        {
            for (const CHostileZip& each : zips)
                UseZip(each.m_Bytes);
            return true;
        });

    EXPECT_LE(cost, 32);
}

} // namespace utility
