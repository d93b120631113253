// The cards of the circuits that were found: which are chosen, ticked and in sight, whatever order they come into.
#include "ui/box_fixture.h"

#include "storage/circuit_file.h"
#include "support/temporary_folder.h"
#include "ui/circuit_card.h"

#include <QScrollBar>

namespace pistaro {
namespace {

class Cards : public MyBox {
protected:
    bool IsTicked(int row) { return Circuits().item(row)->checkState() == Qt::Checked; }
    QScrollBar& Bar() { return *Circuits().verticalScrollBar(); }

    /// The box at the end of a card's first line, with the word before it.
    QRect TickTarget(int row) {
        const QRect card = Circuits().visualItemRect(Circuits().item(row));
        return CircuitCard::TickTarget(card, Circuits().iconSize().width(), Circuits().fontMetrics(),
                                       *Circuits().style());
    }
    QPoint TickOf(int row) { return TickTarget(row).center(); }
    void ClickTick(int row) { QTest::mouseClick(Circuits().viewport(), Qt::LeftButton, {}, TickOf(row)); }

    /// Shows all that were found, which are so many that the list has room for few of them: those with good straights
    /// first, whatever else they are.
    void SearchMany() {
        OpenBox();
        Find<QSpinBox>("spnCircuits").setValue(12);
        Search("C151=12,C160=6,C159=2");
        Find<QSpinBox>("spnCircuits").setValue(100);
        ASSERT_GT(Circuits().count(), 11);
        ASSERT_LT(Circuits().count(), 100);
        Dialog().resize(Dialog().minimumSizeHint());
        QApplication::processEvents();
        ASSERT_GT(Bar().maximum(), 300);
        for (int part = 0; part < 10; ++part)
            At<QSlider>("sldWeight", part).setValue(part == 2 ? 100 : 0);
    }

    /// Turns the order over, at once.
    void PutAllRoundFirst() { Find<QRadioButton>("optAllRound").click(); }

    qulonglong PlaceOf(int row) { return Circuits().item(row)->data(Qt::UserRole).toULongLong(); }
};

TEST_F(Cards, AreTickedOneByOneAndKeptTogether) {
    const TemporaryFolder folder;
    OpenBox();
    Search("C151=8,C160=4");
    EXPECT_EQ(Find<QPushButton>("cmdKeepCircuits").text(), "&Keep This One as a File…");

    ClickTick(1);
    ClickTick(2);
    ClickCircuit(0);
    EXPECT_TRUE(IsTicked(1));
    EXPECT_TRUE(IsTicked(2));
    EXPECT_FALSE(IsTicked(0)) << "a click elsewhere looks at it";
    EXPECT_EQ(Find<QPushButton>("cmdKeepCircuits").text(), "&Keep 2 as Files…");
    Prompts.Files = {folder / "mine.trk"};
    PressHere("cmdKeepCircuits");

    EXPECT_EQ(ReadCircuit(folder / "mine-01.trk").Circuit.Tracks[0].ElementCodes.size(), 12U);
    EXPECT_EQ(ReadCircuit(folder / "mine-02.trk").Circuit.Tracks[0].ElementCodes.size(), 8U) << "the circle";
    ClickTick(2);
    EXPECT_FALSE(IsTicked(2));
}

TEST_F(Cards, LeaveTheirPicturesFreeOfTheirBoxes) {
    OpenBox();
    Search("C151=8,C160=4");
    const QRect card = Circuits().visualItemRect(Circuits().item(0));

    const int pictureAndWords = Circuits().iconSize().height() + 2 * Circuits().fontMetrics().height();
    EXPECT_LT(TickTarget(0).bottom(), card.bottom() - pictureAndWords);
    EXPECT_TRUE(card.contains(TickTarget(0)));
}

TEST_F(Cards, TellAllOfTheirWordsInTheirToolTips) {
    OpenBox();
    Search("C151=8,C160=4");

    EXPECT_EQ(Circuits().item(4)->toolTip(), "83 % of the box, 2.56 m\n10 pieces\nlike 1");
}

TEST_F(Cards, AreTickedByTheSpaceBarAndNotOpenedByQuickClicksOnTheirBoxes) {
    OpenBox(ProjectOf("C160"));
    Search("C151=8,C160=4");
    Circuits().setFocus();

    QTest::keyClick(&Circuits(), Qt::Key_Space);
    EXPECT_TRUE(IsTicked(0));
    QTest::mouseDClick(Circuits().viewport(), Qt::LeftButton, {}, TickOf(2));

    EXPECT_EQ(Codes(), "C160");
    EXPECT_TRUE(Dialog().isVisible());
}

TEST_F(Cards, AreOneOfEachShapeUntilAllAreWishedFor) {
    Open(ProjectOf(""));
    Choose("mnuFromBox");
    Find<QSpinBox>("spnCircuits").setValue(100);
    Search("C151=8,C159=2,C158=2");
    const int shapes = Circuits().count();
    int others = 0;
    for (int row = 0; row < shapes; ++row) {
        const QString note = Circuits().item(row)->text().section('\n', 2);
        others += note.section('+', 1).section(' ', 0, 0).toInt();
    }
    const std::string sentence = Text("lblFound");

    Find<QCheckBox>("chkShapes").click();

    const int all = Circuits().count();
    ASSERT_LT(shapes, all);
    EXPECT_EQ(shapes + others, all) << "each is shown or counted";
    const std::string found = std::to_string(all) + " circuits found";
    EXPECT_EQ(sentence, found + ", of " + std::to_string(shapes) + " shapes; there are no others.");
    EXPECT_EQ(Text("lblFound"), found + "; there are no others.");
    EXPECT_EQ(Session->Habits.BoxShapes, "all");
    Find<QCheckBox>("chkShapes").click();
    EXPECT_EQ(Circuits().count(), shapes);
    EXPECT_EQ(Session->Habits.BoxShapes, "");
}

TEST_F(Cards, TellOfHowManyTheyAreTheBestShapes) {
    Open(ProjectOf(""));
    Choose("mnuFromBox");
    Search("C151=8,C160=4");
    EXPECT_EQ(Text("lblFound"), "5 circuits found; there are no others.") << "of five shapes";

    Find<QSpinBox>("spnCircuits").setValue(2);

    EXPECT_EQ(Circuits().count(), 2);
    EXPECT_EQ(Text("lblFound"), "The best 2 shapes of 5 circuits found; there are no others.");
}

TEST_F(Cards, OfAllShapesComeAgainForWhoWishedForThem) {
    OpenBox();

    EXPECT_FALSE(Find<QCheckBox>("chkShapes").isChecked());
}

TEST_F(Cards, StayWhileTheyAreTickedOrChosen) {
    OpenBox();
    Search("C151=8,C160=4");
    ClickTick(2);
    ClickCircuit(4);

    Find<QSpinBox>("spnCircuits").setValue(1);

    ASSERT_EQ(Circuits().count(), 3);
    EXPECT_FALSE(IsTicked(0));
    EXPECT_NE(IsTicked(1), IsTicked(2));
    EXPECT_EQ(Circuits().selectedItems().size(), 1);
    EXPECT_EQ(At<QLabel>("lblFigure", 0).text(), "83 %, 10 of 12 pieces");
}

TEST_F(Cards, ShowTheOneOfSeveralThatWasClickedLast) {
    OpenBox();
    Search("C151=8,C160=4");
    ClickCircuit(0);

    ClickCircuit(4, Qt::ControlModifier);

    EXPECT_EQ(At<QLabel>("lblFigure", 0).text(), "83 %, 10 of 12 pieces");
    EXPECT_EQ(Find<QPushButton>("cmdKeepCircuits").text(), "&Keep 2 as Files…");
    EXPECT_TRUE(Find<QPushButton>("cmdOpenCircuit").isEnabled());
}

TEST_F(Cards, ShowANewFirstOneToWhoHasNotScrolled) {
    SearchMany();
    const qulonglong first = PlaceOf(0);

    PutAllRoundFirst();

    EXPECT_EQ(Bar().value(), 0);
    EXPECT_NE(PlaceOf(0), first);
    EXPECT_TRUE(Circuits().item(0)->isSelected()) << "nobody has chosen another";
    EXPECT_FALSE(Find<QPushButton>("cmdShowFirst").isVisible());
}

TEST_F(Cards, StayWhereTheyAreForWhoHasScrolledAndOfferTheNewFirstOne) {
    SearchMany();
    ClickCircuit(0);
    Bar().setValue(250); // at a card that does not come to the list's end, where nothing could hold it
    QListWidgetItem* seen = nullptr;
    for (int row = 0; seen == nullptr; ++row) {
        if (Circuits().visualItemRect(Circuits().item(row)).top() >= 0) seen = Circuits().item(row);
    }
    const qulonglong place = seen->data(Qt::UserRole).toULongLong();
    const int top = Circuits().visualItemRect(seen).top();

    PutAllRoundFirst();

    int row = 0;
    while (PlaceOf(row) != place)
        ++row;
    EXPECT_NE(Circuits().item(row), seen) << "it stands elsewhere in the order";
    EXPECT_EQ(Circuits().visualItemRect(Circuits().item(row)).top(), top);
    ASSERT_TRUE(Find<QPushButton>("cmdShowFirst").isVisible());
    PressHere("cmdShowFirst");
    EXPECT_EQ(Bar().value(), 0);
    EXPECT_FALSE(Find<QPushButton>("cmdShowFirst").isVisible());
}

TEST_F(Cards, AreSeenSixAtATimeOnASmallScreen) {
    OpenBox();
    Dialog().resize(1195, 672); // what it takes of 1366 x 768
    Search("C151=12,C160=6,C159=2");
    ASSERT_GE(Circuits().count(), 10);
    QApplication::processEvents();

    int whole = 0;
    for (int row = 0; row < Circuits().count(); ++row)
        whole += Circuits().viewport()->rect().contains(Circuits().visualItemRect(Circuits().item(row))) ? 1 : 0;

    EXPECT_GE(whole, 6);
}

TEST_F(Cards, GrowWithTheWindow) {
    OpenBox();
    Dialog().resize(1195, 672);
    Search("C151=8,C160=4");
    Find<QSpinBox>("spnCircuits").setValue(5);
    const int before = Circuits().iconSize().width();

    Dialog().resize(1680, 945);

    ASSERT_TRUE(QTest::qWaitFor([&] {
        return Circuits().iconSize().width() > before &&
               Circuits().item(0)->icon().availableSizes().value(0).width() == Circuits().iconSize().width();
    }));
}

} // namespace
} // namespace pistaro
