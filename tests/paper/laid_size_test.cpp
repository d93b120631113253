#include "paper/laid_size.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(TheLaidSize, IsThatOfThePiecesInTheUnitsOfTheDesign) {
    Project project = ProjectOf("C160");
    project.Design.Room.Points = {{0, 0, 0}, {300, 0, 1}};
    const auto size = [&] { return LaidSizeText(DrawingOf(Pieces(), project, {.Numbers = true, .Room = true})); };

    EXPECT_EQ(size(), "15.5 × 35 cm");
    project.Preferences.Units.Inches = true;
    EXPECT_EQ(size(), "6.1 × 13.8 in");
    project = ProjectOf("C160 C160 C160 C160");
    EXPECT_EQ(size(), "0.16 × 1.40 m");
    project = ProjectOf("C160 C160 C160 C157");
    EXPECT_EQ(size(), "0.16 × 1.13 m") << "112.75 cm";
    project = ProjectOf("");
    EXPECT_EQ(size(), "");
}

TEST(ARuleOfTrack, IsTheLongestRoundLengthThatFits) {
    const auto rule = [](double most, bool inches) {
        const TrackRule found = LongestRule(most, {.Inches = inches, .Currency = ""});
        return found.Text + ", " + std::to_string(found.Parts) + " parts";
    };

    EXPECT_EQ(rule(70, false), "50 cm, 5 parts");
    EXPECT_EQ(rule(49.9, false), "20 cm, 4 parts");
    EXPECT_EQ(rule(100, false), "1 m, 5 parts");
    EXPECT_EQ(rule(350, false), "2 m, 4 parts");
    EXPECT_EQ(rule(70, true), "20 in, 4 parts") << "27.6 in";
    EXPECT_NEAR(LongestRule(70, {.Inches = true, .Currency = ""}).Length, 50.8, 0.001);
}

} // namespace
} // namespace pistaro
