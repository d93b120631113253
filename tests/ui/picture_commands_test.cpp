// Background, saved picture, guide, manual and About, through the main window's menu entries.
#include "support/chain.h"
#include "support/fake_viewer.h"
#include "support/scripted_prompts.h"
#include "ui/circuit_view.h"
#include "ui/frmAbout.h"
#include "ui/frmCorvel.h"

#include <QAction>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class PictureCommands : public testing::Test {
protected:
    PictureCommands() {
        project_.WorkingDirectory = (folder_ / "").string();
        project_.Grid.Type = 0;
        window_.resize(1100, 760);
        window_.show();
        Q_UNUSED(QTest::qWaitForWindowExposed(&window_));
    }

    void Choose(const char* entry) { window_.findChild<QAction*>(entry)->trigger(); }

    QImage Shown() { return window_.findChild<QWidget*>("picCircuit")->grab().toImage(); }

    /// The name of a picture file of one colour in the folder.
    std::filesystem::path PictureFile(const char* name, QSize size, QColor colour) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(QString::fromStdString((folder_ / name).string())));
        return folder_ / name;
    }

    TemporaryFolder folder_;
    Project project_ = ProjectOf("C160 C151L");
    ScriptedPrompts user_;
    frmCorvel window_{project_, user_};
};

TEST_F(PictureCommands, TheBackgroundsDialogAsksForPicturesInTheWorkingDirectory) {
    user_.Files = {std::nullopt};

    Choose("mnuBackgroundSelect");

    ASSERT_EQ(user_.Dialogs.size(), 1U);
    EXPECT_EQ(user_.Dialogs[0].Title, "Select Background Image (334 x 334 pixel)");
    EXPECT_EQ(user_.Dialogs[0].Filter,
              "All files (*.bmp,*.gif,*.jpg)|*.bmp;*.gif;*.jpg|Windows Bitmap (*.bmp)|*.bmp|GIF (*.gif)|*.gif|"
              "JPEG File Interchange Format (*.jpg)|*.jpg");
    EXPECT_EQ(user_.Dialogs[0].Folder, project_.WorkingDirectory);
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
    project_.Colours.Background = Rgb(255, 255, 0);

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
    EXPECT_EQ(user_.Told[0].MessageIcon, Icon::Exclamation);
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
    project_.Colours.Background = Rgb(255, 255, 0);
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

TEST_F(PictureCommands, AMissingWorkingDirectoryIsToldWhenAPictureIsSaved) {
    project_.WorkingDirectory = (folder_ / "gone" / "").string();

    Choose("mnuWMF");

    ASSERT_EQ(user_.Told.size(), 1U);
    EXPECT_THAT(user_.Told[0].Text, StartsWith("Path not found: "));
}

TEST_F(PictureCommands, TheGuideIsWrittenAndOpenedAndTheViewStays) {
    const FakeViewer viewer;
    user_.Answers = {Answer::No};
    const QImage before = Shown();

    Choose("mnuReport");

    const std::string page = (folder_ / "guide.html").string();
    ASSERT_EQ(user_.Asked.size(), 1U);
    EXPECT_EQ(user_.Asked[0].Text, "Guide written to " + page + "!\nView now?");
    EXPECT_THAT(viewer.Arguments(), ElementsAre(page));
    const QImage picture(QString::fromStdString((folder_ / "track.gif").string()));
    EXPECT_EQ(picture.size(), before.size());
    EXPECT_EQ(Shown(), before);
}

TEST_F(PictureCommands, ADialogTellsHowFarTheGuideIsAndTheWindowStaysAlive) {
    const FakeViewer viewer;
    user_.Answers = {Answer::Yes};
    int seen = 0;
    int highest = -1;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const auto* const dialog = window_.findChild<QProgressDialog*>("frmProgress");
        if (dialog == nullptr || !dialog->isVisible()) return;
        ++seen;
        highest = std::max(highest, dialog->value());
        EXPECT_EQ(dialog->maximum(), 40);
    });
    watch.start(0);

    Choose("mnuReport");

    EXPECT_GT(seen, 10);
    EXPECT_GT(highest, 20);
    EXPECT_EQ(window_.findChild<QProgressDialog*>("frmProgress"), nullptr);
    EXPECT_FALSE(viewer.Arguments().empty());
}

TEST_F(PictureCommands, TheGuidesDialogCannotBeClosedBeforeTheGuideIsWritten) {
    const FakeViewer viewer;
    user_.Answers = {Answer::Yes};
    bool tried = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        auto* const dialog = window_.findChild<QProgressDialog*>("frmProgress");
        if (tried || dialog == nullptr || !dialog->isVisible()) return;
        tried = true;
        QTest::keyClick(dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_FALSE(dialog->close());
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_LT(dialog->value(), 40);
    });
    watch.start(0);

    Choose("mnuReport");

    EXPECT_TRUE(tried);
    EXPECT_EQ(window_.findChild<QProgressDialog*>("frmProgress"), nullptr);
}

TEST_F(PictureCommands, AFailedPictureEndsTheGuideWithItsMessage) {
    std::filesystem::create_directory(folder_ / "C152R.gif");

    Choose("mnuReport");

    EXPECT_THAT(user_.Told, ElementsAre(Message{Icon::Exclamation, "Problem with BMP2GIF.OCX!"}));
    EXPECT_EQ(window_.findChild<QProgressDialog*>("frmProgress"), nullptr);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "guide.html"));
}

TEST_F(PictureCommands, TheManualIsOpenedInAWorkingDirectoryThatHoldsNoneToo) {
    const FakeViewer viewer;

    Choose("mnuManual");

    EXPECT_THAT(viewer.Arguments(), ElementsAre((folder_ / "manual" / "help.html").string()));
    EXPECT_TRUE(user_.Told.empty());
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
