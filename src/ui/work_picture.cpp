#include "ui/work_picture.h"

#include "editor/view_commands.h"
#include "imaging/canvas_frame.h"
#include "render/redraw.h"
#include "storage/settings_file.h"
#include "ui/canvas_colours.h"

#include <QApplication>

#include <algorithm>

namespace pistaro {

namespace {

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

} // namespace

QImage WorkPicture(const Catalogue& catalogue, const Design& design, const Preferences& preferences, QSize size,
                   double pixelRatio, const MarkedPieces& marked) {
    QImage image(size * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    const ColourScheme colours =
        CanvasColours(preferences.Colours, InitialSettings(catalogue).Preferences.Colours, QApplication::palette());
    QPainter painter(&image);
    painter.fillRect(QRect(QPoint(0, 0), size), ToQColor(colours.Background));
    painter.translate(CornerOf(size));
    PainterSurface surface(painter, TargetSize::Square(SideOf(size)));
    ShowView(ViewOf(catalogue, design, size), surface);
    DrawSmallPicture(catalogue, design, colours, marked, painter, surface);
    return image;
}

WorldPoint GroundAt(QPointF place, const Catalogue& catalogue, const Design& design, QSize size) {
    const CanvasFrame square{QSize(SideOf(size), SideOf(size)), 1};
    return square.WorldAt(place - CornerOf(size), ViewOf(catalogue, design, size));
}

} // namespace pistaro
