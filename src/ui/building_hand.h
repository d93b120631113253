// Building by hand: the ghost of the piece whose button the mouse is on, pieces dragged from their buttons onto the
// drawing, digits that lay so many, and the handles of the current track's open ends.
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

    /// So many pieces the next button lays; 1 where no digit was typed.
    int Times() const { return times_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnPiece(QToolButton& button, const QEvent& event);
    void PutDown();
    void TakeDigit(int digit);
    /// Lays as many more as the digit says.
    void LayFurther(const std::string& code);

    void ShowGhost(const std::optional<DropPlace>& place);
    void ShowEnds();
    std::optional<DropPlace> PlaceUnder(QPointF global) const;
    void Drop();

    const Project& Now() const { return session_.Project; }

    Session& session_;
    CircuitView& view_;
    std::function<void()> told_;
    std::string code_;               ///< of the piece whose button the mouse is on, or that is dragged
    bool dragged_ = false;           ///< it is held over the drawing
    std::optional<DropPlace> place_; ///< where it would go
    int times_ = 1;
};

} // namespace pistaro
