#include "imaging/tile_marks.h"

#include "layout/piece_middle.h"
#include "paper/clear_places.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace pistaro {

namespace {

constexpr Colour TileInk = Rgb(0x1F, 0x4E, 0xA8);
constexpr Colour PaleTileInk = Rgb(0xA9, 0xC0, 0xE8);
constexpr Colour PalestTileInk = Rgb(0xE4, 0xEB, 0xF7);
constexpr Colour White = Rgb(255, 255, 255);
constexpr double PointsPerCm = 72 / CmPerInch;
constexpr double NameLine = 1.3; ///< of its font's height

/// How wide a tile's name is, of its font's height.
double WidthOfName(const std::string& name) { return 0.75 * static_cast<double>(name.size()) + 0.2; }

/// A name across the middle of a box, at most so many cm high.
void WriteAcross(PaperPage& page, const Box& box, const std::string& name, double most, Colour ink) {
    const double height = std::min({most, box.Height() * 0.7 / NameLine, box.Width() * 0.9 / WidthOfName(name)}); // cm
    page.Words(BoxAround(box.MiddleX(), box.MiddleY(), box.Width(), NameLine * height), name, Qt::AlignHCenter,
               height * PointsPerCm, QFont::Bold, ink);
}

/// Words of that font's height that can be read upon whatever lies below them.
void WriteWithRim(PaperPage& page, const Box& place, const std::string& text, double height) {
    const double rim = height / 14;
    const auto write = [&](double right, double up, Colour ink) {
        page.Words({place.Left + right, place.Bottom + up, place.Right + right, place.Top + up}, text, Qt::AlignHCenter,
                   height * PointsPerCm, QFont::Bold, ink);
    };
    for (const int right : {-1, 0, 1}) {
        for (const int up : {-1, 0, 1})
            write(right * rim, up * rim, White);
    }
    write(0, 0, TileInk);
}

/// A plate of that size in the first of a tile's corners where it hides neither number nor piece, else no number.
Box PlateIn(const Box& tile, double width, double height, const std::vector<Box>& numbers,
            const std::vector<Box>& pieces) {
    const auto meetsNone = [](const Box& plate, const std::vector<Box>& boxes) {
        return std::ranges::none_of(boxes, [&](const Box& box) { return plate.Meets(box); });
    };
    std::vector<Box> plates;
    for (const double top : {tile.Top, tile.Bottom + height}) {
        for (const double left : {tile.Left, tile.Right - width})
            plates.push_back({left, top - height, left + width, top});
    }
    for (const bool hidesPieces : {false, true}) {
        for (const Box& plate : plates) {
            if (meetsNone(plate, numbers) && (hidesPieces || meetsNone(plate, pieces))) return plate;
        }
    }
    return plates.front();
}

std::vector<WorldPoint> CornersOf(const Box& box) {
    return {PointBy(box.Left, box.Bottom), PointBy(box.Right, box.Bottom), PointBy(box.Right, box.Top),
            PointBy(box.Left, box.Top)};
}

/// A line that can be seen upon whatever lies below it: with a white rim where areas are filled.
void DrawRimmed(Surface& surface, bool hasRim, const std::function<void(Colour)>& draw) {
    constexpr PenWidth rim{0.8, PenWidth::Unit::Millimetres};
    if (hasRim) {
        surface.SetPen(rim);
        draw(White);
    }
    surface.SetPen(DrawingPen);
    draw(TileInk);
}

/// What stays of a tile when it is cut, on the paper.
Box CellOf(const SheetPlan& plan) { return plan.Area().Wider(-TileOverlap / 2); }

/// A side of a tile, on which another tile continues.
struct Side {
    int Right, Below;
    const char *Before, *After; ///< what points to the neighbour beside its name

    bool IsLevel() const { return Below != 0; }
    double Edge(const Box& cell) const {
        if (IsLevel()) return Below > 0 ? cell.Bottom : cell.Top;
        return Right > 0 ? cell.Right : cell.Left;
    }
    /// Away from the tile's middle.
    int Outwards() const { return IsLevel() ? -Below : Right; }
};

constexpr Side Sides[] = {{0, 1, "↓ ", ""}, {0, -1, "↑ ", ""}, {1, 0, "", " →"}, {-1, 0, "← ", ""}};

/// Places for words of that size along a side of a cell, from its middle on to both ends, so far outside the edge.
std::vector<Box> PlacesAlong(const Side& side, const Box& cell, double width, double height, double outside) {
    constexpr double step = 0.4; // cm
    const double across = side.Edge(cell) + side.Outwards() * outside;
    const double middle = side.IsLevel() ? cell.MiddleX() : cell.MiddleY();
    const double room = side.IsLevel() ? cell.Width() - width : cell.Height() - height;
    std::vector<Box> places;
    for (double away = 0; places.empty() || away < room / 2; away += step) {
        for (const double along : {middle + away, middle - away})
            places.push_back(side.IsLevel() ? BoxAround(along, across, width, height)
                                            : BoxAround(across, along, width, height));
    }
    return places;
}

/// The edges of a tile, and what is written beside them.
class TileEdges {
public:
    TileEdges(PaperPage& page, const SheetPlan& plan, const Sheet& sheet, const CircuitDrawing& drawing,
              const std::vector<Box>& numbers)
        : page_(page), plan_(plan), sheet_(sheet), drawing_(drawing), taken_(numbers), cell_(CellOf(plan)) {}

    void Draw() {
        DrawCutMarks();
        bool isTold = false;
        for (const Side& side : Sides) {
            const Sheet* const neighbour = plan_.Beside(sheet_, side.Right, side.Below);
            if (neighbour == nullptr) continue;
            DrawCutLine(side);
            WriteNeighbour(side, neighbour->Name);
            if (!isTold) TellOfCut(side);
            isTold = true;
        }
    }

private:
    /// At each corner of what stays of a tile two short lines, outside it.
    void DrawCutMarks() {
        constexpr double length = 0.4; // cm
        page_.OnPaper(plan_.Area(), [&](Surface& surface) {
            for (const double x : {cell_.Left, cell_.Right}) {
                DrawLine(surface, x, cell_.Top, x, cell_.Top + length);
                DrawLine(surface, x, cell_.Bottom, x, cell_.Bottom - length);
            }
            for (const double y : {cell_.Bottom, cell_.Top}) {
                DrawLine(surface, cell_.Left, y, cell_.Left - length, y);
                DrawLine(surface, cell_.Right, y, cell_.Right + length, y);
            }
        });
    }

    /// Dashed from one corner to the other.
    void DrawCutLine(const Side& side) {
        constexpr double dash = 0.3, step = 0.5; // cm
        const double edge = side.Edge(cell_);
        const double from = side.IsLevel() ? cell_.Left : cell_.Bottom;
        const double to = side.IsLevel() ? cell_.Right : cell_.Top;
        page_.OnPaper(plan_.Area(), [&](Surface& surface) {
            const int dashes = static_cast<int>(std::ceil((to - from) / step));
            DrawRimmed(surface, drawing_.Parts.Surface || drawing_.Background, [&](Colour ink) {
                for (int i = 0; i < dashes; ++i) {
                    const double at = from + i * step;
                    const double end = std::min(at + dash, to);
                    if (side.IsLevel()) {
                        DrawLine(surface, at, edge, end, edge, ink);
                    } else {
                        DrawLine(surface, edge, at, edge, end, ink);
                    }
                }
            });
        });
    }

    void WriteNeighbour(const Side& side, const std::string& name) {
        constexpr double height = 0.42; // cm of the font
        const double width = (WidthOfName(name) + 1.2) * height;
        const double inside = 0.1 + (side.IsLevel() ? NameLine * height : width) / 2;
        const Box place = Clearest(PlacesAlong(side, cell_, width, NameLine * height, -inside));
        WriteWithRim(page_, place, side.Before + name + side.After, height);
    }

    /// In the strip that the neighbour has, too.
    void TellOfCut(const Side& side) {
        constexpr double strip = TileOverlap / 2, length = 8.4, ground = 0.36, points = 7; // cm
        const std::string text = "Cut here, or lay the next sheet's cut edge to this line";
        if (side.IsLevel()) {
            Box place = Clearest(PlacesAlong(side, cell_, length, strip, strip / 2));
            Whiten(BoxAround(place.MiddleX(), place.MiddleY(), length, ground));
            place.Top -= 0.1;
            WriteWithRim(page_, place, text, points / PointsPerCm);
        } else {
            const Box place = Clearest(PlacesAlong(side, cell_, strip, length, strip / 2));
            Whiten(BoxAround(place.MiddleX(), place.MiddleY(), ground, length));
            page_.UprightWords(place, text, points, TileInk);
        }
    }

    /// For words that asphalt or a picture may lie below.
    void Whiten(const Box& place) {
        if (!drawing_.Parts.Surface && !drawing_.Background) return;
        page_.OnPaper(place, [&](Surface& surface) { surface.Fill(CornersOf(place), White); });
    }

    /// Of places on the paper.
    Box Clearest(const std::vector<Box>& places) {
        const Box area = plan_.Area();
        const double scale = plan_.Scale;
        std::vector<Box> inWorld;
        inWorld.reserve(places.size());
        for (const Box& place : places) {
            const double left = sheet_.Part.Left + (place.Left - area.Left) * scale;
            const double bottom = sheet_.Part.Bottom + (place.Bottom - area.Bottom) * scale;
            inWorld.push_back({left, bottom, left + place.Width() * scale, bottom + place.Height() * scale});
        }
        taken_.push_back(ClearestOf(inWorld, drawing_, taken_));
        return places[static_cast<std::size_t>(std::ranges::find(inWorld, taken_.back()) - inWorld.begin())];
    }

    PaperPage& page_;
    const SheetPlan& plan_;
    const Sheet& sheet_;
    const CircuitDrawing& drawing_;
    std::vector<Box> taken_; ///< boxes of the world in which something stands already
    Box cell_;
};

} // namespace

void DrawTileBehind(PaperPage& page, const Box& tile, const std::string& name) {
    constexpr double most = 2; // cm
    WriteAcross(page, tile, name, most, PaleTileInk);
    page.OnPaper(tile, [&](Surface& surface) { DrawFrame(surface, tile, TileInk); });
}

void DrawTileUpon(PaperPage& page, const Box& tile, const std::string& name, const std::vector<Box>& numbers,
                  const std::vector<Box>& pieces) {
    constexpr double small = 0.5; // cm; a rim alone does not make a name readable then
    const double height = std::min(
        {std::clamp(tile.Height() / 4, 0.28, 0.9), tile.Height() / NameLine, tile.Width() / WidthOfName(name)}); // cm
    const Box plate = PlateIn(tile, WidthOfName(name) * height, NameLine * height, numbers, pieces);
    if (height < small) page.OnPaper(tile, [&](Surface& surface) { surface.Fill(CornersOf(plate), White); });
    WriteWithRim(page, plate, name, height);
    page.OnPaper(
        tile, [&](Surface& surface) { DrawRimmed(surface, true, [&](Colour ink) { DrawFrame(surface, tile, ink); }); });
}

double DrawTileTitle(PaperPage& page, const Box& strip, const std::string& name) {
    constexpr double points = 18;
    return page.Words(strip, name, Qt::AlignLeft, points, QFont::Bold, TileInk);
}

void DrawTileName(PaperPage& page, const SheetPlan& plan, const std::string& name) {
    constexpr double most = 8; // cm
    WriteAcross(page, CellOf(plan), name, most, PalestTileInk);
}

void DrawTileEdges(PaperPage& page, const SheetPlan& plan, const Sheet& sheet, const CircuitDrawing& drawing,
                   const std::vector<Box>& numbers) {
    TileEdges(page, plan, sheet, drawing, numbers).Draw();
}

} // namespace pistaro
