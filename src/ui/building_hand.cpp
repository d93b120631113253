#include "ui/building_hand.h"

#include "editor/building.h"
#include "editor/track_editing.h"
#include "layout/track_gap.h"
#include "ui/named_controls.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <cmath>

namespace pistaro {

namespace {

constexpr const char* GhostOverlay = "ghost";
constexpr const char* EndsOverlay = "ends";
constexpr double DropReach = 40;    ///< cm from a joint, in which a piece goes there
constexpr double NearlyClosed = 60; ///< cm of a gap that is shown as a dashed line

/// The middle of the track where it begins or ends.
WorldPoint MiddleAt(const BuildCursor& cursor, double width) {
    return {static_cast<float>(cursor.CursorX + width / 2 * std::cos(double{cursor.CursorHeading})),
            static_cast<float>(cursor.CursorY + width / 2 * std::sin(double{cursor.CursorHeading}))};
}

} // namespace

BuildingHand::BuildingHand(Session& session, CircuitView& view, const std::vector<QToolButton*>& pieces,
                           std::function<void()> told)
    : QObject(&view), session_(session), view_(view), told_(std::move(told)) {
    for (QToolButton* const piece : pieces) {
        piece->installEventFilter(this);
        connect(piece, &QToolButton::clicked, this, [this, piece] { LayFurther(TagOf(*piece)); });
    }
    for (QAction* const special : view.window()->findChildren<QAction*>("mnuSpecial"))
        connect(special, &QAction::triggered, this, [this, special] { LayFurther(TagOf(*special)); });
    view.window()->installEventFilter(this);
    view.installEventFilter(this);
    ShowEnds();
}

void BuildingHand::Refresh() {
    ShowEnds();
    if (code_.empty()) return;
    if (!dragged_) ShowGhost(ButtonPlace(session_.Catalogue, Now()));
}

bool BuildingHand::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.modifiers() & ~Qt::KeypadModifier) return false;
        if (key.key() == Qt::Key_Escape) TakeDigit(1);
        if (key.key() < Qt::Key_1 || key.key() > Qt::Key_9) return false;
        TakeDigit(key.key() - Qt::Key_0);
        return true;
    }
    // A menu or a dialog that opened under the mouse took the button's end of hovering.
    if (watched == &view_ && event->type() == QEvent::Enter && !dragged_) PutDown();
    auto* const button = qobject_cast<QToolButton*>(watched);
    return button != nullptr && OnPiece(*button, *event);
}

void BuildingHand::PutDown() {
    code_.clear();
    ShowGhost(std::nullopt);
}

bool BuildingHand::OnPiece(QToolButton& button, const QEvent& event) {
    if (event.type() == QEvent::Enter && button.isEnabled()) {
        code_ = TagOf(button);
        ShowGhost(ButtonPlace(session_.Catalogue, Now()));
    } else if (event.type() == QEvent::Leave && !dragged_) {
        PutDown();
    } else if (event.type() == QEvent::MouseMove && button.isEnabled()) {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        if (!(mouse.buttons() & Qt::LeftButton)) return false;
        code_ = TagOf(button);
        dragged_ = !button.rect().contains(mouse.position().toPoint());
        if (dragged_) ShowGhost(PlaceUnder(mouse.globalPosition()));
    } else if (event.type() == QEvent::MouseButtonRelease && dragged_) {
        place_ = PlaceUnder(static_cast<const QMouseEvent&>(event).globalPosition());
        Drop();
    }
    return false;
}

void BuildingHand::TakeDigit(int digit) {
    times_ = digit;
    told_();
}

void BuildingHand::LayFurther(const std::string& code) {
    const int further = times_ - 1;
    times_ = 1;
    if (further > 0) {
        session_.Do([&] {
            session_.NameStep("Add " + std::to_string(further) + " " + code);
            for (int i = 0; i < further; ++i)
                AddPiece(session_.Catalogue, session_.Project.Design, session_.Project.EditState, code);
        });
    }
    told_();
}

std::optional<DropPlace> BuildingHand::PlaceUnder(QPointF global) const {
    const QPointF place = view_.mapFromGlobal(global);
    if (!QRectF(view_.rect()).contains(place)) return std::nullopt;
    return NearestPlace(session_.Catalogue, Now(), code_, view_.WorldAt(place), DropReach);
}

void BuildingHand::Drop() {
    const std::optional<DropPlace> place = place_;
    const std::string code = code_;
    dragged_ = false;
    code_.clear();
    ShowGhost(std::nullopt);
    if (!place) return;
    session_.Do([&] {
        session_.NameStep("Lay " + code);
        DropPiece(session_.Catalogue, session_.Project, *place, code);
    });
}

void BuildingHand::ShowGhost(const std::optional<DropPlace>& place) {
    place_ = place;
    if (!place) return view_.ClearOverlay(GhostOverlay);
    const Colour colour = Now().Preferences.Colours.Active;
    const int left = OwnedLessUsedPieces(session_.Catalogue, Now().Design.Circuit, Now().Stock, code_);
    const std::string words = PieceCaption(code_) + " · " + std::to_string(left) + " left · " +
                              GapWith(session_.Catalogue, Now(), *place, code_);
    const CatalogueEntry* const piece = session_.Catalogue.Find(code_);
    view_.SetOverlay(GhostOverlay,
                     {OverlayPieces{{code_}, place->At, place->CodeBefore, colour},
                      OverlayText{MiddleAt(ExitOf(piece->Kind, place->At), piece->Kind.Width), words, colour}});
}

void BuildingHand::ShowEnds() {
    const Track* const track = EditedTrack(Now().Design.Circuit, Now().EditState);
    if (track == nullptr || track->ElementCodes.empty() || IsRing(session_.Catalogue, *track))
        return view_.ClearOverlay(EndsOverlay);
    const Colour colour = Now().Preferences.Colours.Active;
    BuildCursor end = track->Start();
    double width = TrackGeometry::ScalextricWidth;
    end = WalkTrack(session_.Catalogue, *track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
        if (placement != nullptr)
            width = std::hypot(double{placement->Corners.Exit.X} - placement->Corners.OtherExit.X,
                               double{placement->Corners.Exit.Y} - placement->Corners.OtherExit.Y);
    });
    const WorldPoint from = MiddleAt(end, width);
    const WorldPoint to = MiddleAt(track->Start(), TrackGeometry::ScalextricWidth);
    Overlay ends;
    if (GapBetween(track->Start(), end).Distance < NearlyClosed && track->ElementCodes.size() > 2)
        ends.push_back(OverlayPath{{LineSegment{from, to}}, colour, 2, true});
    ends.push_back(OverlayHandle{.Place = to, .InkColour = colour, .Pixels = 5, .Filled = false});
    ends.push_back(OverlayHandle{.Place = from, .InkColour = colour});
    view_.SetOverlay(EndsOverlay, std::move(ends));
}

} // namespace pistaro
