// What becomes of circuits before they count as found.
#include "search/laying.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

/// These twelve pieces make five circuits.
TEST(CircuitPool, LeavesOutWhatIsKnown) {
    LayingTask task;
    task.Box = BoxOf(Pieces(), "C151=8,C160=4");
    task.Room = {{{0, 0, 0}, {240, 0, 1}, {240, 160, 1}, {0, 160, 1}, {0, 0, 1}}, 0};
    task.LeftOut = {RowsOf("C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R C160")};

    const Laying laying = LayCircuits(Pieces(), task, {});

    EXPECT_EQ(laying.Circuits.size(), 4U);
    EXPECT_TRUE(laying.AreAll);
}

} // namespace
} // namespace pistaro
