#include "ui/money_dock.h"

#include "editor/owned_track.h"
#include "model/money.h"
#include "money/purchase.h"
#include "text/count_text.h"
#include "ui/command_controls.h"
#include "ui/named_controls.h"
#include "ui/typed_number.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <utility>

namespace pistaro {

namespace {

/// A price of 0 is none: nobody has entered one.
QString AmountIfKnown(Cents price, Cents amount) { return price == 0 ? QString() : Amount(amount); }

constexpr const char* NoProducts = "Lay pieces: here stands how many you own, which are missing, and what these cost.\n"
                                   "What you own is entered in Loose Track… (F3) as well, also what no design uses.";

} // namespace

MoneyDock::MoneyDock(Session& session)
    : QDockWidget("Stock and Price"), session_(session),
      list_(Named(new FieldTable({OwnedColumn, Price}, {Used, OwnedColumn, Missing, Price, Sum}), "lstMoney")),
      pieces_(Named(new ElidedLabel, "lblMoneyPieces")), total_(Named(new QLabel, "lblMoney")),
      hint_(Named(new ElidedLabel, "lblMoneyHint")) {
    setObjectName("fraMoney");
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(4, 0, 4, 2); // its height is the lines'
    column->setSpacing(3);
    column->addWidget(list_);
    auto* const totals = new QHBoxLayout;
    totals->addWidget(hint_, 1); // in the place of the pieces, so that the lines keep theirs
    totals->addWidget(pieces_, 1);
    totals->addWidget(total_);
    totals->addSpacing(totals->spacing());
    totals->addWidget(NewCommandButton("cmdMoneyStock", "Loose Track…", "loose track"));
    totals->addWidget(NewCommandButton("cmdMoneySets", "Sets…", "boxed sets"));
    totals->addWidget(NewCommandButton("cmdMoneyPurchase", "Cheapest Purchase…", "purchase"));
    column->addLayout(totals);
    total_->setTextFormat(Qt::PlainText);
    QFont bold = total_->font();
    bold.setBold(true);
    total_->setFont(bold);
    hint_->setTextFormat(Qt::PlainText);
    hint_->hide();
    setWidget(content);
    setFocusProxy(list_);
    SetUpList();
}

/// What comes next for whoever knows what is missing; the menus have the same.
QPushButton* MoneyDock::NewCommandButton(const char* name, const QString& caption, const char* id) {
    QPushButton* const button = NewButton(name, caption);
    const Command& command = *session_.Commands.Find(id);
    button->setToolTip(TipWithKey(command.Tip, command.Key));
    connect(button, &QPushButton::clicked, this, [this, &command] {
        list_->setFocus(); // where it comes back to from the dialog
        session_.TryRun(command);
    });
    return button;
}

void MoneyDock::SetUpList() {
    ShowHeadings();
    QHeaderView& header = *list_->header();
    list_->SetWords(Name);
    header.setSectionsClickable(true);
    header.setSortIndicator(-1, Qt::AscendingOrder);
    header.setSortIndicatorClearable(true);
    connect(&header, &QHeaderView::sortIndicatorChanged, this, [this](int section) {
        list_->header()->setSortIndicatorShown(section >= 0); // its place is the names' until then
        list_->EndEntry();
        List();
        Count();
    });
    list_->SetHint(Price, "price");
    list_->SetEmptyText(NoProducts);
    list_->setAccessibleName("Pieces and prices");
    if (session_.SettingsPath.empty()) list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(list_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        Keep({{item->text(Code), column, item->text(column)}});
    });
    list_->WhyNot = [](const FieldTable::Entry& entry) {
        return entry.Column == Price ? WhyNoPrice(entry.Text) : WhyNoCount(entry.Text);
    };
    list_->Marked = [this] { ShowHint(); };
    list_->Keep = [this](const FieldTable::Step& step) { return Keep(step); };
}

void MoneyDock::Refresh(const Changes& changes) {
    // The design's own undo is the next one; and what was entered elsewhere is no step here.
    if (changes.Circuit || (changes.Stock && !isKeeping_)) list_->ForgetEntries();
    if ((changes.Circuit || changes.Stock || changes.Preferences) && isVisible()) CountLater();
}

void MoneyDock::showEvent(QShowEvent* event) {
    QDockWidget::showEvent(event);
    CountLater();
}

/// While the focus is anywhere in here, undo and redo are about what was entered here, and never about the design.
bool MoneyDock::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (IsUndo(key) || IsRedo(key)) event->accept();
    }
    return QDockWidget::event(event);
}

void MoneyDock::keyPressEvent(QKeyEvent* event) {
    if (!IsUndo(*event) && !IsRedo(*event)) return QDockWidget::keyPressEvent(event);
    event->accept();
    if (!list_->GoBack(*event))
        session_.Windows->TellBriefly("Nothing to take back in Stock and Price. A click on the drawing leads to the "
                                      "steps of the design.");
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
    used_ = CountUsedByProduct(session_.Catalogue, session_.Project.Design.Circuit);
    std::vector<int> products;
    std::ranges::copy_if(session_.Catalogue.ProductRows(), std::back_inserter(products),
                         [&](int row) { return used_[static_cast<std::size_t>(row)] > 0; });
    if (products != products_) { // else an entry that has been begun goes on
        list_->EndEntry();
        products_ = std::move(products);
        List();
    }
    const QSignalBlocker quiet(list_);
    ShowHeadings();
    int line = 0;
    for (const int row : rows_)
        ShowProduct(*list_->topLevelItem(line++), row);
    ShowTotals();
    ShowHint();
}

void MoneyDock::EnterPrices() {
    show();
    raise();
    Count();
    list_->setFocus();
    if (list_->IsClosed()) return;
    for (int line = 0; line < list_->topLevelItemCount(); ++line) {
        const Figures figures = FiguresOf(rows_[static_cast<std::size_t>(line)]);
        if (figures[Missing - Used] == 0 || figures[Price - Used] > 0) continue;
        QTreeWidgetItem* const item = list_->topLevelItem(line);
        list_->setCurrentItem(item, Price);
        return list_->editItem(item, Price);
    }
}

void MoneyDock::ShowHeadings() {
    const std::string& currency = session_.Project.Preferences.Units.Currency;
    list_->SetHeadings(
        {"Code", "Piece", "Used", "Owned", "Missing", WithSign("Price", currency), WithSign("To buy", currency)});
    const std::pair<Column, const char*> tips[] = {{Code, "A click sorts by this, another one the other way"},
                                                   {Used, "How many the design uses"},
                                                   {OwnedColumn, "How many you own: type them here"},
                                                   {Missing, "How many you do not own yet"},
                                                   {Price, "What one costs: type it here"},
                                                   {Sum, "What the missing ones cost"}};
    for (const auto& [column, tip] : tips)
        list_->headerItem()->setToolTip(column, tip);
}

void MoneyDock::List() {
    const QSignalBlocker quiet(list_);
    const int line = list_->indexOfTopLevelItem(list_->currentItem());
    const int current = line < 0 ? -1 : rows_[static_cast<std::size_t>(line)];
    const int column = line < 0 ? OwnedColumn : list_->currentColumn();
    list_->clear();
    rows_ = InOrder(products_);
    for (const int row : rows_) {
        const CatalogueEntry& product = session_.Catalogue[row];
        auto* const item = new QTreeWidgetItem(list_, {Shown(ProductCode(product.Code)), Shown(product.LongName)});
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        item->setToolTip(Name, Shown(product.LongName));
        if (row == current) list_->setCurrentItem(item, column);
    }
    // The keyboard begins at the first field.
    if (list_->currentItem() == nullptr && !rows_.empty())
        list_->setCurrentItem(list_->topLevelItem(0), OwnedColumn, QItemSelectionModel::NoUpdate);
}

/// That of the heading that was clicked last; numbers do not change it until another click.
std::vector<int> MoneyDock::InOrder(std::vector<int> rows) const {
    const int column = list_->header()->sortIndicatorSection();
    if (column < 0) return rows;
    const auto isBefore = [&](int one, int other) {
        if (column >= Used) {
            const auto at = static_cast<std::size_t>(column - Used);
            return FiguresOf(one)[at] < FiguresOf(other)[at];
        }
        const auto text = [&](int row) {
            const CatalogueEntry& product = session_.Catalogue[row];
            return column == Code ? product.Code : product.LongName;
        };
        return text(one) < text(other);
    };
    const bool isDown = list_->header()->sortIndicatorOrder() == Qt::DescendingOrder;
    std::ranges::stable_sort(rows,
                             [&](int one, int other) { return isDown ? isBefore(other, one) : isBefore(one, other); });
    return rows;
}

MoneyDock::Figures MoneyDock::FiguresOf(int row) const {
    const ProductStock stock = session_.Project.Stock[row];
    const Cents used = used_[static_cast<std::size_t>(row)];
    const Cents owned = stock.OwnedCount;
    const Cents missing = std::max<Cents>(0, used - owned);
    const Cents price = CentsOf(stock.Price);
    return {used, owned, missing, price, price * missing};
}

void MoneyDock::ShowProduct(QTreeWidgetItem& line, int row) const {
    const auto [used, owned, missing, price, sum] = FiguresOf(row);
    line.setText(Used, QString::number(used));
    line.setText(OwnedColumn, QString::number(owned));
    line.setText(Missing, missing > 0 ? QString::number(missing) : "–");
    line.setText(Price, AmountIfKnown(price, price));
    line.setText(Sum, missing > 0 ? AmountIfKnown(price, sum) : QString());
    QFont font = list_->font();
    font.setBold(missing > 0);
    line.setFont(Missing, font);
    line.setData(Missing, Qt::ForegroundRole, missing > 0 ? QBrush(QColor(WrongColour)) : QVariant());
}

void MoneyDock::ShowTotals() {
    Cents toBuy = 0;
    Cents pieces = 0;
    Cents missing = 0;
    Cents unpriced = 0;
    for (const int row : rows_) {
        const auto [used, owned, lacking, price, sum] = FiguresOf(row);
        pieces += used;
        missing += lacking;
        toBuy += sum;
        if (price == 0) unpriced += lacking;
    }
    const QString lack = pieces > 0 && missing == 0 ? "all owned" : QString::number(missing) + " missing";
    const QString counts = Shown(CountText(pieces, "piece")) + ", " + lack;
    pieces_->setText(WholeDesign() + counts);
    pieces_->SetShorter({counts, missing == 0 ? lack : lack + " of " + QString::number(pieces)});
    QStringList parts;
    if (toBuy > 0 || unpriced == 0) parts += Amount(toBuy, session_.Project.Preferences.Units.Currency);
    if (unpriced > 0) parts += Shown(CountText(unpriced, "piece")) + " without a price";
    total_->setText("To buy: " + parts.join(", and "));
}

/// The line below the drawing tells of the current track; here all of them count.
QString MoneyDock::WholeDesign() const {
    const auto tracks = std::ranges::count_if(session_.Project.Design.Circuit.Tracks,
                                              [](const Track& track) { return !track.ElementCodes.empty(); });
    return tracks > 1 ? "Whole design, " + QString::number(tracks) + " tracks: " : QString("Whole design: ");
}

void MoneyDock::ShowHint() {
    const QModelIndex wrong = list_->Wrong().First();
    const bool isUntouched = std::ranges::all_of(rows_, [&](int row) {
        const ProductStock product = session_.Project.Stock[row];
        return product.OwnedCount == 0 && product.Price == 0;
    });
    const bool isShown = wrong.isValid() || (isUntouched && !rows_.empty() && !list_->IsClosed());
    hint_->setVisible(isShown);
    pieces_->setVisible(!isShown);
    hint_->SetAllOrNothing(!wrong.isValid());
    hint_->setForegroundRole(wrong.isValid() ? QPalette::WindowText : QPalette::PlaceholderText);
    hint_->setText(wrong.isValid() ? wrong.siblingAtColumn(Code).data().toString() + ", not saved: " + list_->Fault()
                                   : "Type what you own and what it costs.");
}

bool MoneyDock::Keep(const FieldTable::Step& step) {
    const QScopedValueRollback keeping(isKeeping_, true);
    const bool isKept = session_.Do([&] {
        StockBoxes boxes = EmptyStockBoxes(session_.Catalogue);
        FillStockBoxes(session_.Catalogue, session_.Project.Stock, boxes);
        for (const FieldTable::Entry& entry : step) {
            const auto box = std::ranges::find(boxes, entry.Line.toStdString(), &StockBox::Tag);
            if (box == boxes.end()) continue;
            std::string& text = entry.Column == Price ? box->Price : box->Owned;
            text = entry.Text.trimmed().isEmpty() ? "0" : PlainNumber(entry.Text);
        }
        KeepOwnedTrack(session_.Catalogue, session_.SettingsPath, session_.Project.Stock, boxes);
    });
    CountLater(); // what was refused shows as it was
    return isKept;
}

} // namespace pistaro
