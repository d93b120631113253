#include "ui/piece_badge.h"

#include "ui/piece_icon.h"

#include <QWidget>

#include <algorithm>

namespace pistaro {

namespace {

const QColor TooFew(198, 40, 40);

} // namespace

void PaintBadge(QPainter& painter, const QRectF& place, int left, const QPalette& palette) {
    const QString number = QString::number(left).replace('-', "−");
    const QFontMetricsF letters(painter.font(), painter.device());
    const double height = letters.height();
    const double width = std::max(height, letters.horizontalAdvance(number) + height / 2);
    const QRectF badge(place.right() - width, place.top(), width, height);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(left < 0 ? TooFew : palette.color(QPalette::Midlight));
    painter.drawRoundedRect(badge, height / 2, height / 2);
    painter.setPen(left < 0 ? QColor(Qt::white) : palette.color(QPalette::ButtonText));
    painter.drawText(badge, Qt::AlignCenter, number);
    painter.restore();
}

QIcon BadgedPieceIcon(const CatalogueEntry& piece, const Catalogue& catalogue, int left, const QWidget& shownIn) {
    const double ratio = shownIn.devicePixelRatioF();
    QPixmap picture(QSize(PieceIconSide, PieceIconSide) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QRect whole(0, 0, PieceIconSide, PieceIconSide);
    PieceIcon(piece, catalogue).paint(&painter, whole);
    QFont small = shownIn.font();
    small.setPixelSize(11);
    painter.setFont(small);
    PaintBadge(painter, whole, left, shownIn.palette());
    return QIcon(picture);
}

} // namespace pistaro
