// What is told for certain before anything is looked for.
#include "search/no_circuit.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

LayingTask TaskOf(const std::string& box, std::int16_t width = 400, std::int16_t depth = 300) {
    LayingTask task;
    task.Box = BoxOf(Pieces(), box);
    task.Room = {{{0, 0, 0}, {width, 0, 1}, {width, depth, 1}, {0, depth, 1}, {0, 0, 1}}, 0};
    return task;
}

std::string Why(const LayingTask& task) { return WhyNoCircuit(Pieces(), task); }

TEST(NoCircuit, IsThereWithoutCurvesOrWithTooFew) {
    EXPECT_EQ(Why(TaskOf("C160=40")), "There are no curves in the box.");
    EXPECT_EQ(Why(TaskOf("C151=5,C160=4")), "The curves of the box turn by 225° in all, and a circuit turns by 360°.");
    EXPECT_EQ(Why(TaskOf("C153=8,C151=3")), "The curves of the box turn by 315° in all, and a circuit turns by 360°.");
    EXPECT_EQ(Why(TaskOf("C151=8")), "");
}

TEST(NoCircuit, IsThereOfTwoSystemsThatNothingJoins) {
    EXPECT_EQ(Why(TaskOf("C151=4,N10105=6")),
              "The curves of one system turn by 270° in all, and a circuit turns by 360°.");
    EXPECT_EQ(Why(TaskOf("C151=4,N10105=6,N10110=1")),
              "The curves of one system turn by 270° in all, and a circuit turns by 360°.");
    EXPECT_EQ(Why(TaskOf("C151=4,N10105=6,N10110=2")), "");
}

TEST(Systems, StayApartWithoutTwoAdapters) {
    const auto why = [](const char* box) { return WhySystemsStayApart(Pieces(), BoxOf(Pieces(), box)); };
    const std::string need = "Scalextric and Ninco join by N10110 only, and a circuit of both takes two: ";

    EXPECT_EQ(why("C151=8,N10105=8"), need + "without them circuits are of one system.");
    EXPECT_EQ(why("C151=8,N10105=8,N10110=1"), need + "with one circuits are of one system.");
    EXPECT_EQ(why("C151=8,N10105=8,N10110=2"), "");
    EXPECT_EQ(why("C151=8,C160=8"), "");
    EXPECT_EQ(why("N10105=8,N10110=1"), "");
}

TEST(NoCircuit, IsThereInARoomSmallerThanItsSmallestCircle) {
    EXPECT_EQ(Why(TaskOf("C151=8,C153=4", 300, 74)),
              "The smallest circle of the box, of C151, takes 75 cm, and the room is 74 cm deep.");
    EXPECT_EQ(Why(TaskOf("C151=8,C153=4", 300, 75)), "");
}

TEST(NoCircuit, IsThereWhereTooMuchIsKeptFromTheWalls) {
    LayingTask task = TaskOf("C151=8,C153=4", 300, 95);
    task.FromWalls = 10;
    EXPECT_EQ(Why(task), "");
    task.FromWalls = 11;
    EXPECT_EQ(Why(task),
              "The smallest circle of the box, of C151, takes 75 cm, and the room is 73 cm deep between what "
              "is kept from the walls.");
}

TEST(NoCircuit, IsThereAroundAPartNearerToAWallThanCircuitsMayBe) {
    LayingTask task = TaskOf("C151=8,C160=4");
    task.Kept = TrackPart{RowsOf("C160 C160"), {200, 4, 0}};
    task.FromWalls = 4;
    EXPECT_EQ(Why(task), "");
    task.FromWalls = 5;
    EXPECT_EQ(Why(task), "The part that is kept lies nearer to a wall than 5 cm.");
}

TEST(NoCircuit, IsThereAroundAPartOutsideTheRoom) {
    LayingTask task = TaskOf("C151=8,C160=4");
    task.Kept = TrackPart{RowsOf("C160 C160"), {200, 100, 0}};
    EXPECT_EQ(Why(task), "");
    task.Kept->At.CursorY = 250;
    EXPECT_EQ(Why(task), "The part that is kept does not lie inside the room.");
}

TEST(NoCircuit, CountsWhatIsKeptThoughTheBoxHoldsLess) {
    LayingTask task = TaskOf("C151=4");
    EXPECT_NE(Why(task), "");
    task.Kept = TrackPart{RowsOf("C151L C151L C151L C151L C151L C151L C151L C151L"), {200, 100, 0}};
    EXPECT_EQ(Why(task), "");
}

} // namespace
} // namespace pistaro
