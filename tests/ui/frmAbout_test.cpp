// The About box and the opening window, through their controls and their timer.
#include "support/pieces.h"
#include "ui/frmAbout.h"

#include <QApplication>
#include <QLabel>
#include <QPalette>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>

namespace pistaro {
namespace {

TEST(FrmAbout, ShowsTheProgramsNameItsVersionAndTheNotice) {
    frmAbout about(Pieces(), nullptr);
    EXPECT_EQ(about.findChild<QLabel*>("lblTitle")->text(), "PISTARO");
    EXPECT_EQ(about.findChild<QLabel*>("lblVersion")->text(), "version 1.0.0");
    EXPECT_FALSE(about.findChild<QLabel*>("lblNotice")->text().isEmpty());
}

TEST(FrmAbout, IsReadableInTheColoursOfADarkSystem) {
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(58, 58, 58));
    dark.setColor(QPalette::PlaceholderText, QColor(255, 255, 255, 170));
    QApplication::setPalette(dark);
    frmAbout about(Pieces(), nullptr);
    about.show();

    for (const char* const name : {"lblTitle", "lblWhat", "lblVersion", "lblNotice"}) {
        const QLabel* const label = about.findChild<QLabel*>(name);
        const QImage words = about.grab({label->mapTo(&about, QPoint(0, 0)), label->size()}).toImage();
        int darkest = 255;
        int lightest = 0;
        for (int y = 0; y < words.height(); ++y) {
            for (int x = 0; x < words.width(); ++x) {
                darkest = std::min(darkest, words.pixelColor(x, y).lightness());
                lightest = std::max(lightest, words.pixelColor(x, y).lightness());
            }
        }
        EXPECT_GT(lightest - darkest, 100) << name;
    }
    QApplication::setPalette(light);
}

TEST(FrmAbout, FromTheMenuKeepsItsButtonAndNoTimerRuns) {
    QPointer<frmAbout> about = new frmAbout(Pieces(), nullptr);
    about->show();

    QTest::qWait(1700);

    EXPECT_TRUE(about->isVisible());
    EXPECT_FALSE(about->isModal());
    EXPECT_TRUE(about->findChild<QPushButton*>("cmdOK")->isVisible());
    EXPECT_EQ(about->findChild<QTimer*>("timTimer"), nullptr);

    QTest::mouseClick(about->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);

    EXPECT_TRUE(QTest::qWaitFor([&] { return about.isNull(); }));
}

TEST(FrmAbout, AtTheStartHasNoButtonAndShowsTheMainWindowWhenItsTimerFires) {
    bool shown = false;
    QPointer<frmAbout> splash = new frmAbout(Pieces(), [&] { shown = true; });
    splash->show();
    auto* const timer = splash->findChild<QTimer*>("timTimer");

    EXPECT_FALSE(splash->findChild<QPushButton*>("cmdOK")->isVisible());
    EXPECT_EQ(timer->interval(), 1500);
    EXPECT_TRUE(timer->isActive());
    QTest::keyClick(splash, Qt::Key_Escape);
    QTest::qWait(1000);
    EXPECT_FALSE(shown);
    EXPECT_TRUE(splash->isVisible());

    EXPECT_TRUE(QTest::qWaitFor([&] { return shown && splash.isNull(); }));
}

} // namespace
} // namespace pistaro
