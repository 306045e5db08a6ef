#include "platform/base/Encoding.h"
#include "text/match/StringMatch.h"

#include <benchmark/benchmark.h>

#include <fnmatch.h>
#include <random>
#include <re2/re2.h>
#include <string>
#include <vector>

using namespace utility;

// 30,000 part names beside the system's file-name matcher and a compiled expression, one name a
// step; and the shapes that are exponential for a plain walk.

namespace
{

std::vector<std::string> MakeNames()
{
    const char* const kinds[] = {"RES", "CAP", "IND", "R", "C", "LM", "BC", "STM32F"};
    const char* const values[] = {"10k", "4k7", "100nF", "2.2u", "10K", "330", "317T"};
    const char* const cases[] = {"0603", "0805", "SOT-23", "TO-220", "QFN48"};
    std::mt19937 random(1);
    std::vector<std::string> names;
    while (names.size() < 30'000)
    {
        names.push_back(std::string(kinds[random() % 8]) + std::to_string(random() % 1000) + "-" +
                        values[random() % 7] + "-" + cases[random() % 5]);
    }
    return names;
}

struct CPattern
{
    const char16_t* m_Ours;
    const char* m_FileName;   // null where file names have no such pattern
    const char* m_Expression; // of the whole name
};

constexpr CPattern PATTERNS[] = {
    {u"RES*", "RES*", "(?i)RES.*"},
    {u"*10k*", "*10k*", "(?i).*10k.*"},
    {u"*-?k?-*", "*-?k?-*", "(?i).*-.k.-.*"},
    {u"RES*|CAP*|*SOT*", nullptr, "(?i)(?:RES.*|CAP.*|.*SOT.*)"},
    {u"R%i-*", nullptr, "(?i)R[0-9]+-.*"},
    {u"%{RES|CAP%}%i-*", nullptr, "(?i)(?:RES|CAP)[0-9]+-.*"},
    {u"*-%[100:400%]-*", nullptr, "(?i).*-[1-4][0-9]{2}-.*"},
};

void CountName(benchmark::State& state)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

void BM_StringMatch(benchmark::State& state)
{
    std::vector<CString> names;
    for (const std::string& name : MakeNames())
        names.push_back(FromUtf8(name));
    const CPattern& pattern = PATTERNS[state.range(0)];
    std::size_t index = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(StringMatch(pattern.m_Ours, names[index], false));
        index = index + 1 == names.size() ? 0 : index + 1;
    }
    CountName(state);
}

void BM_FileNameMatch(benchmark::State& state)
{
    const std::vector<std::string> names = MakeNames();
    const CPattern& pattern = PATTERNS[state.range(0)];
    std::size_t index = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(fnmatch(pattern.m_FileName, names[index].c_str(), FNM_CASEFOLD));
        index = index + 1 == names.size() ? 0 : index + 1;
    }
    CountName(state);
}

void BM_Expression(benchmark::State& state)
{
    const std::vector<std::string> names = MakeNames();
    const re2::RE2 expression(PATTERNS[state.range(0)].m_Expression);
    std::size_t index = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(re2::RE2::FullMatch(names[index], expression));
        index = index + 1 == names.size() ? 0 : index + 1;
    }
    CountName(state);
}

std::u16string Repeat(std::u16string_view piece, std::size_t units)
{
    std::u16string text;
    while (text.size() + piece.size() < units)
        text += piece;
    return text + u"-";
}

/// Patterns of 64 units on 1,000.
void BM_HostileShape(benchmark::State& state)
{
    const std::u16string_view pieces[] = {u"*a",         u"%{*a%}", u"%a",       u"%s*",   u"%^a%^",
                                          u"%{a|a|aa%}", u"%{a|",   u"*%[a:b%]", u"*%{a|b"};
    const std::u16string pattern = Repeat(pieces[state.range(0)], 64);
    const std::u16string text(1000, u'a');
    for (auto _ : state)
        benchmark::DoNotOptimize(StringMatch(pattern.c_str(), text.c_str(), false));
}

void BM_HostileNumbers(benchmark::State& state)
{
    const std::u16string_view pieces[] = {u"%i", u"%f", u"*%[1:2%]", u"%[1:9%]*"};
    const std::u16string pattern = Repeat(pieces[state.range(0)], 64);
    const std::u16string text(1000, u'1');
    for (auto _ : state)
        benchmark::DoNotOptimize(StringMatch(pattern.c_str(), text.c_str(), false));
}

void BM_ThirtyStars(benchmark::State& state)
{
    const std::u16string pattern = Repeat(u"*a", 61);
    const std::u16string text(1000, u'a');
    for (auto _ : state)
        benchmark::DoNotOptimize(StringMatch(pattern.c_str(), text.c_str(), false));
}

} // namespace

BENCHMARK(BM_StringMatch)->DenseRange(0, 6);
BENCHMARK(BM_FileNameMatch)->DenseRange(0, 2);
BENCHMARK(BM_Expression)->DenseRange(0, 6);
BENCHMARK(BM_HostileShape)->DenseRange(0, 8)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_HostileNumbers)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ThirtyStars)->Unit(benchmark::kMicrosecond);
