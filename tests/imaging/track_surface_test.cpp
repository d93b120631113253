// Tracks as they look.
#include "imaging/track_surface.h"

#include "imaging/cached_drawing.h"
#include "imaging/circuit_picture.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class TrackSurfaces : public testing::Test {
protected:
    /// 4 pixels a cm, 0, 0 in the middle.
    static QImage Drawn(Project project, TrackLook look = TrackLook::Surface) {
        project.Design.View.Width = 200;
        project.Preferences.Grid.Type = 0;
        CachedDrawing drawing;
        drawing.Redraw(Pieces(), project, {}, {{800, 800}}, look);
        return drawing.Picture();
    }
    static QColor At(const QImage& image, double x, double y) {
        return image.pixelColor(static_cast<int>(400 + 4 * x), static_cast<int>(400 - 4 * y));
    }
    static bool IsGrey(const QColor& colour) { return colour.saturation() < 40 && colour.lightness() < 200; }

private:
    OffscreenGraphics graphics_;
};

TEST_F(TrackSurfaces, HaveAnAsphaltBedUnderTheirLines) {
    Project project = ProjectOf("C160 C160");
    project.Stock.Of(Pieces().FindRow("C160")).OwnedCount = 2;

    const QImage surface = Drawn(project);
    EXPECT_EQ(At(surface, 7.75, 50), ToQColor(AsphaltColour));
    EXPECT_EQ(At(Drawn(project, TrackLook::Lines), 7.75, 50), QColor(Qt::white));
    EXPECT_EQ(At(surface, -10, 50), QColor(Qt::white)) << "beside the track";
}

TEST_F(TrackSurfaces, TellTheirLanesByColours) {
    Project project = ProjectOf("C160 C160");
    project.Stock.Of(Pieces().FindRow("C160")).OwnedCount = 2;
    const QImage surface = Drawn(project);
    const auto has = [&](double from, double to, Colour colour) {
        for (double x = from; x < to; x += 0.25)
            if (At(surface, x, 50) == ToQColor(colour)) return true;
        return false;
    };

    EXPECT_TRUE(has(2, 6, LeftLaneColour));
    EXPECT_FALSE(has(2, 6, RightLaneColour));
    EXPECT_TRUE(has(9, 14, RightLaneColour));
}

TEST_F(TrackSurfaces, HatchPiecesThatAreNotOwnedAndTintTheSelectedOne) {
    Project project = ProjectOf("C160 C160 C160");
    project.EditState.Select(2);
    const QImage surface = Drawn(project);
    const auto inked = [&](double y) {
        int count = 0;
        for (int x = 0; x < 20; ++x)
            for (int dy = 0; dy < 20; ++dy)
                count += surface.pixelColor(421 + x, static_cast<int>(400 - 4 * y) + dy) != ToQColor(AsphaltColour);
        return count;
    };

    EXPECT_GT(inked(55), 30);
    EXPECT_LT(inked(55), 200);
    EXPECT_EQ(inked(90), 400);
}

TEST_F(TrackSurfaces, AreChequeredAtTheStart) {
    const QImage surface = Drawn(ProjectOf("C160 C160"));
    int black = 0;
    int white = 0;
    for (int x = 402; x < 460; ++x) {
        black += surface.pixelColor(x, 396) == QColor(Qt::black);
        white += surface.pixelColor(x, 396) == QColor(Qt::white);
    }

    EXPECT_GT(black, 15);
    EXPECT_GT(white, 10);
}

TEST_F(TrackSurfaces, CastAShadowWhereOnePassesOverAnother) {
    Project project = ProjectOf("C160", "C160");
    project.EditState.CurrentTrack = 0;
    project.Design.Circuit.Tracks[1].TrackStartX = -10; // across the first: to the left, from right to left
    project.Design.Circuit.Tracks[1].TrackStartHeading = 0;
    Project apart = project;
    apart.Design.Circuit.Tracks[1].TrackStartX = -60;

    const QColor over = At(Drawn(project), -1, 8);
    const QColor free = At(Drawn(apart), -1, 8);
    EXPECT_EQ(free, QColor(Qt::white));
    EXPECT_LT(over.lightness(), 150) << "the lower track's bed in the upper one's shadow";
}

TEST_F(TrackSurfaces, HaveSharpEdgesAlongTheGrid) {
    Project project = ProjectOf("C160 C160");
    project.Stock.Of(Pieces().FindRow("C160")).OwnedCount = 2;
    project.EditState.CurrentTrack = 1; // so that its edges are a pixel wide
    const QImage surface = Drawn(project);
    int inked = 0;
    for (int x = 395; x < 402; ++x)
        inked += surface.pixelColor(x, 200) == ToQColor(project.Preferences.Colours.Inactive);

    EXPECT_EQ(inked, 1);
}

TEST_F(TrackSurfaces, WriteANumberBesideAPieceThatHasNoRoomForIt) {
    Project project = ProjectOf("C160");
    project.EditState.ShowNumbers = true;
    const auto dark = [&](double width, int from, int to) {
        project.Design.View.Width = static_cast<float>(width);
        project.Preferences.Grid.Type = 0;
        CachedDrawing drawing;
        drawing.Redraw(Pieces(), project, {}, {{800, 800}}, TrackLook::Surface);
        int count = 0;
        for (int x = from; x < to; ++x)
            for (int y = 300; y < 400; ++y)
                count += drawing.Picture().pixelColor(x, y).lightness() < 220;
        return count;
    };

    EXPECT_EQ(dark(200, 470, 500), 0) << "62 pixels wide, and white on the bed";
    EXPECT_GT(dark(4000, 406, 440), 5) << "3 pixels wide: dark on the ground beside it";
}

TEST_F(TrackSurfaces, ChangeNothingWhereTheyAreNotAskedFor) {
    const Project project = ProjectOf("C160 C151L", "N10105R");
    const std::string plain = CircuitPicture(Pieces(), project, 300, std::nullopt, PictureFormat::Png);

    EXPECT_EQ(CircuitPicture(Pieces(), project, 300, std::nullopt, PictureFormat::Png, TrackLook::Lines), plain);
    EXPECT_NE(CircuitPicture(Pieces(), project, 300, std::nullopt, PictureFormat::Png, TrackLook::Surface), plain);
}

TEST_F(TrackSurfaces, LetTheGridRecede) {
    EXPECT_EQ(RecedingGridColour(Rgb(255, 255, 255)), Rgb(214, 214, 214));
    EXPECT_EQ(RecedingGridColour(Rgb(0, 0, 0)), Rgb(41, 41, 41));
}

} // namespace
} // namespace pistaro
