#include "ui/mode_switch.h"

#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QTextOption>

#include <algorithm>

namespace pistaro {

namespace {

constexpr QSize Groove(36, 18);
constexpr int Gap = 8;

} // namespace

void ModeSwitch::ShowMode(bool inserting) {
    inserting_ = inserting;
    setAccessibleDescription(inserting ? "Insert is on: pieces go before the selected one"
                                       : "Build is on: pieces go to the end of the track");
    update();
}

QSize ModeSwitch::sizeHint() const {
    QFont bold = font();
    bold.setBold(true);
    const int label = QFontMetrics(bold).horizontalAdvance("Insert");
    return {Groove.width() + 2 * (label + 2 * Gap), std::max(fontMetrics().height(), Groove.height()) + Gap};
}

void ModeSwitch::PaintLabel(QPainter& painter, const QRect& place, Qt::Alignment side, const QString& label,
                            bool inForce) const {
    QFont letters = font();
    letters.setBold(inForce);
    painter.setFont(letters);
    QColor ink = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    if (!inForce) ink.setAlphaF(0.7F);
    painter.setPen(ink);
    painter.drawText(QRectF(place), label, QTextOption(Qt::AlignVCenter | side));
}

void ModeSwitch::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QRect groove(QPoint(), Groove);
    groove.moveCenter(rect().center());
    const QRect before(0, 0, groove.left() - Gap, height());
    const QRect after(groove.right() + Gap, 0, width() - groove.right() - Gap, height());
    PaintLabel(painter, before, Qt::AlignRight, "Build", !inserting_);
    PaintLabel(painter, after, Qt::AlignLeft, "Insert", inserting_);
    painter.setRenderHint(QPainter::Antialiasing);
    const double round = groove.height() / 2.0;
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    painter.setPen(palette().color(group, QPalette::Mid));
    painter.setBrush(palette().color(group, underMouse() ? QPalette::Midlight : QPalette::Base));
    painter.drawRoundedRect(QRectF(groove).adjusted(0.5, 0.5, -0.5, -0.5), round, round);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(group, QPalette::Highlight));
    const double knob = groove.height() - 6.0;
    painter.drawEllipse(
        QRectF(inserting_ ? groove.right() - 2 - knob : groove.left() + 3.0, groove.top() + 3.0, knob, knob));
    if (!hasFocus()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(1, 1, -1, -1);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

} // namespace pistaro
