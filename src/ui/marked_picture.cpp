#include "ui/marked_picture.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

const QColor MarkColour(255, 140, 0);
constexpr double MarkArm = 9; ///< pixels, of a mark's cross

double DistanceBetween(QPointF one, QPointF other) { return std::hypot(one.x() - other.x(), one.y() - other.y()); }

/// A cross on a dark one, so that it is seen on any picture.
void PaintMark(QPainter& painter, QPointF place) {
    for (const QPen& pen : {QPen(Qt::black, 4), QPen(MarkColour, 2)}) {
        painter.setPen(pen);
        painter.drawLine(place - QPointF(MarkArm, 0), place + QPointF(MarkArm, 0));
        painter.drawLine(place - QPointF(0, MarkArm), place + QPointF(0, MarkArm));
    }
}

} // namespace

MarkedPicture::MarkedPicture(QImage picture, std::function<void()> marked)
    : picture_(std::move(picture)), marked_(std::move(marked)) {
    setMinimumSize(400, 320);
    setCursor(Qt::CrossCursor);
    setMouseTracking(true);
}

void MarkedPicture::SetMarks(std::vector<QPointF> marks) {
    marks_ = std::move(marks);
    update();
}

void MarkedPicture::SetWords(const QString& words) {
    words_ = words;
    update();
}

void MarkedPicture::SetOpacity(double opacity) {
    opacity_ = opacity;
    update();
}

std::optional<double> MarkedPicture::Distance() const {
    if (marks_.size() < 2) return std::nullopt;
    return DistanceBetween(marks_[0], marks_[1]);
}

void MarkedPicture::SetTurn(double turn) {
    turn_ = turn;
    Fit();
    update();
}

QTransform MarkedPicture::OnScreen() const {
    return QTransform::fromTranslate(corner_.x(), corner_.y()).rotateRadians(turn_).scale(scale_, scale_);
}

QRectF MarkedPicture::Turned() const { return QTransform().rotateRadians(turn_).mapRect(QRectF(picture_.rect())); }

double MarkedPicture::FittingScale() const {
    const QSizeF size = Turned().size();
    return std::min(width() / size.width(), height() / size.height());
}

void MarkedPicture::Fit() {
    scale_ = FittingScale();
    corner_ = QPointF(width(), height()) / 2 - Turned().center() * scale_;
}

void MarkedPicture::resizeEvent(QResizeEvent*) { Fit(); }

void MarkedPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(OnScreen());
    if (opacity_ < 1) painter.fillRect(picture_.rect(), palette().color(QPalette::Base));
    painter.setOpacity(opacity_);
    painter.drawImage(QPointF(), picture_);
    painter.setOpacity(1);
    painter.resetTransform();
    if (marks_.size() == 2) PaintLine(painter);
    for (const QPointF mark : marks_)
        PaintMark(painter, PlaceOf(mark));
}

/// From mark to mark, with its words on a plate in its middle.
void MarkedPicture::PaintLine(QPainter& painter) const {
    const QPointF from = PlaceOf(marks_[0]);
    const QPointF to = PlaceOf(marks_[1]);
    painter.setPen(QPen(MarkColour, 1.5, Qt::DashLine));
    painter.drawLine(from, to);
    constexpr int margin = 3;
    QRectF plate = painter.fontMetrics().boundingRect(words_).adjusted(-margin, -margin, margin, margin);
    plate.moveCenter((from + to) / 2);
    if (words_.isEmpty() || DistanceBetween(from, to) < 2 * plate.width()) return; // it would hide the marks
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 220));
    painter.drawRoundedRect(plate, margin, margin);
    painter.setPen(Qt::black);
    painter.drawText(plate, Qt::AlignCenter, words_);
}

std::optional<std::size_t> MarkedPicture::MarkAt(QPointF place) const {
    for (std::size_t mark = 0; mark < marks_.size(); ++mark) {
        if (DistanceBetween(PlaceOf(marks_[mark]), place) <= MarkArm) return mark;
    }
    return std::nullopt;
}

void MarkedPicture::Move(std::size_t mark, QPointF pixel) {
    marks_[mark] = {std::clamp(pixel.x(), 0.0, static_cast<double>(picture_.width())),
                    std::clamp(pixel.y(), 0.0, static_cast<double>(picture_.height()))};
    update();
    marked_();
}

void MarkedPicture::Mark(QPointF pixel) {
    if (marks_.size() < 2) marks_.push_back(pixel);
    const bool first = DistanceBetween(marks_.front(), pixel) < DistanceBetween(marks_.back(), pixel);
    Move(first ? 0 : marks_.size() - 1, pixel);
}

void MarkedPicture::mousePressEvent(QMouseEvent* event) {
    pressed_ = moved_ = event->position();
    held_ = event->button() == Qt::LeftButton ? MarkAt(pressed_) : std::nullopt;
    drags_ = false;
}

void MarkedPicture::mouseMoveEvent(QMouseEvent* event) {
    const QPointF place = event->position();
    if (event->buttons() == Qt::NoButton) return setCursor(MarkAt(place) ? Qt::SizeAllCursor : Qt::CrossCursor);
    drags_ = drags_ || (place - pressed_).manhattanLength() >= QApplication::startDragDistance();
    if (!drags_) return;
    if (held_) return Move(*held_, PixelAt(place));
    corner_ += place - moved_;
    moved_ = place;
    update();
}

void MarkedPicture::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF pixel = PixelAt(event->position());
    const bool marks = !drags_ && !held_ && event->button() == Qt::LeftButton;
    if (marks && QRectF(picture_.rect()).contains(pixel)) Mark(pixel);
    drags_ = false;
    held_.reset();
}

void MarkedPicture::wheelEvent(QWheelEvent* event) {
    constexpr double most = 16;
    const QPointF pixel = PixelAt(event->position());
    const double turns = event->angleDelta().y() / static_cast<double>(QWheelEvent::DefaultDeltasPerStep);
    scale_ = std::clamp(scale_ * std::pow(1.25, turns), FittingScale() / 2, std::max(most, FittingScale()));
    corner_ += event->position() - PlaceOf(pixel);
    update();
    event->accept();
}

} // namespace pistaro
