// What stands below the drawing for a while and shows proposals in it: Enter takes the chosen one, Esc leaves.
#pragma once

#include "ui/circuit_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace pistaro {

class Strip : public QWidget {
public:
    /// `overlay` names its part of what lies above the drawing.
    Strip(const char* name, CircuitView& view, const char* overlay);

protected:
    /// Enter, and the button that says so.
    virtual void Accept() = 0;
    /// Esc, and Cancel.
    virtual void Leave() { hide(); }

    /// What it says to the left of both buttons.
    QLayout* Head(QLabel& text, QPushButton& accept, QPushButton& leave);

    /// Whether the key accepts or leaves; it has done so then.
    bool TakesKey(int key);

    void ShowAbove(Overlay overlay) { view_.SetOverlay(overlay_, std::move(overlay)); }
    void ShowNothingAbove() { view_.ClearOverlay(overlay_); }
    CircuitView& View() { return view_; }

    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    CircuitView& view_;
    const char* const overlay_;
};

} // namespace pistaro
