// Entries of an open list with a second column, paler: what each is for.
#pragma once

#include <QComboBox>
#include <QStyledItemDelegate>

namespace pistaro {

class PurposeBeside : public QStyledItemDelegate {
public:
    /// Shows the purposes that the list's entries have from now on.
    explicit PurposeBeside(QComboBox& list);

    /// Adds an entry with its purpose.
    static void Add(QComboBox& list, const QString& caption, const QVariant& value, const QString& purpose);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace pistaro
