// Pictures that lie behind the drawing.
#include "imaging/picture.h"

#include "imaging/image_file.h"
#include "platform/files.h"
#include "support/fault_of.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(Picture, IsReadFromAFileOfAnyFormatWhateverItsEnding) {
    const TemporaryFolder folder;
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(qRgb(1, 2, 3));
    for (const PictureFormat format : {PictureFormat::Bmp, PictureFormat::Png, PictureFormat::Gif}) {
        ReplaceFile(folder / "plan", EncodeImage(image, format));

        const Picture picture = Picture::Read(folder / "plan");

        EXPECT_EQ(picture.Image().size(), QSize(3, 2)) << NameOf(format);
        EXPECT_EQ(picture.Image().pixel(2, 1), qRgb(1, 2, 3)) << NameOf(format);
    }
}

TEST(Picture, ThatIsNoneIsRefusedByName) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder / "plan.gif";
    for (const char* const bytes : {"no picture", ""}) {
        ReplaceFile(file, bytes);

        EXPECT_TRUE(FaultOf([&] { Picture::Read(file); }).starts_with("Invalid picture: " + TextFromPath(file)))
            << '"' << bytes << '"';
    }
}

TEST(Picture, IsTheSameAsItsCopiesOnly) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder / "plan.bmp";
    ReplaceFile(file, EncodeImage(QImage(2, 2, QImage::Format_RGB32), PictureFormat::Bmp));
    const Picture picture = Picture::Read(file);
    const Picture copy = picture;

    EXPECT_EQ(copy, picture);
    EXPECT_NE(Picture::Read(file), picture) << "it may have changed";
}

} // namespace
} // namespace pistaro
