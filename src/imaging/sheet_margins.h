// What stands above and below a drawing on paper: what it is, how large, and rules to measure by.
#pragma once

#include "imaging/paper_page.h"
#include "paper/sheets.h"

#include <string>

namespace pistaro {

/// Name and scale above; below ten centimetres on any paper, by which one sees whether the printer keeps to the scale.
void DrawPlainMargins(PaperPage& page, const SheetPlan& plan, const std::string& name, const std::string& date);

/// Besides how large the circuit is laid out, and a rule of track where that of paper is none.
void DrawGuidingMargins(PaperPage& page, const SheetPlan& plan, const CircuitDrawing& drawing, const Sheet& sheet,
                        const std::string& date);

/// Above how many tiles there are, below what is to be done with them.
void DrawOverviewMargins(PaperPage& page, const SheetPlan& plan, const CircuitDrawing& drawing,
                         const std::string& date);

} // namespace pistaro
