// Boxes to numbers, numbers to the settings file, and back from it.
#include "editor/owned_track.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "storage/settings_file.h"
#include "storage/settings_sections.h"
#include "text/number_text.h"

#include <cmath>

namespace pistaro {

namespace {

/// What to write instead of a number with a decimal comma.
std::string PointHint(std::string text) {
    const auto comma = text.find(',');
    if (comma == std::string::npos) return {};
    text[comma] = '.';
    return IsNumber(text) ? "; write " + text : "";
}

double NumberIn(const std::string& text, const std::string& what) {
    if (!IsNumber(text)) throw TypeMismatch(what + ", \"" + text + "\", is no number" + PointHint(text));
    return ParseNumber(text);
}

double OwnedIn(const StockBox& box) {
    const std::string what = "the owned count of " + box.Tag;
    const double owned = NumberIn(box.Owned, what);
    if (RoundedWithin<std::int16_t>(owned)) return owned;
    throw Overflow(what + ", " + box.Owned + ", is not between -32768 and 32767");
}

double PriceIn(const StockBox& box) {
    const std::string what = "the price of " + box.Tag;
    const double price = NumberIn(box.Price, what);
    if (!std::isfinite(static_cast<float>(price))) throw Overflow(what + ", " + box.Price + ", is too large");
    return price;
}

/// The boxes' numbers on the rows of the settings file's lines.
template <typename NumberOf>
std::array<double, CatalogueCount> ByRow(const Catalogue& catalogue, const StockBoxes& boxes, NumberOf numberOf) {
    std::array<double, CatalogueCount> byRow{};
    for (const StockBox& box : boxes) {
        const double number = numberOf(box);
        for (std::size_t row = 0; row < byRow.size(); ++row) {
            if (ProductCode(catalogue[row].Code) == box.Tag) byRow[row] = number;
        }
    }
    return byRow;
}

/// The stock as it stands, which the lines that a file lacks leave alone.
Settings StockOf(const Catalogue& catalogue) {
    Settings settings;
    for (std::size_t row = 0; row < settings.Stocks.size(); ++row) {
        settings.Stocks[row] = {catalogue[row].OwnedCount, catalogue[row].Price};
    }
    return settings;
}

} // namespace

StockBoxes EmptyStockBoxes() {
    StockBoxes boxes;
    for (std::size_t box = 0; box < boxes.size(); ++box)
        boxes[box].Tag = StockProducts[box].Code;
    return boxes;
}

bool FillStockBoxes(const Project& project, StockBoxes& boxes) {
    for (StockBox& box : boxes) {
        const int row = FindHeadRow(project.Pieces, box.Tag);
        if (row < 0) return false;
        const CatalogueEntry& entry = Entry(project.Pieces, row);
        box.Owned = NumberText(int{entry.OwnedCount});
        box.Price = NumberText(entry.Price);
    }
    return true;
}

void SaveOwnedTrack(Project& project, const StockBoxes& boxes, Prompts& prompts) {
    const std::string bytes =
        RewrittenSettings(project.SettingsPath, {LooseTrackOf(ByRow(project.Pieces, boxes, OwnedIn)),
                                                 BestPricesOf(ByRow(project.Pieces, boxes, PriceIn))});
    const Settings read = ParseSettings(bytes, TextFromPath(project.SettingsPath), StockOf(project.Pieces));
    ReplaceFile(project.SettingsPath, bytes);
    ApplyStock(project.Pieces, read);
    prompts.Tell({Icon::Information, SettingsSaved});
    for (const Message& warning : read.Messages)
        prompts.Tell(warning);
}

} // namespace pistaro
