// The sample circuits, found by listing: they load, close, and are not warned of.
#include "editor/circuit_files.h"
#include "layout/placement.h"
#include "layout/track_gap.h"
#include "stats/design_checks.h"
#include "storage/circuit_file.h"
#include "storage/settings_file.h"
#include "support/pieces.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pistaro {
namespace {

std::vector<std::filesystem::path> Samples() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(SourceFolder() / "samples")) {
        if (entry.path().extension() == ".trk") files.push_back(entry.path());
    }
    return files;
}

Project Loaded(const std::filesystem::path& file) {
    Project project;
    LoadCircuit(project, file);
    return project;
}

TEST(Samples, AreEight) { EXPECT_EQ(Samples().size(), 8U); }

TEST(Samples, AreSavedAgainByteForByte) {
    for (const auto& file : Samples()) {
        EXPECT_EQ(CircuitBytes(Loaded(file).Design), BytesOf(file)) << file;
    }
}

TEST(Samples, CloseWithinAMillimetreAndWithoutAKink) {
    for (const auto& file : Samples()) {
        const Project project = Loaded(file);
        EXPECT_FALSE(project.Design.Circuit.Tracks[0].ElementCodes.empty()) << file;
        for (const Track& track : project.Design.Circuit.Tracks) {
            EXPECT_LT(GapOf(Pieces(), track).Distance, 0.1) << file;
            EXPECT_NEAR(GapOf(Pieces(), track).Angle, 0, 1e-5) << file;
        }
    }
}

std::vector<std::string> WarningsOf(const std::filesystem::path& file, const Settings& settings) {
    std::vector<std::string> texts;
    for (const Message& message : DesignChecks(Pieces(), settings.Stock, ReadCircuit(file).Circuit))
        texts.push_back(message.Text);
    return texts;
}

TEST(Samples, AreNotWarnedOfByTheDesignChecks) {
    for (const auto& file : Samples()) {
        const auto ownSettings = file.parent_path() / "scripts" / file.stem().concat(".ini");

        EXPECT_THAT(WarningsOf(file, InitialSettings(Pieces())), testing::IsEmpty()) << file;
        EXPECT_THAT(WarningsOf(file, ReadSettings(Pieces(), ownSettings)), testing::IsEmpty()) << file;
    }
}

TEST(Samples, HoldOnlyPiecesOfTheCatalogue) {
    for (const auto& file : Samples()) {
        for (const Track& track : Loaded(file).Design.Circuit.Tracks) {
            for (const std::string& code : track.ElementCodes) {
                EXPECT_NE(Pieces().Find(code), nullptr) << file << ": " << code;
            }
        }
    }
}

TEST(Samples, LieWithinTheirViewWhenOpened) {
    for (const auto& file : Samples()) {
        const Project project = Loaded(file);
        const ViewRectangle shown = ShownRectangle(project.Design.View);
        for (const Track& track : project.Design.Circuit.Tracks) {
            WalkTrack(Pieces(), track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
                for (const WorldPoint& corner : placement->Corners.InOrder()) {
                    const bool inside = corner.X > shown.ViewLeft && corner.X < shown.ViewRight &&
                                        corner.Y > shown.ViewBottom && corner.Y < shown.ViewTop;
                    EXPECT_TRUE(inside) << file << ": element " << element;
                }
            });
        }
    }
}

TEST(Samples, TheGrandPrixHasSixtyPiecesOrMore) {
    EXPECT_GE(Loaded(SourceFolder() / "samples/grand-prix.trk").Design.Circuit.Tracks[0].ElementCodes.size(), 60U);
}

} // namespace
} // namespace pistaro
