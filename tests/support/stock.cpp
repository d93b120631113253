// Stock values by code.
#include "support/stock.h"

namespace pistaro {

void SetStock(Project& project, std::string_view code, int owned, float price) {
    CatalogueEntry& entry = Entry(project.Pieces, FindRow(project.Pieces, code));
    entry.OwnedCount = static_cast<std::int16_t>(owned);
    entry.Price = price;
}

} // namespace pistaro
