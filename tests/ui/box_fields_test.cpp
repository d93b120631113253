// What circuits are laid from, as it is typed: the list of products, the field that finds one, what is offered.
#include "ui/box_fixture.h"

#include "storage/settings_file.h"
#include "support/temporary_folder.h"

#include <QToolButton>

namespace pistaro {
namespace {

class BoxesOfPieces : public MyBox {
protected:
    QLineEdit& Filter() { return Find<QLineEdit>("txtFilterBox"); }

    /// Keys go where the focus is, as a user's do.
    void Press(int key) { QTest::keyClick(Dialog().focusWidget(), static_cast<Qt::Key>(key)); }
    void Type(const char* text) { QTest::keyClicks(Dialog().focusWidget(), text); }

    void TypeFilter(const char* text) {
        Filter().setFocus();
        Filter().selectAll();
        Type(text);
    }

    QSpinBox* Editor() {
        for (QSpinBox* const box : Box().findChildren<QSpinBox*>()) {
            if (box->isVisible()) return box;
        }
        return nullptr;
    }
};

TEST_F(BoxesOfPieces, TakeACountForTheProductThatWasFound) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=1"));
    QTest::mouseClick(Box().viewport(), Qt::LeftButton, {}, Box().visualItemRect(Box().topLevelItem(0)).center());
    ASSERT_EQ(Box().currentItem()->text(0), "C151");

    TypeFilter("C160");
    EXPECT_EQ(Box().currentItem()->text(0), "C160");
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    Type("7");
    Press(Qt::Key_Return);

    EXPECT_TRUE(QTest::qWaitFor([&] { return Box().Box() == BoxOf(Pieces(), "C151=1,C160=7"); }));
}

TEST_F(BoxesOfPieces, LeaveNoLineCurrentThatIsNotListed) {
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C160", 4);
    OpenBox(project);
    Find<QCheckBox>("chkAllProducts").setChecked(true);
    QTest::mouseClick(Box().viewport(), Qt::LeftButton, {}, Box().visualItemRect(Box().topLevelItem(0)).center());
    ASSERT_EQ(Box().currentItem()->text(0), "C151");

    Find<QCheckBox>("chkAllProducts").setChecked(false);

    EXPECT_EQ(Box().currentItem()->text(0), "C160");
    TypeFilter("no such piece");
    EXPECT_EQ(Box().currentItem(), nullptr);
    QTest::keyClick(&Box(), Qt::Key_Delete);
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C160=4"));
}

TEST_F(BoxesOfPieces, GoFromTheFieldToTheFirstCountAndStartNoSearch) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Down}) {
        OpenBox();
        Box().Show(BoxOf(Pieces(), "C151=8"));

        TypeFilter("C160");
        Press(key);
        ASSERT_NE(Editor(), nullptr) << key;
        Type("4");
        Press(Qt::Key_Return);

        EXPECT_TRUE(QTest::qWaitFor([&] { return Box().Box() == BoxOf(Pieces(), "C151=8,C160=4"); })) << key;
        EXPECT_EQ(Text("lblFound"), "Press Search to see what these pieces make in this room.") << key;
    }
}

TEST_F(BoxesOfPieces, TellThatNoProductMatches) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));
    TypeFilter("C160");
    EXPECT_EQ(Box().accessibleDescription(), "");

    TypeFilter("no such piece");
    Press(Qt::Key_Return);

    EXPECT_EQ(Box().accessibleDescription(), "No product matches.");
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(Text("lblFound"), "Press Search to see what these pieces make in this room.");
}

TEST_F(BoxesOfPieces, ShowTheTypedCountAlone) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=88"));

    QTest::mouseClick(Box().viewport(), Qt::LeftButton, {}, Box().visualItemRect(Box().topLevelItem(0)).center());

    ASSERT_NE(Editor(), nullptr);
    EXPECT_TRUE(Editor()->autoFillBackground()) << "over the count that stands below it";
}

TEST_F(BoxesOfPieces, TellWhereToSayWhatIsOwned) {
    OpenBox();
    QPushButton& all = Find<QPushButton>("cmdAllOwned");
    QCheckBox& products = Find<QCheckBox>("chkAllProducts");
    EXPECT_FALSE(all.isEnabled());
    EXPECT_EQ(all.toolTip(), "You own nothing yet: say what you own in Settings ▸ Loose Track…");
    EXPECT_FALSE(products.isEnabled());
    EXPECT_EQ(products.toolTip(), "All products are listed while you own none and the box is empty");

    Session->Do([&] { SetStock(Project, "C160", 6); });

    EXPECT_TRUE(all.isEnabled());
    EXPECT_EQ(all.toolTip(), "Fill the box with exactly what you own");
    EXPECT_TRUE(products.isEnabled());
    EXPECT_EQ(products.toolTip(), "List products, too, that you do not own and that are not in the box");
}

TEST_F(BoxesOfPieces, ShowWhatIsOwnedWhereSomethingIs) {
    constexpr int owned = 3;
    OpenBox();
    EXPECT_TRUE(Box().isColumnHidden(owned)) << "names have its room";

    Session->Do([&] { SetStock(Project, "C160", 4); });

    EXPECT_FALSE(Box().isColumnHidden(owned));
}

TEST_F(BoxesOfPieces, KeepTheirPlaceWhenTheyCanBeOwned) {
    OpenBox();
    QApplication::processEvents();
    const QRect before = Box().geometry();
    EXPECT_FALSE(Find<QPushButton>("cmdOwnBox").isVisible());

    Box().Show(BoxOf(Pieces(), "C151=8,C160=6"));
    QApplication::processEvents();

    EXPECT_TRUE(Find<QPushButton>("cmdOwnBox").isVisible());
    EXPECT_EQ(Box().geometry(), before);
}

TEST_F(BoxesOfPieces, HaveTheirSeedBehindMore) {
    OpenBox();
    EXPECT_FALSE(Find<QLineEdit>("txtSeed").isVisible());

    QTest::mouseClick(&Find<QToolButton>("cmdMoreNumbers"), Qt::LeftButton);

    EXPECT_TRUE(Find<QLineEdit>("txtSeed").isVisible());
}

TEST_F(BoxesOfPieces, BecomeWhatIsOwned) {
    const TemporaryFolder folder;
    const std::filesystem::path settings = folder / "corvel.ini";
    WriteBytes(settings, InitialSettingsBytes(Pieces(), {}, ""));
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C160", 4);
    Open(project, settings);
    Choose("mnuFromBox");
    EXPECT_FALSE(Find<QPushButton>("cmdOwnBox").isVisible()) << "it is what is owned";
    Box().Show(BoxOf(Pieces(), "C151=8,C160=6"));
    ASSERT_TRUE(Find<QPushButton>("cmdOwnBox").isVisible());

    Prompts.Answers = {Answer::No, Answer::Yes};
    PressHere("cmdOwnBox");
    EXPECT_EQ(OwnedBox(Pieces(), Project.Stock), BoxOf(Pieces(), "C160=4"));
    PressHere("cmdOwnBox");

    EXPECT_EQ(Prompts.Asked.back().Text, "You own 4 pieces by now. Shall it be the 14 of this box?");
    EXPECT_EQ(OwnedBox(Pieces(), Project.Stock), BoxOf(Pieces(), "C151=8,C160=6"));
    EXPECT_EQ(OwnedBox(Pieces(), ReadSettings(Pieces(), settings).Stock), BoxOf(Pieces(), "C151=8,C160=6"));
    EXPECT_EQ(Text("lblTotal"), "14 of your 14 pieces in the box");
    EXPECT_FALSE(Find<QPushButton>("cmdOwnBox").isVisible());
}

TEST_F(BoxesOfPieces, BecomeWhatIsOwnedWhicheverHandAProductIsCountedBy) {
    const TemporaryFolder folder;
    const std::filesystem::path settings = folder / "corvel.ini";
    WriteBytes(settings, InitialSettingsBytes(Pieces(), {}, ""));
    Open(ProjectOf(""), settings);
    Choose("mnuFromBox");
    Box().Show(BoxOf(Pieces(), "C8010R=2,C160=6"));

    PressHere("cmdOwnBox");

    EXPECT_EQ(OwnedBox(Pieces(), ReadSettings(Pieces(), settings).Stock), BoxOf(Pieces(), "C8010=2,C160=6"));
    EXPECT_FALSE(Find<QPushButton>("cmdOwnBox").isVisible()) << "it is what is owned";
}

TEST_F(BoxesOfPieces, AreFilledWithTheDesignsAgain) {
    Open(ProjectOf("C160 C151L C151L"));
    Choose("mnuVariations");
    PressHere("cmdNoPieces");
    ASSERT_EQ(Box().Box().Total(), 0);

    PressHere("cmdDesignPieces");

    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C151=2,C160=1"));
}

TEST_F(BoxesOfPieces, AreThoseOfTheLastSearchUnlessTheseWereWhatIsOwned) {
    OpenBox();
    Search("C151=8,C160=4");
    EXPECT_EQ(Session->Habits.BoxPieces, "C151L=8,C160=4");

    ComeBack();
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C151=8,C160=4"));

    pistaro::Project owner = ProjectOf("");
    SetStock(owner, "C151L", 8);
    Open(std::move(owner));
    Choose("mnuFromBox");
    Search("C151=8");
    EXPECT_EQ(Session->Habits.BoxPieces, "");
}

TEST_F(BoxesOfPieces, AreWhatIsOwnedWhereTheLastOnesCannotBeRead) {
    Open(ProjectOf(""));
    Session->Habits.BoxPieces = "C999=x";
    Choose("mnuFromBox");
    EXPECT_EQ(Box().Box().Total(), 0);
}

} // namespace
} // namespace pistaro
