#include "frame/Evt.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

using namespace utility;

// One event to many listeners by its name, beside a bare table of functions by name.

namespace
{

struct CListener : CEvt
{
    CListener() { Register(u"Part.Changed", this, &CListener::OnPartChanged); }
    unsigned char OnPartChanged(LPARAM part, LPARAM)
    {
        m_Sum += part;
        return 1;
    }
    LPARAM m_Sum = 0;
};

void SendToListeners(benchmark::State& state)
{
    const std::vector<CListener> listeners(static_cast<std::size_t>(state.range(0)));
    const CString name(u"Part.Changed");
    for (auto _ : state)
        benchmark::DoNotOptimize(CEvt::Send(name, 1, 2));
}

void CallFunctions(benchmark::State& state)
{
    std::unordered_map<std::u16string, std::vector<std::function<int(LPARAM, LPARAM)>>> table;
    std::vector<LPARAM> sums(static_cast<std::size_t>(state.range(0)));
    for (LPARAM& sum : sums)
    {
        table[u"Part.Changed"].push_back(
            [&sum](LPARAM part, LPARAM)
            {
                sum += part;
                return 1;
            });
    }
    const std::u16string name(u"Part.Changed");
    for (auto _ : state)
    {
        int result = 0;
        for (const auto& function : table.find(name)->second)
            result = function(1, 2);
        benchmark::DoNotOptimize(result);
    }
}

BENCHMARK(SendToListeners)->Name("event, 1 listener/ours")->Arg(1);
BENCHMARK(CallFunctions)->Name("event, 1 listener/bare table")->Arg(1);
BENCHMARK(SendToListeners)->Name("event, 100 listeners/ours")->Arg(100);
BENCHMARK(CallFunctions)->Name("event, 100 listeners/bare table")->Arg(100);

} // namespace
