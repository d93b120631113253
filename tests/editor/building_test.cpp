// Adding, inserting and replacing pieces, and what the buttons show of the owned stock.
#include "editor/building.h"
#include "platform/fault.h"
#include "support/chain.h"
#include "support/press.h"
#include "support/stock.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

Project NincoProject() {
    Project project = ProjectOf("");
    Press(project, "system");
    return project;
}

const Track& FirstTrack(const Project& project) { return project.Design.Circuit.Tracks[0]; }

/// How many pieces of the product with that head row the circuit uses.
int UsedCount(const Project& project, const char* headCode) {
    return CountUsed(Pieces(), project.Design.Circuit)[static_cast<std::size_t>(Pieces().FindRow(headCode))];
}

int Remaining(const Project& project, const char* code) {
    return RemainingPieces(Pieces(), project.Design.Circuit, project.Stock, code);
}

int OwnedLessUsed(const Project& project, const char* code) {
    return OwnedLessUsedPieces(Pieces(), project.Design.Circuit, project.Stock, code);
}

/// The variants that the selected element can be replaced by, parted by blanks.
std::string OfferedVariants(const Project& project) {
    std::string offered;
    for (const int row : Pieces().VariantRows()) {
        const std::string_view variant = ProductCode(Pieces()[row].Code);
        if (WhyNot(project, "replace " + std::string(variant)).empty())
            offered.append(offered.empty() ? "" : " ").append(variant);
    }
    return offered;
}

} // namespace

TEST(Building, BuildAddsAtTheEndAndSelectsTheNewPiece) {
    Project project = ProjectOf("");

    Add(project, "C151L C160");
    project.EditState.CurrentElement[0] = 0;
    Add(project, "C152R");

    EXPECT_EQ(CodesOf(FirstTrack(project)), "C151L C160 C152R");
    EXPECT_EQ(project.EditState.CurrentElement[0], 2);
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(Building, InsertLaysARunOfPiecesBeforeTheSelectedOneInTheOrderPressed) {
    Project project = ProjectOf("");
    Add(project, "C160 C159");

    Press(project, "insert");
    Add(project, "C157 C158");

    EXPECT_EQ(CodesOf(FirstTrack(project)), "C160 C157 C158 C159");
    EXPECT_EQ(project.EditState.CurrentElement[0], 3);
    EXPECT_EQ(SelectedCode(project.Design.Circuit, project.EditState), "C159");
}

TEST(Building, InsertWithNothingSelectedLaysThePieceAtTheEnd) {
    Project project = ProjectOf("C160 C159");
    Press(project, "insert");

    Add(project, "C157");

    EXPECT_EQ(CodesOf(FirstTrack(project)), "C160 C159 C157");
    EXPECT_EQ(project.EditState.CurrentElement[0], 2);
}

TEST(Building, InsertOnAnEmptyTrackLaysTheFirstPieceAndTheNextBeforeIt) {
    Project project = ProjectOf("");
    Press(project, "insert");

    Add(project, "C160 C157");

    EXPECT_EQ(CodesOf(FirstTrack(project)), "C157 C160");
    EXPECT_EQ(project.EditState.CurrentElement[0], 1);
}

TEST(Building, PiecesGoToTheChosenTrackOnly) {
    Project project = ProjectOf("C160");

    Press(project, "track 3");
    Add(project, "C151R");

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "C160");
    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[1]), "");
    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[2]), "C151R");
}

TEST(Building, ATrackHolds501ElementsAndThe502ndIsAnErrorThatChangesNothing) {
    for (const bool insert : {false, true}) {
        Project project = ProjectOf("");
        for (int i = 0; i < 501; ++i)
            AddPiece(Pieces(), project.Design, project.EditState, "C160");
        project.EditState.InsertMode = insert;
        project.EditState.DataChanged = false;
        const std::string before = Snapshot(project);

        EXPECT_THROW(AddPiece(Pieces(), project.Design, project.EditState, "C160"), Fault);

        EXPECT_EQ(FirstTrack(project).ElementCodes.size(), 501U);
        EXPECT_EQ(Snapshot(project), before);
    }
}

TEST(Building, WhereNotAllOfSeveralPiecesHaveRoomNoneIsLaid) {
    Project project = ProjectOf("");
    AddPiece(Pieces(), project.Design, project.EditState, "C160", 498);
    const std::string before = Snapshot(project);

    EXPECT_THROW(AddPiece(Pieces(), project.Design, project.EditState, "C151L", 4), Fault);
    EXPECT_EQ(Snapshot(project), before);
    AddPiece(Pieces(), project.Design, project.EditState, "C151L", 3);
    EXPECT_EQ(FirstTrack(project).ElementCodes.size(), 501U);
}

TEST(Building, SeveralSpecialPiecesAreAddedWhereOneWouldReplace) {
    Project project = ProjectOf("C160");
    project.EditState.Select(0);

    LaySpecial(Pieces(), project.Design, project.EditState, "C8009", 2);
    EXPECT_EQ(CodesOf(FirstTrack(project)), "C160 C8009 C8009");
    project.EditState.Select(0);
    LaySpecial(Pieces(), project.Design, project.EditState, "C8009");
    EXPECT_EQ(CodesOf(FirstTrack(project)), "C8009 C8009 C8009");
}

TEST(Building, AnAdapterAsTheFirstElementLeavesTheTrackSystem) {
    Project project = NincoProject();

    Add(project, "N10110");

    EXPECT_EQ(project.EditState.System, TrackSystem::Ninco);
}

TEST(Building, AnAdapterAfterAScalextricPieceLeavesTheTrackSystem) {
    Project project = ProjectOf("C160");
    Press(project, "system");

    Add(project, "N10110");

    EXPECT_EQ(project.EditState.System, TrackSystem::Ninco);
}

TEST(Building, AnAdapterAfterANincoPieceLeadsOnToScalextricTrack) {
    Project project = NincoProject();

    Add(project, "N10102 N10110");

    EXPECT_EQ(project.EditState.System, TrackSystem::Scalextric);
}

TEST(Building, WhileInsertingTheAdapterStillLooksAtTheElementBeforeTheLast) {
    Project project = NincoProject();
    Add(project, "N10102 N10103");
    project.EditState.CurrentElement[0] = 0;
    Press(project, "insert");

    Add(project, "N10110");

    EXPECT_EQ(CodesOf(FirstTrack(project)), "N10110 N10102 N10103");
    EXPECT_EQ(project.EditState.System, TrackSystem::Scalextric);
}

TEST(Building, SwitchingTheSystemChangesNoCircuit) {
    Project project = ProjectOf("C160");

    Press(project, "system");
    EXPECT_EQ(project.EditState.System, TrackSystem::Ninco);
    EXPECT_EQ(WhyNot(project, "add C160"), "Switch to Scalextric track first.");
    Press(project, "system");

    EXPECT_EQ(project.EditState.System, TrackSystem::Scalextric);
    EXPECT_EQ(CodesOf(FirstTrack(project)), "C160");
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST(Building, HoldingAButtonShowsNoFewerThanZeroWhileAllTogetherShowTheShortage) {
    Project project = ProjectOf("");
    SetStock(project, "C160", 1);

    Add(project, "C160 C160 C160");

    EXPECT_EQ(Remaining(project, "C160"), 0);
    EXPECT_EQ(OwnedLessUsed(project, "C160"), -2);
}

TEST(Building, BothHandsOfACurveAreTakenFromOneStock) {
    Project project = ProjectOf("");
    SetStock(project, "C151L", 5);

    Add(project, "C151L C151R C151R");

    EXPECT_EQ(Remaining(project, "C151L"), 2);
    EXPECT_EQ(Remaining(project, "C151R"), 2);
    EXPECT_EQ(UsedCount(project, "C151L"), 3);
    EXPECT_EQ(UsedCount(project, "C151R"), 0);
}

TEST(Building, AButtonsRemainderAddsAllProductsOfItsShape) {
    Project project = ProjectOf("C8010L C8010R C151R");
    SetStock(project, "C151L", 4);
    SetStock(project, "C8010L", 3);
    SetStock(project, "C154L", 100); // a shape of its own

    EXPECT_EQ(Remaining(project, "C151R"), 4);
    EXPECT_EQ(OwnedLessUsed(project, "C151L"), 4);
}

TEST(Building, VariantsAreThoseOfTheSelectedShape) {
    const auto offeredFor = [](const char* code) {
        Project project = ProjectOf(code);
        project.EditState.CurrentElement[0] = 0;
        return OfferedVariants(project);
    };

    EXPECT_EQ(offeredFor("C151R"), "C151 C8010");
    EXPECT_EQ(offeredFor("C8010L"), "C151 C8010");
    EXPECT_EQ(offeredFor("C277"), "C159 C277 C367");
    EXPECT_EQ(offeredFor("C8006"), "C160 C164 C248 C8005 C8006 C8007 C8009");
    EXPECT_EQ(offeredFor("N10111"), "N10102 N10111");
    EXPECT_EQ(offeredFor("C154L"), "");
    EXPECT_EQ(offeredFor("N10110"), "");
    EXPECT_EQ(offeredFor("unknown"), "");
}

TEST(Building, ReplacingKeepsTheHandOfTheSelectedPiece) {
    const auto replaced = [](const char* code, const char* variant) {
        Project project = ProjectOf(std::string("C160 ") + code + " C160");
        project.EditState.CurrentElement[0] = 1;
        Press(project, std::string("replace ") + variant);
        EXPECT_TRUE(project.EditState.DataChanged);
        EXPECT_EQ(project.EditState.CurrentElement[0], 1);
        return CodesOf(FirstTrack(project));
    };

    EXPECT_EQ(replaced("C8010R", "C151"), "C160 C151R C160");
    EXPECT_EQ(replaced("C8010L", "C151"), "C160 C151L C160");
    EXPECT_EQ(replaced("C151R", "C8010"), "C160 C8010R C160");
    EXPECT_EQ(replaced("C151L", "C8010"), "C160 C8010L C160");
}

TEST(Building, ReplacingAStraightWritesThePlainCode) {
    for (const std::string code : {"C160", "C164", "C248", "C8005", "C8006", "C8007", "C8009"}) {
        Project project = ProjectOf("C160");
        project.EditState.CurrentElement[0] = 0;
        Press(project, "replace " + code);
        EXPECT_EQ(CodesOf(FirstTrack(project)), code);
    }
    for (const std::string code : {"C159", "C277", "C367"}) {
        Project project = ProjectOf("C159");
        project.EditState.CurrentElement[0] = 0;
        Press(project, "replace " + code);
        EXPECT_EQ(CodesOf(FirstTrack(project)), code);
    }
    for (const std::string code : {"N10102", "N10111"}) {
        Project project = ProjectOf("N10102");
        project.EditState.CurrentElement[0] = 0;
        Press(project, "replace " + code);
        EXPECT_EQ(CodesOf(FirstTrack(project)), code);
    }
}

} // namespace pistaro
