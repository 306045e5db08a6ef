#include "platform/base/Encoding.h"

#include <benchmark/benchmark.h>

#include <iconv.h>
#include <string>

using namespace utility;

// One megabyte of text in each direction, beside the system's converter in the same process.

namespace
{

constexpr std::size_t SIZE = 1 << 20;

enum EContent
{
    ASCII,   // exported lists
    LATIN,   // a letter in ten is accented
    CHINESE, // every letter has three bytes
};

std::string MakeBytes(EContent content)
{
    const std::string pieces[] = {
        "R1,10k,Resistor 0603 1%,Farnell 9331000\r\n",
        "Widerst\xC3\xA4nde f\xC3\xBCr R\xC3\xB6hrenverst\xC3\xA4rker, 10k\xCE\xA9\r\n",
        "\xE7\x94\xB5\xE9\x98\xBB\xE5\x99\xA8\xE5\x92\x8C\xE7\x94\xB5\xE5\xAE\xB9\n",
    };
    std::string bytes;
    while (bytes.size() < SIZE)
        bytes += pieces[content];
    return bytes;
}

void ReportBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

void ConvertBySystem(iconv_t converter, std::string_view source, std::string& target)
{
    char* in = const_cast<char*>(source.data());
    std::size_t left = source.size();
    char* out = target.data();
    std::size_t room = target.size();
    benchmark::DoNotOptimize(iconv(converter, &in, &left, &out, &room));
    benchmark::DoNotOptimize(target.data());
}

void RunSystem(benchmark::State& state, const char* to, const char* from, std::string_view source,
               std::size_t reported)
{
    std::string target(source.size() * 4, '\0');
    const iconv_t converter = iconv_open(to, from);
    for (auto _ : state)
        ConvertBySystem(converter, source, target);
    iconv_close(converter);
    ReportBytes(state, reported);
}

void FromUtf8Ours(benchmark::State& state, EContent content)
{
    const std::string bytes = MakeBytes(content);
    for (auto _ : state)
        benchmark::DoNotOptimize(FromUtf8(bytes));
    ReportBytes(state, bytes.size());
}

void FromUtf8Iconv(benchmark::State& state, EContent content)
{
    const std::string bytes = MakeBytes(content);
    RunSystem(state, "UTF-16LE", "UTF-8", bytes, bytes.size());
}

void ToUtf8Ours(benchmark::State& state, EContent content)
{
    const std::string bytes = MakeBytes(content);
    const CString text = FromUtf8(bytes);
    for (auto _ : state)
        benchmark::DoNotOptimize(ToUtf8(text.View()));
    ReportBytes(state, bytes.size());
}

void ToUtf8Iconv(benchmark::State& state, EContent content)
{
    const std::string bytes = MakeBytes(content);
    const CString text = FromUtf8(bytes);
    const std::string_view units(reinterpret_cast<const char*>(text.GetString()),
                                 static_cast<std::size_t>(text.GetLength()) * sizeof(char16_t));
    RunSystem(state, "UTF-8", "UTF-16LE", units, bytes.size());
}

void From1252Ours(benchmark::State& state, EContent content)
{
    const std::string bytes = ToBytes(1252, FromUtf8(MakeBytes(content)).View());
    for (auto _ : state)
        benchmark::DoNotOptimize(FromBytes(1252, bytes));
    ReportBytes(state, bytes.size());
}

void From1252Iconv(benchmark::State& state, EContent content)
{
    const std::string bytes = ToBytes(1252, FromUtf8(MakeBytes(content)).View());
    RunSystem(state, "UTF-16LE", "CP1252", bytes, bytes.size());
}

void To1252Ours(benchmark::State& state, EContent content)
{
    const CString text = FromUtf8(MakeBytes(content));
    for (auto _ : state)
        benchmark::DoNotOptimize(ToBytes(1252, text.View()));
    ReportBytes(state, static_cast<std::size_t>(text.GetLength()));
}

void To1252Iconv(benchmark::State& state, EContent content)
{
    const CString text = FromUtf8(MakeBytes(content));
    const std::string_view units(reinterpret_cast<const char*>(text.GetString()),
                                 static_cast<std::size_t>(text.GetLength()) * sizeof(char16_t));
    RunSystem(state, "CP1252//TRANSLIT", "UTF-16LE", units,
              static_cast<std::size_t>(text.GetLength()));
}

// Each content is a road of its own.
BENCHMARK_CAPTURE(FromUtf8Ours, ascii, ASCII)->Name("FromUtf8Ascii/ours");
BENCHMARK_CAPTURE(FromUtf8Iconv, ascii, ASCII)->Name("FromUtf8Ascii/iconv");
BENCHMARK_CAPTURE(FromUtf8Ours, latin, LATIN)->Name("FromUtf8Latin/ours");
BENCHMARK_CAPTURE(FromUtf8Iconv, latin, LATIN)->Name("FromUtf8Latin/iconv");
BENCHMARK_CAPTURE(FromUtf8Ours, chinese, CHINESE)->Name("FromUtf8Chinese/ours");
BENCHMARK_CAPTURE(FromUtf8Iconv, chinese, CHINESE)->Name("FromUtf8Chinese/iconv");
BENCHMARK_CAPTURE(ToUtf8Ours, ascii, ASCII)->Name("ToUtf8Ascii/ours");
BENCHMARK_CAPTURE(ToUtf8Iconv, ascii, ASCII)->Name("ToUtf8Ascii/iconv");
BENCHMARK_CAPTURE(ToUtf8Ours, latin, LATIN)->Name("ToUtf8Latin/ours");
BENCHMARK_CAPTURE(ToUtf8Iconv, latin, LATIN)->Name("ToUtf8Latin/iconv");
BENCHMARK_CAPTURE(ToUtf8Ours, chinese, CHINESE)->Name("ToUtf8Chinese/ours");
BENCHMARK_CAPTURE(ToUtf8Iconv, chinese, CHINESE)->Name("ToUtf8Chinese/iconv");
BENCHMARK_CAPTURE(From1252Ours, ascii, ASCII)->Name("From1252Ascii/ours");
BENCHMARK_CAPTURE(From1252Iconv, ascii, ASCII)->Name("From1252Ascii/iconv");
BENCHMARK_CAPTURE(From1252Ours, latin, LATIN)->Name("From1252Latin/ours");
BENCHMARK_CAPTURE(From1252Iconv, latin, LATIN)->Name("From1252Latin/iconv");
BENCHMARK_CAPTURE(To1252Ours, ascii, ASCII)->Name("To1252Ascii/ours");
BENCHMARK_CAPTURE(To1252Iconv, ascii, ASCII)->Name("To1252Ascii/iconv");
BENCHMARK_CAPTURE(To1252Ours, latin, LATIN)->Name("To1252Latin/ours");
BENCHMARK_CAPTURE(To1252Iconv, latin, LATIN)->Name("To1252Latin/iconv");

} // namespace
