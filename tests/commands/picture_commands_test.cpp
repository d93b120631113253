// Background, saved picture, guide and manual, as rows of the command table.
#include "commands/picture_commands.h"

#include "commands/bitmaps.h"
#include "commands/posted_calls.h"
#include "commands/printed.h"
#include "imaging/circuit_picture.h"
#include "support/chain.h"
#include "support/fake_viewer.h"
#include "support/fault_of.h"
#include "support/scripted_prompts.h"

#include <gmock/gmock.h>

#include <limits>

namespace pistaro {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr Colour Cyan = Rgb(0, 255, 255);
constexpr Colour White = Rgb(255, 255, 255);

class PictureCommandsTest : public testing::Test {
protected:
    PictureCommandsTest() {
        session_.Project.Preferences.WorkingDirectory = (folder_ / "").string();
        session_.Project.Preferences.Grid.Type = 0;
        session_.PicturePixels = 60;
    }

    const Command& Row(const char* id) const { return *session_.Commands.Find(id); }
    void Run(const char* id) { session_.Run(Row(id)); }

    std::filesystem::path PictureFile(const char* name, int width, int height, Colour colour) const {
        WriteBytes(folder_ / name, Bitmap(width, height, colour));
        return folder_ / name;
    }

    bool Exists(const std::string& name) const { return std::filesystem::exists(folder_ / name); }

    OffscreenGraphics graphics_;
    TemporaryFolder folder_;
    ScriptedPrompts user_;
    Session session_{Pieces(), user_, ProjectOf("C160 C151L"), {}};
};

using BackgroundPicture = PictureCommandsTest;
using SavedPicture = PictureCommandsTest;
using Manual = PictureCommandsTest;

class GuideCommands : public PictureCommandsTest {
protected:
    GuideCommands() {
        session_.Project.EditState.ShowNumbers = true;
        session_.Project.Design.View.Width = 400;
    }

    void ExpectViewOfPiecePictures() const {
        EXPECT_EQ(session_.Project.Design.View.Width, 250);
        EXPECT_FALSE(session_.Project.EditState.ShowNumbers);
    }

    void ExpectViewAsItWas() const {
        EXPECT_EQ(session_.Project.Design.View.Width, 400);
        EXPECT_TRUE(session_.Project.EditState.ShowNumbers);
    }

    const std::vector<Message> pictureProblem_{{Icon::Exclamation, "Problem with BMP2GIF.OCX!"}};
};

} // namespace

TEST_F(BackgroundPicture, IsAskedForAmongThePicturesOfTheWorkingDirectory) {
    user_.Files = {std::nullopt};

    Run("background select");

    ASSERT_EQ(user_.Dialogs.size(), 1U);
    EXPECT_FALSE(user_.Dialogs[0].Saving);
    EXPECT_EQ(user_.Dialogs[0].Title, "Select Background Image (334 x 334 pixel)");
    EXPECT_EQ(user_.Dialogs[0].Filter,
              "All files (*.bmp,*.gif,*.jpg)|*.bmp;*.gif;*.jpg|Windows Bitmap (*.bmp)|*.bmp|GIF (*.gif)|*.gif|"
              "JPEG File Interchange Format (*.jpg)|*.jpg");
    EXPECT_EQ(user_.Dialogs[0].DefaultName, "");
    EXPECT_EQ(user_.Dialogs[0].Folder, (folder_ / "").string());
    EXPECT_FALSE(session_.Background);
}

TEST_F(BackgroundPicture, IsTakenFromTheChosenFileAndReplacesTheEarlierOne) {
    user_.Files = {PictureFile("plan.bmp", 4, 3, Cyan), PictureFile("floor.bmp", 4, 3, White)};

    Run("background select");
    ASSERT_TRUE(session_.Background);
    const Picture first = *session_.Background;
    Run("background select");

    EXPECT_FALSE(*session_.Background == first);
    EXPECT_FALSE(session_.Project.EditState.DataChanged);
}

TEST_F(BackgroundPicture, StaysWhenTheDialogIsCancelled) {
    user_.Files = {PictureFile("plan.bmp", 4, 3, Cyan), std::nullopt};
    Run("background select");
    const Picture first = *session_.Background;

    Run("background select");

    EXPECT_TRUE(*session_.Background == first);
}

TEST_F(BackgroundPicture, StaysWhenAFileIsNoPicture) {
    WriteBytes(folder_ / "notes.gif", "no picture at all");
    user_.Files = {PictureFile("plan.bmp", 4, 3, Cyan), folder_ / "notes.gif", folder_ / "missing.bmp"};
    Run("background select");
    const Picture first = *session_.Background;

    EXPECT_THAT(FaultOf([&] { Run("background select"); }),
                StartsWith("Invalid picture: " + (folder_ / "notes.gif").string() + ": "));
    EXPECT_THAT(FaultOf([&] { Run("background select"); }), HasSubstr((folder_ / "missing.bmp").string()));

    EXPECT_TRUE(*session_.Background == first);
}

TEST_F(BackgroundPicture, IsTakenAwayWhereThereIsOne) {
    EXPECT_EQ(Row("background clear").WhyNot(session_), "There is no picture behind the circuit.");
    user_.Files = {PictureFile("plan.bmp", 4, 3, Cyan)};
    Run("background select");
    EXPECT_EQ(Row("background clear").WhyNot(session_), "");

    Run("background clear");

    EXPECT_FALSE(session_.Background);
    EXPECT_EQ(Row("background clear").WhyNot(session_), "There is no picture behind the circuit.");
}

TEST_F(SavedPicture, IsAsLargeAsTheDrawingIsShown) {
    EXPECT_EQ(Session(Pieces(), user_, ProjectOf(""), {}).PicturePixels, 700);
    for (const int pixels : {60, 333}) {
        session_.PicturePixels = pixels;

        Run("save picture");

        const std::string bytes = BytesOf(folder_ / "track.bmp");
        EXPECT_THAT(bytes, StartsWith("BM"));
        EXPECT_EQ(NumberAt(bytes, 18), pixels);
        EXPECT_EQ(NumberAt(bytes, 22), pixels);
    }
    EXPECT_THAT(user_.Told, IsEmpty()) << "an older one is replaced without a word";
    EXPECT_THAT(user_.Asked, IsEmpty());
}

TEST_F(SavedPicture, ShowsTheBackgroundAtItsNaturalSize) {
    user_.Files = {PictureFile("plan.bmp", 40, 30, Cyan)};
    session_.Project.Design.Circuit = EmptyCircuit();
    Run("background select");

    Run("save picture");

    const std::string bytes = BytesOf(folder_ / "track.bmp");
    EXPECT_EQ(DotOf(bytes, 0, 0), Cyan);
    EXPECT_EQ(DotOf(bytes, 39, 29), Cyan);
    EXPECT_EQ(DotOf(bytes, 40, 29), White);
    EXPECT_EQ(DotOf(bytes, 39, 30), White);
}

TEST_F(SavedPicture, ShowsTheViewAndTheColoursAsTheyAre) {
    session_.Project.Preferences.Colours.Background = Rgb(255, 255, 0);
    Run("save picture");
    const std::string first = BytesOf(folder_ / "track.bmp");
    Run("zoom in");

    Run("save picture");

    EXPECT_EQ(DotOf(first, 0, 0), Rgb(255, 255, 0));
    EXPECT_NE(BytesOf(folder_ / "track.bmp"), first);
}

TEST_F(SavedPicture, WantsAWorkingDirectory) {
    session_.Project.Preferences.WorkingDirectory = "";
    EXPECT_EQ(FaultOf([&] { Run("save picture"); }), "Path not found: there is no working directory");

    session_.Project.Preferences.WorkingDirectory = (folder_ / "gone" / "").string();
    EXPECT_THAT(FaultOf([&] { Run("save picture"); }), StartsWith("Path not found: "));
    EXPECT_FALSE(Exists("gone"));
}

TEST_F(GuideCommands, WriteThePicturesAndThePageAndOpenThePage) {
    const FakeViewer viewer;
    user_.Answers = {Answer::Yes};

    Run("guide");

    const std::string page = (folder_ / "guide.html").string();
    ASSERT_EQ(user_.Asked.size(), 1U);
    EXPECT_EQ(user_.Asked[0].Text, "Guide written to " + page + "!\nView now?");
    EXPECT_EQ(user_.Asked[0].Choices, Buttons::YesNo);
    EXPECT_THAT(viewer.Arguments(), ElementsAre(page));
    EXPECT_EQ(FilesIn(folder_.Path()), 41U) << "39 pieces, the layout and the page";
    for (const char* const name : {"C151L.gif", "C151R.gif", "C8010R.gif", "N10111.gif", "track.gif"})
        EXPECT_THAT(BytesOf(folder_ / name), StartsWith("GIF8")) << name;
    EXPECT_THAT(BytesOf(folder_ / "guide.html"), StartsWith("<html>\r\n"));
    EXPECT_THAT(user_.Told, IsEmpty());
}

TEST_F(GuideCommands, DrawTheLayoutAsItIsShownAndLeaveTheViewAsItWas) {
    const NoViewer noViewer;
    user_.Answers = {Answer::Yes, Answer::Yes};
    Run("guide");
    const std::string first = BytesOf(folder_ / "track.gif");
    EXPECT_EQ(NumberAt(first, 6, 2), 60);
    EXPECT_EQ(NumberAt(first, 8, 2), 60);
    user_.Files = {PictureFile("plan.bmp", 40, 30, Cyan)};
    Run("background select");

    Run("guide");

    EXPECT_NE(BytesOf(folder_ / "track.gif"), first) << "the background is in it";
    ExpectViewAsItWas();
    EXPECT_FALSE(session_.Project.EditState.DataChanged);
}

TEST_F(GuideCommands, OpenThePageAfterNoToo) {
    const FakeViewer viewer;
    user_.Answers = {Answer::No};

    Run("guide");

    EXPECT_THAT(viewer.Arguments(), ElementsAre((folder_ / "guide.html").string()));
}

TEST_F(GuideCommands, GiveTheViewerThePageAsOneArgumentWhateverItsFolderIsCalled) {
    const FakeViewer viewer;
    std::filesystem::create_directory(folder_ / "club night - 2");
    session_.Project.Preferences.WorkingDirectory = (folder_ / "club night - 2" / "").string();
    user_.Answers = {Answer::Yes};

    Run("guide");

    EXPECT_THAT(viewer.Arguments(), ElementsAre((folder_ / "club night - 2" / "guide.html").string()));
}

TEST_F(GuideCommands, ReplaceAnOlderGuide) {
    const NoViewer noViewer;
    WriteBytes(folder_ / "guide.html", "an older guide");
    WriteBytes(folder_ / "track.gif", "an older picture");
    user_.Answers = {Answer::Yes};

    Run("guide");

    EXPECT_THAT(BytesOf(folder_ / "guide.html"), StartsWith("<html>\r\n"));
    EXPECT_THAT(BytesOf(folder_ / "track.gif"), StartsWith("GIF8"));
}

TEST_F(GuideCommands, TellOfAPieceWhosePictureCannotBeWrittenAndLeaveTheViewOfPiecePictures) {
    std::filesystem::create_directory(folder_ / "C151L.gif"); // the first one
    WriteBytes(folder_ / "guide.html", "an older guide");

    Run("guide");

    EXPECT_EQ(user_.Told, pictureProblem_);
    EXPECT_THAT(user_.Asked, IsEmpty());
    ExpectViewOfPiecePictures();
    EXPECT_EQ(FilesIn(folder_.Path()), 2U) << "no new files";
    EXPECT_EQ(BytesOf(folder_ / "guide.html"), "an older guide");
}

TEST_F(GuideCommands, TellOfALayoutThatCannotBeDrawnAndChangeNothing) {
    session_.PicturePixels = std::numeric_limits<int>::max(); // no memory holds it
    WriteBytes(folder_ / "guide.html", "an older guide");

    Run("guide");

    EXPECT_EQ(user_.Told, pictureProblem_);
    EXPECT_THAT(user_.Asked, IsEmpty());
    ExpectViewAsItWas();
    EXPECT_EQ(FilesIn(folder_.Path()), 1U) << "no new files";
    EXPECT_EQ(BytesOf(folder_ / "guide.html"), "an older guide");
}

TEST_F(GuideCommands, TellOfALayoutWhosePictureCannotBeWrittenAndLeaveTheView) {
    std::filesystem::create_directory(folder_ / "track.gif");

    Run("guide");

    EXPECT_EQ(user_.Told, pictureProblem_);
    ExpectViewAsItWas();
    EXPECT_FALSE(Exists("guide.html"));
}

TEST_F(GuideCommands, TellOfAPageThatCannotBeWritten) {
    std::filesystem::create_directory(folder_ / "guide.html");

    Run("guide");

    ASSERT_EQ(user_.Told.size(), 1U);
    EXPECT_EQ(user_.Told[0].Icon, Icon::Exclamation);
    EXPECT_THAT(user_.Told[0].Text, HasSubstr((folder_ / "guide.html").string()));
    EXPECT_THAT(user_.Asked, IsEmpty());
    ExpectViewAsItWas();
}

TEST_F(GuideCommands, TellOfAMissingViewerWhenTheGuideIsWritten) {
    const NoViewer noViewer;
    user_.Answers = {Answer::Yes};

    Run("guide");

    EXPECT_TRUE(Exists("guide.html"));
    ASSERT_EQ(user_.Told.size(), 1U);
    EXPECT_EQ(user_.Told[0].Icon, Icon::Exclamation);
}

TEST_F(GuideCommands, WantAWorkingDirectoryBeforeTheyDrawAnything) {
    session_.Project.Preferences.WorkingDirectory = (folder_ / "gone" / "").string();
    EXPECT_EQ(FaultOf([&] { Run("guide"); }), "Path not found: " + (folder_ / "gone" / "").string());

    session_.Project.Preferences.WorkingDirectory =
        (folder_ / std::string(300, 'x') / "").string(); // none has such names
    EXPECT_THAT(FaultOf([&] { Run("guide"); }), StartsWith("Path not found: "));
    session_.Project.Preferences.WorkingDirectory = "";
    EXPECT_EQ(FaultOf([&] { Run("guide"); }), "Path not found: there is no working directory");

    EXPECT_THAT(user_.Told, IsEmpty());
    EXPECT_FALSE(Exists("gone"));
    ExpectViewAsItWas();
}

TEST_F(GuideCommands, DrawBesideTheWindowOnACopyAndTellHowFarTheyAre) {
    const FakeViewer viewer;
    PostedCalls calls;
    std::vector<std::pair<int, int>> progress;
    session_.RunJobsBeside([&](std::function<void()> call) { calls.Put(std::move(call)); },
                           [&](int done, int total) { progress.emplace_back(done, total); });
    user_.Answers = {Answer::Yes};

    Run("guide");
    EXPECT_EQ(Row("guide").WhyNot(session_), "The guide is being drawn.");
    session_.Project.Design.Circuit = EmptyCircuit();
    session_.Project.Preferences.WorkingDirectory = "/elsewhere/";
    while (session_.HasJob())
        calls.Take()();

    ASSERT_EQ(progress.size(), 41U);
    for (int done = 0; done <= 40; ++done)
        EXPECT_EQ(progress[static_cast<std::size_t>(done)], std::pair(done, 40));
    EXPECT_THAT(BytesOf(folder_ / "guide.html"), HasSubstr("C151L.gif"))
        << "circuit and folder of the time of the command";
    EXPECT_THAT(viewer.Arguments(), ElementsAre((folder_ / "guide.html").string()));
}

TEST_F(GuideCommands, WriteNothingWhenTheyAreCancelled) {
    const FakeViewer viewer;
    PostedCalls calls;
    session_.RunJobsBeside([&](std::function<void()> call) { calls.Put(std::move(call)); }, {});

    Run("guide");
    session_.CancelJob();
    calls.MakeAll();

    EXPECT_EQ(FilesIn(folder_.Path()), 0U);
    EXPECT_THAT(user_.Asked, IsEmpty());
    EXPECT_THAT(user_.Told, IsEmpty());
    EXPECT_FALSE(viewer.WasStarted());
    EXPECT_EQ(Row("guide").WhyNot(session_), "");
    ExpectViewAsItWas();
}

TEST_F(Manual, IsOpenedBesideTheUsersCircuits) {
    const FakeViewer viewer;
    std::filesystem::create_directory(folder_ / "manual");
    WriteBytes(folder_ / "manual" / "help.html", "the manual");

    Run("manual");

    EXPECT_THAT(viewer.Arguments(), ElementsAre((folder_ / "manual" / "help.html").string()));
}

} // namespace pistaro
