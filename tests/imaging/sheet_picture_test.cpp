#include "commands/bitmaps.h"
#include "imaging/backdrop.h"
#include "imaging/circuit_picture.h"
#include "imaging/image_file.h"
#include "imaging/sheet_painter.h"
#include "imaging/sheet_picture.h"
#include "support/chain.h"
#include "support/fault_of.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

QImage Png(const Project& project, const SheetOptions& options, double dots) {
    const OffscreenGraphics graphics;
    const CircuitDrawing drawing = DrawingOf(Pieces(), project, {});
    return DecodeImage(SheetPng(drawing, PlanSheets(drawing, options), dots), "test");
}

TEST(ASheetsPicture, HasThePixelsOfItsPaperAndKnowsItsResolution) {
    const QImage image = Png(ProjectOf("C160"), {.Paper = PaperA4, .Header = false}, 300);

    EXPECT_EQ(image.size(), QSize(2480, 3508));
    EXPECT_NEAR(image.dotsPerMeterX(), 11811, 1);
}

/// The overview of two straights on tiles, 508 dots an inch: 200 a cm.
QImage Overview(const DrawnParts& parts) {
    const OffscreenGraphics graphics;
    const CircuitDrawing drawing = DrawingOf(Pieces(), ProjectOf("C160 C160"), parts);
    const SheetPlan plan = PlanSheets(drawing, {.Scale = 1, .Paper = PaperA4, .Tiles = true});
    QImage image(4200, 5940, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    SheetPainter(drawing, plan).Paint(painter, 508, 0);
    return image;
}

TEST(AnOverviewOfTiles, HidesNothingOfTheTrackBehindTheirNames) {
    // The three tiles are 75.3 cm high on 26.1 cm of paper, the straights 70 of them, in the middle.
    const QImage image = Overview({.StockColours = false});
    constexpr double scale = 75.3 / 26.1;
    const double left = 2100 - 15.5 / 2 / scale * 200;
    const int top = static_cast<int>(200 * (1 + .8 + (75.3 - 70) / 2 / scale)) + 8;
    const int bottom = top + static_cast<int>(70 / scale * 200) - 16;
    for (int y = top; y < bottom; ++y) {
        int darkest = 255;
        for (int x = static_cast<int>(left) - 8; x <= static_cast<int>(left) + 8; ++x)
            darkest = std::min(darkest, qGray(image.pixel(x, y)));
        ASSERT_LT(darkest, 80) << "the edge at row " << y;
    }
}

TEST(AnOverviewOfTiles, ShowsTheirNamesUponSurfaces) {
    const auto ink = [](const QImage& image) { // of the names
        int count = 0;
        for (int y = 600; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += qBlue(image.pixel(x, y)) - qRed(image.pixel(x, y)) > 60 ? 1 : 0;
        }
        return count;
    };
    EXPECT_GT(ink(Overview({.Surface = true, .StockColours = false})), 20000) << "letters and edges";
}

/// A sheet of A4 upright, 254 dots an inch: 100 a cm, 2970 from its foot to its head.
QImage PaintedSheet(const std::string& codes, const SheetOptions& options, int number, const DrawnParts& parts = {}) {
    const OffscreenGraphics graphics;
    const CircuitDrawing drawing = DrawingOf(Pieces(), ProjectOf(codes), parts);
    const SheetPlan plan = PlanSheets(drawing, options);
    QImage image(2100, 2970, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    SheetPainter(drawing, plan).Paint(painter, 254, number);
    return image;
}

/// How many dots of an area are of the ink in which tiles are named.
int TileInk(const QImage& image, const QRect& area) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            count += image.pixel(x, y) == qRgb(0x1F, 0x4E, 0xA8) ? 1 : 0;
    }
    return count;
}

TEST(AGuidingSheet, HasARuleOfTrackBesideThatOfPaperUnlessBothAreOne) {
    // Of 7 cm of paper 5 are 50 cm of track at 1:10, in parts of 1 cm from 11.5 cm on; 1.28 cm above the paper's foot.
    const auto parts = [](double scale) {
        const QImage image = PaintedSheet(
            "C157", {.Scale = scale, .Paper = PaperA4, .Orientation = Orientation::Portrait, .Guides = true}, 0);
        std::string shades;
        for (const int x : {1100, 1200, 1300, 1400, 1500, 1600, 1700})
            shades += qGray(image.pixel(x, 2970 - 119)) < 100 ? 'x' : '-';
        return shades;
    };

    EXPECT_EQ(parts(10), "-x-x-x-");
    EXPECT_EQ(parts(1), "-------");
}

TEST(ATilesSheet, HasItsNameAboveAndALineToCutAtWhereAnotherOneLies) {
    // Two straights: three tiles below each other, which stay from 1.5 to 19.5 and from 2.3 to 27.4 cm of the paper.
    const QImage image = PaintedSheet("C160 C160", {.Scale = 1, .Tiles = true}, 2);

    EXPECT_GT(TileInk(image, {100, 100, 300, 80}), 500) << "its name";
    EXPECT_GT(TileInk(image, {160, 2970 - 232, 1700, 4}), 1000) << "the line below it, three parts in four dashes";
    EXPECT_GT(TileInk(image, {160, 228, 1700, 4}), 1000) << "the line above it";
    EXPECT_EQ(TileInk(image, {148, 400, 4, 2000}), 0) << "nothing continues on the left";
    EXPECT_GT(TileInk(image, {160, 236, 1700, 70}), 300) << "the upper neighbour's name";
}

TEST(ATilesSheet, HasItsNameLargeAndPaleBehindTheTrack) {
    const QImage image = PaintedSheet("C160 C160", {.Scale = 1, .Tiles = true}, 1);
    int pale = 0;
    for (int y = 800; y < 2000; ++y) {
        for (int x = 200; x < 1900; ++x)
            pale += image.pixel(x, y) == qRgb(0xE4, 0xEB, 0xF7) ? 1 : 0;
    }
    EXPECT_GT(pale, 100000) << "10 square cm";
}

TEST(AGuidingSheet, HasNumbersOnGroundsThatHideLines) {
    // At 1:3 the straight's middle is the sheet's, and its number's ground 1.17 cm high.
    const SheetOptions options{.Scale = 3, .Paper = PaperA4, .Orientation = Orientation::Portrait, .Guides = true};
    const QImage bare = PaintedSheet("C160", options, 0, {.Surface = true});
    const QImage numbered = PaintedSheet("C160", options, 0, {.Numbers = true, .Surface = true});

    EXPECT_LT(qGray(bare.pixel(1050 - 45, 1485)), 150);
    EXPECT_EQ(numbered.pixel(1050 - 45, 1485), qRgb(255, 255, 255));
}

TEST(ASheetsPicture, DrawsThePiecesToScale) {
    // 254 dots an inch are 100 a cm; a sheet of the drawing's own size has a margin of 1 cm.
    const QImage image = Png(ProjectOf("C160"), {.Scale = 10, .Header = false}, 254);

    ASSERT_EQ(image.size(), QSize(355, 550));
    const auto dark = [&](int x, int y) { return qGray(image.pixel(x, y)) < 200; };
    EXPECT_TRUE(dark(100, 275)) << "the reference edge, 1 cm from the left";
    EXPECT_TRUE(dark(254, 275)) << "the other edge, 1.55 cm further";
    EXPECT_TRUE(dark(138, 275)) << "a lane, .38 cm from its edge";
    EXPECT_FALSE(dark(180, 275));
    EXPECT_FALSE(dark(50, 275));
    EXPECT_TRUE(dark(180, 100)) << "the end, 1 cm from the top";
    EXPECT_TRUE(dark(180, 449));
    EXPECT_FALSE(dark(180, 500));
}

TEST(ASheetsPicture, HasTheBackgroundWhereItLiesAtItsTrueSizeWhenItIsChosen) {
    // 40 x 40 cm around the middle of a straight that is 15.5 x 35: at 1:10 and 100 dots a cm 400 dots within a margin
    // of 100.
    const OffscreenGraphics graphics;
    Project project = ProjectOf("C160");
    project.Background = std::make_shared<const ScaledBackground>(
        ScaledBackground{.Picture = std::make_shared<const std::string>(Bitmap(8, 8, Rgb(0, 200, 255))),
                         .X = 7.75,
                         .Y = 17.5,
                         .CmPerPixel = 5});
    const auto draw = [&](const DrawnParts& parts) {
        DecodedPicture pictures;
        CircuitDrawing drawing = DrawingOf(Pieces(), project, parts);
        const auto backdrop = TakeBackdrop(drawing, pictures);
        const SheetPlan plan = PlanSheets(drawing, {.Scale = 10, .Header = false});
        return DecodeImage(SheetPng(drawing, plan, 254, backdrop.get()), "test");
    };

    const QImage image = draw({.Background = true});
    ASSERT_EQ(image.size(), QSize(600, 600));
    for (const auto& [x, y] : {std::pair(105, 105), {494, 105}, {105, 494}, {494, 494}})
        EXPECT_EQ(image.pixel(x, y), qRgb(0, 200, 255)) << x << ", " << y;
    EXPECT_EQ(image.pixel(95, 300), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(300, 505), qRgb(255, 255, 255));
    const QRgb grey = draw({.BlackAndWhite = true, .Background = true}).pixel(105, 105);
    EXPECT_EQ(qRed(grey), qGreen(grey));
    EXPECT_EQ(qRed(grey), qBlue(grey));
    EXPECT_NEAR(qRed(grey), 185, 4) << "as light as the colour is";
    EXPECT_EQ(draw({}).size(), QSize(355, 550));
    ScaledBackground faded = *project.Background;
    faded.Opacity = 0.2;
    project.Background = std::make_shared<const ScaledBackground>(faded);
    const QRgb pale = draw({.Background = true}).pixel(105, 105);
    EXPECT_NEAR(qRed(pale), 204, 2) << "a fifth of the colour on white";
    EXPECT_NEAR(qGreen(pale), 244, 2);
    EXPECT_NEAR(qBlue(pale), 255, 2);
}

TEST(ASheetsPicture, OfTooManyPixelsIsRefused) {
    EXPECT_EQ(FaultOf([] { Png(ProjectOf("C160"), {.Paper = FindPaper("A0"), .Header = false}, 1200); }),
              "Picture too large: 39732 x 56173 pixels; at most 128 million are drawn, 32000 in a line");
}

} // namespace
} // namespace pistaro
