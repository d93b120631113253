// The About box and the opening window, through their controls and their timer.
#include "ui/frmAbout.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(FrmAbout, ShowsTheProgramsNameItsVersionAndTheNotice) {
    frmAbout about(nullptr);
    EXPECT_EQ(about.findChild<QLabel*>("lblTitle")->text(), "PISTARO");
    EXPECT_EQ(about.findChild<QLabel*>("lblVersion")->text(), "version 1.0.0");
    EXPECT_FALSE(about.findChild<QLabel*>("lblNotice")->text().isEmpty());
}

TEST(FrmAbout, FromTheMenuKeepsItsButtonAndNoTimerRuns) {
    QPointer<frmAbout> about = new frmAbout(nullptr);
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
    QPointer<frmAbout> splash = new frmAbout([&] { shown = true; });
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
