// How a found circuit looks in the list: its picture with a number and a box to be ticked in the corners, a few words
// below.
#pragma once

#include <QStyledItemDelegate>

namespace pistaro {

/// Paints a card from an item's icon and its lines of text: the first two stand below the picture, parted by their
/// first comma; what follows is a note that lies over the picture's lower edge.
class CircuitCard : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int Margin = 6;

    /// Of a picture below which the words have room.
    static int LeastWidth(const QFontMetrics& letters);

    /// A picture of that width, and the card around it.
    static QSize PictureSize(int width);
    static QSize CardSize(const QSize& picture, const QFontMetrics& letters);

    /// Where a click ticks a card: a little more than the box that can be seen.
    static QRect TickTarget(const QRect& card, int pictureWidth, const QStyle& style);

    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    bool IsPale = false; ///< all of them
};

} // namespace pistaro
