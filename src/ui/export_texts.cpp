#include "ui/export_texts.h"

#include "imaging/sheet_picture.h"
#include "text/count_text.h"
#include "ui/named_controls.h"

#include <cmath>

namespace pistaro {

namespace {

/// "21 × 29.7 cm"
QString LengthsText(double width, double height, const Units& units) {
    const auto rounded = [&](double length) { return std::round(length / units.UnitFactor() * 10) / 10; };
    return QString("%1 × %2 %3").arg(rounded(width)).arg(rounded(height)).arg(units.Name());
}

} // namespace

QString TableText(const CircuitDrawing& drawing) {
    return QString("A table of %1 pieces, a line each: code, name, where it lies. Counts and prices are in another "
                   "format: Shopping list (CSV).")
        .arg(drawing.Pieces.size());
}

QString ShoppingText(const Detail& detail) {
    int count = 0;
    for (const CountLabel& label : detail.Labels)
        count += label.Count;
    if (count == 0) return "Nothing is to be bought: you own all of these pieces.";
    return Shown(CountText(count, "piece")) +
           " to buy, beyond those that you own. Settings ▸ Loose Track takes what you own, and prices.";
}

QString SizeText(const PlannedSheets& sheets, ExportFormat format, const ExportOptions& options) {
    const SheetPlan& plan = sheets.Plan;
    const Units& units = sheets.Drawing.Preferences.Units;
    const QString size = LengthsText(plan.Width, plan.Height, units);
    if (format == ExportFormat::Dxf) {
        const Box& extent = sheets.Drawing.Extent;
        return LengthsText(extent.Width(), extent.Height(), units) + " at full size";
    }
    if (format == ExportFormat::Pdf) return SheetsText(sheets) + ", " + size + (plan.Tiled ? " each" : "");
    QString atScale = size + " at " + Shown(plan.ScaleText());
    if (format == ExportFormat::Svg) return atScale;
    const PixelSize pixels = SheetPixels(plan, DotsPerInchOf(plan, options));
    const QString dots = QString("%1 × %2 pixels").arg(pixels.Width).arg(pixels.Height);
    return options.PixelWidth ? dots : dots + ", " + atScale; // no paper is spoken of where pixels are chosen
}

} // namespace pistaro
