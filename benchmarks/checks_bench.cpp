// What all checks cost: of the full circuit against a redraw of it by bare painter calls, and of circuits of a growing
// number of pieces, which lie about as laps of the grand prix sample and in laps beside each other.
#include "bare_calls.h"
#include "checks/check.h"
#include "full_circuit.h"

#include <benchmark/benchmark.h>

namespace pistaro {
namespace {

void CheckFullCircuit(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CheckDesign(Pieces(), project.Design, project.Stock, project.Preferences.DisplayUnits));
}

/// A design of so many pieces that could be built: on each track rows of straights joined by half turns, which lie
/// beside each other.
Project Meander(int pieces) {
    Project project = FullCircuit();
    const int rowLength = 24;
    for (std::size_t i = 0; i < project.Design.Circuit.Tracks.size(); ++i) {
        Track& track = project.Design.Circuit.Tracks[i];
        track.ElementCodes.clear();
        track.TrackStartX = static_cast<float>(i) * 2000;
        const int share = pieces / TrackCount + (static_cast<int>(i) < pieces % TrackCount ? 1 : 0);
        for (int element = 0; element < share; ++element) {
            const int place = element % (rowLength + 4);
            const bool left = element / (rowLength + 4) % 2 == 0;
            track.ElementCodes.push_back(place < rowLength ? "C160" : left ? "C151L" : "C151R");
        }
    }
    return project;
}

void CheckPieces(benchmark::State& state) {
    const Project project = Meander(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CheckDesign(Pieces(), project.Design, project.Stock, project.Preferences.DisplayUnits));
    state.counters["microseconds a piece"] =
        benchmark::Counter(static_cast<double>(state.range(0)) / 1e6,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

BENCHMARK(BareCalls)->Name("checks of 3 x 501 pieces/bare")->Unit(benchmark::kMillisecond);
BENCHMARK(CheckFullCircuit)->Name("checks of 3 x 501 pieces/pistaro")->Unit(benchmark::kMillisecond);
BENCHMARK(CheckPieces)
    ->Name("checks of a buildable design")
    ->Arg(10)
    ->Arg(100)
    ->Arg(501)
    ->Arg(1503)
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace pistaro
