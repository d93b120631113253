// Redrawing and showing are two things: what only uncovers the window shows the kept picture again.
#include "ui/circuit_view.h"

#include "commands/side_columns.h"
#include "editor/picking.h"
#include "editor/view_commands.h"
#include "layout/placement.h"
#include "platform/fault.h"
#include "storage/settings_file.h"
#include "ui/canvas_colours.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace pistaro {

namespace {

constexpr Colour NeutralEdge = Rgb(128, 132, 138);
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
    legend_ = PlaceOfLegend();
    stale_ = moved_ = false;
}

std::vector<LegendEntry> CircuitView::Legend() const {
    std::vector<LegendEntry> entries = session_.Looks.Legend ? StandingLegend() : std::vector<LegendEntry>();
    entries.insert(entries.end(), laneLegend_.begin(), laneLegend_.end());
    return entries;
}

void CircuitView::ShowLaneLegend(std::vector<LegendEntry> entries) {
    if (entries.empty() && laneLegend_.empty()) return;
    if (entries.empty() != laneLegend_.empty()) stale_ = true; // the edges' colours change
    laneLegend_ = std::move(entries);
    legend_ = PlaceOfLegend();
    update();
}

void CircuitView::ShowSelection(bool shows) {
    if (shows == showsSelection_) return;
    showsSelection_ = shows;
    stale_ = true;
    update();
}

void CircuitView::Invite(bool invites) {
    invites_ = invites;
    update();
}

/// Where it hides the least of what is drawn.
QRectF CircuitView::PlaceOfLegend() const {
    const std::vector<LegendEntry> entries = Legend();
    if (entries.empty()) return {};
    return LegendPlace(size(), fontMetrics(), entries, PlacesOfCorners());
}

std::vector<QPointF> CircuitView::PlacesOfCorners() const {
    std::vector<QPointF> corners;
    for (const Track& track : session_.Project.Design.Circuit.Tracks) {
        WalkTrack(session_.Catalogue, track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
            if (placement == nullptr) return;
            for (const WorldPoint& corner : placement->Corners.InOrder())
                corners.push_back(PlaceOf(corner));
        });
    }
    return corners;
}

/// While lanes are shown in colours, the edges of beds have none that could be taken for a lane's: stripes tell what is
/// not owned.
ColourScheme CircuitView::Colours() const {
    ColourScheme colours = CanvasColours(session_.Project.Preferences.Colours, initialColours_, palette());
    const bool paintsLanes = session_.Looks.Lanes || !laneLegend_.empty();
    if (paintsLanes && session_.Looks.Surface) colours.NonOwned = colours.Owned = NeutralEdge;
    return colours;
}

const Project& CircuitView::Drawn() {
    const ColourScheme colours = Colours();
    altered_.reset();
    if (colours == session_.Project.Preferences.Colours && !proposed_ && showsSelection_) return session_.Project;
    altered_ = session_.Project;
    altered_->Preferences.Colours = colours;
    if (proposed_) altered_->Background = proposed_;
    if (!showsSelection_) altered_->EditState.CurrentElement.fill(-1);
    return *altered_;
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
    if (invites_ && IsEmpty(session_.Project.Design.Circuit)) PaintInvitation(painter);
    if (!legend_.isEmpty()) PaintLegend(painter, legend_, Legend(), Colours(), Look());
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
                     IsColumnShown(session_, &Looks::PieceColumn)
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

void CircuitView::ProposeBackground(std::shared_ptr<const ScaledBackground> proposed) {
    if (proposed == proposed_) return;
    proposed_ = std::move(proposed);
    stale_ = true;
    update();
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

ViewSettings CircuitView::ViewWith(const GroundBox& box, ViewSettings view) const {
    constexpr double around = 10; // cm
    const GroundBox shown = box.Grown(around);
    const double side = std::max(shown.Right - shown.Left, shown.Top - shown.Bottom);
    if (side > double{view.Width}) view.Width = static_cast<float>(std::ceil(side));
    FollowTo(view, shown, Frame().Covered(view));
    return view;
}

WorldPoint CircuitView::WorldAt(QPointF place) const { return Frame().WorldAt(place, View()); }

QPointF CircuitView::PlaceOf(WorldPoint point) const { return Frame().PlaceOf(point, View()); }

void CircuitView::Follow(const PieceAddress& piece) {
    const auto placement = PlacementOf(session_.Catalogue, session_.Project.Design.Circuit, piece);
    if (!placement) return;
    const GroundBox box = GroundOf(*placement).Box;
    const ViewRectangle covered = Frame().Covered(session_.Project.Design.View);
    if (IsShown(box, covered)) return;
    const double side =
        std::min(double{covered.ViewRight} - covered.ViewLeft, double{covered.ViewTop} - covered.ViewBottom);
    const double margin = side / 8; // for what is laid next
    session_.Do([&] { FollowTo(session_.Project.Design.View, box.Grown(margin), covered); });
}

} // namespace pistaro
