// An icon that is painted anew for every size, screen and colour scheme that asks for it.
#pragma once

#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace pistaro {

/// `Icon` is the kind itself, so that it can be copied.
template <typename Icon>
class PaintedIcon : public QIconEngine {
public:
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new Icon(static_cast<const Icon&>(*this)); }

protected:
    /// Of the palette, that a button in this mode takes its colours from.
    static QPalette::ColorGroup GroupOf(QIcon::Mode mode) {
        return mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    }
};

} // namespace pistaro
