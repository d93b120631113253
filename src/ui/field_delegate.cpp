#include "ui/field_delegate.h"

#include <QLineEdit>
#include <QPainter>
#include <QPointer>

namespace pistaro {

namespace {

constexpr int Padding = 5; ///< pixels between a field's edge and its text

} // namespace

QWidget* FieldDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    if (!table_.IsField(index.column())) return nullptr;
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* const line = qobject_cast<QLineEdit*>(editor)) {
        line->setAlignment(Qt::AlignRight);
        line->setPlaceholderText(table_.HintOf(index.column()));
        const QPersistentModelIndex field(index);
        connect(line, &QLineEdit::textEdited, &table_, [this, line, field] {
            if (!line->styleSheet().isEmpty()) table_.Check(*line, field); // it is mended
        });
    }
    return editor;
}

void FieldDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* const line = qobject_cast<QLineEdit*>(editor);
    const std::optional<QString> wrong = table_.Wrong().At(index);
    if (line == nullptr || !wrong) return QStyledItemDelegate::setEditorData(editor, index);
    line->setText(*wrong);
    table_.Check(*line, index);
}

void FieldDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    if (const auto* const line = qobject_cast<QLineEdit*>(editor)) table_.Enter(index, line->text());
}

void FieldDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                         const QModelIndex&) const {
    editor->setGeometry(option.rect);
}

QSize FieldDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int beside = table_.IsField(index.column()) ? 2 * Padding : 0;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(beside, 2 * (Inset + 1));
}

void FieldDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (table_.IsClosed() || !table_.IsField(index.column())) return QStyledItemDelegate::paint(painter, option, index);
    table_.style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, &table_);
    const QRect place = option.rect.adjusted(Inset, Inset, -Inset, -Inset);
    // On the ground of a selected line that colour would not be seen.
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isCurrent = index == table_.currentIndex() && table_.hasFocus();
    const auto current = isSelected ? QPalette::Text : QPalette::Highlight;
    const std::optional<QString> wrong = table_.Wrong().At(index);
    const QColor ink = wrong ? QColor(WrongColour) : option.palette.color(isCurrent ? current : QPalette::Mid);
    PaintFieldFrame(*painter, place, option.palette, ink, isCurrent || wrong ? 2 : 1);
    const QString text = wrong.value_or(index.data().toString());
    painter->setPen(option.palette.color(text.isEmpty() ? QPalette::PlaceholderText : QPalette::Text));
    painter->drawText(place.adjusted(Padding, 0, -Padding, 0), Qt::AlignRight | Qt::AlignVCenter,
                      text.isEmpty() ? table_.HintOf(index.column()) : text);
}

void FieldDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (table_.IsNumber(index.column())) option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
}

bool FieldDelegate::eventFilter(QObject* watched, QEvent* event) {
    const QPointer<QWidget> editor(qobject_cast<QWidget*>(watched));
    const int key = event->type() == QEvent::KeyPress ? static_cast<const QKeyEvent*>(event)->key() : 0;
    // Other events come also while the table goes, when nothing may be asked of it any more.
    if (key == 0) return QStyledItemDelegate::eventFilter(watched, event);
    const auto way = WayOf(key);
    const auto* const typed = qobject_cast<QLineEdit*>(editor);
    if (typed != nullptr && !typed->isModified() && table_.GoBack(*static_cast<const QKeyEvent*>(event))) return true;
    if (static_cast<const QKeyEvent*>(event)->matches(QKeySequence::Paste) && HoldsSeveralCells()) {
        emit closeEditor(editor, NoHint);
        table_.Paste();
        return true;
    }
    if (editor.isNull() || !way) return QStyledItemDelegate::eventFilter(watched, event);
    auto* const line = qobject_cast<QLineEdit*>(editor);
    if (line != nullptr && !table_.Check(*line, table_.currentIndex())) return true; // to be mended here
    emit commitData(editor);
    if (editor.isNull()) return true; // a box that told of a fault has closed it
    emit closeEditor(editor, *way);
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) table_.OpenNeighbour(key == Qt::Key_Tab);
    return true;
}

/// Where a key leads that ends an entry.
std::optional<QAbstractItemDelegate::EndEditHint> FieldDelegate::WayOf(int key) const {
    const bool isLast = !table_.indexBelow(table_.currentIndex()).isValid();
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        return isLast ? SubmitModelCache : EditNextItem;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return SubmitModelCache;
    case Qt::Key_Up:
        return table_.indexAbove(table_.currentIndex()).isValid() ? EditPreviousItem : SubmitModelCache;
    default:
        return std::nullopt;
    }
}

} // namespace pistaro
