#include "ui/marked_picture.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

double DistanceBetween(QPointF one, QPointF other) { return std::hypot(one.x() - other.x(), one.y() - other.y()); }

/// A cross on a dark one, so that it is seen on any picture.
void PaintMark(QPainter& painter, QPointF place) {
    constexpr double arm = 9; // pixels
    for (const QPen& pen : {QPen(Qt::black, 4), QPen(QColor(255, 140, 0), 2)}) {
        painter.setPen(pen);
        painter.drawLine(place - QPointF(arm, 0), place + QPointF(arm, 0));
        painter.drawLine(place - QPointF(0, arm), place + QPointF(0, arm));
    }
}

} // namespace

MarkedPicture::MarkedPicture(QImage picture, std::function<void()> marked)
    : picture_(std::move(picture)), marked_(std::move(marked)) {
    setMinimumSize(400, 320);
    setCursor(Qt::CrossCursor);
}

std::optional<double> MarkedPicture::Distance() const {
    if (marks_.size() < 2) return std::nullopt;
    return DistanceBetween(marks_[0], marks_[1]);
}

double MarkedPicture::FittingScale() const {
    return std::min(static_cast<double>(width()) / picture_.width(), static_cast<double>(height()) / picture_.height());
}

void MarkedPicture::resizeEvent(QResizeEvent*) {
    scale_ = FittingScale();
    corner_ = QPointF(width() - picture_.width() * scale_, height() - picture_.height() * scale_) / 2;
}

void MarkedPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(corner_, QSizeF(picture_.size()) * scale_), picture_);
    if (marks_.size() == 2) {
        painter.setPen(QPen(QColor(255, 140, 0), 1.5, Qt::DashLine));
        painter.drawLine(PlaceOf(marks_[0]), PlaceOf(marks_[1]));
    }
    for (const QPointF mark : marks_)
        PaintMark(painter, PlaceOf(mark));
}

void MarkedPicture::Mark(QPointF pixel) {
    if (marks_.size() < 2) {
        marks_.push_back(pixel);
    } else {
        const bool first = DistanceBetween(marks_[0], pixel) < DistanceBetween(marks_[1], pixel);
        marks_[first ? 0 : 1] = pixel;
    }
    update();
    marked_();
}

void MarkedPicture::mousePressEvent(QMouseEvent* event) {
    pressed_ = moved_ = event->position();
    drags_ = false;
}

void MarkedPicture::mouseMoveEvent(QMouseEvent* event) {
    const QPointF place = event->position();
    drags_ = drags_ || (place - pressed_).manhattanLength() >= QApplication::startDragDistance();
    if (drags_) corner_ += place - moved_;
    if (drags_) moved_ = place;
    update();
}

void MarkedPicture::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF pixel = PixelAt(event->position());
    if (!drags_ && event->button() == Qt::LeftButton && QRectF(picture_.rect()).contains(pixel)) Mark(pixel);
    drags_ = false;
}

void MarkedPicture::wheelEvent(QWheelEvent* event) {
    constexpr double most = 16;
    const QPointF pixel = PixelAt(event->position());
    const double turns = event->angleDelta().y() / static_cast<double>(QWheelEvent::DefaultDeltasPerStep);
    scale_ = std::clamp(scale_ * std::pow(1.25, turns), FittingScale() / 2, std::max(most, FittingScale()));
    corner_ = event->position() - pixel * scale_;
    update();
    event->accept();
}

} // namespace pistaro
