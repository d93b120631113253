// What the statistics of the largest circuit cost: three tracks of 501 pieces.
#include "full_circuit.h"
#include "stats/design_checks.h"
#include "stats/detail.h"
#include "stats/frames.h"
#include "stats/measure.h"
#include "stats/shopping_list.h"

#include <benchmark/benchmark.h>

namespace pistaro {
namespace {

void MeasureCircuit(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state)
        benchmark::DoNotOptimize(Measure(Pieces(), project.Stock, project.Design.Circuit, AllTracks));
}

/// All that the dialog shows when it opens.
void ShowStatistics(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            StatisticsFrames(Pieces(), project.Stock, project.Design.Circuit, project.Preferences.Units));
        benchmark::DoNotOptimize(ShowDetail(Pieces(), project.Stock, project.Design.Circuit, AllTracks, false));
        benchmark::DoNotOptimize(DesignChecks(Pieces(), project.Stock, project.Design.Circuit));
    }
}

void FormatList(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            ShoppingListBytes(Pieces(), project.Stock, project.Preferences.Units,
                              ShowDetail(Pieces(), project.Stock, project.Design.Circuit, AllTracks, false)));
}

BENCHMARK(MeasureCircuit)->Name("measure 3 x 501 pieces")->Unit(benchmark::kMillisecond);
BENCHMARK(ShowStatistics)->Name("statistics of 3 x 501 pieces")->Unit(benchmark::kMillisecond);
BENCHMARK(FormatList)->Name("shopping list of 3 x 501 pieces")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace pistaro
