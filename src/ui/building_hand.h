// Building by hand: the ghost of the piece that the mouse is on, pieces dragged from their buttons onto the drawing,
// digits that lay so many, and the handles of the current track's open ends.
#pragma once

#include "editor/piece_dropping.h"
#include "ui/circuit_view.h"

#include <QObject>
#include <QToolButton>

#include <functional>
#include <vector>

namespace pistaro {

class BuildingHand : public QObject {
public:
    /// `told` is called when the number to lay has changed.
    BuildingHand(Session& session, CircuitView& view, const std::vector<QToolButton*>& pieces,
                 std::function<void()> told);

    /// Brings handles and ghost up to date.
    void Refresh();

    /// Shows the ghost of a piece that somebody points at, in whatever list or menu; none where there is no code.
    void PointAt(const std::string& code);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnPiece(QToolButton& button, const QEvent& event);
    void TakeDigit(int digit);

    HeldPiece Held() const { return {code_, session_.Times}; }
    std::string WordsAt(const DropPlace& place) const;
    void ShowGhost(const std::optional<DropPlace>& place);
    /// Shows the room that is made: what lies behind the place fades there, and stands lightly where it would come to
    /// lie, from a cursor on.
    void ShowDisplaced(const DropPlace& place, const BuildCursor& from);
    void ShowEnds();
    std::optional<DropPlace> PlaceUnder(QPointF global) const;
    void Drop();
    /// The piece hangs on the mouse while it is dragged; where it cannot be laid a sign says so.
    void ShowCursor(const QToolButton& button) const;

    const Project& Now() const { return session_.Project; }

    Session& session_;
    CircuitView& view_;
    std::function<void()> told_;
    std::string code_;               ///< of the piece that is pointed at or dragged
    bool dragged_ = false;           ///< it is held over the drawing
    std::optional<DropPlace> place_; ///< where it would go
};

} // namespace pistaro
