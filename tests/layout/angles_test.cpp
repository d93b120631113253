// The three small rules for angles and singles.
#include "layout/angles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pistaro {
namespace {

TEST(NormaliseAngle, BringsAnAngleIntoOneTurn) {
    EXPECT_FLOAT_EQ(NormaliseAngle(7.0F), 0.71681529F);
    EXPECT_FLOAT_EQ(NormaliseAngle(-1.0F), 5.2831847F);
    EXPECT_EQ(NormaliseAngle(3.0F), 3.0F);
}

TEST(NormaliseAngle, TurnsByTheSystemsCircleConstant) {
    EXPECT_NEAR(NormaliseAngle(-3.0F), 2 * 3.14159235358979 - 3, 1e-7) << "twice pi is 6e-7 more";
}

TEST(NormaliseAngle, CorrectsOnceOnly) {
    EXPECT_FLOAT_EQ(NormaliseAngle(20.0F), 13.716815F);
    EXPECT_FLOAT_EQ(NormaliseAngle(-10.0F), -3.7168153F);
}

TEST(NormaliseAngle, LeavesZeroAndAWholeTurn) {
    EXPECT_EQ(NormaliseAngle(0.0F), 0.0F);
    EXPECT_EQ(NormaliseAngle(TwoPi), TwoPi);
    EXPECT_EQ(TwoPi, 6.2831847F) << "compared as a single";
}

TEST(MinSingleAndMaxSingle, TellTheSmallerAndTheGreater) {
    EXPECT_EQ(MinSingle(1, 2), 1);
    EXPECT_EQ(MinSingle(2, 1), 1);
    EXPECT_EQ(MaxSingle(1, 2), 2);
    EXPECT_EQ(MaxSingle(2, 1), 2);
}

TEST(MinSingleAndMaxSingle, WithEqualValuesTakeTheFirstAndTheSecond) {
    EXPECT_TRUE(std::signbit(MinSingle(-0.0F, 0.0F)));
    EXPECT_FALSE(std::signbit(MaxSingle(-0.0F, 0.0F)));
    EXPECT_FALSE(std::signbit(MinSingle(0.0F, -0.0F)));
    EXPECT_TRUE(std::signbit(MaxSingle(0.0F, -0.0F)));
}

} // namespace
} // namespace pistaro
