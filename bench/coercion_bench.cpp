// What it costs to make an argument the type that a parameter has.

#include <benchmark/benchmark.h>

#include "automation/coerce.h"
#include "automation/value.h"

namespace foliant::bench {
namespace {

using automation::Value;

void TextToLong(benchmark::State& state) {
    const Value text("60030007");
    for (auto _ : state)
        benchmark::DoNotOptimize(automation::to_int32(text));
}
BENCHMARK(TextToLong);

void TextToBoolean(benchmark::State& state) {
    const Value text("True");
    for (auto _ : state)
        benchmark::DoNotOptimize(automation::to_bool(text));
}
BENCHMARK(TextToBoolean);

void DoubleToText(benchmark::State& state) {
    const Value number(72.25);
    for (auto _ : state)
        benchmark::DoNotOptimize(automation::to_text(number));
}
BENCHMARK(DoubleToText);

void LongToInteger(benchmark::State& state) {
    const Value number(std::int32_t{2000});
    for (auto _ : state)
        benchmark::DoNotOptimize(automation::to_int16(number));
}
BENCHMARK(LongToInteger);

}  // namespace
}  // namespace foliant::bench
