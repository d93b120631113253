// The picture verb of the built program: what it writes is judged by the files' first bytes.
#include "support/circuit_text.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pistaro {

namespace {

class Picture : public testing::Test {
protected:
    Picture() { WriteBytes(program_ / "x.trk", CircuitText("C160 C151L")); }

    Finished Run(std::vector<std::string> options) const {
        options.insert(options.begin(), {"picture", "x.trk"});
        return program_.Run(options);
    }

    /// A little-endian or big-endian number in a file.
    unsigned NumberAt(const char* file, std::size_t at, std::size_t size, bool bigEndian) const {
        const std::string bytes = BytesOf(program_ / file);
        unsigned number = 0;
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t byte = bigEndian ? at + i : at + size - 1 - i;
            number = number << 8 | static_cast<unsigned char>(bytes.at(byte));
        }
        return number;
    }

    ProgramFolder program_;
};

} // namespace

TEST_F(Picture, IsWrittenInTheFormatOfItsEndingAndPrintsItsPath) {
    const std::vector<std::pair<const char*, std::string>> beginnings{
        {"a.bmp", "BM"}, {"a.png", "\x89PNG"}, {"a.gif", "GIF8"}, {"a.jpg", "\xFF\xD8\xFF"}, {"A.PNG", "\x89PNG"}};
    for (const auto& [name, beginning] : beginnings) {
        const Finished finished = Run({"--out", name});

        EXPECT_EQ(finished.ExitStatus, 0);
        EXPECT_EQ(finished.Output, std::string(name) + "\n");
        EXPECT_EQ(finished.Errors, "");
        EXPECT_EQ(BytesOf(program_ / name).substr(0, beginning.size()), beginning);
    }
}

TEST_F(Picture, IsSevenHundredPixelsWideUnlessASizeIsGiven) {
    Run({"--out", "a.png"});
    Run({"--out", "b.png", "--size", "123"});
    Run({"--out", "c.gif", "--size", "45"});
    Run({"--out", "d.bmp", "--size", "1"});

    EXPECT_EQ(NumberAt("a.png", 16, 4, true), 700U);
    EXPECT_EQ(NumberAt("a.png", 20, 4, true), 700U);
    EXPECT_EQ(NumberAt("b.png", 16, 4, true), 123U);
    EXPECT_EQ(NumberAt("c.gif", 6, 2, false), 45U);
    EXPECT_EQ(NumberAt("c.gif", 8, 2, false), 45U);
    EXPECT_EQ(NumberAt("d.bmp", 18, 4, false), 1U);
}

TEST_F(Picture, IsTheSameEachTimeAndOtherWithNumbers) {
    Run({"--out", "a.png"});
    Run({"--out", "b.png"});
    Run({"--out", "numbered.png", "--numbers"});

    EXPECT_EQ(BytesOf(program_ / "a.png"), BytesOf(program_ / "b.png"));
    EXPECT_NE(BytesOf(program_ / "a.png"), BytesOf(program_ / "numbered.png"));
}

TEST_F(Picture, LiesOverItsBackground) {
    Run({"--out", "plan.png", "--numbers"});

    const Finished finished = Run({"--out", "a.png", "--background", "plan.png"});

    EXPECT_EQ(finished.ExitStatus, 0);
    Run({"--out", "plain.png"});
    EXPECT_NE(BytesOf(program_ / "a.png"), BytesOf(program_ / "plain.png"));
}

TEST_F(Picture, WithoutAPictureAsBackgroundIsRefusedAndNothingIsWritten) {
    WriteBytes(program_ / "empty.png", "");
    Run({"--out", "whole.png"});
    const std::string whole = BytesOf(program_ / "whole.png");
    WriteBytes(program_ / "half.png", whole.substr(0, whole.size() / 2));
    const auto refused = [&](const char* background, const std::string& line) {
        const Finished finished = Run({"--out", "a.png", "--background", background});
        EXPECT_EQ(finished.ExitStatus, 1);
        EXPECT_EQ(finished.Output, "");
        EXPECT_EQ(finished.Errors.substr(0, line.size()), line);
        EXPECT_EQ(std::ranges::count(finished.Errors, '\n'), 1);
        EXPECT_FALSE(std::filesystem::exists(program_ / "a.png"));
    };

    refused("x.trk", "pistaro: Invalid picture: x.trk: ");
    refused("empty.png", "pistaro: Invalid picture: empty.png: ");
    refused("half.png", "pistaro: Invalid picture: half.png: ");
    refused("none.png", "pistaro: File not found: none.png\n");
}

TEST_F(Picture, ThatCannotBeWrittenIsRefusedInOneLine) {
    const Finished finished = Run({"--out", "none/a.png"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(finished.Errors, "pistaro: Path not found: none/a.png\n");
}

TEST_F(Picture, OfAnyViewIsDrawn) {
    for (const char* const width : {"0", "1E-3", "-320", "1E9", "1E38"}) {
        WriteBytes(program_ / "x.trk", CircuitText("C160 C164 C277 C151L", width));
        const Finished finished = Run({"--out", "a.png", "--numbers"});
        EXPECT_EQ(finished.ExitStatus, 0) << width;
        EXPECT_EQ(finished.Errors, "") << width;
    }
}

} // namespace pistaro
