// What an export proposes in place of options that no file can meet.
#include "commands/export_circuit.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

/// The scale that works on one sheet of paper in place of that one; 0 where none does.
double PossibleScale(int straights, ExportFormat format, const char* paper, double scale) {
    std::string codes;
    for (int i = 0; i < straights; ++i)
        codes += "C160 "; // 35 cm
    ExportOptions options;
    options.Sheets.Paper = FindPaper(paper);
    options.Sheets.Scale = scale;
    const auto possible = PossibleExport(DrawingOf(Pieces(), ProjectOf(codes), {}), format, options);
    return possible ? *possible->Sheets.Scale : 0;
}

TEST(PossibleExport, TakesTheNextRoundScaleThatWorks) {
    EXPECT_EQ(PossibleScale(20, ExportFormat::Pdf, "A4", 10), 30) << "26.9 on 26.1 cm";
    EXPECT_EQ(PossibleScale(20, ExportFormat::Pdf, "A4", 26), 30);
    EXPECT_EQ(PossibleScale(18, ExportFormat::Pdf, "A4", 24.1), 25);
    EXPECT_EQ(PossibleScale(10, ExportFormat::Pdf, "A4", 11), 15) << "13.5 on 26.1 cm";
}

TEST(PossibleExport, LeavesAScaleThatWorks) {
    EXPECT_EQ(PossibleScale(20, ExportFormat::Pdf, "A4", 27), 27);
    EXPECT_EQ(PossibleScale(1, ExportFormat::Svg, "A1", 0.5), 0.5);
}

TEST(PossibleExport, GoesByTenthsWhereTheDrawingIsLargerThanLife) {
    EXPECT_EQ(PossibleScale(1, ExportFormat::Svg, "A1", 0.1), 0.5) << "70 on 82.1 cm";
    EXPECT_EQ(PossibleScale(1, ExportFormat::Svg, "A1", 0.35), 0.5);
    EXPECT_EQ(PossibleScale(1, ExportFormat::Svg, "A4", 0.1), 1.5) << "23.4 on 27.7 cm; 1:1 is too large";
}

TEST(PossibleExport, TakesTheMostPixelsThatWork) {
    ExportOptions options;
    options.PixelWidth = 30000;
    const auto drawing = DrawingOf(Pieces(), ProjectOf("C160"), {});
    const auto most = PossibleExport(drawing, ExportFormat::Png, options);
    ASSERT_TRUE(most && most->PixelWidth);
    options.PixelWidth = *most->PixelWidth + 1;
    EXPECT_EQ(PossibleExport(drawing, ExportFormat::Png, options)->PixelWidth, most->PixelWidth);
}

} // namespace
} // namespace pistaro
