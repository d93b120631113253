// Colours that fit into a palette, and colours that do not.
#include "imaging/palette.h"

#include <gtest/gtest.h>

#include <set>

namespace pistaro {
namespace {

QRgb ColourAt(const PaletteImage& image, std::size_t pixel) { return image.Palette[image.Pixels[pixel]]; }

/// 300 shades of one pixel each, under 100 rows of white and 20 of pure blue.
QImage ManyShades() {
    QImage image(300, 121, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int x = 0; x < 300; ++x) {
        for (int y = 100; y < 120; ++y)
            image.setPixel(x, y, qRgb(0, 0, 255));
        image.setPixel(x, 120, qRgb(x / 2, x % 2, 7));
    }
    return image;
}

TEST(Palette, HoldsUpTo256ColoursAsTheyAre) {
    QImage image(256, 1, QImage::Format_RGB32);
    for (int x = 0; x < 256; ++x)
        image.setPixel(x, 0, qRgb(x, 255 - x, 3));

    const PaletteImage result = ToPaletteImage(image);

    EXPECT_EQ(result.Palette.size(), 256U);
    for (int x = 0; x < 256; ++x)
        EXPECT_EQ(ColourAt(result, static_cast<std::size_t>(x)), qRgb(x, 255 - x, 3));
}

TEST(Palette, KeepsTheFrequentColoursExactlyWhenThereAreTooMany) {
    const PaletteImage result = ToPaletteImage(ManyShades());

    EXPECT_EQ(result.Palette.size(), 256U);
    EXPECT_EQ(ColourAt(result, 0), qRgb(255, 255, 255));
    EXPECT_EQ(ColourAt(result, 300 * 110), qRgb(0, 0, 255));
}

TEST(Palette, BringsTheRareColoursToNearOnes) {
    const PaletteImage result = ToPaletteImage(ManyShades());

    for (int x = 0; x < 300; ++x) {
        const QRgb near = ColourAt(result, static_cast<std::size_t>(300 * 120 + x));
        EXPECT_NEAR(qRed(near), x / 2, 2);
        EXPECT_NEAR(qGreen(near), x % 2, 1);
        EXPECT_NEAR(qBlue(near), 7, 1);
    }
}

TEST(Palette, IsTheSameInEveryRun) {
    EXPECT_EQ(ToPaletteImage(ManyShades()).Pixels, ToPaletteImage(ManyShades()).Pixels);
}

TEST(Palette, OfASmoothPhotographStaysClose) {
    QImage image(256, 256, QImage::Format_RGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x)
            image.setPixel(x, y, qRgb(x, y, (x + y) / 2));
    }

    const PaletteImage result = ToPaletteImage(image);

    for (int y = 0; y < 256; y += 5) {
        for (int x = 0; x < 256; x += 5) {
            const QRgb near = ColourAt(result, static_cast<std::size_t>(y * 256 + x));
            EXPECT_NEAR(qRed(near), x, 24);
            EXPECT_NEAR(qGreen(near), y, 24);
        }
    }
}

} // namespace
} // namespace pistaro
