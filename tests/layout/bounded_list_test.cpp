// A list in a room of its own.
#include "layout/bounded_list.h"

#include "layout/shapes.h"

#include <gtest/gtest.h>

#include <vector>

namespace pistaro {
namespace {

using ThreeNumbers = BoundedList<int, 3>;

std::vector<int> In(const ThreeNumbers& list) { return {list.begin(), list.end()}; }

TEST(BoundedList, HoldsWhatWasAddedInThatOrder) {
    ThreeNumbers list;
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(list.begin(), list.end());

    list.Add(7);
    list.Add(8);

    EXPECT_EQ(In(list), (std::vector{7, 8}));
    EXPECT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1], 8);
}

TEST(BoundedList, RefusesWhatItHasNoRoomForAndStaysAsItWas) {
    ThreeNumbers list;
    for (const int number : {1, 2, 3})
        list.Add(number);

    EXPECT_THROW(list.Add(4), std::length_error);

    EXPECT_EQ(In(list), (std::vector{1, 2, 3}));
}

TEST(BoundedList, CopiesAreListsOfTheirOwn) {
    ThreeNumbers list;
    list.Add(1);

    ThreeNumbers copy = list;
    copy.Add(2);

    EXPECT_EQ(In(list), (std::vector{1}));
    EXPECT_EQ(In(copy), (std::vector{1, 2}));
}

TEST(BoundedList, KeepsSegmentsOfBothShapes) {
    BoundedList<Segment, 2> list;
    list.Add(LineSegment{{1, 2}, {3, 4}});
    list.Add(ArcSegment{{5, 6}, 7, 0.5F, 1.5F});

    EXPECT_EQ(std::get<LineSegment>(list[0]).To, (WorldPoint{3, 4}));
    EXPECT_EQ(std::get<ArcSegment>(list[1]).Radius, 7);
}

} // namespace
} // namespace pistaro
