// What the window remembers of itself.
#include "ui/window_settings.h"

#include "support/temporary_folder.h"
#include "ui/window_fixture.h"

#include <QLocale>
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

TEST_F(WindowSettings, BringBackWhatIsShownInTheDrawingAndBelowIt) {
    Open(ProjectOf("C160 C8006"));
    RestoreWindow(folder_ / "window.ini", *Window, *Session);
    EXPECT_FALSE(Button("chkNumbers").isChecked());
    Choose("mnuLanes");
    Choose("mnuSuggest");
    Choose("mnuMoney");
    Session->Run(*Session->Commands.Find("numbers"));
    KeepWindow(folder_ / "window.ini", *Window, *Session);

    Open(ProjectOf("C160 C8006"));
    EXPECT_TRUE(Canvas().OverlayOf("built lanes").empty());
    RestoreWindow(folder_ / "window.ini", *Window, *Session);

    EXPECT_TRUE(Entry("mnuLanes").isChecked());
    EXPECT_FALSE(Canvas().OverlayOf("built lanes").empty());
    EXPECT_TRUE(Entry("mnuSuggest").isChecked());
    EXPECT_TRUE(Button("chkNumbers").isChecked());
    EXPECT_TRUE(Find<QDockWidget>("fraMoney").isVisible());
    EXPECT_TRUE(Entry("mnuMoney").isChecked());
    EXPECT_FALSE(Find<QDockWidget>("fraChecks").isVisible());
    EXPECT_FALSE(Entry("mnuChecks").isChecked());
}

TEST_F(WindowSettings, PaperIsAtFirstThatOfTheUsersCountry) {
    EXPECT_EQ(PaperOfLocale(QLocale("en_US")), "Letter");
    EXPECT_EQ(PaperOfLocale(QLocale("fr_CA")), "Letter");
    EXPECT_EQ(PaperOfLocale(QLocale("en_GB")), "A4");
    EXPECT_EQ(PaperOfLocale(QLocale::c()), "A4");
    Open();
    QLocale::setDefault(QLocale("en_US"));
    RestoreWindow(folder_ / "window.ini", *Window, *Session);
    QLocale::setDefault(QLocale::c());

    EXPECT_EQ(Session->Habits.Paper, "Letter");
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

TEST_F(WindowSettings, AreKeptWhileTheWindowIsUsed) {
    Open();
    WindowKeeper keeper(folder_ / "window.ini", *Window, *Session);
    const auto kept = [this](const char* key) {
        return QSettings(QString::fromStdString((folder_ / "window.ini").string()), QSettings::IniFormat).value(key);
    };

    Choose("mnuLegend");
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept("window/legend").toBool(); }, 10000));
    Session->Run(*Session->Commands.Find("numbers"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept("window/numbers").toBool(); }, 10000));
    const QVariant place = kept("window/place");
    Window->resize(960, 600);
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept("window/place") != place; }, 10000));
    const QVariant panels = kept("window/panels");
    Choose("mnuChecks");
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept("window/panels") != panels; }, 10000));
    Session->Do([&] { Session->Habits.Paper = "Letter"; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept("habits/paper") == "Letter"; }, 10000));
}

TEST_F(WindowSettings, ThatCannotBeKeptAreNotTold) {
    Open();
    WindowKeeper keeper(folder_ / "no such folder" / std::string(300, 'x') / "window.ini", *Window, *Session);

    Choose("mnuLegend");
    keeper.Keep();

    EXPECT_TRUE(Prompts.Told.empty());
    EXPECT_TRUE(Session->Looks.Legend);
}

TEST_F(WindowSettings, BringBackWhichColumnIsFolded) {
    QSettings settings(QString::fromStdString((folder_ / "window.ini").string()), QSettings::IniFormat);
    settings.setValue("window/trackColumn", false);
    settings.sync();

    Open();
    RestoreWindow(folder_ / "window.ini", *Window, *Session);

    EXPECT_FALSE(Session->Looks.TrackColumn);
    EXPECT_TRUE(Session->Looks.PieceColumn);
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

TEST_F(WindowSettings, TheLegendStandsInTheCornerWhereTheCircuitIsNot) {
    Open(ProjectOf("C160"));
    Window->resize(1024, 640);
    QApplication::processEvents();
    const auto corner = [this](bool left) {
        const QImage drawing = Picture().grab().toImage();
        return drawing.copy(left ? 13 : drawing.width() - 60, 40, 40, 40);
    };
    const QImage nothing = corner(true);
    Choose("mnuLegend");
    EXPECT_NE(corner(true), nothing);
    const WorldPoint upperLeft = Canvas().WorldAt({40, 60});
    Choose("mnuLegend");

    Session->Do([&] {
        Project.Design.Circuit.Tracks[0].TrackStartX = upperLeft.X;
        Project.Design.Circuit.Tracks[0].TrackStartY = upperLeft.Y;
    });
    const QImage circuit = corner(true);
    const QImage right = corner(false);
    Choose("mnuLegend");

    EXPECT_EQ(corner(true), circuit) << "it hides no piece";
    EXPECT_NE(corner(false), right);
}

TEST_F(WindowSettings, BringBackWhatWasExportedLast) {
    Open();
    EXPECT_EQ(Session->Habits, Habits());
    const Habits habits{.ExportFolder = "/tmp/Übung",
                        .ExportEnding = ".svg",
                        .Paper = "Letter",
                        .ExportSize = "width",
                        .ExportScale = "12.5",
                        .ExportWidth = "432",
                        .ExportDots = "150",
                        .ExportContents = "numbers, black and white",
                        .PrintContents = "nothing",
                        .PrintSize = "tiles",
                        .PrintScale = "2.5",
                        .PrintOrientation = "Landscape",
                        .PlanEnding = ".pdf",
                        .BoxRoom = "240x160",
                        .BoxPieces = "C151L=8,C160=4",
                        .BoxShapes = "all"};
    Session->Habits = habits;
    KeepWindow(folder_ / "window.ini", *Window, *Session);

    Open();
    RestoreWindow(folder_ / "window.ini", *Window, *Session);

    EXPECT_EQ(Session->Habits, habits);
}

} // namespace
} // namespace pistaro
