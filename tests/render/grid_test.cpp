// The grid: where it lies, and how it thins out.
#include "render/plain_project.h"
#include "render/redraw.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pistaro {
namespace {

/// The grid alone, on a target of so many pixels.
std::vector<std::string> GridOf(const Project& project, double pixels = 700) {
    RecordingSurface surface(project.Preferences.Colours, pixels);
    const ViewRectangle shown = ShownRectangle(project.Design.View);
    surface.SetScale(shown);
    surface.Lines.clear();
    DrawGrid(project.Preferences, shown, project.Design.View.Width, surface);
    return surface.Lines;
}

TEST(Grid, OfLinesReachesOneStepBeyondTheView) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 10};
    SetView(project, 0, 0, 20);

    EXPECT_EQ(GridOf(project),
              (std::vector<std::string>{"line -20,20 -20,-20 grid", "line -10,20 -10,-20 grid", "line 0,20 0,-20 grid",
                                        "line 10,20 10,-20 grid", "line 20,20 20,-20 grid", "line -20,20 20,20 grid",
                                        "line -20,10 20,10 grid", "line -20,0 20,0 grid", "line -20,-10 20,-10 grid",
                                        "line -20,-20 20,-20 grid"}));
}

TEST(Grid, LiesOnMultiplesOfItsStepWhereverTheViewLies) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 8};
    SetView(project, 3, -50, 20); // -7..13 and -60..-40

    const auto lines = GridOf(project);

    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines[0], "line -16,-32 -16,-72 grid");
    EXPECT_EQ(lines[4], "line 16,-32 16,-72 grid");
    EXPECT_EQ(lines[5], "line -16,-32 16,-32 grid");
    EXPECT_EQ(lines[10], "line -16,-72 16,-72 grid");
}

TEST(Grid, OfDotsIsATinyCircleAtEveryCrossing) {
    Project project = PlainProject();
    project.Preferences.Grid = {2, 250};
    SetView(project, 0, 0, 500);

    const auto dots = GridOf(project);

    ASSERT_EQ(dots.size(), 25U);
    EXPECT_EQ(dots.front(), "ellipse -500,500 1 1 grid") << "at a width of 500 the radius is 1";
    EXPECT_EQ(dots[1], "ellipse -500,250 1 1 grid");
    EXPECT_EQ(dots.back(), "ellipse 500,-500 1 1 grid");
}

TEST(Grid, DotsKeepTheirSizeOnTheScreen) {
    Project project = PlainProject();
    project.Preferences.Grid = {2, 50};
    SetView(project, 0, 0, 50);

    EXPECT_EQ(GridOf(project).front(), "ellipse -100,50 0.1 1 grid");
}

TEST(Grid, StepsAreInDisplayUnits) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 10};
    project.Preferences.Units.Inches = true;
    SetView(project, 0, 0, 20);

    EXPECT_EQ(GridOf(project).front(), "line -50.8,25.4 -50.8,-50.8 grid");
}

TEST(Grid, OfNoTypeOrNoStepIsNone) {
    Project project = PlainProject();
    for (const GridSettings grid : {GridSettings{0, 10}, {3, 10}, {-1, 10}, {1, 0}, {2, -10}}) {
        project.Preferences.Grid = grid;
        EXPECT_TRUE(GridOf(project).empty()) << grid.Type << " " << grid.Step;
    }
}

/// The distance of two neighbours in a grid of lines or dots whose step is 1 cm.
float FinestStep(std::int16_t type, float width) {
    Project project = PlainProject();
    project.Preferences.Grid = {type, 1};
    SetView(project, 0, 0, width);
    const std::vector<std::string> strokes = GridOf(project);
    const auto columnOf = [](const std::string& stroke) { return std::stof(stroke.substr(stroke.find(' '))); };
    const float first = columnOf(strokes.front());
    for (const std::string& stroke : strokes) {
        if (columnOf(stroke) != first) return columnOf(stroke) - first;
    }
    return 0;
}

TEST(FineGrid, ThinsOutToEverySecondFifthTenthLineOrDotWhenItsStepFallsUnderSixPixels) {
    for (const std::int16_t type : {std::int16_t{1}, std::int16_t{2}}) {
        EXPECT_EQ(FinestStep(type, 100), 1) << "7 pixels";
        EXPECT_EQ(FinestStep(type, 116), 1) << "6.03 pixels";
        EXPECT_EQ(FinestStep(type, 117), 2) << "1 cm takes 5.98 pixels";
        EXPECT_EQ(FinestStep(type, 233), 2) << "6.01 pixels";
        EXPECT_EQ(FinestStep(type, 234), 5) << "2 cm take 5.98 pixels";
        EXPECT_EQ(FinestStep(type, 583), 5) << "6.00 pixels and a little";
        EXPECT_EQ(FinestStep(type, 584), 10) << "5 cm take 5.99 pixels";
        EXPECT_EQ(FinestStep(type, 1166), 10);
        EXPECT_EQ(FinestStep(type, 1167), 20);
        EXPECT_EQ(FinestStep(type, 2334), 50);
        EXPECT_EQ(FinestStep(type, 5834), 100);
        EXPECT_EQ(FinestStep(type, 11667), 200);
    }
}

TEST(FineGrid, OfExactlySixPixelsIsDrawnAsItIs) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 6};
    SetView(project, 0, 0, 700);

    EXPECT_EQ(GridOf(project)[0].substr(0, 10), "line -360,");
    EXPECT_EQ(GridOf(project)[1].substr(0, 10), "line -354,");
}

TEST(FineGrid, OfLinesLiesOnMultiplesOfItsThinnedStep) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 1};
    SetView(project, 3, -7, 20); // -7..13 and -17..3

    // On 28 pixels 1 cm takes 1.4 of them, 2 cm 2.8, 5 cm 7.
    EXPECT_EQ(GridOf(project, 28),
              (std::vector<std::string>{
                  "line -15,5 -15,-25 grid", "line -10,5 -10,-25 grid", "line -5,5 -5,-25 grid", "line 0,5 0,-25 grid",
                  "line 5,5 5,-25 grid", "line 10,5 10,-25 grid", "line 15,5 15,-25 grid", "line -15,5 15,5 grid",
                  "line -15,0 15,0 grid", "line -15,-5 15,-5 grid", "line -15,-10 15,-10 grid",
                  "line -15,-15 15,-15 grid", "line -15,-20 15,-20 grid", "line -15,-25 15,-25 grid"}));
}

TEST(FineGrid, OfDotsLiesOnTheCrossingsOfItsThinnedStepAndKeepsTheirSize) {
    Project project = PlainProject();
    project.Preferences.Grid = {2, 3};
    SetView(project, 0, 0, 20);

    // On 10 pixels 3 cm take 1.5 of them, 6 cm 3, 15 cm 7.5.
    EXPECT_EQ(GridOf(project, 10),
              (std::vector<std::string>{
                  "ellipse -30,15 0.04 1 grid", "ellipse -30,0 0.04 1 grid", "ellipse -30,-15 0.04 1 grid",
                  "ellipse -30,-30 0.04 1 grid", "ellipse -15,15 0.04 1 grid", "ellipse -15,0 0.04 1 grid",
                  "ellipse -15,-15 0.04 1 grid", "ellipse -15,-30 0.04 1 grid", "ellipse 0,15 0.04 1 grid",
                  "ellipse 0,0 0.04 1 grid", "ellipse 0,-15 0.04 1 grid", "ellipse 0,-30 0.04 1 grid",
                  "ellipse 15,15 0.04 1 grid", "ellipse 15,0 0.04 1 grid", "ellipse 15,-15 0.04 1 grid",
                  "ellipse 15,-30 0.04 1 grid"}));
}

TEST(FineGrid, InInchesIsThinnedByWholeInches) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 1};
    project.Preferences.Units.Inches = true;
    SetView(project, 0, 0, 700);

    EXPECT_EQ(GridOf(project)[1].substr(0, 14), "line -355.599,") << "140 inches, after 145";
}

TEST(FineGrid, IsNeverNone) {
    for (const std::int16_t type : {std::int16_t{1}, std::int16_t{2}}) {
        for (const float width : {501.0F, 1e4F, 1e6F, 1e9F, 1e20F}) {
            Project project = PlainProject();
            project.Preferences.Grid = {type, 1};
            SetView(project, 0, 0, width);

            EXPECT_GE(GridOf(project).size(), 90U) << width;
        }
    }
}

TEST(FineGrid, InAWideViewHasABoundedNumberOfLines) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 1};
    for (const float width : {100.0F, 499.0F, 501.0F, 20000.0F}) {
        SetView(project, 12345.5F, 1e7F, width);
        EXPECT_LE(GridOf(project).size(), 1010U) << width;
    }
}

} // namespace
} // namespace pistaro
