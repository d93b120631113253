// The table of stock and price: entries by the keyboard, and what stands out.
#include "support/stock.h"
#include "ui/field_table.h"
#include "ui/panels_fixture.h"

#include <QClipboard>
#include <QHeaderView>
#include <QImage>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

namespace pistaro {
namespace {

class MoneyTable : public Panels {
protected:
    /// Three products: C151, C159, C160.
    MoneyTable() {
        OpenWithSettings(ProjectOf("C160 C151R C159"));
        ShowPanel("mnuMoney");
    }

    QTreeWidget& List() { return Tree("lstMoney"); }

    void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, with);
        QTest::qWait(1);
    }

    /// The first key opens the field, which takes the others.
    void Type(const std::string& text) {
        for (const char key : text)
            QTest::keyClick(QApplication::focusWidget(), key);
    }

    /// That is being typed into.
    QLineEdit& Field() { return *List().findChild<QLineEdit*>(); }

    /// Why what is in it cannot be kept; empty where it can.
    std::string Reason() {
        const auto& note = Find<QLabel>("lblFieldFault");
        return note.isVisible() ? note.text().toStdString() : "";
    }

    void ClickOn(int line, int column) {
        const QRect place = List().visualRect(List().model()->index(line, column));
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, place.center());
    }

    int Owned(const char* code) const { return Session->Project.Stock[Pieces().FindHeadRow(code)].OwnedCount; }
    float Price(const char* code) const { return Session->Project.Stock[Pieces().FindHeadRow(code)].Price; }
};

TEST_F(MoneyTable, TakesTheKeyboardWhenItIsOpened) {
    EXPECT_TRUE(List().hasFocus());
    EXPECT_EQ(List().currentItem()->text(0), "C151");
    EXPECT_EQ(List().currentColumn(), 3);
}

TEST_F(MoneyTable, TellsANewcomerWhatCanBeTyped) {
    EXPECT_TRUE(Find<QLabel>("lblMoneyHint").isVisible());
    EXPECT_EQ(dynamic_cast<FieldTable&>(List()).HintOf(5), "price");

    Type("4");
    Press(Qt::Key_Return);

    EXPECT_FALSE(Find<QLabel>("lblMoneyHint").isVisible()) << "who has typed once needs it no more";
}

TEST_F(MoneyTable, AClickOpensAField) {
    Window->resize(1366, 768);
    QTest::qWait(1);
    const QRect price = List().visualRect(List().model()->index(1, 5));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, price.center());
    Type("2,75");
    Press(Qt::Key_Return);

    EXPECT_EQ(Price("C159"), 2.75F);
}

TEST_F(MoneyTable, DelEmptiesAField) {
    Press(Qt::Key_Right);
    Type("3.5");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Up);
    EXPECT_EQ(Price("C151"), 3.5F);

    Press(Qt::Key_Delete);

    EXPECT_EQ(Price("C151"), 0);
    EXPECT_EQ(Column("lstMoney", 5), (std::vector<std::string>{"", "", ""}));
    EXPECT_TRUE(Prompts.Told.empty());
    EXPECT_EQ(Codes(), "C160 C151R C159") << "no piece is meant";
}

TEST_F(MoneyTable, LettersBeginNoEntry) {
    Press(Qt::Key_C);

    EXPECT_EQ(List().findChild<QLineEdit*>(), nullptr);
    EXPECT_TRUE(Prompts.Told.empty());
}

TEST_F(MoneyTable, EntriesAreUndoneAndRedoneBeforeTheDesignIs) {
    Click("cmdElement", "C160");
    List().setFocus();
    Type("4");
    Press(Qt::Key_Return);
    Type("2");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);

    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Owned("C159"), 0);
    EXPECT_EQ(Owned("C151"), 4);
    EXPECT_EQ(List().currentItem()->text(0), "C159") << "where something changes is seen";
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Owned("C159"), 2);
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Owned("C151"), 0);
    EXPECT_EQ(Codes(), "C160 C151R C159 C160");

    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Codes(), "C160 C151R C159 C160") << "here nothing is about the design";
    Canvas().setFocus();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Codes(), "C160 C151R C159") << "there it is its turn";
}

TEST_F(MoneyTable, AColumnOfNumbersIsPasted) {
    QGuiApplication::clipboard()->setText("4\t3.50\n2\t2,75 €\n");
    Press(Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Owned("C151"), 4);
    EXPECT_EQ(Price("C151"), 3.5F);
    EXPECT_EQ(Owned("C159"), 2);
    EXPECT_EQ(Price("C159"), 2.75F);
    EXPECT_EQ(Owned("C160"), 0);
    EXPECT_EQ(Codes(), "C160 C151R C159") << "no pieces are laid";
    QTest::qWait(1);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Owned("C151"), 0) << "one step";
    EXPECT_EQ(Price("C159"), 0);
}

TEST_F(MoneyTable, AnEmptyCellThatIsPastedFirstKeepsItsColumn) {
    QGuiApplication::clipboard()->setText("\t3.50\r\n2\t2.75\r\n");
    Press(Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Owned("C151"), 0);
    EXPECT_EQ(Price("C151"), 3.5F);
    EXPECT_EQ(Owned("C159"), 2);
    EXPECT_EQ(Price("C159"), 2.75F);
    EXPECT_EQ(Owned("C160"), 0) << "the break at the end begins no line";
}

TEST_F(MoneyTable, ABlankClipboardChangesNoField) {
    Type("4");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Up);

    QGuiApplication::clipboard()->clear();
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Owned("C151"), 4);
    QGuiApplication::clipboard()->setText("\t \r\n");
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Owned("C151"), 4);
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QGuiApplication::clipboard()->setImage(picture);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Owned("C151"), 4);
}

TEST_F(MoneyTable, ARefusedEntryIsNoStep) {
    Type("4");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(Owned("C151"), 0);

    Type("99999");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    EXPECT_EQ(List().topLevelItem(0)->text(3), "0");
    Press(Qt::Key_Y, Qt::ControlModifier);

    EXPECT_EQ(Owned("C151"), 4) << "what was undone before can still be entered again";
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Owned("C151"), 0);
    EXPECT_TRUE(Prompts.Told.empty());
}

TEST_F(MoneyTable, AWrongPriceStaysInItsFieldUntilItIsMended) {
    Press(Qt::Key_Right);
    Type("1.x9");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Up, Qt::Key_Backtab}) {
        Press(key);
        EXPECT_EQ(List().currentItem()->text(0), "C151");
        EXPECT_EQ(Field().text(), "1.x9");
        EXPECT_TRUE(Field().hasFocus());
        EXPECT_EQ(Reason(), "A price is a number such as 4.95.");
    }
    EXPECT_TRUE(Field().styleSheet().contains("#d63c32")) << "marked";
    EXPECT_TRUE(Prompts.Told.empty());

    Press(Qt::Key_Left);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Reason(), "") << "it is right as soon as it is mended";
    EXPECT_EQ(Field().styleSheet(), "");
    Press(Qt::Key_Return);

    EXPECT_EQ(Price("C151"), 1.9F);
    EXPECT_EQ(List().currentItem()->text(0), "C159");
    EXPECT_EQ(Price("C159"), 0);
}

TEST_F(MoneyTable, AWrongCountIsToldWhatACountIs) {
    for (const char* const text : {"2.5", "-1", "99999", "4x"}) {
        Type(text);
        Press(Qt::Key_Return);
        EXPECT_EQ(Reason(), "A count is a whole number from 0 to 32767.") << text;
        Press(Qt::Key_Escape);
        EXPECT_EQ(Reason(), "");
        EXPECT_EQ(List().topLevelItem(0)->text(3), "0") << "Esc gives the old one back";
    }
    EXPECT_EQ(Owned("C151"), 0);
    EXPECT_TRUE(Prompts.Told.empty());
}

TEST_F(MoneyTable, AWrongEntryThatTheMouseLeavesIsNeitherLostNorMisplaced) {
    Press(Qt::Key_Right);
    Type("1.x9");
    ClickOn(2, 5);
    Type("3");
    Press(Qt::Key_Return);

    EXPECT_EQ(Price("C160"), 3);
    EXPECT_EQ(Price("C151"), 0);
    EXPECT_EQ(Price("C159"), 0);
    EXPECT_TRUE(Find<QLabel>("lblMoneyHint").isVisible());
    EXPECT_EQ(Text("lblMoneyHint"), "C151, not saved: A price is a number such as 4.95.");
    Press(Qt::Key_Escape);
    ClickOn(0, 5);
    EXPECT_EQ(Field().text(), "1.x9") << "it waits where it was typed";
    EXPECT_EQ(Reason(), "A price is a number such as 4.95.");
    QTest::keyClick(&Field(), Qt::Key_A, Qt::ControlModifier);
    Type("2.5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Price("C151"), 2.5F);
    EXPECT_FALSE(Find<QLabel>("lblMoneyHint").isVisible());
}

TEST_F(MoneyTable, EscTakesAWrongEntryBackAlsoOnceItsFieldIsClosed) {
    Type("4x");
    Find<QPushButton>("cmdMoneySets").setFocus();
    QTest::qWait(1);
    EXPECT_EQ(List().findChild<QLineEdit*>(), nullptr);
    EXPECT_TRUE(Find<QLabel>("lblMoneyHint").text().startsWith("C151, not saved"));

    List().setFocus();
    Press(Qt::Key_Escape);

    EXPECT_FALSE(Text("lblMoneyHint").starts_with("C151"));
    EXPECT_EQ(Owned("C151"), 0);
}

TEST_F(MoneyTable, ShowsTenProductsBesideAThirdOfASmallScreen) {
    Session->Do([&] {
        Project.Design.Circuit.Tracks[0].ElementCodes = {"C151L", "C152L", "C153L", "C154L", "C156L", "C157",
                                                         "C158",  "C159",  "C160",  "C164",  "C248"};
    });
    Window->resize(1366, 768);
    QTest::qWait(20);

    const QRect tenth = List().visualItemRect(List().topLevelItem(9));

    EXPECT_LE(tenth.bottom(), List().viewport()->height());
    EXPECT_GE(tenth.height(), List().fontMetrics().height()) << "nothing is cut off";
    EXPECT_GE(Canvas().height(), 320) << "the drawing stays the larger one";
}

TEST_F(MoneyTable, TellsThatItCountsTheWholeDesign) {
    EXPECT_EQ(Text("lblMoneyPieces"), "Whole design: 3 pieces, 3 missing");

    Session->Do([&] { Project.Design.Circuit.Tracks[2].ElementCodes = {"C160", "C160"}; });
    QTest::qWait(1);

    EXPECT_EQ(Text("lblMoneyPieces"), "Whole design, 2 tracks: 5 pieces, 5 missing");
}

TEST_F(MoneyTable, LeadsToTheSetsAndToTheCheapestPurchase) {
    QStringList opened;
    const auto close = [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr) return;
        opened += dialog->objectName();
        dialog->close();
    };
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, close);
    timer.start(5);

    QTest::mouseClick(&Button("cmdMoneySets"), Qt::LeftButton);
    QTest::mouseClick(&Button("cmdMoneyPurchase"), Qt::LeftButton);

    EXPECT_TRUE(QTest::qWaitFor([&] { return opened.size() == 2; }));
    EXPECT_EQ(opened, (QStringList{"frmSets", "frmPurchase"}));
}

TEST_F(MoneyTable, APasteOfWhichSomethingIsRefusedChangesNothingAndTellsOnce) {
    QGuiApplication::clipboard()->setText("4\n99999\n99998");
    Press(Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Reason(), "Nothing is pasted: \"99999\" for C159. A count is a whole number from 0 to 32767.");
    EXPECT_TRUE(Prompts.Told.empty());
    EXPECT_EQ(Owned("C151"), 0);
    EXPECT_EQ(Column("lstMoney", 3), (std::vector<std::string>{"0", "0", "0"}));
}

TEST_F(MoneyTable, WithoutACurrentFieldAPasteIsNoStep) {
    Click("cmdElement", "C160");
    List().setFocus();
    List().setCurrentItem(nullptr);
    QGuiApplication::clipboard()->setText("4");
    dynamic_cast<FieldTable&>(List()).Paste();
    List().setCurrentItem(List().topLevelItem(0), 3);

    Press(Qt::Key_Z, Qt::ControlModifier);

    EXPECT_TRUE(Find<QStatusBar>("").currentMessage().startsWith("Nothing to take back in Stock and Price."));
}

TEST_F(MoneyTable, UndoPutsNoOldCountOverOneThatWasEnteredElsewhere) {
    Type("4");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);

    Session->Do([&] { SetStock(Project, "C151L", 7, 0); });
    QTest::qWait(1);
    Press(Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Owned("C151"), 7);
}

TEST_F(MoneyTable, WithoutASettingsFileOpensNoFieldForAPrice) {
    Open(ProjectOf("C160 C159"));

    Session->Windows->EnterPrices();

    EXPECT_TRUE(List().isVisible());
    EXPECT_EQ(List().findChild<QLineEdit*>(), nullptr);
}

TEST_F(MoneyTable, PastesNothingThatIsNoNumber) {
    QGuiApplication::clipboard()->setText("4\nC160 x3");
    Press(Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Owned("C151"), 0);
    EXPECT_EQ(Codes(), "C160 C151R C159");
    EXPECT_TRUE(Prompts.Told.empty());
}

TEST_F(MoneyTable, AHeadingSortsUntilItIsClickedAThirdTime) {
    SetStock(Project, "C160", 0, 3);
    SetStock(Project, "C159", 0, 1);
    SetStock(Project, "C151L", 0, 2);
    const auto sorted = [&] {
        QHeaderView& header = *List().header();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(5) + 5, header.height() / 2});
        return Column("lstMoney", 0);
    };

    EXPECT_EQ(sorted(), (std::vector<std::string>{"C159", "C151", "C160"}));
    EXPECT_EQ(Column("lstMoney", 5), (std::vector<std::string>{"1.00", "2.00", "3.00"}));
    EXPECT_EQ(sorted(), (std::vector<std::string>{"C160", "C151", "C159"}));
    EXPECT_EQ(sorted(), (std::vector<std::string>{"C151", "C159", "C160"}));
}

TEST_F(MoneyTable, AnEntryKeepsTheOrderOfTheLines) {
    QHeaderView& header = *List().header();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      {header.sectionViewportPosition(5) + 5, header.height() / 2});
    const std::vector<std::string> before = Column("lstMoney", 0);
    List().setFocus();
    Press(Qt::Key_Right);
    Type("9");
    Press(Qt::Key_Return);

    EXPECT_EQ(Column("lstMoney", 0), before) << "no line is taken from under the hand";
}

TEST_F(MoneyTable, WhatIsBeingTypedIsTakenWhenTheDesignIsEmptied) {
    Type("7");

    Session->Do([&] { Project.Design.Circuit.Tracks[0].ElementCodes.clear(); });
    QTest::qWait(1);

    EXPECT_EQ(List().topLevelItemCount(), 0);
    EXPECT_EQ(List().findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(Owned("C151"), 7);
    EXPECT_EQ(Text("lblMoneyPieces"), "Whole design: 0 pieces, 0 missing");
}

TEST_F(MoneyTable, EnterGoesOnToTheNextLine) {
    Type("4");
    Press(Qt::Key_Return);
    Type("2");
    Press(Qt::Key_Enter);
    Type("12");
    Press(Qt::Key_Return);

    EXPECT_EQ(Owned("C151"), 4);
    EXPECT_EQ(Owned("C159"), 2);
    EXPECT_EQ(Owned("C160"), 12);
    EXPECT_TRUE(List().hasFocus()) << "behind the last line there is none";
    EXPECT_TRUE(Prompts.Told.empty());
    EXPECT_EQ(Session->Times, 1) << "digits say nothing of the next piece";
}

TEST_F(MoneyTable, TheArrowsGoOnInTheSameColumn) {
    Press(Qt::Key_Right);
    Type("3.5");
    Press(Qt::Key_Down);
    Type("2");
    Press(Qt::Key_Down);
    Type("9");
    Press(Qt::Key_Up);
    Type("2.75");
    Press(Qt::Key_Up);
    Press(Qt::Key_Escape);

    EXPECT_EQ(Price("C151"), 3.5F);
    EXPECT_EQ(Price("C159"), 2.75F) << "typed over";
    EXPECT_EQ(Price("C160"), 9);
    EXPECT_EQ(Column("lstMoney", 6), (std::vector<std::string>{"3.50", "2.75", "9.00"}));
}

TEST_F(MoneyTable, TabGoesOnFromFieldToField) {
    Type("4");
    Press(Qt::Key_Tab);
    Type("3.5");
    Press(Qt::Key_Tab);
    Type("2");
    Press(Qt::Key_Tab);
    Type("2.75");
    Press(Qt::Key_Backtab);
    Type("1");
    Press(Qt::Key_Backtab);
    Type("3.25");
    Press(Qt::Key_Escape);

    EXPECT_EQ(Owned("C151"), 4);
    EXPECT_EQ(Price("C151"), 3.5F) << "Esc leaves what was there";
    EXPECT_EQ(Owned("C159"), 1);
    EXPECT_EQ(Price("C159"), 2.75F);
}

TEST_F(MoneyTable, LeftAndRightLeadFromFieldToField) {
    EXPECT_EQ(List().currentColumn(), 3);
    Press(Qt::Key_Right);
    EXPECT_EQ(List().currentColumn(), 5);
    Press(Qt::Key_Right);
    EXPECT_EQ(List().currentColumn(), 5);
    Press(Qt::Key_Left);
    EXPECT_EQ(List().currentColumn(), 3);
    Press(Qt::Key_Down);
    EXPECT_EQ(List().currentColumn(), 3);
    EXPECT_EQ(List().currentItem(), List().topLevelItem(1));
}

TEST_F(MoneyTable, AClickBesideTheFieldsIsForTheFirst) {
    const QRect name = List().visualRect(List().model()->index(2, 1));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, name.center());
    Type("7");
    Press(Qt::Key_Return);

    EXPECT_EQ(Owned("C160"), 7);
}

TEST_F(MoneyTable, AnEntryIsLeftByEscapeAsItWas) {
    Type("7");
    Press(Qt::Key_Escape);

    EXPECT_EQ(Owned("C151"), 0);
    EXPECT_EQ(List().topLevelItem(0)->text(3), "0");
}

TEST_F(MoneyTable, WhatIsMissingStandsOut) {
    Type("1");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);

    EXPECT_EQ(Column("lstMoney", 4), (std::vector<std::string>{"–", "1", "1"}));
    EXPECT_FALSE(List().topLevelItem(0)->font(4).bold());
    EXPECT_TRUE(List().topLevelItem(1)->font(4).bold());
    EXPECT_EQ(Text("lblMoneyPieces"), "Whole design: 3 pieces, 2 missing");
}

TEST_F(MoneyTable, KeepsTheCurrentLineWhenProductsComeAndGo) {
    Press(Qt::Key_Down);
    ASSERT_EQ(List().currentItem()->text(0), "C159");

    Session->Do([&] { Project.Design.Circuit.Tracks[0].ElementCodes = {"C152L", "C158", "C159", "C8006"}; });
    QTest::qWait(1);

    EXPECT_EQ(Column("lstMoney", 0), (std::vector<std::string>{"C152", "C158", "C159", "C8006"}));
    EXPECT_EQ(List().currentItem()->text(0), "C159");
}

TEST_F(MoneyTable, HeadingsTellTheCurrency) {
    const auto heading = [&](int column) { return List().headerItem()->text(column).toStdString(); };
    EXPECT_EQ(heading(5) + " " + heading(6), "Price (€) To buy (€)");

    Session->Do([&] { Project.Preferences.Units.Currency = "GBP"; });
    QTest::qWait(1);

    EXPECT_EQ(heading(5) + " " + heading(6), "Price (£) To buy (£)");
    EXPECT_EQ(Text("lblMoney"), "To buy: 3 pieces without a price");
}

TEST_F(MoneyTable, StaysWithinANarrowWindow) {
    Window->resize(1024, 640);
    QTest::qWait(1);

    EXPECT_LE(List().header()->length(), List().viewport()->width());
    EXPECT_GE(List().columnWidth(1), List().fontMetrics().horizontalAdvance("half straight")) << "names can be read";
}

} // namespace
} // namespace pistaro
