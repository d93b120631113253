// Circuits from a box: the task that is made of a wish, what is told of a circuit, opening and keeping it, and the
// search beside its owner.
#include "commands/laying_commands.h"

#include "commands/box_search.h"
#include "platform/files.h"
#include "posted_calls.h"
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/fault_of.h"
#include "support/pieces.h"
#include "support/scripted_prompts.h"
#include "support/stock.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>

namespace pistaro {
namespace {

BoxWish WishOf(const char* box, Area area = {240, 160}) { return {.Box = BoxOf(Pieces(), box), .Area = area}; }

class LayingCommands : public testing::Test {
protected:
    std::string WhyRefused(const BoxWish& wish) {
        return FaultOf([&] { TaskFor(session_, wish); });
    }

    TemporaryFolder folder_;
    ScriptedPrompts prompts_;
    Session session_{Pieces(), prompts_, ProjectOf("C160 C160 C151R"), ""};
    Surroundings room_{EmptyArea({240, 160}), 0};
    std::optional<Circuit> opened_;
};

TEST_F(LayingCommands, MakeATaskOfARectangleAroundItsMiddle) {
    BoxWish wish = WishOf("C151=8,C160=4");
    wish.MiddleX = 100;
    wish.MiddleY = -50;

    const LayingTask task = TaskFor(session_, wish);

    const RoomPolygon around{{{-20, -130, 0}, {220, -130, 1}, {220, 30, 1}, {-20, 30, 1}, {-20, -130, 1}}, 0};
    EXPECT_EQ(task.Room, around);
    EXPECT_EQ(task.Box.Total(), 12);
}

TEST_F(LayingCommands, KeepFromTheWallsOfARectangleAndOfTheDesignsRoom) {
    BoxWish wish = WishOf("C151=8,C160=4");
    wish.FromWalls = 10;
    const LayingTask inRectangle = TaskFor(session_, wish);
    EXPECT_EQ(inRectangle.Room, EmptyArea({240, 160}).Room);
    EXPECT_EQ(inRectangle.FromWalls, 10);

    wish.Area.reset();
    session_.Project.Design.Room = EmptyArea({300, 200}).Room;
    const LayingTask inDesign = TaskFor(session_, wish);

    EXPECT_EQ(inDesign.Room, EmptyArea({300, 200}).Room);
    EXPECT_EQ(inDesign.FromWalls, 10);
}

TEST_F(LayingCommands, RefuseWhatCannotBeLaid) {
    EXPECT_EQ(WhyRefused(WishOf("C160=0")), "Refused: the box is empty");
    BoxWish inDesign = WishOf("C151=8");
    inDesign.Area.reset();
    EXPECT_EQ(WhyRefused(inDesign), "Refused: the design has no room with walls");
    BoxWish counted = WishOf("C151=8");
    counted.MustHave.LapCounter = true;
    EXPECT_EQ(WhyRefused(counted), "Refused: The box holds no lap counter.");
    BoxWish keepsAdapter = WishOf("C151=8,N10110=2");
    keepsAdapter.Kept = TrackPart{{Pieces().FindRow("N10110")}, {}};
    EXPECT_EQ(WhyRefused(keepsAdapter), "Refused: the part that is kept must begin and end within one system");
}

constexpr const char* Oval = "C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R";

TEST_F(LayingCommands, LeaveOutTheCircuitThatIsVaried) {
    session_.Project.Design.Circuit.Tracks[0] = Chain(Oval);
    BoxWish wish = WishOf("C151=8,C160=4");
    EXPECT_TRUE(TaskFor(session_, wish).LeftOut.empty());

    wish.Varied = 0;

    EXPECT_EQ(TaskFor(session_, wish).LeftOut, std::vector<Rows>{RowsOf(Oval)});
    EXPECT_EQ(TaskFor(session_, wish).Varied->Rows, RowsOf(Oval));
    session_.Project.Design.Circuit.Tracks[0] = Chain("C160 C160 C151R");
    EXPECT_FALSE(TaskFor(session_, wish).Varied.has_value()) << "it is no circuit";
}

TEST_F(LayingCommands, BeginTheCircuitThatIsVariedWithThePartThatIsKept) {
    const Track& oval = session_.Project.Design.Circuit.Tracks[0] = Chain(Oval);
    BoxWish wish = WishOf("C151=8,C160=4");
    wish.Varied = 0;
    wish.Kept = PartOf(Pieces(), oval, 4, 3);

    const LayingTask task = TaskFor(session_, wish);

    EXPECT_EQ(task.Varied->Rows, RowsOf("C151R C151R C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R"));
    EXPECT_EQ(task.Varied->At, task.Kept->At);
}

TEST_F(LayingCommands, OpenAVariationInTheRoomAndBesideTheTracksOfTheDesignAsItIsNow) {
    session_.Project.Design.Circuit.Tracks[0] = Chain(Oval);
    BoxWish wish = WishOf("C151=8,C160=4");
    wish.Varied = 0;
    const Surroundings searched = SurroundingsFor(session_, wish);
    session_.Project.Design.Circuit.Tracks[1] = Chain("C159");

    const Surroundings now = WithPresentTracks(session_, searched);

    EXPECT_EQ(CodesOf(now.Design.Circuit.Tracks[1]), "C159");
    EXPECT_TRUE(now.Design.Circuit.Tracks[0].ElementCodes.empty());
    EXPECT_FALSE(HasWalls(now.Design.Room)) << "the rectangle was for the search alone";
}

TEST_F(LayingCommands, VaryTheTrackThatIsEditedAndElseTheFirstThatHasPieces) {
    session_.Project.Design.Circuit.Tracks[0] = {};
    session_.Project.Design.Circuit.Tracks[1] = Chain("C160 C277");
    session_.Project.Design.Circuit.Tracks[2] = Chain("C160 C160");

    session_.Project.EditState.CurrentTrack = 2;
    EXPECT_EQ(VariedTrack(session_), 2);
    session_.Project.EditState.CurrentTrack = AllTracks;
    EXPECT_EQ(VariedTrack(session_), 1);

    EXPECT_EQ(BoxOfTrack(session_, 1), BoxOf(Pieces(), "C160=1,C277=1"));
}

TEST_F(LayingCommands, LayAVariationBesideTheOtherTracks) {
    session_.Project.Design.Circuit.Tracks[1] = Chain("C160 C277");
    BoxWish wish = WishOf("C151=8,C160=4");
    EXPECT_TRUE(TaskFor(session_, wish).Taken.empty()) << "what is laid from a box is laid alone";
    wish.Varied = 0;
    EXPECT_EQ(TaskFor(session_, wish).Taken.size(), 2U);

    const Surroundings around = SurroundingsFor(session_, wish);
    session_.Do([&] { OpenAsNew(session_, true, around, Chain("C151L C151L"), opened_); });

    EXPECT_EQ(CodesOf(session_.Project.Design.Circuit.Tracks[0]), "C151L C151L");
    EXPECT_EQ(CodesOf(session_.Project.Design.Circuit.Tracks[1]), "C160 C277");
}

TEST_F(LayingCommands, AVariationIsNamedAfterItsDesign) {
    session_.Project.EditState.File = folder_ / "club.trk";

    session_.Do([&] { OpenAsNew(session_, true, room_, Chain("C151L C151L"), opened_); });
    EXPECT_EQ(Caption(session_.Project.EditState), "Pistaro - club variation");
    session_.Do([&] { OpenAsNew(session_, true, room_, Chain("C151L C160"), opened_); });
    EXPECT_EQ(Caption(session_.Project.EditState), "Pistaro - club variation");
    session_.Do([&] { OpenAsNew(session_, false, room_, Chain("C160"), opened_); });
    EXPECT_EQ(Caption(session_.Project.EditState), "Pistaro - new project");
}

TEST_F(LayingCommands, OpenACircuitAsOneStepThatUndoTakesBack) {
    const Circuit before = session_.Project.Design.Circuit;

    session_.Do([&] { OpenAsNew(session_, false, room_, Chain("C151L C151L"), opened_); });

    EXPECT_EQ(CodesOf(session_.Project.Design.Circuit.Tracks[0]), "C151L C151L");
    EXPECT_EQ(session_.Project.Design.Room, room_.Design.Room);
    EXPECT_TRUE(session_.Project.EditState.DataChanged);
    EXPECT_EQ(session_.History().Caption(session_.History().Present()), "Circuit from My Box");
    session_.GoTo(session_.History().Present() - 1);
    EXPECT_EQ(session_.Project.Design.Circuit, before);
    EXPECT_FALSE(session_.History().CanUndo());
}

TEST_F(LayingCommands, AskBeforeUnsavedWorkGivesWayButNotForWhatWasOpenedBefore) {
    session_.Project.EditState.DataChanged = true;
    prompts_.Answers = {Answer::Cancel, Answer::Ok};

    EXPECT_FALSE(OpenAsNew(session_, false, room_, Chain("C151L"), opened_));
    EXPECT_EQ(CodesOf(session_.Project.Design.Circuit.Tracks[0]), "C160 C160 C151R");
    EXPECT_TRUE(OpenAsNew(session_, false, room_, Chain("C151L C160"), opened_));
    EXPECT_TRUE(OpenAsNew(session_, false, room_, Chain("C151R C160"), opened_));

    EXPECT_EQ(prompts_.Asked.size(), 2U);
    EXPECT_EQ(CodesOf(session_.Project.Design.Circuit.Tracks[0]), "C151R C160");
}

TEST_F(LayingCommands, KeepOneCircuitUnderItsNameAndSeveralWithNumbers) {
    prompts_.Files = {folder_ / "one.trk", folder_ / "many.trk"};

    EXPECT_TRUE(KeepAsFiles(session_, room_, {Chain("C151L")}));
    EXPECT_TRUE(KeepAsFiles(session_, room_, {Chain("C160"), Chain("C159")}));

    EXPECT_EQ(prompts_.Told.at(0).Text, TextFromPath(folder_ / "one.trk") + " is written.");
    EXPECT_EQ(prompts_.Told.at(1).Text,
              TextFromPath(folder_ / "many-01.trk") + " is written.\n\nThe others stand beside it, up to many-02.trk.");
    EXPECT_EQ(CodesOf(ReadCircuit(folder_ / "one.trk").Circuit.Tracks[0]), "C151L");
    EXPECT_EQ(CodesOf(ReadCircuit(folder_ / "many-01.trk").Circuit.Tracks[0]), "C160");
    EXPECT_EQ(CodesOf(ReadCircuit(folder_ / "many-02.trk").Circuit.Tracks[0]), "C159");
    EXPECT_EQ(ReadCircuit(folder_ / "many-02.trk").Room, room_.Design.Room);
}

TEST_F(LayingCommands, LeaveAllFilesWhereOneShallNotBeOverwritten) {
    prompts_.Files = {folder_ / "kept.trk", folder_ / "kept.trk"};
    KeepAsFiles(session_, room_, {Chain("C151L"), Chain("C160")});
    prompts_.Answers = {Answer::No};

    EXPECT_FALSE(KeepAsFiles(session_, room_, {Chain("C159"), Chain("C159")}));

    EXPECT_EQ(CodesOf(ReadCircuit(folder_ / "kept-01.trk").Circuit.Tracks[0]), "C151L");
    EXPECT_EQ(CodesOf(ReadCircuit(folder_ / "kept-02.trk").Circuit.Tracks[0]), "C160");
}

TEST_F(LayingCommands, TakeThePartThatIsKeptFromWhereItLies) {
    const TrackPart part = PartOf(Pieces(), session_.Project.Design.Circuit.Tracks[0], 1, 2);

    EXPECT_EQ(part.Rows, (std::vector<int>{Pieces().FindRow("C160"), Pieces().FindRow("C151R")}));
    // A standard straight leads up by 35 cm.
    EXPECT_FLOAT_EQ(part.At.CursorX, session_.Project.Design.Circuit.Tracks[0].TrackStartX);
    EXPECT_FLOAT_EQ(part.At.CursorY, session_.Project.Design.Circuit.Tracks[0].TrackStartY + 35);
}

/// A search whose calls are made on the test's thread.
class BoxSearches : public testing::Test {
protected:
    LayingTask Task(const char* box) {
        LayingTask task;
        task.Box = BoxOf(Pieces(), box);
        task.Room = EmptyArea({240, 160}).Room;
        return task;
    }

    /// Makes what calls come until the search has come to a stop.
    void WaitForTheEnd() {
        while (search_.Standing() == BoxStanding::Runs)
            calls_.Take()();
    }

    std::vector<Track> Tracks() const {
        std::vector<Track> tracks;
        for (const FoundCircuit& found : search_.Found())
            tracks.push_back(found.Circuit.Track);
        return tracks;
    }

    PostedCalls calls_;
    int heard_ = 0;
    BoxSearch search_{Pieces(), [this](std::function<void()> call) { calls_.Put(std::move(call)); },
                      [this] { ++heard_; }, [](const JobEnd& end) { end(); }};
};

constexpr const char* LargerBox = "C151=12,C160=6,C159=2";

TEST_F(BoxSearches, EndWithAllThatASmallBoxMakes) {
    search_.Start(Task("C151=8,C160=4"));
    WaitForTheEnd();

    EXPECT_EQ(search_.Standing(), BoxStanding::Complete);
    EXPECT_EQ(search_.Found().size(), 5U);
}

TEST_F(BoxSearches, FindTheSameWhetherTheyAreStoppedOrNot) {
    search_.Start(Task(LargerBox));
    WaitForTheEnd();
    const std::vector<Track> whole = Tracks();

    search_.Start(Task(LargerBox));
    int pauses = 0;
    while (search_.Standing() == BoxStanding::Runs) {
        search_.Pause();
        WaitForTheEnd();
        if (search_.Standing() != BoxStanding::Paused) break;
        ++pauses;
        search_.Continue();
    }

    EXPECT_GT(pauses, 0);
    EXPECT_EQ(search_.Standing(), BoxStanding::Ended);
    EXPECT_EQ(Tracks(), whole);
}

TEST_F(BoxSearches, FindMoreWhenTheyContinueAfterTheirEnd) {
    search_.Start(Task(LargerBox));
    WaitForTheEnd();
    const std::size_t before = search_.Found().size();

    search_.Continue();
    WaitForTheEnd();

    EXPECT_GT(search_.Found().size(), before);
}

TEST_F(BoxSearches, StopAtOnceWhenTheyAreCancelledAndKeepWhatWasFound) {
    search_.Start(Task("C151=24,C160=24,C159=8,C158=4,C153=8,C152=8,C157=4"));
    while (search_.Found().empty())
        calls_.Take()();
    const std::size_t before = search_.Found().size();

    const auto asked = std::chrono::steady_clock::now();
    search_.Cancel();
    const auto waited = std::chrono::steady_clock::now() - asked;

    EXPECT_LT(waited, std::chrono::seconds(2)); // on a machine under load; it is a few milliseconds
    EXPECT_EQ(search_.Standing(), BoxStanding::Idle);
    calls_.MakeAll();
    EXPECT_EQ(search_.Found().size(), before);
    EXPECT_EQ(search_.Standing(), BoxStanding::Idle);
}

} // namespace
} // namespace pistaro
