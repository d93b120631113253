// Menus of pieces, with pictures large enough to tell them apart.
#pragma once

#include "ui/contrast_style.h"
#include "ui/piece_icon.h"

#include <QMenu>

namespace pistaro {

class PieceMenuStyle : public ContrastStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_SmallIconSize ? PieceIconSide : ContrastStyle::pixelMetric(metric, option, widget);
    }
};

/// Has a menu show its entries' icons as large as a piece's button does.
inline void ShowLargeIcons(QMenu& menu) {
    auto* const style = new PieceMenuStyle;
    style->setParent(&menu);
    menu.setStyle(style);
}

} // namespace pistaro
