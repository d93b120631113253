#include "cli/catalogue_json.h"

#include <iomanip>
#include <sstream>

namespace pistaro {

Json CatalogueJson(const Catalogue& catalogue) {
    Json rows = Json::array();
    for (int row = 0; row < catalogue.Count(); ++row) {
        const CatalogueEntry& entry = catalogue[row];
        rows.push_back({{"row", row},
                        {"code", entry.Code},
                        {"system", static_cast<int>(entry.System)},
                        {"shortName", entry.ShortName},
                        {"longName", entry.LongName},
                        {"shape", entry.ShapeIndex},
                        {"stock", entry.StockIndex},
                        {"lane1", Number(entry.LaneLength1)},
                        {"lane2", Number(entry.LaneLength2)},
                        {"laneChange", entry.LaneChange}});
    }
    return {{"rows", std::move(rows)}};
}

std::string CatalogueTable(const Catalogue& catalogue) {
    std::ostringstream table;
    table << "code      system      lane 1   lane 2   name\n" << std::fixed << std::setprecision(3);
    for (int row = 0; row < catalogue.Count(); ++row) {
        const CatalogueEntry& entry = catalogue[row];
        table << std::left << std::setw(10) << entry.Code << std::setw(11)
              << (entry.System == TrackSystem::Ninco ? "Ninco" : "Scalextric") << std::right << std::setw(7)
              << entry.LaneLength1 << std::setw(9) << entry.LaneLength2 << "   " << entry.LongName
              << (entry.LaneChange ? ", lanes change" : "") << '\n';
    }
    return table.str();
}

} // namespace pistaro
