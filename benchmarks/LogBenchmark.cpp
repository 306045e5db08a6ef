#include "frame/AppLog.h"
#include "frame/Application.h"
#include "platform/system/file/NativePath.h"
#include "settings/AppRegistry.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace utility;

// A trace while the log is off, and a line that is on disk before the call returns, beside the two
// ways of the standard library that give a line to the system at once.

namespace
{

/// Settings, documents and peers' files in a folder of their own.
class CBenchmarkFolder
{
public:
    CBenchmarkFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "utility-log-XXXXXX").string();
        m_Folder = mkdtemp(name.data());
        setenv("UTILITY_SETTINGS_DIR", m_Folder.c_str(), 1);
        setenv("HOME", m_Folder.c_str(), 1);
        unsetenv("XDG_CONFIG_HOME");
        CApplication::SetCompanyName(u"Makers");
        CApplication::SetProductName(u"Log Benchmark");
    }
    ~CBenchmarkFolder() { std::filesystem::remove_all(m_Folder); }

    std::string NameOf(const char* name) const { return (m_Folder / name).string(); }

private:
    std::filesystem::path m_Folder;
};

const CBenchmarkFolder& Folder()
{
    static const CBenchmarkFolder folder;
    return folder;
}

void TraceOff(benchmark::State& state)
{
    const CAppLogContext context(u"Benchmark", 0);
    int number = 0;
    for (auto _ : state)
    {
        CAppLog::LogStr(context, u"trace %d of %s\n", number, u"a part");
        benchmark::DoNotOptimize(++number);
    }
}

void StartLog()
{
    Folder();
    CAppRegistry settings(u"Application");
    settings.SetValue(u"Logging", 1);
    settings.SetValue(u"LoggingContext", u"Benchmark");
    CAppLog::Start();
}

void Line(benchmark::State& state)
{
    StartLog();
    const CAppLogContext context(u"Benchmark", 0);
    int number = 0;
    for (auto _ : state)
        CAppLog::LogStr(context, u"line %d of a log with some forty units\n", ++number);
    std::filesystem::resize_file(DiskPathBytes(CAppLog::GetLogPath()), 0);
}

void LineByFprintf(benchmark::State& state)
{
    std::FILE* file = std::fopen(Folder().NameOf("fprintf.log").c_str(), "a");
    int number = 0;
    for (auto _ : state)
    {
        std::fprintf(file, "line %d of a log with some forty units\r\n", ++number);
        std::fflush(file);
    }
    std::fclose(file);
}

void LineByStream(benchmark::State& state)
{
    std::ofstream file(Folder().NameOf("stream.log"), std::ios::app);
    int number = 0;
    for (auto _ : state)
        file << "line " << ++number << " of a log with some forty units\r\n" << std::flush;
}

/// What "opened for each line" costs when it is meant literally.
void LineByReopening(benchmark::State& state)
{
    const std::string name = Folder().NameOf("reopened.log");
    int number = 0;
    for (auto _ : state)
    {
        std::FILE* file = std::fopen(name.c_str(), "a");
        std::fprintf(file, "line %d of a log with some forty units\r\n", ++number);
        std::fclose(file);
    }
}

// In this order: the log, once started, stays on.
BENCHMARK(TraceOff)->Name("TraceOff/ours");
BENCHMARK(Line)->Name("LogLine/ours");
BENCHMARK(LineByFprintf)->Name("LogLine/fprintf-fflush");
BENCHMARK(LineByStream)->Name("LogLine/ofstream-flush");
BENCHMARK(LineByReopening)->Name("LogLine/fopen-fclose");

} // namespace
