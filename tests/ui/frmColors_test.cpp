// The colour dialog and its palette, pressed through their controls.
#include "ui/frmColors.h"

#include "dialog_fixture.h"

#include <QScreen>

namespace pistaro {
namespace {

class FrmColors : public DialogTest<frmColors> {
protected:
    /// Presses a colour button and, in the palette that opens, what `look` presses.
    void PressAndThen(const char* name, const std::function<void(QDialog&)>& look) const {
        bool looked = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* const palette = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (palette == nullptr || palette->objectName() != "frmColorSelection") return;
            looked = true;
            look(*palette);
        });
        Press(name);
        EXPECT_TRUE(looked);
    }

    /// Chooses the palette's pure red, the first colour of its third row.
    void ChooseRed(const char* name) const {
        PressAndThen(name, [](QDialog& palette) {
            for (auto* const cmdCol : palette.findChildren<QAbstractButton*>("cmdCol")) {
                if (cmdCol->property("Index") == 16) return QTest::mouseClick(cmdCol, Qt::LeftButton);
            }
        });
    }

    QColor BackColour(const char* name) const { return Find<QWidget>(name).palette().color(QPalette::Button); }

    /// The preview's colour at a place of its own scale of 60 x 60.
    QColor PreviewAt(double x, double y) const {
        auto& preview = Find<QWidget>("picExample");
        const QImage picture = preview.grab().toImage();
        return picture.pixelColor(static_cast<int>(x * picture.width() / 60),
                                  static_cast<int>(y * picture.height() / 60));
    }
};

const QColor Red(255, 0, 0);

TEST_F(FrmColors, ShowsEachSlotAsTheBackColourOfItsButton) {
    project_.Preferences.Colours = InitialSettings(Pieces()).Preferences.Colours;
    Open();

    EXPECT_EQ(BackColour("cmdBackground"), QColor(255, 255, 255));
    EXPECT_EQ(BackColour("cmdInactive"), QColor(128, 128, 128));
    EXPECT_EQ(BackColour("cmdRail"), QColor(0, 0, 0));
    EXPECT_EQ(BackColour("cmdNonOwned"), QColor(255, 0, 0));
    EXPECT_EQ(BackColour("cmdOwned"), QColor(0, 0, 255));
    EXPECT_EQ(BackColour("cmdActive"), QColor(0, 128, 0));
}

TEST_F(FrmColors, PreviewsALineForEachColourOnTheBackground) {
    project_.Preferences.Colours = InitialSettings(Pieces()).Preferences.Colours;
    Open();

    EXPECT_EQ(PreviewAt(30, 2), QColor(255, 255, 255));
    EXPECT_EQ(PreviewAt(3, 7), QColor(255, 255, 255));
    EXPECT_EQ(PreviewAt(30, 7), QColor(0, 0, 0));
    EXPECT_EQ(PreviewAt(30, 17), QColor(255, 0, 0));
    EXPECT_EQ(PreviewAt(30, 27), QColor(0, 0, 255));
    EXPECT_EQ(PreviewAt(30, 37), QColor(128, 128, 128));
    EXPECT_EQ(PreviewAt(30, 47), QColor(0, 128, 0));
    EXPECT_EQ(PreviewAt(57, 47), QColor(255, 255, 255));
}

TEST_F(FrmColors, ThePreviewsLinesRunFrom5To55InTheirColours) {
    project_.Preferences.Colours = InitialSettings(Pieces()).Preferences.Colours;
    Open();

    const std::pair<double, QColor> lines[] = {{7, QColor(0, 0, 0)},
                                               {17, QColor(255, 0, 0)},
                                               {27, QColor(0, 0, 255)},
                                               {37, QColor(128, 128, 128)},
                                               {47, QColor(0, 128, 0)}};
    const QColor background(255, 255, 255);
    for (const auto& [y, colour] : lines) {
        SCOPED_TRACE(y);
        EXPECT_EQ(PreviewAt(4.4, y), background);
        EXPECT_EQ(PreviewAt(5.4, y), colour);
        EXPECT_EQ(PreviewAt(54.6, y), colour);
        EXPECT_EQ(PreviewAt(55.6, y), background);
        EXPECT_EQ(PreviewAt(30, y - 1), background);
        EXPECT_EQ(PreviewAt(30, y + 1), background);
    }
}

TEST_F(FrmColors, ThePreviewOnTheScreenFollowsAChangedButtonAtOnce) {
    auto& preview = Find<QWidget>("picExample");
    const auto onScreen = [&](int x, int y) {
        const QPixmap screen = dialog_->screen()->grabWindow(dialog_->winId());
        return screen.toImage().pixelColor(preview.mapTo(dialog_.get(), QPoint(x, y)));
    };
    QApplication::processEvents();
    EXPECT_EQ(onScreen(105, 5), QColor(1, 0, 0));

    ChooseRed("cmdBackground");
    QApplication::processEvents();

    EXPECT_EQ(onScreen(105, 5), Red);
    EXPECT_EQ(project_.Preferences.Colours.Background, 1);
}

TEST_F(FrmColors, PreviewReflectsChangedButtonsBeforeApply) {
    ChooseRed("cmdBackground");

    EXPECT_EQ(BackColour("cmdBackground"), Red);
    EXPECT_EQ(PreviewAt(30, 2), Red);
    EXPECT_EQ(project_.Preferences.Colours.Background, 1);
}

TEST_F(FrmColors, CancellingThePaletteLeavesTheButtonsColour) {
    PressAndThen("cmdRail", [](QDialog& palette) {
        QTest::mouseClick(palette.findChild<QAbstractButton*>("cmdCancel"), Qt::LeftButton);
    });
    EXPECT_EQ(BackColour("cmdRail"), QColor(3, 0, 0));
    PressAndThen("cmdRail", [](QDialog& palette) { QTest::keyClick(&palette, Qt::Key_Escape); });
    EXPECT_EQ(BackColour("cmdRail"), QColor(3, 0, 0));
}

TEST_F(FrmColors, ColoursAreChosenByKeysToo) {
    QTimer::singleShot(0, qApp, [] {
        QWidget* const palette = QApplication::activeModalWidget();
        ASSERT_EQ(palette->objectName(), "frmColorSelection");
        palette->findChildren<QWidget*>("cmdCol")[16]->setFocus();
        QTest::keyClick(palette->focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(palette->isVisible());
    });
    Find<QWidget>("cmdRail").setFocus();
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(BackColour("cmdRail"), Red);
    EXPECT_TRUE(IsOpen());

    Find<QWidget>("cmdCancel").setFocus();
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(project_.Preferences.Colours.Rail, 3);
}

TEST_F(FrmColors, TheArrowKeysLeadToThePalettesColourThatLiesThere) {
    PressAndThen("cmdRail", [](QDialog& palette) {
        QApplication::setActiveWindow(&palette);
        palette.findChildren<QWidget*>("cmdCol")[16]->setFocus();
        const auto go = [&](Qt::Key key) {
            QTest::keyClick(palette.focusWidget(), key);
            return palette.focusWidget()->property("Index").toInt();
        };
        EXPECT_EQ(go(Qt::Key_Down), 24) << "eight colours a row";
        EXPECT_EQ(go(Qt::Key_Right), 25);
        EXPECT_EQ(go(Qt::Key_Up), 17);
        EXPECT_EQ(go(Qt::Key_Left), 16);
        palette.reject();
    });
}

TEST_F(FrmColors, ApplyTakesTheColoursAndCloses) {
    ChooseRed("cmdActive");
    Press("cmdApply");

    EXPECT_EQ(project_.Preferences.Colours.Active, 255);
    EXPECT_EQ(project_.Preferences.Colours.Owned, 5);
    EXPECT_EQ(OnDisk(), WholeSettings());
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmColors, SaveWithoutApplyChangesTheFileButNotTheDrawing) {
    ChooseRed("cmdOwned");
    Press("cmdSave");

    EXPECT_EQ(OnDisk(), Replaced(WholeSettings(), "Owned=5", "Owned=255"));
    EXPECT_EQ(prompts_.Told, saved_);
    EXPECT_EQ(project_.Preferences.Colours.Owned, 5);
    EXPECT_TRUE(IsOpen());
}

TEST_F(FrmColors, KeepsWhatAColourSaysBeyondTheScreen) {
    project_.Preferences.Colours.Rail = -2147483643;
    Open();
    Press("cmdSave");
    EXPECT_EQ(OnDisk(), Replaced(WholeSettings(), "Rail=3", "Rail=-2147483643"));
}

TEST_F(FrmColors, CancelAndEscapeChangeNothing) {
    for (const bool escape : {false, true}) {
        Open();
        ChooseRed("cmdRail");
        if (escape) {
            QTest::keyClick(dialog_.get(), Qt::Key_Escape);
        } else {
            Press("cmdCancel");
        }
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(project_.Preferences.Colours.Rail, 3);
        EXPECT_EQ(OnDisk(), WholeSettings());
    }
}

TEST_F(FrmColors, TellsOfAFolderInPlaceOfTheFileAndStaysOpen) {
    OpenWithSettingsAt(folder_.Path());
    Press("cmdSave");
    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_EQ(prompts_.Told[0].Icon, Icon::Exclamation);
    EXPECT_EQ(prompts_.Told[0].Text, "Path/File access error: " + folder_.Path().string() + ": is a folder");
    EXPECT_TRUE(IsOpen());
}

TEST_F(FrmColors, OffersNoSaveWithoutASettingsFile) {
    OpenWithSettingsAt("");
    EXPECT_FALSE(Find<QAbstractButton>("cmdSave").isEnabled());
}

TEST_F(FrmColors, ClipsNothing) { ExpectNothingClipped(); }

} // namespace
} // namespace pistaro
