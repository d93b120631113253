// The list of findings: what is shown of each, however narrow it is and however many they are.
#include "imaging/painter_surface.h"
#include "ui/findings_overlay.h"
#include "ui/panels_fixture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace pistaro {
namespace {

class ChecksList : public Panels {
protected:
    QTreeWidget& List() { return Tree("lstChecks"); }

    /// The line that begins so.
    QTreeWidgetItem& Line(const char* text) {
        for (QTreeWidgetItem* const line : List().findItems(text, Qt::MatchStartsWith | Qt::MatchRecursive, 1))
            return *line;
        throw std::logic_error(std::string("there is no finding ") + text);
    }

    void ClickOn(QTreeWidgetItem& line) {
        List().scrollToItem(&line);
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(&line).center());
    }

    /// Seven joints at which two systems meet.
    void OpenOnAMix() {
        Open(ProjectOf("C160 N10102 C160 N10102 C160 N10102 C160 N10102"));
        ShowPanel("mnuChecks");
    }
};

TEST_F(ChecksList, AnOpenTrackIsShownWithBothItsEnds) {
    std::string straights;
    for (int i = 0; i < 12; ++i)
        straights += "C160 ";
    Open(ProjectOf(straights)); // 420 cm
    Session->Do([&] { Project.Design.View.Width = 100; });
    ShowPanel("mnuChecks");

    ClickOn(Line("The track does not close"));

    const ViewRectangle covered = Canvas().Frame().Covered(Project.Design.View);
    EXPECT_LT(covered.ViewBottom, 0);
    EXPECT_GT(covered.ViewTop, 420);
    EXPECT_LT(covered.ViewLeft, 0);
    EXPECT_GT(covered.ViewRight, 15.5);
}

TEST_F(ChecksList, OffersWhatMendsTheChosenFinding) {
    Open(ProjectOf("C160 C151R C151R C151R C151R C160 C151R C151R C151R C151R", "C160 C160 C160"));
    ShowPanel("mnuChecks");
    EXPECT_FALSE(Find<QWidget>("cmdCure").isVisible());

    ClickOn(Line("The track does not close"));
    EXPECT_EQ(Button("cmdCure").text(), "&Close the Loop");
    EXPECT_TRUE(Find<QWidget>("cmdCure").isEnabled());
    ClickOn(Line("The lanes differ"));
    EXPECT_EQ(Button("cmdCure").text(), "&Balance Lanes…");
    Click("cmdCure");

    EXPECT_TRUE(Find<QWidget>("fraBalance").isVisible());
}

TEST_F(ChecksList, ANearGapIsShownWithoutZooming) {
    Open(ProjectOf("C160 C151R C151R C151R C151R C160 C151R C151R C151R"));
    Session->Do([&] {
        Project.Design.View.Width = 200;
        Project.Design.View.MidX = 900;
    });
    ShowPanel("mnuChecks");

    ClickOn(Line("The track does not close"));

    const ViewRectangle covered = Canvas().Frame().Covered(Project.Design.View);
    EXPECT_EQ(Project.Design.View.Width, 200);
    EXPECT_LT(covered.ViewLeft, 0);
    EXPECT_GT(covered.ViewRight, 15.5);
}

TEST_F(ChecksList, AFindingIsWrappedWhereTheListIsNarrow) {
    Open(ProjectOf("C160 C160 C160"));
    ShowPanel("mnuChecks");
    auto& dock = Find<QDockWidget>("fraChecks");
    dock.setFloating(true);
    const auto heightAt = [&](int width) {
        dock.resize(width, 300);
        QTest::qWait(10);
        return List().visualItemRect(&Line("The track does not close")).height();
    };
    const int letters = List().fontMetrics().height();
    EXPECT_LT(heightAt(900), 2 * letters);

    const int height = heightAt(260);

    EXPECT_LE(dock.width(), 260);
    const int margin = List().style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &List()) + 1;
    const int width = List().columnWidth(1) - 2 * margin;
    const QRect needed = List().fontMetrics().boundingRect(QRect(0, 0, width, 1000), Qt::TextWordWrap,
                                                           Line("The track does not close").text(1));
    EXPECT_GT(needed.height(), letters) << "it takes several lines";
    EXPECT_GT(height, needed.height() - letters / 2) << "no line is missing; each is rounded on its own here";
    EXPECT_LE(needed.width(), width);
}

TEST_F(ChecksList, LanesThatDifferAreShownByTheCurves) {
    Open(ProjectOf("C160 C151R C151R C151R C151R C160 C151R C151R C151R C151R"));
    ShowPanel("mnuChecks");

    ClickOn(Line("The lanes differ"));

    int tinted = 0;
    for (const OverlayItem& item : Canvas().OverlayOf("checks"))
        tinted += std::holds_alternative<OverlayArea>(item);
    EXPECT_EQ(tinted, 8) << "all curves, and no straight";
    EXPECT_EQ(Project.EditState.CurrentElement[0], 1) << "the first of them is selected";
    const ViewRectangle covered = Canvas().Frame().Covered(Project.Design.View);
    EXPECT_GT(covered.ViewTop, 35 + 37) << "all of them are in sight";
    EXPECT_LT(covered.ViewBottom, -37);
}

TEST_F(ChecksList, ManyFindingsOfARuleStandBelowAHeading) {
    OpenOnAMix();
    QTreeWidgetItem& heading = Line("A joint of two systems");
    EXPECT_EQ(heading.text(1).toStdString(), "A joint of two systems without the adapter (7)");
    EXPECT_EQ(heading.text(0), "1") << "the track on which they are";
    EXPECT_EQ(heading.childCount(), 7);
    EXPECT_FALSE(heading.isExpanded());
    const int selected = Project.EditState.SelectedElement();
    EXPECT_EQ(Text("lblChecks"), "8 errors, 0 warnings, 2 pieces of advice");

    ClickOn(heading);

    EXPECT_TRUE(heading.isExpanded());
    std::ptrdiff_t tinted = 0;
    for (const OverlayItem& item : Canvas().OverlayOf("checks")) {
        const auto* const area = std::get_if<OverlayArea>(&item);
        tinted += area != nullptr && !area->Hatched;
    }
    EXPECT_EQ(tinted, 14) << "both pieces at each of the seven joints";
    EXPECT_EQ(Project.EditState.SelectedElement(), selected) << "none of them is meant more than the others";
}

TEST_F(ChecksList, ACrossingOfTwoRunsIsOneLine) {
    const std::string straights = "C160 C160 C160 C160 C160 C160 C160";
    pistaro::Project project = ProjectOf(straights, straights);
    project.Design.Circuit.Tracks[1].TrackStartX = project.Design.Circuit.Tracks[0].TrackStartX + 5;
    Open(std::move(project));
    ShowPanel("mnuChecks");
    EXPECT_TRUE(Text("lblChecks").starts_with("3 errors")) << "both tracks are open";
    const auto overlays = [this](bool hatched) {
        return std::ranges::count_if(Canvas().OverlayOf("checks"), [&](const OverlayItem& item) {
            const auto* const area = std::get_if<OverlayArea>(&item);
            return area != nullptr && area->Hatched == hatched;
        });
    };
    EXPECT_EQ(overlays(true), 7) << "all that they share is marked";

    ClickOn(Line("C160 (0) to C160 (6) and C160 (0) to C160 (6) of track 2 overlap by "));

    EXPECT_EQ(Project.EditState.CurrentElement[0], 0);
    EXPECT_EQ(Project.EditState.RunFrom, 6);
    EXPECT_EQ(overlays(false), 14) << "the pieces of both";
}

TEST_F(ChecksList, PutsInWhatATrackLacks) {
    Open(ProjectOf("C160 C159 C160"));
    ShowPanel("mnuChecks");

    ClickOn(Line("The track has no lap counter"));
    EXPECT_EQ(Button("cmdCure").text(), "Put One In");
    EXPECT_EQ(Button("cmdCure").toolTip(), "C277 in place of C159 (1)");
    Click("cmdCure");
    QTest::qWait(1);

    EXPECT_EQ(Codes(), "C160 C277 C160");
    EXPECT_EQ(Project.EditState.CurrentElement[0], 1) << "what is new is selected";
    EXPECT_TRUE(List().findItems("The track has no lap counter", Qt::MatchStartsWith, 1).isEmpty());
    Entry("mnuUndo").trigger();
    EXPECT_EQ(Codes(), "C160 C159 C160");
}

TEST_F(ChecksList, OffersNothingWhereNoPieceFits) {
    Open(ProjectOf("C160 C151L C160"));
    ShowPanel("mnuChecks");

    ClickOn(Line("The track has no lap counter"));

    EXPECT_FALSE(Find<QWidget>("cmdCure").isVisible());
}

TEST_F(ChecksList, MovesATrackIntoTheRoom) {
    pistaro::Project project = ProjectOf("C160 C160 C160");
    project.Design.Room.Points = {{50, 0, 0}, {250, 0, 1}, {250, 200, 1}, {50, 200, 1}, {50, 0, 1}};
    Open(std::move(project));
    ShowPanel("mnuChecks");

    ClickOn(Line("C160 (0) to C160 (2) leave the room"));
    EXPECT_EQ(Button("cmdCure").text(), "Move into the Room");
    Click("cmdCure");
    QTest::qWait(1);

    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartX, 55);
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartY, 5);
    EXPECT_TRUE(List().findItems("leave", Qt::MatchContains, 1).isEmpty());
    Entry("mnuUndo").trigger();
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartX, 0);
}

TEST_F(ChecksList, HasMoreLinesInAHigherWindow) {
    Open(ProjectOf("C160"));
    Window->resize(1366, 740);
    ShowPanel("mnuChecks");
    const int low = Find<QWidget>("fraChecks").height();
    EXPECT_GE(List().viewport()->height(), 6 * List().visualItemRect(List().topLevelItem(0)).height());
    EXPECT_GT(Canvas().height(), 740 / 2);
    ShowPanel("mnuChecks");

    Open(ProjectOf("C160"));
    Window->resize(1900, 1040);
    ShowPanel("mnuChecks");
    EXPECT_GT(Find<QWidget>("fraChecks").height(), low + 40);
    EXPECT_GT(Canvas().height(), 1040 / 2);
}

TEST_F(ChecksList, KeepsItsPartOfAWindowThatBecomesLarge) {
    Open(ProjectOf("C160"));
    Window->resize(1366, 740);
    ShowPanel("mnuChecks");
    auto& dock = Find<QWidget>("fraChecks");
    const int low = dock.height();

    Window->resize(1900, 1040);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dock.height() > low + 60; })) << dock.height();
    Window->resize(1366, 740);
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::abs(dock.height() - low) < 8; })) << dock.height();
}

TEST_F(ChecksList, WhatFollowsFromAMissingPieceStandsBelowTheOpenTrack) {
    Open(ProjectOf("C8006 C151R C151R C151R C151R C160 C151R C151R C151R", "C160 C151R C151R C151R C160 C151R"));
    ShowPanel("mnuChecks");
    QTreeWidgetItem* odd = nullptr;
    for (int line = 0; line < List().topLevelItemCount(); ++line) {
        QTreeWidgetItem& top = *List().topLevelItem(line);
        EXPECT_FALSE(top.text(1).startsWith("1 change-over:")) << "told once, as what follows";
        if (top.text(0) == "1" && top.text(1).startsWith("The track does not close")) odd = &top;
    }
    ASSERT_NE(odd, nullptr);
    EXPECT_TRUE(odd->text(1).endsWith("apart. 1 more finding may come from this.")) << odd->text(1).toStdString();
    ASSERT_EQ(odd->childCount(), 1);
    EXPECT_FALSE(odd->isExpanded());
    EXPECT_EQ(odd->child(0)->text(0), "1");
    EXPECT_TRUE(odd->child(0)->text(1).startsWith("1 change-over"));

    ClickOn(*odd);
    EXPECT_TRUE(odd->isExpanded());
    std::ptrdiff_t tinted = 0;
    for (const OverlayItem& item : Canvas().OverlayOf("checks"))
        tinted += std::holds_alternative<OverlayArea>(item) && !std::get<OverlayArea>(item).Hatched;
    EXPECT_EQ(tinted, 2) << "the ends of this track, not the other track's";
    ClickOn(*odd->child(0));
    EXPECT_EQ(List().currentItem(), odd->child(0));
}

/// Of two colours, from 1 to 21, as eyes see it.
double Contrast(const QColor& one, const QColor& other) {
    const auto light = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const auto [less, more] = std::minmax({light(one) + 0.05, light(other) + 0.05});
    return more / less;
}

TEST(SeverityColours, AdviceIsSeenOnAllGroundsAndIsNoneOfTheOtherMarks) {
    const QColor advice = ToQColor(ColourOf(Severity::Advice));
    for (const QColor& ground : {QColor(Qt::white), QColor(Qt::black), QColor(40, 40, 40)})
        EXPECT_GE(Contrast(advice, ground), 3) << ground.name().toStdString();

    const QColor lanes[] = {{30, 100, 240}, {190, 40, 200}, {0, 160, 140}, {110, 160, 0}};
    const QColor owned(0, 0, 255);
    for (const QColor& other : {lanes[0], lanes[1], lanes[2], lanes[3], owned, ToQColor(ColourOf(Severity::Error)),
                                ToQColor(ColourOf(Severity::Warning))}) {
        const int apart = std::abs(advice.red() - other.red()) + std::abs(advice.green() - other.green()) +
                          std::abs(advice.blue() - other.blue());
        EXPECT_GE(apart, 100) << other.name().toStdString();
    }
}

TEST_F(ChecksList, TheArrowKeysSelectThePiecesOfEachFinding) {
    OpenOnAMix();
    QTreeWidgetItem& heading = Line("A joint of two systems");
    List().setFocus();
    List().setCurrentItem(&heading);
    QTest::keyClick(&List(), Qt::Key_Right);
    for (int element = 0; element < 7; ++element) {
        QTest::keyClick(&List(), Qt::Key_Down);
        EXPECT_EQ(Project.EditState.CurrentElement[0], element);
        EXPECT_TRUE(List().hasFocus());
    }

    QTest::keyClick(&List(), Qt::Key_Delete);

    EXPECT_EQ(Project.Design.Circuit.Tracks[0].ElementCodes.size(), 8U);
}

TEST_F(ChecksList, StaysWhereItsUserIsWhenItChecksAgain) {
    OpenOnAMix();
    ClickOn(Line("A joint of two systems"));
    QTreeWidgetItem& third = *Line("A joint of two systems").child(2);
    const QString text = third.text(1);
    ClickOn(third);

    Session->Do([&] { Project.Design.Circuit.Tracks[1].ElementCodes.emplace_back("C160"); });
    QTest::qWait(1);

    EXPECT_TRUE(Line("A joint of two systems").isExpanded());
    ASSERT_NE(List().currentItem(), nullptr);
    EXPECT_EQ(List().currentItem()->text(1), text);
}

TEST_F(ChecksList, AHeadingStaysChosenWhenItChecksAgain) {
    OpenOnAMix();
    ClickOn(Line("A joint of two systems"));

    Session->Do([&] { Project.Design.Circuit.Tracks[1].ElementCodes.emplace_back("C160"); });
    QTest::qWait(1);

    EXPECT_EQ(List().currentItem(), &Line("A joint of two systems"));
}

} // namespace
} // namespace pistaro
