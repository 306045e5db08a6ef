#include "platform/base/String.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

using namespace utility;

// Each operation of the text value beside the standard string of the same units.

namespace
{

constexpr int LENGTH = 1000;

CString MakeLong()
{
    return CString(u'x', LENGTH) + u"yz";
}

template <typename TText>
TText MakeText()
{
    return TText(MakeLong().GetString());
}

template <typename TText>
void BM_Copy(benchmark::State& state)
{
    const TText text = MakeText<TText>();
    for (auto _ : state)
    {
        TText copy = text;
        benchmark::DoNotOptimize(copy);
    }
}

template <typename TText>
void BM_AppendUnits(benchmark::State& state)
{
    for (auto _ : state)
    {
        TText text;
        for (int i = 0; i < LENGTH; ++i)
            text += u'x';
        benchmark::DoNotOptimize(text);
    }
    state.SetItemsProcessed(state.iterations() * LENGTH);
}

template <typename TText>
void BM_MakeFromLiteral(benchmark::State& state)
{
    for (auto _ : state)
    {
        TText text = u"Resistor 0603 1%";
        benchmark::DoNotOptimize(text);
    }
}

void BM_FindUnit(benchmark::State& state)
{
    const CString text = MakeText<CString>();
    for (auto _ : state)
        benchmark::DoNotOptimize(text.Find(u'z'));
}

void BM_FindUnitStd(benchmark::State& state)
{
    const auto text = MakeText<std::u16string>();
    for (auto _ : state)
        benchmark::DoNotOptimize(text.find(u'z'));
}

void BM_FindText(benchmark::State& state)
{
    const CString text = MakeText<CString>();
    for (auto _ : state)
        benchmark::DoNotOptimize(text.Find(u"yz"));
}

void BM_FindTextStd(benchmark::State& state)
{
    const auto text = MakeText<std::u16string>();
    for (auto _ : state)
        benchmark::DoNotOptimize(text.find(u"yz"));
}

template <typename TText>
void BM_Equal(benchmark::State& state)
{
    const TText left = MakeText<TText>();
    const TText right = MakeText<TText>();
    for (auto _ : state)
        benchmark::DoNotOptimize(left == right);
}

template <typename TText>
void BM_Less(benchmark::State& state)
{
    const TText left = MakeText<TText>();
    const TText right = MakeText<TText>();
    for (auto _ : state)
        benchmark::DoNotOptimize(left < right);
}

void BM_CompareNoCase(benchmark::State& state)
{
    CString left = MakeText<CString>();
    const CString right = left;
    left.MakeUpper();
    for (auto _ : state)
        benchmark::DoNotOptimize(left.CompareNoCase(right));
}

void BM_Format(benchmark::State& state)
{
    for (auto _ : state)
    {
        CString text;
        text.Format(u"%s[%03d] %.12g", u"Resistor", 7, 0.1);
        benchmark::DoNotOptimize(text);
    }
}

void BM_FormatStd(benchmark::State& state)
{
    for (auto _ : state)
    {
        char bytes[100];
        const int length =
            std::snprintf(bytes, sizeof(bytes), "%s[%03d] %.12g", "Resistor", 7, 0.1);
        std::u16string text(bytes, bytes + length);
        benchmark::DoNotOptimize(text);
    }
}

} // namespace

BENCHMARK(BM_Copy<CString>);
BENCHMARK(BM_Copy<std::u16string>);
BENCHMARK(BM_AppendUnits<CString>);
BENCHMARK(BM_AppendUnits<std::u16string>);
BENCHMARK(BM_MakeFromLiteral<CString>);
BENCHMARK(BM_MakeFromLiteral<std::u16string>);
BENCHMARK(BM_FindUnit);
BENCHMARK(BM_FindUnitStd);
BENCHMARK(BM_FindText);
BENCHMARK(BM_FindTextStd);
BENCHMARK(BM_Equal<CString>);
BENCHMARK(BM_Equal<std::u16string>);
BENCHMARK(BM_Less<CString>);
BENCHMARK(BM_Less<std::u16string>);
BENCHMARK(BM_CompareNoCase);
BENCHMARK(BM_Format);
BENCHMARK(BM_FormatStd);
