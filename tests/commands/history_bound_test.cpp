// What the history takes, and what goes first where that is too much.
#include "commands/history.h"

#include "editor/track_editing.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace pistaro {

namespace {

constexpr std::size_t MegaByte = 1 << 20;

/// A track of 501 pieces with the longest codes.
Track FullTrack() {
    Track track;
    track.ElementCodes.assign(501, "N10105L");
    return track;
}

/// The bytes that the program has allocated, where the system tells.
std::size_t Allocated() {
#ifdef __GLIBC__
    return ::mallinfo2().uordblks;
#else
    return 0;
#endif
}

/// Records a step that lays a picture of that many bytes under the circuit.
void LayPicture(History& history, Project& project, const std::shared_ptr<const std::string>& picture, double x = 0) {
    const Project before = project;
    project.Background = std::make_shared<const ScaledBackground>(ScaledBackground{.Picture = picture, .X = x});
    history.Record(before, project, {.Caption = "Background"});
}

std::shared_ptr<const std::string> PictureOf(std::size_t bytes, char filledWith) {
    return std::make_shared<const std::string>(bytes, filledWith);
}

/// Records a step that swaps the hand of one piece of track 1.
void RecordStep(History& history, Project& project, int number) {
    const Project before = project;
    std::string& code = project.Design.Circuit.Tracks[0].ElementCodes[static_cast<std::size_t>(number % 501)];
    code = code == "N10105L" ? "N10105R" : "N10105L";
    project.EditState.DataChanged = true;
    history.Record(before, project, {.Caption = "Mirror"});
}

} // namespace

TEST(TheHistorysBound, HoldsTenThousandStepsOfThreeFullTracks) {
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks.fill(FullTrack());
    const std::size_t before = Allocated();
    History history;

    for (int i = 0; i < 10000; ++i) {
        const Project last = project;
        project.EditState.CurrentTrack = i % 3;
        MirrorTrack(project.Design, project.EditState);
        history.Record(last, project, {.Caption = "Mirror"});
    }

    EXPECT_EQ(history.Count(), 10001U);
    EXPECT_LT(history.Bytes(), 64 * MegaByte);
    const std::size_t taken = Allocated() - before; // 0 where a sanitizer keeps the memory itself
    EXPECT_LT(taken, 64 * MegaByte);
    EXPECT_LT(taken, history.Bytes() * 11 / 10 + MegaByte) << "it is counted rightly";
    std::printf("10,000 steps take %zu bytes, counted as %zu\n", taken, history.Bytes());
}

TEST(TheHistorysBound, DropsTheOldestStepsFirst) {
    constexpr std::size_t bound = 100'000;
    History history(bound);
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks.fill(FullTrack());
    std::vector<Circuit> circuits{project.Design.Circuit};

    for (int i = 0; i < 200; ++i) {
        RecordStep(history, project, i);
        circuits.push_back(project.Design.Circuit);
        EXPECT_LE(history.Bytes(), bound);
    }

    EXPECT_GT(history.Count(), 15U) << "some 4 KB a step, and tracks 2 and 3 once";
    EXPECT_LT(history.Count(), 40U);
    EXPECT_EQ(history.Present(), history.Count() - 1);
    const std::size_t dropped = circuits.size() - history.Count();
    for (std::size_t state = 0; state < history.Count(); ++state) {
        history.GoTo(state, project);
        ASSERT_EQ(project.Design.Circuit, circuits[dropped + state]) << state;
    }
}

TEST(TheHistorysBound, CountsWhatIsDroppedWithUndoneStepsAsGone) {
    History history;
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks.fill(FullTrack());
    RecordStep(history, project, 0);
    const std::size_t two = history.Bytes();
    for (int i = 1; i < 50; ++i)
        RecordStep(history, project, i);

    history.GoTo(0, project);
    RecordStep(history, project, 0);

    EXPECT_EQ(history.Count(), 2U);
    EXPECT_EQ(history.Bytes(), two);
}

TEST(TheHistorysBound, CountsThePicturesUnderTheCircuit) {
    History history;
    Project project = ProjectOf("");
    for (const char fill : {'a', 'b', 'c', 'd', 'e'})
        LayPicture(history, project, PictureOf(20 * MegaByte, fill));

    EXPECT_EQ(history.Count(), 3U) << "three of 20 MB and no fourth";
    EXPECT_GT(history.Bytes(), 60 * MegaByte);
    EXPECT_LT(history.Bytes(), 61 * MegaByte);
    history.GoTo(0, project);
    EXPECT_EQ(project.Background->Picture->front(), 'c');
}

TEST(TheHistorysBound, CountsAPictureOnceHoweverManyStatesHoldItAndWhoeverElseDoes) {
    History history;
    Project project = ProjectOf("C160");
    const auto picture = PictureOf(20 * MegaByte, 'a'); // held by the project and here, too

    for (int move = 0; move < 100; ++move)
        LayPicture(history, project, picture, move);
    EXPECT_EQ(history.Count(), 101U);
    EXPECT_GT(history.Bytes(), 20 * MegaByte);
    EXPECT_LT(history.Bytes(), 21 * MegaByte);

    history.GoTo(0, project);
    LayPicture(history, project, nullptr);
    EXPECT_EQ(history.Count(), 2U);
    EXPECT_LT(history.Bytes(), MegaByte) << "it went with the last state that held it";
}

TEST(TheHistorysBound, HoldsAPictureOnceThatIsLoadedAgain) {
    History history;
    Project project = ProjectOf("");
    for (int load = 0; load < 5; ++load) {
        LayPicture(history, project, PictureOf(20 * MegaByte, 'a'), load);
        LayPicture(history, project, PictureOf(10 * MegaByte, 'b'), load);
    }

    EXPECT_EQ(history.Count(), 11U);
    EXPECT_LT(history.Bytes(), 31 * MegaByte);
    history.GoTo(1, project);
    const auto first = project.Background->Picture;
    history.GoTo(9, project);
    EXPECT_EQ(project.Background->Picture, first);
    EXPECT_EQ(project.Background->X, 4);
}

TEST(TheHistorysBound, CountsTheNamesOfRecoveredWork) {
    History history;
    Project project = ProjectOf("C160");
    RecordStep(history, project, 0);
    const std::size_t unnamed = history.Bytes();
    project.EditState.Name = std::string(1000, 'n');

    history.GoTo(0, project);
    EXPECT_GE(history.Bytes(), unnamed + 900);

    RecordStep(history, project, 0);
    EXPECT_EQ(history.Count(), 2U);
}

TEST(TheHistorysBound, KeepsTheStepAtHandHoweverLargeItIs) {
    History history(1000);
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks.fill(FullTrack());

    RecordStep(history, project, 0);

    EXPECT_EQ(history.Count(), 1U);
    EXPECT_FALSE(history.CanUndo());
}

} // namespace pistaro
