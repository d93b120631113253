// Redrawing and showing are two things: what only uncovers the window shows the kept picture again.
#include "ui/circuit_view.h"

#include "editor/mouse_selection.h"
#include "imaging/painter_surface.h"
#include "render/redraw.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace pistaro {

CircuitView::CircuitView(Workbench& workbench) : workbench_(workbench) {
    setObjectName("picCircuit");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 200);
}

QSize CircuitView::PictureSize() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

void CircuitView::Redraw() {
    if (picture_.size() != PictureSize()) {
        picture_ = QImage(PictureSize(), QImage::Format_RGB32);
        picture_.setDevicePixelRatio(devicePixelRatioF());
    }
    DrawOn(picture_);
    update();
}

QImage CircuitView::PlainPicture() {
    QImage picture(size(), QImage::Format_RGB32);
    DrawOn(picture);
    return picture;
}

void CircuitView::DrawOn(QImage& picture) {
    QPainter painter(&picture);
    PainterSurface surface(painter, width(), background_);
    RedrawCircuit(workbench_.Design, surface);
}

void CircuitView::SetBackground(const QImage& background) {
    background_ = background;
    Redraw();
}

void CircuitView::paintEvent(QPaintEvent*) {
    if (picture_.size() != PictureSize()) Redraw(); // the window was resized or went to another screen
    QPainter(this).drawImage(QPointF(0, 0), picture_);
}

void CircuitView::mousePressEvent(QMouseEvent* event) {
    workbench_.Do([&] { SelectNearestElement(workbench_.Design, WorldAt(event->position())); });
}

void CircuitView::wheelEvent(QWheelEvent* event) {
    wheelTurn_ += event->angleDelta().y();
    for (; wheelTurn_ >= QWheelEvent::DefaultDeltasPerStep; wheelTurn_ -= QWheelEvent::DefaultDeltasPerStep)
        workbench_.Run(*FindCommand("zoom in"));
    for (; wheelTurn_ <= -QWheelEvent::DefaultDeltasPerStep; wheelTurn_ += QWheelEvent::DefaultDeltasPerStep)
        workbench_.Run(*FindCommand("zoom out"));
}

WorldPoint CircuitView::WorldAt(QPointF position) const {
    const ViewRectangle shown = ShownRectangle(workbench_.Design.View);
    const double cmPerPixel = (double{shown.ViewRight} - shown.ViewLeft) / width();
    return {static_cast<float>(shown.ViewLeft + position.x() * cmPerPixel),
            static_cast<float>(shown.ViewTop - position.y() * cmPerPixel)};
}

} // namespace pistaro
