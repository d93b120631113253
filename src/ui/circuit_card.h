// How a found circuit looks in the list: a line with its number and a box to be ticked, its picture, a few words
// below.
#pragma once

#include <QStyledItemDelegate>

namespace pistaro {

/// Paints a card from an item's icon and its lines of text: the first two stand below the picture, parted by their
/// first comma; what follows is a note that stands behind the number, as far as there is room.
class CircuitCard : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int Margin = 6;

    /// Of a picture below which the words have room.
    static int LeastWidth(const QFontMetrics& letters);

    /// A picture of that width, and the card around it.
    static QSize PictureSize(int width);
    static QSize CardSize(const QSize& picture, const QFontMetrics& letters, const QStyle& style);

    /// Where a click ticks a card: the box, the word before it and a little more.
    static QRect TickTarget(const QRect& card, int pictureWidth, const QFontMetrics& letters, const QStyle& style);

    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    bool IsPale = false; ///< all of them

private:
    void PaintPicture(QPainter& painter, const QStyleOptionViewItem& card, const QRect& place) const;
};

} // namespace pistaro
