// A sheet as a PNG picture.
#pragma once

#include "paper/sheets.h"

#include <string>

namespace pistaro {

class ScaledBackdrop;

struct PixelSize {
    int Width, Height;
};

/// The pixels that the plan's sheets have with so many dots an inch. Fault: more than the program gives memory for.
PixelSize SheetPixels(const SheetPlan& plan, double dotsPerInch);

/// The plan's one sheet with so many dots an inch of its paper, which the picture knows, over the
/// picture of the drawing's background where one is given. Fault as above.
std::string SheetPng(const CircuitDrawing& drawing, const SheetPlan& plan, double dotsPerInch,
                     const ScaledBackdrop* backdrop = nullptr);

} // namespace pistaro
