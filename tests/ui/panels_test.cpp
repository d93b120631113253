// What stands beside the drawing, and in it: checks, money, lanes; the dialog of boxed sets.
#include "ui/panels_fixture.h"

#include "storage/sets_file.h"
#include "support/stock.h"
#include "ui/frmSets.h"

namespace pistaro {
namespace {

using Texts = std::vector<std::string>;

TEST_F(Panels, ChecksAreShownAndHiddenByTheirKey) {
    Open(ProjectOf("C8006"));
    auto& dock = Find<QDockWidget>("fraChecks");
    EXPECT_FALSE(dock.isVisible());

    QTest::keyClick(Window.get(), Qt::Key_F8);
    EXPECT_TRUE(dock.isVisible());
    EXPECT_TRUE(Entry("mnuChecks").isChecked());
    QTest::qWait(1);
    EXPECT_EQ(Text("lblChecks"), "0 errors, 1 warning, 0 pieces of advice");

    QTest::keyClick(Window.get(), Qt::Key_F8);
    EXPECT_FALSE(dock.isVisible());
    EXPECT_FALSE(Entry("mnuChecks").isChecked());
}

TEST_F(Panels, LeaveTheDrawingItsRoomAndStandBehindEachOther) {
    Open(ProjectOf("C8006"));
    auto& checks = Find<QDockWidget>("fraChecks");
    auto& money = Find<QDockWidget>("fraMoney");
    Window->resize(1024, 640);
    ShowPanel("mnuChecks");
    EXPECT_LE(checks.height(), 192) << "three tenths of the window";
    EXPECT_GE(Picture().height(), 352) << "more than half of it";
    EXPECT_GE(Picture().width(), 400);
    const int height = Picture().height();

    ShowPanel("mnuMoney");
    EXPECT_TRUE(Entry("mnuMoney").isChecked());
    EXPECT_FALSE(Entry("mnuChecks").isChecked()) << "it stands behind";
    EXPECT_GE(Picture().height(), height - 32) << "the tabs take a line";
    EXPECT_FALSE(money.visibleRegion().isEmpty());
    EXPECT_TRUE(checks.visibleRegion().isEmpty());

    ShowPanel("mnuChecks");
    EXPECT_TRUE(Entry("mnuChecks").isChecked()) << "its key brings it to the front";
    EXPECT_FALSE(checks.visibleRegion().isEmpty());
    ShowPanel("mnuChecks");
    EXPECT_FALSE(checks.isVisible());
    EXPECT_TRUE(Entry("mnuMoney").isChecked());
}

TEST_F(Panels, ChecksFollowEveryEdit) {
    Open(ProjectOf("C8006"));
    ShowPanel("mnuChecks");
    ASSERT_EQ(Tree("lstChecks").topLevelItemCount(), 1);

    Click("cmdElement", "C160");
    Click("cmdElement", "C160");
    QTest::qWait(1);

    EXPECT_EQ(Column("lstChecks", 1).front(),
              "The track does not close: its ends are 105.0 cm and 0.0° apart. 1 more finding may come from this.");
    EXPECT_EQ(Canvas().OverlayOf("checks").size(), 1U) << "a dashed line across the gap";
}

TEST_F(Panels, AClickOnAFindingSelectsItsPiece) {
    pistaro::Project project = ProjectOf("C160", "C160 C159 C8006");
    project.Design.Circuit.Tracks[1].TrackStartX = 500;
    Open(project);
    ShowPanel("mnuChecks");
    QTreeWidget& list = Tree("lstChecks");
    const QList<QTreeWidgetItem*> odd = list.findItems("1 change-over", Qt::MatchStartsWith | Qt::MatchRecursive, 1);
    ASSERT_EQ(odd.size(), 1);
    QTreeWidgetItem* const line = odd.front();
    line->parent()->setExpanded(true); // it follows from the track's being open
    list.scrollToItem(line);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(line).center());

    EXPECT_EQ(Project.EditState.CurrentTrack, 1);
    EXPECT_EQ(Project.EditState.CurrentElement[1], 2);
    EXPECT_EQ(Project.Design.View.MidX, 396)
        << "the view follows with its bar, and leaves room for what may be laid next";
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(Panels, AClickOnAFindingSelectsAllItsNeighbouringPieces) {
    pistaro::Project project = ProjectOf("C160 C160 C160 C160");
    project.Design.Room.Points = {{-5, -5, 0}, {20, -5, 1}, {20, 60, 1}, {-5, 60, 1}, {-5, -5, 1}};
    Open(project);
    ShowPanel("mnuChecks");
    const Texts texts = Column("lstChecks", 1);
    const auto outside = std::ranges::find_if(
        texts, [](const std::string& text) { return text.find("leave the room") != std::string::npos; });
    ASSERT_NE(outside, texts.end());

    QTreeWidget& list = Tree("lstChecks");
    QTreeWidgetItem* const line = list.topLevelItem(static_cast<int>(outside - texts.begin()));
    list.scrollToItem(line);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(line).center());

    EXPECT_EQ(Project.EditState.SelectedRun(3), (ElementRun{1, 3}));
}

TEST_F(Panels, HiddenChecksLeaveNoMarks) {
    Open(ProjectOf("C151L C151L C151L"));
    ShowPanel("mnuChecks");
    EXPECT_FALSE(Canvas().OverlayOf("checks").empty());

    Find<QDockWidget>("fraChecks").close();

    EXPECT_TRUE(Canvas().OverlayOf("checks").empty());
    EXPECT_FALSE(Entry("mnuChecks").isChecked());
}

TEST_F(Panels, OverlapsAreHatchedAndPiecesOutsideTheRoomEdged) {
    pistaro::Project project = ProjectOf("C160", "C160");
    project.Design.Circuit.Tracks[1].TrackStartX = 5;
    project.Design.Room.Points = {{-5, -5, 0}, {18, -5, 1}, {18, 50, 1}, {-5, 50, 1}, {-5, -5, 1}};
    Open(project);
    ShowPanel("mnuChecks");

    int hatched = 0;
    int edged = 0;
    for (const OverlayItem& item : Canvas().OverlayOf("checks")) {
        const auto* const area = std::get_if<OverlayArea>(&item);
        hatched += area != nullptr && area->Hatched;
        edged += std::holds_alternative<OverlayPath>(item);
    }
    EXPECT_EQ(hatched, 1);
    EXPECT_EQ(edged, 1);
}

TEST_F(Panels, LanesAreFollowedInTheDrawing) {
    Open(ProjectOf("C160 C8006 C151L"));
    ShowPanel("mnuLanes");

    const Overlay& lanes = Canvas().OverlayOf("built lanes");
    ASSERT_EQ(lanes.size(), 6U);
    const auto& left = std::get<OverlayPath>(lanes[0]);
    EXPECT_EQ(left.Path.size(), 3U);
    EXPECT_EQ(left.InkColour, std::get<OverlayPath>(lanes[1]).InkColour) << "one change-over makes them one lane";

    Click("cmdElement", "C160");
    EXPECT_EQ(std::get<OverlayPath>(Canvas().OverlayOf("built lanes")[0]).Path.size(), 4U);
    ShowPanel("mnuLanes");
    EXPECT_TRUE(Canvas().OverlayOf("built lanes").empty());
}

TEST_F(Panels, NoEdgeOfTheSurfaceLooksLikeALane) {
    pistaro::Project project = ProjectOf("C160 C151L");
    const Colour notOwned = project.Preferences.Colours.NonOwned;
    Open(project);
    const auto holds = [&](Colour colour) {
        const QImage& picture = Canvas().Picture();
        const QRgb pixel = qRgb(Red(colour), Green(colour), Blue(colour));
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixel(x, y) == pixel) return true;
            }
        }
        return false;
    };
    Session->Do([&] { Session->Looks.Surface = true; });
    EXPECT_TRUE(holds(notOwned));

    ShowPanel("mnuLanes");
    EXPECT_FALSE(holds(notOwned));
    EXPECT_TRUE(holds(Rgb(128, 132, 138)));

    Session->Do([&] { Session->Looks.Surface = false; });
    EXPECT_TRUE(holds(notOwned)) << "lines alone are drawn as ever";
}

TEST_F(Panels, MoneyIsCountedToTheCent) {
    pistaro::Project project = ProjectOf("C160 C160 C160 C151L C151R");
    SetStock(project, "C160", 1, 3.35F);
    SetStock(project, "C151L", 0, 2.99F);
    Open(project);
    ShowPanel("mnuMoney");

    EXPECT_EQ(Column("lstMoney", 0), (Texts{"C151", "C160"}));
    EXPECT_EQ(Column("lstMoney", 2), (Texts{"2", "3"}));
    EXPECT_EQ(Column("lstMoney", 4), (Texts{"2", "2"}));
    EXPECT_EQ(Column("lstMoney", 6), (Texts{"5.98", "6.70"}));
    EXPECT_EQ(Text("lblMoney"), "To buy: 12.68 €");
}

TEST_F(Panels, APriceThatNobodyKnowsIsNoneAndIsCounted) {
    pistaro::Project project = ProjectOf("C160 C160 C151L");
    SetStock(project, "C151L", 0, 2.99F);
    Open(project);
    ShowPanel("mnuMoney");

    EXPECT_EQ(Column("lstMoney", 5), (Texts{"2.99", ""}));
    EXPECT_EQ(Column("lstMoney", 6), (Texts{"2.99", ""}));
    EXPECT_EQ(Text("lblMoney"), "To buy: 2.99 €, and 2 pieces without a price");
}

TEST_F(Panels, WhereNoPriceIsKnownNoneIsAdded) {
    Open(ProjectOf("C160 C160"));
    ShowPanel("mnuMoney");

    EXPECT_EQ(Text("lblMoney"), "To buy: 2 pieces without a price");
}

TEST_F(Panels, WhatIsTypedIntoTheMoneyPanelIsSaved) {
    OpenWithSettings(ProjectOf("C160 C160"));
    ShowPanel("mnuMoney");

    Tree("lstMoney").topLevelItem(0)->setText(3, "1");
    QTest::qWait(1);
    Tree("lstMoney").topLevelItem(0)->setText(5, "4.25");
    QTest::qWait(1);

    const int row = Pieces().FindRow("C160");
    EXPECT_EQ(Project.Stock[row].OwnedCount, 1);
    EXPECT_EQ(Project.Stock[row].Price, 4.25F);
    EXPECT_EQ(ReadSettings(Pieces(), settings_).Stock[row].OwnedCount, 1);
    EXPECT_EQ(ReadSettings(Pieces(), settings_).Stock[row].Price, 4.25F);
    EXPECT_EQ(Text("lblMoney"), "To buy: 4.25 €");
    EXPECT_TRUE(Prompts.Told.empty());
}

TEST_F(Panels, AnOwnedCountTypedOverAnotherKeepsItsFirstDigit) {
    OpenWithSettings(ProjectOf("C160 C160"));
    ShowPanel("mnuMoney");
    QTreeWidget& list = Tree("lstMoney");
    list.setCurrentItem(list.topLevelItem(0), 3);
    list.setFocus();

    QTest::keyClick(&list, Qt::Key_1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::qWait(1);

    EXPECT_EQ(Project.Stock[Pieces().FindRow("C160")].OwnedCount, 12);
    EXPECT_EQ(Session->Times, 1) << "it says nothing of the next piece";
}

TEST_F(Panels, APriceMayHaveADecimalComma) {
    OpenWithSettings(ProjectOf("C160"));
    ShowPanel("mnuMoney");

    Tree("lstMoney").topLevelItem(0)->setText(5, "3,25");
    QTest::qWait(1);

    EXPECT_EQ(Project.Stock[Pieces().FindRow("C160")].Price, 3.25F);
    EXPECT_TRUE(Prompts.Told.empty());
}

TEST_F(Panels, DelInAListTakesNoPieceOutOfTheTrack) {
    OpenWithSettings(ProjectOf("C160 C151R"));
    Project.EditState.Select(1);
    ShowPanel("mnuMoney");
    QTreeWidget& list = Tree("lstMoney");
    list.setCurrentItem(list.topLevelItem(0), 3);
    list.setFocus();

    QTest::keyClick(&list, Qt::Key_Delete);
    QTest::keyClick(&list, Qt::Key_Backspace);

    EXPECT_EQ(Codes(), "C160 C151R");
}

TEST_F(Panels, ASetsPriceThatIsNoneStaysInItsFieldAndIsToldThere) {
    OpenWithSettings(ProjectOf("C160"));
    const std::string set = "[[set]]\nname = \"Box\"\nprice = 7.5\npieces = { C160 = 2 }\n"
                            "[[set]]\nname = \"Other\"\nprice = 5\npieces = { C160 = 1 }\n";
    WriteBytes(folder_ / "sets.toml", set);
    frmSets dialog(*Session);
    auto& price = *dialog.findChild<QLineEdit*>("txtSetPrice");
    auto& fault = *dialog.findChild<QLabel*>("lblSetFault");
    auto& sets = *dialog.findChild<QListWidget*>("lstSets");
    dialog.show();
    EXPECT_FALSE(fault.isVisible());

    price.selectAll();
    QTest::keyClicks(&price, "1.234,50");
    dialog.findChild<QPushButton*>("cmdSaveSets")->click();
    EXPECT_EQ(fault.text(), "A price is a number such as 4.95.");
    EXPECT_TRUE(fault.isVisible());
    EXPECT_EQ(price.text(), "1.234,50");
    sets.setCurrentRow(1);
    QTest::qWait(1);
    EXPECT_EQ(sets.currentRow(), 0) << "the set whose price is to be mended stays";
    EXPECT_EQ(price.text(), "1.234,50");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(Prompts.Told.empty());
    EXPECT_EQ(BytesOf(folder_ / "sets.toml"), set) << "nothing was written";

    price.selectAll();
    QTest::keyClicks(&price, "6.5");
    EXPECT_FALSE(fault.isVisible());
    dialog.findChild<QPushButton*>("cmdSaveSets")->click();

    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(ReadSets(Pieces(), folder_ / "sets.toml").front().Price, 650);
}

TEST_F(Panels, ASetsCountThatIsNoneStaysInItsFieldAndIsToldThere) {
    OpenWithSettings(ProjectOf("C160"));
    WriteBytes(folder_ / "sets.toml", "[[set]]\nname = \"Box\"\nprice = 7.5\npieces = { C160 = 2 }\n");
    frmSets dialog(*Session);
    auto& pieces = *dialog.findChild<QTreeWidget*>("lstSetPieces");
    dialog.show();
    pieces.setFocus();
    pieces.setCurrentItem(pieces.topLevelItem(0), 2);
    QTest::keyClick(&pieces, Qt::Key_2);
    const auto field = [&] { return pieces.findChild<QLineEdit*>(); };
    QTest::keyClicks(field(), ".5");

    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(pieces.currentItem()->text(0), "C160");
    EXPECT_EQ(field()->text(), "2.5");
    EXPECT_EQ(dialog.findChild<QLabel*>("lblFieldFault")->text(), "A count is a whole number from 0 to 10000.");
    dialog.findChild<QPushButton*>("cmdSaveSets")->click();
    EXPECT_TRUE(dialog.isVisible()) << "nothing is saved without it";
    QTest::qWait(1); // the editor that was open until then goes
    ASSERT_NE(field(), nullptr);
    EXPECT_EQ(field()->text(), "2.5");
    EXPECT_TRUE(Prompts.Told.empty());

    field()->selectAll();
    QTest::keyClicks(field(), "3");
    dialog.findChild<QPushButton*>("cmdSaveSets")->click();
    EXPECT_EQ(ReadSets(Pieces(), folder_ / "sets.toml"), (BoxedSets{{"Box", 750, {{Pieces().FindRow("C160"), 3}}}}));
}

TEST_F(Panels, ASetsFileThatCannotBeReadIsTold) {
    OpenWithSettings(ProjectOf("C160"));
    WriteBytes(folder_ / "sets.toml", "nonsense");

    Entry("mnuSets").trigger();

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_TRUE(QString::fromStdString(Prompts.Told[0].Text).contains("sets.toml, line 1"));
}

} // namespace
} // namespace pistaro
