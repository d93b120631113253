// Redrawing and showing are two things: what only uncovers the window shows the kept picture again.
#include "ui/circuit_view.h"

#include "editor/mouse_selection.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace pistaro {

CircuitView::CircuitView(Session& session) : session_(session) {
    setObjectName("picCircuit");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 200);
}

void CircuitView::Invalidate() {
    stale_ = true;
    update();
}

void CircuitView::Redraw() {
    drawing_.Redraw(session_.Catalogue, session_.Project, session_.Background ? session_.Background->Image() : QImage(),
                    size(), devicePixelRatioF());
    stale_ = false;
}

const QImage& CircuitView::Picture() {
    if (stale_ || drawing_.Picture().size() != PixelsOf(size(), devicePixelRatioF())) Redraw();
    return drawing_.Picture();
}

void CircuitView::paintEvent(QPaintEvent*) { QPainter(this).drawImage(QPointF(0, 0), Picture()); }

void CircuitView::resizeEvent(QResizeEvent*) { session_.PicturePixels = width(); }

void CircuitView::mousePressEvent(QMouseEvent* event) {
    session_.Do([&] {
        SelectNearestElement(session_.Catalogue, session_.Project.Design.Circuit, session_.Project.EditState,
                             WorldAt(event->position()));
    });
}

void CircuitView::wheelEvent(QWheelEvent* event) {
    wheelTurn_ += event->angleDelta().y();
    for (; wheelTurn_ >= QWheelEvent::DefaultDeltasPerStep; wheelTurn_ -= QWheelEvent::DefaultDeltasPerStep)
        session_.TryRun(*session_.Commands.Find("zoom in"));
    for (; wheelTurn_ <= -QWheelEvent::DefaultDeltasPerStep; wheelTurn_ += QWheelEvent::DefaultDeltasPerStep)
        session_.TryRun(*session_.Commands.Find("zoom out"));
}

WorldPoint CircuitView::WorldAt(QPointF position) const {
    const ViewRectangle shown = ShownRectangle(session_.Project.Design.View);
    const double cmPerPixel = (double{shown.ViewRight} - shown.ViewLeft) / width();
    return {static_cast<float>(shown.ViewLeft + position.x() * cmPerPixel),
            static_cast<float>(shown.ViewTop - position.y() * cmPerPixel)};
}

} // namespace pistaro
