#include "ui/fold_handle.h"

#include "ui/desktop_colours.h"

#include <QPainter>

namespace pistaro {

namespace {

constexpr int Width = 12;

} // namespace

FoldHandle::FoldHandle(Qt::Edge side) : side_(side) {
    setFocusPolicy(Qt::TabFocus); // the mouse leaves the keyboard where it is
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setAttribute(Qt::WA_Hover);
}

QSize FoldHandle::sizeHint() const { return {Width, 4 * Width}; }

/// An arrow head to where the column goes; it is stronger under the mouse, and where there is something to unfold.
void FoldHandle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isFolded = !isChecked();
    const bool isMeant = underMouse();
    QColor ground = palette().color(isMeant ? QPalette::Highlight : QPalette::ButtonText);
    ground.setAlphaF(isMeant ? 0.35F : isFolded ? 0.14F : 0.05F);
    const bool isFramed = HasHighContrast(palette()); // as all that can be pressed is
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 1.5)
                   : isFramed ? QPen(palette().color(QPalette::WindowText), 1)
                              : QPen(Qt::NoPen));
    painter.setBrush(ground);
    constexpr double round = 4;
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 0, -1, 0), round, round);
    QColor ink = palette().color(QPalette::ButtonText);
    ink.setAlphaF(isMeant || isFolded || isFramed ? 1 : 0.6F);
    painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    constexpr double reach = 2.2;
    const double way = (side_ == Qt::LeftEdge) == isFolded ? reach : -reach;
    const QPointF middle = QRectF(rect()).center();
    const QPointF arrow[] = {middle + QPointF(-way, -2 * reach), middle + QPointF(way, 0),
                             middle + QPointF(-way, 2 * reach)};
    painter.drawPolyline(arrow, std::size(arrow));
}

} // namespace pistaro
