// Circuits from a box in the window: the search beside the window, and what is done with the circuits that it finds.
#include "ui/box_fixture.h"

#include "storage/circuit_file.h"
#include "support/temporary_folder.h"

#include <QStatusBar>
#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST_F(MyBox, ShowsAllCircuitsOfASmallBoxAsPictures) {
    OpenBox();

    Search("C151=8,C160=4");

    ASSERT_EQ(Circuits().count(), 5);
    EXPECT_EQ(Text("lblFound"), "5 circuits found; there are no others.");
    EXPECT_THAT(Circuits().item(0)->text().toStdString(), StartsWith("100 % of the box, 3.26 m\n12 pieces"));
    EXPECT_FALSE(Circuits().item(0)->icon().isNull());
    EXPECT_FALSE(Find<QPushButton>("cmdStop").isEnabled());
}

/// The oval with a straight on either side is much like that with two.
TEST_F(MyBox, ShowsTheCircleBeforeWhatIsMuchLikeABetterOne) {
    OpenBox();

    Search("C151=8,C160=4");

    const auto pieces = [&](int row) { return Circuits().item(row)->text().section('\n', 1).toStdString(); };
    EXPECT_THAT(pieces(1), StartsWith("12 pieces"));
    EXPECT_THAT(pieces(2), StartsWith("8 pieces"));
    EXPECT_EQ(pieces(3), "12 pieces\nlike 1");
    EXPECT_EQ(pieces(4), "10 pieces\nlike 1");
}

TEST_F(MyBox, ShowsTheBestCircuitUntilOneIsClickedAndThenThatOne) {
    OpenBox(ProjectOf("C160"));
    Search("C151=8,C160=4");
    EXPECT_TRUE(Circuits().item(0)->isSelected());
    EXPECT_EQ(At<QLabel>("lblFigure", 0).text(), "100 %, 12 of 12 pieces");
    EXPECT_EQ(At<QLabel>("lblFigure", 1).text(), "nothing");
    EXPECT_EQ(At<QLabel>("lblPart", 0).text(), "1.00");

    ClickCircuit(4);

    EXPECT_EQ(At<QLabel>("lblFigure", 0).text(), "83 %, 10 of 12 pieces");
    EXPECT_EQ(At<QLabel>("lblFigure", 1).text(), "2\u00a0×\u00a0C160");
    EXPECT_EQ(At<QLabel>("lblPart", 0).text(), "0.83");
    EXPECT_EQ(Codes(), "C160") << "looking at a circuit opens nothing";
    EXPECT_TRUE(Dialog().isVisible());
}

TEST_F(MyBox, OpensTheChosenCircuitAsOneStep) {
    OpenBox(ProjectOf("C160"));
    Search("C151=8,C160=4");

    OpenCircuit(0);
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].ElementCodes.size(), 12U);
    EXPECT_FALSE(Project.Design.Room.Points.empty());
    OpenCircuit(4);
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].ElementCodes.size(), 10U);

    EXPECT_TRUE(Prompts.Asked.empty()) << "a single piece is no work, nor is what was opened here";
    Choose("mnuUndo");
    Choose("mnuUndo");
    EXPECT_EQ(Codes(), "C160");
}

TEST_F(MyBox, TellsWhyTheOpenedCircuitIsAllRedWhereNothingIsOwned) {
    const auto told = [&] { return Window->findChild<QStatusBar*>()->currentMessage().toStdString(); };
    OpenBox();
    Search("C151=8,C160=4");
    OpenCircuit(0);
    EXPECT_EQ(told(), "None of it is yours yet: it is shown as pieces to be bought. I Own These in Circuit ▸ From My "
                      "Box… says that it is.");

    SetStock(Project, "C151L", 8);
    Window->findChild<QStatusBar*>()->clearMessage();
    OpenCircuit(1);

    EXPECT_EQ(told(), "") << "some of it is";
}

TEST_F(MyBox, OpensACircuitByADoubleClickAndByEnter) {
    OpenBox();
    Search("C151=8,C160=4");

    ClickCircuit(4);
    QTest::mouseDClick(Circuits().viewport(), Qt::LeftButton, {},
                       Circuits().visualItemRect(Circuits().item(4)).center());
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].ElementCodes.size(), 10U);
    Choose("mnuFromBox");
    QTest::keyClick(&Circuits(), Qt::Key_Home);
    QTest::keyClick(&Circuits(), Qt::Key_Return);

    EXPECT_EQ(Project.Design.Circuit.Tracks[0].ElementCodes.size(), 12U);
}

TEST_F(MyBox, GoesWhenACircuitIsOpenedAndComesBackWithAllOfThem) {
    OpenBox();
    Search("C151=8,C160=4");
    frmBox& dialog = Dialog();

    OpenCircuit(2);
    EXPECT_FALSE(dialog.isVisible()) << "so that the design is seen";
    Choose("mnuFromBox");

    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Circuits().count(), 5);
    EXPECT_TRUE(Circuits().item(2)->isSelected());
    EXPECT_EQ(Text("lblFound"), "5 circuits found; there are no others.");
    PressHere("cmdCloseBox");
    Choose("mnuFromBox");
    EXPECT_EQ(Circuits().count(), 5) << "by Close, too";
}

TEST_F(MyBox, StaysWithItsCircuitsWhenTheWorkThatWouldGiveWayIsKept) {
    pistaro::Project project = ProjectOf("C160 C160 C151R");
    project.EditState.DataChanged = true;
    OpenBox(project);
    Search("C151=8,C160=4");
    Prompts.Answers = {Answer::Cancel};

    OpenCircuit(0);

    EXPECT_EQ(Codes(), "C160 C160 C151R");
    EXPECT_TRUE(Dialog().isVisible());
    EXPECT_EQ(Circuits().count(), 5);
}

TEST_F(MyBox, AsksForPiecesWhileTheBoxIsEmpty) {
    OpenBox();
    EXPECT_EQ(Text("lblFound"), "Put pieces into the box: type their counts, or add a set.");
    EXPECT_EQ(Text("lblTotal"), "0 pieces in the box");
    EXPECT_FALSE(Find<QPushButton>("cmdSearch").isEnabled());

    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));

    EXPECT_EQ(Text("lblFound"), "Press Search to see what these pieces make in this room.");
    EXPECT_EQ(Text("lblTotal"), "12 pieces in the box");
    EXPECT_TRUE(Find<QPushButton>("cmdSearch").isEnabled());
}

TEST_F(MyBox, KeepsChosenCircuitsAsFiles) {
    const TemporaryFolder folder;
    OpenBox();
    Search("C151=8,C160=4");
    Circuits().setCurrentRow(0);
    ClickCircuit(2, Qt::ControlModifier);
    Prompts.Files = {folder / "mine.trk"};

    PressHere("cmdKeepCircuits");

    EXPECT_EQ(ReadCircuit(folder / "mine-01.trk").Circuit.Tracks[0].ElementCodes.size(), 12U);
    EXPECT_EQ(ReadCircuit(folder / "mine-02.trk").Circuit.Tracks[0].ElementCodes.size(), 8U) << "the circle";
    EXPECT_TRUE(Codes().empty()) << "choosing opens nothing";
}

TEST_F(MyBox, IsSearchedWhileTheWindowIsWorkedIn) {
    OpenBox();
    PutInMoreThanFits();

    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Circuits().count() > 0; }, 60'000));
    EXPECT_THAT(Text("lblFound"), HasSubstr("still searching"));
    Project.EditState.System = TrackSystem::Scalextric;
    Click("cmdElement", "C160");
    EXPECT_EQ(Codes(), "C160");

    PressHere("cmdStop");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>("cmdStop").text() == "&Continue"; }, 60'000));
    const int before = Circuits().count();
    PressHere("cmdStop");
    EXPECT_EQ(Find<QPushButton>("cmdStop").text(), "St&op");
    PressHere("cmdCancelSearch");
    EXPECT_GE(Circuits().count(), before);
    EXPECT_FALSE(Find<QPushButton>("cmdCancelSearch").isEnabled());
}

TEST_F(MyBox, FitsOnASmallScreen) {
    OpenBox();

    EXPECT_LE(Dialog().width(), 1024);
    EXPECT_LE(Dialog().height(), 700);
}

} // namespace
} // namespace pistaro
