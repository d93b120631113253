// The palette's search: a line to type into, and the list of the pieces found, which are laid from there.
#pragma once

#include "commands/session.h"

#include <QLineEdit>
#include <QListWidget>

#include <functional>
#include <string>

namespace pistaro {

class PieceFinder : public QObject {
public:
    /// `turned` is called when the search begins and when it ends, `pointedAt` with the code of the piece found that
    /// the mouse is on, or that the arrow keys lead to, empty when it is none; `takenUp` with that of one that it has
    /// dragged out of the list.
    PieceFinder(Session& session, QWidget& palette, std::function<void()> turned,
                std::function<void(const std::string&)> pointedAt, std::function<void(const std::string&)> takenUp);

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
    bool DragsOut(const QEvent& event);
    bool OnMouse(const QEvent& event);
    void PointAt(const QListWidgetItem* item);
    void Lay(const QListWidgetItem* item);

    /// What a line stands for; null where nothing was found.
    const CatalogueEntry* PieceOf(const QListWidgetItem* item) const;

    Session& session_;
    const std::function<void()> turned_;
    const std::function<void(const std::string&)> pointedAt_, takenUp_;
    QLineEdit* const txtFindPiece_;
    QListWidget* const lstFoundPieces_;
    std::string pressed_; ///< the code of the piece that the button went down on
};

} // namespace pistaro
