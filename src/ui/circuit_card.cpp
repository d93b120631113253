#include "ui/circuit_card.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int Lines = 2; ///< of words below the picture
constexpr int Between = 5;
constexpr double Pale = 0.35;
constexpr const char* TickWord = "Keep";

QSize IndicatorSize(const QStyle& style) {
    return {style.pixelMetric(QStyle::PM_IndicatorWidth), style.pixelMetric(QStyle::PM_IndicatorHeight)};
}

/// Of the line above the picture, in which the box to be ticked has its place.
int CaptionHeight(const QFontMetrics& letters, const QStyle& style) {
    return std::max(letters.height(), IndicatorSize(style).height());
}

QRect CaptionRect(const QRect& card, int pictureWidth, const QFontMetrics& letters, const QStyle& style) {
    const QPoint corner = card.topLeft() + QPoint(CircuitCard::Margin, CircuitCard::Margin);
    return {corner, QSize(pictureWidth, CaptionHeight(letters, style))};
}

/// Of a card's box to be ticked, at the end of the caption.
QRect TickRect(const QRect& caption, const QStyle& style) {
    QRect box(QPoint(0, 0), IndicatorSize(style));
    box.moveCenter(caption.center());
    box.moveRight(caption.right() - 1);
    return box;
}

/// Of the word before it.
QRect TickWordRect(const QRect& caption, const QFontMetrics& letters, const QStyle& style) {
    const int width = letters.horizontalAdvance(TickWord) + 1;
    return {TickRect(caption, style).left() - Between - width, caption.top(), width, caption.height()};
}

void PaintTick(QPainter& painter, const QStyleOptionViewItem& card, const QRect& caption) {
    const QStyle& style = *card.widget->style();
    QStyleOptionButton box;
    box.rect = TickRect(caption, style);
    box.palette = card.palette;
    box.state = QStyle::State_Enabled | (card.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off);
    painter.drawText(TickWordRect(caption, card.fontMetrics, style), Qt::AlignLeft | Qt::AlignVCenter, TickWord);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, card.widget);
    painter.setOpacity(Pale);
    painter.drawRect(box.rect.adjusted(0, 0, -1, -1)); // its own edge is not seen in dark surroundings
    painter.setOpacity(1);
}

/// The card's number, and as much of the note behind it as there is room for.
void PaintCaption(QPainter& painter, const QRect& caption, int wide, const QString& number, const QString& note) {
    const QFont plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(caption, Qt::AlignLeft | Qt::AlignVCenter, number);
    const int from = painter.fontMetrics().horizontalAdvance(number) + 2 * Between;
    painter.setFont(plain);
    const QRect place(caption.left() + from, caption.top(), wide - from, caption.height());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(note, Qt::ElideRight, place.width()));
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

QSize CircuitCard::CardSize(const QSize& picture, const QFontMetrics& letters, const QStyle& style) {
    return {picture.width() + 2 * Margin,
            picture.height() + 4 * Margin + CaptionHeight(letters, style) + Lines * letters.height()};
}

QRect CircuitCard::TickTarget(const QRect& card, int pictureWidth, const QFontMetrics& letters, const QStyle& style) {
    const QRect caption = CaptionRect(card, pictureWidth, letters, style);
    return (TickRect(caption, style) | TickWordRect(caption, letters, style)).adjusted(-Between, -Margin, Margin, 0);
}

bool CircuitCard::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                              const QModelIndex& index) {
    const bool isRelease = event->type() == QEvent::MouseButtonRelease;
    if (!isRelease && event->type() != QEvent::MouseButtonPress)
        return QStyledItemDelegate::editorEvent(event, model, option, index); // the space bar ticks
    const auto& mouse = dynamic_cast<const QMouseEvent&>(*event);
    const QRect target =
        TickTarget(option.rect, option.decorationSize.width(), option.fontMetrics, *option.widget->style());
    if (mouse.button() != Qt::LeftButton || !target.contains(mouse.position().toPoint())) return false;
    const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    if (isRelease) model->setData(index, isTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    return true;
}

QSize CircuitCard::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return CardSize(option.decorationSize, option.fontMetrics, *option.widget->style());
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
    painter->setPen(option.palette.color(group, isChosen ? QPalette::HighlightedText : QPalette::Text));
    const QStyle& style = *card.widget->style();
    const QRect caption = CaptionRect(option.rect, option.decorationSize.width(), option.fontMetrics, style);
    const QStringList lines = index.data(Qt::DisplayRole).toString().split('\n');
    const int wide = TickWordRect(caption, option.fontMetrics, style).left() - Between - caption.left();
    PaintCaption(*painter, caption, wide, QString::number(index.row() + 1), lines.mid(Lines).join(", "));
    PaintTick(*painter, card, caption);
    const QRect picture(caption.bottomLeft() + QPoint(0, 1 + Margin), option.decorationSize);
    PaintPicture(*painter, card, picture);
    QRect line(picture.left(), picture.bottom() + Margin, picture.width(), option.fontMetrics.height());
    for (const QString& text : lines.mid(0, Lines)) {
        PaintLine(*painter, line, text);
        line.translate(0, line.height());
    }
    painter->restore();
}

void CircuitCard::PaintPicture(QPainter& painter, const QStyleOptionViewItem& card, const QRect& place) const {
    if (IsPale) painter.fillRect(place, card.palette.color(QPalette::Base));
    painter.setOpacity(IsPale ? Pale : 1);
    card.icon.paint(&painter, place);
    painter.setOpacity(1);
}

} // namespace pistaro
