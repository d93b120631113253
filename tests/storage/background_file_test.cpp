// The file beside a circuit's: what it holds, and what is refused.
#include "storage/background_file.h"

#include "support/fault_of.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

const std::string Head = "[Background]\r\nX=12.5\r\nY=-3\r\nAngle=.25\r\nCmPerPixel=.421\r\nBytes=5\r\n";
const std::string Picture("ab\0\r\n", 5);
const std::string Whole = Head + Picture;

std::string FaultFor(const std::string& bytes) {
    return FaultOf([&] { ParseBackground(bytes, "x.background"); });
}

TEST(ABackgroundFile, TellsWhereThePictureLiesAndHoldsIt) {
    const ScaledBackground background = ParseBackground(Whole, "x.background");

    EXPECT_EQ(background.X, 12.5);
    EXPECT_EQ(background.Y, -3);
    EXPECT_EQ(background.Angle, 0.25);
    EXPECT_EQ(background.CmPerPixel, 0.421);
    EXPECT_EQ(*background.Picture, Picture);
}

TEST(ABackgroundFile, IsWrittenAsItIsRead) {
    EXPECT_EQ(BackgroundBytes(ParseBackground(Whole, "x.background")), Whole);
}

TEST(ABackgroundFile, TellsHowFadedThePictureIsAndWhatItsSizeWasTakenFrom) {
    const std::string told =
        "[Background]\r\nX=12.5\r\nY=-3\r\nAngle=.25\r\nCmPerPixel=.421\r\nOpacity=.6\r\nFromX=10\r\n"
        "FromY=20.5\r\nToX=310\r\nToY=20.5\r\nDistance=126.3\r\nBytes=5\r\n" +
        Picture;

    const ScaledBackground background = ParseBackground(told, "x.background");

    EXPECT_EQ(background.Opacity, 0.6);
    ASSERT_TRUE(background.Measured.has_value());
    EXPECT_EQ(background.Measured->FromX, 10);
    EXPECT_EQ(background.Measured->FromY, 20.5);
    EXPECT_EQ(background.Measured->ToX, 310);
    EXPECT_EQ(background.Measured->Distance, 126.3);
    EXPECT_EQ(*background.Picture, Picture);
    EXPECT_EQ(BackgroundBytes(background), told);
}

TEST(ABackgroundFile, OfAnEarlierVersionIsNotFadedAndNotMeasured) {
    const ScaledBackground background = ParseBackground(Whole, "x.background");

    EXPECT_EQ(background.Opacity, 1);
    EXPECT_FALSE(background.Measured.has_value());
}

TEST(ABackgroundFile, StandsBesideTheCircuitsByItsName) {
    EXPECT_EQ(BackgroundFileOf("/a/oval.trk"), "/a/oval.background");
    EXPECT_EQ(BackgroundFileOf("/a/oval.v2.TRK"), "/a/oval.v2.background");
    EXPECT_EQ(BackgroundFileOf("/a/oval.old"), "/a/oval.old.background") << "which oval.trk is not";
}

TEST(ABackgroundFile, IsRefusedWhenItIsEmptyTruncatedOrSomethingElse) {
    EXPECT_EQ(FaultFor(""), "Bad file format: x.background: the file is empty");
    EXPECT_EQ(FaultFor("[Background]\r\nX=1\r\n"), "Bad file format: x.background: this is no background file");
    EXPECT_EQ(FaultFor(std::string(100000, '\x89')), "Bad file format: x.background: this is no background file");
    EXPECT_EQ(FaultFor(std::string(6, '\n')), "Bad file format: x.background: this is no background file");
    EXPECT_EQ(FaultFor(Head + "ab"), "Input past end of file: x.background: the picture has 5 bytes, 2 stand there");
    EXPECT_EQ(FaultFor(Whole + "x"), "Input past end of file: x.background: the picture has 5 bytes, 6 stand there");
}

TEST(ABackgroundFile, IsRefusedWhenANumberIsNoneOrOutOfItsRange) {
    const auto with = [](const std::string& from, const std::string& to) {
        std::string bytes = Whole;
        return FaultFor(bytes.replace(bytes.find(from), from.size(), to));
    };

    EXPECT_EQ(with("X=12.5", "X=1E99"),
              "Bad file format: x.background: \"X=1E99\" stands where X= and a number from -1000000 to 1000000 should");
    EXPECT_EQ(with("Y=-3", "Z=-3"),
              "Bad file format: x.background: \"Z=-3\" stands where Y= and a number from -1000000 to 1000000 should");
    EXPECT_NE(with("Angle=.25", "Angle=north"), "");
    EXPECT_NE(with("CmPerPixel=.421", "CmPerPixel=0"), "");
    EXPECT_NE(with("Bytes=5", "Bytes=-5"), "");
    EXPECT_EQ(with("Bytes=5", "Opacity=0\r\nBytes=5"),
              "Bad file format: x.background: \"Opacity=0\" stands where Opacity= and a number from .1 to 1 should");
    EXPECT_EQ(with("Bytes=5", "FromX=0\r\nBytes=5"),
              "Bad file format: x.background: \"Bytes=5\" stands where FromY= and a number from -1000000 to 1000000 "
              "should");
}

TEST(ABackgroundFile, IsReadFromDisk) {
    const TemporaryFolder folder;
    EXPECT_NE(FaultOf([&] { ReadBackground(folder / "none.background"); }), "");
    EXPECT_NE(FaultOf([&] { ReadBackground(folder.Path()); }), "");
}

} // namespace
} // namespace pistaro
