// Windows on dark grounds and of high contrast: what the style below draws, with frames that can be seen.
#pragma once

#include <QProxyStyle>

namespace pistaro {

class ContrastStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

    /// Room above a menu's first entry and below its last.
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_MenuVMargin ? 4 : QProxyStyle::pixelMetric(metric, option, widget);
    }

    /// A menu's heading has room around its words, which the style below gives no more than a line.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;

    /// Words that are disabled have no second, light outline, which shows double on dark grounds.
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_EtchDisabledText ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

} // namespace pistaro
