// The guide verb of the built program.
#include "support/circuit_text.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace pistaro {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class GuideVerb : public testing::Test {
protected:
    GuideVerb() { WriteBytes(program_ / "x.trk", CircuitText("C160 C151L")); }

    ProgramFolder program_;
};

int LineCount(const std::string& text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

/// Lines of paths with the system's own separator.
std::string Native(std::string lines) {
    std::ranges::replace(lines, '/', static_cast<char>(std::filesystem::path::preferred_separator));
    return lines;
}

} // namespace

TEST_F(GuideVerb, PrintsThePathsOfTheFortyPicturesAndThePageAndAsksNothing) {
    std::filesystem::create_directory(program_ / "out");

    const Finished finished = program_.Run({"guide", "x.trk", "--out", "out"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Errors, "");
    EXPECT_EQ(LineCount(finished.Output), 41);
    EXPECT_THAT(finished.Output, StartsWith(Native("out/C151L.gif\nout/C151R.gif\n")));
    EXPECT_THAT(finished.Output, EndsWith(Native("out/N10111.gif\nout/track.gif\nout/guide.html\n")));
    EXPECT_THAT(BytesOf(program_ / "out" / "guide.html"), HasSubstr("<center><h1>x</h1></center>\r\n"));
    EXPECT_THAT(BytesOf(program_ / "out" / "C160.gif"), StartsWith("GIF8"));
    EXPECT_THAT(BytesOf(program_ / "out" / "track.gif"), StartsWith("GIF8"));
}

TEST_F(GuideVerb, WritesBesideTheCircuitUnlessAFolderIsNamed) {
    std::filesystem::create_directory(program_ / "club");
    std::filesystem::rename(program_ / "x.trk", program_ / "club" / "x.trk");

    const Finished finished = program_.Run({"guide", "club/x.trk"});

    EXPECT_THAT(finished.Output, EndsWith(Native("club/track.gif\nclub/guide.html\n")));
    EXPECT_TRUE(std::filesystem::exists(program_ / "club" / "guide.html"));
}

TEST_F(GuideVerb, IsTitledByTheFilesNameWithoutItsLastFourCharacters) {
    const auto titleOf = [&](const std::string& file) {
        std::filesystem::copy_file(program_ / "x.trk", program_ / file);
        EXPECT_EQ(program_.Run({"guide", file}).ExitStatus, 0) << file;
        const std::string page = BytesOf(program_ / "guide.html");
        const std::size_t begin = page.find("<h1>");
        return page.substr(begin, page.find("</h1>") - begin);
    };

    EXPECT_EQ(titleOf("club & night.trk"), "<h1>club &amp; night");
    EXPECT_EQ(titleOf("circuit"), "<h1>cir");
    EXPECT_EQ(titleOf("abcd"), "<h1>");
    EXPECT_EQ(titleOf("abc"), "<h1>");
}

TEST_F(GuideVerb, RefusesAFolderThatIsNotThere) {
    const Finished finished = program_.Run({"guide", "x.trk", "--out", "gone"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(finished.Errors, Native("pistaro: Path not found: gone/\n"));
    EXPECT_FALSE(std::filesystem::exists(program_ / "gone"));
}

TEST_F(GuideVerb, NamesThePictureThatCannotBeWrittenAndWritesNoPage) {
    std::filesystem::create_directory(program_ / "C159.gif");

    const Finished finished = program_.Run({"guide", "x.trk"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(LineCount(finished.Errors), 1);
    EXPECT_THAT(finished.Errors, StartsWith("pistaro: Problem with BMP2GIF.OCX! C159.gif not written: "));
    EXPECT_FALSE(std::filesystem::exists(program_ / "guide.html"));
}

} // namespace pistaro
