// How the cells of a table of fields look, and how an entry in one of them is made and ended.
#pragma once

#include "ui/field_table.h"

#include <QStyledItemDelegate>

#include <optional>

namespace pistaro {

class FieldDelegate : public QStyledItemDelegate {
public:
    static constexpr int Inset = 1; ///< pixels between a field and its cell

    explicit FieldDelegate(FieldTable& table) : QStyledItemDelegate(&table), table_(table) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::optional<EndEditHint> WayOf(int key) const;

    FieldTable& table_;
};

} // namespace pistaro
