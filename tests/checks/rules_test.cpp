// What each rule says, and where it keeps silent.
#include "checks/check.h"
#include "checks/rules.h"
#include "support/chain.h"
#include "support/stock.h"

#include <gmock/gmock.h>

#include <set>

namespace pistaro {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

std::vector<Finding> FindingsOf(const Project& project) {
    return CheckDesign(Pieces(), project.Design, project.Stock, project.Preferences.Units);
}

/// What one rule tells of a project: "error 1 [0,2] The track …".
std::vector<std::string> Told(const Project& project, std::string_view rule) {
    std::vector<std::string> told;
    for (const Finding& finding : FindingsOf(project)) {
        if (finding.Rule != rule) continue;
        std::string pieces;
        for (const int piece : finding.Pieces)
            pieces += (pieces.empty() ? "" : ",") + std::to_string(piece);
        told.push_back(std::string(NameOf(finding.Severity)) + " " + std::to_string(finding.Track + 1) + " [" + pieces +
                       "] " + finding.Text);
    }
    return told;
}

std::vector<std::string> Told(const std::string& track1, std::string_view rule) {
    return Told(ProjectOf(track1), rule);
}

std::string Times(int count, const std::string& codes) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += codes + " ";
    return text;
}

TEST(Rules, HaveTextsAndIdsOfTheirOwn) {
    std::set<std::string> ids;
    for (const Rule& rule : Rules()) {
        EXPECT_TRUE(ids.insert(rule.Id).second) << rule.Id;
        EXPECT_GT(std::string(rule.Text).size(), 10U) << rule.Id;
        EXPECT_GT(std::string(rule.Why).size(), 10U) << rule.Id;
    }
    EXPECT_EQ(ids.size(), 17U);
}

TEST(Rules, TellAnOpenTrackFromThreePiecesOn) {
    EXPECT_THAT(Told("C160 C160", "open-track"), IsEmpty());
    EXPECT_THAT(Told("C160 C160 C151L", "open-track"),
                ElementsAre("error 1 [0,2] The track does not close: its ends are 85.7 cm and 45.0° apart."));
    EXPECT_THAT(Told(Times(8, "C151L"), "open-track"), IsEmpty());
}

TEST(Rules, TellWhatCanBePressedTogether) {
    EXPECT_THAT(Told("C158 " + Times(4, "C151L") + "C157 " + Times(4, "C151L"), "open-track"),
                ElementsAre("warning 1 [0,9] The ends are 1.1 cm and 0.0° apart: they can be pressed together."));
    EXPECT_THAT(Told("C157 C158 " + Times(4, "C151L") + "C159 C157 C157" + Times(4, " C151L"), "open-track"),
                ElementsAre("error 1 [0,12] The track does not close: its ends are 16.4 cm and 0.0° apart."));
}

TEST(Rules, TellLengthsInTheUnitsThatAreShown) {
    Project project = ProjectOf("C160 C160 C151L");
    project.Preferences.Units.Inches = true;

    EXPECT_THAT(Told(project, "open-track"),
                ElementsAre("error 1 [0,2] The track does not close: its ends are 33.72 in and 45.0° apart."));
}

TEST(Rules, TellEachJointOfBothSystems) {
    EXPECT_THAT(Told("C160 N10102 C160", "unconverted-joint"),
                ElementsAre("error 1 [0,1] C160 (0), 15.5 cm wide, meets N10102 (1), 17.5 cm wide: "
                            "an adapter must stand between them.",
                            "error 1 [1,2] N10102 (1), 17.5 cm wide, meets C160 (2), 15.5 cm wide: "
                            "an adapter must stand between them."));
    EXPECT_THAT(Told("C160 N10110 N10102 N10110 C160", "unconverted-joint"), IsEmpty());
}

TEST(Rules, TellWhatTheStatisticsWarnOfWhereTheTrackWouldClose) {
    EXPECT_THAT(Told("C160 N10110 N10102", "unconverted-joint"),
                ElementsAre("warning 1 [0,2] Both systems would meet without an adapter where the track closes."));
}

TEST(Rules, TellAnAdapterTheWrongWayRound) {
    EXPECT_THAT(Told("C160 N10110 C160", "reversed-adapter"),
                ElementsAre("error 1 [1,2] N10110 (1), 17.5 cm wide, meets C160 (2), 15.5 cm wide: "
                            "the adapter lies the wrong way round."));
    EXPECT_THAT(Told("N10102 N10110 N10110", "reversed-adapter"),
                ElementsAre("error 1 [1,2] N10110 (1), 15.5 cm wide, meets N10110 (2), 17.5 cm wide: "
                            "the adapter lies the wrong way round."));
}

TEST(Rules, TellOverlapsOfOneTrackAndOfTwo) {
    Project project = ProjectOf("C160", "C160");
    project.Design.Circuit.Tracks[1].TrackStartX = 5.5F;

    EXPECT_THAT(Told(project, "overlap"),
                ElementsAre("error 1 [0] C160 (0) and C160 (0) of track 2 overlap by 350 cm²."));
    EXPECT_EQ(FindingsOf(project).front().Others, (std::vector<PieceAddress>{{1, 0}}));
    EXPECT_THAT(Told(Times(8, "C151L") + "C160", "overlap"),
                Contains("error 1 [0,8] C151L (0) and C160 (8) overlap by 309 cm²."));
}

TEST(Rules, LetTracksTouch) {
    EXPECT_THAT(Told(ProjectOf("C160 C151L C160", "C160 C153L C153L C160"), "overlap"), IsEmpty());
}

/// A bridge along the y axis at 0 to 35, and pieces of track 2 across below it.
Project UnderABridge(const std::string& codes, float x, float y) {
    Project project = ProjectOf("C248", codes);
    Track& below = project.Design.Circuit.Tracks[1];
    below.TrackStartX = x;
    below.TrackStartY = y;
    below.TrackStartHeading = 1.570796F; // travels to the left
    return project;
}

TEST(Rules, LetABridgeStandOverOneStraight) {
    EXPECT_THAT(Told(UnderABridge("C160", 25, 10), "overlap"), IsEmpty());
    EXPECT_THAT(Told(UnderABridge("C160 C160", 42, 10), "overlap").size(), 1U) << "a joint lies below";
    EXPECT_THAT(Told(UnderABridge("C151L", 25, 10), "overlap").size(), 1U) << "a curve";
}

Project InARoom(const std::string& codes, int right) {
    Project project = ProjectOf(codes);
    const auto x = static_cast<std::int16_t>(right);
    project.Design.Room.Points = {{-50, -50, 0}, {x, -50, 1}, {x, 50, 1}, {-50, 50, 1}, {-50, -50, 1}};
    return project;
}

TEST(Rules, TellWhatStandsInAPillarOrRunsThroughAnInnerWall) {
    Project project = InARoom("C160", 100);
    std::vector<RoomPoint>& points = project.Design.Room.Points;
    const std::size_t walls = points.size();
    for (const RoomPoint corner : {RoomPoint{10, -10, 0}, {40, -10, 1}, {40, 10, 1}, {10, 10, 1}, {10, -10, 1}})
        points.push_back(corner);
    EXPECT_THAT(Told(project, "outside-room"), ElementsAre("error 1 [0] C160 (0) stands in a pillar, 5.5 cm deep."));
    project.Design.Circuit.Tracks[0].ElementCodes.emplace_back("C160"); // which leaves the room
    EXPECT_THAT(Told(project, "outside-room"), ElementsAre("error 1 [0] C160 (0) stands in a pillar, 5.5 cm deep.",
                                                           "error 1 [1] C160 (1) leaves the room by 20.0 cm."));

    points.resize(walls);
    points.push_back({-20, 10, 0});
    points.push_back({40, 10, 1});
    project.Design.Circuit.Tracks[0].ElementCodes.pop_back();
    EXPECT_THAT(Told(project, "outside-room"), ElementsAre("error 1 [0] C160 (0) runs through an inner wall."));
}

TEST(Rules, TellPiecesOutsideTheRoomAndNearItsWalls) {
    EXPECT_THAT(Told(InARoom("C159", 10), "outside-room"),
                ElementsAre("error 1 [0] C159 (0) leaves the room by 5.5 cm."));
    EXPECT_THAT(Told(InARoom("C159 C159 C157", 10), "outside-room"),
                ElementsAre("error 1 [0,1,2] C159 (0) to C157 (2) leave the room by 5.5 cm."));
    EXPECT_THAT(Told(InARoom("C159", 20), "outside-room"), IsEmpty());
    EXPECT_THAT(Told(InARoom("C159", 20), "near-wall"),
                ElementsAre("advice 1 [0] C159 (0) within 5.0 cm of a wall: 4.5 cm."));
    EXPECT_THAT(Told(InARoom("C159", 21), "near-wall"), IsEmpty());
}

TEST(Rules, TellSlidesIntoAnotherTrack) {
    Project project = ProjectOf("C151L", "C160");
    Track& other = project.Design.Circuit.Tracks[1];
    other.TrackStartX = 19.5F; // 4 cm beside the outer edge where the curve begins

    EXPECT_THAT(Told(project, "near-track"),
                ElementsAre("advice 1 [0] C151L (0): a car that slides out meets track 2 after 4.0 cm."));
    project.Design.Circuit.Tracks[0].ElementCodes = {"C151R"};
    other.TrackStartX = -20;
    EXPECT_THAT(Told(project, "near-track").size(), 1U);
    project.Design.Circuit.Tracks[0].ElementCodes = {"C151L"};
    EXPECT_THAT(Told(project, "near-track"), IsEmpty()) << "inside of the curve";
    project.Design.Circuit.Tracks[0].ElementCodes = {"C160"};
    EXPECT_THAT(Told(project, "near-track"), IsEmpty()) << "nobody slides off a straight";
}

TEST(Rules, TellAnOddNumberOfChangeOvers) {
    EXPECT_THAT(
        Told("C8006", "odd-change-overs"),
        ElementsAre("warning 1 [0] 1 change-over: each lane leads into the other, one way of 71.8 cm in two laps."));
    EXPECT_THAT(Told("C8006 C8006", "odd-change-overs"), IsEmpty());
    EXPECT_THAT(Told("C8006 N10110 N10111", "odd-change-overs"),
                ElementsAre("warning 1 [0,2] 2 change-overs, of which the statistics count an uneven number."));
}

TEST(Rules, TellLanesThatDifferByMoreThanAPercent) {
    EXPECT_THAT(
        Told(Times(8, "C151L"), "lanes-differ"),
        ElementsAre("advice 1 [0,7] The lanes differ by 49.6 cm, 23.6 %: the left one is 160.8 cm long, the right "
                    "one 210.5 cm."));
    EXPECT_THAT(Told("C151L C8006 C151L", "lanes-differ"), IsEmpty());
}

TEST(Rules, TellChicanesThatDoNotPair) {
    EXPECT_THAT(Told("C160 C8007 C8009 C160", "chicane-partner"),
                ElementsAre("warning 1 [1] C8007 (1) has no second chicane that leads the lanes apart again.",
                            "warning 1 [2] C8009 (2) stands outside a pair of chicanes: its lanes meet no others."));
    EXPECT_THAT(Told("C8007 C8009 C8010L C8007 C160 C8007 C8007", "chicane-partner"), IsEmpty());
    EXPECT_THAT(Told("C8007 C160 C160 C160 C160 C160 C8007 C8009 C8007", "chicane-partner"),
                ElementsAre("warning 1 [0] C8007 (0) has no second chicane that leads the lanes apart again."));
}

TEST(Rules, TellStrangersBetweenChicanes) {
    EXPECT_THAT(
        Told("C8007 C160 C8009 C151L C8007", "chicane-stranger"),
        ElementsAre("warning 1 [1,3] Between two chicanes only their extensions belong, not C160 (1), C151L (3)."));
}

TEST(Rules, TellUnknownCodesTogether) {
    EXPECT_THAT(Told("X1 C160 X1 Y", "unknown-code"),
                ElementsAre("error 1 [0,2] \"X1\" is no piece of the catalogue: 2 elements cannot be laid.",
                            "error 1 [3] \"Y\" is no piece of the catalogue: 1 element cannot be laid."));
}

TEST(Rules, TellWhatIsNotOwnedOnceSomethingIs) {
    Project project = ProjectOf("C160 C160 C151L", "C160 C151R");
    EXPECT_THAT(Told(project, "not-owned"), IsEmpty());

    SetStock(project, "C160", 1, 3.5F);
    EXPECT_THAT(Told(project, "not-owned"),
                ElementsAre("advice 1 [1] 1 more C160 than the 1 owned: at 3.50 they cost 3.50 €.",
                            "advice 1 [2] 1 more C151 than the 0 owned: no price is known.",
                            "advice 2 [0] 1 more C160 than the 1 owned: at 3.50 they cost 3.50 €.",
                            "advice 2 [1] 1 more C151 than the 0 owned: no price is known."));
}

TEST(Rules, TellSpecialPiecesThatLieUnused) {
    Project project = ProjectOf("C160 C160");
    SetStock(project, "C160", 1);
    SetStock(project, "C164", 2);

    EXPECT_THAT(Told(project, "unused-special"),
                ElementsAre("advice 1 [1] 1 C160 must be bought, while of the same size there lie unused: 2 C164."));
}

TEST(Rules, TellStraightRunsIntoTheTightestCurve) {
    EXPECT_THAT(
        Told(Times(8, "C160") + "C152L", "fast-corner"),
        ElementsAre("advice 1 [0,1,2,3,4,5,6,7,8] A straight run of 280.0 cm leads into C152L (8), a curve of the "
                    "inner radius."));
    EXPECT_THAT(Told(Times(7, "C160") + "C152L", "fast-corner"), IsEmpty());
    EXPECT_THAT(Told(Times(8, "C160") + "C151L", "fast-corner"), IsEmpty());
    EXPECT_THAT(Told(Times(7, "N10102") + "N10106R", "fast-corner").size(), 1U);
}

TEST(Rules, FollowAStraightRunAcrossTheClosingJoint) {
    const std::string half = "C156L C156L " + Times(8, "C160");
    EXPECT_THAT(Told(Times(4, "C160") + half + "C156L C156L " + Times(4, "C160"), "fast-corner").size(), 2U);
}

TEST(Rules, TellLapCountersAndStartSectionsOfScalextricTrack) {
    EXPECT_THAT(Told("C160 C160 C160", "lap-counter"), ElementsAre("advice 1 [0] The track has no lap counter."));
    EXPECT_THAT(Told("C160 C277 C160 C277", "lap-counter"),
                ElementsAre("advice 1 [1,3] The track has 2 lap counters."));
    EXPECT_THAT(Told("C160 C277 C367", "start-section"), IsEmpty());
    EXPECT_THAT(Told("N10102 N10102 N10102", "start-section"), IsEmpty()) << "the system has none";
}

TEST(Rules, AreToldErrorsFirst) {
    std::vector<std::string_view> rules;
    for (const Finding& finding : FindingsOf(ProjectOf("C160 C8006 C151L X")))
        rules.push_back(finding.Rule);

    EXPECT_THAT(rules, ElementsAre("open-track", "unknown-code", "odd-change-overs", "lap-counter", "start-section"));
}

TEST(Rules, FindNothingInAnEmptyCircuit) { EXPECT_THAT(FindingsOf(ProjectOf("")), IsEmpty()); }

TEST(Rules, StayBoundedInAHeap) {
    Project project = ProjectOf(Times(501, "C151L"), Times(501, "C151L"), Times(501, "C151L"));
    for (Track& track : project.Design.Circuit.Tracks)
        track.TrackStartX = 0;

    const std::vector<std::string> overlaps = Told(project, "overlap");
    EXPECT_EQ(overlaps.size(), 300U);
    EXPECT_THAT(overlaps[99], EndsWith(" There may be more; they are left out."));
    EXPECT_THAT(overlaps[100], StartsWith("error 2 "));
}

} // namespace
} // namespace pistaro
