// The mouse on the drawing: it selects, pans and zooms, tells of the piece under it, moves tracks, and opens the menu
// of what can be done with a piece.
#pragma once

#include "editor/picking.h"
#include "ui/circuit_view.h"
#include "ui/command_controls.h"

#include <QObject>

#include <functional>

class QContextMenuEvent;
class QGestureEvent;
class QHelpEvent;
class QKeyEvent;
class QNativeGestureEvent;

namespace pistaro {

class CanvasPointer : public QObject {
public:
    CanvasPointer(Session& session, const CommandControls& controls, CircuitView& view);

    /// To be called after each piece of work: what lies under the mouse may have changed.
    void Refresh(const Changes& changes);

    /// Outlines a piece as the one that is meant.
    void PointAt(const std::optional<PieceAddress>& piece);
    const std::optional<PieceAddress>& Pointed() const { return pointed_; }

    /// Called with the place under the mouse whenever that has moved.
    std::function<void(WorldPoint)> TellPlace = [](WorldPoint) {};

    /// Called with the code of the piece that the mouse is on in a piece's menu, empty when it leaves, and whether it
    /// would replace the selected one.
    std::function<void(const std::string& code, bool replaces)> PointedAtInMenu = [](const std::string&, bool) {};

    /// Opens the menu of what can be done with the selected piece at a place of the screen.
    void OpenMenu(QPoint global);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Doing { Nothing, Panning, MovingTrack, TurningTrack };

    bool Handle(QEvent& event);
    bool OnKey(const QKeyEvent& key);
    void Press(const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void Release();
    bool Wheel(const QWheelEvent& event);
    bool Pinch(const QNativeGestureEvent& event);
    bool Pinch(const QGestureEvent& event);
    void ShowTip(const QHelpEvent& event);
    QRect ScreenPlaceOf(const PiecePlacement& placement) const;
    QPoint PlaceOfMenu(const QContextMenuEvent& event) const;

    void Select(QPointF place, bool andAllBetween = false);
    void PanTo(QPointF place);
    void Zoom(QPointF place, double times);
    /// Where a drag to a place brings the current track's start, with Shift in steps of a track width.
    BuildCursor DraggedStart(QPointF place, Qt::KeyboardModifiers keys);
    void BeginDrag(Qt::KeyboardModifiers keys);
    void ShowDragged(QPointF place);
    void EndDrag();
    /// A hand where a drag moves the view, arrows where it moves the track.
    void ShowCursor();
    /// Moves the view where what was selected since the last time lies outside of it.
    void Follow();
    /// Goes on showing the whole of a track that makes room for elements that are put in.
    void FollowInsertion();
    void ShowRun();

    const Project& Now() const { return session_.Project; }

    Session& session_;
    const CommandControls& controls_;
    CircuitView& view_;
    PickMap pieces_;
    Circuit laid_; ///< as it was before the last change
    std::optional<PieceAddress> pointed_;
    PieceAddress followed_{-1, -1}; ///< what was selected last
    Doing doing_ = Doing::Nothing;
    bool held_ = false;      ///< the left button is down, and its drag not given up
    bool spaceHeld_ = false; ///< a drag pans
    QPointF pressed_;        ///< where the button went down
    WorldPoint grip_;        ///< of the world, which a pan keeps under the mouse
    EditState before_;       ///< the press
    WorldPoint middle_;      ///< of the piece that a drag turns about
    BuildCursor dragged_;    ///< the start as the drag has it
    int steps_ = 0;          ///< of a turn, as the drag has it, anticlockwise
    int wheelTurn_ = 0;      ///< what is left of a turn of the wheel, eighths of a degree
    double pinchRest_ = 1;   ///< of a pinch, what has not been zoomed yet
};

} // namespace pistaro
