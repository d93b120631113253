// Circuits from a box in the window: the box, the room and what a circuit must have, the search beside the window, and
// what is done with the circuits that it finds.
#include "ui/box_fixture.h"

#include "storage/circuit_file.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(MyBox, BeginsWithWhatIsOwned) {
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C151L", 8);
    SetStock(project, "C160", 4);

    OpenBox(project);

    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C151=8,C160=4"));
    EXPECT_FALSE(Dialog().isModal());
    EXPECT_FALSE(Find<QRadioButton>("optRoomDesign").isEnabled());
    EXPECT_TRUE(Find<QRadioButton>("optRoomArea").isChecked());
    EXPECT_TRUE(Find<QPushButton>("cmdSearch").isDefault());
}

TEST_F(MyBox, IsEmptiedFilledAndFilledWithSets) {
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C160", 4);
    OpenBox(project);

    PressHere("cmdNoPieces");
    EXPECT_EQ(Box().Box().Total(), 0);
    PressHere("cmdAddSet");
    const int set = Box().Box().Total();
    PressHere("cmdAddSet");
    EXPECT_GT(set, 0);
    EXPECT_EQ(Box().Box().Total(), 2 * set);
    PressHere("cmdAllOwned");
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C160=4"));
}

TEST_F(MyBox, TakesCountsThatAreTyped) {
    OpenBox();
    QTreeWidgetItem* const first = Box().topLevelItem(0);

    QTest::mouseClick(Box().viewport(), Qt::LeftButton, {}, Box().visualItemRect(first).center());
    auto* const editor = Box().findChild<QSpinBox*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, "12");
    QTest::keyClick(editor, Qt::Key_Return);

    EXPECT_TRUE(QTest::qWaitFor([&] { return Box().Box() == BoxOf(Pieces(), "C151=12"); }));
}

TEST_F(MyBox, GoesOnToTheNextCountWithTab) {
    OpenBox();
    const auto editor = [&]() -> QSpinBox* {
        for (QSpinBox* const box : Box().findChildren<QSpinBox*>()) {
            if (box->isVisible()) return box;
        }
        throw std::logic_error("no count is edited");
    };
    QTest::mouseClick(Box().viewport(), Qt::LeftButton, {}, Box().visualItemRect(Box().topLevelItem(0)).center());

    editor()->selectAll();
    QTest::keyClicks(editor(), "12");
    QTest::keyClick(editor(), Qt::Key_Tab);
    editor()->selectAll();
    QTest::keyClicks(editor(), "3");
    QTest::keyClick(editor(), Qt::Key_Return);

    EXPECT_TRUE(QTest::qWaitFor([&] { return Box().Box().Total() == 15; }));
    EXPECT_EQ(Box().topLevelItem(0)->text(1), "12");
    EXPECT_EQ(Box().topLevelItem(1)->text(1), "3");
}

TEST_F(MyBox, TakesNoneOrAllThatAreOwnedByAClick) {
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C151L", 8);
    OpenBox(project);
    QTreeWidgetItem* const curve = Box().topLevelItem(0);
    ASSERT_EQ(curve->text(0), "C151");
    const auto click = [&](int column) {
        QTest::mouseClick(Box().viewport(), Qt::LeftButton, {},
                          Box().visualRect(Box().indexFromItem(curve, column)).center());
    };

    click(2);
    EXPECT_EQ(Box().Box().Total(), 0);
    EXPECT_EQ(Text("lblTotal"), "0 of your 8 pieces in the box");
    click(3);
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C151=8"));
    EXPECT_EQ(Text("lblTotal"), "8 of your 8 pieces in the box");
    Box().Show(BoxOf(Pieces(), "C151=10"));
    EXPECT_EQ(Text("lblTotal"), "10 pieces in the box, 2 more than you own");
    QTest::keyClick(&Box(), Qt::Key_Delete);
    EXPECT_EQ(Box().Box().Total(), 0) << "the line that was clicked";
}

TEST_F(MyBox, ListsWhatIsOwnedOrInTheBoxUnlessAskedForMore) {
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C160", 4);
    OpenBox(project);
    const auto listed = [&] {
        std::string codes;
        for (int line = 0; line < Box().topLevelItemCount(); ++line) {
            if (!Box().topLevelItem(line)->isHidden()) codes += Box().topLevelItem(line)->text(0).toStdString() + " ";
        }
        return codes;
    };
    EXPECT_EQ(listed(), "C160 ");

    Find<QLineEdit>("txtFilterBox").setText("c15");
    EXPECT_THAT(listed(), StartsWith("C151 "));
    Find<QLineEdit>("txtFilterBox").setText("quarter");
    EXPECT_EQ(listed(), "C158 N10104 ");
    Find<QLineEdit>("txtFilterBox").clear();
    Find<QCheckBox>("chkAllProducts").setChecked(true);
    EXPECT_THAT(listed(), StartsWith("C151 "));
}

TEST_F(MyBox, ShowsAllCircuitsOfASmallBoxAsPictures) {
    OpenBox();

    Search("C151=8,C160=4");

    ASSERT_EQ(Circuits().count(), 5);
    EXPECT_EQ(Text("lblFound"), "5 circuits found; there are no others.");
    EXPECT_THAT(Circuits().item(0)->text().toStdString(),
                AllOf(StartsWith("100 % of the box, 12 pieces\n3.26 m\n"), HasSubstr(" cm, straight "),
                      HasSubstr(" left, 0 right\nlanes differ 49.6 cm, score 0.")));
    EXPECT_FALSE(Circuits().item(0)->icon().isNull());
    EXPECT_FALSE(Find<QPushButton>("cmdStop").isEnabled());
}

TEST_F(MyBox, ShowsTheBestCircuitUntilOneIsClickedAndThenThatOne) {
    OpenBox(ProjectOf("C160"));
    Search("C151=8,C160=4");
    EXPECT_TRUE(Circuits().item(0)->isSelected());
    EXPECT_EQ(At<QLabel>("lblFigure", 0).text(), "100 %, 12 of 12 pieces");
    EXPECT_EQ(At<QLabel>("lblFigure", 1).text(), "nothing");
    EXPECT_EQ(At<QLabel>("lblPart", 0).text(), "1.00");

    ClickCircuit(4);

    EXPECT_EQ(At<QLabel>("lblFigure", 0).text(), "67 %, 8 of 12 pieces");
    EXPECT_EQ(At<QLabel>("lblFigure", 1).text(), "4 × C160");
    EXPECT_EQ(At<QLabel>("lblPart", 0).text(), "0.67");
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
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].ElementCodes.size(), 8U);

    EXPECT_TRUE(Prompts.Asked.empty()) << "a single piece is no work, nor is what was opened here";
    Choose("mnuUndo");
    Choose("mnuUndo");
    EXPECT_EQ(Codes(), "C160");
}

TEST_F(MyBox, OpensACircuitByADoubleClickAndByEnter) {
    OpenBox();
    Search("C151=8,C160=4");

    ClickCircuit(4);
    QTest::mouseDClick(Circuits().viewport(), Qt::LeftButton, {},
                       Circuits().visualItemRect(Circuits().item(4)).center());
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].ElementCodes.size(), 8U);
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

TEST_F(MyBox, FollowsWhatIsOwnedUntilItsCountsAreTyped) {
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C160", 4);
    OpenBox(project);

    Session->Do([&] { SetStock(Project, "C160", 6); });
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C160=6"));
    Box().Show(BoxOf(Pieces(), "C160=5"));
    Session->Do([&] { SetStock(Project, "C160", 7); });

    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C160=5"));
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
    EXPECT_EQ(ReadCircuit(folder / "mine-02.trk").Circuit.Tracks[0].ElementCodes.size(), 12U);
    EXPECT_TRUE(Codes().empty()) << "choosing opens nothing";
}

TEST_F(MyBox, FollowsTheWeightsAtOnce) {
    OpenBox();
    Search("C151=8,C160=4");
    Circuits().setCurrentRow(0);
    EXPECT_EQ(Circuits().item(4)->text().toStdString().substr(0, 4), "67 %");

    At<QSlider>("sldWeight", 0).setValue(0); // the use of the box
    for (int part = 1; part < 7; ++part)
        At<QSlider>("sldWeight", part).setValue(part == 6 ? 100 : 0); // the distance to the walls alone

    EXPECT_EQ(Find<QLabel>("lblScore").text(), At<QLabel>("lblPart", 6).text());
}

TEST_F(MyBox, TellsTheWeightsAndPutsThemBack) {
    OpenBox();
    Search("C151=8,C160=4");
    const std::string score = Text("lblScore");
    EXPECT_EQ(At<QLabel>("lblWeight", 0).text(), "6.00");
    EXPECT_EQ(At<QLabel>("lblWeight", 6).text(), "0.50");
    EXPECT_FALSE(Find<QPushButton>("cmdUsualWeights").isEnabled());

    At<QSlider>("sldWeight", 0).setValue(25);
    EXPECT_EQ(At<QLabel>("lblWeight", 0).text(), "2.50");
    EXPECT_NE(Text("lblScore"), score);
    PressHere("cmdUsualWeights");

    EXPECT_EQ(At<QLabel>("lblWeight", 0).text(), "6.00");
    EXPECT_EQ(Text("lblScore"), score);
}

TEST_F(MyBox, IsSearchedWhileTheWindowIsWorkedIn) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=24,C160=24,C159=8,C158=4,C153=8,C152=8,C157=4"));

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

TEST_F(MyBox, TellsWhatTheBoxLacks) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));
    Find<QCheckBox>("chkChicane").setChecked(true);

    PressHere("cmdSearch");

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Text, "Refused: The box holds no two ends of a chicane.");
}

TEST_F(MyBox, OffersOnlyMustHavesThatItsPiecesGive) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,C277=1"));

    EXPECT_TRUE(Find<QCheckBox>("chkLapCounter").isEnabled());
    EXPECT_EQ(At<QLabel>("lblLacking", 0).text(), "");
    EXPECT_FALSE(Find<QCheckBox>("chkChicane").isEnabled());
    EXPECT_EQ(Find<QCheckBox>("chkChicane").toolTip(), "The box holds no two ends of a chicane.");
    EXPECT_EQ(At<QLabel>("lblLacking", 3).text(), "not both ends in the box");

    Find<QCheckBox>("chkLapCounter").setChecked(true);
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));
    EXPECT_TRUE(Find<QCheckBox>("chkLapCounter").isEnabled()) << "so that it can be let go of";
    Find<QCheckBox>("chkLapCounter").setChecked(false);
    EXPECT_FALSE(Find<QCheckBox>("chkLapCounter").isEnabled());
}

TEST_F(MyBox, HoldsOnlyCircuitsWithWhatTheyMustHave) {
    OpenBox();
    Find<QCheckBox>("chkLapCounter").setChecked(true);

    Search("C151=8,C160=4,C277=1,C159=1");

    ASSERT_GT(Circuits().count(), 0);
    const int count = Circuits().count();
    for (int row = 0; row < count; ++row) {
        OpenCircuit(row);
        EXPECT_THAT(Codes(), HasSubstr("C277"));
    }
}

TEST_F(MyBox, FitsOnASmallScreen) {
    OpenBox();

    EXPECT_LE(Dialog().width(), 1024);
    EXPECT_LE(Dialog().height(), 700);
}

class VariationsOfADesign : public MyBox {};

TEST_F(VariationsOfADesign, AreNotOfferedWithoutPieces) {
    Open(ProjectOf(""));

    EXPECT_FALSE(Entry("mnuVariations").isEnabled());
}

TEST_F(VariationsOfADesign, AreLaidFromItsPieces) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));

    Choose("mnuVariations");

    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C151=8,C160=4"));
    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Text("lblFound").ends_with("no others."); }, 60'000));
    EXPECT_GT(Circuits().count(), 1);
}

TEST_F(VariationsOfADesign, KeepTheSelectedPartWhereItLies) {
    pistaro::Project project = ProjectOf("C160 C159 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R C159",
                                         "C160 C160 C159 C159 C151L C151L C151L C151L");
    project.EditState.CurrentElement[0] = 3;
    project.EditState.RunFrom = 0;
    Open(project);
    Choose("mnuVariations");
    EXPECT_TRUE(Find<QCheckBox>("chkKeepPart").isChecked());

    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Circuits().count() > 1; }, 60'000));
    PressHere("cmdStop");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Find<QPushButton>("cmdCancelSearch").isEnabled(); }, 60'000));

    const BuildCursor start = project.Design.Circuit.Tracks[0].Start();
    const int count = Circuits().count();
    for (int row = 0; row < count; ++row) {
        OpenCircuit(row, "mnuVariations");
        EXPECT_EQ(Codes().substr(0, 21), "C160 C159 C151R C151R");
        EXPECT_EQ(Project.Design.Circuit.Tracks[0].Start(), start);
    }
    EXPECT_EQ(Session->History().Caption(Session->History().Present()), "Variation");
}

TEST_F(VariationsOfADesign, MarkThePartThatTheyKeep) {
    pistaro::Project project = ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R");
    project.Preferences.Colours.Active = Rgb(255, 0, 0);
    project.EditState.CurrentElement[0] = 1;
    project.EditState.RunFrom = 0;
    Open(project);
    const auto redShare = [&] {
        const QImage image = Find<QWidget>("picChosen").grab().toImage();
        int red = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                red += colour.red() > colour.green() + 40 && colour.red() > colour.blue() + 40 ? 1 : 0;
            }
        }
        return static_cast<double>(red) / (image.width() * image.height());
    };
    const auto search = [&](bool keeps) {
        Find<QCheckBox>("chkKeepPart").setChecked(keeps);
        PressHere("cmdSearch");
        ASSERT_TRUE(QTest::qWaitFor([&] { return Circuits().count() > 0; }, 60'000));
        PressHere("cmdCancelSearch");
    };
    Choose("mnuVariations");

    search(false);
    const double without = redShare();
    search(true);

    EXPECT_GT(redShare(), without + 0.005);
}

TEST_F(VariationsOfADesign, AreLookedForAnewWhereTheDesignIsAnother) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));
    Choose("mnuVariations");
    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Text("lblFound").ends_with("no others."); }, 60'000));
    const int found = Circuits().count();
    OpenCircuit(1, "mnuVariations");
    Choose("mnuVariations");
    EXPECT_EQ(Circuits().count(), found) << "one of those that were found";
    PressHere("cmdCloseBox");

    Session->Do([&] { Project.Design.Circuit.Tracks[0].ElementCodes = {"C160", "C159"}; });
    Choose("mnuVariations");

    EXPECT_EQ(Circuits().count(), 0);
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C159=1,C160=1"));
}

} // namespace
} // namespace pistaro
