// The guide's files, and what becomes of them when a picture fails.
#include "report/guide.h"

#include "report/viewer.h"
#include "support/chain.h"
#include "support/fake_viewer.h"
#include "support/fault_of.h"
#include "support/scripted_prompts.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using ::testing::ElementsAre;

/// Makers of pictures that only name what they show.
GuidePictures NamedPictures() {
    return {.Piece = [](const Project&, std::string_view code) { return "picture of " + std::string(code); },
            .Circuit = [](Project& project) { return "picture of " + project.Name; }};
}

const GuideProgress Unwatched = [](int, int) {};

class Guide : public ::testing::Test {
protected:
    Guide() : Design(ProjectOf("C160 C151L")) { Design.WorkingDirectory = (Folder / "").string(); }

    bool Exists(const std::string& name) const { return std::filesystem::exists(Folder / name); }

    TemporaryFolder Folder;
    Project Design;
    ScriptedPrompts User;
};

TEST_F(Guide, IsEveryPiecesPictureThenTheLayoutsThenThePage) {
    const auto written = WriteGuide(Design, NamedPictures(), Unwatched);

    ASSERT_EQ(written.size(), 41U);
    EXPECT_EQ(written[0], Folder / "C151L.gif");
    EXPECT_EQ(written[1], Folder / "C151R.gif");
    EXPECT_EQ(written[27], Folder / "N10110.gif");
    EXPECT_EQ(written[37], Folder / "C8010R.gif");
    EXPECT_EQ(written[38], Folder / "N10111.gif");
    EXPECT_EQ(written[39], Folder / "track.gif");
    EXPECT_EQ(written[40], Folder / "guide.html");
    EXPECT_EQ(BytesOf(Folder / "C8010R.gif"), "picture of C8010R");
    EXPECT_EQ(BytesOf(Folder / "track.gif"), "picture of new project");
}

TEST_F(Guide, ReplacesAnOlderOne) {
    WriteBytes(Folder / "guide.html", "an older guide");
    WriteBytes(Folder / "track.gif", "an older picture");

    WriteGuide(Design, NamedPictures(), Unwatched);

    EXPECT_TRUE(BytesOf(Folder / "guide.html").starts_with("<html>\r\n"));
    EXPECT_EQ(BytesOf(Folder / "track.gif"), "picture of new project");
}

TEST_F(Guide, DrawsThePiecesInAViewOf250CmWithoutNumbersAndTheLayoutInItsOwn) {
    Design.ShowNumbers = true;
    Design.View.Width = 400;
    Design.View.MidX = 30;
    std::vector<std::string> views;
    const auto view = [](const Project& project) {
        const ViewRectangle shown = ShownRectangle(project.View);
        return std::to_string(static_cast<int>(shown.ViewLeft)) + ".." +
               std::to_string(static_cast<int>(shown.ViewRight)) + (project.ShowNumbers ? " numbers" : "");
    };

    WriteGuide(Design,
               {.Piece =
                    [&](const Project& project, std::string_view) {
                        views.push_back(view(project));
                        EXPECT_EQ(Design.View.Width, 400) << "the window's own view stays";
                        return std::string();
                    },
                .Circuit =
                    [&](Project& project) {
                        views.push_back(view(project));
                        return std::string();
                    }},
               Unwatched);

    EXPECT_EQ(views.front(), "-95..155");
    EXPECT_EQ(views[38], "-95..155");
    EXPECT_EQ(views[39], "-170..230 numbers");
    EXPECT_EQ(view(Design), "-170..230 numbers");
}

TEST_F(Guide, TellsHowManyOfTheFortyPicturesAreDone) {
    std::vector<std::pair<int, int>> steps;

    WriteGuide(Design, NamedPictures(), [&](int done, int total) { steps.emplace_back(done, total); });

    ASSERT_EQ(steps.size(), 41U);
    EXPECT_EQ(steps.front(), std::pair(0, 40));
    EXPECT_EQ(steps[39], std::pair(39, 40));
    EXPECT_EQ(steps.back(), std::pair(40, 40));
}

TEST_F(Guide, AFailedConversionOfAPieceIsToldAndEndsTheCommandWithTheViewOfPiecePictures) {
    GuidePictures pictures = NamedPictures();
    pictures.Piece = [](const Project&, std::string_view code) -> std::string {
        if (code == "C152L") throw Fault("Picture not written", "GIF: no memory");
        return "a picture";
    };
    WriteBytes(Folder / "guide.html", "an older guide");
    Design.ShowNumbers = true;

    GuideCommand(Design, User, pictures, Unwatched);

    EXPECT_THAT(User.Told, ElementsAre(Message{Icon::Exclamation, "Problem with BMP2GIF.OCX!"}));
    EXPECT_TRUE(User.Asked.empty());
    EXPECT_TRUE(Exists("C151R.gif"));
    EXPECT_FALSE(Exists("C152L.gif"));
    EXPECT_FALSE(Exists("C152R.gif"));
    EXPECT_EQ(BytesOf(Folder / "guide.html"), "an older guide");
    EXPECT_EQ(Design.View.Width, 250);
    EXPECT_FALSE(Design.ShowNumbers);
}

TEST_F(Guide, AFailedPictureOfTheLayoutLeavesThePageUnwrittenAndTheViewAsItWas) {
    GuidePictures pictures = NamedPictures();
    pictures.Circuit = [](Project&) -> std::string { throw Fault("Picture not written", "GIF: no memory"); };
    Design.View.Width = 400;

    GuideCommand(Design, User, pictures, Unwatched);

    EXPECT_THAT(User.Told, ElementsAre(Message{Icon::Exclamation, "Problem with BMP2GIF.OCX!"}));
    EXPECT_TRUE(Exists("N10111.gif"));
    EXPECT_FALSE(Exists("guide.html"));
    EXPECT_EQ(Design.View.Width, 400);
}

TEST_F(Guide, AnUnwritablePictureFileIsAProblemOfItsPictureAndNamesIt) {
    std::filesystem::create_directory(Folder / "C160.gif");

    try {
        WriteGuide(Design, NamedPictures(), Unwatched);
        FAIL() << "no problem with C160.gif";
    } catch (const PictureProblem& problem) {
        EXPECT_THAT(problem.what(), ::testing::StartsWith("Problem with BMP2GIF.OCX! C160.gif not written: "));
    }
    EXPECT_FALSE(Exists("guide.html"));
}

TEST_F(Guide, AMissingWorkingDirectoryIsAFaultAndNothingIsWrittenOrChanged) {
    Design.WorkingDirectory = (Folder / "gone" / "").string();
    Design.ShowNumbers = true;
    EXPECT_EQ(FaultOf([&] { GuideCommand(Design, User, NamedPictures(), Unwatched); }),
              "Path not found: " + Design.WorkingDirectory);

    Design.WorkingDirectory = (Folder / std::string(300, 'x') / "").string(); // no system has such names
    EXPECT_THROW(GuideCommand(Design, User, NamedPictures(), Unwatched), Fault);
    Design.WorkingDirectory = "";
    EXPECT_THROW(GuideCommand(Design, User, NamedPictures(), Unwatched), Fault);
    EXPECT_TRUE(User.Told.empty());
    EXPECT_FALSE(Exists("gone"));
    EXPECT_EQ(Design.View.Width, 320);
    EXPECT_TRUE(Design.ShowNumbers);
}

TEST_F(Guide, AnsweringNoToViewNowStillOpensThePage) {
    const FakeViewer viewer;
    User.Answers = {Answer::No};

    GuideCommand(Design, User, NamedPictures(), Unwatched);

    const std::string page = (Folder / "guide.html").string();
    ASSERT_EQ(User.Asked.size(), 1U);
    EXPECT_EQ(User.Asked[0].Text, "Guide written to " + page + "!\nView now?");
    EXPECT_EQ(User.Asked[0].Choices, Buttons::YesNo);
    EXPECT_THAT(viewer.Arguments(), ElementsAre(page));
}

TEST_F(Guide, ThePageIsOneArgumentOfTheViewerWhateverItsFolderIsCalled) {
    const FakeViewer viewer;
    std::filesystem::create_directory(Folder / "club night - 2");
    Design.WorkingDirectory = (Folder / "club night - 2" / "").string();
    User.Answers = {Answer::Yes};

    GuideCommand(Design, User, NamedPictures(), Unwatched);

    EXPECT_THAT(viewer.Arguments(), ElementsAre((Folder / "club night - 2" / "guide.html").string()));
}

TEST_F(Guide, TheManualIsOpenedInTheWorkingDirectoryWhetherItIsThereOrNot) {
    const FakeViewer viewer;

    OpenManual(Design);

    EXPECT_THAT(viewer.Arguments(), ElementsAre((Folder / "manual" / "help.html").string()));
}

TEST_F(Guide, AViewerThatIsNotThereIsAFault) {
    const NoViewer noViewer;
    EXPECT_THROW(OpenManual(Design), Fault);
}

} // namespace
} // namespace pistaro
