// The layout document of the built program. Figures by hand from radii 21.8 and 37.3 and the constant's eighth turn.
#include "support/circuit_text.h"
#include "support/run_program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

using Json = nlohmann::json;

class Layout : public testing::Test {
protected:
    Json Of(const std::string& codes) {
        WriteBytes(program_ / "x.trk", CircuitText(codes));
        return Json::parse(program_.Run({"layout", "x.trk"}).Output);
    }

    static void ExpectNear(const Json& numbers, const std::vector<double>& expected) {
        ASSERT_EQ(numbers.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_NEAR(numbers[i].get<double>(), expected[i], 1e-4) << i;
    }

    ProgramFolder program_;
};

constexpr double Eighth = 3.14159235358979 / 4;

} // namespace

TEST_F(Layout, OfAnEmptyCircuitIsThreeTracksWithoutElementsOrGap) {
    WriteBytes(program_ / "x.trk", CircuitText(""));

    const Finished finished = program_.Run({"layout", "x.trk"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Output, R"({"tracks":[{"track":1,"start":[0,0,0],"elements":[],"end":[0,0,0],"gap":null},)"
                               R"({"track":2,"start":[15.5,0,0],"elements":[],"end":[15.5,0,0],"gap":null},)"
                               R"({"track":3,"start":[-15.5,0,0],"elements":[],"end":[-15.5,0,0],"gap":null}]})"
                               "\n");
}

TEST_F(Layout, OfAStraightHasExactFiguresAndKeysInTheirOrder) {
    WriteBytes(program_ / "x.trk", CircuitText("C158"));

    EXPECT_EQ(program_.Run({"layout", "x.trk"}).Output,
              R"({"tracks":[{"track":1,"start":[0,0,0],"elements":[{"index":0,"code":"C158","entry":[0,0,0],)"
              R"("corners":[[0,0],[0,8.75],[15.5,8.75],[15.5,0]],"label":[2.75,8.375],"exit":[0,8.75,0]}],)"
              R"("end":[0,8.75,0],"gap":{"distance":8.75,"angle":0}},)"
              R"({"track":2,"start":[15.5,0,0],"elements":[],"end":[15.5,0,0],"gap":null},)"
              R"({"track":3,"start":[-15.5,0,0],"elements":[],"end":[-15.5,0,0],"gap":null}]})"
              "\n");
}

TEST_F(Layout, OfALeftCurveTurnsAboutACentreOnTheLeft) {
    const Json curve = Of("C151L")["tracks"][0]["elements"][0];

    const double c = std::cos(Eighth);
    const double s = std::sin(Eighth);
    ExpectNear(curve["corners"][0], {0, 0});
    ExpectNear(curve["corners"][1], {-21.8 + 21.8 * c, 21.8 * s});
    ExpectNear(curve["corners"][2], {-21.8 + 37.3 * c, 37.3 * s});
    ExpectNear(curve["corners"][3], {15.5, 0});
    ExpectNear(curve["label"], {(15.5 - 21.8 + 21.8 * c) / 2 - 5, 21.8 * s / 2 + 4});
    ExpectNear(curve["exit"], {-21.8 + 21.8 * c, 21.8 * s, Eighth});
}

TEST_F(Layout, OfARightCurveTurnsAboutACentreOnTheRight) {
    const Json curve = Of("C151R")["tracks"][0]["elements"][0];

    const double c = std::cos(Eighth);
    const double s = std::sin(Eighth);
    ExpectNear(curve["corners"][1], {37.3 - 37.3 * c, 37.3 * s});
    ExpectNear(curve["corners"][2], {37.3 - 21.8 * c, 21.8 * s});
    ExpectNear(curve["exit"], {37.3 - 37.3 * c, 37.3 * s, 7 * Eighth});
}

TEST_F(Layout, OfEightStandardCurvesClosesOnItself) {
    const Json gap = Of("C151L C151L C151L C151L C151L C151L C151L C151L")["tracks"][0]["gap"];

    EXPECT_LT(gap["distance"].get<double>(), 1e-3);
    EXPECT_NEAR(gap["angle"].get<double>(), 0, 1e-5);
}

TEST_F(Layout, TellsTheGapsAngleBetweenMinusAndPlusHalfATurn) {
    EXPECT_NEAR(Of("C151R")["tracks"][0]["gap"]["angle"].get<double>(), -Eighth, 1e-6);
    EXPECT_NEAR(Of("C151L C151L C151L")["tracks"][0]["gap"]["angle"].get<double>(), 3 * Eighth, 1e-6);
    EXPECT_NEAR(Of("C151L C151L C151L C151L C151L")["tracks"][0]["gap"]["angle"].get<double>(), -3 * Eighth, 1e-6);
}

TEST_F(Layout, OfAnUnknownCodeIsNullAndLeavesTheCursor) {
    const Json track = Of("C158 C999 C158")["tracks"][0];

    EXPECT_EQ(track["elements"][1].dump(),
              R"({"code":"C999","corners":null,"entry":[0,8.75,0],"exit":[0,8.75,0],"index":1,"label":null})");
    EXPECT_EQ(track["end"], Json({0, 17.5, 0}));
}

TEST_F(Layout, WritesEachSingleWithTheFewestDigits) {
    const std::string text = [&] {
        std::string codes;
        for (int i = 0; i < 500; ++i)
            codes += i % 3 == 0 ? "C153L " : i % 3 == 1 ? "N10105R " : "C187L ";
        WriteBytes(program_ / "x.trk", CircuitText(codes));
        return program_.Run({"layout", "x.trk"}).Output;
    }();

    std::size_t numbers = 0;
    for (std::size_t at = text.find_first_of("-0123456789"); at != std::string::npos;) {
        const std::size_t end = text.find_first_not_of("-+.eE0123456789", at);
        const std::string digits = text.substr(at, end - at);
        // Nine significant digits tell any two singles apart.
        if (digits.find('.') != std::string::npos) {
            ++numbers;
            const auto significant =
                std::ranges::count_if(digits.substr(0, digits.find('e')), [](char c) { return c >= '0' && c <= '9'; });
            EXPECT_LE(significant, digits.starts_with("0.") || digits.starts_with("-0.") ? 16 : 9) << digits;
        }
        at = text.find_first_of("-0123456789", end);
    }
    EXPECT_GT(numbers, 5000U);
}

} // namespace pistaro
