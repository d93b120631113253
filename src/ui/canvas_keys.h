// The keyboard on the drawing: arrows pan, Tab walks along the track's pieces, Enter selects the one it stands on.
#pragma once

#include "ui/canvas_pointer.h"

namespace pistaro {

class CanvasKeys : public QObject {
public:
    CanvasKeys(Session& session, CanvasPointer& pointer, CircuitView& view);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Press(int key, Qt::KeyboardModifiers modifiers);

    /// To the next piece of the current track, or the one before. False beyond its ends, where the focus goes on.
    bool Walk(int step);
    void Pan(int right, int up);

    Session& session_;
    CanvasPointer& pointer_;
    CircuitView& view_;
};

} // namespace pistaro
