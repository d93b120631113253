// A design in a picture of a few hundred pixels.
#include "imaging/small_picture.h"

#include "imaging/circuit_picture.h"
#include "render/redraw.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class SmallPictures : public testing::Test {
protected:
    SmallPictures() { Colours.Background = Rgb(255, 255, 255); }

    /// One pixel a cm, 0, 0 in the middle.
    QImage Drawn(const Design& design, const MarkedPieces& marked = {}) const {
        constexpr int side = 400;
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(ToQColor(Colours.Background));
        QPainter painter(&image);
        PainterSurface surface(painter, TargetSize::Square(side));
        ViewSettings view;
        view.Width = side;
        ShowView(view, surface);
        DrawSmallPicture(Pieces(), design, Colours, marked, painter, surface);
        return image;
    }
    static QColor At(const QImage& image, double x, double y) {
        return image.pixelColor(static_cast<int>(200 + x), static_cast<int>(200 - y));
    }

    ColourScheme Colours{.Active = Rgb(0, 255, 0), .Room = Rgb(200, 0, 0)};

private:
    OffscreenGraphics graphics_;
};

/// Straights upwards from 0, 0, the first of them from 0 to 35 cm, 15.6 cm wide.
Design Straights(const char* codes) { return ProjectOf(codes).Design; }

TEST_F(SmallPictures, ShowFilledBedsOnTheGround) {
    const QImage image = Drawn(Straights("C160 C160"));

    EXPECT_EQ(At(image, 7.5, 60), ToQColor(SmallScalextricBed));
    EXPECT_EQ(At(image, -10, 60), QColor(Qt::white)) << "beside the track";
}

TEST_F(SmallPictures, TellTheSystemsApart) {
    const QImage image = Drawn(Straights("N10102 N10102"));

    EXPECT_EQ(At(image, 9, 70), ToQColor(SmallNincoBed));
}

TEST_F(SmallPictures, TintWhatIsKeptAndWhatIsNew) {
    const QImage image = Drawn(Straights("C160 C160 C160 C160"), {.Kept = {1}, .New = {2}, .Track = 0});

    EXPECT_GT(At(image, 7.5, 55).green(), 2 * At(image, 7.5, 55).red());
    EXPECT_EQ(At(image, 7.5, 90), ToQColor(SmallNewBed));
    EXPECT_EQ(At(image, 7.5, 125), ToQColor(SmallScalextricBed));
}

TEST_F(SmallPictures, LetTheOtherTracksRecede) {
    Design design = Straights("C160 C160");
    design.Circuit.Tracks[1] = design.Circuit.Tracks[0];
    design.Circuit.Tracks[1].TrackStartX = 100;

    EXPECT_GT(At(Drawn(design, {.Track = 0}), 107.5, 60).lightness(), ToQColor(SmallScalextricBed).lightness() + 40);
    EXPECT_EQ(At(Drawn(design), 107.5, 60), ToQColor(SmallScalextricBed)) << "beside none in particular";
}

TEST_F(SmallPictures, MarkWhereATrackBegins) {
    const QImage image = Drawn(Straights("C160 C160"));

    EXPECT_EQ(At(image, 7.5, 1.5), QColor(Qt::white));
    EXPECT_EQ(At(image, 7.5, 9), QColor(Qt::white)) << "the arrow";
    EXPECT_NE(At(image, 7.5, 37), QColor(Qt::white)) << "the next piece has none";
}

TEST_F(SmallPictures, ShowTheFloorWithinClosedWallsButNotItsPillars) {
    Design design = Straights("");
    design.Room.Points = {{-100, -100, 0}, {100, -100, 1}, {100, 100, 1}, {-100, 100, 1}, {-100, -100, 1},
                          {40, 40, 0},     {60, 40, 1},    {60, 60, 1},   {40, 60, 1},    {40, 40, 1}};
    const QImage image = Drawn(design);

    EXPECT_EQ(At(image, 0, 0), ToQColor(SmallFloor(Colours)));
    EXPECT_EQ(At(image, 50, 50), QColor(Qt::white)) << "a pillar";
    EXPECT_EQ(At(image, 150, 0), QColor(Qt::white));
    design.Room.Points[2].Line = 0;
    EXPECT_EQ(At(Drawn(design), 0, 0), QColor(Qt::white)) << "nothing tells what lies beyond the gap";
}

} // namespace
} // namespace pistaro
