#include "imaging/cached_drawing.h"

#include "render/redraw.h"

#include <QFontMetrics>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>

namespace pistaro {

namespace {

QImage EmptyPicture(const CanvasFrame& frame) {
    QImage picture(PixelsOf(frame.Size, frame.PixelRatio), QImage::Format_RGB32);
    picture.setDevicePixelRatio(frame.PixelRatio);
    return picture;
}

QRectF WholeOf(const CanvasFrame& frame) { return {QPointF(0, 0), QSizeF(frame.Size)}; }

/// A painter and a surface on a part of a canvas whose drawing lies `offset` beside its place.
struct CanvasSurface {
    CanvasSurface(QImage& picture, const CanvasFrame& frame, QPointF offset, const QRectF& part, const QImage& backdrop)
        : Painter(&picture), Surface(Painter, TargetSize::Square(frame.Square().width()), backdrop) {
        if (part != WholeOf(frame)) Painter.setClipRect(part);
        const QPointF corner = frame.Square().topLeft() + offset;
        Painter.translate(corner);
        Surface.Uncover(part.translated(-corner));
    }

    QPainter Painter;
    PainterSurface Surface;
};

void DrawGroundOn(CanvasSurface& canvas, const Preferences& preferences, const ViewSettings& view,
                  const CanvasFrame& frame, const ViewRectangle& covered, TrackLook look,
                  const std::function<void(QPainter&, const PainterSurface&)>& paintScaled) {
    canvas.Surface.Clear(preferences.Colours.Background);
    ShowView(view, canvas.Surface);
    const ViewRectangle shown = ShownRectangle(view);
    canvas.Surface.RoundDots();
    const double width = double{shown.ViewRight} - shown.ViewLeft;
    if (look == TrackLook::Surface) {
        DrawRecedingGrid(preferences, covered, width, canvas.Surface);
    } else {
        DrawGrid(preferences, covered, width, canvas.Surface, preferences.Colours.Grid);
    }
    paintScaled(canvas.Painter, canvas.Surface); // through which the grid shines as far as the picture is faded
    canvas.Painter.resetTransform();
    canvas.Painter.translate(frame.Square().topLeft());
    DrawAreaLabel(preferences, shown, canvas.Surface);
}

/// Moves a picture's pixels; what comes in from beyond its edges keeps what stood there.
void Scroll(QImage& picture, QPoint by) {
    const int rows = picture.height() - std::abs(by.y());
    const std::ptrdiff_t pixelSize = sizeof(QRgb);
    const auto pixels = static_cast<std::size_t>(pixelSize * (picture.width() - std::abs(by.x())));
    const auto row = [&](int index) { return by.y() > 0 ? rows - 1 - index : index; };
    for (int index = 0; index < rows; ++index) {
        uchar* const from = picture.scanLine(row(index) + std::max(0, -by.y()));
        uchar* const to = picture.scanLine(row(index) + std::max(0, by.y()));
        std::memmove(to + pixelSize * std::max(0, by.x()), from + pixelSize * std::max(0, -by.x()), pixels);
    }
}

QRect Outwards(const QRectF& place) { return place.toAlignedRect().adjusted(-1, -1, 1, 1); }

/// What of a picture comes into sight when it is moved by so many of its pixels.
QRegion Uncovered(const CanvasFrame& frame, QPoint by) {
    const QRect whole(QPoint(0, 0), frame.Size);
    const QRectF kept = QRectF(QRect(by, PixelsOf(frame.Size, frame.PixelRatio)));
    const QRectF keptPlace(kept.topLeft() / frame.PixelRatio, kept.size() / frame.PixelRatio);
    const QRect stays = (keptPlace & WholeOf(frame)).toAlignedRect().adjusted(1, 1, -1, -1);
    QRegion uncovered = QRegion(whole) - stays;
    // Only where it came from: the other edges are what they were.
    if (by.x() >= 0) uncovered -= QRect(stays.right() + 1, stays.top(), whole.width(), stays.height());
    if (by.x() <= 0) uncovered -= QRect(whole.left(), stays.top(), stays.left(), stays.height());
    if (by.y() >= 0) uncovered -= QRect(stays.left(), stays.bottom() + 1, stays.width(), whole.height());
    if (by.y() <= 0) uncovered -= QRect(stays.left(), whole.top(), stays.width(), stays.top());
    return uncovered;
}

} // namespace

void CachedDrawing::DrawGroundOf(const QImage& backdrop) {
    ground_ = EmptyPicture(key_.Frame);
    picture_ = EmptyPicture(key_.Frame);
    hasBackdrop_ = !backdrop.isNull();
    CanvasSurface canvas(ground_, key_.Frame, {}, WholeOf(key_.Frame), backdrop);
    DrawGroundOn(canvas, key_.Preferences, key_.View, key_.Frame, key_.Frame.Covered(key_.View), key_.Look,
                 [this](QPainter& painter, const PainterSurface& surface) { PaintScaled(painter, surface); });
}

void CachedDrawing::PaintScaled(QPainter& painter, const PainterSurface& surface) const {
    if (!key_.Background) return;
    painter.setOpacity(key_.Background->Opacity);
    scaled_.Paint(painter, surface, *key_.Background, key_.Room);
    painter.setOpacity(1);
}

void CachedDrawing::DrawTracksOf(const Catalogue& catalogue, const Project& project, QRect part) {
    CanvasSurface canvas(picture_, key_.Frame, offset_, part, {});
    ShowView(project.Design.View, canvas.Surface);
    if (key_.Look == TrackLook::Surface) {
        DrawCircuitSurface(catalogue, project, BridgesIn(catalogue, project), canvas.Painter, canvas.Surface);
    } else {
        DrawCircuit(catalogue, project, canvas.Surface);
    }
}

const std::set<PieceAddress>& CachedDrawing::BridgesIn(const Catalogue& catalogue, const Project& project) {
    const Circuit& circuit = project.Design.Circuit;
    const int track = project.EditState.CurrentTrack;
    if (circuit != bridged_ || track != bridgedTrack_) {
        bridges_ = BridgesOf(catalogue, circuit, track);
        bridged_ = circuit;
        bridgedTrack_ = track;
    }
    return bridges_;
}

void CachedDrawing::Redraw(const Catalogue& catalogue, const Project& project, const QImage& backdrop,
                           const CanvasFrame& frame, TrackLook look, const QImage& scaled) {
    GroundKey key{project.Preferences, project.Design.View, backdrop.cacheKey(), frame, look,
                  project.Background,  RoomPolygon(),       scaled.cacheKey()};
    if (key.Background) key.Room = project.Design.Room;
    if (key.Scaled != key_.Scaled) scaled_ = ScaledBackdrop(scaled);
    if (key != key_ || !offset_.isNull() || ground_.isNull()) {
        key_ = std::move(key);
        offset_ = {};
        DrawGroundOf(backdrop);
    }
    std::copy_n(ground_.constBits(), ground_.sizeInBytes(), picture_.bits());
    DrawTracksOf(catalogue, project, QRect(QPoint(0, 0), frame.Size));
}

QRect CachedDrawing::AreaLabelPlace() const {
    constexpr double leftEdge = 0.02; // of the view's width, as the label's height
    constexpr double height = 0.05;
    constexpr int room = 24; // pixels for the text's line
    const QRect square = key_.Frame.Square();
    return {square.left() + static_cast<int>(leftEdge * square.width()) - 2,
            square.bottom() - static_cast<int>(height * square.width()) - 2, square.width() / 2, room};
}

bool CachedDrawing::Shift(const Catalogue& catalogue, const Project& project) {
    const ViewSettings& view = project.Design.View;
    if (picture_.isNull() || hasBackdrop_ || view.Width != key_.View.Width) return false;
    const CanvasFrame& frame = key_.Frame;
    const QPointF exact =
        (frame.PlaceOf({key_.View.MidX, key_.View.MidY}, view) - frame.PlaceOf({view.MidX, view.MidY}, view)) *
        frame.PixelRatio;
    const QPoint by = (exact - offset_ * frame.PixelRatio).toPoint();
    if (std::abs(by.x()) >= picture_.width() || std::abs(by.y()) >= picture_.height()) return false;

    Scroll(ground_, by);
    Scroll(picture_, by);
    offset_ += (QPointF(by) - exact) / frame.PixelRatio;
    const QRect label = AreaLabelPlace();
    const QRect movedLabel = Outwards(QRectF(label).translated(QPointF(by) / frame.PixelRatio));
    key_.View = view;
    const ViewRectangle covered = frame.Covered(view);
    for (const QRect& part : Uncovered(frame, by) + label + movedLabel) {
        {
            CanvasSurface ground(ground_, frame, offset_, part, {});
            DrawGroundOn(ground, key_.Preferences, view, frame, covered, key_.Look,
                         [this](QPainter& painter, const PainterSurface& surface) { PaintScaled(painter, surface); });
        }
        QPainter(&picture_).drawImage(
            part, ground_, QRectF(QPointF(part.topLeft()) * frame.PixelRatio, QSizeF(part.size()) * frame.PixelRatio));
        DrawTracksOf(catalogue, project, part);
    }
    return true;
}

void CachedDrawing::PaintStretched(QPainter& painter, const ViewSettings& view) const {
    const CanvasFrame& frame = key_.Frame;
    const ViewRectangle kept = frame.Covered(key_.View);
    const QRectF place(frame.PlaceOf({kept.ViewLeft, kept.ViewTop}, view),
                       frame.PlaceOf({kept.ViewRight, kept.ViewBottom}, view));
    painter.fillRect(WholeOf(frame), ToQColor(key_.Preferences.Colours.Background));
    painter.drawImage(place, picture_, QRectF(picture_.rect()));
}

} // namespace pistaro
