#include "editor/owned_track.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/locks.h"
#include "storage/settings_file.h"
#include "storage/settings_sections.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pistaro {

namespace {

/// What to write instead of a number with a decimal comma.
std::string PointHint(std::string text) {
    const auto comma = text.find(',');
    if (comma == std::string::npos) return {};
    text[comma] = '.';
    return IsNumber(text) ? "; write " + text : "";
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
std::vector<double> ByRow(const Catalogue& catalogue, const StockBoxes& boxes, NumberOf numberOf) {
    std::vector<double> byRow(static_cast<std::size_t>(catalogue.Count()));
    for (const StockBox& box : boxes) {
        const double number = numberOf(box);
        for (std::size_t row = 0; row < byRow.size(); ++row) {
            if (ProductCode(catalogue[static_cast<int>(row)].Code) == box.Tag) byRow[row] = number;
        }
    }
    return byRow;
}

StockFrame FrameOf(const CatalogueEntry& product) {
    if (product.System == TrackSystem::Ninco) return StockFrame::Ninco;
    if (!product.IsBasic()) return StockFrame::ScalextricSpecialists;
    return product.IsStraight() ? StockFrame::ScalextricStraights : StockFrame::ScalextricCurves;
}

/// Puts the boxes' counts and prices into the file, and gives what it says then; what lines it lacks leave the stock as
/// it stands.
Settings WriteStock(const Catalogue& catalogue, const std::filesystem::path& path, const Stock& stock,
                    const StockBoxes& boxes) {
    const RewriteLock lock(path);
    const std::string bytes = RewrittenSettings(catalogue, path,
                                                {LooseTrackOf(catalogue, ByRow(catalogue, boxes, OwnedIn)),
                                                 BestPricesOf(catalogue, ByRow(catalogue, boxes, PriceIn))});
    Settings asTheyStand;
    asTheyStand.Stock = stock;
    Settings read = ParseSettings(catalogue, bytes, TextFromPath(path), asTheyStand);
    ReplaceFile(path, bytes);
    return read;
}

} // namespace

double NumberIn(const std::string& text, const std::string& what) {
    if (!IsNumber(text)) throw TypeMismatch(what + ", \"" + text + "\", is no number" + PointHint(text));
    return ParseNumber(text);
}

StockBoxes EmptyStockBoxes(const Catalogue& catalogue) {
    std::vector<int> rows = catalogue.ProductRows();
    std::ranges::stable_sort(rows, {},
                             [&](int row) { return std::pair(FrameOf(catalogue[row]), catalogue[row].Place); });
    StockBoxes boxes;
    for (const int row : rows) {
        const CatalogueEntry& product = catalogue[row];
        boxes.push_back({.Tag = std::string(ProductCode(product.Code)),
                         .Name = product.BoxName,
                         .Frame = FrameOf(product),
                         .Owned = {},
                         .Price = {}});
    }
    return boxes;
}

const char* CaptionOf(StockFrame frame) {
    switch (frame) {
    case StockFrame::ScalextricStraights:
        return "Scalextric Straights";
    case StockFrame::ScalextricCurves:
        return "Scalextric Curves";
    case StockFrame::ScalextricSpecialists:
        return "Scalextric Specialist Track";
    case StockFrame::Ninco:
        break;
    }
    return "Ninco Track";
}

bool FillStockBoxes(const Catalogue& catalogue, const Stock& stock, StockBoxes& boxes) {
    for (StockBox& box : boxes) {
        const int row = catalogue.FindHeadRow(box.Tag);
        if (row < 0) return false;
        box.Owned = NumberText(int{stock[row].OwnedCount});
        box.Price = NumberText(stock[row].Price);
    }
    return true;
}

std::vector<Message> KeepOwnedTrack(const Catalogue& catalogue, const std::filesystem::path& settingsPath, Stock& stock,
                                    const StockBoxes& boxes) {
    Settings read = WriteStock(catalogue, settingsPath, stock, boxes);
    stock = std::move(read.Stock);
    return std::move(read.Messages);
}

void SaveOwnedTrack(const Catalogue& catalogue, const std::filesystem::path& settingsPath, Stock& stock,
                    const StockBoxes& boxes, Prompts& prompts) {
    const std::vector<Message> warnings = KeepOwnedTrack(catalogue, settingsPath, stock, boxes);
    prompts.Tell({Icon::Information, SettingsSaved});
    for (const Message& warning : warnings)
        prompts.Tell(warning);
}

} // namespace pistaro
