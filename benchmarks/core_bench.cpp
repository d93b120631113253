// Placing, reading and writing: what every command and every file costs besides drawing.
#include "full_circuit.h"
#include "layout/exit.h"
#include "layout/placement.h"
#include "platform/files.h"
#include "storage/circuit_file.h"

#include <benchmark/benchmark.h>

namespace pistaro {
namespace {

/// More than any circuit has.
Track TwoThousandPieces() {
    const Project project = FullCircuit();
    Track row;
    while (row.ElementCodes.size() < 2000)
        row.ElementCodes.push_back(
            project.Design.Circuit.Tracks[0].ElementCodes[row.ElementCodes.size() % MaxElements]);
    return row;
}

void PlaceTwoThousand(benchmark::State& state) {
    const Track row = TwoThousandPieces();
    for (auto _ : state) {
        benchmark::DoNotOptimize(WalkTrack(Pieces(), row, [](int, const PiecePlacement* placement, const BuildCursor&) {
            benchmark::DoNotOptimize(placement->Label);
        }));
    }
}

/// Where the same pieces lead, as a search asks.
void ExitsOfTwoThousand(benchmark::State& state) {
    std::vector<PieceKind> kinds;
    for (const std::string& code : TwoThousandPieces().ElementCodes)
        kinds.push_back(Pieces().Find(code)->Kind);
    for (auto _ : state) {
        Pose pose;
        for (const PieceKind& kind : kinds)
            pose = ExitOf(kind, pose);
        benchmark::DoNotOptimize(pose);
    }
}

void Read(benchmark::State& state) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "pistaro-bench.trk";
    ReplaceFile(file, CircuitBytes(FullCircuit().Design));
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadCircuit(file));
    std::filesystem::remove(file);
}

void Format(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state)
        benchmark::DoNotOptimize(CircuitBytes(project.Design));
}

/// The disk's own time is in it: the bytes are flushed before the file is put in place.
void Write(benchmark::State& state) {
    const Project project = FullCircuit();
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "pistaro-bench.trk";
    for (auto _ : state)
        ReplaceFile(file, CircuitBytes(project.Design));
    std::filesystem::remove(file);
}

BENCHMARK(PlaceTwoThousand)->Name("place 2000 pieces")->Unit(benchmark::kMillisecond);
BENCHMARK(ExitsOfTwoThousand)->Name("exits of 2000 pieces")->Unit(benchmark::kMillisecond);
BENCHMARK(Read)->Name("read 3 x 501 pieces")->Unit(benchmark::kMillisecond);
BENCHMARK(Format)->Name("write 3 x 501 pieces, to memory")->Unit(benchmark::kMillisecond);
BENCHMARK(Write)->Name("write 3 x 501 pieces, to disk")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace pistaro
