// Stock and price as a panel: whose undo it is, what its buttons lead to, and how it uses a wide or narrow window.
#include "support/stock.h"
#include "ui/elided_label.h"
#include "ui/field_table.h"
#include "ui/panels_fixture.h"

#include <QHeaderView>
#include <QImage>
#include <QPushButton>
#include <QTimer>

namespace pistaro {
namespace {

class MoneyPanel : public Panels {
protected:
    /// Two products, C159 and C160, and a piece that was laid last.
    MoneyPanel() {
        OpenWithSettings(ProjectOf("C160 C159"));
        ShowPanel("mnuMoney");
        Click("cmdElement", "C160");
        QTest::qWait(1);
        List().setFocus();
        QTest::keyClick(&List(), Qt::Key_Right);
    }

    QTreeWidget& List() { return Tree("lstMoney"); }

    void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, with);
        QTest::qWait(1);
    }

    void TypePrice(const char* price) {
        for (const char* key = price; *key != 0; ++key)
            QTest::keyClick(QApplication::focusWidget(), *key);
        Press(Qt::Key_Return);
    }

    /// Closes the dialog that a button opens; gives its name.
    QString DialogOf(const char* button) {
        QString name;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            name = dialog->objectName();
            dialog->close();
        });
        timer.start(5);
        QTest::mouseClick(&Button(button), Qt::LeftButton);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !name.isEmpty(); }));
        timer.stop();
        Window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        return name;
    }

    float Price(const char* code) const { return Session->Project.Stock[Pieces().FindHeadRow(code)].Price; }
};

TEST_F(MoneyPanel, TakesAnEntryBackAfterADialogOfItsButtons) {
    TypePrice("3.5");
    ASSERT_EQ(Price("C159"), 3.5F);

    EXPECT_EQ(DialogOf("cmdMoneyPurchase"), "frmPurchase");
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(Find<QDockWidget>("fraMoney").isAncestorOf(QApplication::focusWidget()));
    Press(Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Price("C159"), 0);
    EXPECT_EQ(Codes(), "C160 C159 C160") << "the design stays";
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Price("C159"), 3.5F);
}

TEST_F(MoneyPanel, UndoesFromItsButtonsAndNeverTheDesign) {
    TypePrice("3.5");
    Button("cmdMoneySets").setFocus(Qt::TabFocusReason);

    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Price("C159"), 0);
    Button("cmdMoneySets").setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Codes(), "C160 C159 C160");

    Picture().setFocus();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Codes(), "C160 C159") << "outside it is the design's turn";
}

TEST_F(MoneyPanel, UndoesTheLastEntryFromAFieldThatWasOnlyOpened) {
    TypePrice("3.5");
    ASSERT_NE(List().findChild<QLineEdit*>(), nullptr) << "the next field is open";

    Press(Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Price("C159"), 0);
    EXPECT_EQ(Codes(), "C160 C159 C160");
}

TEST_F(MoneyPanel, LeadsToLooseTrackAndTellsItsKey) {
    EXPECT_EQ(Button("cmdMoneyStock").text(), "Loose Track…");
    EXPECT_EQ(Button("cmdMoneyStock").toolTip(), "Tell how many pieces you own, and what one costs (F3)");

    QTest::mouseClick(&Button("cmdMoneyStock"), Qt::LeftButton);

    const auto* const stock = Window->findChild<QDialog*>("frmStock");
    ASSERT_NE(stock, nullptr);
    EXPECT_TRUE(stock->isVisible());
}

TEST_F(MoneyPanel, FillsAWideWindowByItsNames) {
    const int narrow = List().columnWidth(2);
    Window->resize(1920, 1000);
    QTest::qWait(20);

    const int words = List().fontMetrics().horizontalAdvance(List().topLevelItem(1)->text(1));
    EXPECT_GT(List().columnWidth(1), words + 60);
    EXPECT_EQ(List().columnWidth(2), narrow) << "numbers keep their width";
    EXPECT_EQ(List().header()->length(), List().viewport()->width());
}

TEST_F(MoneyPanel, TellsTheCountsShorterWhereThereIsLessRoom) {
    TypePrice("4"); // else its hint stands there
    auto& counts = Find<ElidedLabel>("lblMoneyPieces");
    ASSERT_TRUE(counts.isVisible());
    const QString whole = counts.text();
    const QFontMetrics metrics = counts.fontMetrics();

    counts.resize(metrics.horizontalAdvance(whole) + 2, counts.height());
    EXPECT_EQ(counts.Fitting(), whole);
    counts.resize(metrics.horizontalAdvance(whole) - 10, counts.height());
    const QString shorter = counts.Fitting();
    EXPECT_NE(shorter, whole);
    EXPECT_TRUE(whole.endsWith(shorter)) << shorter.toStdString();
    counts.resize(metrics.horizontalAdvance(shorter) - 10, counts.height());
    EXPECT_TRUE(counts.Fitting().contains(" missing of ")) << counts.Fitting().toStdString();
}

TEST_F(MoneyPanel, ShowsItsHintWholeOrNotAtAll) {
    auto& hint = Find<QLabel>("lblMoneyHint");
    for (const int width : {1920, 1366, 1100, 1024}) {
        Window->resize(width, 700);
        QTest::qWait(20);
        ASSERT_TRUE(hint.isVisible());
        const bool fits = hint.fontMetrics().horizontalAdvance(hint.text()) <= hint.contentsRect().width();
        const QImage shown = hint.grab().toImage();
        QImage blank = shown;
        blank.fill(shown.pixelColor(0, 0));
        EXPECT_EQ(shown != blank, fits) << width;
    }
}

TEST_F(MoneyPanel, TellsTheLimitOfAPrice) {
    TypePrice("99999999");

    EXPECT_TRUE(Find<QLabel>("lblFieldFault").text().startsWith("A price is at most 1"));
    EXPECT_EQ(Price("C159"), 0);
}

} // namespace
} // namespace pistaro
