#include "files/zip/ZipFixture.h"

#include "support/ChildProcess.h"
#include "support/RawZip.h"

#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr rlim_t SPARE = 32U << 20U;
constexpr std::uint64_t CLAIMED_ENTRIES = 1U << 20U; // whose records take more than that

/// Leaves this process little more memory than it has.
bool LimitMemory()
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = pages * static_cast<rlim_t>(getpagesize()) + SPARE;
    const rlimit limits = {limit, limit};
    return setrlimit(RLIMIT_AS, &limits) == 0;
}

/// An archive whose directory has room for as many entries as it claims.
CString MakeLargeDirectory(const CTemporaryFolder& folder)
{
    const std::uint64_t size = CLAIMED_ENTRIES * 64;
    const CString path = folder.MakeFile(u"a.zip", "PK\x01\x02");
    const std::filesystem::path native = folder.GetNativePath() / "a.zip";
    std::filesystem::resize_file(native, size);
    std::ofstream(native, std::ios::binary | std::ios::app)
        << RawLargeEnd(CLAIMED_ENTRIES, size, 0, size)
        << BuildRawZip({.m_Count = 0xFFFF, .m_DirectorySize = 0xFFFFFFFF});
    return path;
}

} // namespace

TEST(ZipNoMemoryTest, BothSidesTellThatThereIsNone)
{
    const CTemporaryFolder folder;
    const CString path = MakeLargeDirectory(folder);
    const auto areRefused = [&]
    {
        return !CreateZip(nullptr, 0xFFFFFFFF, nullptr) && GetLastZipResultZ() == 0x300 &&
               LastZipTextZ() == u"Failed to allocate memory" && !OpenZip(path, nullptr) &&
               GetLastZipResultU() == 0x300 && LastZipTextU() == u"Failed to allocate memory";
    };

    CChildProcess child([&] { return LimitMemory() && areRefused() ? 0 : 1; });

    EXPECT_EQ(child.Wait(), 0);
}

} // namespace utility
