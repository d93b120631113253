// The guide's files as they are drawn, and what becomes of them on disk.
#include "report/guide.h"

#include "support/chain.h"
#include "support/fault_of.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// Makers of pictures that only name what they show.
GuidePictures NamedPictures() {
    return {.Piece = [](const Project&, std::string_view code) { return "picture of " + std::string(code); },
            .Circuit = [](const Project& project) { return "picture of " + ProjectName(project.EditState); }};
}

std::vector<GuideFile> Drawn(const Project& project, const GuidePictures& pictures = NamedPictures(),
                             const JobWatch& watch = {}) {
    return DrawGuide(Pieces(), project, pictures, watch);
}

/// What the drawing fails with, and whether at a piece.
std::pair<std::string, bool> ProblemOf(const GuidePictures& pictures) {
    try {
        Drawn(ProjectOf("C160"), pictures);
    } catch (const PictureProblem& problem) {
        return {problem.what(), problem.OfPiece};
    }
    return {"no problem", false};
}

TEST(DrawnGuide, IsEveryPiecesPictureThenTheLayoutsThenThePage) {
    const std::vector<GuideFile> files = Drawn(ProjectOf("C160 C151L"));

    std::string names;
    for (const GuideFile& file : files)
        names += file.Name + ' ';
    EXPECT_EQ(names, "C151L.gif C151R.gif C152L.gif C152R.gif C153L.gif C153R.gif C154L.gif C154R.gif C156L.gif "
                     "C156R.gif C157.gif C158.gif C159.gif C160.gif C187L.gif C187R.gif N10102.gif N10103.gif "
                     "N10104.gif N10105L.gif N10105R.gif N10106L.gif N10106R.gif N10107L.gif N10107R.gif N10108L.gif "
                     "N10108R.gif N10110.gif C164.gif C248.gif C8005.gif C8006.gif C8007.gif C8009.gif C277.gif "
                     "C367.gif C8010L.gif C8010R.gif N10111.gif track.gif guide.html ");
    EXPECT_EQ(files[37].Bytes, "picture of C8010R");
    EXPECT_TRUE(files[38].ShowsPiece);
    EXPECT_EQ(files[39].Bytes, "picture of new project");
    EXPECT_FALSE(files[39].ShowsPiece);
    EXPECT_THAT(files[40].Bytes, StartsWith("<html>\r\n"));
    EXPECT_THAT(files[40].Bytes, HasSubstr("<img SRC=\"C160.gif\" >&nbsp;->&nbsp;\r\n"
                                           "<img SRC=\"C151L.gif\" >&nbsp;->&nbsp;\r\n"));
}

TEST(DrawnGuide, IsNamedAfterTheCircuitsFile) {
    Project project = ProjectOf("");
    EXPECT_THAT(Drawn(project).back().Bytes, HasSubstr("<h1>new project</h1>"));

    project.EditState.File = "tracks/club night.trk";
    EXPECT_THAT(Drawn(project).back().Bytes, HasSubstr("<h1>club night</h1>"));
}

TEST(DrawnGuide, ShowsThePiecesInAViewOf250CmWithoutNumbersAndTheLayoutInItsOwn) {
    Project project = ProjectOf("C160");
    project.EditState.ShowNumbers = true;
    project.Design.View.Width = 400;
    project.Design.View.MidX = 30;
    const auto view = [](const Project& shown) {
        const ViewRectangle rectangle = ShownRectangle(shown.Design.View);
        return std::to_string(static_cast<int>(rectangle.ViewLeft)) + ".." +
               std::to_string(static_cast<int>(rectangle.ViewRight)) + (shown.EditState.ShowNumbers ? " numbers" : "");
    };

    const std::vector<GuideFile> files =
        Drawn(project, {.Piece = [&](const Project& shown, std::string_view) { return view(shown); }, .Circuit = view});

    EXPECT_EQ(files[0].Bytes, "-95..155");
    EXPECT_EQ(files[38].Bytes, "-95..155");
    EXPECT_EQ(files[39].Bytes, "-170..230 numbers");
}

TEST(DrawnGuide, TellsHowManyOfTheFortyPicturesAreDone) {
    std::vector<std::pair<int, int>> steps;

    Drawn(ProjectOf(""), NamedPictures(),
          {.Progress = [&](int done, int total) { steps.emplace_back(done, total); }, .Stop = {}});

    ASSERT_EQ(steps.size(), 41U);
    for (int done = 0; done <= 40; ++done)
        EXPECT_EQ(steps[static_cast<std::size_t>(done)], std::pair(done, 40));
}

TEST(DrawnGuide, GoesNoFurtherWhenItIsStopped) {
    std::stop_source stop;
    GuidePictures pictures = NamedPictures();
    int drawn = 0;
    pictures.Piece = [&](const Project&, std::string_view) {
        if (++drawn == 3) stop.request_stop();
        return std::string();
    };

    EXPECT_THROW(Drawn(ProjectOf(""), pictures, {.Progress = {}, .Stop = stop.get_token()}), Stopped);

    EXPECT_EQ(drawn, 3);
}

TEST(DrawnGuide, IsStoppedAfterItsLastPictureToo) {
    std::stop_source stop;
    GuidePictures pictures = NamedPictures();
    pictures.Circuit = [&](const Project&) {
        stop.request_stop();
        return std::string();
    };

    EXPECT_THROW(Drawn(ProjectOf(""), pictures, {.Progress = {}, .Stop = stop.get_token()}), Stopped);
}

TEST(DrawnGuide, APieceWhosePictureFailsIsAProblemThatNamesIt) {
    GuidePictures pictures = NamedPictures();
    pictures.Piece = [](const Project&, std::string_view code) -> std::string {
        if (code == "C152L") throw Fault("Picture not written", "GIF: no memory");
        return "a picture";
    };

    EXPECT_EQ(ProblemOf(pictures),
              std::pair(std::string("Problem with BMP2GIF.OCX! C152L.gif not written: Picture not written: "
                                    "GIF: no memory"),
                        true));
}

TEST(DrawnGuide, ALayoutWhosePictureFailsIsAProblemOfNoPiece) {
    GuidePictures pictures = NamedPictures();
    pictures.Circuit = [](const Project&) -> std::string { throw std::runtime_error("no memory"); };

    EXPECT_EQ(ProblemOf(pictures),
              std::pair(std::string("Problem with BMP2GIF.OCX! track.gif not written: no memory"), false));
}

TEST(PieceView, Is250CmWideAroundTheSameCentreAndWithoutNumbers) {
    Project project = ProjectOf("C160");
    project.EditState.ShowNumbers = true;
    project.Design.View.MidX = 30;
    Project expected = project;
    expected.Design.View.Width = 250;
    expected.EditState.ShowNumbers = false;

    SetPieceView(project);

    EXPECT_EQ(project, expected);
}

/// A guide of two pictures and a page, and the folder that it goes to.
class WrittenGuide : public ::testing::Test {
protected:
    WrittenGuide() { User.WorkingDirectory = (Folder / "").string(); }

    bool Exists(const std::string& name) const { return std::filesystem::exists(Folder / name); }

    const std::vector<GuideFile> Files{
        {"C160.gif", "a straight", true}, {"track.gif", "the layout", false}, {"guide.html", "the page", false}};
    TemporaryFolder Folder;
    Preferences User;
};

TEST_F(WrittenGuide, StandsInTheWorkingDirectoryThePageLast) {
    const auto written = WriteGuide(User, Files);

    EXPECT_THAT(written, ::testing::ElementsAre(Folder / "C160.gif", Folder / "track.gif", Folder / "guide.html"));
    EXPECT_EQ(BytesOf(Folder / "C160.gif"), "a straight");
    EXPECT_EQ(BytesOf(Folder / "track.gif"), "the layout");
    EXPECT_EQ(BytesOf(Folder / "guide.html"), "the page");
    EXPECT_EQ(FilesIn(Folder.Path()), 3U);
}

TEST_F(WrittenGuide, ReplacesAnOlderOne) {
    WriteBytes(Folder / "guide.html", "an older page, which is longer");
    WriteBytes(Folder / "track.gif", "an older layout");

    WriteGuide(User, Files);

    EXPECT_EQ(BytesOf(Folder / "guide.html"), "the page");
    EXPECT_EQ(BytesOf(Folder / "track.gif"), "the layout");
}

TEST_F(WrittenGuide, APictureThatCannotBeWrittenIsAProblemThatNamesItAndLeavesTheOldGuide) {
    for (const auto& [picture, ofPiece] : {std::pair("C160.gif", true), std::pair("track.gif", false)}) {
        for (const char* const name : {"C160.gif", "track.gif", "guide.html"})
            WriteBytes(Folder / name, "an older file");
        std::filesystem::remove(Folder / picture);
        std::filesystem::create_directory(Folder / picture);

        try {
            WriteGuide(User, Files);
            ADD_FAILURE() << "no problem with " << picture;
        } catch (const PictureProblem& problem) {
            EXPECT_THAT(problem.what(),
                        StartsWith("Problem with BMP2GIF.OCX! " + std::string(picture) + " not written: "));
            EXPECT_EQ(problem.OfPiece, ofPiece);
        }

        for (const char* const name : {"C160.gif", "track.gif", "guide.html"}) {
            if (name == std::string_view(picture)) continue;
            EXPECT_EQ(BytesOf(Folder / name), "an older file") << picture;
        }
        EXPECT_EQ(FilesIn(Folder.Path()), 3U) << "no temporary file is left";
        std::filesystem::remove(Folder / picture);
    }
}

TEST_F(WrittenGuide, APageThatCannotBeWrittenIsAFaultOfNoPicture) {
    std::filesystem::create_directory(Folder / "guide.html");
    WriteBytes(Folder / "C160.gif", "an older picture");

    EXPECT_THAT(FaultOf([&] { WriteGuide(User, Files); }),
                StartsWith("Path/File access error: " + (Folder / "guide.html").string()));
    EXPECT_TRUE(std::filesystem::is_directory(Folder / "guide.html"));
    EXPECT_EQ(BytesOf(Folder / "C160.gif"), "an older picture");
    EXPECT_FALSE(Exists("track.gif"));
}

TEST_F(WrittenGuide, AWorkingDirectoryThatIsNotThereIsAFaultAndNothingIsWritten) {
    User.WorkingDirectory = (Folder / "gone" / "").string();
    EXPECT_EQ(FaultOf([&] { WriteGuide(User, Files); }), "Path not found: " + User.WorkingDirectory);
    EXPECT_EQ(FaultOf([&] { GuidePageFile(User); }), "Path not found: " + User.WorkingDirectory);
    EXPECT_FALSE(Exists("gone"));

    User.WorkingDirectory = (Folder / std::string(300, 'x') / "").string(); // no system has such names
    EXPECT_THROW(WriteGuide(User, Files), Fault);
    User.WorkingDirectory = "";
    EXPECT_THROW(WriteGuide(User, Files), Fault);
    EXPECT_EQ(FilesIn(Folder.Path()), 0U);
}

TEST_F(WrittenGuide, ItsPageIsGuideHtmlInTheWorkingDirectory) { EXPECT_EQ(GuidePageFile(User), Folder / "guide.html"); }

} // namespace
} // namespace pistaro
