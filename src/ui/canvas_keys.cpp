#include "ui/canvas_keys.h"

#include "editor/mouse_selection.h"
#include "editor/view_commands.h"

#include <QKeyEvent>

namespace pistaro {

CanvasKeys::CanvasKeys(Session& session, CanvasPointer& pointer, CircuitView& view)
    : QObject(&view), session_(session), pointer_(pointer), view_(view) {
    view.setFocusPolicy(Qt::StrongFocus);
    view.installEventFilter(this);
}

bool CanvasKeys::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    return Press(key.key(), key.modifiers());
}

bool CanvasKeys::Press(int key, Qt::KeyboardModifiers modifiers) {
    if (modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier)) return false;
    switch (key) {
    case Qt::Key_Left:
        Pan(-1, 0);
        return true;
    case Qt::Key_Right:
        Pan(1, 0);
        return true;
    case Qt::Key_Up:
        Pan(0, 1);
        return true;
    case Qt::Key_Down:
        Pan(0, -1);
        return true;
    case Qt::Key_Tab:
        return Walk(1);
    case Qt::Key_Backtab:
        return Walk(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!pointer_.Pointed()) return false;
        session_.Do([&] {
            const Project& now = session_.Project;
            SelectPiece(session_.Catalogue, now.Design.Circuit, session_.Project.EditState, *pointer_.Pointed());
        });
        return true;
    default:
        return false;
    }
}

void CanvasKeys::Pan(int right, int up) {
    session_.Do([&] {
        ViewSettings& view = session_.Project.Design.View;
        const int step = SmallScrollStep(view);
        CentreView(view, double{view.MidX} + right * step, double{view.MidY} + up * step);
    });
}

bool CanvasKeys::Walk(int step) {
    const Project& now = session_.Project;
    const Track* const track = EditedTrack(now.Design.Circuit, now.EditState);
    if (track == nullptr) return false;
    const auto& pointed = pointer_.Pointed();
    const bool walks = pointed && pointed->Track == now.EditState.CurrentTrack;
    const int next = walks ? pointed->Element + step : step > 0 ? 0 : track->ElementLastIndex();
    const bool there = next >= 0 && next <= track->ElementLastIndex();
    const PieceAddress piece{now.EditState.CurrentTrack, next};
    pointer_.PointAt(there ? std::optional(piece) : std::nullopt);
    if (!there) return false;
    if (const auto placement = PlacementOf(session_.Catalogue, now.Design.Circuit, piece)) {
        session_.Do([&] {
            ViewSettings& view = session_.Project.Design.View;
            FollowTo(view, GroundOf(*placement).Box, view_.Frame().Covered(view));
        });
    }
    return true;
}

} // namespace pistaro
