// The verb generate of the built program: what it writes is read back by its verb layout.
#include "support/circuit_text.h"
#include "support/run_program.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <cmath>
#include <sstream>

namespace pistaro {
namespace {

using Json = nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class Generate : public testing::Test {
protected:
    Finished Run(std::vector<std::string> options) const {
        options.insert(options.begin(), "generate");
        return program_.Run(options);
    }

    static std::vector<Json> LinesOf(const std::string& output) {
        std::vector<Json> lines;
        std::istringstream stream(output);
        for (std::string line; std::getline(stream, line);)
            lines.push_back(Json::parse(line));
        return lines;
    }

    std::size_t FilesIn(const char* folder) const {
        std::size_t files = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(program_ / folder))
            ++files;
        return files;
    }

    ProgramFolder program_;
};

TEST_F(Generate, WritesCircuitsThatCloseAndTellsOfEach) {
    const Finished finished = Run({"--area", "240x160", "--pieces", "C151=12,C160=6,C159=2", "--out", "found"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_THAT(finished.Errors, IsEmpty());
    const std::vector<Json> lines = LinesOf(finished.Output);
    ASSERT_EQ(lines.size(), 10U);
    EXPECT_EQ(FilesIn("found"), 10U);
    EXPECT_THAT(lines[0].at("file").get<std::string>(), HasSubstr("circuit-01.trk"));
    EXPECT_THAT(lines[9].at("file").get<std::string>(), HasSubstr("circuit-10.trk"));
    for (const Json& line : lines) {
        const Finished laid = program_.Run({"layout", line.at("file")});
        const Json track = Json::parse(laid.Output).at("tracks").at(0);
        EXPECT_EQ(line.at("count"), line.at("pieces").size());
        ASSERT_EQ(track.at("elements").size(), line.at("pieces").size());
        for (std::size_t i = 0; i < line.at("pieces").size(); ++i)
            EXPECT_EQ(track.at("elements").at(i).at("code"), line.at("pieces").at(i));
        EXPECT_EQ(track.at("gap"), line.at("gap"));
        EXPECT_LE(track.at("gap").at("distance").get<double>(), 0.05);
        EXPECT_LE(std::abs(track.at("gap").at("angle").get<double>()), 0.001);
    }
}

TEST_F(Generate, HasItsKeysInOrder) {
    const Finished finished = Run({"--area", "200x200", "--pieces", "C151=8", "--count", "1", "--out", "found"});

    const std::string file = Json((std::filesystem::path("found") / "circuit-01.trk").string()).dump();
    EXPECT_THAT(finished.Output,
                StartsWith(R"({"file":)" + file +
                           R"(,"pieces":["C151L","C151L","C151L","C151L","C151L","C151L","C151L","C151L"],"count":8,)"
                           R"("used":1,"length":185.66809,"gap":{"distance":)"));
    EXPECT_THAT(finished.Output, HasSubstr(R"("score":)"));
}

TEST_F(Generate, IsTheSameForTheSameSeedAndAnotherForAnother) {
    const std::vector<std::string> options{"--area", "300x200", "--pieces", "C151=12,C160=8,C158=4", "--count", "3"};
    const auto output = [&](const char* folder, const char* seed) {
        std::vector<std::string> all = options;
        all.insert(all.end(), {"--seed", seed, "--out", folder});
        return Run(all);
    };
    const Finished first = output("one", "5");
    const Finished second = output("two", "5");
    const Finished other = output("three", "9223372036854775807");

    EXPECT_EQ(first.ExitStatus, 0);
    EXPECT_EQ(other.ExitStatus, 0);
    for (const char* const file : {"circuit-01.trk", "circuit-02.trk", "circuit-03.trk"})
        EXPECT_EQ(BytesOf(program_ / "one" / file), BytesOf(program_ / "two" / file));
    EXPECT_NE(BytesOf(program_ / "one" / "circuit-01.trk"), BytesOf(program_ / "three" / "circuit-01.trk"));
    EXPECT_EQ(second.ExitStatus, 0);
}

TEST_F(Generate, TellsThatThereAreNoOthers) {
    const Finished finished = Run({"--area", "240x240", "--pieces", "C151=8,C160=4", "--out", "found"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(LinesOf(finished.Output).size(), 5U);
    EXPECT_EQ(finished.Errors, "pistaro: 5 of 10 circuits: there are no others\n");
    EXPECT_EQ(FilesIn("found"), 5U);
}

TEST_F(Generate, OfNothingIsRefusedAndLeavesNothing) {
    const Finished finished = Run({"--area", "240x160", "--pieces", "C160=8", "--out", "found"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_THAT(finished.Output, IsEmpty());
    EXPECT_EQ(finished.Errors, "pistaro: No circuit: these pieces make none in this room\n");
    EXPECT_FALSE(std::filesystem::exists(program_ / "found"));
}

TEST_F(Generate, TakesTheRoomOfACircuit) {
    const std::string room = CircuitText("C160");
    WriteBytes(program_ / "empty.trk", room);

    const Finished finished = Run({"--room", "empty.trk", "--pieces", "C151=8", "--out", "found"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: No room: empty.trk holds no room with walls\n");
}

TEST_F(Generate, TakesOwnedPieces) {
    const Finished finished = Run({"--area", "240x160", "--owned", "--out", "found"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: No pieces: the settings hold no owned track\n");
}

TEST_F(Generate, WritesIntoAnEmptyFolderButNotAmongOtherFiles) {
    const std::vector<std::string> options{"--area", "240x160", "--pieces", "C151=8", "--out", "found"};
    std::filesystem::create_directory(program_ / "found");
    EXPECT_EQ(Run(options).ExitStatus, 0);

    const Finished again = Run(options);

    EXPECT_EQ(again.ExitStatus, 1);
    EXPECT_EQ(again.Errors, "pistaro: Folder not empty: found\n");
    EXPECT_EQ(FilesIn("found"), 1U);
}

TEST_F(Generate, SaysThatTheTimeWasUp) {
    const Finished finished = Run({"--area", "400x300", "--pieces", "C160=20,C151=24,C152=8,C153=8,C154=8", "--count",
                                   "100", "--seconds", "0.2", "--out", "found"});

    EXPECT_THAT(finished.Errors, testing::HasSubstr("the time was up\n"));
}

/// Not only between two rounds of the search, of which one alone takes longer in so large a box.
TEST_F(Generate, EndsSoonAfterTheTimeIsUp) {
    const auto begun = std::chrono::steady_clock::now();
    const Finished finished =
        Run({"--area", "2000x2000", "--pieces", "C160=400,C151=100", "--seconds", "0.5", "--out", "found"});
    const auto taken = std::chrono::steady_clock::now() - begun;

    EXPECT_THAT(finished.Errors, HasSubstr("the time was up"));
    EXPECT_LT(taken, std::chrono::seconds(5)); // on a machine under load; it is a tenth of a second beyond the half
}

TEST_F(Generate, RefusesAWrongCommandLine) {
    const std::vector<std::vector<std::string>> wrong{
        {"--pieces", "C151=8", "--out", "found"},                                         // neither room nor area
        {"--area", "240x160", "--out", "found"},                                          // no box
        {"--area", "240x160", "--pieces", "C151=8"},                                      // no folder
        {"--area", "240x160", "--room", "a.trk", "--pieces", "C151=8", "--out", "found"}, // both
        {"--area", "240x160", "--owned", "--pieces", "C151=8", "--out", "found"},         // both
        {"--area", "240", "--pieces", "C151=8", "--out", "found"},                        // no area
        {"--area", "0x160", "--pieces", "C151=8", "--out", "found"},                      //
        {"--area", "240x-1", "--pieces", "C151=8", "--out", "found"},                     //
        {"--area", "240x160", "--pieces", "C151=8,", "--out", "found"},                   // no box
        {"--area", "240x160", "--pieces", "C151=8", "--count", "0", "--out", "found"},    //
        {"--area", "240x160", "--pieces", "C151=8", "--seed", "-1", "--out", "found"},    //
        {"--area", "240x160", "--pieces", "C151=8", "--seed", "9223372036854775808", "--out", "found"},
        {"--area", "240x160", "--pieces", "C151=8", "--seconds", "0", "--out", "found"},
    };
    for (const std::vector<std::string>& options : wrong) {
        const Finished finished = Run(options);

        EXPECT_EQ(finished.ExitStatus, 2) << testing::PrintToString(options);
        EXPECT_FALSE(std::filesystem::exists(program_ / "found"));
    }
}

} // namespace
} // namespace pistaro
