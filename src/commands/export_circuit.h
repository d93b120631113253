// A circuit as a file for other programs or for paper.
#pragma once

#include "catalogue/catalogue.h"
#include "model/project.h"
#include "paper/sheets.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pistaro {

enum class ExportFormat { Png, Svg, Pdf, Dxf, Csv, ShoppingList, Json };

/// ".png". Formats may share one, which names the first of them.
const char* EndingOf(ExportFormat format);

/// ".png, .svg, ...".
std::string ExportEndings();

/// The endings of all formats, that one's first.
std::vector<std::string> EndingsFrom(ExportFormat format);

/// The format that a file's ending names, in capital or small letters.
std::optional<ExportFormat> ExportFormatOf(const std::filesystem::path& file);

struct ExportOptions {
    DrawnParts Parts;
    SheetOptions Sheets;
    double DotsPerInch = 300;           ///< of a PNG
    std::optional<int> PixelWidth = {}; ///< of a PNG, whatever its dots per inch
};

/// The sheets that such a file shows of a drawing: of a DXF one at its full size. Not for tables and JSON. Fault: a
/// scale that needs too many tiles, or paper.
SheetPlan PlanExport(const CircuitDrawing& drawing, ExportFormat format, const ExportOptions& options);

/// The options changed so that such a file is possible: the next round scale that works, or the most dots or pixels;
/// nothing where none does.
std::optional<ExportOptions> PossibleExport(const CircuitDrawing& drawing, ExportFormat format,
                                            const ExportOptions& options);

/// The dots an inch of a PNG of that plan.
double DotsPerInchOf(const SheetPlan& plan, const ExportOptions& options);

/// The bytes of such a file. DXF, CSV and JSON tell of the circuit at its full size, whatever the sheets; the shopping
/// list tells what is to be bought for it, as a table. A PNG without scale and paper is as large as A4 paper takes it,
/// a PDF is on A4 paper. Graphics must be there for PNG, SVG and PDF. Faults: a scale that needs too many tiles,
/// pixels, or paper; a price or count beyond measure.
std::string ExportBytes(const Catalogue& catalogue, const Project& project, ExportFormat format,
                        const ExportOptions& options);

} // namespace pistaro
