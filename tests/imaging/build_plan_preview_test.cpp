// The first pages of a build plan as pictures.
#include "imaging/build_plan_preview.h"

#include "imaging/circuit_picture.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

PlanPreview PreviewOf(int straights, std::size_t most) {
    std::string codes;
    for (int i = 0; i < straights; ++i)
        codes += "C160 ";
    return PreviewBuildPlan(Pieces(), BuildPlanOf(Pieces(), ProjectOf(codes), AllTracks), PaperA4, 50.8, most);
}

bool HasInk(const QImage& page) {
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (page.pixel(x, y) != qRgb(255, 255, 255)) return true;
        }
    }
    return false;
}

TEST(BuildPlanPreview, HasThePagesOfThePdfAndSaysHowManyThereAre) {
    const OffscreenGraphics graphics;

    const PlanPreview all = PreviewOf(31, 8);
    const PlanPreview first = PreviewOf(70, 2);

    ASSERT_EQ(all.Pages.size(), 3U);
    EXPECT_EQ(all.Count, 3);
    EXPECT_EQ(all.Pages[0].size(), QSize(420, 594)) << "20 dots a cm";
    for (const QImage& page : all.Pages)
        EXPECT_TRUE(HasInk(page));
    EXPECT_NE(all.Pages[0], all.Pages[1]);
    EXPECT_EQ(first.Pages.size(), 2U);
    EXPECT_EQ(first.Count, 5);
    EXPECT_TRUE(HasInk(first.Pages[1]));
}

} // namespace
} // namespace pistaro
