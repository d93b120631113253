// The window's right column: which track is edited, moving and turning it, and its elements.
#pragma once

#include "ui/command_controls.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

#include <array>

namespace pistaro {

class TrackPanel : public QWidget {
public:
    TrackPanel(Workbench& workbench, CommandControls& controls);

    /// Shows the chosen track, its elements and the selected one.
    void Refresh();

private:
    QWidget* TrackSelector();
    QWidget* ArrowPad();
    QWidget* Elements();
    void RefreshList();
    void RefreshSelection();

    Workbench& workbench_;
    CommandControls& controls_;
    std::array<QRadioButton*, TrackCount + 1> selectors_{}; ///< optTrack 1..3, then optAll
    QListWidget* const lstTrack_;
    QLabel* const lblselected_;
    QLabel* const lblElType_;
    QCheckBox* const chkNumbers_;
};

} // namespace pistaro
