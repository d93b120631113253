// The list of the pieces in a box: filled, emptied, typed, clicked, and what of it is listed.
#include "ui/box_fixture.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::StartsWith;

class ContentsOfABox : public MyBox {};

TEST_F(ContentsOfABox, BeginsWithWhatIsOwned) {
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

TEST_F(ContentsOfABox, IsEmptiedFilledAndFilledWithSets) {
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

TEST_F(ContentsOfABox, TakesCountsThatAreTyped) {
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

TEST_F(ContentsOfABox, GoesOnToTheNextCountWithTab) {
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

TEST_F(ContentsOfABox, TakesNoneOrAllThatAreOwnedByAClick) {
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

TEST_F(ContentsOfABox, ListsWhatIsOwnedOrInTheBoxUnlessAskedForMore) {
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
    for (const char* const text : {"change-over", "Change over"}) {
        Find<QLineEdit>("txtFilterBox").setText(text);
        EXPECT_EQ(listed(), "C8006 N10111 ") << text;
    }
    Find<QLineEdit>("txtFilterBox").clear();
    Find<QCheckBox>("chkAllProducts").setChecked(true);
    EXPECT_THAT(listed(), StartsWith("C151 "));
}

TEST_F(ContentsOfABox, FollowsWhatIsOwnedUntilItsCountsAreTyped) {
    pistaro::Project project = ProjectOf("");
    SetStock(project, "C160", 4);
    OpenBox(project);

    Session->Do([&] { SetStock(Project, "C160", 6); });
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C160=6"));
    Box().Show(BoxOf(Pieces(), "C160=5"));
    Session->Do([&] { SetStock(Project, "C160", 7); });

    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C160=5"));
}

TEST_F(ContentsOfABox, TellThatTwoSystemsDoNotJoinByThemselves) {
    OpenBox();
    const auto shown = [&] { return Find<QLabel>("lblSystems").isVisible() ? Text("lblSystems") : ""; };
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));
    EXPECT_EQ(shown(), "");

    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,N10102=4"));
    EXPECT_EQ(shown(),
              "Scalextric and Ninco join by N10110 only, and a circuit of both takes two: without them circuits "
              "are of one system.");
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,N10102=4,N10110=2"));
    EXPECT_EQ(shown(), "");
}

} // namespace
} // namespace pistaro
