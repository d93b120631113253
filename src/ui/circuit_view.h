// The drawing area: the circuit drawn onto a picture that is kept, and clicks on it.
#pragma once

#include "commands/session.h"
#include "imaging/kept_drawing.h"
#include "layout/shapes.h"

#include <QWidget>

namespace pistaro {

class CircuitView : public QWidget {
public:
    explicit CircuitView(Session& session);

    /// Has the circuit redrawn before it is shown next: what changes several times until then is drawn once.
    void Invalidate();

    /// Redraws the circuit from the data.
    void Redraw();

    /// The drawing as it stands.
    const QImage& Picture();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    WorldPoint WorldAt(QPointF position) const;

    Session& session_;
    KeptDrawing drawing_;
    bool stale_ = true; ///< the drawing shows an earlier state
    int wheelTurn_ = 0; ///< what is left of a turn of the wheel, eighths of a degree
};

} // namespace pistaro
