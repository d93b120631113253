// What the finest grid costs a redraw of the full circuit, against the same without a grid: with the view at rest, as
// after an editing command, and with the view moved before every redraw.
#include "full_circuit.h"
#include "imaging/cached_drawing.h"

#include <benchmark/benchmark.h>

#include <string>

namespace pistaro {
namespace {

const CanvasFrame Frame{{700, 700}};

struct GridCase {
    float Width; ///< of the view, cm
    GridType Type;
    bool Moving;
};

void RedrawWithGrid(benchmark::State& state, GridCase grid, bool shown) {
    Project project = FullCircuit();
    project.Design.View.Width = grid.Width;
    project.Preferences.Grid = {.Type = static_cast<std::int16_t>(shown ? grid.Type : GridType::None), .Step = 1};
    CachedDrawing drawing;
    float step = 1;
    for (auto _ : state) {
        if (grid.Moving) project.Design.View.MidX += step = -step;
        drawing.Redraw(Pieces(), project, {}, Frame);
    }
}

/// The narrowest view whose grid is thinned least and hence finest, the usual one, and a wide one.
const bool Registered = [] {
    for (const float width : {116.0F, 320.0F, 2000.0F}) {
        for (const GridType type : {GridType::Dots, GridType::Lines}) {
            for (const bool moving : {false, true}) {
                const GridCase grid{width, type, moving};
                const std::string name = std::string(moving ? "moving" : "resting") + " view of " +
                                         std::to_string(static_cast<int>(width)) + " cm, finest grid of " +
                                         (type == GridType::Dots ? "dots" : "lines");
                for (const bool shown : {false, true}) {
                    benchmark::RegisterBenchmark((name + (shown ? "/pistaro" : "/bare")).c_str(), RedrawWithGrid, grid,
                                                 shown)
                        ->Unit(benchmark::kMillisecond);
                }
            }
        }
    }
    return true;
}();

} // namespace
} // namespace pistaro
