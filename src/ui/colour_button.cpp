#include "ui/colour_button.h"

#include "imaging/painter_surface.h"

#include <QKeyEvent>
#include <QPainter>

namespace pistaro {

ColourButton::ColourButton(Colour colour, QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    SetBackColour(colour);
}

void ColourButton::SetBackColour(Colour colour) {
    colour_ = colour;
    QPalette changed = palette();
    changed.setColor(QPalette::Button, ToQColor(colour));
    setPalette(changed);
    setToolTip(ToQColor(colour).name().toUpper());
}

void ColourButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}

void ColourButton::paintEvent(QPaintEvent*) {
    constexpr int focusMargin = 3;
    QPainter painter(this);
    const QRect frame = rect().adjusted(focusMargin, focusMargin, -focusMargin - 1, -focusMargin - 1);
    painter.setBrush(palette().color(QPalette::Button));
    painter.setPen(isDown() ? palette().color(QPalette::Highlight) : palette().color(QPalette::Dark));
    painter.drawRect(frame);
    if (!hasFocus()) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

} // namespace pistaro
