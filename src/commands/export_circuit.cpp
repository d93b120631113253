#include "commands/export_circuit.h"

#include "exchange/dxf_file.h"
#include "exchange/layout_files.h"
#include "imaging/backdrop.h"
#include "imaging/pdf_file.h"
#include "imaging/sheet_picture.h"
#include "imaging/svg_file.h"
#include "platform/fault.h"
#include "platform/file_endings.h"
#include "stats/shopping_list.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace pistaro {

namespace {

using ExportEnding = FileEnding<ExportFormat>;

constexpr std::array Endings{ExportEnding{".png", ExportFormat::Png},  ExportEnding{".svg", ExportFormat::Svg},
                             ExportEnding{".pdf", ExportFormat::Pdf},  ExportEnding{".dxf", ExportFormat::Dxf},
                             ExportEnding{".csv", ExportFormat::Csv},  ExportEnding{".csv", ExportFormat::ShoppingList},
                             ExportEnding{".json", ExportFormat::Json}};

/// What the format makes of what was left open.
SheetOptions SheetsFor(ExportFormat format, const SheetOptions& given, const Box& extent) {
    SheetOptions sheets = given;
    sheets.Header = format == ExportFormat::Pdf;
    if (given.Scale || given.Paper || given.Tiles) return sheets;
    if (format == ExportFormat::Pdf) sheets.Paper = PaperA4;
    if (format == ExportFormat::Png)
        sheets.Scale = std::max(extent.Width(), extent.Height()) / (PaperA4.Height - 2 * SheetMargin);
    return sheets;
}

/// A sheet at full size, on which the margin of paper would not be seen beside a circuit.
SheetPlan WithMargin(SheetPlan plan) {
    const double margin = std::max(plan.Width, plan.Height) / 25;
    plan.Width += 2 * margin;
    plan.Height += 2 * margin;
    plan.Whole = plan.Whole.Wider(margin);
    for (Sheet& sheet : plan.Sheets)
        sheet.Cell = sheet.Part = plan.Whole;
    return plan;
}

std::string DrawingBytes(CircuitDrawing drawing, ExportFormat format, const ExportOptions& options) {
    if (format == ExportFormat::Dxf) return DxfOf(drawing);
    DecodedPicture pictures;
    const auto backdrop = TakeBackdrop(drawing, pictures);
    const SheetPlan plan = PlanExport(drawing, format, options);
    if (format == ExportFormat::Svg) return SvgOf(drawing, plan, backdrop.get());
    if (format == ExportFormat::Pdf) return PdfOf(drawing, plan, {}, backdrop.get());
    return SheetPng(drawing, plan, DotsPerInchOf(plan, options), backdrop.get());
}

bool CanExport(const CircuitDrawing& drawing, ExportFormat format, const ExportOptions& options) {
    try {
        const SheetPlan plan = PlanExport(drawing, format, options);
        if (format == ExportFormat::Png) SheetPixels(plan, DotsPerInchOf(plan, options));
        return true;
    } catch (const Fault&) {
        return false;
    }
}

/// Larger than life by tenths, as scales are typed there.
double NextScale(double scale) {
    constexpr double tenths = 10, rounding = 1e-6;
    return scale < 1 - rounding ? std::floor(scale * tenths + 1 + rounding) / tenths
                                : RoundedScale(scale * (1 + rounding));
}

/// The largest number from 1 to below one that is too large which `works`; 1 where none does.
int MostOf(int tooLarge, const std::function<bool(int)>& works) {
    int most = 1;
    while (tooLarge - most > 1) {
        const int middle = most + (tooLarge - most) / 2;
        (works(middle) ? most : tooLarge) = middle;
    }
    return most;
}

} // namespace

std::string ExportEndings() { return EndingsText(Endings); }

std::vector<std::string> EndingsFrom(ExportFormat format) {
    std::vector<std::string> endings{EndingOf(format)};
    for (const ExportEnding& ending : Endings) {
        if (std::ranges::find(endings, ending.Text) == endings.end()) endings.emplace_back(ending.Text);
    }
    return endings;
}

const char* EndingOf(ExportFormat format) { return EndingOf(Endings, format); }

std::optional<ExportFormat> ExportFormatOf(const std::filesystem::path& file) { return FormatIn(Endings, file); }

SheetPlan PlanExport(const CircuitDrawing& drawing, ExportFormat format, const ExportOptions& options) {
    if (format == ExportFormat::Dxf) return WithMargin(PlanSheets(drawing, {.Scale = 1, .Header = false}));
    return PlanSheets(drawing, SheetsFor(format, options.Sheets, drawing.Whole()));
}

std::optional<ExportOptions> PossibleExport(const CircuitDrawing& drawing, ExportFormat format,
                                            const ExportOptions& options) {
    ExportOptions possible = options;
    const auto isPossible = [&] { return CanExport(drawing, format, possible); };
    if (isPossible()) return possible;
    if (options.Sheets.Scale) {
        constexpr double smallest = 1000;
        double& scale = *possible.Sheets.Scale;
        while (scale < smallest && !isPossible())
            scale = NextScale(scale);
    } else if (options.PixelWidth) {
        *possible.PixelWidth = MostOf(*options.PixelWidth, [&](int width) {
            possible.PixelWidth = width;
            return isPossible();
        });
    } else {
        possible.DotsPerInch = MostOf(static_cast<int>(options.DotsPerInch), [&](int dots) {
            possible.DotsPerInch = dots;
            return isPossible();
        });
    }
    return isPossible() ? std::optional(possible) : std::nullopt;
}

double DotsPerInchOf(const SheetPlan& plan, const ExportOptions& options) {
    constexpr double cmPerInch = 2.54;
    return options.PixelWidth ? *options.PixelWidth * cmPerInch / plan.Width : options.DotsPerInch;
}

std::string ExportBytes(const Catalogue& catalogue, const Project& project, ExportFormat format,
                        const ExportOptions& options) {
    const Circuit& circuit = project.Design.Circuit;
    if (format == ExportFormat::Csv) return LayoutCsvFile(catalogue, circuit, options.Parts.Track);
    if (format == ExportFormat::ShoppingList)
        return ShoppingTableBytes(project.Stock, project.Preferences.Units,
                                  ShowDetail(catalogue, project.Stock, circuit, options.Parts.Track, false));
    if (format == ExportFormat::Json) return LayoutJsonFile(catalogue, circuit, options.Parts.Track);
    return DrawingBytes(DrawingOf(catalogue, project, options.Parts), format, options);
}

} // namespace pistaro
