// The drawing of a window: redrawn at every change, of which few concern what lies under the tracks, and moved as it is
// while the view is.
#pragma once

#include "imaging/canvas_frame.h"
#include "imaging/painter_surface.h"
#include "imaging/scaled_backdrop.h"
#include "imaging/track_surface.h"
#include "model/project.h"

#include <QRegion>

namespace pistaro {

class CachedDrawing {
public:
    /// Redraws the circuit; by its lines, the view's square to the pixel as RedrawCircuit does. The ground, whose grid
    /// may have ten thousand dots, is drawn when it changes, and copied otherwise. `scaled` is the picture of the
    /// project's background.
    void Redraw(const Catalogue& catalogue, const Project& project, const QImage& backdrop, const CanvasFrame& frame,
                TrackLook look = TrackLook::Lines, const QImage& scaled = {});

    /// Brings the drawing to a view of another centre, when nothing else has changed since it was drawn: moves what is
    /// kept by whole pixels and draws what comes into sight, so that it lies up to half a pixel beside its place until
    /// the next redraw. False, and nothing done, where it must be redrawn.
    bool Shift(const Catalogue& catalogue, const Project& project);

    /// Paints the drawing as it is kept where it lies in another view, larger or smaller.
    void PaintStretched(QPainter& painter, const ViewSettings& view) const;

    /// As it was redrawn last; null before.
    const QImage& Picture() const { return picture_; }

private:
    /// All that the ground depends on.
    struct GroundKey {
        pistaro::Preferences Preferences;
        ViewSettings View;
        qint64 Backdrop = 0;
        CanvasFrame Frame;
        TrackLook Look = TrackLook::Lines;
        std::shared_ptr<const ScaledBackground> Background; ///< to scale
        RoomPolygon Room;                                   ///< which it turns with; empty without it
        qint64 Scaled = 0;

        bool operator==(const GroundKey&) const = default;
    };

    void DrawGroundOf(const QImage& backdrop);
    /// The background that is to scale, for the ground.
    void PaintScaled(QPainter& painter, const PainterSurface& surface) const;
    void DrawTracksOf(const Catalogue& catalogue, const Project& project, QRect part);
    const std::set<PieceAddress>& BridgesIn(const Catalogue& catalogue, const Project& project);
    QRect AreaLabelPlace() const;

    GroundKey key_;
    ScaledBackdrop scaled_;
    bool hasBackdrop_ = false;
    QPointF offset_;  ///< where the drawing lies beside its place, after shifts, device-independent pixels
    Circuit bridged_; ///< whose bridges are kept, and its chosen track
    int bridgedTrack_ = 0;
    std::set<PieceAddress> bridges_;
    QImage ground_;
    QImage picture_;
};

} // namespace pistaro
