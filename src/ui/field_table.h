// A table some of whose columns are fields to type into.
#pragma once

#include "ui/panel_list.h"
#include "ui/wrong_fields.h"

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace pistaro {

/// Its fields look like fields. A click or what is typed starts an entry, as Enter does; Enter and Down end it and go
/// on to the line below, Up to the one above, Tab to the next field of the lines, Shift+Tab to the one before. Left and
/// Right lead from field to field. Del empties a field, numbers are copied and pasted, a column of them too, and what
/// was entered is undone and redone, until its owner forgets it. Lines are known by their first column. An entry that
/// cannot be kept is not left by a key; left otherwise it stays in its field, marked, and Esc takes it back.
class FieldTable : public PanelList {
public:
    /// What a field holds, or is to hold.
    struct Entry {
        QString Line; ///< its first column
        int Column = 0;
        QString Text;
    };
    using Step = std::vector<Entry>;

    /// The columns of its fields from left to right, and those of numbers, which stand to the right.
    FieldTable(std::vector<int> fields, std::vector<int> numbers);

    void SetHeadings(const QStringList& headings);

    /// What stands, pale, in empty fields of a column.
    void SetHint(int column, const QString& hint) { hints_[column] = hint; }
    QString HintOf(int column) const;

    /// A column of words, which takes what the others leave.
    void SetWords(int column);

    /// What stands in the place of lines while none is shown.
    void SetEmptyText(const QString& text);

    bool IsField(int column) const;
    bool IsNumber(int column) const;

    /// Whether nothing can be typed.
    bool IsClosed() const { return editTriggers() == NoEditTriggers; }

    /// Opens the next field of the lines, or the one before; behind the last there is none.
    void OpenNeighbour(bool next);

    /// Takes what is being typed.
    void EndEntry();

    /// Has a field hold a text, as a step that can be undone.
    void Enter(const QModelIndex& field, const QString& text);

    /// From the current field on, down and to the right; nothing where something there is no number.
    void Paste();

    /// Why an entry cannot be kept, as a sentence for whoever typed it; nothing where it can.
    std::function<QString(const Entry&)> WhyNot = [](const Entry&) { return QString(); };

    /// Called when a field holds what cannot be kept, or does so no longer.
    std::function<void()> Marked = [] {};

    /// What cannot be kept and stands in its field all the same.
    const WrongFields& Wrong() const { return wrong_; }

    /// Why the first entry that was left so cannot be kept; nothing where there is none.
    QString Fault() const;

    /// Opens the field of the first of them, if there is one.
    bool OpenFault();

    /// Whether what is in a field's editor can be kept; if not it is marked, and the reason stands beside it.
    bool Check(QLineEdit& editor, const QModelIndex& field);

    /// Has its owner keep what was entered, a paste as a whole. False where he refuses, which he tells: then the fields
    /// hold again what they held, and there is nothing to undo.
    std::function<bool(const Step&)> Keep = [](const Step&) { return true; };

    /// Undoes or redoes what was entered, as the key says. False where it says neither, or there is nothing.
    bool GoBack(const QKeyEvent& key);

    /// What was entered until now can be undone no longer.
    void ForgetEntries();

    /// Nor does anything wrong stand in its fields.
    void ForgetFaults();

    QSize sizeHint() const override;

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool event(QEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void paintEvent(QPaintEvent* event) override;
    void updateGeometries() override;

private:
    bool Takes(const QKeyEvent& key) const;
    bool TakeBack(const QModelIndex& field);
    bool DoKey(const QKeyEvent& key);
    Entry EntryAt(const QModelIndex& field, const QString& text) const;
    void Do(const Step& step);
    /// Gives what leads back; nothing where the owner refuses the step.
    std::optional<Step> Put(const Step& step);
    /// Gives what stood there.
    Step Show(const Step& step);
    void GoBack(std::vector<Step>& from, std::vector<Step>& to);
    void FitWords();

    const std::vector<int> fields_, numbers_;
    std::map<int, QString> hints_; ///< by column
    int words_ = -1;               ///< the column of words, if there is one
    QString emptyText_;
    std::vector<Step> undo_, redo_;
    WrongFields wrong_;
};

/// Whether more than one cell of a table is in the clipboard.
bool HoldsSeveralCells();

/// The keys of the window's undo and redo everywhere, and the desktop's own.
bool IsUndo(const QKeyEvent& key);
bool IsRedo(const QKeyEvent& key);

} // namespace pistaro
