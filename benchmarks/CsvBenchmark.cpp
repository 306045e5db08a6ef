#include "files/BreakCSV.h"
#include "files/CsvFileRowMap.h"
#include "files/CsvReader.h"
#include "platform/base/Encoding.h"

#include <benchmark/benchmark.h>

#include <array>
#include <csv.h>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

using namespace utility;

// A list of parts as distributors send it, 8 columns, some in quotes. Peer: libcsv, which gives
// each field's bytes to a callback; here they are put into texts as ours are, and once left as they
// are.

namespace
{

constexpr int ROWS = 100000;
constexpr int COLUMNS = 8;

/// The file, made once; removed with the process.
class CPartsFile
{
public:
    CPartsFile() : m_Path("/dev/shm/csv-benchmark-" + std::to_string(getpid()))
    {
        std::ofstream file(m_Path, std::ios::binary);
        file << "Part,Maker,Value,Package,Stock,Price,Description,Link\r\n";
        for (int row = 0; row < ROWS; ++row)
            file << "RC0603FR-" << row << ",Makers Ltd," << row % 977
                 << "k,0603,120000,0.0123,\"Chip resistor, 1 %, 0.1 W\",https://parts.example/"
                 << row << "\r\n";
        m_Size = file.tellp();
    }
    ~CPartsFile() { unlink(m_Path.c_str()); }

    CString GetPath() const { return FromUtf8(m_Path); }
    const std::string& GetNative() const { return m_Path; }
    std::int64_t GetSize() const { return m_Size; }

private:
    std::string m_Path;
    std::int64_t m_Size = 0;
};

const CPartsFile& Parts()
{
    static const CPartsFile file;
    return file;
}

void SetBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * Parts().GetSize());
}

void ReadByReader(benchmark::State& state)
{
    const CString path = Parts().GetPath();
    for (auto _ : state)
    {
        CCsvReader reader(path, CFile::modeRead);
        int fields = 0;
        for (int count = reader.NextLine(); count >= 0; count = reader.NextLine())
            fields += count;
        if (fields != (ROWS + 1) * COLUMNS)
            return state.SkipWithError("fields are missing");
    }
    SetBytes(state);
}

void ReadByLineForm(benchmark::State& state)
{
    const CString path = Parts().GetPath();
    std::array<CString, COLUMNS + 1> texts;
    for (auto _ : state)
    {
        CStdioFile file(path, CFile::modeRead | CFile::typeText);
        int fields = 0;
        for (CString line; file.ReadString(line);)
            fields += BreakCSV(line, texts.data(), COLUMNS, u',');
        if (fields != (ROWS + 1) * COLUMNS)
            return state.SkipWithError("fields are missing");
    }
    SetBytes(state);
}

void LoadByFileForm(benchmark::State& state)
{
    const CString path = Parts().GetPath();
    for (auto _ : state)
    {
        CStringArray header;
        CCsvFileRowMap rows;
        if (BreakCSV(path, header, rows, u',') != COLUMNS || rows.GetCount() != ROWS)
            return state.SkipWithError("rows are missing");
    }
    SetBytes(state);
}

struct CPeerFields
{
    std::array<CString, COLUMNS> m_Texts;
    std::size_t m_Count = 0;
    int m_Total = 0;
};

void TakeText(void* bytes, std::size_t size, void* context)
{
    CPeerFields& fields = *static_cast<CPeerFields*>(context);
    fields.m_Texts[fields.m_Count++ % COLUMNS] =
        FromUtf8(std::string_view(static_cast<const char*>(bytes), size));
    ++fields.m_Total;
}

void TakeBytes(void* bytes, std::size_t, void* context)
{
    benchmark::DoNotOptimize(bytes);
    ++static_cast<CPeerFields*>(context)->m_Total;
}

void EndRow(int, void* context)
{
    static_cast<CPeerFields*>(context)->m_Count = 0;
}

template <void (*Take)(void*, std::size_t, void*)>
void ReadByPeer(benchmark::State& state)
{
    std::vector<char> block(65536);
    for (auto _ : state)
    {
        csv_parser parser;
        csv_init(&parser, CSV_APPEND_NULL);
        CPeerFields fields;
        std::ifstream file(Parts().GetNative(), std::ios::binary);
        while (file.read(block.data(), static_cast<std::streamsize>(block.size())),
               file.gcount() > 0)
            csv_parse(&parser, block.data(), static_cast<std::size_t>(file.gcount()), Take, EndRow,
                      &fields);
        csv_fini(&parser, Take, EndRow, &fields);
        csv_free(&parser);
        if (fields.m_Total != (ROWS + 1) * COLUMNS)
            return state.SkipWithError("fields are missing");
    }
    SetBytes(state);
}

BENCHMARK(ReadByReader)->Name("csv reader/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByPeer<TakeText>)
    ->Name("csv reader/libcsv into texts")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByPeer<TakeBytes>)
    ->Name("csv reader/libcsv, bytes alone")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByLineForm)->Name("csv line/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByPeer<TakeText>)->Name("csv line/libcsv into texts")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadByFileForm)->Name("csv file by key/ours")->Unit(benchmark::kMillisecond);

} // namespace
