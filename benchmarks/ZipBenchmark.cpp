#include "files/zip/ZipCreate.h"
#include "files/zip/ZipOpen.h"
#include "files/zip/ZipResult.h"

#include <benchmark/benchmark.h>
#include <zlib.h>

#include <string>
#include <vector>
#include <zip.h>

using namespace utility;

// One entry of 16 MB packed and unpacked in memory, beside a bare loop over zlib at the same level
// that also takes the CRC, and beside libzip. Then the directory of 20,000 entries.

namespace
{

constexpr std::size_t CONTENT_SIZE = std::size_t{16} << 20U;
constexpr std::size_t PIECE = 64 * 1024;
constexpr int LEVEL = Z_DEFAULT_COMPRESSION; // 6, as libzip is told below
constexpr int PEER_LEVEL = 6;
constexpr int RAW_WINDOW_BITS = -15;
constexpr int ENTRY_COUNT = 20'000;

/// Text like that of a board: repeated words, numbers that differ.
const std::string& Content()
{
    static const std::string content = []
    {
        std::string text;
        unsigned seed = 1;
        const auto number = [&](unsigned limit)
        {
            seed = seed * 1103515245U + 12345U;
            return std::to_string((seed >> 8U) % limit);
        };
        while (text.size() < CONTENT_SIZE)
            text += "  (segment (start " + number(300) + "." + number(10000) + " " + number(200) +
                    "." + number(10000) + ") (width 0.25) (layer F.Cu) (net " + number(900) +
                    "))\n";
        text.resize(CONTENT_SIZE);
        return text;
    }();
    return content;
}

std::vector<char>& Block()
{
    static std::vector<char> block(2 * CONTENT_SIZE);
    return block;
}

/// Archive of that content, made by us.
std::string MakeArchive(const char16_t* password = nullptr)
{
    const HZIP zip = CreateZip(Block().data(), static_cast<unsigned>(Block().size()), password);
    ZipAdd(zip, u"board.pcb", Content().data(), static_cast<unsigned>(CONTENT_SIZE));
    void* memory = nullptr;
    std::uint32_t length = 0;
    ZipGetMemory(zip, &memory, &length);
    std::string bytes(static_cast<const char*>(memory), length);
    CloseZipZ(zip);
    return bytes;
}

const std::string& Archive()
{
    static const std::string archive = MakeArchive();
    return archive;
}

void SetBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(CONTENT_SIZE));
}

void Create(benchmark::State& state)
{
    for (auto _ : state)
    {
        const HZIP zip = CreateZip(Block().data(), static_cast<unsigned>(Block().size()), nullptr);
        if (ZipAdd(zip, u"board.pcb", Content().data(), static_cast<unsigned>(CONTENT_SIZE)) !=
            ZIP_SUCCESS)
            state.SkipWithError("not added");
        CloseZipZ(zip);
    }
    SetBytes(state);
}

void CreateByZlib(benchmark::State& state)
{
    for (auto _ : state)
    {
        z_stream zlib{};
        deflateInit2(&zlib, LEVEL, Z_DEFLATED, RAW_WINDOW_BITS, 8, Z_DEFAULT_STRATEGY);
        zlib.next_out = reinterpret_cast<Bytef*>(Block().data());
        zlib.avail_out = static_cast<uInt>(Block().size());
        uLong crc = 0;
        for (std::size_t place = 0; place < CONTENT_SIZE; place += PIECE)
        {
            const auto* piece = reinterpret_cast<const Bytef*>(Content().data() + place);
            crc = crc32_z(crc, piece, PIECE);
            zlib.next_in = const_cast<Bytef*>(piece);
            zlib.avail_in = PIECE;
            deflate(&zlib, place + PIECE < CONTENT_SIZE ? Z_NO_FLUSH : Z_FINISH);
        }
        benchmark::DoNotOptimize(crc);
        deflateEnd(&zlib);
    }
    SetBytes(state);
}

void CreateByLibzip(benchmark::State& state)
{
    for (auto _ : state)
    {
        zip_error_t error{};
        zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, &error);
        zip_source_keep(target);
        zip_t* zip = zip_open_from_source(target, ZIP_TRUNCATE, &error);
        zip_source_t* source = zip_source_buffer(zip, Content().data(), CONTENT_SIZE, 0);
        const zip_int64_t index = zip_file_add(zip, "board.pcb", source, 0);
        zip_set_file_compression(zip, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, PEER_LEVEL);
        if (zip_close(zip) != 0)
            state.SkipWithError("not added");
        zip_source_free(target);
    }
    SetBytes(state);
}

void Read(benchmark::State& state)
{
    const HZIP zip = OpenZip(Archive().data(), static_cast<unsigned>(Archive().size()), nullptr);
    for (auto _ : state)
    {
        if (UnzipItem(zip, 0, Block().data(), static_cast<unsigned>(CONTENT_SIZE)) != ZIP_SUCCESS)
            state.SkipWithError("not unpacked");
    }
    CloseZipU(zip);
    SetBytes(state);
}

void ReadInPieces(benchmark::State& state)
{
    const HZIP zip = OpenZip(Archive().data(), static_cast<unsigned>(Archive().size()), nullptr);
    for (auto _ : state)
    {
        while (UnzipItem(zip, 0, Block().data(), PIECE) == ZIP_MORE)
            benchmark::ClobberMemory();
    }
    CloseZipU(zip);
    SetBytes(state);
}

/// So many bytes of room at a time.
template <std::size_t STEP>
void ReadByZlib(benchmark::State& state)
{
    constexpr std::size_t HEADER = 30 + 9 + 17; // and the name
    for (auto _ : state)
    {
        z_stream zlib{};
        inflateInit2(&zlib, RAW_WINDOW_BITS);
        zlib.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(Archive().data())) + HEADER;
        zlib.avail_in = static_cast<uInt>(Archive().size() - HEADER);
        uLong crc = 0;
        for (int result = Z_OK; result == Z_OK;)
        {
            auto* room = reinterpret_cast<Bytef*>(Block().data());
            zlib.next_out = room;
            zlib.avail_out = static_cast<uInt>(STEP);
            result = inflate(&zlib, Z_NO_FLUSH);
            crc = crc32_z(crc, room, STEP - zlib.avail_out);
        }
        benchmark::DoNotOptimize(crc);
        if (zlib.total_out != CONTENT_SIZE)
            state.SkipWithError("not unpacked");
        inflateEnd(&zlib);
    }
    SetBytes(state);
}

template <std::size_t STEP>
void ReadByLibzip(benchmark::State& state)
{
    zip_error_t error{};
    zip_source_t* source = zip_source_buffer_create(Archive().data(), Archive().size(), 0, &error);
    zip_t* zip = zip_open_from_source(source, ZIP_RDONLY, &error);
    for (auto _ : state)
    {
        zip_file_t* entry = zip_fopen_index(zip, 0, 0);
        while (zip_fread(entry, Block().data(), STEP) > 0)
            benchmark::ClobberMemory();
        if (zip_fclose(entry) != 0)
            state.SkipWithError("not unpacked");
    }
    zip_discard(zip);
    SetBytes(state);
}

std::u16string NameOf(int index)
{
    const std::string digits = std::to_string(index);
    return u"library/Symbols/part" + std::u16string(digits.begin(), digits.end()) + u".sym";
}

/// 20,000 small entries.
const std::string& Library()
{
    static const std::string library = []
    {
        const HZIP zip = CreateZip(Block().data(), static_cast<unsigned>(Block().size()), nullptr);
        for (int i = 0; i < ENTRY_COUNT; ++i)
            ZipAdd(zip, NameOf(i).c_str(), "part", 4);
        void* memory = nullptr;
        std::uint32_t length = 0;
        ZipGetMemory(zip, &memory, &length);
        std::string bytes(static_cast<const char*>(memory), length);
        CloseZipZ(zip);
        return bytes;
    }();
    return library;
}

void Open(benchmark::State& state)
{
    for (auto _ : state)
        CloseZipU(OpenZip(Library().data(), static_cast<unsigned>(Library().size()), nullptr));
}

void OpenByLibzip(benchmark::State& state)
{
    for (auto _ : state)
    {
        zip_error_t error{};
        zip_source_t* source =
            zip_source_buffer_create(Library().data(), Library().size(), 0, &error);
        zip_discard(zip_open_from_source(source, ZIP_RDONLY, &error));
    }
}

void OpenAndFind(benchmark::State& state)
{
    const std::u16string name = NameOf(ENTRY_COUNT - 1);
    for (auto _ : state)
    {
        const HZIP zip =
            OpenZip(Library().data(), static_cast<unsigned>(Library().size()), nullptr);
        if (FindZipItem(zip, name.c_str(), true, nullptr, nullptr) != ZIP_SUCCESS)
            state.SkipWithError("not found");
        CloseZipU(zip);
    }
}

constexpr int FIND_COUNT = 1024;

template <bool IGNORES_CASE>
void Find(benchmark::State& state)
{
    const HZIP zip = OpenZip(Library().data(), static_cast<unsigned>(Library().size()), nullptr);
    std::vector<std::u16string> names;
    for (int i = 0; i < FIND_COUNT; ++i)
        names.push_back(NameOf(i * 7919 % ENTRY_COUNT));
    std::size_t next = 0;
    for (auto _ : state)
    {
        int index = -1;
        if (FindZipItem(zip, names[next++ % FIND_COUNT].c_str(), IGNORES_CASE, &index, nullptr) !=
            ZIP_SUCCESS)
            state.SkipWithError("not found");
        benchmark::DoNotOptimize(index);
    }
    CloseZipU(zip);
}

template <zip_flags_t FLAGS>
void FindByLibzip(benchmark::State& state)
{
    zip_error_t error{};
    zip_source_t* source = zip_source_buffer_create(Library().data(), Library().size(), 0, &error);
    zip_t* zip = zip_open_from_source(source, ZIP_RDONLY, &error);
    std::vector<std::string> names;
    for (int i = 0; i < FIND_COUNT; ++i)
        names.push_back("library/Symbols/part" + std::to_string(i * 7919 % ENTRY_COUNT) + ".sym");
    std::size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(zip_name_locate(zip, names[next++ % FIND_COUNT].c_str(), FLAGS));
    zip_discard(zip);
}

BENCHMARK(Create)->Name("zip create 16 MB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(CreateByZlib)->Name("zip create 16 MB/zlib loop")->Unit(benchmark::kMillisecond);
BENCHMARK(CreateByLibzip)->Name("zip create 16 MB/libzip")->Unit(benchmark::kMillisecond);
BENCHMARK(Read)->Name("zip read 16 MB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByZlib<CONTENT_SIZE>)
    ->Name("zip read 16 MB/zlib loop")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByLibzip<CONTENT_SIZE>)->Name("zip read 16 MB/libzip")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadInPieces)->Name("zip read by 64 KB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByZlib<PIECE>)->Name("zip read by 64 KB/zlib loop")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByLibzip<PIECE>)->Name("zip read by 64 KB/libzip")->Unit(benchmark::kMillisecond);
BENCHMARK(Open)->Name("zip open 20,000/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenByLibzip)->Name("zip open 20,000/libzip")->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenAndFind)->Name("zip open and find one/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(Find<false>)->Name("zip find/ours");
BENCHMARK(FindByLibzip<0>)->Name("zip find/libzip");
BENCHMARK(Find<true>)->Name("zip find case-blind/ours");
BENCHMARK(FindByLibzip<ZIP_FL_NOCASE>)->Name("zip find case-blind/libzip");

} // namespace
