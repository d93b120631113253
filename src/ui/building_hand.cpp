#include "ui/building_hand.h"

#include "editor/building.h"
#include "editor/palette_pieces.h"
#include "editor/track_editing.h"
#include "layout/track_gap.h"
#include "ui/named_controls.h"
#include "ui/piece_icon.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>

#include <cmath>

namespace pistaro {

namespace {

constexpr const char* GhostOverlay = "ghost";
constexpr const char* DisplacedOverlay = "displaced"; ///< below the ghost
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
                           std::function<void()> told, std::function<bool()> previews)
    : QObject(&view), session_(session), view_(view), told_(std::move(told)), previews_(std::move(previews)),
      chip_(new TimesChip(*view.window())) {
    for (QToolButton* const piece : pieces)
        piece->installEventFilter(this);
    // Lists would look for a digit among their lines; those that are typed into keep it.
    for (auto* const list : view.window()->findChildren<QAbstractItemView*>())
        if (!(list->editTriggers() & QAbstractItemView::AnyKeyPressed)) list->installEventFilter(this);
    view.window()->installEventFilter(this);
    view.installEventFilter(this);
    ShowEnds();
}

void BuildingHand::Refresh() {
    ShowEnds();
    chip_->ShowTimes(session_.Times);
    if (!code_.empty() && !dragged_) ShowGhost(PlacePointedAt());
}

bool BuildingHand::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) return OnKey(static_cast<const QKeyEvent&>(*event));
    if (watched == &view_ && carried_) return OnCarried(*event);
    // A menu or a dialog that opened under the mouse took the button's end of hovering.
    if (watched == &view_ && event->type() == QEvent::Enter && !dragged_) PointAt("");
    auto* const button = qobject_cast<QToolButton*>(watched);
    return button != nullptr && !carried_ && OnPiece(*button, *event);
}

bool BuildingHand::OnKey(const QKeyEvent& key) {
    if (key.modifiers() & ~Qt::KeypadModifier) return false;
    if (key.key() == Qt::Key_Escape && dragged_) {
        letGo_ = !carried_;
        LetGo();
        return true;
    }
    if (key.key() == Qt::Key_Escape) TakeDigit(1);
    if (key.key() < Qt::Key_1 || key.key() > Qt::Key_9) return false;
    TakeDigit(key.key() - Qt::Key_0);
    return true;
}

void BuildingHand::PointAt(const std::string& code) { PointAt(code, Pointing::AtButton); }

void BuildingHand::PointAtSelected(const std::string& code, bool replaces) {
    PointAt(code, replaces ? Pointing::AtReplacement : Pointing::AtInsertion);
}

void BuildingHand::PointAt(const std::string& code, Pointing pointing) {
    if (dragged_) return; // what the mouse passes on its way does not matter
    code_ = code;
    pointing_ = pointing;
    ShowGhost(PlacePointedAt());
}

std::optional<DropPlace> BuildingHand::PlacePointedAt() const {
    if (code_.empty() || previews_()) return std::nullopt;
    if (pointing_ == Pointing::AtButton) return ButtonPlace(session_.Catalogue, Now(), Held());
    return SelectedPlace(session_.Catalogue, Now(), pointing_ == Pointing::AtReplacement);
}

bool BuildingHand::OnPiece(QToolButton& button, const QEvent& event) {
    if (event.type() == QEvent::FocusIn || event.type() == QEvent::FocusOut) {
        OnFocus(button, static_cast<const QFocusEvent&>(event));
    } else if (event.type() == QEvent::Enter && button.isEnabled()) {
        PointAt(TagOf(button));
    } else if (event.type() == QEvent::Leave && !dragged_) {
        if (code_ == TagOf(button)) PointAt(""); // else the keyboard has gone to another
    } else if (event.type() == QEvent::MouseMove && letGo_) {
        return true; // which would press the button again that came up when the piece was dragged off it
    } else if (event.type() == QEvent::MouseMove && button.isEnabled()) {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        if (!(mouse.buttons() & Qt::LeftButton)) return false;
        code_ = TagOf(button);
        dragged_ = !button.rect().contains(mouse.position().toPoint());
        Carry(mouse.globalPosition());
    } else if (event.type() == QEvent::MouseButtonRelease) {
        letGo_ = false;
        if (!dragged_) return false;
        Carry(static_cast<const QMouseEvent&>(event).globalPosition());
        Drop();
    }
    return false;
}

void BuildingHand::OnFocus(const QToolButton& button, const QFocusEvent& event) {
    const bool byKey = event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
                       event.reason() == Qt::ShortcutFocusReason;
    if (event.gotFocus() && byKey) PointAt(TagOf(button));
    if (event.lostFocus() && code_ == TagOf(button) && !button.underMouse()) PointAt("");
}

void BuildingHand::TakeUp(const std::string& code) {
    code_ = code;
    dragged_ = carried_ = true;
    view_.grabMouse();
    Carry(QCursor::pos());
}

bool BuildingHand::OnCarried(const QEvent& event) {
    const bool moves = event.type() == QEvent::MouseMove;
    const bool ends = event.type() == QEvent::MouseButtonRelease;
    if (moves || ends) Carry(static_cast<const QMouseEvent&>(event).globalPosition());
    if (ends) Drop();
    return moves || ends || event.type() == QEvent::MouseButtonPress;
}

void BuildingHand::TakeDigit(int digit) {
    session_.Times = digit;
    Refresh();
    told_();
}

std::optional<DropPlace> BuildingHand::PlaceUnder(QPointF global) const {
    const QPointF place = view_.mapFromGlobal(global);
    if (!QRectF(view_.rect()).contains(place)) return std::nullopt;
    return NearestPlace(session_.Catalogue, Now(), Held(), view_.WorldAt(place), DropReach);
}

void BuildingHand::Carry(QPointF global) {
    if (dragged_) {
        const std::optional<DropPlace> place = PlaceUnder(global);
        if (place != place_ || session_.Times != timesShown_) ShowGhost(place);
    }
    ShowCursor();
}

void BuildingHand::Drop() {
    const std::optional<DropPlace> place = place_;
    const HeldPiece held = Held();
    LetGo();
    if (!place) return;
    session_.Do([&] {
        const int times = session_.TakeTimes();
        const bool inserts = !DisplacedPieces(Now(), *place).empty();
        session_.NameStep((inserts ? "Insert " : "Add ") + (times > 1 ? std::to_string(times) + " " : "") +
                          std::string(ProductCode(held.Code)));
        DropPiece(session_.Catalogue, session_.Project, *place, held);
    });
    Follow(*place, held.Times);
}

void BuildingHand::Follow(const DropPlace& place, int times) {
    for (int i = 0; i < times; ++i)
        view_.Follow({place.Track, place.Element + i});
    const auto pieces = Now().Design.Circuit.Tracks[static_cast<std::size_t>(place.Track)].ElementCodes.size();
    const bool isBeforeOthers = place.Element == 0 && pieces > static_cast<std::size_t>(times);
    if (isBeforeOthers) view_.Follow({place.Track, 0}); // the farthest out is seen in any case
}

void BuildingHand::LetGo() {
    if (carried_) view_.releaseMouse();
    dragged_ = carried_ = false;
    QApplication::restoreOverrideCursor();
    PointAt("");
}

void BuildingHand::ShowCursor() const {
    if (!dragged_) return QApplication::restoreOverrideCursor();
    const QIcon piece = PieceIcon(*session_.Catalogue.Find(code_), session_.Catalogue);
    const QCursor cursor =
        place_ ? QCursor(piece.pixmap(QSize(PieceIconSide, PieceIconSide))) : QCursor(Qt::ForbiddenCursor);
    if (QApplication::overrideCursor() == nullptr) QApplication::setOverrideCursor(cursor);
    QApplication::changeOverrideCursor(cursor);
}

std::string BuildingHand::WordsAt(const DropPlace& place) const {
    const int times = TimesAt(place);
    std::string words = (times > 1 ? std::to_string(times) + " × " : "") + PieceCaption(code_);
    if (place.Replaces) words += " in place of " + PieceCaption(SelectedCode(Now().Design.Circuit, Now().EditState));
    const int left = LeftWith(session_.Catalogue, Now(), place, Held());
    return words + " · then " + LeftText(Now().Stock, left) + " · " + GapWith(session_.Catalogue, Now(), place, Held());
}

void BuildingHand::ShowGhost(const std::optional<DropPlace>& place) {
    place_ = place;
    timesShown_ = session_.Times;
    if (!place) {
        view_.ClearOverlay(DisplacedOverlay);
        return view_.ClearOverlay(GhostOverlay);
    }
    const Colour colour = view_.Colours().Active;
    const PieceKind& kind = session_.Catalogue.Find(code_)->Kind;
    BuildCursor end = place->At;
    const int times = TimesAt(*place);
    for (int i = 0; i < times; ++i)
        end = ExitOf(kind, end);
    const std::vector<std::string> codes(static_cast<std::size_t>(times), code_);
    const Track& track = Now().Design.Circuit.Tracks[static_cast<std::size_t>(place->Track)];
    const bool isAtEnd = place->Element > track.ElementLastIndex(); // else something lies ahead
    const std::optional<double> ahead = isAtEnd ? std::optional<double>(end.CursorHeading) : std::nullopt;
    view_.SetOverlay(GhostOverlay, {OverlayPieces{codes, place->At, place->CodeBefore, colour},
                                    OverlayText{MiddleAt(end, kind.Width), WordsAt(*place), colour, ahead}});
    ShowDisplaced(*place, end);
}

void BuildingHand::ShowDisplaced(const DropPlace& place, const BuildCursor& from) {
    const std::vector<std::string> codes = DisplacedPieces(Now(), place);
    if (codes.empty()) return view_.ClearOverlay(DisplacedOverlay);
    const ColourScheme colours = view_.Colours();
    view_.SetOverlay(DisplacedOverlay,
                     {OverlayPieces{codes, place.At, place.CodeBefore, colours.Background, PieceLook::Faded},
                      OverlayPieces{codes, from, code_, colours.Active, PieceLook::Light}});
}

void BuildingHand::ShowEnds() {
    const Track* const track = EditedTrack(Now().Design.Circuit, Now().EditState);
    if (track == nullptr || track->ElementCodes.empty() || IsRing(session_.Catalogue, *track))
        return view_.ClearOverlay(EndsOverlay);
    const Colour colour = view_.Colours().Active;
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
        ends.emplace_back(OverlayPath{{LineSegment{from, to}}, colour, 2, true});
    ends.emplace_back(OverlayHandle{.Place = to, .InkColour = colour, .Pixels = 5, .Filled = false});
    ends.emplace_back(OverlayHandle{.Place = from, .InkColour = colour});
    view_.SetOverlay(EndsOverlay, std::move(ends));
}

} // namespace pistaro
