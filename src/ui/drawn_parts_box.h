// What of a circuit is printed or exported: tracks, numbers, grid, room, surface, background, in which colours.
#pragma once

#include "paper/circuit_drawing.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

#include <array>
#include <functional>
#include <string>

namespace pistaro {

class DrawnPartsBox : public QGroupBox {
public:
    /// Begins with `first`, but with all tracks where its track is empty. Calls `changed` after each change by the
    /// user. A background can be chosen where the project has one to scale.
    DrawnPartsBox(const Project& project, const DrawnParts& first, const std::function<void()>& changed);

    DrawnParts Chosen() const;
    /// What is chosen, and whether the box for walls is ticked, as PartsIn and NewWallsBox read it.
    std::string Remembered(const QCheckBox& walls) const;
    /// For formats that draw nothing only the track can be chosen, and surfaces, pictures and colours only where areas
    /// are filled.
    void EnableDrawing(bool draws, bool fills);

private:
    std::array<QCheckBox*, 7> Choices() const;
    void EnableColours();

    QComboBox* cboTrack_;
    const bool hasBackground_;
    QCheckBox *chkNumbers_, *chkGrid_, *chkRoom_, *chkSurface_, *chkBackground_, *chkMissing_, *chkBlackAndWhite_;
};

/// What was chosen; the other parts where that is empty.
DrawnParts PartsIn(const std::string& remembered, const DrawnParts& otherwise);

/// A box for tiles that show nothing of a circuit but its room's walls, ticked if it was.
QCheckBox* NewWallsBox(const std::string& remembered);

/// A list of the papers with their names as data: this one chosen, or A4 where there is none of that name.
QComboBox* NewPaperList(const std::string& chosen);

} // namespace pistaro
