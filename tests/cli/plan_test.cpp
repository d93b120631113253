// The plan verb of the built program.
#include "support/circuit_text.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class Plan : public testing::Test {
protected:
    Plan() { WriteBytes(program_ / "x.trk", CircuitText("C160 C151L C160")); }

    Finished Run(std::vector<std::string> options) const {
        options.insert(options.begin(), {"plan", "x.trk"});
        return program_.Run(options);
    }

    ProgramFolder program_;
};

TEST_F(Plan, IsWrittenAsAPageOrAsAPdfTheSameEachTime) {
    for (const std::string ending : {".html", ".pdf"}) {
        const Finished finished = Run({"--out", "a" + ending});
        Run({"--out", "b" + ending});

        EXPECT_EQ(finished.ExitStatus, 0) << finished.Errors;
        EXPECT_EQ(finished.Output, "a" + ending + "\n");
        EXPECT_EQ(BytesOf(program_ / ("a" + ending)), BytesOf(program_ / ("b" + ending)));
    }
    EXPECT_TRUE(BytesOf(program_ / "a.html").starts_with("<!DOCTYPE html>"));
    EXPECT_TRUE(BytesOf(program_ / "a.pdf").starts_with("%PDF-"));
}

TEST_F(Plan, TakesATrackAndAPaper) {
    EXPECT_EQ(Run({"--out", "a.pdf", "--paper", "a3"}).ExitStatus, 0);
    EXPECT_NE(BytesOf(program_ / "a.pdf").find("/MediaBox [0 0 842.000000 1191.000000]"), std::string::npos);
    EXPECT_EQ(Run({"--out", "a.html", "--track", "2"}).ExitStatus, 0);
    EXPECT_EQ(BytesOf(program_ / "a.html").find("Step"), std::string::npos);
}

TEST_F(Plan, ReplacesAFileOnlyWhenItIsForced) {
    WriteBytes(program_ / "a.html", "old");

    EXPECT_EQ(Run({"--out", "a.html"}).ExitStatus, 1);
    EXPECT_EQ(BytesOf(program_ / "a.html"), "old");
    EXPECT_EQ(Run({"--out", "a.html", "--force"}).ExitStatus, 0);
    EXPECT_NE(BytesOf(program_ / "a.html"), "old");
}

TEST_F(Plan, TellsWhichElementsItLeavesOut) {
    WriteBytes(program_ / "x.trk", CircuitText("C160 X1 C160"));
    constexpr const char* leftOut = "1 element is left out, since the catalogue has no such piece: ";

    const Finished finished = Run({"--out", "a.html"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Output, "a.html\n");
    EXPECT_EQ(finished.Errors, std::string("pistaro: ") + leftOut + "\"X1\".\n");
    EXPECT_NE(BytesOf(program_ / "a.html").find(leftOut), std::string::npos);
}

TEST_F(Plan, OfAnotherEndingIsRefused) {
    const Finished finished = Run({"--out", "a.txt"});

    EXPECT_EQ(finished.ExitStatus, 2);
    EXPECT_TRUE(finished.Errors.starts_with("pistaro: --out: a.txt: the file's ending is neither .html nor .pdf\n"));
}

TEST_F(Plan, AsAPageTakesNoPaper) {
    const Finished finished = Run({"--out", "a.html", "--paper", "A3"});

    EXPECT_EQ(finished.ExitStatus, 2);
    EXPECT_TRUE(finished.Errors.starts_with("pistaro: --paper goes with .pdf alone\n")) << finished.Errors;
    EXPECT_FALSE(std::filesystem::exists(program_ / "a.html"));
}

} // namespace
} // namespace pistaro
