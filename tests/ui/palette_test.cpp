// The palette's badges, fold-outs, search and switch, as the mouse and the keys reach them.
#include "ui/window_fixture.h"

#include "support/stock.h"
#include "ui/piece_badge.h"
#include "ui/piece_button.h"

#include <QEnterEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>

namespace pistaro {
namespace {

const QColor TooFew(198, 40, 40);

class PaletteTest : public WindowTest {
protected:
    void TearDown() override { QCursor::setPos(0, 0); } // for whoever comes next

    PieceButton& Palette(const std::string& code) { return dynamic_cast<PieceButton&>(Piece(code)); }
    QLineEdit& Line() { return Find<QLineEdit>("txtFindPiece"); }
    QListWidget& FoundPieces() { return Find<QListWidget>("lstFoundPieces"); }

    /// Types into the search line, to which Ctrl+F leads.
    void Search(const char* words) {
        QTest::keyClick(Window.get(), Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), words);
    }
    std::vector<std::string> FoundLines() {
        std::vector<std::string> lines;
        for (int line = 0; line < FoundPieces().count(); ++line)
            lines.push_back(FoundPieces().item(line)->text().replace('\n', ' ').toStdString());
        return lines;
    }

    /// How many pixels of a button's picture have the badge's red.
    int RedPixels(const std::string& code) {
        const QImage picture = Piece(code).grab().toImage();
        int red = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                red += picture.pixelColor(x, y) == TooFew;
        return red;
    }

    /// Presses the fold-out of a button; gives its menu.
    QMenu& Unfold(const std::string& code) {
        QTest::mouseClick(&Palette(code), Qt::LeftButton, {}, Palette(code).FoldOutPlace().center());
        auto& menu = Find<QMenu>("mnuFoldOut", code);
        EXPECT_TRUE(menu.isVisible());
        return menu;
    }
    /// Moves the mouse onto an entry of a menu that is open.
    static void PointAt(QMenu& menu, int entry) {
        QTest::mouseMove(&menu, menu.actionGeometry(menu.actions().at(entry)).center() - QPoint(0, 2));
        QTest::mouseMove(&menu, menu.actionGeometry(menu.actions().at(entry)).center());
        QApplication::processEvents();
    }
    void PointAtFound(int line) {
        QTest::mouseMove(FoundPieces().viewport(), FoundPieces().visualItemRect(FoundPieces().item(line)).center());
        QApplication::processEvents();
    }
    const OverlayPieces& Ghost() { return std::get<OverlayPieces>(Canvas().OverlayOf("ghost").at(0)); }
    std::string GhostWords() { return std::get<OverlayText>(Canvas().OverlayOf("ghost").at(1)).Text; }
    /// Moves the mouse with its left button down.
    static void SendMove(QWidget& widget, QPoint place) {
        QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&widget, &move);
    }
    static void Press(QMenu& menu, int entry) {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(entry)).center());
    }
};

TEST_F(PaletteTest, ABadgeTellsWhatIsLeftAndIsRedBelowZero) {
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C160", 1);
    Open(project);
    EXPECT_EQ(Piece("C160").accessibleDescription(), "1 left; Alt+Down opens its special pieces");
    EXPECT_EQ(Piece("C157").accessibleDescription(), "0 left");

    Click("cmdElement", "C160");
    EXPECT_EQ(RedPixels("C160"), 0);
    Click("cmdElement", "C160");

    EXPECT_EQ(Piece("C160").accessibleDescription(), "−1 left; Alt+Down opens its special pieces");
    EXPECT_GT(RedPixels("C160"), 20);
    EXPECT_EQ(RedPixels("C157"), 0);
}

TEST_F(PaletteTest, APieceTellsItsNameToWhoDoesNotSeeIt) {
    Open();
    EXPECT_EQ(Piece("C151R").accessibleName(), "C151, standard curve 45°, right");
    EXPECT_EQ(Piece("N10110").accessibleName(), "N10110, converter to Ninco");
}

TEST_F(PaletteTest, AFoldedOutSpecialPieceReplacesTheSelectedOneElseIsAdded) {
    Open(ProjectOf("C160 C151L"));
    ClickLine(0);

    QMenu& menu = Unfold("C160");
    EXPECT_EQ(Codes(), "C160 C151L") << "to unfold lays nothing";
    EXPECT_EQ(menu.actions().size(), 6);
    EXPECT_EQ(menu.actions().at(4)->text(), "C8007  standard chicane");
    Press(menu, 4);
    EXPECT_EQ(Codes(), "C8007 C151L");

    Press(Unfold("C159"), 1);
    EXPECT_EQ(Codes(), "C8007 C151L C367");
}

TEST_F(PaletteTest, ASpecialPieceIsDraggedFromItsFoldOutOntoTheDrawing) {
    Open(ProjectOf("C160 C160"));
    ClickLine(0);
    QMenu& menu = Unfold("C160");
    const QPoint entry = menu.actionGeometry(menu.actions().at(4)).center();

    QTest::mousePress(&menu, Qt::LeftButton, {}, entry);
    SendMove(menu, entry + QPoint(0, 12));
    EXPECT_TRUE(menu.isVisible()) << "along the menu it chooses";
    SendMove(menu, QPoint(menu.width() + 20, entry.y()));
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(QWidget::mouseGrabber(), &Picture());
    const QPointF place(5, 5);
    QEnterEvent enter(place, place, Piece("C153R").mapToGlobal(place));
    QApplication::sendEvent(&Piece("C153R"), &enter); // which the menu had covered
    const QPoint between = Canvas().PlaceOf({12, 37}).toPoint();
    SendMove(Picture(), between);
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C8007"}));
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 35, 0}));
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, between);

    EXPECT_EQ(Codes(), "C160 C8007 C160") << "between two, not in the selected one's place";
    EXPECT_EQ(Entry("mnuUndo").text(), "&Undo Insert C8007");
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
}

TEST_F(PaletteTest, APieceFoundIsDraggedOntoTheDrawing) {
    Open(ProjectOf("C160"));
    Search("hump");
    const QPoint line = FoundPieces().visualItemRect(FoundPieces().item(0)).center();

    QTest::mousePress(FoundPieces().viewport(), Qt::LeftButton, {}, line);
    SendMove(*FoundPieces().viewport(), QPoint(FoundPieces().width() + 200, line.y()));
    const QPoint end = Canvas().PlaceOf({8, 40}).toPoint();
    SendMove(Picture(), end);
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, end);

    EXPECT_EQ(Codes(), "C160 C248");
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST_F(PaletteTest, ThePieceFoundThatTheButtonWentDownOnIsTheOneDragged) {
    Open(ProjectOf("C160"));
    Search("chic");
    QWidget& found = *FoundPieces().viewport();
    const auto middle = [this](int line) { return FoundPieces().visualItemRect(FoundPieces().item(line)).center(); };
    ASSERT_EQ(FoundLines().at(1).substr(0, 5), "C8007");

    QTest::mousePress(&found, Qt::LeftButton, {}, middle(1));
    SendMove(found, middle(0));
    SendMove(found, middle(0) + QPoint(FoundPieces().width() + 200, 0));
    const QPoint end = Canvas().PlaceOf({8, 40}).toPoint();
    SendMove(Picture(), end);
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, end);

    EXPECT_EQ(Codes(), "C160 C8007");
}

TEST_F(PaletteTest, WordsMarkedInTheSearchLineTakeNoPieceUp) {
    Open(ProjectOf("C160"));
    Search("hump");

    QTest::mousePress(&Line(), Qt::LeftButton, {}, QPoint(30, Line().height() / 2));
    SendMove(Line(), QPoint(5, Line().height() / 2));
    SendMove(Line(), QPoint(Line().width() + 400, Line().height() / 2 + 200));

    EXPECT_NE(QWidget::mouseGrabber(), &Picture());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
    QTest::mouseRelease(&Line(), Qt::LeftButton);
    EXPECT_EQ(Codes(), "C160");
}

TEST_F(PaletteTest, ADigitBeforeASpecialPieceLaysSoMany) {
    Open();

    QTest::keyClick(Window.get(), Qt::Key_3);
    Press(Unfold("C160"), 5);

    EXPECT_EQ(Codes(), "C8009 C8009 C8009");
    Choose("mnuUndo");
    EXPECT_EQ(Codes(), "") << "as one step";
}

TEST_F(PaletteTest, ADigitBeforeASearchLaysSoManyOfThePieceFound) {
    Open();

    QTest::keyClick(Window.get(), Qt::Key_2);
    Search("hump");
    QTest::keyClick(&Line(), Qt::Key_Return);

    EXPECT_EQ(Codes(), "C248 C248");
}

TEST_F(PaletteTest, AFoldedOutPieceAppearsAsAGhostWhereAPressWouldPutIt) {
    pistaro::Project project = ProjectOf("C160 C160");
    SetStock(project, "C8007", 2);
    Open(project);
    QMenu& menu = Unfold("C160");

    PointAt(menu, 4);
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C8007"}));
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 70, 0}));
    EXPECT_EQ(GhostWords(), "C8007 · then 1 left · gap 105.0 cm");
    menu.close();
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());

    ClickLine(0);
    Unfold("C159");
    PointAt(Find<QMenu>("mnuFoldOut", "C159"), 0);
    EXPECT_EQ(GhostWords(), "C277 · then −1 left · gap 87.5 cm") << "of another shape than the selected piece";
    Find<QMenu>("mnuFoldOut", "C159").close();
    PointAt(Unfold("C160"), 4);
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 0, 0}));
    EXPECT_EQ(GhostWords(), "C8007 in place of C160 · then 1 left · gap 70.0 cm");
}

TEST_F(PaletteTest, APieceFoundAppearsAsAGhostWhileTheMouseIsOnIt) {
    pistaro::Project project = ProjectOf("C160");
    SetStock(project, "C159", 3);
    Open(project);
    Search("c159");
    QApplication::processEvents();

    PointAtFound(0);
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 35, 0}));
    EXPECT_EQ(GhostWords(), "C159 · then 2 left · gap 52.5 cm");

    QTest::mouseMove(FoundPieces().viewport(), {20, FoundPieces().viewport()->height() - 5});
    QApplication::processEvents();
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty()) << "below the lines";
    PointAtFound(0);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(FoundPieces().viewport(), &leave);
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
}

TEST_F(PaletteTest, APieceFoundThatTheArrowKeysLeadToAppearsAsAGhost) {
    Open(ProjectOf("C160"));
    Search("22.5 left");
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty()) << "what is typed points at nothing";

    QTest::keyClick(&Line(), Qt::Key_Down);
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C154L"}));
    QTest::keyClick(&Line(), Qt::Key_Up);
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C153L"}));
    QTest::keyClick(&Line(), Qt::Key_Up);
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C153L"})) << "it is the first one";
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 35, 0}));
    QTest::keyClick(&Line(), Qt::Key_Return);
    EXPECT_NE(Ghost().Start, (BuildCursor{0, 35, 0})) << "the next one follows on it";
    FoundPieces().setFocus();
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty()) << "the keyboard went elsewhere";
    QTest::keyClick(&FoundPieces(), Qt::Key_Down);
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C154L"}));

    QTest::keyClick(&FoundPieces(), Qt::Key_Escape);
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
}

TEST_F(PaletteTest, AltDownUnfoldsWithoutTheMouse) {
    Open();
    Piece("C151R").setFocus();

    QTest::keyClick(&Piece("C151R"), Qt::Key_Down, Qt::AltModifier);
    auto& menu = Find<QMenu>("mnuFoldOut", "C151R");
    ASSERT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);

    EXPECT_EQ(Codes(), "C8010R");
}

TEST_F(PaletteTest, TheSearchShowsWhatIsFoundInPlaceOfTheButtons) {
    Open();
    const int width = Picture().width();

    Search("chic");
    QApplication::processEvents();

    EXPECT_EQ(FoundLines(),
              (std::vector<std::string>{"C8005 skid chicane", "C8007 standard chicane", "C8009 chicane extension",
                                        "C8010 curved chicane ext., left", "C8010 curved chicane ext., right"}));
    EXPECT_TRUE(FoundPieces().isVisible());
    EXPECT_FALSE(Find<QGroupBox>("fraStraights").isVisible());
    EXPECT_EQ(Picture().width(), width) << "the drawing keeps its place";

    QTest::keyClick(&Line(), Qt::Key_Escape);
    EXPECT_EQ(Line().text(), "");
    EXPECT_TRUE(Picture().hasFocus()) << "a digit typed now is meant for a piece";
    EXPECT_FALSE(FoundPieces().isVisible());
    EXPECT_TRUE(Find<QGroupBox>("fraStraights").isVisible());
}

TEST_F(PaletteTest, EnterLaysTheFirstPieceFoundAndTheArrowsLeadToOthers) {
    Open();

    Search("22.5 left");
    QTest::keyClick(&Line(), Qt::Key_Return);
    EXPECT_EQ(Codes(), "C153L");
    QTest::keyClick(&Line(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Codes(), "") << "undone is the piece, not what was typed";
    QTest::keyClick(&Line(), Qt::Key_Return);
    EXPECT_EQ(Codes(), "C153L");

    QTest::keyClick(&Line(), Qt::Key_Down);
    QTest::keyClick(&Line(), Qt::Key_Return);
    EXPECT_EQ(Codes(), "C153L C154L");
}

TEST_F(PaletteTest, AClickLaysAPieceFoundAndOffersItsSystem) {
    Open();

    Search("N10107");
    QTest::mouseClick(FoundPieces().viewport(), Qt::LeftButton, {},
                      FoundPieces().visualItemRect(FoundPieces().item(1)).center());

    EXPECT_EQ(Codes(), "N10107R");
    EXPECT_EQ(Project.EditState.System, TrackSystem::Ninco);
    Choose("mnuUndo");
    EXPECT_EQ(Codes(), "") << "as one step";
}

TEST_F(PaletteTest, WhatIsNotFoundIsSaidAndLaysNothing) {
    Open();

    Search("tunnel");
    QTest::keyClick(&Line(), Qt::Key_Return);

    EXPECT_EQ(FoundLines(), (std::vector<std::string>{"No piece matches."}));
    EXPECT_EQ(Codes(), "");
}

TEST_F(PaletteTest, DigitsInTheSearchLineAreLookedFor) {
    Open();

    Search("45");

    EXPECT_EQ(Line().text(), "45");
    EXPECT_EQ(Text("lblStatus"), "Track 1 · empty");
}

TEST_F(PaletteTest, TheSearchUnfoldsColumnsThatAreFoldedAway) {
    Open();
    Choose("mnuColumns");
    EXPECT_FALSE(Line().isVisible());

    QTest::keyClick(Window.get(), Qt::Key_F, Qt::ControlModifier);

    EXPECT_TRUE(Line().isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &Line());
}

TEST_F(PaletteTest, TheSwitchShowsBothModesAndItsKnobAtTheOneInForce) {
    Open(ProjectOf("C160"));
    QAbstractButton& mode = Button("cmdInsert");
    const QImage building = mode.grab().toImage();
    EXPECT_EQ(mode.accessibleDescription(), "Build is on: pieces go to the end of the track");

    Click("cmdInsert");
    EXPECT_TRUE(Project.EditState.InsertMode);
    EXPECT_EQ(mode.accessibleDescription(), "Insert is on: pieces go before the selected one");
    EXPECT_NE(mode.grab().toImage(), building);

    QTest::keyClick(Window.get(), Qt::Key_Insert);
    EXPECT_FALSE(Project.EditState.InsertMode);
}

} // namespace
} // namespace pistaro
