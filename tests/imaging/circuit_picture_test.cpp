// Whole drawings as pictures.
#include "imaging/circuit_picture.h"
#include "imaging/image_file.h"
#include "platform/files.h"
#include "support/chain.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QImage>

#include <limits>
#include <optional>

namespace pistaro {

namespace {

class CircuitPictures : public testing::Test {
protected:
    static QImage Drawn(const Project& project, int pixels, PictureFormat format = PictureFormat::Png,
                        const std::optional<Picture>& background = {}) {
        return DecodeImage(CircuitPicture(Pieces(), project, pixels, background, format), "test")
            .convertToFormat(QImage::Format_RGB32);
    }

    /// A view 100 cm wide around 0, 0 without grid, so that a pixel of a picture of 100 is a centimetre.
    static Project Plain(const std::string& codes) {
        Project project = ProjectOf(codes);
        project.Preferences.Grid.Type = 0;
        project.Design.View.Width = 100;
        return project;
    }

    Picture BackgroundOf(const QImage& image, PictureFormat format) const {
        const std::filesystem::path file = folder_ / "plan";
        ReplaceFile(file, EncodeImage(image, format));
        return Picture::Read(file);
    }

    OffscreenGraphics graphics_;
    TemporaryFolder folder_;
};

constexpr QRgb White = qRgb(255, 255, 255);
constexpr QRgb Crimson = qRgb(255, 0, 0);

} // namespace

TEST_F(CircuitPictures, ShowAPieceWhereItLies) {
    // C160 from 0, 0: its edges run up at x = 0 and x = 15.5; at ten pixels a centimetre 500 and 655 across.
    const QImage image = Drawn(Plain("C160"), 1000);

    EXPECT_EQ(image.size(), QSize(1000, 1000));
    EXPECT_LT(qGreen(image.pixel(499, 400)), 200);
    EXPECT_LT(qGreen(image.pixel(654, 400)), 200);
    EXPECT_EQ(image.pixel(490, 400), White);
    EXPECT_EQ(image.pixel(665, 400), White);
    EXPECT_LT(qGreen(image.pixel(537, 400)), 200); // the lane, 3.8 cm from the edge
    EXPECT_EQ(image.pixel(577, 140), White);       // beyond the exit, 35 cm up
}

TEST_F(CircuitPictures, AreTheSameInAllLosslessFormats) {
    const Project project = ProjectOf("C151L C160 C164", "N10105R", "C8010R");

    const QImage png = Drawn(project, 300);

    EXPECT_EQ(Drawn(project, 300, PictureFormat::Bmp), png);
    const QImage gif = Drawn(project, 300, PictureFormat::Gif);
    EXPECT_EQ(gif.size(), png.size());
    EXPECT_EQ(Drawn(project, 300, PictureFormat::Jpeg).size(), png.size());
}

TEST_F(CircuitPictures, LieOverTheirBackgroundOfNaturalSize) {
    QImage plan(40, 30, QImage::Format_RGB32);
    plan.fill(Crimson);

    const QImage image = Drawn(Plain(""), 100, PictureFormat::Png, BackgroundOf(plan, PictureFormat::Gif));

    EXPECT_EQ(image.pixel(0, 0), Crimson);
    EXPECT_EQ(image.pixel(39, 29), Crimson);
    EXPECT_EQ(image.pixel(40, 29), White);
    EXPECT_EQ(image.pixel(39, 30), White);
}

TEST_F(CircuitPictures, CutOffALargerBackground) {
    QImage plan(400, 400, QImage::Format_RGB32);
    plan.fill(Crimson);

    const QImage image = Drawn(Plain(""), 100, PictureFormat::Png, BackgroundOf(plan, PictureFormat::Bmp));

    EXPECT_EQ(image.size(), QSize(100, 100));
    EXPECT_EQ(image.pixel(99, 0), Crimson);
    EXPECT_EQ(image.pixel(99, 50), Crimson) << "above the area's label, which may be as wide as the picture";
}

TEST_F(CircuitPictures, OfExtremeViewsAndStartsAreDrawn) {
    for (const float width : {0.0F, 1e-30F, 1e-3F, -320.0F, 1e9F, 3e38F}) {
        for (const float start : {0.0F, -1e9F, 3e38F}) {
            Project project = ProjectOf("C151L C164 C8010R C277 N10108L");
            project.EditState.ShowNumbers = true;
            project.Design.View.Width = width;
            project.Design.Circuit.Tracks[0].TrackStartX = start;
            project.Design.Room = {{{-32768, -32768, 1}, {32767, 32767, 1}}, 1};
            project.Preferences.Grid = {1, std::numeric_limits<std::int16_t>::max()};

            EXPECT_EQ(Drawn(project, 64).size(), QSize(64, 64)) << width << ", " << start;
        }
    }
}

TEST_F(CircuitPictures, ShowNumbersOnlyWhenAsked) {
    Project project = Plain("C160");
    const QImage without = Drawn(project, 500);
    project.EditState.ShowNumbers = true;

    EXPECT_NE(Drawn(project, 500), without);
}

} // namespace pistaro
