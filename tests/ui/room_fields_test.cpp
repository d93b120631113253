// The room that circuits of a box are laid in, and whence it is known.
#include "ui/box_fixture.h"

#include "editor/draw_area.h"
#include "storage/settings_file.h"
#include "support/temporary_folder.h"

namespace pistaro {
namespace {

class RoomsOfABox : public MyBox {
protected:
    std::string Source() { return Find<QGroupBox>("grpRoom").title().toStdString(); }

    /// New settings in a folder that lasts as long as the test.
    std::filesystem::path NewSettings() {
        const std::filesystem::path settings = folder_ / "corvel.ini";
        WriteBytes(settings, InitialSettingsBytes(Pieces(), {}, ""));
        return settings;
    }

private:
    TemporaryFolder folder_;
};

TEST_F(RoomsOfABox, TellTheDesignsSize) {
    pistaro::Project project = ProjectOf("C160");
    project.Design.Room = EmptyArea({240, 160}).Room;

    OpenBox(project);

    EXPECT_EQ(Find<QRadioButton>("optRoomDesign").text(), "The &design's, 240 × 160 cm");
}

TEST_F(RoomsOfABox, TakeATypedLengthInThePlaceOfTheOneThatWasClickedTwice) {
    OpenBox();
    QSpinBox& width = Find<QSpinBox>("spnRoomWidth");
    QLineEdit& field = *width.findChild<QLineEdit*>();

    QTest::mouseDClick(&field, Qt::LeftButton, {}, {field.width() - 4, field.height() / 2});
    QTest::keyClicks(&field, "250");

    EXPECT_EQ(width.value(), 250);
}

TEST_F(RoomsOfABox, AreThoseOfTheLastSearch) {
    OpenBox();
    Find<QSpinBox>("spnRoomWidth").setValue(250);
    Find<QSpinBox>("spnRoomDepth").setValue(150);
    Search("C151=8,C160=4");
    EXPECT_EQ(Session->Habits.BoxRoom, "250x150");

    ComeBack();

    EXPECT_EQ(Find<QSpinBox>("spnRoomWidth").value(), 250);
    EXPECT_EQ(Find<QSpinBox>("spnRoomDepth").value(), 150);
    EXPECT_TRUE(Find<QRadioButton>("optRoomArea").isChecked());
}

TEST_F(RoomsOfABox, TellWhenceTheyAre) {
    pistaro::Project project = ProjectOf("C160");
    project.Design.Room = EmptyArea({240, 160}).Room;

    Open(project, NewSettings());
    Choose("mnuFromBox");
    EXPECT_EQ(Source(), "Room: drawn in your design");
    Find<QRadioButton>("optRoomArea").click();
    EXPECT_EQ(Source(), "Room: a usual one, type yours");
    Find<QSpinBox>("spnRoomWidth").setValue(250);
    EXPECT_EQ(Source(), "Room: as typed here");
    EXPECT_TRUE(Find<QRadioButton>("optRoomArea").isChecked());
}

TEST_F(RoomsOfABox, TellThatTheyAreOfTheSettings) {
    const std::filesystem::path settings = NewSettings();
    pistaro::Project project = ProjectOf("");
    project.Design.Room = EmptyArea({240, 160}).Room;
    DrawAreaFields fields = OpenDrawArea(project.Design, project.Preferences);
    ASSERT_TRUE(SaveDrawArea(Pieces(), project, settings, fields, Prompts));

    Open(project, settings);
    Choose("mnuFromBox");

    EXPECT_EQ(Source(), "Room: from your settings");
}

TEST_F(RoomsOfABox, KeepCircuitsFromTheirWallsWhereThatIsWished) {
    OpenBox();
    Find<QSpinBox>("spnRoomWidth").setValue(120);
    Find<QSpinBox>("spnRoomDepth").setValue(100);
    Search("C151=8,C160=4");
    const int anywhere = Circuits().count();

    Find<QSpinBox>("spnFromWalls").setValue(10);
    EXPECT_TRUE(Find<QPushButton>("cmdSearchAgain").isVisible());
    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Find<QPushButton>("cmdCancelSearch").isEnabled(); }, 60'000));

    // A circle of 75 cm, and with a standard straight in it, 110 cm: the room leaves it 100 × 80 cm.
    EXPECT_EQ(Circuits().count(), 1);
    EXPECT_GT(anywhere, 1);
}

TEST_F(RoomsOfABox, LieAroundADesignWithoutWallsThatIsVaried) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));

    Choose("mnuVariations");

    EXPECT_EQ(Source(), "Room: 30 cm around your design");
}

} // namespace
} // namespace pistaro
