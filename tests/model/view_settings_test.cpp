// The area label, the units and the scroll bars.
#include "model/view_settings.h"

#include "platform/fault.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>

namespace pistaro {
namespace {

const Units Centimetres{false, "EUR"};
const Units Inches{true, "EUR"};

TEST(AreaLabel, NamesTheSideTwice) {
    EXPECT_EQ(AreaLabel(150, Centimetres), "Area: 150 x 150 cm");
    EXPECT_EQ(AreaLabel(254, Inches), "Area: 100 x 100 in");
}

TEST(AreaLabel, IsCutToOneDecimal) {
    EXPECT_EQ(LengthLabel(150.19, Centimetres), "150.1");
    EXPECT_EQ(LengthLabel(.56, Centimetres), ".5");
    EXPECT_EQ(LengthLabel(320, Inches), "125.9");
    EXPECT_EQ(LengthLabel(-.05, Centimetres), "-.1") << "cut downwards";
}

TEST(AreaLabel, DoesNotLoseATenthToASinglesRounding) {
    EXPECT_EQ(LengthLabel(150.7F, Centimetres), "150.7");
    EXPECT_EQ(LengthLabel(320.1F, Centimetres), "320.1");
    EXPECT_EQ(LengthLabel(2.54F, Inches), "1");
}

TEST(AreaLabel, HasAnExponentWhereTheAreaIsAbsurd) {
    EXPECT_EQ(LengthLabel(0, Centimetres), "0");
    EXPECT_EQ(LengthLabel(1e30F, Centimetres), "1E+30");
    EXPECT_EQ(LengthLabel(-20, Centimetres), "-20");
}

TEST(Units, TheInchIsItsOwnSingle) {
    EXPECT_EQ(std::bit_cast<std::uint32_t>(Inches.UnitFactor()), 0x40228F4AU);
    EXPECT_EQ(Centimetres.UnitFactor(), 1);
}

TEST(View, IsASquareAroundItsCentre) {
    const ViewRectangle shown =
        ShownRectangle({.MidX = 10, .MidY = -5, .Width = 41, .MWid = 0, .HMov = {}, .VMov = {}});

    EXPECT_EQ(shown.ViewLeft, -10.5F);
    EXPECT_EQ(shown.ViewTop, 15.5F);
    EXPECT_EQ(shown.ViewRight, 30.5F);
    EXPECT_EQ(shown.ViewBottom, -25.5F);
}

TEST(ScrollBar, RoundsItsEndsAndItsValueHalvesToEven) {
    const ScrollBar bar = BarAround(0.5, 10, 2.5);

    EXPECT_EQ(bar.Minimum, -10) << "from -9.5";
    EXPECT_EQ(bar.Maximum, 10) << "from 10.5";
    EXPECT_EQ(bar.Value, 2);
}

TEST(ScrollBar, CannotStandBeyondItsNumbers) {
    EXPECT_EQ(BarAround(1 << 30, 1 << 30, 0).Minimum, 0);
    EXPECT_THROW(BarAround(1.2e9, 0, 0), Fault);
    EXPECT_THROW(BarAround(0, -1.2e9, 0), Fault);
    EXPECT_THROW(BarAround(0, 0, 1e38), Fault);
    EXPECT_THROW(BarAround(std::numeric_limits<double>::quiet_NaN(), 0, 0), Fault);
}

} // namespace
} // namespace pistaro
