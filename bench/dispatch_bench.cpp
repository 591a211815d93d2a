// One dispatch: from a name and late-bound arguments to the running member. Goal: under 1 microsecond.

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "bench/staged_object.h"
#include "core/dispatch.h"
#include "core/members.h"

namespace foliant::bench {
namespace {

using automation::Access;
using automation::Arguments;

/// The member does nothing but copy a text, so this is the dispatch itself.
void DispatchByName(benchmark::State& state) {
    StagedObject staged;
    Arguments arguments;
    for (auto _ : state)
        benchmark::DoNotOptimize(core::invoke(staged.object, "TempFilePath", Access::get, arguments));
}
BENCHMARK(DispatchByName);

void DispatchByNumber(benchmark::State& state) {
    StagedObject staged;
    Arguments arguments;
    const auto dispid = core::find_dispid("TempFilePath");
    for (auto _ : state)
        benchmark::DoNotOptimize(core::invoke(staged.object, *dispid, Access::get, arguments));
}
BENCHMARK(DispatchByNumber);

/// Every name of the interface in turn, in capitals as no client writes them.
void FindEveryName(benchmark::State& state) {
    std::vector<std::string> names;
    for (const core::Member& member : core::members) {
        std::string& name = names.emplace_back(member.name);
        for (char& letter : name)
            letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(core::find_dispid(names[next]));
        next = next + 1 == names.size() ? 0 : next + 1;
    }
}
BENCHMARK(FindEveryName);

}  // namespace
}  // namespace foliant::bench
