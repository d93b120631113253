// What the window remembers of itself.
#include "ui/window_settings.h"

#include "support/temporary_folder.h"
#include "ui/window_fixture.h"

#include <QScreen>
#include <QSettings>

namespace pistaro {
namespace {

class WindowSettings : public WindowTest {
protected:
    TemporaryFolder folder_;
};

TEST_F(WindowSettings, AtAFirstStartTracksAreDrawnAsTheyLook) {
    Open();

    RestoreWindow(folder_ / "window.ini", *Window, *Session);

    EXPECT_TRUE(Session->Looks.Surface);
    EXPECT_FALSE(Session->Looks.Legend);
    EXPECT_TRUE(Entry("mnuSurface").isChecked());
}

TEST_F(WindowSettings, BringLooksAndSizeBack) {
    Open();
    RestoreWindow(folder_ / "window.ini", *Window, *Session);
    Choose("mnuSurface");
    Choose("mnuLegend");
    Window->resize(1000, 640);
    KeepWindow(folder_ / "window.ini", *Window, *Session);

    Open();
    RestoreWindow(folder_ / "window.ini", *Window, *Session);

    EXPECT_EQ(Session->Looks, (Looks{.Surface = false, .Legend = true, .Columns = Session->Looks.Columns}));
    EXPECT_EQ(Window->size(), QSize(1000, 640));
}

TEST_F(WindowSettings, ColumnsThatANarrowScreenFoldedAwayComeBackOnAWiderOne) {
    Open();
    ASSERT_LT(Window->screen()->availableSize().width(), 900) << "the platform without a display is narrow";
    RestoreWindow(folder_ / "window.ini", *Window, *Session);
    EXPECT_FALSE(Session->Looks.Columns);

    KeepWindow(folder_ / "window.ini", *Window, *Session);

    EXPECT_FALSE(QSettings(QString::fromStdString((folder_ / "window.ini").string()), QSettings::IniFormat)
                     .contains("window/columns"));
}

TEST_F(WindowSettings, WithoutAHomeNothingIsWritten) {
    Open();

    KeepWindow({}, *Window, *Session);
    RestoreWindow({}, *Window, *Session);

    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
    EXPECT_TRUE(Session->Looks.Surface);
}

TEST_F(WindowSettings, TheLegendStandsOnTheDrawingWhileItIsChosen) {
    Open(ProjectOf("C160"));
    const QImage without = Picture().grab().toImage();

    Choose("mnuLegend");
    EXPECT_NE(Picture().grab().toImage(), without);
    Choose("mnuLegend");
    EXPECT_EQ(Picture().grab().toImage(), without);
}

TEST_F(WindowSettings, BringBackWhatWasExportedLast) {
    Open();
    EXPECT_EQ(Session->Habits, Habits());
    Session->Habits = {.ExportFolder = "/tmp/Übung", .ExportEnding = ".svg", .Paper = "Letter"};
    KeepWindow(folder_ / "window.ini", *Window, *Session);

    Open();
    RestoreWindow(folder_ / "window.ini", *Window, *Session);

    EXPECT_EQ(Session->Habits, (Habits{.ExportFolder = "/tmp/Übung", .ExportEnding = ".svg", .Paper = "Letter"}));
}

} // namespace
} // namespace pistaro
