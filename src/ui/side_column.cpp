#include "ui/side_column.h"

#include <QEvent>
#include <QScrollBar>

#include <algorithm>

namespace pistaro {

SideColumn::SideColumn(QWidget* content) {
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    FitWidth();
}

bool SideColumn::event(QEvent* event) {
    const bool done = QScrollArea::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize || event->type() == QEvent::Show)
        FitWidth();
    return done;
}

void SideColumn::FitWidth() {
    const QSize content = widget()->minimumSizeHint();
    const int bar = content.height() > height() ? verticalScrollBar()->sizeHint().width() : 0;
    setFixedWidth(std::max(content.width(), widget()->minimumWidth()) + bar);
}

} // namespace pistaro
