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

TEST(InOrder, LeavesWhatIsRelatedWhereItStands) {
    EXPECT_EQ(InOrder({1, 3, 2}), (std::vector<RankedCircuit>{{1}, {3}, {2}}));
}

} // namespace
} // namespace pistaro
