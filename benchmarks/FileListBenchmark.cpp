#include "files/AutoFileList.h"
#include "files/FileFinder.h"
#include "platform/system/file/NativePath.h"

#include <benchmark/benchmark.h>

#include <dirent.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace utility;

// A folder of 50,000 libraries, one in ten of them a backup copy: what a list costs beside a bare
// loop that reads the folder and asks for the status of each entry.

namespace
{

constexpr int FILE_COUNT = 50'000;

/// Made at the first use and gone with the process.
class CLibraryFolder
{
public:
    CLibraryFolder()
        : m_Path(std::filesystem::temp_directory_path() /
                 ("utility-libraries-" + std::to_string(getpid())))
    {
        std::filesystem::create_directory(m_Path);
        for (int i = 0; i < FILE_COUNT; ++i)
        {
            const std::string prefix = i % 10 == 0 ? "Backup Copy of " : "";
            std::ofstream(m_Path /
                          (prefix + "part" + std::to_string(i * 7919 % FILE_COUNT) + ".lib"));
        }
    }
    ~CLibraryFolder() { std::filesystem::remove_all(m_Path); }

    const std::string& GetNative() const { return m_Path.native(); }
    CString GetClassic() const { return ClassicPath(m_Path.native()); }

private:
    std::filesystem::path m_Path;
};

const CLibraryFolder& Libraries()
{
    static const CLibraryFolder folder;
    return folder;
}

void BM_Loop(benchmark::State& state)
{
    const std::string folder = Libraries().GetNative() + "/";
    for (auto _ : state)
    {
        DIR* const entries = opendir(folder.c_str());
        std::int64_t bytes = 0;
        while (const dirent* entry = readdir(entries))
        {
            struct stat status = {};
            if (stat((folder + entry->d_name).c_str(), &status) == 0)
                bytes += status.st_size;
        }
        closedir(entries);
        benchmark::DoNotOptimize(bytes);
    }
}

void BM_Finder(benchmark::State& state)
{
    const CString pattern = Libraries().GetClassic() + u"\\*.lib";
    for (auto _ : state)
    {
        int count = 0;
        CFileFinder find(pattern);
        for (bool more = find.FirstFile(); more; more = find.NextFile())
            ++count;
        benchmark::DoNotOptimize(count);
    }
}

void BM_Refresh(benchmark::State& state)
{
    CAutoFileList list;
    list.Init(nullptr, u"lib", u"");
    list.AddDir(Libraries().GetClassic());
    for (auto _ : state)
    {
        list.RefreshFiles(true);
        benchmark::DoNotOptimize(list.GetCount());
    }
}

} // namespace

BENCHMARK(BM_Finder)->Name("walk 50,000 files/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Loop)->Name("walk 50,000 files/readdir and stat")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Refresh)->Name("list 50,000 files/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Loop)->Name("list 50,000 files/readdir and stat")->Unit(benchmark::kMillisecond);
