#include "stats/built_frames.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(BuiltFrames, AddTheTracksForTheCompleteCircuit) {
    const auto frames = BuiltFrames(Pieces(), ProjectOf("C160", "N10102", "C159").Design.Circuit);

    EXPECT_DOUBLE_EQ(frames[0].Lengths[0], 35);
    EXPECT_DOUBLE_EQ(frames[AllTracks].Lengths[0], 92.5);
    EXPECT_DOUBLE_EQ(frames[AllTracks].Lengths[1], 92.5);
    EXPECT_FALSE(frames[AllTracks].Joined);
}

TEST(BuiltFrames, AreToldInOneLine) {
    const auto text = [](const std::string& codes, bool inches = false) {
        return LanesText(LanesAsBuilt(Pieces(), Chain(codes)), {.Inches = inches, .Currency = ""});
    };

    EXPECT_EQ(text("C160 C151L"), "lanes 55.11 / 61.31 cm");
    EXPECT_EQ(text("C160", true), "lanes 13.780 / 13.780 in");
    EXPECT_EQ(text("C8006"), "lanes joined, 71.76 cm in two laps");
    EXPECT_EQ(text(""), "");
}

} // namespace
} // namespace pistaro
