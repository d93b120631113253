#include "search/run_table.h"

#include "support/pieces.h"

#include <gtest/gtest.h>

#include <set>

namespace pistaro {
namespace {

struct Tabled {
    explicit Tabled(const std::string& box, RunTable::StraightsInOrder order = RunTable::StraightsInOrder::All,
                    std::size_t most = 100'000)
        : Shapes(BoxOf(Pieces(), box).Counts), Steps(StepsOf(Pieces(), Shapes)),
          Table(Steps, TrackSystem::Scalextric, Shapes, most, order) {}

    /// The runs that lead from the origin to a pose, as codes.
    std::set<std::string> To(const SearchPose& pose) const {
        std::set<std::string> runs;
        Table.ForEachTo(pose, 0.01, [&](std::size_t run) {
            std::string codes;
            for (const std::uint8_t step : Table.StepsOfRun(run))
                codes += Pieces()[Steps[step].Row].Code + " ";
            runs.insert(codes);
        });
        return runs;
    }

    ShapeCounts Shapes;
    std::vector<LayingStep> Steps;
    RunTable Table;
};

using Runs = std::set<std::string>;

TEST(RunTable, HoldsEveryRunThatTheBoxAllows) {
    const Tabled tabled("C160=1,C151=2");

    EXPECT_EQ(tabled.Table.Depth(), 3);
    EXPECT_EQ(tabled.Table.CountUpTo(0), 1U);
    EXPECT_EQ(tabled.Table.CountUpTo(1), 4U);          // a straight, and a curve of either hand
    EXPECT_EQ(tabled.Table.CountUpTo(2), 4U + 4 + 4);  // two curves; a curve and the straight, either first
    EXPECT_EQ(tabled.Table.CountUpTo(3), 12U + 3 * 4); // the straight in three places
}

TEST(RunTable, FindsTheRunsThatLeadToAPose) {
    const Tabled tabled("C160=2,C159=2");

    EXPECT_EQ(tabled.To({0, 52.5, 0}), (Runs{"C160 C159 ", "C159 C160 "}));
    EXPECT_EQ(tabled.To({0, 35, 0}), (Runs{"C160 ", "C159 C159 "}));
    EXPECT_EQ(tabled.To({0, 35, 1}), Runs{});
    EXPECT_EQ(tabled.To({0, 35.1, 0}), Runs{});
    EXPECT_EQ(tabled.To({0, 0, 0}), Runs{""});
}

TEST(RunTable, ListsNeighbouringStraightsInOneOrderWhereThatIsEnough) {
    const Tabled tabled("C160=2,C159=2", RunTable::StraightsInOrder::One);

    EXPECT_EQ(tabled.To({0, 52.5, 0}).size(), 1U);
}

TEST(RunTable, HoldsOnlyWholeLengths) {
    const Tabled tabled("C160=9,C151=9", RunTable::StraightsInOrder::All, 1 + 3 + 9 + 20);

    EXPECT_EQ(tabled.Table.Depth(), 2);
    EXPECT_EQ(tabled.Table.CountUpTo(2), 13U);
}

TEST(RunTable, OfNothingHoldsTheEmptyRunAlone) {
    const Tabled tabled("C160=0");

    EXPECT_EQ(tabled.Table.Depth(), 0);
    EXPECT_EQ(tabled.To({0, 0, 0}), Runs{""});
}

} // namespace
} // namespace pistaro
