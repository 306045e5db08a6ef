#include "platform/base/Encoding.h"
#include "text/numbers/Expression.h"
#include "text/numbers/RealNumber.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

using namespace utility;

// One number a step, beside the C library's reader.

namespace
{

const std::vector<std::string>& Numbers()
{
    static const std::vector<std::string> NUMBERS = {"0",       "4700",     "3.3",       "-12.75",
                                                     "1.7e-06", "100000.5", "0.0000047", "254"};
    return NUMBERS;
}

void BM_ReadRealNumber(benchmark::State& state)
{
    std::vector<CString> texts;
    for (const std::string& text : Numbers())
        texts.push_back(FromUtf8(text));
    std::size_t index = 0;
    for (auto _ : state)
    {
        double value = 0;
        benchmark::DoNotOptimize(ReadRealNumber(value, texts[index], 0, u'.', false));
        benchmark::DoNotOptimize(value);
        index = (index + 1) % texts.size();
    }
}

void BM_Strtod(benchmark::State& state)
{
    std::size_t index = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(std::strtod(Numbers()[index].c_str(), nullptr));
        index = (index + 1) % Numbers().size();
    }
}

void BM_EvaluateExpression(benchmark::State& state)
{
    const CString text(u"2*(1+(2-3)*4)+5");
    for (auto _ : state)
    {
        double value = 0;
        benchmark::DoNotOptimize(EvaluateExpression(value, text, 0, u'.', false));
        benchmark::DoNotOptimize(value);
    }
}

} // namespace

BENCHMARK(BM_ReadRealNumber)->Name("real number/ours");
BENCHMARK(BM_Strtod)->Name("real number/strtod");
BENCHMARK(BM_EvaluateExpression)->Name("expression/ours");
