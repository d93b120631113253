// What becomes of circuits before they count as found.
#include "search/circuit_pool.h"

#include "support/chain.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pistaro {
namespace {

constexpr double Quarter = PiValue / 2;

RoomPolygon Rectangle(std::int16_t width, std::int16_t depth) {
    return {{{0, 0, 0}, {width, 0, 1}, {width, depth, 1}, {0, depth, 1}, {0, 0, 1}}, 0};
}

/// The heading of an oval's straights, of four pieces each, that was grown by so many times 11.25 degrees; -1 where it
/// found no place. It takes 214.6 cm by 74.6 cm along the walls, and 173.6 cm both ways at 45 degrees.
double HeadingOfOval(const RoomPolygon& room, int grown) {
    LayingTask task;
    task.Box = BoxOf(Pieces(), "C151=8,C160=8");
    task.Room = room;
    const LoopRoom walls(room, 0);
    CircuitPool pool(Pieces(), task, walls);
    // It begins amid a bend, not where it is to begin.
    const Rows oval = RowsOf("C151L C151L C160 C160 C160 C160 C151L C151L C151L C151L C160 C160 C160 C160 C151L C151L");
    if (!pool.Add(oval, {90, 90, grown})) return -1;
    const Track& track = pool.Found().front().Circuit.Track;
    EXPECT_EQ(CodesOf(track).substr(0, 19), "C160 C160 C160 C160");
    return track.TrackStartHeading;
}

/// Straights lie the same when they are turned by half a turn.
void ExpectSameLine(double heading, double other) {
    EXPECT_GE(heading, 0);
    EXPECT_NEAR(std::remainder(heading - other, 2 * Quarter), 0, 0.0001);
}

TEST(CircuitPool, PlacesCircuitsAlongTheWallsHoweverTheyWereGrown) {
    for (int grown = 0; grown < HeadingCount; ++grown) {
        SCOPED_TRACE(grown);
        const double heading = HeadingOfOval(Rectangle(300, 240), grown);
        EXPECT_GE(heading, 0);
        EXPECT_NEAR(std::remainder(heading, Quarter), 0, 0.0001);
    }
}

TEST(CircuitPool, PlacesCircuitsAlongTheOtherWallsWhereTheyFitNoOtherWay) {
    for (const int grown : {0, 3, 4, 8}) {
        SCOPED_TRACE(grown);
        ExpectSameLine(HeadingOfOval(Rectangle(220, 120), grown), Quarter);
        ExpectSameLine(HeadingOfOval(Rectangle(120, 220), grown), 0);
    }
}

TEST(CircuitPool, PlacesACircuitAslantWhereItFitsNoOtherWay) {
    constexpr int aslant = 4; // the bend that it begins with turns by a quarter more
    ExpectSameLine(HeadingOfOval(Rectangle(180, 180), aslant), 1.5 * Quarter);
    EXPECT_EQ(HeadingOfOval(Rectangle(180, 180), 0), -1);
    EXPECT_EQ(HeadingOfOval(Rectangle(170, 170), aslant), -1);
}

/// Sixteen pieces are too many to look at all circuits of them.
TEST(LaidCircuits, BeginAlongTheWallsWhereTheRoomIsLarge) {
    LayingTask task;
    task.Box = BoxOf(Pieces(), "C151=8,C160=8");
    task.Room = Rectangle(400, 400);

    const Laying laying = LayCircuits(Pieces(), task, {});

    ASSERT_EQ(laying.Circuits.size(), 8U);
    for (const LaidCircuit& circuit : laying.Circuits)
        EXPECT_NEAR(std::remainder(circuit.Track.TrackStartHeading, Quarter), 0, 0.0001) << CodesOf(circuit.Track);
}

/// These twelve pieces make five circuits.
TEST(CircuitPool, LeavesOutWhatIsKnown) {
    LayingTask task;
    task.Box = BoxOf(Pieces(), "C151=8,C160=4");
    task.Room = Rectangle(240, 160);
    task.LeftOut = {RowsOf("C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R C160")};

    const Laying laying = LayCircuits(Pieces(), task, {});

    EXPECT_EQ(laying.Circuits.size(), 4U);
    EXPECT_TRUE(laying.AreAll);
}

} // namespace
} // namespace pistaro
