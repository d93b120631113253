// PDF files as another program reads them: lengths on the paper by the pages' own coordinates.
#include "editor/circuit_files.h"
#include "imaging/circuit_picture.h"
#include "imaging/pdf_file.h"
#include "imaging/pdf_reader.h"
#include "imaging/timeless_pdf.h"
#include "support/chain.h"
#include "support/fault_of.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <type_traits>
#include <variant>

namespace pistaro {
namespace {

std::string Pdf(const Project& project, const SheetOptions& options, const DrawnParts& parts = {}) {
    const OffscreenGraphics graphics;
    const CircuitDrawing drawing = DrawingOf(Pieces(), project, parts);
    return PdfOf(drawing, PlanSheets(drawing, options));
}

/// What of an upright line lies between two heights.
double LengthBetween(const PdfLine& line, double bottom, double top) {
    return std::max(0.0,
                    std::min(std::max(line.FromY, line.ToY), top) - std::max(std::min(line.FromY, line.ToY), bottom));
}

TEST(APdfOfTiles, HasAStandardStraightOf35CentimetresAcrossTheJointsOfItsTiles) {
    // Two tiles of A4, one above the other. Cut at its marks, each keeps what lies 1 cm of margin, .8 of words or rule
    // and half a cm of overlap from the paper's edges. The page is 842 points high.
    const auto pages = PagesOf(Pdf(ProjectOf("C160"), {.Scale = 1, .Tiles = true}));

    ASSERT_EQ(pages.size(), 3U) << "an overview and two tiles";
    constexpr double paperTop = 842 * 2.54 / 72;
    double length = 0;
    for (std::size_t page : {1U, 2U}) {
        for (const PdfLine& line : pages[page].Lines) {
            if (line.Length() > 20 && std::fabs(line.FromX - line.ToX) < 0.01)
                length += LengthBetween(line, paperTop - 27.4, paperTop - 2.3);
        }
    }
    EXPECT_NEAR(length / 4, 35, 0.05) << "two edges and two lanes";
}

TEST(APdfOfTiles, JoinsPiecesAtTheCutsToTheirPlaces) {
    const auto pages = PagesOf(Pdf(ProjectOf("C160"), {.Scale = 1, .Tiles = true}));

    ASSERT_EQ(pages.size(), 3U);
    const auto longLines = [&](std::size_t page) {
        std::vector<PdfLine> lines;
        std::ranges::copy_if(pages[page].Lines, std::back_inserter(lines),
                             [](const PdfLine& line) { return line.Length() > 20; });
        return lines;
    };
    const auto upper = longLines(1);
    const auto lower = longLines(2);
    ASSERT_EQ(upper.size(), 4U);
    ASSERT_EQ(lower.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(upper[i].FromX, lower[i].FromX, 0.001);
        EXPECT_NEAR(lower[i].FromY - upper[i].FromY, 25.1, 0.001) << "the height that is cut";
    }
}

TEST(APdfOfTiles, OfEverySampleHasStandardStraightsOfTheirLength) {
    int straights = 0;
    for (const auto& file : std::filesystem::directory_iterator(SourceFolder() / "samples")) {
        if (file.path().extension() != ".trk") continue;
        Project project = ProjectOf("");
        LoadCircuit(project, file.path());
        for (const PdfPage& page : PagesOf(Pdf(project, {.Scale = 1, .Tiles = true}))) {
            for (const PdfLine& line : page.Lines) {
                // A chicane's lanes, which go 2.7 cm inwards on 35, are 35.104 long.
                if (line.Length() < 34.5 || line.Length() > 35.09) continue;
                EXPECT_NEAR(line.Length(), 35, 0.05) << file.path();
                ++straights;
            }
        }
    }
    EXPECT_GT(straights, 500);
}

/// The straight strokes of all pieces, in the world.
std::vector<PdfLine> StraightStrokes(const CircuitDrawing& drawing) {
    std::vector<PdfLine> lines;
    const auto add = [&](const auto& shape) {
        if constexpr (std::is_same_v<std::decay_t<decltype(shape)>, LineSegment>)
            lines.push_back({shape.From.X, shape.From.Y, shape.To.X, shape.To.Y});
    };
    for (const DrawnPiece& piece : drawing.Pieces) {
        for (const Lane& lane : piece.Placement.Lanes) {
            for (const Segment& segment : lane.Path)
                std::visit(add, segment);
        }
        for (const Segment& segment : piece.Placement.Outline)
            std::visit(add, segment);
        for (const Mark& mark : piece.Placement.Marks)
            std::visit(add, mark.Shape);
    }
    return lines;
}

/// A line of a tile's page where it lies in the world: the drawing begins 1 cm from the left and 1.8 cm from the top.
PdfLine InWorld(const PdfLine& line, const Box& part, double paperTop, double scale) {
    const auto x = [&](double onPaper) { return part.Left + (onPaper - 1) * scale; };
    const auto y = [&](double onPaper) { return part.Top - (paperTop - onPaper - 1.8) * scale; };
    return {x(line.FromX), y(line.FromY), x(line.ToX), y(line.ToY)};
}

double Distance(const PdfLine& a, const PdfLine& b) {
    const double along = std::max(std::hypot(a.FromX - b.FromX, a.FromY - b.FromY), //
                                  std::hypot(a.ToX - b.ToX, a.ToY - b.ToY));
    const double against = std::max(std::hypot(a.FromX - b.ToX, a.FromY - b.ToY), //
                                    std::hypot(a.ToX - b.FromX, a.ToY - b.FromY));
    return std::min(along, against);
}

struct TilesMatch {
    int OnAnyTile = 0, OnTwo = 0, OnFour = 0; ///< strokes, by the tiles that they are on
    double Farthest = 0;                      ///< of a tile's stroke from that of the piece, cm of the world
};

/// Compares the straight strokes on all tiles, but for the marks and the rule, with those of the pieces.
TilesMatch MatchTiles(const Project& project, double scale) {
    const OffscreenGraphics graphics;
    const CircuitDrawing drawing = DrawingOf(Pieces(), project, {});
    const SheetPlan plan = PlanSheets(drawing, {.Scale = scale, .Tiles = true});
    const std::vector<PdfPage> pages = PagesOf(PdfOf(drawing, plan));
    const std::vector<PdfLine> strokes = StraightStrokes(drawing);
    std::vector<int> tilesOf(strokes.size());
    TilesMatch match;
    const double paperTop = std::round(plan.Height * 72 / 2.54) * 2.54 / 72; // whole points
    const bool overview = pages.size() > plan.Sheets.size();
    for (std::size_t tile = 0; tile < plan.Sheets.size(); ++tile) {
        for (const PdfLine& line : pages[tile + (overview ? 1 : 0)].Lines) {
            if (line.Length() < 0.5 || std::fabs(line.Length() - 10) < 1e-3) continue;
            const PdfLine placed = InWorld(line, plan.Sheets[tile].Part, paperTop, scale);
            const auto nearest =
                std::ranges::min_element(strokes, {}, [&](const PdfLine& stroke) { return Distance(stroke, placed); });
            match.Farthest = std::max(match.Farthest, Distance(*nearest, placed));
            ++tilesOf[static_cast<std::size_t>(nearest - strokes.begin())];
        }
    }
    match.OnAnyTile = static_cast<int>(std::ranges::count_if(tilesOf, [](int tiles) { return tiles > 0; }));
    match.OnTwo = static_cast<int>(std::ranges::count_if(tilesOf, [](int tiles) { return tiles > 1; }));
    match.OnFour = static_cast<int>(std::ranges::count_if(tilesOf, [](int tiles) { return tiles > 3; }));
    return match;
}

TEST(APdfOfTiles, HasTheStrokesOfEverySampleInTheirPlacesOnEachTileThatTheyCross) {
    int atCorners = 0;
    for (const auto& file : std::filesystem::directory_iterator(SourceFolder() / "samples")) {
        if (file.path().extension() != ".trk") continue;
        Project project = ProjectOf("");
        LoadCircuit(project, file.path());

        const TilesMatch match = MatchTiles(project, 1);

        EXPECT_LT(match.Farthest, 0.01) << file.path();
        EXPECT_GT(match.OnTwo, 20) << file.path();
        atCorners += match.OnFour;
    }
    EXPECT_GT(atCorners, 20) << "strokes on the four tiles around a corner";
}

TEST(APdfOfTiles, HasThemInTheirPlacesAtOtherScales) {
    Project project = ProjectOf("");
    LoadCircuit(project, SourceFolder() / "samples/grand-prix.trk");

    const TilesMatch match = MatchTiles(project, 10);

    EXPECT_LT(match.Farthest, 0.05) << "0.005 cm on the paper";
    EXPECT_GT(match.OnTwo, 5);
}

TEST(APdfOfTiles, HasAPieceThatCrossesACornerWhereFourTilesMeetOnAllOfThem) {
    // Turned by 45 degrees a straight of 35 cm reaches over the middle of two columns and two rows of tiles.
    Project project = ProjectOf("C160");
    project.Design.Circuit.Tracks[0].TrackStartHeading = 0.7853982F;

    const TilesMatch match = MatchTiles(project, 1);

    EXPECT_LT(match.Farthest, 0.01);
    EXPECT_EQ(match.OnAnyTile, 6) << "two edges, two ends, two lanes";
    EXPECT_EQ(match.OnFour, 6);
}

/// The marks at the corners of what stays of a tile that lie level: four tenths of a cm long, as no other line is.
std::ptrdiff_t LevelCutMarks(const PdfPage& page) {
    return std::ranges::count_if(page.Lines, [](const PdfLine& line) {
        return std::fabs(line.Length() - 0.4) < 0.001 && std::fabs(line.FromY - line.ToY) < 0.001;
    });
}

TEST(APdfOfTiles, HasMarksToCutAtUnlessItIsASingleSheet) {
    const auto two = PagesOf(Pdf(ProjectOf("C160"), {.Scale = 1, .Tiles = true}));
    ASSERT_EQ(two.size(), 3U);
    EXPECT_EQ(LevelCutMarks(two[0]), 0);
    EXPECT_EQ(LevelCutMarks(two[1]), 4);

    const auto one = PagesOf(Pdf(ProjectOf("C160"), {.Scale = 5, .Tiles = true}));
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(LevelCutMarks(one[0]), 0);
}

TEST(APdfOfTiles, HasAnOverviewWithWhatIsChosenAndTheNamesOfTheTiles) {
    const auto texts = [](const DrawnParts& parts) {
        return PagesOf(Pdf(ProjectOf("C160 C160"), {.Scale = 1, .Tiles = true}, parts))[0].Texts;
    };
    EXPECT_GE(texts({}), 3) << "the tiles' names";
    EXPECT_EQ(texts({.Numbers = true, .Surface = true}) - texts({.Surface = true}), 2) << "names upon all, and numbers";
}

TEST(APdfOnOnePage, HasTheScaleThatIsAskedFor) {
    const auto pages = PagesOf(Pdf(ProjectOf("C160"), {.Scale = 2, .Paper = PaperA4}));

    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(std::ranges::count_if(pages[0].Lines,
                                    [](const PdfLine& line) { return std::fabs(line.Length() - 17.5) < 0.01; }),
              4);
}

TEST(APdf, HasARuleOfTenCentimetresAtAnyScale) {
    for (const double scale : {1.0, 7.0}) {
        const auto pages = PagesOf(Pdf(ProjectOf("C157"), {.Scale = scale, .Paper = PaperA4}));

        ASSERT_EQ(pages.size(), 1U);
        EXPECT_TRUE(std::ranges::any_of(pages[0].Lines, [](const PdfLine& line) {
            return std::fabs(line.Length() - 10) < 0.001 && std::fabs(line.FromX - 1) < 0.001;
        }));
    }
}

TEST(APdf, IsTheSameEachTimeAndKnowsNoDate) {
    const Project project = ProjectOf("C160 C151L");
    const std::string pdf = Pdf(project, {.Paper = PaperA4}, {.Numbers = true});

    EXPECT_EQ(pdf, Pdf(project, {.Paper = PaperA4}, {.Numbers = true}));
    EXPECT_EQ(pdf.find("Date"), std::string::npos);
}

TEST(APdf, FindsItsObjectsWhereItsTableSaysThatTheyAre) {
    const std::string pdf = Pdf(ProjectOf("C160"), {.Paper = PaperA4});

    const std::size_t table = std::stoull(pdf.substr(pdf.rfind("startxref\n") + 10));
    ASSERT_EQ(pdf.substr(table, 7), "xref\n0 ");
    std::istringstream lines(pdf.substr(table + 7));
    int count = 0;
    lines >> count;
    ASSERT_GT(count, 10);
    for (int object = 0; object < count; ++object) {
        std::size_t offset = 0;
        std::string generation, kind;
        lines >> offset >> generation >> kind;
        if (object == 0) continue;
        EXPECT_EQ(kind, "n");
        const std::string head = std::to_string(object) + " 0 obj";
        EXPECT_EQ(pdf.substr(offset, head.size()), head);
    }
}

TEST(APdf, LosesItsDateWhateverItsLengthIs) {
    const std::string before = "%PDF\n1 0 obj\n<<\n/CreationDate (D:20261122";
    const std::string after = ")\n>>\nendobj\n2 0 obj\nendobj\n";
    const auto file = [&](const std::string& zone, const std::string& second, const std::string& table) {
        return before + zone + after + "xref\n0 3\n0000000000 65535 f \n0000000005 00000 n \n00000000" + second +
               " 00000 n \ntrailer\nstartxref\n" + table + "\n%%EOF";
    };

    EXPECT_EQ(WithoutDate(file("Z", "55", "70")), WithoutDate(file("+01'00'", "61", "76")));
    EXPECT_EQ(WithoutDate("%PDF\nno date"), "%PDF\nno date");
}

TEST(APdf, LargerThanReadersTakeIsRefused) {
    Project project = ProjectOf("C160");
    project.Design.Room.Points = {{0, 0, 0}, {600, 0, 1}};

    EXPECT_EQ(FaultOf([&] { Pdf(project, {.Scale = 1}, {.Room = true}); }),
              "Paper too large: a page of a PDF is at most 508 x 508 cm; take tiles or another scale");
}

} // namespace
} // namespace pistaro
