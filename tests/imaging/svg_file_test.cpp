// SVG files as another program reads them: by the paths' own commands.
#include "editor/circuit_files.h"
#include "imaging/svg_file.h"
#include "layout/placement.h"
#include "support/chain.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <QXmlStreamReader>

#include <cmath>
#include <sstream>

namespace pistaro {
namespace {

struct SvgPiece {
    std::string Code, Index, Track;
    std::vector<std::pair<double, double>> Ends; ///< of its strokes, y upwards
    std::vector<double> Radii;
};

/// Reads "M x y L x y" and "M x y A r r 0 large sweep x y", commands and numbers parted by anything.
void ReadPath(const std::string& path, SvgPiece& piece) {
    std::string spaced;
    for (const char c : path)
        spaced += std::isalpha(static_cast<unsigned char>(c)) ? std::string{' ', c, ' '} : std::string{c};
    std::istringstream words(spaced);
    for (std::string command; words >> command;) {
        ASSERT_TRUE(command == "M" || command == "L" || command == "A") << command;
        if (command == "A") {
            double radius = 0;
            double otherRadius = 0;
            std::string rotation, large, sweep;
            words >> radius >> otherRadius >> rotation >> large >> sweep;
            EXPECT_EQ(radius, otherRadius);
            EXPECT_EQ(rotation + large + sweep, "000") << "short, and anticlockwise";
            piece.Radii.push_back(radius);
        }
        double x = 0;
        double y = 0;
        words >> x >> y;
        ASSERT_TRUE(words);
        piece.Ends.emplace_back(x, -y);
    }
}

struct Svg {
    std::string Title, Width, Height, ViewBox, Fill;
    std::vector<SvgPiece> Pieces;
    int Texts = 0, Ellipses = 0;
    std::vector<std::string> Groups;
};

Svg Read(const std::string& bytes) {
    Svg svg;
    QXmlStreamReader xml(QByteArray::fromStdString(bytes));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        const auto attribute = [&](const char* name) {
            return xml.attributes().value(QLatin1String(name)).toString().toStdString();
        };
        const std::string name = xml.name().toString().toStdString();
        if (name == "svg") {
            svg.Width = attribute("width");
            svg.Height = attribute("height");
            svg.ViewBox = attribute("viewBox");
            svg.Fill = attribute("fill");
        }
        if (name == "g" && !attribute("id").empty()) svg.Groups.push_back(attribute("id"));
        if (name == "g" && !attribute("data-code").empty())
            svg.Pieces.push_back({attribute("data-code"), attribute("data-index"), attribute("data-track"), {}, {}});
        if (name == "path" && !svg.Pieces.empty()) ReadPath(attribute("d"), svg.Pieces.back());
        if (name == "text") ++svg.Texts;
        if (name == "ellipse") ++svg.Ellipses;
        if (name == "title") svg.Title = xml.readElementText().toStdString();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return svg;
}

Svg SvgOfProject(const Project& project, const DrawnParts& parts, double scale) {
    const CircuitDrawing drawing = DrawingOf(Pieces(), project, parts);
    return Read(SvgOf(drawing, PlanSheets(drawing, {.Scale = scale, .Header = false})));
}

TEST(Svg, HasAGroupForEachPieceThatTellsWhichItIs) {
    const Svg svg = SvgOfProject(ProjectOf("C160 X1 C151L", "C157"), {}, 1);

    ASSERT_EQ(svg.Pieces.size(), 3U);
    EXPECT_EQ(svg.Pieces[1].Code, "C151L");
    EXPECT_EQ(svg.Pieces[1].Index, "2");
    EXPECT_EQ(svg.Pieces[1].Track, "1");
    EXPECT_EQ(svg.Pieces[2].Track, "2");
    EXPECT_EQ(svg.Title, "new project");
}

TEST(Svg, HasTheSizeOfTheCircuitAtItsScaleAndCentimetresOfTheCircuitAsItsUnits) {
    const Svg svg = SvgOfProject(ProjectOf("C160"), {}, 10); // 15.5 x 35, and a margin of 1 cm of paper

    EXPECT_EQ(svg.Width, "3.55cm");
    EXPECT_EQ(svg.Height, "5.5cm");
    EXPECT_EQ(svg.ViewBox, "-10 -45 35.5 55");
    EXPECT_EQ(svg.Fill, "none") << "viewers would fill the arcs";
}

TEST(Svg, HasNumbersGridAndRoomWhenTheyAreChosen) {
    Project project = ProjectOf("C160 C160");
    project.Design.Room.Points = {{0, 0, 0}, {20, 0, 1}};

    EXPECT_EQ(SvgOfProject(project, {}, 1).Groups, (std::vector<std::string>{"track"}));
    const Svg svg = SvgOfProject(project, {.Numbers = true, .Grid = true, .Room = true}, 1);
    EXPECT_EQ(svg.Groups, (std::vector<std::string>{"grid", "room", "track", "numbers"}));
    EXPECT_EQ(svg.Texts, 2);
}

TEST(Svg, HasCurvesAsArcsOfTheirRadii) {
    const Svg svg = SvgOfProject(ProjectOf("C151R"), {}, 1);

    std::vector<double> radii = svg.Pieces.at(0).Radii;
    std::ranges::sort(radii);
    ASSERT_EQ(radii.size(), 4U);
    const double expected[] = {21.8, 25.6, 33.5, 37.3}; // edges 21.8 and 37.3, lanes 3.8 from them
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(radii[i], expected[i], 1e-4);
}

TEST(Svg, HoldsTextsOfAnyKindAsText) {
    Project project = ProjectOf("C160");
    project.EditState.File = "a<b>&\"c.trk";

    EXPECT_EQ(SvgOfProject(project, {}, 1).Title, "a<b>&\"c");
}

TEST(Svg, OfEverySampleHasEachPiecesCornersWithinAHundredthOfACentimetre) {
    for (const auto& file : std::filesystem::directory_iterator(SourceFolder() / "samples")) {
        if (file.path().extension() != ".trk") continue;
        Project project = ProjectOf("");
        LoadCircuit(project, file.path());
        const Svg svg = SvgOfProject(project, {}, 20);

        std::size_t at = 0;
        for (const Track& track : project.Design.Circuit.Tracks) {
            WalkTrack(Pieces(), track, [&](int index, const PiecePlacement* placement, const BuildCursor&) {
                const SvgPiece& piece = svg.Pieces.at(at++);
                EXPECT_EQ(piece.Index, std::to_string(index));
                for (const WorldPoint corner : placement->Corners.InOrder()) {
                    EXPECT_TRUE(std::ranges::any_of(piece.Ends,
                                                    [&](const auto& end) {
                                                        return std::hypot(end.first - corner.X, end.second - corner.Y) <
                                                               0.01;
                                                    }))
                        << file.path() << ", piece " << index;
                }
            });
        }
        EXPECT_EQ(at, svg.Pieces.size());
    }
}

} // namespace
} // namespace pistaro
