#include "text/match/StringCompare.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace utility;

// A stable sort of 100,000 designators, beside the system's comparison of version texts.

namespace
{

std::vector<std::string> MakeDesignators()
{
    const char* const stems[] = {"R", "C", "U", "IC", "CON", "TP", "R1_", "L"};
    std::mt19937 random(1);
    std::vector<std::string> designators;
    while (designators.size() < 100'000)
        designators.push_back(stems[random() % 8] + std::to_string(random() % 20'000));
    return designators;
}

/// Of pointers to texts, each of which stands by itself as texts of the library do.
template <typename TUnit, typename TLess>
void SortAll(benchmark::State& state, const std::vector<std::unique_ptr<TUnit[]>>& texts,
             TLess less)
{
    for (auto _ : state)
    {
        std::vector<const TUnit*> order;
        for (const auto& text : texts)
            order.push_back(text.get());
        std::stable_sort(order.begin(), order.end(), less);
        benchmark::DoNotOptimize(order.data());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * texts.size()));
}

template <typename TUnit>
std::vector<std::unique_ptr<TUnit[]>> CopyDesignators()
{
    std::vector<std::unique_ptr<TUnit[]>> texts;
    for (const std::string& text : MakeDesignators())
    {
        texts.push_back(std::make_unique<TUnit[]>(text.size() + 1));
        std::copy(text.begin(), text.end(), texts.back().get());
    }
    return texts;
}

void BM_StringCompare(benchmark::State& state)
{
    SortAll(state, CopyDesignators<char16_t>(),
            [](const char16_t* left, const char16_t* right)
            { return StringCompare(left, right, false, true, true) < 0; });
}

void BM_VersionCompare(benchmark::State& state)
{
    SortAll(state, CopyDesignators<char>(),
            [](const char* left, const char* right) { return strverscmp(left, right) < 0; });
}

} // namespace

BENCHMARK(BM_StringCompare)->Name("sort designators/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_VersionCompare)->Name("sort designators/strverscmp")->Unit(benchmark::kMillisecond);
