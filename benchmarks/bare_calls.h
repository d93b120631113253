// The bare cost that ours are measured against.
#pragma once

#include <benchmark/benchmark.h>

namespace pistaro {

/// Paints the full circuit by plain painter calls for the lines, arcs, ellipses and texts of its redraw.
void BareCalls(benchmark::State& state);

} // namespace pistaro
