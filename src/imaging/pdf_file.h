// Sheets as a PDF: vectors, with lengths as on the paper.
#pragma once

#include "paper/sheets.h"

#include <string>

namespace pistaro {

class ScaledBackdrop;

/// The plan's sheets as pages, in their order, over the picture of the drawing's background where one is given. The
/// same bytes for the same drawing: no date stands in it but the one that is given for the headers. Fault: paper larger
/// than a PDF's page may be.
std::string PdfOf(const CircuitDrawing& drawing, const SheetPlan& plan, const std::string& date = {},
                  const ScaledBackdrop* backdrop = nullptr);

} // namespace pistaro
