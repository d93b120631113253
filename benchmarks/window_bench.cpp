// From the press of a button to the painted picture, with the full circuit in the real window, and what of it goes
// where.
#include "bare_calls.h"
#include "full_circuit.h"
#include "no_prompts.h"
#include "render/redraw.h"
#include "ui/circuit_view.h"
#include "ui/frmCorvel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <algorithm>
#include <stdexcept>

namespace pistaro {
namespace {

constexpr int Side = 700;

/// The window with the full circuit in a drawing area of Side x Side pixels.
struct FullWindow {
    FullWindow() {
        Window.show();
        View = Window.findChild<CircuitView*>("picCircuit");
        Window.resize(Window.size() + QSize(Side, Side) - View->size());
        for (int i = 0; i < 3 && View->size() != QSize(Side, Side); ++i) {
            QApplication::processEvents();
            Window.resize(Window.size() + QSize(Side, Side) - View->size());
        }
        QApplication::processEvents();
        if (View->size() != QSize(Side, Side)) throw std::logic_error("the drawing area has another size");
    }

    NoPrompts Words;
    pistaro::Session Session{Pieces(), Words, FullCircuit(), {}};
    frmCorvel Window{Session};
    CircuitView* View;
};

void PressToPainted(benchmark::State& state) {
    FullWindow full;
    auto* const button = full.Window.findChild<QAbstractButton*>("cmdRotLeft");
    for (auto _ : state) {
        QTest::mouseClick(button, Qt::LeftButton);
        QApplication::processEvents();
    }
}

void CommandAlone(benchmark::State& state) {
    NoPrompts words;
    Session session(Pieces(), words, FullCircuit(), {});
    const Command& rotate = *session.Commands.Find("rotate left");
    for (auto _ : state)
        session.Run(rotate);
}

void RedrawAlone(benchmark::State& state) {
    FullWindow full;
    for (auto _ : state)
        full.View->Redraw();
}

void PaintAlone(benchmark::State& state) {
    FullWindow full;
    for (auto _ : state)
        full.View->repaint();
}

/// A step that changed all pieces of all tracks, back and forth, without the redraw that follows.
void StepAlone(benchmark::State& state) {
    NoPrompts words;
    Session session(Pieces(), words, FullCircuit(), {});
    session.Do([&] {
        session.NameStep("Reverse All");
        for (Track& track : session.Project.Design.Circuit.Tracks)
            std::ranges::reverse(track.ElementCodes);
    });
    for (auto _ : state)
        session.GoTo(1 - session.History().Present());
}

BENCHMARK(BareCalls)->Name("press to painted picture/bare")->Unit(benchmark::kMillisecond);
BENCHMARK(PressToPainted)->Name("press to painted picture/pistaro")->Unit(benchmark::kMillisecond);
BENCHMARK(CommandAlone)->Name("of that, command")->Unit(benchmark::kMillisecond);
BENCHMARK(RedrawAlone)->Name("of that, redraw")->Unit(benchmark::kMillisecond);
BENCHMARK(RedrawAlone)->Name("undo against the redraw after it/bare")->Unit(benchmark::kMillisecond);
BENCHMARK(StepAlone)->Name("undo against the redraw after it/pistaro")->Unit(benchmark::kMillisecond);
BENCHMARK(PaintAlone)->Name("of that, paint")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace pistaro
