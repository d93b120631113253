#include "render/redraw.h"

#include "layout/room_lines.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

/// A finer grid than this would be an even tint.
constexpr double LeastGridStep = 6; ///< pixels

constexpr double WideView = 400; ///< cm; beyond it texts are small
constexpr double SmallFont = 6;  ///< points

/// The step that is drawn: 1, 2, 5, 10 … times the one that is set.
double ThinnedStep(double step, double pixelsPerCm) {
    for (double tens = 1;; tens *= 10) {
        for (const double times : {1.0, 2.0, 5.0}) {
            // Written so that the loop ends where the scale is not a number, too.
            if (!(step * tens * times * pixelsPerCm < LeastGridStep)) return step * tens * times;
        }
    }
}

PieceStanding StandingOf(const EditState& edit, int track, int element, const std::vector<bool>& covered) {
    if (track != edit.CurrentTrack) return PieceStanding::Inactive;
    if (element == edit.CurrentElement[static_cast<std::size_t>(track)]) return PieceStanding::Active;
    return covered[static_cast<std::size_t>(element)] ? PieceStanding::Owned : PieceStanding::NonOwned;
}

void DrawTrack(const Catalogue& catalogue, const Project& project, int track, const std::vector<bool>& covered,
               const TrackParts& parts, Surface& surface) {
    const ColourScheme& colours = project.Preferences.Colours;
    const Colour textColour = TextColourOn(colours.Background);
    WalkTrack(catalogue, project.Design.Circuit.Tracks[static_cast<std::size_t>(track)],
              [&](int element, const PiecePlacement* placement, const BuildCursor&) {
                  if (placement == nullptr) return;
                  const PieceStanding standing = StandingOf(project.EditState, track, element, covered);
                  if (parts.Under) parts.Under({track, element, *placement, standing});
                  if (parts.Pieces) DrawPiece(*placement, OutlineColour(standing, colours), colours.Rail, surface);
                  if (!parts.Numbers) return;
                  surface.DrawPoint(placement->Label, textColour);
                  surface.DrawText(NumberText(element), textColour);
              });
}

} // namespace

Colour OutlineColour(PieceStanding standing, const ColourScheme& colours) {
    switch (standing) {
    case PieceStanding::Inactive:
        return colours.Inactive;
    case PieceStanding::Active:
        return colours.Active;
    case PieceStanding::Owned:
        return colours.Owned;
    case PieceStanding::NonOwned:
        return colours.NonOwned;
    }
    return colours.Inactive;
}

void DrawPiece(const PiecePlacement& placement, Colour outline, Colour rail, Surface& surface) {
    const auto draw = [&](const auto& shapes, Colour colour) {
        std::visit([&](const auto& shape) { surface.Draw(shape, colour); }, shapes);
    };
    for (const Lane& lane : placement.Lanes) {
        for (const Segment& segment : lane.Path)
            draw(segment, rail);
    }
    for (const Segment& segment : placement.Outline)
        draw(segment, outline);
    for (const Mark& mark : placement.Marks)
        draw(mark.Shape, mark.Ink == Ink::Rail ? rail : outline);
}

void DrawGrid(const Preferences& preferences, const ViewRectangle& covered, double viewWidth, Surface& surface,
              Colour colour) {
    const double set = double{preferences.Units.UnitFactor()} * preferences.Grid.Step;
    if (!(set > 0 && viewWidth > 0)) return;
    const double step = ThinnedStep(set, surface.PixelsPerCm());
    const GridLines columns(covered.ViewLeft, covered.ViewRight, step);
    const GridLines rows(covered.ViewBottom, covered.ViewTop, step);
    if (preferences.Grid.Type == static_cast<int>(GridType::Lines)) {
        surface.DrawGridLines(columns, rows, colour);
    } else if (preferences.Grid.Type == static_cast<int>(GridType::Dots)) {
        surface.DrawGridDots(columns, rows, viewWidth / 500, colour);
    }
}

void DrawAreaLabel(const Preferences& preferences, const ViewRectangle& shown, Surface& surface) {
    const double width = double{shown.ViewRight} - shown.ViewLeft;
    const Colour colour = TextColourOn(preferences.Colours.Background);
    surface.DrawPoint(
        {static_cast<float>(shown.ViewLeft + width * 2 / 100), static_cast<float>(shown.ViewBottom + width * 5 / 100)},
        colour);
    surface.DrawText(AreaLabel(width, preferences.Units), colour);
}

void DrawTracks(const Catalogue& catalogue, const Project& project, const TrackParts& parts, Surface& surface) {
    const StockColours covered = AssignStockColours(catalogue, project.Stock, project.Design.Circuit);
    const auto draw = [&](int track) {
        DrawTrack(catalogue, project, track, covered[static_cast<std::size_t>(track)], parts, surface);
    };
    const int current = project.EditState.CurrentTrack;
    for (int track = 0; track < TrackCount; ++track) {
        if (track != current) draw(track);
    }
    if (current != AllTracks) draw(current);
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

void DrawRoom(const RoomPolygon& room, Surface& surface, Colour colour) {
    ForEachRoomLine(room, [&](const LineSegment& line) { surface.Draw(line, colour); });
}

void ShowView(const ViewSettings& view, Surface& surface) {
    surface.SetScale(ShownRectangle(view));
    surface.SetFontSize(view.Width > WideView ? SmallFont : NormalFont);
}

void DrawGround(const Preferences& preferences, const ViewSettings& view, Surface& surface) {
    const ViewRectangle shown = ShownRectangle(view);
    surface.Clear(preferences.Colours.Background);
    ShowView(view, surface);
    DrawGrid(preferences, shown, double{shown.ViewRight} - shown.ViewLeft, surface);
    DrawAreaLabel(preferences, shown, surface);
}

void DrawCircuit(const Catalogue& catalogue, const Project& project, Surface& surface) {
    DrawTracks(catalogue, project, {.Pieces = true, .Numbers = project.EditState.ShowNumbers}, surface);
    DrawRoom(project.Design.Room, surface, project.Preferences.Colours.Room);
}

void RedrawCircuit(const Catalogue& catalogue, const Project& project, Surface& surface) {
    DrawGround(project.Preferences, project.Design.View, surface);
    DrawCircuit(catalogue, project, surface);
}

} // namespace pistaro
