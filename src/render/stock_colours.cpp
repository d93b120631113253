// The recount of used pieces.
#include "render/stock_colours.h"

namespace pistaro {

namespace {

bool TakeFromStock(Catalogue& catalogue, const std::string& code) {
    const int row = FindRow(catalogue, code);
    if (row < 0) return true;
    CatalogueEntry& product = Entry(catalogue, Entry(catalogue, row).StockIndex);
    ++product.UsedCount;
    return product.UsedCount <= product.OwnedCount;
}

} // namespace

StockColours AssignStockColours(Project& project) {
    for (CatalogueEntry& entry : project.Pieces) {
        entry.UsedCount = 0;
    }
    StockColours colours;
    for (std::size_t track = 0; track < colours.size(); ++track) {
        for (const std::string& code : project.Layout.Tracks[track].ElementCodes) {
            colours[track].push_back(TakeFromStock(project.Pieces, code));
        }
    }
    return colours;
}

} // namespace pistaro
