// Background, saved picture, guide, manual and About, through the main window's menu entries.
#include "support/chain.h"
#include "support/fake_viewer.h"
#include "support/scripted_prompts.h"
#include "ui/circuit_view.h"
#include "ui/frmAbout.h"
#include "ui/frmCorvel.h"

#include <QAction>
#include <QListWidget>
#include <QProcess>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <numeric>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;

class PictureCommands : public testing::Test {
protected:
    PictureCommands() {
        project_.Preferences.WorkingDirectory = (folder_ / "").string();
        project_.Preferences.Grid.Type = 0;
        window_.resize(1100, 760);
        window_.show();
        Q_UNUSED(QTest::qWaitForWindowExposed(&window_));
    }

    void Choose(const char* entry) { window_.findChild<QAction*>(entry)->trigger(); }

    /// The view's square as the window draws it.
    QImage Shown() { return window_.Canvas().Picture().copy(window_.Canvas().Frame().Square()); }

    /// The name of a picture file of one colour in the folder.
    std::filesystem::path PictureFile(const char* name, QSize size, QColor colour) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(QString::fromStdString((folder_ / name).string())));
        return folder_ / name;
    }

    /// Chooses the guide's entry and waits for the guide's end.
    void MakeGuide() {
        Choose("mnuReport");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !session_.HasJob(); }, 60000));
    }

    /// In a program of its own, because a program's screens have their density from its start.
    static void RunThisTestOnADenseScreen() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_SCALE_FACTOR", "2");
        QProcess program;
        program.setProcessEnvironment(environment);
        const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
        program.start(QCoreApplication::applicationFilePath(),
                      {QString("--gtest_filter=%1.%2").arg(test->test_suite_name(), test->name())});
        ASSERT_TRUE(program.waitForFinished(60000));
        const std::string output = program.readAllStandardOutput().toStdString();
        EXPECT_EQ(program.exitCode(), 0) << output;
        EXPECT_THAT(output, HasSubstr("[  PASSED  ] 1 test."));
    }

    QWidget& JobBar() { return *window_.findChild<QWidget*>("prgJob")->parentWidget(); }

    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(folder_.Path()))
            names.push_back(file.path().filename().string());
        return names;
    }

    TemporaryFolder folder_;
    ScriptedPrompts user_;
    Session session_{Pieces(), user_, ProjectOf("C160 C151L"), ""};
    Project& project_ = session_.Project;
    frmCorvel window_{session_};
};

TEST_F(PictureCommands, TheBackgroundsDialogAsksForPicturesInTheWorkingDirectory) {
    user_.Files = {std::nullopt};

    Choose("mnuBackgroundSelect");

    ASSERT_EQ(user_.Dialogs.size(), 1U);
    EXPECT_EQ(user_.Dialogs[0].Title, "Select Background Image (334 x 334 pixel)");
    EXPECT_EQ(user_.Dialogs[0].Filter,
              "All files (*.bmp,*.gif,*.jpg)|*.bmp;*.gif;*.jpg|Windows Bitmap (*.bmp)|*.bmp|GIF (*.gif)|*.gif|"
              "JPEG File Interchange Format (*.jpg)|*.jpg");
    EXPECT_EQ(user_.Dialogs[0].Folder, project_.Preferences.WorkingDirectory);
    EXPECT_EQ(user_.Dialogs[0].DefaultName, "");
    EXPECT_FALSE(user_.Dialogs[0].Saving);
}

TEST_F(PictureCommands, ASmallBackgroundLeavesTheRestInTheBackgroundColour) {
    user_.Files = {PictureFile("plan.bmp", {40, 30}, Qt::cyan)};

    Choose("mnuBackgroundSelect");

    EXPECT_EQ(Shown().pixelColor(0, 0), QColor(Qt::cyan));
    EXPECT_EQ(Shown().pixelColor(39, 29), QColor(Qt::cyan));
    EXPECT_EQ(Shown().pixelColor(40, 0), QColor(Qt::white));
    EXPECT_EQ(Shown().pixelColor(0, 30), QColor(Qt::white));
}

TEST_F(PictureCommands, ALargeBackgroundIsCutOffAtTheRightAndTheBottom) {
    user_.Files = {PictureFile("plan.jpg", {3000, 2000}, Qt::cyan)};
    const QSize before = Shown().size();

    Choose("mnuBackgroundSelect");

    EXPECT_EQ(Shown().size(), before);
    EXPECT_EQ(Shown().pixelColor(before.width() - 1, before.height() - 1).blue(), 255);
    EXPECT_LT(Shown().pixelColor(before.width() - 1, before.height() - 1).red(), 10);
}

TEST_F(PictureCommands, CancellingTheDialogLeavesTheEarlierBackgroundAndStillRedraws) {
    user_.Files = {PictureFile("plan.bmp", {40, 30}, Qt::cyan), std::nullopt};
    Choose("mnuBackgroundSelect");
    project_.Preferences.Colours.Background = Rgb(255, 255, 0);

    Choose("mnuBackgroundSelect");

    EXPECT_EQ(Shown().pixelColor(0, 0), QColor(Qt::cyan));
    EXPECT_EQ(Shown().pixelColor(100, 0), QColor(Qt::yellow));
}

TEST_F(PictureCommands, AFileThatIsNoPictureIsToldAndTheEarlierBackgroundStays) {
    WriteBytes(folder_ / "notes.gif", "no picture at all");
    user_.Files = {PictureFile("plan.bmp", {40, 30}, Qt::cyan), folder_ / "notes.gif"};
    Choose("mnuBackgroundSelect");

    Choose("mnuBackgroundSelect");

    ASSERT_EQ(user_.Told.size(), 1U);
    EXPECT_EQ(user_.Told[0].Icon, Icon::Exclamation);
    EXPECT_THAT(user_.Told[0].Text, StartsWith("Invalid picture: " + (folder_ / "notes.gif").string() + ": "));
    EXPECT_EQ(Shown().pixelColor(0, 0), QColor(Qt::cyan));
}

TEST_F(PictureCommands, ClearingTheBackgroundTakesItAway) {
    user_.Files = {PictureFile("plan.bmp", {40, 30}, Qt::cyan)};
    const QAction& clear = *window_.findChild<QAction*>("mnuBackgroundClear");
    EXPECT_FALSE(clear.isEnabled());
    EXPECT_EQ(clear.toolTip(), "There is no picture behind the circuit.");
    Choose("mnuBackgroundSelect");
    EXPECT_TRUE(clear.isEnabled());

    Choose("mnuBackgroundClear");

    EXPECT_EQ(Shown().pixelColor(0, 0), QColor(Qt::white));
    EXPECT_FALSE(clear.isEnabled());
}

TEST_F(PictureCommands, SavingThePictureTwiceOverwritesTheSameFileWithoutAWord) {
    Choose("mnuWMF");
    const std::string first = BytesOf(folder_ / "track.bmp");
    project_.Preferences.Colours.Background = Rgb(255, 255, 0);
    window_.findChild<QAbstractButton*>("cmdRefresh")->click();
    Choose("mnuWMF");

    EXPECT_THAT(first, StartsWith("BM"));
    EXPECT_NE(BytesOf(folder_ / "track.bmp"), first);
    EXPECT_TRUE(user_.Told.empty());
    EXPECT_TRUE(user_.Asked.empty());
}

TEST_F(PictureCommands, TheSavedPictureIsWhatIsShownTheBackgroundToo) {
    user_.Files = {PictureFile("plan.bmp", {40, 30}, Qt::cyan)};
    Choose("mnuBackgroundSelect");

    Choose("mnuWMF");

    const QImage saved(QString::fromStdString((folder_ / "track.bmp").string()));
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), Shown().convertToFormat(QImage::Format_RGB32));
}

TEST_F(PictureCommands, OnADenseScreenTheSavedPictureHasOnePixelPerDeviceIndependentPixel) {
    if (qEnvironmentVariable("QT_SCALE_FACTOR") != "2") return RunThisTestOnADenseScreen();
    user_.Files = {PictureFile("plan.bmp", {40, 30}, Qt::cyan)};
    Choose("mnuBackgroundSelect");
    auto& view = dynamic_cast<CircuitView&>(*window_.findChild<QWidget*>("picCircuit"));
    ASSERT_EQ(view.devicePixelRatioF(), 2);

    Choose("mnuWMF");

    const QImage saved(QString::fromStdString((folder_ / "track.bmp").string()));
    const QRect square = view.Frame().Square();
    EXPECT_EQ(saved.size(), square.size());
    EXPECT_EQ(saved.pixelColor(39, 29), QColor(Qt::cyan));
    EXPECT_EQ(saved.pixelColor(40, 30), QColor(Qt::white));
    EXPECT_EQ(view.Picture().size(), view.size() * 2) << "on the screen it is as fine as the screen";
    EXPECT_EQ(view.Picture().pixelColor(2 * square.topLeft() + QPoint(79, 59)), QColor(Qt::cyan));
    EXPECT_EQ(view.Picture().pixelColor(2 * square.topLeft() + QPoint(80, 60)), QColor(Qt::white));
}

TEST_F(PictureCommands, AMissingWorkingDirectoryIsToldWhenAPictureIsSaved) {
    project_.Preferences.WorkingDirectory = (folder_ / "gone" / "").string();

    Choose("mnuWMF");

    ASSERT_EQ(user_.Told.size(), 1U);
    EXPECT_THAT(user_.Told[0].Text, StartsWith("Path not found: "));
}

TEST_F(PictureCommands, TheGuideIsWrittenAndOpenedAndTheViewStays) {
    const FakeViewer viewer;
    user_.Answers = {Answer::No};
    const QImage before = Shown();

    MakeGuide();

    const std::string page = (folder_ / "guide.html").string();
    ASSERT_EQ(user_.Asked.size(), 1U);
    EXPECT_EQ(user_.Asked[0].Text, "Guide written to " + page + "!\nView now?");
    EXPECT_THAT(viewer.Arguments(), ElementsAre(page));
    const QImage picture(QString::fromStdString((folder_ / "track.gif").string()));
    EXPECT_EQ(picture.size(), before.size());
    EXPECT_EQ(Shown(), before);
}

TEST_F(PictureCommands, ABarTellsHowFarTheGuideIsAndTheWindowStaysUsable) {
    const FakeViewer viewer;
    user_.Answers = {Answer::Yes};
    auto* const bar = window_.findChild<QProgressBar*>("prgJob");
    EXPECT_FALSE(bar->isVisible());
    std::vector<int> seen;
    QObject::connect(bar, &QProgressBar::valueChanged, &window_, [&](int value) {
        EXPECT_TRUE(bar->isVisible());
        EXPECT_EQ(bar->maximum(), 40);
        if (value == 20) window_.findChild<QAbstractButton*>("cmdDelete")->click();
        seen.push_back(value);
    });
    window_.findChild<QListWidget*>("lstTrack")->setCurrentRow(1);

    MakeGuide();

    std::vector<int> upToTheEnd(41);
    std::iota(upToTheEnd.begin(), upToTheEnd.end(), 0);
    EXPECT_EQ(seen, upToTheEnd);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(CodesOf(project_.Design.Circuit.Tracks[0]), "C160") << "deleted while the guide was drawn";
    EXPECT_THAT(BytesOf(folder_ / "guide.html"), HasSubstr("C151L.gif")) << "of the circuit as it was when it began";
    EXPECT_FALSE(viewer.Arguments().empty());
}

TEST_F(PictureCommands, WhileTheGuideIsDrawnItsEntryIsDisabledAndSaysWhy) {
    const FakeViewer viewer;
    user_.Answers = {Answer::Yes};
    const QAction& guide = *window_.findChild<QAction*>("mnuReport");

    Choose("mnuReport");
    EXPECT_FALSE(guide.isEnabled());
    EXPECT_EQ(guide.toolTip(), "The guide is being drawn.");

    EXPECT_TRUE(QTest::qWaitFor([&] { return !session_.HasJob(); }, 60000));
    EXPECT_TRUE(guide.isEnabled());
    EXPECT_EQ(guide.toolTip(), "Write the guide, a page with the layout and every piece in its order");
    EXPECT_FALSE(viewer.Arguments().empty());
}

TEST_F(PictureCommands, CancelEndsTheGuideAndLeavesTheFilesAsTheyWere) {
    WriteBytes(folder_ / "C151L.gif", "an earlier guide's picture");
    WriteBytes(folder_ / "guide.html", "an earlier guide");
    auto* const cancel = window_.findChild<QAbstractButton*>("cmdCancelJob");
    EXPECT_FALSE(cancel->isVisible());

    Choose("mnuReport");
    EXPECT_TRUE(cancel->isVisible());
    QTest::mouseClick(cancel, Qt::LeftButton);

    EXPECT_FALSE(session_.HasJob());
    EXPECT_FALSE(cancel->isVisible());
    EXPECT_TRUE(window_.findChild<QAction*>("mnuReport")->isEnabled());
    QTest::qWait(200); // what the job has posted comes now
    EXPECT_THAT(FilesInFolder(), UnorderedElementsAre("C151L.gif", "guide.html"));
    EXPECT_EQ(BytesOf(folder_ / "C151L.gif"), "an earlier guide's picture");
    EXPECT_EQ(BytesOf(folder_ / "guide.html"), "an earlier guide");
    EXPECT_THAT(user_.Told, IsEmpty());
    EXPECT_TRUE(user_.Asked.empty());
}

TEST_F(PictureCommands, TheGuideCanBeMadeAgainAfterItWasCancelled) {
    const FakeViewer viewer;
    user_.Answers = {Answer::Yes};
    Choose("mnuReport");
    QTest::mouseClick(window_.findChild<QAbstractButton*>("cmdCancelJob"), Qt::LeftButton);

    MakeGuide();

    EXPECT_THAT(user_.Asked, SizeIs(1));
    EXPECT_THAT(viewer.Arguments(), ElementsAre((folder_ / "guide.html").string()));
}

TEST_F(PictureCommands, ClosingTheWindowAsksWhetherTheGuideMayBeLost) {
    user_.Answers = {Answer::Cancel, Answer::Ok};
    Choose("mnuReport");

    EXPECT_FALSE(window_.close());
    EXPECT_TRUE(session_.HasJob());
    EXPECT_TRUE(window_.isVisible());
    EXPECT_TRUE(window_.close());

    EXPECT_FALSE(session_.HasJob());
    ASSERT_EQ(user_.Asked.size(), 2U);
    EXPECT_EQ(user_.Asked[1].Text, "The guide is being drawn. It will be lost if you proceed.");
    EXPECT_THAT(FilesInFolder(), IsEmpty());
}

TEST_F(PictureCommands, TheBarIsGoneWhenTheGuideAsksWhetherToViewIt) {
    const FakeViewer viewer;
    user_.Answers = {Answer::Yes};
    bool barWasVisible = true;
    user_.WhenAsked = [&] { barWasVisible = JobBar().isVisible(); };

    MakeGuide();

    EXPECT_FALSE(barWasVisible);
    EXPECT_FALSE(viewer.Arguments().empty());
}

TEST_F(PictureCommands, TheGuideEndsWithTheWindow) {
    Session session(Pieces(), user_, project_, "");
    {
        frmCorvel window(session);
        window.findChild<QAction*>("mnuReport")->trigger();
        EXPECT_TRUE(session.HasJob());
    }

    EXPECT_FALSE(session.HasJob());
    QTest::qWait(200);
    EXPECT_THAT(FilesInFolder(), IsEmpty());
    EXPECT_TRUE(user_.Asked.empty());
}

TEST_F(PictureCommands, AGuideThatCannotBeDrawnLeavesNoPicture) {
    session_.PicturePixels = 0; // a picture of no pixels cannot be made

    MakeGuide();

    EXPECT_THAT(user_.Told, ElementsAre(Message{Icon::Exclamation, "Problem with BMP2GIF.OCX!"}));
    EXPECT_THAT(FilesInFolder(), IsEmpty());
    EXPECT_FALSE(JobBar().isVisible());
}

TEST_F(PictureCommands, AFailedPictureEndsTheGuideWithItsMessage) {
    std::filesystem::create_directory(folder_ / "C152R.gif");

    MakeGuide();

    EXPECT_THAT(user_.Told, ElementsAre(Message{Icon::Exclamation, "Problem with BMP2GIF.OCX!"}));
    EXPECT_FALSE(JobBar().isVisible());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "guide.html"));
}

TEST_F(PictureCommands, AMissingWorkingDirectoryIsToldBeforeTheGuideIsDrawn) {
    project_.Preferences.WorkingDirectory = (folder_ / "gone" / "").string();

    Choose("mnuReport");

    EXPECT_FALSE(session_.HasJob());
    ASSERT_EQ(user_.Told.size(), 1U);
    EXPECT_THAT(user_.Told[0].Text, StartsWith("Path not found: "));
}

TEST_F(PictureCommands, TheManualBesideTheCircuitsIsOpened) {
    const FakeViewer viewer;
    std::filesystem::create_directory(folder_ / "manual");
    WriteBytes(folder_ / "manual" / "help.html", "the manual");

    Choose("mnuManual");

    EXPECT_THAT(viewer.Arguments(), ElementsAre((folder_ / "manual" / "help.html").string()));
    EXPECT_THAT(user_.Told, IsEmpty());
}

TEST_F(PictureCommands, AManualThatIsNowhereIsToldAndNoViewerIsStarted) {
    const FakeViewer viewer;

    Choose("mnuManual");

    const std::string page = (folder_ / "manual" / "help.html").string();
    EXPECT_THAT(user_.Told,
                ElementsAre(Message{Icon::Exclamation, "File not found: the manual is neither beside your circuits, " +
                                                           page + ", nor where Pistaro is installed"}));
    QTest::qWait(200);
    EXPECT_FALSE(viewer.WasStarted());
}

TEST_F(PictureCommands, AboutStaysBesideTheWindowAndComesOnce) {
    Choose("mnuAbout");
    Choose("mnuAbout");

    const QList<QDialog*> boxes = window_.findChildren<QDialog*>("frmAbout");
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0]->isVisible());
    EXPECT_FALSE(boxes[0]->isModal());
    EXPECT_EQ(boxes[0]->findChild<QTimer*>("timTimer"), nullptr);
}

} // namespace
} // namespace pistaro
