// Prints what closing tracks costs and how often it succeeds, on circuits of the tests' generator: the tables warm as
// in the window, and the whole verb as a process of its own beside the layout verb. ./bench closing runs it.
#include "platform/files.h"
#include "search/closing.h"
#include "storage/circuit_file.h"
#include "support/closed_circuits.h"
#include "support/pieces.h"
#include "support/plain_closing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

namespace pistaro {
namespace {

double ProcessorMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double Timed(const std::function<void()>& work) {
    const double before = ProcessorMilliseconds();
    work();
    return ProcessorMilliseconds() - before;
}

void PrintTimes(const char* what, std::vector<double> times) {
    std::ranges::sort(times);
    std::printf("%-58s median %8.3f   95 %% %8.3f   worst %8.3f ms\n", what, times[times.size() / 2],
                times[times.size() * 95 / 100], times.back());
}

struct ProcessCost {
    double Milliseconds = 0;
    long Kilobytes = 0;
};

/// A figure of a run that did not come to its end would be a false one.
[[noreturn]] void StopFor(const std::string& reason) {
    std::fflush(stdout);
    std::fprintf(stderr, "closing_table: %s %s\n", PROGRAM, reason.c_str());
    std::exit(1);
}

/// Runs the program with its output thrown away.
ProcessCost CostOf(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), PROGRAM);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", 1, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", 1, 0);
    pid_t child = 0;
    const int error = posix_spawn(&child, PROGRAM, &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) StopFor(std::string("cannot be started: ") + std::strerror(error));
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child) StopFor("was lost sight of");
    if (!WIFEXITED(status)) StopFor("was ended by signal " + std::to_string(WTERMSIG(status)));
    if (WEXITSTATUS(status) != 0) StopFor(arguments[1] + " ended with status " + std::to_string(WEXITSTATUS(status)));
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return {milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime), usage.ru_maxrss};
}

Closings Close(const ClosingTables& tables, const Project& project, const ClosingOptions& options = {}) {
    return CloseTrack(tables, Pieces(), project.Design, project.Stock, 0, options, {});
}

void AddOthers(Project& project, SeededNumbers& numbers) {
    for (const std::size_t track : {std::size_t{1}, std::size_t{2}}) {
        Track& other = project.Design.Circuit.Tracks[track];
        other.TrackStartX = static_cast<float>(numbers.Below(800) - 400);
        other.TrackStartY = static_cast<float>(numbers.Below(800) - 400);
        for (int piece = 0; piece < MaxElements; ++piece)
            other.ElementCodes.emplace_back(numbers.Below(5) == 0 ? "C151L" : numbers.Below(5) == 0 ? "C151R" : "C160");
    }
}

void CutCircuits(const ClosingTables& tables, int circuits) {
    SeededNumbers numbers(400);
    std::vector<double> warm, warmBest, crowded, close, layout, more;
    int closed = 0, longer = 0, compared = 0, same = 0;
    long memory = 0;
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "pistaro-closing-table.trk";
    for (int i = 0; i < circuits; ++i) {
        CutCircuit circuit = RandomCut(numbers, 8);
        Suggestion best;
        warm.push_back(Timed([&] {
            const Closings closings = Close(tables, circuit.Open);
            if (!closings.Suggestions.empty()) best = closings.Suggestions.front();
        }));
        warmBest.push_back(Timed([&] { Close(tables, circuit.Open, {.Limit = 1}); }));
        closed += best.Count() > 0 && best.IsFree() ? 1 : 0;
        longer += best.Count() > circuit.Cut ? 1 : 0;
        if (circuit.Cut <= 5) {
            const PlainAnswer plain = CloseByTrying(circuit.Open, circuit.Cut);
            if (plain.Best && !plain.IsUnsure) {
                ++compared;
                same += plain.Best->Count == best.Count() && std::abs(plain.Best->Price - double{best.Price}) < 1e-3
                            ? 1
                            : 0;
            }
        }
        ReplaceFile(file, CircuitBytes(circuit.Open.Design));
        const ProcessCost ofLayout = CostOf({"layout", file.string()});
        const ProcessCost ofClose = CostOf({"close", file.string()});
        layout.push_back(ofLayout.Milliseconds);
        close.push_back(ofClose.Milliseconds);
        more.push_back(ofClose.Milliseconds - ofLayout.Milliseconds);
        memory = std::max(memory, ofClose.Kilobytes);
        AddOthers(circuit.Open, numbers);
        crowded.push_back(Timed([&] { Close(tables, circuit.Open, {.Limit = 1}); }));
    }
    std::filesystem::remove(file);
    std::printf("%d circuits cut open: %d closed free of faults, %d with more pieces than were cut\n", circuits, closed,
                longer);
    std::printf("by trying every chain (cuts of up to 5): %d of %d agree on the fewest and the cheapest\n", same,
                compared);
    PrintTimes("warm, ten suggestions", warm);
    PrintTimes("warm, the best one", warmBest);
    PrintTimes("warm, the best one, beside 1,002 other pieces", crowded);
    PrintTimes("pistaro layout", layout);
    PrintTimes("pistaro close", close);
    PrintTimes("pistaro close less pistaro layout", more);
    std::printf("memory of pistaro close: at most %.1f MB\n", static_cast<double>(memory) / 1024);
}

void LongCuts(const ClosingTables& tables, int circuits) {
    SeededNumbers numbers(10);
    std::vector<double> times;
    int closed = 0;
    while (static_cast<int>(times.size()) < circuits) {
        const CutCircuit circuit = RandomCut(numbers, 10);
        if (circuit.Cut < 9) continue;
        times.push_back(Timed([&] {
            closed += Close(tables, circuit.Open, {.MostPieces = 10, .Limit = 1}).Suggestions.empty() ? 0 : 1;
        }));
    }
    std::printf("%d circuits with 9 or 10 pieces cut out: %d closed\n", circuits, closed);
    PrintTimes("warm, the best one of up to 10", times);
}

void WrongPieces(const ClosingTables& tables, int circuits) {
    SeededNumbers numbers(100);
    std::vector<double> times;
    int mended = 0, added = 0;
    while (static_cast<int>(times.size()) < circuits) {
        Project project;
        Track& track = project.Design.Circuit.Tracks[0];
        track = ClosedTrack(numbers, static_cast<Systems>(numbers.Below(3)));
        const auto at = static_cast<std::size_t>(numbers.Below(track.ElementLastIndex() + 1));
        const CatalogueEntry& right = *Pieces().Find(track.ElementCodes[at]);
        const CatalogueEntry& wrong = Pieces()[numbers.Below(28)];
        if (wrong.System != right.System || wrong.JoinsSystems() || right.JoinsSystems()) continue;
        track.ElementCodes[at] = wrong.Code;
        if (GapOf(Pieces(), track).Distance <= 0.05F) continue;
        times.push_back(Timed([&] {
            const Closings closings = Close(tables, project, {.MostRemoved = 2});
            mended += !closings.Suggestions.empty() && closings.Suggestions.front().IsFree() ? 1 : 0;
        }));
        added += Close(tables, project, {.MostPieces = 8, .Limit = 1}).Suggestions.empty() ? 0 : 1;
    }
    std::printf("%d circuits with one wrong piece: %d mended free of faults (%d by adding alone)\n", circuits, mended,
                added);
    PrintTimes("warm, mending by runs of up to 2", times);
}

/// Random ends with no circuit that they were cut out of.
void RandomGaps(const ClosingTables& tables, int gaps) {
    SeededNumbers numbers(10000);
    std::vector<double> times;
    int suggestions = 0, wrong = 0, unsure = 0;
    for (int i = 0; i < gaps; ++i) {
        Project project = RandomCut(numbers, 8).Open;
        Track& track = project.Design.Circuit.Tracks[0];
        track.ElementCodes.resize(static_cast<std::size_t>(1 + numbers.Below(track.ElementLastIndex() + 1)));
        while (track.ElementCodes.back() == "N10110")
            track.ElementCodes.push_back(track.ElementCodes.size() > 1 ? "N10103" : "N10104");
        if (numbers.Below(3) == 0) {
            project.Design.Circuit.Tracks[1] = Track{{"C160", "C151L", "C160"}, 60, 10, 0.4F};
        }
        Closings closings;
        times.push_back(Timed([&] { closings = Close(tables, project, {.MostPieces = 6, .Limit = 5}); }));
        for (const Suggestion& suggestion : closings.Suggestions) {
            ++suggestions;
            Design closedDesign = project.Design;
            const int size = track.ElementLastIndex() + 1;
            Apply(suggestion.Edit, closedDesign.Circuit.Tracks[0]);
            const TrackGap gap = GapOf(Pieces(), closedDesign.Circuit.Tracks[0]);
            const PlainFaults faults = FaultsFrom(closedDesign, 0, size);
            unsure += faults.IsUnsure ? 1 : 0;
            const bool isTrue = gap.Distance == suggestion.Gap.Distance && gap.Distance <= 0.05F &&
                                std::abs(gap.Angle) <= 0.001F && faults.Outside == suggestion.IsOutside &&
                                (faults.IsUnsure || faults.Overlaps == suggestion.Overlaps);
            wrong += isTrue ? 0 : 1;
        }
    }
    std::printf("%d random gaps: %d suggestions, %d wrong (%d with an overlap of about a square cm)\n", gaps,
                suggestions, wrong, unsure);
    PrintTimes("warm, five suggestions of up to 6", times);
}

void NothingPossible(const ClosingTables& tables) {
    // The two long sides differ by 9.84375 cm.
    Project project;
    project.Design.Circuit.Tracks[0].ElementCodes = {"C159", "C157", "C160",  "C151R", "C151R", "C151R", "C151R",
                                                     "C160", "C160", "C151R", "C151R", "C151R", "C151R"};
    std::string why;
    const double time = Timed([&] { why = Close(tables, project, {.MostPieces = 3}).WhyNone; });
    std::printf("nothing possible: %s (%.1f ms)\n", why.c_str(), time);
}

} // namespace
} // namespace pistaro

int main(int count, char** arguments) {
    using namespace pistaro;
    CostOf({"--version"}); // before minutes of work for nothing
    const bool isShort = count > 1 && std::string(arguments[1]) == "--short";
    const ClosingTables tables(Pieces());
    std::printf("tables up to 4 pieces: %.1f ms\n", Timed([&] {
                    tables.Level(0, ClosingTables::UsualLevel);
                    tables.Level(1, ClosingTables::UsualLevel);
                }));
    CutCircuits(tables, isShort ? 40 : 400);
    WrongPieces(tables, 100);
    NothingPossible(tables);
    RandomGaps(tables, isShort ? 500 : 10000);
    std::printf("tables up to 5 pieces: %.1f ms\n", Timed([&] {
                    tables.Level(0, ClosingTables::DeepestLevel);
                    tables.Level(1, ClosingTables::DeepestLevel);
                }));
    LongCuts(tables, isShort ? 10 : 100);
}
