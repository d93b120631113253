// The manual: where it is looked for, and how a page is handed to the viewer.
#include "report/viewer.h"

#include "support/fake_viewer.h"
#include "support/fault_of.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

class Manual : public ::testing::Test {
protected:
    Manual() {
        User.WorkingDirectory = (Folder / "tracks" / "").string();
        for (const char* const folder : {"tracks", "installed", "checkout"})
            std::filesystem::create_directory(Folder / folder);
    }

    /// The manual of a folder, which is then there.
    std::string PutInto(const std::filesystem::path& folder) const {
        std::filesystem::create_directories(folder);
        WriteBytes(folder / "help.html", "the manual");
        return (folder / "help.html").string();
    }

    std::string Found() const { return FindManual(User, {Folder / "installed", Folder / "checkout"}); }

    TemporaryFolder Folder;
    Preferences User;
};

TEST_F(Manual, BesideTheUsersCircuitsComesFirst) {
    PutInto(Folder / "installed");
    PutInto(Folder / "checkout");
    const std::string own = PutInto(Folder / "tracks" / "manual");

    EXPECT_EQ(Found(), own);
}

TEST_F(Manual, IsElsewhereTheFirstThatIsThere) {
    const std::string ofCheckout = PutInto(Folder / "checkout");
    EXPECT_EQ(Found(), ofCheckout);

    const std::string installed = PutInto(Folder / "installed");
    EXPECT_EQ(Found(), installed);
}

TEST_F(Manual, ThatIsNowhereIsAFaultThatSaysSo) {
    EXPECT_EQ(FaultOf([&] { Found(); }), "File not found: the manual is neither beside your circuits, " +
                                             (Folder / "tracks" / "manual" / "help.html").string() +
                                             ", nor where Pistaro is installed");
}

TEST_F(Manual, IsOpenedAsOneArgumentOfTheViewer) {
    const FakeViewer viewer;
    User.WorkingDirectory = (Folder / "club night - 2" / "").string();
    const std::string own = PutInto(Folder / "club night - 2" / "manual");

    OpenManual(User);

    EXPECT_THAT(viewer.Arguments(), ::testing::ElementsAre(own));
}

TEST_F(Manual, WithoutAViewerIsAFault) {
    const NoViewer noViewer;
    PutInto(Folder / "tracks" / "manual");

    EXPECT_THROW(OpenManual(User), Fault);
}

TEST(Viewer, OpensAPageWhetherItIsThereOrNot) {
    const FakeViewer viewer;
    const TemporaryFolder folder;

    OpenInViewer((folder / "guide.html").string());

    EXPECT_THAT(viewer.Arguments(), ::testing::ElementsAre((folder / "guide.html").string()));
}

TEST(Viewer, ThatIsNotThereIsAFault) {
    const NoViewer noViewer;

    EXPECT_THROW(OpenInViewer("guide.html"), Fault);
}

} // namespace
} // namespace pistaro
