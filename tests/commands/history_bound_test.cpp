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

TEST(TheHistorysBound, KeepsTheStepAtHandHoweverLargeItIs) {
    History history(1000);
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks.fill(FullTrack());

    RecordStep(history, project, 0);

    EXPECT_EQ(history.Count(), 1U);
    EXPECT_FALSE(history.CanUndo());
}

} // namespace pistaro
