// Pictures as files: what is written is read back, pixel by pixel.
#include "imaging/circuit_picture.h"
#include "imaging/gif_file.h"
#include "imaging/image_file.h"
#include "support/chain.h"
#include "support/fault_of.h"

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <QColor>

#include <QPainter>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <random>

namespace pistaro {

namespace {

/// An image of `colours` different colours, in stripes of one pixel.
QImage ImageOf(int colours, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int colour = (x + y * width) % colours;
            image.setPixel(x, y, qRgb(colour % 256, colour / 256, 255 - colour % 256));
        }
    }
    return image;
}

struct GifBytes {
    const std::string& Bytes;
    std::size_t At = 0;
};

int TakeBytes(GifFileType* file, GifByteType* buffer, int count) {
    auto& source = *static_cast<GifBytes*>(file->UserData);
    const std::size_t taken = std::min(source.Bytes.size() - source.At, static_cast<std::size_t>(count));
    std::memcpy(buffer, source.Bytes.data() + source.At, taken);
    source.At += taken;
    return static_cast<int>(taken);
}

/// The picture as giflib's own decoder sees it.
QImage DecodedByGiflib(const std::string& bytes) {
    GifBytes source{bytes};
    int error = 0;
    GifFileType* const file = DGifOpen(&source, TakeBytes, &error);
    if (file == nullptr || DGifSlurp(file) != GIF_OK || file->ImageCount != 1) return {};
    QImage image(file->SWidth, file->SHeight, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const GifColorType& colour =
                file->SColorMap->Colors[file->SavedImages[0].RasterBits[y * image.width() + x]];
            image.setPixel(x, y, qRgb(colour.Red, colour.Green, colour.Blue));
        }
    }
    DGifCloseFile(file, &error);
    return image;
}

QImage Decoded(const std::string& bytes) { return DecodeImage(bytes, "test").convertToFormat(QImage::Format_RGB32); }

/// The largest difference of any pixel's red, green or blue.
int FarthestPixel(const QImage& a, const QImage& b) {
    int farthest = a.size() == b.size() ? 0 : 256;
    for (int y = 0; farthest < 256 && y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor one = a.pixelColor(x, y);
            const QColor two = b.pixelColor(x, y);
            farthest = std::max({farthest, std::abs(one.red() - two.red()), std::abs(one.green() - two.green()),
                                 std::abs(one.blue() - two.blue())});
        }
    }
    return farthest;
}

} // namespace

TEST(ImageFile, BmpPngAndGifBringBackEveryPixel) {
    const QImage image = ImageOf(256, 61, 43);
    for (const PictureFormat format : {PictureFormat::Bmp, PictureFormat::Png, PictureFormat::Gif})
        EXPECT_EQ(Decoded(EncodeImage(image, format)), image) << NameOf(format);
}

TEST(ImageFile, JpegBringsBackNearlyTheSamePicture) {
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(QColor(200, 40, 90));

    EXPECT_LE(FarthestPixel(Decoded(EncodeImage(image, PictureFormat::Jpeg)), image), 3);
}

TEST(ImageFile, RefusesBytesThatAreNoPictureAndNamesTheFile) {
    for (const std::string& bytes : {std::string(), std::string("no picture"), std::string("GIF89a"),
                                     EncodeImage(ImageOf(2, 9, 9), PictureFormat::Png).substr(0, 40)}) {
        const std::string fault = FaultOf([&] { DecodeImage(bytes, "plan.png"); });
        EXPECT_TRUE(fault.starts_with("Invalid picture: plan.png: ")) << fault;
    }
}

TEST(ImageFile, ReadsNoOtherFormatsThoughQtCould) {
    const std::string ppm = "P6 1 1 255 abc";
    const std::string xbm = "#define x_width 8\n#define x_height 1\nstatic char x_bits[] = {0x55};\n";
    const std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    for (const std::string& bytes : {ppm, xbm, svg}) {
        const std::string fault = FaultOf([&] { DecodeImage(bytes, "plan.png"); });
        EXPECT_TRUE(fault.starts_with("Invalid picture: plan.png: ")) << fault;
    }
}

/// A white JPEG in colour: its three components take 4 bytes a pixel when it is decoded.
std::string WhiteJpeg(int width, int height) {
    QImage image(width, height, QImage::Format_Indexed8);
    image.setColorTable({qRgb(255, 255, 255), qRgb(255, 0, 0)});
    image.fill(0);
    return EncodeImage(image, PictureFormat::Jpeg);
}

TEST(ImageFile, APhotographOf9000By9000PixelsIsTaken) {
    const QImage image = DecodeImage(WhiteJpeg(9000, 9000), "plan.jpg");

    EXPECT_EQ(image.size(), QSize(9000, 9000));
    EXPECT_EQ(image.depth(), 32) << "309 MB";
    EXPECT_EQ(image.pixel(8999, 8999), qRgb(255, 255, 255));
}

TEST(ImageFile, APictureThatNeedsMoreMemoryThanIsTakenIsRefusedBeforeItIsDecoded) {
    std::string bytes = WhiteJpeg(16, 16);
    const std::size_t frame = bytes.find("\xFF\xC0"); // marker, length, bits; then height and width of two bytes each
    ASSERT_NE(frame, std::string::npos);
    bytes.replace(frame + 5, 4, std::string("\x30\x00\x40\x00", 4));

    EXPECT_EQ(FaultOf([&] { DecodeImage(bytes, "plan.jpg"); }),
              "Invalid picture: plan.jpg: its 16384 x 12288 pixels would need 768 MB, at most 512 MB are taken");
}

TEST(ImageFile, TheFormatIsWhatTheEndingSays) {
    EXPECT_EQ(PictureFormatOf("a.bmp"), PictureFormat::Bmp);
    EXPECT_EQ(PictureFormatOf("b.PNG"), PictureFormat::Png);
    EXPECT_EQ(PictureFormatOf("folder.png/c.Gif"), PictureFormat::Gif);
    EXPECT_EQ(PictureFormatOf("d.jpg"), PictureFormat::Jpeg);
    EXPECT_EQ(PictureFormatOf("e.jpeg"), PictureFormat::Jpeg);
    for (const char* const name : {"a", "a.tif", "png", ".png", "a.png.txt", "folder.png/a", ""})
        EXPECT_THROW(PictureFormatOf(name), Fault) << name;
}

class GifOfColours : public testing::TestWithParam<int> {};

TEST_P(GifOfColours, IsReadAlikeByBothDecoders) {
    const QImage image = ImageOf(GetParam(), 37, 29);

    const std::string bytes = EncodeGif(image);

    EXPECT_EQ(DecodedByGiflib(bytes), image);
    EXPECT_EQ(Decoded(bytes), image);
}

INSTANTIATE_TEST_SUITE_P(UpToAWholePalette, GifOfColours, testing::Values(1, 2, 3, 4, 5, 16, 17, 128, 129, 255, 256));

TEST(GifFile, OfASinglePixelIsAPicture) {
    const QImage image = ImageOf(1, 1, 1);

    EXPECT_EQ(DecodedByGiflib(EncodeGif(image)), image);
    EXPECT_EQ(Decoded(EncodeGif(image)), image);
}

TEST(GifFile, OfALargeNoisyImageIsReadAlikeByBothDecoders) {
    std::mt19937 random(7);
    QImage image(301, 199, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int grey = static_cast<int>(random() % 256);
            image.setPixel(x, y, qRgb(grey, grey, grey));
        }
    }

    const std::string bytes = EncodeGif(image);

    EXPECT_EQ(DecodedByGiflib(bytes), image);
    EXPECT_EQ(Decoded(bytes), image);
}

TEST(GifFile, OfMoreThan256ColoursKeepsThemNear) {
    QImage image(64, 64, QImage::Format_RGB32); // 4096 colours
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            image.setPixel(x, y, qRgb(4 * x, 4 * y, 128));
    }

    const std::string bytes = EncodeGif(image);

    EXPECT_EQ(DecodedByGiflib(bytes), Decoded(bytes));
    EXPECT_LE(FarthestPixel(Decoded(bytes), image), 40);
}

/// Every pixel of another colour, or nearly so: what a photograph's sensor sees in the dark.
QImage Noise(int side) {
    std::mt19937 random(7);
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < side; ++x)
            row[x] = static_cast<QRgb>(random()) | 0xFF000000;
    }
    return image;
}

TEST(GifFile, OfNoiseTakesAsLongAsItsPixelsNotAsItsColours) {
    const QImage noise = Noise(2000);
    const std::clock_t before = std::clock();

    EncodeGif(noise);

    EXPECT_LE(std::clock() - before, 3 * CLOCKS_PER_SEC);
}

TEST(GifFile, OfCountlessColoursKeepsTheFrequentOnesExactlyAndTheOthersNear) {
    QImage image = Noise(400);
    QPainter(&image).fillRect(0, 0, 400, 5, QColor(1, 2, 3));
    QPainter(&image).fillRect(0, 5, 400, 4, QColor(1, 2, 4));

    const std::string bytes = EncodeGif(image);

    const QImage decoded = Decoded(bytes);
    EXPECT_EQ(DecodedByGiflib(bytes), decoded);
    EXPECT_EQ(decoded.pixel(0, 0), qRgb(1, 2, 3));
    EXPECT_EQ(decoded.pixel(399, 8), qRgb(1, 2, 4));
    EXPECT_LE(FarthestPixel(decoded, image), 60) << "192 boxes part a channel into five or six";
}

TEST(GifFile, OfCountlessColoursInAFewBoxesOfTheGridIsAPicture) {
    QImage image(300, 300, QImage::Format_RGB32); // 67,500 colours of one red in 64 x 64 x ... boxes
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 300; ++x)
            image.setPixel(x, y, qRgb((x + y) % 2, std::min(x, 255), std::min(y, 255)));
    }

    const std::string bytes = EncodeGif(image);

    EXPECT_EQ(DecodedByGiflib(bytes), Decoded(bytes));
    EXPECT_LE(FarthestPixel(Decoded(bytes), image), 24);
}

TEST(GifFile, RefusesAnImageThatNoGifCanHold) {
    EXPECT_THROW(EncodeGif(QImage()), Fault);
    EXPECT_THROW(EncodeGif(QImage(65536, 1, QImage::Format_RGB32)), Fault);
}

} // namespace pistaro
