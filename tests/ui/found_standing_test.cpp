// What the window of circuits says of a search: how it stands, for what it was, and what can be done next.
#include "ui/box_fixture.h"

#include "storage/circuit_file.h"
#include "support/places.h"

namespace pistaro {
namespace {

class StandingOfASearch : public MyBox {};

TEST_F(StandingOfASearch, TellsThatItsCircuitsAreOfAnotherBoxUntilItIsSearchedAgain) {
    OpenBox();
    Find<QSpinBox>("spnCircuits").setValue(4);
    Search("C151=8,C160=4");
    const std::string found = Text("lblFound");
    ASSERT_EQ(found, "The best 4 of 5 circuits found; there are no others.");
    const auto isOfAnother = [&] { return Find<QPushButton>("cmdSearchAgain").isVisible(); };

    Box().Show(BoxOf(Pieces(), "C151=8,C160=5"));
    EXPECT_TRUE(isOfAnother());
    EXPECT_TRUE(Find<QPushButton>("cmdOpenCircuit").isEnabled());
    EXPECT_TRUE(Find<QPushButton>("cmdKeepCircuits").isEnabled());
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));
    EXPECT_EQ(Text("lblFound"), found);
    QTest::keyClick(&Find<QSpinBox>("spnRoomWidth"), Qt::Key_Up);
    EXPECT_TRUE(isOfAnother());
    QTest::keyClick(&Find<QSpinBox>("spnRoomWidth"), Qt::Key_Down);
    EXPECT_EQ(Text("lblFound"), found);

    Box().Show(BoxOf(Pieces(), "C151=8,C160=5,C277=1"));
    Find<QCheckBox>("chkLapCounter").click();
    EXPECT_TRUE(isOfAnother());
    EXPECT_EQ(Text("lblFound"), "This was found for another box, room or part than stands at the left.");
    PressHere("cmdSearchAgain");
    EXPECT_FALSE(isOfAnother());
    EXPECT_TRUE(Find<QPushButton>("cmdCancelSearch").isEnabled());
}

TEST_F(StandingOfASearch, MakesCircuitsOfAnotherBoxPale) {
    OpenBox();
    Search("C151=8,C160=4");
    const auto picture = [&] { return Circuits().viewport()->grab().toImage(); };
    const QImage before = picture();

    Box().Show(BoxOf(Pieces(), "C151=8,C160=5"));
    EXPECT_NE(picture(), before);
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));

    EXPECT_EQ(picture(), before);
}

TEST_F(StandingOfASearch, CannotContinueForAnotherBox) {
    OpenBox();
    PutInMoreThanFits();
    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Circuits().count() > 0; }, 60'000));
    PressHere("cmdStop");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>("cmdStop").text() == "&Continue"; }, 60'000));
    EXPECT_TRUE(Find<QPushButton>("cmdStop").isEnabled());

    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));

    EXPECT_FALSE(Find<QPushButton>("cmdStop").isEnabled());
}

TEST_F(StandingOfASearch, AdvisesToKeepLessWhereNothingIsFoundAroundAPart) {
    pistaro::Project project = ProjectOf("C160 C160 C160 C160 C151R C151R C151R C151R C151R C151R C151R C151R");
    project.EditState.CurrentElement[0] = 3;
    project.EditState.RunFrom = 0;
    Open(project);
    Choose("mnuVariations");

    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Find<QPushButton>("cmdCancelSearch").isEnabled(); }, 60'000));

    EXPECT_EQ(Text("lblFound"), "Nothing found in the time so far: Continue looks on, or keep less of the track.");
    EXPECT_TRUE(Find<QPushButton>("cmdStop").isDefault());
    Find<QCheckBox>("chkKeepPart").click();
    EXPECT_EQ(Text("lblFound"), "Press Search to see what these pieces make in this room.");
    EXPECT_TRUE(Find<QPushButton>("cmdSearch").isDefault());
}

/// The usual effort finds no first loop around this part; a second one does.
TEST_F(StandingOfASearch, GoesOnUntilTheFirstCircuitAroundAPart) {
    pistaro::Project project = ProjectOf("");
    project.Design = ReadCircuit(SourceFolder() / "samples/grand-prix.trk");
    project.EditState.CurrentElement[0] = 13;
    project.EditState.RunFrom = 3;
    Open(project);
    Choose("mnuVariations");
    ASSERT_EQ(Find<QCheckBox>("chkKeepPart").text(), "The selected pa&rt: 3 to 13");

    PressHere("cmdSearch");

    const auto hasEnded = [&] { return !Find<QPushButton>("cmdCancelSearch").isEnabled(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return Circuits().count() > 0 || hasEnded(); }, 60'000));
    EXPECT_GT(Circuits().count(), 0);
}

TEST_F(StandingOfASearch, TellsWhyThereCanBeNoCircuit) {
    OpenBox();
    const auto hint = [&] { return Circuits().accessibleDescription().toStdString(); };

    Box().Show(BoxOf(Pieces(), "C151=5,C160=20"));
    EXPECT_EQ(hint(), "The curves of the box turn by 225° in all, and a circuit turns by 360°.");
    EXPECT_EQ(Text("lblFound"), "These pieces make no circuit in this room.");
    EXPECT_FALSE(Find<QPushButton>("cmdSearch").isEnabled());
    EXPECT_FALSE(Find<QPushButton>("cmdStop").isEnabled());

    Box().Show(BoxOf(Pieces(), "C151=8,C160=20"));
    EXPECT_EQ(hint().substr(0, 2), "1.");
    EXPECT_TRUE(Find<QPushButton>("cmdSearch").isEnabled());
}

TEST_F(StandingOfASearch, TellsHowFarItIs) {
    OpenBox();
    PutInMoreThanFits();
    PressHere("cmdSearch");
    const QProgressBar& bar = Find<QProgressBar>("barSearch");
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.maximum(), 100);

    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.value() > 0; }, 60'000));
    PressHere("cmdStop");

    EXPECT_EQ(Find<QPushButton>("cmdStop").text(), "Stopping…");
    EXPECT_FALSE(Find<QPushButton>("cmdStop").isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>("cmdStop").text() == "&Continue"; }, 60'000));
    EXPECT_TRUE(Find<QPushButton>("cmdStop").isEnabled());
    EXPECT_FALSE(bar.isVisible());
}

} // namespace
} // namespace pistaro
