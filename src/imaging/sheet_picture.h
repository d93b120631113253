// A sheet as a PNG picture.
#pragma once

#include "paper/sheets.h"

#include <string>

namespace pistaro {

/// The plan's one sheet with so many dots an inch of its paper, which the picture knows. Fault: more pixels than the
/// program gives memory for.
std::string SheetPng(const CircuitDrawing& drawing, const SheetPlan& plan, double dotsPerInch);

} // namespace pistaro
