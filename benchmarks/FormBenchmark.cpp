#include "platform/base/Encoding.h"
#include "settings/form/FormExportWriter.h"
#include "settings/form/FormItem.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

using namespace utility;

// A real symbol library (Debian's kicad-symbols) read form by form, and rows of forms written.
// Peers: a bare loop that cuts the same tokens out of bytes in memory, and one that puts the same
// lines out through the C library.

namespace
{

constexpr const char* LIBRARY = "/usr/share/kicad/symbols/Device.kicad_sym";
constexpr UINT READ_AS_UTF8 = 0x4000000;

void ReportBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

std::string LibraryBytes()
{
    std::ifstream file(LIBRARY, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(file)), {});
}

std::string TemporaryPath()
{
    return "/dev/shm/form-benchmark-" + std::to_string(getpid());
}

std::size_t CountForms(CFormItem& item, CString& value)
{
    std::size_t count = 0;
    while (item.Read(value))
        ++count;
    while (CFormItem* child = item.OpenNext())
    {
        count += CountForms(*child, value);
        child->End();
    }
    return count;
}

void ReadOurs(benchmark::State& state)
{
    for (auto _ : state)
    {
        CFormImportReader reader;
        reader.AddFlags(READ_AS_UTF8);
        if (!reader.Open(FromUtf8(LIBRARY)))
            return state.SkipWithError("kicad-symbols is not installed");
        CFormItem root(&reader);
        CString value;
        benchmark::DoNotOptimize(CountForms(root, value));
    }
    ReportBytes(state, std::filesystem::file_size(LIBRARY));
}

bool EndsToken(char byte)
{
    return byte == '(' || byte == ')' || byte == ' ' || byte == '\n' || byte == '\r' ||
           byte == '\t';
}

void ReadBareTokens(benchmark::State& state)
{
    for (auto _ : state)
    {
        const std::string bytes = LibraryBytes();
        std::vector<std::string> open;
        for (std::size_t place = 0; place < bytes.size(); ++place)
        {
            if (EndsToken(bytes[place]))
                continue;
            std::size_t end = place + 1;
            if (bytes[place] == '"')
                while (bytes[end] != '"' || bytes[end - 1] == '\\')
                    ++end;
            else
                while (!EndsToken(bytes[end]))
                    ++end;
            std::string token = bytes.substr(place, end - place);
            benchmark::DoNotOptimize(token.data());
            place = end;
        }
    }
    ReportBytes(state, std::filesystem::file_size(LIBRARY));
}

constexpr int ROWS = 20000;

void WriteOurs(benchmark::State& state)
{
    const CString path = FromUtf8(TemporaryPath());
    for (auto _ : state)
    {
        CFormExportWriter writer;
        if (!writer.Open(path))
            return state.SkipWithError("no place to write");
        for (int row = 0; row < ROWS; ++row)
        {
            writer.OpenForm(u"property", u"Reference", true, true);
            writer.Form(u"id", row, true);
            writer.FormQuoted(u"value", u"Widerstandsnetzwerk, 8 Elemente", true);
            writer.Form(u"at", CPoint(row, 40), true);
            writer.CloseForm(true);
        }
        writer.Close();
    }
    ReportBytes(state, std::filesystem::file_size(TemporaryPath()));
    unlink(TemporaryPath().c_str());
}

void WriteByPrintf(benchmark::State& state)
{
    for (auto _ : state)
    {
        std::FILE* file = std::fopen(TemporaryPath().c_str(), "wb");
        for (int row = 0; row < ROWS; ++row)
        {
            std::fprintf(file, "(property \"%s\"\r\n", "Reference");
            std::fprintf(file, "  (id %d)\r\n", row);
            std::fprintf(file, "  (value \"%s\")\r\n", "Widerstandsnetzwerk, 8 Elemente");
            std::fprintf(file, "  (at %d %d)\r\n)\r\n", row, 40);
        }
        std::fclose(file);
    }
    ReportBytes(state, std::filesystem::file_size(TemporaryPath()));
    unlink(TemporaryPath().c_str());
}

BENCHMARK(ReadOurs)->Name("form read/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadBareTokens)->Name("form read/bare token loop")->Unit(benchmark::kMillisecond);
BENCHMARK(WriteOurs)->Name("form write/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(WriteByPrintf)->Name("form write/fprintf")->Unit(benchmark::kMillisecond);

} // namespace
