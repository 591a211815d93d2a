// Whole members on the stage: all of our own code between a caller and the hosts. Goal: under 1 millisecond a
// call. The time includes the journal that the stage keeps, which a real call does not.

#include <benchmark/benchmark.h>

#include "bench/staged_object.h"
#include "core/dispatch.h"

namespace foliant::bench {
namespace {

void call(benchmark::State& state, std::string_view member, std::string_view input) {
    StagedObject staged;
    long actions = 0;
    for (auto _ : state) {
        automation::Arguments arguments{automation::Value("C:\\out\\letter.pdf"), automation::Value(input)};
        core::invoke(staged.object, member, automation::Access::call, arguments);
        actions = staged.stage.actions();
        staged.strike();
    }
    state.counters["outside_actions"] = static_cast<double>(actions);
}

BENCHMARK_CAPTURE(call, CreatePDFfromWord, "CreatePDFfromWord", "C:\\in\\letter.doc");
BENCHMARK_CAPTURE(call, CreatePDFfromWord2, "CreatePDFfromWord2", "C:\\in\\letter.doc");
BENCHMARK_CAPTURE(call, CreatePDFfromPS, "CreatePDFfromPS", "C:\\in\\letter.ps");

/// What every client pays once: the settings are read from the registry.
void CreateObject(benchmark::State& state) {
    platform::stage::Stage stage;
    platform::stage::cast_usual_machine(stage);
    NoEvents events;
    for (auto _ : state) {
        core::BuildPDF object(stage.platform(), events);
        benchmark::DoNotOptimize(object);
        stage.clear_journal();
    }
}
BENCHMARK(CreateObject);

}  // namespace
}  // namespace foliant::bench
