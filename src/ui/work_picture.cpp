#include "ui/work_picture.h"

#include "editor/view_commands.h"
#include "imaging/overlay.h"
#include "imaging/painter_surface.h"
#include "layout/outline.h"
#include "render/redraw.h"
#include "storage/settings_file.h"
#include "ui/canvas_colours.h"

#include <QApplication>

#include <algorithm>

namespace pistaro {

namespace {

constexpr Colour ColourOfNew = Rgb(230, 130, 0);

/// What is shown: all pieces and the room's corners, or where those lie far apart what lies near the pieces.
std::optional<GroundBox> ShownOf(const Catalogue& catalogue, const Design& design) {
    constexpr double farLarger = 3;
    Design alone = design;
    alone.Room = {};
    const std::optional<GroundBox> all = ExtentOf(catalogue, design);
    const std::optional<GroundBox> pieces = ExtentOf(catalogue, alone);
    if (!pieces) return all;
    const double across = pieces->Right - pieces->Left;
    const double up = pieces->Top - pieces->Bottom;
    const bool isFarLarger = all->Right - all->Left > farLarger * across && all->Top - all->Bottom > farLarger * up;
    return isFarLarger ? pieces->Grown(std::max(across, up) / 2) : all;
}

/// A square view in whose middle part, of this size, that is seen with a margin.
ViewSettings ViewOf(const GroundBox& box, QSize size) {
    constexpr float margin = 10; // cm
    constexpr float least = 60;
    ViewSettings view;
    view.MidX = static_cast<float>(box.Left + box.Right) / 2;
    view.MidY = static_cast<float>(box.Bottom + box.Top) / 2;
    const auto side = static_cast<float>(std::max(size.width(), size.height()));
    const auto needed = [&](double extent, int pixels) {
        return (static_cast<float>(extent) + 2 * margin) * side / static_cast<float>(pixels);
    };
    view.Width =
        std::max({least, needed(box.Right - box.Left, size.width()), needed(box.Top - box.Bottom, size.height())});
    return view;
}

ViewSettings ViewOf(const Catalogue& catalogue, const Design& design, QSize size) {
    const auto shown = ShownOf(catalogue, design);
    return shown ? ViewOf(*shown, size) : design.View;
}

/// Of the view's square, in whose middle the picture lies, and where its corner lies seen from the picture's.
int SideOf(QSize size) { return std::max(size.width(), size.height()); }
QPointF CornerOf(QSize size) { return {(size.width() - SideOf(size)) / 2.0, (size.height() - SideOf(size)) / 2.0}; }

/// Tints the pieces' ground, in a square that shows the view.
void MarkPieces(const Catalogue& catalogue, const Project& project, const MarkedPieces& marked, int side,
                QPainter& painter) {
    constexpr double tolerance = 0.5; // cm
    Overlay marks;
    WalkTrack(catalogue, project.Design.Circuit.Tracks[static_cast<std::size_t>(marked.Track)],
              [&](int element, const PiecePlacement* piece, const Pose&) {
                  const bool isKept = std::ranges::binary_search(marked.Kept, element);
                  if (piece == nullptr || (!isKept && !std::ranges::binary_search(marked.New, element))) return;
                  marks.emplace_back(
                      OverlayArea{.Polygon = OutlinePolygon(*piece, tolerance),
                                  .InkColour = isKept ? project.Preferences.Colours.Active : ColourOfNew});
              });
    PaintOverlay(marks, catalogue, project.Design.View, {QSize(side, side), 1}, painter);
}

} // namespace

QImage WorkPicture(const Catalogue& catalogue, const Design& design, const Preferences& preferences, QSize size,
                   double pixelRatio, const MarkedPieces& marked) {
    const int side = SideOf(size);
    QImage image(size * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    const ColourScheme colours =
        CanvasColours(preferences.Colours, InitialSettings(catalogue).Preferences.Colours, QApplication::palette());
    Project project;
    project.Design = design;
    project.Design.View = ViewOf(catalogue, design, size);
    project.Stock.Products.resize(static_cast<std::size_t>(catalogue.Count()));
    project.Preferences = preferences;
    project.Preferences.Colours = colours;
    project.EditState.CurrentTrack = AllTracks;
    QPainter painter(&image);
    painter.fillRect(QRect(QPoint(0, 0), size), ToQColor(colours.Background));
    painter.translate(CornerOf(size));
    PainterSurface surface(painter, TargetSize::Square(side));
    ShowView(project.Design.View, surface);
    DrawCircuit(catalogue, project, surface);
    if (!marked.Kept.empty() || !marked.New.empty()) MarkPieces(catalogue, project, marked, side, painter);
    return image;
}

WorldPoint GroundAt(QPointF place, const Catalogue& catalogue, const Design& design, QSize size) {
    const CanvasFrame square{QSize(SideOf(size), SideOf(size)), 1};
    return square.WorldAt(place - CornerOf(size), ViewOf(catalogue, design, size));
}

} // namespace pistaro
