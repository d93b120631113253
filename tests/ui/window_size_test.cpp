// The window on low screens and with large letters, and where the keyboard is.
#include "support/stock.h"
#include "ui/window_fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QProgressBar>
#include <QScrollBar>
#include <QWheelEvent>

namespace pistaro {

namespace {

/// Letters of another size, as long as it lives.
class LetterSize {
public:
    explicit LetterSize(int points) : before_(QApplication::font()) {
        QFont letters = before_;
        letters.setPointSize(points);
        QApplication::setFont(letters);
    }
    ~LetterSize() { QApplication::setFont(before_); }
    LetterSize(const LetterSize&) = delete;
    LetterSize& operator=(const LetterSize&) = delete;

private:
    QFont before_;
};

class WindowSize : public WindowTest {
protected:
    static bool ShowsWholly(const QWidget& control) { return control.visibleRegion() == QRegion(control.rect()); }

    /// Over the column that the control stands in.
    static void TurnWheelDown(const QWidget& control) {
        QWidget* column = control.parentWidget();
        while (column->objectName() != "qt_scrollarea_viewport")
            column = column->parentWidget();
        const QPointF place(5, 5);
        QWheelEvent turn(place, column->mapToGlobal(place), {}, {0, -1200}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(column, &turn);
    }
};

} // namespace

TEST_F(WindowSize, ShowsEveryControlWhollyFromTheStart) {
    Open();

    for (const QAbstractButton* const button : Window->findChildren<QAbstractButton*>()) {
        if (!button->isVisible()) continue;
        EXPECT_TRUE(ShowsWholly(*button)) << button->objectName().toStdString() << " " << button->text().toStdString();
    }
}

TEST_F(WindowSize, OnALowScreenTheSideColumnsScroll) {
    Open();

    Window->resize(900, 400);
    QApplication::processEvents();

    EXPECT_EQ(Window->height(), 400);
    EXPECT_TRUE(Find<QWidget>("lblStatus").isVisible());
    EXPECT_TRUE(ShowsWholly(Piece("C157"))) << "beside the scroll bar";
    EXPECT_FALSE(ShowsWholly(Button("cmdSeeRemaining")));
    TurnWheelDown(Piece("C160"));
    EXPECT_TRUE(ShowsWholly(Button("cmdSeeRemaining")));
    TurnWheelDown(Button("cmdMvUp"));
    EXPECT_TRUE(ShowsWholly(Button("cmdDelete")));
}

TEST_F(WindowSize, OnAWideScreenMostOfTheWidthIsDrawing) {
    Open(ProjectOf("C160"));

    Window->resize(1920, 1080);
    QApplication::processEvents();

    EXPECT_GE(Picture().width(), 1344) << "seven tenths";
}

TEST_F(WindowSize, AHandleAtEachSideFoldsItsColumnAndUnfoldsIt) {
    Open();
    const auto shows = [this] {
        return std::string(Piece("C160").isVisible() ? "pieces " : "") + (List().isVisible() ? "track" : "");
    };
    EXPECT_EQ(shows(), "pieces track");

    Click("cmdFoldTrack");
    EXPECT_EQ(shows(), "pieces ");
    Click("cmdFoldPieces");
    EXPECT_EQ(shows(), "");
    EXPECT_TRUE(ShowsWholly(Button("cmdFoldPieces")));
    EXPECT_TRUE(ShowsWholly(Button("cmdFoldTrack")));
    QTest::keyClick(Window.get(), Qt::Key_F9);
    EXPECT_EQ(shows(), "pieces track");

    QTest::keyClick(Window.get(), Qt::Key_F9);
    Click("cmdFoldTrack");
    EXPECT_EQ(shows(), "track") << "that one alone";
    QTest::keyClick(Window.get(), Qt::Key_F9);
    QTest::keyClick(Window.get(), Qt::Key_F9);
    EXPECT_EQ(shows(), "track") << "as it was";
    Click("cmdFoldPieces");
    EXPECT_EQ(shows(), "pieces track");
}

TEST_F(WindowSize, WhereThereIsRoomForOneColumnItFoldsTheOther) {
    Open();
    Session->HasRoomForColumns = false;
    Session->Do([&] { Session->Looks.Columns = false; });

    QTest::keyClick(Window.get(), Qt::Key_F9);
    EXPECT_TRUE(Piece("C160").isVisible());
    EXPECT_FALSE(List().isVisible());
    Click("cmdFoldTrack");
    EXPECT_FALSE(Piece("C160").isVisible());
    EXPECT_TRUE(List().isVisible());
    Click("cmdFoldPieces");
    EXPECT_TRUE(Piece("C160").isVisible());
    EXPECT_FALSE(List().isVisible());
    Click("cmdFoldPieces");
    EXPECT_FALSE(Piece("C160").isVisible());
    EXPECT_FALSE(List().isVisible());
}

TEST_F(WindowSize, AStatusLineThatIsTooLongGivesWayAndTellsAllInItsTip) {
    pistaro::Project project = ProjectOf("C160 C151L C151L C151L C8006");
    project.Preferences.Units.Currency = "shillings of the club's own house";
    SetStock(project, "C160", 0, 2.5F);
    Open(project);
    Window->resize(1024, 640);
    QApplication::processEvents();
    EXPECT_EQ(Window->width(), 1024) << "it does not widen the window";
    Picture().grab();
    auto& figures = Find<QLabel>("lblFigures");
    figures.grab();

    EXPECT_EQ(figures.toolTip(), figures.text());
    EXPECT_GE(Find<QLabel>("lblStatus").width(), Find<QLabel>("lblStatus").sizeHint().width());

    Window->resize(1920, 1080);
    QApplication::processEvents();
    figures.grab();
    EXPECT_EQ(figures.toolTip(), "");
}

TEST_F(WindowSize, TheKeyboardScrollsToWhatItReaches) {
    Open();
    Window->resize(900, 400);
    QApplication::processEvents();

    Piece("C187R").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);

    EXPECT_EQ(QApplication::focusWidget(), &Button("cmdSeeRemaining"));
    EXPECT_TRUE(ShowsWholly(Button("cmdSeeRemaining")));
}

TEST_F(WindowSize, LargeLettersClipNoCaption) {
    const LetterSize large(18);
    Open(ProjectOf("C154L"));
    ClickLine(0);

    for (const char* const code : {"C160", "C151L", "C187R"})
        EXPECT_LT(Piece(code).fontMetrics().horizontalAdvance(Piece(code).text()), Piece(code).width()) << code;
    for (const char* const track : {"1", "2", "3"})
        EXPECT_TRUE(ShowsWholly(Button("optTrack", track))) << track;
    for (QWidget* const control :
         {static_cast<QWidget*>(&Button("optAll")), static_cast<QWidget*>(&Button("chkNumbers")),
          static_cast<QWidget*>(&Button("cmdDelete")), static_cast<QWidget*>(&Find<QLabel>("lblElType"))}) {
        EXPECT_TRUE(ShowsWholly(*control)) << control->objectName().toStdString();
        EXPECT_GE(control->width(), control->sizeHint().width()) << control->objectName().toStdString();
    }
    auto& job = Find<QProgressBar>("prgJob");
    EXPECT_LT(job.fontMetrics().horizontalAdvance("Drawing the guide: 40 of 40"), job.width());
    Choose("mnuScalextricNinco");
    EXPECT_LT(Piece("N10110").fontMetrics().horizontalAdvance("10110"), Piece("N10110").width());
}

TEST_F(WindowSize, TheColumnsKeepTheirWidthWhateverIsSelected) {
    pistaro::Project project = ProjectOf("C157 C154L");
    project.Design.Circuit.Tracks[0].ElementCodes.emplace_back("a text as a file may hold it where a code is expected");
    Open(project);
    const int width = Picture().width();

    for (const int line : {0, 1, 2}) {
        ClickLine(line);
        QApplication::processEvents();
        EXPECT_EQ(Picture().width(), width) << line;
    }
}

TEST_F(WindowSize, TheArrowKeysLeadToTheButtonThatLiesThere) {
    Open();
    Piece("C159").setFocus();
    const auto go = [](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        return QApplication::focusWidget();
    };

    EXPECT_EQ(go(Qt::Key_Down), &Piece("C154L"));
    EXPECT_EQ(go(Qt::Key_Down), &Piece("C156L"));
    EXPECT_EQ(go(Qt::Key_Right), &Piece("C152R"));

    Button("cmdMvUpLeft").setFocus();
    EXPECT_EQ(go(Qt::Key_Down), &Button("cmdMvLeft"));
    EXPECT_EQ(Codes(), "");
}

TEST_F(WindowSize, AScrollBarShowsThatTheKeysMoveIt) {
    Open();
    for (const char* const name : {"hMov", "vMov"}) {
        auto& bar = Find<QScrollBar>(name);
        Button("cmdInsert").setFocus();
        const QImage without = bar.grab().toImage();

        bar.setFocus();

        EXPECT_NE(bar.grab().toImage(), without) << name;
    }
}

} // namespace pistaro
