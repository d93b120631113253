// The draw-area dialog, filled in and pressed through its controls.
#include "ui/frmDrawArea.h"

#include "dialog_fixture.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FrmDrawArea : public DialogTest<frmDrawArea> {
protected:
    QScrollBar& Scroller() const { return Find<QScrollBar>("hscPnt"); }

    void AddPoint(const char* x, const char* y) const {
        Type("txtX", x);
        Type("txtY", y);
        Press("cmdAdd");
    }

    std::vector<std::string> ToldTexts() const {
        std::vector<std::string> texts;
        for (const Message& message : prompts_.Told)
            texts.push_back(message.Text);
        return texts;
    }
};

TEST_F(FrmDrawArea, OpensWithTheProjectsValues) {
    project_.Design.View.HMov = {-60, 140, 7};
    project_.Design.Room = {{{10, 20, 1}}, 0.7853982F};
    project_.Preferences.Grid = {1, 25};
    project_.Preferences.Units = {true, "GBP"};
    Open();

    EXPECT_EQ(Text("txtCentreX"), "40");
    EXPECT_EQ(Text("txtCentreY"), "0");
    EXPECT_EQ(Text("txtZoomVal"), "320");
    EXPECT_EQ(Text("txtMaxWidth"), "100");
    EXPECT_EQ(Text("txtRoomAngle"), "45");
    EXPECT_EQ(Text("txtStep"), "25");
    EXPECT_EQ(Text("txtCurrency"), "GBP");
    EXPECT_TRUE(Find<QAbstractButton>("optGrid", 1).isChecked());
    EXPECT_TRUE(Find<QAbstractButton>("optUnits", 1).isChecked());
    EXPECT_EQ(Label("lblPNo"), "1");
    EXPECT_EQ(Text("txtX"), "10");
    EXPECT_EQ(Text("txtY"), "20");
    EXPECT_TRUE(Find<QCheckBox>("chkLine").isChecked());
    EXPECT_EQ(Label("lblArea"), "Area: 125.9 x 125.9 in");
}

TEST_F(FrmDrawArea, WhatIsTypedFirstReplacesTheCentre) {
    project_.Design.View.HMov = {-60, 140, 7};
    Open();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));

    QTest::keyClicks(dialog_->focusWidget(), "50");

    EXPECT_EQ(Text("txtCentreX"), "50");
}

TEST_F(FrmDrawArea, AreaLabelFollowsTheWindowAndTheUnits) {
    Type("txtZoomVal", "150");
    EXPECT_EQ(Label("lblArea"), "Area: 150 x 150 cm");
    Press("optUnits", 1);
    EXPECT_EQ(Label("lblArea"), "Area: 59 x 59 in");
}

TEST_F(FrmDrawArea, ApplyTakesEveryFieldAndCloses) {
    Type("txtCentreX", "-40.7");
    Type("txtMaxWidth", "-55.9");
    Type("txtZoomVal", "150");
    Type("txtRoomAngle", "50");
    Type("txtStep", "5");
    Type("txtCurrency", "GBP");
    Press("optGrid", 1);
    Press("optUnits", 1);

    Press("cmdApply");

    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(project_.Design.View.MidX, -40);
    EXPECT_EQ(project_.Design.View.MWid, 55);
    EXPECT_EQ(project_.Design.View.Width, 150);
    EXPECT_EQ(project_.Design.Room.Angle, 0.78539809F);
    EXPECT_EQ(Text("txtRoomAngle"), "45");
    EXPECT_EQ(project_.Preferences.Grid.Type, 1);
    EXPECT_EQ(project_.Preferences.Grid.Step, 5);
    EXPECT_TRUE(project_.Preferences.Units.Inches);
    EXPECT_EQ(project_.Preferences.Units.Currency, "GBP");
    EXPECT_TRUE(project_.EditState.DataChanged);
    EXPECT_EQ(OnDisk(), WholeSettings());
}

TEST_F(FrmDrawArea, ShowsNormalisedFieldsAndStaysOpenWhenOneIsIllegal) {
    Type("txtCentreX", "-56.5");
    Type("txtMaxWidth", "-55.9");
    Press("cmdApply");
    EXPECT_THAT(ToldTexts(), ElementsAre("Illegal Centre X Setting!"));
    EXPECT_EQ(Text("txtCentreX"), "-56");
    EXPECT_EQ(Text("txtMaxWidth"), "55");
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(project_.EditState.DataChanged);

    Type("txtCentreX", "-55");
    Press("cmdApply");
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmDrawArea, SaveWritesTheFileAndCloses) {
    Type("txtStep", "7");
    Press("cmdSave");
    EXPECT_EQ(OnDisk(), Replaced(Replaced(WholeSettings(), "Step=10", "Step=7"), " 0 \r\n0\r\n", " 0 \r\n0\r\n0\r\n"));
    EXPECT_EQ(prompts_.Told, saved_);
    EXPECT_EQ(project_.Preferences.Grid.Step, 7);
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmDrawArea, TellsOfValuesNoFileCouldHoldAndStaysOpen) {
    Type("txtStep", "40000");
    Press("cmdSave");
    EXPECT_THAT(ToldTexts(), ElementsAre("Overflow: the grid step, 40000, is larger than 32767"));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(OnDisk(), WholeSettings());
}

TEST_F(FrmDrawArea, CancelDropsTheRoomWithTheRest) {
    AddPoint("1", "2");
    Press("cmdCancel");
    EXPECT_THAT(project_.Design.Room.Points, IsEmpty());
    EXPECT_FALSE(project_.EditState.DataChanged);
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmDrawArea, RoomPointsAreAddedSteppedThroughChangedAndDeleted) {
    AddPoint("0", "0");
    EXPECT_EQ(Label("lblPNo"), "2");
    EXPECT_EQ(Text("txtX"), "");
    AddPoint("300", "0");
    Press("chkLine");
    AddPoint("50", "60");
    EXPECT_EQ(Scroller().maximum(), 4);

    Scroller().setFocus();
    QTest::keyClick(&Scroller(), Qt::Key_Left);
    EXPECT_EQ(Label("lblPNo"), "3");
    EXPECT_EQ(Text("txtX"), "50");
    EXPECT_FALSE(Find<QCheckBox>("chkLine").isChecked());
    QTest::keyClick(&Scroller(), Qt::Key_Left);
    EXPECT_EQ(Text("txtX"), "300");
    EXPECT_TRUE(Find<QCheckBox>("chkLine").isChecked());

    Press("cmdDelete");
    EXPECT_EQ(Label("lblPNo"), "2");
    EXPECT_EQ(Text("txtX"), "50");
    EXPECT_EQ(Scroller().maximum(), 3);

    Press("cmdApply");
    EXPECT_THAT(project_.Design.Room.Points, ElementsAre(RoomPoint{0, 0, 1}, RoomPoint{50, 60, 0}));
}

TEST_F(FrmDrawArea, AfterAPointInTheMiddleIsPutInTheNextPointIsShown) {
    project_.Design.Room.Points = {{1, 2, 1}, {3, 4, 0}, {5, 6, 1}};
    Open();

    AddPoint("10", "20");

    EXPECT_EQ(Label("lblPNo"), "2");
    EXPECT_EQ(Text("txtX"), "3");
    EXPECT_EQ(Text("txtY"), "4");
    EXPECT_FALSE(Find<QCheckBox>("chkLine").isChecked());
    Press("cmdApply");
    EXPECT_THAT(project_.Design.Room.Points, ElementsAre(RoomPoint{10, 20, 1}, RoomPoint{3, 4, 0}, RoomPoint{5, 6, 1}));
}

TEST_F(FrmDrawArea, CoordinatesTypedButNotAddedAreAskedAboutAndCancelKeepsThem) {
    for (const char* const button : {"cmdApply", "cmdSave"}) {
        SCOPED_TRACE(button);
        prompts_.Asked.clear();
        prompts_.Answers = {Answer::Cancel};
        Open();
        Type("txtX", "7");
        Type("txtY", "8");

        Press(button);

        ASSERT_EQ(prompts_.Asked.size(), 1U);
        EXPECT_EQ(prompts_.Asked[0].Text,
                  "The coordinates of room point 1 were typed but not added. Press OK to go on without "
                  "them, or Cancel to go back.");
        EXPECT_EQ(prompts_.Asked[0].Choices, Buttons::OkCancel);
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Text("txtX"), "7");
        EXPECT_EQ(Text("txtY"), "8");
        EXPECT_FALSE(project_.EditState.DataChanged);
        EXPECT_EQ(OnDisk(), WholeSettings());
    }

    Press("cmdAdd");
    Press("cmdApply");
    EXPECT_EQ(prompts_.Asked.size(), 1U);
    EXPECT_THAT(project_.Design.Room.Points, ElementsAre(RoomPoint{7, 8, 1}));
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmDrawArea, CoordinatesTypedButNotAddedAreLeftOutAfterOk) {
    for (const char* const button : {"cmdApply", "cmdSave"}) {
        SCOPED_TRACE(button);
        project_.Design.Room.Points = {{1, 2, 1}};
        prompts_.Asked.clear();
        prompts_.Answers = {Answer::Ok};
        Open();
        Type("txtX", "7");

        Press(button);

        EXPECT_EQ(prompts_.Asked.size(), 1U);
        EXPECT_FALSE(IsOpen());
        EXPECT_THAT(project_.Design.Room.Points, ElementsAre(RoomPoint{1, 2, 1}));
    }
    EXPECT_THAT(OnDisk(), HasSubstr("[Room]\r\n 1 \r\n         1         2    1\r\n"));
}

TEST_F(FrmDrawArea, CancelDropsCoordinatesTypedButNotAddedWithoutAWord) {
    Type("txtX", "7");
    Press("cmdCancel");
    EXPECT_TRUE(prompts_.Asked.empty());
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmDrawArea, NothingCanBeDeletedAtThePlaceOfTheNewPoint) {
    EXPECT_FALSE(Find<QAbstractButton>("cmdDelete").isEnabled());
    EXPECT_EQ(Find<QAbstractButton>("cmdDelete").toolTip(), "There is no point of this number yet");
    AddPoint("1", "1");
    EXPECT_FALSE(Find<QAbstractButton>("cmdDelete").isEnabled());
    Scroller().setValue(1);
    EXPECT_TRUE(Find<QAbstractButton>("cmdDelete").isEnabled());
}

TEST_F(FrmDrawArea, WantsCoordinatesAndAtMostTwentyPoints) {
    Press("cmdAdd");
    EXPECT_THAT(ToldTexts(), ElementsAre("Please specify the coordinates first."));
    prompts_.Told.clear();

    for (int point = 1; point <= 20; ++point)
        AddPoint("5", "5");
    EXPECT_THAT(ToldTexts(), IsEmpty());
    EXPECT_EQ(Label("lblPNo"), "20");
    AddPoint("6", "6");
    EXPECT_THAT(ToldTexts(), ElementsAre("Room definition is restricted to 20 points."));
}

TEST_F(FrmDrawArea, EnterInACoordinateAddsThePointAndKeepsTheDialogOpen) {
    Type("txtX", "3");
    Type("txtY", "4");
    QTest::keyClick(&Find<QLineEdit>("txtY"), Qt::Key_Return);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Label("lblPNo"), "2");

    Find<QLineEdit>("txtStep").setFocus();
    QTest::keyClick(&Find<QLineEdit>("txtStep"), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_THAT(project_.Design.Room.Points, ElementsAre(RoomPoint{3, 4, 1}));
}

TEST_F(FrmDrawArea, EnterPressesTheButtonThatHasTheFocus) {
    Type("txtStep", "7");
    Find<QWidget>("cmdHelp").setFocus();
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(prompts_.Told.size(), 1U);
    EXPECT_TRUE(IsOpen());

    Find<QWidget>("cmdCancel").setFocus();
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(project_.Preferences.Grid.Step, 10);
}

TEST_F(FrmDrawArea, PicturesTheRoomAsItStands) {
    const auto coloured = [&] {
        const QImage picture = Find<QWidget>("picRoom").grab().toImage();
        int pixels = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                pixels += picture.pixelColor(x, y).hsvSaturation() > 50; // lines are antialiased
        }
        return pixels;
    };
    project_.Preferences.Colours.Background = Rgb(255, 255, 255);
    Open();
    EXPECT_EQ(coloured(), 0);
    AddPoint("0", "0");
    AddPoint("300", "0");
    const int oneSide = coloured();
    EXPECT_GT(oneSide, 100);
    AddPoint("300", "300");
    EXPECT_GT(coloured(), oneSide + 100);
    for (int corner = 0; corner < 3; ++corner) {
        Scroller().setValue(1);
        Press("cmdDelete");
    }
    EXPECT_EQ(coloured(), 0);
}

TEST_F(FrmDrawArea, HelpExplainsIt) {
    Press("cmdHelp");
    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_THAT(prompts_.Told[0].Text, HasSubstr("Unticking Line causes no line to be draw to the current point"));
    EXPECT_TRUE(IsOpen());
}

TEST_F(FrmDrawArea, KeepsAGridTypeThatNoButtonStandsFor) {
    project_.Preferences.Grid.Type = 7;
    Open();
    Press("cmdApply");
    EXPECT_EQ(project_.Preferences.Grid.Type, 7);
}

TEST_F(FrmDrawArea, ClipsNothing) { ExpectNothingClipped(); }

} // namespace
} // namespace pistaro
