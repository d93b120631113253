// The tour through a first oval: what its user is to do next, told by what lies there.
#pragma once

#include "model/project.h"

#include <string>

namespace pistaro {

inline constexpr int TourSteps = 6;

struct TourStop {
    int Step = 1;            ///< from 1; beyond TourSteps when the oval is laid
    std::string Text = {};   ///< what to do
    std::string Remark = {}; ///< kindly, where something else was done than was asked
    std::string Control;     ///< beside which it is told
    std::string Tag = {};    ///< of the control, if it is one of many of its name
    bool IsAstray = false;   ///< something lies there that has to be taken back before the tour goes on
};

/// Where the tour stands. `times` is the digit that was typed for the next piece, 1 where none was.
TourStop TourStopOf(const Project& project, int times);

/// Brings back what the tour needs: a single track, Build mode, the pieces of the first box.
void BeginTour(EditState& edit);

} // namespace pistaro
