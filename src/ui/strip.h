// What stands below the drawing for a while and shows proposals in it: Enter takes the chosen one, Esc leaves.
#pragma once

#include "commands/session.h"
#include "layout/ground.h"
#include "ui/circuit_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <functional>
#include <optional>
#include <utility>

namespace pistaro {

class Strip : public QWidget {
public:
    /// `overlay` names its part of what lies above the drawing.
    Strip(const char* name, Session& session, CircuitView& view, const char* overlay);

    /// Esc, and Cancel: goes with all as it was, the view where it stood unless its user has moved it since.
    void Leave();

    std::function<void()> Turned; ///< told when it has come or gone

protected:
    /// Shows it.
    void Open();

    /// Enter, and the button that says so.
    virtual void Accept() = 0;

    /// Moves the view no further than it takes to show a place of the drawing, and zooms out where that is larger.
    void BringIntoSight(const GroundBox& box);

    /// What it says to the left of both buttons.
    QHBoxLayout* Head(QLabel& text, QPushButton& accept, QPushButton& leave);

    /// Whether the key accepts or leaves; it has done so then.
    bool TakesKey(int key);

    void ShowAbove(Overlay overlay) { view_.SetOverlay(overlay_, std::move(overlay)); }
    void ShowNothingAbove() { view_.ClearOverlay(overlay_); }
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    Session& session_;

private:
    CircuitView& view_;
    const char* const overlay_;
    std::optional<ViewSettings> viewBefore_, viewShown_; ///< the user's, and what was made of it to show a place
};

} // namespace pistaro
