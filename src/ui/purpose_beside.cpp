#include "ui/purpose_beside.h"

#include <QAbstractItemView>
#include <QPainter>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int Gap = 16; ///< pixels
constexpr int PurposeRole = Qt::UserRole + 1;

QString PurposeOf(const QModelIndex& index) { return index.data(PurposeRole).toString(); }

int CaptionsWidth(const QAbstractItemModel& model, const QFontMetrics& metrics) {
    int widest = 0;
    for (int row = 0; row < model.rowCount(); ++row)
        widest = std::max(widest, metrics.horizontalAdvance(model.index(row, 0).data().toString()));
    return widest;
}

int WidthOf(const QComboBox& list) {
    int widest = 0;
    for (int row = 0; row < list.count(); ++row)
        widest = std::max(widest, list.fontMetrics().horizontalAdvance(PurposeOf(list.model()->index(row, 0))));
    return CaptionsWidth(*list.model(), list.fontMetrics()) + widest + 3 * Gap;
}

} // namespace

PurposeBeside::PurposeBeside(QComboBox& list) : QStyledItemDelegate(&list) {
    list.setItemDelegate(this);
    list.view()->setMinimumWidth(WidthOf(list));
}

void PurposeBeside::Add(QComboBox& list, const QString& caption, const QVariant& value, const QString& purpose) {
    list.addItem(caption, value);
    list.setItemData(list.count() - 1, purpose, PurposeRole);
}

void PurposeBeside::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const bool chosen = option.state & QStyle::State_Selected;
    painter->setPen(option.palette.color(chosen ? QPalette::HighlightedText : QPalette::PlaceholderText));
    const QRect place = option.rect.adjusted(CaptionsWidth(*index.model(), option.fontMetrics) + Gap, 0, 0, 0);
    painter->drawText(place, Qt::AlignVCenter | Qt::AlignLeft, PurposeOf(index));
}

QSize PurposeBeside::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    constexpr int air = 6; // pixels
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, air);
}

} // namespace pistaro
