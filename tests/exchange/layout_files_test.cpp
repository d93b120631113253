#include "exchange/layout_files.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(LayoutCsv, HasALineForEachPieceOfEachTrack) {
    const std::string csv = LayoutCsvFile(Pieces(), ProjectOf("C160 C151L", "C157").Design.Circuit, AllTracks);

    EXPECT_EQ(csv, "track,index,code,name,x,y,heading,exit_x,exit_y,exit_heading,corner1_x,corner1_y,corner2_x,"
                   "corner2_y,corner3_x,corner3_y,corner4_x,corner4_y\r\n"
                   "1,0,C160,standard straight,0,0,0,0,35,0,0,0,0,35,15.5,35,15.5,0\r\n"
                   "1,1,C151L,standard curve 45°,0,35,0,-6.3850703,50.414925,0.78539807,0,35,-6.3850703,50.414925,"
                   "4.5750856,61.37508,15.5,35\r\n"
                   "2,0,C157,short straight,15.5,0,0,15.5,7.65625,0,15.5,0,15.5,7.65625,31,7.65625,31,0\r\n");
}

TEST(LayoutCsv, OfOneTrackHasItsLinesAlone) {
    const std::string csv = LayoutCsvFile(Pieces(), ProjectOf("C160", "C157").Design.Circuit, 1);

    EXPECT_EQ(csv.substr(csv.find('\n') + 1),
              "2,0,C157,short straight,15.5,0,0,15.5,7.65625,0,15.5,0,15.5,7.65625,31,7.65625,31,0\r\n");
}

TEST(LayoutCsv, LeavesNameAndCornersOfAnUnknownCodeOpenAndQuotesWhatPartsFields) {
    const std::string csv = LayoutCsvFile(Pieces(), ProjectOf("A,\"B").Design.Circuit, AllTracks);

    EXPECT_EQ(csv.substr(csv.find('\n') + 1), "1,0,\"A,\"\"B\",,0,0,0,0,0,0,,,,,,,,\r\n");
}

TEST(LayoutJson, IsOneLineOfAllTracksOrOfOne) {
    const Circuit circuit = ProjectOf("C160", "C157").Design.Circuit;

    EXPECT_EQ(LayoutJsonFile(Pieces(), circuit, 2),
              "{\"tracks\":[{\"track\":3,\"start\":[-15.5,0,0],\"elements\":[],\"end\":[-15.5,0,0],\"gap\":null}]}\n");
    const std::string all = LayoutJsonFile(Pieces(), circuit, AllTracks);
    EXPECT_NE(all.find("\"track\":1"), std::string::npos);
    EXPECT_NE(all.find("\"track\":3"), std::string::npos);
    EXPECT_EQ(all.find('\n'), all.size() - 1);
}

} // namespace
} // namespace pistaro
