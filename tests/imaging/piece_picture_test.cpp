// The pictures of the 39 pieces, looked at pixel by pixel.
#include "imaging/piece_picture.h"

#include "imaging/circuit_picture.h"
#include "imaging/image_file.h"
#include "storage/settings_file.h"
#include "support/pieces.h"

#include <QImage>

#include <gtest/gtest.h>

#include <map>

namespace pistaro {
namespace {

constexpr int CaptionTop = 142;

/// The smallest rectangle that holds everything of a piece's drawing but its background.
QRect DrawingIn(const QImage& image) {
    QRect found;
    for (int y = 0; y < CaptionTop; ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0)) found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

bool HasCaption(const QImage& image) {
    int dark = 0;
    for (int y = CaptionTop; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    }
    return dark > 20;
}

class PiecePictures : public ::testing::Test {
protected:
    PiecePictures() { View.Width = 250; }

    QImage Picture(std::string_view code) const {
        return DecodeImage(PiecePicture(Pieces(), code, View, Colours, PictureFormat::Gif), "test");
    }

    OffscreenGraphics Graphics;
    ViewSettings View;
    ColourScheme Colours = InitialSettings(Pieces()).Preferences.Colours;
};

TEST_F(PiecePictures, AreAsHighAndWideAsEachOtherAndBearTheirCodes) {
    for (const CatalogueEntry& piece : Pieces()) {
        const std::string& code = piece.Code;
        const QImage picture = Picture(code);
        EXPECT_EQ(picture.size(), QSize(96, 160)) << code;
        EXPECT_TRUE(HasCaption(picture)) << code;
    }
}

TEST_F(PiecePictures, ShowEveryPieceCentredAndWhole) {
    for (const CatalogueEntry& piece : Pieces()) {
        const std::string& code = piece.Code;
        const QRect drawing = DrawingIn(Picture(code));
        EXPECT_NEAR((drawing.left() + drawing.right() + 1) / 2.0, 48, 1.01) << code;
        EXPECT_NEAR((drawing.top() + drawing.bottom() + 1) / 2.0, 80, 1.01) << code;
        EXPECT_TRUE(QRect(1, 1, 94, CaptionTop - 1).contains(drawing)) << code;
    }
}

TEST_F(PiecePictures, AreOfOneScaleOfThreePixelsACentimetre) {
    const auto sizeOf = [&](const char* code) { return DrawingIn(Picture(code)).size(); };
    const auto expectNear = [](QSize actual, double width, double height) {
        EXPECT_NEAR(actual.width(), 3 * width, 3.01);
        EXPECT_NEAR(actual.height(), 3 * height, 3.01);
    };
    expectNear(sizeOf("C160"), 15.5, 35);
    expectNear(sizeOf("C158"), 15.5, 8.75);
    expectNear(sizeOf("N10102"), 17.5, 40);
    expectNear(sizeOf("C277"), 27.9, 17.5);
    expectNear(sizeOf("C156L"), 21.8, 21.8);
}

TEST_F(PiecePictures, TellAllPiecesApartEvenWithoutTheirCodes) {
    std::map<std::string, std::string_view> seen;
    for (const CatalogueEntry& piece : Pieces()) {
        const std::string& code = piece.Code;
        const QImage drawing = Picture(code).copy(0, 0, 96, CaptionTop).convertToFormat(QImage::Format_RGB32);
        const std::string pixels(reinterpret_cast<const char*>(drawing.constBits()),
                                 static_cast<std::size_t>(drawing.sizeInBytes()));
        const auto [other, isNew] = seen.emplace(pixels, code);
        EXPECT_TRUE(isNew) << code << " looks like " << other->second;
    }
}

TEST_F(PiecePictures, KeepTheChosenBackgroundToTheShade) {
    for (const char* const code : {"C151L", "N10108R", "C164"})
        EXPECT_EQ(Picture(code).pixelColor(0, 0), QColor(255, 255, 255)) << code;
}

TEST_F(PiecePictures, WriteTheCodeInWhiteOnADarkBackground) {
    Colours.Background = Rgb(0, 0, 64);
    const QImage picture = Picture("C160");
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(0, 0, 64));
    int brightest = 0;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = CaptionTop; y < picture.height(); ++y)
            brightest = std::max(brightest, qGray(picture.pixel(x, y)));
    }
    EXPECT_GT(brightest, 200);
}

TEST_F(PiecePictures, WriteTheCodeInBlackOrWhiteWhicheverContrastsMore) {
    struct Contrast {
        Colour Background;
        int Text; ///< grey
    };
    for (const Contrast& contrast : {Contrast{Rgb(255, 255, 255), 0},
                                     {Rgb(255, 220, 120), 0},
                                     {Rgb(255, 0, 0), 0},
                                     {Rgb(0, 0, 0), 255},
                                     {Rgb(0, 0, 255), 255},
                                     {Rgb(80, 80, 80), 255}}) {
        Colours.Background = contrast.Background;
        const QImage picture = Picture("C160");
        int nearest = 255;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = CaptionTop; y < picture.height(); ++y)
                nearest = std::min(nearest, std::abs(qGray(picture.pixel(x, y)) - contrast.Text));
        }
        EXPECT_LT(nearest, 40) << std::hex << contrast.Background;
        const int other = 255 - contrast.Text;
        const int background = qGray(picture.pixel(0, 0));
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = CaptionTop; y < picture.height(); ++y)
                ASSERT_GE(std::abs(qGray(picture.pixel(x, y)) - other), std::abs(background - other) - 2)
                    << std::hex << contrast.Background << ": nothing is of the other colour";
        }
    }
}

TEST_F(PiecePictures, DoNotDependOnWhereTheViewIs) {
    const QImage here = Picture("C187R");
    View.MidX = 1000;
    View.MidY = -500;
    EXPECT_EQ(DrawingIn(Picture("C187R")), DrawingIn(here));
}

TEST_F(PiecePictures, ThereIsNoneOfAnUnknownCode) { EXPECT_ANY_THROW(Picture("C999")); }

} // namespace
} // namespace pistaro
