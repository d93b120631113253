// Laid circuits are held against plain tests of their own: points within outlines, not the search's overlap; points
// within the rectangle, not its room; counts of codes.
#include "search/laying.h"

#include "layout/outline.h"
#include "search/same_circuit.h"
#include "support/chain.h"
#include "support/pieces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <set>

namespace pistaro {
namespace {

using Polygon = std::vector<WorldPoint>;

struct Rectangle {
    std::int16_t Width, Height; ///< cm, around the origin
};

RoomPolygon RoomOf(Rectangle rectangle) {
    const auto right = static_cast<std::int16_t>(rectangle.Width / 2);
    const auto top = static_cast<std::int16_t>(rectangle.Height / 2);
    const auto left = static_cast<std::int16_t>(-right);
    const auto bottom = static_cast<std::int16_t>(-top);
    return {{{left, bottom, 0}, {right, bottom, 1}, {right, top, 1}, {left, top, 1}, {left, bottom, 1}}, 0};
}

LayingTask TaskOf(const std::string& box, Rectangle room, std::uint64_t seed = 1) {
    LayingTask task;
    task.Box = BoxOf(Pieces(), box);
    task.Room = RoomOf(room);
    task.Seed = seed;
    return task;
}

Laying Lay(const LayingTask& task) { return LayCircuits(Pieces(), task, {}); }

std::vector<Polygon> OutlinesOf(const Track& track, double tolerance = 0.01) {
    std::vector<Polygon> outlines;
    WalkTrack(Pieces(), track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
        outlines.push_back(OutlinePolygon(*placement, tolerance));
    });
    return outlines;
}

bool IsWithin(const Polygon& polygon, double x, double y) {
    bool within = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const WorldPoint a = polygon[i];
        const WorldPoint b = polygon[j];
        if ((a.Y > y) != (b.Y > y) && x < a.X + (y - a.Y) * (double{b.X} - a.X) / (double{b.Y} - a.Y)) within = !within;
    }
    return within;
}

/// The area that both cover, cm², by points half a centimetre apart.
double SharedArea(const Polygon& a, const Polygon& b) {
    constexpr double step = 0.5;
    const auto [left, right] = std::ranges::minmax(a, {}, &WorldPoint::X);
    const auto [bottom, top] = std::ranges::minmax(a, {}, &WorldPoint::Y);
    int shared = 0;
    for (double x = left.X + step / 2; x < right.X; x += step) {
        for (double y = bottom.Y + step / 2; y < top.Y; y += step) {
            if (IsWithin(b, x, y) && IsWithin(a, x, y)) ++shared;
        }
    }
    return shared * step * step;
}

void ExpectNoOverlaps(const std::vector<Polygon>& outlines) {
    for (std::size_t i = 0; i < outlines.size(); ++i) {
        for (std::size_t j = i + 2; j < outlines.size(); ++j) {
            if (i == 0 && j + 1 == outlines.size()) continue; // neighbours
            EXPECT_LT(SharedArea(outlines[i], outlines[j]), 2.5) << i << " and " << j;
        }
    }
}

/// Never outside, by however little.
void ExpectInside(const Track& track, Rectangle room) {
    constexpr double fine = 0.0001; // cm
    double across = 0, up = 0;
    for (const Polygon& outline : OutlinesOf(track, fine)) {
        for (const WorldPoint point : outline) {
            across = std::max(across, std::abs(double{point.X}));
            up = std::max(up, std::abs(double{point.Y}));
        }
    }
    EXPECT_LE(across, room.Width / 2.0);
    EXPECT_LE(up, room.Height / 2.0);
}

void ExpectFromBox(const Track& track, const PieceBox& box) {
    std::map<int, int> used;
    for (const std::string& code : track.ElementCodes)
        ++used[Pieces().Find(code)->StockIndex];
    for (const auto& [head, count] : used)
        EXPECT_LE(count, box.Counts.at(static_cast<std::size_t>(head))) << Pieces()[head].Code;
}

void ExpectSound(const LayingTask& task, const Laying& laying, Rectangle room) {
    std::set<std::vector<int>> keys;
    for (const LaidCircuit& circuit : laying.Circuits) {
        const TrackGap gap = GapOf(Pieces(), circuit.Track);
        EXPECT_LE(gap.Distance, 0.05);
        EXPECT_LE(std::abs(gap.Angle), 0.001);
        ExpectNoOverlaps(OutlinesOf(circuit.Track));
        ExpectInside(circuit.Track, room);
        ExpectFromBox(circuit.Track, task.Box);
        std::vector<int> rows;
        for (const std::string& code : circuit.Track.ElementCodes)
            rows.push_back(Pieces().FindRow(code));
        EXPECT_TRUE(keys.insert(CircuitKey(Pieces(), rows)).second) << "two are alike";
        EXPECT_DOUBLE_EQ(circuit.Used, static_cast<double>(rows.size()) / task.Box.Total());
    }
    EXPECT_TRUE(std::ranges::is_sorted(laying.Circuits, std::ranges::greater(), &LaidCircuit::Score));
}

TEST(LaidCircuits, OfASmallBoxAreAllThereAre) {
    // A full circle, with no straights, one pair in one way, two pairs in three ways.
    const LayingTask task = TaskOf("C151=8,C160=4", {240, 240});

    const Laying laying = Lay(task);

    EXPECT_TRUE(laying.AreAll);
    ASSERT_EQ(laying.Circuits.size(), 5U);
    EXPECT_EQ(laying.Circuits[0].Used, 1);
    EXPECT_EQ(laying.Circuits[4].Used, 8.0 / 12);
    ExpectSound(task, laying, {240, 240});
}

TEST(LaidCircuits, StayInsideASmallRoom) {
    // A circle is 74.6 cm wide, and an oval with one pair 109.6 cm long.
    const LayingTask task = TaskOf("C151=8,C160=4", {112, 80});

    const Laying laying = Lay(task);

    EXPECT_EQ(laying.Circuits.size(), 2U);
    ExpectSound(task, laying, {112, 80});
}

TEST(LaidCircuits, AreNoneWhereThePiecesMakeNoFullTurn) {
    EXPECT_TRUE(Lay(TaskOf("C151=7,C160=4", {400, 300})).Circuits.empty());
    EXPECT_TRUE(Lay(TaskOf("C160=40", {400, 300})).Circuits.empty());
    EXPECT_TRUE(Lay(TaskOf("C160=0", {400, 300})).Circuits.empty());
}

TEST(LaidCircuits, OfALargerBoxUseIt) {
    const LayingTask task = TaskOf("C151=12,C160=6,C159=2", {240, 160});

    const Laying laying = Lay(task);

    EXPECT_FALSE(laying.AreAll);
    ASSERT_EQ(laying.Circuits.size(), 10U);
    EXPECT_EQ(laying.Circuits.front().Used, 1);
    ExpectSound(task, laying, {240, 160});
}

TEST(LaidCircuits, OfNincoTrackCloseToo) {
    const LayingTask task = TaskOf("N10105=10,N10102=4,N10103=2", {300, 200});

    const Laying laying = Lay(task);

    ASSERT_EQ(laying.Circuits.size(), 10U);
    ExpectSound(task, laying, {300, 200});
}

/// Pieces of different systems next to each other.
int CountBareJoints(const Track& track) {
    const std::vector<std::string>& codes = track.ElementCodes;
    int bare = 0;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const std::string& next = codes[(i + 1) % codes.size()];
        if (codes[i] != "N10110" && next != "N10110" && codes[i].front() != next.front()) ++bare;
    }
    return bare;
}

TEST(LaidCircuits, OfBothSystemsJoinThemByAdapters) {
    for (const char* adapters : {"2", "4"}) {
        const LayingTask task =
            TaskOf("C151=12,C160=8,C159=4,N10102=4,N10105=8,N10103=2,N10110=" + std::string(adapters), {400, 300});

        const Laying laying = Lay(task);

        ASSERT_EQ(laying.Circuits.size(), 10U);
        EXPECT_GE(laying.Circuits.front().Used, 0.8);
        ExpectSound(task, laying, {400, 300});
        for (const LaidCircuit& circuit : laying.Circuits)
            EXPECT_EQ(CountBareJoints(circuit.Track), 0) << "with " << adapters << " adapters";
    }
}

TEST(LaidCircuits, HaveNoAdaptersWithNothingBetween) {
    // Two in a row would use more of a box that has too few other pieces of Ninco.
    for (const std::uint64_t seed : {1, 2, 3}) {
        const Laying laying = Lay(TaskOf("C151=10,C160=6,C159=2,N10110=2,N10102=1", {300, 200}, seed));
        ASSERT_FALSE(laying.Circuits.empty());
        for (const LaidCircuit& circuit : laying.Circuits) {
            const std::vector<std::string>& codes = circuit.Track.ElementCodes;
            for (std::size_t i = 0; i < codes.size(); ++i)
                EXPECT_FALSE(codes[i] == "N10110" && codes[(i + 1) % codes.size()] == "N10110");
        }
    }
}

TEST(LaidCircuits, LieInTheMiddleOfTheRoom) {
    const Laying laying = Lay(TaskOf("C151=12,C160=6,C159=2", {400, 300}));
    ASSERT_EQ(laying.Circuits.size(), 10U);
    for (const LaidCircuit& circuit : laying.Circuits) {
        float left = 1000, right = -1000, bottom = 1000, top = -1000;
        for (const Polygon& outline : OutlinesOf(circuit.Track)) {
            for (const WorldPoint point : outline) {
                left = std::min(left, point.X);
                right = std::max(right, point.X);
                bottom = std::min(bottom, point.Y);
                top = std::max(top, point.Y);
            }
        }
        EXPECT_NEAR(left + right, 0, 0.1);
        EXPECT_NEAR(bottom + top, 0, 0.1);
    }
}

TEST(LaidCircuits, KeepTheirDistanceFromAPillarInTheMiddle) {
    LayingTask task = TaskOf("C151=8", {400, 200}); // a circle, 74.6 cm wide, into which the pillar does not go
    const RoomPolygon pillar{{{-25, -25, 0}, {25, -25, 1}, {25, 25, 1}, {-25, 25, 1}, {-25, -25, 1}}, 0};
    std::ranges::copy(pillar.Points, std::back_inserter(task.Room.Points));

    const Laying laying = Lay(task);

    ASSERT_EQ(laying.Circuits.size(), 1U);
    double nearest = 400;
    for (const Polygon& outline : OutlinesOf(laying.Circuits.front().Track)) {
        for (const WorldPoint point : outline) {
            const double toPillar = std::max(std::abs(point.X) - 25.0, std::abs(point.Y) - 25.0);
            nearest = std::min({nearest, toPillar, 200.0 - std::abs(point.X), 100.0 - std::abs(point.Y)});
        }
    }
    EXPECT_GT(nearest, 5);
}

TEST(LaidCircuits, TakeSpecialPiecesIn) {
    const LayingTask task = TaskOf("C151=12,C160=4,C8006=2,C277=1,C159=1", {240, 160});

    const Laying laying = Lay(task);

    ASSERT_FALSE(laying.Circuits.empty());
    const std::vector<std::string>& best = laying.Circuits.front().Track.ElementCodes;
    EXPECT_EQ(std::ranges::count(best, "C8006"), 2);
    EXPECT_EQ(std::ranges::count(best, "C277"), 1);
    ExpectSound(task, laying, {240, 160});
}

TEST(LaidCircuits, KeepClearOfAPillar) {
    LayingTask task = TaskOf("C151=12,C160=6,C159=2", {240, 160});
    const RoomPolygon pillar{{{-20, -10, 0}, {20, -10, 1}, {20, 10, 1}, {-20, 10, 1}, {-20, -10, 1}}, 0};
    std::ranges::copy(pillar.Points, std::back_inserter(task.Room.Points));

    const Laying laying = Lay(task);

    ASSERT_FALSE(laying.Circuits.empty());
    const Polygon inside{{-20, -10}, {20, -10}, {20, 10}, {-20, 10}};
    for (const LaidCircuit& circuit : laying.Circuits) {
        for (const Polygon& outline : OutlinesOf(circuit.Track))
            EXPECT_LT(SharedArea(outline, inside), 0.5);
    }
}

TEST(LaidCircuits, AreTheSameForTheSameSeed) {
    const LayingTask task = TaskOf("C151=12,C160=6,C153=4", {240, 160}, 7);

    const Laying first = Lay(task);
    const Laying second = Lay(task);

    ASSERT_EQ(first.Circuits.size(), second.Circuits.size());
    for (std::size_t i = 0; i < first.Circuits.size(); ++i)
        EXPECT_EQ(first.Circuits[i].Track, second.Circuits[i].Track);
}

TEST(LaidCircuits, AreOthersForAnotherSeed) {
    const std::string box = "C151=12,C160=8,C159=4,C158=4";

    EXPECT_NE(Lay(TaskOf(box, {300, 200}, 1)).Circuits.front().Track,
              Lay(TaskOf(box, {300, 200}, 2)).Circuits.front().Track);
}

TEST(LaidCircuits, BeginOnAStraight) {
    for (const LaidCircuit& circuit : Lay(TaskOf("C151=12,C160=6,C159=2", {240, 160})).Circuits)
        EXPECT_TRUE(Pieces().Find(circuit.Track.ElementCodes.front())->IsStraight());
}

/// A circuit that uses so much of its box, whose heading swings to either side so often in a lap, and so far.
FoundCircuit Found(double used, std::size_t swings, double swing) {
    FoundCircuit circuit;
    circuit.Circuit.Parts.Used = used;
    circuit.Look.Harmonics.at(swings - 1) = swing;
    circuit.Look.Sizes.at(swings - 1) = swing;
    return circuit;
}

const std::vector<FoundCircuit> FiveCircuits{Found(0.85, 2, 1), Found(0.95, 1, 1), Found(0.94, 1, 1.23),
                                             Found(0.7, 3, 1), Found(0.95, 1, 1)};

TEST(BestOf, PrefersACircuitThatLooksDifferentToOneMuchLikeABetterOne) {
    const ScoreWeights usedAlone{1, 0, 0, 0, 0, 0, 0};

    EXPECT_EQ(BestOf(FiveCircuits, 1, usedAlone), (std::vector<std::size_t>{1}));
    EXPECT_EQ(BestOf(FiveCircuits, 2, usedAlone), (std::vector<std::size_t>{1, 0}));
    EXPECT_EQ(BestOf(FiveCircuits, 3, usedAlone), (std::vector<std::size_t>{1, 2, 0}));
    EXPECT_EQ(BestOf(FiveCircuits, 9, usedAlone), (std::vector<std::size_t>{1, 4, 2, 0, 3}))
        << "what looks the same is taken last of all";
}

TEST(Laying, GivesWhatItHasWhenItIsEndedWithinARound) {
    std::stop_source ending;
    const LayingTask task = TaskOf("C151=24,C160=24,C159=8,C158=4,C153=8,C152=8,C157=4", {400, 300});
    int reports = 0;
    const auto endAfterTheFirst = [&](int, int) {
        ++reports;
        ending.request_stop();
    };
    const JobWatch watch{.Progress = endAfterTheFirst, .Stop = {}};

    const Laying laying = LayCircuits(Pieces(), task, watch, ending.get_token());

    EXPECT_TRUE(laying.TimeWasUp);
    EXPECT_FALSE(laying.Circuits.empty());
    EXPECT_EQ(reports, 2) << "of the first round, and of the one that was ended";
}

TEST(LaidCircuits, AreLikeTheOneThatIsVariedWhereOneIs) {
    LayingTask task = TaskOf("C151=16,C160=10,C159=2", {400, 300});
    task.Weights = {.Used = 3, .Likeness = 10};
    task.LeftOut = {RowsOf("C159 C160 C160 C151L C160 C160 C151L C160 C151R C151R C151R C151R C151R C160 C160 C151L "
                           "C160 C151R C151R C159 C151L C151R C160 C160 C151R C151R C151R C151R")};
    EXPECT_EQ(Lay(task).Circuits.front().Parts.Likeness, 0);

    task.Varied = TrackPart{task.LeftOut.front(), {}};
    const LaidCircuit best = Lay(task).Circuits.front();

    EXPECT_EQ(best.Used, 1);
    EXPECT_GT(best.Parts.Likeness, 0.9);
}

/// The likeness of the best among the first few variations of a long circuit whose ends are pressed together and whose
/// chicane has an extension; `kept` of its pieces stay.
double LikenessOfVariations(std::size_t kept) {
    const Rows circuit =
        RowsOf("C160 C277 C367 C160 C160 C8006 C160 C160 C151R C151R C160 C160 C157 C157 C151R C151L C151L C160 C157 "
               "C151R C160 C153R C153R C153R C153R C160 C8006 C160 C160 C158 C157 C156R C156R C160 C8005 C151L C151L "
               "C151L C151L C160 C160 C8007 C8009 C8007 C8006 C160 C151L C151R C160 C160 C153R C153R C153R C153R C160 "
               "C160 C151R C151R C8006 C160 C151L C151L C160 C151R C151R C160 C160");
    LayingTask task =
        TaskOf("C160=24,C151=18,C153=8,C156=2,C157=4,C158=1,C277=1,C367=1,C8005=1,C8006=4,C8007=2,C8009=1", {650, 450});
    task.Varied = TrackPart{circuit, {38, -162, 1.570796F}};
    if (kept > 0)
        task.Kept = TrackPart{{circuit.begin(), circuit.begin() + static_cast<std::ptrdiff_t>(kept)}, task.Varied->At};
    CircuitSearch search(Pieces(), task);
    double likeness = 0;
    constexpr double much = 0.9;
    for (int round = 0; round < 60 && likeness < much && search.Round({}); ++round) {
        for (const FoundCircuit& found : search.Found())
            likeness = std::max(likeness, found.Circuit.Parts.Likeness);
    }
    return likeness;
}

TEST(Variations, AreMuchLikeACircuitThatClosesNoBetterThanByPressing) { EXPECT_GT(LikenessOfVariations(0), 0.9); }

TEST(Variations, KeepAPartWithOneOfAPairOfChangeOvers) { EXPECT_GT(LikenessOfVariations(16), 0.9); }

TEST(CircuitSearch, CanBeGoneOnWithWhereNothingWasFound) {
    CircuitSearch search(Pieces(), TaskOf("C151=12,C160=6", {40, 40}));

    for (int begun = 0; begun < 3; ++begun) {
        constexpr int most = 100;
        int rounds = 0;
        while (rounds < most && search.Round({}))
            ++rounds;
        EXPECT_LT(rounds, most);
        EXPECT_GE(search.Spent(), 0);
        search.Continue();
    }

    EXPECT_TRUE(search.Found().empty());
}

TEST(Laying, StopsWhenItIsAskedTo) {
    std::stop_source stop;
    JobWatch watch{.Progress = [&](int, int) { stop.request_stop(); }, .Stop = stop.get_token()};

    EXPECT_THROW(LayCircuits(Pieces(), TaskOf("C151=24,C160=24,C153=8", {400, 300}), watch), Stopped);
}

} // namespace
} // namespace pistaro
