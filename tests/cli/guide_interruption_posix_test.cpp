// The guide verb before somebody's eyes: progress on a terminal, and Ctrl+C.
#include "support/circuit_text.h"
#include "support/running_program_posix.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <thread>

namespace pistaro {

using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Clock = std::chrono::steady_clock;

std::string FullTrack() {
    std::string codes;
    for (int i = 0; i < 501; ++i)
        codes += i % 2 == 0 ? "C160 " : "C151L ";
    return codes;
}

/// What the program prints in place of the line when so many pictures of the guide are done.
std::string Progress(int done) { return "\rguide: " + std::to_string(done) + " of 40"; }

using Errors = RunningProgram::Errors;

class GuideOnTerminal : public testing::Test {
protected:
    GuideOnTerminal() {
        WriteBytes(folder_ / "x.trk", CircuitText(FullTrack()));
        std::filesystem::create_directory(folder_ / "out");
        WriteOldGuide();
    }

    void WriteOldGuide() const {
        std::filesystem::remove_all(folder_ / "out");
        std::filesystem::create_directory(folder_ / "out");
        for (const char* const name : {"guide.html", "track.gif", "C160.gif"})
            WriteBytes(folder_ / "out" / name, "old");
    }

    void ExpectOldGuide() const {
        EXPECT_EQ(FilesIn(folder_ / "out"), 3U);
        for (const char* const name : {"guide.html", "track.gif", "C160.gif"})
            EXPECT_TRUE(BytesOf(folder_ / "out" / name) == "old") << name;
        EXPECT_EQ(BytesOf(folder_ / "stdout"), "");
    }

    void ExpectWholeGuide() const {
        EXPECT_EQ(FilesIn(folder_ / "out"), 41U);
        EXPECT_TRUE(BytesOf(folder_ / "out" / "guide.html").ends_with("</body></html>\r\n"));
        for (const char* const name : {"track.gif", "C160.gif", "N10111.gif"})
            EXPECT_TRUE(BytesOf(folder_ / "out" / name).ends_with(';')) << name << ": a GIF file's last byte";
        EXPECT_TRUE(BytesOf(folder_ / "stdout").ends_with("out/guide.html\n"));
    }

    const std::vector<std::string> guide_{"guide", "x.trk", "--out", "out"};
    TemporaryFolder folder_;
};

} // namespace

TEST_F(GuideOnTerminal, ShowsHowManyPicturesAreDone) {
    RunningProgram program(folder_.Path(), Errors::OnTerminal, guide_);
    std::string expected;
    for (int done = 0; done <= 40; ++done)
        expected += Progress(done);

    EXPECT_EQ(program.ReadTerminal(), expected + "\r\n");

    EXPECT_EQ(program.Wait(), 0);
    ExpectWholeGuide();
}

TEST_F(GuideOnTerminal, ShowsNothingWhereTheErrorsGoIntoAFile) {
    RunningProgram program(folder_.Path(), Errors::InFile, guide_);

    EXPECT_EQ(program.ReadTerminal(), "");
    EXPECT_EQ(program.Wait(), 0);
    EXPECT_EQ(BytesOf(folder_ / "stderr"), "");
    ExpectWholeGuide();
}

TEST_F(GuideOnTerminal, OtherVerbsShowNothing) {
    for (const std::vector<std::string>& verb :
         {std::vector<std::string>{"layout", "x.trk"}, {"stats", "x.trk"}, {"picture", "x.trk", "--out", "a.png"}}) {
        RunningProgram program(folder_.Path(), Errors::OnTerminal, verb);

        EXPECT_EQ(program.ReadTerminal(), "") << verb.front();
        EXPECT_EQ(program.Wait(), 0) << verb.front();
    }
}

TEST_F(GuideOnTerminal, CtrlCEndsItWithStatus130AndLeavesTheOldGuide) {
    int interrupted = 0;
    for (int round = 0; round < 20 && interrupted == 0; ++round) {
        WriteOldGuide();
        RunningProgram program(folder_.Path(), Errors::OnTerminal, guide_);
        ASSERT_THAT(program.ReadTerminal(Progress(1)), StartsWith(Progress(0) + Progress(1)));

        program.PressCtrlC();

        program.ReadTerminal();
        const int status = program.Wait();
        ASSERT_TRUE(WIFEXITED(status)) << "round " << round;
        if (WEXITSTATUS(status) == 0) { // it was faster than the key
            ExpectWholeGuide();
        } else {
            ++interrupted;
            EXPECT_EQ(WEXITSTATUS(status), 130);
            EXPECT_THAT(program.ReadTerminal(), testing::Not(HasSubstr(Progress(40))));
            ExpectOldGuide();
        }
    }
    EXPECT_EQ(interrupted, 1);
}

TEST_F(GuideOnTerminal, CtrlCWhenAllIsDrawnComesTooLate) {
    for (int round = 0; round < 5; ++round) {
        WriteOldGuide();
        RunningProgram program(folder_.Path(), Errors::OnTerminal, guide_);
        ASSERT_THAT(program.ReadTerminal(Progress(40)), HasSubstr(Progress(40)));

        program.PressCtrlC();

        program.ReadTerminal();
        EXPECT_EQ(program.Wait(), 0) << "round " << round;
        ExpectWholeGuide();
    }
}

TEST_F(GuideOnTerminal, ASignalAtAnyMomentLeavesTheOldGuideOrTheNewOneWhole) {
    const auto started = Clock::now();
    RunningProgram(folder_.Path(), Errors::InFile, guide_).Wait();
    const auto whole = Clock::now() - started;
    int interrupted = 0;
    int finished = 0;

    for (int round = 0; round < 20 && (interrupted == 0 || finished == 0); ++round) {
        WriteOldGuide();
        const int signal = round % 4 < 2 ? SIGINT : SIGTERM;
        const RunningProgram program(folder_.Path(), Errors::InFile, guide_);
        std::this_thread::sleep_for(round % 2 == 0 ? whole * (2 + round) / 40 : whole * (20 + 2 * round) / 40);
        program.Send(signal);
        const int status = program.Wait();

        SCOPED_TRACE("round " + std::to_string(round));
        EXPECT_EQ(BytesOf(folder_ / "stderr"), "");
        if (WIFSIGNALED(status)) { // before the program had begun to draw
            EXPECT_EQ(WTERMSIG(status), signal);
            ExpectOldGuide();
        } else if (WEXITSTATUS(status) == 130) {
            ++interrupted;
            ExpectOldGuide();
        } else {
            ++finished;
            EXPECT_EQ(WEXITSTATUS(status), 0);
            ExpectWholeGuide();
        }
    }

    EXPECT_GT(interrupted, 0);
    EXPECT_GT(finished, 0);
}

} // namespace pistaro
