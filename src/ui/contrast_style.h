// Windows on dark grounds and of high contrast: what the style below draws, with frames that can be seen.
#pragma once

#include <QProxyStyle>

namespace pistaro {

class ContrastStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace pistaro
