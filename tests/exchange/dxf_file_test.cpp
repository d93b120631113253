// DXF files as another program reads them: pairs of a group's number and its value.
#include "editor/circuit_files.h"
#include "exchange/dxf_file.h"
#include "layout/placement.h"
#include "support/chain.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <sstream>

namespace pistaro {
namespace {

struct Entity {
    std::string Kind;
    std::map<int, std::string> Groups;

    double At(int group) const { return std::stod(Groups.at(group)); }
    std::string Layer() const { return Groups.at(8); }
};

std::vector<std::pair<int, std::string>> PairsOf(const std::string& dxf) {
    std::istringstream lines(dxf);
    std::vector<std::pair<int, std::string>> pairs;
    for (std::string group, value; std::getline(lines, group) && std::getline(lines, value);) {
        EXPECT_TRUE(value.ends_with('\r'));
        value.pop_back();
        pairs.emplace_back(std::stoi(group), value);
    }
    return pairs;
}

std::vector<Entity> EntitiesOf(const std::string& dxf) {
    std::vector<Entity> entities;
    std::string section;
    std::string before;
    for (const auto& [group, value] : PairsOf(dxf)) {
        if (before == "SECTION") section = value;
        before = group == 0 ? value : "";
        if (section != "ENTITIES") continue;
        if (group == 0) entities.push_back({value, {}});
        if (group != 0 && !entities.empty()) entities.back().Groups.emplace(group, value);
    }
    std::erase_if(entities, [](const Entity& entity) { return !entity.Groups.contains(8); }); // the section's end
    return entities;
}

using Ends = std::vector<std::pair<double, double>>;

Ends EndsOf(const Entity& entity) {
    if (entity.Kind == "LINE") return {{entity.At(10), entity.At(20)}, {entity.At(11), entity.At(21)}};
    if (entity.Kind != "ARC") return {};
    const auto end = [&](int group) {
        const double angle = entity.At(group) * 3.14159265358979 / 180;
        return std::pair(entity.At(10) + entity.At(40) * std::cos(angle),
                         entity.At(20) + entity.At(40) * std::sin(angle));
    };
    return {end(50), end(51)};
}

double DistanceTo(const Ends& ends, WorldPoint point) {
    double least = 1e9;
    for (const auto& [x, y] : ends)
        least = std::min(least, std::hypot(x - point.X, y - point.Y));
    return least;
}

std::string KindsOn(const std::vector<Entity>& entities, const std::string& layer) {
    std::string kinds;
    for (const Entity& entity : entities) {
        if (entity.Layer() == layer) kinds += (kinds.empty() ? "" : " ") + entity.Kind;
    }
    return kinds;
}

TEST(Dxf, HasThePartsThatItsVersionWants) {
    const std::string dxf = DxfOf(DrawingOf(Pieces(), ProjectOf("C160"), {}));

    std::string sections;
    std::string variables;
    std::string before;
    std::string variable;
    for (const auto& [group, value] : PairsOf(dxf)) {
        if (before == "SECTION") sections += value + " ";
        if (!variable.empty()) variables += variable + "=" + value + " ";
        variable = group == 9 ? value : "";
        before = group == 0 ? value : "";
    }
    EXPECT_EQ(sections, "HEADER TABLES BLOCKS ENTITIES OBJECTS ");
    EXPECT_EQ(variables, "$ACADVER=AC1015 $HANDSEED=FFFF $INSUNITS=5 ");
    EXPECT_TRUE(dxf.ends_with("  0\r\nEOF\r\n"));
}

TEST(Dxf, TellsOfEachObjectWhoseItIs) {
    std::set<std::string> handles{"0"};
    std::vector<std::string> owners;
    std::string section;
    std::string before;
    bool isObject = false;
    bool wantsOwner = false;
    for (const auto& [group, value] : PairsOf(DxfOf(DrawingOf(Pieces(), ProjectOf("C160"), {})))) {
        if (before == "SECTION") section = value;
        before = group == 0 ? value : "";
        isObject = section == "OBJECTS" && (isObject || group == 0);
        if (wantsOwner) {
            EXPECT_EQ(group, 330) << "behind an object's handle";
            owners.push_back(value);
        }
        wantsOwner = isObject && group == 5;
        if (wantsOwner) handles.insert(value);
    }

    EXPECT_EQ(owners.size(), 14U);
    for (const std::string& owner : owners)
        EXPECT_TRUE(handles.contains(owner)) << owner;
}

TEST(Dxf, HasLinesAndArcsOnLayersThatTellWhatTheyAre) {
    const auto entities = EntitiesOf(DxfOf(DrawingOf(Pieces(), ProjectOf("C160 C151L C8010L"), {})));

    EXPECT_EQ(KindsOn(entities, "LANES"), "LINE LINE ARC ARC ARC ARC");
    EXPECT_EQ(KindsOn(entities, "OUTLINES"), "LINE LINE LINE LINE ARC ARC LINE LINE ARC ARC LINE LINE");
    EXPECT_EQ(KindsOn(entities, "NUMBERS"), "");
}

TEST(Dxf, HasNumbersRoomAndGridOnLayersOfTheirOwnWhenTheyAreChosen) {
    Project project = ProjectOf("C160 C160");
    project.Design.Room.Points = {{0, 0, 0}, {20, 0, 1}, {20, 20, 1}};
    project.Preferences.Grid = {1, 100};

    const auto entities =
        EntitiesOf(DxfOf(DrawingOf(Pieces(), project, {.Numbers = true, .Grid = true, .Room = true})));

    EXPECT_EQ(KindsOn(entities, "NUMBERS"), "TEXT TEXT");
    EXPECT_EQ(KindsOn(entities, "ROOM"), "LINE LINE");
    EXPECT_EQ(KindsOn(entities, "GRID"), "LINE LINE LINE LINE LINE LINE");
    EXPECT_EQ(entities.back().Groups.at(10), "20.0");
    EXPECT_EQ(entities.back().Groups.at(21), "20.0");
}

TEST(Dxf, HasTheLapCountersBoxAndRoundMark) {
    const auto entities = EntitiesOf(DxfOf(DrawingOf(Pieces(), ProjectOf("C277"), {})));

    const std::string marks = KindsOn(entities, "MARKS");
    EXPECT_NE(marks.find("ELLIPSE"), std::string::npos) << marks;
}

TEST(Dxf, IsTheSameEachTime) {
    const CircuitDrawing drawing = DrawingOf(Pieces(), ProjectOf("C160 C151L C277"), {.Numbers = true});

    EXPECT_EQ(DxfOf(drawing), DxfOf(drawing));
}

TEST(Dxf, OfEverySampleHasEachCornerWithinAHundredthOfACentimetre) {
    for (const auto& file : std::filesystem::directory_iterator(SourceFolder() / "samples")) {
        if (file.path().extension() != ".trk") continue;
        Project project = ProjectOf("");
        LoadCircuit(project, file.path());
        Ends ends;
        for (const Entity& entity : EntitiesOf(DxfOf(DrawingOf(Pieces(), project, {})))) {
            for (const auto& end : EndsOf(entity))
                ends.push_back(end);
        }

        for (const Track& track : project.Design.Circuit.Tracks) {
            WalkTrack(Pieces(), track, [&](int index, const PiecePlacement* placement, const BuildCursor&) {
                for (const WorldPoint corner : placement->Corners.InOrder())
                    EXPECT_LT(DistanceTo(ends, corner), 0.01) << file.path() << ", piece " << index;
            });
        }
    }
}

} // namespace
} // namespace pistaro
