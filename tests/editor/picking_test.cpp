// Which piece a point of the drawing belongs to.
#include "editor/mouse_selection.h"
#include "editor/picking.h"
#include "editor/piece_tip.h"
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <random>

namespace pistaro {
namespace {

/// A random point inside a placed piece, by its two edges alone: so far along, so far across.
WorldPoint PointInside(const PieceKind& kind, const BuildCursor& entry, std::mt19937& random) {
    std::uniform_real_distribution<double> part(0.02, 0.98);
    const double along = part(random);
    const double across = part(random);
    const double h = entry.CursorHeading;
    if (kind.Shape == PieceShape::Straight) {
        const double a = kind.Length * along;
        const double w = 15.5 * across; // the narrower of the two systems' tracks
        return {static_cast<float>(entry.CursorX - a * std::sin(h) + w * std::cos(h)),
                static_cast<float>(entry.CursorY + a * std::cos(h) + w * std::sin(h))};
    }
    const bool left = kind.Shape == PieceShape::LeftCurve;
    const double reference = left ? kind.InnerRadius : kind.OuterRadius;
    const double side = left ? 1 : -1;
    const double centreX = entry.CursorX - side * reference * std::cos(h);
    const double centreY = entry.CursorY - side * reference * std::sin(h);
    const double radius = kind.InnerRadius + (kind.OuterRadius - kind.InnerRadius) * across;
    const double angle = h + side * kind.Turn * along;
    return {static_cast<float>(centreX + side * radius * std::cos(angle)),
            static_cast<float>(centreY + side * radius * std::sin(angle))};
}

struct Laid {
    PieceAddress Address;
    PieceKind Kind;
    BuildCursor Entry;
};

std::vector<Laid> PiecesOf(const Circuit& circuit) {
    std::vector<Laid> pieces;
    for (int track = 0; track < TrackCount; ++track) {
        const Track& codes = circuit.Tracks[static_cast<std::size_t>(track)];
        WalkTrack(Pieces(), codes, [&](int element, const PiecePlacement* placement, const BuildCursor& entry) {
            if (placement == nullptr) return;
            const auto at = static_cast<std::size_t>(element);
            pieces.push_back({{track, element}, Pieces().Find(codes.ElementCodes[at])->Kind, entry});
        });
    }
    return pieces;
}

std::vector<Circuit> Samples() {
    std::vector<Circuit> circuits;
    for (const auto& file : std::filesystem::directory_iterator(SourceFolder() / "samples")) {
        if (file.path().extension() == ".trk") circuits.push_back(ReadCircuit(file.path()).Circuit);
    }
    return circuits;
}

TEST(Picking, OfTenThousandPointsInsideTheSamplesPiecesGivesThatPiece) {
    std::mt19937 random(20261122);
    std::vector<std::pair<std::vector<Laid>, PickMap>> samples;
    for (const Circuit& circuit : Samples())
        samples.emplace_back(PiecesOf(circuit), PickMap(Pieces(), circuit));
    ASSERT_GE(samples.size(), 5U);
    constexpr int points = 10000;
    int alone = 0;
    for (int i = 0; i < points; ++i) {
        const auto& [pieces, map] = samples[static_cast<std::size_t>(i) % samples.size()];
        const Laid& piece = pieces[std::uniform_int_distribution<std::size_t>(0, pieces.size() - 1)(random)];
        const WorldPoint point = PointInside(piece.Kind, piece.Entry, random);

        const std::vector<PieceAddress> found = map.PiecesAt(point);

        EXPECT_NE(std::ranges::find(found, piece.Address), found.end())
            << "point " << i << ": " << point.X << " " << point.Y;
        if (found.size() > 1) continue; // a bridge
        ++alone;
        EXPECT_EQ(map.OnlyPieceAt(point), piece.Address);
    }
    EXPECT_GT(alone, points * 9 / 10);
}

TEST(Picking, TellsNothingBesideAllPieces) {
    const Project project = ProjectOf("C160");
    const PickMap map(Pieces(), project.Design.Circuit);

    EXPECT_TRUE(map.PiecesAt({-0.5F, 10}).empty());
    EXPECT_TRUE(map.PiecesAt({8, 35.5F}).empty());
    EXPECT_FALSE(map.PiecesAt({8, 34.5F}).empty());
    EXPECT_TRUE(PickMap().PiecesAt({0, 0}).empty());
}

TEST(Picking, TellsAllPiecesThatLieAboveEachOther) {
    Project project = ProjectOf("C160", "C160");
    project.Design.Circuit.Tracks[1].TrackStartX = 5;
    const PickMap map(Pieces(), project.Design.Circuit);

    EXPECT_EQ(map.PiecesAt({10, 10}), (std::vector<PieceAddress>{{0, 0}, {1, 0}}));
    EXPECT_EQ(map.OnlyPieceAt({10, 10}), std::nullopt);
    EXPECT_EQ(map.OnlyPieceAt({18, 10}), (PieceAddress{1, 0}));
}

TEST(Selecting, InsideAPieceOfAnotherTrackMakesThatTheCurrentOne) {
    Project project = ProjectOf("C160", "N10102 N10102");
    const PickMap map(Pieces(), project.Design.Circuit);

    SelectAt(Pieces(), project.Design.Circuit, project.EditState, map, {24, 60});

    EXPECT_EQ(project.EditState.CurrentTrack, 1);
    EXPECT_EQ(project.EditState.SelectedElement(), 1);
    EXPECT_EQ(project.EditState.System, TrackSystem::Ninco) << "that of the piece before it";
}

TEST(Selecting, WhereTwoPiecesLieTheNearestLabelOfTheCurrentTrackDecides) {
    Project project = ProjectOf("C160 C160", "C160");
    project.Design.Circuit.Tracks[1].TrackStartX = 5;
    const PickMap map(Pieces(), project.Design.Circuit);

    SelectAt(Pieces(), project.Design.Circuit, project.EditState, map, {10, 33});

    EXPECT_EQ(project.EditState.CurrentTrack, 0);
    EXPECT_EQ(project.EditState.SelectedElement(), 0); // labels at 2.75, 21.5 and 2.75, 56.5
}

TEST(Selecting, ALongTrackIsSelectedInsideItsPieces) {
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks[0].ElementCodes.assign(300, "C160");
    const PickMap map(Pieces(), project.Design.Circuit);

    SelectAt(Pieces(), project.Design.Circuit, project.EditState, map, {8, 250 * 35 + 5});

    EXPECT_EQ(project.EditState.SelectedElement(), 250);
}

TEST(PieceTips, TellWhatThereIsToKnow) {
    Project project = ProjectOf("C160 C160");
    project.Preferences.Units.Currency = "EUR";
    ProductStock& straight = project.Stock.Of(Pieces().FindRow("C160"));
    straight.OwnedCount = 1;
    straight.Price = 2.5F;

    EXPECT_EQ(PieceTip(Pieces(), project, {0, 0}),
              "C160, standard straight\nTrack 1, element 0\nLanes 35 and 35 cm by the catalogue\n2.50 €, owned");
    EXPECT_TRUE(PieceTip(Pieces(), project, {0, 1}).ends_with("2.50 €, not owned"));
    EXPECT_TRUE(PieceTip(Pieces(), project, {0, 1}, {",", "."}).ends_with("2,50 €, not owned"));
}

TEST(PieceTips, OfAnUnknownCodeSayThatItIsUnknown) {
    const Project project = ProjectOf("X1");

    EXPECT_EQ(PieceTip(Pieces(), project, {0, 0}), "X1, not in the catalogue\nTrack 1, element 0");
}

} // namespace
} // namespace pistaro
