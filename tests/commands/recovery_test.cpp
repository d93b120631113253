// Unsaved work is on disk: when it gets there, when it goes, and what is offered of it.
#include "commands/recovery.h"

#include "commands/background_commands.h"
#include "commands/bitmaps.h"
#include "commands/recovery_commands.h"
#include "platform/locks.h"
#include "storage/background_file.h"
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// Somebody at work, with another folder for circuits than for what is to be recovered.
class Recovering : public testing::Test {
protected:
    void Begin(std::chrono::milliseconds delay = 1h) { recovery_.emplace(*session_, folder_.Path(), post_, delay); }

    void Press(const std::string& id) { session_->Run(*session_->Commands.Find(id)); }

    /// Presses two straights, which Load and New ask about.
    void Build() {
        Press("add C160");
        Press("add C160");
    }

    /// The program is killed, and started anew.
    void StartAnew() {
        recovery_.reset();
        session_.emplace(Pieces(), prompts_, ProjectOf(""), "");
        Begin();
    }

    /// What stands in the recovery folder: the codes of each work's first track, by the names of their files.
    std::vector<std::string> OnDisk() const {
        std::vector<std::string> works;
        for (const RecoveredWork& work : WithContent(FindRecoveredWork(folder_.Path())))
            works.push_back(work.Name.Design + ": " + CodesOf(work.Content->Circuit.Tracks[0]) +
                            (work.Name.IsKept ? ", kept" : ""));
        return works;
    }

    /// Lays a picture of that many cm a dot under the circuit.
    void LayPicture(double scale) {
        session_->Do([&] {
            SetBackground(*session_, std::make_shared<const ScaledBackground>(ScaledBackground{
                                         .Picture = std::make_shared<const std::string>(Bitmap(4, 4, Rgb(9, 9, 9))),
                                         .X = 7,
                                         .CmPerPixel = scale}));
        });
    }

    /// The scales of the pictures that stand in the recovery folder.
    std::vector<double> PicturesOnDisk() const {
        std::vector<double> scales;
        for (const auto& file : std::filesystem::directory_iterator(folder_.Path())) {
            if (file.path().extension() == ".background") scales.push_back(ReadBackground(file.path()).CmPerPixel);
        }
        return scales;
    }

    std::string Codes() const { return CodesOf(session_->Project.Design.Circuit.Tracks[0]); }

    TemporaryFolder circuits_, folder_;
    ScriptedPrompts prompts_;
    std::vector<std::function<void()>> posted_;
    Jobs::Post post_ = [this](std::function<void()> call) { posted_.push_back(std::move(call)); };
    std::optional<Session> session_{std::in_place, Pieces(), prompts_, ProjectOf(""), ""};
    std::optional<Recovery> recovery_;
};

/// Whether it becomes true within seconds.
bool Soon(const std::function<bool()>& condition) {
    for (int i = 0; i < 1000; ++i) {
        if (condition()) return true;
        std::this_thread::sleep_for(5ms);
    }
    return false;
}

TEST_F(Recovering, AChangeIsOnDiskInTime) {
    Begin(20ms);

    Press("add C160");

    EXPECT_TRUE(Soon([&] { return OnDisk() == std::vector<std::string>{"new project: C160"}; }));
}

TEST_F(Recovering, UsersLoseLessThanFiveSeconds) { EXPECT_LE(Recovery::Delay, 4s) << "and a second to write"; }

TEST_F(Recovering, ChangesWithoutEndAreOnDiskAllTheSame) {
    Begin(50ms);
    const auto end = std::chrono::steady_clock::now() + 10s;

    while (OnDisk().empty() && std::chrono::steady_clock::now() < end) {
        Press("rotate left");
        std::this_thread::sleep_for(2ms);
    }

    EXPECT_EQ(OnDisk().size(), 1U);
}

TEST_F(Recovering, NothingIsWrittenWithoutAChange) {
    Begin(0ms);
    Press("zoom in");
    Press("track 2");

    recovery_->Secure();

    EXPECT_EQ(FilesIn(folder_.Path()), 0U);
}

TEST_F(Recovering, WithoutAFolderForItNothingIsWrittenAnywhere) {
    recovery_.emplace(*session_, "", post_, 0ms);
    Press("add C160");

    recovery_->Secure();

    EXPECT_FALSE(recovery_->IsOn());
    EXPECT_THAT(recovery_->Works(), IsEmpty());
    EXPECT_THAT(posted_, IsEmpty());
}

TEST_F(Recovering, TheWorkIsNamedAfterItsFileAndStandsNeverBesideIt) {
    WriteBytes(circuits_ / "oval.trk", CircuitText("C160"));
    prompts_.Files = {circuits_ / "oval.trk"};
    Begin();
    Press("load");
    Press("add C151L");

    recovery_->Secure();

    EXPECT_THAT(OnDisk(), ElementsAre("oval: C160 C151L"));
    EXPECT_EQ(FilesIn(circuits_.Path()), 1U);
}

TEST_F(Recovering, ASaveRemovesIt) {
    prompts_.Files = {circuits_ / "oval.trk"};
    Begin();
    Press("add C160");
    recovery_->Secure();

    Press("save");

    EXPECT_THAT(OnDisk(), IsEmpty());
    recovery_->Secure();
    EXPECT_THAT(OnDisk(), IsEmpty());
}

TEST_F(Recovering, ASaveThatFailsLeavesIt) {
    prompts_.Files = {circuits_ / "gone" / "oval.trk"};
    Begin();
    Press("add C160");

    EXPECT_ANY_THROW(Press("save"));
    recovery_->Secure();

    EXPECT_THAT(OnDisk(), ElementsAre("new project: C160"));
}

TEST_F(Recovering, ACancelledSaveLeavesItThoughTheDesignCountsAsSaved) {
    prompts_.Files = {std::nullopt};
    Begin();
    Press("add C160");

    Press("save");
    recovery_->Secure();

    EXPECT_FALSE(session_->Project.EditState.DataChanged);
    EXPECT_THAT(OnDisk(), ElementsAre("new project: C160"));
}

TEST_F(Recovering, UndoingToWhatIsSavedRemovesItAndRedoingBringsItBack) {
    WriteBytes(circuits_ / "oval.trk", CircuitText("C160"));
    prompts_.Files = {circuits_ / "oval.trk"};
    Begin();
    Press("load");
    Press("add C151L");
    recovery_->Secure();

    Press("undo");
    recovery_->Secure();
    EXPECT_THAT(OnDisk(), IsEmpty());

    Press("redo");
    recovery_->Secure();
    EXPECT_THAT(OnDisk(), ElementsAre("oval: C160 C151L"));
}

TEST_F(Recovering, WhatLoadAndNewDiscardAfterAnAnswerStaysAsKept) {
    WriteBytes(circuits_ / "oval.trk", CircuitText("C151L"));
    prompts_.Files = {circuits_ / "oval.trk"};
    prompts_.Answers = {Answer::Ok, Answer::Ok};
    Begin();
    Build();

    Press("load");
    EXPECT_THAT(OnDisk(), ElementsAre("new project: C160 C160, kept"));
    Press("add C151L");
    Press("new");

    EXPECT_THAT(OnDisk(), testing::UnorderedElementsAre("new project: C160 C160, kept", "oval: C151L C151L, kept"));
    EXPECT_THAT(recovery_->Untold(), IsEmpty());
    EXPECT_EQ(recovery_->Works().size(), 2U);
}

TEST_F(Recovering, WhatNewDropsWithoutAQuestionIsToldAtTheNextStart) {
    Begin();
    Press("add C160");

    Press("new");
    EXPECT_EQ(recovery_->Works().size(), 1U);
    EXPECT_THAT(recovery_->Untold(), IsEmpty()) << "not while its program lives";
    StartAnew();

    ASSERT_EQ(recovery_->Untold().size(), 1U);
    EXPECT_EQ(recovery_->Untold()[0].Pieces(), 1);
}

TEST_F(Recovering, QuittingWithYesKeepsItAndWithNoAndACancelledSaveTellsItAtTheNextStart) {
    prompts_.Answers = {Answer::Yes, Answer::No};
    prompts_.Files = {std::nullopt};
    Begin();
    Press("add C160");
    Press("quit");
    StartAnew();
    EXPECT_THAT(OnDisk(), ElementsAre("new project: C160, kept"));
    EXPECT_THAT(recovery_->Untold(), IsEmpty());

    Press("add C151L");
    Press("quit");
    StartAnew();

    ASSERT_EQ(recovery_->Untold().size(), 1U);
    EXPECT_EQ(CodesOf(recovery_->Untold()[0].Content->Circuit.Tracks[0]), "C151L");
    EXPECT_EQ(recovery_->Works().size(), 2U);
}

TEST_F(Recovering, WhatTheUserWasToldOfIsNotToldAgainButStillOffered) {
    Begin();
    Press("add C160");
    StartAnew();
    ASSERT_EQ(recovery_->Untold().size(), 1U);

    recovery_->Keep(recovery_->Untold());

    EXPECT_THAT(recovery_->Untold(), IsEmpty());
    EXPECT_EQ(recovery_->Works().size(), 1U);
}

TEST_F(Recovering, TheWorkOfAnotherProgramThatLivesIsLeftAlone) {
    const LifeSign other(LifeSignOf(folder_.Path(), "1.2"));
    WriteBytes(folder_ / "oval~20261122T073105Z~1.2-1.trk", CircuitText("C160"));
    Begin();
    Press("add C160");
    recovery_->Secure();

    EXPECT_THAT(recovery_->Works(), IsEmpty()) << "neither the other's nor what stands here";
    EXPECT_EQ(OnDisk().size(), 2U);
}

TEST_F(Recovering, TwoProgramsWriteTwoFiles) {
    Session other(Pieces(), prompts_, ProjectOf(""), "");
    Begin();
    std::this_thread::sleep_for(2ms); // two programs have two numbers, these have but another start
    Recovery othersRecovery(other, folder_.Path(), post_, 1h);
    Press("add C160");
    other.Run(*other.Commands.Find("add C151L"));

    recovery_->Secure();
    othersRecovery.Secure();

    EXPECT_THAT(OnDisk(), testing::UnorderedElementsAre("new project: C160", "new project: C151L"));
}

TEST_F(Recovering, AnOpenedWorkIsUnsavedUnderItsNameAndItsFileGoesOn) {
    WriteBytes(folder_ / "My%20oval~20261122T073105Z~1.2-1.trk", CircuitText("C160 C151L"));
    Begin();

    session_->Do([&] { OpenRecovered(*session_, recovery_->Untold().at(0)); });

    EXPECT_EQ(Codes(), "C160 C151L");
    EXPECT_EQ(Caption(session_->Project.EditState), "Pistaro - My oval");
    EXPECT_TRUE(session_->Project.EditState.DataChanged);
    EXPECT_EQ(session_->Project.EditState.File, "");
    EXPECT_THAT(OnDisk(), ElementsAre("My oval: C160 C151L"));
    EXPECT_THAT(recovery_->Works(), IsEmpty());

    Press("add C160");
    recovery_->Secure();
    EXPECT_THAT(OnDisk(), ElementsAre("My oval: C160 C151L C160"));

    prompts_.Files = {circuits_ / "oval.trk"};
    Press("save");
    EXPECT_EQ(prompts_.Dialogs.back().DefaultName, "My oval");
    EXPECT_THAT(OnDisk(), IsEmpty());
    EXPECT_EQ(BytesOf(circuits_ / "oval.trk"), CircuitText("C160 C151L C160"));
}

TEST_F(Recovering, OpeningAWorkOverUnsavedWorkAsksAndKeepsThatToo) {
    WriteBytes(folder_ / "oval~20261122T073105Z~1.2-1.trk", CircuitText("C151L"));
    prompts_.Answers = {Answer::Cancel, Answer::Ok};
    Begin();
    Build();

    session_->Do([&] { OpenRecovered(*session_, recovery_->Works().at(0)); });
    EXPECT_EQ(Codes(), "C160 C160") << "the user thought better of it";
    session_->Do([&] { OpenRecovered(*session_, recovery_->Works().at(0)); });

    EXPECT_EQ(Codes(), "C151L");
    EXPECT_THAT(OnDisk(), testing::UnorderedElementsAre("oval: C151L", "new project: C160 C160, kept"));
    EXPECT_EQ(prompts_.Asked.back().Text, "All data will be lost if you proceed.");

    Press("undo");
    EXPECT_EQ(Codes(), "C160 C160");
    EXPECT_EQ(Caption(session_->Project.EditState), "Pistaro - new project");
    Press("redo");
    EXPECT_EQ(Caption(session_->Project.EditState), "Pistaro - oval");
}

TEST_F(Recovering, AWorkIsCopiedWhereItsUserSaysAndOverAnotherFileOnlyWithAYes) {
    WriteBytes(folder_ / "oval~20261122T073105Z~1.2-1.trk", CircuitText("C151L"));
    WriteBytes(circuits_ / "mine.trk", "mine");
    Begin();
    const RecoveredWork work = recovery_->Works().at(0);
    prompts_.Files = {std::nullopt, circuits_ / "copy.trk", circuits_ / "mine.trk", circuits_ / "mine.trk"};
    prompts_.Answers = {Answer::No, Answer::Yes};

    EXPECT_FALSE(CopyRecovered(*session_, work));
    EXPECT_TRUE(CopyRecovered(*session_, work));
    EXPECT_FALSE(CopyRecovered(*session_, work));
    EXPECT_EQ(BytesOf(circuits_ / "mine.trk"), "mine");
    EXPECT_TRUE(CopyRecovered(*session_, work));

    EXPECT_EQ(BytesOf(circuits_ / "copy.trk"), CircuitText("C151L"));
    EXPECT_EQ(BytesOf(circuits_ / "mine.trk"), CircuitText("C151L"));
    EXPECT_EQ(OnDisk().size(), 1U);
}

TEST_F(Recovering, AWorkIsDeletedAfterAQuestion) {
    WriteBytes(folder_ / "oval~20261122T073105Z~1.2-1.trk", CircuitText("C151L"));
    Begin();
    prompts_.Answers = {Answer::No, Answer::Yes};

    EXPECT_FALSE(DeleteRecovered(*session_, recovery_->Works().at(0)));
    EXPECT_EQ(OnDisk().size(), 1U);
    EXPECT_TRUE(DeleteRecovered(*session_, recovery_->Works().at(0)));

    EXPECT_THAT(OnDisk(), IsEmpty());
    EXPECT_EQ(prompts_.Asked.back().Text, "Delete \"oval\" for good?");
}

TEST_F(Recovering, AFolderThatCannotBeMadeIsToldOnceAndTheProgramGoesOn) {
    WriteBytes(circuits_ / "file", "");
    recovery_.emplace(*session_, circuits_ / "file" / "recovery", post_, 1h);
    for (int i = 0; i < 3; ++i) {
        Press("add C160");
        recovery_->Secure();
    }

    ASSERT_EQ(posted_.size(), 1U);
    posted_[0]();
    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_THAT(prompts_.Told[0].Text, testing::StartsWith("Unsaved work is not kept: Path/File access error: " +
                                                           (circuits_ / "file" / "recovery").string()));
    EXPECT_EQ(Codes(), "C160 C160 C160");
}

TEST_F(Recovering, WhatIsToldAfterTheEndIsToldNobody) {
    WriteBytes(circuits_ / "file", "");
    recovery_.emplace(*session_, circuits_ / "file", post_, 1h);
    Press("add C160");
    recovery_.reset();

    ASSERT_EQ(posted_.size(), 1U);
    posted_[0]();

    EXPECT_THAT(prompts_.Told, IsEmpty());
}

TEST_F(Recovering, ALongNameOfADesignIsNoHindrance) {
    const std::string name(250, 'x');
    WriteBytes(circuits_ / (name + ".trk"), CircuitText("C160"));
    prompts_.Files = {circuits_ / (name + ".trk")};
    Begin();
    Press("load");
    Press("add C160");

    recovery_->Secure();

    EXPECT_THAT(OnDisk(), ElementsAre(std::string(200, 'x') + ": C160 C160"));
    EXPECT_THAT(posted_, IsEmpty());
}

TEST_F(Recovering, ThePictureUnderTheWorkIsKeptWithItAndComesBack) {
    Begin();
    Press("add C160");
    recovery_->Secure();
    LayPicture(0.5);
    recovery_->Secure();
    LayPicture(0.25);
    StartAnew();
    EXPECT_THAT(PicturesOnDisk(), ElementsAre(0.25));

    session_->Do([&] { OpenRecovered(*session_, recovery_->Works().front()); });

    ASSERT_NE(session_->Project.Background, nullptr);
    EXPECT_EQ(session_->Project.Background->X, 7);
    EXPECT_EQ(session_->Project.Background->CmPerPixel, 0.25);
    EXPECT_EQ(*session_->Project.Background->Picture, Bitmap(4, 4, Rgb(9, 9, 9)));
    recovery_->Secure();
    EXPECT_THAT(PicturesOnDisk(), ElementsAre(0.25)) << "under the work's new name";
}

TEST_F(Recovering, ThePictureGoesWithTheWork) {
    prompts_.Files = {circuits_ / "oval.trk"};
    Begin();
    Press("add C160");
    LayPicture(0.5);
    recovery_->Secure();
    EXPECT_THAT(PicturesOnDisk(), ElementsAre(0.5));

    Press("undo");
    recovery_->Secure();
    EXPECT_THAT(PicturesOnDisk(), IsEmpty()) << "it was taken away again";

    Press("redo");
    recovery_->Secure();
    Press("save");
    EXPECT_EQ(FilesIn(folder_.Path()), 1U) << "the sign of life";
}

TEST_F(Recovering, AWorkIsCopiedAndDeletedWithItsPicture) {
    Begin();
    Press("add C160");
    LayPicture(0.5);
    StartAnew();
    const RecoveredWork work = recovery_->Works().front();
    prompts_.Files = {circuits_ / "copy.trk"};
    prompts_.Answers = {Answer::Yes};

    EXPECT_TRUE(CopyRecovered(*session_, work));
    EXPECT_EQ(ReadBackground(circuits_ / "copy.background").CmPerPixel, 0.5);
    EXPECT_TRUE(DeleteRecovered(*session_, work));
    EXPECT_THAT(PicturesOnDisk(), IsEmpty());
}

TEST_F(Recovering, AWorkWhosePictureIsDamagedIsOpenedWithoutItAndThatIsTold) {
    Begin();
    Press("add C160");
    StartAnew();
    const RecoveredWork work = recovery_->Works().front();
    WriteBytes(BackgroundFileOf(work.File), "no picture");

    session_->Do([&] { OpenRecovered(*session_, work); });

    EXPECT_EQ(Codes(), "C160");
    EXPECT_EQ(session_->Project.Background, nullptr);
    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_TRUE(prompts_.Told[0].Text.ends_with("this is no background file\nThe circuit is loaded without the picture "
                                                "under it."))
        << prompts_.Told[0].Text;
}

} // namespace
} // namespace pistaro
