// Pieces found by place.
#include "layout/ground_grid.h"

#include "support/pieces.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace pistaro {
namespace {

Ground At(float x, float y, const char* code = "C160") {
    return GroundOf(PlacePiece(Pieces(), code, {x, y, 0.7F}, "").value());
}

std::multiset<int> Meeting(const GroundGrid& grid, const GroundBox& box) {
    std::multiset<int> found;
    grid.ForEachMeeting(box, [&](int index, const Ground&) { return found.insert(index), true; });
    return found;
}

TEST(GroundGrid, OfNothingFindsNothing) {
    EXPECT_TRUE(Meeting(GroundGrid(), {-1000, 1000, -1000, 1000}).empty());
    EXPECT_TRUE(Meeting(GroundGrid(std::vector<Ground>()), {-1000, 1000, -1000, 1000}).empty());
}

TEST(GroundGrid, FindsEachPieceOnceWhereverItLies) {
    std::mt19937 random(3);
    const auto place = [&](float reach) { return (static_cast<float>(random() % 20001) / 10000 - 1) * reach; };
    for (const float reach : {30.0F, 300.0F, 9000.0F}) {
        std::vector<Ground> grounds;
        for (int piece = 0; piece < 400; ++piece)
            grounds.push_back(At(place(reach), place(reach), piece % 2 == 0 ? "C160" : "N10108L"));
        const GroundGrid grid(grounds);
        for (int query = 0; query < 200; ++query) {
            const GroundBox box = At(place(reach * 1.2F), place(reach * 1.2F)).Box.Grown(query % 5 * 40);
            std::multiset<int> expected;
            for (std::size_t i = 0; i < grounds.size(); ++i) {
                if (grounds[i].Box.Meets(box)) expected.insert(static_cast<int>(i));
            }
            ASSERT_EQ(Meeting(grid, box), expected) << "query " << query << " within " << reach;
        }
    }
}

TEST(GroundGrid, StopsWhenItIsToldTo) {
    const GroundGrid grid({At(0, 0), At(1, 1), At(2, 2)});
    int visits = 0;
    EXPECT_FALSE(grid.ForEachMeeting({-50, 50, -50, 50}, [&](int, const Ground&) { return ++visits < 2; }));
    EXPECT_EQ(visits, 2);
    EXPECT_TRUE(grid.ForEachMeeting({-50, 50, -50, 50}, [](int, const Ground&) { return true; }));
}

} // namespace
} // namespace pistaro
