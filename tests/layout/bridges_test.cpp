// Which of two pieces lies above.
#include "layout/bridges.h"

#include "support/chain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::set<PieceAddress> BridgesIn(const Project& project) {
    return BridgesOf(Pieces(), project.Design.Circuit, project.EditState.CurrentTrack);
}

TEST(Bridges, AClosedTrackHasNoneThoughItsEndsTouch) {
    EXPECT_THAT(BridgesIn(ProjectOf("C151L C151L C151L C151L C151L C151L C151L C151L")), IsEmpty());
}

TEST(Bridges, TheChosenTrackPassesOverTheOthers) {
    Project project = ProjectOf("C160", "C160");
    project.Design.Circuit.Tracks[1].TrackStartX = 4;
    project.EditState.CurrentTrack = 0;
    EXPECT_THAT(BridgesIn(project), ElementsAre(PieceAddress{0, 0}));

    project.EditState.CurrentTrack = 1;
    EXPECT_THAT(BridgesIn(project), ElementsAre(PieceAddress{1, 0}));
}

TEST(Bridges, AHumpBackBridgeIsTheUpperOneThoughItIsDrawnFirst) {
    Project project = ProjectOf("C160", "C248");
    project.Design.Circuit.Tracks[1].TrackStartX = 4;
    project.EditState.CurrentTrack = 0;

    EXPECT_THAT(BridgesIn(project), ElementsAre(PieceAddress{1, 0}));
}

} // namespace
} // namespace pistaro
