// The drawing area: the circuit drawn onto a picture that is kept, what lies above it for a while.
#pragma once

#include "commands/session.h"
#include "imaging/cached_drawing.h"
#include "imaging/overlay.h"
#include "layout/ground.h"
#include "layout/shapes.h"
#include "ui/canvas_legend.h"

#include <QTimer>
#include <QWidget>

#include <map>
#include <optional>

namespace pistaro {

class CircuitView : public QWidget {
public:
    explicit CircuitView(Session& session);

    /// Has the circuit brought up to date before it is shown next: what changes several times until then is drawn once.
    void Invalidate(const Changes& changes);

    /// Redraws the circuit from the data.
    void Redraw();

    /// The drawing as it stands, without what lies above it.
    const QImage& Picture();

    /// Shows these above the circuit, in place of what the same owner showed before. Owners lie above each other in the
    /// order of their names. The circuit is not drawn again for it.
    void SetOverlay(const std::string& owner, Overlay overlay);
    void ClearOverlay(const std::string& owner);
    const Overlay& OverlayOf(const std::string& owner) const;

    /// Shows the picture under the circuit as it may come to lie there, with null as it does lie.
    void ProposeBackground(std::shared_ptr<const ScaledBackground> proposed);

    /// In which the circuit is drawn: the desktop's where they follow it.
    ColourScheme Colours() const;

    /// The view moved no further than it takes to show a place of the drawing, and zoomed out where that is larger.
    ViewSettings ViewWith(const GroundBox& box, ViewSettings view) const;

    /// What the lanes' colours mean, which the legend tells; nothing while they are not shown.
    void ShowLaneLegend(std::vector<LegendEntry> entries);
    const std::vector<LegendEntry>& LaneLegend() const { return laneLegend_; }

    /// Whether the selected piece is told from others, which it need not be beside what is proposed.
    void ShowSelection(bool shows);

    /// Whether it says in a line how an empty circuit is begun.
    void Invite(bool invites);

    /// Where the legend lies; empty while there is none.
    QRectF PlaceOfLegend() const;

    /// Where the corners of all that is laid lie on it.
    std::vector<QPointF> PlacesOfCorners() const;

    /// Where the view's square lies, and what of the world is shown beside it.
    CanvasFrame Frame() const { return {size(), devicePixelRatioF()}; }
    WorldPoint WorldAt(QPointF place) const;
    QPointF PlaceOf(WorldPoint point) const;

    /// Moves the view where it does not show the middle of a piece.
    void Follow(const PieceAddress& piece);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    const ViewSettings& View() const { return session_.Project.Design.View; }
    TrackLook Look() const;

    /// What is drawn: the session's, in the colours of the desktop where they follow it, over a background that is
    /// proposed.
    const Project& Drawn();

    /// The pixels of the background that is to scale; none where there is none, or it is no picture.
    QImage ScaledPicture() const;
    bool FitsFrame() const;

    /// All of its lines.
    std::vector<LegendEntry> Legend() const;

    void PaintInvitation(QPainter& painter);

    /// Shows a large circuit in a view that has moved: by what is drawn already, for as long as it moves.
    void PaintMoved(QPainter& painter);

    Session& session_;
    const ColourScheme initialColours_;
    std::optional<Project> altered_;                   ///< where what is drawn is not the session's
    std::shared_ptr<const ScaledBackground> proposed_; ///< null where none is
    CachedDrawing drawing_;
    bool showsSelection_ = true;
    std::vector<LegendEntry> laneLegend_;
    QRectF legend_; ///< its place on the drawing
    std::map<std::string, Overlay> overlays_;
    bool invites_ = true;
    bool stale_ = true;  ///< the drawing shows an earlier state
    bool moved_ = false; ///< the view alone is another than the drawing's
    QTimer rest_;        ///< of a view that moves: after it the circuit is drawn as it is
};

} // namespace pistaro
