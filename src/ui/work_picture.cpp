#include "ui/work_picture.h"

#include "imaging/painter_surface.h"
#include "layout/piece_extent.h"
#include "render/redraw.h"

#include <algorithm>

namespace pistaro {

namespace {

/// The square around all pieces and the room, with a margin.
ViewSettings ViewOfAll(const Catalogue& catalogue, const Design& design) {
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
    if (!design.Room.Points.empty()) {
        const ViewRectangle room = RoomRectangle(design.Room);
        places.push_back({room.ViewLeft, room.ViewBottom});
        places.push_back({room.ViewRight, room.ViewTop});
    }
    if (places.empty()) return design.View;
    const auto [left, right] = std::ranges::minmax(places, {}, &WorldPoint::X);
    const auto [bottom, top] = std::ranges::minmax(places, {}, &WorldPoint::Y);
    ViewSettings view;
    view.MidX = (left.X + right.X) / 2;
    view.MidY = (bottom.Y + top.Y) / 2;
    view.Width = std::max({least, right.X - left.X, top.Y - bottom.Y}) + 2 * margin;
    return view;
}

} // namespace

QImage WorkPicture(const Catalogue& catalogue, const Design& design, const Preferences& preferences, int side,
                   double pixelRatio) {
    const int pixels = static_cast<int>(side * pixelRatio);
    QImage image(pixels, pixels, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    Project project;
    project.Design = design;
    project.Design.View = ViewOfAll(catalogue, design);
    project.Stock.Products.resize(static_cast<std::size_t>(catalogue.Count()));
    project.Preferences = preferences;
    project.EditState.CurrentTrack = AllTracks;
    QPainter painter(&image);
    PainterSurface surface(painter, TargetSize::Square(side));
    surface.Clear(preferences.Colours.Background);
    ShowView(project.Design.View, surface);
    DrawCircuit(catalogue, project, surface);
    return image;
}

} // namespace pistaro
