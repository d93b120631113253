// What the export dialog tells of a file before it is written.
#pragma once

#include "commands/export_circuit.h"
#include "stats/detail.h"
#include "ui/sheet_preview.h"

namespace pistaro {

QString TableText(const CircuitDrawing& drawing);

/// How many pieces of the detail are to be bought.
QString ShoppingText(const Detail& detail);

/// "1 sheet at 1:5.4, 21 × 29.7 cm", "15.5 × 35 cm at full size", "1600 × 845 pixels".
QString SizeText(const PlannedSheets& sheets, ExportFormat format, const ExportOptions& options);

} // namespace pistaro
