#include "ui/canvas_pointer.h"

#include "commands/background_commands.h"
#include "editor/building.h"
#include "editor/mouse_selection.h"
#include "editor/piece_tip.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "layout/outline.h"
#include "ui/named_controls.h"
#include "ui/piece_menu.h"
#include "ui/strip.h"
#include "ui/tip_place.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QGestureEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>

namespace pistaro {

namespace {

constexpr const char* HoverOverlay = "hover";
constexpr const char* RunOverlay = "selected run";
constexpr Colour RunColour = Rgb(0, 150, 60);
constexpr const char* DragOverlay = "moved track";
constexpr Colour HoverColour = Rgb(255, 140, 0);
constexpr int PixelsPerTurn = 40; ///< of a drag that turns, for each step of the turn buttons

bool IsTouchPad(const QWheelEvent& event) {
    return event.phase() != Qt::NoScrollPhase || event.device()->type() == QInputDevice::DeviceType::TouchPad;
}

/// Whether it is a button of the view's window, and none of a strip's, which goes on being used by its keys.
bool IsCommandButton(const QWidget* widget, const CircuitView& view) {
    if (qobject_cast<const QAbstractButton*>(widget) == nullptr || widget->window() != view.window()) return false;
    while (widget != nullptr && dynamic_cast<const Strip*>(widget) == nullptr)
        widget = widget->parentWidget();
    return widget == nullptr;
}

OverlayPath OutlineOf(const PiecePlacement& placement, Colour colour, double pixels) {
    OverlayPath path{.Path = {}, .InkColour = colour, .Pixels = pixels};
    for (const Segment& segment : placement.Outline)
        path.Path.push_back(segment);
    return path;
}

} // namespace

CanvasPointer::CanvasPointer(Session& session, const CommandControls& controls, CircuitView& view)
    : QObject(&view), session_(session), controls_(controls), view_(view) {
    view.setMouseTracking(true);
    view.grabGesture(Qt::PinchGesture);
    view.installEventFilter(this);
    pieces_ = PickMap(session.Catalogue, Now().Design.Circuit);
    laid_ = Now().Design.Circuit;
    followed_ = {Now().EditState.CurrentTrack, Now().EditState.SelectedElement()};
}

void CanvasPointer::Refresh(const Changes& changes) {
    if (changes.Circuit) {
        pieces_ = PickMap(session_.Catalogue, Now().Design.Circuit);
        PointAt(std::nullopt);
        if (!changes.OtherCircuit) FollowInsertion();
        laid_ = Now().Design.Circuit;
    }
    if (changes.EditState) Follow();
    if (changes.EditState || changes.Circuit) ShowRun();
}

/// Tints the elements of a run; a selected element alone is known by its colour.
void CanvasPointer::ShowRun() {
    const Track* const track = EditedTrack(Now().Design.Circuit, Now().EditState);
    const ElementRun run = track == nullptr ? ElementRun() : Now().EditState.SelectedRun(track->ElementLastIndex());
    if (run.Count < 2) return view_.ClearOverlay(RunOverlay);
    Overlay tinted;
    WalkTrack(session_.Catalogue, *track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr || element < run.First || element >= run.First + run.Count) return;
        constexpr double tolerance = 0.1; // cm
        tinted.emplace_back(OverlayArea{.Polygon = OutlinePolygon(*placement, tolerance), .InkColour = RunColour});
    });
    view_.SetOverlay(RunOverlay, std::move(tinted));
}

void CanvasPointer::Follow() {
    const PieceAddress selected{Now().EditState.CurrentTrack, Now().EditState.SelectedElement()};
    if (selected == followed_) return;
    followed_ = selected;
    if (selected.Element >= 0) view_.Follow(selected);
}

void CanvasPointer::FollowInsertion() {
    const Track* const track = EditedTrack(Now().Design.Circuit, Now().EditState);
    if (track == nullptr) return;
    const Track& before = laid_.Tracks[static_cast<std::size_t>(Now().EditState.CurrentTrack)];
    const ViewRectangle covered = view_.Frame().Covered(Now().Design.View);
    const auto box = ExtentAfterInsertion(session_.Catalogue, before, *track, covered);
    if (!box) return;
    const bool hasRoom = box->Right - box->Left <= double{covered.ViewRight} - covered.ViewLeft &&
                         box->Top - box->Bottom <= double{covered.ViewTop} - covered.ViewBottom;
    session_.Do([&] { hasRoom ? FollowTo(session_.Project.Design.View, *box, covered) : FitCommand(session_); });
}

bool CanvasPointer::eventFilter(QObject*, QEvent* event) { return Handle(*event); }

bool CanvasPointer::Handle(QEvent& event) {
    switch (static_cast<int>(event.type())) { // of the toolkit's many
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // the second of two quick clicks is a click
        Press(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseMove:
        Move(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonRelease:
        Release();
        return true;
    case QEvent::Wheel:
        return Wheel(static_cast<QWheelEvent&>(event));
    case QEvent::NativeGesture:
        return Pinch(static_cast<QNativeGestureEvent&>(event));
    case QEvent::Gesture:
        return Pinch(static_cast<QGestureEvent&>(event));
    case QEvent::ToolTip:
        ShowTip(static_cast<QHelpEvent&>(event));
        return true;
    case QEvent::ContextMenu:
        OpenMenu(PlaceOfMenu(static_cast<QContextMenuEvent&>(event)));
        return true;
    case QEvent::Enter:
        // The space bar, which pans here, would press the button that was pressed last.
        if (IsCommandButton(QApplication::focusWidget(), view_)) view_.setFocus(Qt::MouseFocusReason);
        return false;
    case QEvent::Leave:
        PointAt(std::nullopt);
        return false;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return OnKey(static_cast<QKeyEvent&>(event));
    case QEvent::FocusOut:
        spaceHeld_ = false;
        ShowCursor();
        return false;
    default:
        return false;
    }
}

bool CanvasPointer::OnKey(const QKeyEvent& key) {
    const bool dragsTrack = doing_ == Doing::MovingTrack || doing_ == Doing::TurningTrack;
    if (key.key() == Qt::Key_Escape && key.type() == QEvent::KeyPress && dragsTrack) {
        view_.ClearOverlay(DragOverlay);
        doing_ = Doing::Nothing;
        held_ = false;
        ShowCursor();
        return true;
    }
    if (key.key() != Qt::Key_Space) return false;
    if (!key.isAutoRepeat()) spaceHeld_ = key.type() == QEvent::KeyPress;
    ShowCursor();
    return true;
}

void CanvasPointer::ShowCursor() {
    switch (doing_) {
    case Doing::Panning:
        return view_.setCursor(Qt::ClosedHandCursor);
    case Doing::MovingTrack:
    case Doing::TurningTrack:
        return view_.setCursor(Qt::SizeAllCursor);
    case Doing::Nothing:
        return spaceHeld_ ? view_.setCursor(Qt::OpenHandCursor) : view_.unsetCursor();
    }
}

void CanvasPointer::Select(QPointF place, bool andAllBetween) {
    session_.Do([&] {
        EditState& edit = session_.Project.EditState;
        SelectAt(session_.Catalogue, Now().Design.Circuit, edit, pieces_, view_.WorldAt(place));
        if (andAllBetween) ExtendSelection(edit, before_);
    });
}

void CanvasPointer::Press(const QMouseEvent& event) {
    if (doing_ != Doing::Nothing) return;
    pressed_ = event.position();
    grip_ = view_.WorldAt(pressed_);
    before_ = Now().EditState;
    if (spaceHeld_) {
        doing_ = Doing::Panning;
        return ShowCursor();
    }
    Select(pressed_, event.modifiers() & Qt::ShiftModifier);
    if (event.button() == Qt::MiddleButton) doing_ = Doing::Panning;
    ShowCursor();
    held_ = event.button() == Qt::LeftButton;
}

void CanvasPointer::Move(const QMouseEvent& event) {
    TellPlace(view_.WorldAt(event.position()));
    const bool farEnough = (event.position() - pressed_).manhattanLength() >= QApplication::startDragDistance();
    if (!(event.buttons() & Qt::LeftButton)) held_ = false; // its release went elsewhere, as to a message box
    if (held_ && doing_ == Doing::Nothing && farEnough) BeginDrag(event.modifiers());
    if (doing_ == Doing::Panning) return PanTo(event.position());
    if (doing_ == Doing::MovingTrack || doing_ == Doing::TurningTrack) {
        dragged_ = DraggedStart(event.position(), event.modifiers());
        return ShowDragged(event.position());
    }
    const std::vector<PieceAddress> under = pieces_.PiecesAt(view_.WorldAt(event.position()));
    PointAt(under.empty() ? std::nullopt : std::optional(under.back()));
}

/// The bare floor is dragged with the view, a piece with its track; where several pieces lie over each other nothing
/// is.
void CanvasPointer::BeginDrag(Qt::KeyboardModifiers keys) {
    const auto piece = pieces_.OnlyPieceAt(grip_);
    if (!piece && !pieces_.PiecesAt(grip_).empty()) return;
    doing_ = Doing::Panning;
    if (piece) {
        const GroundPoint middle = MiddleOf(GroundOf(*PlacementOf(session_.Catalogue, Now().Design.Circuit, *piece)));
        middle_ = {static_cast<float>(middle.X), static_cast<float>(middle.Y)};
        // Many window managers keep a drag with Alt for themselves.
        doing_ = keys & (Qt::AltModifier | Qt::ControlModifier) ? Doing::TurningTrack : Doing::MovingTrack;
        PointAt(std::nullopt);
    }
    ShowCursor();
}

void CanvasPointer::Release() {
    if (doing_ == Doing::MovingTrack || doing_ == Doing::TurningTrack) EndDrag();
    doing_ = Doing::Nothing;
    held_ = false;
    ShowCursor();
}

void CanvasPointer::PanTo(QPointF place) {
    session_.Do([&] {
        Project& project = session_.Project;
        // What the press selected was not meant: it was the beginning of a pan.
        project.EditState.CurrentTrack = before_.CurrentTrack;
        project.EditState.CurrentElement = before_.CurrentElement;
        project.EditState.RunFrom = before_.RunFrom;
        project.EditState.InsertMode = before_.InsertMode;
        project.EditState.System = before_.System;
        const WorldPoint under = view_.WorldAt(place);
        ViewSettings& view = project.Design.View;
        CentreView(view, double{view.MidX} + grip_.X - under.X, double{view.MidY} + grip_.Y - under.Y);
    });
}

bool CanvasPointer::Wheel(const QWheelEvent& event) {
    if (IsTouchPad(event) && !(event.modifiers() & Qt::ControlModifier)) {
        const QPointF way = event.hasPixelDelta() ? QPointF(event.pixelDelta()) : QPointF(event.angleDelta()) / 2;
        session_.Do([&] {
            ViewSettings& view = session_.Project.Design.View;
            const double scale = view_.Frame().PixelsPerCm(view);
            CentreView(view, view.MidX - way.x() / scale, view.MidY + way.y() / scale);
        });
        return true;
    }
    wheelTurn_ += event.angleDelta().y();
    const int notches = wheelTurn_ / QWheelEvent::DefaultDeltasPerStep;
    wheelTurn_ -= notches * QWheelEvent::DefaultDeltasPerStep;
    if (notches == 0) return true;
    const bool finely = event.modifiers() & Qt::ControlModifier;
    session_.Do([&] { ZoomByNotches(session_.Project.Design.View, view_.WorldAt(event.position()), notches, finely); });
    return true;
}

void CanvasPointer::Zoom(QPointF place, double times) {
    pinchRest_ *= times;
    constexpr double leastStep = 0.02;
    if (std::fabs(pinchRest_ - 1) < leastStep) return;
    const double width = std::max(double{SmallestZoomableWidth}, Now().Design.View.Width / pinchRest_);
    pinchRest_ = 1;
    session_.Do([&] { ZoomAt(session_.Project.Design.View, view_.WorldAt(place), width); });
}

bool CanvasPointer::Pinch(const QNativeGestureEvent& event) {
    if (event.gestureType() != Qt::ZoomNativeGesture) return false;
    Zoom(event.position(), 1 + event.value());
    return true;
}

bool CanvasPointer::Pinch(const QGestureEvent& event) {
    const auto* const pinch = static_cast<const QPinchGesture*>(event.gesture(Qt::PinchGesture));
    if (pinch == nullptr) return false;
    Zoom(view_.mapFromGlobal(pinch->centerPoint()), pinch->scaleFactor());
    return true;
}

void CanvasPointer::PointAt(const std::optional<PieceAddress>& piece) {
    if (piece == pointed_) return;
    pointed_ = piece;
    QToolTip::hideText(); // it tells of the piece before
    if (!piece) return view_.ClearOverlay(HoverOverlay);
    constexpr double hoverPixels = 2.5;
    const auto placement = PlacementOf(session_.Catalogue, Now().Design.Circuit, *piece);
    if (placement) view_.SetOverlay(HoverOverlay, {OutlineOf(*placement, HoverColour, hoverPixels)});
}

void CanvasPointer::ShowTip(const QHelpEvent& event) {
    if (!pointed_) return QToolTip::hideText();
    QRect told(event.globalPos(), QSize(1, 1));
    std::vector<QRect> others;
    WalkTrack(session_.Catalogue, Now().Design.Circuit.Tracks[static_cast<std::size_t>(pointed_->Track)],
              [&](int element, const PiecePlacement* placement, const BuildCursor&) {
                  if (placement == nullptr) return;
                  const QRect place = ScreenPlaceOf(*placement);
                  if (element != pointed_->Element) return others.push_back(place);
                  // Of a piece that fills much of the drawing what lies around the mouse.
                  constexpr int near = 120; // pixels
                  told = place & told.adjusted(-near, -near, near, near);
              });
    ShowTipBeside(told,
                  Shown(PieceTip(session_.Catalogue, Now(), *pointed_, session_.MoneyMarks) +
                        "\nDrag moves the track · Shift: in steps · Ctrl: turns it"),
                  view_, others);
}

QRect CanvasPointer::ScreenPlaceOf(const PiecePlacement& placement) const {
    const GroundBox box = GroundOf(placement).Box;
    const QPointF upperLeft = view_.PlaceOf({static_cast<float>(box.Left), static_cast<float>(box.Top)});
    const QPointF lowerRight = view_.PlaceOf({static_cast<float>(box.Right), static_cast<float>(box.Bottom)});
    return {view_.mapToGlobal(upperLeft.toPoint()), view_.mapToGlobal(lowerRight.toPoint())};
}

/// The mouse, or where the keyboard asks for the menu, the selected piece.
QPoint CanvasPointer::PlaceOfMenu(const QContextMenuEvent& event) const {
    const PieceAddress selected{Now().EditState.CurrentTrack, Now().EditState.SelectedElement()};
    const bool byKey = event.reason() == QContextMenuEvent::Keyboard && selected.Element >= 0;
    const auto placement = byKey ? PlacementOf(session_.Catalogue, Now().Design.Circuit, selected) : std::nullopt;
    if (!placement) return event.globalPos();
    const GroundPoint middle = MiddleOf(GroundOf(*placement));
    const QPointF place = view_.PlaceOf({static_cast<float>(middle.X), static_cast<float>(middle.Y)});
    return view_.mapToGlobal(place.toPoint());
}

void CanvasPointer::OpenMenu(QPoint global) {
    auto* const menu = new PieceMenu(session_, controls_, &view_);
    menu->PointedAt = PointedAtInMenu;
    menu->popup(global);
}

BuildCursor CanvasPointer::DraggedStart(QPointF place, Qt::KeyboardModifiers keys) {
    const Track* const track = EditedTrack(Now().Design.Circuit, Now().EditState);
    const WorldPoint now = view_.WorldAt(place);
    if (doing_ == Doing::TurningTrack) {
        steps_ = static_cast<int>((pressed_.x() - place.x()) / PixelsPerTurn);
        return TurnedAbout(track->Start(), middle_, steps_);
    }
    double right = double{now.X} - grip_.X;
    double up = double{now.Y} - grip_.Y;
    if (keys & Qt::ShiftModifier) {
        right = std::round(right / TrackSpacing) * TrackSpacing;
        up = std::round(up / TrackSpacing) * TrackSpacing;
    }
    return Moved(track->Start(), right, up);
}

void CanvasPointer::ShowDragged(QPointF place) {
    const Track* const track = EditedTrack(Now().Design.Circuit, Now().EditState);
    const ColourScheme colours = view_.Colours();
    const std::string words =
        doing_ == Doing::TurningTrack ? TurnText(steps_) : MoveText(track->Start(), dragged_, Now().Preferences.Units);
    view_.SetOverlay(DragOverlay,
                     {OverlayPieces{track->ElementCodes, track->Start(), "", colours.Background, PieceLook::Faded},
                      OverlayPieces{track->ElementCodes, dragged_, "", colours.Active},
                      OverlayText{view_.WorldAt(place), words, colours.Active}});
}

void CanvasPointer::EndDrag() {
    view_.ClearOverlay(DragOverlay);
    session_.Do([&] {
        session_.NameStep(doing_ == Doing::TurningTrack ? "Turn Track" : "Move Track");
        PlaceStart(session_.Project.Design, session_.Project.EditState, dragged_);
    });
}

} // namespace pistaro
