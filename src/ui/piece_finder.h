// The palette's search: a line to type into, and the list of the pieces found, which are laid from there.
#pragma once

#include "commands/session.h"

#include <QLineEdit>
#include <QListWidget>

#include <functional>

namespace pistaro {

class PieceFinder : public QObject {
public:
    /// `turned` is called when the search begins and when it ends.
    PieceFinder(Session& session, QWidget& palette, std::function<void()> turned);

    QLineEdit& Line() { return *txtFindPiece_; }
    QListWidget& List() { return *lstFoundPieces_; }

    /// Whether something is looked for: then the list takes the place of the piece buttons.
    bool IsOn() const { return !txtFindPiece_->text().trimmed().isEmpty(); }

    /// Leads the keyboard to the line.
    void Begin();

    /// Brings the badges up to date.
    void Refresh();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Find();
    void Lay(const QListWidgetItem* item);

    Session& session_;
    const std::function<void()> turned_;
    QLineEdit* const txtFindPiece_;
    QListWidget* const lstFoundPieces_;
};

} // namespace pistaro
