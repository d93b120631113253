// The order in which found circuits are shown.
#include "search/circuit_order.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

FoundCircuit Found(const char* codes) {
    FoundCircuit circuit;
    circuit.Look = LookOf(Pieces(), RowsOf(codes));
    return circuit;
}

const std::string Oval = "C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L";
const std::string Circle = "C151L C151L C151L C151L C151L C151L C151L C151L";
const std::string LongerOval = "C160 C158 C151L C151L C151L C151L C160 C158 C151L C151L C151L C151L";

TEST(Ranked, PutsWhatIsRelatedToABetterOneBehindAllOthers) {
    const std::vector<FoundCircuit> found{Found(LongerOval.c_str()), Found(Circle.c_str()), Found(Oval.c_str()),
                                          Found(Circle.c_str())};

    EXPECT_EQ(Ranked(found, {2, 0, 1, 3}), (std::vector<RankedCircuit>{{2}, {1}, {0, 0}, {3, 1}}));
    EXPECT_EQ(Ranked(found, {1, 3, 2, 0}), (std::vector<RankedCircuit>{{1}, {2}, {3, 0}, {0, 1}}))
        << "grouped by what they are related to";
    EXPECT_EQ(Ranked(found, {}), std::vector<RankedCircuit>());
}

/// A circuit that uses so much of its box and winds so much.
FoundCircuit Scored(double used, double winding, const std::string& codes = Oval) {
    FoundCircuit circuit = Found(codes.c_str());
    circuit.Circuit.Parts.Used = used;
    circuit.Circuit.Parts.Winding = winding;
    return circuit;
}

TEST(ScoresBesideEachOther, LetWhatIsAskedForTellCircuitsApartHoweverCloseTheyLieInIt) {
    const std::vector<FoundCircuit> found{Scored(1, 0.3), Scored(0.7, 0.4), Scored(0.85, 0.35)};
    const ScoreWeights windingMost{6, 0, 0, 0, 0, 0, 0, 0, 0, 10};
    EXPECT_GT(Score(found[0].Circuit.Parts, windingMost), Score(found[1].Circuit.Parts, windingMost));

    const std::vector<double> scores = ScoresBesideEachOther(found, windingMost);

    ASSERT_EQ(scores.size(), 3U);
    EXPECT_NEAR(scores[0], 6 / 16.0, 1e-9);
    EXPECT_NEAR(scores[1], (4.2 + 10) / 16, 1e-9);
    EXPECT_NEAR(scores[2], (5.1 + 5) / 16, 1e-9);
}

TEST(ScoresBesideEachOther, MakeLittleOfADifferenceThatNobodySees) {
    const std::vector<FoundCircuit> found{Scored(1, 0.5), Scored(1, 0.501)};

    const std::vector<double> scores = ScoresBesideEachOther(found, {0, 0, 0, 0, 0, 0, 0, 0, 0, 10});

    EXPECT_NEAR(scores[1] - scores[0], 0.02, 1e-9);
    EXPECT_EQ(ScoresBesideEachOther({}, {}), std::vector<double>());
}

TEST(OneOfEachShape, IsTheBestOfThoseThatLookAlikeAndTellsOfTheOthers) {
    const std::vector<FoundCircuit> found{Found(Oval.c_str()), Found(Circle.c_str()), Found(Oval.c_str()),
                                          Found(Circle.c_str()), Found(Oval.c_str())};
    const std::vector<double> scores{0.5, 0.4, 0.6, 0.7, 0.5};

    EXPECT_EQ(OneOfEachShape(found, scores, 10),
              (std::vector<RankedCircuit>{{.Place = 3, .Others = 1}, {.Place = 2, .Others = 2}}));
    EXPECT_EQ(OneOfEachShape(found, scores, 1), (std::vector<RankedCircuit>{{.Place = 3, .Others = 1}}))
        << "what is like none of those that are shown is counted nowhere";
    EXPECT_EQ(OneOfEachShape({}, {}, 10), std::vector<RankedCircuit>());
}

TEST(InWishedOrder, PutsWhatIsNotClearBehindAllOthers) {
    const std::vector<FoundCircuit> found{Scored(1, 0), Scored(0.9, 0, Circle), Scored(0.8, 0)};
    const auto isClear = [](std::size_t place) { return place != 0; };

    EXPECT_EQ(InWishedOrder(found, {.Weights = {}, .Count = 10, .OneOfEachShape = true}, isClear),
              (std::vector<RankedCircuit>{{.Place = 1}, {.Place = 0, .Others = 1}}));
    EXPECT_EQ(InWishedOrder(found, {.Weights = {}, .Count = 10}, isClear),
              (std::vector<RankedCircuit>{{1}, {2}, {0, 1}}));
    EXPECT_EQ(InWishedOrder(found, {.Weights = {.Likeness = 1}, .Count = 10}, isClear),
              (std::vector<RankedCircuit>{{1}, {2}, {0}}));
}

TEST(InOrder, LeavesWhatIsRelatedWhereItStands) {
    EXPECT_EQ(InOrder({1, 3, 2}), (std::vector<RankedCircuit>{{1}, {3}, {2}}));
}

} // namespace
} // namespace pistaro
