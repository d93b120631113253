#include "ui/piece_badge.h"

#include "text/minus_text.h"
#include "ui/named_controls.h"
#include "ui/piece_icon.h"

#include <QWidget>

#include <algorithm>

namespace pistaro {

namespace {

const QColor TooFew(198, 40, 40);

} // namespace

void PaintBadge(QPainter& painter, const QRectF& place, int left, const QPalette& palette) {
    const QString number = Shown(WithMinus(std::to_string(left)));
    const QFontMetricsF letters(painter.font(), painter.device());
    const double height = letters.height();
    const double width = std::max(height, letters.horizontalAdvance(number) + height / 2);
    const QRectF badge(place.right() - width, place.top(), width, height);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QColor ground = left < 0 ? TooFew : palette.color(QPalette::Midlight);
    painter.setBrush(ground);
    painter.drawRoundedRect(badge, height / 2, height / 2);
    painter.setPen(qGray(ground.rgb()) > 128 ? Qt::black : Qt::white); // also where contrast is high
    painter.drawText(badge, Qt::AlignCenter, number);
    painter.restore();
}

namespace {

QPixmap BadgedPicture(const QIcon& piece, int left, const QWidget& shownIn, QIcon::Mode mode) {
    const double ratio = shownIn.devicePixelRatioF();
    QPixmap picture(QSize(PieceIconSide, PieceIconSide) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QRect whole(0, 0, PieceIconSide, PieceIconSide);
    piece.paint(&painter, whole, Qt::AlignCenter, mode);
    QFont small = shownIn.font();
    small.setPixelSize(11);
    painter.setFont(small);
    PaintBadge(painter, whole, left, shownIn.palette());
    return picture;
}

} // namespace

QIcon BadgedPieceIcon(const CatalogueEntry& piece, const Catalogue& catalogue, int left, const QWidget& shownIn) {
    const QIcon plain = PieceIcon(piece, catalogue);
    QIcon icon(BadgedPicture(plain, left, shownIn, QIcon::Normal));
    for (const QIcon::Mode chosen : {QIcon::Selected, QIcon::Active}) // in a list, in a menu
        icon.addPixmap(BadgedPicture(plain, left, shownIn, QIcon::Selected), chosen);
    return icon;
}

} // namespace pistaro
