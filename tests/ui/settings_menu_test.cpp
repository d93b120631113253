// The settings menu: each dialog opens from its entry, and the circuit is redrawn after it.
#include "window_fixture.h"

#include "support/settings_on_disk.h"
#include "ui/frmStock.h"

#include <QTimer>

namespace pistaro {
namespace {

class SettingsMenu : public WindowTest {
protected:
    SettingsMenu() {
        WriteBytes(folder_ / "corvel.ini", WholeSettings());
        Open(ProjectOf("C160 C160"), folder_ / "corvel.ini");
    }

    /// Chooses an entry and works on the modal dialog that opens.
    void ChooseAndThen(const std::string& entry, const std::function<void(QDialog&)>& work) {
        bool worked = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            worked = true;
            work(*dialog);
        });
        Entry(entry).trigger();
        EXPECT_TRUE(worked);
    }

    QColor DrawnAt(int x, int y) { return Picture().grab().toImage().pixelColor(x, y); }

    TemporaryFolder folder_;
};

void PressIn(QDialog& dialog, const char* name) {
    QTest::mouseClick(dialog.findChild<QAbstractButton*>(name), Qt::LeftButton);
}

TEST_F(SettingsMenu, ColoursAreDrawnAfterApply) {
    ChooseAndThen("mnuColors", [](QDialog& colours) {
        QTimer::singleShot(0, qApp, [] {
            QWidget* const palette = QApplication::activeModalWidget();
            QTest::mouseClick(palette->findChildren<QAbstractButton*>("cmdCol")[16], Qt::LeftButton);
        });
        PressIn(colours, "cmdBackground");
        PressIn(colours, "cmdApply");
    });
    EXPECT_EQ(DrawnAt(3, 3), QColor(255, 0, 0));
}

TEST_F(SettingsMenu, TheDrawAreaChangesTheViewThatIsDrawn) {
    const QImage before = Picture().grab().toImage();
    ChooseAndThen("mnuDrawArea", [](QDialog& area) {
        area.findChild<QLineEdit*>("txtZoomVal")->setText("150");
        PressIn(area, "cmdApply");
    });
    EXPECT_EQ(Project.Design.View.Width, 150);
    EXPECT_NE(Picture().grab().toImage(), before);
}

TEST_F(SettingsMenu, LooseTrackStaysBesideTheWindowAndRecoloursPiecesWhenSaved) {
    Entry("mnuTrackStock").trigger();
    auto* const stock = Window->findChild<frmStock*>();
    ASSERT_NE(stock, nullptr);
    EXPECT_TRUE(stock->isVisible());
    Entry("mnuTrackStock").trigger();
    EXPECT_EQ(Window->findChildren<frmStock*>().size(), 1);

    Click("cmdElement", "C159"); // the window stays usable
    EXPECT_EQ(Codes(), "C160 C160 C159");
    const QImage before = Picture().grab().toImage();
    for (auto* const box : stock->findChildren<QLineEdit*>("txtDsp")) {
        if (box->property("Tag") == "C160") box->setText("2");
    }
    QTest::mouseClick(stock->findChild<QAbstractButton*>("cmdSaveTrackStock"), Qt::LeftButton);

    EXPECT_EQ(Prompts.Told, (std::vector<Message>{{Icon::Information, "Settings saved."}}));
    EXPECT_NE(Picture().grab().toImage(), before);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Window->findChild<frmStock*>(), nullptr);
}

} // namespace
} // namespace pistaro
