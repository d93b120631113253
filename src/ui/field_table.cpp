#include "ui/field_table.h"

#include "ui/field_delegate.h"
#include "ui/product_finder.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

/// Its text, whose first cells may be empty; none where all are.
QString Clipboard() {
    QString text = QGuiApplication::clipboard()->text();
    if (text.trimmed().isEmpty()) return {};
    while (text.endsWith('\n') || text.endsWith('\r'))
        text.chop(1);
    return text;
}

} // namespace

bool HoldsSeveralCells() { return Clipboard().contains('\n') || Clipboard().contains('\t'); }

bool IsUndo(const QKeyEvent& key) { return key.matches(QKeySequence::Undo); }

bool IsRedo(const QKeyEvent& key) {
    return key.matches(QKeySequence::Redo) || (key.key() == Qt::Key_Y && key.modifiers() == Qt::ControlModifier);
}

FieldTable::FieldTable(std::vector<int> fields, std::vector<int> numbers)
    : fields_(std::move(fields)), numbers_(std::move(numbers)), wrong_(*this) {
    setItemDelegate(new FieldDelegate(*this));
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* line, int column) {
        if (!IsClosed()) editItem(line, IsField(column) ? column : fields_.front());
    });
}

void FieldTable::SetHeadings(const QStringList& headings) {
    setHeaderLabels(headings);
    for (const int column : numbers_)
        headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

bool FieldTable::IsField(int column) const { return std::ranges::find(fields_, column) != fields_.end(); }

bool FieldTable::IsNumber(int column) const { return std::ranges::find(numbers_, column) != numbers_.end(); }

void FieldTable::OpenNeighbour(bool next) {
    const QModelIndex now = currentIndex();
    const auto at = std::ranges::find(fields_, now.column());
    const bool leavesLine = next ? at + 1 == fields_.end() : at == fields_.begin();
    const QModelIndex line = !leavesLine ? now : next ? indexBelow(now) : indexAbove(now);
    if (!line.isValid()) return;
    const int column = !leavesLine ? *(next ? at + 1 : at - 1) : next ? fields_.front() : fields_.back();
    setCurrentIndex(line.siblingAtColumn(column));
    PanelList::edit(currentIndex());
}

QModelIndex FieldTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex now = currentIndex();
    if (!now.isValid() || (action != MoveLeft && action != MoveRight)) return PanelList::moveCursor(action, modifiers);
    const auto at = std::ranges::find(fields_, now.column());
    if (action == MoveRight)
        return at == fields_.end() || at + 1 == fields_.end() ? now : now.siblingAtColumn(*(at + 1));
    return at == fields_.begin() || at == fields_.end() ? now : now.siblingAtColumn(*(at - 1));
}

bool FieldTable::Takes(const QKeyEvent& key) const {
    if (IsClosed()) return false;
    return key.matches(QKeySequence::Copy) || key.matches(QKeySequence::Paste) || (IsUndo(key) && !undo_.empty()) ||
           (IsRedo(key) && !redo_.empty()) || (key.key() == Qt::Key_Escape && wrong_.At(currentIndex()));
}

/// Keys that are about a field here are no commands on the track.
bool FieldTable::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && Takes(*static_cast<const QKeyEvent*>(event))) event->accept();
    return PanelList::event(event);
}

/// No number begins with a letter.
bool FieldTable::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool isKey = trigger == AnyKeyPressed && event != nullptr && event->type() == QEvent::KeyPress;
    const QString typed = isKey ? static_cast<const QKeyEvent*>(event)->text() : QString();
    if (!typed.isEmpty() && typed.front().isLetter()) return false;
    return PanelList::edit(index, trigger, event);
}

bool FieldTable::DoKey(const QKeyEvent& key) {
    const bool empties = key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace;
    wrong_.Hush();
    if (IsClosed() || !currentIndex().isValid() || !(empties || Takes(key))) return false;
    if (empties) {
        Enter(currentIndex(), QString());
    } else if (key.key() == Qt::Key_Escape) {
        TakeBack(currentIndex());
    } else if (key.matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(currentIndex().data().toString());
    } else if (key.matches(QKeySequence::Paste)) {
        Paste();
    } else {
        GoBack(key);
    }
    return true;
}

void FieldTable::keyPressEvent(QKeyEvent* event) {
    if (DoKey(*event)) return event->accept();
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enters && state() != EditingState && edit(currentIndex(), EditKeyPressed, event)) return;
    PanelList::keyPressEvent(event);
    if (state() == EditingState) event->accept(); // nobody else is to take the first digit of an entry
}

void FieldTable::EndEntry() {
    const QPointer<QWidget> editor(state() == EditingState ? indexWidget(currentIndex()) : nullptr);
    if (editor.isNull()) return;
    commitData(editor);
    if (!editor.isNull()) closeEditor(editor, QAbstractItemDelegate::NoHint);
}

FieldTable::Entry FieldTable::EntryAt(const QModelIndex& field, const QString& text) const {
    return {field.siblingAtColumn(0).data().toString(), field.column(), text};
}

void FieldTable::Enter(const QModelIndex& field, const QString& text) {
    const Entry entry = EntryAt(field, text);
    if (!WhyNot(entry).isEmpty()) {
        wrong_.Put(field, text);
        return Marked();
    }
    TakeBack(field);
    if (field.data().toString() != text) Do({entry});
}

bool FieldTable::TakeBack(const QModelIndex& field) {
    if (!wrong_.Drop(field)) return false;
    update(field);
    Marked();
    return true;
}

bool FieldTable::Check(QLineEdit& editor, const QModelIndex& field) {
    const QString why = WhyNot(EntryAt(field, editor.text()));
    MarkWrong(editor, !why.isEmpty());
    editor.setAccessibleDescription(why);
    if (why.isEmpty())
        wrong_.Hush();
    else
        wrong_.Say(visualRect(field), why);
    return why.isEmpty();
}

/// Of ten lines where there is room for so many, as a table to work in is one to see more of.
QSize FieldTable::sizeHint() const {
    constexpr int lines = 10;
    constexpr int leastWindow = 700; // pixels
    if (window()->height() < leastWindow) return PanelList::sizeHint();
    const int each =
        sizeHintForRow(0) > 0 ? sizeHintForRow(0) : fontMetrics().height() + 2 * (FieldDelegate::Inset + 1);
    return {PanelList::sizeHint().width(), header()->sizeHint().height() + lines * each + 2 * frameWidth()};
}

QString FieldTable::Fault() const {
    const QModelIndex field = wrong_.First();
    return field.isValid() ? WhyNot(EntryAt(field, wrong_.At(field).value_or(QString()))) : QString();
}

bool FieldTable::OpenFault() {
    const QModelIndex field = wrong_.First();
    if (!field.isValid()) return false;
    setFocus();
    scrollTo(field);
    setCurrentIndex(field);
    return PanelList::edit(field, EditKeyPressed, nullptr);
}

/// Esc gives back what stood there before.
void FieldTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    wrong_.Hush();
    if (hint == QAbstractItemDelegate::RevertModelCache) TakeBack(currentIndex());
    PanelList::closeEditor(editor, hint);
}

void FieldTable::Paste() {
    const QString pasted = Clipboard();
    if (pasted.isEmpty()) return;
    Step step;
    QModelIndex line = currentIndex();
    const auto first = std::ranges::find(fields_, line.column());
    for (const QString& texts : pasted.split('\n')) {
        auto field = first;
        for (const QString& text : texts.split('\t')) {
            if (!line.isValid() || field == fields_.end()) break;
            const Entry entry = EntryAt(line.siblingAtColumn(*field++), text.trimmed());
            const QString why = WhyNot(entry);
            if (!why.isEmpty())
                return wrong_.Say(visualRect(currentIndex()),
                                  "Nothing is pasted: \"" + entry.Text + "\" for " + entry.Line + ". " + why);
            step.push_back(entry);
        }
        line = indexBelow(line);
    }
    Do(step);
}

void FieldTable::Do(const Step& step) {
    const std::optional<Step> back = Put(step);
    if (!back || back->empty()) return;
    undo_.push_back(*back);
    redo_.clear();
}

std::optional<FieldTable::Step> FieldTable::Put(const Step& step) {
    Step back = Show(step);
    if (back.empty() || Keep(step)) return back;
    Show(back);
    return std::nullopt;
}

FieldTable::Step FieldTable::Show(const Step& step) {
    const QSignalBlocker quiet(this); // the owner hears of the step as a whole
    Step back;
    for (const Entry& entry : step) {
        const QList<QTreeWidgetItem*> lines = findItems(entry.Line, Qt::MatchExactly);
        if (lines.isEmpty()) continue;
        back.push_back({entry.Line, entry.Column, lines.front()->text(entry.Column)});
        lines.front()->setText(entry.Column, entry.Text);
        if (wrong_.Drop(entry.Line, entry.Column)) Marked();
    }
    return back;
}

bool FieldTable::GoBack(const QKeyEvent& key) {
    const bool undoes = IsUndo(key);
    if (IsClosed() || (!undoes && !IsRedo(key)) || (undoes ? undo_ : redo_).empty()) return false;
    EndEntry();
    GoBack(undoes ? undo_ : redo_, undoes ? redo_ : undo_);
    return true;
}

void FieldTable::GoBack(std::vector<Step>& from, std::vector<Step>& to) {
    const Step step = std::move(from.back());
    from.pop_back();
    const std::optional<Step> back = Put(step);
    if (!back) return from.push_back(step);
    if (back->empty()) return;
    to.push_back(*back);
    const QList<QTreeWidgetItem*> lines = findItems(step.front().Line, Qt::MatchExactly);
    if (!lines.isEmpty()) setCurrentItem(lines.front(), step.front().Column, QItemSelectionModel::ClearAndSelect);
}

void FieldTable::ForgetEntries() {
    undo_.clear();
    redo_.clear();
}

void FieldTable::ForgetFaults() {
    wrong_.Clear();
    wrong_.Hush();
}

QString FieldTable::HintOf(int column) const {
    const auto hint = hints_.find(column);
    return hint == hints_.end() ? QString() : hint->second;
}

void FieldTable::SetWords(int column) {
    words_ = column;
    header()->setSectionResizeMode(column, QHeaderView::Fixed);
    connect(header(), &QHeaderView::sectionResized, this, [this] { FitWords(); });
}

void FieldTable::FitWords() {
    if (words_ < 0) return;
    const int others = header()->length() - columnWidth(words_);
    header()->resizeSection(words_, std::max(viewport()->width() - others, header()->minimumSectionSize()));
}

void FieldTable::updateGeometries() {
    PanelList::updateGeometries();
    FitWords();
}

void FieldTable::SetEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

void FieldTable::paintEvent(QPaintEvent* event) {
    PanelList::paintEvent(event);
    if (FirstListed(*this) == nullptr) PaintInstead(*this, emptyText_);
}

/// A line is for its fields: wherever else it is clicked, the first of them is meant.
void FieldTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    PanelList::currentChanged(current, previous);
    wrong_.Hush();
    if (current.isValid() && !IsField(current.column()))
        selectionModel()->setCurrentIndex(current.siblingAtColumn(fields_.front()), QItemSelectionModel::NoUpdate);
}

} // namespace pistaro
