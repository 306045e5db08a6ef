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

constexpr CPattern PLAIN{u"RES*", "RES*", "(?i)RES.*"};
constexpr CPattern STARS{u"*10k*", "*10k*", "(?i).*10k.*"};
constexpr CPattern QUESTION_MARKS{u"*-?k?-*", "*-?k?-*", "(?i).*-.k.-.*"};
constexpr CPattern ALTERNATIVES{u"RES*|CAP*|*SOT*", nullptr, "(?i)(?:RES.*|CAP.*|.*SOT.*)"};
constexpr CPattern INTEGER{u"R%i-*", nullptr, "(?i)R[0-9]+-.*"};
constexpr CPattern GROUP{u"%{RES|CAP%}%i-*", nullptr, "(?i)(?:RES|CAP)[0-9]+-.*"};
constexpr CPattern RANGE{u"*-%[100:400%]-*", nullptr, "(?i).*-[1-4][0-9]{2}-.*"};

void CountName(benchmark::State& state)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

void BM_StringMatch(benchmark::State& state, const CPattern& pattern)
{
    std::vector<CString> names;
    for (const std::string& name : MakeNames())
        names.push_back(FromUtf8(name));
    std::size_t index = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(StringMatch(pattern.m_Ours, names[index], false));
        index = index + 1 == names.size() ? 0 : index + 1;
    }
    CountName(state);
}

void BM_FileNameMatch(benchmark::State& state, const CPattern& pattern)
{
    const std::vector<std::string> names = MakeNames();
    std::size_t index = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(fnmatch(pattern.m_FileName, names[index].c_str(), FNM_CASEFOLD));
        index = index + 1 == names.size() ? 0 : index + 1;
    }
    CountName(state);
}

void BM_Expression(benchmark::State& state, const CPattern& pattern)
{
    const std::vector<std::string> names = MakeNames();
    const re2::RE2 expression(pattern.m_Expression);
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

/// A pattern of 64 units, of one piece over and over, on 1,000 equal units.
void BM_HostileShape(benchmark::State& state, std::u16string_view piece, char16_t unit)
{
    const std::u16string pattern = Repeat(piece, 64);
    const std::u16string text(1000, unit);
    for (auto _ : state)
        benchmark::DoNotOptimize(StringMatch(pattern.c_str(), text.c_str(), false));
}

} // namespace

// Each road with its peers.
#define NAME_BENCHMARK(road, function, who, pattern)                                               \
    BENCHMARK_CAPTURE(function, pattern, pattern)->Name(road "/" who)
#define HOSTILE_BENCHMARK(road, piece, unit)                                                       \
    BENCHMARK_CAPTURE(BM_HostileShape, road, piece, unit)                                          \
        ->Name("wildcard hostile " road "/ours")                                                   \
        ->Unit(benchmark::kMicrosecond)

NAME_BENCHMARK("wildcard plain", BM_StringMatch, "ours", PLAIN);
NAME_BENCHMARK("wildcard plain", BM_FileNameMatch, "fnmatch", PLAIN);
NAME_BENCHMARK("wildcard plain", BM_Expression, "re2", PLAIN);
NAME_BENCHMARK("wildcard stars", BM_StringMatch, "ours", STARS);
NAME_BENCHMARK("wildcard stars", BM_FileNameMatch, "fnmatch", STARS);
NAME_BENCHMARK("wildcard stars", BM_Expression, "re2", STARS);
NAME_BENCHMARK("wildcard question marks", BM_StringMatch, "ours", QUESTION_MARKS);
NAME_BENCHMARK("wildcard question marks", BM_FileNameMatch, "fnmatch", QUESTION_MARKS);
NAME_BENCHMARK("wildcard question marks", BM_Expression, "re2", QUESTION_MARKS);
NAME_BENCHMARK("wildcard alternatives", BM_StringMatch, "ours", ALTERNATIVES);
NAME_BENCHMARK("wildcard alternatives", BM_Expression, "re2", ALTERNATIVES);
NAME_BENCHMARK("wildcard integer", BM_StringMatch, "ours", INTEGER);
NAME_BENCHMARK("wildcard integer", BM_Expression, "re2", INTEGER);
NAME_BENCHMARK("wildcard group", BM_StringMatch, "ours", GROUP);
NAME_BENCHMARK("wildcard group", BM_Expression, "re2", GROUP);
NAME_BENCHMARK("wildcard range", BM_StringMatch, "ours", RANGE);
NAME_BENCHMARK("wildcard range", BM_Expression, "re2", RANGE);

HOSTILE_BENCHMARK("stars", u"*a", u'a');
HOSTILE_BENCHMARK("groups with stars", u"%{*a%}", u'a');
HOSTILE_BENCHMARK("words", u"%a", u'a');
HOSTILE_BENCHMARK("letters and digits", u"%s*", u'a');
HOSTILE_BENCHMARK("negations", u"%^a%^", u'a');
HOSTILE_BENCHMARK("groups", u"%{a|a|aa%}", u'a');
HOSTILE_BENCHMARK("unclosed groups", u"%{a|", u'a');
HOSTILE_BENCHMARK("letter ranges", u"*%[a:b%]", u'a');
HOSTILE_BENCHMARK("starred groups", u"*%{a|b", u'a');
HOSTILE_BENCHMARK("integers", u"%i", u'1');
HOSTILE_BENCHMARK("real numbers", u"%f", u'1');
HOSTILE_BENCHMARK("ranges", u"*%[1:2%]", u'1');
HOSTILE_BENCHMARK("ranges and stars", u"%[1:9%]*", u'1');
