// The draw-area dialog's fields, their validation, and what Apply and Save do with them.
#include "editor/draw_area.h"

#include "platform/fault.h"
#include "support/settings_on_disk.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DrawArea : public SettingsOnDisk {
protected:
    bool Apply(DrawAreaFields fields) { return ApplyDrawArea(project_, fields, prompts_); }
    bool Save(DrawAreaFields fields) { return SaveDrawArea(Pieces(), project_, file_, fields, prompts_); }

    /// The text that Apply refuses the fields with.
    std::string Illegal(const DrawAreaFields& fields) {
        prompts_.Told.clear();
        EXPECT_FALSE(Apply(fields));
        EXPECT_EQ(prompts_.Told.size(), 1U);
        EXPECT_EQ(prompts_.Told.front().Icon, Icon::Exclamation);
        EXPECT_FALSE(project_.EditState.DataChanged);
        return prompts_.Told.front().Text;
    }

    DrawAreaFields fields_ = OpenDrawArea(project_.Design, project_.Preferences);
};

TEST_F(DrawArea, OpensWithTheProjectsValues) {
    project_.Design.View.HMov = {-60, 140, 7};
    project_.Design.View.VMov = {-130, 70, 9};
    project_.Design.View.Width = 150;
    project_.Design.Room = {{{10, 20, 1}}, 0.7853982F};
    project_.Preferences.Grid = {1, 25};
    project_.Preferences.Units = {true, "US $"};

    const DrawAreaFields fields = OpenDrawArea(project_.Design, project_.Preferences);

    EXPECT_EQ(fields.CentreX, "40");
    EXPECT_EQ(fields.CentreY, "-30");
    EXPECT_EQ(fields.MaxWidth, "100");
    EXPECT_EQ(fields.ZoomVal, "150");
    EXPECT_EQ(fields.RoomAngle, "45");
    EXPECT_EQ(fields.Step, "25");
    EXPECT_EQ(fields.Currency, "US $");
    EXPECT_EQ(fields.Grid, 1);
    EXPECT_TRUE(fields.Inches);
    EXPECT_THAT(fields.Room.Points, ElementsAre(RoomPoint{10, 20, 1}));
}

TEST_F(DrawArea, NormalisesItsNumbersToWholeOnes) {
    fields_.CentreX = "-40.7";
    fields_.CentreY = " 12.9 cm";
    fields_.MaxWidth = "-55.9";
    fields_.ZoomVal = "-150.5";
    fields_.RoomAngle = "-22.5";
    fields_.Step = "-5.5";

    EXPECT_EQ(ValidateDrawArea(fields_), std::nullopt);

    EXPECT_EQ(fields_.CentreX, "-40");
    EXPECT_EQ(fields_.CentreY, "12");
    EXPECT_EQ(fields_.MaxWidth, "55");
    EXPECT_EQ(fields_.ZoomVal, "150");
    EXPECT_EQ(fields_.RoomAngle, "22");
    EXPECT_EQ(fields_.Step, "5");
}

TEST_F(DrawArea, AcceptsACentreAtTheMaximumWidthAndRefusesOneMore) {
    fields_.MaxWidth = "55";
    fields_.CentreX = "55";
    EXPECT_TRUE(Apply(fields_));
    project_.EditState.DataChanged = false;

    fields_.CentreX = "56";
    EXPECT_EQ(Illegal(fields_), "Illegal Centre X Setting!");
    fields_.CentreX = "-56";
    EXPECT_EQ(Illegal(fields_), "Illegal Centre X Setting!");
}

TEST_F(DrawArea, TellsTheFirstFaultInTheOrderOfItsChecks) {
    fields_.MaxWidth = "0.9";
    fields_.CentreX = "1";
    fields_.CentreY = "-99";
    fields_.ZoomVal = "none";
    fields_.Step = "";

    EXPECT_EQ(Illegal(fields_), "Illegal max Width Setting!");
    fields_.MaxWidth = "20";
    fields_.CentreX = "21";
    EXPECT_EQ(Illegal(fields_), "Illegal Centre X Setting!");
    fields_.CentreX = "20";
    EXPECT_EQ(Illegal(fields_), "Illegal Centre Y Setting!");
    fields_.CentreY = "-20";
    EXPECT_EQ(Illegal(fields_), "Illegal Window Setting!");
    fields_.ZoomVal = "1";
    EXPECT_EQ(Illegal(fields_), "Illegal Grid Step Setting!");
    fields_.Step = "1";
    EXPECT_TRUE(Apply(fields_));
}

TEST_F(DrawArea, AppliesEveryFieldToTheCircuit) {
    fields_.CentreX = "40";
    fields_.CentreY = "-30";
    fields_.MaxWidth = "100";
    fields_.ZoomVal = "150";
    fields_.Step = "4";
    fields_.Grid = 1;
    fields_.Inches = true;
    fields_.Currency = "GBP";
    fields_.Room = OpenRoomPoints({{0, 0, 0}, {5, 5, 1}});

    EXPECT_TRUE(Apply(fields_));

    const ViewSettings& view = project_.Design.View;
    EXPECT_EQ(view.MidX, 40);
    EXPECT_EQ(view.MidY, -30);
    EXPECT_EQ(view.Width, 150);
    EXPECT_EQ(view.MWid, 100);
    EXPECT_EQ(view.HMov.Minimum, -60);
    EXPECT_EQ(view.HMov.Maximum, 140);
    EXPECT_EQ(view.HMov.Value, 40);
    EXPECT_EQ(view.VMov.Minimum, -130);
    EXPECT_EQ(view.VMov.Maximum, 70);
    EXPECT_EQ(view.VMov.Value, -30);
    EXPECT_EQ(project_.Preferences.Grid.Type, 1);
    EXPECT_EQ(project_.Preferences.Grid.Step, 4);
    EXPECT_TRUE(project_.Preferences.Units.Inches);
    EXPECT_EQ(project_.Preferences.Units.UnitFactor(), 2.5399957F);
    EXPECT_EQ(project_.Preferences.Units.Currency, "GBP");
    EXPECT_THAT(project_.Design.Room.Points, ElementsAre(RoomPoint{0, 0, 0}, RoomPoint{5, 5, 1}));
    EXPECT_TRUE(project_.EditState.DataChanged);
    EXPECT_THAT(prompts_.Told, IsEmpty());
    EXPECT_EQ(OnDisk(), WholeSettings());
}

TEST_F(DrawArea, SnapsARoomAngleOfFiftyDegreesToFortyFive) {
    fields_.RoomAngle = "50";
    EXPECT_TRUE(ApplyDrawArea(project_, fields_, prompts_));
    EXPECT_EQ(fields_.RoomAngle, "45");
    EXPECT_EQ(project_.Design.Room.Angle, 0.78539809F);
}

TEST_F(DrawArea, CutsTheRoomAngleToWholeDegreesBeforeItSnapsIt) {
    fields_.RoomAngle = "22.5";
    EXPECT_TRUE(ApplyDrawArea(project_, fields_, prompts_));
    EXPECT_EQ(fields_.RoomAngle, "0");

    fields_.RoomAngle = "23";
    EXPECT_TRUE(ApplyDrawArea(project_, fields_, prompts_));
    EXPECT_EQ(fields_.RoomAngle, "22.5");
}

TEST_F(DrawArea, ShowsARightAngleThatCameFromAFileAsNinetyDegrees) {
    project_.Design.Room.Angle = 1.570796F; // the seven digits that the files keep of it
    EXPECT_EQ(OpenDrawArea(project_.Design, project_.Preferences).RoomAngle, "90");
}

TEST_F(DrawArea, LabelFollowsTheWindowAndTheUnits) {
    fields_.ZoomVal = "150.9";
    EXPECT_EQ(DrawAreaLabel(fields_), "Area: 150 x 150 cm");
    fields_.Inches = true;
    EXPECT_EQ(DrawAreaLabel(fields_), "Area: 59 x 59 in");
    fields_.ZoomVal = "1E999";
    EXPECT_EQ(DrawAreaLabel(fields_), "Area: 0 x 0 in");
}

TEST_F(DrawArea, SaveWritesItsFourSectionsAndAppliesThem) {
    fields_.CentreX = "-40";
    fields_.ZoomVal = "12345678";
    fields_.MaxWidth = "55";
    fields_.RoomAngle = "45";
    fields_.Step = "5";
    fields_.Grid = 1;
    fields_.Inches = true;
    fields_.Currency = "\xE2\x82\xAC";
    fields_.Room = OpenRoomPoints({{0, 0, 0}, {300, -5, 1}});

    EXPECT_TRUE(Save(fields_));

    std::string expected = Replaced(WholeSettings(), "MidX=0\r\nMidY=0\r\nZoom=320\r\nMWid=160",
                                    "MidX=-40\r\nMidY=0\r\nZoom=12345678\r\nMWid=55");
    expected = Replaced(expected, "Type=0\r\nCurr=EUR", "Type=1\r\nCurr=\x80");
    expected = Replaced(expected, "Type=2\r\nStep=10", "Type=1\r\nStep=5");
    expected = Replaced(expected, "[Room]\r\n 0 \r\n0\r\n",
                        "[Room]\r\n 2 \r\n"
                        "         0         0    0\r\n"
                        "       300        -5    1\r\n"
                        ".7853981\r\n0\r\n");
    EXPECT_EQ(OnDisk(), expected);
    EXPECT_EQ(prompts_.Told, saved_);
    EXPECT_EQ(project_.Design.View.MidX, -40);
    EXPECT_TRUE(project_.EditState.DataChanged);
}

TEST_F(DrawArea, TwoSavesLeaveTwoStrayAngleLinesAfterTheRoom) {
    fields_.Room = OpenRoomPoints({{1, 2, 1}});
    fields_.RoomAngle = "45";
    Save(fields_);
    fields_.RoomAngle = "90";
    Save(fields_);

    EXPECT_THAT(OnDisk(), HasSubstr("[Room]\r\n 1 \r\n         1         2    1\r\n1.570796\r\n.7853981\r\n0\r\n"
                                    "[My Loose Track]\r\n"));
    const Settings read = ReadSettings(Pieces(), file_);
    EXPECT_THAT(read.Room.Points, ElementsAre(RoomPoint{1, 2, 1}));
    EXPECT_EQ(read.Room.Angle, 1.570796F);
}

TEST_F(DrawArea, SaveAddsNoSectionThatTheFileLacks) {
    Start("[Grid]\nkind=0\nwide=3\n[Other]\nnote=\xE9\xFF");
    fields_ = OpenDrawArea(project_.Design, project_.Preferences);

    EXPECT_TRUE(Save(fields_));

    EXPECT_EQ(OnDisk(), "[Grid]\r\nType=0\r\nStep=3\r\n[Other]\r\nnote=\xE9\xFF\r\n");
    EXPECT_EQ(prompts_.Told, saved_);
}

TEST_F(DrawArea, SaveOfInvalidFieldsWritesNothing) {
    fields_.ZoomVal = "0";
    EXPECT_FALSE(Save(fields_));
    EXPECT_EQ(OnDisk(), WholeSettings());
    EXPECT_THAT(prompts_.Told, ElementsAre(Message{Icon::Exclamation, "Illegal Window Setting!"}));
}

TEST_F(DrawArea, RefusesWhatNoSettingsFileCouldHoldAndChangesNothing) {
    const auto refuses = [&](std::string DrawAreaFields::*field, const std::string& text) {
        DrawAreaFields fields = fields_;
        fields.MaxWidth = "2000000000";
        fields.*field = text;
        EXPECT_THROW(Save(fields), Fault) << text;
        EXPECT_EQ(OnDisk(), WholeSettings());
        EXPECT_EQ(project_.Design.View.MWid, 160);
        EXPECT_FALSE(project_.EditState.DataChanged);
        EXPECT_THAT(prompts_.Told, IsEmpty());
    };
    refuses(&DrawAreaFields::Step, "32768");
    refuses(&DrawAreaFields::CentreX, "1000000000");
    refuses(&DrawAreaFields::CentreY, "-1000000000");
    refuses(&DrawAreaFields::CentreX, "1E999");
    refuses(&DrawAreaFields::MaxWidth, "3E9");
    refuses(&DrawAreaFields::ZoomVal, "1E39");
    refuses(&DrawAreaFields::RoomAngle, "1E300");
    refuses(&DrawAreaFields::Currency, "EUR\r\n[Grid]");
}

TEST_F(DrawArea, AsksAboutCoordinatesThatWereTypedButNotAdded) {
    fields_.Room = OpenRoomPoints({{1, 2, 0}});
    ScrollToPoint(fields_.Room, 2);
    fields_.Room.Entry.X = "300";
    const Project before = project_;
    prompts_.Answers = {Answer::Cancel, Answer::Cancel};

    EXPECT_FALSE(Apply(fields_));
    EXPECT_FALSE(Save(fields_));

    ASSERT_EQ(prompts_.Asked.size(), 2U);
    EXPECT_EQ(prompts_.Asked[0].Text,
              "The coordinates of room point 2 were typed but not added. Press OK to go on without "
              "them, or Cancel to go back.");
    EXPECT_EQ(prompts_.Asked[0].Choices, Buttons::OkCancel);
    EXPECT_EQ(prompts_.Asked[1].Text, prompts_.Asked[0].Text);
    EXPECT_EQ(project_, before);
    EXPECT_EQ(OnDisk(), WholeSettings());
    EXPECT_THAT(prompts_.Told, IsEmpty());
    EXPECT_EQ(fields_.Room.Entry.X, "300");
}

TEST_F(DrawArea, GoesOnWithoutTheTypedCoordinatesAfterOk) {
    fields_.Room = OpenRoomPoints({{1, 2, 0}, {3, 4, 1}});
    fields_.Room.Entry = {"9", "9", true};
    prompts_.Answers = {Answer::Ok, Answer::Ok};

    EXPECT_TRUE(Apply(fields_));
    EXPECT_THAT(project_.Design.Room.Points, ElementsAre(RoomPoint{1, 2, 0}, RoomPoint{3, 4, 1}));
    EXPECT_TRUE(Save(fields_));

    EXPECT_EQ(prompts_.Asked.size(), 2U);
    EXPECT_THAT(OnDisk(), HasSubstr("[Room]\r\n 2 \r\n         1         2    0\r\n         3         4    1\r\n"));
    EXPECT_EQ(prompts_.Told, saved_);
}

TEST_F(DrawArea, AsksNothingWhenWhatWasTypedIsAdded) {
    fields_.Room.Entry = {"300", "0", true};
    AddPoint(fields_.Room, prompts_);

    EXPECT_TRUE(Apply(fields_));

    EXPECT_THAT(prompts_.Asked, IsEmpty());
    EXPECT_THAT(project_.Design.Room.Points, ElementsAre(RoomPoint{300, 0, 1}));
}

TEST_F(DrawArea, SaveGivesLaterNewDesignsTheMaxWidthAndApplyDoesNot) {
    fields_.MaxWidth = "55";
    EXPECT_TRUE(Apply(fields_));
    EXPECT_EQ(project_.Preferences.MWid, 160);

    EXPECT_TRUE(Save(fields_));

    EXPECT_EQ(project_.Preferences.MWid, 55);
}

TEST_F(DrawArea, SaveWithoutASettingsFileChangesNothing) {
    file_.clear();
    fields_.CentreX = "5";
    EXPECT_THROW(Save(fields_), Fault);
    EXPECT_EQ(project_.Design.View.MidX, 0);
    EXPECT_FALSE(project_.EditState.DataChanged);
}

TEST_F(DrawArea, KeepsAGridTypeThatNoButtonStandsFor) {
    project_.Preferences.Grid.Type = 7;
    EXPECT_TRUE(Apply(OpenDrawArea(project_.Design, project_.Preferences)));
    EXPECT_EQ(project_.Preferences.Grid.Type, 7);
}

TEST_F(DrawArea, ExplainsItselfFromTheContentsToTheButtons) {
    ExplainDrawArea(prompts_);

    ASSERT_EQ(prompts_.Told.size(), 1U);
    const std::string& text = prompts_.Told.front().Text;
    std::size_t at = 0;
    for (const char* sentence :
         {"The Draw Area Settings allow to modify the draw window's contents.",
          "Centre X and Centre Y are the defined window centre coordinates in cm displacement from the origin.",
          "Window is the current draw window's width and height in cm.",
          "Max Width is the maximum allowed displacement of the centre coordinates in X and Y from the defined centre "
          "position using the scroll bars.",
          "The Room Definition frame allows you to define your room's layout, which appear in the window as a red "
          "polygon. Unticking Line causes no line to be draw to the current point, which can be useful to define "
          "pillars or other obstacles located within the room.",
          "The Angle given is the angle of the room relative to the defined circuit.",
          "Pressing the Apply buttons applies your changes to the current track. The defined values are saved with the "
          "track.",
          "Saving the settings makes them your default values for all successive Pistaro sessions, Cancel ignores all "
          "changes."}) {
        const std::size_t found = text.find(sentence, at);
        ASSERT_NE(found, std::string::npos) << sentence;
        at = found + 1;
    }
}

} // namespace
} // namespace pistaro
