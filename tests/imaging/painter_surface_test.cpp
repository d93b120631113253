// Strokes as pixels: where they lie, how sharp they are, and what strange views show.
#include "imaging/circuit_picture.h"
#include "imaging/painter_surface.h"
#include "render/redraw.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace pistaro {

namespace {

constexpr Colour White = Rgb(255, 255, 255);
constexpr Colour Black = Rgb(0, 0, 0);

/// A white picture on which something draws with a surface over the world rectangle.
class Canvas {
public:
    explicit Canvas(int side, double pixelRatio = 1) : side_(side) {
        const int pixels = static_cast<int>(side * pixelRatio);
        Image = QImage(pixels, pixels, QImage::Format_RGB32);
        Image.setDevicePixelRatio(pixelRatio);
    }

    template <typename Function>
    void Draw(const ViewRectangle& world, Function function, const QImage& backdrop = {}) {
        QPainter painter(&Image);
        PainterSurface surface(painter, TargetSize::Square(side_), backdrop);
        surface.Clear(White);
        surface.SetScale(world);
        function(surface);
    }

    /// How black a pixel is, from 0 to 255.
    int Ink(int x, int y) const { return 255 - qGray(Image.pixel(x, y)); }

    long AllInk() const {
        long ink = 0;
        for (int y = 0; y < Image.height(); ++y) {
            for (int x = 0; x < Image.width(); ++x)
                ink += Ink(x, y);
        }
        return ink;
    }

    QImage Image;

private:
    int side_;
};

/// The ink's middle in pixels.
QPointF InkCentre(const Canvas& canvas) {
    double x = 0;
    double y = 0;
    for (int row = 0; row < canvas.Image.height(); ++row) {
        for (int column = 0; column < canvas.Image.width(); ++column) {
            x += (column + 0.5) * canvas.Ink(column, row);
            y += (row + 0.5) * canvas.Ink(column, row);
        }
    }
    const auto all = static_cast<double>(canvas.AllInk());
    return {x / all, y / all};
}

constexpr ViewRectangle Metre{0, 100, 100, 0};

} // namespace

TEST(PainterSurface, LaysTheWorldOverThePictureWithYUpwards) {
    Canvas canvas(200); // two pixels a centimetre

    canvas.Draw(Metre, [](Surface& surface) { surface.Draw(Ellipse{{25, 75}, 5, 1}, Black); });

    EXPECT_NEAR(InkCentre(canvas).x(), 50, 0.05);
    EXPECT_NEAR(InkCentre(canvas).y(), 50, 0.05);
    EXPECT_GT(canvas.Ink(59, 49) + canvas.Ink(60, 49), 200); // the circle's edge, ten pixels to the right
    EXPECT_EQ(canvas.Ink(50, 50), 0);
}

TEST(PainterSurface, ALineRunsFromPointToPoint) {
    Canvas canvas(100);

    canvas.Draw(Metre, [](Surface& surface) { surface.Draw(LineSegment{{20.5F, 30.5F}, {20.5F, 70.5F}}, Black); });

    for (int y = 31; y < 69; ++y)
        ASSERT_EQ(canvas.Ink(20, y), 255) << y;
    EXPECT_EQ(canvas.Ink(20, 26), 0);
    EXPECT_EQ(canvas.Ink(20, 73), 0);
    EXPECT_EQ(canvas.Ink(18, 50), 0);
    EXPECT_EQ(canvas.Ink(22, 50), 0);
}

TEST(PainterSurface, AnArcRunsAnticlockwiseFromItsStart) {
    Canvas canvas(100);
    constexpr float half = std::numbers::pi_v<float> / 2;

    canvas.Draw(Metre, [](Surface& surface) { surface.Draw(ArcSegment{{50, 50}, 30, 0, half}, Black); });

    EXPECT_GT(canvas.Ink(71, 28) + canvas.Ink(70, 28) + canvas.Ink(71, 29), 200); // 45 degrees, right and up
    EXPECT_GT(InkCentre(canvas).x(), 60);
    EXPECT_LT(InkCentre(canvas).y(), 40);
}

TEST(PainterSurface, AnArcWhoseStartIsTheGreaterRunsThroughZero) {
    Canvas canvas(100);
    constexpr float quarter = std::numbers::pi_v<float> / 4;

    canvas.Draw(Metre, [](Surface& surface) { surface.Draw(ArcSegment{{50, 50}, 30, 7 * quarter, quarter}, Black); });

    EXPECT_GT(canvas.Ink(79, 49) + canvas.Ink(80, 49), 200);
    EXPECT_GT(InkCentre(canvas).x(), 70);
    EXPECT_NEAR(InkCentre(canvas).y(), 50, 0.1);
}

TEST(PainterSurface, ASqueezedEllipseIsWideAndLow) {
    Canvas canvas(100);

    canvas.Draw(Metre, [](Surface& surface) { surface.Draw(Ellipse{{50.5F, 49.5F}, 20, 0.3}, Black); });

    EXPECT_GT(canvas.Ink(30, 50) + canvas.Ink(31, 50), 150); // half the width: 20
    EXPECT_GT(canvas.Ink(50, 44), 150);                      // half the height: 6
    EXPECT_EQ(canvas.Ink(50, 35), 0);
}

TEST(PainterSurface, OnAHighDensityPictureEverythingLiesAtTheSameLogicalPlace) {
    using Stroking = void (*)(Surface&);
    const Stroking strokings[]{[](Surface& surface) {
                                   surface.Draw(LineSegment{{10, 10}, {80, 60}}, Black);
                               },
                               [](Surface& surface) {
                                   surface.Draw(ArcSegment{{50, 50}, 30, 0.5F, 2.5F}, Black);
                               },
                               [](Surface& surface) {
                                   surface.Draw(Ellipse{{70, 20}, 5, 0.3}, Black);
                               },
                               [](Surface& surface) {
                                   surface.DrawPoint({20, 80}, Black);
                               }};
    for (const Stroking draw : strokings) {
        Canvas plain(200);
        Canvas dense(200, 2);

        plain.Draw(Metre, draw);
        dense.Draw(Metre, draw);

        // A plain hairline is drawn to whole pixels across, a dense one is not.
        EXPECT_NEAR(InkCentre(dense).x() / 2, InkCentre(plain).x(), 0.75);
        EXPECT_NEAR(InkCentre(dense).y() / 2, InkCentre(plain).y(), 0.75);
        // Strokes are as wide in logical pixels, so they take four times as many real ones.
        EXPECT_NEAR(static_cast<double>(dense.AllInk()) / static_cast<double>(plain.AllInk()), 4.5, 1);
    }
}

TEST(PainterSurface, ABackdropLiesAtItsNaturalSizeFromTheTopLeft) {
    QImage small(30, 20, QImage::Format_RGB32);
    small.fill(Qt::black);
    Canvas canvas(100);

    canvas.Draw(
        Metre, [](Surface&) {}, small);

    EXPECT_EQ(canvas.Ink(0, 0), 255);
    EXPECT_EQ(canvas.Ink(29, 19), 255);
    EXPECT_EQ(canvas.Ink(30, 19), 0);
    EXPECT_EQ(canvas.Ink(29, 20), 0);
}

TEST(PainterSurface, ALargeBackdropIsCutOffAtTheRightAndBottom) {
    QImage large(300, 300, QImage::Format_RGB32);
    large.fill(Qt::white);
    large.setPixel(99, 99, qRgb(0, 0, 0));
    large.setPixel(299, 299, qRgb(0, 0, 0));
    Canvas canvas(100);

    canvas.Draw(
        Metre, [](Surface&) {}, large);

    EXPECT_EQ(canvas.Ink(99, 99), 255);
    EXPECT_EQ(canvas.AllInk(), 255);
}

TEST(PainterSurface, ABackdropOnAHighDensityPictureKeepsItsLogicalSize) {
    QImage small(30, 20, QImage::Format_RGB32);
    small.fill(Qt::black);
    Canvas canvas(100, 2);

    canvas.Draw(
        Metre, [](Surface&) {}, small);

    EXPECT_EQ(canvas.Ink(58, 38), 255);
    EXPECT_EQ(canvas.Ink(61, 38), 0);
}

TEST(PainterSurface, LinesFromFarAwayAreCutAtTheEdgeAndKeepTheirPlace) {
    Canvas canvas(100);

    canvas.Draw(Metre, [](Surface& surface) {
        surface.Draw(LineSegment{{-1e9F, 50.5F}, {1e9F, 50.5F}}, Black);
        surface.Draw(LineSegment{{20.5F, -1e9F}, {20.5F, 1e9F}}, Black);
    });

    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(canvas.Ink(i, 49), 255) << i;
        ASSERT_EQ(canvas.Ink(20, i), 255) << i;
    }
    EXPECT_EQ(canvas.Ink(60, 60), 0);
}

TEST(PainterSurface, WhatLiesOutsideIsNotDrawn) {
    const OffscreenGraphics fonts;
    Canvas canvas(100);

    canvas.Draw(Metre, [](Surface& surface) {
        surface.Draw(LineSegment{{-50, 120}, {150, 120}}, Black);
        surface.Draw(LineSegment{{-50, 40}, {40, -60}}, Black);
        surface.Draw(ArcSegment{{-200, 50}, 100, 0, 6}, Black);
        surface.Draw(Ellipse{{1e30F, 1e30F}, 3, 1}, Black);
        surface.DrawPoint({50, 300}, Black);
        surface.DrawText("lost", Black);
    });

    EXPECT_EQ(canvas.AllInk(), 0);
}

TEST(PainterSurface, AnEmptyOrInfiniteViewShowsNothing) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const ViewRectangle& world :
         {ViewRectangle{5, 5, 5, 5}, ViewRectangle{-infinity, infinity, infinity, -infinity}}) {
        Canvas canvas(100);

        canvas.Draw(world, [](Surface& surface) {
            surface.Draw(LineSegment{{0, 0}, {10, 10}}, Black);
            surface.Draw(LineSegment{{5, 5}, {5, 10}}, Black);
            surface.Draw(ArcSegment{{0, 0}, 10, 0, 1}, Black);
            surface.Draw(Ellipse{{5, 5}, 10, 1}, Black);
        });

        EXPECT_EQ(canvas.AllInk(), 0);
    }
}

TEST(PainterSurface, ArcsMeetTheirNeighboursAtHighZoom) {
    // The outer edge of an outmost curve, 76.5 cm, seen at 140 pixels a centimetre. Its two ends and its middle are
    // looked at through a window of 5 cm: the ink must pass through the window's middle.
    constexpr double radius = 76.5;
    for (const double start : {0.0, 0.3, 1.2, 2.0, 3.9, 5.5}) {
        const double span = std::numbers::pi / 8;
        for (const double part : {0.01, 0.25, 0.5, 0.75, 0.99}) {
            const double angle = start + part * span;
            const auto x = static_cast<float>(radius * std::cos(angle));
            const auto y = static_cast<float>(radius * std::sin(angle));
            Canvas canvas(700);

            canvas.Draw({x - 2.5F, y + 2.5F, x + 2.5F, y - 2.5F}, [&](Surface& surface) {
                surface.Draw(ArcSegment{{0, 0}, radius, static_cast<float>(start), static_cast<float>(start + span)},
                             Black);
            });

            int inked = 0;
            for (int dy = -1; dy <= 0; ++dy) {
                for (int dx = -1; dx <= 0; ++dx)
                    inked = std::max(inked, canvas.Ink(350 + dx, 350 + dy));
            }
            EXPECT_GT(inked, 100) << "start " << start << ", part " << part;
        }
    }
}

} // namespace pistaro
