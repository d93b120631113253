#include "imaging/scaled_backdrop.h"

#include "imaging/backdrop.h"

#include <cmath>
#include <numbers>

namespace pistaro {

WorldPoint MiddleOf(const ScaledBackground& background, const RoomPolygon& room) {
    const double cosine = std::cos(double{room.Angle});
    const double sine = std::sin(double{room.Angle});
    return {static_cast<float>(background.X * cosine + background.Y * sine),
            static_cast<float>(background.Y * cosine - background.X * sine)};
}

namespace {

Box ExtentOf(const ScaledBackground& background, const RoomPolygon& room, QSizeF pixels) {
    const double angle = double{room.Angle} + background.Angle;
    const double cosine = std::fabs(std::cos(angle));
    const double sine = std::fabs(std::sin(angle));
    const QSizeF size = pixels * background.CmPerPixel;
    const WorldPoint middle = MiddleOf(background, room);
    return BoxAround(middle.X, middle.Y, size.width() * cosine + size.height() * sine,
                     size.width() * sine + size.height() * cosine);
}

/// A picture as it shows on white paper.
QImage Faded(const QImage& picture, double opacity) {
    if (opacity >= 1) return picture;
    QImage faded(picture.size(), QImage::Format_RGB32);
    faded.fill(Qt::white);
    QPainter painter(&faded);
    painter.setOpacity(opacity);
    painter.drawImage(QPoint(0, 0), picture);
    return faded;
}

} // namespace

ScaledBackdrop::ScaledBackdrop(QImage picture) {
    constexpr int least = 256; // pixels
    while (!picture.isNull()) {
        levels_.push_back(picture);
        if (picture.width() < 2 * least || picture.height() < 2 * least) return;
        picture = picture.scaled(picture.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
}

void ScaledBackdrop::Paint(QPainter& painter, const PainterSurface& surface, const ScaledBackground& background,
                           const RoomPolygon& room) const {
    if (levels_.empty()) return;
    const double dots = background.CmPerPixel * surface.DotsPerCm(); // of the target, a pixel
    if (!std::isfinite(dots)) return;
    std::size_t level = 0;
    while (level + 1 < levels_.size() && dots * static_cast<double>(std::size_t{2} << level) <= 1)
        ++level;
    const QImage& picture = levels_[level];
    const QSizeF whole = levels_.front().size();
    const QPointF middle = surface.PlaceOf(MiddleOf(background, room));
    QTransform place = QTransform::fromTranslate(middle.x(), middle.y());
    place.rotate((double{room.Angle} + background.Angle) * 180 / std::numbers::pi);
    place.scale(dots * whole.width() / picture.width(), dots * whole.height() / picture.height());
    place.translate(-picture.width() / 2.0, -picture.height() / 2.0);
    bool canBeSeen = false;
    const QTransform back = place.inverted(&canBeSeen);
    if (!canBeSeen) return;
    // Of a picture that is far larger than the view only what is seen: painters count no further than some thousand
    // dots.
    const QRect seen = back.mapRect(surface.Part()).toAlignedRect().adjusted(-2, -2, 2, 2) & picture.rect();
    if (seen.isEmpty()) return;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(place, true);
    painter.drawImage(seen.topLeft(), picture, seen);
    painter.restore();
}

Box GroundUnder(const ScaledBackground& background, const RoomPolygon& room, DecodedPicture& pictures) {
    return ExtentOf(background, room, pictures.Of(background.Picture, "background").Image().size());
}

std::shared_ptr<const ScaledBackdrop> TakeBackdrop(CircuitDrawing& drawing, DecodedPicture& pictures) {
    if (!drawing.Background) return {};
    const ScaledBackground& background = *drawing.Background;
    drawing.BackgroundExtent = GroundUnder(background, drawing.Room, pictures);
    QImage picture = Faded(pictures.Of(background.Picture, "background").Image(), background.Opacity);
    if (drawing.Parts.BlackAndWhite) picture.convertTo(QImage::Format_Grayscale8);
    return std::make_shared<const ScaledBackdrop>(picture);
}

} // namespace pistaro
