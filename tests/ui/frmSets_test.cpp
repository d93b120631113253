// The dialog of boxed sets: where it tells what cannot be kept.
#include "ui/frmSets.h"

#include "ui/field_table.h"
#include "ui/panels_fixture.h"

#include <QListWidget>

namespace pistaro {
namespace {

class SetsFaults : public Panels {
protected:
    SetsFaults() {
        OpenWithSettings(ProjectOf("C160"));
        dialog_.emplace(*Session);
        dialog_->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&*dialog_));
    }

    template <typename Control>
    Control& In(const char* name) {
        return *dialog_->findChild<Control*>(name);
    }

    QLabel& Fault() { return In<QLabel>("lblSetFault"); }

    void TypeInto(QLineEdit& field, const char* text) {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
    }

    QRect PlaceOf(const QWidget& control) const { return {control.mapTo(&*dialog_, QPoint()), control.size()}; }

    std::optional<frmSets> dialog_;
};

TEST_F(SetsFaults, MoveNothing) {
    const std::vector<QWidget*> controls = {&In<QListWidget>("lstSets"), &In<QTreeWidget>("lstSetPieces"),
                                            &In<QLineEdit>("txtFindProduct"), &In<QLineEdit>("txtSetList")};
    const auto places = [&] {
        std::vector<QRect> found = {dialog_->geometry()};
        for (const QWidget* const control : controls)
            found.push_back(PlaceOf(*control));
        return found;
    };
    const std::vector<QRect> before = places();

    TypeInto(In<QLineEdit>("txtSetList"), "8 C151, foo 3");
    QTest::keyClick(&In<QLineEdit>("txtSetList"), Qt::Key_Return);
    QTest::qWait(20);

    EXPECT_TRUE(Fault().isVisible());
    EXPECT_EQ(places(), before);
    EXPECT_TRUE(dialog_->rect().contains(Fault().geometry()));
}

TEST_F(SetsFaults, StandRightBelowTheirFields) {
    for (const auto& [name, typed] : {std::pair("txtSetPrice", "79,9x"), std::pair("txtSetList", "foo 3")}) {
        auto& field = In<QLineEdit>(name);
        TypeInto(field, typed);
        QTest::keyClick(&field, Qt::Key_Return);
        ASSERT_TRUE(Fault().isVisible()) << name;
        EXPECT_EQ(Fault().geometry().topLeft(), PlaceOf(field).bottomLeft() + QPoint(0, 2)) << name;
        TypeInto(field, "1");
    }
    EXPECT_FALSE(Fault().isVisible());
}

TEST_F(SetsFaults, AreOfMorePiecesThanTheFileTakes) {
    auto& pieces = In<FieldTable>("lstSetPieces");
    const auto faultOf = [&](const char* count) {
        return pieces.WhyNot({pieces.topLevelItem(0)->text(0), 1, count}).toStdString();
    };

    EXPECT_EQ(faultOf("10000"), "");
    EXPECT_EQ(faultOf("10001"), "A count is a whole number from 0 to 10000.");
}

TEST_F(SetsFaults, FollowTheirFieldWhenTheDialogIsResized) {
    auto& field = In<QLineEdit>("txtSetPrice");
    TypeInto(field, "79,9x");
    QTest::keyClick(&field, Qt::Key_Return);
    dialog_->resize(1000, 600);
    QTest::qWait(20);

    EXPECT_EQ(Fault().geometry().topLeft(), PlaceOf(field).bottomLeft() + QPoint(0, 2));
}

TEST_F(SetsFaults, OfAListLeadSaveBackToIt) {
    auto& list = In<QLineEdit>("txtSetList");
    TypeInto(list, "8 C151, foo 3");
    In<QLineEdit>("txtSetName").setFocus();

    QTest::mouseClick(&In<QPushButton>("cmdSaveSets"), Qt::LeftButton);

    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(list.selectedText(), "8 C151, foo 3") << "to be seen also where the reason stood there before";
    EXPECT_TRUE(Fault().isVisible());
    EXPECT_EQ(Fault().text(), "\"foo 3\" is no piece; codes with their counts are meant, such as 8 C151, 4 C160, C367");
    TypeInto(list, "8 C151");
    EXPECT_FALSE(Fault().isVisible());
}

class SetsFinder : public SetsFaults {};

TEST_F(SetsFinder, TakesHyphensForSpaces) {
    const auto listed = [&] {
        const auto& list = In<QTreeWidget>("lstSetPieces");
        std::string codes;
        for (int line = 0; line < list.topLevelItemCount(); ++line) {
            if (!list.topLevelItem(line)->isHidden()) codes += list.topLevelItem(line)->text(0).toStdString() + " ";
        }
        return codes;
    };
    for (const char* const text : {"change-over", "CHANGE OVER"}) {
        TypeInto(In<QLineEdit>("txtFindProduct"), text);
        EXPECT_EQ(listed(), "C8006 N10111 ") << text;
    }
}

} // namespace
} // namespace pistaro
