// How many of a piece are left, in the corner of its picture.
#pragma once

#include "catalogue/catalogue.h"

#include <QIcon>
#include <QPainter>
#include <QPalette>

namespace pistaro {

/// Paints the number into the upper right corner of `place`, in the painter's font; red below 0.
void PaintBadge(QPainter& painter, const QRectF& place, int left, const QPalette& palette);

/// The piece's picture with its badge, for lists and menus.
QIcon BadgedPieceIcon(const CatalogueEntry& piece, const Catalogue& catalogue, int left, const QWidget& shownIn);

} // namespace pistaro
