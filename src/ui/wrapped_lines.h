// Lines of a list that go on below themselves where the list is too narrow for them.
#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace pistaro {

/// Makes each line as high as its texts need it in columns of that width; of itself the toolkit's list does not know.
class WrappedLines : public QStyledItemDelegate {
public:
    explicit WrappedLines(QTreeView& list) : QStyledItemDelegate(&list), list_(list) {
        connect(list.header(), &QHeaderView::sectionResized, this, [this] { emit sizeHintChanged({}); });
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem wrapped = option;
        constexpr int anyHeight = 10'000;
        if (index.column() > 0) wrapped.rect = QRect(0, 0, list_.columnWidth(index.column()), anyHeight);
        constexpr int between = 2; // pixels, so that it is seen where a line ends
        return QStyledItemDelegate::sizeHint(wrapped, index) + QSize(0, between);
    }

private:
    const QTreeView& list_;
};

} // namespace pistaro
