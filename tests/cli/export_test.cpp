// The export verb of the built program.
#include "commands/bitmaps.h"
#include "support/circuit_text.h"
#include "support/places.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

/// The file of a picture of 8 x 8 dots that is 160 cm wide and lies in the middle of the world.
std::string BackgroundText() {
    const std::string picture = Bitmap(8, 8, Rgb(0, 255, 0));
    return "[Background]\r\nX=0\r\nY=0\r\nAngle=0\r\nCmPerPixel=20\r\nBytes=" + std::to_string(picture.size()) +
           "\r\n" + picture;
}

class Export : public testing::Test {
protected:
    Export() { WriteBytes(program_ / "x.trk", CircuitText("C160 C151L C160")); }

    Finished Run(std::vector<std::string> options) const {
        options.insert(options.begin(), {"export", "x.trk"});
        return program_.Run(options);
    }

    ProgramFolder program_;
};

TEST_F(Export, WritesTheFormatOfTheEndingAndPrintsThePath) {
    const std::vector<std::pair<const char*, std::string>> beginnings{
        {"a.png", "\x89PNG"},
        {"a.svg", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"},
        {"a.pdf", "%PDF-1.4"},
        {"a.dxf", "999\r\n"},
        {"a.csv", "track,index,code"},
        {"a.json", "{\"tracks\":[{\"track\":1,"},
        {"B.SVG", "<?xml"}};
    for (const auto& [name, beginning] : beginnings) {
        const Finished finished = Run({"--out", name});

        EXPECT_EQ(finished.ExitStatus, 0) << finished.Errors;
        EXPECT_EQ(finished.Output, std::string(name) + "\n");
        EXPECT_EQ(finished.Errors, "");
        EXPECT_EQ(BytesOf(program_ / name).substr(0, beginning.size()), beginning);
    }
}

TEST_F(Export, GivesTheSameBytesEachTime) {
    for (const std::string ending : {".png", ".svg", ".pdf", ".dxf", ".csv", ".json"}) {
        Run({"--out", "a" + ending});
        Run({"--out", "b" + ending});

        EXPECT_EQ(BytesOf(program_ / ("a" + ending)), BytesOf(program_ / ("b" + ending))) << ending;
    }
}

TEST_F(Export, GivesTheLayoutVerbsJson) {
    Run({"--out", "a.json"});

    EXPECT_EQ(BytesOf(program_ / "a.json"), program_.Run({"layout", "x.trk"}).Output);
}

TEST_F(Export, ReplacesAFileOnlyWhenItIsForced) {
    WriteBytes(program_ / "a.csv", "old");

    const Finished refused = Run({"--out", "a.csv"});
    EXPECT_EQ(refused.ExitStatus, 1);
    EXPECT_EQ(refused.Errors, "pistaro: File exists: a.csv: --force replaces it\n");
    EXPECT_EQ(BytesOf(program_ / "a.csv"), "old");

    EXPECT_EQ(Run({"--out", "a.csv", "--force"}).ExitStatus, 0);
    EXPECT_NE(BytesOf(program_ / "a.csv"), "old");
}

TEST_F(Export, NeverReplacesAFolder) {
    std::filesystem::create_directory(program_ / "a.csv");

    for (const char* const option : {"--numbers=false", "--force"}) {
        const Finished refused = Run({"--out", "a.csv", option});
        EXPECT_EQ(refused.ExitStatus, 1);
        EXPECT_EQ(refused.Errors, "pistaro: Path/File access error: a.csv: is a folder\n");
    }
}

TEST_F(Export, TakesItsOptions) {
    EXPECT_EQ(Run({"--out", "tiles.pdf", "--scale", "1:1", "--tiles", "--paper", "a3", "--numbers", "--grid", "--room"})
                  .ExitStatus,
              0);
    EXPECT_EQ(Run({"--out", "a.png", "--paper", "Letter", "--dpi", "72"}).ExitStatus, 0);
    EXPECT_EQ(Run({"--out", "a.dxf", "--scale", "1:1", "--track", "2"}).ExitStatus, 0);
    EXPECT_EQ(Run({"--out", "a.svg", "--scale", "1:2.5", "--track", "all"}).ExitStatus, 0);
    EXPECT_EQ(Run({"--out", "a.csv", "--track", "2"}).ExitStatus, 0);
    EXPECT_EQ(BytesOf(program_ / "a.csv").find("C160"), std::string::npos);
}

TEST_F(Export, FillsTheTracksOnlyWhenTheirSurfaceIsAskedFor) {
    EXPECT_EQ(Run({"--out", "lines.svg"}).ExitStatus, 0);
    EXPECT_EQ(Run({"--out", "surface.svg", "--surface"}).ExitStatus, 0);
    EXPECT_EQ(Run({"--out", "surface.pdf", "--surface"}).ExitStatus, 0);
    EXPECT_EQ(Run({"--out", "surface.png", "--surface", "--dpi", "40"}).ExitStatus, 0);

    constexpr const char* asphalt = "<polygon fill=\"#585e67\"";
    EXPECT_EQ(BytesOf(program_ / "lines.svg").find(asphalt), std::string::npos);
    EXPECT_NE(BytesOf(program_ / "surface.svg").find(asphalt), std::string::npos);
}

TEST_F(Export, RefusesACommandLineThatMakesNoSense) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> refusals{
        {{"--out", "a.bmp"}, "--out: a.bmp: the file's ending is none of .png, .svg, .pdf, .dxf, .csv, .json"},
        {{}, "--out is required"},
        {{"--out", "a.svg", "--scale", "10"}, "--scale: \"10\" is no scale such as 1:10"},
        {{"--out", "a.svg", "--scale", "1:0"}, "--scale: \"1:0\" is no scale such as 1:10"},
        {{"--out", "a.svg", "--scale", "1:1e3"}, "--scale: \"1:1e3\" is no scale such as 1:10"},
        {{"--out", "a.svg", "--paper", "B5"}, "--paper: \"B5\" is none of A5, A4, A3, A2, A1, A0, Letter, Legal"},
        {{"--out", "a.png", "--dpi", "0"}, "--dpi: \"0\" is no number from 1 to 4800"},
        {{"--out", "a.png", "--tiles"}, "--tiles goes with .pdf alone"},
        {{"--out", "a.pdf", "--dpi", "300"}, "--dpi goes with .png alone"},
        {{"--out", "a.csv", "--paper", "A4"}, "--paper goes with .png, .svg and .pdf alone"},
        {{"--out", "a.dxf", "--scale", "1:10"},
         "--scale goes with .png, .svg and .pdf alone; in other files the circuit has its full size"},
        {{"--out", "a.dxf", "--background"}, "--background goes with .png, .svg and .pdf alone"},
        {{"--out", "a.dxf", "--surface"}, "--surface goes with .png, .svg and .pdf alone"},
        {{"--out", "a.json", "--numbers"}, "--numbers, --grid and --room go with drawings alone"},
    };
    for (const auto& [options, reason] : refusals) {
        const Finished finished = Run(options);

        EXPECT_EQ(finished.ExitStatus, 2);
        EXPECT_EQ(finished.Errors.substr(0, finished.Errors.find('\n')), "pistaro: " + reason);
        EXPECT_EQ(finished.Output, "");
    }
}

TEST_F(Export, TakesNoOptionThatChangesNothing) {
    const std::string tracksInARoom = BytesOf(SourceFolder() / "samples/three-tracks.trk");
    WriteBytes(program_ / "x.trk", tracksInARoom);
    WriteBytes(program_ / "x.background", BackgroundText());
    const std::vector<std::vector<std::string>> options{
        {"--scale", "1:20"}, {"--paper", "A5"}, {"--tiles"}, {"--background"}, {"--dpi", "50"},
        {"--numbers"},       {"--grid"},        {"--room"},  {"--surface"},    {"--track", "2"}};
    for (const std::string ending : {".png", ".svg", ".pdf", ".dxf", ".csv", ".json"}) {
        ASSERT_EQ(Run({"--out", "plain" + ending}).ExitStatus, 0);
        for (const std::vector<std::string>& option : options) {
            std::vector<std::string> given{"--out", "other" + ending, "--force"};
            given.insert(given.end(), option.begin(), option.end());
            const Finished finished = Run(given);

            if (finished.ExitStatus == 0) {
                EXPECT_NE(BytesOf(program_ / ("other" + ending)), BytesOf(program_ / ("plain" + ending)))
                    << option[0] << " " << ending;
            } else {
                EXPECT_EQ(finished.ExitStatus, 2) << finished.Errors;
            }
        }
    }
}

TEST_F(Export, TellsWhatCannotBeDrawnOrWrittenInOneLineAndLeavesNothing) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> refusals{
        {{"--out", "a.pdf", "--scale", "1:0.001", "--tiles"},
         "Too many tiles: at 1:0.001 the drawing would take more than 10000 sheets"},
        {{"--out", "a.pdf", "--scale", "1:1", "--paper", "A4"},
         "Paper too small: at 1:1 the drawing does not fit on A4; on one sheet it takes 1:3.3, else tiles"},
        {{"--out", "a.png", "--scale", "1:0.1", "--dpi", "600"},
         "Picture too large: 110631 x 203915 pixels; at most 128 million are drawn, 32000 in a line"},
        {{"--out", "no/a.svg"}, "Path not found: no/a.svg"},
        {{"--out", "a.svg", "--background"}, "File not found: x.background"},
    };
    for (const auto& [options, reason] : refusals) {
        const Finished finished = Run(options);

        EXPECT_EQ(finished.ExitStatus, 1);
        EXPECT_EQ(finished.Errors, "pistaro: " + reason + "\n");
        EXPECT_EQ(finished.Output, "");
    }
    EXPECT_FALSE(std::filesystem::exists(program_ / "a.pdf"));
    EXPECT_FALSE(std::filesystem::exists(program_ / "a.png"));
}

TEST_F(Export, DrawsTheBackgroundOnlyWhenItIsAskedFor) {
    for (const std::string ending : {".png", ".svg", ".pdf"}) {
        Run({"--out", "bare" + ending});
        WriteBytes(program_ / "x.background", BackgroundText());
        Run({"--out", "plain" + ending});
        Run({"--out", "shown" + ending, "--background"});
        std::filesystem::remove(program_ / "x.background");

        EXPECT_EQ(BytesOf(program_ / ("plain" + ending)), BytesOf(program_ / ("bare" + ending)));
        EXPECT_NE(BytesOf(program_ / ("shown" + ending)), BytesOf(program_ / ("bare" + ending)));
    }
    const std::string svg = BytesOf(program_ / "shown.svg");
    EXPECT_NE(
        svg.find("<image width=\"8\" height=\"8\" preserveAspectRatio=\"none\" transform=\"translate(0 0) rotate(0) "
                 "scale(20) translate(-4 -4)\" xlink:href=\"data:image/png;base64,"),
        std::string::npos);
}

TEST_F(Export, OfAnEmptyCircuitIsAnEmptySheet) {
    WriteBytes(program_ / "x.trk", CircuitText(""));
    for (const std::string ending : {".png", ".svg", ".pdf", ".dxf", ".csv", ".json"}) {
        const Finished finished = Run({"--out", "a" + ending});

        EXPECT_EQ(finished.ExitStatus, 0) << finished.Errors;
        EXPECT_EQ(finished.Errors, "");
    }
    EXPECT_EQ(BytesOf(program_ / "a.svg").find("data-code"), std::string::npos);
}

} // namespace
} // namespace pistaro
