// Grid, label, tracks, room.
#include "render/redraw.h"

#include "render/stock_colours.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

/// A finer grid than this would be an even tint, and an endless one would never be drawn.
constexpr double MostGridLines = 500;

constexpr double WideView = 400; ///< cm; beyond it texts are small
constexpr double SmallFont = 6;  ///< points

/// Multiples of the step, from one step before a range to one step behind it.
struct GridLines {
    GridLines(double from, double to, double spacing)
        : Step(spacing), First(std::floor((from - spacing) / spacing)), Last(std::floor((to + spacing) / spacing)) {}

    double Step, First, Last;

    int Count() const { return static_cast<int>(Last - First) + 1; }
    float At(int i) const { return static_cast<float>(Step * (First + i)); }
    float Begin() const { return At(0); }
    float End() const { return At(Count() - 1); }
};

void DrawGridLines(const GridLines& columns, const GridLines& rows, Surface& surface) {
    for (int i = 0; i < columns.Count(); ++i) {
        surface.Draw(LineStroke{{columns.At(i), rows.End()}, {columns.At(i), rows.Begin()}}, GridColour);
    }
    for (int i = rows.Count() - 1; i >= 0; --i) {
        surface.Draw(LineStroke{{columns.Begin(), rows.At(i)}, {columns.End(), rows.At(i)}}, GridColour);
    }
}

void DrawGridDots(const GridLines& columns, const GridLines& rows, double radius, Surface& surface) {
    for (int i = 0; i < columns.Count(); ++i) {
        for (int j = rows.Count() - 1; j >= 0; --j) {
            surface.Draw(EllipseStroke{{columns.At(i), rows.At(j)}, radius, 1}, GridColour);
        }
    }
}

void DrawAreaLabel(const Project& project, Surface& surface) {
    const ViewRectangle shown = ShownRectangle(project.View);
    const double width = double{shown.ViewRight} - shown.ViewLeft;
    surface.DrawPoint(
        {static_cast<float>(shown.ViewLeft + width * 2 / 100), static_cast<float>(shown.ViewBottom + width * 5 / 100)},
        TextColour);
    surface.DrawText(AreaLabel(width, project.DisplayUnits), TextColour);
}

void DrawTrack(const Project& project, int trackIndex, const std::vector<bool>& covered, Surface& surface) {
    const ColourScheme& colours = project.Colours;
    const Track& track = project.Layout.Tracks[static_cast<std::size_t>(trackIndex)];
    const auto outlineOf = [&](int element) {
        if (trackIndex != project.Layout.CurrentTrack) return colours.Inactive;
        if (element == track.CurrentElement) return colours.Active;
        return covered[static_cast<std::size_t>(element)] ? colours.Owned : colours.NonOwned;
    };
    WalkTrack(track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr) return;
        DrawPiece(*placement, outlineOf(element), colours.Rail, surface);
        if (!project.ShowNumbers) return;
        surface.DrawPoint(placement->Label, TextColour);
        surface.DrawText(NumberText(element), TextColour);
    });
}

} // namespace

void DrawPiece(const PiecePlacement& placement, Colour outline, Colour rail, Surface& surface) {
    for (const Stroke& stroke : placement.Drawing) {
        const Colour colour = stroke.StrokeInk == Ink::Rail ? rail : outline;
        std::visit([&](const auto& shape) { surface.Draw(shape, colour); }, stroke.Shape);
    }
}

void DrawGrid(const Project& project, Surface& surface) {
    const ViewRectangle shown = ShownRectangle(project.View);
    const double width = double{shown.ViewRight} - shown.ViewLeft;
    const double step = double{project.DisplayUnits.UnitFactor()} * project.Grid.Step;
    if (!(step > 0 && width > 0 && width / step <= MostGridLines)) return;
    const GridLines columns(shown.ViewLeft, shown.ViewRight, step);
    const GridLines rows(shown.ViewBottom, shown.ViewTop, step);
    if (project.Grid.Type == static_cast<int>(GridType::Lines)) {
        DrawGridLines(columns, rows, surface);
    } else if (project.Grid.Type == static_cast<int>(GridType::Dots)) {
        DrawGridDots(columns, rows, width / 500, surface);
    }
}

WorldPoint RoomCorner(const RoomPolygon& room, const RoomPoint& point) {
    const double cosine = std::cos(double{room.Angle});
    const double sine = std::sin(double{room.Angle});
    return {static_cast<float>(point.X * cosine + point.Y * sine),
            static_cast<float>(point.Y * cosine - point.X * sine)};
}

ViewRectangle RoomRectangle(const RoomPolygon& room) {
    constexpr double leastWidth = 100; // cm
    constexpr double margin = 1.2;
    const WorldPoint first = room.Points.empty() ? WorldPoint{} : RoomCorner(room, room.Points.front());
    WorldPoint least = first;
    WorldPoint most = first;
    for (const RoomPoint& point : room.Points) {
        const WorldPoint corner = RoomCorner(room, point);
        least = {std::min(least.X, corner.X), std::min(least.Y, corner.Y)};
        most = {std::max(most.X, corner.X), std::max(most.Y, corner.Y)};
    }
    const double extent = std::max(double{most.X} - least.X, double{most.Y} - least.Y);
    ViewSettings view;
    view.MidX = (least.X + most.X) / 2;
    view.MidY = (least.Y + most.Y) / 2;
    view.Width = static_cast<float>(std::max(leastWidth, extent * margin));
    return ShownRectangle(view);
}

void DrawRoom(const RoomPolygon& room, Surface& surface) {
    if (room.Points.empty()) return;
    WorldPoint previous = RoomCorner(room, room.Points.front());
    for (const RoomPoint& point : room.Points) {
        const WorldPoint here = RoomCorner(room, point);
        if (point.Line == 1) surface.Draw(LineStroke{previous, here}, RoomColour);
        previous = here;
    }
}

void RedrawCircuit(Project& project, Surface& surface) {
    surface.Clear(project.Colours.Background);
    surface.SetScale(ShownRectangle(project.View));
    surface.SetFontSize(project.View.Width > WideView ? SmallFont : NormalFont);
    DrawGrid(project, surface);
    DrawAreaLabel(project, surface);

    const StockColours covered = AssignStockColours(project);
    const auto draw = [&](int track) { DrawTrack(project, track, covered[static_cast<std::size_t>(track)], surface); };
    const int current = project.Layout.CurrentTrack;
    for (int track = 0; track < TrackCount; ++track) {
        if (track != current) draw(track);
    }
    if (!project.Layout.ShowsAllTracks()) draw(current);
    DrawRoom(project.Room, surface);
}

} // namespace pistaro
