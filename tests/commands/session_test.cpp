// One person at work: what is refused, who hears of what, and where faults go.
#include "commands/session.h"

#include "commands/bitmaps.h"
#include "commands/posted_calls.h"
#include "commands/printed.h"
#include "editor/track_editing.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/fault_of.h"
#include "support/named_windows.h"
#include "support/scripted_prompts.h"
#include "support/stock.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const Changes Nothing{};

Job JobOf(JobWork work) { return {"Looking for a way", "A way is being looked for.", std::move(work)}; }

JobEnd RunUntilStopped(const JobWatch& watch) {
    while (true)
        watch.Step(0, 0);
}

class TheSession : public testing::Test {
protected:
    TheSession() {
        observation_ = session_.Observe([&](const Changes& changes) { heard_.push_back(changes); });
    }

    const Command& Row(const char* id) const { return *session_.Commands.Find(id); }
    void Run(const char* id) { session_.Run(Row(id)); }
    bool TryRun(const char* id) { return session_.TryRun(Row(id)); }

    /// What is heard of that command.
    std::vector<Changes> HeardOf(const char* id) {
        heard_.clear();
        Run(id);
        return heard_;
    }

    std::vector<Changes> HeardOf(const std::function<void()>& work) {
        heard_.clear();
        EXPECT_TRUE(session_.Do(work));
        return heard_;
    }

    /// Fills the current track, so that adding is a fault.
    void FillTrack() { session_.Project.Design.Circuit.Tracks[0].ElementCodes.assign(501, "C160"); }

    Track& FirstTrack() { return session_.Project.Design.Circuit.Tracks[0]; }

    TemporaryFolder folder_;
    ScriptedPrompts prompts_;
    Session session_{Pieces(), prompts_, ProjectOf(""), {}};
    std::vector<Changes> heard_;
    Observation observation_;
};

} // namespace

TEST_F(TheSession, RefusesWhatCannotBeDoneNowAndChangesNothing) {
    const Project before = session_.Project;

    EXPECT_EQ(FaultOf([&] { Run("delete"); }), "Refused: \"delete\" is not offered now: The track is empty.");
    EXPECT_EQ(FaultOf([&] { Run("add N10102"); }),
              "Refused: \"add N10102\" is not offered now: Switch to Ninco track first.");
    EXPECT_EQ(FaultOf([&] { Run("background clear"); }),
              "Refused: \"background clear\" is not offered now: There is no picture behind the circuit.");

    EXPECT_TRUE(session_.Project == before);
    EXPECT_THAT(heard_, IsEmpty());
}

TEST_F(TheSession, TellsOfEachEditOnceWithWhatItChanged) {
    EXPECT_THAT(HeardOf("add C160"), ElementsAre(Changes{.Circuit = true, .EditState = true}));
    EXPECT_THAT(HeardOf("add C151L"), ElementsAre(Changes{.Circuit = true, .EditState = true})) << "it is selected";
    EXPECT_THAT(HeardOf([&] { SelectElement(session_.Project.Design.Circuit, session_.Project.EditState, 0); }),
                ElementsAre(Changes{.EditState = true}));
    EXPECT_THAT(HeardOf("replace C164"), ElementsAre(Changes{.Circuit = true})) << "there were changes before";
    EXPECT_THAT(HeardOf("mirror"), ElementsAre(Changes{.Circuit = true}));
    EXPECT_THAT(HeardOf("rotate left"), ElementsAre(Changes{.Circuit = true}));
    EXPECT_THAT(HeardOf("track 2"), ElementsAre(Changes{.EditState = true}));
    EXPECT_THAT(HeardOf("system"), ElementsAre(Changes{.EditState = true}));
    EXPECT_THAT(HeardOf("track 2"), ElementsAre(Nothing)) << "it is chosen already";
}

TEST_F(TheSession, TellsOfATurnedRoom) {
    Run("track all");

    EXPECT_THAT(HeardOf("rotate left"), ElementsAre(Changes{.Room = true, .EditState = true}));
    EXPECT_THAT(HeardOf("rotate left"), ElementsAre(Changes{.Room = true})) << "there were changes before";
}

TEST_F(TheSession, TellsOfTheViewTheNumbersAndThePreferences) {
    EXPECT_THAT(HeardOf("zoom in"), ElementsAre(Changes{.View = true}));
    EXPECT_THAT(HeardOf("numbers"), ElementsAre(Changes{.EditState = true}));
    EXPECT_THAT(HeardOf([&] { session_.Project.Preferences.Colours.Rail = 7; }),
                ElementsAre(Changes{.Preferences = true}));
    EXPECT_THAT(HeardOf([&] { SetStock(session_.Project, "C160", 3); }), ElementsAre(Changes{.Stock = true}));
    EXPECT_THAT(HeardOf("refresh"), ElementsAre(Nothing));
}

TEST_F(TheSession, TellsOfTheBackground) {
    WriteBytes(folder_ / "dot.bmp", Bitmap(1, 1, Rgb(0, 0, 0)));
    prompts_.Files = {folder_ / "dot.bmp", std::nullopt};

    EXPECT_THAT(HeardOf("background select"), ElementsAre(Changes{.Background = true}));
    EXPECT_THAT(HeardOf("background select"), ElementsAre(Nothing)) << "it was cancelled";
    EXPECT_THAT(HeardOf("background clear"), ElementsAre(Changes{.Background = true}));
}

TEST_F(TheSession, TellsOfAllThatALoadBrings) {
    WriteBytes(folder_ / "oval.trk", CircuitText("C160", "300"));
    session_.Project.Design.Room.Points = {{1, 2, 1}};
    prompts_.Files = {folder_ / "oval.trk"};

    EXPECT_THAT(HeardOf("load"), ElementsAre(Changes{.Circuit = true,
                                                     .Room = true,
                                                     .View = true,
                                                     .EditState = true,
                                                     .Preferences = true, // the working directory
                                                     .OtherCircuit = true}));
    EXPECT_EQ(CodesOf(FirstTrack()), "C160");
}

TEST_F(TheSession, TellsOnceOfAFaultedCommandWithWhatItChangedBefore) {
    Session session(Pieces(), prompts_, ProjectOf("C160"), folder_ / "missing.ini");
    session.Project.EditState.DataChanged = true;
    const Observation observation = session.Observe([&](const Changes& changes) { heard_.push_back(changes); });
    prompts_.Files = {folder_ / "oval.trk"};

    EXPECT_THROW(session.Run(*session.Commands.Find("save")), Fault);

    EXPECT_THAT(heard_, ElementsAre(Changes{.EditState = true, .Preferences = true, .Saved = true}));
    EXPECT_THAT(prompts_.Told, IsEmpty()) << "whoever runs the command tells of it";
}

TEST_F(TheSession, TellsAgainAfterAFault) {
    FillTrack();
    EXPECT_THROW(Run("add C160"), Fault);
    EXPECT_THAT(heard_, ElementsAre(Nothing));

    EXPECT_THAT(HeardOf("zoom out"), ElementsAre(Changes{.View = true}));
}

TEST_F(TheSession, TellsEveryObserverInTheirOrderAndWhenTheWorkIsDone) {
    std::string order;
    const Observation second = session_.Observe([&](const Changes&) { order += "second " + CodesOf(FirstTrack()); });
    const Observation third = session_.Observe([&](const Changes&) { order += ", third"; });

    Run("add C160");

    EXPECT_THAT(heard_, ElementsAre(Changes{.Circuit = true, .EditState = true}));
    EXPECT_EQ(order, "second C160, third");
}

TEST_F(TheSession, TellsAnObserverNoMoreThatHasLeft) {
    int heard = 0;
    Observation observation = session_.Observe([&](const Changes&) { ++heard; });
    Run("zoom out");

    observation.reset();
    Run("zoom in");

    EXPECT_EQ(heard, 1);
    EXPECT_THAT(heard_, SizeIs(2));
}

TEST_F(TheSession, LetsObserversComeAndGoWhileTheyAreTold) {
    int later = 0;
    Observation first, second, third;
    first = session_.Observe([&](const Changes&) {
        second.reset();
        third = session_.Observe([&](const Changes&) { ++later; });
        first.reset();
    });
    second = session_.Observe([&](const Changes&) { ADD_FAILURE() << "it has left"; });
    Run("zoom out");
    EXPECT_EQ(later, 0);

    Run("zoom in");

    EXPECT_EQ(later, 1);
}

TEST_F(TheSession, TakesWorkWithinWorkForOne) {
    const bool done = session_.Do([&] {
        Run("zoom in");
        EXPECT_TRUE(session_.Do([&] { Run("add C160"); }));
        EXPECT_TRUE(TryRun("numbers"));
        EXPECT_THAT(heard_, IsEmpty());
    });

    EXPECT_TRUE(done);
    EXPECT_THAT(heard_, ElementsAre(Changes{.Circuit = true, .View = true, .EditState = true}));
}

TEST_F(TheSession, TellsOfAFaultWithinWorkWhereItEndsAndGoesOn) {
    FillTrack();

    const bool done = session_.Do([&] {
        EXPECT_FALSE(TryRun("add C160"));
        Run("zoom in");
    });

    EXPECT_TRUE(done);
    EXPECT_EQ(prompts_.Told.size(), 1U);
    EXPECT_THAT(heard_, ElementsAre(Changes{.View = true}));
}

TEST_F(TheSession, DoesNothingWhenARowIsTriedThatCannotBeRun) {
    const Project before = session_.Project;

    EXPECT_FALSE(TryRun("delete"));

    EXPECT_TRUE(session_.Project == before);
    EXPECT_THAT(prompts_.Told, IsEmpty());
    EXPECT_THAT(heard_, IsEmpty());
}

TEST_F(TheSession, TellsTheFaultOfATriedRowWithAnExclamation) {
    FillTrack();

    EXPECT_FALSE(TryRun("add C160"));

    EXPECT_THAT(prompts_.Told,
                ElementsAre(Message{Icon::Exclamation, "Subscript out of range: a track holds at most 501 elements"}));
    EXPECT_THAT(heard_, ElementsAre(Nothing));
    EXPECT_EQ(FirstTrack().ElementCodes.size(), 501U);
}

TEST_F(TheSession, RunsATriedRowThatCanBeRun) {
    EXPECT_TRUE(TryRun("add C160"));

    EXPECT_EQ(CodesOf(FirstTrack()), "C160");
    EXPECT_THAT(prompts_.Told, IsEmpty());
}

TEST_F(TheSession, TellsWhateverEndsWorkButNotThatItWasStopped) {
    EXPECT_FALSE(session_.Do([] { throw std::runtime_error("the disk is on fire"); }));
    EXPECT_FALSE(session_.Do([] { throw Stopped(); }));

    EXPECT_THAT(prompts_.Told, ElementsAre(Message{Icon::Exclamation, "the disk is on fire"}));
    EXPECT_EQ(heard_.size(), 2U);
}

TEST_F(TheSession, OpensTheWindowOfEachRowThatHasOne) {
    NamedWindows windows;
    session_.Windows = &windows;

    for (const char* const id : {"statistics", "draw area", "about", "choose colours", "loose track"})
        Run(id);

    EXPECT_EQ(windows.Opened, "statistics draw area about colours stock ");
    EXPECT_EQ(heard_, std::vector<Changes>(5));
}

TEST_F(TheSession, OpensNoWindowWhereThereIsNone) {
    for (const char* const id : {"statistics", "draw area", "about", "choose colours", "loose track"})
        EXPECT_EQ(Row(id).WhyNot(session_), "Available in the designer only.") << id;

    EXPECT_EQ(FaultOf([&] { Run("about"); }), "Refused: \"about\" is not offered now: Available in the designer only.");
}

TEST_F(TheSession, LetsTheFaultsOfWorkThroughToACallerWhoTellsThemInAnotherWay) {
    EXPECT_EQ(FaultOf([&] {
                  session_.Work([&] {
                      Run("zoom in");
                      throw Fault("Overflow", "too much");
                  });
              }),
              "Overflow: too much");

    EXPECT_THAT(heard_, ElementsAre(Changes{.View = true}));
    EXPECT_THAT(prompts_.Told, IsEmpty());
}

TEST_F(TheSession, ShowsHowItsModesStand) {
    EXPECT_EQ(Row("system").Shows(session_), "Use Ninco Track");
    EXPECT_FALSE(Row("numbers").IsOn(session_));
    EXPECT_TRUE(Row("track 1").IsOn(session_));
    EXPECT_FALSE(Row("track all").IsOn(session_));

    for (const char* const id : {"system", "numbers", "track all"})
        Run(id);

    EXPECT_EQ(Row("system").Shows(session_), "Use Scalextric Track");
    EXPECT_TRUE(Row("numbers").IsOn(session_));
    EXPECT_FALSE(Row("track 1").IsOn(session_));
    EXPECT_TRUE(Row("track all").IsOn(session_));
}

TEST_F(TheSession, RunsAJobAtOnceAsPartOfTheWorkThatStartsIt) {
    session_.Do([&] {
        session_.StartJob(JobOf([&](const JobWatch&) -> JobEnd { return [&] { Run("zoom in"); }; }));
        EXPECT_FALSE(session_.HasJob());
    });

    EXPECT_THAT(heard_, ElementsAre(Changes{.View = true}));
}

TEST_F(TheSession, TellsTheFaultOfAJobThatItRunsAtOnce) {
    session_.StartJob(JobOf([](const JobWatch&) -> JobEnd { throw Fault("Overflow", "too much"); }));

    EXPECT_THAT(prompts_.Told, ElementsAre(Message{Icon::Exclamation, "Overflow: too much"}));
    EXPECT_THAT(heard_, ElementsAre(Nothing));
}

/// A session whose jobs run beside it; what they post waits until it is called for.
class TheSessionWithJobs : public TheSession {
protected:
    TheSessionWithJobs() {
        session_.RunJobsBeside([&](std::function<void()> call) { calls_.Put(std::move(call)); },
                               [&](int done, int total) { progress_.emplace_back(done, total); });
    }

    /// Waits for that many calls, ten seconds at most for each, and makes them.
    void MakeCalls(int count) {
        for (; count > 0; --count)
            calls_.Take()();
    }

    PostedCalls calls_;
    std::vector<std::pair<int, int>> progress_;
};

TEST_F(TheSessionWithJobs, HearsOfAJobWhenItsEndHasBeenDone) {
    session_.Do([&] {
        session_.StartJob(JobOf([&](const JobWatch& watch) -> JobEnd {
            watch.Step(1, 2);
            return [&] { Run("zoom in"); };
        }));
    });
    EXPECT_TRUE(session_.HasJob());
    EXPECT_EQ(Row("guide").WhyNot(session_), "A way is being looked for.");
    EXPECT_EQ(session_.CurrentJob()->Name, "Looking for a way");
    EXPECT_THAT(heard_, ElementsAre(Changes{.Job = true}));

    MakeCalls(2);

    EXPECT_FALSE(session_.HasJob());
    EXPECT_EQ(Row("guide").WhyNot(session_), "");
    EXPECT_THAT(progress_, ElementsAre(std::pair(1, 2)));
    EXPECT_THAT(heard_, ElementsAre(Changes{.Job = true}, Changes{.Job = true}, Changes{.View = true}));
}

TEST_F(TheSessionWithJobs, TellsAJobsFaultAtItsEnd) {
    session_.StartJob(JobOf([](const JobWatch&) -> JobEnd { throw Fault("Overflow", "too much"); }));
    EXPECT_THAT(prompts_.Told, IsEmpty());

    MakeCalls(1);

    EXPECT_THAT(prompts_.Told, ElementsAre(Message{Icon::Exclamation, "Overflow: too much"}));
    EXPECT_FALSE(session_.HasJob());
}

TEST_F(TheSessionWithJobs, HasNoneAfterTheRowThatCancelsIt) {
    EXPECT_EQ(Row("cancel job").WhyNot(session_), "Nothing is running.");
    session_.StartJob(JobOf(RunUntilStopped));

    session_.Run(*session_.Commands.Find("cancel job"));

    EXPECT_FALSE(session_.HasJob());
    EXPECT_THAT(heard_, ElementsAre(Changes{.Job = true}));
    EXPECT_THAT(prompts_.Told, IsEmpty());
}

TEST_F(TheSessionWithJobs, HasNoneAnyMoreWhenItsEndAsks) {
    std::vector<bool> jobWhenTold;
    const Observation observation = session_.Observe([&](const Changes& changes) {
        if (changes.Job) jobWhenTold.push_back(session_.HasJob());
    });
    session_.StartJob(JobOf([&](const JobWatch&) -> JobEnd {
        return [&] {
            EXPECT_THAT(jobWhenTold, ElementsAre(false));
            session_.Prompts.Ask("View now?", Buttons::YesNo);
        };
    }));
    prompts_.Answers = {Answer::Yes};

    MakeCalls(1);

    EXPECT_THAT(prompts_.Asked, SizeIs(1));
}

TEST_F(TheSessionWithJobs, RunsThemAtOnceWhenTheWindowHasGone) {
    session_.RunJobsBeside({}, {});
    bool done = false;

    session_.StartJob(JobOf([&](const JobWatch&) -> JobEnd { return [&] { done = true; }; }));

    EXPECT_TRUE(done);
}

TEST_F(TheSessionWithJobs, AsksBeforeQuitLosesTheOneThatRuns) {
    session_.StartJob(JobOf(RunUntilStopped));
    prompts_.Answers = {Answer::Cancel, Answer::Ok};

    EXPECT_FALSE(TryRun("quit"));
    EXPECT_TRUE(session_.HasJob());
    EXPECT_TRUE(TryRun("quit"));

    EXPECT_FALSE(session_.HasJob());
    ASSERT_EQ(prompts_.Asked.size(), 2U);
    EXPECT_EQ(prompts_.Asked[1].Text, "A way is being looked for. It will be lost if you proceed.");
    EXPECT_EQ(prompts_.Asked[1].Choices, Buttons::OkCancel);
    EXPECT_THAT(prompts_.Told, IsEmpty());
}

TEST_F(TheSessionWithJobs, AsksOfTheUnsavedTrackOnlyWhenTheJobMayBeLost) {
    Run("add C160");
    session_.StartJob(JobOf(RunUntilStopped));
    prompts_.Answers = {Answer::Cancel};
    EXPECT_FALSE(TryRun("quit"));
    EXPECT_THAT(prompts_.Asked, SizeIs(1));

    prompts_.Answers = {Answer::Ok, Answer::Yes};
    EXPECT_TRUE(TryRun("quit"));

    EXPECT_THAT(prompts_.Asked, SizeIs(3));
    EXPECT_TRUE(session_.Project.EditState.DataChanged) << "nothing was saved";
}

} // namespace pistaro
