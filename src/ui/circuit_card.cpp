#include "ui/circuit_card.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace pistaro {

namespace {

constexpr int Lines = 2; ///< of words below the picture
constexpr int InCorner = 4;
constexpr double Pale = 0.35;

/// Of a card's box to be ticked, in the card.
QRect TickRect(const QRect& card, int pictureWidth, const QStyle& style) {
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth), style.pixelMetric(QStyle::PM_IndicatorHeight));
    const int right = card.left() + CircuitCard::Margin + pictureWidth;
    return {QPoint(right - InCorner - size.width(), card.top() + CircuitCard::Margin + InCorner), size};
}

/// On a plate, so that it is seen over a drawing of any colours.
void PaintTick(QPainter& painter, const QStyleOptionViewItem& card) {
    constexpr int around = 2;
    QStyleOptionButton box;
    box.rect = TickRect(card.rect, card.decorationSize.width(), *card.widget->style());
    box.palette = card.palette;
    box.state = QStyle::State_Enabled | (card.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off);
    painter.setPen(card.palette.color(QPalette::Text));
    painter.setBrush(card.palette.color(QPalette::Base));
    painter.drawRect(box.rect.adjusted(-around, -around, around - 1, around - 1));
    card.widget->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, card.widget);
}

/// Words on a plate in the midst of a line, so that they can be read over a drawing.
void PaintPlate(QPainter& painter, const QPalette& palette, const QRect& line, const QString& words) {
    constexpr double rounding = 3;
    const QString text = painter.fontMetrics().elidedText(words, Qt::ElideRight, line.width() - 2 * InCorner);
    QRect plate(0, 0, painter.fontMetrics().horizontalAdvance(text) + 2 * InCorner, line.height());
    plate.moveCenter(line.center());
    QColor ground = palette.color(QPalette::Base);
    ground.setAlphaF(0.85F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(plate, rounding, rounding);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(plate, Qt::AlignCenter, text);
}

/// A line's words before its first comma at the left, the others at the right.
void PaintLine(QPainter& painter, const QRect& line, const QString& text) {
    const QString right = text.section(", ", 1);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, right);
    const int room = line.width() - painter.fontMetrics().horizontalAdvance(right + " ");
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(text.section(", ", 0, 0), Qt::ElideRight, room));
}

} // namespace

int CircuitCard::LeastWidth(const QFontMetrics& letters) {
    return letters.horizontalAdvance("100 % of the box  88.88 m");
}

QSize CircuitCard::PictureSize(int width) { return {width, width * 2 / 3}; }

QSize CircuitCard::CardSize(const QSize& picture, const QFontMetrics& letters) {
    return {picture.width() + 2 * Margin, picture.height() + 3 * Margin + Lines * letters.height()};
}

QRect CircuitCard::TickTarget(const QRect& card, int pictureWidth, const QStyle& style) {
    constexpr int more = 6;
    return TickRect(card, pictureWidth, style).adjusted(-more, -more, more, more);
}

bool CircuitCard::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                              const QModelIndex& index) {
    const bool isRelease = event->type() == QEvent::MouseButtonRelease;
    if (!isRelease && event->type() != QEvent::MouseButtonPress)
        return QStyledItemDelegate::editorEvent(event, model, option, index); // the space bar ticks
    const auto& mouse = dynamic_cast<const QMouseEvent&>(*event);
    const QRect target = TickTarget(option.rect, option.decorationSize.width(), *option.widget->style());
    if (mouse.button() != Qt::LeftButton || !target.contains(mouse.position().toPoint())) return false;
    const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    if (isRelease) model->setData(index, isTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    return true;
}

QSize CircuitCard::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return CardSize(option.decorationSize, option.fontMetrics);
}

void CircuitCard::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem card = option;
    initStyleOption(&card, index);
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    const QPalette::ColorGroup group =
        option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    if (isChosen) painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        card.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, card.widget);
    }
    painter->save();
    painter->setFont(option.font);
    const QRect picture(option.rect.topLeft() + QPoint(Margin, Margin), option.decorationSize);
    if (IsPale) painter->fillRect(picture, option.palette.color(group, QPalette::Base));
    painter->setOpacity(IsPale ? Pale : 1);
    card.icon.paint(painter, picture);
    painter->setOpacity(1);
    painter->setPen(option.palette.color(group, isChosen ? QPalette::HighlightedText : QPalette::Text));
    const QStringList lines = index.data(Qt::DisplayRole).toString().split('\n');
    QRect line(picture.left(), picture.bottom() + Margin, picture.width(), option.fontMetrics.height());
    for (const QString& text : lines.mid(0, Lines)) {
        PaintLine(*painter, line, text);
        line.translate(0, line.height());
    }
    const int high = option.fontMetrics.height();
    const QString number = QString::number(index.row() + 1);
    const int wide = option.fontMetrics.horizontalAdvance(number) + 2 * InCorner + 1; // or a number loses its digits
    PaintPlate(*painter, option.palette, {picture.left() + InCorner, picture.top() + InCorner, wide, high}, number);
    const QString note = lines.mid(Lines).join(", ");
    const QRect foot(picture.left() + InCorner, picture.bottom() - high - InCorner, picture.width() - 2 * InCorner,
                     high);
    if (!note.isEmpty()) PaintPlate(*painter, option.palette, foot, note);
    painter->restore();
    PaintTick(*painter, card);
}

} // namespace pistaro
