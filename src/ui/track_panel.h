// The window's right column: which track is edited, moving and turning it, and its elements.
#pragma once

#include "ui/command_controls.h"

#include <QLabel>
#include <QListWidget>

namespace pistaro {

class TrackPanel : public QWidget {
public:
    TrackPanel(Session& session, CommandControls& controls);

    /// Shows the elements of the chosen track and the selected one.
    void Refresh();

private:
    QWidget* TrackSelector();
    QWidget* ArrowPad();
    QWidget* Elements();
    void RefreshList();
    void RefreshSelection();

    Session& session_;
    CommandControls& controls_;
    QListWidget* const lstTrack_;
    QLabel* const lblselected_;
    QLabel* const lblElType_;
};

} // namespace pistaro
