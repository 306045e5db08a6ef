#include "frame/Win32Exception.h"
#include "platform/system/Faults.h"

#include <benchmark/benchmark.h>

using namespace utility;

// A fault of the processor until its exception is caught and deleted, beside a plain throw of the
// same object.

namespace
{

char* volatile g_Null = nullptr;
volatile int g_Zero = 0;
volatile int g_Quotient = 0;

[[gnu::noinline]] void WriteNull()
{
    *g_Null = 1;
}

[[gnu::noinline]] void DivideByZero()
{
    g_Quotient = 1 / g_Zero;
}

[[gnu::noinline]] void ThrowPlainly()
{
    CWin32Exception::Translator(FAULT_ACCESS_VIOLATION, nullptr);
}

/// Through so many frames between fault and catch.
[[gnu::noinline]] void CallDeep(void (*raise)(), std::int64_t depth)
{
    if (depth > 0)
        CallDeep(raise, depth - 1);
    else
        raise();
    benchmark::ClobberMemory();
}

template <void (*Raise)()>
void Catch(benchmark::State& state)
{
    if (!CanTranslateFaults())
        return state.SkipWithError("this build does not translate faults");
    CWin32Exception::SetTranslator();
    for (auto _ : state)
    {
        try
        {
            CallDeep(Raise, state.range(0));
        }
        catch (CWin32Exception* exception)
        {
            exception->Delete();
        }
    }
}

BENCHMARK(Catch<WriteNull>)->Name("fault, bad address/ours")->Arg(1);
BENCHMARK(Catch<ThrowPlainly>)->Name("fault, bad address/throw")->Arg(1);
BENCHMARK(Catch<DivideByZero>)->Name("fault, division/ours")->Arg(1);
BENCHMARK(Catch<ThrowPlainly>)->Name("fault, division/throw")->Arg(1);
BENCHMARK(Catch<WriteNull>)->Name("fault, 20 frames/ours")->Arg(20);
BENCHMARK(Catch<ThrowPlainly>)->Name("fault, 20 frames/throw")->Arg(20);

} // namespace
