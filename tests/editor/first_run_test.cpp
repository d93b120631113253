// What a first run puts into the working directory.
#include "editor/start_up.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class FirstRun : public testing::Test {
protected:
    FirstRun() {
        std::filesystem::create_directories(installed_ / "manual");
        WriteBytes(installed_ / "oval.trk", "a sample");
        WriteBytes(installed_ / "manual" / "help.html", "the manual");
    }

    TemporaryFolder installed_, working_;
};

TEST_F(FirstRun, BringsTheSamplesAndTheManualIntoTheWorkingDirectory) {
    CopySamples(installed_.Path(), working_.Path());

    EXPECT_EQ(BytesOf(working_ / "oval.trk"), "a sample");
    EXPECT_EQ(BytesOf(working_ / "manual" / "help.html"), "the manual");
}

TEST_F(FirstRun, LeavesTheUsersOwnFilesAlone) {
    WriteBytes(working_ / "oval.trk", "my own oval");

    CopySamples(installed_.Path(), working_.Path());

    EXPECT_EQ(BytesOf(working_ / "oval.trk"), "my own oval");
    EXPECT_EQ(BytesOf(working_ / "manual" / "help.html"), "the manual");
}

TEST_F(FirstRun, WithoutInstalledSamplesGoesOn) {
    CopySamples(installed_ / "gone", working_.Path());

    EXPECT_TRUE(std::filesystem::is_empty(working_.Path()));
}

} // namespace
} // namespace pistaro
