// The style draws a bar with the focus as it draws any other.
#include "ui/key_scroll_bar.h"

#include <QPainter>

namespace pistaro {

KeyScrollBar::KeyScrollBar(Qt::Orientation orientation) : QScrollBar(orientation) {
    setFocusPolicy(Qt::StrongFocus);
    if (orientation == Qt::Horizontal) setInvertedControls(false); // else its arrow keys go the other way
}

void KeyScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    constexpr int frame = 2;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), frame));
    painter.drawRect(rect().adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2));
}

} // namespace pistaro
