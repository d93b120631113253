// Faults planted into clean circuits, 200 a rule: each is found; and in 200 clean circuits nothing is.
#include "checks/check.h"
#include "layout/ground.h"
#include "support/clean_circuits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace pistaro {
namespace {

constexpr int Rounds = 200;

std::vector<Finding> FindingsOf(const Project& project) {
    return CheckDesign(Pieces(), project.Design, project.Stock, project.Preferences.Units);
}

std::string Told(const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings)
        text += std::string(finding.Rule) + ": " + finding.Text + "\n";
    return text;
}

/// What a planted fault shall be told as.
struct Expected {
    const char* Rule;
    pistaro::Severity Severity;
    std::vector<int> Pieces; ///< of track 1, among those of one finding
};

bool IsFound(const std::vector<Finding>& findings, const Expected& expected) {
    return std::ranges::any_of(findings, [&](const Finding& finding) {
        return finding.Rule == expected.Rule && finding.Severity == expected.Severity && finding.Track == 0 &&
               std::ranges::all_of(expected.Pieces,
                                   [&](int piece) { return std::ranges::count(finding.Pieces, piece) == 1; });
    });
}

using Plant = std::function<Expected(Project&, CleanCircuits&)>;

void ExpectFound(
    const Plant& plant, const std::function<Project(CleanCircuits&)>& clean = [](CleanCircuits& circuits) {
        return circuits.NextScalextric();
    }) {
    CleanCircuits circuits(7);
    for (int round = 0; round < Rounds; ++round) {
        Project project = clean(circuits);
        ASSERT_EQ(Told(FindingsOf(project)), "") << "before, round " << round;
        const Expected expected = plant(project, circuits);
        const std::vector<Finding> findings = FindingsOf(project);
        ASSERT_TRUE(IsFound(findings, expected)) << expected.Rule << ", round " << round << "\n" << Told(findings);
    }
}

std::vector<std::string>& CodesOf(Project& project) { return project.Design.Circuit.Tracks[0].ElementCodes; }

/// One of the elements with this code, by chance.
int AnyOf(Project& project, CleanCircuits& circuits, const std::function<bool(const std::string&)>& fits) {
    std::vector<int> found;
    const std::vector<std::string>& codes = CodesOf(project);
    for (std::size_t element = 0; element < codes.size(); ++element) {
        if (fits(codes[element])) found.push_back(static_cast<int>(element));
    }
    return found.at(static_cast<std::size_t>(circuits.Below(static_cast<int>(found.size()))));
}

int AnyOf(Project& project, CleanCircuits& circuits, const std::string& code) {
    return AnyOf(project, circuits, [&](const std::string& other) { return other == code; });
}

/// Puts another piece in place of one with this code, and tells where.
int Replace(Project& project, CleanCircuits& circuits, const std::string& code, const std::string& by) {
    const int element = AnyOf(project, circuits, code);
    CodesOf(project)[static_cast<std::size_t>(element)] = by;
    return element;
}

struct Laid {
    PiecePlacement Placement;
    BuildCursor Entry;
};

std::vector<Laid> LaidPieces(const Project& project) {
    std::vector<Laid> laid;
    WalkTrack(Pieces(), project.Design.Circuit.Tracks[0],
              [&](int, const PiecePlacement* placement, const BuildCursor& entry) {
                  laid.push_back({*placement, entry});
              });
    return laid;
}

TEST(Checks, FindNothingIn200CleanCircuits) {
    CleanCircuits circuits(1);
    for (int round = 0; round < Rounds; ++round)
        ASSERT_EQ(Told(FindingsOf(circuits.Next())), "") << "round " << round;
}

TEST(Checks, FindUnknownCodes) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        std::vector<std::string>& codes = CodesOf(project);
        const int element = circuits.Below(static_cast<int>(codes.size()) + 1);
        codes.insert(codes.begin() + element, "C999");
        return {"unknown-code", Severity::Error, {element}};
    });
}

TEST(Checks, FindTracksThatDoNotClose) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        std::vector<std::string>& codes = CodesOf(project);
        codes.erase(codes.begin() + circuits.Below(static_cast<int>(codes.size())));
        return {"open-track", Severity::Error, {0, static_cast<int>(codes.size()) - 1}};
    });
}

TEST(Checks, FindTracksThatCanBePressedTogether) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        Replace(project, circuits, "C158", "C157"); // 1.09 cm shorter
        return {"open-track", Severity::Warning, {0}};
    });
}

TEST(Checks, FindJointsOfBothSystems) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        const int element = 1 + circuits.Below(static_cast<int>(CodesOf(project).size()) - 1);
        CodesOf(project)[static_cast<std::size_t>(element)] = "N10103";
        return {"unconverted-joint", Severity::Error, {element - 1, element}};
    });
}

TEST(Checks, FindAdaptersTheWrongWayRound) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        std::vector<std::string>& codes = CodesOf(project);
        const int element = 1 + circuits.Below(static_cast<int>(codes.size()) - 1);
        codes.insert(codes.begin() + element, "N10110");
        return {"reversed-adapter", Severity::Error, {element, element + 1}};
    });
}

TEST(Checks, FindOverlaps) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        const int element = AnyOf(project, circuits, [](const std::string& code) { return code != "C248"; });
        Track& other = project.Design.Circuit.Tracks[2];
        const BuildCursor entry = LaidPieces(project)[static_cast<std::size_t>(element)].Entry;
        other.TrackStartX = entry.CursorX;
        other.TrackStartY = entry.CursorY;
        other.TrackStartHeading = entry.CursorHeading;
        other.ElementCodes = {"C157"};
        return {"overlap", Severity::Error, {element}};
    });
}

TEST(Checks, FindOverlapsWithinATrack) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        std::vector<std::string>& codes = CodesOf(project);
        const int size = static_cast<int>(codes.size());
        const int element = 1 + circuits.Below(size - 2);
        const std::vector<std::string> again(codes.begin(), codes.begin() + element + 1);
        codes.insert(codes.end(), again.begin(), again.end());
        return {"overlap", Severity::Error, {element, size + element}};
    });
}

TEST(Checks, FindPiecesOutsideTheRoom) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        const std::vector<Laid> laid = LaidPieces(project);
        const int element = circuits.Below(static_cast<int>(laid.size()));
        const GroundPoint middle = MiddleOf(GroundOf(laid[static_cast<std::size_t>(element)].Placement));
        const auto wall = static_cast<std::int16_t>(std::floor(middle.X) - circuits.Below(40));
        project.Design.Room.Points[1].X = project.Design.Room.Points[2].X = wall;
        return {"outside-room", Severity::Error, {element}};
    });
}

TEST(Checks, FindPiecesNearAWall) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        double right = -1e9;
        int rightmost = 0;
        const std::vector<Laid> laid = LaidPieces(project);
        for (std::size_t element = 0; element < laid.size(); ++element) {
            const double reach = GroundOf(laid[element].Placement).Box.Right;
            if (reach > right) rightmost = static_cast<int>(element);
            right = std::max(right, reach);
        }
        const auto wall = static_cast<std::int16_t>(std::floor(right) + 1 + circuits.Below(4)); // nearer than 5 cm
        project.Design.Room.Points[1].X = project.Design.Room.Points[2].X = wall;
        return {"near-wall", Severity::Advice, {rightmost}};
    });
}

TEST(Checks, FindCurvesWhoseOutsideIsNearAnotherTrack) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        const int element = AnyOf(project, circuits, [](const std::string& code) { return Hand(code) != 0; });
        const Ground curve = GroundOf(LaidPieces(project)[static_cast<std::size_t>(element)].Placement);
        const double outwards = std::atan2(curve.From.Y + curve.To.Y, curve.From.X + curve.To.X);
        const double distance = 0.1 + circuits.Below(98) / 10.0;
        // Straight across the middle of the curve's outside, beginning half its length before.
        const double radius = curve.OuterRadius + distance;
        Track& other = project.Design.Circuit.Tracks[1];
        other.ElementCodes = {"C158"};
        other.TrackStartHeading = static_cast<float>(outwards);
        other.TrackStartX =
            static_cast<float>(curve.Centre.X + radius * std::cos(outwards) + 4.375 * std::sin(outwards));
        other.TrackStartY =
            static_cast<float>(curve.Centre.Y + radius * std::sin(outwards) - 4.375 * std::cos(outwards));
        return {"near-track", Severity::Advice, {element}};
    });
}

TEST(Checks, FindOddChangeOvers) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        Replace(project, circuits, "C8006", "C160");
        return {"odd-change-overs", Severity::Warning, {AnyOf(project, circuits, "C8006")}};
    });
}

TEST(Checks, FindLanesThatDiffer) {
    ExpectFound([](Project& project, CleanCircuits&) -> Expected {
        std::ranges::replace(CodesOf(project), "C8006", "C160");
        return {"lanes-differ", Severity::Advice, {0}};
    });
}

TEST(Checks, FindChicanesWithoutAPartner) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        Replace(project, circuits, "C8007", "C160");
        return {"chicane-partner", Severity::Warning, {AnyOf(project, circuits, "C8007")}};
    });
}

TEST(Checks, FindStrangersBetweenChicanes) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        return {"chicane-stranger", Severity::Warning, {Replace(project, circuits, "C8009", "C160")}};
    });
}

TEST(Checks, FindStraightRunsIntoCurvesOfTheInnerRadius) {
    ExpectFound(
        [](Project& project, CleanCircuits& circuits) -> Expected {
            project = circuits.NextWithInnerCurves(6 + circuits.Below(4)); // from 280 cm on
            const std::vector<std::string>& codes = CodesOf(project);
            const auto curve = std::ranges::find_if(codes, [](const std::string& code) { return Hand(code) != 0; });
            return {"fast-corner", Severity::Advice, {static_cast<int>(curve - codes.begin())}};
        },
        [](CleanCircuits& circuits) { return circuits.NextWithInnerCurves(circuits.Below(6)); }); // to 245 cm
}

TEST(Checks, FindLapCountersThatAreMissingOrTwo) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        if (circuits.Below(2) == 0) {
            Replace(project, circuits, "C277", "C159");
            return {"lap-counter", Severity::Advice, {0}};
        }
        return {"lap-counter", Severity::Advice, {Replace(project, circuits, "C159", "C277")}};
    });
}

TEST(Checks, FindStartSectionsThatAreMissingOrTwo) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        if (circuits.Below(2) == 0) {
            Replace(project, circuits, "C367", "C159");
            return {"start-section", Severity::Advice, {0}};
        }
        return {"start-section", Severity::Advice, {Replace(project, circuits, "C159", "C367")}};
    });
}

TEST(Checks, FindPiecesThatAreNotOwned) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        const int element = circuits.Below(static_cast<int>(CodesOf(project).size()));
        const int product = Pieces().Find(CodesOf(project)[static_cast<std::size_t>(element)])->StockIndex;
        int before = 0; // of the same product
        for (int other = 0; other < element; ++other)
            before += Pieces().Find(CodesOf(project)[static_cast<std::size_t>(other)])->StockIndex == product ? 1 : 0;
        project.Stock.Of(product).OwnedCount = static_cast<std::int16_t>(before);
        return {"not-owned", Severity::Advice, {element}};
    });
}

TEST(Checks, FindSpecialPiecesThatLieUnused) {
    ExpectFound([](Project& project, CleanCircuits& circuits) -> Expected {
        const int element = AnyOf(project, circuits, "C160");
        int before = 0;
        for (int other = 0; other < element; ++other)
            before += CodesOf(project)[static_cast<std::size_t>(other)] == "C160" ? 1 : 0;
        project.Stock.Of(Pieces().FindRow("C160")).OwnedCount = static_cast<std::int16_t>(before);
        return {"unused-special", Severity::Advice, {element}};
    });
}

} // namespace
} // namespace pistaro
