// What a click mends of a finding.
#include "checks/mends.h"

#include "checks/check.h"
#include "support/chain.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::Contains;
using testing::Field;
using testing::Not;

std::vector<Finding> FindingsOf(const Project& project) {
    return CheckDesign(Pieces(), project.Design, project.Stock, project.Preferences.Units);
}

/// Of the first finding of a rule.
std::optional<Mend> MendOf(const Project& project, std::string_view rule) {
    for (const Finding& finding : FindingsOf(project)) {
        if (finding.Rule == rule) return MendOf(Pieces(), project.Design, project.Stock, finding);
    }
    return std::nullopt;
}

/// "C160 C277: C277 in place of C159 (1)"
std::string Told(const std::optional<Mend>& mend) {
    return mend ? CodesOf(mend->Circuit.Tracks[0]) + ": " + mend->Text : "none";
}

TEST(Mends, PutAMissingPieceInPlaceOfTheFirstPlainStraightOfItsLength) {
    const Project project = ProjectOf("C160 C151L C159 C159");

    EXPECT_EQ(Told(MendOf(project, "lap-counter")), "C160 C151L C277 C159: C277 in place of C159 (2)");
    EXPECT_EQ(Told(MendOf(project, "start-section")), "C160 C151L C367 C159: C367 in place of C159 (2)");
}

TEST(Mends, PutNothingInWhereNoPlainStraightFits) {
    EXPECT_EQ(Told(MendOf(ProjectOf("C160 C151L C158"), "lap-counter")), "none");
    EXPECT_EQ(Told(MendOf(ProjectOf("C277 C159 C277"), "lap-counter")), "none") << "there are two already";
    EXPECT_EQ(Told(MendOf(ProjectOf("C159 C160 C160"), "open-track")), "none") << "other rules are mended otherwise";
}

/// A room from 0, 0 to 400, 300, and a track of four pieces that begins there.
Project InARoom(float x, float y) {
    Project project = ProjectOf("C160 C160 C160 C160");
    project.Design.Room.Points = {{0, 0, 0}, {400, 0, 1}, {400, 300, 1}, {0, 300, 1}, {0, 0, 1}};
    project.Design.Circuit.Tracks[0].TrackStartX = x;
    project.Design.Circuit.Tracks[0].TrackStartY = y;
    return project;
}

/// The project as it then is.
Project Mended(Project project, std::string_view rule) {
    const std::optional<Mend> mend = MendOf(project, rule);
    if (!mend) throw std::logic_error("there is no mend");
    project.Design.Circuit = mend->Circuit;
    return project;
}

TEST(Mends, MoveATrackIntoTheRoomNoFurtherThanItMust) {
    const Project project = Mended(InARoom(100, 200), "outside-room");

    const Track& track = project.Design.Circuit.Tracks[0];
    EXPECT_EQ(track.TrackStartX, 100) << "it moves down alone";
    EXPECT_EQ(track.TrackStartY, 155) << "140 cm long, 5 cm from the wall";
    const std::vector<Finding> findings = FindingsOf(project);
    EXPECT_THAT(findings, Not(Contains(Field(&Finding::Rule, "outside-room"))));
    EXPECT_THAT(findings, Not(Contains(Field(&Finding::Rule, "near-wall"))));
}

TEST(Mends, MoveATrackBesideOtherTracksAndPillars) {
    Project project = InARoom(100, 200);
    project.Design.Circuit.Tracks[1].ElementCodes = {"C160", "C160"};
    project.Design.Circuit.Tracks[1].TrackStartX = 100;
    project.Design.Circuit.Tracks[1].TrackStartY = 150;
    for (const RoomPoint corner : {RoomPoint{120, 200, 0}, {160, 200, 1}, {160, 240, 1}, {120, 240, 1}, {120, 200, 1}})
        project.Design.Room.Points.push_back(corner);

    project = Mended(std::move(project), "outside-room");

    const std::vector<Finding> findings = FindingsOf(project);
    EXPECT_THAT(findings, Not(Contains(Field(&Finding::Rule, "outside-room"))));
    EXPECT_THAT(findings, Not(Contains(Field(&Finding::Rule, "overlap"))));
}

TEST(Mends, MoveAllTracksTogetherWhereOneFindsNoPlaceAlone) {
    Project project = InARoom(54, 10); // 15.5 cm wide, of which nine lie beyond the wall
    project.Design.Room.Points = {{0, 0, 0}, {60, 0, 1}, {60, 160, 1}, {0, 160, 1}, {0, 0, 1}};
    auto& tracks = project.Design.Circuit.Tracks;
    tracks[1] = tracks[2] = tracks[0];
    tracks[1].TrackStartX = 10;
    tracks[2].TrackStartX = 32;

    project = Mended(std::move(project), "outside-room");

    EXPECT_THAT(FindingsOf(project), Not(Contains(Field(&Finding::Rule, "outside-room"))));
    const auto& moved = project.Design.Circuit.Tracks;
    EXPECT_EQ(moved[0].TrackStartX, 44);
    EXPECT_EQ(moved[1].TrackStartX, 0);
    EXPECT_EQ(moved[2].TrackStartX, 22);
}

TEST(Mends, PutABridgeInWhereTwoStraightsCross) {
    const Project crossing =
        ProjectOf("C160 C160 C159 C158 C151L C151L C151L C159 C151L C151L C151L C159 C160 C160 C158 "
                  "C151R C151R C151R C160 C151R C151R C151R");

    const std::optional<Mend> mend = MendOf(crossing, "overlap");
    ASSERT_TRUE(mend);
    EXPECT_EQ(mend->Caption, "Put a Bridge In");
    EXPECT_EQ(mend->Text, "C248 in place of C160 (1)");
    EXPECT_THAT(FindingsOf(Mended(crossing, "overlap")), Not(Contains(Field(&Finding::Rule, "overlap"))));
}

TEST(Mends, PutNoBridgeOverTrackThatItWouldStandOn) {
    const Project ring = ProjectOf("C151L C151L C151L C151L C151L C151L C151L C151L C160 C160");

    EXPECT_EQ(Told(MendOf(ring, "overlap")), "none") << "curves lie below";
}

TEST(Mends, AreNoneOfPiecesThatAreGone) {
    const Project project = ProjectOf("C160 C160");
    const Finding former{"overlap", Severity::Error, 0, {1, 2}, ""};

    EXPECT_EQ(Told(MendOf(Pieces(), project.Design, project.Stock, former)), "none");
}

TEST(Mends, PutNoBridgeInWhereMoreThanTwoPiecesOverlap) {
    const Project crossing =
        ProjectOf("C160 C160 C159 C158 C151L C151L C151L C159 C151L C151L C151L C159 C160 C160 C158 "
                  "C151R C151R C151R C160 C151R C151R C151R");
    const Finding joined{"overlap", Severity::Error, 0, {1, 11, 12}, ""};

    EXPECT_EQ(Told(MendOf(Pieces(), crossing.Design, crossing.Stock, joined)), "none");
}

TEST(Mends, LeaveATrackWhereItIsThatTheRoomCannotHold) {
    Project project = InARoom(100, 200);
    project.Design.Circuit.Tracks[0].ElementCodes.assign(9, "C160"); // 315 cm

    EXPECT_EQ(Told(MendOf(project, "outside-room")), "none");
}

} // namespace
} // namespace pistaro
