#include "ui/design_picture.h"

#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace pistaro {

namespace {

/// As most rooms are.
int HeightFor(int width) { return width * 3 / 4; }

} // namespace

DesignPicture::DesignPicture(Session& session, const char* name, const QString& accessibleName) : session_(session) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    constexpr int least = 160;
    setMinimumSize(least, HeightFor(least));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int DesignPicture::heightForWidth(int width) const { return HeightFor(width); }

void DesignPicture::Show(std::optional<Design> design, const MarkedPieces& marked, const QString& instead) {
    design_ = std::move(design);
    marked_ = marked;
    instead_ = instead;
    drawn_ = {};
    update();
}

void DesignPicture::mousePressEvent(QMouseEvent* event) {
    if (!Pressed || !design_ || event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
    Pressed(GroundAt(event->position(), session_.Catalogue, *design_, size()),
            event->modifiers().testFlag(Qt::ShiftModifier));
}

void DesignPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!design_) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, instead_);
        return;
    }
    const qreal ratio = devicePixelRatioF();
    if (drawn_.isNull() || drawn_.deviceIndependentSize() != QSizeF(size()) || drawn_.devicePixelRatioF() != ratio)
        drawn_ = WorkPicture(session_.Catalogue, *design_, session_.Project.Preferences, size(), ratio, marked_);
    painter.drawImage(QPointF(0, 0), drawn_);
}

void DesignPicture::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) drawn_ = {};
}

} // namespace pistaro
