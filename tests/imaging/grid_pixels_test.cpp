// Grids on pictures are blended by hand: to the pixel what the painter draws one by one.
#include "imaging/circuit_picture.h"
#include "imaging/painter_surface.h"
#include "render/redraw.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace pistaro {
namespace {

/// A surface that knows no faster way.
class OneByOne : public PainterSurface {
public:
    using PainterSurface::PainterSurface;

    void DrawGridLines(const GridLines& columns, const GridLines& rows, Colour colour) override {
        Surface::DrawGridLines(columns, rows, colour);
    }
    void DrawGridDots(const GridLines& columns, const GridLines& rows, double radius, Colour colour) override {
        Surface::DrawGridDots(columns, rows, radius, colour);
    }
};

/// A ground on a target, as the test cases vary it.
struct Ground {
    pistaro::Preferences Preferences;
    ViewSettings View;
    QSize Pixels{300, 300};
    TargetSize Target = TargetSize::Square(300);
    double PixelRatio = 1;
    QImage Backdrop = {};
    QPointF Offset = {}; ///< of the painter
    bool Clipped = false;
};

Ground GroundOf(GridType type, std::int16_t step, float width) {
    Ground ground;
    ground.Preferences.Colours.Background = Rgb(255, 255, 255);
    ground.Preferences.Grid = {static_cast<std::int16_t>(type), step};
    ground.View.Width = width;
    ground.View.MidX = 7.3F;
    ground.View.MidY = -3.1F;
    return ground;
}

template <typename Surface>
QImage Drawn(const Ground& ground) {
    QImage picture(ground.Pixels, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.setDevicePixelRatio(ground.PixelRatio);
    QPainter painter(&picture);
    if (ground.Clipped) painter.setClipRect(QRect(0, 0, ground.Pixels.width(), ground.Pixels.height()));
    painter.translate(ground.Offset);
    Surface surface(painter, ground.Target, ground.Backdrop);
    surface.RoundDots();
    surface.Clear(ground.Preferences.Colours.Background);
    ShowView(ground.View, surface);
    DrawGrid(ground.Preferences, ShownRectangle(ground.View), ground.View.Width, surface);
    return picture;
}

/// How much the most different channel of two pictures differs.
int Difference(const QImage& one, const QImage& other) {
    int most = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            most = std::max(
                {most, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return most;
}

int Inked(const QImage& picture) {
    int inked = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            inked += picture.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
    }
    return inked;
}

QImage Stripes() {
    QImage image(200, 100, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x, 255 - y, 5 * y % 256));
    }
    return image;
}

/// What may be under and around a grid.
const std::function<void(Ground&)> Variations[]{
    [](Ground&) {},
    [](Ground& ground) { ground.Preferences.Colours.Background = Rgb(13, 200, 97); },
    [](Ground& ground) { ground.Backdrop = Stripes(); },
    [](Ground& ground) { ground.PixelRatio = 2; },
    [](Ground& ground) { ground.PixelRatio = 1.5; },
    [](Ground& ground) {
        ground.Offset = {-3, 2};
    },
    [](Ground& ground) { ground.Clipped = true; },
    [](Ground& ground) {
        ground.Target = {200, 100};
    }, // the picture is higher than what is drawn on
    [](Ground& ground) {
        ground.Target = {2000, 2000, 600};
    }, // circles are rings
};

TEST(GridOnAPicture, OfLinesIsToThePixelThatOfLinesDrawnOneByOne) {
    for (const float width : {58.0F, 320.0F, 2000.0F}) {
        for (std::size_t i = 0; i < std::size(Variations); ++i) {
            Ground ground = GroundOf(GridType::Lines, 1, width);
            Variations[i](ground);

            const QImage picture = Drawn<PainterSurface>(ground);

            EXPECT_EQ(picture, Drawn<OneByOne>(ground)) << width << " cm, variation " << i;
            EXPECT_GT(Inked(picture), 1000) << width << " cm, variation " << i;
        }
    }
}

TEST(GridOnAPicture, OfDotsHasThemWithinASixteenthOfAPixelOfTheirPlaces) {
    constexpr int most = 255 / 8; // a sixteenth of a pixel across, and one down
    for (const float width : {58.0F, 320.0F, 2000.0F}) {
        for (std::size_t i = 0; i < std::size(Variations); ++i) {
            Ground ground = GroundOf(GridType::Dots, 1, width);
            Variations[i](ground);

            const QImage picture = Drawn<PainterSurface>(ground);

            EXPECT_LE(Difference(picture, Drawn<OneByOne>(ground)), most) << width << " cm, variation " << i;
            EXPECT_GT(Inked(picture), 200) << width << " cm, variation " << i;
        }
    }
}

TEST(GridOnAPicture, OfDotsIsTheSameWhereAClipForbidsToBlendByHand) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        for (const QImage& backdrop : {QImage(), Stripes()}) {
            Ground ground = GroundOf(GridType::Dots, 1, 58);
            ground.PixelRatio = ratio;
            ground.Backdrop = backdrop;
            Ground clipped = ground;
            clipped.Clipped = true;

            EXPECT_EQ(Drawn<PainterSurface>(ground), Drawn<PainterSurface>(clipped)) << ratio;
        }
    }
}

TEST(GridOnAPicture, OfDotsOnEighthsOfAPixelIsExact) {
    Ground ground = GroundOf(GridType::Dots, 10, 75); // four pixels a centimetre
    ground.View.MidX = 0.03125F;
    ground.View.MidY = -0.09375F;

    EXPECT_EQ(Drawn<PainterSurface>(ground), Drawn<OneByOne>(ground));
}

} // namespace
} // namespace pistaro
