// The picture under the circuit: with the circuit loaded, saved, undone, and never in its way.
#include "commands/background_commands.h"

#include "commands/bitmaps.h"
#include "commands/circuit_commands.h"
#include "editor/draw_area.h"
#include "imaging/circuit_picture.h"
#include "storage/background_file.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/fault_of.h"
#include "support/named_windows.h"
#include "support/scripted_prompts.h"
#include "support/settings_bytes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class ScaledBackgrounds : public testing::Test {
protected:
    ScaledBackgrounds() {
        session_.Windows = &windows_;
        session_.Project.Preferences.WorkingDirectory = (folder_ / "").string();
        WriteBytes(folder_ / "oval.trk", CircuitText("C160 C151L"));
    }

    /// Lays a picture of that many pixels across under the circuit.
    void Lay(int width, double x = 7) {
        session_.Do([&] {
            SetBackground(session_, std::make_shared<const ScaledBackground>(ScaledBackground{
                                        .Picture = std::make_shared<const std::string>(Bitmap(width, 4, Rgb(9, 9, 9))),
                                        .X = x,
                                        .CmPerPixel = 0.5}));
        });
    }

    void Load(const char* name) {
        session_.Do([&] { LoadFileCommand(session_, folder_ / name); });
    }
    void SaveAs(const char* name) {
        user_.Files.push_back(folder_ / name);
        if (Exists(name)) user_.Answers.push_back(Answer::Yes);
        session_.Do([&] { SaveCommand(session_); });
    }
    void Run(const char* id) {
        session_.Do([&] { session_.Run(*session_.Commands.Find(id)); });
    }
    bool Exists(const std::string& name) const { return std::filesystem::exists(folder_ / name); }
    const ScaledBackground* Laid() const { return session_.Project.Background.get(); }
    std::string LastTold() const { return user_.Told.empty() ? "" : user_.Told.back().Text; }

    OffscreenGraphics graphics_;
    TemporaryFolder folder_;
    ScriptedPrompts user_;
    NamedWindows windows_;
    Session session_{Pieces(), user_, ProjectOf("C160"), {}};
};

TEST_F(ScaledBackgrounds, AreKeptBesideTheCircuitAndComeWithIt) {
    const std::string before = BytesOf(folder_ / "oval.trk");
    Load("oval.trk");
    Lay(6);
    EXPECT_TRUE(session_.Project.EditState.DataChanged);

    Run("plain save");

    EXPECT_EQ(BytesOf(folder_ / "oval.trk"), before) << "never in the circuit's file";
    EXPECT_EQ(BytesOf(folder_ / "oval.background").substr(0, 21), "[Background]\r\nX=7\r\nY=");
    EXPECT_FALSE(session_.Project.EditState.DataChanged);
    SaveAs("other.trk");
    EXPECT_EQ(BytesOf(folder_ / "other.background"), BytesOf(folder_ / "oval.background"));
    Run("new");
    EXPECT_EQ(Laid(), nullptr);
    Load("other.trk");
    ASSERT_NE(Laid(), nullptr);
    EXPECT_EQ(Laid()->X, 7);
    EXPECT_EQ(*Laid()->Picture, Bitmap(6, 4, Rgb(9, 9, 9)));
    EXPECT_TRUE(user_.Told.empty()) << LastTold();
}

TEST_F(ScaledBackgrounds, GoFromTheDiskWhenTheirCircuitIsSavedWithoutOne) {
    Load("oval.trk");
    Lay(6);
    Run("plain save");
    Run("background remove");
    EXPECT_TRUE(Exists("oval.background")) << "until it is saved";

    Run("plain save");

    EXPECT_FALSE(Exists("oval.background"));
}

TEST_F(ScaledBackgrounds, ThatAreNoneStayOnTheDisk) {
    WriteBytes(folder_ / "oval.background", "my notes");
    Load("oval.trk");
    EXPECT_EQ(LastTold(), "Bad file format: " + (folder_ / "oval.background").string() +
                              ": this is no background file\nThe circuit is loaded without the picture under it.");
    EXPECT_EQ(session_.Project.Design.Circuit.Tracks[0].ElementCodes.size(), 2U);

    session_.Project.EditState.DataChanged = true;
    Run("plain save");

    EXPECT_EQ(BytesOf(folder_ / "oval.background"), "my notes");
}

TEST_F(ScaledBackgrounds, WhosePictureIsBrokenAreToldAndKept) {
    Load("oval.trk");
    Lay(6);
    Run("plain save");
    std::string bytes = BytesOf(folder_ / "oval.background");
    bytes[bytes.find("BM")] = 'X';
    WriteBytes(folder_ / "oval.background", bytes);

    Load("oval.trk");
    EXPECT_NE(LastTold().find("this is no BMP, GIF, JPEG or PNG picture"), std::string::npos) << LastTold();
    session_.Project.EditState.DataChanged = true;
    Run("plain save");

    EXPECT_EQ(BytesOf(folder_ / "oval.background"), bytes);
}

TEST_F(ScaledBackgrounds, ThatAreGoneAreTold) {
    Load("oval.trk");
    Lay(6);
    Run("plain save");
    std::filesystem::remove(folder_ / "oval.background");

    Load("oval.trk");

    EXPECT_EQ(LastTold(), "File not found: " + (folder_ / "oval.background").string() +
                              "\nThe circuit is loaded without the picture under it.");
    EXPECT_EQ(session_.Project.Design.Circuit.Tracks[0].ElementCodes.size(), 2U);
}

TEST_F(ScaledBackgrounds, ThatCannotBeWrittenLeaveTheCircuitAsItWas) {
    Load("oval.trk");
    const std::string before = BytesOf(folder_ / "oval.trk");
    std::filesystem::create_directory(folder_ / "oval.background");
    session_.Project.Design.Circuit.Tracks[0] = Chain("C160");
    Lay(6);

    Run("plain save");

    EXPECT_EQ(BytesOf(folder_ / "oval.trk"), before);
    EXPECT_TRUE(session_.Project.EditState.DataChanged);
    EXPECT_NE(LastTold().find("oval.background"), std::string::npos) << LastTold();
}

TEST_F(ScaledBackgrounds, AreStepsThatCanBeUndone) {
    Lay(6);
    Lay(6, 99);

    Run("undo");
    ASSERT_NE(Laid(), nullptr);
    EXPECT_EQ(Laid()->X, 7);
    Run("undo");
    EXPECT_EQ(Laid(), nullptr);
    Run("redo");
    EXPECT_NE(Laid(), nullptr);
}

TEST_F(ScaledBackgrounds, MoveWithTheRoom) {
    session_.Project.Design.Room.Points = {{0, 0, 0}, {100, 0, 1}, {100, 50, 1}};
    Lay(6);
    DrawAreaFields fields = OpenDrawArea(session_.Project.Design, session_.Project.Preferences);

    fields.Room = OpenRoomPoints({{30, -20, 0}, {130, -20, 1}, {130, 30, 1}});
    ASSERT_TRUE(ApplyDrawArea(session_.Project, fields, user_));
    EXPECT_EQ(Laid()->X, 37);
    EXPECT_EQ(Laid()->Y, -20);

    fields.Room.Points[2].Y = 90;
    ASSERT_TRUE(ApplyDrawArea(session_.Project, fields, user_));
    EXPECT_EQ(Laid()->X, 37) << "a wall was moved, not the room";
}

TEST_F(ScaledBackgrounds, AreProposedUprightInTheMiddleOfTheView) {
    WriteBytes(folder_ / "floor.bmp", Bitmap(6, 4, Rgb(9, 9, 9)));
    session_.Project.Design.View.MidX = 30;
    session_.Project.Design.View.MidY = 0;
    session_.Project.Design.Room.Angle = 1.5707964F; // a quarter turn, clockwise
    user_.Files.push_back(folder_ / "floor.bmp");

    Run("background import");

    EXPECT_EQ(windows_.Opened, "background ");
    EXPECT_NEAR(windows_.Background.X, 0, 1e-4);
    EXPECT_NEAR(windows_.Background.Y, 30, 1e-4);
    EXPECT_NEAR(windows_.Background.Angle, -1.5707964, 1e-6);
    EXPECT_EQ(windows_.Background.CmPerPixel, 0) << "which is still to be measured";
}

TEST_F(ScaledBackgrounds, AreWithinWhatFitShows) {
    session_.Project.Design = ProjectOf("").Design;
    Lay(600); // 300 x 2 cm around 7, 0

    Run("fit");

    EXPECT_EQ(session_.Project.Design.View.MidX, 7);
    EXPECT_GE(session_.Project.Design.View.Width, 300);
    EXPECT_LT(session_.Project.Design.View.Width, 400);
}

TEST_F(ScaledBackgrounds, ThatAreNoPicturesDoNotKeepFitFromTheCircuit) {
    session_.Project.Background = std::make_shared<const ScaledBackground>(
        ScaledBackground{.Picture = std::make_shared<const std::string>("nothing"), .X = 5000, .CmPerPixel = 1});

    Run("fit");

    EXPECT_LT(session_.Project.Design.View.MidX, 100);
    EXPECT_TRUE(user_.Told.empty()) << LastTold();
}

/// A user who lays a picture as it is proposed, at a scale.
class LayingWindows : public NamedWindows {
public:
    explicit LayingWindows(Session& session) : session_(session) {}

    void ShowBackground(const ScaledBackground& proposed) override {
        NamedWindows::ShowBackground(proposed);
        ScaledBackground laid = proposed;
        laid.CmPerPixel = 2;
        SetBackground(session_, std::make_shared<const ScaledBackground>(laid));
    }

private:
    Session& session_;
};

TEST_F(ScaledBackgrounds, ThatWereJustImportedAreShownWholeAndDraggedToTheirPlace) {
    LayingWindows windows(session_);
    session_.Windows = &windows;
    WriteBytes(folder_ / "floor.bmp", Bitmap(600, 4, Rgb(9, 9, 9)));
    user_.Files.push_back(folder_ / "floor.bmp");

    Run("background import");

    EXPECT_EQ(windows.Opened, "background panel 3 ");
    EXPECT_GE(session_.Project.Design.View.Width, 1200) << "600 pixels of 2 cm";
    Run("undo");
    EXPECT_EQ(Laid(), nullptr);
    session_.Windows = &windows_;
}

TEST_F(ScaledBackgrounds, ThatWerePlacedAnewAreShownWhole) {
    Lay(600);
    LayingWindows windows(session_);
    session_.Windows = &windows;

    Run("background place");

    EXPECT_EQ(windows.Opened, "background ");
    EXPECT_GE(session_.Project.Design.View.Width, 1200) << "600 pixels of 2 cm";
    session_.Windows = &windows_;
}

TEST_F(ScaledBackgrounds, ThatStayWhereTheyAreLeaveTheViewAlone) {
    Lay(600);
    const float width = session_.Project.Design.View.Width;

    Run("background place");

    EXPECT_EQ(session_.Project.Design.View.Width, width);
}

TEST_F(ScaledBackgrounds, AreTakenOfNoPdfWhichIsToldInWords) {
    WriteBytes(folder_ / "floor.pdf", "%PDF-1.4\n");
    user_.Files.push_back(folder_ / "floor.pdf");

    Run("background import");

    EXPECT_EQ(windows_.Opened, "");
    EXPECT_EQ(LastTold(), "Invalid picture: " + (folder_ / "floor.pdf").string() +
                              ": this is a PDF, no BMP, GIF, JPEG or PNG picture. Save its page as PNG or JPEG first; "
                              "most programs that show a PDF can export it so, and a picture of the screen will do");
}

TEST_F(ScaledBackgrounds, AreRefusedWhenTheirFileIsNoPicture) {
    WriteBytes(folder_ / "floor.png", "");
    user_.Files.push_back(folder_ / "floor.png");

    Run("background import");

    EXPECT_EQ(windows_.Opened, "");
    EXPECT_NE(LastTold().find("floor.png"), std::string::npos);
}

} // namespace
} // namespace pistaro
