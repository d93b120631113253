// What the path of a circuit file gives: the project's name and the working directory.
#include "editor/circuit_files.h"
#include "platform/fault.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

class CircuitPaths : public testing::Test {
protected:
    CircuitPaths() { project_.Preferences.WorkingDirectory = "/old/"; }

    std::string FolderText() const { return (folder_.Path() / "").string(); }

    TemporaryFolder folder_;
    Project project_ = ProjectOf("C160 C160");
};

} // namespace

TEST_F(CircuitPaths, GiveTheWorkingDirectoryAndTheNameOnLoadAndOnSave) {
    WriteBytes(folder_ / "oval.trk", CircuitText("C160"));
    LoadCircuit(project_, folder_ / "oval.trk");
    EXPECT_EQ(project_.Preferences.WorkingDirectory, FolderText());
    EXPECT_EQ(ProjectName(project_.EditState), "oval");
    EXPECT_EQ(project_.EditState.File, folder_ / "oval.trk");

    std::filesystem::create_directory(folder_ / "other");
    SaveCircuit(project_, folder_ / "other" / "gap.trk");

    EXPECT_EQ(project_.Preferences.WorkingDirectory, (folder_ / "other" / "").string());
    EXPECT_EQ(ProjectName(project_.EditState), "gap");
}

TEST_F(CircuitPaths, AreTakenWithoutTheirDetours) {
    WriteBytes(folder_ / "oval.trk", CircuitText("C160"));
    std::filesystem::create_directory(folder_ / "other");

    LoadCircuit(project_, folder_ / "." / "other" / ".." / "oval.trk");

    EXPECT_EQ(project_.Preferences.WorkingDirectory, FolderText());
    EXPECT_EQ(project_.EditState.File, folder_ / "oval.trk");
}

TEST_F(CircuitPaths, OfFilesThatCannotBeReadOrWrittenChangeNothing) {
    const Project before = project_;

    EXPECT_THROW(LoadCircuit(project_, folder_ / "missing.trk"), Fault);
    EXPECT_THROW(SaveCircuit(project_, folder_ / "nofolder" / "x.trk"), Fault);

    EXPECT_EQ(project_, before);
}

TEST(UnsavedTracks, AreThoseOfSoManyElementsWhileThereAreChanges) {
    Project project = ProjectOf("C160", "", "C160 C160");
    EXPECT_FALSE(HasUnsavedTrack(project, 1));

    project.EditState.DataChanged = true;

    EXPECT_TRUE(HasUnsavedTrack(project, 1));
    EXPECT_TRUE(HasUnsavedTrack(project, 2));
    EXPECT_FALSE(HasUnsavedTrack(project, 3));
}

} // namespace pistaro
