// What of a circuit is printed or exported: tracks, numbers, grid, room, surface, in black and white.
#pragma once

#include "paper/circuit_drawing.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

#include <functional>

namespace pistaro {

class DrawnPartsBox : public QGroupBox {
public:
    /// Calls `changed` after each change by the user.
    explicit DrawnPartsBox(const std::function<void()>& changed);

    DrawnParts Chosen() const;
    /// For formats that draw nothing only the track can be chosen, and surfaces only where areas are filled.
    void EnableDrawing(bool draws, bool fills);

private:
    QComboBox* cboTrack_;
    QCheckBox *chkNumbers_, *chkGrid_, *chkRoom_, *chkSurface_, *chkBlackAndWhite_;
};

/// A list of the papers with their names as data, A4 chosen.
QComboBox* NewPaperList();

} // namespace pistaro
