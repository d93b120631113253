#include "paper/circuit_drawing.h"

#include "layout/room_fit.h"
#include "layout/strokes.h"
#include "platform/fault.h"
#include "render/redraw.h"
#include "render/track_bed.h"
#include "text/number_text.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr Colour White = Rgb(255, 255, 255);
constexpr Colour Black = Rgb(0, 0, 0);
constexpr double PixelsPerPoint = 96.0 / 72;
constexpr double NumberHeight = 2.5; ///< cm of the world: read by who stands before the track, where there is such room
constexpr double WidestNumber = 4;   ///< of a font's size; one that begins beside a part may reach into it

/// Colours for white paper.
ColourScheme PaperColours(const ColourScheme& chosen, const DrawnParts& parts) {
    constexpr Colour lightInk = Rgb(112, 112, 112);
    ColourScheme colours = chosen;
    if (parts.BlackAndWhite) {
        colours = {White, Black, Black, Black, Black, Black};
    } else if (TextColourOn(chosen.Background) == White) {
        colours = {White, Rgb(128, 128, 128), Black, Rgb(255, 0, 0), Rgb(0, 0, 255), Rgb(0, 128, 0)};
    }
    colours.Background = White;
    if (!parts.StockColours && !parts.BlackAndWhite) {
        colours.Owned = colours.NonOwned = Black;
        colours.Rail = parts.Surface ? Black : lightInk;
    }
    return colours;
}

/// A colour's brightness as a grey.
Colour GreyOf(Colour colour) {
    const auto light = static_cast<int>(0.299 * Red(colour) + 0.587 * Green(colour) + 0.114 * Blue(colour));
    return Rgb(light, light, light);
}

Box ExtentOfStrokes(const PiecePlacement& placement) {
    Box box;
    ForEachStroke(placement, Strokes::All, [&](const auto& shape) { box.Include(BoxOf(shape)); });
    return box;
}

bool IsDrawn(const DrawnParts& parts, int index) {
    return !parts.Run || (index >= parts.Run->First && index < parts.Run->First + parts.Run->Count);
}

void AddTrack(CircuitDrawing& drawing, const Catalogue& catalogue, const Circuit& circuit, int trackIndex,
              const std::vector<bool>& covered) {
    const Track& track = circuit.Tracks[static_cast<std::size_t>(trackIndex)];
    const ColourScheme& colours = drawing.Preferences.Colours;
    WalkTrack(catalogue, track, [&](int index, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr || !IsDrawn(drawing.Parts, index)) return;
        const auto at = static_cast<std::size_t>(index);
        drawing.Pieces.push_back({trackIndex, index, track.ElementCodes[at], *placement,
                                  covered[at] ? colours.Owned : colours.NonOwned, ExtentOfStrokes(*placement)});
    });
}

Box ExtentOf(const CircuitDrawing& drawing) {
    Box extent;
    for (const DrawnPiece& piece : drawing.Pieces) {
        extent.Include(piece.Extent);
        if (drawing.Parts.Numbers) extent.Include(BoxOf(piece.Placement.Label));
    }
    for (const RoomPoint& point : drawing.Room.Points)
        extent.Include(BoxOf(RoomCorner(drawing.Room, point)));
    return extent.IsEmpty() ? BoxAround(0, 0, 100, 100) : extent;
}

/// Whether a program that reads singles could tell two ends of a piece apart there.
bool CanBeDrawn(const Box& extent) {
    constexpr double farthest = 1e6; // cm
    return std::fabs(extent.Left) <= farthest && std::fabs(extent.Right) <= farthest &&
           std::fabs(extent.Bottom) <= farthest && std::fabs(extent.Top) <= farthest;
}

} // namespace

CircuitDrawing DrawingOf(const Catalogue& catalogue, const Project& project, const DrawnParts& parts) {
    const Circuit& circuit = project.Design.Circuit;
    CircuitDrawing drawing{.Name = ProjectName(project.EditState),
                           .Pieces = {},
                           .Room = project.Design.Room,
                           .Preferences = project.Preferences,
                           .Parts = parts,
                           .Extent = {}};
    if (!parts.Room) drawing.Room.Points.clear(); // but for its angle, with which the background turns
    if (parts.Background) drawing.Background = project.Background;
    drawing.Preferences.Colours = PaperColours(project.Preferences.Colours, parts);
    drawing.Preferences.Grid = GridToDraw(project.Preferences);
    const StockColours covered = AssignStockColours(catalogue, project.Stock, circuit);
    for (int track = 0; track < TrackCount; ++track) {
        if (parts.Track == AllTracks || parts.Track == track)
            AddTrack(drawing, catalogue, circuit, track, covered[static_cast<std::size_t>(track)]);
    }
    drawing.Extent = ExtentOf(drawing);
    if (!CanBeDrawn(drawing.Extent)) throw Overflow("the circuit lies more than 10 km from its origin");
    return drawing;
}

Box CircuitDrawing::Whole() const {
    Box whole = Extent;
    whole.Include(BackgroundExtent);
    return whole;
}

void DrawPieceOf(const CircuitDrawing& drawing, const DrawnPiece& piece, Surface& surface) {
    if (drawing.Parts.Surface) {
        for (const FilledArea& area : BedOf(piece.Placement, piece.Index == 0))
            surface.Fill(area.Polygon, drawing.Parts.BlackAndWhite ? GreyOf(area.Fill) : area.Fill);
    }
    DrawPiece(piece.Placement, piece.Outline, drawing.Preferences.Colours.Rail, surface);
}

double NumberSize(double pixelsPerCm) { return std::max(NumberHeight, NormalFont * PixelsPerPoint / pixelsPerCm); }

std::vector<WorldPoint> NumberPlate(WorldPoint label, std::size_t digits, double fontSize) {
    constexpr double digitWidth = 0.64; // of a font's size
    constexpr double lineHeight = 1.16;
    constexpr double margin = 0.1;
    const auto left = static_cast<float>(label.X - margin * fontSize);
    const auto right = static_cast<float>(label.X + (digitWidth * static_cast<double>(digits) + margin) * fontSize);
    const auto bottom = static_cast<float>(label.Y - lineHeight * fontSize);
    return {{left, label.Y}, {right, label.Y}, {right, bottom}, {left, bottom}};
}

void DrawStrokes(const CircuitDrawing& drawing, const Box& part, Surface& surface) {
    if (drawing.Parts.Grid) DrawGrid(drawing.Preferences, part.Shown(), part.Width(), surface);
    for (const DrawnPiece& piece : drawing.Pieces) {
        if (piece.Extent.Meets(part)) DrawPieceOf(drawing, piece, surface);
    }
    DrawRoom(drawing.Room, surface);
}

void DrawPart(const CircuitDrawing& drawing, const Box& part, Surface& surface) {
    DrawStrokes(drawing, part, surface);
    if (!drawing.Parts.Numbers) return;
    const Colour ink = TextColourOn(drawing.Preferences.Colours.Background);
    const double fontSize = NumberSize(surface.PixelsPerCm());
    const Box around = part.Wider(WidestNumber * fontSize);
    surface.SetFontSize(fontSize * surface.PixelsPerCm() / PixelsPerPoint);
    for (const DrawnPiece& piece : drawing.Pieces) {
        if (!BoxOf(piece.Placement.Label).Meets(around)) continue;
        if (drawing.Parts.Surface)
            surface.Fill(NumberPlate(piece.Placement.Label, NumberText(piece.Index).size(), fontSize), White);
        surface.DrawPoint(piece.Placement.Label, ink);
        surface.DrawText(NumberText(piece.Index), ink);
    }
}

GridSettings GridToDraw(const Preferences& preferences) {
    const GridSettings& set = preferences.Grid;
    const bool draws =
        (set.Type == static_cast<int>(GridType::Lines) || set.Type == static_cast<int>(GridType::Dots)) && set.Step > 0;
    return draws ? set : GridSettings{static_cast<std::int16_t>(GridType::Lines), 10};
}

} // namespace pistaro
