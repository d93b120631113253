#include "imaging/badge_painter.h"

namespace pistaro {

namespace {

void PaintBadge(const NumberBadge& badge, QPainter& painter, const PainterSurface& surface, double dotsPerCm) {
    constexpr double line = 0.03; // cm
    painter.setPen(QPen(Qt::black, line * dotsPerCm, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    const QPointF middle = surface.PlaceOf(badge.Place);
    if (badge.StandsAside()) painter.drawLine(middle, surface.PlaceOf(badge.Foot));
    const QPointF half = QPointF(badge.Width, badge.Height) * dotsPerCm / 2;
    const QRectF ground(middle - half, middle + half);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(ground, half.y(), half.y());
    painter.setBrush(Qt::NoBrush);
    painter.drawText(ground, Qt::AlignCenter, QString::fromStdString(badge.Text));
}

} // namespace

void PaintBadges(const std::vector<NumberBadge>& badges, QPainter& painter, PainterSurface& surface, double dotsPerCm) {
    constexpr double points = 10; // of a badge of the common height
    if (badges.empty()) return;
    surface.SetFontSize(points * badges.front().Height / BadgeHeight);
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    for (const NumberBadge& badge : badges)
        PaintBadge(badge, painter, surface, dotsPerCm);
    surface.ForgetPen();
}

} // namespace pistaro
