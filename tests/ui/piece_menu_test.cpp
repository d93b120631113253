// The menu that a right click on a piece opens.
#include "ui/window_fixture.h"

#include <QContextMenuEvent>
#include <QEnterEvent>

namespace pistaro {
namespace {

constexpr const char* Ring = "C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L";

class PieceMenus : public WindowTest {
protected:
    QPoint At(float x, float y) { return Canvas().PlaceOf({x, y}).toPoint(); }
    const Track& First() { return Project.Design.Circuit.Tracks[0]; }

    /// Opens the menu of a place and gives its entries.
    QMenu& OpenMenu(QPoint place) {
        QTest::mouseClick(&Picture(), Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, Picture().mapToGlobal(place));
        QApplication::sendEvent(&Picture(), &event);
        QMenu* last = nullptr;
        for (QMenu* const menu : Picture().findChildren<QMenu*>("mnuPiece"))
            last = menu;
        return *last;
    }
    /// The same on the list of elements.
    QMenu& OpenMenuOfLine(int line) {
        const QPoint place = List().visualItemRect(List().item(line)).center();
        QTest::mouseClick(List().viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, List().viewport()->mapToGlobal(place));
        QApplication::sendEvent(List().viewport(), &event);
        return *Picture().findChild<QMenu*>("mnuPiece");
    }
    /// The names of a menu's entries in another one.
    static std::string ShownIn(const QMenu& menu, const char* name) {
        QStringList names;
        for (const QAction* const entry : menu.findChild<QMenu*>(name)->actions())
            names.append(entry->objectName());
        return names.join(" ").toStdString();
    }
};

TEST_F(PieceMenus, OffersWhatCanBeDoneWithThePiece) {
    Open(ProjectOf(Ring));
    QMenu& menu = OpenMenu(At(8, 17));
    EXPECT_EQ(Project.EditState.SelectedElement(), 0);
    QStringList names;
    for (const QAction* const entry : menu.actions()) {
        if (!entry->isSeparator()) names.append(entry->objectName());
    }
    EXPECT_EQ(names.join(" ").toStdString(), "  cmdDelete mnuSelectRest mnuStartHere mnuMirrorRest mnuPaste cmdFit")
        << "below two menus of pieces";
    EXPECT_EQ(menu.actions().at(0)->text(), "C160 · element 0 of track 1");
    EXPECT_EQ(ShownIn(menu, "mnuReplacements"), "mnuC164 mnuC248 mnuC8005 mnuC8006 mnuC8007 mnuC8009");

    menu.findChild<QAction*>("mnuC8007")->trigger();
    EXPECT_TRUE(Codes().starts_with("C8007 C151L"));
    menu.close();
}

TEST_F(PieceMenus, ShowsTheKeysThatOthersListenTo) {
    Open(ProjectOf(Ring));
    QMenu& menu = OpenMenu(At(8, 17));
    EXPECT_EQ(menu.findChild<QAction*>("cmdDelete")->shortcut(), QKeySequence(Qt::Key_Delete));
    EXPECT_TRUE(menu.findChild<QAction*>("cmdDelete")->isShortcutVisibleInContextMenu());
    menu.close();

    QTest::keyClick(Window.get(), Qt::Key_Delete);
    EXPECT_EQ(List().count(), 9) << "once";
}

TEST_F(PieceMenus, PutsOthersOfItsShapeBeforeThePiece) {
    Open(ProjectOf("C160 C151R C159"));
    QMenu& menu = OpenMenu(At(12, 45));
    ASSERT_EQ(Project.EditState.SelectedElement(), 1);
    const QMenu& pieces = *menu.findChild<QMenu*>("mnuInsertions");
    EXPECT_EQ(pieces.actions().at(0)->text(), QString("C151  standard curve 45°"));

    QTest::keyClick(Window.get(), Qt::Key_2);
    for (QAction* const entry : pieces.actions())
        if (entry->property("Tag") == "C8010R") entry->trigger();

    EXPECT_EQ(Codes(), "C160 C8010R C8010R C151R C159");
    EXPECT_EQ(Project.EditState.SelectedElement(), 3) << "the piece that was clicked on";
    EXPECT_FALSE(Project.EditState.InsertMode);
    EXPECT_EQ(Entry("mnuUndo").text(), "&Undo Insert 2 C8010");
    menu.close();
}

TEST_F(PieceMenus, ShowsAPieceOfItsAsAGhostWhereItWouldLie) {
    Open(ProjectOf("C160 C160 C159"));
    QMenu& menu = OpenMenu(At(8, 50));
    const QList<QAction*> replacements = menu.findChild<QMenu*>("mnuReplacements")->actions();
    const QList<QAction*> insertions = menu.findChild<QMenu*>("mnuInsertions")->actions();
    const auto ghost = [this] { return std::get<OverlayPieces>(Canvas().OverlayOf("ghost").at(0)); };

    replacements.at(0)->hover();
    EXPECT_EQ(ghost().Codes, (std::vector<std::string>{"C164"}));
    EXPECT_EQ(ghost().Start, (BuildCursor{0, 35, 0}));
    EXPECT_TRUE(Canvas().OverlayOf("displaced").empty());
    insertions.at(1)->hover();
    EXPECT_EQ(ghost().Codes, (std::vector<std::string>{"C164"}));
    EXPECT_EQ(std::get<OverlayPieces>(Canvas().OverlayOf("displaced").at(1)).Codes,
              (std::vector<std::string>{"C160", "C159"}));

    insertions.last()->hover();
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty()) << "of no piece";
    menu.close();
}

TEST_F(PieceMenus, ShowsOnePieceInThePlaceOfAnotherWhateverDigitWasTyped) {
    Open(ProjectOf("C160 C160 C159"));
    QMenu& menu = OpenMenu(At(8, 50));
    QTest::keyClick(Window.get(), Qt::Key_2);

    menu.findChild<QMenu*>("mnuReplacements")->actions().at(0)->hover();
    const Overlay replacing = Canvas().OverlayOf("ghost");
    EXPECT_EQ(std::get<OverlayPieces>(replacing.at(0)).Codes, (std::vector<std::string>{"C164"}));
    EXPECT_EQ(std::get<OverlayText>(replacing.at(1)).Text, "C164 in place of C160 · then 1 to buy · gap 87.5 cm");
    EXPECT_EQ(std::get<OverlayText>(replacing.at(1)).Place, (WorldPoint{7.75F, 70}));

    menu.findChild<QMenu*>("mnuInsertions")->actions().at(1)->hover();
    const Overlay inserting = Canvas().OverlayOf("ghost");
    EXPECT_EQ(std::get<OverlayPieces>(inserting.at(0)).Codes, (std::vector<std::string>{"C164", "C164"}));
    menu.close();
}

TEST_F(PieceMenus, AGhostOfItsStaysWhereItIsWhenSomethingElseChanges) {
    Open(ProjectOf("C160 C160 C159"));
    QMenu& menu = OpenMenu(At(8, 50));
    const auto start = [this] { return std::get<OverlayPieces>(Canvas().OverlayOf("ghost").at(0)).Start; };

    QTest::keyClick(Window.get(), Qt::Key_2);
    for (const char* const pieces : {"mnuReplacements", "mnuInsertions"}) {
        menu.findChild<QMenu*>(pieces)->actions().at(0)->hover();
        Session->Do([&] { Session->Looks.Legend ^= true; });
        EXPECT_EQ(start(), (BuildCursor{0, 35, 0})) << pieces;
    }
    menu.close();

    const QPointF place(5, 5);
    QEnterEvent enter(place, place, Piece("C158").mapToGlobal(place));
    QApplication::sendEvent(&Piece("C158"), &enter);
    Session->Do([&] { Session->Looks.Legend ^= true; });
    EXPECT_EQ(start(), (BuildCursor{0, 87.5F, 0})) << "a button's, at the end";
}

TEST_F(PieceMenus, OpensOnTheListOfElements) {
    Open(ProjectOf("C160 C159"));
    QMenu& menu = OpenMenuOfLine(1);
    EXPECT_EQ(menu.actions().at(0)->text(), "C159 · element 1 of track 1");
    menu.findChild<QAction*>("cmdDelete")->trigger();

    EXPECT_EQ(Codes(), "C160");
    menu.close();
}

TEST_F(PieceMenus, OpensByItsKeyWhereTheSelectedPieceLies) {
    Open(ProjectOf("C160 C160"));
    ClickLine(1);

    QContextMenuEvent event(QContextMenuEvent::Keyboard, {1, 1}, Picture().mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&Picture(), &event);

    QMenu& menu = *Picture().findChild<QMenu*>("mnuPiece");
    EXPECT_EQ(menu.pos(), Picture().mapToGlobal(At(7.75F, 52.5F)));
    menu.close();
}

TEST_F(PieceMenus, TellsWhyWhatCannotBeDone) {
    Open(ProjectOf("C160 C154L"));
    QMenu& menu = OpenMenu(At(8, 17));

    const QAction& startHere = *menu.findChild<QAction*>("mnuStartHere");
    EXPECT_FALSE(startHere.isEnabled());
    EXPECT_EQ(startHere.toolTip(), "The track is not closed.");
    menu.close();
    QMenu& ofHairpin = OpenMenu(At(4, 45));
    ASSERT_EQ(Project.EditState.SelectedElement(), 1);
    const QAction& replace = *ofHairpin.findChild<QMenu*>("mnuReplacements")->menuAction();
    EXPECT_FALSE(replace.isEnabled());
    EXPECT_EQ(replace.toolTip(), "No other piece has this one's shape.");
    ofHairpin.close();
}

TEST_F(PieceMenus, TellsWhyNothingGoesBeforeAnUnknownPiece) {
    Open(ProjectOf("C160 X99"));
    QMenu& menu = OpenMenuOfLine(1);

    const QAction& insert = *menu.findChild<QMenu*>("mnuInsertions")->menuAction();
    EXPECT_FALSE(insert.isEnabled());
    EXPECT_EQ(insert.toolTip(), "The catalogue has no such piece.");
    menu.close();
}

TEST_F(PieceMenus, StartHereRenumbersFromThePieceUnderTheMouse) {
    Open(ProjectOf(Ring));
    QMenu& menu = OpenMenu(At(-30, 17)); // the straight on the other side

    menu.findChild<QAction*>("mnuStartHere")->trigger();

    EXPECT_EQ(Codes(), Ring) << "half a lap on it looks the same";
    EXPECT_NEAR(First().TrackStartX, -43.6, 0.01);
    menu.close();
}

} // namespace
} // namespace pistaro
