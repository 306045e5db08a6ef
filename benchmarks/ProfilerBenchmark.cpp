#include "frame/AppProfiler.h"
#include "frame/Application.h"
#include "settings/AppRegistry.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

using namespace utility;

// A region while the profiler is off, and an inner one while it measures, beside two bare looks at
// the clock.

namespace
{

/// Settings of this program's own, gone with it.
class CProfiledHost
{
public:
    CProfiledHost() : m_Folder("/dev/shm/profiler-benchmark-" + std::to_string(getpid()))
    {
        setenv("UTILITY_SETTINGS_DIR", m_Folder.c_str(), 1);
        CApplication::SetCompanyName(u"Makers");
        CApplication::SetRegistryName(u"Benchmark");
        CAppRegistry(u"Application\\Profiler").SetValue(u"Profiling", 1000);
    }
    ~CProfiledHost()
    {
        CAppProfiler::Stop();
        std::error_code ignored;
        std::filesystem::remove_all(m_Folder, ignored);
    }

private:
    std::string m_Folder;
};

void InnerRegion(benchmark::State& state)
{
    static const CProfiledHost host;
    CAppProfiler::Start();
    if (!CAppProfiler::IsStarted())
        return state.SkipWithError("the settings cannot be stored");
    static int outer = 0;
    static int inner = 0;
    CAppProfiler::Begin(u"Outer", outer);
    for (auto _ : state)
    {
        CAppProfiler::Begin(u"Inner", inner);
        CAppProfiler::End(inner);
    }
    CAppProfiler::End(outer);
    CAppProfiler::Stop();
}

void RegionWhileOff(benchmark::State& state)
{
    CAppProfiler::Stop();
    static int id = 0;
    for (auto _ : state)
    {
        CAppProfiler::Begin(u"Region", id);
        CAppProfiler::End(id);
        benchmark::ClobberMemory();
    }
}

void TwoLooksAtTheClock(benchmark::State& state)
{
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(std::chrono::system_clock::now());
        benchmark::DoNotOptimize(std::chrono::system_clock::now());
    }
}

BENCHMARK(InnerRegion)->Name("profiler, inner region/ours");
BENCHMARK(TwoLooksAtTheClock)->Name("profiler, inner region/two bare clocks");
BENCHMARK(RegionWhileOff)->Name("profiler off/ours");

} // namespace
