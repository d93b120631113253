// Files where no plain file of the user's stands: links, other disks, folders, pipes, and names too long for the disk.
#include "faults/tree.h"
#include "support/circuit_text.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace pistaro {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OddPlaces : public testing::Test {
protected:
    Finished Save(const std::string& file) const {
        return folder_.Run({"script", "-"}, "add C160\nsave \"" + file + "\"\n");
    }

    /// The save is refused in one line, for this reason, and nothing is left of it.
    void ExpectRefused(const std::string& file, const std::string& reason) const {
        const Tree before = TreeBelow(folder_.Path());

        const Finished save = Save(file);

        EXPECT_EQ(save.ExitStatus, 1);
        EXPECT_EQ(save.Errors, "pistaro: -, line 2: " + reason + "\n");
        EXPECT_THAT(Others(before, TreeBelow(folder_.Path())), IsEmpty());
    }

    ProgramFolder folder_;
};

} // namespace

TEST_F(OddPlaces, ALinkStaysAndItsFileIsReplacedBeItOnAnotherDisk) {
    ASSERT_TRUE(std::filesystem::is_directory("/dev/shm")) << "./test gives a container one that comes without";
    const std::filesystem::path other = "/dev/shm/pistaro_test_" + std::to_string(::getpid());
    std::filesystem::create_directory(other);
    WriteBytes(other / "oval.trk", "old");
    std::filesystem::create_symlink(other / "oval.trk", folder_ / "link.trk");

    EXPECT_EQ(Save("link.trk").ExitStatus, 0);

    EXPECT_EQ(BytesOf(other / "oval.trk"), CircuitText("C160"));
    EXPECT_THAT(TreeBelow(other), testing::SizeIs(1));
    EXPECT_THAT(TreeBelow(folder_.Path()),
                ElementsAre(std::pair("link.trk", "link to " + (other / "oval.trk").string())));
    std::filesystem::remove_all(other);
}

TEST_F(OddPlaces, AFolderIsNotReplaced) {
    std::filesystem::create_directory(folder_ / "oval.trk");

    ExpectRefused("oval.trk", "Path/File access error: oval.trk: is a folder");
}

TEST_F(OddPlaces, APipeIsNotReplacedNorWaitedFor) {
    ASSERT_EQ(::mkfifo((folder_ / "oval.trk").c_str(), 0666), 0);

    ExpectRefused("oval.trk", "Path/File access error: oval.trk: is not a plain file");
}

TEST_F(OddPlaces, AFileIsNoFolder) {
    WriteBytes(folder_ / "folder", "mine");

    ExpectRefused("folder/oval.trk", "Path not found: folder/oval.trk");
}

TEST_F(OddPlaces, ANameMayBeAsLongAsTheDiskTakesIt) {
    const std::string longest = std::string(251, 'n') + ".trk";

    EXPECT_EQ(Save(longest).ExitStatus, 0);

    EXPECT_THAT(TreeBelow(folder_.Path()), ElementsAre(std::pair(longest, CircuitText("C160"))));
    ExpectRefused("n" + longest, "Path/File access error: n" + longest + ": File name too long");
}

} // namespace pistaro
