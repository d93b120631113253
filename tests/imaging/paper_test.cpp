// Targets that are not the usual picture: wider than high, of another resolution, with thick pens.
#include "imaging/circuit_picture.h"
#include "imaging/painter_surface.h"

#include <gtest/gtest.h>

#include <functional>

namespace pistaro {
namespace {

constexpr Colour White = Rgb(255, 255, 255);
constexpr Colour Black = Rgb(0, 0, 0);
constexpr double PrinterDots = 300; ///< an inch
constexpr ViewRectangle Metre{0, 100, 100, 0};

/// A grey picture on which something draws with a surface on a target of that size.
class Paper {
public:
    explicit Paper(const TargetSize& target) : target_(target), Image(500, 500, QImage::Format_RGB32) {
        Image.fill(qRgb(128, 128, 128));
    }

    void Draw(const std::function<void(PainterSurface&)>& function) {
        QPainter painter(&Image);
        PainterSurface surface(painter, target_);
        surface.Clear(White);
        surface.SetScale(Metre);
        function(surface);
    }

    /// How many pixels of a row or column from 0 on are black.
    int BlackInRow(int y) const {
        return Count([&](int i) { return Image.pixel(i, y); });
    }
    int BlackInColumn(int x) const {
        return Count([&](int i) { return Image.pixel(x, i); });
    }

    /// The height of all that is darker than half grey.
    int InkHeight() const {
        int least = Image.height();
        int most = -1;
        for (int y = 0; y < Image.height(); ++y) {
            for (int x = 0; x < Image.width(); ++x) {
                if (qGray(Image.pixel(x, y)) >= 100) continue;
                least = std::min(least, y);
                most = std::max(most, y);
            }
        }
        return most - least + 1;
    }

private:
    template <typename At>
    int Count(At at) const {
        int black = 0;
        for (int i = 0; i < 500; ++i)
            black += at(i) == qRgb(0, 0, 0) ? 1 : 0;
        return black;
    }

    TargetSize target_;

public:
    QImage Image;
};

TEST(Paper, IsClearedOverItsOwnWidthAndHeight) {
    Paper paper({400, 200});

    paper.Draw([](Surface&) {});

    EXPECT_EQ(paper.Image.pixel(399, 199), qRgb(255, 255, 255));
    EXPECT_EQ(paper.Image.pixel(400, 199), qRgb(128, 128, 128));
    EXPECT_EQ(paper.Image.pixel(399, 200), qRgb(128, 128, 128));
}

TEST(Paper, HasAPictureBehindTheDrawingAtItsNaturalSize) {
    QImage backdrop(64, 32, QImage::Format_RGB32);
    backdrop.fill(qRgb(0, 0, 0));
    QImage image(500, 500, QImage::Format_RGB32);
    QPainter painter(&image);

    PainterSurface(painter, {400, 400, PrinterDots}, backdrop).Clear(White); // 200 by 100 dots

    EXPECT_EQ(image.pixel(198, 98), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(201, 50), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(50, 101), qRgb(255, 255, 255));
}

TEST(Paper, WiderThanHighShowsTheWorldToOneScaleFromTheTopLeft) {
    Paper paper({400, 200}); // four dots a centimetre: the upper half of the metre

    paper.Draw([](Surface& surface) {
        surface.Draw(LineSegment{{25.125F, 100}, {25.125F, 0}}, Black);
        surface.Draw(LineSegment{{0, 74.875F}, {100, 74.875F}}, Black);
    });

    EXPECT_EQ(paper.Image.pixel(100, 50), qRgb(0, 0, 0));
    EXPECT_NEAR(paper.BlackInColumn(100), 200, 5) << "cut a few dots beyond the paper's lower edge";
    EXPECT_EQ(paper.BlackInRow(100), 400);
}

TEST(Paper, HigherThanWideShowsWhatLiesBelowTheSquareToo) {
    Paper paper({200, 400});

    paper.Draw([](Surface& surface) { surface.Draw(LineSegment{{0, -50.25F}, {100, -50.25F}}, Black); });

    EXPECT_GT(paper.BlackInRow(300), 195) << "two dots a centimetre: 150.25 cm below the top";
}

TEST(Paper, TellsItsScaleInPixelsOfAScreen) {
    Paper paper({400, 200, PrinterDots});

    paper.Draw([](const Surface& surface) { EXPECT_NEAR(surface.PixelsPerCm(), 1.28, 1e-12); });
    Paper screen({400, 200});
    screen.Draw([](const Surface& surface) { EXPECT_NEAR(surface.PixelsPerCm(), 4, 1e-12); });
}

/// Across a line through the middle of the paper.
int ThicknessOf(PenWidth pen, double dotsPerInch) {
    Paper paper({400, 400, dotsPerInch});
    paper.Draw([&](Surface& surface) {
        surface.SetPen(pen);
        surface.Draw(LineSegment{{0, 50}, {100, 50}}, Black);
    });
    return paper.BlackInColumn(200);
}

TEST(Pen, InMillimetresIsAsThickOnEveryPaper) {
    constexpr PenWidth twoMillimetres{2, PenWidth::Unit::Millimetres};
    EXPECT_NEAR(ThicknessOf(twoMillimetres, 254), 20, 1);
    EXPECT_NEAR(ThicknessOf(twoMillimetres, 127), 10, 1);
    EXPECT_NEAR(ThicknessOf({0.5, PenWidth::Unit::Millimetres}, 508), 10, 1);
}

TEST(Pen, InPixelsIsAsManyDotsThick) {
    EXPECT_EQ(ThicknessOf({6, PenWidth::Unit::Pixels}, 96), 6);
    EXPECT_EQ(ThicknessOf({6, PenWidth::Unit::Pixels}, 300), 6);
}

TEST(Pen, IsThatOfLinesArcsEllipsesAndPointsUntilItIsChanged) {
    using Stroking = void (*)(Surface&);
    const Stroking strokings[]{[](Surface& surface) {
                                   surface.Draw(LineSegment{{50, 20}, {50, 80}}, Black);
                               },
                               [](Surface& surface) {
                                   surface.Draw(ArcSegment{{30, 50}, 20, 5, 1}, Black);
                               },
                               [](Surface& surface) {
                                   surface.Draw(Ellipse{{30, 50}, 20, 0.5}, Black);
                               },
                               [](Surface& surface) {
                                   surface.DrawPoint({50, 50}, Black);
                               }};
    for (const Stroking stroke : strokings) {
        Paper thick({400, 400});
        thick.Draw([&](Surface& surface) {
            surface.SetPen({8, PenWidth::Unit::Pixels});
            stroke(surface);
        });
        Paper thin({400, 400});
        thin.Draw([&](Surface& surface) {
            surface.SetPen({8, PenWidth::Unit::Pixels});
            surface.SetPen({1, PenWidth::Unit::Pixels});
            stroke(surface);
        });

        // Around 200, 200, where each of them has its rightmost or only place.
        int thickInk = 0;
        int thinInk = 0;
        for (int x = 190; x < 210; ++x) {
            thickInk += 255 - qGray(thick.Image.pixel(x, 200));
            thinInk += 255 - qGray(thin.Image.pixel(x, 200));
        }
        EXPECT_NEAR(thickInk / 255.0, 8, 0.3);
        EXPECT_LE(thinInk / 255.0, 1.3);
    }
}

TEST(Pen, OfAStrokeBesideThePaperReachesOntoIt) {
    Paper paper({400, 400});

    paper.Draw([](Surface& surface) {
        surface.SetPen({40, PenWidth::Unit::Pixels});
        surface.Draw(LineSegment{{-2.5F, 10}, {-2.5F, 90}}, Black); // ten dots to the left of the edge
        surface.DrawPoint({102.5F, 95}, Black);                     // ten to the right
    });

    EXPECT_NEAR(paper.BlackInRow(200), 10, 1);
    EXPECT_EQ(paper.Image.pixel(395, 20), qRgb(0, 0, 0));
}

int FontPixels(double points, double dotsPerInch) {
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    PainterSurface surface(painter, {400, 400, dotsPerInch});
    surface.SetFontSize(points);
    return painter.font().pixelSize();
}

TEST(Font, IsInPointsOfTheTarget) {
    const OffscreenGraphics fonts;
    EXPECT_EQ(FontPixels(8.25, 96), 11);
    EXPECT_EQ(FontPixels(6, 96), 8);
    EXPECT_EQ(FontPixels(8.25, PrinterDots), 34);
    EXPECT_EQ(FontPixels(6, PrinterDots), 25);
}

TEST(Font, HasItsSizeOnAPictureThatHasAResolutionOfItsOwn) {
    const OffscreenGraphics fonts;
    const auto heightAt = [](double dotsPerInch) {
        Paper paper({500, 500, dotsPerInch});
        paper.Image.setDotsPerMeterX(11811); // 300 an inch
        paper.Image.setDotsPerMeterY(11811);
        paper.Draw([](Surface& surface) {
            surface.SetFontSize(24);
            surface.DrawPoint({20, 80}, White);
            surface.DrawText("HHH", Black);
        });
        return paper.InkHeight();
    };

    EXPECT_NEAR(heightAt(PrinterDots), 73, 3) << "a capital's height is 0.73 of the font's 100 dots";
    EXPECT_NEAR(heightAt(96), 23, 2);
}

} // namespace
} // namespace pistaro
