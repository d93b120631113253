// An icon that is painted anew at whatever size it is shown.
#pragma once

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace pistaro {

/// Who inherits it paints; its picture is that on a transparent ground.
class PaintedIconEngine : public QIconEngine {
public:
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }
};

} // namespace pistaro
