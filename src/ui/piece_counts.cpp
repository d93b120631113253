#include "ui/piece_counts.h"

#include "ui/named_controls.h"

#include <QHeaderView>
#include <QSpinBox>
#include <QStyledItemDelegate>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int CountColumn = 1;

/// Takes whole numbers that a box may hold, in the column of counts alone.
class CountDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override {
        if (index.column() != CountColumn) return nullptr;
        auto* const editor = new QSpinBox(parent);
        editor->setRange(0, MostOfProduct);
        editor->setFrame(false);
        return editor;
    }
};

/// The product's code, with the hand where each hand is a product of its own.
QString NameOf(const Catalogue& catalogue, int row) {
    const std::string& code = catalogue[row].Code;
    const std::string_view product = ProductCode(code);
    const auto isNamesake = [&](int other) { return ProductCode(catalogue[other].Code) == product; };
    return Shown(std::ranges::count_if(catalogue.HeadRows(), isNamesake) > 1 ? std::string_view(code) : product);
}

} // namespace

PieceCounts::PieceCounts(const Catalogue& catalogue) : catalogue_(catalogue) {
    setColumnCount(3);
    setHeaderLabels({"Code", "Count", "Piece"});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemDelegate(new CountDelegate(this));
    setEditTriggers(QAbstractItemView::AllEditTriggers);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setAccessibleName("Pieces in the box");
    for (const int row : catalogue.HeadRows()) {
        auto* const item =
            new QTreeWidgetItem(this, {NameOf(catalogue, row), QString(), Shown(catalogue[row].LongName)});
        item->setData(0, Qt::UserRole, row);
        item->setData(CountColumn, Qt::EditRole, 0);
        item->setTextAlignment(CountColumn, Qt::AlignRight | Qt::AlignVCenter);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    // A click anywhere in a line is for its count, the only thing to edit there.
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { editItem(item, CountColumn); });
}

void PieceCounts::Show(const PieceBox& box) {
    for (int line = 0; line < topLevelItemCount(); ++line) {
        QTreeWidgetItem& item = *topLevelItem(line);
        const auto row = static_cast<std::size_t>(item.data(0, Qt::UserRole).toInt());
        item.setData(CountColumn, Qt::EditRole, box.Counts[row]);
        QFont font = item.font(0);
        font.setBold(box.Counts[row] > 0);
        item.setFont(CountColumn, font);
    }
}

PieceBox PieceCounts::Box() const {
    PieceBox box{std::vector<int>(static_cast<std::size_t>(catalogue_.Count()))};
    for (int line = 0; line < topLevelItemCount(); ++line) {
        const QTreeWidgetItem& item = *topLevelItem(line);
        const auto row = static_cast<std::size_t>(item.data(0, Qt::UserRole).toInt());
        box.Counts[row] = item.data(CountColumn, Qt::EditRole).toInt();
    }
    return box;
}

} // namespace pistaro
