#include "ui/piece_counts.h"

#include "ui/named_controls.h"
#include "ui/product_finder.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

/// The columns of none and of all that is owned hold buttons, where these would change the count.
enum Column { CodeColumn, CountColumn, NoneColumn, OwnedColumn, NameColumn };

int RowOf(const QTreeWidgetItem& line) { return line.data(CodeColumn, Qt::UserRole).toInt(); }
int CountOf(const QTreeWidgetItem& line) { return line.data(CountColumn, Qt::EditRole).toInt(); }
int OwnedOf(const QTreeWidgetItem& line) { return line.data(OwnedColumn, Qt::UserRole).toInt(); }
bool IsMine(const QTreeWidgetItem& line) { return CountOf(line) > 0 || OwnedOf(line) > 0; }

/// Takes whole numbers that a box may hold, in the column of counts alone.
class CountDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override {
        if (index.column() != CountColumn) return nullptr;
        auto* const editor = new QSpinBox(parent);
        editor->setRange(0, MostOfProduct);
        editor->setFrame(false);
        editor->setAutoFillBackground(true); // over the count that it begins with
        return editor;
    }
};

/// A text on a button; as a text alone where a press would change nothing.
class ButtonDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex&) const override { return nullptr; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (!index.data(Qt::AccessibleTextRole).isValid()) return;
        QStyleOptionButton button;
        button.rect = option.rect.adjusted(1, 1, -1, -1);
        button.palette = option.palette;
        button.fontMetrics = option.fontMetrics;
        button.state = QStyle::State_Enabled | QStyle::State_Raised | (option.state & QStyle::State_Active);
        if (option.state.testFlag(QStyle::State_MouseOver)) button.state |= QStyle::State_MouseOver;
        button.text = index.data(Qt::DisplayRole).toString();
        const QStyle& style = option.widget != nullptr ? *option.widget->style() : *QApplication::style();
        style.drawControl(QStyle::CE_PushButton, &button, painter, option.widget);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int around = 10;
        return QStyledItemDelegate::sizeHint(option, index) + QSize(around, 2);
    }
};

/// The product's code, with the hand where each hand is a product of its own.
QString NameOf(const Catalogue& catalogue, int row) {
    const std::string& code = catalogue[row].Code;
    const std::string_view product = ProductCode(code);
    const auto isNamesake = [&](int other) { return ProductCode(catalogue[other].Code) == product; };
    return Shown(std::ranges::count_if(catalogue.HeadRows(), isNamesake) > 1 ? std::string_view(code) : product);
}

/// A cell's button: what it says and does; none where it would do nothing.
void ShowButton(QTreeWidgetItem& line, int column, bool isThere, const QString& text, const QString& does) {
    line.setText(column, isThere || column == OwnedColumn ? text : QString());
    line.setToolTip(column, isThere ? does : QString());
    line.setData(column, Qt::AccessibleTextRole, isThere ? QVariant(does) : QVariant());
}

} // namespace

PieceCounts::PieceCounts(const Catalogue& catalogue) : catalogue_(catalogue) {
    setHeaderLabels({"Code", "Count", "", "Owned", "Piece"});
    headerItem()->setToolTip(CountColumn, "Click and type; Tab goes on to the next line");
    headerItem()->setToolTip(OwnedColumn, "How many you own; a click puts so many into the box");
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemDelegate(new CountDelegate(this));
    auto* const buttons = new ButtonDelegate(this);
    setItemDelegateForColumn(NoneColumn, buttons);
    setItemDelegateForColumn(OwnedColumn, buttons);
    setEditTriggers(QAbstractItemView::AllEditTriggers);
    setMouseTracking(true);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    header()->setMinimumSectionSize(1);
    setAccessibleName("Pieces in the box");
    for (const int row : catalogue.HeadRows()) {
        auto* const line = new QTreeWidgetItem(this);
        line->setText(CodeColumn, NameOf(catalogue, row));
        line->setText(NameColumn, Shown(catalogue[row].LongName));
        line->setToolTip(NameColumn, line->text(NameColumn));
        line->setData(CodeColumn, Qt::UserRole, row);
        for (const int column : {CountColumn, NoneColumn, OwnedColumn})
            line->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        line->setFlags(line->flags() | Qt::ItemIsEditable);
        ShowCount(*line, 0);
    }
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* line, int column) { Click(*line, column); });
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* line, int column) {
        if (column != CountColumn) return;
        ShowCount(*line, CountOf(*line));
        TellChange();
    });
}

void PieceCounts::TellChange() {
    if (Changed) Changed();
}

void PieceCounts::ShowCount(QTreeWidgetItem& line, int count) {
    const QSignalBlocker quiet(this);
    QFont font = line.font(CodeColumn);
    font.setBold(count > 0);
    line.setFont(CountColumn, font);
    line.setData(CountColumn, Qt::EditRole, count);
    const int owned = OwnedOf(line);
    ShowButton(line, NoneColumn, count > 0, "×", "Take none of " + line.text(CodeColumn));
    ShowButton(line, OwnedColumn, owned > 0 && owned != count, owned > 0 ? QString::number(owned) : QString(),
               QString("Take all %1 of %2 that you own").arg(owned).arg(line.text(CodeColumn)));
}

/// A click anywhere but on a button is for the line's count, the only thing to edit there.
void PieceCounts::Click(QTreeWidgetItem& line, int column) {
    const bool isButton = line.data(column, Qt::AccessibleTextRole).isValid();
    GoTo(&line);
    if (!isButton) return editItem(&line, CountColumn);
    ShowCount(line, column == NoneColumn ? 0 : OwnedOf(line));
    TellChange();
}

/// Keys and Tab go on from there; nothing is edited yet.
void PieceCounts::GoTo(QTreeWidgetItem* line) {
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setCurrentItem(line, CountColumn);
    setEditTriggers(QAbstractItemView::AllEditTriggers);
}

void PieceCounts::EditFirst() {
    QTreeWidgetItem* const first = FirstListed(*this);
    if (first == nullptr) return;
    GoTo(first);
    setFocus();
    editItem(first, CountColumn);
}

/// Tab goes from count to count.
QModelIndex PieceCounts::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveNext) action = MoveDown;
    if (action == MovePrevious) action = MoveUp;
    return QTreeWidget::moveCursor(action, modifiers).siblingAtColumn(CountColumn);
}

void PieceCounts::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Delete || currentItem() == nullptr) return QTreeWidget::keyPressEvent(event);
    ShowCount(*currentItem(), 0);
    TellChange();
}

void PieceCounts::Show(const PieceBox& box) {
    for (int place = 0; place < topLevelItemCount(); ++place) {
        QTreeWidgetItem& line = *topLevelItem(place);
        ShowCount(line, box.Counts[static_cast<std::size_t>(RowOf(line))]);
    }
    TellChange();
}

void PieceCounts::ShowOwned(const PieceBox& owned) {
    setColumnHidden(OwnedColumn, owned.Total() == 0);
    for (int place = 0; place < topLevelItemCount(); ++place) {
        QTreeWidgetItem& line = *topLevelItem(place);
        const QSignalBlocker quiet(this);
        line.setData(OwnedColumn, Qt::UserRole, owned.Counts[static_cast<std::size_t>(RowOf(line))]);
        ShowCount(line, CountOf(line));
    }
}

bool PieceCounts::HasMine() const {
    for (int place = 0; place < topLevelItemCount(); ++place) {
        if (IsMine(*topLevelItem(place))) return true;
    }
    return false;
}

void PieceCounts::Filter(const QString& text, bool all) {
    const bool mineAlone = !all && HasMine();
    for (int place = 0; place < topLevelItemCount(); ++place) {
        QTreeWidgetItem& line = *topLevelItem(place);
        line.setHidden(text.isEmpty() ? mineAlone && !IsMine(line) : !HoldsText(line, NameColumn, text));
    }
    QTreeWidgetItem* const first = FirstListed(*this);
    const bool isOther = std::exchange(filter_, text) != text;
    const bool isGone = currentItem() != nullptr && currentItem()->isHidden();
    if (isGone || (isOther && !text.isEmpty())) GoTo(first);
    setAccessibleDescription(first == nullptr ? NoProductFound : "");
}

void PieceCounts::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    if (FirstListed(*this) == nullptr) PaintInstead(*this, NoProductFound);
}

PieceBox PieceCounts::Box() const {
    PieceBox box{std::vector<int>(static_cast<std::size_t>(catalogue_.Count()))};
    for (int place = 0; place < topLevelItemCount(); ++place) {
        const QTreeWidgetItem& line = *topLevelItem(place);
        box.Counts[static_cast<std::size_t>(RowOf(line))] = CountOf(line);
    }
    return box;
}

} // namespace pistaro
