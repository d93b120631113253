// Where tips stand.
#include "ui/tip_place.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

constexpr QRect Screen(0, 0, 1000, 600);
constexpr QSize Tip(200, 80);

TEST(TipPlace, IsRightOfWhatItTellsOf) {
    EXPECT_EQ(PlaceOfTip(Tip, {100, 100, 50, 40}, Screen, {}), QRect(158, 100, 200, 80));
}

TEST(TipPlace, IsOnAnotherSideWhereTheScreenEnds) {
    EXPECT_EQ(PlaceOfTip(Tip, {900, 100, 80, 40}, Screen, {}), QRect(692, 100, 200, 80));
    EXPECT_EQ(PlaceOfTip(Tip, {0, 100, 1000, 40}, Screen, {}), QRect(0, 148, 200, 80));
    EXPECT_EQ(PlaceOfTip(Tip, {0, 500, 1000, 60}, Screen, {}), QRect(0, 412, 200, 80));
}

TEST(TipPlace, SparesWhatLiesNextToWhatItTellsOf) {
    const QRect told(400, 300, 50, 40);
    const QRect right(450, 300, 50, 40);
    const QRect left(350, 300, 50, 40);

    EXPECT_EQ(PlaceOfTip(Tip, told, Screen, {right}), QRect(192, 300, 200, 80));
    EXPECT_EQ(PlaceOfTip(Tip, told, Screen, {right, left}), QRect(400, 348, 200, 80));
}

} // namespace
} // namespace pistaro
