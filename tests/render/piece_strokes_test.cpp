// What is drawn of each kind of piece, stroke by stroke, at the origin with heading 0: across is right, on is up.
#include "render/redraw.h"
#include "support/pieces.h"
#include "support/recording_surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace pistaro {
namespace {

std::string StrokesOf(const std::string& code, const std::string& previous = "") {
    const ColourScheme colours = DistinctColours();
    RecordingSurface surface(colours);
    DrawPiece(*PlacePiece(Pieces(), code, {}, previous), colours.Owned, colours.Rail, surface);
    return surface.Text();
}

TEST(Strokes, OfLanesAreTheirSegmentsInThatOrderBelowAllOthers) {
    const ColourScheme colours = DistinctColours();
    for (const CatalogueEntry& piece : Pieces()) {
        const PiecePlacement placement = PlacePiece(piece.Kind, BuildCursor{3, 4, 5}, {});
        RecordingSurface lanes(colours);
        for (const Lane& lane : placement.Lanes) {
            for (const Segment& segment : lane.Path)
                std::visit([&](const auto& shape) { lanes.Draw(shape, colours.Rail); }, segment);
        }
        RecordingSurface whole(colours);
        DrawPiece(placement, colours.Owned, colours.Rail, whole);

        ASSERT_GT(whole.Lines.size(), lanes.Lines.size()) << piece.Code;
        whole.Lines.resize(lanes.Lines.size());
        EXPECT_EQ(whole.Lines, lanes.Lines) << piece.Code;
    }
}

/// The lanes and the outline of a Scalextric straight.
const std::string StandardStraight = "line 3.8,0 3.8,35 rail\n"
                                     "line 11.7,0 11.7,35 rail\n"
                                     "line 0,0 0,35 owned\n"
                                     "line 0,35 15.5,35 owned\n"
                                     "line 15.5,35 15.5,0 owned\n"
                                     "line 15.5,0 0,0 owned\n";
const std::string HalfStraight = "line 3.8,0 3.8,17.5 rail\n"
                                 "line 11.7,0 11.7,17.5 rail\n"
                                 "line 0,0 0,17.5 owned\n"
                                 "line 0,17.5 15.5,17.5 owned\n"
                                 "line 15.5,17.5 15.5,0 owned\n"
                                 "line 15.5,0 0,0 owned\n";
const std::string OutlineOfStandardStraight = StandardStraight.substr(StandardStraight.find("line 0,0"));

TEST(Strokes, OfAStraightAreItsLanesUnderItsOutline) {
    EXPECT_EQ(StrokesOf("C160"), StandardStraight);
    EXPECT_EQ(StrokesOf("C159"), HalfStraight);
    EXPECT_EQ(StrokesOf("N10104"), "line 4,0 4,10 rail\n"
                                   "line 13.5,0 13.5,10 rail\n"
                                   "line 0,0 0,10 owned\n"
                                   "line 0,10 17.5,10 owned\n"
                                   "line 17.5,10 17.5,0 owned\n"
                                   "line 17.5,0 0,0 owned\n");
}

TEST(Strokes, OfALeftCurveTurnAroundACentreOnTheLeft) {
    EXPECT_EQ(StrokesOf("C151L"), "arc -21.8,0 25.6 0..0.785 rail\n"
                                  "arc -21.8,0 33.5 0..0.785 rail\n"
                                  "arc -21.8,0 21.8 0..0.785 owned\n"
                                  "arc -21.8,0 37.3 0..0.785 owned\n"
                                  "line 15.5,0 0,0 owned\n"
                                  "line -6.385,15.415 4.575,26.375 owned\n");
}

TEST(Strokes, OfARightCurveTurnAroundACentreOnTheRight) {
    EXPECT_EQ(StrokesOf("C151R"), "arc 37.3,0 25.6 2.356..3.142 rail\n"
                                  "arc 37.3,0 33.5 2.356..3.142 rail\n"
                                  "arc 37.3,0 21.8 2.356..3.142 owned\n"
                                  "arc 37.3,0 37.3 2.356..3.142 owned\n"
                                  "line 15.5,0 0,0 owned\n"
                                  "line 10.925,26.375 21.885,15.415 owned\n");
}

TEST(Strokes, OfTheCurvedChicaneBringTheLanesTogether) {
    EXPECT_EQ(StrokesOf("C8010L"), "arc -21.8,0 28.3 0..0.785 rail\n"
                                   "arc -21.8,0 30.8 0..0.785 rail\n"
                                   "arc -21.8,0 21.8 0..0.785 owned\n"
                                   "arc -21.8,0 37.3 0..0.785 owned\n"
                                   "line 15.5,0 0,0 owned\n"
                                   "line -6.385,15.415 4.575,26.375 owned\n");
}

TEST(Strokes, OfTheChangeOversCross) {
    EXPECT_EQ(StrokesOf("C8006"), "line 3.8,0 11.7,35 rail\n"
                                  "line 11.7,0 3.8,35 rail\n" +
                                      OutlineOfStandardStraight);
    EXPECT_EQ(StrokesOf("N10111"), "line 4,0 13.5,40 rail\n"
                                   "line 13.5,0 4,40 rail\n"
                                   "line 0,0 0,40 owned\n"
                                   "line 0,40 17.5,40 owned\n"
                                   "line 17.5,40 17.5,0 owned\n"
                                   "line 17.5,0 0,0 owned\n");
}

TEST(Strokes, OfRoughTerrainAreFiveFlatEllipsesFromTheExit) {
    EXPECT_EQ(StrokesOf("C164"), StandardStraight + "ellipse 7.75,29.167 3.5 0.3 rail\n"
                                                    "ellipse 7.75,23.333 3.5 0.3 rail\n"
                                                    "ellipse 7.75,17.5 3.5 0.3 rail\n"
                                                    "ellipse 7.75,11.667 3.5 0.3 rail\n"
                                                    "ellipse 7.75,5.833 3.5 0.3 rail\n");
}

TEST(Strokes, OfTheHumpBackBridgeAreASecondOutlineFourWider) {
    EXPECT_EQ(StrokesOf("C248"), StandardStraight + "line 0,0 0,35 owned\n"
                                                    "line 0,35 19.5,35 owned\n"
                                                    "line 19.5,35 19.5,0 owned\n"
                                                    "line 19.5,0 0,0 owned\n");
}

TEST(Strokes, OfTheSkidChicaneNarrowBetweenTheThirds) {
    EXPECT_EQ(StrokesOf("C8005"), "line 3.8,0 6.5,11.667 rail\n"
                                  "line 6.5,11.667 6.5,23.333 rail\n"
                                  "line 6.5,23.333 3.8,35 rail\n"
                                  "line 11.7,0 9,11.667 rail\n"
                                  "line 9,11.667 9,23.333 rail\n"
                                  "line 9,23.333 11.7,35 rail\n" +
                                      OutlineOfStandardStraight);
}

TEST(Strokes, OfTheChicaneExtensionLieInTheMiddle) {
    EXPECT_EQ(StrokesOf("C8009"), "line 6.5,0 6.5,35 rail\n"
                                  "line 9,0 9,35 rail\n" +
                                      OutlineOfStandardStraight);
}

const std::string LeadsIn = "line 3.8,0 6.5,35 rail\n"
                            "line 11.7,0 9,35 rail\n" +
                            OutlineOfStandardStraight;
const std::string LeadsOut = "line 6.5,0 3.8,35 rail\n"
                             "line 9,0 11.7,35 rail\n" +
                             OutlineOfStandardStraight;

TEST(Strokes, OfTheStandardChicaneLeadInAtTheBeginningOfATrack) { EXPECT_EQ(StrokesOf("C8007"), LeadsIn); }

TEST(Strokes, OfTheStandardChicaneLeadInAfterAPlainPiece) {
    for (const char* const previous : {"C160", "C151L", "C8005", "N10102", "unknown", "C8010"})
        EXPECT_EQ(StrokesOf("C8007", previous), LeadsIn) << previous;
}

TEST(Strokes, OfTheStandardChicaneLeadOutAfterAChicanePiece) {
    for (const char* const previous : {"C8009", "C8007", "C8010L", "C8010R"})
        EXPECT_EQ(StrokesOf("C8007", previous), LeadsOut) << previous;
}

TEST(Strokes, OfTheLapCounterAreABoxAndACircleBesideTheTrack) {
    EXPECT_EQ(StrokesOf("C277"), HalfStraight + "line -12.4,0 -12.4,17.5 owned\n"
                                                "line -12.4,17.5 15.5,17.5 owned\n"
                                                "line 15.5,17.5 15.5,0 owned\n"
                                                "line 15.5,0 -12.4,0 owned\n"
                                                "ellipse -6.2,8.75 2.3 1 rail\n");
}

TEST(Strokes, OfTheReverseStartAreEightLinesWithATipAtTwoThirds) {
    const std::string strokes = StrokesOf("C367");

    EXPECT_TRUE(strokes.starts_with(HalfStraight));
    EXPECT_EQ(std::ranges::count(strokes, '\n'), 8);
    EXPECT_NE(strokes.find("7.75,11.667 rail"), std::string::npos);
}

TEST(Strokes, OfTheAdapterWidenFromScalextricToNinco) {
    for (const char* const previous : {"", "C160"}) {
        EXPECT_EQ(StrokesOf("N10110", previous), "line 3.8,0 4,20 rail\n"
                                                 "line 11.7,0 13.5,20 rail\n"
                                                 "line 0,0 0,20 owned\n"
                                                 "line 0,20 17.5,20 owned\n"
                                                 "line 17.5,20 15.5,0 owned\n"
                                                 "line 15.5,0 0,0 owned\n");
    }
}

TEST(Strokes, OfTheAdapterNarrowAfterANincoPiece) {
    for (const char* const previous : {"N10102", "N10110"}) {
        EXPECT_EQ(StrokesOf("N10110", previous), "line 4,0 3.8,20 rail\n"
                                                 "line 13.5,0 11.7,20 rail\n"
                                                 "line 0,0 0,20 owned\n"
                                                 "line 0,20 15.5,20 owned\n"
                                                 "line 15.5,20 17.5,0 owned\n"
                                                 "line 17.5,0 0,0 owned\n");
    }
}

} // namespace
} // namespace pistaro
