// What keeping unsaved work costs whoever works: the longest pause of the window while everything is written again and
// again, against that without, and the start with twenty works to look at.
#include "commands/recovery.h"
#include "full_circuit.h"
#include "no_prompts.h"
#include "platform/files.h"
#include "storage/circuit_file.h"
#include "ui/frmCorvel.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>

namespace pistaro {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

void Nowhere(const std::function<void()>&) {}

/// Turns the full circuit again and again; writing takes turns with it at a twentieth of the usual delay.
void LongestPause(benchmark::State& state, bool keeps) {
    const QTemporaryDir folder;
    NoPrompts words;
    Session session(Pieces(), words, FullCircuit(), {});
    Recovery recovery(session, keeps ? folder.path().toStdString() : "", Nowhere, Recovery::Delay / 20);
    frmCorvel window(session);
    window.show();
    QApplication::processEvents();
    const Command& rotate = *session.Commands.Find("rotate left");
    Milliseconds longest{};
    for (auto _ : state) {
        const auto before = Clock::now();
        session.TryRun(rotate);
        QApplication::processEvents();
        longest = std::max<Milliseconds>(longest, Clock::now() - before);
    }
    state.counters["longest ms"] = longest.count();
    state.counters["files"] =
        static_cast<double>(recovery.IsOn() ? FindRecoveredWork(folder.path().toStdString()).size() : 0);
}

/// From the settings to a window that is shown.
void Start(benchmark::State& state, bool keeps) {
    const QTemporaryDir folder;
    const std::filesystem::path works = folder.path().toStdString();
    for (int number = 1; number <= 20; ++number) {
        const RecoveryName name{"oval", {}, "1.2", number, true};
        ReplaceFile(works / FileNameOf(name), CircuitBytes(FullCircuit().Design));
    }
    NoPrompts words;
    for (auto _ : state) {
        Session session(Pieces(), words, FullCircuit(), {});
        Recovery recovery(session, keeps ? works : "", Nowhere);
        frmCorvel window(session);
        window.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(recovery.Untold());
    }
}

BENCHMARK_CAPTURE(LongestPause, off, false)->Name("edit, unsaved work kept/bare")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LongestPause, on, true)->Name("edit, unsaved work kept/pistaro")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Start, off, false)->Name("start, with recovered work/bare")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Start, on, true)->Name("start, with recovered work/pistaro")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace pistaro
