// Where pieces lie, against a second account of it, and how their arcs run.
#include "layout/placement.h"

#include "layout/angles.h"
#include "layout/piece_oracle.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

namespace pistaro {
namespace {

constexpr double Tolerance = 0.002; // cm

void ExpectAt(const WorldPoint& point, const oracle::Point& expected, const char* what) {
    EXPECT_NEAR(point.X, static_cast<double>(expected.X), Tolerance) << what;
    EXPECT_NEAR(point.Y, static_cast<double>(expected.Y), Tolerance) << what;
}

void ExpectAsExpected(const PiecePlacement& placement, const oracle::Placed& expected) {
    ExpectAt(placement.Corners.Entry, expected.Corners[0], "corner 1");
    ExpectAt(placement.Corners.Exit, expected.Corners[1], "corner 2");
    ExpectAt(placement.Corners.OtherExit, expected.Corners[2], "corner 3");
    ExpectAt(placement.Corners.OtherEntry, expected.Corners[3], "corner 4");
    ExpectAt(placement.Label, expected.Label, "label");
    ExpectAt({placement.Exit.CursorX, placement.Exit.CursorY}, expected.Corners[1], "exit");
    EXPECT_NEAR(placement.Exit.CursorHeading, expected.Exit.CursorHeading, 1e-6) << "exit heading";
}

std::vector<float> ManyHeadings() {
    std::vector<float> headings{0, 1e-7F, -1e-7F, 0.3F, TwoPi, std::nextafter(TwoPi, 0.0F), -0.5F, 7.0F};
    for (int i = 0; i < 32; ++i)
        headings.push_back(static_cast<float>(i * PiValue / 16));
    return headings;
}

TEST(Placement, OfEveryKindFromEveryHeadingIsThatOfTheFormulas) {
    for (const oracle::Kind& kind : oracle::Kinds) {
        for (const float heading : ManyHeadings()) {
            for (const char* const previous : {"", "C160", "N10102", "C8009"}) {
                SCOPED_TRACE(std::string(kind.Code) + " at " + std::to_string(heading) + " after " + previous);
                const BuildCursor cursor{-120.25F, 77.5F, heading};

                const auto placement = PlacePiece(Pieces(), kind.Code, cursor, previous);

                ASSERT_TRUE(placement.has_value());
                ExpectAsExpected(*placement, oracle::Place(kind, cursor, previous));
            }
        }
    }
}

TEST(Placement, OfLongRandomChainsStaysThatOfTheFormulas) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> places(-200, 200);
    std::uniform_real_distribution<float> headings(0, 6.28F);
    for (int chain = 0; chain < 60; ++chain) {
        Track track;
        track.TrackStartX = places(random);
        track.TrackStartY = places(random);
        track.TrackStartHeading = headings(random);
        std::vector<oracle::Placed> expected;
        BuildCursor cursor = track.Start();
        for (int i = 0; i < MaxElements; ++i) {
            const oracle::Kind& kind = oracle::Kinds[random() % oracle::Kinds.size()];
            expected.push_back(
                oracle::Place(kind, cursor, track.ElementCodes.empty() ? "" : track.ElementCodes.back()));
            cursor = expected.back().Exit;
            track.ElementCodes.emplace_back(kind.Code);
        }

        WalkTrack(Pieces(), track, [&](int index, const PiecePlacement* placement, const BuildCursor&) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", chain " + std::to_string(chain) + ", piece " +
                         std::to_string(index));
            ASSERT_NE(placement, nullptr);
            ExpectAsExpected(*placement, expected[static_cast<std::size_t>(index)]);
        });
        if (HasFailure()) return;
    }
}

TEST(Placement, KnowsEveryCodeOfTheCatalogueAndNoOther) {
    EXPECT_EQ(Pieces().Count(), 39);
    for (const CatalogueEntry& entry : Pieces())
        EXPECT_TRUE(PlacePiece(Pieces(), entry.Code, {}, "").has_value()) << entry.Code;

    for (const char* const code : {"", "C151", "c160", "C160 ", "N10109"})
        EXPECT_FALSE(PlacePiece(Pieces(), code, {}, "").has_value()) << '"' << code << '"';
}

/// Of the lanes, then of the outline: the inner one first.
std::vector<ArcSegment> ArcsOf(const PiecePlacement& placement) {
    std::vector<ArcSegment> arcs;
    const auto add = [&](const Segment& segment) {
        if (const auto* const arc = std::get_if<ArcSegment>(&segment)) arcs.push_back(*arc);
    };
    for (const Lane& lane : placement.Lanes)
        std::for_each(lane.Path.begin(), lane.Path.end(), add);
    std::for_each(placement.Outline.begin(), placement.Outline.end(), add);
    return arcs;
}

/// Brought into 0..2 pi of the circle constant.
double AsTurn(double angle) {
    const double turn = std::fmod(angle, 2 * PiValue);
    return turn < 0 ? turn + 2 * PiValue : turn;
}

TEST(Arcs, RunTheShortWayRoundFromEveryHeading) {
    for (const oracle::Kind& kind : oracle::Kinds) {
        if (kind.Shape == 'S') continue;
        std::vector<float> headings = ManyHeadings();
        for (int i = 0; i < 3000; ++i)
            headings.push_back(static_cast<float>(i) * 0.0021F);
        // The headings at which an end of the arc comes to lie at angle 0.
        for (const oracle::Real end : {2 * oracle::Pi, oracle::Pi, 2 * oracle::Pi - kind.Arc, oracle::Pi + kind.Arc}) {
            float heading = std::nextafter(std::nextafter(static_cast<float>(end), 0.0F), 0.0F);
            for (int i = 0; i < 5; ++i, heading = std::nextafter(heading, 10.0F))
                headings.push_back(heading);
        }
        for (const float heading : headings) {
            const auto placement = PlacePiece(Pieces(), kind.Code, {0, 0, heading}, "");
            const std::vector<ArcSegment> arcs = ArcsOf(*placement);
            ASSERT_EQ(arcs.size(), 4U);
            for (const ArcSegment& arc : arcs) {
                ASSERT_NEAR(AsTurn(double{arc.End} - arc.Start), static_cast<double>(kind.Arc), 1e-5)
                    << kind.Code << " at " << heading << ": " << arc.Start << ".." << arc.End;
                const double lastAngle =
                    kind.Shape == 'R' ? heading + PiValue : heading + static_cast<double>(kind.Arc);
                ASSERT_NEAR(std::cos(arc.End), std::cos(lastAngle), 1e-5) << kind.Code << " at " << heading;
                ASSERT_NEAR(std::sin(arc.End), std::sin(lastAngle), 1e-5) << kind.Code << " at " << heading;
            }
        }
    }
}

TEST(Arcs, ThatStraddleZeroRunThroughIt) {
    const auto heading = static_cast<float>(2 * PiValue - PiValue / 4 + 0.1); // its end is 0.1 beyond a whole turn

    const ArcSegment arc = ArcsOf(*PlacePiece(Pieces(), "C151L", {0, 0, heading}, "")).front();

    EXPECT_GT(arc.Start, arc.End);
    EXPECT_FLOAT_EQ(arc.Start, heading);
    EXPECT_NEAR(arc.End, 0.1, 1e-6);
}

TEST(Arcs, OfTheBankedCurveAreNotSentTheLongWayByRounding) {
    // The left-hand arc is exactly as wide as its threshold.
    for (int i = 0; i < 1000; ++i) {
        const float heading = static_cast<float>(i) * 0.005F;
        const ArcSegment arc = ArcsOf(*PlacePiece(Pieces(), "C187L", {0, 0, heading}, "")).front();
        ASSERT_LT(arc.Start, arc.End) << heading;
    }
}

TEST(Arcs, OfTheRightHandBankedCurveAreALittleShorterThanItsTurn) {
    const auto placement = PlacePiece(Pieces(), "C187R", {0, 0, 1}, "");
    const ArcSegment arc = ArcsOf(*placement).front();

    EXPECT_NEAR((arc.End - arc.Start) * 180 / PiValue, 55.86, 0.005);
    EXPECT_NEAR((1 - placement->Exit.CursorHeading) * 180 / PiValue, 56.25, 0.005);
}

TEST(Arcs, OfLanesLieOneInsetInsideTheEdges) {
    for (const oracle::Kind& kind : oracle::Kinds) {
        if (kind.Shape == 'S') continue;
        const std::vector<ArcSegment> arcs = ArcsOf(*PlacePiece(Pieces(), kind.Code, {}, ""));
        const std::array expected{kind.LengthOrInnerRadius + kind.Inset, kind.OuterRadius - kind.Inset,
                                  kind.LengthOrInnerRadius, kind.OuterRadius};
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_NEAR(arcs[i].Radius, static_cast<double>(expected[i]), 1e-5) << kind.Code;
    }
}

TEST(Heading, ReturnsAfterARightAndALeftCurve) {
    for (const float heading : {0.0F, 0.5F, 1.0F, 3.0F, 6.0F}) {
        Track track = Chain("C151R C151L");
        track.TrackStartHeading = heading;

        const BuildCursor end = WalkTrack(Pieces(), track, [](int, const PiecePlacement*, const BuildCursor&) {});

        EXPECT_NEAR(std::remainder(end.CursorHeading - heading, 2 * PiValue), 0, 5e-7) << heading;
    }
}

TEST(Heading, OfAStraightStaysAsItIs) {
    EXPECT_EQ(PlacePiece(Pieces(), "C160", {0, 0, 9.5F}, "")->Exit.CursorHeading, 9.5F);
}

TEST(Label, LiesFiveLeftAndFourAboveTheMiddleOfTheDiagonal) {
    const PiecePlacement straight = *PlacePiece(Pieces(), "C160", {100, 50, 0}, "");
    EXPECT_EQ(straight.Label.X, 102.75F) << "the middle lies at 107.75";
    EXPECT_EQ(straight.Label.Y, 71.5F) << "the middle lies at 67.5";

    const auto quarter = static_cast<float>(PiValue / 2);
    const PiecePlacement turned = *PlacePiece(Pieces(), "C160", {100, 50, quarter}, "");
    EXPECT_NEAR(turned.Label.X, 100 - 17.5 - 5, 1e-4);
    EXPECT_NEAR(turned.Label.Y, 50 + 7.75 + 4, 1e-4);
}

TEST(Walk, PassesUnknownCodesAndLeavesTheCursorWhereItWas) {
    std::string seen;
    const BuildCursor end = WalkTrack(
        Pieces(), Chain("C160 X9 C160"), [&](int index, const PiecePlacement* placement, const BuildCursor& entry) {
            seen += std::to_string(index) + (placement == nullptr ? " unknown at " : " laid at ") +
                    std::to_string(static_cast<int>(entry.CursorY)) + "\n";
        });

    EXPECT_EQ(seen, "0 laid at 0\n1 unknown at 35\n2 laid at 35\n");
    EXPECT_EQ(end.CursorY, 70);
}

std::string EndOf(const std::string& codes) {
    const BuildCursor end = WalkTrack(Pieces(), Chain(codes), [](int, const PiecePlacement*, const BuildCursor&) {});
    std::array<char, 100> text{};
    std::snprintf(text.data(), text.size(), "%.9g %.9g %.9g", end.CursorX, end.CursorY, end.CursorHeading);
    return text.data();
}

// Saved designs come out the same with every compiler: the very singles, worked out apart from this program.
TEST(Placement, OfWholeCircuitsIsTheSameToTheLastDigitInEveryBuild) {
    EXPECT_EQ(EndOf("C160 C151R C151R C160 C151R C151R C8007 C8009 C8010L C8010R C8007 C187L C187R C156R C153L"),
              "116.479469 -184.405121 1.96349537");
    EXPECT_EQ(EndOf("C160 N10110 N10102 N10105R N10106L N10107R N10108L N10111 N10110 C152L C154R C157 C158 C159 C8006 "
                    "C164 C248 C8005 C277 C367"),
              "-66.834549 443.657837 0.392698795");
}

TEST(Placement, OfAStraightFollowsFromCornerToCornerAsTheyAreStored) {
    const PiecePlacement exitAcross = *PlacePiece(Pieces(), "C160", {300.7F, -210.4F, 5.1F}, "");
    EXPECT_EQ(exitAcross.Corners.OtherExit.X, 338.962158F) << "corner 2 as stored, and the width across";
    EXPECT_EQ(exitAcross.Corners.OtherExit.Y, -211.520905F);

    const PiecePlacement entryAcross = *PlacePiece(Pieces(), "C160", {12.3F, 45.6F, 2.2F}, "");
    EXPECT_EQ(entryAcross.Corners.OtherEntry.X, 3.17823243F) << "corner 3 as stored, and the length back";
    EXPECT_EQ(entryAcross.Corners.OtherEntry.Y, 58.1316948F);
    EXPECT_EQ(entryAcross.Label.X, -11.4095697F);
    EXPECT_EQ(entryAcross.Label.Y, 45.5670776F);
}

} // namespace
} // namespace pistaro
