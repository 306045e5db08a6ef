#include "files/encoded/StdioFileEx.h"
#include "platform/base/Encoding.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <iconv.h>
#include <string>
#include <unistd.h>

using namespace utility;

// A report of 20 MB on a memory disk, line by line: ours makes UTF-16 texts of its lines and back,
// the peers move bytes (std::getline, std::ofstream), or do the same by the system's converter a
// line.

namespace
{

constexpr std::size_t SIZE = 20'000'000;
constexpr char LINE[] = "R1,10k,Resistor 0603 1%,\xC2\xB1 100 ppm,Farnell 9331000,in stock";

class CReport
{
public:
    CReport() : m_Path("/dev/shm/encoded-text-benchmark-" + std::to_string(getpid()))
    {
        std::ofstream file(m_Path, std::ios::binary);
        for (std::size_t size = 0; size < SIZE; size += sizeof LINE + 1)
            file << LINE << "\r\n";
    }
    ~CReport() { unlink(m_Path.c_str()); }
    CReport(const CReport&) = delete;
    CReport& operator=(const CReport&) = delete;

    const std::string& GetPath() const { return m_Path; }

private:
    std::string m_Path;
};

void ReportBytes(benchmark::State& state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * SIZE));
}

void ReadLines(benchmark::State& state)
{
    const CReport report;
    const CString path = FromUtf8(report.GetPath());
    for (auto _ : state)
    {
        CStdioFileEx file(path, CFile::modeRead | CStdioFileEx::modeReadUTF8);
        CString line;
        while (file.ReadString(line))
            benchmark::DoNotOptimize(line.GetString());
    }
    ReportBytes(state);
}
BENCHMARK(ReadLines)->Name("EncodedTextRead/ours");

void ReadLinesByGetline(benchmark::State& state)
{
    const CReport report;
    for (auto _ : state)
    {
        std::ifstream file(report.GetPath(), std::ios::binary);
        std::string line;
        while (std::getline(file, line))
            benchmark::DoNotOptimize(line.data());
    }
    ReportBytes(state);
}
BENCHMARK(ReadLinesByGetline)->Name("EncodedTextRead/getline-bytes");

void ReadLinesByGetlineAndIconv(benchmark::State& state)
{
    const CReport report;
    const iconv_t converter = iconv_open("UTF-16LE", "UTF-8");
    std::u16string units(4096, u'\0');
    for (auto _ : state)
    {
        std::ifstream file(report.GetPath(), std::ios::binary);
        std::string line;
        while (std::getline(file, line))
        {
            char* in = line.data();
            std::size_t left = line.size();
            char* out = reinterpret_cast<char*>(units.data());
            std::size_t room = units.size() * sizeof(char16_t);
            benchmark::DoNotOptimize(iconv(converter, &in, &left, &out, &room));
        }
    }
    iconv_close(converter);
    ReportBytes(state);
}
BENCHMARK(ReadLinesByGetlineAndIconv)->Name("EncodedTextRead/getline-iconv");

void WriteLines(benchmark::State& state)
{
    const CReport report;
    const CString path = FromUtf8(report.GetPath());
    const CString line = FromUtf8(std::string(LINE) + "\n");
    for (auto _ : state)
    {
        CStdioFileEx file(path, CFile::modeCreate | CFile::modeWrite | CStdioFileEx::modeReadUTF8);
        for (std::size_t size = 0; size < SIZE; size += sizeof LINE + 1)
            file.WriteString(line);
        file.Close();
    }
    ReportBytes(state);
}
BENCHMARK(WriteLines)->Name("EncodedTextWrite/ours");

void WriteLinesByStream(benchmark::State& state)
{
    const CReport report;
    const std::string line = std::string(LINE) + "\r\n";
    for (auto _ : state)
    {
        std::ofstream file(report.GetPath(), std::ios::binary);
        for (std::size_t size = 0; size < SIZE; size += sizeof LINE + 1)
            file << line;
    }
    ReportBytes(state);
}
BENCHMARK(WriteLinesByStream)->Name("EncodedTextWrite/ofstream-bytes");

} // namespace
