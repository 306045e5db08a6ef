#include "text/names/NameRange.h"

#include "platform/base/Encoding.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

using namespace utility;

// Names of a large schematic, beside the standard library's sets of the single names.

namespace
{

constexpr int ITEMS = 10'000;
constexpr int DESIGNATORS = 100'000;
const char16_t* const STEMS[] = {u"R", u"C", u"U", u"IC", u"CON", u"TP", u"L", u"D"};

/// Stem by stem, numbers from 1 up by `step`.
std::vector<CString> MakeNames(int count, int step)
{
    constexpr int KINDS = std::size(STEMS);
    std::vector<CString> names;
    for (int index = 0; index < count; ++index)
    {
        CString name;
        name.Format(u"%s%d", STEMS[index * std::int64_t{KINDS} / count],
                    1 + index % (count / KINDS) * step);
        names.push_back(name);
    }
    return names;
}

std::vector<CString> Shuffled(std::vector<CString> names)
{
    std::mt19937 random(1);
    std::shuffle(names.begin(), names.end(), random);
    return names;
}

CString Joined(const std::vector<CString>& names)
{
    CString text;
    for (const CString& name : names)
    {
        if (!text.IsEmpty())
            text += u',';
        text += name;
    }
    return text;
}

std::vector<std::u16string> Units(const std::vector<CString>& names)
{
    std::vector<std::u16string> units;
    for (const CString& name : names)
        units.emplace_back(name.View());
    return units;
}

// Every other number is there, so each name is an item and half the questions miss.
void BM_Contains(benchmark::State& state)
{
    CNameRange range;
    range.SetString(Joined(MakeNames(ITEMS, 2)));
    const std::vector<CString> questions = Shuffled(MakeNames(2 * ITEMS, 1));
    std::size_t index = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(range.Contains(questions[index]));
        index = index + 1 < questions.size() ? index + 1 : 0;
    }
}

template <typename TSet>
void BM_ContainsOfSet(benchmark::State& state)
{
    const auto names = Units(MakeNames(ITEMS, 2));
    const TSet set(names.begin(), names.end());
    const auto questions = Units(Shuffled(MakeNames(2 * ITEMS, 1)));
    std::size_t index = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(set.count(questions[index]));
        index = index + 1 < questions.size() ? index + 1 : 0;
    }
}

std::vector<CString> Designators(bool inOrder)
{
    std::vector<CString> names = MakeNames(DESIGNATORS, 1);
    return inOrder ? names : Shuffled(std::move(names));
}

template <bool IN_ORDER>
void BM_Add(benchmark::State& state)
{
    const std::vector<CString> names = Designators(IN_ORDER);
    for (auto _ : state)
    {
        CNameRange range;
        for (const CString& name : names)
            range.Add(name);
        benchmark::DoNotOptimize(range.GetItemCount());
    }
}

template <bool IN_ORDER>
void BM_AddText(benchmark::State& state)
{
    const CString text = Joined(Designators(IN_ORDER));
    for (auto _ : state)
    {
        CNameRange range;
        range.Add(text);
        benchmark::DoNotOptimize(range.GetItemCount());
    }
}

template <typename TSet, bool IN_ORDER>
void BM_AddToSet(benchmark::State& state)
{
    const auto names = Units(Designators(IN_ORDER));
    for (auto _ : state)
    {
        TSet set;
        for (const std::u16string& name : names)
            set.insert(name);
        benchmark::DoNotOptimize(set.size());
    }
}

void BM_Delete(benchmark::State& state)
{
    const CString text = Joined(Designators(true));
    const std::vector<CString> names = Designators(false);
    for (auto _ : state)
    {
        CNameRange range;
        range.Add(text);
        for (const CString& name : names)
            range.Delete(name);
        benchmark::DoNotOptimize(range.GetItemCount());
    }
}

using CTree = std::set<std::u16string>;
using CTable = std::unordered_set<std::u16string>;

} // namespace

BENCHMARK(BM_Contains)->Name("name in 10000 items/ours");
BENCHMARK(BM_ContainsOfSet<CTree>)->Name("name in 10000 items/set");
BENCHMARK(BM_ContainsOfSet<CTable>)->Name("name in 10000 items/unordered_set");
BENCHMARK(BM_Add<true>)->Name("add 100000 in order/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddToSet<CTree, true>)->Name("add 100000 in order/set")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddToSet<CTable, true>)
    ->Name("add 100000 in order/unordered_set")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Add<false>)->Name("add 100000 shuffled/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddToSet<CTree, false>)
    ->Name("add 100000 shuffled/set")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddToSet<CTable, false>)
    ->Name("add 100000 shuffled/unordered_set")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddText<true>)
    ->Name("add a text of 100000 in order/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddText<false>)
    ->Name("add a text of 100000 shuffled/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Delete)->Name("add and delete 100000 shuffled/ours")->Unit(benchmark::kMillisecond);
