// The style below tells frames by darker shades of the window's colour, of which black has none and dark grey few.
#include "ui/contrast_style.h"

#include "ui/desktop_colours.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace pistaro {

namespace {

/// What can be typed into or switched must be seen on a dark window, too; of high contrast is all that can be pressed.
bool HasFrame(QStyle::PrimitiveElement element, bool highContrast) {
    switch (static_cast<int>(element)) {
    case QStyle::PE_PanelLineEdit:
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_PanelMenu: // over a window of the same colour
        return true;
    case QStyle::PE_PanelButtonCommand:
    case QStyle::PE_PanelButtonTool:
    case QStyle::PE_Frame:
        return highContrast;
    default:
        return false;
    }
}

/// Of the colour of words where contrast is high, else a shade of it; thick where the keyboard is.
void PaintFrame(QPainter& painter, const QStyleOption& option, bool round) {
    const bool focused = option.state & QStyle::State_HasFocus;
    const double width = focused ? 2 : 1;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, round);
    painter.setBrush(Qt::NoBrush);
    const QPalette::ColorRole plain = HasHighContrast(option.palette) ? QPalette::WindowText : QPalette::Mid;
    painter.setPen(QPen(option.palette.color(focused ? QPalette::Highlight : plain), width));
    const QRectF frame = QRectF(option.rect).adjusted(width / 2, width / 2, -width / 2, -width / 2);
    round ? painter.drawEllipse(frame) : painter.drawRect(frame);
    painter.restore();
}

/// The dot of what is chosen, which the style below draws pale.
void PaintDot(QPainter& painter, const QStyleOption& option) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(option.palette.color(QPalette::Text));
    const QRectF ring(option.rect);
    painter.drawEllipse(ring.center(), ring.width() / 4, ring.height() / 4);
    painter.restore();
}

/// The line across a menu, behind the words of a heading: the style below draws it darker than the menu.
void PaintSeparator(QPainter& painter, const QStyleOptionMenuItem& entry) {
    constexpr int margin = 5;
    const int words = entry.text.isEmpty() ? 0 : entry.fontMetrics.horizontalAdvance(entry.text) + margin;
    painter.save();
    painter.setPen(entry.palette.color(QPalette::Disabled, QPalette::Mid));
    const int middle = entry.rect.center().y();
    painter.drawLine(entry.rect.left() + margin + words, middle, entry.rect.right() - margin, middle);
    painter.restore();
}

} // namespace

void ContrastStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorRadioButton) {
        PaintFrame(*painter, *option, true);
        const bool isPale = IsDark(option->palette) || HasHighContrast(option->palette);
        if (option->state & State_On && isPale) PaintDot(*painter, *option);
    }
    if (HasFrame(element, HasHighContrast(option->palette))) PaintFrame(*painter, *option, false);
}

void ContrastStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    const auto* const entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const bool isSeparator =
        element == CE_MenuItem && entry != nullptr && entry->menuItemType == QStyleOptionMenuItem::Separator;
    if (isSeparator && IsDark(entry->palette)) PaintSeparator(*painter, *entry);
}

QSize ContrastStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                      const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const auto* const entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const bool isHeading = type == CT_MenuItem && entry != nullptr &&
                           entry->menuItemType == QStyleOptionMenuItem::Separator && !entry->text.isEmpty();
    constexpr int around = 10;
    if (isHeading) size.setHeight(std::max(size.height(), entry->fontMetrics.height() + around));
    return size;
}

void ContrastStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                       const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (!HasHighContrast(option->palette)) return;
    if (control == CC_ComboBox || control == CC_SpinBox) PaintFrame(*painter, *option, false);
    if (control != CC_ScrollBar) return;
    QStyleOption slider(*option);
    slider.rect = subControlRect(control, option, SC_ScrollBarSlider, widget);
    PaintFrame(*painter, slider, false);
}

} // namespace pistaro
