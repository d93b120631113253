#include "support/stock.h"

#include "support/pieces.h"

namespace pistaro {

void SetStock(Project& project, std::string_view code, int owned, float price) {
    project.Stock.Of(Pieces().FindRow(code)) = {static_cast<std::int16_t>(owned), price};
}

} // namespace pistaro
