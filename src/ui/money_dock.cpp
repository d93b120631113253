#include "ui/money_dock.h"

#include "editor/owned_track.h"
#include "model/money.h"
#include "money/purchase.h"
#include "ui/named_controls.h"
#include "ui/typed_number.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace pistaro {

namespace {

/// Lets only some columns be edited.
class ColumnDelegate : public QStyledItemDelegate {
public:
    ColumnDelegate(std::vector<int> columns, QObject* parent)
        : QStyledItemDelegate(parent), columns_(std::move(columns)) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        const bool edits = std::ranges::find(columns_, index.column()) != columns_.end();
        return edits ? QStyledItemDelegate::createEditor(parent, option, index) : nullptr;
    }

private:
    std::vector<int> columns_;
};

/// A price of 0 is none: nobody has entered one.
QString AmountIfKnown(Cents price, Cents amount) { return price == 0 ? QString() : Amount(amount); }

} // namespace

MoneyDock::MoneyDock(Session& session)
    : QDockWidget("Stock and Price"), session_(session), list_(Named(new PanelList, "lstMoney")),
      total_(Named(new QLabel, "lblMoney")) {
    setObjectName("fraMoney");
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(list_);
    column->addWidget(total_);
    total_->setTextFormat(Qt::PlainText);
    total_->setWordWrap(true);
    list_->setColumnCount(ColumnCount);
    list_->setHeaderLabels({"Code", "Piece", "Used", "Owned", "Missing", "Price", "Sum"});
    list_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list_->header()->setStretchLastSection(false);
    list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed);
    list_->setAccessibleName("Pieces and prices");
    if (!session.SettingsPath.empty())
        list_->setItemDelegate(new ColumnDelegate({OwnedColumn, Price}, list_));
    else
        list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWidget(content);
    connect(list_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int at) { Edited(*item, at); });
}

void MoneyDock::Refresh(const Changes& changes) {
    if ((changes.Circuit || changes.Stock || changes.Preferences) && isVisible()) CountLater();
}

void MoneyDock::showEvent(QShowEvent* event) {
    QDockWidget::showEvent(event);
    CountLater();
}

void MoneyDock::CountLater() {
    if (waiting_) return;
    waiting_ = true;
    QTimer::singleShot(0, this, [this] {
        waiting_ = false;
        if (isVisible()) Count();
    });
}

void MoneyDock::Count() {
    const QSignalBlocker quiet(list_);
    list_->clear();
    const Project& project = session_.Project;
    const Catalogue& catalogue = session_.Catalogue;
    const std::vector<int> used = CountUsedByProduct(catalogue, project.Design.Circuit);
    Cents toBuy = 0;
    int unpriced = 0;
    for (const int row : catalogue.ProductRows()) {
        const int count = used[static_cast<std::size_t>(row)];
        if (count == 0) continue;
        AddProduct(row, count);
        const ProductStock product = project.Stock[row];
        const int missing = std::max(0, count - product.OwnedCount);
        toBuy += CentsOf(product.Price) * missing;
        if (product.Price == 0) unpriced += missing;
    }
    QStringList parts;
    if (toBuy > 0 || unpriced == 0)
        parts += Amount(toBuy) + " " + Shown(CurrencySign(project.Preferences.Units.Currency));
    if (unpriced > 0) parts += QString::number(unpriced) + " without a price";
    total_->setText("To buy: " + parts.join(", and "));
}

void MoneyDock::AddProduct(int row, int used) {
    const CatalogueEntry& product = session_.Catalogue[row];
    const ProductStock stock = session_.Project.Stock[row];
    const int missing = std::max(0, used - stock.OwnedCount);
    const Cents price = CentsOf(stock.Price);
    auto* const item =
        new QTreeWidgetItem(list_, {Shown(ProductCode(product.Code)), Shown(product.LongName), QString::number(used),
                                    QString::number(stock.OwnedCount), QString::number(missing),
                                    AmountIfKnown(price, price), AmountIfKnown(price, price * missing)});
    for (int column = Used; column < ColumnCount; ++column)
        item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    item->setToolTip(OwnedColumn, "Type how many you own");
    item->setToolTip(Price, "Type what one costs");
    if (missing > 0) {
        QFont bold = item->font(Missing);
        bold.setBold(true);
        item->setFont(Missing, bold);
    }
}

void MoneyDock::Edited(const QTreeWidgetItem& item, int column) {
    const std::string typed = PlainNumber(item.text(column));
    const std::string code = item.text(Code).toStdString();
    session_.Do([&] {
        StockBoxes boxes = EmptyStockBoxes(session_.Catalogue);
        FillStockBoxes(session_.Catalogue, session_.Project.Stock, boxes);
        for (StockBox& box : boxes) {
            if (box.Tag == code) (column == Price ? box.Price : box.Owned) = typed;
        }
        KeepOwnedTrack(session_.Catalogue, session_.SettingsPath, session_.Project.Stock, boxes);
    });
    CountLater(); // what was refused shows as it was
}

} // namespace pistaro
