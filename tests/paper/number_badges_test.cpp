// Where numbers stand on sheets and tiles.
#include "paper/number_badges.h"
#include "paper/sheets.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

CircuitDrawing Numbered(const std::string& codes) { return DrawingOf(Pieces(), ProjectOf(codes), {.Numbers = true}); }

bool IsWithin(const Box& inner, const Box& outer) {
    return inner.Left >= outer.Left && inner.Right <= outer.Right && inner.Bottom >= outer.Bottom &&
           inner.Top <= outer.Top;
}

const std::string Oval = "C160 C160 C151L C151L C151L C151L C157 C160 C160 C151L C151L C151L C151L";

TEST(NumbersOnPaper, StandInTheMiddleOfAPieceThatIsLargeEnough) {
    const auto numbers = NumbersIn(Numbered("C160"), {{-50, -50, 50, 50}}, 5, 0.5); // 15.5 x 35 cm

    ASSERT_EQ(numbers.size(), 1U);
    ASSERT_EQ(numbers[0].size(), 1U);
    EXPECT_EQ(numbers[0][0].Text, "0");
    EXPECT_NEAR(numbers[0][0].Place.X, 7.75, 0.001);
    EXPECT_NEAR(numbers[0][0].Place.Y, 17.5, 0.001);
    EXPECT_FALSE(numbers[0][0].StandsAside());
}

TEST(NumbersOnPaper, StandBesideAPieceThatIsTooSmall) {
    const auto numbers = NumbersIn(Numbered("C157"), {{-500, -500, 500, 500}}, 50, 0.5); // 0.31 cm wide on the paper

    EXPECT_TRUE(numbers.at(0).at(0).StandsAside());
}

TEST(NumbersOnPaper, ArePushedOffACutThatRunsThroughThem) {
    // 2.5 cm of the world, on a piece whose middle is at 17.5: the cut is at 17, 1.5 mm of paper are air.
    const auto numbers = NumbersIn(Numbered("C160"), {{-50, 17, 50, 90}, {-50, -50, 50, 17}}, 5, 0.5);

    ASSERT_EQ(numbers[0].size(), 1U);
    EXPECT_EQ(numbers[1].size(), 0U);
    EXPECT_NEAR(numbers[0][0].Place.Y, 17 + 1.25 + 0.75, 0.001);
}

TEST(NumbersOnPaper, AreWholeInWhatStaysOfOneTileAndMeetNoOther) {
    const CircuitDrawing drawing = Numbered(Oval);
    for (const double scale : {1.0, 4.0, 10.0}) {
        const SheetPlan plan = PlanSheets(drawing, {.Scale = scale, .Paper = FindPaper("A5"), .Tiles = true});
        std::vector<Box> cells;
        for (const Sheet& sheet : plan.Sheets)
            cells.push_back(sheet.Cell);
        const auto numbers = NumbersIn(drawing, cells, scale, BadgeHeightAt(scale, plan.Area()));

        std::size_t count = 0;
        for (std::size_t tile = 0; tile < numbers.size(); ++tile) {
            for (const NumberBadge& number : numbers[tile]) {
                ++count;
                EXPECT_TRUE(IsWithin(number.Ground(scale), cells[tile])) << number.Text << " at 1:" << scale;
                for (const NumberBadge& other : numbers[tile]) {
                    EXPECT_TRUE(&other == &number || !other.Ground(scale).Meets(number.Ground(scale)))
                        << number.Text << " and " << other.Text << " at 1:" << scale;
                }
            }
        }
        EXPECT_EQ(count, 13U);
    }
}

TEST(NumbersOnPaper, AreReadFromAboveAtFullSizeAndAsOtherWordsWhereTheTrackIsSmall) {
    const Box a4{1, 1.8, 20, 27.9};

    EXPECT_NEAR(BadgeHeightAt(1, a4), 3.5, 0.001) << "2.5 cm of font";
    EXPECT_NEAR(BadgeHeightAt(20, a4), 1.4 * 8.25 / 72 * 2.54, 0.001);
    EXPECT_NEAR(BadgeHeightAt(1, {0, 0, 10, 12}), 2, 0.001) << "a fifth of a small paper";
}

TEST(NumbersOnPaper, AreNoneWhereTheyAreNotChosen) {
    EXPECT_TRUE(NumbersIn(DrawingOf(Pieces(), ProjectOf("C160"), {}), {{-50, -50, 50, 50}}, 5, 0.5).at(0).empty());
}

} // namespace
} // namespace pistaro
