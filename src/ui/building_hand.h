// Building by hand: the ghost of the piece that the mouse or the keyboard is on, pieces dragged from their buttons onto
// the drawing, digits that lay so many, and the handles of the current track's open ends.
#pragma once

#include "editor/piece_dropping.h"
#include "ui/circuit_view.h"
#include "ui/times_chip.h"

#include <QKeyEvent>
#include <QObject>
#include <QToolButton>

#include <functional>
#include <vector>

namespace pistaro {

class BuildingHand : public QObject {
public:
    /// `told` is called when the number to lay has changed; while `previews` something else shows its pieces in the
    /// drawing, and no ghost of one that is pointed at lies among them.
    BuildingHand(Session& session, CircuitView& view, const std::vector<QToolButton*>& pieces,
                 std::function<void()> told, std::function<bool()> previews);

    /// Brings handles and ghost up to date.
    void Refresh();

    /// Shows the ghost of a piece that somebody points at, in whatever list or menu; none where there is no code.
    void PointAt(const std::string& code);

    /// The same before the selected element, or in its place.
    void PointAtSelected(const std::string& code, bool replaces);

    /// Takes a piece up that the mouse has dragged out of a list or a menu: it is carried until the button comes up.
    void TakeUp(const std::string& code);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// On what the mouse is: each lays its piece at a place of its own.
    enum class Pointing { AtButton, AtInsertion, AtReplacement };

    bool OnKey(const QKeyEvent& key);
    bool OnPiece(QToolButton& button, const QEvent& event);
    /// On the button that the keyboard goes to or leaves.
    void OnFocus(const QToolButton& button, const QFocusEvent& event);
    bool OnCarried(const QEvent& event);
    void TakeDigit(int digit);

    void PointAt(const std::string& code, Pointing pointing);
    /// Where a press would lay the piece; nothing where it is on none.
    std::optional<DropPlace> PlacePointedAt() const;

    HeldPiece Held() const { return {code_, session_.Times}; }
    /// How often it is laid there: it takes another one's place once.
    int TimesAt(const DropPlace& place) const { return place.Replaces ? 1 : session_.Times; }
    std::string WordsAt(const DropPlace& place) const;
    void ShowGhost(const std::optional<DropPlace>& place);
    /// Shows the room that is made: what lies behind the place fades there, and stands lightly where it would come to
    /// lie, from a cursor on.
    void ShowDisplaced(const DropPlace& place, const BuildCursor& from);
    void ShowEnds();
    std::optional<DropPlace> PlaceUnder(QPointF global) const;
    /// Shows the piece that is dragged at a place of the screen.
    void Carry(QPointF global);
    void Drop();
    /// Moves the view where pieces that were laid there lie outside of it.
    void Follow(const DropPlace& place, int times);
    /// Lets go of the piece that is dragged.
    void LetGo();
    /// The piece hangs on the mouse while it is dragged; where it cannot be laid a sign says so.
    void ShowCursor() const;

    const Project& Now() const { return session_.Project; }

    Session& session_;
    CircuitView& view_;
    std::function<void()> told_;
    std::function<bool()> previews_;
    std::string code_; ///< of the piece that is pointed at or dragged
    Pointing pointing_ = Pointing::AtButton;
    bool dragged_ = false;           ///< it is held over the drawing
    bool carried_ = false;           ///< it is none of a button's: the drawing has the mouse
    bool letGo_ = false;             ///< by Esc: its button is still down
    std::optional<DropPlace> place_; ///< where it would go
    int timesShown_ = 1;             ///< of the ghost
    TimesChip* const chip_;
};

} // namespace pistaro
