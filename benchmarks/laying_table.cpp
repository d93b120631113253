// Prints what laying circuits from a box gives and costs: for boxes of 12 to 80 pieces of either system and of both, in
// rooms of two sizes, and in rooms of odd shapes with a pillar. Each circuit is held against plain tests of its own.
// "floor" tells what share of the floor all of the box would cover, and what the densest of its circuits does.
// ./bench laying runs it, with --seed N by another seed than 1; with --long SECONDS it holds the crowded boxes against
// searches of so many seconds instead.
#include "layout/track_gap.h"
#include "search/laying.h"
#include "search/same_circuit.h"
#include "support/closed_circuits.h"
#include "support/pieces.h"
#include "support/plain_closing.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <map>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace pistaro {
namespace {

struct NamedBox {
    const char* Name;
    const char* Pieces;
};

constexpr NamedBox Boxes[] = {
    {"Scalextric 12", "C151=8,C160=4"},
    {"Scalextric 20", "C151=12,C160=6,C159=2"},
    {"Scalextric 40", "C151=16,C160=12,C159=4,C153=4,C158=2,C157=2"},
    {"Scalextric 80", "C151=24,C160=24,C159=8,C158=4,C153=8,C152=8,C157=4"},
    {"Ninco 12", "N10105=8,N10102=4"},
    {"Ninco 20", "N10105=12,N10102=6,N10103=2"},
    {"Ninco 40", "N10105=16,N10102=12,N10103=4,N10107=4,N10104=4"},
    {"Ninco 80", "N10105=24,N10102=24,N10103=8,N10104=4,N10107=8,N10106=8,N10108=4"},
    {"both 20", "C151=8,C160=4,C159=2,N10110=2,N10102=2,N10103=2"},
    {"both 40", "C151=12,C160=8,C159=4,N10110=2,N10102=4,N10105=8,N10103=2"},
    {"both 80", "C151=16,C160=16,C159=6,C153=4,N10110=4,N10102=14,N10105=14,N10103=4,N10107=2"},
};

RoomPolygon Rectangle(int width, int depth) {
    const auto right = static_cast<std::int16_t>(width / 2);
    const auto top = static_cast<std::int16_t>(depth / 2);
    const auto left = static_cast<std::int16_t>(-right);
    const auto bottom = static_cast<std::int16_t>(-top);
    return {{{left, bottom, 0}, {right, bottom, 1}, {right, top, 1}, {left, top, 1}, {left, bottom, 1}}, 0};
}

/// A room whose four corners lie askew, one of them cut out, and a pillar in it.
RoomPolygon OddRoom(SeededNumbers& numbers) {
    const auto some = [&](int least, int most) {
        return static_cast<std::int16_t>(least + numbers.Below(most - least));
    };
    const std::int16_t left = some(-220, -150);
    const std::int16_t bottom = some(-180, -120);
    const std::int16_t right = some(150, 220);
    const std::int16_t top = some(120, 180);
    const std::int16_t cutX = some(40, 110);
    const std::int16_t cutY = some(20, 90);
    RoomPolygon room;
    const auto point = [&](int x, int y, std::int16_t line) {
        room.Points.push_back({static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), line});
    };
    point(left, bottom, 0);
    point(right, bottom + some(0, 20), 1);
    point(right - some(0, 20), cutY, 1);
    point(cutX, cutY, 1);
    point(cutX, top, 1);
    point(left + some(0, 30), top, 1);
    point(left, bottom, 1);
    const int pillarX = some(-60, 10);
    const int pillarY = some(-50, 10);
    constexpr int side = 20;
    point(pillarX, pillarY, 0);
    point(pillarX + side, pillarY, 1);
    point(pillarX + side, pillarY + side, 1);
    point(pillarX, pillarY + side, 1);
    point(pillarX, pillarY, 1);
    return room;
}

double ProcessorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

bool IsFromBox(const Track& track, PieceBox box) {
    return std::ranges::all_of(track.ElementCodes, [&](const std::string& code) {
        return --box.Counts[static_cast<std::size_t>(Pieces().Find(code)->StockIndex)] >= 0;
    });
}

/// Whether pieces of different systems lie next to each other with no adapter between.
bool HasBareJoint(const Track& track) {
    const std::vector<std::string>& codes = track.ElementCodes;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const CatalogueEntry& piece = *Pieces().Find(codes[i]);
        const CatalogueEntry& next = *Pieces().Find(codes[(i + 1) % codes.size()]);
        if (!piece.JoinsSystems() && !next.JoinsSystems() && piece.System != next.System) return true;
    }
    return false;
}

/// How many of them are not what they shall be.
int CountWrong(const LayingTask& task, const std::vector<LaidCircuit>& circuits) {
    int wrong = 0;
    std::set<std::vector<int>> keys;
    for (const LaidCircuit& circuit : circuits) {
        Design design;
        design.Room = task.Room;
        design.Circuit.Tracks[0] = circuit.Track;
        const TrackGap gap = GapOf(Pieces(), circuit.Track);
        const PlainFaults faults = FaultsFrom(design, 0, 0);
        std::vector<int> rows;
        for (const std::string& code : circuit.Track.ElementCodes)
            rows.push_back(Pieces().FindRow(code));
        const bool isRight = gap.Distance <= 0.05F && std::abs(gap.Angle) <= 0.001F && !faults.Outside &&
                             (faults.IsUnsure || !faults.Overlaps) && !HasBareJoint(circuit.Track) &&
                             IsFromBox(circuit.Track, task.Box) && keys.insert(CircuitKey(Pieces(), rows)).second;
        wrong += isRight ? 0 : 1;
    }
    return wrong;
}

double AreaOf(const CatalogueEntry& piece) {
    const PieceKind& kind = piece.Kind;
    if (piece.IsStraight()) return kind.Length * kind.Width;
    return kind.Turn / 2 * (kind.OuterRadius * kind.OuterRadius - kind.InnerRadius * kind.InnerRadius);
}

/// The floor between the walls, without the pillars: each begins with a point that no line leads to.
double AreaOf(const RoomPolygon& room) {
    std::vector<double> twice;
    for (std::size_t i = 0; i < room.Points.size(); ++i) {
        if (room.Points[i].Line == 0) {
            twice.push_back(0);
        } else {
            twice.back() += room.Points[i - 1].X * room.Points[i].Y - room.Points[i].X * room.Points[i - 1].Y;
        }
    }
    double area = std::abs(twice.front()) / 2;
    for (std::size_t i = 1; i < twice.size(); ++i)
        area -= std::abs(twice[i]) / 2;
    return area;
}

double AreaOf(const PieceBox& box) {
    double area = 0;
    for (int row = 0; row < Pieces().Count(); ++row)
        area += box.Counts[static_cast<std::size_t>(row)] * AreaOf(Pieces()[row]);
    return area;
}

double AreaOf(const Track& track) {
    double area = 0;
    for (const std::string& code : track.ElementCodes)
        area += AreaOf(*Pieces().Find(code));
    return area;
}

constexpr double MostOfBox = 0.9; ///< that is looked for

struct Sums {
    std::uint64_t Seed = 1;
    int Boxes = 0, WithTen = 0, Complete = 0, UseMost = 0, Wrong = 0;
    double Slowest = 0;
};

void Measure(const NamedBox& box, const std::string& roomName, const RoomPolygon& room, Sums& sums) {
    LayingTask task;
    task.Seed = sums.Seed;
    task.Box = BoxOf(Pieces(), box.Pieces);
    task.Room = room;
    const double before = ProcessorSeconds();
    const Laying laying = LayCircuits(Pieces(), task, {}, {});
    const double seconds = ProcessorSeconds() - before;
    double best = 0, mean = 0, densest = 0;
    for (const LaidCircuit& circuit : laying.Circuits) {
        best = std::max(best, circuit.Used);
        mean += circuit.Used / static_cast<double>(laying.Circuits.size());
        densest = std::max(densest, AreaOf(circuit.Track) / AreaOf(room));
    }
    const int wrong = CountWrong(task, laying.Circuits);
    const auto count = static_cast<int>(laying.Circuits.size());
    ++sums.Boxes;
    sums.WithTen += count == task.Count ? 1 : 0;
    sums.Complete += laying.AreAll ? 1 : 0;
    sums.UseMost += best >= MostOfBox ? 1 : 0;
    sums.Wrong += wrong;
    sums.Slowest = std::max(sums.Slowest, seconds);
    std::printf("%-14s %-12s %3d circuits%s   best uses %3.0f %%, mean %3.0f %%   %5.2f s   %d wrong   "
                "floor: box %3.0f %%, laid %3.0f %%\n",
                box.Name, roomName.c_str(), count, laying.AreAll ? ", all" : "     ", best * 100, mean * 100, seconds,
                wrong, AreaOf(task.Box) / AreaOf(room) * 100, densest * 100);
    std::fflush(stdout);
}

/// The best use of the box that searches with one seed after another find in so many seconds, each gone on with a few
/// times.
double BestOfLong(LayingTask task, double seconds) {
    const double end = ProcessorSeconds() + seconds;
    double best = 0;
    for (task.Seed = 1; ProcessorSeconds() < end; ++task.Seed) {
        CircuitSearch search(Pieces(), task);
        constexpr int times = 5;
        for (int time = 0; time < times && ProcessorSeconds() < end; ++time) {
            while (search.Round({}))
                continue;
            search.Continue();
        }
        for (const FoundCircuit& found : search.Found())
            best = std::max(best, found.Circuit.Used);
    }
    return best;
}

/// Of boxes whose best circuit uses less than nine tenths: what a long search finds.
void MeasureLong(double seconds) {
    for (const NamedBox& box : Boxes) {
        for (const auto& [width, depth] : {std::pair(240, 160), std::pair(400, 300)}) {
            LayingTask task;
            task.Box = BoxOf(Pieces(), box.Pieces);
            task.Room = Rectangle(width, depth);
            double best = 0;
            for (const LaidCircuit& circuit : LayCircuits(Pieces(), task, {}, {}).Circuits)
                best = std::max(best, circuit.Used);
            if (best >= MostOfBox) continue;
            std::printf("%-14s %d x %d   best uses %3.0f %%, of %.0f seconds' searches %3.0f %%\n", box.Name, width,
                        depth, best * 100, seconds, BestOfLong(task, seconds) * 100);
            std::fflush(stdout);
        }
    }
}

/// How long a search on another thread goes on after it was cancelled, milliseconds.
double CancelledAfter(const LayingTask& task, std::chrono::milliseconds begun) {
    std::jthread thread([&](const std::stop_token& stop) {
        try {
            CircuitSearch search(Pieces(), task);
            while (search.Round({.Progress = {}, .Stop = stop}))
                continue;
        } catch (const Stopped&) {
            return; // as it shall
        }
    });
    std::this_thread::sleep_for(begun);
    const auto asked = std::chrono::steady_clock::now();
    thread.request_stop();
    thread.join();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - asked).count();
}

void MeasureCancelling() {
    std::vector<double> times;
    for (const NamedBox& box : Boxes) {
        LayingTask task;
        task.Box = BoxOf(Pieces(), box.Pieces);
        task.Room = Rectangle(400, 300);
        for (const int begun : {0, 2, 5, 10, 20, 50, 100, 300})
            times.push_back(CancelledAfter(task, std::chrono::milliseconds(begun)));
    }
    std::ranges::sort(times);
    std::printf("Cancelled %d times: answered within %.1f ms (median), %.1f ms (worst)\n",
                static_cast<int>(times.size()), times[times.size() / 2], times.back());
}

void Print(const char* what, const Sums& sums) {
    std::printf("%s: %d boxes, %d with ten circuits, %d with all there are, %d use 90 %%, slowest %.2f s, %d wrong\n\n",
                what, sums.Boxes, sums.WithTen, sums.Complete, sums.UseMost, sums.Slowest, sums.Wrong);
}

} // namespace
} // namespace pistaro

int main(int argc, char** argv) {
    using namespace pistaro;
    if (argc == 3 && std::string(argv[1]) == "--long") {
        MeasureLong(std::stod(argv[2]));
        return 0;
    }
    Sums rectangles, odd;
    if (argc == 3 && std::string(argv[1]) == "--seed") odd.Seed = rectangles.Seed = std::stoull(argv[2]);
    for (const NamedBox& box : Boxes) {
        Measure(box, "240 x 160", Rectangle(240, 160), rectangles);
        Measure(box, "400 x 300", Rectangle(400, 300), rectangles);
    }
    Print("Rectangles", rectangles);
    SeededNumbers numbers(20);
    constexpr int oddRooms = 20;
    for (int room = 0; room < oddRooms; ++room) {
        const NamedBox& box = Boxes[room % std::size(Boxes)];
        Measure(box, "odd " + std::to_string(room + 1), OddRoom(numbers), odd);
    }
    Print("Rooms of odd shapes", odd);
    MeasureCancelling();
}
