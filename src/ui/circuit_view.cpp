// Redrawing and showing are two things: what only uncovers the window shows the kept picture again.
#include "ui/circuit_view.h"

#include "layout/placement.h"
#include "platform/fault.h"
#include "storage/settings_file.h"
#include "ui/canvas_colours.h"
#include "ui/canvas_legend.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int RestTime = 60; ///< milliseconds without a move after which a large circuit is drawn as it is

/// More pieces than can be drawn anew for every step of a moving view.
constexpr std::size_t ManyPieces = 150;

bool IsEmpty(const Circuit& circuit) {
    return std::ranges::all_of(circuit.Tracks, [](const Track& track) { return track.ElementCodes.empty(); });
}

bool IsLarge(const Circuit& circuit) {
    std::size_t pieces = 0;
    for (const Track& track : circuit.Tracks)
        pieces += track.ElementCodes.size();
    return pieces > ManyPieces;
}

} // namespace

CircuitView::CircuitView(Session& session)
    : session_(session), initialColours_(InitialSettings(session.Catalogue).Preferences.Colours) {
    setObjectName("picCircuit");
    setAccessibleName("Drawing of the circuit");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 200);
    rest_.setSingleShot(true);
    rest_.setInterval(RestTime);
    connect(&rest_, &QTimer::timeout, this, [this] {
        stale_ = true;
        update();
    });
}

void CircuitView::Invalidate(const Changes& changes) {
    if (changes == Changes{.View = true}) {
        moved_ = true;
    } else {
        stale_ = true;
    }
    update();
}

void CircuitView::Redraw() {
    rest_.stop();
    drawing_.Redraw(session_.Catalogue, Drawn(), session_.Background ? session_.Background->Image() : QImage(), Frame(),
                    Look(), ScaledPicture());
    if (session_.Looks.Legend) legend_ = PlaceOfLegend();
    stale_ = moved_ = false;
}

QRectF CircuitView::PlaceOfLegend() const {
    std::vector<QPointF> corners;
    for (const Track& track : session_.Project.Design.Circuit.Tracks) {
        WalkTrack(session_.Catalogue, track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
            if (placement == nullptr) return;
            for (const WorldPoint& corner : placement->Corners.InOrder())
                corners.push_back(PlaceOf(corner));
        });
    }
    return LegendPlace(size(), fontMetrics(), corners);
}

ColourScheme CircuitView::Colours() const {
    return CanvasColours(session_.Project.Preferences.Colours, initialColours_, palette());
}

const Project& CircuitView::Drawn() {
    const ColourScheme colours = Colours();
    recoloured_.reset();
    if (colours == session_.Project.Preferences.Colours) return session_.Project;
    recoloured_ = session_.Project;
    recoloured_->Preferences.Colours = colours;
    return *recoloured_;
}

QImage CircuitView::ScaledPicture() const {
    const auto& background = session_.Project.Background;
    if (!background) return {};
    try {
        return session_.Pictures.Of(background->Picture, "background").Image();
    } catch (const Fault&) {
        return {}; // as was told when the circuit was loaded
    }
}

TrackLook CircuitView::Look() const { return session_.Looks.Surface ? TrackLook::Surface : TrackLook::Lines; }

bool CircuitView::FitsFrame() const { return drawing_.Picture().size() == PixelsOf(size(), devicePixelRatioF()); }

const QImage& CircuitView::Picture() {
    if (stale_ || moved_ || rest_.isActive() || !FitsFrame()) Redraw();
    return drawing_.Picture();
}

void CircuitView::PaintMoved(QPainter& painter) {
    rest_.start();
    if (drawing_.Shift(session_.Catalogue, Drawn())) {
        moved_ = false;
        painter.drawImage(QPointF(0, 0), drawing_.Picture());
    } else {
        drawing_.PaintStretched(painter, View());
    }
}

void CircuitView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (moved_ && !stale_ && FitsFrame() && IsLarge(session_.Project.Design.Circuit)) {
        PaintMoved(painter);
    } else {
        if (stale_ || moved_ || !FitsFrame()) Redraw();
        painter.drawImage(QPointF(0, 0), drawing_.Picture());
    }
    for (const auto& [owner, overlay] : overlays_)
        PaintOverlay(overlay, session_.Catalogue, View(), Frame(), painter);
    if (IsEmpty(session_.Project.Design.Circuit)) PaintInvitation(painter);
    if (session_.Looks.Legend) PaintLegend(painter, legend_, Colours(), Look());
}

void CircuitView::PaintInvitation(QPainter& painter) {
    const Colour ground = Colours().Background;
    QColor ink = ToQColor(TextColourOn(ground));
    ink.setAlpha(170);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    painter.setFont(large);
    painter.setPen(ink);
    painter.drawText(rect().adjusted(24, 24, -24, -height() / 2), Qt::AlignCenter | Qt::TextWordWrap,
                     session_.Looks.Columns
                         ? "Press a piece at the left to begin, or drag one here. Help ▸ Tour shows how."
                         : "Press F9 to see the pieces, and one of them to begin. Help ▸ Tour shows how.");
    painter.setFont(font());
}

void CircuitView::SetOverlay(const std::string& owner, Overlay overlay) {
    overlays_[owner] = std::move(overlay);
    update();
}

void CircuitView::ClearOverlay(const std::string& owner) {
    if (overlays_.erase(owner) > 0) update();
}

const Overlay& CircuitView::OverlayOf(const std::string& owner) const {
    static const Overlay none;
    const auto found = overlays_.find(owner);
    return found == overlays_.end() ? none : found->second;
}

void CircuitView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    stale_ = true;
    update();
}

void CircuitView::resizeEvent(QResizeEvent*) { session_.PicturePixels = Frame().Square().width(); }

WorldPoint CircuitView::WorldAt(QPointF place) const { return Frame().WorldAt(place, View()); }

QPointF CircuitView::PlaceOf(WorldPoint point) const { return Frame().PlaceOf(point, View()); }

} // namespace pistaro
