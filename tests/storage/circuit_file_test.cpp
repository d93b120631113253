// Circuit files: byte for byte, and read back, whatever they hold.
#include "storage/circuit_file.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "storage/circuit_file_texts.h"
#include "storage/line_reader.h"
#include "storage/mutation.h"
#include "storage/settings_file.h"
#include "support/chain.h"
#include "support/fault_of.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>
#include <string>

namespace pistaro {
namespace {

using testing::HasSubstr;

Project FullProject() {
    Project project = StartUp(InitialSettings(Pieces()));
    project.Design.View.MidX = 33.25F;
    project.Design.View.MidY = -7;
    project.Design.View.Width = 120.5F;
    project.Design.View.HMov = {-120, 200, 33};
    project.Design.View.VMov = {-170, 150, -7};
    project.Design.Room.Points = {{120, -35, 1}, {32767, -32768, -1}, {0, 0, 0}};
    project.Design.Room.Angle = 0.78539806F;
    auto& tracks = project.Design.Circuit.Tracks;
    tracks[0] = {{"C151L", "C160", "", "my é\xC2\x81 piece "}, -3.5F, 0.25F, 6.283185F};
    tracks[1].ElementCodes = {"N10105R"};
    tracks[1].TrackStartY = 1e7F;
    tracks[2].TrackStartHeading = 1.1920929e-7F;
    return project;
}

Design DesignFrom(const std::string& bytes) { return ParseCircuit(bytes, "x.trk"); }

Project ProjectFrom(const std::string& bytes) {
    Project project;
    project.Design = DesignFrom(bytes);
    return project;
}

TEST(CircuitBytes, OfThreeEmptyTracksAndNoRoomAreExactly22Lines) {
    const std::string bytes = CircuitBytes(StartUp(InitialSettings(Pieces())).Design);

    EXPECT_EQ(bytes, EmptyFile);
    EXPECT_EQ(LinesOf(bytes).size(), 22U);
}

TEST(CircuitBytes, OfAFullCircuitAreThoseOfTheFormat) { EXPECT_EQ(CircuitBytes(FullProject().Design), FullFile); }

TEST(CircuitBytes, HoldTheMiddleOfEachBarAndHalfTheVerticalRange) {
    Project project;
    project.Design.View.HMov = {-5, 16, 0};
    project.Design.View.VMov = {-10, 11, 0};

    const auto lines = LinesOf(CircuitBytes(project.Design));

    EXPECT_EQ(lines[1], "5.5");
    EXPECT_EQ(lines[2], ".5");
    EXPECT_EQ(lines[6], "10.5");
}

TEST(CircuitBytes, OfARoomPointsExtremesFillTheirColumns) {
    EXPECT_EQ(LinesOf(FullFile)[10].size(), 25U);
    EXPECT_EQ(LinesOf(CircuitBytes(FullProject().Design))[10], "     32767    -32768   -1");
}

TEST(CircuitBytes, KeepOnlyTheRightmostCharactersOfALongFlag) {
    Project project;
    project.Design.Room.Points = {{1, 2, -32768}};

    EXPECT_EQ(LinesOf(CircuitBytes(project.Design))[9], "         1         232768");
}

TEST(CircuitBytes, WriteWhatTheCodePageLacksAsAQuestionMark) {
    Project project;
    project.Design.Circuit.Tracks[2].ElementCodes = {"Łódź"};

    EXPECT_TRUE(CircuitBytes(project.Design)
                    .ends_with("\r\n?\xF3"
                               "d?\r\n"));
}

TEST(ParseCircuit, ReadsWhatWasWritten) {
    const Design file = ParseCircuit(FullFile, "x.trk");

    EXPECT_EQ(file.View.MidX, 33);
    EXPECT_EQ(file.View.MidY, -7);
    EXPECT_EQ(file.View.Width, 120.5F);
    EXPECT_EQ(file.View.MWid, 160);
    EXPECT_EQ(file.View.HMov.Minimum, -120);
    EXPECT_EQ(file.View.HMov.Maximum, 200);
    EXPECT_EQ(file.View.HMov.Value, 33);
    EXPECT_EQ(file.View.VMov.Minimum, -170);
    EXPECT_EQ(file.View.VMov.Maximum, 150);
    EXPECT_EQ(file.View.VMov.Value, -7);
    EXPECT_EQ(file.Room.Points, (std::vector<RoomPoint>{{120, -35, 1}, {32767, -32768, -1}, {0, 0, 0}}));
    EXPECT_FLOAT_EQ(file.Room.Angle, 0.7853981F);
    EXPECT_EQ(file.Circuit.Tracks[0].TrackStartX, -3.5F);
    EXPECT_EQ(file.Circuit.Tracks[0].TrackStartY, 0.25F);
    EXPECT_EQ(file.Circuit.Tracks[0].TrackStartHeading, 6.283185F);
    EXPECT_EQ(file.Circuit.Tracks[0].ElementCodes,
              (std::vector<std::string>{"C151L", "C160", "", "my é\xC2\x81 piece "}));
    EXPECT_EQ(file.Circuit.Tracks[1].TrackStartY, 1e7F);
    EXPECT_EQ(file.Circuit.Tracks[1].ElementCodes, std::vector<std::string>{"N10105R"});
    EXPECT_EQ(file.Circuit.Tracks[2].ElementLastIndex(), -1);
}

TEST(ParseCircuit, KeepsTheCurrentCentreUnroundedAndRoundsTheBars) {
    const Design file = ParseCircuit("s\r\n.5\r\n0\r\n12.5\r\n-3.75\r\n100\r\n10\r\nr\r\n0\r\n0\r\nt\r\n"
                                     "0\r\n0\r\n0\r\n[Track\r\n0\r\n0\r\n0\r\n[Track\r\n0\r\n0\r\n0\r\n",
                                     "x.trk");

    EXPECT_EQ(file.View.MidX, 12.5F);
    EXPECT_EQ(file.View.MidY, -3.75F);
    EXPECT_EQ(file.View.HMov.Value, 12) << "halves to even";
    EXPECT_EQ(file.View.VMov.Value, -4);
    EXPECT_EQ(file.View.HMov.Minimum, -10);
    EXPECT_EQ(file.View.HMov.Maximum, 10);
    const ViewRectangle shown = ShownRectangle(file.View);
    EXPECT_EQ(shown.ViewLeft, -37.5F);
    EXPECT_EQ(shown.ViewTop, 46.25F);
    EXPECT_EQ(shown.ViewRight, 62.5F);
    EXPECT_EQ(shown.ViewBottom, -53.75F);
}

TEST(ParseCircuit, LooksAtNoSectionLine) {
    std::string bytes = FullFile;
    for (const char* const header : {"[Settings]", "[Room]", "[Track 0]"})
        bytes.replace(bytes.find(header), std::string(header).size(), "whatever");

    EXPECT_EQ(CircuitBytes(DesignFrom(bytes)), FullFile);
}

TEST(ParseCircuit, TakesLinesThatEndInLfOrCr) {
    EXPECT_EQ(CircuitBytes(DesignFrom(Joined(LinesOf(FullFile), "\n"))), FullFile);
    EXPECT_EQ(CircuitBytes(DesignFrom(Joined(LinesOf(FullFile), "\r"))), FullFile);
}

TEST(ParseCircuit, TakesALastLineWithoutAnEnd) {
    EXPECT_EQ(CircuitBytes(DesignFrom(FullFile.substr(0, FullFile.size() - 2))), FullFile);
    EXPECT_EQ(CircuitBytes(DesignFrom(FullFile + "C160")), FullFile + "C160\r\n");
}

TEST(ParseCircuit, AnyLineThatBeginsWithTheTrackHeaderEndsATrack) {
    std::string bytes = FullFile;
    bytes.replace(bytes.find("[Track 1]"), 9, "[Tracks of my own");
    bytes.replace(bytes.find("[Track 2]"), 9, "[Track 0]");

    EXPECT_EQ(CircuitBytes(DesignFrom(bytes)), FullFile);
}

TEST(ParseCircuit, AnyOtherLineIsAnElement) {
    const Design file = ParseCircuit(EmptyFile + "\r\n[track 1]\r\n [Track 1]\r\n[Settings]\r\n\r\n", "x.trk");

    EXPECT_EQ(file.Circuit.Tracks[2].ElementCodes,
              (std::vector<std::string>{"", "[track 1]", " [Track 1]", "[Settings]", ""}));
}

TEST(ParseCircuit, StopsAtAFourthTrack) {
    const Design file = ParseCircuit(EmptyFile + "C160\r\n[Track 3]\r\n1\r\n2\r\n3\r\nC151L\r\n", "x.trk");

    EXPECT_EQ(CodesOf(file.Circuit.Tracks[2]), "C160");
}

TEST(ParseCircuit, ARoomLineTooShortForAFieldYieldsZeroForIt) {
    EXPECT_EQ(ParseCircuit(FullFileWith(10, "       120"), "x.trk").Room.Points[0], (RoomPoint{120, 0, 0}));
    EXPECT_EQ(ParseCircuit(FullFileWith(10, "       120    7"), "x.trk").Room.Points[0], (RoomPoint{120, 7, 0}));
    EXPECT_EQ(ParseCircuit(FullFileWith(10, ""), "x.trk").Room.Points[0], (RoomPoint{0, 0, 0}));
}

TEST(ParseCircuit, RoomFieldsEndWhereTheirColumnsEnd) {
    EXPECT_EQ(ParseCircuit(FullFileWith(10, "       1.5       2.5    19999"), "x.trk").Room.Points[0],
              (RoomPoint{2, 2, 1}))
        << "rounded to even; characters after the 25th are no part of the line";
}

TEST(ParseCircuit, TheRoomPointCountIsRounded) {
    EXPECT_EQ(ParseCircuit(FullFileWith(9, "3"), "x.trk").Room.Points.size(), 3U);
    EXPECT_EQ(ParseCircuit(FullFileWith(9, " 2.6 "), "x.trk").Room.Points.size(), 3U);
}

TEST(ParseCircuit, TakesTwentyRoomPointsAndFiveHundredAndOneElements) {
    Project project;
    project.Design.Room.Points.assign(20, {1, 2, 1});
    for (Track& track : project.Design.Circuit.Tracks)
        track.ElementCodes.assign(501, "C160");
    const std::string bytes = CircuitBytes(project.Design);

    EXPECT_EQ(CircuitBytes(DesignFrom(bytes)), bytes);
}

float AnySingle(std::mt19937& random) {
    std::uniform_real_distribution<double> exponent(-12, 12);
    return static_cast<float>(std::pow(10.0, exponent(random)) * (random() % 2 == 0 ? 1 : -1));
}

ScrollBar AnyBar(std::mt19937& random) {
    std::uniform_int_distribution<int> place(-100000, 100000);
    return {place(random), place(random), place(random)};
}

std::int16_t AnyInteger(std::mt19937& random) { return static_cast<std::int16_t>(random()); }

Project AnyProject(std::mt19937& random) {
    Project project;
    project.Design.View.Width = AnySingle(random);
    project.Design.View.HMov = AnyBar(random);
    project.Design.View.VMov = AnyBar(random);
    for (std::size_t points = random() % 21; points > 0; --points) {
        project.Design.Room.Points.push_back(
            {AnyInteger(random), AnyInteger(random), static_cast<std::int16_t>(random() % 3 - 1)});
    }
    project.Design.Room.Angle = AnySingle(random);
    for (Track& track : project.Design.Circuit.Tracks) {
        track.TrackStartX = AnySingle(random);
        track.TrackStartY = AnySingle(random);
        track.TrackStartHeading = AnySingle(random);
        for (std::size_t elements = random() % 502; elements > 0; --elements) {
            track.ElementCodes.push_back(random() % 20 == 0 ? "any text €"
                                                            : Pieces()[static_cast<int>(random() % 39)].Code);
        }
    }
    return project;
}

TEST(CircuitFile, IsLeftAloneByADesignThatCouldNotBeReadAgain) {
    const TemporaryFolder folder;
    WriteCircuit(folder / "oval.trk", FullProject().Design);
    Design endless = FullProject().Design;
    endless.Circuit.Tracks[0].ElementCodes.assign(502, "C160");

    EXPECT_THAT(FaultOf([&] { WriteCircuit(folder / "oval.trk", endless); }),
                HasSubstr("a track holds at most 501 elements"));

    EXPECT_EQ(ReadFile(folder / "oval.trk", MostFileBytes), FullFile);
}

TEST(CircuitFile, SavedReadAndSavedAgainIsTheSame) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    for (int i = 0; i < 300; ++i) {
        const Project project = AnyProject(random);
        const std::string saved = CircuitBytes(project.Design);

        const Project read = ProjectFrom(saved);

        ASSERT_EQ(CircuitBytes(read.Design), saved) << "seed " << seed << ", circuit " << i;
        ASSERT_EQ(read.Design.Room.Points, project.Design.Room.Points) << "seed " << seed;
        for (std::size_t track = 0; track < TrackCount; ++track)
            ASSERT_EQ(read.Design.Circuit.Tracks[track].ElementCodes,
                      project.Design.Circuit.Tracks[track].ElementCodes);
    }
}

TEST(CircuitFile, DamagedAtRandomIsReadOrRefusedAndWhatIsReadCanBeSaved) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    int readable = 0;
    int refused = 0;
    for (int i = 0; i < 6000; ++i) {
        const std::string bytes = Damaged(random() % 2 == 0 ? FullFile : EmptyFile, random);
        SCOPED_TRACE("seed " + std::to_string(seed) + ", file " + std::to_string(i));
        Project read;
        try {
            read = ProjectFrom(bytes);
        } catch (const Fault& fault) {
            ++refused;
            ASSERT_NE(std::string(fault.what()).find(": x.trk, line "), std::string::npos) << fault.what();
            continue;
        }
        ++readable;
        ASSERT_LE(read.Design.Room.Points.size(), 20U);
        ASSERT_NO_THROW(DesignFrom(CircuitBytes(read.Design)));
    }
    EXPECT_GT(readable, 500);
    EXPECT_GT(refused, 500);
}

} // namespace
} // namespace pistaro
