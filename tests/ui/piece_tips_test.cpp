// The tips of pieces, which cover neither what they tell of nor what lies next to it.
#include "ui/piece_button.h"
#include "ui/window_fixture.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QToolTip>

namespace pistaro {
namespace {

class PieceTips : public WindowTest {
protected:
    void TearDown() override { QToolTip::hideText(); }

    /// Rests the mouse there; gives the tip's place on the screen.
    static QRect PlaceOfTip(QWidget& widget, QPoint place) {
        QHelpEvent help(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &help);
        for (const QWidget* const window : QApplication::topLevelWidgets())
            if (window->inherits("QTipLabel") && window->isVisible()) return window->geometry();
        return {};
    }

    /// Where the column of the pieces ends on the screen.
    int EdgeOfColumn() {
        const QWidget* column = &Piece("C160");
        while (qobject_cast<const QScrollArea*>(column) == nullptr)
            column = column->parentWidget();
        return column->mapToGlobal(QPoint(column->width(), 0)).x();
    }
};

TEST_F(PieceTips, StandBesideTheColumnOfThePieces) {
    Open();
    auto& button = dynamic_cast<PieceButton&>(Piece("C160"));

    EXPECT_GT(PlaceOfTip(button, {10, 10}).left(), EdgeOfColumn());
    EXPECT_EQ(QToolTip::text(), button.toolTip());
    EXPECT_GT(PlaceOfTip(button, button.FoldOutPlace().center()).left(), EdgeOfColumn());
    EXPECT_EQ(QToolTip::text(), "Special pieces of this shape (Alt+↓)");
}

TEST_F(PieceTips, OfPiecesFoundStandBesideTheColumn) {
    Open();
    QTest::keyClicks(&Find<QLineEdit>("txtFindPiece"), "chic");
    QApplication::processEvents();
    auto& found = Find<QListWidget>("lstFoundPieces");

    EXPECT_GT(PlaceOfTip(*found.viewport(), {20, 10}).left(), EdgeOfColumn());
    EXPECT_EQ(QToolTip::text(), found.item(0)->toolTip());
}

TEST_F(PieceTips, OfFoldedOutPiecesStandBesideTheMenu) {
    Open();
    auto& menu = Find<QMenu>("mnuFoldOut", "C160");
    menu.popup(Window->mapToGlobal(QPoint(100, 100)));
    const QAction& second = *menu.actions().at(1);

    const QRect tip = PlaceOfTip(menu, menu.actionGeometry(menu.actions().at(1)).center());

    EXPECT_EQ(QToolTip::text(), second.toolTip());
    EXPECT_FALSE(tip.isEmpty());
    EXPECT_FALSE(tip.intersects(menu.geometry()));
    menu.close();
}

TEST_F(PieceTips, OfPiecesOfTheDrawingCoverNeitherThemNorTheirNeighbours) {
    Open(ProjectOf("C160 C160 C160"));
    const auto at = [this](float x, float y) { return Canvas().PlaceOf({x, y}).toPoint(); };
    QMouseEvent move(QEvent::MouseMove, at(8, 50), Picture().mapToGlobal(at(8, 50)), Qt::NoButton, {}, {});
    QApplication::sendEvent(&Picture(), &move);

    const QRect tip = PlaceOfTip(Picture(), at(8, 50));

    EXPECT_FALSE(tip.isEmpty());
    EXPECT_FALSE(tip.intersects({Picture().mapToGlobal(at(0, 105)), Picture().mapToGlobal(at(15.5F, 0))}));
}

} // namespace
} // namespace pistaro
