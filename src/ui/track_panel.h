// The window's right column: which track is edited, moving and turning it, and its elements.
#pragma once

#include "ui/command_controls.h"

#include <QLabel>
#include <QListWidget>

#include <functional>

namespace pistaro {

class TrackPanel : public QWidget {
public:
    TrackPanel(Session& session, CommandControls& controls);

    /// Shows the elements of the chosen track and the selected one.
    void Refresh();

    /// Called with the place of the screen at which the menu of the selected element is asked for.
    std::function<void(QPoint)> MenuWanted = [](QPoint) {};

protected:
    /// Shift and a click or an arrow key in the list select a run.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* TrackSelector();
    QWidget* ArrowPad();
    QWidget* Elements();
    void RefreshList();
    void RefreshSelection();
    bool ExtendTo(int row);
    void ShowRun(const ElementRun& run);

    Session& session_;
    CommandControls& controls_;
    QListWidget* const lstTrack_;
    QLabel* const lblselected_;
    QLabel* const lblElType_;
};

} // namespace pistaro
