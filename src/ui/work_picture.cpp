#include "ui/work_picture.h"

#include "imaging/overlay.h"
#include "imaging/painter_surface.h"
#include "layout/outline.h"
#include "layout/piece_extent.h"
#include "render/redraw.h"
#include "storage/settings_file.h"
#include "ui/canvas_colours.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

/// A square view in whose middle part, of this size, all pieces and the room are seen with a margin.
ViewSettings ViewOfAll(const Catalogue& catalogue, const Design& design, QSize size) {
    constexpr float margin = 10; // cm
    constexpr float least = 60;
    std::vector<WorldPoint> places;
    for (const Track& track : design.Circuit.Tracks) {
        WalkTrack(catalogue, track, [&](int, const PiecePlacement* piece, const Pose&) {
            if (piece == nullptr) return;
            const PieceExtent extent = ExtentOf(*piece);
            places.push_back({extent.Left, extent.Bottom});
            places.push_back({extent.Right, extent.Top});
        });
    }
    for (const RoomPoint& point : design.Room.Points)
        places.push_back(RoomCorner(design.Room, point));
    if (places.empty()) return design.View;
    const auto [left, right] = std::ranges::minmax(places, {}, &WorldPoint::X);
    const auto [bottom, top] = std::ranges::minmax(places, {}, &WorldPoint::Y);
    ViewSettings view;
    view.MidX = (left.X + right.X) / 2;
    view.MidY = (bottom.Y + top.Y) / 2;
    const auto side = static_cast<float>(std::max(size.width(), size.height()));
    const float across = (right.X - left.X + 2 * margin) * side / static_cast<float>(size.width());
    const float up = (top.Y - bottom.Y + 2 * margin) * side / static_cast<float>(size.height());
    view.Width = std::max({least, across, up});
    return view;
}

/// Tints the pieces' ground, in a square that shows the view.
void MarkPieces(const Catalogue& catalogue, const Project& project, MarkedPieces marked, int side, QPainter& painter) {
    constexpr double tolerance = 0.5; // cm
    Overlay marks;
    WalkTrack(catalogue, project.Design.Circuit.Tracks[static_cast<std::size_t>(marked.Track)],
              [&](int element, const PiecePlacement* piece, const Pose&) {
                  if (piece == nullptr || std::cmp_greater_equal(element, marked.Count)) return;
                  marks.emplace_back(OverlayArea{.Polygon = OutlinePolygon(*piece, tolerance),
                                                 .InkColour = project.Preferences.Colours.Active});
              });
    PaintOverlay(marks, catalogue, project.Design.View, {QSize(side, side), 1}, painter);
}

} // namespace

QImage WorkPicture(const Catalogue& catalogue, const Design& design, const Preferences& preferences, QSize size,
                   double pixelRatio, MarkedPieces marked) {
    const int side = std::max(size.width(), size.height());
    QImage image(size * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    const ColourScheme colours =
        CanvasColours(preferences.Colours, InitialSettings(catalogue).Preferences.Colours, QApplication::palette());
    Project project;
    project.Design = design;
    project.Design.View = ViewOfAll(catalogue, design, size);
    project.Stock.Products.resize(static_cast<std::size_t>(catalogue.Count()));
    project.Preferences = preferences;
    project.Preferences.Colours = colours;
    project.EditState.CurrentTrack = AllTracks;
    QPainter painter(&image);
    painter.fillRect(QRect(QPoint(0, 0), size), ToQColor(colours.Background));
    painter.translate((size.width() - side) / 2.0, (size.height() - side) / 2.0);
    PainterSurface surface(painter, TargetSize::Square(side));
    ShowView(project.Design.View, surface);
    DrawCircuit(catalogue, project, surface);
    if (marked.Count > 0) MarkPieces(catalogue, project, marked, side, painter);
    return image;
}

} // namespace pistaro
