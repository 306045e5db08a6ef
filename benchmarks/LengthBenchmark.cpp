#include "platform/base/Encoding.h"
#include "text/numbers/LengthUnit.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

using namespace utility;

// One typed length read into millimetres and shown again, beside the C library's reader and
// printer with a table of factors.

namespace
{

const std::vector<std::string>& Lengths()
{
    static const std::vector<std::string> LENGTHS = {"5 mm",    "1.27",    "0.1 inch", "25 thou",
                                                     "-12.7mm", "3.5 cm",  "100 um",   "0.5\"",
                                                     "62 mil",  "1.6e1mm", "254",      "0.012 m"};
    return LENGTHS;
}

void BM_Length(benchmark::State& state)
{
    std::vector<CString> texts;
    for (const std::string& text : Lengths())
        texts.push_back(FromUtf8(text));
    const CLengthUnit unit(EBaseLengthUnit::Millimetre, 1.0, false, true);
    std::size_t index = 0;
    for (auto _ : state)
    {
        double value = 0;
        CLengthUnit::ReadLengthValue(unit, unit, texts[index], value);
        benchmark::DoNotOptimize(unit.Convert(value));
        index = (index + 1) % texts.size();
    }
}

double FactorOf(const char* name)
{
    static constexpr struct
    {
        const char* m_Name;
        double m_Millimetres;
    } ROWS[] = {{"mm", 1},  {"inch", 25.4}, {"\"", 25.4}, {"thou", 0.0254},
                {"cm", 10}, {"um", 0.001},  {"m", 1000},  {"mil", 0.0254}};
    name += std::strspn(name, " ");
    for (const auto& row : ROWS)
    {
        if (std::strcmp(name, row.m_Name) == 0)
            return row.m_Millimetres;
    }
    return 1;
}

void BM_CLibrary(benchmark::State& state)
{
    std::size_t index = 0;
    for (auto _ : state)
    {
        char* end = nullptr;
        const double number = std::strtod(Lengths()[index].c_str(), &end);
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), "%.*f", 3, number * FactorOf(end));
        benchmark::DoNotOptimize(text);
        index = (index + 1) % Lengths().size();
    }
}

} // namespace

BENCHMARK(BM_Length)->Name("length read and shown/ours");
BENCHMARK(BM_CLibrary)->Name("length read and shown/strtod and snprintf");
