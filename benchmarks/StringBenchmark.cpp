#include "platform/base/String.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <wchar.h>

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
void Copy(benchmark::State& state)
{
    const TText text = MakeText<TText>();
    for (auto _ : state)
    {
        TText copy = text;
        benchmark::DoNotOptimize(copy);
    }
}

template <typename TText>
void AppendUnits(benchmark::State& state)
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
void MakeFromLiteral(benchmark::State& state)
{
    for (auto _ : state)
    {
        TText text = u"Resistor 0603 1%";
        benchmark::DoNotOptimize(text);
    }
}

void FindUnit(benchmark::State& state)
{
    const CString text = MakeText<CString>();
    for (auto _ : state)
        benchmark::DoNotOptimize(text.Find(u'z'));
}

void FindUnitStd(benchmark::State& state)
{
    const auto text = MakeText<std::u16string>();
    for (auto _ : state)
        benchmark::DoNotOptimize(text.find(u'z'));
}

void FindText(benchmark::State& state)
{
    const CString text = MakeText<CString>();
    for (auto _ : state)
        benchmark::DoNotOptimize(text.Find(u"yz"));
}

void FindTextStd(benchmark::State& state)
{
    const auto text = MakeText<std::u16string>();
    for (auto _ : state)
        benchmark::DoNotOptimize(text.find(u"yz"));
}

template <typename TText>
void Equal(benchmark::State& state)
{
    const TText left = MakeText<TText>();
    const TText right = MakeText<TText>();
    for (auto _ : state)
        benchmark::DoNotOptimize(left == right);
}

template <typename TText>
void Less(benchmark::State& state)
{
    const TText left = MakeText<TText>();
    const TText right = MakeText<TText>();
    for (auto _ : state)
        benchmark::DoNotOptimize(left < right);
}

void CompareNoCase(benchmark::State& state)
{
    CString left = MakeText<CString>();
    const CString right = left;
    left.MakeUpper();
    for (auto _ : state)
        benchmark::DoNotOptimize(left.CompareNoCase(right));
}

void CompareNoCaseByWcscasecmp(benchmark::State& state)
{
    const std::wstring left(LENGTH, L'X');
    const std::wstring right(LENGTH, L'x');
    for (auto _ : state)
        benchmark::DoNotOptimize(wcscasecmp(left.c_str(), right.c_str()));
}

void Format(benchmark::State& state)
{
    for (auto _ : state)
    {
        CString text;
        text.Format(u"%s[%03d] %.12g", u"Resistor", 7, 0.1);
        benchmark::DoNotOptimize(text);
    }
}

void FormatStd(benchmark::State& state)
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

BENCHMARK(Copy<CString>)->Name("StringCopy/ours");
BENCHMARK(Copy<std::u16string>)->Name("StringCopy/u16string");
BENCHMARK(AppendUnits<CString>)->Name("StringAppendUnits/ours");
BENCHMARK(AppendUnits<std::u16string>)->Name("StringAppendUnits/u16string");
BENCHMARK(MakeFromLiteral<CString>)->Name("StringFromLiteral/ours");
BENCHMARK(MakeFromLiteral<std::u16string>)->Name("StringFromLiteral/u16string");
BENCHMARK(FindUnit)->Name("StringFindUnit/ours");
BENCHMARK(FindUnitStd)->Name("StringFindUnit/u16string");
BENCHMARK(FindText)->Name("StringFindText/ours");
BENCHMARK(FindTextStd)->Name("StringFindText/u16string");
BENCHMARK(Equal<CString>)->Name("StringEqual/ours");
BENCHMARK(Equal<std::u16string>)->Name("StringEqual/u16string");
BENCHMARK(Less<CString>)->Name("StringLess/ours");
BENCHMARK(Less<std::u16string>)->Name("StringLess/u16string");
BENCHMARK(CompareNoCase)->Name("StringCompareNoCase/ours");
BENCHMARK(CompareNoCaseByWcscasecmp)->Name("StringCompareNoCase/wcscasecmp");
BENCHMARK(Format)->Name("StringFormat/ours");
BENCHMARK(FormatStd)->Name("StringFormat/snprintf");

} // namespace
